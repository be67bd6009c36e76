#include "catsource.h"

#include <cstdint>
#include <vector>

namespace alm {

namespace {

constexpr std::int32_t DEFAULT_SET = 1;

bool is_blank(char c) { return c == ' ' || c == '\t'; }
bool is_digit(char c) { return c >= '0' && c <= '9'; }

struct Line {
    std::string text;
    int number;
};

std::vector<Line> split_lines(const std::string& src) {
    std::vector<Line> lines;
    std::size_t start = 0;
    int number = 1;
    while (start < src.size()) {
        std::size_t end = src.find('\n', start);
        if (end == std::string::npos) end = src.size();
        std::string t = src.substr(start, end - start);
        if (!t.empty() && t.back() == '\r') t.pop_back();
        lines.push_back({t, number++});
        start = end + 1;
    }
    return lines;
}

// Reads a decimal number of at most 31 bits at pos; false when there is none
// or it is too large.
bool read_number(const std::string& s, std::size_t& pos, std::int32_t& value) {
    if (pos >= s.size() || !is_digit(s[pos])) return false;
    std::int64_t v = 0;
    while (pos < s.size() && is_digit(s[pos])) {
        v = v * 10 + (s[pos] - '0');
        if (v > INT32_MAX) return false;
        ++pos;
    }
    value = static_cast<std::int32_t>(v);
    return true;
}

bool ends_in_continuation(const std::string& s) {
    std::size_t n = 0;
    while (n < s.size() && s[s.size() - 1 - n] == '\\') ++n;
    return n % 2 == 1;
}

bool is_octal(char c) { return c >= '0' && c <= '7'; }

// The byte of the escape e, whose backslash ends just before raw[i]; i
// moves past any further octal digits.
bool escaped_byte(char e, char quote, const std::string& raw, std::size_t& i, std::string& out, std::string& error) {
    static constexpr struct {
        char escape;
        char byte;
    } kEscapes[] = {{'n', '\n'}, {'t', '\t'}, {'v', '\v'},   {'b', '\b'},  {'r', '\r'},
                    {'f', '\f'}, {'a', '\a'}, {'\\', '\\'}, {'"', '"'}, {'\'', '\''}};
    for (const auto& k : kEscapes) {
        if (e != k.escape) continue;
        out += k.byte;
        return true;
    }
    if (is_octal(e)) {
        int v = e - '0';
        for (int k = 0; k < 2 && i < raw.size() && is_octal(raw[i]); ++k) v = v * 8 + (raw[i++] - '0');
        if (v == 0) {
            error = "a NUL byte cannot be part of a text";
            return false;
        }
        if (v > 255) {
            error = "octal escape above \\377";
            return false;
        }
        out += static_cast<char>(v);
        return true;
    }
    if (e == quote) {
        out += e;
        return true;
    }
    error = std::string("unknown escape \\") + e;
    return false;
}

// Turns the escapes of a message text into bytes. With a quote character,
// a text that begins with it must end with it.
bool unescape(const std::string& raw, char quote, std::string& out, std::string& error) {
    const bool quoted = quote != '\0' && !raw.empty() && raw[0] == quote;
    std::size_t i = quoted ? 1 : 0;
    out.clear();
    while (i < raw.size()) {
        const char c = raw[i];
        if (quoted && c == quote) {
            if (raw.find_first_not_of(" \t", i + 1) != std::string::npos) {
                error = "text after the closing quote";
                return false;
            }
            return true;
        }
        if (c != '\\') {
            out += c;
            ++i;
            continue;
        }
        if (i + 1 >= raw.size()) {
            error = "backslash at the end of the text";
            return false;
        }
        i += 2;
        if (!escaped_byte(raw[i - 1], quote, raw, i, out, error)) return false;
    }
    if (quoted) {
        error = "missing closing quote";
        return false;
    }
    return true;
}

std::string where(int line, const std::string& what) { return std::to_string(line) + ": " + what; }

}  // namespace

namespace {

// A "$" line: $set, $delset, $quote or a comment.
bool parse_directive(const std::string& s, int lineno, std::int32_t& current, char& quote, SourceCatalog& cat,
                     std::string& error) {
    std::size_t pos = 1;
    while (pos < s.size() && !is_blank(s[pos])) ++pos;
    const std::string word = s.substr(1, pos - 1);
    while (pos < s.size() && is_blank(s[pos])) ++pos;
    if (word.empty()) return true;  // "$ comment"
    if (word == "quote") {
        quote = pos < s.size() ? s[pos] : '\0';
        return true;
    }
    if (word != "set" && word != "delset") {
        error = where(lineno, "unknown directive $" + word);
        return false;
    }
    std::int32_t id = 0;
    const bool number = read_number(s, pos, id);
    if (number && id < 1) {
        error = where(lineno, "set numbers start at 1");
        return false;
    }
    if (!number || (pos < s.size() && !is_blank(s[pos]))) {
        error = where(lineno, "$" + word + " needs a set number from 1 to 2147483647");
        return false;
    }
    SourceSet& set = cat.sets[id];
    set.deleted = word == "delset";
    if (word == "set") current = id;
    else set.msgs.clear();
    return true;
}

// A message line, with the lines it continues onto; li moves to the last.
bool parse_message(const std::vector<Line>& lines, std::size_t& li, std::int32_t current, char quote,
                   SourceCatalog& cat, std::string& error) {
    const int lineno = lines[li].number;
    std::string logical = lines[li].text;
    while (ends_in_continuation(logical)) {
        logical.pop_back();
        if (li + 1 >= lines.size()) {
            error = where(lineno, "continuation at the end of the file");
            return false;
        }
        logical += lines[++li].text;
    }
    std::size_t pos = 0;
    std::int32_t id = 0;
    if (!read_number(logical, pos, id)) {
        error = where(lineno, "message number above 2147483647");
        return false;
    }
    if (id < 1) {
        error = where(lineno, "message numbers start at 1");
        return false;
    }
    SourceSet& set = cat.sets[current];
    set.deleted = false;
    if (pos == logical.size()) {  // a number alone deletes the message
        set.msgs[id] = SourceMsg{{}, true};
        return true;
    }
    if (!is_blank(logical[pos])) {
        error = where(lineno, "expected a blank after the message number");
        return false;
    }
    std::string text;
    std::string why;
    if (!unescape(logical.substr(pos + 1), quote, text, why)) {
        error = where(lineno, why);
        return false;
    }
    set.msgs[id] = SourceMsg{text, false};
    return true;
}

}  // namespace

bool parse_catalog_source(const std::string& src, SourceCatalog& cat, std::string& error) {
    const std::vector<Line> lines = split_lines(src);
    std::int32_t current = DEFAULT_SET;
    char quote = '\0';
    for (std::size_t li = 0; li < lines.size(); ++li) {
        const std::string& s = lines[li].text;
        if (s.find_first_not_of(" \t") == std::string::npos) continue;
        if (s[0] == '$') {
            if (!parse_directive(s, lines[li].number, current, quote, cat, error)) return false;
            continue;
        }
        if (!is_digit(s[0])) {
            error = where(lines[li].number, "expected a message number or a $ directive");
            return false;
        }
        if (!parse_message(lines, li, current, quote, cat, error)) return false;
    }
    return true;
}

}  // namespace alm
