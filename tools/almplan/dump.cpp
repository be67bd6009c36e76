// `almplan dump PLAN [--json]`: every record of a plan, read through the plan
// library, one line per record: kind, number, names, status, chains, dates
// (local date and time), flags by name and dependencies. With --json each
// line is a JSON object instead.
#include "dump.h"

#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <string>
#include <string_view>

#include "check.h"
#include "jobstates.h"
#include "plan/almaccs.h"
#include "plan/almrecs.h"

namespace alm {

namespace {

constexpr int kExitFailure = 1;
constexpr int kExitUsage = 2;

struct FlagName {
    int bit;
    const char* name;
};

constexpr FlagName kHeaderFlags[] = {
    {shf_do_userjobs, "shf_do_userjobs"}, {shf_zero_pri, "shf_zero_pri"},
    {shf_rr_same_name, "shf_rr_same_name"}, {shf_have_cals, "shf_have_cals"},
    {shf_rules, "shf_rules"}, {shf_carried_fwd, "shf_carried_fwd"},
    {shf_ap_userjobs, "shf_ap_userjobs"}, {shf_purge_jobs, "shf_purge_jobs"},
    {shf_programmatic_jobs, "shf_programmatic_jobs"}, {shf_quillon_excl, "shf_quillon_excl"},
    {shf_st_supported, "shf_st_supported"}, {shf_almanack_is_old, "shf_almanack_is_old"},
    {shf_have_external_jobs, "shf_have_external_jobs"}, {shf_switch_mgr, "shf_switch_mgr"},
    {shf_empty_succ, "shf_empty_succ"}, {shf_grant_logon_batch, "shf_grant_logon_batch"},
};
constexpr FlagName kHeaderFlags2[] = {
    {shf_postrunner_NOT_inited, "shf_postrunner_NOT_inited"}, {shf_NOT_fully_inited, "shf_NOT_fully_inited"},
};
constexpr FlagName kCpuFlags[] = {
    {scif_full_status, "scif_full_status"}, {scif_auto_link, "scif_auto_link"},
    {scif_resolve_deps, "scif_resolve_deps"},
};
constexpr FlagName kSchedFlags[] = {
    {ssf_in_order, "ssf_in_order"}, {ssf_replicated, "ssf_replicated"}, {ssf_carried_fwd, "ssf_carried_fwd"},
    {ssf_carry_fwd, "ssf_carry_fwd"}, {ssf_dont_touch, "ssf_dont_touch"}, {ssf_until_used, "ssf_until_used"},
    {ssf_user_jobs, "ssf_user_jobs"}, {ssf_this_cpu, "ssf_this_cpu"}, {ssf_external, "ssf_external"},
    {ssf_free_2, "ssf_free_2"}, {ssf_needs_rsrc, "ssf_needs_rsrc"}, {ssf_has_rsrc, "ssf_has_rsrc"},
    {ssf_released, "ssf_released"}, {ssf_cancelled, "ssf_cancelled"}, {ssf_cancel_pend, "ssf_cancel_pend"},
    {ssf_every, "ssf_every"},
};
constexpr FlagName kSchedReFlags[] = {{ssrf_held_by_user, "ssrf_held_by_user"}};
constexpr FlagName kJobFlags[] = {
    {sjf1_re_job, "sjf1_re_job"}, {sjf1_ignore, "sjf1_ignore"}, {sjf1_buckujob, "sjf1_buckujob"},
    {sjf1_dont_touch, "sjf1_dont_touch"}, {sjf1_do_rerun, "sjf1_do_rerun"}, {sjf1_until_used, "sjf1_until_used"},
    {sjf1_user_job, "sjf1_user_job"}, {sjf1_this_cpu, "sjf1_this_cpu"}, {sjf1_succ_pend, "sjf1_succ_pend"},
    {sjf1_needs_msg, "sjf1_needs_msg"}, {sjf1_needs_rsrc, "sjf1_needs_rsrc"}, {sjf1_has_rsrc, "sjf1_has_rsrc"},
    {sjf1_released, "sjf1_released"}, {sjf1_cancelled, "sjf1_cancelled"}, {sjf1_showed_up, "sjf1_showed_up"},
    {sjf1_every, "sjf1_every"},
};
constexpr FlagName kJobFlags2[] = {
    {sjf2_run_again, "sjf2_run_again"}, {sjf2_running, "sjf2_running"}, {sjf2_alias, "sjf2_alias"},
    {sjf2_logged, "sjf2_logged"}, {sjf2_rstrt_flag, "sjf2_rstrt_flag"}, {sjf2_every_run, "sjf2_every_run"},
    {sjf2_launchedby_ms, "sjf2_launchedby_ms"}, {sjf2_wildcarded, "sjf2_wildcarded"},
    {sjf2_confirm_job, "sjf2_confirm_job"}, {sjf2_programmatic_job, "sjf2_programmatic_job"},
    {sjf2_wait_for_taskherd, "sjf2_wait_for_taskherd"}, {sjf2_sched_same_cpu, "sjf2_sched_same_cpu"},
    {sjf2_is_command, "sjf2_is_command"}, {sjf2_long_jcl, "sjf2_long_jcl"}, {sjf2_cancel_pend, "sjf2_cancel_pend"},
    {sjf2_replicated, "sjf2_replicated"},
};
constexpr FlagName kJobReFlags[] = {
    {sjrf_type1, "sjrf_type1"}, {sjrf_type2, "sjrf_type2"}, {sjrf_step, "sjrf_step"},
    {sjrf_gen_msg, "sjrf_gen_msg"}, {sjrf_held_by_user, "sjrf_held_by_user"},
    {sjrf_interactive, "sjrf_interactive"}, {sjrf_external, "sjrf_external"}, {sjrf_is_mpe_job, "sjrf_is_mpe_job"},
};

constexpr const char* kDepNames[] = {
    "ScDummyZero", "LocMsgDep", "GlbMsgDep", "PreschedDep", "PrejobDep", "RestType",
    "RstrMsgDep", "Satisfied", "FileDep", "ResourceDep", "NondepDep",
};

struct KindName {
    std::int16_t code;
    const char* name;
};
constexpr KindName kKinds[] = {
    {SH_CODE, "header"}, {SCI_CODE, "workstation"}, {SS_CODE, "schedule"}, {SJ_CODE, "job"},
    {SM_CODE, "prompt"}, {SF_CODE, "file"}, {SR_CODE, "resource"}, {SC_CODE, "calendar"},
    {ST_CODE, "string"}, {SD_CODE, "dependency"}, {PJ_CODE, "purgeable-jobs"},
};

const char* kind_name(std::int16_t code) {
    for (const KindName& k : kKinds)
        if (k.code == code) return k.name;
    return "unknown";
}

// The two code bytes in file order ("RH" for the header).
std::string code_text(std::int16_t code) {
    std::string s;
    for (unsigned char c : {static_cast<unsigned char>(code & 0xFF),
                            static_cast<unsigned char>(static_cast<std::uint16_t>(code) >> 8)}) {
        if (c >= 0x20 && c < 0x7F) {
            s += static_cast<char>(c);
        } else {
            char buf[8];
            std::snprintf(buf, sizeof buf, "\\x%02X", c);
            s += buf;
        }
    }
    return s;
}

std::string_view trimmed(const char* field, std::size_t width) {
    std::size_t n = 0;
    while (n < width && field[n] != '\0') ++n;
    while (n > 0 && (field[n - 1] == ' ' || field[n - 1] == '\t')) --n;
    return {field, n};
}

// One record as key/value pairs, in either output form.
class Line {
public:
    explicit Line(bool json) : json_(json) {}

    void begin(std::uint32_t recnum, std::int16_t code) {
        out_.clear();
        first_ = true;
        if (json_) {
            out_ += "{\"rec\":" + std::to_string(recnum);
            first_ = false;
            text("kind", kind_name(code));
            text("code", code_text(code));
        } else {
            out_ += "#" + std::to_string(recnum) + " " + kind_name(code) + " " + code_text(code);
        }
    }
    std::string end() {
        out_ += json_ ? "}\n" : "\n";
        return out_;
    }

    void text(const char* key, std::string_view value) {
        key_(key);
        quoted(value);
    }
    void field(const char* key, const char* f, std::size_t width) { text(key, trimmed(f, width)); }
    void number(const char* key, long long v) {
        key_(key);
        out_ += std::to_string(v);
    }
    // A record number: null shows as null / "-".
    void link(const char* key, std::uint32_t recnum) {
        key_(key);
        if (recnum == NULL_REC)
            out_ += json_ ? "null" : "-";
        else
            out_ += std::to_string(recnum);
    }
    void status(std::int16_t code) {
        const JobState* st = state_of_code(code);
        if (st != nullptr) {
            text("status", st->word);
        } else {
            number("status", code);
        }
    }
    // A day epoch and its time of day as local date and time; hhmm < 0 for
    // a date without time.
    void date(const char* key, std::int32_t day, int hhmm) {
        key_(key);
        if (day == 0 || day == 32768 || day == -32768) {
            out_ += json_ ? "null" : "-";
            return;
        }
        std::time_t t = day;
        std::tm tm{};
        char buf[40];
        if (::gmtime_r(&t, &tm) == nullptr) {
            std::snprintf(buf, sizeof buf, "%" PRId32, day);
        } else if (hhmm >= 0) {
            if (hhmm == 32768) hhmm = 0;
            std::snprintf(buf, sizeof buf, "%04d-%02d-%02d %02d:%02d", tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday,
                          (hhmm / 100) % 100, hhmm % 100);
        } else {
            std::snprintf(buf, sizeof buf, "%04d-%02d-%02d", tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday);
        }
        quoted(buf);
    }
    template <std::size_t N>
    void flags(const char* key, unsigned word, const FlagName (&names)[N]) {
        key_(key);
        out_ += json_ ? "[" : "";
        bool any = false;
        unsigned known = 0;
        for (const FlagName& f : names) {
            known |= 1u << f.bit;
            if (!flag_set(word, f.bit)) continue;
            if (any) out_ += ",";
            any = true;
            if (json_)
                quoted(f.name);
            else
                out_ += f.name;
        }
        for (int bit = 0; bit < 16; ++bit) {
            if ((known >> bit) & 1u || !flag_set(word, bit)) continue;
            if (any) out_ += ",";
            any = true;
            std::string n = "bit" + std::to_string(bit);
            if (json_)
                quoted(n);
            else
                out_ += n;
        }
        if (json_)
            out_ += "]";
        else if (!any)
            out_ += "-";
    }
    // Dependency arrays: kind by flag byte, and the record pointed at.
    template <class Rec>
    void deps(int count, const std::uint8_t* flags, const Rec* recs) {
        key_("deps");
        if (count < 0) count = 0;
        if (count > MAX_DEPENDS) count = MAX_DEPENDS;
        out_ += json_ ? "[" : "";
        for (int i = 0; i < count; ++i) {
            if (i > 0) out_ += json_ ? "," : ",";
            std::string kind = dep_kind(flags[i]);
            std::uint32_t rec = recs[i];
            if (json_) {
                out_ += "{\"flag\":" + std::to_string(flags[i]) + ",\"type\":";
                quoted(kind);
                out_ += ",\"rec\":" + (rec == NULL_REC ? std::string("null") : std::to_string(rec)) + "}";
            } else {
                out_ += kind + ":" + (rec == NULL_REC ? std::string("-") : std::to_string(rec));
            }
        }
        if (json_)
            out_ += "]";
        else if (count == 0)
            out_ += "-";
    }

private:
    static std::string dep_kind(std::uint8_t flag) {
        if (flag < std::size(kDepNames)) return kDepNames[flag];
        if (flag >= 32 && flag < 128) return "resource(" + std::to_string(flag - 31) + ")";
        return "0x" + [&] {
            char b[4];
            std::snprintf(b, sizeof b, "%02X", flag);
            return std::string(b);
        }();
    }
    void key_(const char* key) {
        if (json_) {
            out_ += first_ ? "" : ",";
            out_ += "\"";
            out_ += key;
            out_ += "\":";
        } else {
            out_ += " ";
            out_ += key;
            out_ += "=";
        }
        first_ = false;
    }
    // JSON: escaped, bytes above 0x7F as \u00XX. Text: as it is, quoted
    // when empty or holding blanks.
    void quoted(std::string_view v) {
        if (!json_) {
            bool plain = !v.empty() && v.find_first_of(" \t\"") == std::string_view::npos;
            if (plain) {
                for (unsigned char c : v) out_ += (c < 0x20 || c == 0x7F) ? '?' : static_cast<char>(c);
                return;
            }
        }
        out_ += '"';
        for (unsigned char c : v) {
            if (c == '"' || c == '\\') {
                out_ += '\\';
                out_ += static_cast<char>(c);
            } else if (c < 0x20 || c >= 0x7F) {
                if (!json_) {
                    out_ += '?';
                    continue;
                }
                char b[8];
                std::snprintf(b, sizeof b, "\\u%04X", c);
                out_ += b;
            } else {
                out_ += static_cast<char>(c);
            }
        }
        out_ += '"';
    }

    bool json_;
    bool first_ = true;
    std::string out_;
};

void describe(Line& l, const ALMRECTYPE& r) {
    switch (r.alm_rec_type) {
    case SH_CODE: {
        const SH_RECTYPE& h = r.sh;
        l.number("version", h.sh_alm_version);
        l.field("cpu", h.sh_cpu_id, 16);
        l.field("master", h.sh_mast_cpu, 16);
        l.field("master_domain", h.sh_mast_domain, 16);
        l.number("records", h.sh_num_recs);
        l.number("run", h.sh_run_number);
        l.number("day_start", h.sh_day_start);
        l.number("job_fence", h.sh_job_fence);
        l.date("sched_date", h.sh_sched_date, -1);
        l.date("last", h.sh_last_date, h.sh_last_time);
        l.date("started", h.sh_date_started, h.sh_time_started);
        l.link("first_cpu", h.sh_first_cpu);
        l.link("last_cpu", h.sh_last_cpu);
        l.link("first_domain", h.sh_first_domain);
        l.link("last_domain", h.sh_last_domain);
        l.link("first_sched", h.sh_first_sched);
        l.link("last_sched", h.sh_last_sched);
        l.link("first_msg", h.sh_first_msg);
        l.link("last_msg", h.sh_last_msg);
        l.link("first_file", h.sh_first_file);
        l.link("last_file", h.sh_last_file);
        l.link("first_resource", h.sh_first_resource);
        l.link("last_resource", h.sh_last_resource);
        l.link("first_cal", h.sh_first_cal);
        l.link("last_cal", h.sh_last_cal);
        l.link("first_st", h.sh_first_st);
        l.link("last_st", h.sh_last_st);
        l.number("cpus", h.sh_num_cpus);
        l.number("scheds", h.sh_num_scheds);
        l.number("msgs", h.sh_num_msgs);
        l.number("files", h.sh_num_files);
        l.number("resources", h.sh_num_resources);
        l.number("cals", h.sh_num_cals);
        l.flags("flags", h.sh_flags, kHeaderFlags);
        l.flags("flags2", h.sh_flags2, kHeaderFlags2);
        break;
    }
    case SCI_CODE: {
        const SCI_RECTYPE& c = r.sci;
        l.field("cpu", c.sci_cpu_id, 16);
        l.field("host", c.sci_host_cpu, 16);
        l.field("node", c.sci_node_name, 52);
        l.field("domain", c.sci_domain_name, 16);
        l.number("status", c.sci_status);
        l.number("rec_num", c.sci_rec_num);
        l.link("prev", c.sci_prev_cpu_ptr);
        l.link("next", c.sci_next_cpu_ptr);
        l.link("prev_domain", c.sci_prev_domain_ptr);
        l.link("next_domain", c.sci_next_domain_ptr);
        l.link("first_sched", c.sci_first_sched);
        l.date("started", c.sci_date_started, c.sci_time_started);
        l.flags("flags", c.sci_flags, kCpuFlags);
        break;
    }
    case SS_CODE: {
        const SS_RECTYPE& s = r.ss;
        l.field("cpu", s.ss_cpu_id, 16);
        l.field("sched", s.ss_sched_name, 16);
        l.status(s.ss_status);
        l.number("rec_num", s.ss_rec_num);
        l.number("priority", s.ss_sched_pri.priority);
        l.number("jobs", s.ss_num_jobs);
        l.link("first_job", s.ss_first_job);
        l.link("last_job", s.ss_last_job);
        l.link("prev", s.ss_prev_sch_ptr);
        l.link("next", s.ss_next_sch_ptr);
        l.date("prod_date", s.ss_prod_date, -1);
        l.date("sched_date", s.ss_sched_date, s.ss_start_time);
        l.date("until", s.ss_until_date, s.ss_until_time);
        l.date("started", s.ss_date_started, s.ss_time_started);
        l.flags("flags", s.ss_flags, kSchedFlags);
        l.flags("re_flags", static_cast<std::uint16_t>(s.ss_re_flags), kSchedReFlags);
        l.deps(s.ss_num_depends, s.ss_depend_flags, s.ss_dependencies);
        break;
    }
    case SJ_CODE: {
        const SJ_RECTYPE& j = r.sj;
        l.field("cpu", j.sj_cpu_id, 16);
        l.field("sched", j.sj_schedule, 16);
        l.field("job", j.sj_job_name, 40);
        l.status(j.sj_status);
        l.number("rec_num", j.sj_rec_num);
        l.number("job_number", j.sj_job_number);
        l.number("priority", j.sj_job_pri.priority);
        l.field("user", j.sj_job_user, 48);
        l.link("sched_rec", j.sj_sched_ptr);
        l.link("prev", j.sj_prev_job_ptr);
        l.link("next", j.sj_next_job_ptr);
        l.link("restart", j.sj_restart_ptr);
        l.link("re_job", j.sj_re_job_ptr);
        l.link("re_prompt", j.sj_re_prmpt_ptr);
        l.date("sched_date", j.sj_sched_date, j.sj_start_time);
        l.date("until", j.sj_until_date, j.sj_until_time);
        l.date("started", j.sj_date_started, j.sj_time_started);
        l.flags("flags", j.sj_flags, kJobFlags);
        l.flags("flags2", j.sj_flags2, kJobFlags2);
        l.flags("re_flags", j.sj_re_flags, kJobReFlags);
        if (j.sj_num_depends == -1) {
            l.field("re_for_cpu", j.subdep.submit.sj_re_for_cpu, 16);
            l.field("re_for_job", j.subdep.submit.sj_re_for_job, 40);
        } else if (flag_set(j.sj_re_flags, sjrf_external)) {
            l.field("external_id", j.subdep.xkes_id, 64);
        } else {
            l.deps(j.sj_num_depends, j.subdep.deps.sj_depend_flags, j.subdep.deps.sj_dependencies);
        }
        break;
    }
    case SM_CODE: {
        const SM_RECTYPE& m = r.sm;
        l.field("prompt", m.sm_msg_name, 8);
        l.field("cpu", m.sm_cpu_id, 16);
        l.number("status", m.sm_status);
        l.number("msg_no", m.sm_msg_no);
        l.link("prev", m.sm_prev_msg);
        l.link("next", m.sm_next_msg);
        l.link("job", m.sm_job_ptr);
        l.date("asked", m.sm_date_asked, m.sm_time_asked);
        l.date("answered", m.sm_date_resp, m.sm_time_resp);
        std::string text(trimmed(m.sm_message, 80));
        std::string more(trimmed(m.sm_message_more, 120));
        if (!more.empty()) text = std::string(m.sm_message, 80) + more;
        l.text("text", text);
        break;
    }
    case SF_CODE: {
        const SF_RECTYPE& f = r.sf;
        l.field("cpu", f.sf_cpu_id, 16);
        l.field("file", f.sf_file_name, 28);
        l.number("status", f.sf_status);
        l.link("prev", f.sf_prev_file);
        l.link("next", f.sf_next_file);
        int len = f.sf_feq_len < 0 ? 0 : (f.sf_feq_len > 120 ? 120 : f.sf_feq_len);
        l.text("qualifier", std::string_view(f.sf_feq, static_cast<std::size_t>(len)));
        break;
    }
    case SR_CODE: {
        const SR_RECTYPE& s = r.sr;
        l.field("cpu", s.sr_cpu_id, 16);
        l.field("resource", s.sr_resource_name, 8);
        l.number("status", s.sr_status);
        l.link("prev", s.sr_prev_resource);
        l.link("next", s.sr_next_resource);
        l.number("avail", s.sr_num_avail);
        l.number("used", s.sr_num_used);
        l.number("holders", s.sr_num_holders);
        break;
    }
    case SC_CODE: {
        const SC_RECTYPE& c = r.sc;
        l.field("calendar", c.sc_cal_name, 8);
        l.number("dates", c.sc_num_dates);
        l.link("prev", c.sc_prev_cal);
        l.link("next", c.sc_next_cal);
        l.link("cont", c.sc_cont_rec);
        l.link("cont_from", c.sc_cont_from);
        break;
    }
    case ST_CODE: {
        const ST_RECTYPE& s = r.st;
        l.number("rec_num", s.st_rec_num);
        l.link("next", s.st_next_ptr);
        l.number("first_free", s.st_First_Free);
        break;
    }
    case SD_CODE: {
        const SD_RECTYPE& d = r.sd;
        l.field("cpu", d.sd_cpu_id, 16);
        l.field("sched", d.sd_sched_name, 16);
        l.field("job", d.sd_job_name, 40);
        l.number("dep_type", d.sd_dep_type);
        l.field("dep_cpu", d.sd_dep_cpu, 16);
        l.field("dep_name", d.sd_dep_name, 16);
        l.field("dep_job", d.sd_dep_jname, 40);
        break;
    }
    case PJ_CODE:
        l.number("jobs", r.pj.pj_job_count);
        break;
    default:
        break;
    }
}

bool put(const std::string& s) { return std::fwrite(s.data(), 1, s.size(), stdout) == s.size(); }

}  // namespace

int almplan_dump(int argc, char** argv) {
    const char* path = nullptr;
    bool json = false;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--json") == 0) {
            json = true;
        } else if (path == nullptr && argv[i][0] != '\0' && std::strncmp(argv[i], "--", 2) != 0) {
            path = argv[i];
        } else {
            path = nullptr;
            break;
        }
    }
    if (path == nullptr) {
        std::fputs("Usage: almplan dump PLAN [--json]\n", stderr);
        return kExitUsage;
    }

    char errtext[ALM_ERRTEXT_SIZE] = {};
    int status = 0;
    alm_session ca = alm_open_session(path, ALM_MODE_READ, &status, errtext);
    if (!ca) {
        std::fprintf(stderr, "almplan: %s\n", errtext);
        return kExitFailure;
    }

    int rc = 0;
    Line line(json);
    ALMRECTYPE rec{};
    for (std::int32_t n = 0; n < ca->num_recs; ++n) {
        const auto recnum = static_cast<std::uint32_t>(n);
        if (recnum == NULL_REC) continue;  // never a record
        rec = ALMRECTYPE{};  // a record of an unknown kind leaves it so
        if (alm_read(ca.get(), recnum, &rec) < 0) {
            char msg[ALM_ERRTEXT_SIZE];
            msg_almerr(ca.get(), msg, sizeof msg);
            std::fprintf(stderr, "almplan: %s\n", msg);
            rc = kExitFailure;
            continue;
        }
        line.begin(recnum, rec.alm_rec_type);
        describe(line, rec);
        if (!put(line.end())) {
            std::perror("almplan: write");
            return kExitFailure;
        }
    }
    if (std::fflush(stdout) != 0) {
        std::perror("almplan: write");
        return kExitFailure;
    }
    return report_damage(path) ? kExitFailure : rc;
}

}  // namespace alm
