// Packed strings: fixed-width, blank-padded fields without terminator.
#include "util/strutil.h"

#include <cstring>

namespace alm {

namespace {

// The C locale's space class, independent of the current locale.
bool isCSpace(char ch) {
    return ch == ' ' || ch == '\t' || ch == '\n' || ch == '\r' || ch == '\f' || ch == '\v';
}

}  // namespace

short strlento(const char* text, short limit) {
    short n = 0;
    while (n < limit && text[n] != '\0') ++n;
    return n;
}

void str_to_pac(const char* str, char* field, short width) {
    if (width <= 0) return;
    const short n = strlento(str, width);
    std::memcpy(field, str, static_cast<std::size_t>(n));
    std::memset(field + n, ' ', static_cast<std::size_t>(width - n));
}

short pac_to_str(const char* field, char* str, short width) {
    if (width <= 0) {
        str[0] = '\0';
        return 0;
    }
    short n = strlento(field, width);
    while (n > 0 && isCSpace(field[n - 1])) --n;
    std::memmove(str, field, static_cast<std::size_t>(n));
    str[n] = '\0';
    return n;
}

short striptrailing(char* str) {
    std::size_t n = std::strlen(str);
    while (n > 0 && isCSpace(str[n - 1])) --n;
    str[n] = '\0';
    return static_cast<short>(n);
}

}  // namespace alm
