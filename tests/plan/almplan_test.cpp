// The plan library on plans written by almplan, and almplan dump.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "common/runprogram.h"
#include "plan/almaccs.h"
#include "plan/almfind.h"
#include "plan_builder.h"

namespace alm {
namespace {

using test::RunResult;

RunResult almplan(const std::vector<std::string>& args) {
    return test::run_program(test::built_program("almplan"), args);
}

class AlmplanTest : public ::testing::Test {
protected:
    test::TempDir dir;
    alm_session session;

    void SetUp() override {
        if (!std::filesystem::exists(test::built_program("almplan"))) GTEST_SKIP() << "almplan not built";
    }

    std::string build(const std::string& desc, const std::string& name = "plan", bool v1 = false) {
        const std::string out = dir.file(name);
        const RunResult r = test::build_plan(dir.write(name + ".txt", desc), out, v1);
        EXPECT_EQ(r.status, 0) << r.out << r.err;
        return out;
    }
    std::string synth(std::vector<std::string> args, const std::string& name) {
        const std::string out = dir.file(name);
        args.insert(args.begin(), "synth");
        args.push_back(out);
        const RunResult r = almplan(args);
        EXPECT_EQ(r.status, 0) << r.out << r.err;
        return out;
    }
    alm_comarea* open(const std::string& path) {
        int status = -1;
        char errtext[ALM_ERRTEXT_SIZE];
        session = alm_open_session(path.c_str(), ALM_MODE_READ, &status, errtext);
        EXPECT_EQ(status, 0) << errtext;
        return session.get();
    }

    int count_cpus(const char* cpu) {
        SCI_RECTYPE r{};
        std::uint32_t cur = 0;
        int n = 0;
        while (alm_find_cpu(session.get(), cpu, cur, &r) != NULL_REC) ++n;
        return n;
    }
    int count_scheds(const char* cpu, const char* sched) {
        SS_RECTYPE r{};
        std::uint32_t cur = 0;
        int n = 0;
        while (alm_find_sched(session.get(), cpu, sched, cur, &r) != NULL_REC) ++n;
        return n;
    }
    int count_jobs(const char* cpu, const char* sched, const char* job) {
        SJ_RECTYPE r{};
        std::uint32_t cur = 0;
        int n = 0;
        while (alm_find_job(session.get(), cpu, sched, job, cur, &r) != NULL_REC) ++n;
        return n;
    }
};

const char* kThree =
    "workstation A\n"
    "workstation B\n"
    "workstation C\n"
    "schedule A DAILY\n"
    "job BACKUP\n"
    "schedule B DAILY\n"
    "job BACKUP\n"
    "job BATCH\n"
    "schedule B WEEKLY\n"
    "job BILLING\n"
    "schedule C DAILY\n"
    "job BACKUP\n";

TEST_F(AlmplanTest, SyntheticPlansOfBothVersions) {
    for (bool v1 : {false, true}) {
        SCOPED_TRACE(v1 ? "V1" : "V2");
        std::vector<std::string> args{"--cpus", "3", "--scheds", "2", "--jobs", "4"};
        if (v1) args.push_back("--v1");
        std::string path = synth(args, v1 ? "s1" : "s2");
        alm_comarea* ca = open(path);
        ASSERT_NE(ca, nullptr);
        EXPECT_EQ(alm_rec_size_of(ca), v1 ? 256 : 512);
        EXPECT_EQ(count_cpus("@"), 3);
        EXPECT_EQ(count_scheds("@", "@"), 6);
        EXPECT_EQ(count_jobs("@", "@", "@"), 24);
        EXPECT_EQ(count_jobs("WS000002", "@", "J0000003"), 2);
        EXPECT_EQ(count_jobs("WS00000%", "S0000002", "@"), 12);
        EXPECT_EQ(count_jobs("WS00000#", "S0000002", "@"), 0);  // "#" is no wildcard for the stop
        EXPECT_EQ(count_jobs("WS000009", "@", "@"), 0);
        EXPECT_EQ(ca->err_type, ALM_E_NOTFOUND);
        EXPECT_EQ(ca->expected_type, SJ_CODE);
    }
}

TEST_F(AlmplanTest, SyntheticPlanWithDependenciesWalksEveryJob) {
    std::string path = synth({"--cpus", "4", "--scheds", "5", "--jobs", "20", "--deps"}, "Almanack");
    alm_comarea* ca = open(path);
    ASSERT_NE(ca, nullptr);
    EXPECT_EQ(ca->production, 1);
    EXPECT_EQ(count_jobs("@", "@", "@"), 4 * 5 * 20);
    EXPECT_EQ(count_scheds("WS000003", "@"), 5);
}

TEST_F(AlmplanTest, EarlyStopOnABuiltPlan) {
    std::filesystem::create_directory(dir.file("prod"));
    std::string path = build(kThree, "prod/Almanack");
    alm_comarea* ca = open(path);
    ASSERT_NE(ca, nullptr);
    SS_RECTYPE rec{};
    std::uint32_t cur = 0;
    int found = 0;
    while (alm_find_sched(ca, "B", "@", cur, &rec) != NULL_REC) ++found;
    EXPECT_EQ(found, 2);
    EXPECT_EQ(std::string(rec.ss_cpu_id, 1), "C");  // stopped at the first C schedule
    EXPECT_EQ(ca->rec_reads[ALM_SLOT_SCHED], 4);
    EXPECT_EQ(count_jobs("B", "@", "B@"), 3);
}

TEST_F(AlmplanTest, V1AndV2NameWidths) {
    std::string desc =
        "workstation LONGWORKSTATION1\n"
        "schedule LONGWORKSTATION1 SCHEDULE_NAME_16\n"
        "job A_JOB_NAME_OF_EXACTLY_FORTY_BYTES_LENGTH\n";
    open(build(desc, "v2"));
    EXPECT_EQ(count_jobs("LONGWORKSTATION1", "SCHEDULE_NAME_16", "A_JOB_NAME_OF_EXACTLY_FORTY_BYTES_LENGTH"), 1);
    EXPECT_EQ(count_jobs("LONGWORK", "SCHEDULE", "A_JOB_NA"), 0);

    std::string desc1 =
        "workstation CPU00001\n"
        "schedule CPU00001 SCHED001\n"
        "job JOB12345\n";
    open(build(desc1, "v1", true));
    EXPECT_EQ(alm_rec_size_of(session.get()), 256);
    EXPECT_EQ(count_jobs("CPU00001", "SCHED001", "JOB12345"), 1);
    EXPECT_EQ(count_jobs("CPU00001XX", "SCHED001XX", "JOB12345XX"), 1);  // cut at 8
}

TEST_F(AlmplanTest, LoopingScheduleChainFromALinkLine) {
    std::string desc = std::string(kThree) +
                       "schedule C WEEKLY\n"
                       "link ss_next_sch_ptr sched A DAILY\n"  // C/WEEKLY -> A/DAILY
                       "job REPORT\n";
    alm_comarea* ca = open(build(desc));
    ASSERT_NE(ca, nullptr);
    EXPECT_LE(count_scheds("@", "@"), ca->num_recs);
    EXPECT_EQ(count_scheds("@", "NONE"), 0);
    EXPECT_LE(count_jobs("@", "@", "@"), ca->num_recs);
}

TEST_F(AlmplanTest, DumpListsEveryRecord) {
    std::string path = build(kThree);
    RunResult r = almplan({"dump", path});
    ASSERT_EQ(r.status, 0);
    auto lines = r.lines();
    ASSERT_EQ(lines.size(), 13u);
    EXPECT_EQ(lines[0].rfind("#0 header RH ", 0), 0u) << lines[0];
    EXPECT_NE(lines[0].find(" first_cpu=1 "), std::string::npos) << lines[0];
    EXPECT_EQ(lines[1].rfind("#1 workstation IC cpu=A ", 0), 0u) << lines[1];
    EXPECT_NE(lines[1].find(" prev=- next=2 "), std::string::npos) << lines[1];
    bool saw_job = false;
    for (const auto& l : lines) {
        if (l.find(" job RJ ") == std::string::npos || l.find("sched=WEEKLY") == std::string::npos) continue;
        saw_job = true;
        EXPECT_NE(l.find("job=BILLING"), std::string::npos) << l;
        EXPECT_NE(l.find("next=-"), std::string::npos) << l;
    }
    EXPECT_TRUE(saw_job);

    r = almplan({"dump", path, "--json"});
    ASSERT_EQ(r.status, 0);
    lines = r.lines();
    ASSERT_EQ(lines.size(), 13u);
    EXPECT_EQ(lines[0].rfind("{\"rec\":0,\"kind\":\"header\",\"code\":\"RH\",", 0), 0u) << lines[0];
    EXPECT_NE(lines[1].find("\"cpu\":\"A\""), std::string::npos) << lines[1];
    EXPECT_NE(lines[1].find("\"prev\":null,\"next\":2"), std::string::npos) << lines[1];
    for (const auto& l : lines) {
        EXPECT_EQ(l.front(), '{');
        EXPECT_EQ(l.back(), '}');
    }
}

TEST_F(AlmplanTest, DumpShowsFlagsDependenciesAndDates) {
    std::string desc =
        "header\n"
        "  set sh_sched_date 2026-11-22\n"
        "workstation A\n"
        "schedule A FIRST\n"
        "job ONE\n"
        "schedule A SECOND\n"
        "  set ss_sched_date 2026-11-22 08:15\n"
        "  dep sched A FIRST\n"
        "job TWO\n"
        "  set sj_flags 0x1001\n"
        "  dep job A FIRST ONE\n";
    std::string path = build(desc);
    const RunResult r = almplan({"dump", path});
    ASSERT_EQ(r.status, 0);
    EXPECT_NE(r.out.find("sched_date=2026-11-22"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("sched_date=\"2026-11-22 08:15\""), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("flags=sjf1_re_job,sjf1_released"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("deps=PreschedDep:2"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("deps=PrejobDep:3"), std::string::npos) << r.out;
}

TEST_F(AlmplanTest, DumpFailures) {
    RunResult r = almplan({"dump", dir.file("missing")});
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("20720035"), std::string::npos) << r.err;
    r = almplan({"dump"});
    EXPECT_EQ(r.status, 2);
    r = almplan({"dump", "a", "b"});
    EXPECT_EQ(r.status, 2);

    // A record cut short after the header: reported, the rest still listed.
    std::string path = build(kThree);
    std::filesystem::resize_file(path, 12 * 512 + 100);
    r = almplan({"dump", path});
    EXPECT_EQ(r.status, 0);  // the partial record is not counted
    EXPECT_EQ(r.lines().size(), 12u);
}

}  // namespace
}  // namespace alm
