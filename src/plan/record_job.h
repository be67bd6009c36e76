// The job record: a job: names, flags, dates, chain pointers and dependencies. Its V2 and V1 layouts and its table of
// fields, one row per field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "plan/fieldrow.h"
#include "plan/record_basics.h"

namespace alm {

struct SJ_RECTYPE {
    std::int16_t alm_rec_type;
    std::int16_t sj_status;
    std::int16_t sj_filler2;
    std::int16_t sj_rec_version;
    std::uint32_t sj_rec_num;
    std::uint32_t sj_cont_rec;
    char sj_cpu_id[16];
    char sj_job_name[40];
    PRIORITYREC sj_job_pri;
    char sj_schedule[16];
    char sj_job_user[48];
    char sj_job_acct[8];
    char sj_job_group[8];
    std::int16_t sj_every_hhmm;
    std::int16_t sj_until_time;
    std::uint16_t sj_flags2;
    std::uint16_t sj_flags;
    std::uint16_t sj_re_flags;
    std::int16_t sj_start_time;
    std::int16_t sj_time_started;
    std::int16_t sj_num_depends;
    std::int16_t sj_filler3;
    SJ_FNAME_JNAME sj_fname_jname;
    std::uint32_t sj_sched_ptr;
    std::uint32_t sj_prev_job_ptr;
    std::uint32_t sj_next_job_ptr;
    std::uint32_t sj_re_job_ptr;
    std::uint32_t sj_re_prmpt_ptr;
    std::uint32_t sj_restart_ptr;
    SJ_REC_PTRS sj_rec_ptrs;
    std::int32_t sj_until_date;
    std::int32_t sj_sched_date;
    std::int32_t sj_date_started;
    std::int32_t sj_elapse_time;
    std::int32_t sj_est_elapse;
    std::int32_t sj_cpu_time;
    std::int32_t sj_job_number;
    SJ_SUBDEP subdep;
    std::int16_t sj_filler1[22];  // 44 bytes to the end: no implicit tail padding
};

struct SJ_RECTYPE_V1 {
    std::int16_t alm_rec_type;
    char sj_cpu_id[8];
    char sj_job_name[8];
    std::int16_t sj_status;
    PRIORITYREC sj_job_pri;
    std::int16_t sj_every_hhmm;
    SJ_FNAME_JNAME_V1 sj_fname_jname;
    char sj_schedule[8];
    std::int32_t sj_cpu_time;
    std::uint16_t sj_until_date;
    std::int16_t sj_until_time;
    std::uint16_t sj_sched_ptr;
    std::uint16_t sj_flags2;
    std::uint16_t sj_prev_job_ptr;
    std::uint16_t sj_next_job_ptr;
    std::int32_t sj_job_number;
    char sj_job_user[8];
    char sj_job_acct[8];
    char sj_job_group[8];
    std::uint16_t sj_flags;
    std::uint16_t sj_re_job_ptr;
    std::uint16_t sj_re_flags;
    std::uint16_t sj_re_prmpt_ptr;
    std::uint16_t sj_restart_ptr;
    SJ_REC_PTRS_V1 sj_rec_ptrs;
    std::int32_t sj_sched_date;
    std::int32_t sj_date_started;
    std::int32_t sj_elapse_time;
    std::int32_t sj_est_elapse;
    std::int16_t sj_start_time;
    std::int16_t sj_time_started;
    std::uint16_t sj_rec_num;
    std::int16_t sj_num_depends;
    SJ_SUBDEP_V1 subdep;
};

inline constexpr FlagName kJobFlagNames[] = {
    {sjf1_re_job, "sjf1_re_job"}, {sjf1_ignore, "sjf1_ignore"}, {sjf1_buckujob, "sjf1_buckujob"},
    {sjf1_dont_touch, "sjf1_dont_touch"}, {sjf1_do_rerun, "sjf1_do_rerun"}, {sjf1_until_used, "sjf1_until_used"},
    {sjf1_user_job, "sjf1_user_job"}, {sjf1_this_cpu, "sjf1_this_cpu"}, {sjf1_succ_pend, "sjf1_succ_pend"},
    {sjf1_needs_msg, "sjf1_needs_msg"}, {sjf1_needs_rsrc, "sjf1_needs_rsrc"}, {sjf1_has_rsrc, "sjf1_has_rsrc"},
    {sjf1_released, "sjf1_released"}, {sjf1_cancelled, "sjf1_cancelled"}, {sjf1_showed_up, "sjf1_showed_up"},
    {sjf1_every, "sjf1_every"},
};
inline constexpr FlagName kJobFlag2Names[] = {
    {sjf2_run_again, "sjf2_run_again"}, {sjf2_running, "sjf2_running"}, {sjf2_alias, "sjf2_alias"},
    {sjf2_logged, "sjf2_logged"}, {sjf2_rstrt_flag, "sjf2_rstrt_flag"}, {sjf2_every_run, "sjf2_every_run"},
    {sjf2_launchedby_ms, "sjf2_launchedby_ms"}, {sjf2_wildcarded, "sjf2_wildcarded"},
    {sjf2_confirm_job, "sjf2_confirm_job"}, {sjf2_programmatic_job, "sjf2_programmatic_job"},
    {sjf2_wait_for_taskherd, "sjf2_wait_for_taskherd"}, {sjf2_sched_same_cpu, "sjf2_sched_same_cpu"},
    {sjf2_is_command, "sjf2_is_command"}, {sjf2_long_jcl, "sjf2_long_jcl"}, {sjf2_cancel_pend, "sjf2_cancel_pend"},
    {sjf2_replicated, "sjf2_replicated"},
};
inline constexpr FlagName kJobReFlagNames[] = {
    {sjrf_type1, "sjrf_type1"}, {sjrf_type2, "sjrf_type2"}, {sjrf_step, "sjrf_step"},
    {sjrf_gen_msg, "sjrf_gen_msg"}, {sjrf_held_by_user, "sjrf_held_by_user"},
    {sjrf_interactive, "sjrf_interactive"}, {sjrf_external, "sjrf_external"}, {sjrf_is_mpe_job, "sjrf_is_mpe_job"},
};

//   field                  V2: offset size type     V1: offset size type
inline constexpr FieldSpec kJobFields[] = {
    ALM_ROW(SJ, alm_rec_type, 0, 2, i16, 0, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SJ, sj_status, 2, 2, i16, 18, 2, i16).sent(Wire::big_endian).show("status", 4, Show::status),
    ALM_ROW2(SJ, sj_filler2, 4, 2, i16).sent(Wire::as_delivered),
    ALM_ROW2(SJ, sj_rec_version, 6, 2, i16).sent(Wire::as_delivered).widen_to(0),
    ALM_ROW(SJ, sj_rec_num, 8, 4, u32, 132, 2, u16).sent(Wire::big_endian).show("rec_num", 5),
    ALM_ROW2(SJ, sj_cont_rec, 12, 4, u32).sent(Wire::as_delivered).link(),
    ALM_ROW(SJ, sj_cpu_id, 16, 16, text, 2, 8, text).sent(Wire::as_delivered).show("cpu", 1),
    ALM_ROW(SJ, sj_job_name, 32, 40, text, 10, 8, text).sent(Wire::as_delivered).show("job", 3),
    ALM_ROW(SJ, sj_job_pri, 72, 2, bytes, 20, 2, bytes).sent(Wire::as_delivered),
    ALM_ROW(SJ, sj_job_pri.priority, 72, 1, u8, 20, 1, u8).sent(Wire::as_delivered).member().show("priority", 7),
    ALM_ROW(SJ, sj_job_pri.orig_pri, 73, 1, u8, 21, 1, u8).sent(Wire::as_delivered).member(),
    ALM_ROW(SJ, sj_schedule, 74, 16, text, 48, 8, text).sent(Wire::as_delivered).show("sched", 2),
    ALM_ROW(SJ, sj_job_user, 90, 48, text, 76, 8, text).sent(Wire::as_delivered).show("user", 8),
    ALM_ROW(SJ, sj_job_acct, 138, 8, text, 84, 8, text).sent(Wire::as_delivered),
    ALM_ROW(SJ, sj_job_group, 146, 8, text, 92, 8, text).sent(Wire::as_delivered),
    ALM_ROW(SJ, sj_every_hhmm, 154, 2, i16, 22, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SJ, sj_until_time, 156, 2, i16, 62, 2, i16).sent(Wire::as_delivered, Wire::big_endian),
    ALM_ROW(SJ, sj_flags2, 158, 2, u16, 66, 2, u16).sent(Wire::big_endian).flags("flags2", 19, kJobFlag2Names),
    ALM_ROW(SJ, sj_flags, 160, 2, u16, 100, 2, u16).sent(Wire::big_endian).flags("flags", 18, kJobFlagNames),
    ALM_ROW(SJ, sj_re_flags, 162, 2, u16, 104, 2, u16).sent(Wire::big_endian).flags("re_flags", 20, kJobReFlagNames),
    ALM_ROW(SJ, sj_start_time, 164, 2, i16, 128, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SJ, sj_time_started, 166, 2, i16, 130, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SJ, sj_num_depends, 168, 2, i16, 134, 2, i16).sent(Wire::big_endian),
    ALM_ROW2(SJ, sj_filler3, 170, 2, i16).sent(Wire::as_delivered),
    ALM_ROW(SJ, sj_fname_jname, 172, 40, bytes, 24, 24, bytes).sent(Wire::as_delivered).by_flags(),
    ALM_ROW_AS(SJ, "real_name", sj_fname_jname.userjob.real_name, 172, 40, text,
               sj_fname_jname.userjob.real_name, 40, 8, text).sent(Wire::as_delivered).member(Variant::alias),
    ALM_ROW_AS(SJ, "jcl_file", sj_fname_jname.jcl_file, 172, 24, text,
               sj_fname_jname.jcl_file, 24, 24, text).sent(Wire::as_delivered).view(Variant::jcl_file),
    ALM_ROW_AS(SJ, "jcl_filler", sj_fname_jname.jcl_string.jcl_filler, 172, 32, text,
               sj_fname_jname.jcl_string.jcl_filler, 24, 20, text).sent(Wire::as_delivered).view(Variant::long_jcl),
    ALM_ROW_AS(SJ, "jcl_loc.st_offset", sj_fname_jname.jcl_string.jcl_loc.st_offset, 204, 4, u32,
               sj_fname_jname.jcl_string.jcl_loc.st_offset, 44, 2, u16).sent(Wire::as_delivered).view(Variant::long_jcl),
    ALM_ROW_AS(SJ, "jcl_loc.st_rec_num", sj_fname_jname.jcl_string.jcl_loc.st_rec_num, 208, 4, u32,
               sj_fname_jname.jcl_string.jcl_loc.st_rec_num, 46, 2, u16).sent(Wire::as_delivered).view(Variant::long_jcl),
    ALM_ROW(SJ, sj_sched_ptr, 212, 4, u32, 64, 2, u16).sent(Wire::low_half).link().show("sched_rec", 9),
    ALM_ROW(SJ, sj_prev_job_ptr, 216, 4, u32, 68, 2, u16).sent(Wire::low_half).link().show("prev", 10),
    ALM_ROW(SJ, sj_next_job_ptr, 220, 4, u32, 70, 2, u16).sent(Wire::low_half).link().show("next", 11),
    ALM_ROW(SJ, sj_re_job_ptr, 224, 4, u32, 102, 2, u16).sent(Wire::low_half).link().show("re_job", 13),
    ALM_ROW(SJ, sj_re_prmpt_ptr, 228, 4, u32, 106, 2, u16).sent(Wire::low_half).link().show("re_prompt", 14),
    ALM_ROW(SJ, sj_restart_ptr, 232, 4, u32, 108, 2, u16).sent(Wire::low_half).link().show("restart", 12),
    ALM_ROW_AS(SJ, "sj_rec_ptrs", sj_rec_ptrs.current_job, 236, 4, u32,
               sj_rec_ptrs.current_job, 110, 2, u16).sent(Wire::low_half, Wire::low_half_twice).link(),
    ALM_ROW_AS(SJ, "current_job", sj_rec_ptrs.current_job, 236, 4, u32,
               sj_rec_ptrs.current_job, 110, 2, u16).sent(Wire::low_half, Wire::low_half_twice).view(),
    ALM_ROW_AS(SJ, "head_job", sj_rec_ptrs.head_job, 236, 4, u32,
               sj_rec_ptrs.head_job, 110, 2, u16).sent(Wire::low_half, Wire::low_half_twice).view(),
    ALM_ROW(SJ, sj_until_date, 240, 4, i32, 60, 2, cal).sent(Wire::big_endian).date("sj_until_time").show("until", 16),
    ALM_ROW(SJ, sj_sched_date, 244, 4, i32, 112, 4, yymmdd).sent(Wire::big_endian).date("sj_start_time").show("sched_date", 15),
    ALM_ROW(SJ, sj_date_started, 248, 4, i32, 116, 4, yymmdd).sent(Wire::big_endian).date("sj_time_started").show("started", 17),
    ALM_ROW(SJ, sj_elapse_time, 252, 4, i32, 120, 4, i32).sent(Wire::big_endian),
    ALM_ROW(SJ, sj_est_elapse, 256, 4, i32, 124, 4, i32).sent(Wire::big_endian),
    ALM_ROW(SJ, sj_cpu_time, 260, 4, i32, 56, 4, i32).sent(Wire::big_endian),
    ALM_ROW(SJ, sj_job_number, 264, 4, i32, 72, 4, i32).sent(Wire::big_endian).show("job_number", 6),
    ALM_ROW(SJ, subdep, 268, 200, bytes, 136, 120, bytes).sent(Wire::as_delivered).by_flags(),
    ALM_ROW_AS(SJ, "sj_depend_flags", subdep.deps.sj_depend_flags, 268, 40, u8,
               subdep.deps.sj_depend_flags, 136, 40, u8).sent(Wire::as_delivered).member(Variant::deps),
    ALM_ROW_AS(SJ, "sj_dependencies", subdep.deps.sj_dependencies, 308, 160, u32,
               subdep.deps.sj_dependencies, 176, 80, u16).sent(Wire::as_delivered, Wire::dep_entries).member(Variant::deps).show("deps", 24, Show::deps),
    ALM_ROW_AS(SJ, "sj_re_for_cpu", subdep.submit.sj_re_for_cpu, 268, 16, text,
               subdep.submit.sj_re_for_cpu, 136, 8, text).sent(Wire::as_delivered).view(Variant::submit).show("re_for_cpu", 21),
    ALM_ROW_AS(SJ, "sj_re_for_job", subdep.submit.sj_re_for_job, 284, 40, text,
               subdep.submit.sj_re_for_job, 144, 8, text).sent(Wire::as_delivered).view(Variant::submit).show("re_for_job", 22),
    ALM_ROW_AS(SJ, "xkes_id", subdep.xkes_id, 268, 64, text, subdep.xkes_id, 136, 64, text).sent(Wire::as_delivered).view(Variant::external).show("external_id", 23),
    ALM_ROW2(SJ, sj_filler1, 468, 44, i16).sent(Wire::as_delivered),
};
static_assert(first_disagreeing_row(kJobFields, sizeof(SJ_RECTYPE), sizeof(SJ_RECTYPE_V1)) < 0);

}  // namespace alm
