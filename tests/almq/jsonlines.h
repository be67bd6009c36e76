// almq's --json output read back: one object per line, keys in output order.
#pragma once

#include <nlohmann/json.hpp>

#include <sstream>
#include <string>
#include <vector>

namespace alm::almqtest {

using Json = nlohmann::ordered_json;

// One value per non-empty line; false, naming the bad line, on a syntax error.
inline bool parse_json_lines(const std::string& text, std::vector<Json>& out, std::string& error) {
    std::istringstream in(text);
    std::string line;
    for (int n = 1; std::getline(in, line); ++n) {
        if (line.empty()) continue;
        Json j = Json::parse(line, nullptr, false);
        if (j.is_discarded()) {
            error = "line " + std::to_string(n) + " is not JSON: " + line;
            return false;
        }
        out.push_back(std::move(j));
    }
    return true;
}

inline std::vector<std::string> keys_of(const Json& j) {
    std::vector<std::string> keys;
    for (const auto& item : j.items()) keys.push_back(item.key());
    return keys;
}

}  // namespace alm::almqtest
