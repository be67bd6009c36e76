// Path qualification under the installation's home directory, and the small
// path functions that go with it.
#pragma once

namespace alm {

inline constexpr int QUAL_PATH_MAX = 1024;

// The home directory, set once at start-up; empty when it cannot be found.
extern char QUAL_HOMEDIR[QUAL_PATH_MAX + 1];
// Non-zero when relative paths are qualified by QUAL_HOMEDIR.
extern int UseQualHomedir;
void setUseQualHome(int on);

// Rewrites a relative path as HOME/path in place. Returns the new length,
// -1 when too long for the limit, -2 when no prefix is available.
short qual_filename(char* path, short limit);

bool is_absolute_path(const char* path);
bool is_relative_path(const char* path);
// Follows links up to 10 times (rewriting path, which holds at least
// QUAL_PATH_MAX + 1 bytes); true only for a regular file passing access(mode).
bool resolve_links(char* path, int mode);

}  // namespace alm
