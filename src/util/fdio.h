// Reads and writes on descriptors that carry on when a signal interrupts them.
#pragma once

#include <sys/types.h>

#include <cstddef>

namespace alm {

ssize_t read_retry(int fd, void* buf, std::size_t len);
ssize_t pread_retry(int fd, void* buf, std::size_t len, off_t off);
ssize_t pwrite_retry(int fd, const void* buf, std::size_t len, off_t off);

// Reads until len bytes are in or the file ends: the count read, or -1
// (errno set) when a read fails.
ssize_t read_full(int fd, void* buf, std::size_t len);
ssize_t pread_full(int fd, void* buf, std::size_t len, off_t off);

// Writes all len bytes (at off when off >= 0): 0, or the errno (also left
// in errno) of the write that failed.
int write_full(int fd, const void* buf, std::size_t len, off_t off = -1);

}  // namespace alm
