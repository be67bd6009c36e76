// JSON written straight into a string as values come: objects and arrays
// opened and closed in order, members and items separated as they follow
// one another, all on one line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace alm {

class JsonWriter {
public:
    explicit JsonWriter(std::string& out) : out_(out) {}

    void beginObject() { open('{'); }
    void endObject() { close('}'); }
    void beginArray() { open('['); }
    void endArray() { close(']'); }
    // A member name; its value comes next.
    void key(std::string_view name);
    void integer(std::int64_t v);
    void string(std::string_view s);

    void member(std::string_view name, std::int64_t v) {
        key(name);
        integer(v);
    }
    void member(std::string_view name, std::string_view s) {
        key(name);
        string(s);
    }

private:
    void open(char bracket);
    void close(char bracket);
    // A comma before any value or member but the first of its container.
    void separate() {
        if (afterValue_) out_ += ',';
    }

    std::string& out_;
    bool afterValue_ = false;  // a complete value was just written
};

// Appends s as a JSON string literal. Valid UTF-8 passes through; any other
// byte is taken as Latin-1, so the output is always valid UTF-8.
void json_quote(std::string_view s, std::string& out);

}  // namespace alm
