// The subcommands: one server session each, output gathered as text.
#pragma once

#include <string>

#include "options.h"
#include "outputsink.h"

namespace alm {

// Runs the subcommand, writing its output to out as it goes; err receives
// at most one line for standard error. Answers the exit status.
int run_command(const Options& options, OutputSink& out, std::string& err);

// The almread that almq starts by default: the one in almq's own directory.
std::string default_server_path();

}  // namespace alm
