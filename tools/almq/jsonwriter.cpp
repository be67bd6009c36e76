#include "jsonwriter.h"

#include <charconv>
#include <cstdio>

namespace alm {

void JsonWriter::open(char bracket) {
    separate();
    out_ += bracket;
    afterValue_ = false;
}

void JsonWriter::close(char bracket) {
    out_ += bracket;
    afterValue_ = true;
}

void JsonWriter::key(std::string_view name) {
    separate();
    json_quote(name, out_);
    out_ += ':';
    afterValue_ = false;
}

void JsonWriter::integer(std::int64_t v) {
    separate();
    char buf[24];
    const auto end = std::to_chars(buf, buf + sizeof buf, v).ptr;
    out_.append(buf, static_cast<std::size_t>(end - buf));
    afterValue_ = true;
}

void JsonWriter::string(std::string_view s) {
    separate();
    json_quote(s, out_);
    afterValue_ = true;
}

namespace {

// Length of the well-formed UTF-8 sequence at s[i], or 0.
std::size_t utf8_length(std::string_view s, std::size_t i) {
    const auto b0 = static_cast<unsigned char>(s[i]);
    std::size_t n = 0;
    unsigned min = 0;
    if (b0 >= 0xC2 && b0 <= 0xDF) {
        n = 2;
        min = 0x80;
    } else if (b0 >= 0xE0 && b0 <= 0xEF) {
        n = 3;
        min = 0x800;
    } else if (b0 >= 0xF0 && b0 <= 0xF4) {
        n = 4;
        min = 0x10000;
    } else {
        return 0;
    }
    if (i + n > s.size()) return 0;
    unsigned cp = b0 & (0x7Fu >> n);
    for (std::size_t k = 1; k < n; ++k) {
        const auto b = static_cast<unsigned char>(s[i + k]);
        if ((b & 0xC0) != 0x80) return 0;
        cp = (cp << 6) | (b & 0x3Fu);
    }
    if (cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return 0;
    return n;
}

void append_escape(unsigned code, std::string& out) {
    char buf[8];
    std::snprintf(buf, sizeof buf, "\\u%04x", code);
    out += buf;
}

// Printable ASCII other than the quote and the backslash stands as it is.
bool plain(unsigned char c) { return c >= 0x20 && c < 0x7F && c != '"' && c != '\\'; }

}  // namespace

void json_quote(std::string_view s, std::string& out) {
    out += '"';
    for (std::size_t i = 0; i < s.size();) {
        std::size_t run = i;
        while (run < s.size() && plain(static_cast<unsigned char>(s[run]))) ++run;
        out.append(s.substr(i, run - i));
        i = run;
        if (i == s.size()) break;
        const auto c = static_cast<unsigned char>(s[i]);
        if (c >= 0x80) {
            const std::size_t n = utf8_length(s, i);
            if (n == 0) {
                append_escape(c, out);
                ++i;
            } else {
                out.append(s.substr(i, n));
                i += n;
            }
            continue;
        }
        switch (c) {
            case '"': out += "\\\""; break;
            case '\\': out += "\\\\"; break;
            case '\n': out += "\\n"; break;
            case '\t': out += "\\t"; break;
            case '\r': out += "\\r"; break;
            default: append_escape(c, out);
        }
        ++i;
    }
    out += '"';
}

}  // namespace alm
