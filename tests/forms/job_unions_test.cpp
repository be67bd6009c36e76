// V1 jobs: the fixed fields, and the two unions whose member in use follows
// from the job's flags, in both directions.
#include <gtest/gtest.h>

#include <cstring>
#include <utility>

#include "dates/date_helpers.h"
#include "forms/forms_helpers.h"
#include "plan/almforms.h"
#include "util/dateutil.h"

namespace alm {
namespace {

using namespace alm::test;

constexpr int kFlags2 = 66;
constexpr int kReFlags = 104;
constexpr int kNumDepends = 134;
constexpr std::uint16_t kLongJcl = 1u << sjf2_long_jcl;
constexpr std::uint16_t kAlias = 1u << sjf2_alias;
constexpr std::uint16_t kExternal = 1u << sjrf_external;

class V1Job : public ::testing::Test {
protected:
    void SetUp() override {
        std::memset(in.bytes, 0, sizeof in.bytes);
        put16(&in, 0, static_cast<std::uint16_t>(SJ_CODE));
        put_text(&in, 2, 8, "CPU1");
        put_text(&in, 10, 8, "JOB1");
        put_text(&in, 48, 8, "SCHED1");
        put16(&in, 60, 64544);             // sj_until_date
        put16(&in, 62, 1800);              // sj_until_time
        put16(&in, 64, 7);                 // sj_sched_ptr
        put16(&in, 68, 32768);             // sj_prev_job_ptr
        put16(&in, 70, 9);                 // sj_next_job_ptr
        put32(&in, 72, 4242);              // sj_job_number
        put_text(&in, 76, 8, "batch");
        put16(&in, 110, 33);               // sj_rec_ptrs
        put32(&in, 112, 260305);           // sj_sched_date
        put32(&in, 116, 260306);           // sj_date_started
        put16(&in, 128, 900);              // sj_start_time
        put16(&in, 132, 8);                // sj_rec_num
        // Every union byte distinct, so a wrong member shows.
        for (int i = 24; i < 48; ++i) in.bytes[i] = static_cast<unsigned char>('A' + (i - 24));
        for (int i = 136; i < 256; ++i) in.bytes[i] = static_cast<unsigned char>(i);
        std::memset(out.bytes, 0xEE, sizeof out.bytes);
    }
    void read(std::uint16_t flags2, std::uint16_t re_flags, std::int16_t num_depends) {
        put16(&in, kFlags2, flags2);
        put16(&in, kReFlags, re_flags);
        put16(&in, kNumDepends, static_cast<std::uint16_t>(num_depends));
        ASSERT_EQ(alm_i_2_e(&in, &out, 0), 0);
    }
    ScopedTz tz{"UTC"};
    ALMRECTYPE_INT in;
    ALMRECTYPE out;
};

TEST_F(V1Job, FixedFields) {
    read(0, 0, 0);
    const SJ_RECTYPE& j = out.sj;
    EXPECT_EQ(j.sj_rec_version, 0);
    EXPECT_EQ(j.sj_rec_num, 8u);
    EXPECT_EQ(field(j.sj_cpu_id), padded("CPU1", 16));
    EXPECT_EQ(field(j.sj_job_name), padded("JOB1", 40));
    EXPECT_EQ(field(j.sj_schedule), padded("SCHED1", 16));
    EXPECT_EQ(field(j.sj_job_user), padded("batch", 48));
    EXPECT_EQ(j.sj_until_date, utc(2026, 2, 1));
    EXPECT_EQ(j.sj_until_time, 1800);
    EXPECT_EQ(j.sj_sched_ptr, 7u);
    EXPECT_EQ(j.sj_prev_job_ptr, 32768u);
    EXPECT_EQ(j.sj_next_job_ptr, 9u);
    EXPECT_EQ(j.sj_job_number, 4242);
    EXPECT_EQ(j.sj_rec_ptrs.current_job, 33u);
    EXPECT_EQ(j.sj_sched_date, utc(2026, 3, 5));
    EXPECT_EQ(j.sj_date_started, utc(2026, 3, 6));
    EXPECT_EQ(j.sj_start_time, 900);
    EXPECT_TRUE(all_bytes(j.sj_filler1, sizeof j.sj_filler1, ' '));
}

TEST_F(V1Job, LongJclWidensTheStringLocation) {
    put16(&in, 44, 300);    // jcl_loc.st_offset
    put16(&in, 46, 32768);  // jcl_loc.st_rec_num
    read(kLongJcl | kAlias, 0, 0);  // long_jcl wins over alias
    const auto& js = out.sj.sj_fname_jname.jcl_string;
    EXPECT_EQ(std::string(js.jcl_filler, 32), "ABCDEFGHIJKLMNOPQRST            ");
    EXPECT_EQ(js.jcl_loc.st_offset, 300u);
    EXPECT_EQ(js.jcl_loc.st_rec_num, 32768u);
}

TEST_F(V1Job, AliasTakesTheRealNamePlainJobItsScript) {
    read(kAlias, 0, 0);
    EXPECT_EQ(field(out.sj.sj_fname_jname.userjob.real_name), padded("QRSTUVWX", 40));
    read(0, 0, 0);
    EXPECT_EQ(field(out.sj.sj_fname_jname.userjob.real_name), padded("ABCDEFGHIJKLMNOPQRSTUVWX", 40));
}

TEST_F(V1Job, SubmitWhenDependsIsMinusOne) {
    put_text(&in, 136, 8, "CPUA");
    put_text(&in, 144, 8, "JOBA");
    read(0, kExternal, -1);  // -1 wins over the external flag
    const auto& s = out.sj.subdep.submit;
    EXPECT_EQ(out.sj.sj_num_depends, -1);
    EXPECT_EQ(field(s.sj_re_for_cpu), padded("CPUA", 16));
    EXPECT_EQ(field(s.sj_re_for_job), padded("JOBA", 40));
    EXPECT_TRUE(all_bytes(out.sj.subdep.xkes_id + 56, 200 - 56, ' '));
}

TEST_F(V1Job, DependenciesAreWidened) {
    put16(&in, 176, 12);
    put16(&in, 178, 32768);
    put16(&in, 176 + 78, 65535);
    read(0, 0, 3);
    const auto& d = out.sj.subdep.deps;
    for (int i = 0; i < 40; ++i) EXPECT_EQ(d.sj_depend_flags[i], 136 + i) << i;
    EXPECT_EQ(d.sj_dependencies[0], 12u);
    EXPECT_EQ(d.sj_dependencies[1], 32768u);
    EXPECT_EQ(d.sj_dependencies[2], (180u) | (181u << 8));
    EXPECT_EQ(d.sj_dependencies[39], 65535u);
}

TEST_F(V1Job, ExternalJobsKeepTheirIdentity) {
    read(0, kExternal, 0);
    const char* x = out.sj.subdep.xkes_id;
    for (int i = 0; i < 64; ++i) EXPECT_EQ(static_cast<unsigned char>(x[i]), 136 + i) << i;
    EXPECT_TRUE(all_bytes(x + 64, 200 - 64, ' '));
}

// Writing picks the member from the V2 flags and cuts it back to V1 widths.
TEST(V1JobWrite, UnionsAndNamesAreCut) {
    ScopedTz tz("UTC");
    ALMRECTYPE ext;
    std::memset(ext.bytes, ' ', sizeof ext.bytes);
    SJ_RECTYPE& j = ext.sj;
    j.alm_rec_type = SJ_CODE;
    put_text(j.sj_job_name, 0, 40, "A_VERY_LONG_JOB_NAME");
    j.sj_flags2 = kAlias;
    j.sj_re_flags = 0;
    j.sj_num_depends = -1;
    put_text(j.sj_fname_jname.userjob.real_name, 0, 40, "REALNAME_LONGER");
    put_text(j.subdep.submit.sj_re_for_cpu, 0, 16, "CPUAAAAAAAAA");
    put_text(j.subdep.submit.sj_re_for_job, 0, 40, "JOBBBBBBBBBB");
    j.sj_sched_ptr = 0x12345;
    j.sj_rec_num = 70000;
    j.sj_sched_date = utc(2026, 3, 5);
    j.sj_until_date = utc(2026, 2, 1);
    j.sj_date_started = 0;

    ALMRECTYPE_INT v1;
    std::memset(v1.bytes, 0xEE, sizeof v1.bytes);
    ASSERT_EQ(alm_e_2_i(&ext, &v1, 0), 0);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(v1.bytes) + 10, 8), "A_VERY_L");
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(v1.bytes) + 24, 24), padded("", 16) + "REALNAME");
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(v1.bytes) + 136, 16), "CPUAAAAAJOBBBBBB");
    EXPECT_TRUE(all_bytes(v1.bytes + 152, 256 - 152, ' '));
    EXPECT_EQ(get16(&v1, 64), 0x2345);
    EXPECT_EQ(get16(&v1, 132), 70000 & 0xFFFF);
    // The date in the numeric form the writer is set to: the century is
    // dropped only in the stripped form (UNIDATESTRIP=0).
    for (const auto& [form, want] : {std::pair{0, 20260305u}, std::pair{1, 260305u}}) {
        dte_out_fmt(form);
        ALMRECTYPE_INT again;
        ASSERT_EQ(alm_e_2_i(&ext, &again, 0), 0);
        EXPECT_EQ(get32(&again, 112), want) << form;
    }
    out_dte_fmt = -1;
    EXPECT_EQ(get16(&v1, 60), 64544);
    EXPECT_EQ(get32(&v1, 116), 0u);
    EXPECT_EQ(get16(&v1, kNumDepends), 0xFFFF);
    // The second half of the internal buffer is not part of a V1 record.
    EXPECT_TRUE(all_bytes(v1.bytes + 256, 256, 0xEE));
}

}  // namespace
}  // namespace alm
