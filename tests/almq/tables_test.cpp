// The tables that almq prints for a person, on the sample plan, through the
// real server.
#include <gtest/gtest.h>

#include <sstream>

#include "almqhome.h"
#include "jsonlines.h"

namespace alm::almqtest {
namespace {

// The cells of a table line: runs of text separated by two or more blanks.
std::vector<std::string> cells(const std::string& line) {
    std::vector<std::string> out;
    std::size_t i = 0;
    while (i < line.size()) {
        while (i < line.size() && line[i] == ' ') ++i;
        if (i >= line.size()) break;
        std::size_t end = i;
        while (end < line.size() && !(line[end] == ' ' && (end + 1 >= line.size() || line[end + 1] == ' '))) ++end;
        out.push_back(line.substr(i, end - i));
        i = end;
    }
    return out;
}

// The row whose first cells are the given key cells.
std::vector<std::string> row(const RunResult& r, const std::vector<std::string>& key) {
    for (const std::string& line : r.lines()) {
        const auto c = cells(line);
        if (c.size() >= key.size() && std::equal(key.begin(), key.end(), c.begin())) return c;
    }
    return {};
}

// Every column starts at the same offset on every line of the table.
void expect_aligned(const RunResult& r, std::size_t tableLines) {
    const auto lines = r.lines();
    ASSERT_GE(lines.size(), tableLines);
    std::vector<std::size_t> starts;
    for (std::size_t i = 1; i < lines[0].size(); ++i) {
        if (lines[0][i] != ' ' && lines[0][i - 1] == ' ' && i >= 2 && lines[0][i - 2] == ' ') starts.push_back(i);
    }
    ASSERT_FALSE(starts.empty());
    for (std::size_t l = 1; l < tableLines; ++l) {
        for (std::size_t s : starts) {
            ASSERT_LT(s, lines[l].size() + 1) << lines[l];
            if (s < lines[l].size()) {
                EXPECT_EQ(lines[l][s - 1], ' ') << "column at " << s << " in: " << lines[l];
            }
        }
        EXPECT_NE(lines[l].back(), ' ') << "trailing blank: " << lines[l];
    }
}

TEST(AlmqTables, InfoShowsTheOpenReply) {
    const RunResult r = sample_home().runAlmq({"info"});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(row(r, {"plan"}), (std::vector<std::string>{"plan", "Almanack"}));
    EXPECT_EQ(row(r, {"plan date"}), (std::vector<std::string>{"plan date", "2026-11-22 (20261122)"}));
    EXPECT_EQ(row(r, {"day start"}), (std::vector<std::string>{"day start", "06:00"}));
    EXPECT_EQ(row(r, {"this workstation"}), (std::vector<std::string>{"this workstation", "MASTER"}));
    EXPECT_EQ(row(r, {"master"}), (std::vector<std::string>{"master", "MASTER"}));
    EXPECT_EQ(row(r, {"job fence"}), (std::vector<std::string>{"job fence", "0"}));
    EXPECT_EQ(row(r, {"format"}), (std::vector<std::string>{"format", "1 (512-byte records)"}));
    const auto handle = row(r, {"handle"});
    ASSERT_EQ(handle.size(), 2u);
    EXPECT_GT(std::stol(handle[1]), 0);
}

TEST(AlmqTables, CpusInChainOrderWithLocalStartTimes) {
    const RunResult r = sample_home().runAlmq({"--wide", "cpus"});
    ASSERT_EQ(r.status, 0) << r.err;
    const auto lines = r.lines();
    ASSERT_EQ(lines.size(), 5u) << r.out;
    EXPECT_EQ(cells(lines[0]), (std::vector<std::string>{"WORKSTATION", "HOST", "NODE", "DOMAIN", "PARENT", "TYPE",
                                                         "STATUS", "LIMIT", "FENCE", "RUN", "STARTED", "FLAGS"}));
    EXPECT_EQ(cells(lines[1]), (std::vector<std::string>{"MASTER", "master.example.net", "MAINDM", "UNIX", "0", "20",
                                                         "0", "412", "2026-11-22 06:00", "-"}));
    EXPECT_EQ(cells(lines[2]), (std::vector<std::string>{"AGENT1", "MASTER", "agent1.example.net", "MAINDM", "MAINDM",
                                                         "UNIX", "0", "10", "0", "0", "2026-11-22 06:01", "-"}));
    EXPECT_EQ(cells(lines[3])[0], "AGENT2");
    EXPECT_EQ(cells(lines[3])[10], "2026-11-22 06:02");
    EXPECT_EQ(lines[4], "3 workstations");
    expect_aligned(r, 4);
}

TEST(AlmqTables, PatternsSelectAndNothingMatchedExitsOne) {
    const AlmqHome& home = sample_home();
    struct Case {
        std::vector<std::string> args;
        int status;
        const char* last;  // last line of the output, or the error line
    } cases[] = {
        {{"cpus", "AGENT@"}, 0, "2 workstations"},
        {{"cpus", "AGENT?"}, 0, "2 workstations"},
        {{"cpus", "MAST?R"}, 0, "1 workstation"},
        {{"cpus", "AGENT%"}, 0, "2 workstations"},
        {{"cpus", "MAST%R"}, 1, "almq: no workstation matches MAST%R"},
        {{"cpus", "NOSUCH"}, 1, "almq: no workstation matches NOSUCH"},
        {{"scheds"}, 0, "12 schedules"},
        {{"scheds", "AGENT1"}, 0, "4 schedules"},
        {{"scheds", "@", "@DAY"}, 0, "2 schedules"},
        {{"scheds", "AGENT1", "NIGHTLY"}, 1, "almq: no schedule matches AGENT1 NIGHTLY"},
        {{"jobs"}, 0, "26 jobs"},
        {{"jobs", "AGENT1", "LOADDATA"}, 0, "5 jobs"},
        {{"jobs", "@", "@", "GET@"}, 0, "2 jobs"},
        // An empty pattern matches as @ does.
        {{"jobs", "AGENT1", "", ""}, 0, "11 jobs"},
        {{"jobs", "AGENT1", "@", "@"}, 0, "11 jobs"},
        {{"deps", "@", "@", ""}, 0, "12 schedules, 26 jobs, 3 restart links, 36 dependencies"},
        {{"deps"}, 0, "12 schedules, 26 jobs, 3 restart links, 36 dependencies"},
        {{"jobs", "@", "@", "NOSUCH"}, 1, "almq: no job matches @ @ NOSUCH"},
        {{"deps", "MASTER", "ENDDAY"}, 0, "1 schedule, 1 job, 0 restart links, 4 dependencies"},
        {{"deps", "NOSUCH"}, 1, "almq: no schedule matches NOSUCH @ @"},
        {{"deps", "@", "@", "NOSUCH"}, 1, "almq: no job matches @ @ NOSUCH"},
        {{"deps", "@", "@", "GET*"}, 1, "almq: no job matches @ @ GET* (the wildcard is @, not *)"},
        {{"deps", "@", "@", "GET@"}, 0, "12 schedules, 2 jobs, 2 restart links, 13 dependencies"},
        {{"logs"}, 0, "2 archived plans"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.args));
        const RunResult r = home.runAlmq(c.args);
        EXPECT_EQ(r.status, c.status) << r.err;
        if (c.status == 0) {
            ASSERT_FALSE(r.lines().empty());
            EXPECT_EQ(r.lines().back(), c.last);
            EXPECT_EQ(r.err, "");
        } else {
            EXPECT_EQ(r.out, "");
            EXPECT_EQ(r.err, std::string(c.last) + "\n");
        }
    }
}

// Without --wide the listings fit 80 columns.
TEST(AlmqTables, NarrowFormFitsEightyColumns) {
    struct Case {
        const char* command;
        std::vector<std::string> titles;
    } cases[] = {
        {"cpus", {"WORKSTATION", "HOST", "DOMAIN", "TYPE", "STATUS", "LIMIT", "FENCE", "STARTED"}},
        {"scheds", {"WORKSTATION", "SCHEDULE", "STATUS", "START", "JOBS", "SUCC", "ABEND", "FAIL", "DEPS"}},
        {"jobs", {"WORKSTATION", "SCHEDULE", "JOB", "STATUS", "START", "STARTED"}},
    };
    for (const Case& c : cases) {
        const RunResult r = sample_home().runAlmq({c.command});
        ASSERT_EQ(r.status, 0) << r.err;
        EXPECT_EQ(cells(r.lines()[0]), c.titles);
        for (const std::string& line : r.lines()) EXPECT_LE(line.size(), 80u) << line;
    }
}

TEST(AlmqTables, SchedulesWithStatesCountsAndTimes) {
    const RunResult r = sample_home().runAlmq({"scheds", "AGENT@", "--wide"});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(cells(r.lines()[0]),
              (std::vector<std::string>{"WORKSTATION", "SCHEDULE", "STATUS", "PRI", "START", "UNTIL", "STARTED",
                                        "JOBS", "SUCC", "EXEC", "ABEND", "FAIL", "DEPS", "FLAGS"}));
    EXPECT_EQ(row(r, {"AGENT1", "LOADDATA"}),
              (std::vector<std::string>{"AGENT1", "LOADDATA", "EXEC", "10", "2026-11-22 08:00", "-",
                                        "2026-11-22 08:00", "5", "1", "0", "1", "0", "1", "-"}));
    EXPECT_EQ(row(r, {"AGENT1", "BILLING"}),
              (std::vector<std::string>{"AGENT1", "BILLING", "HOLD", "10", "2026-11-22 10:00", "2026-11-22 23:00", "-",
                                        "2", "0", "0", "0", "0", "1", "-"}));
    EXPECT_EQ(row(r, {"AGENT2", "MONTHEND"})[2], "CANCL");
    // Schedules come in the plan's order: by workstation name.
    const auto lines = r.lines();
    EXPECT_EQ(cells(lines[1])[0], "AGENT1");
    EXPECT_EQ(cells(lines[lines.size() - 2])[0], "AGENT2");
    expect_aligned(r, lines.size() - 1);
}

TEST(AlmqTables, JobsWithUsersScriptsAndUntilTimes) {
    const RunResult r = sample_home().runAlmq({"jobs", "AGENT@", "--wide"});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(cells(r.lines()[0]),
              (std::vector<std::string>{"WORKSTATION", "SCHEDULE", "JOB", "STATUS", "PRI", "USER", "START", "STARTED",
                                        "ELAPSE", "UNTIL", "DEPS", "FLAGS", "SCRIPT"}));
    EXPECT_EQ(row(r, {"AGENT1", "LOADDATA", "GETPAY"}),
              (std::vector<std::string>{"AGENT1", "LOADDATA", "GETPAY", "ABEND", "10", "loader", "-",
                                        "2026-11-22 08:02", "0", "-", "1", "-", "/opt/load/getpay.sh"}));
    // The until time travels unconverted in the job reply; it must still
    // read 23:00.
    EXPECT_EQ(row(r, {"AGENT1", "BILLING", "INVOICE"}),
              (std::vector<std::string>{"AGENT1", "BILLING", "INVOICE", "HOLD", "10", "billing", "2026-11-22 10:00",
                                        "-", "0", "2026-11-22 23:00", "1", "-", "/opt/bill/invoice.sh"}));
    EXPECT_EQ(row(r, {"AGENT2", "WEBSTATS", "COLLECT"})[8], "4");
    EXPECT_EQ(row(r, {"AGENT2", "WEBSTATS", "COMPUTE"})[10], "2");
    expect_aligned(r, r.lines().size() - 1);
}

// Thousands of rows: every one kept until the table is printed, aligned,
// in the reply's order, and the same jobs as the JSON lines.
TEST(AlmqTables, LongJobListingKeepsEveryRow) {
    AlmqHome home;
    ASSERT_TRUE(home.ok());
    ASSERT_TRUE(home.synthPlan(3, 10, 300, false, "Almanack"));
    const RunResult table = home.runAlmq({"--wide", "jobs"});
    ASSERT_EQ(table.status, 0) << table.err;
    const RunResult json = home.runAlmq({"--json", "jobs"});
    ASSERT_EQ(json.status, 0) << json.err;
    const auto lines = table.lines();
    ASSERT_EQ(lines.size(), 9002u);
    EXPECT_EQ(lines.back(), "9000 jobs");
    expect_aligned(table, lines.size() - 1);
    std::vector<Json> records;
    std::string error;
    ASSERT_TRUE(parse_json_lines(json.out, records, error)) << error;
    ASSERT_EQ(records.size(), 9000u);
    for (std::size_t i = 0; i < records.size(); ++i) {
        const auto c = cells(lines[i + 1]);
        ASSERT_EQ(c.size(), 13u) << lines[i + 1];
        EXPECT_EQ(c[0], records[i].at("sj_cpu_id"));
        EXPECT_EQ(c[1], records[i].at("sj_schedule"));
        EXPECT_EQ(c[2], records[i].at("sj_job_name"));
        EXPECT_EQ(c[12], records[i].at("sj_fname_jname").at("jcl_file"));
    }
}

TEST(AlmqTables, LogsListNewestFirst) {
    const AlmqHome& home = sample_home();
    const RunResult r = home.runAlmq({"logs"});
    ASSERT_EQ(r.status, 0) << r.err;
    const auto lines = r.lines();
    ASSERT_EQ(lines.size(), 4u) << r.out;
    EXPECT_EQ(cells(lines[0]), (std::vector<std::string>{"PLAN", "PATH"}));
    EXPECT_EQ(cells(lines[1]), (std::vector<std::string>{"M2611220600", home.file("schedlog/M2611220600")}));
    EXPECT_EQ(cells(lines[2]), (std::vector<std::string>{"M2611210600", home.file("schedlog/M2611210600")}));
    // The listing needs no plan: a missing one is not even opened.
    EXPECT_EQ(home.runAlmq({"--plan", "plans/missing", "logs"}).status, 0);
}

TEST(AlmqTables, LogsOfAHomeWithoutArchiveExitOne) {
    AlmqHome bare;
    ASSERT_TRUE(bare.ok());
    const RunResult r = bare.runAlmq({"logs"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "almq: no archived plans\n");
}

TEST(AlmqTables, ArchivedPlansOpenByTheirHomeRelativePath) {
    const AlmqHome& home = sample_home();
    const RunResult r = home.runAlmq({"--plan", "schedlog/M2611210600", "cpus", "MASTER"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.lines().back(), "1 workstation");
    const RunResult abs = home.runAlmq({"--plan", home.file("schedlog/M2611220600"), "info"});
    EXPECT_EQ(abs.status, 0) << abs.err;
    EXPECT_EQ(row(abs, {"plan"})[1], home.file("schedlog/M2611220600"));
}

TEST(AlmqTables, DotPathsAreTakenFromTheCurrentDirectory) {
    const AlmqHome& home = sample_home();
    // From HOME/schedlog, ./M2611210600 is that archived plan; without the
    // ./ the same name would be looked for in the home itself.
    const RunResult dot = home.runAlmq({"--plan", "./M2611210600", "scheds"}, home.file("schedlog"));
    EXPECT_EQ(dot.status, 0) << dot.err;
    const RunResult parent = home.runAlmq({"--plan", "../Almanack", "scheds"}, home.file("schedlog"));
    EXPECT_EQ(parent.status, 0) << parent.err;
    const RunResult bare = home.runAlmq({"--plan", "M2611210600", "scheds"}, home.file("schedlog"));
    EXPECT_EQ(bare.status, 3);
    EXPECT_NE(bare.err.find(home.file("M2611210600")), std::string::npos) << bare.err;
}

TEST(AlmqTables, PingTimesEachRoundTrip) {
    const RunResult r = sample_home().runAlmq({"ping", "4"});
    ASSERT_EQ(r.status, 0) << r.err;
    const auto lines = r.lines();
    ASSERT_EQ(lines.size(), 6u) << r.out;
    EXPECT_EQ(cells(lines[0]), (std::vector<std::string>{"REPLY", "ID", "BYTES", "TIME"}));
    for (int i = 1; i <= 4; ++i) {
        const auto c = cells(lines[static_cast<std::size_t>(i)]);
        ASSERT_EQ(c.size(), 4u);
        EXPECT_EQ(c[0], std::to_string(i));
        EXPECT_EQ(c[1], std::to_string(i));
        EXPECT_EQ(c[2], "24");
        EXPECT_EQ(c[3].substr(c[3].size() - 3), " ms");
    }
    EXPECT_EQ(lines[5].rfind("4 round trips: min ", 0), 0u) << lines[5];
    const RunResult one = sample_home().runAlmq({"ping"});
    EXPECT_EQ(one.lines().back().rfind("3 round trips", 0), 0u);
}

TEST(AlmqTables, OlderPlanFormatReadsTheSame) {
    AlmqHome home;
    ASSERT_TRUE(home.ok());
    ASSERT_TRUE(home.buildPlan(kSampleDesc, "Almanack", true));
    const RunResult info = home.runAlmq({"info"});
    ASSERT_EQ(info.status, 0) << info.err;
    EXPECT_EQ(row(info, {"format"})[1], "0 (256-byte records)");
    const RunResult v1 = home.runAlmq({"jobs", "AGENT1", "LOADDATA"});
    const RunResult v2 = sample_home().runAlmq({"jobs", "AGENT1", "LOADDATA"});
    ASSERT_EQ(v1.status, 0) << v1.err;
    EXPECT_EQ(v1.out, v2.out);
}

// The wire carries day numbers and times of day; whatever the zone, the
// plan's local times must come back as they were described.
TEST(AlmqTables, LocalTimesSurviveEveryZone) {
    for (const char* zone : {"UTC0", "JST-9", "NZST-12NZDT,M9.5.0,M4.1.0/3", "HST10", "EST5EDT,M3.2.0,M11.1.0"}) {
        SCOPED_TRACE(zone);
        AlmqHome home(zone);
        ASSERT_TRUE(home.ok());
        ASSERT_TRUE(home.buildPlan(kSampleDesc, "Almanack"));
        const RunResult r = home.runAlmq({"--wide", "jobs", "AGENT1", "@", "@"});
        ASSERT_EQ(r.status, 0) << r.err;
        EXPECT_EQ(row(r, {"AGENT1", "LOADDATA", "GETORD"})[6], "2026-11-22 08:00");
        EXPECT_EQ(row(r, {"AGENT1", "LOADDATA", "GETORD"})[7], "2026-11-22 08:01");
        EXPECT_EQ(row(r, {"AGENT1", "BILLING", "INVOICE"})[9], "2026-11-22 23:00");
        const RunResult c = home.runAlmq({"--wide", "cpus", "MASTER"});
        EXPECT_EQ(row(c, {"MASTER"})[8], "2026-11-22 06:00");
    }
}

}  // namespace
}  // namespace alm::almqtest
