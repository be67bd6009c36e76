// Helpers for record-form tests: raw little-endian records built at literal
// offsets, and a capture of standard error through a real file descriptor.
#pragma once

#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "plan/almrecs.h"
#include "util/endian.h"

namespace alm::test {

inline void put16(void* rec, int off, std::uint16_t v) { store_le16(static_cast<unsigned char*>(rec) + off, v); }
inline void put32(void* rec, int off, std::uint32_t v) { store_le32(static_cast<unsigned char*>(rec) + off, v); }
inline std::uint16_t get16(const void* rec, int off) { return load_le16(static_cast<const unsigned char*>(rec) + off); }
inline std::uint32_t get32(const void* rec, int off) { return load_le32(static_cast<const unsigned char*>(rec) + off); }
// Writes text into a fixed-width field, blank padded.
inline void put_text(void* rec, int off, int width, const char* text) {
    auto* p = static_cast<unsigned char*>(rec) + off;
    std::memset(p, ' ', static_cast<std::size_t>(width));
    std::memcpy(p, text, std::min(std::strlen(text), static_cast<std::size_t>(width)));
}
// A field as a string, for comparisons that show blanks.
template <std::size_t N>
std::string field(const char (&f)[N]) {
    return std::string(f, N);
}
inline std::string padded(const char* text, std::size_t width) {
    std::string s(text);
    s.resize(width, ' ');
    return s;
}
inline bool all_bytes(const void* p, std::size_t n, unsigned char v) {
    const auto* b = static_cast<const unsigned char*>(p);
    for (std::size_t i = 0; i < n; ++i)
        if (b[i] != v) return false;
    return true;
}

// Deterministic filler so that every byte of a record is distinguishable.
inline void fill_pattern(void* rec, std::size_t n, unsigned seed) {
    auto* b = static_cast<unsigned char*>(rec);
    std::uint32_t x = seed * 2654435761u + 12345u;
    for (std::size_t i = 0; i < n; ++i) {
        x = x * 1103515245u + 12345u;
        b[i] = static_cast<unsigned char>(x >> 16);
    }
}

// Redirects file descriptor 2 into a temporary file until text() is called.
class StderrCapture {
public:
    StderrCapture() {
        std::fflush(stderr);
        char path[] = "/tmp/alm_stderr_XXXXXX";
        fd_ = mkstemp(path);
        if (fd_ >= 0) unlink(path);
        saved_ = dup(2);
        if (fd_ >= 0 && saved_ >= 0) dup2(fd_, 2);
    }
    ~StderrCapture() {
        restore();
        if (fd_ >= 0) close(fd_);
    }
    StderrCapture(const StderrCapture&) = delete;
    StderrCapture& operator=(const StderrCapture&) = delete;

    std::string text() {
        restore();
        std::string out;
        if (fd_ < 0) return out;
        lseek(fd_, 0, SEEK_SET);
        char buf[512];
        ssize_t n;
        while ((n = read(fd_, buf, sizeof buf)) > 0) out.append(buf, static_cast<std::size_t>(n));
        return out;
    }

private:
    void restore() {
        std::fflush(stderr);
        if (saved_ >= 0) {
            dup2(saved_, 2);
            close(saved_);
            saved_ = -1;
        }
    }
    int fd_ = -1;
    int saved_ = -1;
};

}  // namespace alm::test
