// Widening V1 records: each field is written at its V1 offset with the
// little-endian helpers and read back through the V2 structure.
#include <gtest/gtest.h>

#include <cstring>

#include "dates/date_helpers.h"
#include "forms/forms_helpers.h"
#include "plan/almforms.h"
#include "util/dateutil.h"

namespace alm {
namespace {

using namespace alm::test;

class V1Read : public ::testing::Test {
protected:
    void SetUp() override {
        std::memset(in.bytes, 0, sizeof in.bytes);
        std::memset(out.bytes, 0xEE, sizeof out.bytes);
    }
    ScopedTz tz{"America/New_York"};
    ALMRECTYPE_INT in;
    ALMRECTYPE out;
};

TEST_F(V1Read, Header) {
    put16(&in, 0, static_cast<std::uint16_t>(SH_CODE));
    put_text(&in, 2, 8, "MASTER");
    put_text(&in, 10, 8, "MAST2");
    put16(&in, 18, 7);                     // sh_status
    put16(&in, 20, 5);                     // sh_first_sched
    put16(&in, 22, 32768);                 // sh_last_sched
    put16(&in, 24, 12);                    // sh_num_scheds
    put16(&in, 32, 40000);                 // sh_num_recs
    put32(&in, 40, 0xFFFFFFFFu);           // sh_console
    put16(&in, 46, 600);                   // sh_day_start
    put16(&in, 62, 0x8421);                // sh_flags
    put16(&in, 70, 65535);                 // sh_first_cpu
    put16(&in, 92, 3);                     // sh_num_domains
    std::memcpy(in.bytes + 94, "0123456789", 10);  // sh_filler1
    put32(&in, 108, 260305);               // sh_last_date
    put32(&in, 112, 20260306);             // sh_sched_date
    put32(&in, 116, 0);                    // sh_date_started
    put16(&in, 124, 1730);                 // sh_time_started
    put16(&in, 128, 44);                   // sh_job_fence
    put16(&in, 132, 0);                    // sh_rec_num
    put_text(&in, 134, 32, "session");
    put_text(&in, 166, 8, "DOMAIN");
    put16(&in, 174, 2);                    // sh_flags2
    std::memset(in.bytes + 176, 'x', 78);  // sh_filler3
    put16(&in, 254, 0);                    // sh_alm_version

    ASSERT_EQ(alm_i_2_e(&in, &out, 0), 0);
    const SH_RECTYPE& h = out.sh;
    EXPECT_EQ(h.alm_rec_type, SH_CODE);
    EXPECT_EQ(h.sh_status, 7);
    EXPECT_EQ(h.sh_rec_version, 0);
    EXPECT_EQ(h.sh_rec_num, 0u);
    EXPECT_EQ(h.sh_cont_rec, 32768u);
    EXPECT_EQ(h.sh_filler5, 0x2020);
    EXPECT_EQ(field(h.sh_cpu_id), padded("MASTER", 16));
    EXPECT_EQ(field(h.sh_mast_cpu), padded("MAST2", 16));
    EXPECT_EQ(h.sh_first_sched, 5u);
    EXPECT_EQ(h.sh_last_sched, 32768u);
    EXPECT_EQ(h.sh_num_scheds, 12);
    EXPECT_EQ(h.sh_num_recs, 40000u);
    EXPECT_EQ(h.sh_console, -1);
    EXPECT_EQ(h.sh_day_start, 600);
    EXPECT_EQ(h.sh_flags, 0x8421);
    EXPECT_EQ(h.sh_first_cpu, 65535u);
    EXPECT_EQ(h.sh_num_domains, 3);
    EXPECT_EQ(std::memcmp(h.sh_filler1, "0123456789      ", 16), 0);
    EXPECT_EQ(h.sh_last_date, utc(2026, 3, 5));
    EXPECT_EQ(h.sh_sched_date, utc(2026, 3, 6));
    EXPECT_EQ(h.sh_date_started, 0);
    EXPECT_EQ(h.sh_time_started, 1730);
    EXPECT_EQ(h.sh_job_fence, 44);
    EXPECT_EQ(field(h.sh_cons_session), padded("session", 32));
    EXPECT_EQ(field(h.sh_mast_domain), padded("DOMAIN", 16));
    EXPECT_EQ(h.sh_flags2, 2);
    EXPECT_EQ(h.sh_alm_version, 0);
    // Bytes 256 to 511: the V1 filler, then blanks.
    EXPECT_TRUE(all_bytes(out.bytes + 256, 78, 'x'));
    EXPECT_TRUE(all_bytes(out.bytes + 334, 512 - 334, ' '));
}

TEST_F(V1Read, Workstation) {
    put16(&in, 0, static_cast<std::uint16_t>(SCI_CODE));
    put_text(&in, 2, 8, "CPU1");
    put_text(&in, 10, 8, "HOST");
    put16(&in, 20, 9);                // sci_first_sched
    put_text(&in, 28, 8, "unixlocl");
    put32(&in, 116, 123456);          // sci_date_started: carried as it is
    put16(&in, 124, 815);
    put16(&in, 132, 3);               // sci_rec_num
    put16(&in, 134, 32768);           // sci_prev_cpu_ptr
    put16(&in, 136, 4);               // sci_next_cpu_ptr
    put16(&in, 138, 0x5);             // sci_flags
    put32(&in, 140, 0xFFFF0001u);     // sci_dblnk_recnum
    put_text(&in, 166, 8, "EST5EDT");
    put_text(&in, 238, 8, "DOM");
    std::memcpy(in.bytes + 254, "zz", 2);
    ASSERT_EQ(alm_i_2_e(&in, &out, 0), 0);
    const SCI_RECTYPE& c = out.sci;
    EXPECT_EQ(c.sci_rec_version, 0);
    EXPECT_EQ(c.sci_rec_num, 3u);
    EXPECT_EQ(c.sci_cont_rec, 0x20202020u);  // only the header gets a null continuation
    EXPECT_EQ(field(c.sci_cpu_id), padded("CPU1", 16));
    EXPECT_EQ(field(c.sci_access_method), padded("unixlocl", 40));
    EXPECT_EQ(c.sci_first_sched, 9u);
    EXPECT_EQ(c.sci_date_started, 123456);
    EXPECT_EQ(c.sci_time_started, 815);
    EXPECT_EQ(c.sci_prev_cpu_ptr, 32768u);
    EXPECT_EQ(c.sci_next_cpu_ptr, 4u);
    EXPECT_EQ(c.sci_flags, 5);
    EXPECT_EQ(c.sci_dblnk_recnum, static_cast<std::int32_t>(0xFFFF0001u));
    EXPECT_EQ(field(c.sci_timezone_id), padded("EST5EDT", 40));
    EXPECT_EQ(field(c.sci_domain_name), padded("DOM", 16));
    EXPECT_EQ(std::memcmp(c.sci_filler5, "zz  ", 4), 0);
}

TEST_F(V1Read, ScheduleDatesAndDependencies) {
    put16(&in, 0, static_cast<std::uint16_t>(SS_CODE));
    put_text(&in, 2, 8, "CPU1");
    put_text(&in, 10, 8, "SCHED1");
    in.bytes[20] = 10;                // ss_sched_pri.priority
    in.bytes[21] = 20;                // ss_sched_pri.orig_pri
    put32(&in, 32, 260305);           // ss_prod_date
    put16(&in, 60, 64544);            // ss_until_date, cal form of 2026-02-01
    put16(&in, 62, 2330);             // ss_until_time
    put16(&in, 64, 10);               // ss_first_job
    put16(&in, 66, 12);               // ss_last_job
    put16(&in, 108, 0xFFFF);          // ss_restart_ptr: i16 in both
    put32(&in, 112, 991231);          // ss_sched_date
    put32(&in, 116, 32768);           // ss_date_started: no date
    put16(&in, 132, 8);               // ss_rec_num
    put16(&in, 134, 3);               // ss_num_depends
    in.bytes[136] = PrejobDep;
    in.bytes[137] = FileDep;
    put16(&in, 176, 11);
    put16(&in, 178, 32768);
    put16(&in, 176 + 78, 65535);      // ss_dependencies[39]
    ASSERT_EQ(alm_i_2_e(&in, &out, 0), 0);
    const SS_RECTYPE& s = out.ss;
    EXPECT_EQ(field(s.ss_sched_name), padded("SCHED1", 16));
    EXPECT_EQ(s.ss_sched_pri.priority, 10);
    EXPECT_EQ(s.ss_sched_pri.orig_pri, 20);
    EXPECT_EQ(s.ss_prod_date, utc(2026, 3, 5));
    EXPECT_EQ(s.ss_until_date, utc(2026, 2, 1));
    EXPECT_EQ(s.ss_until_time, 2330);
    EXPECT_EQ(s.ss_first_job, 10u);
    EXPECT_EQ(s.ss_last_job, 12u);
    EXPECT_EQ(s.ss_restart_ptr, -1);
    EXPECT_EQ(s.ss_sched_date, utc(du_yy_ccyy(99), 12, 31));
    EXPECT_EQ(s.ss_date_started, 32768);
    EXPECT_EQ(s.ss_rec_num, 8u);
    EXPECT_EQ(s.ss_num_depends, 3);
    EXPECT_EQ(s.ss_depend_flags[0], PrejobDep);
    EXPECT_EQ(s.ss_depend_flags[1], FileDep);
    EXPECT_EQ(s.ss_dependencies[0], 11u);
    EXPECT_EQ(s.ss_dependencies[1], 32768u);
    EXPECT_EQ(s.ss_dependencies[39], 65535u);
    EXPECT_TRUE(all_bytes(s.ss_filler5, sizeof s.ss_filler5, ' '));
}

TEST_F(V1Read, PromptDatesAreCarriedAsTheyAre) {
    put16(&in, 0, static_cast<std::uint16_t>(SM_CODE));
    put_text(&in, 10, 8, "PROMPT1");
    put16(&in, 20, 17);               // sm_msg_no
    put16(&in, 24, 32768);            // sm_prev_msg
    put_text(&in, 28, 80, "reply yes");
    put32(&in, 108, 260305);          // sm_date_asked
    put16(&in, 116, 1015);            // sm_time_asked
    put16(&in, 120, 77);              // sm_job_ptr
    put16(&in, 132, 21);              // sm_rec_num
    put_text(&in, 134, 120, "more text");
    ASSERT_EQ(alm_i_2_e(&in, &out, 0), 0);
    const SM_RECTYPE& m = out.sm;
    EXPECT_EQ(field(m.sm_msg_name), padded("PROMPT1", 8));
    EXPECT_EQ(m.sm_msg_no, 17);
    EXPECT_EQ(m.sm_prev_msg, 32768u);
    EXPECT_EQ(field(m.sm_message), padded("reply yes", 80));
    EXPECT_EQ(m.sm_date_asked, 260305);
    EXPECT_EQ(m.sm_time_asked, 1015);
    EXPECT_EQ(m.sm_job_ptr, 77u);
    EXPECT_EQ(m.sm_rec_num, 21u);
    EXPECT_EQ(field(m.sm_message_more), padded("more text", 120));
}

TEST_F(V1Read, File) {
    put16(&in, 0, static_cast<std::uint16_t>(SF_CODE));
    put_text(&in, 20, 28, "/tmp/trigger");
    put16(&in, 96, 32768);            // sf_prev_file
    put16(&in, 98, 6);                // sf_next_file
    put32(&in, 112, 0x00050004u);     // sf_timer
    put16(&in, 132, 5);
    put16(&in, 134, 3);               // sf_feq_len
    put_text(&in, 136, 120, "-f ");
    ASSERT_EQ(alm_i_2_e(&in, &out, 0), 0);
    const SF_RECTYPE& f = out.sf;
    EXPECT_EQ(field(f.sf_file_name), padded("/tmp/trigger", 28));
    EXPECT_EQ(f.sf_prev_file, 32768u);
    EXPECT_EQ(f.sf_next_file, 6u);
    EXPECT_EQ(f.sf_timer.timers.timer1, 4);
    EXPECT_EQ(f.sf_timer.timers.timer2, 5);
    EXPECT_EQ(f.sf_rec_num, 5u);
    EXPECT_EQ(f.sf_feq_len, 3);
    EXPECT_EQ(field(f.sf_feq), padded("-f ", 120));
}

TEST_F(V1Read, ResourceCountsAreSignExtended) {
    put16(&in, 0, static_cast<std::uint16_t>(SR_CODE));
    put_text(&in, 10, 8, "TAPES");
    put16(&in, 24, static_cast<std::uint16_t>(-3));  // sr_num_avail
    put16(&in, 26, 32767);                           // sr_num_used
    put16(&in, 28, 0x8000);                          // sr_num_unused
    put16(&in, 30, 2);                               // sr_num_holders
    put16(&in, 64, 40);                              // sr_holders[0]
    put16(&in, 64 + 62, 50000);                      // sr_holders[31]
    put16(&in, 132, 14);
    put16(&in, 134, static_cast<std::uint16_t>(-1));  // sr_hold_counts[0]
    put16(&in, 134 + 62, 9);                          // sr_hold_counts[31]
    ASSERT_EQ(alm_i_2_e(&in, &out, 0), 0);
    const SR_RECTYPE& r = out.sr;
    EXPECT_EQ(r.sr_num_avail, -3);
    EXPECT_EQ(r.sr_num_used, 32767);
    EXPECT_EQ(r.sr_num_unused, -32768);
    EXPECT_EQ(r.sr_num_holders, 2);
    EXPECT_EQ(r.sr_holders[0], 40u);
    EXPECT_EQ(r.sr_holders[31], 50000u);
    EXPECT_EQ(r.sr_rec_num, 14u);
    EXPECT_EQ(r.sr_hold_counts[0], -1);
    EXPECT_EQ(r.sr_hold_counts[31], 9);
}

TEST_F(V1Read, Calendar) {
    put16(&in, 0, static_cast<std::uint16_t>(SC_CODE));
    put_text(&in, 2, 8, "HOLIDAYS");
    put16(&in, 10, 118);               // sc_num_dates
    put16(&in, 12, 32768);             // sc_cont_rec
    put16(&in, 14, 32768);             // sc_cont_from
    put16(&in, 16, 2);                 // sc_prev_cal
    put16(&in, 18, 4);                 // sc_next_cal
    put16(&in, 20, 64544);             // sc_cal_dates[0]
    put16(&in, 20 + 234, 65535);       // sc_cal_dates[117]
    ASSERT_EQ(alm_i_2_e(&in, &out, 0), 0);
    const SC_RECTYPE& c = out.sc;
    EXPECT_EQ(c.sc_rec_version, 0);
    EXPECT_EQ(field(c.sc_cal_name), "HOLIDAYS");
    EXPECT_EQ(c.sc_num_dates, 118);
    EXPECT_EQ(c.sc_cont_rec, 32768u);
    EXPECT_EQ(c.sc_cont_from, 32768u);
    EXPECT_EQ(c.sc_prev_cal, 2u);
    EXPECT_EQ(c.sc_next_cal, 4u);
    EXPECT_EQ(c.sc_cal_dates[0], 64544);
    EXPECT_EQ(c.sc_cal_dates[117], 65535);
    EXPECT_EQ(c.sc_filler1, 0x2020);
}

TEST_F(V1Read, StringRecordTakesItsNumberFromTheSpace) {
    put16(&in, 0, static_cast<std::uint16_t>(ST_CODE));
    put16(&in, 2, 32768);              // st_next_ptr
    put16(&in, 4, 42);                 // st_First_Free
    std::memcpy(in.bytes + 6, "echo hello", 10);
    put16(&in, 132, 19);               // space offset 126: the record's own number
    ASSERT_EQ(alm_i_2_e(&in, &out, 0), 0);
    const ST_RECTYPE& s = out.st;
    EXPECT_EQ(s.st_rec_version, 0);
    EXPECT_EQ(s.st_rec_num, 19u);
    EXPECT_EQ(s.st_next_ptr, 32768u);
    EXPECT_EQ(s.st_First_Free, 42u);
    EXPECT_EQ(std::memcmp(s.st_str_space.st_strings, "echo hello", 10), 0);
    EXPECT_EQ(get16(s.st_str_space.st_strings, 126), 19);
    EXPECT_TRUE(all_bytes(s.st_str_space.st_strings + 250, 492 - 250, ' '));
}

TEST_F(V1Read, Dependency) {
    put16(&in, 0, static_cast<std::uint16_t>(SD_CODE));
    put_text(&in, 2, 8, "CPU1");
    put_text(&in, 10, 8, "SCHED");
    put_text(&in, 18, 8, "JOB");
    put16(&in, 26, FileDep);
    put_text(&in, 28, 8, "CPU2");
    put16(&in, 52, 0);                 // sd_file_filler
    put_text(&in, 54, 28, "/etc/ready");
    put16(&in, 82, 2);                 // sd_dep_feqlen
    ASSERT_EQ(alm_i_2_e(&in, &out, 0), 0);
    const SD_RECTYPE& d = out.sd;
    EXPECT_EQ(d.sd_rec_type, SD_CODE);
    EXPECT_EQ(d.sd_rec_version, 0);
    EXPECT_EQ(d.sd_filler2, 0x2020);
    EXPECT_EQ(field(d.sd_cpu_id), padded("CPU1", 16));
    EXPECT_EQ(field(d.sd_sched_name), padded("SCHED", 16));
    EXPECT_EQ(field(d.sd_job_name), padded("JOB", 40));
    EXPECT_EQ(d.sd_dep_type, FileDep);
    EXPECT_EQ(field(d.sd_dep_cpu), padded("CPU2", 16));
    EXPECT_EQ(field(d.sd_dep.file.sd_dep_fname), padded("/etc/ready", 28));
    EXPECT_EQ(d.sd_dep.file.sd_dep_feqlen, 2);
    EXPECT_TRUE(all_bytes(d.sd_filler1, sizeof d.sd_filler1, ' '));
}

TEST_F(V1Read, PurgeableJobs) {
    put16(&in, 0, static_cast<std::uint16_t>(PJ_CODE));
    put16(&in, 2, 7);
    put_text(&in, 4, 8, "CPU1");
    put_text(&in, 4 + 6 * 32 + 3 * 8, 8, "ACCT7");  // entry 6, JiAccount
    std::memset(in.bytes + 228, 'q', 28);            // beyond the V1 layout
    ASSERT_EQ(alm_i_2_e(&in, &out, 0), 0);
    const PJ_RECTYPE& p = out.pj;
    EXPECT_EQ(p.pj_alm_rec_type, PJ_CODE);
    EXPECT_EQ(p.pj_job_count, 7);
    EXPECT_EQ(std::string(p.pj_job_list[0][JiCpu], 8), "CPU1    ");
    EXPECT_EQ(std::string(p.pj_job_list[6][JiAccount], 8), "ACCT7   ");
    EXPECT_TRUE(all_bytes(p.pj_job_list[7], sizeof p.pj_job_list - 7 * 32, ' '));
}

}  // namespace
}  // namespace alm
