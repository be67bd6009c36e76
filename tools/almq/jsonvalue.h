// A small JSON value: null, integer, string, array or object (members kept in
// insertion order), written on one line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace alm {

class JsonValue {
public:
    enum class Type { Null, Int, String, Array, Object };

    JsonValue() = default;
    static JsonValue integer(std::int64_t v);
    static JsonValue string(std::string_view s);
    static JsonValue array();
    static JsonValue object();

    Type type() const { return type_; }
    std::int64_t asInt() const { return int_; }
    const std::string& asString() const { return str_; }

    // Arrays: the items. Objects: the member values, in the order of keys().
    const std::vector<JsonValue>& items() const { return items_; }
    const std::vector<std::string>& keys() const { return keys_; }

    void push(JsonValue v);
    // Appends a member; a key already present is replaced in place.
    void set(std::string_view key, JsonValue v);
    const JsonValue* find(std::string_view key) const;

    void write(std::string& out) const;
    std::string dump() const;

private:
    Type type_ = Type::Null;
    std::int64_t int_ = 0;
    std::string str_;
    std::vector<std::string> keys_;
    std::vector<JsonValue> items_;
};

// Appends s as a JSON string literal. Valid UTF-8 passes through; any other
// byte is taken as Latin-1, so the output is always valid UTF-8.
void json_quote(std::string_view s, std::string& out);

}  // namespace alm
