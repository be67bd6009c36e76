// Message catalog sources: "$set N", "$delset N", "$quote c", "$ comment"
// lines and numbered message lines with backslash escapes and continuation.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace alm {

struct SourceMsg {
    std::string text;
    bool deleted = false;  // a number alone: kept only as a deletion mark
};

struct SourceSet {
    std::map<std::int32_t, SourceMsg> msgs;
    bool deleted = false;
};

struct SourceCatalog {
    std::map<std::int32_t, SourceSet> sets;
};

// Parses source text; on failure returns false with "LINE: reason" in error.
bool parse_catalog_source(const std::string& src, SourceCatalog& cat, std::string& error);

}  // namespace alm
