// almcat: compiles a message catalog source into a catalog file, or lists a
// catalog file back in source form.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "catlist.h"
#include "catsource.h"
#include "catwrite.h"

namespace {

constexpr char kUsage[] =
    "Usage: almcat [--keep-deleted] SOURCE OUT\n"
    "       almcat --list CATALOG\n";

constexpr char kHelp[] =
    "       almcat --help | --version\n"
    "\n"
    "Compiles the message catalog source SOURCE into the catalog file OUT\n"
    "(written aside and renamed, so a failed run leaves no half catalog);\n"
    "--keep-deleted writes deleted sets and messages as invalid records,\n"
    "which readers skip, instead of leaving them out. --list writes a catalog\n"
    "back in source form.\n"
    "\n"
    "Exit status: 0 done, 1 unreadable or bad input or unwritable output,\n"
    "2 bad usage.\n";

int usage() {
    std::fputs(kUsage, stderr);
    return 2;
}

int compile(const char* source, const char* target, bool keep_deleted) {
    std::ifstream in(source, std::ios::binary);
    if (!in) {
        std::fprintf(stderr, "almcat: %s: %s\n", source, std::strerror(errno));
        return 1;
    }
    std::ostringstream ss;
    ss << in.rdbuf();
    alm::SourceCatalog cat;
    std::string error;
    if (!alm::parse_catalog_source(ss.str(), cat, error)) {
        std::fprintf(stderr, "almcat: %s:%s\n", source, error.c_str());
        return 1;
    }
    std::vector<unsigned char> bytes;
    if (!alm::encode_catalog(cat, keep_deleted, bytes, error)) {
        std::fprintf(stderr, "almcat: %s: %s\n", source, error.c_str());
        return 1;
    }
    // Written aside and renamed, so that a failed run leaves no half catalog.
    const std::string tmp = std::string(target) + ".tmp";
    std::FILE* f = std::fopen(tmp.c_str(), "wb");
    if (f == nullptr) {
        std::fprintf(stderr, "almcat: %s: %s\n", tmp.c_str(), std::strerror(errno));
        return 1;
    }
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), f) == bytes.size();
    const bool closed = std::fclose(f) == 0;
    if (!written || !closed || std::rename(tmp.c_str(), target) != 0) {
        std::fprintf(stderr, "almcat: %s: %s\n", target, std::strerror(errno));
        std::remove(tmp.c_str());
        return 1;
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    if (args.size() == 1 && (args[0] == "--help" || args[0] == "-h")) {
        std::fputs(kUsage, stdout);
        std::fputs(kHelp, stdout);
        return 0;
    }
    if (args.size() == 1 && (args[0] == "--version" || args[0] == "-V")) {
        std::fputs("almcat " ALM_TOOLS_VERSION "\n", stdout);
        return 0;
    }
    if (args.size() == 2 && args[0] == "--list") {
        if (alm::list_catalog(args[1].c_str(), stdout) != 0) {
            std::fprintf(stderr, "almcat: %s: not a readable message catalog\n", args[1].c_str());
            return 1;
        }
        return std::fflush(stdout) == 0 ? 0 : 1;
    }
    bool keep = false;
    if (!args.empty() && args[0] == "--keep-deleted") {
        keep = true;
        args.erase(args.begin());
    }
    if (args.size() != 2 || (!args[0].empty() && args[0][0] == '-')) return usage();
    return compile(args[0].c_str(), args[1].c_str(), keep);
}
