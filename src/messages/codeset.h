// Code sets: the local language and code set, canonical locale names, and
// conversion of texts between a code set and UTF-8 through loaded tables.
#pragma once

namespace alm {

struct CodeSet;  // a loaded conversion table; owned by the registry

void ils_init();
// "LANG", or "C" when unset or empty; cut to size-1 and terminated.
int ils_os_lang_name(char* buffer, int size);
int ils_canonical_loc(const char* name, char* buffer, int size);
int ils_canonical_lang(const char* name, char* buffer, int size);
// Loads (or finds) the table for a code-set name; nullptr when none loads.
CodeSet* ils_get_cs(const char* name);
void ils_set_def_cs(CodeSet* cs);  // nullptr: UTF-8
CodeSet* ils_get_def_cs();
// cs nullptr means the default code set; srclen -1 means NUL-terminated
// (the output is then NUL-terminated too). Return the bytes written.
int ils_to_utf8(CodeSet* cs, const char* src, int srclen, char* dst, int dstsize);
int ils_from_utf8(CodeSet* cs, const char* src, int srclen, char* dst, int dstsize);

}  // namespace alm
