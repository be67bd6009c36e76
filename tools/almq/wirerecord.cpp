#include "wirerecord.h"

#include <algorithm>

#include "plan/almrecs.h"
#include "util/endian.h"

namespace alm {
namespace {

enum class Num : std::uint8_t { I16, U16, I32, U32, U8 };

enum class Wire : std::uint8_t {
    BigEndian,
    LowHalf,
    AsDelivered,
    Text,
    LowHalfTwice,  // low half converted twice: low 16 bits little-endian, then zeros
    DepEntries,    // record numbers: the first count in low half, the rest as delivered
};

enum class Shape : std::uint8_t { Scalar, Array, Text, Priority, Timer, FnameJname, Subdep };

struct FieldRow {
    const char* name;
    std::size_t offset;
    std::size_t size;
    Shape shape;
    Num num;
    Wire query;  // in the workstation, schedule and job replies
    Wire deps;   // in the dependency reply
};

#define ROW2(REC, M, SHAPE, NUM, WQ, WD) \
    FieldRow { #M, offsetof(REC, M), sizeof(REC::M), Shape::SHAPE, Num::NUM, Wire::WQ, Wire::WD }
#define ROW(REC, M, SHAPE, NUM, W) ROW2(REC, M, SHAPE, NUM, W, W)
#define TEXT(REC, M) ROW(REC, M, Text, U8, Text)

constexpr FieldRow kCpuFields[] = {
    ROW(SCI_RECTYPE, alm_rec_type, Scalar, I16, BigEndian),
    ROW(SCI_RECTYPE, sci_status, Scalar, I16, BigEndian),
    ROW(SCI_RECTYPE, sci_filler6, Scalar, I16, AsDelivered),
    ROW(SCI_RECTYPE, sci_rec_version, Scalar, I16, AsDelivered),
    ROW(SCI_RECTYPE, sci_rec_num, Scalar, U32, LowHalf),
    ROW(SCI_RECTYPE, sci_cont_rec, Scalar, U32, AsDelivered),
    TEXT(SCI_RECTYPE, sci_cpu_id),
    TEXT(SCI_RECTYPE, sci_host_cpu),
    ROW(SCI_RECTYPE, sci_first_sched, Scalar, U32, LowHalf),
    ROW(SCI_RECTYPE, sci_console, Scalar, I32, BigEndian),
    ROW(SCI_RECTYPE, sci_date_started, Scalar, I32, BigEndian),
    ROW(SCI_RECTYPE, sci_elapse_time, Scalar, I32, BigEndian),
    ROW(SCI_RECTYPE, sci_marshal_flags, Scalar, U16, BigEndian),
    ROW(SCI_RECTYPE, sci_mpe_fence, Scalar, I16, BigEndian),
    ROW(SCI_RECTYPE, sci_mpe_limit, Scalar, I16, BigEndian),
    TEXT(SCI_RECTYPE, sci_access_method),
    ROW(SCI_RECTYPE, sci_filler2, Scalar, I16, AsDelivered),
    ROW(SCI_RECTYPE, sci_run_number, Scalar, I16, BigEndian),
    ROW(SCI_RECTYPE, sci_cons_level, Scalar, I16, BigEndian),
    ROW(SCI_RECTYPE, sci_filler3, Scalar, I16, AsDelivered),
    TEXT(SCI_RECTYPE, sci_node_name),
    ROW(SCI_RECTYPE, sci_filler4, Array, I16, AsDelivered),
    ROW(SCI_RECTYPE, sci_time_started, Scalar, I16, BigEndian),
    ROW(SCI_RECTYPE, sci_cpu_limit, Scalar, I16, BigEndian),
    ROW(SCI_RECTYPE, sci_job_fence, Scalar, I16, BigEndian),
    ROW(SCI_RECTYPE, sci_requested, Scalar, I16, BigEndian),
    ROW(SCI_RECTYPE, sci_flags, Scalar, U16, BigEndian),
    ROW(SCI_RECTYPE, sci_prev_cpu_ptr, Scalar, U32, LowHalf),
    ROW(SCI_RECTYPE, sci_next_cpu_ptr, Scalar, U32, LowHalf),
    ROW(SCI_RECTYPE, sci_prev_domain_ptr, Scalar, U32, AsDelivered),
    ROW(SCI_RECTYPE, sci_next_domain_ptr, Scalar, U32, AsDelivered),
    ROW(SCI_RECTYPE, sci_dblnk_recnum, Scalar, I32, BigEndian),
    ROW(SCI_RECTYPE, sci_node_addr, Scalar, I32, BigEndian),
    TEXT(SCI_RECTYPE, sci_cpu_type),
    ROW(SCI_RECTYPE, sci_link_type, Scalar, I16, BigEndian),
    ROW(SCI_RECTYPE, sci_server, Scalar, I16, BigEndian),
    ROW(SCI_RECTYPE, sci_node_type, Scalar, I16, BigEndian),
    TEXT(SCI_RECTYPE, sci_kestrel_version),
    ROW(SCI_RECTYPE, sci_filler7, Array, I16, AsDelivered),
    TEXT(SCI_RECTYPE, sci_user_info),
    TEXT(SCI_RECTYPE, sci_domain_name),
    TEXT(SCI_RECTYPE, sci_domain_parent),
    TEXT(SCI_RECTYPE, sci_timezone_id),
    ROW(SCI_RECTYPE, sci_filler5, Array, I16, AsDelivered),
};

constexpr FieldRow kSchedFields[] = {
    ROW(SS_RECTYPE, alm_rec_type, Scalar, I16, BigEndian),
    ROW(SS_RECTYPE, ss_status, Scalar, I16, BigEndian),
    ROW(SS_RECTYPE, ss_filler1, Scalar, I16, AsDelivered),
    ROW(SS_RECTYPE, ss_rec_version, Scalar, I16, AsDelivered),
    ROW(SS_RECTYPE, ss_rec_num, Scalar, U32, BigEndian),
    ROW(SS_RECTYPE, ss_cont_rec, Scalar, U32, AsDelivered),
    TEXT(SS_RECTYPE, ss_cpu_id),
    TEXT(SS_RECTYPE, ss_sched_name),
    ROW(SS_RECTYPE, ss_num_recs, Scalar, I16, BigEndian),
    ROW(SS_RECTYPE, ss_num_jobs, Scalar, I16, BigEndian),
    ROW(SS_RECTYPE, ss_num_succ, Scalar, I16, BigEndian),
    TEXT(SS_RECTYPE, ss_orig_sched),
    ROW(SS_RECTYPE, ss_sched_pri, Priority, U8, AsDelivered),
    ROW(SS_RECTYPE, ss_spare_word12, Scalar, I16, BigEndian),
    ROW(SS_RECTYPE, ss_calc_num, Scalar, I16, BigEndian),
    ROW(SS_RECTYPE, ss_num_notrun, Scalar, I16, BigEndian),
    ROW(SS_RECTYPE, ss_num_exec, Scalar, I16, BigEndian),
    ROW(SS_RECTYPE, ss_num_abend, Scalar, I16, BigEndian),
    ROW(SS_RECTYPE, ss_num_failed, Scalar, I16, BigEndian),
    ROW(SS_RECTYPE, ss_until_time, Scalar, I16, BigEndian),
    ROW(SS_RECTYPE, ss_filler6, Scalar, I16, AsDelivered),
    ROW(SS_RECTYPE, ss_cpu_time, Scalar, I32, BigEndian),
    ROW(SS_RECTYPE, ss_until_date, Scalar, I32, BigEndian),
    ROW(SS_RECTYPE, ss_first_job, Scalar, U32, LowHalf),
    ROW(SS_RECTYPE, ss_last_job, Scalar, U32, LowHalf),
    ROW(SS_RECTYPE, ss_prev_sch_ptr, Scalar, U32, LowHalf),
    ROW(SS_RECTYPE, ss_next_sch_ptr, Scalar, U32, LowHalf),
    ROW(SS_RECTYPE, ss_job_number, Scalar, I32, BigEndian),
    ROW2(SS_RECTYPE, ss_dependencies, Array, U32, AsDelivered, DepEntries),
    ROW(SS_RECTYPE, ss_limit, Scalar, I16, BigEndian),
    TEXT(SS_RECTYPE, ss_cpuclass_id),
    ROW(SS_RECTYPE, ss_spare_word15, Scalar, I16, BigEndian),
    ROW(SS_RECTYPE, ss_num_skel, Scalar, I16, BigEndian),
    ROW(SS_RECTYPE, ss_filler2, Array, I16, AsDelivered),
    ROW(SS_RECTYPE, ss_flags, Scalar, U16, BigEndian),
    ROW(SS_RECTYPE, ss_filler3, Scalar, I16, AsDelivered),
    ROW(SS_RECTYPE, ss_re_flags, Scalar, I16, BigEndian),
    ROW(SS_RECTYPE, ss_filler4, Scalar, I16, AsDelivered),
    ROW(SS_RECTYPE, ss_restart_ptr, Scalar, I16, BigEndian),
    ROW(SS_RECTYPE, ss_restart_from, Scalar, I16, BigEndian),
    ROW(SS_RECTYPE, ss_prod_date, Scalar, I32, BigEndian),
    ROW(SS_RECTYPE, ss_sched_date, Scalar, I32, BigEndian),
    ROW(SS_RECTYPE, ss_date_started, Scalar, I32, BigEndian),
    ROW(SS_RECTYPE, ss_elapse_time, Scalar, I32, BigEndian),
    ROW(SS_RECTYPE, ss_est_elapse, Scalar, I32, BigEndian),
    ROW(SS_RECTYPE, ss_num_depends, Scalar, I16, BigEndian),
    ROW(SS_RECTYPE, ss_start_time, Scalar, I16, BigEndian),
    ROW(SS_RECTYPE, ss_time_started, Scalar, I16, BigEndian),
    ROW(SS_RECTYPE, ss_depend_flags, Array, U8, AsDelivered),
    ROW(SS_RECTYPE, ss_filler5, Array, I16, AsDelivered),
};

constexpr FieldRow kJobFields[] = {
    ROW(SJ_RECTYPE, alm_rec_type, Scalar, I16, BigEndian),
    ROW(SJ_RECTYPE, sj_status, Scalar, I16, BigEndian),
    ROW(SJ_RECTYPE, sj_filler2, Scalar, I16, AsDelivered),
    ROW(SJ_RECTYPE, sj_rec_version, Scalar, I16, AsDelivered),
    ROW(SJ_RECTYPE, sj_rec_num, Scalar, U32, BigEndian),
    ROW(SJ_RECTYPE, sj_cont_rec, Scalar, U32, AsDelivered),
    TEXT(SJ_RECTYPE, sj_cpu_id),
    TEXT(SJ_RECTYPE, sj_job_name),
    ROW(SJ_RECTYPE, sj_job_pri, Priority, U8, AsDelivered),
    TEXT(SJ_RECTYPE, sj_schedule),
    TEXT(SJ_RECTYPE, sj_job_user),
    TEXT(SJ_RECTYPE, sj_job_acct),
    TEXT(SJ_RECTYPE, sj_job_group),
    ROW(SJ_RECTYPE, sj_every_hhmm, Scalar, I16, BigEndian),
    // The job query leaves this one time field unconverted.
    ROW2(SJ_RECTYPE, sj_until_time, Scalar, I16, AsDelivered, BigEndian),
    ROW(SJ_RECTYPE, sj_flags2, Scalar, U16, BigEndian),
    ROW(SJ_RECTYPE, sj_flags, Scalar, U16, BigEndian),
    ROW(SJ_RECTYPE, sj_re_flags, Scalar, U16, BigEndian),
    ROW(SJ_RECTYPE, sj_start_time, Scalar, I16, BigEndian),
    ROW(SJ_RECTYPE, sj_time_started, Scalar, I16, BigEndian),
    ROW(SJ_RECTYPE, sj_num_depends, Scalar, I16, BigEndian),
    ROW(SJ_RECTYPE, sj_filler3, Scalar, I16, AsDelivered),
    ROW(SJ_RECTYPE, sj_fname_jname, FnameJname, U8, AsDelivered),
    ROW(SJ_RECTYPE, sj_sched_ptr, Scalar, U32, LowHalf),
    ROW(SJ_RECTYPE, sj_prev_job_ptr, Scalar, U32, LowHalf),
    ROW(SJ_RECTYPE, sj_next_job_ptr, Scalar, U32, LowHalf),
    ROW(SJ_RECTYPE, sj_re_job_ptr, Scalar, U32, LowHalf),
    ROW(SJ_RECTYPE, sj_re_prmpt_ptr, Scalar, U32, LowHalf),
    ROW(SJ_RECTYPE, sj_restart_ptr, Scalar, U32, LowHalf),
    ROW2(SJ_RECTYPE, sj_rec_ptrs, Scalar, U32, LowHalf, LowHalfTwice),
    ROW(SJ_RECTYPE, sj_until_date, Scalar, I32, BigEndian),
    ROW(SJ_RECTYPE, sj_sched_date, Scalar, I32, BigEndian),
    ROW(SJ_RECTYPE, sj_date_started, Scalar, I32, BigEndian),
    ROW(SJ_RECTYPE, sj_elapse_time, Scalar, I32, BigEndian),
    ROW(SJ_RECTYPE, sj_est_elapse, Scalar, I32, BigEndian),
    ROW(SJ_RECTYPE, sj_cpu_time, Scalar, I32, BigEndian),
    ROW(SJ_RECTYPE, sj_job_number, Scalar, I32, BigEndian),
    ROW2(SJ_RECTYPE, subdep, Subdep, U32, AsDelivered, DepEntries),
    ROW(SJ_RECTYPE, sj_filler1, Array, I16, AsDelivered),
};

constexpr FieldRow kPromptFields[] = {
    ROW(SM_RECTYPE, alm_rec_type, Scalar, I16, BigEndian),
    ROW(SM_RECTYPE, sm_status, Scalar, I16, BigEndian),
    ROW(SM_RECTYPE, sm_filler3, Scalar, I16, AsDelivered),
    ROW(SM_RECTYPE, sm_rec_version, Scalar, I16, AsDelivered),
    ROW(SM_RECTYPE, sm_rec_num, Scalar, U32, BigEndian),
    ROW(SM_RECTYPE, sm_cont_rec, Scalar, U32, AsDelivered),
    TEXT(SM_RECTYPE, sm_cpu_id),
    TEXT(SM_RECTYPE, sm_msg_name),
    ROW(SM_RECTYPE, sm_prev_msg, Scalar, U32, LowHalf),
    ROW(SM_RECTYPE, sm_next_msg, Scalar, U32, LowHalf),
    ROW(SM_RECTYPE, sm_job_ptr, Scalar, U32, LowHalf),
    ROW(SM_RECTYPE, sm_date_asked, Scalar, I32, BigEndian),
    ROW(SM_RECTYPE, sm_date_resp, Scalar, I32, BigEndian),
    ROW(SM_RECTYPE, sm_msg_no, Scalar, I16, BigEndian),
    ROW(SM_RECTYPE, sm_msg_flags, Scalar, I16, BigEndian),
    ROW(SM_RECTYPE, sm_time_asked, Scalar, I16, BigEndian),
    ROW(SM_RECTYPE, sm_time_resp, Scalar, I16, BigEndian),
    ROW(SM_RECTYPE, sm_filler1, Array, I16, AsDelivered),
    TEXT(SM_RECTYPE, sm_message),
    TEXT(SM_RECTYPE, sm_message_more),
    ROW(SM_RECTYPE, sm_filler2, Array, I16, AsDelivered),
};

constexpr FieldRow kFileFields[] = {
    ROW(SF_RECTYPE, alm_rec_type, Scalar, I16, BigEndian),
    ROW(SF_RECTYPE, sf_status, Scalar, I16, BigEndian),
    ROW(SF_RECTYPE, sf_filler6, Scalar, I16, AsDelivered),
    ROW(SF_RECTYPE, sf_rec_version, Scalar, I16, AsDelivered),
    ROW(SF_RECTYPE, sf_rec_num, Scalar, U32, BigEndian),
    ROW(SF_RECTYPE, sf_cont_rec, Scalar, U32, AsDelivered),
    TEXT(SF_RECTYPE, sf_cpu_id),
    ROW(SF_RECTYPE, sf_prev_file, Scalar, U32, LowHalf),
    ROW(SF_RECTYPE, sf_next_file, Scalar, U32, LowHalf),
    TEXT(SF_RECTYPE, sf_filler1),
    TEXT(SF_RECTYPE, sf_file_name),
    TEXT(SF_RECTYPE, sf_filler2),
    ROW(SF_RECTYPE, sf_filler3, Array, I16, AsDelivered),
    ROW(SF_RECTYPE, sf_timer, Timer, I32, AsDelivered),
    ROW(SF_RECTYPE, sf_filler4, Array, I16, AsDelivered),
    ROW(SF_RECTYPE, sf_feq_len, Scalar, I16, BigEndian),
    TEXT(SF_RECTYPE, sf_feq),
    ROW(SF_RECTYPE, sf_filler5, Array, I16, AsDelivered),
};

constexpr FieldRow kResourceFields[] = {
    ROW(SR_RECTYPE, alm_rec_type, Scalar, I16, BigEndian),
    ROW(SR_RECTYPE, sr_status, Scalar, I16, BigEndian),
    ROW(SR_RECTYPE, sr_filler4, Scalar, I16, AsDelivered),
    ROW(SR_RECTYPE, sr_rec_version, Scalar, I16, AsDelivered),
    ROW(SR_RECTYPE, sr_rec_num, Scalar, U32, BigEndian),
    ROW(SR_RECTYPE, sr_cont_rec, Scalar, U32, AsDelivered),
    TEXT(SR_RECTYPE, sr_cpu_id),
    TEXT(SR_RECTYPE, sr_resource_name),
    ROW(SR_RECTYPE, sr_prev_resource, Scalar, U32, LowHalf),
    ROW(SR_RECTYPE, sr_next_resource, Scalar, U32, LowHalf),
    // Signed counts in low half form: -1 reads back as -1, not 65535.
    ROW(SR_RECTYPE, sr_num_avail, Scalar, I32, LowHalf),
    ROW(SR_RECTYPE, sr_num_used, Scalar, I32, LowHalf),
    ROW(SR_RECTYPE, sr_num_unused, Scalar, I32, LowHalf),
    ROW(SR_RECTYPE, sr_num_holders, Scalar, I32, LowHalf),
    ROW(SR_RECTYPE, sr_filler1, Array, I16, AsDelivered),
    ROW(SR_RECTYPE, sr_holders, Array, U32, AsDelivered),
    ROW(SR_RECTYPE, sr_filler2, Array, I16, AsDelivered),
    ROW(SR_RECTYPE, sr_hold_counts, Array, I16, AsDelivered),
    ROW(SR_RECTYPE, sr_filler3, Array, I16, AsDelivered),
};

#undef TEXT
#undef ROW
#undef ROW2

std::size_t num_width(Num n) {
    switch (n) {
        case Num::I16:
        case Num::U16: return 2;
        case Num::I32:
        case Num::U32: return 4;
        case Num::U8: return 1;
    }
    return 1;
}

bool is_signed(Num n) { return n == Num::I16 || n == Num::I32; }

std::int64_t sign16(std::uint16_t v, bool sign) {
    return sign ? std::int64_t{static_cast<std::int16_t>(v)} : std::int64_t{v};
}
std::int64_t sign32(std::uint32_t v, bool sign) {
    return sign ? std::int64_t{static_cast<std::int32_t>(v)} : std::int64_t{v};
}

std::int64_t read_number(const unsigned char* p, Num num, Wire wire) {
    const bool sign = is_signed(num);
    const std::size_t width = num_width(num);
    if (width == 1) return p[0];
    switch (wire) {
        case Wire::BigEndian:
            return width == 2 ? sign16(load_be16(p), sign) : sign32(load_be32(p), sign);
        case Wire::LowHalf:
            return sign16(load_be16(p), sign);
        case Wire::LowHalfTwice:
            return sign16(load_le16(p), sign);
        case Wire::AsDelivered:
        case Wire::Text:
        case Wire::DepEntries:
            break;
    }
    return width == 2 ? sign16(load_le16(p), sign) : sign32(load_le32(p), sign);
}

// A dependency count as the server bounds it before converting entries.
int dep_count(std::int64_t stored) {
    return static_cast<int>(std::clamp<std::int64_t>(stored, 0, MAX_DEPENDS));
}

JsonValue read_array(const unsigned char* p, std::size_t size, Num num, Wire wire, int lowHalfCount) {
    JsonValue arr = JsonValue::array();
    const std::size_t width = num_width(num);
    for (std::size_t i = 0; i * width + width <= size; ++i) {
        Wire w = wire;
        if (wire == Wire::DepEntries) {
            w = static_cast<int>(i) < lowHalfCount ? Wire::LowHalf : Wire::AsDelivered;
        }
        arr.push(JsonValue::integer(read_number(p + i * width, num, w)));
    }
    return arr;
}

JsonValue read_text(const unsigned char* p, std::size_t size) {
    return JsonValue::string(trim_field(p, size));
}

struct JobContext {
    std::uint16_t flags = 0;
    std::uint16_t flags2 = 0;
    std::uint16_t reFlags = 0;
    std::int16_t numDepends = 0;
};

// sj_fname_jname: the script file name, a user job's real name, or the
// location of a long script text, by the job's flags.
JsonValue read_fname_jname(const unsigned char* p, const JobContext& job) {
    JsonValue obj = JsonValue::object();
    if (flag_set(job.flags2, sjf2_long_jcl)) {
        const std::size_t loc = offsetof(SJ_FNAME_JNAME, jcl_string.jcl_loc);
        obj.set("jcl_filler", read_text(p, loc));
        JsonValue where = JsonValue::object();
        where.set("st_offset", JsonValue::integer(load_le32(p + loc)));
        where.set("st_rec_num", JsonValue::integer(load_le32(p + loc + 4)));
        obj.set("jcl_loc", std::move(where));
    } else if (flag_set(job.flags, sjf1_user_job) || flag_set(job.flags2, sjf2_alias)) {
        obj.set("real_name", read_text(p, sizeof(SJ_FNAME_JNAME::userjob.real_name)));
    } else {
        obj.set("jcl_file", read_text(p, sizeof(SJ_FNAME_JNAME::jcl_file)));
    }
    return obj;
}

// subdep: a recovery job's target (count -1), an external job's identity, or
// the dependency arrays.
JsonValue read_subdep(const unsigned char* p, const JobContext& job, Wire wire) {
    JsonValue obj = JsonValue::object();
    if (job.numDepends == -1) {
        obj.set("sj_re_for_cpu", read_text(p + offsetof(SJ_SUBDEP, submit.sj_re_for_cpu),
                                           sizeof(SJ_SUBDEP::submit.sj_re_for_cpu)));
        obj.set("sj_re_for_job", read_text(p + offsetof(SJ_SUBDEP, submit.sj_re_for_job),
                                           sizeof(SJ_SUBDEP::submit.sj_re_for_job)));
    } else if (flag_set(job.reFlags, sjrf_external)) {
        obj.set("xkes_id", read_text(p, sizeof(SJ_SUBDEP::xkes_id)));
    } else {
        const int lowHalf = wire == Wire::DepEntries ? dep_count(job.numDepends) : 0;
        obj.set("sj_depend_flags", read_array(p + offsetof(SJ_SUBDEP, deps.sj_depend_flags),
                                              sizeof(SJ_SUBDEP::deps.sj_depend_flags), Num::U8,
                                              Wire::AsDelivered, 0));
        obj.set("sj_dependencies", read_array(p + offsetof(SJ_SUBDEP, deps.sj_dependencies),
                                              sizeof(SJ_SUBDEP::deps.sj_dependencies), Num::U32,
                                              Wire::DepEntries, lowHalf));
    }
    return obj;
}

template <std::size_t N>
JsonValue decode_fields(const unsigned char* rec, const FieldRow (&table)[N], ReplySource source) {
    const bool depQuery = source == ReplySource::DepQuery;
    JobContext job;
    job.flags = load_be16(rec + offsetof(SJ_RECTYPE, sj_flags));
    job.flags2 = load_be16(rec + offsetof(SJ_RECTYPE, sj_flags2));
    job.reFlags = load_be16(rec + offsetof(SJ_RECTYPE, sj_re_flags));
    job.numDepends = static_cast<std::int16_t>(load_be16(rec + offsetof(SJ_RECTYPE, sj_num_depends)));
    const auto schedDepends =
        static_cast<std::int16_t>(load_be16(rec + offsetof(SS_RECTYPE, ss_num_depends)));

    JsonValue obj = JsonValue::object();
    for (const FieldRow& f : table) {
        const unsigned char* p = rec + f.offset;
        const Wire wire = depQuery ? f.deps : f.query;
        switch (f.shape) {
            case Shape::Scalar: obj.set(f.name, JsonValue::integer(read_number(p, f.num, wire))); break;
            case Shape::Text: obj.set(f.name, read_text(p, f.size)); break;
            case Shape::Array: {
                const int lowHalf = wire == Wire::DepEntries ? dep_count(schedDepends) : 0;
                obj.set(f.name, read_array(p, f.size, f.num, wire, lowHalf));
                break;
            }
            case Shape::Priority: {
                JsonValue pri = JsonValue::object();
                pri.set("priority", JsonValue::integer(p[offsetof(PRIORITYREC, priority)]));
                pri.set("orig_pri", JsonValue::integer(p[offsetof(PRIORITYREC, orig_pri)]));
                obj.set(f.name, std::move(pri));
                break;
            }
            case Shape::Timer: {
                JsonValue timer = JsonValue::object();
                timer.set("sf_lasttime", JsonValue::integer(static_cast<std::int32_t>(load_le32(p))));
                timer.set("timer1", JsonValue::integer(static_cast<std::int16_t>(load_le16(p))));
                timer.set("timer2", JsonValue::integer(static_cast<std::int16_t>(load_le16(p + 2))));
                obj.set(f.name, std::move(timer));
                break;
            }
            case Shape::FnameJname: obj.set(f.name, read_fname_jname(p, job)); break;
            case Shape::Subdep: obj.set(f.name, read_subdep(p, job, wire)); break;
        }
    }
    return obj;
}

}  // namespace

std::uint16_t record_type_code(const unsigned char* rec) { return load_be16(rec); }

RecordKind kind_of_record(const unsigned char* rec) {
    const std::uint16_t code = record_type_code(rec);
    if (code == static_cast<std::uint16_t>(SCI_CODE)) return RecordKind::Workstation;
    if (code == static_cast<std::uint16_t>(SS_CODE)) return RecordKind::Schedule;
    if (code == static_cast<std::uint16_t>(SJ_CODE)) return RecordKind::Job;
    if (code == SCHED_DEP_CODE) return RecordKind::SchedDep;
    if (code == JOB_DEP_CODE) return RecordKind::JobDep;
    if (code == static_cast<std::uint16_t>(SM_CODE)) return RecordKind::Prompt;
    if (code == static_cast<std::uint16_t>(SF_CODE)) return RecordKind::File;
    if (code == static_cast<std::uint16_t>(SR_CODE)) return RecordKind::Resource;
    return RecordKind::Unknown;
}

const char* record_kind_name(RecordKind kind) {
    switch (kind) {
        case RecordKind::Workstation: return "workstation";
        case RecordKind::Schedule: return "schedule";
        case RecordKind::Job: return "job";
        case RecordKind::SchedDep: return "schedule";
        case RecordKind::JobDep: return "job";
        case RecordKind::Prompt: return "prompt";
        case RecordKind::File: return "file";
        case RecordKind::Resource: return "resource";
        case RecordKind::Unknown: break;
    }
    return "unknown";
}

JsonValue decode_record(const unsigned char* rec, RecordKind kind, ReplySource source) {
    switch (kind) {
        case RecordKind::Workstation: return decode_fields(rec, kCpuFields, source);
        case RecordKind::Schedule:
        case RecordKind::SchedDep: return decode_fields(rec, kSchedFields, source);
        case RecordKind::Job:
        case RecordKind::JobDep: return decode_fields(rec, kJobFields, source);
        case RecordKind::Prompt: return decode_fields(rec, kPromptFields, source);
        case RecordKind::File: return decode_fields(rec, kFileFields, source);
        case RecordKind::Resource: return decode_fields(rec, kResourceFields, source);
        case RecordKind::Unknown: break;
    }
    JsonValue obj = JsonValue::object();
    obj.set("alm_rec_type", JsonValue::integer(record_type_code(rec)));
    return obj;
}

std::string trim_field(const unsigned char* p, std::size_t width) {
    std::size_t n = width;
    while (n > 0 && (p[n - 1] == ' ' || p[n - 1] == '\0')) --n;
    return std::string(reinterpret_cast<const char*>(p), n);
}

std::int64_t field_int(const JsonValue& rec, std::string_view name) {
    const JsonValue* v = rec.find(name);
    return v != nullptr && v->type() == JsonValue::Type::Int ? v->asInt() : 0;
}

std::string field_text(const JsonValue& rec, std::string_view name) {
    const JsonValue* v = rec.find(name);
    return v != nullptr && v->type() == JsonValue::Type::String ? v->asString() : std::string();
}

}  // namespace alm
