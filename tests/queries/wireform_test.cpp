#include "queries/wireform.h"

#include "queries/plantest.h"
#include "util/endian.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <vector>

namespace alm {
namespace {

using Bytes = std::array<unsigned char, ALM_REC_SIZE_V2>;

// Distinct, recognisable contents for every byte of a record.
Bytes patterned() {
    Bytes b{};
    for (std::size_t i = 0; i < b.size(); ++i) b[i] = static_cast<unsigned char>((i * 37 + 11) & 0xFF);
    return b;
}

std::vector<unsigned char> at(const unsigned char* rec, std::size_t off, std::size_t n) {
    return {rec + off, rec + off + n};
}

// Converts a patterned record with the table and checks it against the
// offsets by form; every byte not listed there must come out as it went in.
void expect_forms(std::span<const WireField> table, const qtest::WireForms& forms) {
    const Bytes in = patterned();
    Bytes out = in;
    convert_fields(out.data(), table);
    const qtest::Bytes expected = qtest::expectedWire(in.data(), forms);
    for (std::size_t i = 0; i < out.size(); ++i) EXPECT_EQ(out[i], expected[i]) << "byte " << i;
}

TEST(WireTables, WorkstationFormsByOffset) { expect_forms(kCpuWire, qtest::cpuForms()); }
TEST(WireTables, ScheduleFormsByOffset) { expect_forms(kScheduleWire, qtest::scheduleForms()); }
TEST(WireTables, JobFormsByOffset) { expect_forms(kJobWire, qtest::jobForms()); }
TEST(WireTables, PromptFormsByOffset) { expect_forms(kPromptWire, qtest::promptForms()); }
TEST(WireTables, FileFormsByOffset) { expect_forms(kFileWire, qtest::fileForms()); }
TEST(WireTables, ResourceFormsByOffset) { expect_forms(kResourceWire, qtest::resourceForms()); }

TEST(WireTables, DependencyFormsOfPatternedRecords) {
    const Bytes in = patterned();
    SS_RECTYPE ss;
    std::memcpy(&ss, in.data(), sizeof ss);
    ss.ss_num_depends = 7;
    const qtest::Bytes ssExpected = qtest::expectedScheduleDep(ss);
    EXPECT_EQ(qtest::bytesOf(ConvertSchedule(&ss), sizeof ss), ssExpected);

    SJ_RECTYPE sj;
    std::memcpy(&sj, in.data(), sizeof sj);
    sj.sj_num_depends = 39;
    const qtest::Bytes sjExpected = qtest::expectedJobDep(sj);
    EXPECT_EQ(qtest::bytesOf(ConvertJob(&sj), sizeof sj), sjExpected);
}

TEST(WireHelpers, LowHalfDropsUpperHalf) {
    unsigned char p[4];
    store_host32(p, 70000);
    to_low_half(p);
    EXPECT_EQ(at(p, 0, 4), (std::vector<unsigned char>{0x11, 0x70, 0x00, 0x00}));
    store_host32(p, 0xFFFFFFFFu);  // a count of -1
    to_low_half(p);
    EXPECT_EQ(at(p, 0, 4), (std::vector<unsigned char>{0xFF, 0xFF, 0x00, 0x00}));
}

TEST(WireHelpers, BigEndianSwaps) {
    unsigned char p[4];
    store_host16(p, 1730);
    to_big_endian16(p);
    EXPECT_EQ(at(p, 0, 2), (std::vector<unsigned char>{0x06, 0xC2}));
    store_host32(p, 70000);
    to_big_endian32(p);
    EXPECT_EQ(at(p, 0, 4), (std::vector<unsigned char>{0x00, 0x01, 0x11, 0x70}));
}

// Records filled through their members, so these checks do not depend on the
// tables' offsets.
TEST(WireRecords, WorkstationNumbersAndDomainPointers) {
    SCI_RECTYPE sci{};
    sci.alm_rec_type = SCI_CODE;
    sci.sci_rec_num = 70000;
    sci.sci_prev_domain_ptr = 5;
    sci.sci_next_cpu_ptr = NULL_REC;
    sci.sci_console = 0x01020304;
    ConvertCpuReply(record_bytes(&sci));
    const unsigned char* b = record_bytes(&sci);
    EXPECT_EQ(at(b, 0, 2), (std::vector<unsigned char>{0x43, 0x49}));
    EXPECT_EQ(at(b, 8, 4), (std::vector<unsigned char>{0x11, 0x70, 0x00, 0x00}));
    EXPECT_EQ(at(b, 204, 4), (std::vector<unsigned char>{0x05, 0x00, 0x00, 0x00}));
    EXPECT_EQ(at(b, 200, 4), (std::vector<unsigned char>{0x80, 0x00, 0x00, 0x00}));
    EXPECT_EQ(at(b, 52, 4), (std::vector<unsigned char>{0x01, 0x02, 0x03, 0x04}));
}

TEST(WireRecords, ScheduleQueryKeepsDependenciesAsDelivered) {
    SS_RECTYPE ss{};
    ss.ss_rec_num = 70000;
    ss.ss_first_job = NULL_REC;
    ss.ss_num_depends = 1;
    ss.ss_dependencies[0] = 3;
    ConvertScheduleReply(record_bytes(&ss));
    const unsigned char* b = record_bytes(&ss);
    EXPECT_EQ(at(b, 8, 4), (std::vector<unsigned char>{0x00, 0x01, 0x11, 0x70}));
    EXPECT_EQ(at(b, 96, 4), (std::vector<unsigned char>{0x80, 0x00, 0x00, 0x00}));
    EXPECT_EQ(at(b, 116, 4), (std::vector<unsigned char>{0x03, 0x00, 0x00, 0x00}));
    EXPECT_EQ(at(b, 344, 2), (std::vector<unsigned char>{0x00, 0x01}));
}

TEST(WireRecords, ScheduleDependencyFormConvertsCountedEntries) {
    SS_RECTYPE ss{};
    ss.alm_rec_type = static_cast<std::int16_t>(SCHED_DEP_CODE);
    ss.ss_num_depends = 2;
    ss.ss_dependencies[0] = 7;
    ss.ss_dependencies[1] = NULL_REC;
    ss.ss_dependencies[2] = 0x01020304;
    EXPECT_EQ(ConvertScheduleDep(&ss), &ss);
    const unsigned char* b = record_bytes(&ss);
    EXPECT_EQ(at(b, 0, 2), (std::vector<unsigned char>{0x53, 0x44}));
    EXPECT_EQ(at(b, 116, 12),
              (std::vector<unsigned char>{0x00, 0x07, 0x00, 0x00, 0x80, 0x00, 0x00, 0x00, 0x04, 0x03, 0x02, 0x01}));
}

TEST(WireRecords, JobQueryAndDependencyFormsDiffer) {
    SJ_RECTYPE sj{};
    sj.sj_rec_num = 70000;
    sj.sj_every_hhmm = 1730;
    sj.sj_until_time = 1730;
    sj.sj_restart_ptr = NULL_REC;
    sj.sj_rec_ptrs.current_job = 0x12345;
    sj.sj_num_depends = 1;
    sj.subdep.deps.sj_depend_flags[0] = PrejobDep;
    sj.subdep.deps.sj_dependencies[0] = 0x10009;
    SJ_RECTYPE dep = sj;

    ConvertJobReply(record_bytes(&sj));
    const unsigned char* q = record_bytes(&sj);
    EXPECT_EQ(at(q, 8, 4), (std::vector<unsigned char>{0x00, 0x01, 0x11, 0x70}));
    EXPECT_EQ(at(q, 154, 4), (std::vector<unsigned char>{0x06, 0xC2, 0xC2, 0x06}));
    EXPECT_EQ(at(q, 232, 4), (std::vector<unsigned char>{0x80, 0x00, 0x00, 0x00}));
    EXPECT_EQ(at(q, 236, 4), (std::vector<unsigned char>{0x23, 0x45, 0x00, 0x00}));
    EXPECT_EQ(at(q, 268, 1), (std::vector<unsigned char>{PrejobDep}));
    EXPECT_EQ(at(q, 308, 4), (std::vector<unsigned char>{0x09, 0x00, 0x01, 0x00}));

    ConvertJobDep(&dep);
    const unsigned char* d = record_bytes(&dep);
    EXPECT_EQ(at(d, 154, 4), (std::vector<unsigned char>{0x06, 0xC2, 0x06, 0xC2}));
    EXPECT_EQ(at(d, 236, 4), (std::vector<unsigned char>{0x45, 0x23, 0x00, 0x00}));
    EXPECT_EQ(at(d, 268, 1), (std::vector<unsigned char>{PrejobDep}));
    EXPECT_EQ(at(d, 308, 4), (std::vector<unsigned char>{0x00, 0x09, 0x00, 0x00}));
}

TEST(WireRecords, JobWithoutDependenciesKeepsSubdep) {
    SJ_RECTYPE sj{};
    std::memset(&sj.subdep, 0x5A, sizeof sj.subdep);
    sj.sj_num_depends = 0;
    ConvertJob(&sj);
    const unsigned char* b = record_bytes(&sj);
    for (int i = 268; i < 468; ++i) EXPECT_EQ(b[i], 0x5A) << i;
}

TEST(WireRecords, DependencyCountsAreBounded) {
    EXPECT_EQ(dependency_count(-1), 0);
    EXPECT_EQ(dependency_count(0), 0);
    EXPECT_EQ(dependency_count(40), 40);
    EXPECT_EQ(dependency_count(41), 40);
    EXPECT_EQ(dependency_count(32767), 40);

    // A count beyond the array converts the 40 entries and nothing after them.
    SJ_RECTYPE sj{};
    for (auto& r : sj.subdep.deps.sj_dependencies) r = 1;
    for (auto& f : sj.sj_filler1) f = 0x0102;
    sj.sj_num_depends = 1000;
    ConvertJob(&sj);
    const unsigned char* b = record_bytes(&sj);
    EXPECT_EQ(at(b, 308 + 39 * 4, 4), (std::vector<unsigned char>{0x00, 0x01, 0x00, 0x00}));
    EXPECT_EQ(at(b, 468, 2), (std::vector<unsigned char>{0x02, 0x01}));

    SS_RECTYPE ss{};
    ss.ss_dependencies[0] = 1;
    ss.ss_num_depends = -3;
    ConvertSchedule(&ss);
    EXPECT_EQ(at(record_bytes(&ss), 116, 4), (std::vector<unsigned char>{0x01, 0x00, 0x00, 0x00}));
}

TEST(WireRecords, PromptFileResource) {
    SM_RECTYPE sm{};
    sm.alm_rec_type = SM_CODE;
    sm.sm_job_ptr = 0x12345;
    sm.sm_msg_no = 0x0102;
    ConvertPrompt(&sm);
    EXPECT_EQ(at(record_bytes(&sm), 0, 2), (std::vector<unsigned char>{0x4D, 0x52}));
    EXPECT_EQ(at(record_bytes(&sm), 48, 4), (std::vector<unsigned char>{0x23, 0x45, 0x00, 0x00}));
    EXPECT_EQ(at(record_bytes(&sm), 60, 2), (std::vector<unsigned char>{0x01, 0x02}));

    SF_RECTYPE sf{};
    sf.sf_timer.sf_lasttime = 0x01020304;
    sf.sf_feq_len = 12;
    ConvertFile(&sf);
    EXPECT_EQ(at(record_bytes(&sf), 136, 4), (std::vector<unsigned char>{0x04, 0x03, 0x02, 0x01}));
    EXPECT_EQ(at(record_bytes(&sf), 156, 2), (std::vector<unsigned char>{0x00, 0x0C}));

    SR_RECTYPE sr{};
    sr.sr_num_avail = 3;
    sr.sr_num_used = -1;
    sr.sr_num_unused = 70000;
    sr.sr_holders[0] = 9;
    sr.sr_hold_counts[0] = 2;
    ConvertResource(&sr);
    const unsigned char* b = record_bytes(&sr);
    EXPECT_EQ(at(b, 48, 12), (std::vector<unsigned char>{0x00, 0x03, 0x00, 0x00, 0xFF, 0xFF, 0x00, 0x00, 0x11, 0x70,
                                                         0x00, 0x00}));
    EXPECT_EQ(at(b, 96, 4), (std::vector<unsigned char>{0x09, 0x00, 0x00, 0x00}));
    EXPECT_EQ(at(b, 228, 2), (std::vector<unsigned char>{0x02, 0x00}));
}

}  // namespace
}  // namespace alm
