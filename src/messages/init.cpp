// The default code set and the alias list that names its table.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>

#include "messages/codeset.h"
#include "messages/codeset_tables.h"

namespace alm {

namespace {

std::string alias_list_path() {
    const char* dir = std::getenv("ILSDIR");
    if (dir != nullptr && *dir != '\0' && std::strlen(dir) + 17 < 255)
        return std::string(dir) + "/codeset/aliases";
    return "aliases";
}

bool is_alnum(unsigned char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

bool is_space(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\f' || c == '\v'; }

}  // namespace

int ils_alias_name(const char* name, char* buffer, int size) {
    if (buffer == nullptr || size <= 0) return 0;
    std::string result = name != nullptr ? name : "";
    std::ifstream in(alias_list_path(), std::ios::binary);
    std::string line;
    // A last line without its line end is never used.
    while (in && std::getline(in, line) && !in.eof()) {
        if (!line.empty() && line[0] == '#') continue;
        std::size_t i = 0;
        auto word = [&]() {
            while (i < line.size() && is_space(line[i])) ++i;
            const std::size_t start = i;
            while (i < line.size() && !is_space(line[i])) ++i;
            return line.substr(start, i - start);
        };
        const std::string from = word();
        const std::string to = word();
        if (!from.empty() && !to.empty() && from == result) {
            result = to;
            break;
        }
    }
    const std::size_t n = std::min(result.size(), static_cast<std::size_t>(size - 1));
    std::memcpy(buffer, result.data(), n);
    buffer[n] = '\0';
    return static_cast<int>(n);
}

void ils_init_default(const char* os_codeset) {
    std::string name;
    const char* p = os_codeset != nullptr ? os_codeset : "";
    if (std::strncmp(p, "IBM", 3) == 0) p += 3;
    for (; *p != '\0'; ++p) {
        const unsigned char c = static_cast<unsigned char>(*p);
        if (is_alnum(c)) name.push_back(static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c));
    }
    char table[256];
    ils_alias_name(name.c_str(), table, sizeof table);
    CodeSet* cs = cs_new(table);
    if (cs == nullptr) cs = cs_new("DEFAULT");
    if (cs != nullptr) ils_set_def_cs(cs);
}

void ils_init() {
    static bool done = false;
    if (done) return;
    done = true;
    // This platform reports no code-set name for the process.
    ils_init_default("");
}

}  // namespace alm
