// Fresh memory brought in ahead of use.
#pragma once

#include <cstddef>

namespace alm {

// Maps the whole pages inside [p, p + len) in one system call, where the
// system offers it: a page first touched one by one costs a fault each,
// which under virtualisation costs more than copying the page. Harmless
// where it is not offered.
void prefault(void* p, std::size_t len);

}  // namespace alm
