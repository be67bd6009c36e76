// Matching names against the lookups' wildcard patterns.
#include "util/patmatch.h"

#include <cstdint>
#include <cstring>

namespace alm {

namespace {

// Classification in the "C" locale regardless of the process locale: plan
// names are bytes, and the matcher must not change with LANG.
bool is_space(unsigned char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool is_digit(unsigned char c) { return c >= '0' && c <= '9'; }
bool is_alpha(unsigned char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
unsigned char lower(unsigned char c) { return (c >= 'A' && c <= 'Z') ? static_cast<unsigned char>(c + 32) : c; }

bool one_matches(unsigned char p, unsigned char f, bool fold) {
    switch (p) {
    case '?':
        return true;
    case '$':
    case '%':
    case '#':
        return is_digit(f);
    case '^':
        return is_space(f);
    case '~':
        return is_alpha(f);
    default:
        if (is_space(p)) return is_space(f);
        return fold ? lower(p) == lower(f) : p == f;
    }
}

}  // namespace

int c_patternmatch2(const char* field, const char* pattern, int fieldlen, int patlen, int fold_case) {
    if (pattern == nullptr || patlen <= 0 || pattern[0] == '\0') return 1;
    if (field == nullptr) return 0;

    const auto* f = reinterpret_cast<const unsigned char*>(field);
    const auto* p = reinterpret_cast<const unsigned char*>(pattern);
    const bool fold = fold_case != 0;

    // Unless the pattern starts with "@", the field's first byte must match
    // its first character: a mismatch decides at once, whatever follows.
    if (p[0] != '@' && (fieldlen <= 0 || !one_matches(p[0], f[0], fold))) return 0;

    int plen = 0;
    while (plen < patlen && p[plen] != '\0') ++plen;
    if (plen == 1 && p[0] == '@') return 1;
    int width = fieldlen > 0 ? fieldlen : 0;
    if (width > 0) {
        if (const void* nul = std::memchr(f, '\0', static_cast<std::size_t>(width)))
            width = static_cast<int>(static_cast<const unsigned char*>(nul) - f);
    }
    int flen = width;
    // Blank padding goes eight bytes at a time, other white space one by one.
    constexpr std::uint64_t kBlanks = 0x2020202020202020ULL;
    while (flen >= 8) {
        std::uint64_t tail;
        std::memcpy(&tail, f + flen - 8, sizeof tail);
        if (tail != kBlanks) break;
        flen -= 8;
    }
    while (flen > 0 && is_space(f[flen - 1])) --flen;
    int cut = width - flen;

    int fi = 0;
    int pi = 0;
    int star_pi = -1;  // the latest "@"
    int star_fi = 0;   // where its run currently ends
    while (fi < flen) {
        if (pi < plen) {
            if (p[pi] == '@') {
                if (pi == plen - 1) return 1;  // a final "@" takes whatever is left
                star_pi = pi++;
                star_fi = fi;
                continue;
            }
            if (one_matches(p[pi], f[fi], fold)) {
                ++pi;
                ++fi;
                continue;
            }
        }
        if (star_pi < 0) return 0;
        fi = ++star_fi;
        pi = star_pi + 1;
    }
    while (pi < plen && p[pi] == '^' && cut > 0) {
        ++pi;
        --cut;
    }
    return pi == plen || (pi == plen - 1 && p[pi] == '@');
}

int c_patternmatch(const char* field, const char* pattern, int fieldlen, int patlen) {
    return c_patternmatch2(field, pattern, fieldlen, patlen, 0);
}

}  // namespace alm
