// almq deps: the tree rebuilt from the streamed dependency reply, the raw
// frames, and a reply that announces more records than it sends.
#include <unistd.h>

#include <gtest/gtest.h>

#include <map>

#include "almqhome.h"
#include "jsonlines.h"

namespace alm::almqtest {
namespace {

TEST(AlmqDeps, ScheduleTreeWithRestartChains) {
    const RunResult r = sample_home().runAlmq({"deps", "AGENT1", "LOADDATA"});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out,
              "AGENT1#LOADDATA  EXEC  start 2026-11-22 08:00  started 2026-11-22 08:00\n"
              "  SD       MASTER#STARTDAY  SUCC\n"
              "  job      GETORD  SUCC  start 2026-11-22 08:00  started 2026-11-22 08:01\n"
              "    file     AGENT1#/data/in/orders.csv\n"
              "  job      GETPAY  ABEND  started 2026-11-22 08:02\n"
              "    file     AGENT1#/data/in/payments.csv\n"
              "    restart  RETRYPAY  READY\n"
              "    restart  NOTIFY  HOLD\n"
              "  job      RETRYPAY  READY\n"
              "    restart  NOTIFY  HOLD\n"
              "  job      NOTIFY  HOLD\n"
              "  job      MERGE  HOLD\n"
              "    JD       AGENT1#LOADDATA.GETORD  SUCC\n"
              "    JD       AGENT1#LOADDATA.GETPAY  ABEND\n"
              "    resource MASTER#DBCONN  needs 1, 8 available, 2 in use\n"
              "\n"
              "1 schedule, 5 jobs, 3 restart links, 6 dependencies\n");
}

TEST(AlmqDeps, EveryDependencyKind) {
    const RunResult r = sample_home().runAlmq({"deps", "@", "@"});
    ASSERT_EQ(r.status, 0) << r.err;
    for (const char* line : {
             "  prompt   PAYOK  \"Payroll figures approved by finance?\"\n",
             "    prompt   PAYOK (local)  \"Payroll figures approved by finance?\"\n",
             "    prompt   TAPEOK  \"Is the backup tape mounted in drive 2? Reply YES to continue.\"  asked "
             "2026-11-22 21:40\n",
             "  prompt   CLOSEOK  \"Close the business day now?\"  asked 2026-11-22 17:55  answered 2026-11-22 "
             "18:02\n",
             "  file     AGENT2#/var/log/web/access.log -s\n",
             "    resource AGENT2#CPUSLOT  needs 2, 4 available, 0 in use\n",
             "  SD       AGENT1#BACKUP  HOLD\n",
             "    JD       AGENT2#ARCHIVE.SHIPLOGS  HOLD\n",
             "AGENT2#MONTHEND  CANCL  start 2026-11-22 23:30\n  job      LEDGER  CANCL\n",
         }) {
        EXPECT_NE(r.out.find(line), std::string::npos) << line;
    }
    EXPECT_EQ(r.lines().back(), "12 schedules, 26 jobs, 3 restart links, 36 dependencies");
}

TEST(AlmqDeps, JobPatternKeepsTheScheduleAndItsDependencies) {
    const RunResult r = sample_home().runAlmq({"deps", "@", "@", "GETPAY"});
    ASSERT_EQ(r.status, 0) << r.err;
    // Every schedule is sent, with only the jobs that match.
    EXPECT_EQ(r.lines().back(), "12 schedules, 1 job, 2 restart links, 12 dependencies");
    EXPECT_NE(r.out.find("  job      GETPAY  ABEND  started 2026-11-22 08:02\n"
                         "    file     AGENT1#/data/in/payments.csv\n"
                         "    restart  RETRYPAY  READY\n"
                         "    restart  NOTIFY  HOLD\n"),
              std::string::npos)
        << r.out;
}

// The graph: nodes in workstation and schedule clusters, one edge from each
// thing waited on to its waiter, restart chains link to link; dot draws it.
TEST(AlmqDeps, DotDrawsTheGraph) {
    const AlmqHome& home = sample_home();
    const RunResult r = home.runAlmq({"--dot", "deps", "AGENT1", "LOADDATA"});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out.rfind("digraph plan {\n", 0), 0u);
    std::size_t edges = 0;
    for (const std::string& line : r.lines()) {
        const auto arrow = line.find(" -> ");
        if (arrow == std::string::npos) continue;
        ++edges;
        // Both ends are declared nodes.
        for (const std::string& end : {line.substr(2, arrow - 2), line.substr(arrow + 4, line.find(" [") - arrow - 4)}) {
            EXPECT_NE(r.out.find(end + " [shape="), std::string::npos) << end;
        }
    }
    EXPECT_EQ(edges, 8u) << r.out;
    for (const char* line : {
             "  subgraph cluster_0 {\n    label=\"AGENT1\";\n    subgraph cluster_1 {\n      label=\"LOADDATA\";",
             "      \"AGENT1#LOADDATA\" [shape=box, style=bold, label=\"LOADDATA\\nEXEC\"];",
             "    \"resource MASTER#DBCONN\" [shape=cylinder, label=\"DBCONN\\n8 available, 2 in use\"];",
             "  \"MASTER#STARTDAY\" -> \"AGENT1#LOADDATA\" [label=\"follows\"];",
             "  \"file AGENT1#/data/in/payments.csv\" -> \"AGENT1#LOADDATA.GETPAY\" [label=\"opens\"];",
             "  \"AGENT1#LOADDATA.RETRYPAY\" -> \"AGENT1#LOADDATA.NOTIFY\" [label=\"restart\", style=dashed];",
             "  \"resource MASTER#DBCONN\" -> \"AGENT1#LOADDATA.MERGE\" [label=\"needs 1\"];",
         }) {
        EXPECT_NE(r.out.find(line), std::string::npos) << line;
    }
    const RunResult all = home.runAlmq({"--dot", "deps"});
    ASSERT_EQ(all.status, 0) << all.err;
    EXPECT_NE(all.out.find("  \"local prompt AGENT1#PAYROLL.PRINTPAY PAYOK\" -> \"AGENT1#PAYROLL.PRINTPAY\" "
                           "[label=\"local prompt\"];"),
              std::string::npos);
    if (::access("/usr/bin/dot", X_OK) != 0) return;
    const RunResult svg = home.run("/bin/sh", {"-c", "bin/almq --dot deps | dot -Tsvg"}, home.path());
    EXPECT_EQ(svg.status, 0) << svg.err;
    EXPECT_EQ(svg.err, "");
    EXPECT_NE(svg.out.find("<svg"), std::string::npos);
}

// A plan with dependency entries that the server counts in its header but
// does not send: a flag byte 9, and an entry whose record cannot be read.
// almq must not wait for the missing records.
TEST(AlmqDeps, ShortStreamEndsAtTheFence) {
    AlmqHome home;
    ASSERT_TRUE(home.ok());
    ASSERT_TRUE(home.buildPlanText("workstation WS\n"
                                   "resource WS RES\n"
                                   "  set sr_num_avail 3\n"
                                   "schedule WS FIRST\n"
                                   "  job ONE\n"
                                   "schedule WS SECOND\n"
                                   "  dep 9 resource WS RES\n"
                                   "  dep sched WS FIRST\n"
                                   "  dep 4 rec 1\n"
                                   "  job TWO\n"
                                   "    dep 9 resource WS RES\n"
                                   "    dep job WS FIRST ONE\n"
                                   "    restart WS FIRST ONE\n",
                                   "Almanack"));
    const RunResult r = home.runAlmq({"--timeout", "20", "deps", "WS", "SECOND"});
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out,
              "WS#SECOND  HOLD\n"
              "  SD       WS#FIRST  HOLD\n"
              "  job      TWO  HOLD\n"
              "    JD       WS#FIRST.ONE  HOLD\n"
              "    restart  ONE  HOLD\n"
              "\n"
              "1 schedule, 1 job, 1 restart link, 2 dependencies (5 of the 8 records announced)\n");

    const RunResult raw = home.runAlmq({"--raw", "deps", "WS", "SECOND"});
    ASSERT_EQ(raw.status, 0) << raw.err;
    // The dependency frame as received: its header announces 8 records,
    // 5 follow; then the no-operation reply that closed the stream.
    EXPECT_NE(raw.out.find("# reply to dependencies (request type 7, id 2): 2584 bytes\n"
                           "00000000  00 00 10 14 00 00 00 00  00 00 00 02 00 00 00 08  |................|\n"
                           "00000010  00 00 02 00 00 00 00 01  53 52"),
              std::string::npos)
        << raw.out;
    EXPECT_NE(raw.out.find("# reply to no-operation (request type 0, id 3): 24 bytes\n"
                           "00000000  00 00 00 14 00 00 00 00  00 00 00 03 00 00 00 00  |................|\n"),
              std::string::npos)
        << raw.out;
}

// A listing far longer than one output piece arrives whole, in both forms,
// and the JSON lines agree with the tree's closing count.
TEST(AlmqDeps, LongListingsArriveWhole) {
    AlmqHome home;
    ASSERT_TRUE(home.ok());
    ASSERT_TRUE(home.synthPlan(3, 10, 10, true, "Almanack"));
    const RunResult tree = home.runAlmq({"deps"});
    ASSERT_EQ(tree.status, 0) << tree.err;
    const RunResult json = home.runAlmq({"--json", "deps"});
    ASSERT_EQ(json.status, 0) << json.err;
    ASSERT_GT(json.out.size(), std::size_t{1} << 17);
    std::vector<Json> lines;
    std::string error;
    ASSERT_TRUE(parse_json_lines(json.out, lines, error)) << error;
    std::map<std::string, int> roles;
    for (const Json& j : lines) ++roles[j.at("role").get<std::string>()];
    EXPECT_EQ(roles["schedule"], 30);
    EXPECT_EQ(roles["job"], 300);
    EXPECT_EQ(tree.lines().back(), "30 schedules, 300 jobs, " + std::to_string(roles["restart"]) +
                                       " restart links, " + std::to_string(roles["dependency"]) + " dependencies");
    // Every tree line but the blank separators and the count is one record.
    std::size_t treeLines = 0;
    for (const std::string& l : tree.lines()) treeLines += !l.empty();
    EXPECT_EQ(treeLines - 1, lines.size());
}

// The tree goes out as the reply streams in, a schedule at a time. When
// the server's output breaks off, almq fails with status 3 and what it has
// printed is the listing's first schedules, each of them whole.
TEST(AlmqDeps, ACutReplyLeavesWholeSchedules) {
    AlmqHome home;
    ASSERT_TRUE(home.ok());
    ASSERT_TRUE(home.synthPlan(3, 10, 10, true, "Almanack"));
    // The dependency reply is some 320 KB; this ends it a third of the way.
    const std::string cut = home.cutServer(100000);
    for (const bool json : {false, true}) {
        SCOPED_TRACE(json ? "json" : "tree");
        std::vector<std::string> args{"deps"};
        if (json) args.insert(args.begin(), "--json");
        const RunResult whole = home.runAlmq(args);
        ASSERT_EQ(whole.status, 0) << whole.err;
        args.insert(args.begin(), {"--server", cut});
        const RunResult r = home.runAlmq(args);
        EXPECT_EQ(r.status, 3);
        EXPECT_EQ(r.err.rfind("almq: " + cut + ": incomplete dependency reply: the server ended", 0), 0u) << r.err;
        ASSERT_FALSE(r.out.empty());
        ASSERT_LT(r.out.size(), whole.out.size());
        EXPECT_EQ(whole.out.compare(0, r.out.size(), r.out), 0) << "not a prefix of the whole listing";
        // What follows in the whole listing starts the next schedule.
        const std::string next = whole.out.substr(r.out.size(), 40);
        if (json) {
            EXPECT_EQ(next.rfind("{\"role\":\"schedule\"", 0), 0u) << next;
        } else {
            EXPECT_EQ(next.rfind("\nWS", 0), 0u) << next;
        }
    }
}

TEST(AlmqDeps, RawShowsEveryFrameOfTheSession) {
    const RunResult r = sample_home().runAlmq({"--raw", "cpus", "AGENT2"});
    ASSERT_EQ(r.status, 0) << r.err;
    const auto lines = r.lines();
    std::vector<std::string> heads;
    for (const std::string& l : lines) {
        if (l.rfind("# ", 0) == 0) heads.push_back(l);
    }
    ASSERT_EQ(heads.size(), 3u) << r.out;
    EXPECT_EQ(heads[0].rfind("# reply to open (request type 2, id 1): ", 0), 0u);
    EXPECT_EQ(heads[1], "# reply to workstations (request type 8, id 2): 536 bytes");
    EXPECT_EQ(heads[2], "# reply to close (request type 3, id 3): 24 bytes");
    // The record follows the 24-byte header: type code "CI", then the name.
    EXPECT_NE(r.out.find("00000000  00 00 02 14 00 00 00 00  00 00 00 02 00 00 00 01  |................|\n"
                         "00000010  00 00 02 00 00 00 00 01  43 49 00 00"),
              std::string::npos)
        << r.out;
    EXPECT_NE(r.out.find("41 47 45 4e 54 32 20 20  |........AGENT2  |"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("# reply to close (request type 3, id 3): 24 bytes\n"
                         "00000000  00 00 00 14 00 00 00 00  00 00 00 03 00 00 00 00  |................|\n"
                         "00000010  00 00 00 00 00 00 00 00                           |........|\n"),
              std::string::npos)
        << r.out;
}

TEST(AlmqDeps, RawOfARefusedOpenStillFailsWithThree) {
    const RunResult r = sample_home().runAlmq({"--raw", "--plan", "plans/missing", "cpus"});
    EXPECT_EQ(r.status, 3);
    EXPECT_EQ(r.out.rfind("# reply to open (request type 2, id 1): ", 0), 0u) << r.out;
    EXPECT_NE(r.err.find("cannot open plan plans/missing"), std::string::npos);
}

}  // namespace
}  // namespace alm::almqtest
