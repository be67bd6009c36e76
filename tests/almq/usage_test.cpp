// almq's command line, its exit statuses and its one-line errors; the
// manual pages render cleanly.
#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "almqhome.h"
#include "common/child_process.h"
#include "common/files.h"

namespace alm::almqtest {
namespace {

bool one_line(const std::string& s) {
    return !s.empty() && s.back() == '\n' && s.find('\n') == s.size() - 1;
}

struct UsageCase {
    std::vector<std::string> args;
    const char* says;  // part of the error line
};

TEST(AlmqUsage, BadCommandLinesExitTwoWithOneLine) {
    const AlmqHome& home = sample_home();
    ASSERT_TRUE(home.ok());
    const UsageCase cases[] = {
        {{}, "no subcommand"},
        {{"frobnicate"}, "unknown subcommand 'frobnicate'"},
        {{"--bogus", "cpus"}, "unknown option '--bogus'"},
        {{"-x", "cpus"}, "unknown option '-x'"},
        {{"cpus", "A", "B"}, "too many operands for cpus"},
        {{"scheds", "A", "B", "C"}, "too many operands for scheds"},
        {{"jobs", "A", "B", "C", "D"}, "too many operands for jobs"},
        {{"info", "x"}, "too many operands for info"},
        {{"logs", "x"}, "too many operands for logs"},
        {{"ping", "0"}, "ping needs a count"},
        {{"ping", "12x"}, "ping needs a count"},
        {{"ping", "1000001"}, "ping needs a count"},
        {{"--json", "--raw", "cpus"}, "exclude each other"},
        {{"--dot", "jobs"}, "--dot draws the dependencies only"},
        {{"--fields", "a,,b", "jobs"}, "--fields needs names separated by commas"},
        {{"--fields", "sj_job_name", "--raw", "jobs"}, "--fields chooses what --json and the tables show"},
        {{"cpus", "--plan"}, "option --plan needs a value"},
        {{"--plan=", "cpus"}, "--plan needs a non-empty path"},
        {{"--timeout", "0", "cpus"}, "--timeout needs a number"},
        {{"--timeout", "soon", "cpus"}, "--timeout needs a number"},
        {{"--wait", "soon", "info"}, "--wait needs a number"},
        {{"--json=1", "cpus"}, "option --json takes no value"},
    };
    for (const UsageCase& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.args));
        const RunResult r = home.runAlmq(c.args);
        EXPECT_EQ(r.status, 2);
        EXPECT_EQ(r.out, "");
        EXPECT_TRUE(one_line(r.err)) << r.err;
        EXPECT_EQ(r.err.rfind("almq: ", 0), 0u) << r.err;
        EXPECT_NE(r.err.find(c.says), std::string::npos) << r.err;
    }
}

// Every tool: help and version on standard output with 0, bad usage on
// standard error with 2.
TEST(ToolUsage, HelpVersionAndBadUsageExitAlike) {
    const AlmqHome& home = sample_home();
    struct Case {
        const char* tool;
        std::vector<std::string> args;
        int status;
        const char* first;  // the start of the first line of stdout (status 0) or stderr
    } cases[] = {
        {"almq", {"--version"}, 0, "almq 1."},
        {"almq", {"-V", "jobs"}, 0, "almq 1."},
        {"almplan", {"--help"}, 0, "Usage:"},
        {"almplan", {"--version"}, 0, "almplan 1."},
        {"almplan", {"build", "--help"}, 0, "Usage: almplan build"},
        {"almplan", {"synth", "--cpus", "1", "-h"}, 0, "Usage: almplan synth"},
        {"almplan", {"fields", "--help"}, 0, "Usage: almplan fields"},
        {"almplan", {"dump", "--help"}, 0, "Usage: almplan dump"},
        {"almplan", {"frob"}, 2, "almplan: unknown command 'frob'"},
        {"almcat", {"--help"}, 0, "Usage: almcat"},
        {"almcat", {"--version"}, 0, "almcat 1."},
        {"almcat", {}, 2, "Usage: almcat"},
        {"almcat", {"--bogus", "a", "b"}, 2, "Usage: almcat"},
        {"almcodeset", {"--help"}, 0, "Usage: almcodeset"},
        {"almcodeset", {"--version"}, 0, "almcodeset 1."},
        {"almcodeset", {"--as"}, 2, "Usage: almcodeset"},
        {"almcodeset", {"UTF-8", "nosuchtype", home.path()}, 2, "almcodeset: unknown type nosuchtype"},
        {"almcodeset", {"NO-SUCH-SET", "sbcs", home.path()}, 1, "almcodeset: iconv does not know NO-SUCH-SET"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.tool) + " " + testing::PrintToString(c.args));
        const RunResult r = home.run(test::built_program(c.tool), c.args);
        EXPECT_EQ(r.status, c.status) << r.err;
        const std::string& text = c.status == 0 ? r.out : r.err;
        EXPECT_EQ(text.rfind(c.first, 0), 0u) << text;
        EXPECT_EQ(c.status == 0 ? r.err : r.out, "");
    }
}

// The installed bash completion offers what the tools' help names.
TEST(ToolUsage, CompletionOffersWhatHelpNames) {
    const AlmqHome& home = sample_home();
    struct Case {
        const char* tool;
        const char* line;  // the words being completed; the last is completed
    } cases[] = {
        {"almq", "almq -"}, {"almq", "almq --json "}, {"almplan", "almplan "}, {"almplan", "almplan synth -"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        const std::string script = std::string(". " ALM_SOURCE_DIR "/completion/") + c.tool +
                                   "; COMP_WORDS=($1 ''); [ \"${1: -1}\" = ' ' ] || unset 'COMP_WORDS[-1]';"
                                   " COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _" + c.tool +
                                   "; printf '%s\\n' \"${COMPREPLY[@]}\"";
        const RunResult words = home.run("/bin/bash", {"-c", script, "bash", c.line});
        ASSERT_EQ(words.status, 0) << words.err;
        const std::vector<std::string> offered = words.lines();
        EXPECT_GE(offered.size(), 5u);
        const std::string help = home.run(test::built_program(c.tool), {"--help"}).out;
        for (const std::string& w : offered) EXPECT_NE(help.find(w), std::string::npos) << w;
    }
}

TEST(AlmqUsage, HelpNamesEverySubcommandAndExitsZero) {
    const AlmqHome& home = sample_home();
    for (const char* opt : {"--help", "-h"}) {
        const RunResult r = home.runAlmq({opt});
        EXPECT_EQ(r.status, 0);
        EXPECT_EQ(r.err, "");
        EXPECT_EQ(r.out.rfind("Usage: almq", 0), 0u);
        for (const char* word : {"info", "cpus", "scheds", "jobs", "deps", "logs", "ping", "--plan", "--server",
                                 "--json", "--fields", "--wide", "--dot", "--raw", "--version", "Exit status"}) {
            EXPECT_NE(r.out.find(word), std::string::npos) << word;
        }
    }
    // Help wins over everything else on the line, even a bad subcommand.
    EXPECT_EQ(home.runAlmq({"nonsense", "--help"}).status, 0);
}

TEST(AlmqUsage, OptionsMayFollowTheSubcommand) {
    const AlmqHome& home = sample_home();
    const RunResult before = home.runAlmq({"--json", "cpus", "MASTER"});
    const RunResult after = home.runAlmq({"cpus", "MASTER", "--json"});
    const RunResult joined = home.runAlmq({"cpus", "--plan=Almanack", "MASTER", "--json"});
    EXPECT_EQ(before.status, 0);
    EXPECT_EQ(before.out, after.out);
    EXPECT_EQ(before.out, joined.out);
    // After "--" a word that looks like an option is an operand.
    const RunResult dashed = home.runAlmq({"cpus", "--", "--json"});
    EXPECT_EQ(dashed.status, 1) << dashed.err;
    EXPECT_NE(dashed.err.find("no workstation matches --json"), std::string::npos) << dashed.err;
}

// The server's text in words: the system's text for its error number, the
// path tidied, the message code at the end of the line.
TEST(AlmqErrors, MissingPlanExitsThreeWithTheServersTextInWords) {
    const AlmqHome& home = sample_home();
    const std::string says = "almq: cannot open plan PLAN: The plan file " + home.file("plans/missing") +
                             " does not exist (No such file or directory). [QFR20720035]\n";
    for (const char* plan : {"plans/missing", "./plans/missing", "./plans/./missing"}) {
        for (const char* command : {"info", "cpus", "deps"}) {
            SCOPED_TRACE(std::string(plan) + " " + command);
            const RunResult r = home.runAlmq({"--plan", plan, command}, home.path());
            EXPECT_EQ(r.status, 3);
            EXPECT_EQ(r.out, "");
            std::string expected = says;
            expected.replace(expected.find("PLAN"), 4, plan);
            EXPECT_EQ(r.err, expected);
        }
    }
}

// A plan that another process holds locked: almq names the holder, or with
// --wait opens the plan once the holder lets go.
TEST(AlmqErrors, LockedPlanNamesItsHolderOrIsWaitedFor) {
    AlmqHome home;
    ASSERT_TRUE(home.ok());
    ASSERT_TRUE(home.buildPlan(kSampleDesc, "Almanack"));
    const std::string plan = home.file("Almanack");
    auto lockWhole = [&plan] {
        const int fd = ::open(plan.c_str(), O_RDWR);
        struct flock whole {};
        whole.l_type = F_WRLCK;
        whole.l_whence = SEEK_SET;
        return fd >= 0 && ::fcntl(fd, F_SETLK, &whole) == 0 ? static_cast<int>(::getpid()) : -1;
    };
    test::HoldingChild holder(lockWhole);
    ASSERT_GT(holder.report(), 0);
    const std::string says = "almq: cannot open plan Almanack: the plan file " + plan + " is locked by process " +
                             std::to_string(holder.report());
    const RunResult now = home.runAlmq({"info"});
    EXPECT_EQ(now.status, 3);
    EXPECT_EQ(now.err, says + " [QFR20720002]\n");
    const RunResult waited = home.runAlmq({"--wait", "1", "info"});
    EXPECT_EQ(waited.status, 3);
    EXPECT_EQ(waited.err, says + " (waited 1 s) [QFR20720002]\n");
    holder.release_after(300);
    const RunResult later = home.runAlmq({"--wait", "30", "info"});
    EXPECT_EQ(later.status, 0) << later.err;
    EXPECT_NE(later.out.find("plan date"), std::string::npos);
}

// What the server writes on its stderr reaches the user marked as its own.
TEST(AlmqErrors, ServerStderrLinesArePrefixed) {
    AlmqHome home;
    ASSERT_TRUE(home.ok());
    std::filesystem::remove_all(home.file("catalog"));  // the server complains of each missing catalog
    const RunResult r = home.runAlmq({"--plan", "missing", "info"});
    EXPECT_EQ(r.status, 3);
    const std::vector<std::string> lines = RunResult{0, r.err, ""}.lines();
    ASSERT_GE(lines.size(), 2u) << r.err;
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
        EXPECT_EQ(lines[i].rfind("almread: catopen on " + home.file("catalog/C/"), 0), 0u) << lines[i];
    }
    EXPECT_EQ(lines.back().rfind("almq: cannot open plan missing: ", 0), 0u) << lines.back();
}

TEST(AlmqErrors, ServerThatCannotStartOrDoesNotGreet) {
    const AlmqHome& home = sample_home();
    struct Case {
        const char* server;
        const char* says;
    } cases[] = {
        {"/nonexistent", "/nonexistent: cannot start: No such file or directory"},
        {"/dev/null", "/dev/null: cannot start: Permission denied"},
        {"/bin/true", "/bin/true: no greeting: the server ended with exit status 0"},
        {"/bin/false", "/bin/false: no greeting: the server ended with exit status 1"},
        {"/bin/echo", "/bin/echo: no greeting"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.server);
        for (const char* command : {"info", "ping", "logs"}) {
            const RunResult r = home.runAlmq({"--server", c.server, command});
            EXPECT_EQ(r.status, 3);
            EXPECT_EQ(r.out, "");
            EXPECT_TRUE(one_line(r.err)) << r.err;
            EXPECT_EQ(r.err.rfind(std::string("almq: ") + c.says, 0), 0u) << r.err;
        }
    }
}

TEST(AlmqErrors, ServerThatStallsTimesOut) {
    const AlmqHome& home = sample_home();
    // Greets, then never answers: almq must give up after its timeout.
    const std::string stall = home.file("stall.sh");
    test::write_file(stall, "#!/bin/sh\nprintf 'AlmRead Lives'\nexec sleep 30\n");
    std::filesystem::permissions(stall, std::filesystem::perms::owner_all);
    const RunResult r = home.runAlmq({"--server", stall, "--timeout", "1", "info"});
    EXPECT_EQ(r.status, 3);
    EXPECT_NE(r.err.find("no answer within 1 s"), std::string::npos) << r.err;
}

// A record reply that breaks off: a table is printed only once every row
// is in, so nothing is; JSON lines go out as records arrive, each whole.
TEST(AlmqErrors, ACutRecordReplyFailsWithThree) {
    AlmqHome home;
    ASSERT_TRUE(home.ok());
    ASSERT_TRUE(home.synthPlan(3, 10, 10, false, "Almanack"));
    // The job reply is some 150 KB; this ends it two thirds of the way.
    const std::string cut = home.cutServer(100000);
    const RunResult table = home.runAlmq({"--server", cut, "jobs"});
    EXPECT_EQ(table.status, 3);
    EXPECT_EQ(table.out, "");
    EXPECT_TRUE(one_line(table.err)) << table.err;
    EXPECT_EQ(table.err.rfind("almq: " + cut + ": no reply: the server ended", 0), 0u) << table.err;

    const RunResult whole = home.runAlmq({"--json", "jobs"});
    ASSERT_EQ(whole.status, 0) << whole.err;
    const RunResult json = home.runAlmq({"--server", cut, "--json", "jobs"});
    EXPECT_EQ(json.status, 3);
    EXPECT_NE(json.err.find(": no reply: the server ended"), std::string::npos) << json.err;
    ASSERT_LT(json.out.size(), whole.out.size());
    EXPECT_EQ(whole.out.compare(0, json.out.size(), json.out), 0) << "not a prefix of the whole listing";
    EXPECT_TRUE(json.out.empty() || json.out.back() == '\n');
}

TEST(AlmqErrors, RelativeServerPathIsTakenFromTheCurrentDirectory) {
    const AlmqHome& home = sample_home();
    const RunResult r = home.runAlmq({"--server", "bin/almread", "info"}, home.path());
    EXPECT_EQ(r.status, 0) << r.err;
    const RunResult bad = home.runAlmq({"--server", "bin/nothere", "info"}, home.path());
    EXPECT_EQ(bad.status, 3);
    EXPECT_NE(bad.err.find(home.file("bin/nothere") + ": cannot start"), std::string::npos) << bad.err;
}

// Damaged plans: almq refuses each with exit 3 and one line before the
// server lists anything, almplan check names the problem with exit 1 and
// almplan dump fails; sound plans of both formats pass all three.
TEST(AlmqErrors, DamagedPlansAreRefusedAndChecked) {
    AlmqHome home;
    ASSERT_TRUE(home.ok());
    ASSERT_TRUE(home.buildPlan(kSampleDesc, "good"));
    ASSERT_TRUE(home.buildPlan(kSampleDesc, "good1", true));
    std::mt19937 gen(18);
    std::string noise(26000, '\0');
    for (char& c : noise) c = static_cast<char>(gen());
    const std::string jobs = "workstation W\nschedule W S\njob A\njob B\njob C\n";
    struct Case {
        const char* name;
        std::string bytes;  // the file, or
        std::string desc;   // a description for almplan build
        const char* says;   // "" for a sound plan
    } cases[] = {
        {"good", "", "", ""},
        {"good1", "", "", ""},
        {"empty", "", "", "the file is empty"},
        {"noise", noise, "", "record 0 is not a plan header"},
        {"truncated", test::read_file(home.file("good")).substr(0, 10000), "", "lies beyond the end of the file"},
        {"loop", "", jobs + "link sj_next_job_ptr job W S A\n", "loops: record 3 comes again after record 5"},
        {"loop1", "", "format v1\n" + jobs + "link sj_next_job_ptr job W S B\n", "loops: record 4 comes again"},
        {"backptr", "", jobs + "link sj_prev_job_ptr job W S A\n", "record 5 points back to record 3, not to record 4"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string plan = home.file(c.name);
        if (!c.desc.empty()) {
            ASSERT_TRUE(home.buildPlanText(c.desc, c.name));
        } else if (std::string(c.name).rfind("good", 0) != 0) {
            test::write_file(plan, c.bytes);
        }
        const bool sound = *c.says == '\0';
        const RunResult q = home.runAlmq({"--plan", plan, "jobs"});
        const RunResult check = home.run(test::built_program("almplan"), {"check", plan});
        const RunResult dump = home.run(test::built_program("almplan"), {"dump", plan});
        EXPECT_EQ(q.status, sound ? 0 : 3) << q.err;
        EXPECT_EQ(check.status, sound ? 0 : 1) << check.out << check.err;
        EXPECT_EQ(dump.status != 0, !sound) << dump.err;
        if (sound) {
            EXPECT_EQ(check.out, "");
            continue;
        }
        EXPECT_EQ(q.out, "");
        EXPECT_TRUE(one_line(q.err)) << q.err;
        EXPECT_EQ(q.err.rfind("almq: plan " + plan + " is damaged: ", 0), 0u) << q.err;
        EXPECT_NE(q.err.find(c.says), std::string::npos) << q.err;
        EXPECT_EQ(check.out.rfind(plan + ": ", 0), 0u) << check.out;
        EXPECT_NE(check.out.find(c.says), std::string::npos) << check.out;
    }
}

TEST(ManPages, RenderWithoutWarnings) {
    if (::access("/usr/bin/man", X_OK) != 0) GTEST_SKIP() << "man is not installed";
    const AlmqHome& home = sample_home();
    for (const char* page : {"almread.1", "almq.1", "almplan.1", "almcat.1", "almcodeset.1"}) {
        SCOPED_TRACE(page);
        const std::string path = std::string(ALM_SOURCE_DIR "/man/") + page;
        const RunResult r = home.run("/bin/sh", {"-c", "MANWIDTH=80 man --warnings -l \"$1\" 2>&1 >/dev/null",
                                                 "sh", path});
        EXPECT_EQ(r.status, 0);
        EXPECT_EQ(r.out, "");
        const RunResult text = home.run("/bin/sh", {"-c", "MANWIDTH=80 man -l \"$1\" 2>/dev/null", "sh", path});
        EXPECT_NE(text.out.find("NAME"), std::string::npos);
        for (const char* section : {"EXIT STATUS", "EXAMPLES"}) EXPECT_NE(text.out.find(section), std::string::npos);
    }
}

}  // namespace
}  // namespace alm::almqtest
