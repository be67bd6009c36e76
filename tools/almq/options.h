// The command line of almq: options, the subcommand and its operands.
#pragma once

#include <string>
#include <vector>

namespace alm {

inline constexpr int EXIT_OK = 0;
inline constexpr int EXIT_NO_MATCH = 1;
inline constexpr int EXIT_USAGE = 2;
inline constexpr int EXIT_SERVER = 3;

enum class OutputForm { Table, Json, Raw, Dot };

enum class Command { Info, Cpus, Scheds, Jobs, Deps, Logs, Ping };

struct Options {
    std::string server;          // empty: the almread beside almq
    std::string plan = "Almanack";  // relative paths are the server's: under its home
    OutputForm output = OutputForm::Table;
    int timeoutMs = 30000;
    int waitSeconds = 0;         // how long to retry a plan that another process holds locked
    bool help = false;
    bool version = false;
    bool wide = false;                // every column of the tables
    std::vector<std::string> fields;  // --fields: the members or columns to show, in order
    Command command = Command::Info;
    std::vector<std::string> patterns;  // the subcommand's patterns, "@" where not given
    long pingCount = 3;
};

// Fills options from argv; on a usage error answers false with a one-line
// problem. Options may stand before or after the subcommand; "--" ends them.
// argv is reordered, options first.
bool parse_options(int argc, char** argv, Options& options, std::string& problem);

const char* command_name(Command command);
extern const char* const ALMQ_HELP;
extern const char* const ALMQ_VERSION;

}  // namespace alm
