// Name patterns of the plan lookups and the file finder.
//
// Pattern characters: "@" any run (also empty; only the latest "@" is
// retried on a mismatch), "?" any one character, "$" "%" "#" one digit,
// "^" or a white-space character one white-space character, "~" one letter,
// anything else itself. The field is compared without its trailing white
// space (and ends early at a NUL). A match needs both sides used up, or a
// pattern remainder of exactly one "@".
//
// Trailing "^": a remainder of "^" characters may take the white space cut
// from the end of the field, one character each, so "AB^" matches "AB" in a
// blank-padded field but not a full-width "AB" or a field "AB" of width 2.
#pragma once

namespace alm {

// A null or empty pattern, or patlen 0, matches every field; a null field
// matches nothing. Returns nonzero for a match.
int c_patternmatch(const char* field, const char* pattern, int fieldlen, int patlen);
// As c_patternmatch; fold_case nonzero compares plain letters without case.
int c_patternmatch2(const char* field, const char* pattern, int fieldlen, int patlen, int fold_case);

}  // namespace alm
