#include "messages/codeset.h"

#include <cstdlib>
#include <cstring>

namespace alm {

namespace {
CodeSet* g_def_cs = nullptr;

int copy_bytes(const char* src, int srclen, char* dst, int dstsize) {
    if (dst == nullptr || dstsize <= 0) return 0;
    const bool nul = srclen < 0;
    int n = nul ? static_cast<int>(std::strlen(src)) : srclen;
    if (n > dstsize) n = dstsize;
    std::memcpy(dst, src, static_cast<std::size_t>(n));
    if (nul) {
        if (n == dstsize) --n;
        dst[n] = '\0';
    }
    return n;
}
}  // namespace

void ils_init() {}

int ils_os_lang_name(char* buffer, int size) {
    if (buffer == nullptr || size <= 0) return 0;
    const char* lang = std::getenv("LANG");
    if (lang == nullptr || *lang == '\0') lang = "C";
    std::strncpy(buffer, lang, static_cast<std::size_t>(size - 1));
    buffer[size - 1] = '\0';
    return static_cast<int>(std::strlen(buffer));
}

int ils_canonical_loc(const char* name, char* buffer, int size) {
    return copy_bytes(name == nullptr ? "C" : name, -1, buffer, size);
}

int ils_canonical_lang(const char* name, char* buffer, int size) {
    return ils_canonical_loc(name, buffer, size);
}

CodeSet* ils_get_cs(const char*) { return nullptr; }
void ils_set_def_cs(CodeSet* cs) { g_def_cs = cs; }
CodeSet* ils_get_def_cs() { return g_def_cs; }

int ils_to_utf8(CodeSet*, const char* src, int srclen, char* dst, int dstsize) {
    return copy_bytes(src, srclen, dst, dstsize);
}
int ils_from_utf8(CodeSet*, const char* src, int srclen, char* dst, int dstsize) {
    return copy_bytes(src, srclen, dst, dstsize);
}

}  // namespace alm
