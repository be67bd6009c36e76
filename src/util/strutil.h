// Packed strings: fixed-width, blank-padded fields without terminator.
#pragma once

namespace alm {

short strlento(const char* text, short limit);
void str_to_pac(const char* str, char* field, short width);
short pac_to_str(const char* field, char* str, short width);
short striptrailing(char* str);

}  // namespace alm
