// Listing a compiled catalog back in source form.
#pragma once

#include <cstdio>
#include <string>

namespace alm {

// A message text with the escapes that the source form reads back.
std::string escape_catalog_text(const char* text);
// Writes "$set N" and "N text" lines for every valid set and message.
// Returns 0, or 1 when the catalog cannot be read.
int list_catalog(const char* path, std::FILE* out);

}  // namespace alm
