// The streams the message facility writes to.
#include "messages/msgstream.h"

namespace alm {

namespace {
std::FILE* g_out = nullptr;
std::FILE* g_err = nullptr;
}  // namespace

std::FILE* msg_stdout() { return g_out != nullptr ? g_out : stdout; }
std::FILE* msg_stderr() { return g_err != nullptr ? g_err : stderr; }

void msg_set_streams(std::FILE* out, std::FILE* err) {
    g_out = out;
    g_err = err;
}

}  // namespace alm
