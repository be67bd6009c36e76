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

// Converts a patterned record and checks it against the offsets by form;
// every byte not listed there must come out as it went in.
void expect_forms(void (*convert)(unsigned char*), const qtest::WireForms& forms) {
    const Bytes in = patterned();
    Bytes out = in;
    convert(out.data());
    const qtest::Bytes expected = qtest::expectedWire(in.data(), forms);
    for (std::size_t i = 0; i < out.size(); ++i) EXPECT_EQ(out[i], expected[i]) << "byte " << i;
}

// A dependency listing conversion over a record's bytes.
template <class Rec, Rec* (*convert)(Rec*)>
void listed(unsigned char* bytes) {
    Rec rec;
    std::memcpy(&rec, bytes, sizeof rec);
    convert(&rec);
    std::memcpy(bytes, &rec, sizeof rec);
}

// Every kind's conversion against the offsets by form, on a record whose
// every byte differs.
TEST(WireTables, FormsByOffset) {
    const struct {
        const char* kind;
        void (*convert)(unsigned char*);
        const qtest::WireForms& forms;
    } cases[] = {
        {"workstation", ConvertCpuReply, qtest::cpuForms()}, {"schedule", ConvertScheduleReply, qtest::scheduleForms()},
        {"job", ConvertJobReply, qtest::jobForms()},         {"prompt", listed<SM_RECTYPE, ConvertPrompt>, qtest::promptForms()},
        {"file", listed<SF_RECTYPE, ConvertFile>, qtest::fileForms()},
        {"resource", listed<SR_RECTYPE, ConvertResource>, qtest::resourceForms()},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.kind);
        expect_forms(c.convert, c.forms);
    }
}

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

}  // namespace
}  // namespace alm
