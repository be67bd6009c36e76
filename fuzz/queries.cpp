// Runs every plan query over a plan file made of the input bytes: the file is
// opened through the open request, queried with a few patterns, and closed.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "protocol/sll.h"
#include "protocol/write.h"
#include "queries/queries.h"
#include "service/files.h"

namespace {

using namespace alm;

struct Stream {
    std::FILE* f = nullptr;
    char* data = nullptr;
    std::size_t size = 0;
    Stream() { f = open_memstream(&data, &size); }
    ~Stream() {
        if (f) std::fclose(f);
        std::free(data);
    }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;
};

// Calls handler with the arguments as a request of the given type.
void call(void (*handler)(Request&), std::uint32_t type, const std::vector<std::string>& args) {
    std::unique_ptr<sll> list = sllCreate();
    for (const std::string& a : args) sllAddNode(list.get(), const_cast<char*>(a.c_str()));
    Request req;
    req.type = type;
    req.id = 7;
    req.numData = static_cast<std::uint32_t>(args.size());
    req.dataList = list.get();
    handler(req);
}

// The handle string of the open reply, or empty after a failed open.
std::string openPlan(const std::string& path) {
    Stream out;
    if (!out.f) return {};
    std::FILE* previous = readerSetOutput(out.f);
    call(readerOpenAlmanack, 2, {path});
    std::fflush(out.f);
    readerSetOutput(previous);
    // Six header words, then nine strings: code, text, handle, ...
    if (out.size < 24) return {};
    std::vector<std::string> strings;
    std::size_t p = 24;
    while (p < out.size && strings.size() < 3) {
        const std::size_t len = strnlen(out.data + p, out.size - p);
        strings.emplace_back(out.data + p, len);
        p += len + 1;
    }
    if (strings.size() < 3 || strings[0] != "0") return {};
    return strings[2];
}

std::FILE* devNull() {
    static std::FILE* f = std::fopen("/dev/null", "w");
    return f;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string path = [] {
        static char name[] = "/tmp/fuzz_queries_XXXXXX";
        const int fd = mkstemp(name);
        if (fd >= 0) close(fd);
        std::atexit([] { unlink(name); });
        return std::string(name);
    }();
    std::FILE* plan = std::fopen(path.c_str(), "wb");
    if (!plan) return 0;
    std::fwrite(data, 1, size, plan);
    std::fclose(plan);

    const std::string handle = openPlan(path);
    if (handle.empty()) return 0;

    std::FILE* previous = readerSetOutput(devNull());
    for (const char* pattern : {"@", "A@", ""}) {
        call(readerGetCpus, 8, {handle, pattern});
        call(readerGetSchedules, 5, {handle, pattern, "@"});
        call(readerGetJobs, 6, {handle, "@", pattern, "@"});
        call(readerGetSchJobDep, 7, {handle, pattern, "@", "@"});
    }
    call(readerGetSchJobDep, 7, {handle, "B", "S", "J@"});
    call(readerCloseAlmanack, 3, {handle});
    std::fflush(devNull());
    readerSetOutput(previous);
    return 0;
}
