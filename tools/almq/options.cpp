#include "options.h"

#include <cstdlib>
#include <string_view>

namespace alm {
namespace {

struct CommandEntry {
    const char* name;
    Command command;
    std::size_t maxOperands;
};

constexpr CommandEntry kCommands[] = {
    {"info", Command::Info, 0},   {"cpus", Command::Cpus, 1}, {"scheds", Command::Scheds, 2},
    {"jobs", Command::Jobs, 3},   {"deps", Command::Deps, 3}, {"logs", Command::Logs, 0},
    {"ping", Command::Ping, 1},
};

// Patterns that a subcommand sends, all defaulting to "@".
std::size_t pattern_count(Command c) {
    switch (c) {
        case Command::Cpus: return 1;
        case Command::Scheds: return 2;
        case Command::Jobs:
        case Command::Deps: return 3;
        default: return 0;
    }
}

bool parse_long(std::string_view text, long min, long max, long& out) {
    if (text.empty() || text.size() > 18) return false;
    long v = 0;
    for (char c : text) {
        if (c < '0' || c > '9') return false;
        v = v * 10 + (c - '0');
    }
    if (v < min || v > max) return false;
    out = v;
    return true;
}

}  // namespace

const char* command_name(Command command) {
    for (const CommandEntry& s : kCommands) {
        if (s.command == command) return s.name;
    }
    return "?";
}

bool parse_options(int argc, char** argv, Options& o, std::string& problem) {
    std::vector<std::string> words;
    bool optionsDone = false;
    bool json = false;
    bool raw = false;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (optionsDone || arg.size() < 2 || arg[0] != '-') {
            words.push_back(arg);
            continue;
        }
        if (arg == "--") {
            optionsDone = true;
            continue;
        }
        std::string name = arg;
        std::string value;
        bool hasValue = false;
        if (const auto eq = arg.find('='); arg.rfind("--", 0) == 0 && eq != std::string::npos) {
            name = arg.substr(0, eq);
            value = arg.substr(eq + 1);
            hasValue = true;
        }
        auto takeValue = [&]() {
            if (hasValue) return true;
            if (i + 1 >= argc) {
                problem = "option " + name + " needs a value";
                return false;
            }
            value = argv[++i];
            return true;
        };
        if (name == "-h" || name == "--help") {
            o.help = true;
        } else if (name == "--json" && !hasValue) {
            json = true;
        } else if (name == "--raw" && !hasValue) {
            raw = true;
        } else if (name == "--plan") {
            if (!takeValue()) return false;
            if (value.empty()) {
                problem = "option --plan needs a non-empty path";
                return false;
            }
            o.plan = value;
        } else if (name == "--server") {
            if (!takeValue()) return false;
            if (value.empty()) {
                problem = "option --server needs a non-empty path";
                return false;
            }
            o.server = value;
        } else if (name == "--timeout") {
            if (!takeValue()) return false;
            long seconds = 0;
            if (!parse_long(value, 1, 3600, seconds)) {
                problem = "option --timeout needs a number of seconds from 1 to 3600, not '" + value + "'";
                return false;
            }
            o.timeoutMs = static_cast<int>(seconds * 1000);
        } else {
            problem = "unknown option '" + arg + "'";
            return false;
        }
    }
    if (json && raw) {
        problem = "--json and --raw exclude each other";
        return false;
    }
    o.output = json ? OutputForm::Json : raw ? OutputForm::Raw : OutputForm::Table;
    if (o.help) return true;
    if (words.empty()) {
        problem = "no subcommand given";
        return false;
    }
    const CommandEntry* entry = nullptr;
    for (const CommandEntry& s : kCommands) {
        if (words[0] == s.name) entry = &s;
    }
    if (entry == nullptr) {
        problem = "unknown subcommand '" + words[0] + "'";
        return false;
    }
    o.command = entry->command;
    const std::vector<std::string> operands(words.begin() + 1, words.end());
    if (operands.size() > entry->maxOperands) {
        problem = std::string("too many operands for ") + entry->name;
        return false;
    }
    if (o.command == Command::Ping) {
        if (!operands.empty() && !parse_long(operands[0], 1, 1000000, o.pingCount)) {
            problem = "ping needs a count from 1 to 1000000, not '" + operands[0] + "'";
            return false;
        }
        return true;
    }
    for (const std::string& p : operands) {
        // An empty pattern would be lost on the wire (the server drops an
        // empty last argument and then sends no reply at all).
        if (p.empty()) {
            problem = "patterns cannot be empty (use @ to match every name)";
            return false;
        }
    }
    o.patterns = operands;
    o.patterns.resize(pattern_count(o.command), "@");
    return true;
}

const char* const ALMQ_HELP =
    "Usage: almq [OPTIONS] SUBCOMMAND [OPERANDS]\n"
    "Queries a plan through an almread server that almq starts on pipes.\n"
    "\n"
    "Subcommands:\n"
    "  info                      the open reply: plan date, workstations, version\n"
    "  cpus [WS]                 workstations whose names match WS\n"
    "  scheds [WS] [SCHED]       schedules\n"
    "  jobs [WS] [SCHED] [JOB]   jobs\n"
    "  deps [WS] [SCHED] [JOB]   schedules with their dependencies and jobs, as a tree\n"
    "  logs                      archived plans in the home's schedlog directory\n"
    "  ping [N]                  N no-operation round trips (3 by default), timed\n"
    "Patterns default to @; @ matches any run of characters, ? one character,\n"
    "% one digit.\n"
    "\n"
    "Options:\n"
    "  --plan PATH       plan file (default Almanack); a relative PATH is taken\n"
    "                    under the server's home, one beginning with ./ or ../\n"
    "                    under the current directory\n"
    "  --server PATH     the almread to start (default: the one beside almq)\n"
    "  --json            one JSON object per line, every field of each record\n"
    "  --raw             the reply frames as received, in hexadecimal\n"
    "  --timeout SECS    how long to wait for each reply (default 30)\n"
    "  -h, --help        this text\n"
    "\n"
    "Exit status: 0 ok, 1 nothing matched, 2 bad usage, 3 server or plan error.\n";

}  // namespace alm
