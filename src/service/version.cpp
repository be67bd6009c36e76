// The program's revision and its banner.
#include "service/version.h"

#include <string>

namespace alm {

namespace {

constexpr char REVISION[] = " 1.3 ";

std::string trimmed(const char* text) {
    std::string s(text);
    const auto first = s.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return s.substr(first, s.find_last_not_of(' ') - first + 1);
}

}  // namespace

const char* version(int* bannerFlags) {
    if (bannerFlags) *bannerFlags |= BANNER_NO_SCREEN | BANNER_NO_HEADING;
    return REVISION;
}

void printBanner(std::FILE* out, const char* progname, const char* revision) {
    const std::string rev = trimmed(revision);
    std::fprintf(out, "KARVEN UNIX (INTEL)/%-8s%-4s (%s)\n", progname, ALMREAD_LIBLEVEL,
                 rev.c_str());
    std::fprintf(out, "Program patch revision: %s\n", rev.c_str());
}

}  // namespace alm
