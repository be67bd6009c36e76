// Where the message facility writes: standard output and standard error,
// unless a test has redirected them to streams of its own.
#pragma once

#include <cstdio>

namespace alm {

std::FILE* msg_stdout();
std::FILE* msg_stderr();
// nullptr restores the process's own stream.
void msg_set_streams(std::FILE* out, std::FILE* err);

}  // namespace alm
