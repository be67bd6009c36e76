#include "jsonvalue.h"

#include <cstdio>

namespace alm {

JsonValue JsonValue::integer(std::int64_t v) {
    JsonValue j;
    j.type_ = Type::Int;
    j.int_ = v;
    return j;
}

JsonValue JsonValue::string(std::string_view s) {
    JsonValue j;
    j.type_ = Type::String;
    j.str_ = s;
    return j;
}

JsonValue JsonValue::array() {
    JsonValue j;
    j.type_ = Type::Array;
    return j;
}

JsonValue JsonValue::object() {
    JsonValue j;
    j.type_ = Type::Object;
    return j;
}

void JsonValue::push(JsonValue v) { items_.push_back(std::move(v)); }

void JsonValue::set(std::string_view key, JsonValue v) {
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        if (keys_[i] == key) {
            items_[i] = std::move(v);
            return;
        }
    }
    keys_.emplace_back(key);
    items_.push_back(std::move(v));
}

const JsonValue* JsonValue::find(std::string_view key) const {
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        if (keys_[i] == key) return &items_[i];
    }
    return nullptr;
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

}  // namespace

void json_quote(std::string_view s, std::string& out) {
    out += '"';
    for (std::size_t i = 0; i < s.size();) {
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
            default:
                if (c < 0x20 || c == 0x7F) {
                    append_escape(c, out);
                } else {
                    out += static_cast<char>(c);
                }
        }
        ++i;
    }
    out += '"';
}

void JsonValue::write(std::string& out) const {
    switch (type_) {
        case Type::Null: out += "null"; break;
        case Type::Int: out += std::to_string(int_); break;
        case Type::String: json_quote(str_, out); break;
        case Type::Array:
            out += '[';
            for (std::size_t i = 0; i < items_.size(); ++i) {
                if (i > 0) out += ',';
                items_[i].write(out);
            }
            out += ']';
            break;
        case Type::Object:
            out += '{';
            for (std::size_t i = 0; i < items_.size(); ++i) {
                if (i > 0) out += ',';
                json_quote(keys_[i], out);
                out += ':';
                items_[i].write(out);
            }
            out += '}';
            break;
    }
}

std::string JsonValue::dump() const {
    std::string out;
    write(out);
    return out;
}

}  // namespace alm
