// Reads and writes on descriptors that carry on when a signal interrupts them.
#include "util/fdio.h"

#include <unistd.h>

#include <cerrno>

namespace alm {
namespace {

template <typename Call>
ssize_t retried(Call call) {
    ssize_t n;
    do {
        n = call();
    } while (n < 0 && errno == EINTR);
    return n;
}

// The count read until len or the end, or -1; off < 0 reads from the
// descriptor's own position.
ssize_t fill(int fd, void* buf, std::size_t len, off_t off) {
    auto* p = static_cast<unsigned char*>(buf);
    std::size_t got = 0;
    while (got < len) {
        const ssize_t n = off < 0 ? read_retry(fd, p + got, len - got)
                                  : pread_retry(fd, p + got, len - got, off + static_cast<off_t>(got));
        if (n < 0) return -1;
        if (n == 0) break;
        got += static_cast<std::size_t>(n);
    }
    return static_cast<ssize_t>(got);
}

}  // namespace

ssize_t read_retry(int fd, void* buf, std::size_t len) {
    return retried([&] { return ::read(fd, buf, len); });
}

ssize_t pread_retry(int fd, void* buf, std::size_t len, off_t off) {
    return retried([&] { return ::pread(fd, buf, len, off); });
}

ssize_t pwrite_retry(int fd, const void* buf, std::size_t len, off_t off) {
    return retried([&] { return ::pwrite(fd, buf, len, off); });
}

ssize_t read_full(int fd, void* buf, std::size_t len) { return fill(fd, buf, len, -1); }

ssize_t pread_full(int fd, void* buf, std::size_t len, off_t off) { return off < 0 ? -1 : fill(fd, buf, len, off); }

int write_full(int fd, const void* buf, std::size_t len, off_t off) {
    const auto* p = static_cast<const unsigned char*>(buf);
    while (len > 0) {
        const ssize_t n = retried([&] { return off < 0 ? ::write(fd, p, len) : ::pwrite(fd, p, len, off); });
        if (n == 0) errno = EIO;
        if (n <= 0) return errno;
        p += n;
        len -= static_cast<std::size_t>(n);
        if (off >= 0) off += n;
    }
    return 0;
}

}  // namespace alm
