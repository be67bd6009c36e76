// Bringing in fresh pages with one system call.
#include "util/pages.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>

namespace alm {

void prefault(void* p, std::size_t len) {
#ifdef MADV_POPULATE_WRITE
    static const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    const auto start = reinterpret_cast<std::uintptr_t>(p);
    const std::uintptr_t first = (start + page - 1) / page * page;
    const std::uintptr_t end = (start + len) / page * page;
    if (end > first) (void)::madvise(reinterpret_cast<void*>(first), end - first, MADV_POPULATE_WRITE);
#else
    (void)p;
    (void)len;
#endif
}

}  // namespace alm
