// The order in which catalogs are looked for: the language fallbacks of
// nim_catopen, the "NLSPATH" template, and the message facility's choice of
// a product's catalog under the home directory.
#pragma once

#include <string>

#include "messages/msgcat.h"

namespace alm {

inline constexpr int NUM_PRODUCTS = 13;
inline constexpr const char* NLS_DEFAULT_PATH = "/nlslib/%L/%N.cat:/nlslib/%N/%L";

// Catalog stem of a product slot ("" for slot 0 and out-of-range slots).
const char* product_stem(int product);

// Opens a catalog by name (a path when it holds "/") for the current
// language, then its two-letter form, then "C". Handle or -1.
nim_catd nim_catopen(const char* name, int flags);
// One try for one language: 0 or -1 on failure.
nim_catd catopen2(const char* name, int flags, const char* tmpl, const char* lang);
// One template element with %L %N %l %t %c filled in.
std::string nls_expand(const char* elem, const char* name, const char* lang);

// An application catalog path appended to every template; nullptr clears it.
void nim_set_app_path(const char* path);

// The catalog of a product slot, as the message facility opens it: by stem
// (accepted only when its set 1 message 1 begins with the stem), else
// HOME/catalog/LANG/stem.cat, HOME/catalog/LL/stem.cat, HOME/catalog/C/stem.cat.
nim_catd open_catalog(int product);
// HOME/catalog/LANG/stem.cat into path (room for QUAL_PATH_MAX + 1 bytes);
// false when it does not fit.
bool home_catalog_path(char* path, const char* lang, const char* stem);

}  // namespace alm
