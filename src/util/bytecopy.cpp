// Copies of whole records through the C library's copy routine.
#include "util/bytecopy.h"

#include <cstring>

namespace alm {

void copy_bytes(void* dst, const void* src, std::size_t length) { std::memcpy(dst, src, length); }

}  // namespace alm
