// Converters for EBCDIC-based code sets. Every byte goes through the table,
// since EBCDIC and ASCII share no byte values beyond NUL.
//
// Double-byte EBCDIC text is stateful: it starts in single-byte mode,
// shift-out (0x0E) enters double-byte mode and shift-in (0x0F) leaves it;
// the shift bytes themselves produce nothing. In single-byte mode a byte is
// read from the row that byte 0 names; in double-byte mode two bytes form
// one character through the lead byte's row, a lead byte whose length is
// not 2 giving "?". Text written from UTF-8 always ends in single-byte
// mode: a double-byte character goes out only when the shift-in that
// closes it (and, for a terminated result, the NUL after that) still fits.
#include "messages/codeset_tables.h"
#include "messages/conv.h"

namespace alm {

namespace {

constexpr unsigned char kShiftOut = 0x0E;
constexpr unsigned char kShiftIn = 0x0F;
constexpr unsigned char kEbcdicQuestion = 0x6F;

unsigned char question_mark(const CodeSet& cs) {
    const RevEntry* e = cs.rev.find('?');
    return e != nullptr && e->len == 1 ? e->bytes[0] : kEbcdicQuestion;
}

}  // namespace

int ebcdic_sbcs_to_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize) {
    ConvIo io(src, srclen, dst, dstsize);
    const unsigned char* in = io.in();
    for (std::size_t i = 0; i < io.in_size(); ++i)
        if (!put_utf8(io, cs.entries[in[i]])) break;
    return io.finish();
}

int ebcdic_sbcs_from_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize) {
    ConvIo io(src, srclen, dst, dstsize);
    const unsigned char* in = io.in();
    const std::size_t n = io.in_size();
    const unsigned char qm = question_mark(cs);
    for (std::size_t i = 0; i < n;) {
        std::size_t used;
        const RevEntry* e = cs.rev.find(utf8_decode(in + i, n - i, &used));
        if (!(e != nullptr ? io.put(e->bytes.data(), e->len) : io.put(qm))) break;
        i += used;
    }
    return io.finish();
}

int ebcdic_dbcs_to_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize) {
    ConvIo io(src, srclen, dst, dstsize);
    const unsigned char* in = io.in();
    const std::size_t n = io.in_size();
    const std::size_t single_row = std::size_t{cs.entries[0]} * 2;
    bool shifted = false;
    for (std::size_t i = 0; i < n;) {
        const unsigned char b = in[i];
        if (b == kShiftOut || b == kShiftIn) {
            shifted = b == kShiftOut;
            ++i;
            continue;
        }
        std::uint16_t cp = kNoMapping;
        std::size_t used = 1;
        if (!shifted) {
            cp = cs.row_at(single_row + b);
        } else if (i + 1 < n && in[i + 1] != kShiftOut && in[i + 1] != kShiftIn) {
            // A pair cut short by a shift byte gives "?" for its lead alone.
            if (cs.lengths[b] == 2) cp = cs.row_at(std::size_t{cs.entries[b]} * 2 + in[i + 1]);
            used = 2;
        }
        if (!put_utf8(io, cp)) break;
        i += used;
    }
    return io.finish();
}

int ebcdic_dbcs_from_utf8(const CodeSet& cs, const char* src, int srclen, char* dst, int dstsize) {
    ConvIo io(src, srclen, dst, dstsize);
    const unsigned char* in = io.in();
    const std::size_t n = io.in_size();
    const unsigned char qm = question_mark(cs);
    // Kept free after a double-byte character: the closing shift-in, and
    // the NUL so that it does not overwrite that shift-in.
    const std::size_t tail = io.terminates() ? 2 : 1;
    bool shifted = false;
    for (std::size_t i = 0; i < n;) {
        std::size_t used;
        const RevEntry* e = cs.rev.find(utf8_decode(in + i, n - i, &used));
        if (e != nullptr && e->len == 2) {
            if (io.room() < (shifted ? 0u : 1u) + 2 + tail) break;
            if (!shifted) io.put(kShiftOut);
            io.put(e->bytes.data(), 2);
            shifted = true;
        } else {
            const unsigned char byte = e != nullptr ? e->bytes[0] : qm;
            if (io.room() < (shifted ? 2u : 1u)) break;
            if (shifted) io.put(kShiftIn);
            io.put(byte);
            shifted = false;
        }
        i += used;
    }
    if (shifted) io.put(kShiftIn);
    return io.finish();
}

}  // namespace alm
