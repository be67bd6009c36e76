// The report of a record whose type code no conversion knows: the catalog
// text is the printf format for (file, line, code). It comes from a file, so
// it is never handed to printf itself: %s, %d and %% are expanded as printf
// would, against those fixed arguments.
#pragma once

#include <string>

namespace alm {

// Expands catalog_text with (file, line, code) taken in order: %s and %d each
// take the next argument (shown in its own kind, text or number), %% gives
// "%". A width and the '-' or '0' flags are honoured. Any other conversion,
// or one beyond the third, is copied as it stands.
std::string format_record_report(const char* catalog_text, const char* file, int line, int code);

// Writes message msgnum of set 2072, used as the format above, on standard
// error as it stands: a line end only if the catalog text ends in one.
void report_unknown_record(int msgnum, int line, int code);

}  // namespace alm
