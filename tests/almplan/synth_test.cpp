// Synthetic plans: record counts, chains, the null record number, V1 limits.
#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "almplan/plantest.h"
#include "util/endian.h"

namespace almtest {
namespace {

using namespace alm;

RunResult synth(const std::string& out, unsigned cpus, unsigned scheds, unsigned jobs, bool deps, bool v1) {
    std::vector<std::string> args{"synth", "--cpus", std::to_string(cpus), "--scheds", std::to_string(scheds),
                                  "--jobs", std::to_string(jobs)};
    if (deps) args.push_back("--deps");
    if (v1) args.push_back("--v1");
    args.push_back(out);
    return run_almplan(args);
}

struct DepKinds {
    std::set<int> kinds;  // flag & 0x7F, resources folded to 32
    int restarts = 0;
};

DepKinds collect_dep_kinds(const Plan& p) {
    DepKinds d;
    for (std::uint32_t n = 0; n < p.count(); ++n) {
        std::size_t count_off = 0;
        std::size_t flags_off = 0;
        if (p.code(n) == SS_CODE) {
            count_off = offsetof(SS_RECTYPE, ss_num_depends);
            flags_off = offsetof(SS_RECTYPE, ss_depend_flags);
        } else if (p.code(n) == SJ_CODE) {
            count_off = offsetof(SJ_RECTYPE, sj_num_depends);
            flags_off = offsetof(SJ_RECTYPE, subdep.deps.sj_depend_flags);
            if (p.u32(n, offsetof(SJ_RECTYPE, sj_restart_ptr)) != NULL_REC) ++d.restarts;
        } else {
            continue;
        }
        for (int i = 0; i < p.i16(n, count_off); ++i) {
            const int kind = p.ext(n).bytes[flags_off + static_cast<std::size_t>(i)] & 0x7F;
            d.kinds.insert(kind > 31 ? 32 : kind);
        }
    }
    return d;
}

class SynthPlan : public ::testing::TestWithParam<bool> {};

TEST_P(SynthPlan, SmallPlanWithDependencies) {
    const bool v1 = GetParam();
    TempDir dir;
    const RunResult r = synth(dir.file("p"), 3, 4, 60, true, v1);
    ASSERT_EQ(r.status, 0) << r.err;
    Plan p;
    ASSERT_TRUE(p.load(dir.file("p")));
    EXPECT_EQ(p.version(), v1 ? 0 : 1);
    // 12 schedules: 1 prompt, 2 files, 7 resources; 12 * (1 + 60) schedule and job records.
    EXPECT_EQ(p.count(), 1u + 3 + 1 + 2 + 7 + 12 * 61);
    EXPECT_EQ(p.i16(0, offsetof(SH_RECTYPE, sh_num_cpus)), 3);
    EXPECT_EQ(p.i16(0, offsetof(SH_RECTYPE, sh_num_scheds)), 12);
    EXPECT_EQ(p.i16(0, offsetof(SH_RECTYPE, sh_num_msgs)), 1);
    EXPECT_EQ(p.i16(0, offsetof(SH_RECTYPE, sh_num_files)), 2);
    EXPECT_EQ(p.i16(0, offsetof(SH_RECTYPE, sh_num_resources)), 7);
    expect_consistent(p);

    const DepKinds d = collect_dep_kinds(p);
    EXPECT_EQ(d.kinds, (std::set<int>{LocMsgDep, GlbMsgDep, PreschedDep, PrejobDep, FileDep, 32}));
    EXPECT_EQ(d.restarts, 2 * 12);  // 47 -> 48 -> 49 in every schedule

    const std::vector<std::string> names = schedule_names(p);
    ASSERT_EQ(names.size(), 12u);
    EXPECT_EQ(names.front(), "WS000001 S0000001");
    EXPECT_EQ(names.back(), "WS000003 S0000004");
}

TEST_P(SynthPlan, PlanWithoutDependencies) {
    TempDir dir;
    const RunResult r = synth(dir.file("p"), 2, 3, 4, false, GetParam());
    ASSERT_EQ(r.status, 0) << r.err;
    Plan p;
    ASSERT_TRUE(p.load(dir.file("p")));
    EXPECT_EQ(p.count(), 1u + 2 + 6 * 5);
    expect_consistent(p);
    EXPECT_TRUE(collect_dep_kinds(p).kinds.empty());
    EXPECT_EQ(p.u32(0, offsetof(SH_RECTYPE, sh_first_msg)), NULL_REC);
}

TEST_P(SynthPlan, SameOptionsSameBytes) {
    TempDir dir;
    ASSERT_EQ(synth(dir.file("a"), 2, 2, 30, true, GetParam()).status, 0);
    ASSERT_EQ(synth(dir.file("b"), 2, 2, 30, true, GetParam()).status, 0);
    EXPECT_EQ(read_file(dir.file("a")), read_file(dir.file("b")));
}

INSTANTIATE_TEST_SUITE_P(Versions, SynthPlan, ::testing::Values(false, true),
                         [](const ::testing::TestParamInfo<bool>& info) { return info.param ? "V1" : "V2"; });

TEST(SynthPlanV2, SkipsTheNullRecordNumber) {
    TempDir dir;
    // 20 schedules of 1700 jobs: 34020 schedule and job records, past 32768.
    const RunResult r = synth(dir.file("p"), 2, 10, 1700, true, false);
    ASSERT_EQ(r.status, 0) << r.err;
    Plan p;
    ASSERT_TRUE(p.load(dir.file("p")));
    const std::uint32_t slots = 1 + 2 + 2 + 3 + 5 + 20 * 1701;
    EXPECT_EQ(p.count(), slots + 1);
    EXPECT_EQ(p.code(NULL_REC), ST_CODE);
    EXPECT_EQ(p.raw(NULL_REC)[0], 'T');
    EXPECT_EQ(p.raw(NULL_REC)[1], 'S');
    expect_consistent(p);

    // The job chain that spans the gap steps over it in both directions.
    const std::uint32_t before = NULL_REC - 1;
    const std::uint32_t after = NULL_REC + 1;
    ASSERT_EQ(p.code(before), SJ_CODE);
    ASSERT_EQ(p.code(after), SJ_CODE);
    EXPECT_EQ(p.u32(before, offsetof(SJ_RECTYPE, sj_next_job_ptr)), after);
    EXPECT_EQ(p.u32(after, offsetof(SJ_RECTYPE, sj_prev_job_ptr)), before);
    EXPECT_EQ(p.u32(after, offsetof(SJ_RECTYPE, sj_rec_num)), after);
    EXPECT_EQ(load_le32(p.raw(after) + offsetof(SJ_RECTYPE, sj_rec_num)), after);
    // No record anywhere names 32768 as its own number.
    for (std::uint32_t n = 1; n < p.count(); ++n) {
        if (n != NULL_REC) {
            EXPECT_NE(load_le32(p.raw(n) + 8), NULL_REC) << "record " << n;
        }
    }
}

TEST(SynthPlanV1, RefusesWhatSixteenBitsCannotNumber) {
    TempDir dir;
    const RunResult r = synth(dir.file("p"), 2, 10, 1700, false, true);
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("V1 plan holds at most 32768 records"), std::string::npos) << r.err;
    EXPECT_TRUE(dir.entries().empty());
}

TEST(SynthPlanV1, LargestPlanThatFits) {
    TempDir dir;
    // 1 + 1 + (1 + 32766) = 32769 records are one too many; 1 + 1 + 2 * (1 + 16382) = 32768 fit.
    EXPECT_EQ(synth(dir.file("big"), 1, 1, 32766, false, true).status, 1);
    const RunResult r = synth(dir.file("p"), 1, 2, 16382, false, true);
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(read_file(dir.file("p")).size(), 32768u * 256u);
    EXPECT_FALSE(file_exists(dir.file("big")));
}

TEST(SynthPlan, RefusesCountsTheHeaderCannotHold) {
    TempDir dir;
    RunResult r = synth(dir.file("p"), 200, 200, 1, false, false);
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("at most 32767 schedules"), std::string::npos) << r.err;
    r = synth(dir.file("p"), 1, 1, 40000, false, false);
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("at most 32766 jobs per schedule"), std::string::npos) << r.err;
    r = synth(dir.file("p"), 0, 1, 1, false, false);
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(dir.entries().empty());
}

}  // namespace
}  // namespace almtest
