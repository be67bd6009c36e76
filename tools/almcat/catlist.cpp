#include "catlist.h"

#include <cstring>

#include "messages/msgcat.h"

namespace alm {

std::string escape_catalog_text(const char* text) {
    std::string out;
    for (const char* p = text; *p != '\0'; ++p) {
        const auto c = static_cast<unsigned char>(*p);
        switch (c) {
            case '\\': out += "\\\\"; break;
            case '\n': out += "\\n"; break;
            case '\t': out += "\\t"; break;
            case '\r': out += "\\r"; break;
            case '\v': out += "\\v"; break;
            case '\b': out += "\\b"; break;
            case '\f': out += "\\f"; break;
            default:
                if (c < 0x20 || c == 0x7F) {
                    char oct[8];
                    std::snprintf(oct, sizeof oct, "\\%03o", c);
                    out += oct;
                } else {
                    out += static_cast<char>(c);
                }
        }
    }
    return out;
}

int list_catalog(const char* path, std::FILE* out) {
    std::string p = path;
    if (p.find('/') == std::string::npos) p = "./" + p;
    nim_catd h = loadCat(p.c_str(), NIM_CAT_LOADALL);
    MCCatT* cat = nim_cat(h);
    if (cat == nullptr) return 1;
    for (MCSetT& set : cat->sets) {
        std::fprintf(out, "$set %ld\n", static_cast<long>(set.setId));
        for (const MCMsgT& m : set.msgs)
            std::fprintf(out, "%ld %s\n", static_cast<long>(m.msgId), escape_catalog_text(m.msg).c_str());
    }
    nim_catclose(h);
    return 0;
}

}  // namespace alm
