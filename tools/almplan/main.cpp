// almplan: builds plan files from a text description or synthetically.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "check.h"
#include "civil.h"
#include "dump.h"
#include "planbuild.h"
#include "plandesc.h"
#include "recfields.h"
#include "synth.h"
#include "util/stdfuncs.h"

namespace alm {
namespace {

constexpr int kExitFailure = 1;
constexpr int kExitUsage = 2;

constexpr const char* kUsage =
    "Usage:\n"
    "  almplan build [--v1] DESC OUT\n"
    "  almplan synth --cpus N --scheds M --jobs K [--deps] [--v1] [--date YYYY-MM-DD] OUT\n"
    "  almplan fields [KIND]\n"
    "  almplan dump PLAN [--json]\n"
    "  almplan check PLAN\n"
    "  almplan --help | --version | COMMAND --help\n";

constexpr const char* kHelp =
    "\n"
    "build   writes the plan described in DESC to OUT (V2 unless --v1 or a\n"
    "        'format v1' line). Nothing is written when DESC has an error.\n"
    "synth   writes a plan of N workstations, M schedules per workstation and\n"
    "        K jobs per schedule; --deps adds prompts, files, resources,\n"
    "        dependencies and restart chains.\n"
    "check   walks every chain of PLAN and prints one line per problem;\n"
    "        exit status 1 when there is any.\n"
    "fields  lists the fields that 'set' accepts: kind, name, offset, width,\n"
    "        elements, type, role.\n"
    "\n"
    "Description lines (# starts a comment, \"...\" quotes text):\n"
    "  format v1|v2                     before the first record\n"
    "  header                           select the header record\n"
    "  workstation NAME\n"
    "  schedule WORKSTATION NAME\n"
    "  job NAME                         a job of the last schedule\n"
    "  prompt NAME | file WORKSTATION PATH | resource WORKSTATION NAME\n"
    "  calendar NAME\n"
    "Lines for the current record:\n"
    "  set FIELD[INDEX] VALUE           any field by name; numbers as 12 or\n"
    "                                   0x1f, text as a word or \"quoted\";\n"
    "                                   dates as YYYY-MM-DD [HH:MM] (local)\n"
    "  status WORD|NUMBER               hold ready exec succ abend fail skel cancl\n"
    "  text \"TEXT\"                      prompt text, up to 200 bytes\n"
    "  dep [FLAG] TARGET                schedules and jobs, up to 40\n"
    "  restart JOB | restart WORKSTATION SCHEDULE JOB\n"
    "  link FIELD[INDEX] TARGET         store a record number in a field\n"
    "Targets:\n"
    "  sched WS NAME (3)   job WS SCHED JOB (4)   prompt NAME (2)\n"
    "  localprompt NAME (1)   file WS PATH (8)   resource WS NAME [UNITS] (31+UNITS)\n"
    "  workstation NAME   calendar NAME   rec NUMBER   (default flag bytes)\n"
    "The whole format: docs/plan-description.md in the sources, installed as\n"
    "share/doc/almread/plan-description.md.\n";

// What `almplan COMMAND --help` shows.
struct CommandHelp {
    const char* command;
    const char* text;
};

constexpr CommandHelp kCommandHelp[] = {
    {"build",
     "Usage: almplan build [--v1] DESC OUT\n"
     "Writes the plan described in the text file DESC to OUT: 512-byte records,\n"
     "or 256-byte ones with --v1 or a 'format v1' line. Nothing is written when\n"
     "DESC has an error; the error names its line. almplan --help lists the\n"
     "description lines; docs/plan-description.md gives the whole format.\n"},
    {"synth",
     "Usage: almplan synth --cpus N --scheds M --jobs K [--deps] [--v1] [--date YYYY-MM-DD] OUT\n"
     "Writes a plan of N workstations, M schedules per workstation and K jobs\n"
     "per schedule, for the given day (1971 to 2037). --deps adds prompts,\n"
     "files, resources, dependencies and restart chains.\n"},
    {"fields",
     "Usage: almplan fields [KIND]\n"
     "Lists the fields that a description's 'set' line accepts, one a line:\n"
     "kind, name, offset, width, elements, type, role. KIND is one of header,\n"
     "workstation, schedule, job, prompt, file, resource, calendar, string.\n"},
    {"check",
     "Usage: almplan check PLAN\n"
     "Walks every chain of PLAN and prints one line per problem; exit status 1\n"
     "when there is any.\n"},
    {"dump",
     "Usage: almplan dump PLAN [--json]\n"
     "Lists every record of PLAN as read through the plan library, one line a\n"
     "record; with --json one JSON object a line.\n"},
};

// The command's own help when its words ask for it (before any "--").
const char* command_help(std::string_view command, int argc, char** argv) {
    for (int i = 2; i < argc && std::string_view(argv[i]) != "--"; ++i) {
        const std::string_view a = argv[i];
        if (a != "--help" && a != "-h") continue;
        for (const CommandHelp& h : kCommandHelp) {
            if (command == h.command) return h.text;
        }
    }
    return nullptr;
}

int usage_error(const std::string& problem) {
    std::fprintf(stderr, "almplan: %s\n%s", problem.c_str(), kUsage);
    return kExitUsage;
}

int failure(const std::string& problem) {
    std::fprintf(stderr, "almplan: %s\n", problem.c_str());
    return kExitFailure;
}

bool read_file(const char* path, std::string& out, std::string& err) {
    std::FILE* f = std::fopen(path, "rb");
    if (f == nullptr) {
        err = std::string(path) + ": " + std::strerror(errno);
        return false;
    }
    char buf[65536];
    std::size_t n = 0;
    while ((n = std::fread(buf, 1, sizeof buf, f)) > 0) out.append(buf, n);
    const bool bad = std::ferror(f) != 0;
    std::fclose(f);
    if (bad) {
        err = std::string(path) + ": read error";
        return false;
    }
    return true;
}

int cmd_build(int argc, char** argv) {
    bool v1 = false;
    const char* paths[2] = {nullptr, nullptr};
    int npaths = 0;
    for (int i = 1; i < argc; ++i) {
        const std::string_view a = argv[i];
        if (a == "--v1") {
            v1 = true;
        } else if (a.size() > 1 && a[0] == '-') {
            return usage_error("unknown option '" + std::string(a) + "'");
        } else if (npaths < 2) {
            paths[npaths++] = argv[i];
        } else {
            return usage_error("build takes DESC and OUT");
        }
    }
    if (npaths != 2) return usage_error("build takes DESC and OUT");
    std::string text;
    std::string err;
    if (!read_file(paths[0], text, err)) return failure(err);
    PlanDesc desc;
    if (!parse_description(paths[0], text, v1, desc, err) || !build_plan(desc, paths[1], err)) return failure(err);
    return 0;
}

bool parse_count(const char* s, std::uint32_t& out) {
    if (s == nullptr || *s < '0' || *s > '9') return false;
    errno = 0;
    char* end = nullptr;
    const unsigned long long v = std::strtoull(s, &end, 10);
    if (errno != 0 || *end != '\0' || v > 0xFFFFFFFFULL) return false;
    out = static_cast<std::uint32_t>(v);
    return true;
}

int cmd_synth(int argc, char** argv) {
    SynthOptions opt;
    bool have[3] = {false, false, false};
    const char* out = nullptr;
    for (int i = 1; i < argc; ++i) {
        const std::string_view a = argv[i];
        const char* value = i + 1 < argc ? argv[i + 1] : nullptr;
        std::uint32_t* count = a == "--cpus" ? &opt.cpus : a == "--scheds" ? &opt.scheds : a == "--jobs" ? &opt.jobs
                                                                                                     : nullptr;
        if (count != nullptr) {
            if (!parse_count(value, *count)) return usage_error(std::string(a) + " needs a number");
            have[a == "--cpus" ? 0 : a == "--scheds" ? 1 : 2] = true;
            ++i;
        } else if (a == "--deps") {
            opt.deps = true;
        } else if (a == "--v1") {
            opt.alm_version = 0;
        } else if (a == "--date") {
            if (value == nullptr || !parse_civil_date(value, opt.date)) {
                return usage_error("--date needs YYYY-MM-DD (1971 to 2037)");
            }
            ++i;
        } else if (a.size() > 1 && a[0] == '-') {
            return usage_error("unknown option '" + std::string(a) + "'");
        } else if (out == nullptr) {
            out = argv[i];
        } else {
            return usage_error("synth takes one OUT");
        }
    }
    if (!have[0] || !have[1] || !have[2] || out == nullptr) {
        return usage_error("synth needs --cpus, --scheds, --jobs and OUT");
    }
    std::string err;
    if (!synth_plan(opt, out, err)) return failure(err);
    return 0;
}

const char* type_word(ValueType t) {
    switch (t) {
    case ValueType::Signed: return "signed";
    case ValueType::Unsigned: return "unsigned";
    case ValueType::Text: return "text";
    }
    return "?";
}

const char* role_word(FieldRole r) {
    switch (r) {
    case FieldRole::Plain: return "plain";
    case FieldRole::RecPtr: return "recptr";
    case FieldRole::Alias: return "alias";
    }
    return "?";
}

int cmd_fields(int argc, char** argv) {
    if (argc > 2) return usage_error("fields takes at most one KIND");
    bool listed = false;
    for (int k = 0; k < REC_KIND_COUNT; ++k) {
        const auto kind = static_cast<RecKind>(k);
        if (argc == 2 && std::strcmp(argv[1], kind_word(kind)) != 0) continue;
        listed = true;
        for (const FieldDesc& f : record_fields(kind)) {
            std::printf("%s %s %u %u %u %s %s\n", kind_word(kind), f.name, f.offset, f.width, f.count,
                        type_word(f.type), role_word(f.role));
        }
    }
    if (!listed) return usage_error(std::string("unknown record kind '") + argv[1] + "'");
    return 0;
}

int run(int argc, char** argv) {
    if (argc < 2) return usage_error("no command");
    const std::string_view cmd = argv[1];
    if (cmd == "--help" || cmd == "-h" || cmd == "help") {
        std::fputs(kUsage, stdout);
        std::fputs(kHelp, stdout);
        return 0;
    }
    if (cmd == "--version" || cmd == "-V") {
        std::fputs("almplan " ALM_TOOLS_VERSION "\n", stdout);
        return 0;
    }
    if (const char* help = command_help(cmd, argc, argv)) {
        std::fputs(help, stdout);
        return 0;
    }
    if (cmd == "build") return cmd_build(argc - 1, argv + 1);
    if (cmd == "synth") return cmd_synth(argc - 1, argv + 1);
    if (cmd == "fields") return cmd_fields(argc - 1, argv + 1);
    if (cmd == "dump") return almplan_dump(argc - 1, argv + 1);
    if (cmd == "check") return almplan_check(argc - 1, argv + 1);
    return usage_error("unknown command '" + std::string(cmd) + "'");
}

}  // namespace
}  // namespace alm

int main(int argc, char** argv) {
    // With TZ unset the C library looks at its default zone file again for
    // every local-time conversion; naming that same file once keeps a
    // million conversions cheap without changing the zone.
    if (std::getenv("TZ") == nullptr) ::setenv("TZ", ":/etc/localtime", 0);
    // The home (two directories above the program) holds the message
    // catalogs that the plan library's error texts come from.
    alm::qual_file(argc > 0 ? argv[0] : nullptr, alm::QUAL_HOMEDIR, sizeof alm::QUAL_HOMEDIR);
    return alm::run(argc, argv);
}
