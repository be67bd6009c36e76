#include "options.h"

#include <getopt.h>

#include <algorithm>
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

namespace {

// Options without a short form have codes past any character.
enum LongOnly : int { kJson = 256, kRaw, kDot, kPlan, kServer, kTimeout, kFields, kWide, kWait };

constexpr struct option kLongOptions[] = {
    {"help", no_argument, nullptr, 'h'},         {"version", no_argument, nullptr, 'V'},
    {"json", no_argument, nullptr, kJson},       {"raw", no_argument, nullptr, kRaw},
    {"dot", no_argument, nullptr, kDot},         {"plan", required_argument, nullptr, kPlan},
    {"server", required_argument, nullptr, kServer}, {"timeout", required_argument, nullptr, kTimeout},
    {"fields", required_argument, nullptr, kFields}, {"wide", no_argument, nullptr, kWide},
    {"wait", required_argument, nullptr, kWait},
    {nullptr, 0, nullptr, 0},
};

const char* long_name(int code) {
    for (const struct option& o : kLongOptions) {
        if (o.name != nullptr && o.val == code) return o.name;
    }
    return "?";
}

bool split_fields(const std::string& list, std::vector<std::string>& out, std::string& problem) {
    std::size_t at = 0;
    while (at <= list.size()) {
        const std::size_t comma = std::min(list.find(',', at), list.size());
        out.push_back(list.substr(at, comma - at));
        if (out.back().empty()) {
            problem = "option --fields needs names separated by commas, not '" + list + "'";
            return false;
        }
        at = comma + 1;
    }
    return true;
}

bool non_empty(const char* option, const char* value, std::string& to, std::string& problem) {
    if (*value == '\0') {
        problem = std::string("option --") + option + " needs a non-empty path";
        return false;
    }
    to = value;
    return true;
}

// One option that getopt_long found; form collects the output options.
bool take_option(int code, const char* value, Options& o, OutputForm& form, std::string& problem) {
    switch (code) {
        case 'h': o.help = true; return true;
        case 'V': o.version = true; return true;
        case kWide: o.wide = true; return true;
        case kJson:
        case kRaw:
        case kDot: {
            const OutputForm f = code == kJson ? OutputForm::Json : code == kRaw ? OutputForm::Raw : OutputForm::Dot;
            if (form != OutputForm::Table && form != f) {
                problem = "--json, --raw and --dot exclude each other";
                return false;
            }
            form = f;
            return true;
        }
        case kPlan: return non_empty("plan", value, o.plan, problem);
        case kServer: return non_empty("server", value, o.server, problem);
        case kFields: return split_fields(value, o.fields, problem);
        case kTimeout: {
            long seconds = 0;
            if (!parse_long(value, 1, 3600, seconds)) {
                problem = std::string("option --timeout needs a number of seconds from 1 to 3600, not '") + value + "'";
                return false;
            }
            o.timeoutMs = static_cast<int>(seconds * 1000);
            return true;
        }
        case kWait: {
            long seconds = 0;
            if (!parse_long(value, 0, 3600, seconds)) {
                problem = std::string("option --wait needs a number of seconds from 0 to 3600, not '") + value + "'";
                return false;
            }
            o.waitSeconds = static_cast<int>(seconds);
            return true;
        }
        default: break;
    }
    problem = "unknown option";
    return false;
}

// What getopt_long objected to, as one line.
std::string getopt_problem(int code, char** argv) {
    const char* word = argv[optind - 1];
    if (code == ':') {
        return optopt >= kJson ? std::string("option --") + long_name(optopt) + " needs a value"
                               : std::string("option -") + static_cast<char>(optopt) + " needs a value";
    }
    if (optopt >= kJson || optopt == 'h' || optopt == 'V') {
        return std::string("option --") + long_name(optopt) + " takes no value";
    }
    if (optopt != 0) return std::string("unknown option '-") + static_cast<char>(optopt) + "'";
    return std::string("unknown option '") + word + "'";
}

bool scan_options(int argc, char** argv, Options& o, std::string& problem) {
    OutputForm form = OutputForm::Table;
    opterr = 0;  // the problem is reported as almq's own one line
    optind = 0;  // a fresh scan
    int code = 0;
    while ((code = getopt_long(argc, argv, ":hV", kLongOptions, nullptr)) != -1) {
        if (code == '?' || code == ':') {
            problem = getopt_problem(code, argv);
            return false;
        }
        if (!take_option(code, optarg, o, form, problem)) return false;
    }
    o.output = form;
    return true;
}

const CommandEntry* find_command(const std::string& name) {
    for (const CommandEntry& s : kCommands) {
        if (name == s.name) return &s;
    }
    return nullptr;
}

bool take_operands(const CommandEntry& entry, const std::vector<std::string>& operands, Options& o,
                   std::string& problem) {
    if (operands.size() > entry.maxOperands) {
        problem = std::string("too many operands for ") + entry.name;
        return false;
    }
    if (o.command == Command::Ping) {
        if (!operands.empty() && !parse_long(operands[0], 1, 1000000, o.pingCount)) {
            problem = "ping needs a count from 1 to 1000000, not '" + operands[0] + "'";
            return false;
        }
        return true;
    }
    // An empty pattern goes to the server as it is: it matches every name.
    o.patterns = operands;
    o.patterns.resize(pattern_count(o.command), "@");
    return true;
}

}  // namespace

bool parse_options(int argc, char** argv, Options& o, std::string& problem) {
    if (!scan_options(argc, argv, o, problem)) return false;
    if (o.help || o.version) return true;
    if (optind >= argc) {
        problem = "no subcommand given";
        return false;
    }
    const CommandEntry* entry = find_command(argv[optind]);
    if (entry == nullptr) {
        problem = std::string("unknown subcommand '") + argv[optind] + "'";
        return false;
    }
    o.command = entry->command;
    if (o.output == OutputForm::Dot && o.command != Command::Deps) {
        problem = "--dot draws the dependencies only (almq --dot deps)";
        return false;
    }
    if (!o.fields.empty() && (o.output == OutputForm::Raw || o.output == OutputForm::Dot)) {
        problem = "--fields chooses what --json and the tables show";
        return false;
    }
    return take_operands(*entry, std::vector<std::string>(argv + optind + 1, argv + argc), o, problem);
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
    "  --json            one JSON object per line, every field of each record;\n"
    "                    each date also as ISO 8601 text in a member NAME_iso\n"
    "  --fields A,B,...  only these JSON members, or table columns of them\n"
    "  --wide            every column of the tables (they fit 80 columns without)\n"
    "  --dot             deps only: the dependency graph in Graphviz DOT\n"
    "  --raw             the reply frames as received, in hexadecimal\n"
    "  --timeout SECS    how long to wait for each reply (default 30)\n"
    "  --wait SECS       while another process holds the plan locked, try again\n"
    "                    for up to SECS seconds (default 0: fail at once)\n"
    "  -h, --help        this text\n"
    "  -V, --version     almq's version\n"
    "\n"
    "Exit status: 0 ok, 1 nothing matched, 2 bad usage, 3 server or plan error.\n";

const char* const ALMQ_VERSION = "almq " ALM_TOOLS_VERSION "\n";

}  // namespace alm
