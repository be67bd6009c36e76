// The file finder: lists the files of one directory whose full paths match a
// wildcard pattern. The directory is read by a child process, which may first
// drop to the real user and group, and the sorted names come back as lines
// through a pipe.
#pragma once

#include <cstdio>
#include <sys/types.h>

namespace alm {

// Matches kept by one listing; later matches are ignored.
inline constexpr int FIND_MAX_MATCHES = 1024;
// Longest line read back from the child, line end included.
inline constexpr int FIND_LINE_MAX = 1056;

// uni_find_files flag bits.
inline constexpr short FIND_DESCENDING = 1;
inline constexpr short FIND_KEEP_IDS = 2;

// A callback gets one line (line end removed) and the caller's data.
using find_callback = short (*)(const char* line, void* userdata);

// Byte-wise comparison of two paths, strcmp sign; the reverse for descending.
int compare_filenames(const char* a, const char* b);
int compare_filenames_reverse(const char* a, const char* b);

// The read end of a listing child and the child itself. Owned by whoever got
// it from xeq_lscmd_caught_setuid until xeq_closepipe.
struct FindPipe {
    FILE* stream = nullptr;
    pid_t pid = -1;
};

// Starts the listing child over `directory`, keeping the paths that match
// `pattern`. On success fills `out` and returns 0; on failure returns the
// error number and leaves `out` empty (nothing to close).
int xeq_lscmd_caught_setuid(FindPipe& out, const char* directory, const char* pattern,
                            bool drop_ids, bool descending);

// Closes the stream and reaps the child; returns its wait status, or -1 when
// there was no child. `p` is empty afterwards.
int xeq_closepipe(FindPipe& p);

// Lists the files matching `fileset` (directory part, "/", name pattern),
// passing each line to `qualify` (may be null; 0 passes, -1 stops with an
// error, else skips) and then to `process` (0 continues, -1 stops with an
// error, else stops). Returns 0 or an error number.
int uni_find_files(const char* fileset, int* filecount, short flags, void* userdata,
                   find_callback qualify, find_callback process);

}  // namespace alm
