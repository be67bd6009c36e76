// Catalog files of any content: loading (lazily and all at once), finding
// every set and message, and probing ids taken from the input itself.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "messages/msgcat.h"
#include "messages/msgstream.h"

namespace {

// The scratch file the inputs are written to, removed at exit.
std::string catalog_path() {
    static char templ[] = "/tmp/fuzz_catalog.XXXXXX";
    int fd = ::mkstemp(templ);
    if (fd < 0) std::abort();
    ::close(fd);
    std::atexit([] { ::unlink(templ); });
    return templ;
}

void touch_all(alm::nim_catd h, const std::uint8_t* data, std::size_t size) {
    alm::MCCatT* cat = alm::nim_cat(h);
    if (cat == nullptr) return;
    std::size_t sum = 0;
    for (alm::MCSetT& s : cat->sets) {
        alm::MCSetT* found = alm::MCGetSet(cat, s.setId);
        if (found == nullptr) continue;
        for (const alm::MCMsgT& m : found->msgs) {
            const alm::MCMsgT* again = alm::MCGetMsg(found, m.msgId);
            if (again != nullptr) sum += std::strlen(again->msg);
        }
    }
    for (std::size_t i = 0; i + 1 < size && i < 64; i += 2) {
        const char* t = alm::nim_catgets(h, static_cast<std::int8_t>(data[i]), static_cast<std::int8_t>(data[i + 1]), "");
        sum += std::strlen(t);
    }
    if (sum == static_cast<std::size_t>(-1)) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string path = catalog_path();
    static std::FILE* sink = std::fopen("/dev/null", "w");
    alm::msg_set_streams(sink, sink);

    std::FILE* f = std::fopen(path.c_str(), "wb");
    if (f == nullptr) return 0;
    std::fwrite(data, 1, size, f);
    std::fclose(f);

    for (int flags : {0, alm::NIM_CAT_LOADALL}) {
        alm::nim_cache_flush();
        alm::nim_catd h = alm::loadCat(path.c_str(), flags);
        touch_all(h, data, size);
        alm::nim_catclose(h);
    }
    alm::nim_cache_flush();
    return 0;
}
