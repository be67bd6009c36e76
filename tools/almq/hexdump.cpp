#include "hexdump.h"

#include <cstdio>

namespace alm {

void hex_dump(std::string_view bytes, std::string& out) {
    char buf[32];
    for (std::size_t at = 0; at < bytes.size(); at += 16) {
        std::snprintf(buf, sizeof buf, "%08zx ", at);
        out += buf;
        std::string text;
        for (std::size_t i = 0; i < 16; ++i) {
            if (i == 8) out += ' ';
            if (at + i < bytes.size()) {
                const auto c = static_cast<unsigned char>(bytes[at + i]);
                std::snprintf(buf, sizeof buf, " %02x", c);
                out += buf;
                text += c >= 0x20 && c < 0x7F ? static_cast<char>(c) : '.';
            } else {
                out += "   ";
            }
        }
        out += "  |" + text + "|\n";
    }
}

}  // namespace alm
