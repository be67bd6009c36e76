// Built plans read through the plan library's own open and lookups: the
// schedule chain order lets a plain workstation name stop early and still
// find every schedule of that workstation.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "almplan/plantest.h"
#include "plan/almaccs.h"
#include "plan/almfind.h"

namespace almtest {
namespace {

using namespace alm;

std::string trimmed(const char* field, std::size_t width) {
    std::string s(field, width);
    s.erase(s.find_last_not_of(' ') + 1);
    return s;
}

class LibraryLookups : public ::testing::TestWithParam<bool> {
protected:
    void SetUp() override {
        const RunResult r = build_sample(dir_.file("Almanack"), GetParam());
        ASSERT_EQ(r.status, 0) << r.err;
        char errtext[ALM_ERRTEXT_SIZE] = {};
        int status = -1;
        session_ = alm_open_session(dir_.file("Almanack").c_str(), 0, &status, errtext);
        ASSERT_EQ(status, 0) << errtext;
        ASSERT_TRUE(session_);
    }
    std::vector<std::string> schedules(const char* cpu, const char* sched) {
        std::vector<std::string> names;
        std::uint32_t start = 0;
        SS_RECTYPE ss{};
        for (int guard = 0; guard < 100; ++guard) {
            if (alm_find_sched(session_.get(), cpu, sched, start, &ss) == NULL_REC) break;
            names.push_back(trimmed(ss.ss_cpu_id, 16) + " " + trimmed(ss.ss_sched_name, 16));
        }
        return names;
    }
    std::vector<std::string> jobs(const char* cpu, const char* sched, const char* job) {
        std::vector<std::string> names;
        std::uint32_t start = 0;
        SJ_RECTYPE sj{};
        for (int guard = 0; guard < 100; ++guard) {
            if (alm_find_job(session_.get(), cpu, sched, job, start, &sj) == NULL_REC) break;
            names.push_back(trimmed(sj.sj_schedule, 16) + " " + trimmed(sj.sj_job_name, 40));
        }
        return names;
    }

    TempDir dir_;
    alm_session session_;
};

TEST_P(LibraryLookups, PlainWorkstationFindsAllItsSchedules) {
    EXPECT_EQ(schedules("AGENT1", "@"), (std::vector<std::string>{"AGENT1 LOADDATA", "AGENT1 BILLING",
                                                                 "AGENT1 PAYROLL", "AGENT1 BACKUP"}));
    EXPECT_EQ(schedules("AGENT2", "@"), (std::vector<std::string>{"AGENT2 WEBSTATS", "AGENT2 CLEANUP",
                                                                 "AGENT2 ARCHIVE", "AGENT2 MONTHEND"}));
    EXPECT_EQ(schedules("MASTER", "R@"), (std::vector<std::string>{"MASTER REPORTS"}));
    EXPECT_EQ(schedules("@", "@").size(), 12u);
}

TEST_P(LibraryLookups, JobsAndWorkstations) {
    EXPECT_EQ(jobs("@", "@", "@").size(), 26u);
    EXPECT_EQ(jobs("AGENT1", "LOADDATA", "@"),
              (std::vector<std::string>{"LOADDATA GETORD", "LOADDATA GETPAY", "LOADDATA RETRYPAY",
                                        "LOADDATA NOTIFY", "LOADDATA MERGE"}));
    EXPECT_EQ(jobs("@", "@", "PUBLISH"), (std::vector<std::string>{"WEBSTATS PUBLISH"}));
    std::uint32_t start = 0;
    SCI_RECTYPE sci{};
    int cpus = 0;
    while (cpus < 10 && alm_find_cpu(session_.get(), "@", start, &sci) != NULL_REC) ++cpus;
    EXPECT_EQ(cpus, 3);
}

INSTANTIATE_TEST_SUITE_P(Versions, LibraryLookups, ::testing::Values(false, true),
                         [](const ::testing::TestParamInfo<bool>& info) { return info.param ? "V1" : "V2"; });

TEST(LibraryLookupsSynth, JobsBeyondTheNullRecordNumber) {
    TempDir dir;
    const RunResult r = run_almplan({"synth", "--cpus", "2", "--scheds", "10", "--jobs", "1700", dir.file("p")});
    ASSERT_EQ(r.status, 0) << r.err;
    char errtext[ALM_ERRTEXT_SIZE] = {};
    int status = -1;
    alm_session s = alm_open_session(dir.file("p").c_str(), 0, &status, errtext);
    ASSERT_EQ(status, 0) << errtext;
    std::uint32_t start = 0;
    SJ_RECTYPE sj{};
    const std::uint32_t n = alm_find_job(s.get(), "WS000002", "S0000010", "J0001700", start, &sj);
    ASSERT_NE(n, NULL_REC);
    EXPECT_GT(n, NULL_REC);
    EXPECT_EQ(trimmed(sj.sj_job_name, 40), "J0001700");
    // Every job of the schedule that spans record 32768 is reached.
    start = 0;
    int found = 0;
    while (found < 2000 && alm_find_job(s.get(), "WS000002", "S0000010", "@", start, &sj) != NULL_REC) ++found;
    EXPECT_EQ(found, 1700);
}

}  // namespace
}  // namespace almtest
