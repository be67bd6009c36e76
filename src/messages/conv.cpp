// Shared pieces of the converters: one conversion's source and destination, and copying text through it.
#include "messages/conv.h"

#include <cstring>

#include "messages/codeset_tables.h"

namespace alm {

ConvIo::ConvIo(const char* src, int srclen, char* dst, int dstsize) {
    if (src != nullptr) {
        in_ = reinterpret_cast<const unsigned char*>(src);
        if (srclen == -1)
            in_size_ = std::strlen(src);
        else if (srclen > 0)
            in_size_ = static_cast<std::size_t>(srclen);
    }
    terminate_ = srclen == -1;
    if (dst != nullptr && dstsize > 0) {
        out_ = reinterpret_cast<unsigned char*>(dst);
        cap_ = static_cast<std::size_t>(dstsize);
    }
}

bool ConvIo::put(const unsigned char* bytes, std::size_t len) {
    if (len > cap_ - n_) return false;
    if (len == 0) return true;
    std::memcpy(out_ + n_, bytes, len);
    n_ += len;
    return true;
}

int ConvIo::finish() {
    if (terminate_ && cap_ > 0) {
        if (n_ == cap_) --n_;
        out_[n_] = 0;
    }
    return static_cast<int>(n_);
}

int utf8_encode(std::uint16_t cp, unsigned char out[3]) {
    if (cp < 0x80) {
        out[0] = static_cast<unsigned char>(cp);
        return 1;
    }
    if (cp < 0x800) {
        out[0] = static_cast<unsigned char>(0xC0 | (cp >> 6));
        out[1] = static_cast<unsigned char>(0x80 | (cp & 0x3F));
        return 2;
    }
    out[0] = static_cast<unsigned char>(0xE0 | (cp >> 12));
    out[1] = static_cast<unsigned char>(0x80 | ((cp >> 6) & 0x3F));
    out[2] = static_cast<unsigned char>(0x80 | (cp & 0x3F));
    return 3;
}

std::uint32_t utf8_decode(const unsigned char* s, std::size_t n, std::size_t* used) {
    const unsigned char b = s[0];
    *used = 1;
    if (b < 0x80) return b;
    std::size_t need;
    std::uint32_t cp;
    unsigned char lo = 0x80, hi = 0xBF;  // allowed range of the second byte
    if (b >= 0xC2 && b <= 0xDF) {
        need = 1;
        cp = b & 0x1Fu;
    } else if (b >= 0xE0 && b <= 0xEF) {
        need = 2;
        cp = b & 0x0Fu;
        if (b == 0xE0) lo = 0xA0;
        if (b == 0xED) hi = 0x9F;
    } else if (b >= 0xF0 && b <= 0xF4) {
        need = 3;
        cp = b & 0x07u;
        if (b == 0xF0) lo = 0x90;
        if (b == 0xF4) hi = 0x8F;
    } else {
        return kBadUtf8;
    }
    for (std::size_t i = 1; i <= need; ++i) {
        if (i >= n) return kBadUtf8;
        const unsigned char c = s[i];
        if (i == 1 ? (c < lo || c > hi) : (c < 0x80 || c > 0xBF)) return kBadUtf8;
        cp = (cp << 6) | (c & 0x3Fu);
        *used = i + 1;
    }
    return cp;
}

bool put_utf8(ConvIo& io, std::uint16_t cp) {
    if (cp == kNoMapping) return io.put('?');
    unsigned char buf[3];
    return io.put(buf, static_cast<std::size_t>(utf8_encode(cp, buf)));
}

int copy_conv(const char* src, int srclen, char* dst, int dstsize) {
    ConvIo io(src, srclen, dst, dstsize);
    const std::size_t n = io.in_size() < io.room() ? io.in_size() : io.room();
    io.put(io.in(), n);
    return io.finish();
}

}  // namespace alm
