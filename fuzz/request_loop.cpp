// Arbitrary bytes as the server's standard input: the loop must read, split
// and dispatch them without crashing, leaking or reading out of bounds.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include <unistd.h>

#include "protocol/write.h"
#include "service/files.h"
#include "service/read.h"
#include "util/stdfuncs.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static std::FILE* sink = [] {
        std::FILE* f = std::fopen("/dev/null", "w");
        alm::readerSetOutput(f);
        // Relative plan paths land in an empty home of the fuzzer's own.
        static char home[] = "/tmp/almfuzz.XXXXXX";
        if (mkdtemp(home)) {
            std::snprintf(alm::QUAL_HOMEDIR, sizeof alm::QUAL_HOMEDIR, "%s", home);
            std::atexit([] { rmdir(home); });
        }
        alm::setUseQualHome(1);
        return f;
    }();
    if (!sink || size == 0) return 0;

    // fmemopen reads only; the cast drops const for its signature alone.
    std::FILE* in = fmemopen(const_cast<std::uint8_t*>(data), size, "r");
    if (!in) return 0;
    // The core loop reports endings instead of exiting, so the fuzzer survives
    // the exit request, read errors and unservable frames.
    alm::readerReadFrames(in);
    std::fclose(in);
    alm::readerCloseAllAlmanack();
    return 0;
}
