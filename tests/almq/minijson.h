// A small JSON reader for checking almq's JSON lines: objects, arrays,
// strings, integers, true, false and null.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace alm::almqtest {

struct Json {
    enum class Type { Null, Bool, Int, String, Array, Object } type = Type::Null;
    std::int64_t num = 0;
    std::string str;
    std::vector<Json> items;
    std::vector<std::string> keys;  // object keys in order; values in items

    bool has(const std::string& key) const;
    // Member by key; a null value when absent.
    const Json& operator[](const std::string& key) const;
    const Json& operator[](std::size_t i) const;
    std::int64_t i(const std::string& key) const { return (*this)[key].num; }
    const std::string& s(const std::string& key) const { return (*this)[key].str; }
};

// Parses one JSON text; false (with a reason) on any syntax error or
// trailing garbage.
bool parse_json(const std::string& text, Json& out, std::string& error);

// One value per non-empty line; false when any line fails to parse.
bool parse_json_lines(const std::string& text, std::vector<Json>& out, std::string& error);

}  // namespace alm::almqtest
