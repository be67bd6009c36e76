// What every plan record shares: the type codes, the null record, the flag
// bits and the small structs and unions the record layouts are built from.
// The file is little-endian; records are moved in and out with the explicit
// helpers of util/endian.h, never by casting raw bytes.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

namespace alm {

static_assert(std::endian::native == std::endian::little,
              "in-memory V2 records are the little-endian disk form");

inline constexpr std::uint32_t NULL_REC = 32768;  // ends every chain; "not found"
inline constexpr int ALM_REC_SIZE_V2 = 512;
inline constexpr int ALM_REC_SIZE_V1 = 256;

// Two-character type codes: high byte is the first character, so the disk
// (little-endian) shows the characters reversed ("RH" for 'H','R').
constexpr std::int16_t rec_code(char hi, char lo) {
    return static_cast<std::int16_t>((static_cast<unsigned char>(hi) << 8) | static_cast<unsigned char>(lo));
}
inline constexpr std::int16_t SH_CODE = rec_code('H', 'R');   // 0x4852 header
inline constexpr std::int16_t SCI_CODE = rec_code('C', 'I');  // 0x4349 workstation
inline constexpr std::int16_t SS_CODE = rec_code('S', 'R');   // 0x5352 schedule
inline constexpr std::int16_t SJ_CODE = rec_code('J', 'R');   // 0x4A52 job
inline constexpr std::int16_t SM_CODE = rec_code('M', 'R');   // 0x4D52 prompt
inline constexpr std::int16_t SF_CODE = rec_code('F', 'R');   // 0x4652 file
inline constexpr std::int16_t SR_CODE = rec_code('R', 'R');   // 0x5252 resource
inline constexpr std::int16_t SC_CODE = rec_code('C', 'R');   // 0x4352 calendar
inline constexpr std::int16_t ST_CODE = rec_code('S', 'T');   // 0x5354 string
inline constexpr std::int16_t SD_CODE = rec_code('D', 'R');   // 0x4452 dependency
inline constexpr std::int16_t PJ_CODE = rec_code('\n', 'J');  // 0x0A4A purgeable jobs
static_assert(SH_CODE == 0x4852 && SCI_CODE == 0x4349 && SS_CODE == 0x5352 && SJ_CODE == 0x4A52);
static_assert(SM_CODE == 0x4D52 && SF_CODE == 0x4652 && SR_CODE == 0x5252 && SC_CODE == 0x4352);
static_assert(ST_CODE == 0x5354 && SD_CODE == 0x4452 && PJ_CODE == 0x0A4A);

// Codes marking a schedule or job sent as somebody's dependency (wire only).
inline constexpr std::uint16_t SCHED_DEP_CODE = 0x5344;  // "SD"
inline constexpr std::uint16_t JOB_DEP_CODE = 0x4A44;    // "JD"

enum ALM_REC_TYPES {
    HeaderType = 0,
    SchedType = 1,
    JobType = 2,
    MessageType = 3,
    FileType = 4,
    ResourceType = 5,
    CalendarType = 6,
    DependsType = 7,
    PurgeableJobs = 8,
    GenericBuf = 9,
};

enum DEPENDENCY_TYPE {
    ScDummyZero = 0,
    LocMsgDep = 1,
    GlbMsgDep = 2,
    PreschedDep = 3,
    PrejobDep = 4,
    RestType = 5,
    RstrMsgDep = 6,
    Satisfied = 7,
    FileDep = 8,
    ResourceDep = 9,
    NondepDep = 10,
};

// Header flag bits (sh_flags, bit numbers of sh_flag1_flag).
enum sh_flag1_flag {
    shf_do_userjobs = 0, shf_zero_pri = 1, shf_rr_same_name = 2, shf_have_cals = 3,
    shf_rules = 4, shf_carried_fwd = 5, shf_ap_userjobs = 6, shf_purge_jobs = 7,
    shf_programmatic_jobs = 8, shf_quillon_excl = 9, shf_st_supported = 10,
    shf_almanack_is_old = 11, shf_have_external_jobs = 12, shf_switch_mgr = 13,
    shf_empty_succ = 14, shf_grant_logon_batch = 15,
};
enum sh_flag2_flag { shf_postrunner_NOT_inited = 0, shf_NOT_fully_inited = 1 };

// Workstation flag bits (sci_flags).
enum sci_flags_flags { scif_full_status = 0, scif_auto_link = 1, scif_resolve_deps = 2 };

// Schedule flag bits (ss_flags, ss_re_flags).
enum ss_flag1_flags {
    ssf_in_order = 0, ssf_replicated = 1, ssf_carried_fwd = 2, ssf_carry_fwd = 3,
    ssf_dont_touch = 4, ssf_until_used = 5, ssf_user_jobs = 6, ssf_this_cpu = 7,
    ssf_external = 8, ssf_free_2 = 9, ssf_needs_rsrc = 10, ssf_has_rsrc = 11,
    ssf_released = 12, ssf_cancelled = 13, ssf_cancel_pend = 14, ssf_every = 15,
};
enum Ss_Reflags_flags { ssrf_held_by_user = 0 };

// Job flag bits (sj_flags, sj_flags2, sj_re_flags).
enum sj_flag1_flags {
    sjf1_re_job = 0, sjf1_ignore = 1, sjf1_buckujob = 2, sjf1_dont_touch = 3,
    sjf1_do_rerun = 4, sjf1_until_used = 5, sjf1_user_job = 6, sjf1_this_cpu = 7,
    sjf1_succ_pend = 8, sjf1_needs_msg = 9, sjf1_needs_rsrc = 10, sjf1_has_rsrc = 11,
    sjf1_released = 12, sjf1_cancelled = 13, sjf1_showed_up = 14, sjf1_every = 15,
};
enum sj_flag2_flags {
    sjf2_run_again = 0, sjf2_running = 1, sjf2_alias = 2, sjf2_logged = 3,
    sjf2_rstrt_flag = 4, sjf2_every_run = 5, sjf2_launchedby_ms = 6, sjf2_wildcarded = 7,
    sjf2_confirm_job = 8, sjf2_programmatic_job = 9, sjf2_wait_for_taskherd = 10,
    sjf2_sched_same_cpu = 11, sjf2_is_command = 12, sjf2_long_jcl = 13,
    sjf2_cancel_pend = 14, sjf2_replicated = 15,
};
enum Sj_Reflags_flags {
    sjrf_type1 = 0, sjrf_type2 = 1, sjrf_step = 2, sjrf_gen_msg = 7,
    sjrf_held_by_user = 12, sjrf_interactive = 13, sjrf_external = 14, sjrf_is_mpe_job = 15,
};
enum RerunTypes { SJ_RF_STOP = 0, SJ_RF_RERUN = 1, SJ_RF_CONTINUE = 2 };
enum PJ_JOB_INDEX_TYPE { JiCpu = 0, JiFname = 1, JiGroup = 2, JiAccount = 3 };

constexpr bool flag_set(unsigned word, int bit) { return ((word >> bit) & 1u) != 0; }

struct PRIORITYREC {
    std::uint8_t priority;
    std::uint8_t orig_pri;
};
static_assert(sizeof(PRIORITYREC) == 2);

union SF_TIMERTYPE {
    std::int32_t sf_lasttime;
    struct {
        std::int16_t timer1;
        std::int16_t timer2;
    } timers;
};
static_assert(sizeof(SF_TIMERTYPE) == 4);

struct alm_string_location {
    std::uint32_t st_offset;
    std::uint32_t st_rec_num;
};
struct alm_string_location_V1 {
    std::uint16_t st_offset;
    std::uint16_t st_rec_num;
};
static_assert(sizeof(alm_string_location) == 8 && sizeof(alm_string_location_V1) == 4);

inline constexpr int ALM_STRING_MAX = 4096;    // alm_string
inline constexpr int ALM_STRING_MAX_V1 = 256;  // alm_string_V1

union SJ_FNAME_JNAME {
    char jcl_file[24];
    struct {
        char real_name[40];
    } userjob;
    struct {
        char jcl_filler[32];
        alm_string_location jcl_loc;
    } jcl_string;
};
union SJ_FNAME_JNAME_V1 {
    char jcl_file[24];
    struct {
        char jcl_filler[16];
        char real_name[8];
    } userjob;
    struct {
        char jcl_filler[20];
        alm_string_location_V1 jcl_loc;
    } jcl_string;
};
static_assert(sizeof(SJ_FNAME_JNAME) == 40 && sizeof(SJ_FNAME_JNAME_V1) == 24);
static_assert(offsetof(SJ_FNAME_JNAME, jcl_string.jcl_loc) == 32);
static_assert(offsetof(SJ_FNAME_JNAME_V1, jcl_string.jcl_loc) == 20);
static_assert(offsetof(SJ_FNAME_JNAME_V1, userjob.real_name) == 16);

union SJ_REC_PTRS {
    std::uint32_t current_job;
    std::uint32_t head_job;
};
union SJ_REC_PTRS_V1 {
    std::uint16_t current_job;
    std::uint16_t head_job;
};
static_assert(sizeof(SJ_REC_PTRS) == 4 && sizeof(SJ_REC_PTRS_V1) == 2);

inline constexpr int MAX_DEPENDS = 40;

union SJ_SUBDEP {
    struct {
        std::uint8_t sj_depend_flags[MAX_DEPENDS];
        std::uint32_t sj_dependencies[MAX_DEPENDS];
    } deps;
    struct {
        char sj_re_for_cpu[16];
        char sj_re_for_job[40];
    } submit;
    char xkes_id[64];
};
union SJ_SUBDEP_V1 {
    struct {
        std::uint8_t sj_depend_flags[MAX_DEPENDS];
        std::uint16_t sj_dependencies[MAX_DEPENDS];
    } deps;
    struct {
        char sj_re_for_cpu[8];
        char sj_re_for_job[8];
    } submit;
    char xkes_id[64];
};
static_assert(sizeof(SJ_SUBDEP) == 200 && sizeof(SJ_SUBDEP_V1) == 120);
static_assert(offsetof(SJ_SUBDEP, deps.sj_dependencies) == 40);
static_assert(offsetof(SJ_SUBDEP, submit.sj_re_for_job) == 16);
static_assert(offsetof(SJ_SUBDEP_V1, deps.sj_dependencies) == 40);
static_assert(offsetof(SJ_SUBDEP_V1, submit.sj_re_for_job) == 8);

// String space of a string record; a string longer than one space continues
// through sub-records.
union ST_STR_SPACE {
    char st_strings[492];
    struct SUBREC_SPACE_TYPE {
        char st_subrec_identifier[4];
        std::uint32_t prev_ptr;
        char buffer1[120];
        char buffer2[360];
        std::uint32_t next_ptr;
    } subrec;
};
union ST_STR_SPACE_V1 {
    char st_strings[250];
    struct SUBREC_SPACE_TYPE_V1 {
        char st_subrec_identifier[4];
        std::uint16_t prev_ptr;
        char buffer1[120];
        std::uint16_t st_rec_num;  // always the record's own number
        char buffer2[118];
        std::uint16_t next_ptr;
        char st_pad[2];
    } subrec;
};
static_assert(sizeof(ST_STR_SPACE) == 492 && sizeof(ST_STR_SPACE_V1) == 250);
static_assert(offsetof(ST_STR_SPACE, subrec.prev_ptr) == 4);
static_assert(offsetof(ST_STR_SPACE, subrec.buffer1) == 8);
static_assert(offsetof(ST_STR_SPACE, subrec.buffer2) == 128);
static_assert(offsetof(ST_STR_SPACE, subrec.next_ptr) == 488);
static_assert(offsetof(ST_STR_SPACE_V1, subrec.prev_ptr) == 4);
static_assert(offsetof(ST_STR_SPACE_V1, subrec.buffer1) == 6);
static_assert(offsetof(ST_STR_SPACE_V1, subrec.st_rec_num) == 126);
static_assert(offsetof(ST_STR_SPACE_V1, subrec.buffer2) == 128);
static_assert(offsetof(ST_STR_SPACE_V1, subrec.next_ptr) == 246);

// What a dependency record names, by kind.
union SD_DEP {
    struct {
        std::int16_t sd_dep_msg_no;
        char sd_dep_msg[200];
        std::int16_t sd_spare;
    } msg;
    struct {
        std::int16_t sd_file_filler;
        char sd_dep_fname[28];
        std::int16_t sd_dep_feqlen;
        char sd_dep_feq[120];
    } file;
    struct {
        std::int16_t sd_ext_name_len;
        char sd_ext_name[120];
    } ext;
    std::int16_t sd_num_avail;
};
static_assert(sizeof(SD_DEP) == 204);
static_assert(offsetof(SD_DEP, msg.sd_spare) == 202);
static_assert(offsetof(SD_DEP, file.sd_dep_feqlen) == 30);
static_assert(offsetof(SD_DEP, file.sd_dep_feq) == 32);

}  // namespace alm
