// Field-by-field moves between V1 records and the V2 layout.
#include "plan/almforms_v1.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>

#include "plan/almrecs.h"
#include "util/dateutil.h"
#include "util/endian.h"

namespace alm {

namespace {

#define ALM_MOVE(V1T, f1, V2T, f2, how)                                                              \
    V1FieldMove {                                                                                    \
        #f2, offsetof(V1T, f1), offsetof(V2T, f2), sizeof(std::declval<V1T&>().f1),                 \
            sizeof(std::declval<V2T&>().f2), V1Move::how                                             \
    }
#define SH(f, how) ALM_MOVE(SH_RECTYPE_V1, f, SH_RECTYPE, f, how)
#define SCI(f, how) ALM_MOVE(SCI_RECTYPE_V1, f, SCI_RECTYPE, f, how)
#define SS(f, how) ALM_MOVE(SS_RECTYPE_V1, f, SS_RECTYPE, f, how)
#define SJ(f, how) ALM_MOVE(SJ_RECTYPE_V1, f, SJ_RECTYPE, f, how)
#define SM(f, how) ALM_MOVE(SM_RECTYPE_V1, f, SM_RECTYPE, f, how)
#define SF(f, how) ALM_MOVE(SF_RECTYPE_V1, f, SF_RECTYPE, f, how)
#define SR(f, how) ALM_MOVE(SR_RECTYPE_V1, f, SR_RECTYPE, f, how)
#define SC(f, how) ALM_MOVE(SC_RECTYPE_V1, f, SC_RECTYPE, f, how)
#define ST(f, how) ALM_MOVE(ST_RECTYPE_V1, f, ST_RECTYPE, f, how)
#define SD(f, how) ALM_MOVE(SD_RECTYPE_V1, f, SD_RECTYPE, f, how)
#define PJ(f, how) ALM_MOVE(PJ_RECTYPE_V1, f, PJ_RECTYPE, f, how)

// Tables follow the V1 layouts in order. Fields present only in V2 are left
// blank by the widening, apart from the record head set in v1_widen.
constexpr V1FieldMove kHdrMoves[] = {
    SH(alm_rec_type, Bytes),      SH(sh_cpu_id, Bytes),          SH(sh_mast_cpu, Bytes),
    SH(sh_status, Bytes),         SH(sh_first_sched, ZeroExtend16), SH(sh_last_sched, ZeroExtend16),
    SH(sh_num_scheds, Bytes),     SH(sh_first_msg, ZeroExtend16), SH(sh_last_msg, ZeroExtend16),
    SH(sh_num_msgs, Bytes),       SH(sh_num_recs, ZeroExtend16), SH(sh_num_depends, Bytes),
    SH(sh_version, Bytes),        SH(sh_run_number, Bytes),      SH(sh_console, Bytes),
    SH(sh_cons_level, Bytes),     SH(sh_day_start, Bytes),       SH(sh_first_file, ZeroExtend16),
    SH(sh_last_file, ZeroExtend16), SH(sh_num_files, Bytes),     SH(sh_first_resource, ZeroExtend16),
    SH(sh_last_resource, ZeroExtend16), SH(sh_num_resources, Bytes), SH(sh_num_userjobs, Bytes),
    SH(sh_flags, Bytes),          SH(sh_first_cal, ZeroExtend16), SH(sh_last_cal, ZeroExtend16),
    SH(sh_num_cals, Bytes),       SH(sh_first_cpu, ZeroExtend16), SH(sh_last_cpu, ZeroExtend16),
    SH(sh_num_cpus, Bytes),       SH(sh_first_st, ZeroExtend16), SH(sh_last_st, ZeroExtend16),
    SH(sh_num_sts, Bytes),        SH(sh_first_super, ZeroExtend16), SH(sh_last_super, ZeroExtend16),
    SH(sh_num_super, Bytes),      SH(sh_first_domain, ZeroExtend16), SH(sh_last_domain, ZeroExtend16),
    SH(sh_num_domains, Bytes),    SH(sh_filler1, Bytes),         SH(sh_audit_level, Bytes),
    SH(sh_last_time, Bytes),      SH(sh_last_date, Yymmdd),      SH(sh_sched_date, Yymmdd),
    SH(sh_date_started, Yymmdd),  SH(sh_elapse_time, Bytes),     SH(sh_time_started, Bytes),
    SH(sh_cpu_limit, Bytes),      SH(sh_job_fence, Bytes),       SH(sh_filler2, Bytes),
    SH(sh_rec_num, ZeroExtend16), SH(sh_cons_session, Bytes),    SH(sh_mast_domain, Bytes),
    SH(sh_flags2, Bytes),         SH(sh_filler3, Bytes),         SH(sh_alm_version, Bytes),
};

constexpr V1FieldMove kCpuMoves[] = {
    SCI(alm_rec_type, Bytes),       SCI(sci_cpu_id, Bytes),           SCI(sci_host_cpu, Bytes),
    SCI(sci_status, Bytes),         SCI(sci_first_sched, ZeroExtend16), SCI(sci_marshal_flags, Bytes),
    SCI(sci_mpe_fence, Bytes),      SCI(sci_mpe_limit, Bytes),        SCI(sci_access_method, Bytes),
    SCI(sci_filler2, Bytes),        SCI(sci_run_number, Bytes),       SCI(sci_console, Bytes),
    SCI(sci_cons_level, Bytes),     SCI(sci_filler3, Bytes),          SCI(sci_node_name, Bytes),
    SCI(sci_filler4, Bytes),        SCI(sci_filler7, Bytes),          SCI(sci_prev_domain_ptr, ZeroExtend16),
    SCI(sci_next_domain_ptr, ZeroExtend16), SCI(sci_date_started, Bytes), SCI(sci_elapse_time, Bytes),
    SCI(sci_time_started, Bytes),   SCI(sci_cpu_limit, Bytes),        SCI(sci_job_fence, Bytes),
    SCI(sci_requested, Bytes),      SCI(sci_rec_num, ZeroExtend16),   SCI(sci_prev_cpu_ptr, ZeroExtend16),
    SCI(sci_next_cpu_ptr, ZeroExtend16), SCI(sci_flags, Bytes),       SCI(sci_dblnk_recnum, Bytes),
    SCI(sci_node_addr, Bytes),      SCI(sci_cpu_type, Bytes),         SCI(sci_link_type, Bytes),
    SCI(sci_server, Bytes),         SCI(sci_node_type, Bytes),        SCI(sci_kestrel_version, Bytes),
    SCI(sci_timezone_id, Bytes),    SCI(sci_user_info, Bytes),        SCI(sci_domain_name, Bytes),
    SCI(sci_domain_parent, Bytes),  SCI(sci_filler5, Bytes),
};

constexpr V1FieldMove kSchedMoves[] = {
    SS(alm_rec_type, Bytes),      SS(ss_cpu_id, Bytes),          SS(ss_sched_name, Bytes),
    SS(ss_status, Bytes),         SS(ss_sched_pri, Bytes),       SS(ss_spare_word12, Bytes),
    SS(ss_num_recs, Bytes),       SS(ss_num_jobs, Bytes),        SS(ss_num_succ, Bytes),
    SS(ss_spare_word15, Bytes),   SS(ss_prod_date, Yymmdd),      SS(ss_orig_sched, Bytes),
    SS(ss_calc_num, Bytes),       SS(ss_num_notrun, Bytes),      SS(ss_num_exec, Bytes),
    SS(ss_num_abend, Bytes),      SS(ss_num_failed, Bytes),      SS(ss_num_skel, Bytes),
    SS(ss_cpu_time, Bytes),       SS(ss_until_date, CalDay),     SS(ss_until_time, Bytes),
    SS(ss_first_job, ZeroExtend16), SS(ss_last_job, ZeroExtend16), SS(ss_prev_sch_ptr, ZeroExtend16),
    SS(ss_next_sch_ptr, ZeroExtend16), SS(ss_job_number, Bytes), SS(ss_limit, Bytes),
    SS(ss_cpuclass_id, Bytes),    SS(ss_filler2, Bytes),         SS(ss_flags, Bytes),
    SS(ss_filler3, Bytes),        SS(ss_re_flags, Bytes),        SS(ss_filler4, Bytes),
    SS(ss_restart_ptr, Bytes),    SS(ss_restart_from, Bytes),    SS(ss_sched_date, Yymmdd),
    SS(ss_date_started, Yymmdd),  SS(ss_elapse_time, Bytes),     SS(ss_est_elapse, Bytes),
    SS(ss_start_time, Bytes),     SS(ss_time_started, Bytes),    SS(ss_rec_num, ZeroExtend16),
    SS(ss_num_depends, Bytes),    SS(ss_depend_flags, Bytes),    SS(ss_dependencies, ZeroExtend16),
};

// The two unions sj_fname_jname and subdep are moved by job_jcl_moves and
// job_subdep_moves, chosen by the job's flags.
constexpr V1FieldMove kJobMoves[] = {
    SJ(alm_rec_type, Bytes),      SJ(sj_cpu_id, Bytes),          SJ(sj_job_name, Bytes),
    SJ(sj_status, Bytes),         SJ(sj_job_pri, Bytes),         SJ(sj_every_hhmm, Bytes),
    SJ(sj_schedule, Bytes),       SJ(sj_cpu_time, Bytes),        SJ(sj_until_date, CalDay),
    SJ(sj_until_time, Bytes),     SJ(sj_sched_ptr, ZeroExtend16), SJ(sj_flags2, Bytes),
    SJ(sj_prev_job_ptr, ZeroExtend16), SJ(sj_next_job_ptr, ZeroExtend16), SJ(sj_job_number, Bytes),
    SJ(sj_job_user, Bytes),       SJ(sj_job_acct, Bytes),        SJ(sj_job_group, Bytes),
    SJ(sj_flags, Bytes),          SJ(sj_re_job_ptr, ZeroExtend16), SJ(sj_re_flags, Bytes),
    SJ(sj_re_prmpt_ptr, ZeroExtend16), SJ(sj_restart_ptr, ZeroExtend16), SJ(sj_rec_ptrs, ZeroExtend16),
    SJ(sj_sched_date, Yymmdd),    SJ(sj_date_started, Yymmdd),   SJ(sj_elapse_time, Bytes),
    SJ(sj_est_elapse, Bytes),     SJ(sj_start_time, Bytes),      SJ(sj_time_started, Bytes),
    SJ(sj_rec_num, ZeroExtend16), SJ(sj_num_depends, Bytes),
};

constexpr V1FieldMove kJclStringMoves[] = {
    SJ(sj_fname_jname.jcl_string.jcl_filler, Bytes),
    ALM_MOVE(SJ_RECTYPE_V1, sj_fname_jname.jcl_string.jcl_loc, SJ_RECTYPE, sj_fname_jname.jcl_string.jcl_loc,
             ZeroExtend16),
};
constexpr V1FieldMove kAliasMoves[] = {
    SJ(sj_fname_jname.userjob.real_name, Bytes),
};
constexpr V1FieldMove kJclFileMoves[] = {
    SJ(sj_fname_jname.jcl_file, Bytes),
};
constexpr V1FieldMove kSubmitMoves[] = {
    SJ(subdep.submit.sj_re_for_cpu, Bytes),
    SJ(subdep.submit.sj_re_for_job, Bytes),
};
constexpr V1FieldMove kDepsMoves[] = {
    SJ(subdep.deps.sj_depend_flags, Bytes),
    SJ(subdep.deps.sj_dependencies, ZeroExtend16),
};
constexpr V1FieldMove kXkesMoves[] = {
    SJ(subdep.xkes_id, Bytes),
};

constexpr V1FieldMove kMsgMoves[] = {
    SM(alm_rec_type, Bytes),     SM(sm_cpu_id, Bytes),         SM(sm_msg_name, Bytes),
    SM(sm_status, Bytes),        SM(sm_msg_no, Bytes),         SM(sm_msg_flags, Bytes),
    SM(sm_prev_msg, ZeroExtend16), SM(sm_next_msg, ZeroExtend16), SM(sm_message, Bytes),
    SM(sm_date_asked, Bytes),    SM(sm_date_resp, Bytes),      SM(sm_time_asked, Bytes),
    SM(sm_time_resp, Bytes),     SM(sm_job_ptr, ZeroExtend16), SM(sm_filler1, Bytes),
    SM(sm_rec_num, ZeroExtend16), SM(sm_message_more, Bytes),  SM(sm_filler2, Bytes),
};

constexpr V1FieldMove kFileMoves[] = {
    SF(alm_rec_type, Bytes),     SF(sf_cpu_id, Bytes),          SF(sf_filler1, Bytes),
    SF(sf_status, Bytes),        SF(sf_file_name, Bytes),       SF(sf_filler2, Bytes),
    SF(sf_prev_file, ZeroExtend16), SF(sf_next_file, ZeroExtend16), SF(sf_filler3, Bytes),
    SF(sf_timer, Bytes),         SF(sf_filler4, Bytes),         SF(sf_rec_num, ZeroExtend16),
    SF(sf_feq_len, Bytes),       SF(sf_feq, Bytes),
};

constexpr V1FieldMove kRsrcMoves[] = {
    SR(alm_rec_type, Bytes),      SR(sr_cpu_id, Bytes),            SR(sr_resource_name, Bytes),
    SR(sr_status, Bytes),         SR(sr_prev_resource, ZeroExtend16), SR(sr_next_resource, ZeroExtend16),
    SR(sr_num_avail, SignExtend16), SR(sr_num_used, SignExtend16), SR(sr_num_unused, SignExtend16),
    SR(sr_num_holders, SignExtend16), SR(sr_filler1, Bytes),       SR(sr_holders, ZeroExtend16),
    SR(sr_filler2, Bytes),        SR(sr_rec_num, ZeroExtend16),    SR(sr_hold_counts, Bytes),
    SR(sr_filler3, Bytes),
};

// Calendar days are carried as numbers: only the until dates of schedules
// and jobs are cal-form dates that get converted.
constexpr V1FieldMove kCalMoves[] = {
    SC(alm_rec_type, Bytes),     SC(sc_cal_name, Bytes),         SC(sc_num_dates, SignExtend16),
    SC(sc_cont_rec, ZeroExtend16), SC(sc_cont_from, ZeroExtend16), SC(sc_prev_cal, ZeroExtend16),
    SC(sc_next_cal, ZeroExtend16), SC(sc_cal_dates, ZeroExtend16),
};

// The V1 string space keeps the record's own number at its offset 126; it
// is written after the space so that narrowing always puts it there.
constexpr V1FieldMove kStrMoves[] = {
    ST(alm_rec_type, Bytes),
    ST(st_next_ptr, ZeroExtend16),
    ST(st_First_Free, ZeroExtend16),
    ST(st_str_space, Bytes),
    ALM_MOVE(ST_RECTYPE_V1, st_str_space.subrec.st_rec_num, ST_RECTYPE, st_rec_num, ZeroExtend16),
};

constexpr V1FieldMove kDepMoves[] = {
    SD(sd_rec_type, Bytes),   SD(sd_cpu_id, Bytes),   SD(sd_sched_name, Bytes),
    SD(sd_job_name, Bytes),   SD(sd_dep_type, Bytes), SD(sd_dep_cpu, Bytes),
    SD(sd_dep_name, Bytes),   SD(sd_dep_jname, Bytes), SD(sd_dep, Bytes),
};

constexpr V1FieldMove kPjMoves[] = {
    PJ(pj_alm_rec_type, Bytes),
    PJ(pj_job_count, Bytes),
    PJ(pj_job_list, Bytes),
};

#undef SH
#undef SCI
#undef SS
#undef SJ
#undef SM
#undef SF
#undef SR
#undef SC
#undef ST
#undef SD
#undef PJ
#undef ALM_MOVE

constexpr bool well_formed(const V1FieldMove& m) {
    if (m.v1_off + m.v1_width > ALM_REC_SIZE_V1 || m.v2_off + m.v2_width > ALM_REC_SIZE_V2) return false;
    switch (m.kind) {
        case V1Move::Bytes: return m.v1_width <= m.v2_width;
        case V1Move::ZeroExtend16:
        case V1Move::SignExtend16:
        case V1Move::CalDay: return m.v1_width % 2 == 0 && m.v2_width == 2 * m.v1_width;
        case V1Move::Yymmdd: return m.v1_width == 4 && m.v2_width == 4;
    }
    return false;
}
template <std::size_t N>
constexpr bool all_well_formed(const V1FieldMove (&moves)[N]) {
    return std::all_of(moves, moves + N, well_formed);
}
static_assert(all_well_formed(kHdrMoves) && all_well_formed(kCpuMoves) && all_well_formed(kSchedMoves));
static_assert(all_well_formed(kJobMoves) && all_well_formed(kJclStringMoves) && all_well_formed(kAliasMoves));
static_assert(all_well_formed(kJclFileMoves) && all_well_formed(kSubmitMoves) && all_well_formed(kDepsMoves));
static_assert(all_well_formed(kXkesMoves) && all_well_formed(kMsgMoves) && all_well_formed(kFileMoves));
static_assert(all_well_formed(kRsrcMoves) && all_well_formed(kCalMoves) && all_well_formed(kStrMoves));
static_assert(all_well_formed(kDepMoves) && all_well_formed(kPjMoves));

constexpr V1Layout kLayouts[] = {
    {kHdrMoves, offsetof(SH_RECTYPE, sh_rec_version), offsetof(SH_RECTYPE, sh_cont_rec)},
    {kCpuMoves, offsetof(SCI_RECTYPE, sci_rec_version), -1},
    {kSchedMoves, offsetof(SS_RECTYPE, ss_rec_version), -1},
    {kJobMoves, offsetof(SJ_RECTYPE, sj_rec_version), -1},
    {kMsgMoves, offsetof(SM_RECTYPE, sm_rec_version), -1},
    {kFileMoves, offsetof(SF_RECTYPE, sf_rec_version), -1},
    {kRsrcMoves, offsetof(SR_RECTYPE, sr_rec_version), -1},
    {kCalMoves, offsetof(SC_RECTYPE, sc_rec_version), -1},
    {kStrMoves, offsetof(ST_RECTYPE, st_rec_version), -1},
    {kDepMoves, offsetof(SD_RECTYPE, sd_rec_version), -1},
    {kPjMoves, -1, -1},
    {{}, -1, -1},
};
static_assert(std::size(kLayouts) == static_cast<std::size_t>(V1Kind::UserDefn) + 1);

void widen_one(const V1FieldMove& m, const unsigned char* v1, unsigned char* v2) {
    const unsigned char* src = v1 + m.v1_off;
    unsigned char* dst = v2 + m.v2_off;
    const int n = m.v1_width / 2;
    switch (m.kind) {
        case V1Move::Bytes:
            std::memcpy(dst, src, m.v1_width);
            break;
        case V1Move::ZeroExtend16:
            for (int i = 0; i < n; ++i) store_le32(dst + 4 * i, load_le16(src + 2 * i));
            break;
        case V1Move::SignExtend16:
            for (int i = 0; i < n; ++i) {
                const auto v = static_cast<std::int16_t>(load_le16(src + 2 * i));
                store_le32(dst + 4 * i, static_cast<std::uint32_t>(std::int32_t{v}));
            }
            break;
        case V1Move::Yymmdd:
            store_le32(dst, static_cast<std::uint32_t>(yymmdd_to_epoch(static_cast<std::int32_t>(load_le32(src)), 0)));
            break;
        case V1Move::CalDay:
            for (int i = 0; i < n; ++i)
                store_le32(dst + 4 * i, static_cast<std::uint32_t>(cal_to_epoch(load_le16(src + 2 * i))));
            break;
    }
}

void narrow_one(const V1FieldMove& m, const unsigned char* v2, unsigned char* v1) {
    const unsigned char* src = v2 + m.v2_off;
    unsigned char* dst = v1 + m.v1_off;
    const int n = m.v1_width / 2;
    switch (m.kind) {
        case V1Move::Bytes:
            std::memcpy(dst, src, m.v1_width);
            break;
        case V1Move::ZeroExtend16:
        case V1Move::SignExtend16:
            for (int i = 0; i < n; ++i) store_le16(dst + 2 * i, static_cast<std::uint16_t>(load_le32(src + 4 * i)));
            break;
        case V1Move::Yymmdd:
            // In the numeric form of the moment: ccyymmdd unless UNIDATESTRIP
            // is 0. The 32-bit field holds either; reading takes both.
            store_le32(dst, static_cast<std::uint32_t>(epoch_to_yymmdd(static_cast<std::int32_t>(load_le32(src)))));
            break;
        case V1Move::CalDay:
            for (int i = 0; i < n; ++i)
                store_le16(dst + 2 * i, epoch_to_cal(static_cast<std::int32_t>(load_le32(src + 4 * i))));
            break;
    }
}

void widen_all(std::span<const V1FieldMove> moves, const unsigned char* v1, unsigned char* v2) {
    for (const auto& m : moves) widen_one(m, v1, v2);
}
void narrow_all(std::span<const V1FieldMove> moves, const unsigned char* v2, unsigned char* v1) {
    for (const auto& m : moves) narrow_one(m, v2, v1);
}

}  // namespace

const V1Layout& v1_layout(V1Kind kind) { return kLayouts[static_cast<std::size_t>(kind)]; }

JclForm job_jcl_form(std::uint16_t sj_flags2) {
    if (flag_set(sj_flags2, sjf2_long_jcl)) return JclForm::JclString;
    if (flag_set(sj_flags2, sjf2_alias)) return JclForm::Alias;
    return JclForm::JclFile;
}

SubdepForm job_subdep_form(std::int16_t sj_num_depends, std::uint16_t sj_re_flags) {
    if (sj_num_depends == -1) return SubdepForm::Submit;
    if (!flag_set(sj_re_flags, sjrf_external)) return SubdepForm::Deps;
    return SubdepForm::Xkes;
}

std::span<const V1FieldMove> job_jcl_moves(JclForm form) {
    switch (form) {
        case JclForm::JclString: return kJclStringMoves;
        case JclForm::Alias: return kAliasMoves;
        case JclForm::JclFile: break;
    }
    return kJclFileMoves;
}

std::span<const V1FieldMove> job_subdep_moves(SubdepForm form) {
    switch (form) {
        case SubdepForm::Submit: return kSubmitMoves;
        case SubdepForm::Deps: return kDepsMoves;
        case SubdepForm::Xkes: break;
    }
    return kXkesMoves;
}

void v1_widen(V1Kind kind, const unsigned char* v1, unsigned char* v2) {
    std::memset(v2, ' ', ALM_REC_SIZE_V2);
    if (kind == V1Kind::UserDefn) {
        std::memcpy(v2, v1, ALM_REC_SIZE_V1);
        return;
    }
    const V1Layout& layout = v1_layout(kind);
    widen_all(layout.moves, v1, v2);
    if (kind == V1Kind::Job) {
        const auto flags2 = load_le16(v1 + offsetof(SJ_RECTYPE_V1, sj_flags2));
        const auto re_flags = load_le16(v1 + offsetof(SJ_RECTYPE_V1, sj_re_flags));
        const auto num_depends = static_cast<std::int16_t>(load_le16(v1 + offsetof(SJ_RECTYPE_V1, sj_num_depends)));
        widen_all(job_jcl_moves(job_jcl_form(flags2)), v1, v2);
        widen_all(job_subdep_moves(job_subdep_form(num_depends, re_flags)), v1, v2);
    }
    if (layout.rec_version_off >= 0) store_le16(v2 + layout.rec_version_off, 0);
    if (layout.cont_rec_off >= 0) store_le32(v2 + layout.cont_rec_off, NULL_REC);
}

void v1_narrow(V1Kind kind, const unsigned char* v2, unsigned char* v1) {
    std::memset(v1, ' ', ALM_REC_SIZE_V1);
    if (kind == V1Kind::UserDefn) {
        std::memcpy(v1, v2, ALM_REC_SIZE_V1);
        return;
    }
    narrow_all(v1_layout(kind).moves, v2, v1);
    if (kind == V1Kind::Job) {
        const auto flags2 = load_le16(v2 + offsetof(SJ_RECTYPE, sj_flags2));
        const auto re_flags = load_le16(v2 + offsetof(SJ_RECTYPE, sj_re_flags));
        const auto num_depends = static_cast<std::int16_t>(load_le16(v2 + offsetof(SJ_RECTYPE, sj_num_depends)));
        narrow_all(job_jcl_moves(job_jcl_form(flags2)), v2, v1);
        narrow_all(job_subdep_moves(job_subdep_form(num_depends, re_flags)), v2, v1);
    }
}

}  // namespace alm
