#include "recfields.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <utility>

#include "util/endian.h"

namespace alm {
namespace {

template <class T>
struct Shape;
template <class T, FieldType Ty>
struct ScalarShape {
    static constexpr FieldType type = Ty;
    static constexpr std::uint16_t width = sizeof(T);
    static constexpr std::uint16_t count = 1;
};
template <>
struct Shape<std::int16_t> : ScalarShape<std::int16_t, FieldType::Signed> {};
template <>
struct Shape<std::int32_t> : ScalarShape<std::int32_t, FieldType::Signed> {};
template <>
struct Shape<std::uint8_t> : ScalarShape<std::uint8_t, FieldType::Unsigned> {};
template <>
struct Shape<std::uint16_t> : ScalarShape<std::uint16_t, FieldType::Unsigned> {};
template <>
struct Shape<std::uint32_t> : ScalarShape<std::uint32_t, FieldType::Unsigned> {};
template <std::size_t N>
struct Shape<char[N]> {
    static constexpr FieldType type = FieldType::Text;
    static constexpr std::uint16_t width = N;
    static constexpr std::uint16_t count = 1;
};
template <class T, std::size_t N>
struct Shape<T[N]> {
    static constexpr FieldType type = Shape<T>::type;
    static constexpr std::uint16_t width = Shape<T>::width;
    static constexpr std::uint16_t count = N;
};

template <class T>
constexpr FieldDesc make_field(const char* name, std::size_t offset, FieldRole role) {
    return FieldDesc{name, static_cast<std::uint16_t>(offset), Shape<T>::width, Shape<T>::count, Shape<T>::type, role};
}

// Offset, width and type all come from the layout struct itself.
#define FLD_AS(S, label, member, role) \
    make_field<decltype(std::declval<S&>().member)>(label, offsetof(S, member), FieldRole::role)
#define FLD(S, member, role) FLD_AS(S, #member, member, role)

#define H(m, r) FLD(SH_RECTYPE, m, r)
constexpr FieldDesc kHeaderFields[] = {
    H(alm_rec_type, Plain), H(sh_status, Plain), H(sh_filler5, Plain), H(sh_rec_version, Plain),
    H(sh_rec_num, Plain), H(sh_cont_rec, RecPtr), H(sh_cpu_id, Plain), H(sh_mast_cpu, Plain),
    H(sh_first_sched, RecPtr), H(sh_last_sched, RecPtr), H(sh_first_msg, RecPtr), H(sh_last_msg, RecPtr),
    H(sh_num_recs, Plain), H(sh_first_file, RecPtr), H(sh_last_file, RecPtr), H(sh_first_resource, RecPtr),
    H(sh_last_resource, RecPtr), H(sh_first_cal, RecPtr), H(sh_last_cal, RecPtr), H(sh_first_cpu, RecPtr),
    H(sh_last_cpu, RecPtr), H(sh_first_st, RecPtr), H(sh_last_st, RecPtr), H(sh_first_super, RecPtr),
    H(sh_last_super, RecPtr), H(sh_console, Plain), H(sh_last_date, Plain), H(sh_sched_date, Plain),
    H(sh_date_started, Plain), H(sh_elapse_time, Plain), H(sh_first_domain, RecPtr), H(sh_last_domain, RecPtr),
    H(sh_flags, Plain), H(sh_num_domains, Plain), H(sh_num_msgs, Plain), H(sh_num_scheds, Plain),
    H(sh_num_depends, Plain), H(sh_version, Plain), H(sh_run_number, Plain), H(sh_cons_level, Plain),
    H(sh_day_start, Plain), H(sh_num_sts, Plain), H(sh_num_cpus, Plain), H(sh_num_cals, Plain),
    H(sh_num_resources, Plain), H(sh_num_userjobs, Plain), H(sh_num_files, Plain), H(sh_num_super, Plain),
    H(sh_cpu_limit, Plain), H(sh_job_fence, Plain), H(sh_filler2, Plain), H(sh_filler1, Plain),
    H(sh_audit_level, Plain), H(sh_last_time, Plain), H(sh_time_started, Plain), H(sh_cons_session, Plain),
    H(sh_mast_domain, Plain), H(sh_flags2, Plain), H(sh_alm_version, Plain), H(sh_filler3, Plain),
};
#undef H

#define C(m, r) FLD(SCI_RECTYPE, m, r)
constexpr FieldDesc kCpuFields[] = {
    C(alm_rec_type, Plain), C(sci_status, Plain), C(sci_filler6, Plain), C(sci_rec_version, Plain),
    C(sci_rec_num, Plain), C(sci_cont_rec, RecPtr), C(sci_cpu_id, Plain), C(sci_host_cpu, Plain),
    C(sci_first_sched, RecPtr), C(sci_console, Plain), C(sci_date_started, Plain), C(sci_elapse_time, Plain),
    C(sci_marshal_flags, Plain), C(sci_mpe_fence, Plain), C(sci_mpe_limit, Plain), C(sci_access_method, Plain),
    C(sci_filler2, Plain), C(sci_run_number, Plain), C(sci_cons_level, Plain), C(sci_filler3, Plain),
    C(sci_node_name, Plain), C(sci_filler4, Plain), C(sci_time_started, Plain), C(sci_cpu_limit, Plain),
    C(sci_job_fence, Plain), C(sci_requested, Plain), C(sci_flags, Plain), C(sci_prev_cpu_ptr, RecPtr),
    C(sci_next_cpu_ptr, RecPtr), C(sci_prev_domain_ptr, RecPtr), C(sci_next_domain_ptr, RecPtr),
    C(sci_dblnk_recnum, Plain), C(sci_node_addr, Plain), C(sci_cpu_type, Plain), C(sci_link_type, Plain),
    C(sci_server, Plain), C(sci_node_type, Plain), C(sci_kestrel_version, Plain), C(sci_filler7, Plain),
    C(sci_user_info, Plain), C(sci_domain_name, Plain), C(sci_domain_parent, Plain), C(sci_timezone_id, Plain),
    C(sci_filler5, Plain),
};
#undef C

#define S(m, r) FLD(SS_RECTYPE, m, r)
constexpr FieldDesc kSchedFields[] = {
    S(alm_rec_type, Plain), S(ss_status, Plain), S(ss_filler1, Plain), S(ss_rec_version, Plain),
    S(ss_rec_num, Plain), S(ss_cont_rec, RecPtr), S(ss_cpu_id, Plain), S(ss_sched_name, Plain),
    S(ss_num_recs, Plain), S(ss_num_jobs, Plain), S(ss_num_succ, Plain), S(ss_orig_sched, Plain),
    S(ss_sched_pri.priority, Plain), S(ss_sched_pri.orig_pri, Plain), S(ss_spare_word12, Plain),
    S(ss_calc_num, Plain), S(ss_num_notrun, Plain), S(ss_num_exec, Plain), S(ss_num_abend, Plain),
    S(ss_num_failed, Plain), S(ss_until_time, Plain), S(ss_filler6, Plain), S(ss_cpu_time, Plain),
    S(ss_until_date, Plain), S(ss_first_job, RecPtr), S(ss_last_job, RecPtr), S(ss_prev_sch_ptr, RecPtr),
    S(ss_next_sch_ptr, RecPtr), S(ss_job_number, Plain), S(ss_dependencies, Plain), S(ss_limit, Plain),
    S(ss_cpuclass_id, Plain), S(ss_spare_word15, Plain), S(ss_num_skel, Plain), S(ss_filler2, Plain),
    S(ss_flags, Plain), S(ss_filler3, Plain), S(ss_re_flags, Plain), S(ss_filler4, Plain),
    S(ss_restart_ptr, Plain), S(ss_restart_from, Plain), S(ss_prod_date, Plain), S(ss_sched_date, Plain),
    S(ss_date_started, Plain), S(ss_elapse_time, Plain), S(ss_est_elapse, Plain), S(ss_num_depends, Plain),
    S(ss_start_time, Plain), S(ss_time_started, Plain), S(ss_depend_flags, Plain), S(ss_filler5, Plain),
};
#undef S

// The job's unions are initialised through one member each (the 40-byte
// real_name blanks the whole name union, the dependency arrays zero subdep);
// the other members are aliases of the same bytes.
#define J(m, r) FLD(SJ_RECTYPE, m, r)
#define JA(label, m, r) FLD_AS(SJ_RECTYPE, label, m, r)
constexpr FieldDesc kJobFields[] = {
    J(alm_rec_type, Plain), J(sj_status, Plain), J(sj_filler2, Plain), J(sj_rec_version, Plain),
    J(sj_rec_num, Plain), J(sj_cont_rec, RecPtr), J(sj_cpu_id, Plain), J(sj_job_name, Plain),
    J(sj_job_pri.priority, Plain), J(sj_job_pri.orig_pri, Plain), J(sj_schedule, Plain), J(sj_job_user, Plain),
    J(sj_job_acct, Plain), J(sj_job_group, Plain), J(sj_every_hhmm, Plain), J(sj_until_time, Plain),
    J(sj_flags2, Plain), J(sj_flags, Plain), J(sj_re_flags, Plain), J(sj_start_time, Plain),
    J(sj_time_started, Plain), J(sj_num_depends, Plain), J(sj_filler3, Plain),
    JA("real_name", sj_fname_jname.userjob.real_name, Plain),
    JA("jcl_file", sj_fname_jname.jcl_file, Alias),
    JA("jcl_filler", sj_fname_jname.jcl_string.jcl_filler, Alias),
    JA("jcl_loc.st_offset", sj_fname_jname.jcl_string.jcl_loc.st_offset, Alias),
    JA("jcl_loc.st_rec_num", sj_fname_jname.jcl_string.jcl_loc.st_rec_num, Alias),
    J(sj_sched_ptr, RecPtr), J(sj_prev_job_ptr, RecPtr), J(sj_next_job_ptr, RecPtr), J(sj_re_job_ptr, RecPtr),
    J(sj_re_prmpt_ptr, RecPtr), J(sj_restart_ptr, RecPtr),
    JA("sj_rec_ptrs", sj_rec_ptrs.current_job, RecPtr),
    JA("current_job", sj_rec_ptrs.current_job, Alias),
    JA("head_job", sj_rec_ptrs.head_job, Alias),
    J(sj_until_date, Plain), J(sj_sched_date, Plain), J(sj_date_started, Plain), J(sj_elapse_time, Plain),
    J(sj_est_elapse, Plain), J(sj_cpu_time, Plain), J(sj_job_number, Plain),
    JA("sj_depend_flags", subdep.deps.sj_depend_flags, Plain),
    JA("sj_dependencies", subdep.deps.sj_dependencies, Plain),
    JA("sj_re_for_cpu", subdep.submit.sj_re_for_cpu, Alias),
    JA("sj_re_for_job", subdep.submit.sj_re_for_job, Alias),
    JA("xkes_id", subdep.xkes_id, Alias),
    J(sj_filler1, Plain),
};
#undef JA
#undef J

#define M(m, r) FLD(SM_RECTYPE, m, r)
constexpr FieldDesc kPromptFields[] = {
    M(alm_rec_type, Plain), M(sm_status, Plain), M(sm_filler3, Plain), M(sm_rec_version, Plain),
    M(sm_rec_num, Plain), M(sm_cont_rec, RecPtr), M(sm_cpu_id, Plain), M(sm_msg_name, Plain),
    M(sm_prev_msg, RecPtr), M(sm_next_msg, RecPtr), M(sm_job_ptr, RecPtr), M(sm_date_asked, Plain),
    M(sm_date_resp, Plain), M(sm_msg_no, Plain), M(sm_msg_flags, Plain), M(sm_time_asked, Plain),
    M(sm_time_resp, Plain), M(sm_filler1, Plain), M(sm_message, Plain), M(sm_message_more, Plain),
    M(sm_filler2, Plain),
};
#undef M

#define F(m, r) FLD(SF_RECTYPE, m, r)
#define FA(label, m, r) FLD_AS(SF_RECTYPE, label, m, r)
constexpr FieldDesc kFileFields[] = {
    F(alm_rec_type, Plain), F(sf_status, Plain), F(sf_filler6, Plain), F(sf_rec_version, Plain),
    F(sf_rec_num, Plain), F(sf_cont_rec, RecPtr), F(sf_cpu_id, Plain), F(sf_prev_file, RecPtr),
    F(sf_next_file, RecPtr), F(sf_filler1, Plain), F(sf_file_name, Plain), F(sf_filler2, Plain),
    F(sf_filler3, Plain),
    FA("sf_timer", sf_timer.sf_lasttime, Plain),
    FA("sf_lasttime", sf_timer.sf_lasttime, Alias),
    FA("timer1", sf_timer.timers.timer1, Alias),
    FA("timer2", sf_timer.timers.timer2, Alias),
    F(sf_filler4, Plain), F(sf_feq_len, Plain), F(sf_feq, Plain), F(sf_filler5, Plain),
};
#undef FA
#undef F

#define R(m, r) FLD(SR_RECTYPE, m, r)
constexpr FieldDesc kResourceFields[] = {
    R(alm_rec_type, Plain), R(sr_status, Plain), R(sr_filler4, Plain), R(sr_rec_version, Plain),
    R(sr_rec_num, Plain), R(sr_cont_rec, RecPtr), R(sr_cpu_id, Plain), R(sr_resource_name, Plain),
    R(sr_prev_resource, RecPtr), R(sr_next_resource, RecPtr), R(sr_num_avail, Plain), R(sr_num_used, Plain),
    R(sr_num_unused, Plain), R(sr_num_holders, Plain), R(sr_filler1, Plain), R(sr_holders, Plain),
    R(sr_filler2, Plain), R(sr_hold_counts, Plain), R(sr_filler3, Plain),
};
#undef R

#define K(m, r) FLD(SC_RECTYPE, m, r)
constexpr FieldDesc kCalendarFields[] = {
    K(alm_rec_type, Plain), K(sc_filler1, Plain), K(sc_filler3, Plain), K(sc_rec_version, Plain),
    K(sc_cal_name, Plain), K(sc_num_dates, Plain), K(sc_cont_rec, RecPtr), K(sc_cont_from, RecPtr),
    K(sc_prev_cal, RecPtr), K(sc_next_cal, RecPtr), K(sc_cal_dates, Plain), K(sc_filler2, Plain),
};
#undef K

#define T(m, r) FLD(ST_RECTYPE, m, r)
#define TA(label, m, r) FLD_AS(ST_RECTYPE, label, m, r)
constexpr FieldDesc kStringFields[] = {
    T(alm_rec_type, Plain), T(st_filler1, Plain), T(st_filler2, Plain), T(st_rec_version, Plain),
    T(st_rec_num, Plain), T(st_next_ptr, RecPtr), T(st_First_Free, Plain),
    TA("st_strings", st_str_space.st_strings, Plain),
    TA("st_subrec_identifier", st_str_space.subrec.st_subrec_identifier, Alias),
    TA("prev_ptr", st_str_space.subrec.prev_ptr, Alias),
    TA("buffer1", st_str_space.subrec.buffer1, Alias),
    TA("buffer2", st_str_space.subrec.buffer2, Alias),
    TA("next_ptr", st_str_space.subrec.next_ptr, Alias),
};
#undef TA
#undef T
#undef FLD
#undef FLD_AS

struct KindInfo {
    const char* word;
    std::int16_t code;
    std::span<const FieldDesc> fields;
};

// Indexed by RecKind.
constexpr std::array<KindInfo, REC_KIND_COUNT> kKinds{{
    {"header", SH_CODE, kHeaderFields},
    {"workstation", SCI_CODE, kCpuFields},
    {"schedule", SS_CODE, kSchedFields},
    {"job", SJ_CODE, kJobFields},
    {"prompt", SM_CODE, kPromptFields},
    {"file", SF_CODE, kFileFields},
    {"resource", SR_CODE, kResourceFields},
    {"calendar", SC_CODE, kCalendarFields},
    {"string", ST_CODE, kStringFields},
}};

constexpr const KindInfo& info(RecKind kind) { return kKinds[static_cast<std::size_t>(kind)]; }

// Every kind built here keeps its ..._rec_version word at offset 6.
constexpr std::size_t kRecVersionOffset = 6;
static_assert(offsetof(SH_RECTYPE, sh_rec_version) == kRecVersionOffset);
static_assert(offsetof(SC_RECTYPE, sc_rec_version) == kRecVersionOffset);
static_assert(offsetof(ST_RECTYPE, st_rec_version) == kRecVersionOffset);

constexpr DateField kDateFields[] = {
    {RecKind::Header, "sh_last_date", "sh_last_time"},
    {RecKind::Header, "sh_sched_date", nullptr},
    {RecKind::Header, "sh_date_started", "sh_time_started"},
    {RecKind::Cpu, "sci_date_started", "sci_time_started"},
    {RecKind::Sched, "ss_prod_date", nullptr},
    {RecKind::Sched, "ss_until_date", "ss_until_time"},
    {RecKind::Sched, "ss_sched_date", "ss_start_time"},
    {RecKind::Sched, "ss_date_started", "ss_time_started"},
    {RecKind::Job, "sj_until_date", "sj_until_time"},
    {RecKind::Job, "sj_sched_date", "sj_start_time"},
    {RecKind::Job, "sj_date_started", "sj_time_started"},
    {RecKind::Prompt, "sm_date_asked", "sm_time_asked"},
    {RecKind::Prompt, "sm_date_resp", "sm_time_resp"},
};

}  // namespace

std::span<const FieldDesc> record_fields(RecKind kind) { return info(kind).fields; }

const FieldDesc* find_field(RecKind kind, std::string_view name) {
    for (const FieldDesc& f : info(kind).fields) {
        if (name == f.name) return &f;
    }
    return nullptr;
}

std::optional<RecKind> kind_having_field(std::string_view name, RecKind kind) {
    for (int k = 0; k < REC_KIND_COUNT; ++k) {
        auto other = static_cast<RecKind>(k);
        if (other != kind && find_field(other, name) != nullptr) return other;
    }
    return std::nullopt;
}

std::int16_t record_code(RecKind kind) { return info(kind).code; }
const char* kind_word(RecKind kind) { return info(kind).word; }

void init_record(RecKind kind, ALMRECTYPE& rec) {
    std::memset(rec.bytes, 0, sizeof rec.bytes);
    for (const FieldDesc& f : info(kind).fields) {
        if (f.role == FieldRole::Alias) continue;
        if (f.type == FieldType::Text) {
            std::memset(rec.bytes + f.offset, ' ', f.size());
        } else if (f.role == FieldRole::RecPtr) {
            for (int i = 0; i < f.count; ++i) store_number(rec.bytes, f, i, NULL_REC);
        }
    }
    store_le16(rec.bytes, static_cast<std::uint16_t>(info(kind).code));
    store_le16(rec.bytes + kRecVersionOffset, 1);
}

bool number_fits(const FieldDesc& f, std::int64_t v) {
    if (f.type == FieldType::Text) return false;
    const int bits = f.width * 8;
    const std::int64_t lo = -(std::int64_t{1} << (bits - 1));
    const std::int64_t hi = (std::int64_t{1} << bits) - 1;
    return v >= lo && v <= hi;
}

void store_number(unsigned char* rec, const FieldDesc& f, int index, std::int64_t v) {
    unsigned char* p = rec + f.offset + index * f.width;
    const auto u = static_cast<std::uint64_t>(v);
    switch (f.width) {
    case 1: *p = static_cast<unsigned char>(u); break;
    case 2: store_le16(p, static_cast<std::uint16_t>(u)); break;
    default: store_le32(p, static_cast<std::uint32_t>(u)); break;
    }
}

std::int64_t load_number(const unsigned char* rec, const FieldDesc& f, int index) {
    const unsigned char* p = rec + f.offset + index * f.width;
    const bool sign = f.type == FieldType::Signed;
    switch (f.width) {
    case 1: return sign ? static_cast<std::int8_t>(*p) : *p;
    case 2: return sign ? static_cast<std::int16_t>(load_le16(p)) : load_le16(p);
    default: return sign ? static_cast<std::int32_t>(load_le32(p)) : load_le32(p);
    }
}

void store_text(unsigned char* rec, const FieldDesc& f, std::string_view text) {
    unsigned char* p = rec + f.offset;
    const std::size_t n = text.size() < f.width ? text.size() : f.width;
    if (n > 0) std::memcpy(p, text.data(), n);  // an empty view may have no data
    std::memset(p + n, ' ', f.width - n);
}

const DateField* find_date_field(RecKind kind, std::string_view name) {
    for (const DateField& d : kDateFields) {
        if (d.kind == kind && name == d.date) return &d;
    }
    return nullptr;
}

}  // namespace alm
