// The workstation record: a workstation of the plan. Its V2 and V1 layouts and its table of
// fields, one row per field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "plan/fieldrow.h"
#include "plan/record_basics.h"

namespace alm {

struct SCI_RECTYPE {
    std::int16_t alm_rec_type;
    std::int16_t sci_status;
    std::int16_t sci_filler6;
    std::int16_t sci_rec_version;
    std::uint32_t sci_rec_num;
    std::uint32_t sci_cont_rec;
    char sci_cpu_id[16];
    char sci_host_cpu[16];
    std::uint32_t sci_first_sched;
    std::int32_t sci_console;
    std::int32_t sci_date_started;
    std::int32_t sci_elapse_time;
    std::uint16_t sci_marshal_flags;
    std::int16_t sci_mpe_fence;
    std::int16_t sci_mpe_limit;
    char sci_access_method[40];
    std::int16_t sci_filler2;
    std::int16_t sci_run_number;
    std::int16_t sci_cons_level;
    std::int16_t sci_filler3;
    char sci_node_name[52];
    std::int16_t sci_filler4[8];
    std::int16_t sci_time_started;
    std::int16_t sci_cpu_limit;
    std::int16_t sci_job_fence;
    std::int16_t sci_requested;
    std::uint16_t sci_flags;
    std::uint32_t sci_prev_cpu_ptr;
    std::uint32_t sci_next_cpu_ptr;
    std::uint32_t sci_prev_domain_ptr;
    std::uint32_t sci_next_domain_ptr;
    std::int32_t sci_dblnk_recnum;
    std::int32_t sci_node_addr;
    char sci_cpu_type[4];
    std::int16_t sci_link_type;
    std::int16_t sci_server;
    std::int16_t sci_node_type;
    char sci_kestrel_version[8];
    std::int16_t sci_filler7[4];
    char sci_user_info[64];
    char sci_domain_name[16];
    char sci_domain_parent[16];
    char sci_timezone_id[40];
    std::int16_t sci_filler5[65];
};

struct SCI_RECTYPE_V1 {
    std::int16_t alm_rec_type;
    char sci_cpu_id[8];
    char sci_host_cpu[8];
    std::int16_t sci_status;
    std::uint16_t sci_first_sched;
    std::uint16_t sci_marshal_flags;
    std::int16_t sci_mpe_fence;
    std::int16_t sci_mpe_limit;
    char sci_access_method[8];
    std::int16_t sci_filler2;
    std::int16_t sci_run_number;
    std::int32_t sci_console;
    std::int16_t sci_cons_level;
    std::int16_t sci_filler3;
    char sci_node_name[52];
    std::int16_t sci_filler4[4];
    std::int16_t sci_filler7[2];
    std::uint16_t sci_prev_domain_ptr;
    std::uint16_t sci_next_domain_ptr;
    std::int32_t sci_date_started;
    std::int32_t sci_elapse_time;
    std::int16_t sci_time_started;
    std::int16_t sci_cpu_limit;
    std::int16_t sci_job_fence;
    std::int16_t sci_requested;
    std::uint16_t sci_rec_num;
    std::uint16_t sci_prev_cpu_ptr;
    std::uint16_t sci_next_cpu_ptr;
    std::uint16_t sci_flags;
    std::int32_t sci_dblnk_recnum;
    std::int32_t sci_node_addr;
    char sci_cpu_type[4];
    std::int16_t sci_link_type;
    std::int16_t sci_server;
    std::int16_t sci_node_type;
    char sci_kestrel_version[8];
    char sci_timezone_id[8];
    char sci_user_info[64];
    char sci_domain_name[8];
    char sci_domain_parent[8];
    char sci_filler5[2];
};

inline constexpr FlagName kWorkstationFlagNames[] = {
    {scif_full_status, "scif_full_status"}, {scif_auto_link, "scif_auto_link"},
    {scif_resolve_deps, "scif_resolve_deps"},
};

//   field                  V2: offset size type     V1: offset size type
inline constexpr FieldSpec kWorkstationFields[] = {
    ALM_ROW(SCI, alm_rec_type, 0, 2, i16, 0, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SCI, sci_status, 2, 2, i16, 18, 2, i16).sent(Wire::big_endian).show("status", 5),
    ALM_ROW2(SCI, sci_filler6, 4, 2, i16).sent(Wire::as_delivered),
    ALM_ROW2(SCI, sci_rec_version, 6, 2, i16).sent(Wire::as_delivered).widen_to(0),
    ALM_ROW(SCI, sci_rec_num, 8, 4, u32, 132, 2, u16).sent(Wire::low_half).show("rec_num", 6),
    ALM_ROW2(SCI, sci_cont_rec, 12, 4, u32).sent(Wire::as_delivered).link(),
    ALM_ROW(SCI, sci_cpu_id, 16, 16, text, 2, 8, text).sent(Wire::as_delivered).show("cpu", 1),
    ALM_ROW(SCI, sci_host_cpu, 32, 16, text, 10, 8, text).sent(Wire::as_delivered).show("host", 2),
    ALM_ROW(SCI, sci_first_sched, 48, 4, u32, 20, 2, u16).sent(Wire::low_half).link().show("first_sched", 11),
    ALM_ROW(SCI, sci_console, 52, 4, i32, 40, 4, i32).sent(Wire::big_endian),
    ALM_ROW(SCI, sci_date_started, 56, 4, i32, 116, 4, i32).sent(Wire::big_endian).date("sci_time_started").show("started", 12),
    ALM_ROW(SCI, sci_elapse_time, 60, 4, i32, 120, 4, i32).sent(Wire::big_endian),
    ALM_ROW(SCI, sci_marshal_flags, 64, 2, u16, 22, 2, u16).sent(Wire::big_endian),
    ALM_ROW(SCI, sci_mpe_fence, 66, 2, i16, 24, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SCI, sci_mpe_limit, 68, 2, i16, 26, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SCI, sci_access_method, 70, 40, text, 28, 8, text).sent(Wire::as_delivered),
    ALM_ROW(SCI, sci_filler2, 110, 2, i16, 36, 2, i16).sent(Wire::as_delivered),
    ALM_ROW(SCI, sci_run_number, 112, 2, i16, 38, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SCI, sci_cons_level, 114, 2, i16, 44, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SCI, sci_filler3, 116, 2, i16, 46, 2, i16).sent(Wire::as_delivered),
    ALM_ROW(SCI, sci_node_name, 118, 52, text, 48, 52, text).sent(Wire::as_delivered).show("node", 3),
    ALM_ROW(SCI, sci_filler4, 170, 16, i16, 100, 8, i16).sent(Wire::as_delivered),
    ALM_ROW(SCI, sci_time_started, 186, 2, i16, 124, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SCI, sci_cpu_limit, 188, 2, i16, 126, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SCI, sci_job_fence, 190, 2, i16, 128, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SCI, sci_requested, 192, 2, i16, 130, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SCI, sci_flags, 194, 2, u16, 138, 2, u16).sent(Wire::big_endian).flags("flags", 13, kWorkstationFlagNames),
    ALM_ROW(SCI, sci_prev_cpu_ptr, 196, 4, u32, 134, 2, u16).sent(Wire::low_half).link().show("prev", 7),
    ALM_ROW(SCI, sci_next_cpu_ptr, 200, 4, u32, 136, 2, u16).sent(Wire::low_half).link().show("next", 8),
    ALM_ROW(SCI, sci_prev_domain_ptr, 204, 4, u32, 112, 2, u16).sent(Wire::as_delivered).link().show("prev_domain", 9),
    ALM_ROW(SCI, sci_next_domain_ptr, 208, 4, u32, 114, 2, u16).sent(Wire::as_delivered).link().show("next_domain", 10),
    ALM_ROW(SCI, sci_dblnk_recnum, 212, 4, i32, 140, 4, i32).sent(Wire::big_endian),
    ALM_ROW(SCI, sci_node_addr, 216, 4, i32, 144, 4, i32).sent(Wire::big_endian),
    ALM_ROW(SCI, sci_cpu_type, 220, 4, text, 148, 4, text).sent(Wire::as_delivered),
    ALM_ROW(SCI, sci_link_type, 224, 2, i16, 152, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SCI, sci_server, 226, 2, i16, 154, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SCI, sci_node_type, 228, 2, i16, 156, 2, i16).sent(Wire::big_endian),
    ALM_ROW(SCI, sci_kestrel_version, 230, 8, text, 158, 8, text).sent(Wire::as_delivered),
    ALM_ROW(SCI, sci_filler7, 238, 8, i16, 108, 4, i16).sent(Wire::as_delivered),
    ALM_ROW(SCI, sci_user_info, 246, 64, text, 174, 64, text).sent(Wire::as_delivered),
    ALM_ROW(SCI, sci_domain_name, 310, 16, text, 238, 8, text).sent(Wire::as_delivered).show("domain", 4),
    ALM_ROW(SCI, sci_domain_parent, 326, 16, text, 246, 8, text).sent(Wire::as_delivered),
    ALM_ROW(SCI, sci_timezone_id, 342, 40, text, 166, 8, text).sent(Wire::as_delivered),
    ALM_ROW(SCI, sci_filler5, 382, 130, i16, 254, 2, text).sent(Wire::as_delivered),
};
static_assert(first_disagreeing_row(kWorkstationFields, sizeof(SCI_RECTYPE), sizeof(SCI_RECTYPE_V1)) < 0);

}  // namespace alm
