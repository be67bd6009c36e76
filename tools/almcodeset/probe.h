// Asks the C library's iconv what a byte sequence of a code set stands for.
#pragma once

#include <iconv.h>

#include <cstddef>
#include <cstdint>

namespace alm {

enum class ProbeResult {
    Char,        // a whole character (its code point may be "none")
    Incomplete,  // a valid start that needs more bytes
    Invalid,
};

class Probe {
public:
    explicit Probe(const char* codeset);
    ~Probe();
    Probe(const Probe&) = delete;
    Probe& operator=(const Probe&) = delete;

    bool ok() const { return cd_ != reinterpret_cast<iconv_t>(-1); }
    // Converts the bytes from the initial state. For Char, *cp is the one
    // code point they give, or 0xFFFF when they give none, several, or one
    // beyond 16 bits.
    ProbeResult convert(const unsigned char* in, std::size_t n, std::uint16_t* cp);

private:
    iconv_t cd_;
};

}  // namespace alm
