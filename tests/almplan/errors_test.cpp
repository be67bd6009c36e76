// Descriptions with errors: the message names the line and the problem, the
// exit status is non-zero and nothing is written.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "almplan/plantest.h"

namespace almtest {
namespace {

struct BadCase {
    const char* name;
    const char* text;
    int line;
    const char* problem;  // part of the message after "DESC:LINE: "
};

constexpr const char* kBase =
    "workstation MASTER\n"      // 1
    "schedule MASTER DAILY\n"   // 2
    "job EXTRACT\n";            // 3

const BadCase kBadCases[] = {
    {"UnknownField", "workstation MASTER\nschedule MASTER DAILY\njob EXTRACT\n  set sj_foo 1\n", 4,
     "unknown field 'sj_foo'"},
    {"FieldOfAnotherKind", "workstation MASTER\n  set ss_limit 3\n", 2,
     "field 'ss_limit' belongs to a schedule record, not to a workstation record"},
    {"UnknownKeyword", "workstation MASTER\nfrobnicate\n", 2, "unknown keyword 'frobnicate'"},
    {"JobBeforeSchedule", "workstation MASTER\njob EXTRACT\n", 2, "job 'EXTRACT' comes before any schedule"},
    {"DuplicateWorkstation", "workstation MASTER\n\nworkstation MASTER\n", 3,
     "duplicate workstation 'MASTER' (first on line 1)"},
    {"DuplicateJob", "workstation MASTER\nschedule MASTER DAILY\njob EXTRACT\njob EXTRACT\n", 4,
     "duplicate job 'MASTER DAILY EXTRACT' (first on line 3)"},
    {"UnknownJobTarget", "workstation MASTER\nschedule MASTER DAILY\njob EXTRACT\n  dep job MASTER DAILY NOPE\n", 4,
     "no record for 'job MASTER DAILY NOPE'"},
    {"UnknownRestart", "workstation MASTER\nschedule MASTER DAILY\njob EXTRACT\n  restart LOAD\n", 4,
     "no record for 'job MASTER DAILY LOAD'"},
    {"UnknownPromptTarget", "workstation MASTER\nschedule MASTER DAILY\n  dep prompt ASK\n", 3,
     "no record for 'prompt ASK'"},
    {"ScheduleOnUnknownWorkstation", "workstation MASTER\n# comment\nschedule AGENT9 DAILY\n", 3,
     "unknown workstation 'AGENT9'"},
    {"ValueTooBig", "workstation MASTER\nschedule MASTER DAILY\njob EXTRACT\n  set sj_status 70000\n", 4,
     "value 70000 does not fit field 'sj_status' (2 bytes)"},
    {"BadNumber", "workstation MASTER\n  set sci_node_addr 12x\n", 2, "bad number '12x' for field 'sci_node_addr'"},
    {"NameTooLongV2", "workstation ABCDEFGHIJKLMNOPQ\n", 1,
     "workstation name 'ABCDEFGHIJKLMNOPQ' is longer than 16 bytes"},
    {"NameTooLongV1", "format v1\nworkstation MASTER\nschedule MASTER DAILY\njob EXTRACTED\n", 4,
     "job name 'EXTRACTED' is longer than 8 bytes"},
    {"TextTooLong", "workstation MASTER\n  set sci_cpu_type LINUX\n", 2,
     "text for field 'sci_cpu_type' is longer than 4 bytes"},
    {"BadDate", "workstation MASTER\nschedule MASTER DAILY\n  set ss_sched_date 2026-02-30\n", 3,
     "bad date '2026-02-30'"},
    {"BadTime", "workstation MASTER\nschedule MASTER DAILY\n  set ss_sched_date 2026-02-03 24:00\n", 3,
     "bad time of day '24:00'"},
    {"DateWithoutTimeField", "header\n  set sh_sched_date 2026-11-22 06:00\n", 2,
     "field 'sh_sched_date' has no time of day"},
    {"UnterminatedQuote", "workstation MASTER\nprompt ASK\n  text \"Ready?\n", 3, "unterminated quoted text"},
    {"ArrayWithoutIndex", "workstation MASTER\nschedule MASTER DAILY\njob EXTRACT\n  set sj_dependencies 5\n", 4,
     "field 'sj_dependencies' has 40 elements: give an index"},
    {"IndexOutOfRange", "workstation MASTER\nschedule MASTER DAILY\n  set ss_depend_flags[40] 1\n", 3,
     "index 40 is out of range for field 'ss_depend_flags' (40 elements)"},
    {"FormatAfterRecord", "workstation MASTER\nformat v1\n", 2, "format must come before the first record"},
    {"DepOnPrompt", "workstation MASTER\nprompt ASK\n  dep prompt ASK\n", 3, "a prompt record has no dependencies"},
    {"RawTargetNeedsFlag", "workstation MASTER\nschedule MASTER DAILY\n  dep rec 7\n", 3,
     "a dependency on 'rec 7' needs a flag byte"},
    {"FlagTooBig", "workstation MASTER\nschedule MASTER DAILY\n  dep 256 rec 7\n", 3, "bad flag byte '256'"},
    {"ResourceUnits", "workstation MASTER\nresource MASTER TAPES\nschedule MASTER DAILY\n"
                      "  dep resource MASTER TAPES 97\n",
     4, "resource units must be 1 to 96"},
    {"PromptTextOnJob", "workstation MASTER\nschedule MASTER DAILY\njob EXTRACT\n  text \"hi\"\n", 4,
     "only a prompt has a text"},
    {"LinkIntoText", "workstation MASTER\nschedule MASTER DAILY\njob EXTRACT\n  link sj_job_user job MASTER DAILY "
                     "EXTRACT\n",
     4, "field 'sj_job_user' holds text, not a record number"},
    {"StatusOnCalendar", "calendar HOLIDAYS\n  status hold\n", 2, "a calendar record has no status"},
};

class BadDescription : public ::testing::TestWithParam<BadCase> {};

TEST_P(BadDescription, NamesTheLineAndWritesNothing) {
    const BadCase& c = GetParam();
    TempDir dir;
    const std::string desc = dir.write("plan.txt", c.text);
    const std::string out = dir.file("Almanack");
    const RunResult r = run_almplan({"build", desc, out});
    EXPECT_NE(r.status, 0);
    const std::string prefix = "almplan: " + desc + ":" + std::to_string(c.line) + ": ";
    EXPECT_EQ(r.err.rfind(prefix, 0), 0u) << r.err;
    EXPECT_NE(r.err.find(c.problem), std::string::npos) << r.err;
    EXPECT_EQ(r.out, "");
    EXPECT_FALSE(file_exists(out));
    EXPECT_EQ(dir.entries(), std::vector<std::string>{"plan.txt"});  // no temporary file left either
}

INSTANTIATE_TEST_SUITE_P(Cases, BadDescription, ::testing::ValuesIn(kBadCases),
                         [](const ::testing::TestParamInfo<BadCase>& info) { return info.param.name; });

TEST(BadDescription, TooManyDependencies) {
    std::string text = kBase;
    for (int i = 0; i < 41; ++i) text += "  dep 7 rec " + std::to_string(i) + "\n";
    TempDir dir;
    const std::string desc = dir.write("plan.txt", text);
    const RunResult r = run_almplan({"build", desc, dir.file("out")});
    EXPECT_NE(r.status, 0);
    EXPECT_NE(r.err.find(desc + ":44: more than 40 dependencies"), std::string::npos) << r.err;
    EXPECT_FALSE(file_exists(dir.file("out")));
}

TEST(BadDescription, ExistingOutputIsLeftAlone) {
    TempDir dir;
    const std::string out = dir.write("Almanack", "previous plan");
    const std::string desc = dir.write("plan.txt", std::string(kBase) + "  set sj_nope 1\n");
    const RunResult r = run_almplan({"build", desc, out});
    EXPECT_NE(r.status, 0);
    EXPECT_EQ(read_file(out), "previous plan");
    EXPECT_EQ(dir.entries(), (std::vector<std::string>{"Almanack", "plan.txt"}));
}

TEST(BadDescription, GoodBuildReplacesExistingOutput) {
    TempDir dir;
    const std::string out = dir.write("Almanack", "previous plan");
    const std::string desc = dir.write("plan.txt", kBase);
    const RunResult r = run_almplan({"build", desc, out});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(read_file(out).size(), 4u * 512u);
    EXPECT_EQ(dir.entries(), (std::vector<std::string>{"Almanack", "plan.txt"}));
}

TEST(BadInvocation, MissingDescriptionAndBadOutputDirectory) {
    TempDir dir;
    RunResult r = run_almplan({"build", dir.file("absent.txt"), dir.file("out")});
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("almplan: " + dir.file("absent.txt") + ": "), std::string::npos) << r.err;

    const std::string desc = dir.write("plan.txt", kBase);
    const std::string out = dir.file("no/such/dir/Almanack");
    r = run_almplan({"build", desc, out});
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("almplan: " + out + ": "), std::string::npos) << r.err;
}

TEST(BadInvocation, UsageErrorsExitWithTwo) {
    const std::vector<std::vector<std::string>> cases{
        {},
        {"frob"},
        {"build", "only-one"},
        {"build", "--v2", "a", "b"},
        {"synth", "--cpus", "1", "--scheds", "1", "out"},
        {"synth", "--cpus", "x", "--scheds", "1", "--jobs", "1", "out"},
        {"synth", "--cpus", "1", "--scheds", "1", "--jobs", "1", "--date", "2026-13-01", "out"},
        {"fields", "nosuchkind"},
    };
    for (const auto& args : cases) {
        const RunResult r = run_almplan(args);
        EXPECT_EQ(r.status, 2) << (args.empty() ? std::string("(none)") : args[0]);
        EXPECT_NE(r.err.find("Usage:"), std::string::npos) << r.err;
    }
}

}  // namespace
}  // namespace almtest
