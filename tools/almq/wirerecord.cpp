#include "wirerecord.h"

#include <algorithm>
#include <span>

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

std::span<const FieldRow> layout(RecordKind kind) {
    switch (kind) {
        case RecordKind::Workstation: return kCpuFields;
        case RecordKind::Schedule:
        case RecordKind::SchedDep: return kSchedFields;
        case RecordKind::Job:
        case RecordKind::JobDep: return kJobFields;
        case RecordKind::Prompt: return kPromptFields;
        case RecordKind::File: return kFileFields;
        case RecordKind::Resource: return kResourceFields;
        case RecordKind::Unknown: break;
    }
    return {};
}

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

// Item i of an array; in dependency entries the first lowHalfCount items
// are in low half form, the rest as delivered.
std::int64_t read_item(const unsigned char* p, Num num, Wire wire, int lowHalfCount, std::size_t i) {
    if (wire == Wire::DepEntries) {
        wire = static_cast<int>(i) < lowHalfCount ? Wire::LowHalf : Wire::AsDelivered;
    }
    return read_number(p + i * num_width(num), num, wire);
}

void write_array(const unsigned char* p, std::size_t size, Num num, Wire wire, int lowHalfCount, JsonWriter& w) {
    w.beginArray();
    const std::size_t width = num_width(num);
    for (std::size_t i = 0; i * width + width <= size; ++i) w.integer(read_item(p, num, wire, lowHalfCount, i));
    w.endArray();
}

void write_text(std::string_view name, const unsigned char* p, std::size_t size, JsonWriter& w) {
    w.member(name, trim_field(p, size));
}

struct JobContext {
    std::uint16_t flags = 0;
    std::uint16_t flags2 = 0;
    std::uint16_t reFlags = 0;
    std::int16_t numDepends = 0;
};

JobContext job_context(const unsigned char* rec) {
    JobContext job;
    job.flags = load_be16(rec + offsetof(SJ_RECTYPE, sj_flags));
    job.flags2 = load_be16(rec + offsetof(SJ_RECTYPE, sj_flags2));
    job.reFlags = load_be16(rec + offsetof(SJ_RECTYPE, sj_re_flags));
    job.numDepends = static_cast<std::int16_t>(load_be16(rec + offsetof(SJ_RECTYPE, sj_num_depends)));
    return job;
}

JobScript::Form script_form(const JobContext& job) {
    if (flag_set(job.flags2, sjf2_long_jcl)) return JobScript::Form::LongText;
    if (flag_set(job.flags, sjf1_user_job) || flag_set(job.flags2, sjf2_alias)) return JobScript::Form::RealName;
    return JobScript::Form::File;
}

// What the subdep union of a job holds: a recovery job's target (count -1),
// an external job's identity, or the dependency arrays.
enum class SubdepForm { RecoveryTarget, External, Dependencies };

SubdepForm subdep_form(const JobContext& job) {
    if (job.numDepends == -1) return SubdepForm::RecoveryTarget;
    if (flag_set(job.reFlags, sjrf_external)) return SubdepForm::External;
    return SubdepForm::Dependencies;
}

constexpr std::size_t kSubdepFlags = offsetof(SJ_RECTYPE, subdep) + offsetof(SJ_SUBDEP, deps.sj_depend_flags);
constexpr std::size_t kSubdepRecords = offsetof(SJ_RECTYPE, subdep) + offsetof(SJ_SUBDEP, deps.sj_dependencies);

void write_fname_jname(const unsigned char* rec, JsonWriter& w) {
    const JobScript script = job_script(rec);
    w.beginObject();
    switch (script.form) {
        case JobScript::Form::LongText:
            w.member("jcl_filler", script.text);
            w.key("jcl_loc");
            w.beginObject();
            w.member("st_offset", script.offset);
            w.member("st_rec_num", script.recNum);
            w.endObject();
            break;
        case JobScript::Form::RealName: w.member("real_name", script.text); break;
        case JobScript::Form::File: w.member("jcl_file", script.text); break;
    }
    w.endObject();
}

void write_subdep(const unsigned char* rec, Wire wire, JsonWriter& w) {
    const JobContext job = job_context(rec);
    const unsigned char* p = rec + offsetof(SJ_RECTYPE, subdep);
    w.beginObject();
    switch (subdep_form(job)) {
        case SubdepForm::RecoveryTarget:
            write_text("sj_re_for_cpu", p + offsetof(SJ_SUBDEP, submit.sj_re_for_cpu),
                       sizeof(SJ_SUBDEP::submit.sj_re_for_cpu), w);
            write_text("sj_re_for_job", p + offsetof(SJ_SUBDEP, submit.sj_re_for_job),
                       sizeof(SJ_SUBDEP::submit.sj_re_for_job), w);
            break;
        case SubdepForm::External: write_text("xkes_id", p, sizeof(SJ_SUBDEP::xkes_id), w); break;
        case SubdepForm::Dependencies: {
            const int lowHalf = wire == Wire::DepEntries ? dep_count(job.numDepends) : 0;
            w.key("sj_depend_flags");
            write_array(rec + kSubdepFlags, sizeof(SJ_SUBDEP::deps.sj_depend_flags), Num::U8, Wire::AsDelivered, 0,
                        w);
            w.key("sj_dependencies");
            write_array(rec + kSubdepRecords, sizeof(SJ_SUBDEP::deps.sj_dependencies), Num::U32, Wire::DepEntries,
                        lowHalf, w);
            break;
        }
    }
    w.endObject();
}

std::int16_t sched_depends(const unsigned char* rec) {
    return static_cast<std::int16_t>(load_be16(rec + offsetof(SS_RECTYPE, ss_num_depends)));
}

void write_field(const unsigned char* rec, const FieldRow& f, Wire wire, JsonWriter& w) {
    const unsigned char* p = rec + f.offset;
    w.key(f.name);
    switch (f.shape) {
        case Shape::Scalar: w.integer(read_number(p, f.num, wire)); break;
        case Shape::Text: w.string(trim_field(p, f.size)); break;
        case Shape::Array: {
            const int lowHalf = wire == Wire::DepEntries ? dep_count(sched_depends(rec)) : 0;
            write_array(p, f.size, f.num, wire, lowHalf, w);
            break;
        }
        case Shape::Priority:
            w.beginObject();
            w.member("priority", p[offsetof(PRIORITYREC, priority)]);
            w.member("orig_pri", p[offsetof(PRIORITYREC, orig_pri)]);
            w.endObject();
            break;
        case Shape::Timer:
            w.beginObject();
            w.member("sf_lasttime", static_cast<std::int32_t>(load_le32(p)));
            w.member("timer1", static_cast<std::int16_t>(load_le16(p)));
            w.member("timer2", static_cast<std::int16_t>(load_le16(p + 2)));
            w.endObject();
            break;
        case Shape::FnameJname: write_fname_jname(rec, w); break;
        case Shape::Subdep: write_subdep(rec, wire, w); break;
    }
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

void write_record_json(const unsigned char* rec, RecordKind kind, ReplySource source, JsonWriter& w) {
    const std::span<const FieldRow> fields = layout(kind);
    if (fields.empty()) {
        w.member("alm_rec_type", record_type_code(rec));
        return;
    }
    const bool depQuery = source == ReplySource::DepQuery;
    for (const FieldRow& f : fields) write_field(rec, f, depQuery ? f.deps : f.query, w);
}

WireField::WireField(RecordKind kind, std::string_view name, ReplySource source)
    : kind_(kind), depQuery_(source == ReplySource::DepQuery) {
    const std::span<const FieldRow> fields = layout(kind);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].name == name) row_ = i;
    }
}

std::int64_t WireField::integer(const unsigned char* rec) const {
    if (row_ == kNone) return 0;
    const FieldRow& f = layout(kind_)[row_];
    const unsigned char* p = rec + f.offset;
    switch (f.shape) {
        case Shape::Scalar: return read_number(p, f.num, depQuery_ ? f.deps : f.query);
        case Shape::Priority: return p[offsetof(PRIORITYREC, priority)];
        default: return 0;
    }
}

std::string WireField::text(const unsigned char* rec) const {
    if (row_ == kNone) return {};
    const FieldRow& f = layout(kind_)[row_];
    return f.shape == Shape::Text ? trim_field(rec + f.offset, f.size) : std::string();
}

JobScript job_script(const unsigned char* rec) {
    const unsigned char* p = rec + offsetof(SJ_RECTYPE, sj_fname_jname);
    JobScript script;
    script.form = script_form(job_context(rec));
    switch (script.form) {
        case JobScript::Form::LongText: {
            const std::size_t loc = offsetof(SJ_FNAME_JNAME, jcl_string.jcl_loc);
            script.text = trim_field(p, loc);
            script.offset = load_le32(p + loc);
            script.recNum = load_le32(p + loc + 4);
            break;
        }
        case JobScript::Form::RealName: script.text = trim_field(p, sizeof(SJ_FNAME_JNAME::userjob.real_name)); break;
        case JobScript::Form::File: script.text = trim_field(p, sizeof(SJ_FNAME_JNAME::jcl_file)); break;
    }
    return script;
}

void dependency_entries(const unsigned char* rec, RecordKind kind, ReplySource source,
                        std::vector<DependencyEntry>& out) {
    out.clear();
    const Wire wire = source == ReplySource::DepQuery ? Wire::DepEntries : Wire::AsDelivered;
    const unsigned char* flags = nullptr;
    const unsigned char* records = nullptr;
    int count = 0;
    if (kind == RecordKind::Schedule) {
        flags = rec + offsetof(SS_RECTYPE, ss_depend_flags);
        records = rec + offsetof(SS_RECTYPE, ss_dependencies);
        count = dep_count(sched_depends(rec));
    } else if (kind == RecordKind::Job) {
        const JobContext job = job_context(rec);
        if (subdep_form(job) != SubdepForm::Dependencies) return;
        flags = rec + kSubdepFlags;
        records = rec + kSubdepRecords;
        count = dep_count(job.numDepends);
    }
    const int lowHalf = wire == Wire::DepEntries ? count : 0;
    for (int i = 0; i < count; ++i) {
        const auto at = static_cast<std::size_t>(i);
        out.push_back({flags[at], static_cast<std::uint32_t>(read_item(records, Num::U32, wire, lowHalf, at))});
    }
}

std::string trim_field(const unsigned char* p, std::size_t width) {
    std::size_t n = width;
    while (n > 0 && (p[n - 1] == ' ' || p[n - 1] == '\0')) --n;
    return std::string(reinterpret_cast<const char*>(p), n);
}

}  // namespace alm
