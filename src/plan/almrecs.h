// Record layouts of the plan file (the Almanack): the 512-byte V2 records,
// which are also the in-memory form handed to callers, and the 256-byte V1
// records of older files. Every size and every field offset is pinned by a
// static_assert below; the file is little-endian and records are moved in and
// out with the explicit helpers of util/endian.h, never by casting raw bytes.
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

struct SM_RECTYPE {
    std::int16_t alm_rec_type;
    std::int16_t sm_status;
    std::int16_t sm_filler3;
    std::int16_t sm_rec_version;
    std::uint32_t sm_rec_num;
    std::uint32_t sm_cont_rec;
    char sm_cpu_id[16];
    char sm_msg_name[8];
    std::uint32_t sm_prev_msg;
    std::uint32_t sm_next_msg;
    std::uint32_t sm_job_ptr;
    std::int32_t sm_date_asked;
    std::int32_t sm_date_resp;
    std::int16_t sm_msg_no;
    std::int16_t sm_msg_flags;
    std::int16_t sm_time_asked;
    std::int16_t sm_time_resp;
    std::int16_t sm_filler1[5];
    char sm_message[80];
    char sm_message_more[120];
    std::int16_t sm_filler2[117];
};

struct SM_RECTYPE_V1 {
    std::int16_t alm_rec_type;
    char sm_cpu_id[8];
    char sm_msg_name[8];
    std::int16_t sm_status;
    std::int16_t sm_msg_no;
    std::int16_t sm_msg_flags;
    std::uint16_t sm_prev_msg;
    std::uint16_t sm_next_msg;
    char sm_message[80];
    std::int32_t sm_date_asked;
    std::int32_t sm_date_resp;
    std::int16_t sm_time_asked;
    std::int16_t sm_time_resp;
    std::uint16_t sm_job_ptr;
    std::int16_t sm_filler1[5];
    std::uint16_t sm_rec_num;
    char sm_message_more[120];
    std::int16_t sm_filler2;
};

struct SF_RECTYPE {
    std::int16_t alm_rec_type;
    std::int16_t sf_status;
    std::int16_t sf_filler6;
    std::int16_t sf_rec_version;
    std::uint32_t sf_rec_num;
    std::uint32_t sf_cont_rec;
    char sf_cpu_id[16];
    std::uint32_t sf_prev_file;
    std::uint32_t sf_next_file;
    char sf_filler1[8];
    char sf_file_name[28];
    char sf_filler2[48];
    std::int16_t sf_filler3[6];
    SF_TIMERTYPE sf_timer;
    std::int16_t sf_filler4[8];
    std::int16_t sf_feq_len;
    char sf_feq[120];
    std::int16_t sf_filler5[117];
};

struct SF_RECTYPE_V1 {
    std::int16_t alm_rec_type;
    char sf_cpu_id[8];
    char sf_filler1[8];
    std::int16_t sf_status;
    char sf_file_name[28];
    char sf_filler2[48];
    std::uint16_t sf_prev_file;
    std::uint16_t sf_next_file;
    std::int16_t sf_filler3[6];
    SF_TIMERTYPE sf_timer;
    std::int16_t sf_filler4[8];
    std::uint16_t sf_rec_num;
    std::int16_t sf_feq_len;
    char sf_feq[120];
};

struct SR_RECTYPE {
    std::int16_t alm_rec_type;
    std::int16_t sr_status;
    std::int16_t sr_filler4;
    std::int16_t sr_rec_version;
    std::uint32_t sr_rec_num;
    std::uint32_t sr_cont_rec;
    char sr_cpu_id[16];
    char sr_resource_name[8];
    std::uint32_t sr_prev_resource;
    std::uint32_t sr_next_resource;
    std::int32_t sr_num_avail;
    std::int32_t sr_num_used;
    std::int32_t sr_num_unused;
    std::int32_t sr_num_holders;
    std::int16_t sr_filler1[16];
    std::uint32_t sr_holders[32];
    std::int16_t sr_filler2[2];
    std::int16_t sr_hold_counts[32];
    std::int16_t sr_filler3[110];
};

struct SR_RECTYPE_V1 {
    std::int16_t alm_rec_type;
    char sr_cpu_id[8];
    char sr_resource_name[8];
    std::int16_t sr_status;
    std::uint16_t sr_prev_resource;
    std::uint16_t sr_next_resource;
    std::int16_t sr_num_avail;
    std::int16_t sr_num_used;
    std::int16_t sr_num_unused;
    std::int16_t sr_num_holders;
    std::int16_t sr_filler1[16];
    std::uint16_t sr_holders[32];
    std::int16_t sr_filler2[2];
    std::uint16_t sr_rec_num;
    std::int16_t sr_hold_counts[32];
    std::int16_t sr_filler3[29];
};

struct SC_RECTYPE {
    std::int16_t alm_rec_type;
    std::int16_t sc_filler1;
    std::int16_t sc_filler3;
    std::int16_t sc_rec_version;
    char sc_cal_name[8];
    std::int32_t sc_num_dates;
    std::uint32_t sc_cont_rec;
    std::uint32_t sc_cont_from;
    std::uint32_t sc_prev_cal;
    std::uint32_t sc_next_cal;
    std::int32_t sc_cal_dates[118];
    std::int16_t sc_filler2[2];
};

struct SC_RECTYPE_V1 {
    std::int16_t alm_rec_type;
    char sc_cal_name[8];
    std::int16_t sc_num_dates;
    std::uint16_t sc_cont_rec;
    std::uint16_t sc_cont_from;
    std::uint16_t sc_prev_cal;
    std::uint16_t sc_next_cal;
    std::uint16_t sc_cal_dates[118];
};

struct ST_RECTYPE {
    std::int16_t alm_rec_type;
    std::int16_t st_filler1;
    std::int16_t st_filler2;
    std::int16_t st_rec_version;
    std::uint32_t st_rec_num;
    std::uint32_t st_next_ptr;
    std::uint32_t st_First_Free;
    ST_STR_SPACE st_str_space;
};

struct ST_RECTYPE_V1 {
    std::int16_t alm_rec_type;
    std::uint16_t st_next_ptr;
    std::uint16_t st_First_Free;
    ST_STR_SPACE_V1 st_str_space;
};

struct SD_RECTYPE {
    std::int16_t sd_rec_type;
    std::int16_t sd_filler2;
    std::int16_t sd_rec_version;
    char sd_cpu_id[16];
    char sd_sched_name[16];
    char sd_job_name[40];
    std::int16_t sd_dep_type;
    char sd_dep_cpu[16];
    char sd_dep_name[16];
    char sd_dep_jname[40];
    SD_DEP sd_dep;
    std::int16_t sd_filler1[78];
};

struct SD_RECTYPE_V1 {
    std::int16_t sd_rec_type;
    char sd_cpu_id[8];
    char sd_sched_name[8];
    char sd_job_name[8];
    std::int16_t sd_dep_type;
    char sd_dep_cpu[8];
    char sd_dep_name[8];
    char sd_dep_jname[8];
    SD_DEP sd_dep;
};

struct PJ_RECTYPE {
    std::int16_t pj_alm_rec_type;
    std::int16_t pj_job_count;
    char pj_job_list[15][4][8];
    std::int16_t pj_filler1[14];
};

struct PJ_RECTYPE_V1 {
    std::int16_t pj_alm_rec_type;
    std::int16_t pj_job_count;
    char pj_job_list[7][4][8];
};

// Any V2 record, as callers receive it.
union ALMRECTYPE {
    std::int16_t alm_rec_type;
    SH_RECTYPE sh;
    SCI_RECTYPE sci;
    SS_RECTYPE ss;
    SJ_RECTYPE sj;
    SM_RECTYPE sm;
    SF_RECTYPE sf;
    SR_RECTYPE sr;
    SC_RECTYPE sc;
    ST_RECTYPE st;
    SD_RECTYPE sd;
    PJ_RECTYPE pj;
    unsigned char bytes[ALM_REC_SIZE_V2];
};
static_assert(sizeof(ALMRECTYPE) == 512);

// Any record as stored in the file, of either version.
union ALMRECTYPE_INT {
    std::int16_t alm_rec_type;
    ALMRECTYPE v2;
    SH_RECTYPE_V1 sh;
    SCI_RECTYPE_V1 sci;
    SS_RECTYPE_V1 ss;
    SJ_RECTYPE_V1 sj;
    SM_RECTYPE_V1 sm;
    SF_RECTYPE_V1 sf;
    SR_RECTYPE_V1 sr;
    SC_RECTYPE_V1 sc;
    ST_RECTYPE_V1 st;
    SD_RECTYPE_V1 sd;
    PJ_RECTYPE_V1 pj;
    unsigned char bytes[ALM_REC_SIZE_V2];
};
static_assert(sizeof(ALMRECTYPE_INT) == 512);

static_assert(offsetof(SH_RECTYPE, alm_rec_type) == 0);
static_assert(offsetof(SH_RECTYPE, sh_status) == 2);
static_assert(offsetof(SH_RECTYPE, sh_filler5) == 4);
static_assert(offsetof(SH_RECTYPE, sh_rec_version) == 6);
static_assert(offsetof(SH_RECTYPE, sh_rec_num) == 8);
static_assert(offsetof(SH_RECTYPE, sh_cont_rec) == 12);
static_assert(offsetof(SH_RECTYPE, sh_cpu_id) == 16);
static_assert(offsetof(SH_RECTYPE, sh_mast_cpu) == 32);
static_assert(offsetof(SH_RECTYPE, sh_first_sched) == 48);
static_assert(offsetof(SH_RECTYPE, sh_last_sched) == 52);
static_assert(offsetof(SH_RECTYPE, sh_first_msg) == 56);
static_assert(offsetof(SH_RECTYPE, sh_last_msg) == 60);
static_assert(offsetof(SH_RECTYPE, sh_num_recs) == 64);
static_assert(offsetof(SH_RECTYPE, sh_first_file) == 68);
static_assert(offsetof(SH_RECTYPE, sh_last_file) == 72);
static_assert(offsetof(SH_RECTYPE, sh_first_resource) == 76);
static_assert(offsetof(SH_RECTYPE, sh_last_resource) == 80);
static_assert(offsetof(SH_RECTYPE, sh_first_cal) == 84);
static_assert(offsetof(SH_RECTYPE, sh_last_cal) == 88);
static_assert(offsetof(SH_RECTYPE, sh_first_cpu) == 92);
static_assert(offsetof(SH_RECTYPE, sh_last_cpu) == 96);
static_assert(offsetof(SH_RECTYPE, sh_first_st) == 100);
static_assert(offsetof(SH_RECTYPE, sh_last_st) == 104);
static_assert(offsetof(SH_RECTYPE, sh_first_super) == 108);
static_assert(offsetof(SH_RECTYPE, sh_last_super) == 112);
static_assert(offsetof(SH_RECTYPE, sh_console) == 116);
static_assert(offsetof(SH_RECTYPE, sh_last_date) == 120);
static_assert(offsetof(SH_RECTYPE, sh_sched_date) == 124);
static_assert(offsetof(SH_RECTYPE, sh_date_started) == 128);
static_assert(offsetof(SH_RECTYPE, sh_elapse_time) == 132);
static_assert(offsetof(SH_RECTYPE, sh_first_domain) == 136);
static_assert(offsetof(SH_RECTYPE, sh_last_domain) == 140);
static_assert(offsetof(SH_RECTYPE, sh_flags) == 144);
static_assert(offsetof(SH_RECTYPE, sh_num_domains) == 146);
static_assert(offsetof(SH_RECTYPE, sh_num_msgs) == 148);
static_assert(offsetof(SH_RECTYPE, sh_num_scheds) == 150);
static_assert(offsetof(SH_RECTYPE, sh_num_depends) == 152);
static_assert(offsetof(SH_RECTYPE, sh_version) == 154);
static_assert(offsetof(SH_RECTYPE, sh_run_number) == 156);
static_assert(offsetof(SH_RECTYPE, sh_cons_level) == 158);
static_assert(offsetof(SH_RECTYPE, sh_day_start) == 160);
static_assert(offsetof(SH_RECTYPE, sh_num_sts) == 162);
static_assert(offsetof(SH_RECTYPE, sh_num_cpus) == 164);
static_assert(offsetof(SH_RECTYPE, sh_num_cals) == 166);
static_assert(offsetof(SH_RECTYPE, sh_num_resources) == 168);
static_assert(offsetof(SH_RECTYPE, sh_num_userjobs) == 170);
static_assert(offsetof(SH_RECTYPE, sh_num_files) == 172);
static_assert(offsetof(SH_RECTYPE, sh_num_super) == 174);
static_assert(offsetof(SH_RECTYPE, sh_cpu_limit) == 176);
static_assert(offsetof(SH_RECTYPE, sh_job_fence) == 178);
static_assert(offsetof(SH_RECTYPE, sh_filler2) == 180);
static_assert(offsetof(SH_RECTYPE, sh_filler1) == 182);
static_assert(offsetof(SH_RECTYPE, sh_audit_level) == 198);
static_assert(offsetof(SH_RECTYPE, sh_last_time) == 200);
static_assert(offsetof(SH_RECTYPE, sh_time_started) == 202);
static_assert(offsetof(SH_RECTYPE, sh_cons_session) == 204);
static_assert(offsetof(SH_RECTYPE, sh_mast_domain) == 236);
static_assert(offsetof(SH_RECTYPE, sh_flags2) == 252);
static_assert(offsetof(SH_RECTYPE, sh_alm_version) == 254);
static_assert(offsetof(SH_RECTYPE, sh_filler3) == 256);
static_assert(sizeof(SH_RECTYPE) == 512);
static_assert(offsetof(SH_RECTYPE_V1, alm_rec_type) == 0);
static_assert(offsetof(SH_RECTYPE_V1, sh_cpu_id) == 2);
static_assert(offsetof(SH_RECTYPE_V1, sh_mast_cpu) == 10);
static_assert(offsetof(SH_RECTYPE_V1, sh_status) == 18);
static_assert(offsetof(SH_RECTYPE_V1, sh_first_sched) == 20);
static_assert(offsetof(SH_RECTYPE_V1, sh_last_sched) == 22);
static_assert(offsetof(SH_RECTYPE_V1, sh_num_scheds) == 24);
static_assert(offsetof(SH_RECTYPE_V1, sh_first_msg) == 26);
static_assert(offsetof(SH_RECTYPE_V1, sh_last_msg) == 28);
static_assert(offsetof(SH_RECTYPE_V1, sh_num_msgs) == 30);
static_assert(offsetof(SH_RECTYPE_V1, sh_num_recs) == 32);
static_assert(offsetof(SH_RECTYPE_V1, sh_num_depends) == 34);
static_assert(offsetof(SH_RECTYPE_V1, sh_version) == 36);
static_assert(offsetof(SH_RECTYPE_V1, sh_run_number) == 38);
static_assert(offsetof(SH_RECTYPE_V1, sh_console) == 40);
static_assert(offsetof(SH_RECTYPE_V1, sh_cons_level) == 44);
static_assert(offsetof(SH_RECTYPE_V1, sh_day_start) == 46);
static_assert(offsetof(SH_RECTYPE_V1, sh_first_file) == 48);
static_assert(offsetof(SH_RECTYPE_V1, sh_last_file) == 50);
static_assert(offsetof(SH_RECTYPE_V1, sh_num_files) == 52);
static_assert(offsetof(SH_RECTYPE_V1, sh_first_resource) == 54);
static_assert(offsetof(SH_RECTYPE_V1, sh_last_resource) == 56);
static_assert(offsetof(SH_RECTYPE_V1, sh_num_resources) == 58);
static_assert(offsetof(SH_RECTYPE_V1, sh_num_userjobs) == 60);
static_assert(offsetof(SH_RECTYPE_V1, sh_flags) == 62);
static_assert(offsetof(SH_RECTYPE_V1, sh_first_cal) == 64);
static_assert(offsetof(SH_RECTYPE_V1, sh_last_cal) == 66);
static_assert(offsetof(SH_RECTYPE_V1, sh_num_cals) == 68);
static_assert(offsetof(SH_RECTYPE_V1, sh_first_cpu) == 70);
static_assert(offsetof(SH_RECTYPE_V1, sh_last_cpu) == 72);
static_assert(offsetof(SH_RECTYPE_V1, sh_num_cpus) == 74);
static_assert(offsetof(SH_RECTYPE_V1, sh_first_st) == 76);
static_assert(offsetof(SH_RECTYPE_V1, sh_last_st) == 78);
static_assert(offsetof(SH_RECTYPE_V1, sh_num_sts) == 80);
static_assert(offsetof(SH_RECTYPE_V1, sh_first_super) == 82);
static_assert(offsetof(SH_RECTYPE_V1, sh_last_super) == 84);
static_assert(offsetof(SH_RECTYPE_V1, sh_num_super) == 86);
static_assert(offsetof(SH_RECTYPE_V1, sh_first_domain) == 88);
static_assert(offsetof(SH_RECTYPE_V1, sh_last_domain) == 90);
static_assert(offsetof(SH_RECTYPE_V1, sh_num_domains) == 92);
static_assert(offsetof(SH_RECTYPE_V1, sh_filler1) == 94);
static_assert(offsetof(SH_RECTYPE_V1, sh_audit_level) == 104);
static_assert(offsetof(SH_RECTYPE_V1, sh_last_time) == 106);
static_assert(offsetof(SH_RECTYPE_V1, sh_last_date) == 108);
static_assert(offsetof(SH_RECTYPE_V1, sh_sched_date) == 112);
static_assert(offsetof(SH_RECTYPE_V1, sh_date_started) == 116);
static_assert(offsetof(SH_RECTYPE_V1, sh_elapse_time) == 120);
static_assert(offsetof(SH_RECTYPE_V1, sh_time_started) == 124);
static_assert(offsetof(SH_RECTYPE_V1, sh_cpu_limit) == 126);
static_assert(offsetof(SH_RECTYPE_V1, sh_job_fence) == 128);
static_assert(offsetof(SH_RECTYPE_V1, sh_filler2) == 130);
static_assert(offsetof(SH_RECTYPE_V1, sh_rec_num) == 132);
static_assert(offsetof(SH_RECTYPE_V1, sh_cons_session) == 134);
static_assert(offsetof(SH_RECTYPE_V1, sh_mast_domain) == 166);
static_assert(offsetof(SH_RECTYPE_V1, sh_flags2) == 174);
static_assert(offsetof(SH_RECTYPE_V1, sh_filler3) == 176);
static_assert(offsetof(SH_RECTYPE_V1, sh_alm_version) == 254);
static_assert(sizeof(SH_RECTYPE_V1) == 256);
static_assert(offsetof(SCI_RECTYPE, alm_rec_type) == 0);
static_assert(offsetof(SCI_RECTYPE, sci_status) == 2);
static_assert(offsetof(SCI_RECTYPE, sci_filler6) == 4);
static_assert(offsetof(SCI_RECTYPE, sci_rec_version) == 6);
static_assert(offsetof(SCI_RECTYPE, sci_rec_num) == 8);
static_assert(offsetof(SCI_RECTYPE, sci_cont_rec) == 12);
static_assert(offsetof(SCI_RECTYPE, sci_cpu_id) == 16);
static_assert(offsetof(SCI_RECTYPE, sci_host_cpu) == 32);
static_assert(offsetof(SCI_RECTYPE, sci_first_sched) == 48);
static_assert(offsetof(SCI_RECTYPE, sci_console) == 52);
static_assert(offsetof(SCI_RECTYPE, sci_date_started) == 56);
static_assert(offsetof(SCI_RECTYPE, sci_elapse_time) == 60);
static_assert(offsetof(SCI_RECTYPE, sci_marshal_flags) == 64);
static_assert(offsetof(SCI_RECTYPE, sci_mpe_fence) == 66);
static_assert(offsetof(SCI_RECTYPE, sci_mpe_limit) == 68);
static_assert(offsetof(SCI_RECTYPE, sci_access_method) == 70);
static_assert(offsetof(SCI_RECTYPE, sci_filler2) == 110);
static_assert(offsetof(SCI_RECTYPE, sci_run_number) == 112);
static_assert(offsetof(SCI_RECTYPE, sci_cons_level) == 114);
static_assert(offsetof(SCI_RECTYPE, sci_filler3) == 116);
static_assert(offsetof(SCI_RECTYPE, sci_node_name) == 118);
static_assert(offsetof(SCI_RECTYPE, sci_filler4) == 170);
static_assert(offsetof(SCI_RECTYPE, sci_time_started) == 186);
static_assert(offsetof(SCI_RECTYPE, sci_cpu_limit) == 188);
static_assert(offsetof(SCI_RECTYPE, sci_job_fence) == 190);
static_assert(offsetof(SCI_RECTYPE, sci_requested) == 192);
static_assert(offsetof(SCI_RECTYPE, sci_flags) == 194);
static_assert(offsetof(SCI_RECTYPE, sci_prev_cpu_ptr) == 196);
static_assert(offsetof(SCI_RECTYPE, sci_next_cpu_ptr) == 200);
static_assert(offsetof(SCI_RECTYPE, sci_prev_domain_ptr) == 204);
static_assert(offsetof(SCI_RECTYPE, sci_next_domain_ptr) == 208);
static_assert(offsetof(SCI_RECTYPE, sci_dblnk_recnum) == 212);
static_assert(offsetof(SCI_RECTYPE, sci_node_addr) == 216);
static_assert(offsetof(SCI_RECTYPE, sci_cpu_type) == 220);
static_assert(offsetof(SCI_RECTYPE, sci_link_type) == 224);
static_assert(offsetof(SCI_RECTYPE, sci_server) == 226);
static_assert(offsetof(SCI_RECTYPE, sci_node_type) == 228);
static_assert(offsetof(SCI_RECTYPE, sci_kestrel_version) == 230);
static_assert(offsetof(SCI_RECTYPE, sci_filler7) == 238);
static_assert(offsetof(SCI_RECTYPE, sci_user_info) == 246);
static_assert(offsetof(SCI_RECTYPE, sci_domain_name) == 310);
static_assert(offsetof(SCI_RECTYPE, sci_domain_parent) == 326);
static_assert(offsetof(SCI_RECTYPE, sci_timezone_id) == 342);
static_assert(offsetof(SCI_RECTYPE, sci_filler5) == 382);
static_assert(sizeof(SCI_RECTYPE) == 512);
static_assert(offsetof(SCI_RECTYPE_V1, alm_rec_type) == 0);
static_assert(offsetof(SCI_RECTYPE_V1, sci_cpu_id) == 2);
static_assert(offsetof(SCI_RECTYPE_V1, sci_host_cpu) == 10);
static_assert(offsetof(SCI_RECTYPE_V1, sci_status) == 18);
static_assert(offsetof(SCI_RECTYPE_V1, sci_first_sched) == 20);
static_assert(offsetof(SCI_RECTYPE_V1, sci_marshal_flags) == 22);
static_assert(offsetof(SCI_RECTYPE_V1, sci_mpe_fence) == 24);
static_assert(offsetof(SCI_RECTYPE_V1, sci_mpe_limit) == 26);
static_assert(offsetof(SCI_RECTYPE_V1, sci_access_method) == 28);
static_assert(offsetof(SCI_RECTYPE_V1, sci_filler2) == 36);
static_assert(offsetof(SCI_RECTYPE_V1, sci_run_number) == 38);
static_assert(offsetof(SCI_RECTYPE_V1, sci_console) == 40);
static_assert(offsetof(SCI_RECTYPE_V1, sci_cons_level) == 44);
static_assert(offsetof(SCI_RECTYPE_V1, sci_filler3) == 46);
static_assert(offsetof(SCI_RECTYPE_V1, sci_node_name) == 48);
static_assert(offsetof(SCI_RECTYPE_V1, sci_filler4) == 100);
static_assert(offsetof(SCI_RECTYPE_V1, sci_filler7) == 108);
static_assert(offsetof(SCI_RECTYPE_V1, sci_prev_domain_ptr) == 112);
static_assert(offsetof(SCI_RECTYPE_V1, sci_next_domain_ptr) == 114);
static_assert(offsetof(SCI_RECTYPE_V1, sci_date_started) == 116);
static_assert(offsetof(SCI_RECTYPE_V1, sci_elapse_time) == 120);
static_assert(offsetof(SCI_RECTYPE_V1, sci_time_started) == 124);
static_assert(offsetof(SCI_RECTYPE_V1, sci_cpu_limit) == 126);
static_assert(offsetof(SCI_RECTYPE_V1, sci_job_fence) == 128);
static_assert(offsetof(SCI_RECTYPE_V1, sci_requested) == 130);
static_assert(offsetof(SCI_RECTYPE_V1, sci_rec_num) == 132);
static_assert(offsetof(SCI_RECTYPE_V1, sci_prev_cpu_ptr) == 134);
static_assert(offsetof(SCI_RECTYPE_V1, sci_next_cpu_ptr) == 136);
static_assert(offsetof(SCI_RECTYPE_V1, sci_flags) == 138);
static_assert(offsetof(SCI_RECTYPE_V1, sci_dblnk_recnum) == 140);
static_assert(offsetof(SCI_RECTYPE_V1, sci_node_addr) == 144);
static_assert(offsetof(SCI_RECTYPE_V1, sci_cpu_type) == 148);
static_assert(offsetof(SCI_RECTYPE_V1, sci_link_type) == 152);
static_assert(offsetof(SCI_RECTYPE_V1, sci_server) == 154);
static_assert(offsetof(SCI_RECTYPE_V1, sci_node_type) == 156);
static_assert(offsetof(SCI_RECTYPE_V1, sci_kestrel_version) == 158);
static_assert(offsetof(SCI_RECTYPE_V1, sci_timezone_id) == 166);
static_assert(offsetof(SCI_RECTYPE_V1, sci_user_info) == 174);
static_assert(offsetof(SCI_RECTYPE_V1, sci_domain_name) == 238);
static_assert(offsetof(SCI_RECTYPE_V1, sci_domain_parent) == 246);
static_assert(offsetof(SCI_RECTYPE_V1, sci_filler5) == 254);
static_assert(sizeof(SCI_RECTYPE_V1) == 256);
static_assert(offsetof(SS_RECTYPE, alm_rec_type) == 0);
static_assert(offsetof(SS_RECTYPE, ss_status) == 2);
static_assert(offsetof(SS_RECTYPE, ss_filler1) == 4);
static_assert(offsetof(SS_RECTYPE, ss_rec_version) == 6);
static_assert(offsetof(SS_RECTYPE, ss_rec_num) == 8);
static_assert(offsetof(SS_RECTYPE, ss_cont_rec) == 12);
static_assert(offsetof(SS_RECTYPE, ss_cpu_id) == 16);
static_assert(offsetof(SS_RECTYPE, ss_sched_name) == 32);
static_assert(offsetof(SS_RECTYPE, ss_num_recs) == 48);
static_assert(offsetof(SS_RECTYPE, ss_num_jobs) == 50);
static_assert(offsetof(SS_RECTYPE, ss_num_succ) == 52);
static_assert(offsetof(SS_RECTYPE, ss_orig_sched) == 54);
static_assert(offsetof(SS_RECTYPE, ss_sched_pri) == 70);
static_assert(offsetof(SS_RECTYPE, ss_spare_word12) == 72);
static_assert(offsetof(SS_RECTYPE, ss_calc_num) == 74);
static_assert(offsetof(SS_RECTYPE, ss_num_notrun) == 76);
static_assert(offsetof(SS_RECTYPE, ss_num_exec) == 78);
static_assert(offsetof(SS_RECTYPE, ss_num_abend) == 80);
static_assert(offsetof(SS_RECTYPE, ss_num_failed) == 82);
static_assert(offsetof(SS_RECTYPE, ss_until_time) == 84);
static_assert(offsetof(SS_RECTYPE, ss_filler6) == 86);
static_assert(offsetof(SS_RECTYPE, ss_cpu_time) == 88);
static_assert(offsetof(SS_RECTYPE, ss_until_date) == 92);
static_assert(offsetof(SS_RECTYPE, ss_first_job) == 96);
static_assert(offsetof(SS_RECTYPE, ss_last_job) == 100);
static_assert(offsetof(SS_RECTYPE, ss_prev_sch_ptr) == 104);
static_assert(offsetof(SS_RECTYPE, ss_next_sch_ptr) == 108);
static_assert(offsetof(SS_RECTYPE, ss_job_number) == 112);
static_assert(offsetof(SS_RECTYPE, ss_dependencies) == 116);
static_assert(offsetof(SS_RECTYPE, ss_limit) == 276);
static_assert(offsetof(SS_RECTYPE, ss_cpuclass_id) == 278);
static_assert(offsetof(SS_RECTYPE, ss_spare_word15) == 294);
static_assert(offsetof(SS_RECTYPE, ss_num_skel) == 296);
static_assert(offsetof(SS_RECTYPE, ss_filler2) == 298);
static_assert(offsetof(SS_RECTYPE, ss_flags) == 312);
static_assert(offsetof(SS_RECTYPE, ss_filler3) == 314);
static_assert(offsetof(SS_RECTYPE, ss_re_flags) == 316);
static_assert(offsetof(SS_RECTYPE, ss_filler4) == 318);
static_assert(offsetof(SS_RECTYPE, ss_restart_ptr) == 320);
static_assert(offsetof(SS_RECTYPE, ss_restart_from) == 322);
static_assert(offsetof(SS_RECTYPE, ss_prod_date) == 324);
static_assert(offsetof(SS_RECTYPE, ss_sched_date) == 328);
static_assert(offsetof(SS_RECTYPE, ss_date_started) == 332);
static_assert(offsetof(SS_RECTYPE, ss_elapse_time) == 336);
static_assert(offsetof(SS_RECTYPE, ss_est_elapse) == 340);
static_assert(offsetof(SS_RECTYPE, ss_num_depends) == 344);
static_assert(offsetof(SS_RECTYPE, ss_start_time) == 346);
static_assert(offsetof(SS_RECTYPE, ss_time_started) == 348);
static_assert(offsetof(SS_RECTYPE, ss_depend_flags) == 350);
static_assert(offsetof(SS_RECTYPE, ss_filler5) == 390);
static_assert(sizeof(SS_RECTYPE) == 512);
static_assert(offsetof(SS_RECTYPE_V1, alm_rec_type) == 0);
static_assert(offsetof(SS_RECTYPE_V1, ss_cpu_id) == 2);
static_assert(offsetof(SS_RECTYPE_V1, ss_sched_name) == 10);
static_assert(offsetof(SS_RECTYPE_V1, ss_status) == 18);
static_assert(offsetof(SS_RECTYPE_V1, ss_sched_pri) == 20);
static_assert(offsetof(SS_RECTYPE_V1, ss_spare_word12) == 22);
static_assert(offsetof(SS_RECTYPE_V1, ss_num_recs) == 24);
static_assert(offsetof(SS_RECTYPE_V1, ss_num_jobs) == 26);
static_assert(offsetof(SS_RECTYPE_V1, ss_num_succ) == 28);
static_assert(offsetof(SS_RECTYPE_V1, ss_spare_word15) == 30);
static_assert(offsetof(SS_RECTYPE_V1, ss_prod_date) == 32);
static_assert(offsetof(SS_RECTYPE_V1, ss_orig_sched) == 36);
static_assert(offsetof(SS_RECTYPE_V1, ss_calc_num) == 44);
static_assert(offsetof(SS_RECTYPE_V1, ss_num_notrun) == 46);
static_assert(offsetof(SS_RECTYPE_V1, ss_num_exec) == 48);
static_assert(offsetof(SS_RECTYPE_V1, ss_num_abend) == 50);
static_assert(offsetof(SS_RECTYPE_V1, ss_num_failed) == 52);
static_assert(offsetof(SS_RECTYPE_V1, ss_num_skel) == 54);
static_assert(offsetof(SS_RECTYPE_V1, ss_cpu_time) == 56);
static_assert(offsetof(SS_RECTYPE_V1, ss_until_date) == 60);
static_assert(offsetof(SS_RECTYPE_V1, ss_until_time) == 62);
static_assert(offsetof(SS_RECTYPE_V1, ss_first_job) == 64);
static_assert(offsetof(SS_RECTYPE_V1, ss_last_job) == 66);
static_assert(offsetof(SS_RECTYPE_V1, ss_prev_sch_ptr) == 68);
static_assert(offsetof(SS_RECTYPE_V1, ss_next_sch_ptr) == 70);
static_assert(offsetof(SS_RECTYPE_V1, ss_job_number) == 72);
static_assert(offsetof(SS_RECTYPE_V1, ss_limit) == 76);
static_assert(offsetof(SS_RECTYPE_V1, ss_cpuclass_id) == 78);
static_assert(offsetof(SS_RECTYPE_V1, ss_filler2) == 86);
static_assert(offsetof(SS_RECTYPE_V1, ss_flags) == 100);
static_assert(offsetof(SS_RECTYPE_V1, ss_filler3) == 102);
static_assert(offsetof(SS_RECTYPE_V1, ss_re_flags) == 104);
static_assert(offsetof(SS_RECTYPE_V1, ss_filler4) == 106);
static_assert(offsetof(SS_RECTYPE_V1, ss_restart_ptr) == 108);
static_assert(offsetof(SS_RECTYPE_V1, ss_restart_from) == 110);
static_assert(offsetof(SS_RECTYPE_V1, ss_sched_date) == 112);
static_assert(offsetof(SS_RECTYPE_V1, ss_date_started) == 116);
static_assert(offsetof(SS_RECTYPE_V1, ss_elapse_time) == 120);
static_assert(offsetof(SS_RECTYPE_V1, ss_est_elapse) == 124);
static_assert(offsetof(SS_RECTYPE_V1, ss_start_time) == 128);
static_assert(offsetof(SS_RECTYPE_V1, ss_time_started) == 130);
static_assert(offsetof(SS_RECTYPE_V1, ss_rec_num) == 132);
static_assert(offsetof(SS_RECTYPE_V1, ss_num_depends) == 134);
static_assert(offsetof(SS_RECTYPE_V1, ss_depend_flags) == 136);
static_assert(offsetof(SS_RECTYPE_V1, ss_dependencies) == 176);
static_assert(sizeof(SS_RECTYPE_V1) == 256);
static_assert(offsetof(SJ_RECTYPE, alm_rec_type) == 0);
static_assert(offsetof(SJ_RECTYPE, sj_status) == 2);
static_assert(offsetof(SJ_RECTYPE, sj_filler2) == 4);
static_assert(offsetof(SJ_RECTYPE, sj_rec_version) == 6);
static_assert(offsetof(SJ_RECTYPE, sj_rec_num) == 8);
static_assert(offsetof(SJ_RECTYPE, sj_cont_rec) == 12);
static_assert(offsetof(SJ_RECTYPE, sj_cpu_id) == 16);
static_assert(offsetof(SJ_RECTYPE, sj_job_name) == 32);
static_assert(offsetof(SJ_RECTYPE, sj_job_pri) == 72);
static_assert(offsetof(SJ_RECTYPE, sj_schedule) == 74);
static_assert(offsetof(SJ_RECTYPE, sj_job_user) == 90);
static_assert(offsetof(SJ_RECTYPE, sj_job_acct) == 138);
static_assert(offsetof(SJ_RECTYPE, sj_job_group) == 146);
static_assert(offsetof(SJ_RECTYPE, sj_every_hhmm) == 154);
static_assert(offsetof(SJ_RECTYPE, sj_until_time) == 156);
static_assert(offsetof(SJ_RECTYPE, sj_flags2) == 158);
static_assert(offsetof(SJ_RECTYPE, sj_flags) == 160);
static_assert(offsetof(SJ_RECTYPE, sj_re_flags) == 162);
static_assert(offsetof(SJ_RECTYPE, sj_start_time) == 164);
static_assert(offsetof(SJ_RECTYPE, sj_time_started) == 166);
static_assert(offsetof(SJ_RECTYPE, sj_num_depends) == 168);
static_assert(offsetof(SJ_RECTYPE, sj_filler3) == 170);
static_assert(offsetof(SJ_RECTYPE, sj_fname_jname) == 172);
static_assert(offsetof(SJ_RECTYPE, sj_sched_ptr) == 212);
static_assert(offsetof(SJ_RECTYPE, sj_prev_job_ptr) == 216);
static_assert(offsetof(SJ_RECTYPE, sj_next_job_ptr) == 220);
static_assert(offsetof(SJ_RECTYPE, sj_re_job_ptr) == 224);
static_assert(offsetof(SJ_RECTYPE, sj_re_prmpt_ptr) == 228);
static_assert(offsetof(SJ_RECTYPE, sj_restart_ptr) == 232);
static_assert(offsetof(SJ_RECTYPE, sj_rec_ptrs) == 236);
static_assert(offsetof(SJ_RECTYPE, sj_until_date) == 240);
static_assert(offsetof(SJ_RECTYPE, sj_sched_date) == 244);
static_assert(offsetof(SJ_RECTYPE, sj_date_started) == 248);
static_assert(offsetof(SJ_RECTYPE, sj_elapse_time) == 252);
static_assert(offsetof(SJ_RECTYPE, sj_est_elapse) == 256);
static_assert(offsetof(SJ_RECTYPE, sj_cpu_time) == 260);
static_assert(offsetof(SJ_RECTYPE, sj_job_number) == 264);
static_assert(offsetof(SJ_RECTYPE, subdep) == 268);
static_assert(offsetof(SJ_RECTYPE, sj_filler1) == 468);
static_assert(sizeof(SJ_RECTYPE::sj_filler1) == 44);
static_assert(sizeof(SJ_RECTYPE) == 512);
static_assert(offsetof(SJ_RECTYPE_V1, alm_rec_type) == 0);
static_assert(offsetof(SJ_RECTYPE_V1, sj_cpu_id) == 2);
static_assert(offsetof(SJ_RECTYPE_V1, sj_job_name) == 10);
static_assert(offsetof(SJ_RECTYPE_V1, sj_status) == 18);
static_assert(offsetof(SJ_RECTYPE_V1, sj_job_pri) == 20);
static_assert(offsetof(SJ_RECTYPE_V1, sj_every_hhmm) == 22);
static_assert(offsetof(SJ_RECTYPE_V1, sj_fname_jname) == 24);
static_assert(offsetof(SJ_RECTYPE_V1, sj_schedule) == 48);
static_assert(offsetof(SJ_RECTYPE_V1, sj_cpu_time) == 56);
static_assert(offsetof(SJ_RECTYPE_V1, sj_until_date) == 60);
static_assert(offsetof(SJ_RECTYPE_V1, sj_until_time) == 62);
static_assert(offsetof(SJ_RECTYPE_V1, sj_sched_ptr) == 64);
static_assert(offsetof(SJ_RECTYPE_V1, sj_flags2) == 66);
static_assert(offsetof(SJ_RECTYPE_V1, sj_prev_job_ptr) == 68);
static_assert(offsetof(SJ_RECTYPE_V1, sj_next_job_ptr) == 70);
static_assert(offsetof(SJ_RECTYPE_V1, sj_job_number) == 72);
static_assert(offsetof(SJ_RECTYPE_V1, sj_job_user) == 76);
static_assert(offsetof(SJ_RECTYPE_V1, sj_job_acct) == 84);
static_assert(offsetof(SJ_RECTYPE_V1, sj_job_group) == 92);
static_assert(offsetof(SJ_RECTYPE_V1, sj_flags) == 100);
static_assert(offsetof(SJ_RECTYPE_V1, sj_re_job_ptr) == 102);
static_assert(offsetof(SJ_RECTYPE_V1, sj_re_flags) == 104);
static_assert(offsetof(SJ_RECTYPE_V1, sj_re_prmpt_ptr) == 106);
static_assert(offsetof(SJ_RECTYPE_V1, sj_restart_ptr) == 108);
static_assert(offsetof(SJ_RECTYPE_V1, sj_rec_ptrs) == 110);
static_assert(offsetof(SJ_RECTYPE_V1, sj_sched_date) == 112);
static_assert(offsetof(SJ_RECTYPE_V1, sj_date_started) == 116);
static_assert(offsetof(SJ_RECTYPE_V1, sj_elapse_time) == 120);
static_assert(offsetof(SJ_RECTYPE_V1, sj_est_elapse) == 124);
static_assert(offsetof(SJ_RECTYPE_V1, sj_start_time) == 128);
static_assert(offsetof(SJ_RECTYPE_V1, sj_time_started) == 130);
static_assert(offsetof(SJ_RECTYPE_V1, sj_rec_num) == 132);
static_assert(offsetof(SJ_RECTYPE_V1, sj_num_depends) == 134);
static_assert(offsetof(SJ_RECTYPE_V1, subdep) == 136);
static_assert(sizeof(SJ_RECTYPE_V1) == 256);
static_assert(offsetof(SM_RECTYPE, alm_rec_type) == 0);
static_assert(offsetof(SM_RECTYPE, sm_status) == 2);
static_assert(offsetof(SM_RECTYPE, sm_filler3) == 4);
static_assert(offsetof(SM_RECTYPE, sm_rec_version) == 6);
static_assert(offsetof(SM_RECTYPE, sm_rec_num) == 8);
static_assert(offsetof(SM_RECTYPE, sm_cont_rec) == 12);
static_assert(offsetof(SM_RECTYPE, sm_cpu_id) == 16);
static_assert(offsetof(SM_RECTYPE, sm_msg_name) == 32);
static_assert(offsetof(SM_RECTYPE, sm_prev_msg) == 40);
static_assert(offsetof(SM_RECTYPE, sm_next_msg) == 44);
static_assert(offsetof(SM_RECTYPE, sm_job_ptr) == 48);
static_assert(offsetof(SM_RECTYPE, sm_date_asked) == 52);
static_assert(offsetof(SM_RECTYPE, sm_date_resp) == 56);
static_assert(offsetof(SM_RECTYPE, sm_msg_no) == 60);
static_assert(offsetof(SM_RECTYPE, sm_msg_flags) == 62);
static_assert(offsetof(SM_RECTYPE, sm_time_asked) == 64);
static_assert(offsetof(SM_RECTYPE, sm_time_resp) == 66);
static_assert(offsetof(SM_RECTYPE, sm_filler1) == 68);
static_assert(offsetof(SM_RECTYPE, sm_message) == 78);
static_assert(offsetof(SM_RECTYPE, sm_message_more) == 158);
static_assert(offsetof(SM_RECTYPE, sm_filler2) == 278);
static_assert(sizeof(SM_RECTYPE) == 512);
static_assert(offsetof(SM_RECTYPE_V1, alm_rec_type) == 0);
static_assert(offsetof(SM_RECTYPE_V1, sm_cpu_id) == 2);
static_assert(offsetof(SM_RECTYPE_V1, sm_msg_name) == 10);
static_assert(offsetof(SM_RECTYPE_V1, sm_status) == 18);
static_assert(offsetof(SM_RECTYPE_V1, sm_msg_no) == 20);
static_assert(offsetof(SM_RECTYPE_V1, sm_msg_flags) == 22);
static_assert(offsetof(SM_RECTYPE_V1, sm_prev_msg) == 24);
static_assert(offsetof(SM_RECTYPE_V1, sm_next_msg) == 26);
static_assert(offsetof(SM_RECTYPE_V1, sm_message) == 28);
static_assert(offsetof(SM_RECTYPE_V1, sm_date_asked) == 108);
static_assert(offsetof(SM_RECTYPE_V1, sm_date_resp) == 112);
static_assert(offsetof(SM_RECTYPE_V1, sm_time_asked) == 116);
static_assert(offsetof(SM_RECTYPE_V1, sm_time_resp) == 118);
static_assert(offsetof(SM_RECTYPE_V1, sm_job_ptr) == 120);
static_assert(offsetof(SM_RECTYPE_V1, sm_filler1) == 122);
static_assert(offsetof(SM_RECTYPE_V1, sm_rec_num) == 132);
static_assert(offsetof(SM_RECTYPE_V1, sm_message_more) == 134);
static_assert(offsetof(SM_RECTYPE_V1, sm_filler2) == 254);
static_assert(sizeof(SM_RECTYPE_V1) == 256);
static_assert(offsetof(SF_RECTYPE, alm_rec_type) == 0);
static_assert(offsetof(SF_RECTYPE, sf_status) == 2);
static_assert(offsetof(SF_RECTYPE, sf_filler6) == 4);
static_assert(offsetof(SF_RECTYPE, sf_rec_version) == 6);
static_assert(offsetof(SF_RECTYPE, sf_rec_num) == 8);
static_assert(offsetof(SF_RECTYPE, sf_cont_rec) == 12);
static_assert(offsetof(SF_RECTYPE, sf_cpu_id) == 16);
static_assert(offsetof(SF_RECTYPE, sf_prev_file) == 32);
static_assert(offsetof(SF_RECTYPE, sf_next_file) == 36);
static_assert(offsetof(SF_RECTYPE, sf_filler1) == 40);
static_assert(offsetof(SF_RECTYPE, sf_file_name) == 48);
static_assert(offsetof(SF_RECTYPE, sf_filler2) == 76);
static_assert(offsetof(SF_RECTYPE, sf_filler3) == 124);
static_assert(offsetof(SF_RECTYPE, sf_timer) == 136);
static_assert(offsetof(SF_RECTYPE, sf_filler4) == 140);
static_assert(offsetof(SF_RECTYPE, sf_feq_len) == 156);
static_assert(offsetof(SF_RECTYPE, sf_feq) == 158);
static_assert(offsetof(SF_RECTYPE, sf_filler5) == 278);
static_assert(sizeof(SF_RECTYPE) == 512);
static_assert(offsetof(SF_RECTYPE_V1, alm_rec_type) == 0);
static_assert(offsetof(SF_RECTYPE_V1, sf_cpu_id) == 2);
static_assert(offsetof(SF_RECTYPE_V1, sf_filler1) == 10);
static_assert(offsetof(SF_RECTYPE_V1, sf_status) == 18);
static_assert(offsetof(SF_RECTYPE_V1, sf_file_name) == 20);
static_assert(offsetof(SF_RECTYPE_V1, sf_filler2) == 48);
static_assert(offsetof(SF_RECTYPE_V1, sf_prev_file) == 96);
static_assert(offsetof(SF_RECTYPE_V1, sf_next_file) == 98);
static_assert(offsetof(SF_RECTYPE_V1, sf_filler3) == 100);
static_assert(offsetof(SF_RECTYPE_V1, sf_timer) == 112);
static_assert(offsetof(SF_RECTYPE_V1, sf_filler4) == 116);
static_assert(offsetof(SF_RECTYPE_V1, sf_rec_num) == 132);
static_assert(offsetof(SF_RECTYPE_V1, sf_feq_len) == 134);
static_assert(offsetof(SF_RECTYPE_V1, sf_feq) == 136);
static_assert(sizeof(SF_RECTYPE_V1) == 256);
static_assert(offsetof(SR_RECTYPE, alm_rec_type) == 0);
static_assert(offsetof(SR_RECTYPE, sr_status) == 2);
static_assert(offsetof(SR_RECTYPE, sr_filler4) == 4);
static_assert(offsetof(SR_RECTYPE, sr_rec_version) == 6);
static_assert(offsetof(SR_RECTYPE, sr_rec_num) == 8);
static_assert(offsetof(SR_RECTYPE, sr_cont_rec) == 12);
static_assert(offsetof(SR_RECTYPE, sr_cpu_id) == 16);
static_assert(offsetof(SR_RECTYPE, sr_resource_name) == 32);
static_assert(offsetof(SR_RECTYPE, sr_prev_resource) == 40);
static_assert(offsetof(SR_RECTYPE, sr_next_resource) == 44);
static_assert(offsetof(SR_RECTYPE, sr_num_avail) == 48);
static_assert(offsetof(SR_RECTYPE, sr_num_used) == 52);
static_assert(offsetof(SR_RECTYPE, sr_num_unused) == 56);
static_assert(offsetof(SR_RECTYPE, sr_num_holders) == 60);
static_assert(offsetof(SR_RECTYPE, sr_filler1) == 64);
static_assert(offsetof(SR_RECTYPE, sr_holders) == 96);
static_assert(offsetof(SR_RECTYPE, sr_filler2) == 224);
static_assert(offsetof(SR_RECTYPE, sr_hold_counts) == 228);
static_assert(offsetof(SR_RECTYPE, sr_filler3) == 292);
static_assert(sizeof(SR_RECTYPE) == 512);
static_assert(offsetof(SR_RECTYPE_V1, alm_rec_type) == 0);
static_assert(offsetof(SR_RECTYPE_V1, sr_cpu_id) == 2);
static_assert(offsetof(SR_RECTYPE_V1, sr_resource_name) == 10);
static_assert(offsetof(SR_RECTYPE_V1, sr_status) == 18);
static_assert(offsetof(SR_RECTYPE_V1, sr_prev_resource) == 20);
static_assert(offsetof(SR_RECTYPE_V1, sr_next_resource) == 22);
static_assert(offsetof(SR_RECTYPE_V1, sr_num_avail) == 24);
static_assert(offsetof(SR_RECTYPE_V1, sr_num_used) == 26);
static_assert(offsetof(SR_RECTYPE_V1, sr_num_unused) == 28);
static_assert(offsetof(SR_RECTYPE_V1, sr_num_holders) == 30);
static_assert(offsetof(SR_RECTYPE_V1, sr_filler1) == 32);
static_assert(offsetof(SR_RECTYPE_V1, sr_holders) == 64);
static_assert(offsetof(SR_RECTYPE_V1, sr_filler2) == 128);
static_assert(offsetof(SR_RECTYPE_V1, sr_rec_num) == 132);
static_assert(offsetof(SR_RECTYPE_V1, sr_hold_counts) == 134);
static_assert(offsetof(SR_RECTYPE_V1, sr_filler3) == 198);
static_assert(sizeof(SR_RECTYPE_V1) == 256);
static_assert(offsetof(SC_RECTYPE, alm_rec_type) == 0);
static_assert(offsetof(SC_RECTYPE, sc_filler1) == 2);
static_assert(offsetof(SC_RECTYPE, sc_filler3) == 4);
static_assert(offsetof(SC_RECTYPE, sc_rec_version) == 6);
static_assert(offsetof(SC_RECTYPE, sc_cal_name) == 8);
static_assert(offsetof(SC_RECTYPE, sc_num_dates) == 16);
static_assert(offsetof(SC_RECTYPE, sc_cont_rec) == 20);
static_assert(offsetof(SC_RECTYPE, sc_cont_from) == 24);
static_assert(offsetof(SC_RECTYPE, sc_prev_cal) == 28);
static_assert(offsetof(SC_RECTYPE, sc_next_cal) == 32);
static_assert(offsetof(SC_RECTYPE, sc_cal_dates) == 36);
static_assert(offsetof(SC_RECTYPE, sc_filler2) == 508);
static_assert(sizeof(SC_RECTYPE) == 512);
static_assert(offsetof(SC_RECTYPE_V1, alm_rec_type) == 0);
static_assert(offsetof(SC_RECTYPE_V1, sc_cal_name) == 2);
static_assert(offsetof(SC_RECTYPE_V1, sc_num_dates) == 10);
static_assert(offsetof(SC_RECTYPE_V1, sc_cont_rec) == 12);
static_assert(offsetof(SC_RECTYPE_V1, sc_cont_from) == 14);
static_assert(offsetof(SC_RECTYPE_V1, sc_prev_cal) == 16);
static_assert(offsetof(SC_RECTYPE_V1, sc_next_cal) == 18);
static_assert(offsetof(SC_RECTYPE_V1, sc_cal_dates) == 20);
static_assert(sizeof(SC_RECTYPE_V1) == 256);
static_assert(offsetof(ST_RECTYPE, alm_rec_type) == 0);
static_assert(offsetof(ST_RECTYPE, st_filler1) == 2);
static_assert(offsetof(ST_RECTYPE, st_filler2) == 4);
static_assert(offsetof(ST_RECTYPE, st_rec_version) == 6);
static_assert(offsetof(ST_RECTYPE, st_rec_num) == 8);
static_assert(offsetof(ST_RECTYPE, st_next_ptr) == 12);
static_assert(offsetof(ST_RECTYPE, st_First_Free) == 16);
static_assert(offsetof(ST_RECTYPE, st_str_space) == 20);
static_assert(sizeof(ST_RECTYPE) == 512);
static_assert(offsetof(ST_RECTYPE_V1, alm_rec_type) == 0);
static_assert(offsetof(ST_RECTYPE_V1, st_next_ptr) == 2);
static_assert(offsetof(ST_RECTYPE_V1, st_First_Free) == 4);
static_assert(offsetof(ST_RECTYPE_V1, st_str_space) == 6);
static_assert(sizeof(ST_RECTYPE_V1) == 256);
static_assert(offsetof(SD_RECTYPE, sd_rec_type) == 0);
static_assert(offsetof(SD_RECTYPE, sd_filler2) == 2);
static_assert(offsetof(SD_RECTYPE, sd_rec_version) == 4);
static_assert(offsetof(SD_RECTYPE, sd_cpu_id) == 6);
static_assert(offsetof(SD_RECTYPE, sd_sched_name) == 22);
static_assert(offsetof(SD_RECTYPE, sd_job_name) == 38);
static_assert(offsetof(SD_RECTYPE, sd_dep_type) == 78);
static_assert(offsetof(SD_RECTYPE, sd_dep_cpu) == 80);
static_assert(offsetof(SD_RECTYPE, sd_dep_name) == 96);
static_assert(offsetof(SD_RECTYPE, sd_dep_jname) == 112);
static_assert(offsetof(SD_RECTYPE, sd_dep) == 152);
static_assert(offsetof(SD_RECTYPE, sd_filler1) == 356);
static_assert(sizeof(SD_RECTYPE) == 512);
static_assert(offsetof(SD_RECTYPE_V1, sd_rec_type) == 0);
static_assert(offsetof(SD_RECTYPE_V1, sd_cpu_id) == 2);
static_assert(offsetof(SD_RECTYPE_V1, sd_sched_name) == 10);
static_assert(offsetof(SD_RECTYPE_V1, sd_job_name) == 18);
static_assert(offsetof(SD_RECTYPE_V1, sd_dep_type) == 26);
static_assert(offsetof(SD_RECTYPE_V1, sd_dep_cpu) == 28);
static_assert(offsetof(SD_RECTYPE_V1, sd_dep_name) == 36);
static_assert(offsetof(SD_RECTYPE_V1, sd_dep_jname) == 44);
static_assert(offsetof(SD_RECTYPE_V1, sd_dep) == 52);
static_assert(sizeof(SD_RECTYPE_V1) == 256);
static_assert(offsetof(PJ_RECTYPE, pj_alm_rec_type) == 0);
static_assert(offsetof(PJ_RECTYPE, pj_job_count) == 2);
static_assert(offsetof(PJ_RECTYPE, pj_job_list) == 4);
static_assert(offsetof(PJ_RECTYPE, pj_filler1) == 484);
static_assert(sizeof(PJ_RECTYPE) == 512);
static_assert(offsetof(PJ_RECTYPE_V1, pj_alm_rec_type) == 0);
static_assert(offsetof(PJ_RECTYPE_V1, pj_job_count) == 2);
static_assert(offsetof(PJ_RECTYPE_V1, pj_job_list) == 4);
static_assert(sizeof(PJ_RECTYPE_V1) == 228);
static_assert(offsetof(SJ_RECTYPE, subdep.deps.sj_dependencies) == 308);
static_assert(offsetof(SJ_RECTYPE_V1, subdep.deps.sj_dependencies) == 176);
static_assert(offsetof(ST_RECTYPE, st_str_space.subrec.next_ptr) == 508);

// Record size for a header's sh_alm_version.
constexpr int alm_rec_size(std::int16_t alm_version) {
    return alm_version != 0 ? ALM_REC_SIZE_V2 : ALM_REC_SIZE_V1;
}

}  // namespace alm
