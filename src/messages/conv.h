// Shared pieces of the converters: the source and destination of one
// conversion, UTF-8 encoding and decoding, and the converter entry points.
#pragma once

#include <cstddef>
#include <cstdint>

namespace alm {

struct CodeSet;

// One conversion's source and destination. A source length of -1 means a
// NUL-terminated source; the output is then NUL-terminated too, the NUL
// overwriting the last byte when the destination is full. Any other
// negative length is an empty source. Output goes out whole characters at
// a time: a character that does not fit in the room left ends the
// conversion.
class ConvIo {
public:
    ConvIo(const char* src, int srclen, char* dst, int dstsize);

    const unsigned char* in() const { return in_; }
    std::size_t in_size() const { return in_size_; }
    // Room left in the destination.
    std::size_t room() const { return cap_ - n_; }
    // True when the output will be NUL-terminated.
    bool terminates() const { return terminate_; }
    // Appends a whole sequence; false (nothing written) when it does not fit.
    bool put(const unsigned char* bytes, std::size_t len);
    bool put(unsigned char byte) { return put(&byte, 1); }
    // Terminates when asked and returns the bytes written, NUL not counted.
    int finish();

private:
    const unsigned char* in_ = nullptr;
    std::size_t in_size_ = 0;
    unsigned char* out_ = nullptr;
    std::size_t cap_ = 0;
    std::size_t n_ = 0;
    bool terminate_ = false;
};

// UTF-8 of a 16-bit code point: one to three bytes; returns the length.
int utf8_encode(std::uint16_t cp, unsigned char out[3]);

// Decodes one character at s (n > 0 bytes left). Sets *used to the bytes
// taken (at least 1) and returns the code point, or kBadUtf8 for a
// malformed or truncated sequence (its longest valid prefix is taken).
inline constexpr std::uint32_t kBadUtf8 = 0xFFFFFFFFu;
std::uint32_t utf8_decode(const unsigned char* s, std::size_t n, std::size_t* used);

// Writes code point cp as UTF-8 ("?" for kNoMapping); false when full.
bool put_utf8(ConvIo& io, std::uint16_t cp);

// Copies bytes unchanged (UTF-8 and unknown types).
int copy_conv(const char* src, int srclen, char* dst, int dstsize);

int ascii_sbcs_to_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize);
int ascii_sbcs_from_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize);
int ascii_dbcs_to_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize);
int ascii_dbcs_from_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize);
int ascii_mbcs_to_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize);
int ascii_mbcs_from_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize);
int ebcdic_sbcs_to_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize);
int ebcdic_sbcs_from_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize);
int ebcdic_dbcs_to_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize);
int ebcdic_dbcs_from_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize);

}  // namespace alm
