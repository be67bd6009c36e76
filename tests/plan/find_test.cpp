#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "plan/almaccs.h"
#include "plan/almfind.h"
#include "plan_files.h"

namespace alm {
namespace {

using test::Record;

std::string field(const char* f, std::size_t n) {
    std::string s(f, n);
    return s.substr(0, s.find_last_not_of(' ') + 1);
}

using Names = std::vector<std::string>;

std::string cpu_name(const SCI_RECTYPE& r) { return field(r.sci_cpu_id, 16); }
std::string sched_name(const SS_RECTYPE& r) { return field(r.ss_cpu_id, 16) + "#" + field(r.ss_sched_name, 16); }
std::string job_name(const SJ_RECTYPE& r) { return field(r.sj_schedule, 16) + "." + field(r.sj_job_name, 40); }

class FindTest : public ::testing::Test {
protected:
    test::TempDir dir;
    alm_session session;

    alm_comarea* open_plan(const std::string& desc, const std::string& name = "plan", bool v1 = false) {
        return open_path(test::make_plan(dir.file(name), desc, v1));
    }
    // The records of the plan desc describes, to be damaged and opened.
    std::vector<Record> recs_of(const std::string& desc) {
        return test::records(test::make_plan(dir.file("built"), desc));
    }
    alm_comarea* open_recs(const std::vector<Record>& recs) {
        test::write_records(dir.file("plan"), recs);
        return open_path(dir.file("plan"));
    }
    alm_comarea* open_path(const std::string& path) {
        int status = -1;
        char errtext[ALM_ERRTEXT_SIZE];
        session = alm_open_session(path.c_str(), ALM_MODE_READ, &status, errtext);
        EXPECT_EQ(status, 0) << errtext;
        return session.get();
    }

    // Every match of one walk from a fresh cursor, each record carrying the
    // number the walk returned; to_end: the cursor must end the chain.
    template <class Rec, class Find>
    Names walk(Find find, std::uint32_t Rec::*num, std::string (*name)(const Rec&), bool to_end) {
        Names out;
        Rec rec{};
        std::uint32_t cur = 0;
        for (std::uint32_t n; out.size() <= 1000 && (n = find(cur, &rec)) != NULL_REC;) {
            EXPECT_EQ(n, rec.*num);
            out.push_back(name(rec));
        }
        if (to_end) {
            EXPECT_EQ(cur, NULL_REC);
        }
        return out;
    }
    Names cpus(const char* pat) {
        return walk([&](std::uint32_t& c, SCI_RECTYPE* r) { return alm_find_cpu(session.get(), pat, c, r); },
                    &SCI_RECTYPE::sci_rec_num, cpu_name, true);
    }
    Names scheds(const char* cpu, const char* sched) {
        return walk([&](std::uint32_t& c, SS_RECTYPE* r) { return alm_find_sched(session.get(), cpu, sched, c, r); },
                    &SS_RECTYPE::ss_rec_num, sched_name, false);
    }
    Names jobs(const char* cpu, const char* sched, const char* job) {
        return walk([&](std::uint32_t& c, SJ_RECTYPE* r) { return alm_find_job(session.get(), cpu, sched, job, c, r); },
                    &SJ_RECTYPE::sj_rec_num, job_name, true);
    }
};

// Workstations A, B, C (records 1 to 3), then each schedule and its jobs:
// 4 A/DAILY (5 BACKUP, 6 REPORT), 7 B/DAILY (8 BACKUP, 9 CLEAN, 10 BATCH),
// 11 B/WEEKLY (12 BILLING), 13 C/DAILY (14 BACKUP), 15 C/EMPTY.
const char* const kThree =
    "workstation A\nworkstation B\nworkstation C\n"
    "schedule A DAILY\njob BACKUP\njob REPORT\n"
    "schedule B DAILY\njob BACKUP\njob CLEAN\njob BATCH\n"
    "schedule B WEEKLY\njob BILLING\n"
    "schedule C DAILY\njob BACKUP\n"
    "schedule C EMPTY\n";

// Each chain under its patterns; a blank or absent pattern matches all.
TEST_F(FindTest, PatternsOverEachChain) {
    ASSERT_NE(open_plan(kThree), nullptr);
    for (const char* all : {"@", "", "   ", "?"}) EXPECT_EQ(cpus(all), (Names{"A", "B", "C"})) << all;
    EXPECT_EQ(cpus(nullptr), (Names{"A", "B", "C"}));
    EXPECT_EQ(cpus("B"), (Names{"B"}));
    EXPECT_EQ(cpus("B  "), (Names{"B"}));
    EXPECT_EQ(cpus("X@"), Names{});

    EXPECT_EQ(scheds("@", "@"), (Names{"A#DAILY", "B#DAILY", "B#WEEKLY", "C#DAILY", "C#EMPTY"}));
    EXPECT_EQ(scheds("@", "DAILY"), (Names{"A#DAILY", "B#DAILY", "C#DAILY"}));
    EXPECT_EQ(scheds("B", "@"), (Names{"B#DAILY", "B#WEEKLY"}));
    EXPECT_EQ(scheds("?", "W@"), (Names{"B#WEEKLY"}));
    EXPECT_EQ(scheds("C", "EMPTY"), (Names{"C#EMPTY"}));

    EXPECT_EQ(jobs("@", "@", "@"), (Names{"DAILY.BACKUP", "DAILY.REPORT", "DAILY.BACKUP", "DAILY.CLEAN",
                                          "DAILY.BATCH", "WEEKLY.BILLING", "DAILY.BACKUP"}));
    EXPECT_EQ(jobs("@", "@", "BACKUP"), (Names{"DAILY.BACKUP", "DAILY.BACKUP", "DAILY.BACKUP"}));
    EXPECT_EQ(jobs("B", "@", "B@"), (Names{"DAILY.BACKUP", "DAILY.BATCH", "WEEKLY.BILLING"}));
    EXPECT_EQ(jobs("B", "DAILY", "?A@"), (Names{"DAILY.BACKUP", "DAILY.BATCH"}));
    EXPECT_EQ(jobs("C", "EMPTY", "@"), Names{});
}

TEST_F(FindTest, WorkstationCursorAndChainEnd) {
    alm_comarea* ca = open_plan(kThree);
    ASSERT_NE(ca, nullptr);
    SCI_RECTYPE rec{};
    std::uint32_t cur = 0;
    EXPECT_EQ(alm_find_cpu(ca, "B", cur, &rec), 2u);
    EXPECT_EQ(cur, 3u);  // resumes after the match
    EXPECT_EQ(alm_find_cpu(ca, "B", cur, &rec), NULL_REC);
    EXPECT_EQ(cur, NULL_REC);
    EXPECT_EQ(rec.sci_prev_cpu_ptr, 3u);  // the last record read
    EXPECT_EQ(rec.sci_rec_num, NULL_REC);
    EXPECT_EQ(ca->err_type, 0);  // the end is no error

    // Finished cursor: nothing read, buffer links reset.
    rec.sci_next_cpu_ptr = 7;
    EXPECT_EQ(alm_find_cpu(ca, "@", cur, &rec), NULL_REC);
    EXPECT_EQ(rec.sci_next_cpu_ptr, NULL_REC);
    EXPECT_EQ(rec.sci_prev_cpu_ptr, NULL_REC);

    // A cursor somewhere in the chain starts there.
    cur = 2;
    EXPECT_EQ(alm_find_cpu(ca, "@", cur, &rec), 2u);
}

TEST_F(FindTest, EmptyChainsRecordError36WithTheKind) {
    alm_comarea* ca = open_plan("header\n");
    ASSERT_NE(ca, nullptr);

    SCI_RECTYPE cpu{};
    std::uint32_t cur = 0;
    EXPECT_EQ(alm_find_cpu(ca, "@", cur, &cpu), NULL_REC);
    EXPECT_EQ(ca->err_type, ALM_E_NOTFOUND);
    EXPECT_EQ(ca->expected_type, SCI_CODE);
    EXPECT_EQ(cur, NULL_REC);

    SS_RECTYPE ss{};
    cur = 0;
    EXPECT_EQ(alm_find_sched(ca, "@", "@", cur, &ss), NULL_REC);
    EXPECT_EQ(ca->err_type, ALM_E_NOTFOUND);
    EXPECT_EQ(ca->expected_type, SS_CODE);

    SJ_RECTYPE sj{};
    cur = 0;
    EXPECT_EQ(alm_find_job(ca, "@", "@", "@", cur, &sj), NULL_REC);
    EXPECT_EQ(ca->err_type, ALM_E_NOTFOUND);
    EXPECT_EQ(ca->expected_type, SS_CODE);
}

// The chain is ordered by workstation: a plain name stops at the first
// schedule of a greater one and leaves the cursor and buffer there.
TEST_F(FindTest, PlainWorkstationStopsAtTheFirstGreaterSchedule) {
    alm_comarea* ca = open_plan(kThree, "prod/Almanack");
    ASSERT_NE(ca, nullptr);
    SS_RECTYPE rec{};
    std::uint32_t cur = 0;
    EXPECT_EQ(alm_find_sched(ca, "B", "@", cur, &rec), 7u);
    EXPECT_EQ(alm_find_sched(ca, "B", "@", cur, &rec), 11u);
    EXPECT_EQ(cur, 13u);
    EXPECT_EQ(alm_find_sched(ca, "B", "@", cur, &rec), NULL_REC);
    EXPECT_EQ(cur, 13u);                      // left as it was
    EXPECT_EQ(rec.ss_rec_num, 13u);           // the first C schedule
    EXPECT_EQ(field(rec.ss_cpu_id, 16), "C");
    EXPECT_EQ(ca->rec_reads[ALM_SLOT_SCHED], 4);  // A, B, B, C: never the last one

    // With a wildcard the walk goes to the end of the chain.
    cur = 0;
    while (alm_find_sched(ca, "B@", "@", cur, &rec) != NULL_REC) {
    }
    EXPECT_EQ(ca->rec_reads[ALM_SLOT_SCHED], 4 + 5);
    EXPECT_EQ(cur, NULL_REC);
    EXPECT_EQ(rec.ss_rec_num, NULL_REC);
    EXPECT_EQ(rec.ss_prev_sch_ptr, 15u);
}

// "$", "#", "^" and "~" match as patterns but do not make the name a
// pattern for the early stop.
TEST_F(FindTest, OnlyAtQuestionPercentCountAsWildcardsForTheStop) {
    ASSERT_NE(open_plan("workstation 1A\nworkstation 2B\nworkstation XB\n"
                        "schedule 1A S\nschedule 2B S\nschedule XB S\n"),
              nullptr);
    EXPECT_EQ(scheds("#B", "S"), Names{});  // "1A" > "#B" stops at once
    EXPECT_EQ(scheds("$B", "S"), Names{});
    EXPECT_EQ(scheds("%B", "S"), (Names{"2B#S"}));
    EXPECT_EQ(scheds("?B", "S"), (Names{"2B#S", "XB#S"}));
    EXPECT_EQ(scheds("~B", "S"), (Names{"XB#S"}));  // "1A" < "~B": no stop
    EXPECT_EQ(scheds("2B", "S"), (Names{"2B#S"}));
}

TEST_F(FindTest, JobCursorWalksChainThenNextSchedule) {
    alm_comarea* ca = open_plan(kThree);
    ASSERT_NE(ca, nullptr);
    SJ_RECTYPE rec{};
    std::uint32_t cur = 0;
    EXPECT_EQ(alm_find_job(ca, "B", "DAILY", "@", cur, &rec), 8u);
    EXPECT_EQ(cur, 9u);  // the next job of the chain
    EXPECT_EQ(alm_find_job(ca, "B", "DAILY", "@", cur, &rec), 9u);
    EXPECT_EQ(alm_find_job(ca, "B", "DAILY", "@", cur, &rec), 10u);
    EXPECT_EQ(cur, 11u);  // chain ended: the next schedule to visit
    EXPECT_EQ(alm_find_job(ca, "B", "DAILY", "@", cur, &rec), NULL_REC);
    EXPECT_EQ(cur, NULL_REC);
    EXPECT_EQ(ca->err_type, ALM_E_NOTFOUND);
    EXPECT_EQ(ca->expected_type, SJ_CODE);
}

TEST_F(FindTest, JobCursorInTheMiddleOfAChainResumesInItsSchedule) {
    alm_comarea* ca = open_plan(kThree);
    ASSERT_NE(ca, nullptr);
    SJ_RECTYPE rec{};
    std::uint32_t cur = 9;  // CLEAN, in B/DAILY
    EXPECT_EQ(alm_find_job(ca, "@", "@", "@", cur, &rec), 9u);
    EXPECT_EQ(alm_find_job(ca, "@", "@", "@", cur, &rec), 10u);
    EXPECT_EQ(alm_find_job(ca, "@", "@", "@", cur, &rec), 12u);  // on into B/WEEKLY

    // The job's schedule must qualify: resumed under another schedule
    // pattern, the rest of the chain is skipped.
    cur = 9;
    EXPECT_EQ(alm_find_job(ca, "@", "WEEKLY", "@", cur, &rec), 12u);

    // A cursor at a job whose schedule pointer is not a schedule.
    auto recs = recs_of(kThree);
    test::put32(recs[9], offsetof(SJ_RECTYPE, sj_sched_ptr), 2);  // a workstation
    ca = open_recs(recs);
    ASSERT_NE(ca, nullptr);
    cur = 9;
    EXPECT_EQ(alm_find_job(ca, "@", "@", "@", cur, &rec), NULL_REC);
    EXPECT_EQ(ca->err_type, ALM_E_NOTFOUND);
    EXPECT_EQ(ca->expected_type, SS_CODE);
}

TEST_F(FindTest, ReadFailuresKeepTheirOwnCode) {
    auto recs = recs_of(kThree);
    test::put32(recs[5], offsetof(SJ_RECTYPE, sj_next_job_ptr), 500);  // beyond the file
    test::put32(recs[2], offsetof(SCI_RECTYPE, sci_next_cpu_ptr), 4);   // a schedule
    alm_comarea* ca = open_recs(recs);
    ASSERT_NE(ca, nullptr);
    SJ_RECTYPE sj{};
    std::uint32_t cur = 0;
    EXPECT_EQ(alm_find_job(ca, "A", "@", "REPORT", cur, &sj), NULL_REC);
    EXPECT_EQ(ca->err_type, ALM_E_RANGE);
    EXPECT_EQ(ca->last_recnum, 500);
    EXPECT_EQ(cur, NULL_REC);

    SCI_RECTYPE sci{};
    cur = 0;
    EXPECT_EQ(alm_find_cpu(ca, "Z", cur, &sci), NULL_REC);
    EXPECT_EQ(ca->err_type, ALM_E_KIND);
    EXPECT_EQ(ca->expected_type, SCI_CODE);
    EXPECT_EQ(ca->found_type, SS_CODE);
    EXPECT_EQ(cur, NULL_REC);
}

TEST_F(FindTest, NameWidthsFollowTheVersion) {
    const std::string long_job = "NIGHTLY_CONSOLIDATION_OF_LEDGERS_42";  // 35 bytes
    const std::string long_cpu = "WORKSTATION_0016";                      // 16 bytes
    ASSERT_NE(open_plan("workstation " + long_cpu + "\nschedule " + long_cpu + " SCHEDULE_NAME_16\njob " + long_job + "\n",
                        "v2"),
              nullptr);
    EXPECT_EQ(cpus(long_cpu.c_str()), (Names{long_cpu}));
    EXPECT_EQ(cpus((long_cpu + "XYZ").c_str()), (Names{long_cpu}));  // the pattern is cut at 16
    EXPECT_EQ(cpus("WORKSTATION_001"), Names{});
    EXPECT_EQ(jobs(long_cpu.c_str(), "SCHEDULE_NAME_16", long_job.c_str()), (Names{"SCHEDULE_NAME_16." + long_job}));
    EXPECT_EQ(jobs("@", "@", "NIGHTLY_CONSOLIDATION_OF_LEDGERS_4#"), (Names{"SCHEDULE_NAME_16." + long_job}));
    EXPECT_EQ(jobs("@", "@", "NIGHTLY_C"), Names{});

    ASSERT_NE(open_plan("workstation CPU00001\nschedule CPU00001 SCHED001\njob JOB12345\n", "v1", true), nullptr);
    EXPECT_EQ(cpus("CPU00001"), (Names{"CPU00001"}));
    EXPECT_EQ(cpus("CPU00001EXTRA"), (Names{"CPU00001"}));  // the pattern is cut at 8
    EXPECT_EQ(jobs("CPU00001", "SCHED001", "JOB12345_AND_MORE"), (Names{"SCHED001.JOB12345"}));
    EXPECT_EQ(jobs("CPU0000#", "SCHED00%", "JOB1234$"), (Names{"SCHED001.JOB12345"}));
    EXPECT_EQ(scheds("CPU00001", "@"), (Names{"CPU00001#SCHED001"}));
}

// Two job walks taking turns on one session find what each finds alone.
TEST_F(FindTest, InterleavedJobWalksDoNotDisturbEachOther) {
    alm_comarea* ca = open_plan(kThree);
    ASSERT_NE(ca, nullptr);
    const Names daily = jobs("@", "DAILY", "@");
    const Names on_b = jobs("B", "@", "@");
    ASSERT_EQ(daily.size(), 6u);
    ASSERT_EQ(on_b.size(), 4u);

    Names got_daily, got_b;
    std::uint32_t cur_daily = 0, cur_b = 0;
    bool more_daily = true, more_b = true;
    SJ_RECTYPE rec{};
    while (more_daily || more_b) {
        if (more_daily) {
            more_daily = alm_find_job(ca, "@", "DAILY", "@", cur_daily, &rec) != NULL_REC;
            if (more_daily) got_daily.push_back(job_name(rec));
        }
        if (more_b) {
            more_b = alm_find_job(ca, "B", "@", "@", cur_b, &rec) != NULL_REC;
            if (more_b) got_b.push_back(job_name(rec));
        }
        ASSERT_LT(got_daily.size() + got_b.size(), 100u);
    }
    EXPECT_EQ(got_daily, daily);
    EXPECT_EQ(got_b, on_b);

    // The same cursor under other schedule patterns is a new walk.
    std::uint32_t cur = 0;
    EXPECT_EQ(alm_find_job(ca, "B", "DAILY", "@", cur, &rec), 8u);
    EXPECT_EQ(alm_find_job(ca, "B", "WEEKLY", "@", cur, &rec), 12u);
}

// Damaged plans: a looping chain ends like the end of the chain.
TEST_F(FindTest, LoopingChainsTerminate) {
    auto recs = recs_of(kThree);
    test::put32(recs[3], offsetof(SCI_RECTYPE, sci_next_cpu_ptr), 1);      // C -> A
    test::put32(recs[15], offsetof(SS_RECTYPE, ss_next_sch_ptr), 4);       // C/EMPTY -> A/DAILY
    test::put32(recs[10], offsetof(SJ_RECTYPE, sj_next_job_ptr), 8);       // BATCH -> BACKUP
    ASSERT_NE(open_recs(recs), nullptr);
    const std::size_t limit = recs.size();

    EXPECT_LE(cpus("@").size(), limit);
    EXPECT_EQ(cpus("Z"), Names{});
    EXPECT_LE(scheds("@", "@").size(), limit);
    EXPECT_EQ(scheds("@", "NONE"), Names{});
    EXPECT_LE(jobs("@", "@", "@").size(), limit);
    EXPECT_LE(jobs("B", "DAILY", "@").size(), limit);
    EXPECT_EQ(jobs("@", "@", "NONE"), Names{});
}

TEST_F(FindTest, SelfLinksAndLinksToTheHeaderEnd) {
    auto recs = recs_of(kThree);
    test::put32(recs[1], offsetof(SCI_RECTYPE, sci_next_cpu_ptr), 0);      // A -> header
    test::put32(recs[6], offsetof(SJ_RECTYPE, sj_next_job_ptr), 6);        // REPORT -> itself
    test::put32(recs[11], offsetof(SS_RECTYPE, ss_next_sch_ptr), 0);       // B/WEEKLY -> header
    ASSERT_NE(open_recs(recs), nullptr);
    EXPECT_EQ(cpus("@"), (Names{"A"}));
    EXPECT_EQ(scheds("@", "@"), (Names{"A#DAILY", "B#DAILY", "B#WEEKLY"}));
    auto found = jobs("A", "@", "REPORT");
    EXPECT_GE(found.size(), 1u);
    EXPECT_LE(found.size(), recs.size());
}

// A resumed cursor keeps counting: a caller that follows the cursors of a
// looping chain stops within the file's record count in total.
TEST_F(FindTest, ResumedCursorIsBoundedAsAWhole) {
    auto recs = recs_of(kThree);
    test::put32(recs[3], offsetof(SCI_RECTYPE, sci_next_cpu_ptr), 1);
    alm_comarea* ca = open_recs(recs);
    ASSERT_NE(ca, nullptr);
    SCI_RECTYPE rec{};
    std::uint32_t cur = 0;
    int calls = 0;
    while (alm_find_cpu(ca, "@", cur, &rec) != NULL_REC && calls < 1000) ++calls;
    EXPECT_EQ(calls, ca->num_recs);
    EXPECT_EQ(cur, NULL_REC);
}

TEST_F(FindTest, BadHandles) {
    alm_comarea fake;
    SCI_RECTYPE sci{};
    SS_RECTYPE ss{};
    SJ_RECTYPE sj{};
    std::uint32_t cur = 0;
    EXPECT_EQ(alm_find_cpu(nullptr, "@", cur, &sci), NULL_REC);
    EXPECT_EQ(sci.sci_rec_num, NULL_REC);
    EXPECT_EQ(alm_find_sched(&fake, "@", "@", cur, &ss), NULL_REC);
    EXPECT_EQ(ss.ss_next_sch_ptr, NULL_REC);
    EXPECT_EQ(alm_find_job(&fake, "@", "@", "@", cur, &sj), NULL_REC);
    EXPECT_EQ(cur, 0u);
    EXPECT_EQ(fake.err_type, 0);
}

}  // namespace
}  // namespace alm
