// The shipped sample plan, built in both versions and read back.
#include <cstddef>
#include <ctime>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "almplan/plantest.h"
#include "util/endian.h"

namespace almtest {
namespace {

using namespace alm;

std::int32_t day_epoch_utc(int y, int m, int d) {
    std::tm tm{};
    tm.tm_year = y - 1900;
    tm.tm_mon = m - 1;
    tm.tm_mday = d;
    return static_cast<std::int32_t>(timegm(&tm));
}

class SamplePlan : public ::testing::TestWithParam<bool> {
protected:
    void SetUp() override {
        const RunResult r = build_sample(dir_.file("Almanack"), GetParam());
        ASSERT_EQ(r.status, 0) << r.err;
        EXPECT_EQ(r.err, "");
        ASSERT_TRUE(plan_.load(dir_.file("Almanack")));
    }
    std::uint32_t job(const char* ws, const char* sched, const char* name) {
        const std::uint32_t j = find_job(plan_, ws, sched, name);
        EXPECT_NE(j, NULL_REC) << ws << " " << sched << " " << name;
        return j;
    }
    std::uint8_t dep_flag(std::uint32_t n, std::size_t flags_off, int i) {
        return plan_.ext(n).bytes[flags_off + static_cast<std::size_t>(i)];
    }

    TempDir dir_;
    Plan plan_;
};

TEST_P(SamplePlan, HasTheVersionsRecordLayout) {
    const bool v1 = GetParam();
    EXPECT_EQ(plan_.version(), v1 ? 0 : 1);
    EXPECT_EQ(plan_.rec_size(), v1 ? 256 : 512);
    EXPECT_EQ(read_file(dir_.file("Almanack")).size() % static_cast<std::size_t>(plan_.rec_size()), 0u);
    EXPECT_EQ(load_le16(plan_.raw(0) + 254), v1 ? 0 : 1);
    // "RH" on disk in both versions.
    EXPECT_EQ(plan_.raw(0)[0], 'R');
    EXPECT_EQ(plan_.raw(0)[1], 'H');
}

TEST_P(SamplePlan, ChainsAndCountsAreConsistent) { expect_consistent(plan_); }

TEST_P(SamplePlan, SchedulesAreOrderedByWorkstation) {
    const std::vector<std::string> expected{
        "AGENT1 LOADDATA", "AGENT1 BILLING",  "AGENT1 PAYROLL", "AGENT1 BACKUP",
        "AGENT2 WEBSTATS", "AGENT2 CLEANUP",  "AGENT2 ARCHIVE", "AGENT2 MONTHEND",
        "MASTER STARTDAY", "MASTER NIGHTLY",  "MASTER REPORTS", "MASTER ENDDAY",
    };
    EXPECT_EQ(schedule_names(plan_), expected);
}

TEST_P(SamplePlan, HeaderNamesTheMasterAndItsDomain) {
    EXPECT_EQ(plan_.text(0, offsetof(SH_RECTYPE, sh_cpu_id), 16), "MASTER");
    EXPECT_EQ(plan_.text(0, offsetof(SH_RECTYPE, sh_mast_cpu), 16), "MASTER");
    EXPECT_EQ(plan_.text(0, offsetof(SH_RECTYPE, sh_mast_domain), 16), "MAINDM");
    EXPECT_EQ(plan_.i16(0, offsetof(SH_RECTYPE, sh_run_number)), 412);
    EXPECT_EQ(plan_.i16(0, offsetof(SH_RECTYPE, sh_num_domains)), 2);
    EXPECT_EQ(plan_.i16(0, offsetof(SH_RECTYPE, sh_num_cpus)), 3);
    EXPECT_EQ(plan_.i16(0, offsetof(SH_RECTYPE, sh_num_scheds)), 12);
    // Domain chain: MAINDM's workstations first, in description order.
    std::vector<std::uint32_t> doms;
    ASSERT_TRUE(plan_.walk(plan_.u32(0, offsetof(SH_RECTYPE, sh_first_domain)),
                           offsetof(SCI_RECTYPE, sci_next_domain_ptr), doms));
    std::vector<std::string> names;
    for (std::uint32_t c : doms) names.push_back(plan_.text(c, offsetof(SCI_RECTYPE, sci_cpu_id), 16));
    EXPECT_EQ(names, (std::vector<std::string>{"MASTER", "AGENT1", "AGENT2"}));
}

TEST_P(SamplePlan, RestartChainLinksThreeJobs) {
    const std::uint32_t getpay = job("AGENT1", "LOADDATA", "GETPAY");
    std::vector<std::uint32_t> chain;
    ASSERT_TRUE(plan_.walk(plan_.u32(getpay, offsetof(SJ_RECTYPE, sj_restart_ptr)),
                           offsetof(SJ_RECTYPE, sj_restart_ptr), chain));
    EXPECT_EQ(chain, (std::vector<std::uint32_t>{job("AGENT1", "LOADDATA", "RETRYPAY"),
                                                 job("AGENT1", "LOADDATA", "NOTIFY")}));
}

TEST_P(SamplePlan, DependenciesPointAtTheNamedRecords) {
    const std::size_t jflags = offsetof(SJ_RECTYPE, subdep.deps.sj_depend_flags);
    const std::size_t jrecs = offsetof(SJ_RECTYPE, subdep.deps.sj_dependencies);

    const std::uint32_t compute = job("AGENT2", "WEBSTATS", "COMPUTE");
    ASSERT_EQ(plan_.i16(compute, offsetof(SJ_RECTYPE, sj_num_depends)), 2);
    EXPECT_EQ(dep_flag(compute, jflags, 0), PrejobDep);
    EXPECT_EQ(plan_.u32(compute, jrecs), job("AGENT2", "WEBSTATS", "COLLECT"));
    EXPECT_EQ(dep_flag(compute, jflags, 1), 31 + 2);  // two units of CPUSLOT
    EXPECT_EQ(plan_.text(plan_.u32(compute, jrecs + 4), offsetof(SR_RECTYPE, sr_resource_name), 8), "CPUSLOT");

    // A job of another schedule on another workstation.
    const std::uint32_t closeday = job("MASTER", "ENDDAY", "CLOSEDAY");
    EXPECT_EQ(dep_flag(closeday, jflags, 0), PrejobDep);
    EXPECT_EQ(plan_.u32(closeday, jrecs), job("AGENT2", "ARCHIVE", "SHIPLOGS"));

    const std::uint32_t printpay = job("AGENT1", "PAYROLL", "PRINTPAY");
    EXPECT_EQ(dep_flag(printpay, jflags, 1), LocMsgDep);
    EXPECT_EQ(plan_.text(plan_.u32(printpay, jrecs + 4), offsetof(SM_RECTYPE, sm_msg_name), 8), "PAYOK");

    const std::uint32_t endday = find_sched(plan_, "MASTER", "ENDDAY");
    ASSERT_EQ(plan_.i16(endday, offsetof(SS_RECTYPE, ss_num_depends)), 3);
    const std::size_t sflags = offsetof(SS_RECTYPE, ss_depend_flags);
    const std::size_t srecs = offsetof(SS_RECTYPE, ss_dependencies);
    EXPECT_EQ(dep_flag(endday, sflags, 0), PreschedDep);
    EXPECT_EQ(plan_.u32(endday, srecs), find_sched(plan_, "MASTER", "REPORTS"));
    EXPECT_EQ(dep_flag(endday, sflags, 1), PreschedDep);
    EXPECT_EQ(plan_.u32(endday, srecs + 4), find_sched(plan_, "AGENT1", "BACKUP"));
    EXPECT_EQ(dep_flag(endday, sflags, 2), GlbMsgDep);

    const std::uint32_t getord = job("AGENT1", "LOADDATA", "GETORD");
    EXPECT_EQ(dep_flag(getord, jflags, 0), FileDep);
    EXPECT_EQ(plan_.text(plan_.u32(getord, jrecs), offsetof(SF_RECTYPE, sf_file_name), 28), "/data/in/orders.csv");
}

TEST_P(SamplePlan, DatesComeBackAsDayEpochsWithTheirTimes) {
    const std::int32_t day = day_epoch_utc(2026, 11, 22);
    EXPECT_EQ(plan_.i32(0, offsetof(SH_RECTYPE, sh_sched_date)), day);
    const std::uint32_t compute = job("AGENT2", "WEBSTATS", "COMPUTE");
    EXPECT_EQ(plan_.i32(compute, offsetof(SJ_RECTYPE, sj_sched_date)), day);
    EXPECT_EQ(plan_.i16(compute, offsetof(SJ_RECTYPE, sj_start_time)), 705);
    EXPECT_EQ(plan_.i32(compute, offsetof(SJ_RECTYPE, sj_date_started)), day);
    EXPECT_EQ(plan_.i16(compute, offsetof(SJ_RECTYPE, sj_time_started)), 706);
    const std::uint32_t billing = find_sched(plan_, "AGENT1", "BILLING");
    EXPECT_EQ(plan_.i32(billing, offsetof(SS_RECTYPE, ss_until_date)), day);
    EXPECT_EQ(plan_.i16(billing, offsetof(SS_RECTYPE, ss_until_time)), 2300);
    // A date never given stays "no date".
    const std::uint32_t notify = job("AGENT1", "LOADDATA", "NOTIFY");
    EXPECT_EQ(plan_.i32(notify, offsetof(SJ_RECTYPE, sj_date_started)), 0);
}

TEST_P(SamplePlan, StatusesAndTotals) {
    const std::uint32_t loaddata = find_sched(plan_, "AGENT1", "LOADDATA");
    EXPECT_EQ(plan_.i16(loaddata, offsetof(SS_RECTYPE, ss_num_jobs)), 5);
    EXPECT_EQ(plan_.i16(loaddata, offsetof(SS_RECTYPE, ss_num_succ)), 1);
    EXPECT_EQ(plan_.i16(loaddata, offsetof(SS_RECTYPE, ss_num_abend)), 1);
    EXPECT_EQ(plan_.i16(loaddata, offsetof(SS_RECTYPE, ss_num_notrun)), 3);  // ready + two on hold
    EXPECT_EQ(plan_.i16(job("AGENT1", "LOADDATA", "GETPAY"), offsetof(SJ_RECTYPE, sj_status)), 5);
    EXPECT_EQ(plan_.text(job("AGENT1", "LOADDATA", "GETPAY"), offsetof(SJ_RECTYPE, sj_fname_jname.jcl_file), 24),
              "/opt/load/getpay.sh");
}

INSTANTIATE_TEST_SUITE_P(Versions, SamplePlan, ::testing::Values(false, true),
                         [](const ::testing::TestParamInfo<bool>& info) { return info.param ? "V1" : "V2"; });

TEST(SamplePlanV1, RawRecordsHoldEightByteNames) {
    TempDir dir;
    const RunResult r = run_almplan({"build", "--v1", sample_path(), dir.file("p")});
    ASSERT_EQ(r.status, 0) << r.err;
    Plan p;
    ASSERT_TRUE(p.load(dir.file("p")));
    const std::uint32_t j = find_job(p, "AGENT1", "LOADDATA", "RETRYPAY");
    ASSERT_NE(j, NULL_REC);
    const unsigned char* raw = p.raw(j);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(raw) + offsetof(SJ_RECTYPE_V1, sj_cpu_id), 8), "AGENT1  ");
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(raw) + offsetof(SJ_RECTYPE_V1, sj_job_name), 8),
              "RETRYPAY");
    EXPECT_EQ(load_le16(raw + offsetof(SJ_RECTYPE_V1, sj_status)), 2);  // ready
    EXPECT_EQ(load_le16(raw + offsetof(SJ_RECTYPE_V1, sj_rec_num)), j);
    EXPECT_EQ(load_le16(raw + offsetof(SJ_RECTYPE_V1, sj_sched_ptr)), find_sched(p, "AGENT1", "LOADDATA"));
    const std::uint32_t s = find_sched(p, "MASTER", "STARTDAY");
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(p.raw(s)) + offsetof(SS_RECTYPE_V1, ss_sched_name), 8),
              "STARTDAY");
}

TEST(SamplePlanV1, FormatLineMatchesTheOption) {
    TempDir dir;
    const std::string desc = dir.write("v1.txt", "# old format\nformat v1\n" + read_file(sample_path()));
    const RunResult a = run_almplan({"build", desc, dir.file("a")});
    const RunResult b = run_almplan({"build", "--v1", sample_path(), dir.file("b")});
    ASSERT_EQ(a.status, 0) << a.err;
    ASSERT_EQ(b.status, 0) << b.err;
    EXPECT_EQ(read_file(dir.file("a")), read_file(dir.file("b")));
    // --v1 wins over a format line.
    const std::string v2 = dir.write("v2.txt", "format v2\n" + read_file(sample_path()));
    const RunResult c = run_almplan({"build", "--v1", v2, dir.file("c")});
    ASSERT_EQ(c.status, 0) << c.err;
    EXPECT_EQ(read_file(dir.file("c")), read_file(dir.file("b")));
}

TEST(SamplePlanBoth, VersionsHoldTheSameRecords) {
    TempDir dir;
    ASSERT_EQ(run_almplan({"build", sample_path(), dir.file("v2")}).status, 0);
    ASSERT_EQ(run_almplan({"build", "--v1", sample_path(), dir.file("v1")}).status, 0);
    Plan v1;
    Plan v2;
    ASSERT_TRUE(v1.load(dir.file("v1")));
    ASSERT_TRUE(v2.load(dir.file("v2")));
    ASSERT_EQ(v1.count(), v2.count());
    for (std::uint32_t n = 0; n < v1.count(); ++n) EXPECT_EQ(v1.code(n), v2.code(n)) << "record " << n;
}

}  // namespace
}  // namespace almtest
