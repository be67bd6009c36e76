// The local language and the canonical forms of locale and language names.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

#include "messages/codeset.h"

namespace alm {

namespace {

struct NamePair {
    const char* from;
    const char* to;
};

// Searched in order, first match wins.
constexpr NamePair kCanonicalLocale[] = {
    {"C", "C"},       {"american", "C"}, {"ar_AA", "ar"},    {"Ar_AA", "ar"},
    {"cz", "cs"},     {"japanese", "ja_JP"}, {"Jp_JP", "ja_JP"},
};

constexpr NamePair kCanonicalLanguage[] = {
    {"C", "C"},       {"en", "C"},         {"fr", "fr_FR"}, {"ja", "ja_JP"},
    {"pt", "pt_BR"},  {"pt_BR", "pt_BR"},  {"zh", "zh_CN"}, {"zh_TW", "zh_TW"},
};

template <std::size_t N>
const char* map_name(const NamePair (&map)[N], const std::string& name) {
    for (const auto& p : map)
        if (name == p.from) return p.to;
    return nullptr;
}

bool is_letter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool is_alnum(char c) { return is_letter(c) || (c >= '0' && c <= '9'); }
char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

// Copies text into buffer, cut to size-1 and terminated; returns the length.
int put_text(const std::string& text, char* buffer, int size) {
    if (buffer == nullptr || size <= 0) return 0;
    const std::size_t n = std::min(text.size(), static_cast<std::size_t>(size - 1));
    std::memcpy(buffer, text.data(), n);
    buffer[n] = '\0';
    return static_cast<int>(n);
}

std::string canonical_loc(const char* name) {
    if (name == nullptr) return "C";
    if (const char* to = map_name(kCanonicalLocale, name)) return to;
    // Up to six characters; the rest cannot change the result.
    char s[7] = {};
    for (int i = 0; i < 6 && name[i] != '\0'; ++i) s[i] = name[i];
    if (s[2] == '-') s[2] = '_';
    if (!is_letter(s[0]) || !is_letter(s[1])) return "C";
    if (s[2] != '_' && !is_alnum(s[2])) return {lower(s[0]), lower(s[1])};
    if (s[2] == '_' && is_letter(s[3]) && is_letter(s[4]) && !is_alnum(s[5]))
        return {lower(s[0]), lower(s[1]), '_', upper(s[3]), upper(s[4])};
    return "C";
}

}  // namespace

int ils_os_lang_name(char* buffer, int size) {
    const char* lang = std::getenv("LANG");
    return put_text(lang != nullptr && *lang != '\0' ? lang : "C", buffer, size);
}

int ils_canonical_loc(const char* name, char* buffer, int size) {
    return put_text(canonical_loc(name), buffer, size);
}

int ils_canonical_lang(const char* name, char* buffer, int size) {
    char loc[6];
    ils_canonical_loc(name, loc, sizeof loc);
    const std::string l = loc;
    const char* to = map_name(kCanonicalLanguage, l);
    if (to == nullptr) to = map_name(kCanonicalLanguage, l.substr(0, 2));
    return put_text(to != nullptr ? to : l, buffer, size);
}

}  // namespace alm
