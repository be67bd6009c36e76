// The program's identity and its two-line banner.
#pragma once

#include <cstdio>

namespace alm {

// Name in the banner, padded to 8 characters there.
inline constexpr char ALMREAD_PROGNAME[8] = "ALMREAD";
// Library level in the banner, padded to 4 characters there.
inline constexpr char ALMREAD_LIBLEVEL[] = "7.0";

// Banner control flags.
inline constexpr int BANNER_NO_HEADING = 0x8;
inline constexpr int BANNER_NO_SCREEN = 0x400;

// The revision text, blank-framed (" 1.3 "); adds the flags that keep the
// banner to its two plain lines.
const char* version(int* bannerFlags);

// "KARVEN UNIX (INTEL)/<name:8><level:4> (<revision>)" and
// "Program patch revision: <revision>", each with a line end.
void printBanner(std::FILE* out, const char* progname, const char* revision);

}  // namespace alm
