// Encoding a parsed catalog into the binary catalog file format.
#pragma once

#include <string>
#include <vector>

#include "catsource.h"

namespace alm {

// keep_deleted writes deleted sets and messages as invalid records.
// Returns false with a reason when the catalog cannot be encoded.
bool encode_catalog(const SourceCatalog& cat, bool keep_deleted, std::vector<unsigned char>& out,
                    std::string& error);

}  // namespace alm
