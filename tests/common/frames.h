// Builders for request frames and an in-memory reply sink for in-process
// tests of the request loop.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "protocol/write.h"
#include "util/endian.h"

namespace alm::test {

inline std::string word(std::uint32_t v) {
    char b[4];
    store_be32(b, v);
    return std::string(b, 4);
}

inline std::string header(std::uint32_t size, std::uint32_t type, std::uint32_t id,
                          std::uint32_t numData, std::uint32_t bytesPer = 0,
                          std::uint32_t dataType = 0) {
    return word(size) + word(type) + word(id) + word(numData) + word(bytesPer) + word(dataType);
}

inline std::string request(std::uint32_t type, std::uint32_t id,
                           const std::vector<std::string>& args) {
    std::string area;
    for (const std::string& a : args) area += a + '\0';
    return header(static_cast<std::uint32_t>(20 + area.size()), type, id,
                  static_cast<std::uint32_t>(args.size())) +
           area;
}

// The reply to a no-operation request.
inline std::string nopReply(std::uint32_t id) { return header(20, 0, id, 0); }

// Collects what the reply writers produce while it lives.
class ReplySink {
public:
    ReplySink() : stream_(open_memstream(&data_, &size_)) { previous_ = readerSetOutput(stream_); }
    ~ReplySink() {
        readerSetOutput(previous_);
        if (stream_) std::fclose(stream_);
        std::free(data_);
    }
    ReplySink(const ReplySink&) = delete;
    ReplySink& operator=(const ReplySink&) = delete;

    std::string bytes() {
        std::fflush(stream_);
        return std::string(data_ ? data_ : "", size_);
    }

private:
    char* data_ = nullptr;
    std::size_t size_ = 0;
    std::FILE* stream_;
    std::FILE* previous_ = nullptr;
};

// A read-only stream over a copy of bytes.
class InputStream {
public:
    explicit InputStream(std::string bytes) : bytes_(std::move(bytes)) {
        // fmemopen may refuse an empty buffer.
        stream_ = bytes_.empty() ? std::fopen("/dev/null", "r")
                                 : fmemopen(bytes_.data(), bytes_.size(), "r");
    }
    ~InputStream() {
        if (stream_) std::fclose(stream_);
    }
    InputStream(const InputStream&) = delete;
    InputStream& operator=(const InputStream&) = delete;
    std::FILE* get() const { return stream_; }

private:
    std::string bytes_;
    std::FILE* stream_ = nullptr;
};

}  // namespace alm::test
