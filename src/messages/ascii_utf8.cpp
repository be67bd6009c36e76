// Converters for ASCII-based code sets: bytes below 128 are ASCII and are
// copied both ways; everything else goes through the table.
#include "messages/codeset_tables.h"
#include "messages/conv.h"

namespace alm {

namespace {

// Shared by the three ASCII-based directions from UTF-8: a code point
// below 128 is copied, any other goes through the reverse map, "?" when it
// has no mapping (or is not valid UTF-8).
int ascii_from_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize) {
    ConvIo io(src, srclen, dst, dstsize);
    const unsigned char* in = io.in();
    const std::size_t n = io.in_size();
    for (std::size_t i = 0; i < n;) {
        std::size_t used;
        const std::uint32_t cp = utf8_decode(in + i, n - i, &used);
        bool ok;
        if (cp < 0x80) {
            ok = io.put(static_cast<unsigned char>(cp));
        } else if (const RevEntry* e = cs.rev.find(cp)) {
            ok = io.put(e->bytes.data(), e->len);
        } else {
            ok = io.put('?');
        }
        if (!ok) break;
        i += used;
    }
    return io.finish();
}

// The code point of an n-byte multi-byte character (n >= 2 bytes at s).
std::uint16_t mbcs_lookup(const CodeSet& cs, const unsigned char* s, std::size_t n) {
    std::uint16_t entry = cs.entries[s[0]];
    for (std::size_t k = 1; k < n; ++k) {
        const std::size_t idx = std::size_t{entry} * 2;
        if (idx + 1 >= cs.rows.size()) return kNoMapping;
        const unsigned count = cs.rows[idx];
        const unsigned base = cs.rows[idx + 1];
        if (s[k] < base || s[k] - base >= count) return kNoMapping;
        const std::size_t j = idx + 2 + (s[k] - base);
        if (j >= cs.rows.size()) return kNoMapping;
        entry = cs.rows[j];
    }
    return entry;
}

}  // namespace

int ascii_sbcs_to_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize) {
    ConvIo io(src, srclen, dst, dstsize);
    const unsigned char* in = io.in();
    for (std::size_t i = 0; i < io.in_size(); ++i) {
        const unsigned char b = in[i];
        if (!(b < 0x80 ? io.put(b) : put_utf8(io, cs.entries[b]))) break;
    }
    return io.finish();
}

int ascii_sbcs_from_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize) {
    return ascii_from_utf8(cs, src, srclen, dst, dstsize);
}

// A one-byte character of 128 or more is read from the row that byte 0
// names; a lead byte of any length but 1 or 2 gives "?". A lead byte cut
// off by the end of the source gives "?".
int ascii_dbcs_to_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize) {
    ConvIo io(src, srclen, dst, dstsize);
    const unsigned char* in = io.in();
    const std::size_t n = io.in_size();
    for (std::size_t i = 0; i < n;) {
        const unsigned char b = in[i];
        if (b < 0x80) {
            if (!io.put(b)) break;
            ++i;
            continue;
        }
        std::uint16_t cp = kNoMapping;
        std::size_t used = 1;
        if (cs.lengths[b] == 1) {
            cp = cs.row_at(std::size_t{cs.entries[0]} * 2 + b);
        } else if (cs.lengths[b] == 2 && i + 1 < n) {
            cp = cs.row_at(std::size_t{cs.entries[b]} * 2 + in[i + 1]);
            used = 2;
        }
        if (!put_utf8(io, cp)) break;
        i += used;
    }
    return io.finish();
}

int ascii_dbcs_from_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize) {
    return ascii_from_utf8(cs, src, srclen, dst, dstsize);
}

// A byte of length 255 is skipped; a character's full length is consumed
// even when one of its bytes falls outside its node. A character cut off
// by the end of the source gives "?".
int ascii_mbcs_to_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize) {
    ConvIo io(src, srclen, dst, dstsize);
    const unsigned char* in = io.in();
    const std::size_t n = io.in_size();
    for (std::size_t i = 0; i < n;) {
        const unsigned char b = in[i];
        if (b < 0x80) {
            if (!io.put(b)) break;
            ++i;
            continue;
        }
        const std::size_t len = cs.lengths[b];
        if (len == kSkipByte) {
            ++i;
            continue;
        }
        std::uint16_t cp;
        std::size_t used;
        if (len <= 1) {
            cp = cs.entries[b];
            used = 1;
        } else if (len > n - i) {
            cp = kNoMapping;
            used = n - i;
        } else {
            cp = mbcs_lookup(cs, in + i, len);
            used = len;
        }
        if (!put_utf8(io, cp)) break;
        i += used;
    }
    return io.finish();
}

int ascii_mbcs_from_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize) {
    return ascii_from_utf8(cs, src, srclen, dst, dstsize);
}

}  // namespace alm
