// The subcommands: one server session each, output gathered as text.
#pragma once

#include <string>

#include "options.h"

namespace alm {

// Runs the subcommand; out receives the standard output, err at most one
// line for standard error. Answers the exit status.
int run_command(const Options& options, std::string& out, std::string& err);

// The almread that almq starts by default: the one in almq's own directory.
std::string default_server_path();

}  // namespace alm
