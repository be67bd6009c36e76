// Copies of whole records on the hot paths of the listings.
#pragma once

#include <cstddef>

namespace alm {

// memcpy through the C library's own routine. A copy whose size the
// compiler knows (a 512-byte record) is inlined as a string move, which
// costs about twice the library's vector copy at this size; the size is
// passed through a call the compiler cannot see into, so the library's
// routine runs.
void copy_bytes(void* dst, const void* src, std::size_t length);

}  // namespace alm
