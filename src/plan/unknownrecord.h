// The one-line report of a record whose type code no conversion knows. The
// line's format comes from the message catalog, so it is never handed to
// printf: only %s, %d and %% are expanded, against fixed arguments.
#pragma once

#include <string>

namespace alm {

// Expands catalog_text with (file, line, code) taken in order: %s and %d each
// take the next argument (shown in its own kind, text or number), %% gives
// "%". A width and the '-' or '0' flags are honoured. Any other conversion,
// or one beyond the third, is copied as it stands.
std::string format_record_report(const char* catalog_text, const char* file, int line, int code);

// Issues message msgnum of set 2072 formatted as above on standard error,
// one line.
void report_unknown_record(int msgnum, int line, int code);

}  // namespace alm
