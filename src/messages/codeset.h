// Code sets: the local language and code set, canonical locale names, and
// conversion of texts between a code set and UTF-8 through loaded tables.
#pragma once

namespace alm {

struct CodeSet;  // a loaded conversion table; owned by the registry

// Once per process: makes the default code set from the alias list and
// the tables under "ILSDIR" (or "BINDIR"); without one it stays UTF-8.
void ils_init();
// "LANG", or "C" when unset or empty; cut to size-1 and terminated.
int ils_os_lang_name(char* buffer, int size);
// Canonical locale ("en_US.UTF-8" -> "en_US", "american" -> "C") and
// language ("en_US" -> "C", "fr_CA" -> "fr_FR") names; results are cut to
// size-1 and terminated. Each returns the length written.
int ils_canonical_loc(const char* name, char* buffer, int size);
int ils_canonical_lang(const char* name, char* buffer, int size);
// Loads (or finds) the table for a code-set name; nullptr when none loads.
// "UTF8" is the UTF-8 record, which copies.
CodeSet* ils_get_cs(const char* name);
void ils_set_def_cs(CodeSet* cs);  // nullptr: UTF-8
CodeSet* ils_get_def_cs();
// cs nullptr means the default code set; srclen -1 means NUL-terminated
// (the output is then NUL-terminated too, the NUL overwriting the last
// byte when dst is full). A character that does not fit ends the
// conversion. Return the bytes written, the NUL not counted.
int ils_to_utf8(CodeSet* cs, const char* src, int srclen, char* dst, int dstsize);
int ils_from_utf8(CodeSet* cs, const char* src, int srclen, char* dst, int dstsize);

// The table name the alias list gives for a code-set name (the name itself
// when none does); cut to size-1 and terminated; returns the length.
int ils_alias_name(const char* name, char* buffer, int size);
// The work of ils_init for a given system code-set name, without the
// once-per-process guard.
void ils_init_default(const char* os_codeset);

}  // namespace alm
