// Wire form of plan records in query replies. Each record kind has a table
// of its fields, in record order, saying how each one is sent; one routine
// walks a table over a record's bytes and converts it in place. The tables
// cover every byte of the record, so each can be read against the protocol's
// field list line by line; every row's offset and size are checked against
// the record layout at compile time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "plan/almrecs.h"

namespace alm {

enum class Wire : std::uint8_t {
    big_endian16,  // 16-bit host value sent big-endian
    big_endian32,  // 32-bit host value sent big-endian
    low_half,      // low 16 bits of a 32-bit field, big-endian, then two zero bytes
    as_delivered,  // bytes as the plan library delivers them (numbers stay little-endian)
    text,          // blank-padded characters, untouched
};

struct WireField {
    std::uint16_t offset;
    std::uint16_t size;
    Wire form;
    const char* name;
    // Where the record layout puts the named member.
    std::size_t layout_offset;
    std::size_t layout_size;
};

// The quirks, one helper each. p points at the field's first byte.
void to_big_endian16(unsigned char* p);
void to_big_endian32(unsigned char* p);
void to_low_half(unsigned char* p);

// Applies every row of the table to the record's bytes.
void convert_fields(unsigned char* rec, std::span<const WireField> table);

// A dependency count as the walk and the conversion use it: 0..MAX_DEPENDS.
constexpr int dependency_count(std::int16_t stored) {
    return stored < 0 ? 0 : (stored > MAX_DEPENDS ? MAX_DEPENDS : stored);
}

// Puts the first count 32-bit record numbers at entries into low half form.
void convert_dependency_entries(unsigned char* entries, int count);

inline unsigned char* record_bytes(void* rec) { return static_cast<unsigned char*>(rec); }

#define ALM_WIRE_ROW(REC, OFF, SIZE, MEMBER, FORM) \
    WireField { OFF, SIZE, Wire::FORM, #MEMBER, offsetof(REC, MEMBER), sizeof(REC::MEMBER) }

// Workstation query reply.
inline constexpr WireField kCpuWire[] = {
    ALM_WIRE_ROW(SCI_RECTYPE, 0, 2, alm_rec_type, big_endian16),
    ALM_WIRE_ROW(SCI_RECTYPE, 2, 2, sci_status, big_endian16),
    ALM_WIRE_ROW(SCI_RECTYPE, 4, 2, sci_filler6, as_delivered),
    ALM_WIRE_ROW(SCI_RECTYPE, 6, 2, sci_rec_version, as_delivered),
    ALM_WIRE_ROW(SCI_RECTYPE, 8, 4, sci_rec_num, low_half),
    ALM_WIRE_ROW(SCI_RECTYPE, 12, 4, sci_cont_rec, as_delivered),
    ALM_WIRE_ROW(SCI_RECTYPE, 16, 16, sci_cpu_id, text),
    ALM_WIRE_ROW(SCI_RECTYPE, 32, 16, sci_host_cpu, text),
    ALM_WIRE_ROW(SCI_RECTYPE, 48, 4, sci_first_sched, low_half),
    ALM_WIRE_ROW(SCI_RECTYPE, 52, 4, sci_console, big_endian32),
    ALM_WIRE_ROW(SCI_RECTYPE, 56, 4, sci_date_started, big_endian32),
    ALM_WIRE_ROW(SCI_RECTYPE, 60, 4, sci_elapse_time, big_endian32),
    ALM_WIRE_ROW(SCI_RECTYPE, 64, 2, sci_marshal_flags, big_endian16),
    ALM_WIRE_ROW(SCI_RECTYPE, 66, 2, sci_mpe_fence, big_endian16),
    ALM_WIRE_ROW(SCI_RECTYPE, 68, 2, sci_mpe_limit, big_endian16),
    ALM_WIRE_ROW(SCI_RECTYPE, 70, 40, sci_access_method, text),
    ALM_WIRE_ROW(SCI_RECTYPE, 110, 2, sci_filler2, as_delivered),
    ALM_WIRE_ROW(SCI_RECTYPE, 112, 2, sci_run_number, big_endian16),
    ALM_WIRE_ROW(SCI_RECTYPE, 114, 2, sci_cons_level, big_endian16),
    ALM_WIRE_ROW(SCI_RECTYPE, 116, 2, sci_filler3, as_delivered),
    ALM_WIRE_ROW(SCI_RECTYPE, 118, 52, sci_node_name, text),
    ALM_WIRE_ROW(SCI_RECTYPE, 170, 16, sci_filler4, as_delivered),
    ALM_WIRE_ROW(SCI_RECTYPE, 186, 2, sci_time_started, big_endian16),
    ALM_WIRE_ROW(SCI_RECTYPE, 188, 2, sci_cpu_limit, big_endian16),
    ALM_WIRE_ROW(SCI_RECTYPE, 190, 2, sci_job_fence, big_endian16),
    ALM_WIRE_ROW(SCI_RECTYPE, 192, 2, sci_requested, big_endian16),
    ALM_WIRE_ROW(SCI_RECTYPE, 194, 2, sci_flags, big_endian16),
    ALM_WIRE_ROW(SCI_RECTYPE, 196, 4, sci_prev_cpu_ptr, low_half),
    ALM_WIRE_ROW(SCI_RECTYPE, 200, 4, sci_next_cpu_ptr, low_half),
    ALM_WIRE_ROW(SCI_RECTYPE, 204, 4, sci_prev_domain_ptr, as_delivered),
    ALM_WIRE_ROW(SCI_RECTYPE, 208, 4, sci_next_domain_ptr, as_delivered),
    ALM_WIRE_ROW(SCI_RECTYPE, 212, 4, sci_dblnk_recnum, big_endian32),
    ALM_WIRE_ROW(SCI_RECTYPE, 216, 4, sci_node_addr, big_endian32),
    ALM_WIRE_ROW(SCI_RECTYPE, 220, 4, sci_cpu_type, text),
    ALM_WIRE_ROW(SCI_RECTYPE, 224, 2, sci_link_type, big_endian16),
    ALM_WIRE_ROW(SCI_RECTYPE, 226, 2, sci_server, big_endian16),
    ALM_WIRE_ROW(SCI_RECTYPE, 228, 2, sci_node_type, big_endian16),
    ALM_WIRE_ROW(SCI_RECTYPE, 230, 8, sci_kestrel_version, text),
    ALM_WIRE_ROW(SCI_RECTYPE, 238, 8, sci_filler7, as_delivered),
    ALM_WIRE_ROW(SCI_RECTYPE, 246, 64, sci_user_info, text),
    ALM_WIRE_ROW(SCI_RECTYPE, 310, 16, sci_domain_name, text),
    ALM_WIRE_ROW(SCI_RECTYPE, 326, 16, sci_domain_parent, text),
    ALM_WIRE_ROW(SCI_RECTYPE, 342, 40, sci_timezone_id, text),
    ALM_WIRE_ROW(SCI_RECTYPE, 382, 130, sci_filler5, as_delivered),
};

// Schedule query reply. The dependency listing's schedule form adds the
// first ss_num_depends entries of ss_dependencies in low half form.
inline constexpr WireField kScheduleWire[] = {
    ALM_WIRE_ROW(SS_RECTYPE, 0, 2, alm_rec_type, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 2, 2, ss_status, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 4, 2, ss_filler1, as_delivered),
    ALM_WIRE_ROW(SS_RECTYPE, 6, 2, ss_rec_version, as_delivered),
    ALM_WIRE_ROW(SS_RECTYPE, 8, 4, ss_rec_num, big_endian32),
    ALM_WIRE_ROW(SS_RECTYPE, 12, 4, ss_cont_rec, as_delivered),
    ALM_WIRE_ROW(SS_RECTYPE, 16, 16, ss_cpu_id, text),
    ALM_WIRE_ROW(SS_RECTYPE, 32, 16, ss_sched_name, text),
    ALM_WIRE_ROW(SS_RECTYPE, 48, 2, ss_num_recs, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 50, 2, ss_num_jobs, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 52, 2, ss_num_succ, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 54, 16, ss_orig_sched, text),
    ALM_WIRE_ROW(SS_RECTYPE, 70, 2, ss_sched_pri, as_delivered),
    ALM_WIRE_ROW(SS_RECTYPE, 72, 2, ss_spare_word12, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 74, 2, ss_calc_num, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 76, 2, ss_num_notrun, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 78, 2, ss_num_exec, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 80, 2, ss_num_abend, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 82, 2, ss_num_failed, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 84, 2, ss_until_time, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 86, 2, ss_filler6, as_delivered),
    ALM_WIRE_ROW(SS_RECTYPE, 88, 4, ss_cpu_time, big_endian32),
    ALM_WIRE_ROW(SS_RECTYPE, 92, 4, ss_until_date, big_endian32),
    ALM_WIRE_ROW(SS_RECTYPE, 96, 4, ss_first_job, low_half),
    ALM_WIRE_ROW(SS_RECTYPE, 100, 4, ss_last_job, low_half),
    ALM_WIRE_ROW(SS_RECTYPE, 104, 4, ss_prev_sch_ptr, low_half),
    ALM_WIRE_ROW(SS_RECTYPE, 108, 4, ss_next_sch_ptr, low_half),
    ALM_WIRE_ROW(SS_RECTYPE, 112, 4, ss_job_number, big_endian32),
    ALM_WIRE_ROW(SS_RECTYPE, 116, 160, ss_dependencies, as_delivered),
    ALM_WIRE_ROW(SS_RECTYPE, 276, 2, ss_limit, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 278, 16, ss_cpuclass_id, text),
    ALM_WIRE_ROW(SS_RECTYPE, 294, 2, ss_spare_word15, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 296, 2, ss_num_skel, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 298, 14, ss_filler2, as_delivered),
    ALM_WIRE_ROW(SS_RECTYPE, 312, 2, ss_flags, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 314, 2, ss_filler3, as_delivered),
    ALM_WIRE_ROW(SS_RECTYPE, 316, 2, ss_re_flags, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 318, 2, ss_filler4, as_delivered),
    ALM_WIRE_ROW(SS_RECTYPE, 320, 2, ss_restart_ptr, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 322, 2, ss_restart_from, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 324, 4, ss_prod_date, big_endian32),
    ALM_WIRE_ROW(SS_RECTYPE, 328, 4, ss_sched_date, big_endian32),
    ALM_WIRE_ROW(SS_RECTYPE, 332, 4, ss_date_started, big_endian32),
    ALM_WIRE_ROW(SS_RECTYPE, 336, 4, ss_elapse_time, big_endian32),
    ALM_WIRE_ROW(SS_RECTYPE, 340, 4, ss_est_elapse, big_endian32),
    ALM_WIRE_ROW(SS_RECTYPE, 344, 2, ss_num_depends, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 346, 2, ss_start_time, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 348, 2, ss_time_started, big_endian16),
    ALM_WIRE_ROW(SS_RECTYPE, 350, 40, ss_depend_flags, as_delivered),
    ALM_WIRE_ROW(SS_RECTYPE, 390, 122, ss_filler5, as_delivered),
};

// Job query reply. The dependency listing's job form differs in the rows of
// kJobDepWireChanges and in its dependency entries.
inline constexpr WireField kJobWire[] = {
    ALM_WIRE_ROW(SJ_RECTYPE, 0, 2, alm_rec_type, big_endian16),
    ALM_WIRE_ROW(SJ_RECTYPE, 2, 2, sj_status, big_endian16),
    ALM_WIRE_ROW(SJ_RECTYPE, 4, 2, sj_filler2, as_delivered),
    ALM_WIRE_ROW(SJ_RECTYPE, 6, 2, sj_rec_version, as_delivered),
    ALM_WIRE_ROW(SJ_RECTYPE, 8, 4, sj_rec_num, big_endian32),
    ALM_WIRE_ROW(SJ_RECTYPE, 12, 4, sj_cont_rec, as_delivered),
    ALM_WIRE_ROW(SJ_RECTYPE, 16, 16, sj_cpu_id, text),
    ALM_WIRE_ROW(SJ_RECTYPE, 32, 40, sj_job_name, text),
    ALM_WIRE_ROW(SJ_RECTYPE, 72, 2, sj_job_pri, as_delivered),
    ALM_WIRE_ROW(SJ_RECTYPE, 74, 16, sj_schedule, text),
    ALM_WIRE_ROW(SJ_RECTYPE, 90, 48, sj_job_user, text),
    ALM_WIRE_ROW(SJ_RECTYPE, 138, 8, sj_job_acct, text),
    ALM_WIRE_ROW(SJ_RECTYPE, 146, 8, sj_job_group, text),
    ALM_WIRE_ROW(SJ_RECTYPE, 154, 2, sj_every_hhmm, big_endian16),
    ALM_WIRE_ROW(SJ_RECTYPE, 156, 2, sj_until_time, as_delivered),
    ALM_WIRE_ROW(SJ_RECTYPE, 158, 2, sj_flags2, big_endian16),
    ALM_WIRE_ROW(SJ_RECTYPE, 160, 2, sj_flags, big_endian16),
    ALM_WIRE_ROW(SJ_RECTYPE, 162, 2, sj_re_flags, big_endian16),
    ALM_WIRE_ROW(SJ_RECTYPE, 164, 2, sj_start_time, big_endian16),
    ALM_WIRE_ROW(SJ_RECTYPE, 166, 2, sj_time_started, big_endian16),
    ALM_WIRE_ROW(SJ_RECTYPE, 168, 2, sj_num_depends, big_endian16),
    ALM_WIRE_ROW(SJ_RECTYPE, 170, 2, sj_filler3, as_delivered),
    ALM_WIRE_ROW(SJ_RECTYPE, 172, 40, sj_fname_jname, as_delivered),
    ALM_WIRE_ROW(SJ_RECTYPE, 212, 4, sj_sched_ptr, low_half),
    ALM_WIRE_ROW(SJ_RECTYPE, 216, 4, sj_prev_job_ptr, low_half),
    ALM_WIRE_ROW(SJ_RECTYPE, 220, 4, sj_next_job_ptr, low_half),
    ALM_WIRE_ROW(SJ_RECTYPE, 224, 4, sj_re_job_ptr, low_half),
    ALM_WIRE_ROW(SJ_RECTYPE, 228, 4, sj_re_prmpt_ptr, low_half),
    ALM_WIRE_ROW(SJ_RECTYPE, 232, 4, sj_restart_ptr, low_half),
    ALM_WIRE_ROW(SJ_RECTYPE, 236, 4, sj_rec_ptrs, low_half),
    ALM_WIRE_ROW(SJ_RECTYPE, 240, 4, sj_until_date, big_endian32),
    ALM_WIRE_ROW(SJ_RECTYPE, 244, 4, sj_sched_date, big_endian32),
    ALM_WIRE_ROW(SJ_RECTYPE, 248, 4, sj_date_started, big_endian32),
    ALM_WIRE_ROW(SJ_RECTYPE, 252, 4, sj_elapse_time, big_endian32),
    ALM_WIRE_ROW(SJ_RECTYPE, 256, 4, sj_est_elapse, big_endian32),
    ALM_WIRE_ROW(SJ_RECTYPE, 260, 4, sj_cpu_time, big_endian32),
    ALM_WIRE_ROW(SJ_RECTYPE, 264, 4, sj_job_number, big_endian32),
    ALM_WIRE_ROW(SJ_RECTYPE, 268, 200, subdep, as_delivered),
    ALM_WIRE_ROW(SJ_RECTYPE, 468, 44, sj_filler1, as_delivered),  // 21 shorts and the record's last 2 bytes
};

// Applied after kJobWire for a job in the dependency listing: the until time
// is converted there, and sj_rec_ptrs gets the low half a second time, which
// swaps its two bytes back into host order (0x12345 goes out as 45 23 00 00).
inline constexpr WireField kJobDepWireChanges[] = {
    ALM_WIRE_ROW(SJ_RECTYPE, 156, 2, sj_until_time, big_endian16),
    ALM_WIRE_ROW(SJ_RECTYPE, 236, 4, sj_rec_ptrs, low_half),
};

// Prompt, as a dependency.
inline constexpr WireField kPromptWire[] = {
    ALM_WIRE_ROW(SM_RECTYPE, 0, 2, alm_rec_type, big_endian16),
    ALM_WIRE_ROW(SM_RECTYPE, 2, 2, sm_status, big_endian16),
    ALM_WIRE_ROW(SM_RECTYPE, 4, 2, sm_filler3, as_delivered),
    ALM_WIRE_ROW(SM_RECTYPE, 6, 2, sm_rec_version, as_delivered),
    ALM_WIRE_ROW(SM_RECTYPE, 8, 4, sm_rec_num, big_endian32),
    ALM_WIRE_ROW(SM_RECTYPE, 12, 4, sm_cont_rec, as_delivered),
    ALM_WIRE_ROW(SM_RECTYPE, 16, 16, sm_cpu_id, text),
    ALM_WIRE_ROW(SM_RECTYPE, 32, 8, sm_msg_name, text),
    ALM_WIRE_ROW(SM_RECTYPE, 40, 4, sm_prev_msg, low_half),
    ALM_WIRE_ROW(SM_RECTYPE, 44, 4, sm_next_msg, low_half),
    ALM_WIRE_ROW(SM_RECTYPE, 48, 4, sm_job_ptr, low_half),
    ALM_WIRE_ROW(SM_RECTYPE, 52, 4, sm_date_asked, big_endian32),
    ALM_WIRE_ROW(SM_RECTYPE, 56, 4, sm_date_resp, big_endian32),
    ALM_WIRE_ROW(SM_RECTYPE, 60, 2, sm_msg_no, big_endian16),
    ALM_WIRE_ROW(SM_RECTYPE, 62, 2, sm_msg_flags, big_endian16),
    ALM_WIRE_ROW(SM_RECTYPE, 64, 2, sm_time_asked, big_endian16),
    ALM_WIRE_ROW(SM_RECTYPE, 66, 2, sm_time_resp, big_endian16),
    ALM_WIRE_ROW(SM_RECTYPE, 68, 10, sm_filler1, as_delivered),
    ALM_WIRE_ROW(SM_RECTYPE, 78, 80, sm_message, text),
    ALM_WIRE_ROW(SM_RECTYPE, 158, 120, sm_message_more, text),
    ALM_WIRE_ROW(SM_RECTYPE, 278, 234, sm_filler2, as_delivered),
};

// File, as a dependency.
inline constexpr WireField kFileWire[] = {
    ALM_WIRE_ROW(SF_RECTYPE, 0, 2, alm_rec_type, big_endian16),
    ALM_WIRE_ROW(SF_RECTYPE, 2, 2, sf_status, big_endian16),
    ALM_WIRE_ROW(SF_RECTYPE, 4, 2, sf_filler6, as_delivered),
    ALM_WIRE_ROW(SF_RECTYPE, 6, 2, sf_rec_version, as_delivered),
    ALM_WIRE_ROW(SF_RECTYPE, 8, 4, sf_rec_num, big_endian32),
    ALM_WIRE_ROW(SF_RECTYPE, 12, 4, sf_cont_rec, as_delivered),
    ALM_WIRE_ROW(SF_RECTYPE, 16, 16, sf_cpu_id, text),
    ALM_WIRE_ROW(SF_RECTYPE, 32, 4, sf_prev_file, low_half),
    ALM_WIRE_ROW(SF_RECTYPE, 36, 4, sf_next_file, low_half),
    ALM_WIRE_ROW(SF_RECTYPE, 40, 8, sf_filler1, as_delivered),
    ALM_WIRE_ROW(SF_RECTYPE, 48, 28, sf_file_name, text),
    ALM_WIRE_ROW(SF_RECTYPE, 76, 48, sf_filler2, as_delivered),
    ALM_WIRE_ROW(SF_RECTYPE, 124, 12, sf_filler3, as_delivered),
    ALM_WIRE_ROW(SF_RECTYPE, 136, 4, sf_timer, as_delivered),
    ALM_WIRE_ROW(SF_RECTYPE, 140, 16, sf_filler4, as_delivered),
    ALM_WIRE_ROW(SF_RECTYPE, 156, 2, sf_feq_len, big_endian16),
    ALM_WIRE_ROW(SF_RECTYPE, 158, 120, sf_feq, text),
    ALM_WIRE_ROW(SF_RECTYPE, 278, 234, sf_filler5, as_delivered),
};

// Resource, as a dependency. Its four signed counts get the low half form
// like record pointers: -1 goes out as FF FF 00 00.
inline constexpr WireField kResourceWire[] = {
    ALM_WIRE_ROW(SR_RECTYPE, 0, 2, alm_rec_type, big_endian16),
    ALM_WIRE_ROW(SR_RECTYPE, 2, 2, sr_status, big_endian16),
    ALM_WIRE_ROW(SR_RECTYPE, 4, 2, sr_filler4, as_delivered),
    ALM_WIRE_ROW(SR_RECTYPE, 6, 2, sr_rec_version, as_delivered),
    ALM_WIRE_ROW(SR_RECTYPE, 8, 4, sr_rec_num, big_endian32),
    ALM_WIRE_ROW(SR_RECTYPE, 12, 4, sr_cont_rec, as_delivered),
    ALM_WIRE_ROW(SR_RECTYPE, 16, 16, sr_cpu_id, text),
    ALM_WIRE_ROW(SR_RECTYPE, 32, 8, sr_resource_name, text),
    ALM_WIRE_ROW(SR_RECTYPE, 40, 4, sr_prev_resource, low_half),
    ALM_WIRE_ROW(SR_RECTYPE, 44, 4, sr_next_resource, low_half),
    ALM_WIRE_ROW(SR_RECTYPE, 48, 4, sr_num_avail, low_half),
    ALM_WIRE_ROW(SR_RECTYPE, 52, 4, sr_num_used, low_half),
    ALM_WIRE_ROW(SR_RECTYPE, 56, 4, sr_num_unused, low_half),
    ALM_WIRE_ROW(SR_RECTYPE, 60, 4, sr_num_holders, low_half),
    ALM_WIRE_ROW(SR_RECTYPE, 64, 32, sr_filler1, as_delivered),
    ALM_WIRE_ROW(SR_RECTYPE, 96, 128, sr_holders, as_delivered),
    ALM_WIRE_ROW(SR_RECTYPE, 224, 4, sr_filler2, as_delivered),
    ALM_WIRE_ROW(SR_RECTYPE, 228, 64, sr_hold_counts, as_delivered),
    ALM_WIRE_ROW(SR_RECTYPE, 292, 220, sr_filler3, as_delivered),
};

#undef ALM_WIRE_ROW

// True when every row names its member's offset and size and, for a whole
// table (end not 0), the rows follow each other without gap or overlap from
// byte 0 up to end.
constexpr bool wire_rows_agree(std::span<const WireField> table, std::size_t end) {
    std::size_t next = 0;
    for (const WireField& f : table) {
        if (f.offset != f.layout_offset || f.size != f.layout_size) return false;
        if (end != 0 && f.offset != next) return false;
        if ((f.form == Wire::big_endian16 && f.size != 2) ||
            ((f.form == Wire::big_endian32 || f.form == Wire::low_half) && f.size != 4))
            return false;
        next = std::size_t{f.offset} + f.size;
    }
    return end == 0 || next == end;
}
static_assert(wire_rows_agree(kCpuWire, ALM_REC_SIZE_V2));
static_assert(wire_rows_agree(kScheduleWire, ALM_REC_SIZE_V2));
static_assert(wire_rows_agree(kJobWire, ALM_REC_SIZE_V2));
static_assert(wire_rows_agree(kJobDepWireChanges, 0));
static_assert(wire_rows_agree(kPromptWire, ALM_REC_SIZE_V2));
static_assert(wire_rows_agree(kFileWire, ALM_REC_SIZE_V2));
static_assert(wire_rows_agree(kResourceWire, ALM_REC_SIZE_V2));

// Query replies: the record, as the plan library delivered it, put into wire
// form in place.
void ConvertCpuReply(unsigned char* rec);
void ConvertScheduleReply(unsigned char* rec);
void ConvertJobReply(unsigned char* rec);

// Dependency listing. Each converts its record in place and returns it; a
// record must be converted once only, so callers copy what they still need
// (dependency counts, flags, record numbers, chain pointers) beforehand.
SS_RECTYPE* ConvertSchedule(SS_RECTYPE* ss);
SS_RECTYPE* ConvertScheduleDep(SS_RECTYPE* ss);
SJ_RECTYPE* ConvertJob(SJ_RECTYPE* sj);
SJ_RECTYPE* ConvertJobDep(SJ_RECTYPE* sj);
SM_RECTYPE* ConvertPrompt(SM_RECTYPE* sm);
SF_RECTYPE* ConvertFile(SF_RECTYPE* sf);
SR_RECTYPE* ConvertResource(SR_RECTYPE* sr);

}  // namespace alm
