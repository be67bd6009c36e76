#include "minijson.h"

namespace alm::almqtest {
namespace {

const Json kNull;

class Parser {
public:
    explicit Parser(const std::string& s) : s_(s) {}

    bool parse(Json& out, std::string& error) {
        if (!value(out, 0)) {
            error = why_ + " at " + std::to_string(p_);
            return false;
        }
        skip();
        if (p_ != s_.size()) {
            error = "trailing text at " + std::to_string(p_);
            return false;
        }
        return true;
    }

private:
    bool fail(const char* why) {
        why_ = why;
        return false;
    }
    void skip() {
        while (p_ < s_.size() && (s_[p_] == ' ' || s_[p_] == '\t' || s_[p_] == '\n' || s_[p_] == '\r')) ++p_;
    }
    bool literal(const char* word) {
        const std::string w = word;
        if (s_.compare(p_, w.size(), w) != 0) return fail("bad literal");
        p_ += w.size();
        return true;
    }

    bool value(Json& out, int depth) {
        if (depth > 64) return fail("too deep");
        skip();
        if (p_ >= s_.size()) return fail("unexpected end");
        const char c = s_[p_];
        if (c == '{') return object(out, depth);
        if (c == '[') return array(out, depth);
        if (c == '"') {
            out.type = Json::Type::String;
            return string(out.str);
        }
        if (c == 't' || c == 'f') {
            out.type = Json::Type::Bool;
            out.num = c == 't';
            return literal(c == 't' ? "true" : "false");
        }
        if (c == 'n') {
            out.type = Json::Type::Null;
            return literal("null");
        }
        return integer(out);
    }

    bool integer(Json& out) {
        bool neg = false;
        if (s_[p_] == '-') {
            neg = true;
            ++p_;
        }
        if (p_ >= s_.size() || s_[p_] < '0' || s_[p_] > '9') return fail("expected a value");
        if (s_[p_] == '0' && p_ + 1 < s_.size() && s_[p_ + 1] >= '0' && s_[p_ + 1] <= '9') {
            return fail("leading zero");
        }
        std::int64_t v = 0;
        while (p_ < s_.size() && s_[p_] >= '0' && s_[p_] <= '9') {
            if (v > (INT64_MAX - 9) / 10) return fail("number too large");
            v = v * 10 + (s_[p_++] - '0');
        }
        if (p_ < s_.size() && (s_[p_] == '.' || s_[p_] == 'e' || s_[p_] == 'E')) return fail("not an integer");
        out.type = Json::Type::Int;
        out.num = neg ? -v : v;
        return true;
    }

    static void put_utf8(unsigned cp, std::string& out) {
        if (cp < 0x80) {
            out += static_cast<char>(cp);
        } else if (cp < 0x800) {
            out += static_cast<char>(0xC0 | (cp >> 6));
            out += static_cast<char>(0x80 | (cp & 0x3F));
        } else {
            out += static_cast<char>(0xE0 | (cp >> 12));
            out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (cp & 0x3F));
        }
    }

    bool string(std::string& out) {
        ++p_;  // opening quote
        out.clear();
        while (p_ < s_.size()) {
            const auto c = static_cast<unsigned char>(s_[p_++]);
            if (c == '"') return true;
            if (c < 0x20) return fail("control character in a string");
            if (c != '\\') {
                out += static_cast<char>(c);
                continue;
            }
            if (p_ >= s_.size()) break;
            const char e = s_[p_++];
            switch (e) {
                case '"': out += '"'; break;
                case '\\': out += '\\'; break;
                case '/': out += '/'; break;
                case 'b': out += '\b'; break;
                case 'f': out += '\f'; break;
                case 'n': out += '\n'; break;
                case 'r': out += '\r'; break;
                case 't': out += '\t'; break;
                case 'u': {
                    if (p_ + 4 > s_.size()) return fail("short \\u escape");
                    unsigned cp = 0;
                    for (int k = 0; k < 4; ++k) {
                        const char h = s_[p_++];
                        cp <<= 4;
                        if (h >= '0' && h <= '9') cp |= static_cast<unsigned>(h - '0');
                        else if (h >= 'a' && h <= 'f') cp |= static_cast<unsigned>(h - 'a' + 10);
                        else if (h >= 'A' && h <= 'F') cp |= static_cast<unsigned>(h - 'A' + 10);
                        else return fail("bad \\u escape");
                    }
                    put_utf8(cp, out);
                    break;
                }
                default: return fail("bad escape");
            }
        }
        return fail("unterminated string");
    }

    bool array(Json& out, int depth) {
        ++p_;
        out.type = Json::Type::Array;
        skip();
        if (p_ < s_.size() && s_[p_] == ']') {
            ++p_;
            return true;
        }
        for (;;) {
            Json item;
            if (!value(item, depth + 1)) return false;
            out.items.push_back(std::move(item));
            skip();
            if (p_ >= s_.size()) return fail("unterminated array");
            if (s_[p_] == ']') {
                ++p_;
                return true;
            }
            if (s_[p_++] != ',') return fail("expected , in an array");
        }
    }

    bool object(Json& out, int depth) {
        ++p_;
        out.type = Json::Type::Object;
        skip();
        if (p_ < s_.size() && s_[p_] == '}') {
            ++p_;
            return true;
        }
        for (;;) {
            skip();
            if (p_ >= s_.size() || s_[p_] != '"') return fail("expected a key");
            std::string key;
            if (!string(key)) return false;
            for (const std::string& k : out.keys) {
                if (k == key) return fail("duplicate key");
            }
            skip();
            if (p_ >= s_.size() || s_[p_++] != ':') return fail("expected :");
            Json item;
            if (!value(item, depth + 1)) return false;
            out.keys.push_back(std::move(key));
            out.items.push_back(std::move(item));
            skip();
            if (p_ >= s_.size()) return fail("unterminated object");
            if (s_[p_] == '}') {
                ++p_;
                return true;
            }
            if (s_[p_++] != ',') return fail("expected , in an object");
        }
    }

    const std::string& s_;
    std::size_t p_ = 0;
    std::string why_;
};

}  // namespace

bool Json::has(const std::string& key) const {
    for (const std::string& k : keys) {
        if (k == key) return true;
    }
    return false;
}

const Json& Json::operator[](const std::string& key) const {
    for (std::size_t k = 0; k < keys.size(); ++k) {
        if (keys[k] == key) return items[k];
    }
    return kNull;
}

const Json& Json::operator[](std::size_t i) const { return i < items.size() ? items[i] : kNull; }

bool parse_json(const std::string& text, Json& out, std::string& error) {
    out = Json();
    return Parser(text).parse(out, error);
}

bool parse_json_lines(const std::string& text, std::vector<Json>& out, std::string& error) {
    out.clear();
    std::size_t start = 0;
    int lineNo = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        ++lineNo;
        const std::string line = text.substr(start, end - start);
        start = end + 1;
        if (line.empty()) continue;
        Json j;
        if (!parse_json(line, j, error)) {
            error = "line " + std::to_string(lineNo) + ": " + error;
            return false;
        }
        out.push_back(std::move(j));
    }
    return true;
}

}  // namespace alm::almqtest
