// The header record: the plan header: the plan's names, dates, counts and the ends of every chain. Its V2 and V1 layouts and its table of
// fields, one row per field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "plan/fieldrow.h"
#include "plan/record_basics.h"

namespace alm {

struct SH_RECTYPE {
    std::int16_t alm_rec_type;
    std::int16_t sh_status;
    std::int16_t sh_filler5;
    std::int16_t sh_rec_version;
    std::uint32_t sh_rec_num;
    std::uint32_t sh_cont_rec;
    char sh_cpu_id[16];
    char sh_mast_cpu[16];
    std::uint32_t sh_first_sched;
    std::uint32_t sh_last_sched;
    std::uint32_t sh_first_msg;
    std::uint32_t sh_last_msg;
    std::uint32_t sh_num_recs;
    std::uint32_t sh_first_file;
    std::uint32_t sh_last_file;
    std::uint32_t sh_first_resource;
    std::uint32_t sh_last_resource;
    std::uint32_t sh_first_cal;
    std::uint32_t sh_last_cal;
    std::uint32_t sh_first_cpu;
    std::uint32_t sh_last_cpu;
    std::uint32_t sh_first_st;
    std::uint32_t sh_last_st;
    std::uint32_t sh_first_super;
    std::uint32_t sh_last_super;
    std::int32_t sh_console;
    std::int32_t sh_last_date;
    std::int32_t sh_sched_date;
    std::int32_t sh_date_started;
    std::int32_t sh_elapse_time;
    std::uint32_t sh_first_domain;
    std::uint32_t sh_last_domain;
    std::uint16_t sh_flags;
    std::int16_t sh_num_domains;
    std::int16_t sh_num_msgs;
    std::int16_t sh_num_scheds;
    std::int16_t sh_num_depends;
    std::int16_t sh_version;
    std::int16_t sh_run_number;
    std::int16_t sh_cons_level;
    std::int16_t sh_day_start;
    std::int16_t sh_num_sts;
    std::int16_t sh_num_cpus;
    std::int16_t sh_num_cals;
    std::int16_t sh_num_resources;
    std::int16_t sh_num_userjobs;
    std::int16_t sh_num_files;
    std::int16_t sh_num_super;
    std::int16_t sh_cpu_limit;
    std::int16_t sh_job_fence;
    std::int16_t sh_filler2;
    std::int16_t sh_filler1[8];
    std::int16_t sh_audit_level;
    std::int16_t sh_last_time;
    std::int16_t sh_time_started;
    char sh_cons_session[32];
    char sh_mast_domain[16];
    std::uint16_t sh_flags2;
    std::int16_t sh_alm_version;
    char sh_filler3[256];
};

struct SH_RECTYPE_V1 {
    std::int16_t alm_rec_type;
    char sh_cpu_id[8];
    char sh_mast_cpu[8];
    std::int16_t sh_status;
    std::uint16_t sh_first_sched;
    std::uint16_t sh_last_sched;
    std::int16_t sh_num_scheds;
    std::uint16_t sh_first_msg;
    std::uint16_t sh_last_msg;
    std::int16_t sh_num_msgs;
    std::uint16_t sh_num_recs;
    std::int16_t sh_num_depends;
    std::int16_t sh_version;
    std::int16_t sh_run_number;
    std::int32_t sh_console;
    std::int16_t sh_cons_level;
    std::int16_t sh_day_start;
    std::uint16_t sh_first_file;
    std::uint16_t sh_last_file;
    std::int16_t sh_num_files;
    std::uint16_t sh_first_resource;
    std::uint16_t sh_last_resource;
    std::int16_t sh_num_resources;
    std::int16_t sh_num_userjobs;
    std::uint16_t sh_flags;
    std::uint16_t sh_first_cal;
    std::uint16_t sh_last_cal;
    std::int16_t sh_num_cals;
    std::uint16_t sh_first_cpu;
    std::uint16_t sh_last_cpu;
    std::int16_t sh_num_cpus;
    std::uint16_t sh_first_st;
    std::uint16_t sh_last_st;
    std::uint16_t sh_num_sts;
    std::uint16_t sh_first_super;
    std::uint16_t sh_last_super;
    std::uint16_t sh_num_super;
    std::uint16_t sh_first_domain;
    std::uint16_t sh_last_domain;
    std::int16_t sh_num_domains;
    std::int16_t sh_filler1[5];
    std::int16_t sh_audit_level;
    std::int16_t sh_last_time;
    std::int32_t sh_last_date;
    std::int32_t sh_sched_date;
    std::int32_t sh_date_started;
    std::int32_t sh_elapse_time;
    std::int16_t sh_time_started;
    std::int16_t sh_cpu_limit;
    std::int16_t sh_job_fence;
    std::int16_t sh_filler2;
    std::uint16_t sh_rec_num;
    char sh_cons_session[32];
    char sh_mast_domain[8];
    std::uint16_t sh_flags2;
    char sh_filler3[78];
    std::int16_t sh_alm_version;
};

inline constexpr FlagName kHeaderFlagNames[] = {
    {shf_do_userjobs, "shf_do_userjobs"}, {shf_zero_pri, "shf_zero_pri"},
    {shf_rr_same_name, "shf_rr_same_name"}, {shf_have_cals, "shf_have_cals"},
    {shf_rules, "shf_rules"}, {shf_carried_fwd, "shf_carried_fwd"},
    {shf_ap_userjobs, "shf_ap_userjobs"}, {shf_purge_jobs, "shf_purge_jobs"},
    {shf_programmatic_jobs, "shf_programmatic_jobs"}, {shf_quillon_excl, "shf_quillon_excl"},
    {shf_st_supported, "shf_st_supported"}, {shf_almanack_is_old, "shf_almanack_is_old"},
    {shf_have_external_jobs, "shf_have_external_jobs"}, {shf_switch_mgr, "shf_switch_mgr"},
    {shf_empty_succ, "shf_empty_succ"}, {shf_grant_logon_batch, "shf_grant_logon_batch"},
};
inline constexpr FlagName kHeaderFlag2Names[] = {
    {shf_postrunner_NOT_inited, "shf_postrunner_NOT_inited"}, {shf_NOT_fully_inited, "shf_NOT_fully_inited"},
};

//   field                  V2: offset size type     V1: offset size type
inline constexpr FieldSpec kHeaderFields[] = {
    ALM_ROW(SH, alm_rec_type, 0, 2, i16, 0, 2, i16),
    ALM_ROW(SH, sh_status, 2, 2, i16, 18, 2, i16),
    ALM_ROW2(SH, sh_filler5, 4, 2, i16),
    ALM_ROW2(SH, sh_rec_version, 6, 2, i16).widen_to(0),
    ALM_ROW(SH, sh_rec_num, 8, 4, u32, 132, 2, u16),
    ALM_ROW2(SH, sh_cont_rec, 12, 4, u32).link().widen_to(NULL_REC),
    ALM_ROW(SH, sh_cpu_id, 16, 16, text, 2, 8, text).show("cpu", 2),
    ALM_ROW(SH, sh_mast_cpu, 32, 16, text, 10, 8, text).show("master", 3),
    ALM_ROW(SH, sh_first_sched, 48, 4, u32, 20, 2, u16).link().show("first_sched", 16),
    ALM_ROW(SH, sh_last_sched, 52, 4, u32, 22, 2, u16).link().show("last_sched", 17),
    ALM_ROW(SH, sh_first_msg, 56, 4, u32, 26, 2, u16).link().show("first_msg", 18),
    ALM_ROW(SH, sh_last_msg, 60, 4, u32, 28, 2, u16).link().show("last_msg", 19),
    ALM_ROW(SH, sh_num_recs, 64, 4, u32, 32, 2, u16).show("records", 5),
    ALM_ROW(SH, sh_first_file, 68, 4, u32, 48, 2, u16).link().show("first_file", 20),
    ALM_ROW(SH, sh_last_file, 72, 4, u32, 50, 2, u16).link().show("last_file", 21),
    ALM_ROW(SH, sh_first_resource, 76, 4, u32, 54, 2, u16).link().show("first_resource", 22),
    ALM_ROW(SH, sh_last_resource, 80, 4, u32, 56, 2, u16).link().show("last_resource", 23),
    ALM_ROW(SH, sh_first_cal, 84, 4, u32, 64, 2, u16).link().show("first_cal", 24),
    ALM_ROW(SH, sh_last_cal, 88, 4, u32, 66, 2, u16).link().show("last_cal", 25),
    ALM_ROW(SH, sh_first_cpu, 92, 4, u32, 70, 2, u16).link().show("first_cpu", 12),
    ALM_ROW(SH, sh_last_cpu, 96, 4, u32, 72, 2, u16).link().show("last_cpu", 13),
    ALM_ROW(SH, sh_first_st, 100, 4, u32, 76, 2, u16).link().show("first_st", 26),
    ALM_ROW(SH, sh_last_st, 104, 4, u32, 78, 2, u16).link().show("last_st", 27),
    ALM_ROW(SH, sh_first_super, 108, 4, u32, 82, 2, u16).link(),
    ALM_ROW(SH, sh_last_super, 112, 4, u32, 84, 2, u16).link(),
    ALM_ROW(SH, sh_console, 116, 4, i32, 40, 4, i32),
    ALM_ROW(SH, sh_last_date, 120, 4, i32, 108, 4, yymmdd).date("sh_last_time", DateKind::day_midnight).show("last", 10),
    ALM_ROW(SH, sh_sched_date, 124, 4, i32, 112, 4, yymmdd).date().show("sched_date", 9),
    ALM_ROW(SH, sh_date_started, 128, 4, i32, 116, 4, yymmdd).date("sh_time_started").show("started", 11),
    ALM_ROW(SH, sh_elapse_time, 132, 4, i32, 120, 4, i32),
    ALM_ROW(SH, sh_first_domain, 136, 4, u32, 88, 2, u16).link().show("first_domain", 14),
    ALM_ROW(SH, sh_last_domain, 140, 4, u32, 90, 2, u16).link().show("last_domain", 15),
    ALM_ROW(SH, sh_flags, 144, 2, u16, 62, 2, u16).flags("flags", 34, kHeaderFlagNames),
    ALM_ROW(SH, sh_num_domains, 146, 2, i16, 92, 2, i16),
    ALM_ROW(SH, sh_num_msgs, 148, 2, i16, 30, 2, i16).show("msgs", 30),
    ALM_ROW(SH, sh_num_scheds, 150, 2, i16, 24, 2, i16).show("scheds", 29),
    ALM_ROW(SH, sh_num_depends, 152, 2, i16, 34, 2, i16),
    ALM_ROW(SH, sh_version, 154, 2, i16, 36, 2, i16),
    ALM_ROW(SH, sh_run_number, 156, 2, i16, 38, 2, i16).show("run", 6),
    ALM_ROW(SH, sh_cons_level, 158, 2, i16, 44, 2, i16),
    ALM_ROW(SH, sh_day_start, 160, 2, i16, 46, 2, i16).show("day_start", 7),
    ALM_ROW(SH, sh_num_sts, 162, 2, i16, 80, 2, u16),
    ALM_ROW(SH, sh_num_cpus, 164, 2, i16, 74, 2, i16).show("cpus", 28),
    ALM_ROW(SH, sh_num_cals, 166, 2, i16, 68, 2, i16).show("cals", 33),
    ALM_ROW(SH, sh_num_resources, 168, 2, i16, 58, 2, i16).show("resources", 32),
    ALM_ROW(SH, sh_num_userjobs, 170, 2, i16, 60, 2, i16),
    ALM_ROW(SH, sh_num_files, 172, 2, i16, 52, 2, i16).show("files", 31),
    ALM_ROW(SH, sh_num_super, 174, 2, i16, 86, 2, u16),
    ALM_ROW(SH, sh_cpu_limit, 176, 2, i16, 126, 2, i16),
    ALM_ROW(SH, sh_job_fence, 178, 2, i16, 128, 2, i16).show("job_fence", 8),
    ALM_ROW(SH, sh_filler2, 180, 2, i16, 130, 2, i16),
    ALM_ROW(SH, sh_filler1, 182, 16, i16, 94, 10, i16),
    ALM_ROW(SH, sh_audit_level, 198, 2, i16, 104, 2, i16),
    ALM_ROW(SH, sh_last_time, 200, 2, i16, 106, 2, i16),
    ALM_ROW(SH, sh_time_started, 202, 2, i16, 124, 2, i16),
    ALM_ROW(SH, sh_cons_session, 204, 32, text, 134, 32, text),
    ALM_ROW(SH, sh_mast_domain, 236, 16, text, 166, 8, text).show("master_domain", 4),
    ALM_ROW(SH, sh_flags2, 252, 2, u16, 174, 2, u16).flags("flags2", 35, kHeaderFlag2Names),
    ALM_ROW(SH, sh_alm_version, 254, 2, i16, 254, 2, i16).show("version", 1),
    ALM_ROW(SH, sh_filler3, 256, 256, text, 176, 78, text),
};
static_assert(first_disagreeing_row(kHeaderFields, sizeof(SH_RECTYPE), sizeof(SH_RECTYPE_V1)) < 0);

}  // namespace alm
