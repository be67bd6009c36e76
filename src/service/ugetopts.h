// The keyword command-line parser.
//
// Options are "-KEYWORD", "-KEYWORD=value" or "-KEYWORD value", matched
// case-insensitively with abbreviations. Built in: "DEBUG" (sets
// UOPT_FLAG_DEBUG), "V"/"VERSION" and "U"/"USAGE"; the last four are
// recognised only when they are the sole argument.
#pragma once

namespace alm {

inline constexpr short UOPT_NEEDS_VALUE = -101;     // no value after a keyword that takes one
inline constexpr short UOPT_UNKNOWN = -102;         // no keyword matches
inline constexpr short UOPT_AMBIGUOUS = -103;       // an abbreviation of several keywords
inline constexpr short UOPT_USAGE = -105;           // "U" or "USAGE"
inline constexpr short UOPT_VERSION = -106;         // "V" or "VERSION"
inline constexpr short UOPT_UNEXPECTED_VALUE = -107;  // "=value" on a keyword without one
inline constexpr short UOPT_TOO_LONG = -108;        // keyword text over UOPT_MAX_KEYWORD
inline constexpr short UOPT_REPEATED = -109;        // keyword given twice
inline constexpr short UOPT_NO_TERMINATOR = -110;   // caller list not terminated in time

inline constexpr short UOPT_FLAG_DEBUG = 1;
inline constexpr int UOPT_MAX_KEYWORD = 20;
// Slots for caller keywords; the terminating null must be among them.
inline constexpr int UOPT_MAX_CALLER = 41;
inline constexpr int UOPT_BUILTINS = 5;

// Finds text (upper-cased, bytes below 128 only) among count keywords: an
// exact match wins at once; otherwise the one keyword that is longer than the
// text and begins with it. A keyword's name ends at an "=" (value marker);
// entries of one blank never match. Returns the index, UOPT_UNKNOWN or
// UOPT_AMBIGUOUS.
short c_valid_keyword(const char* text, const char* const* keywords, int count);

// Parses argv[1..argc-1]. keywords: the caller's upper-case keywords, null
// terminated (nullptr for none); "NAME=" takes a value, a "PARM=" keyword's
// value sets *parm (decimal). kwstatus/kwvalue (may be null) receive, per
// caller keyword, 1 and its value when given.
// Returns the index of the first operand (after "--" or at the first
// argument not starting with "-"), argc + 1 when every argument is an
// option, or a negative code with *parm set to the offending argument's index.
short u_getopts(int argc, const char* const* argv, const char* const* keywords, short* parm,
                short* flags, short* kwstatus, const char** kwvalue);

}  // namespace alm
