// The schedule record: a schedule: its jobs' chain, counts, dates and dependencies. Its V2 and V1 layouts and its table of
// fields, one row per field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "plan/fieldrow.h"
#include "plan/record_basics.h"

namespace alm {

struct SS_RECTYPE {
    std::int16_t alm_rec_type;
    std::int16_t ss_status;
    std::int16_t ss_filler1;
    std::int16_t ss_rec_version;
    std::uint32_t ss_rec_num;
    std::uint32_t ss_cont_rec;
    char ss_cpu_id[16];
    char ss_sched_name[16];
    std::int16_t ss_num_recs;
    std::int16_t ss_num_jobs;
    std::int16_t ss_num_succ;
    char ss_orig_sched[16];
    PRIORITYREC ss_sched_pri;
    std::int16_t ss_spare_word12;
    std::int16_t ss_calc_num;
    std::int16_t ss_num_notrun;
    std::int16_t ss_num_exec;
    std::int16_t ss_num_abend;
    std::int16_t ss_num_failed;
    std::int16_t ss_until_time;
    std::int16_t ss_filler6;
    std::int32_t ss_cpu_time;
    std::int32_t ss_until_date;
    std::uint32_t ss_first_job;
    std::uint32_t ss_last_job;
    std::uint32_t ss_prev_sch_ptr;
    std::uint32_t ss_next_sch_ptr;
    std::int32_t ss_job_number;
    std::uint32_t ss_dependencies[40];
    std::int16_t ss_limit;
    char ss_cpuclass_id[16];
    std::int16_t ss_spare_word15;
    std::int16_t ss_num_skel;
    std::int16_t ss_filler2[7];
    std::uint16_t ss_flags;
    std::int16_t ss_filler3;
    std::int16_t ss_re_flags;
    std::int16_t ss_filler4;
    std::int16_t ss_restart_ptr;
    std::int16_t ss_restart_from;
    std::int32_t ss_prod_date;
    std::int32_t ss_sched_date;
    std::int32_t ss_date_started;
    std::int32_t ss_elapse_time;
    std::int32_t ss_est_elapse;
    std::int16_t ss_num_depends;
    std::int16_t ss_start_time;
    std::int16_t ss_time_started;
    std::uint8_t ss_depend_flags[40];
    std::int16_t ss_filler5[61];
};

struct SS_RECTYPE_V1 {
    std::int16_t alm_rec_type;
    char ss_cpu_id[8];
    char ss_sched_name[8];
    std::int16_t ss_status;
    PRIORITYREC ss_sched_pri;
    std::int16_t ss_spare_word12;
    std::int16_t ss_num_recs;
    std::int16_t ss_num_jobs;
    std::int16_t ss_num_succ;
    std::int16_t ss_spare_word15;
    std::int32_t ss_prod_date;
    char ss_orig_sched[8];
    std::int16_t ss_calc_num;
    std::int16_t ss_num_notrun;
    std::int16_t ss_num_exec;
    std::int16_t ss_num_abend;
    std::int16_t ss_num_failed;
    std::int16_t ss_num_skel;
    std::int32_t ss_cpu_time;
    std::uint16_t ss_until_date;
    std::int16_t ss_until_time;
    std::uint16_t ss_first_job;
    std::uint16_t ss_last_job;
    std::uint16_t ss_prev_sch_ptr;
    std::uint16_t ss_next_sch_ptr;
    std::int32_t ss_job_number;
    std::int16_t ss_limit;
    char ss_cpuclass_id[8];
    std::int16_t ss_filler2[7];
    std::uint16_t ss_flags;
    std::int16_t ss_filler3;
    std::int16_t ss_re_flags;
    std::int16_t ss_filler4;
    std::int16_t ss_restart_ptr;
    std::int16_t ss_restart_from;
    std::int32_t ss_sched_date;
    std::int32_t ss_date_started;
    std::int32_t ss_elapse_time;
    std::int32_t ss_est_elapse;
    std::int16_t ss_start_time;
    std::int16_t ss_time_started;
    std::uint16_t ss_rec_num;
    std::int16_t ss_num_depends;
    std::uint8_t ss_depend_flags[40];
    std::uint16_t ss_dependencies[40];
};

inline constexpr FlagName kScheduleFlagNames[] = {
    {ssf_in_order, "ssf_in_order"}, {ssf_replicated, "ssf_replicated"}, {ssf_carried_fwd, "ssf_carried_fwd"},
    {ssf_carry_fwd, "ssf_carry_fwd"}, {ssf_dont_touch, "ssf_dont_touch"}, {ssf_until_used, "ssf_until_used"},
    {ssf_user_jobs, "ssf_user_jobs"}, {ssf_this_cpu, "ssf_this_cpu"}, {ssf_external, "ssf_external"},
    {ssf_free_2, "ssf_free_2"}, {ssf_needs_rsrc, "ssf_needs_rsrc"}, {ssf_has_rsrc, "ssf_has_rsrc"},
    {ssf_released, "ssf_released"}, {ssf_cancelled, "ssf_cancelled"}, {ssf_cancel_pend, "ssf_cancel_pend"},
    {ssf_every, "ssf_every"},
};
inline constexpr FlagName kScheduleReFlagNames[] = {{ssrf_held_by_user, "ssrf_held_by_user"}};

//   field                  V2: offset size type     V1: offset size type
inline constexpr FieldSpec kScheduleFields[] = {
    ALM_ROW(SS, alm_rec_type, 0, 2, i16, 0, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SS, ss_status, 2, 2, i16, 18, 2, i16).sent(Wire::big_endian).show("status", 3, Show::status),
    ALM_ROW2(SS, ss_filler1, 4, 2, i16).sent(Wire::as_delivered),
    ALM_ROW2(SS, ss_rec_version, 6, 2, i16).sent(Wire::as_delivered).widen_to(0),
    ALM_ROW(SS, ss_rec_num, 8, 4, u32, 132, 2, u16).sent(Wire::big_endian).show("rec_num", 4),
    ALM_ROW2(SS, ss_cont_rec, 12, 4, u32).sent(Wire::as_delivered).link(),
    ALM_ROW(SS, ss_cpu_id, 16, 16, text, 2, 8, text).sent(Wire::as_delivered).show("cpu", 1),
    ALM_ROW(SS, ss_sched_name, 32, 16, text, 10, 8, text).sent(Wire::as_delivered).show("sched", 2),
    ALM_ROW(SS, ss_num_recs, 48, 2, i16, 24, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SS, ss_num_jobs, 50, 2, i16, 26, 2, i16).sent(Wire::big_endian).show("jobs", 6),
    ALM_ROW(SS, ss_num_succ, 52, 2, i16, 28, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SS, ss_orig_sched, 54, 16, text, 36, 8, text).sent(Wire::as_delivered),
    ALM_ROW(SS, ss_sched_pri, 70, 2, bytes, 20, 2, bytes).sent(Wire::as_delivered),
    ALM_ROW(SS, ss_sched_pri.priority, 70, 1, u8, 20, 1, u8).sent(Wire::as_delivered).member().show("priority", 5),
    ALM_ROW(SS, ss_sched_pri.orig_pri, 71, 1, u8, 21, 1, u8).sent(Wire::as_delivered).member(),
    ALM_ROW(SS, ss_spare_word12, 72, 2, i16, 22, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SS, ss_calc_num, 74, 2, i16, 44, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SS, ss_num_notrun, 76, 2, i16, 46, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SS, ss_num_exec, 78, 2, i16, 48, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SS, ss_num_abend, 80, 2, i16, 50, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SS, ss_num_failed, 82, 2, i16, 52, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SS, ss_until_time, 84, 2, i16, 62, 2, i16).sent(Wire::big_endian),
    ALM_ROW2(SS, ss_filler6, 86, 2, i16).sent(Wire::as_delivered),
    ALM_ROW(SS, ss_cpu_time, 88, 4, i32, 56, 4, i32).sent(Wire::big_endian),
    ALM_ROW(SS, ss_until_date, 92, 4, i32, 60, 2, cal).sent(Wire::big_endian).date("ss_until_time").show("until", 13),
    ALM_ROW(SS, ss_first_job, 96, 4, u32, 64, 2, u16).sent(Wire::low_half).link().show("first_job", 7),
    ALM_ROW(SS, ss_last_job, 100, 4, u32, 66, 2, u16).sent(Wire::low_half).link().show("last_job", 8),
    ALM_ROW(SS, ss_prev_sch_ptr, 104, 4, u32, 68, 2, u16).sent(Wire::low_half).link().show("prev", 9),
    ALM_ROW(SS, ss_next_sch_ptr, 108, 4, u32, 70, 2, u16).sent(Wire::low_half).link().show("next", 10),
    ALM_ROW(SS, ss_job_number, 112, 4, i32, 72, 4, i32).sent(Wire::big_endian),
    ALM_ROW(SS, ss_dependencies, 116, 160, u32, 176, 80, u16).sent(Wire::as_delivered, Wire::dep_entries).show("deps", 17, Show::deps),
    ALM_ROW(SS, ss_limit, 276, 2, i16, 76, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SS, ss_cpuclass_id, 278, 16, text, 78, 8, text).sent(Wire::as_delivered),
    ALM_ROW(SS, ss_spare_word15, 294, 2, i16, 30, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SS, ss_num_skel, 296, 2, i16, 54, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SS, ss_filler2, 298, 14, i16, 86, 14, i16).sent(Wire::as_delivered),
    ALM_ROW(SS, ss_flags, 312, 2, u16, 100, 2, u16).sent(Wire::big_endian).flags("flags", 15, kScheduleFlagNames),
    ALM_ROW(SS, ss_filler3, 314, 2, i16, 102, 2, i16).sent(Wire::as_delivered),
    ALM_ROW(SS, ss_re_flags, 316, 2, i16, 104, 2, i16).sent(Wire::big_endian).flags("re_flags", 16, kScheduleReFlagNames),
    ALM_ROW(SS, ss_filler4, 318, 2, i16, 106, 2, i16).sent(Wire::as_delivered),
    ALM_ROW(SS, ss_restart_ptr, 320, 2, i16, 108, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SS, ss_restart_from, 322, 2, i16, 110, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SS, ss_prod_date, 324, 4, i32, 32, 4, yymmdd).sent(Wire::big_endian).date().show("prod_date", 11),
    ALM_ROW(SS, ss_sched_date, 328, 4, i32, 112, 4, yymmdd).sent(Wire::big_endian).date("ss_start_time").show("sched_date", 12),
    ALM_ROW(SS, ss_date_started, 332, 4, i32, 116, 4, yymmdd).sent(Wire::big_endian).date("ss_time_started").show("started", 14),
    ALM_ROW(SS, ss_elapse_time, 336, 4, i32, 120, 4, i32).sent(Wire::big_endian),
    ALM_ROW(SS, ss_est_elapse, 340, 4, i32, 124, 4, i32).sent(Wire::big_endian),
    ALM_ROW(SS, ss_num_depends, 344, 2, i16, 134, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SS, ss_start_time, 346, 2, i16, 128, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SS, ss_time_started, 348, 2, i16, 130, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SS, ss_depend_flags, 350, 40, u8, 136, 40, u8).sent(Wire::as_delivered),
    ALM_ROW2(SS, ss_filler5, 390, 122, i16).sent(Wire::as_delivered),
};
static_assert(first_disagreeing_row(kScheduleFields, sizeof(SS_RECTYPE), sizeof(SS_RECTYPE_V1)) < 0);

}  // namespace alm
