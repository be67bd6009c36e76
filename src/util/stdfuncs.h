// Path qualification under the installation's home directory, and the small
// path functions that go with it.
#pragma once

#include <cstddef>

namespace alm {

inline constexpr int QUAL_PATH_MAX = 1024;

// The home directory, set once at start-up; empty when it cannot be found.
extern char QUAL_HOMEDIR[QUAL_PATH_MAX + 1];
// Non-zero when relative paths are qualified by QUAL_HOMEDIR.
extern int UseQualHomedir;
void setUseQualHome(int on);
// Alternative prefix, used only while UseQualHomedir is clear. Nothing in
// this program fills it; it stays empty unless a caller sets it.
extern char euid_dir[QUAL_PATH_MAX + 1];

// Rewrites a relative path as HOME/path in place. Returns the new length,
// -1 when too long for the limit, -2 when no prefix is available (also when
// the home directory is unknown: the path is then left relative).
// The path is first cut at the limit and loses its trailing white space;
// paths starting with "/", "\" or a drive ("c:/", "c:\") stay as they are.
// The home prefix is not checked against the limit: the path buffer must
// have room for it. This form takes the buffer to hold limit + 1 bytes and
// answers -1 rather than overrun it; pass the real capacity to allow longer
// results.
short qual_filename(char* path, short limit);
short qual_filename(char* path, short limit, std::size_t capacity);

bool is_absolute_path(const char* path);
bool is_relative_path(const char* path);
// Follows links up to 10 times (each target replaces path as written, so a
// relative one is taken from the current directory; path holds at least
// QUAL_PATH_MAX + 1 bytes); true only for a regular file passing access(mode).
bool resolve_links(char* path, int mode);

// Cuts the last two components off a path ("/h/bin/prog" -> "/h").
void mkhomedir(char* path);
// Finds the home directory from the program path (argv[0]): an absolute path,
// else "COBALTHOME" as it stands, else the path taken from the current
// directory ("./prog", "dir/prog"), else the first executable "prog" along
// "PATH". The home is the program's directory's parent. Writes it into home
// (size bytes) and returns its length, or -1 with home empty.
int qual_file(const char* progpath, char* home, std::size_t size);

}  // namespace alm
