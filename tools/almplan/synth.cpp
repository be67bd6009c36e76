#include "synth.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "jobstates.h"
#include "planwriter.h"
#include "recfields.h"
#include "util/endian.h"

namespace alm {
namespace {

constexpr std::uint64_t kMaxCount = 32767;  // the i16 sh_num_... and ss_num_... counts
constexpr std::uint32_t kCpusPerDomain = 16;
constexpr int kMaxDeps = 8;  // a synthetic record never has more

// Job states by (schedule, job), spread so that every total is exercised.
constexpr std::int16_t kStateMix[10] = {STATE_HOLD, STATE_HOLD, STATE_READY, STATE_SUCC, STATE_SUCC,
                                        STATE_SUCC, STATE_EXEC, STATE_ABEND, STATE_FAIL, STATE_SUCC};

void put16(ALMRECTYPE& r, std::size_t off, std::int64_t v) {
    store_le16(r.bytes + off, static_cast<std::uint16_t>(v));
}
void put32(ALMRECTYPE& r, std::size_t off, std::int64_t v) {
    store_le32(r.bytes + off, static_cast<std::uint32_t>(v));
}
void put_text(ALMRECTYPE& r, std::size_t off, std::size_t width, std::string_view s) {
    const std::size_t n = std::min(s.size(), width);
    if (n > 0) std::memcpy(r.bytes + off, s.data(), n);
    std::memset(r.bytes + off + n, ' ', width - n);
}
#define PUT_TEXT(rec, S, m, text) put_text(rec, offsetof(S, m), sizeof(S::m), text)

std::int16_t hhmm_of(std::uint64_t minutes) {
    minutes %= 1440;
    return static_cast<std::int16_t>((minutes / 60) * 100 + minutes % 60);
}

bool started(std::int16_t state) { return state != STATE_HOLD && state != STATE_READY; }

struct DepList {
    int n = 0;
    std::uint8_t flags[kMaxDeps];
    std::uint32_t recs[kMaxDeps];
    void add(std::uint8_t flag, std::uint32_t rec) {
        flags[n] = flag;
        recs[n] = rec;
        ++n;
    }
};

class Synth {
public:
    Synth(const SynthOptions& o, std::string& err);
    bool check_sizes();
    bool run(const std::string& out);

private:
    struct Name {
        char text[48];
    };
    // Zero-padded numbers keep the workstations in ascending byte order and
    // every name within the 8 bytes of V1.
    static Name name(const char* prefix, int digits, std::uint64_t n) {
        Name s{};
        std::snprintf(s.text, sizeof s.text, "%s%0*llu", prefix, digits, static_cast<unsigned long long>(n));
        return s;
    }
    static Name ws_name(std::uint64_t i) { return name("WS", 6, i + 1); }
    static Name domain_name(std::uint64_t i) { return name("DM", 6, i + 1); }
    bool fail(const std::string& problem) {
        err_ = "synth: " + problem;
        return false;
    }

    std::uint32_t rec(std::uint64_t slot) const { return static_cast<std::uint32_t>(recnum_of_slot(slot)); }
    std::uint64_t cpu_slot(std::uint64_t i) const { return 1 + i; }
    std::uint64_t prompt_slot(std::uint64_t i) const { return 1 + ncpu_ + i; }
    std::uint64_t file_slot(std::uint64_t i) const { return 1 + ncpu_ + nprompt_ + i; }
    std::uint64_t res_slot(std::uint64_t i) const { return 1 + ncpu_ + nprompt_ + nfile_ + i; }
    std::uint64_t sched_slot(std::uint64_t g) const { return base_ + g * (1 + njob_); }
    std::uint64_t job_slot(std::uint64_t g, std::uint64_t j) const { return sched_slot(g) + 1 + j; }
    std::uint32_t chain(bool present, std::uint64_t slot) const { return present ? rec(slot) : NULL_REC; }

    std::int16_t job_state(std::uint64_t g, std::uint64_t j) const { return kStateMix[(g * 31 + j * 7) % 10]; }
    std::uint64_t start_minutes(std::uint64_t g) const { return 6 * 60 + (g % 12) * 60 + (g * 7) % 60; }
    DepList sched_deps(std::uint64_t g) const;
    DepList job_deps(std::uint64_t g, std::uint64_t j) const;
    std::uint32_t restart_of(std::uint64_t g, std::uint64_t j) const;

    bool put(const ALMRECTYPE& r) { return writer_.put(r, err_); }
    bool write_cpus();
    bool write_prompts_files_resources();
    bool write_schedule(std::uint64_t g);
    // What a schedule's jobs add up to: its state counters and its own state.
    struct JobTotals {
        std::int64_t counters[std::size(STATE_COUNTERS)] = {};
        std::int16_t state = STATE_HOLD;
    };
    JobTotals job_totals(std::uint64_t g) const;
    bool write_sched_record(std::uint64_t g, const Name& ws, const Name& sname, std::uint64_t start);
    bool write_job(std::uint64_t g, std::uint64_t j, const Name& ws, const Name& sname, std::uint64_t start);
    void fill_header(ALMRECTYPE& h) const;

    const SynthOptions& o_;
    std::string& err_;
    PlanWriter writer_;
    std::uint64_t ncpu_, nsched_, njob_, nprompt_ = 0, nfile_ = 0, nres_ = 0;
    std::uint64_t base_ = 0;   // slot of the first schedule
    std::uint64_t slots_ = 0;  // records, the header included, the filler not
    std::int32_t day_;
    std::int64_t deps_total_ = 0;
    ALMRECTYPE sched_tmpl_{}, job_tmpl_{};
};

Synth::Synth(const SynthOptions& o, std::string& err)
    : o_(o), err_(err), writer_(o.alm_version), ncpu_(o.cpus), nsched_(std::uint64_t{o.cpus} * o.scheds),
      njob_(o.jobs), day_(day_epoch(o.date)) {
    if (o.deps) {
        nprompt_ = std::min<std::uint64_t>(1000, 1 + nsched_ / 16);
        nfile_ = std::min<std::uint64_t>(2000, 1 + nsched_ / 8);
        nres_ = std::min<std::uint64_t>(500, 1 + 2 * ncpu_);
    }
    base_ = 1 + ncpu_ + nprompt_ + nfile_ + nres_;
    slots_ = base_ + nsched_ * (1 + njob_);
    init_record(RecKind::Sched, sched_tmpl_);
    init_record(RecKind::Job, job_tmpl_);
}

bool Synth::check_sizes() {
    if (ncpu_ < 1) return fail("--cpus must be at least 1");
    if (ncpu_ > kMaxCount) return fail("at most 32767 workstations (sh_num_cpus is 16 bits)");
    if (nsched_ > kMaxCount) return fail("at most 32767 schedules in all (sh_num_scheds is 16 bits)");
    if (njob_ + 1 > kMaxCount) return fail("at most 32766 jobs per schedule (ss_num_recs is 16 bits)");
    if (o_.alm_version == 0 && slots_ > V1_MAX_RECORDS) {
        return fail("a V1 plan holds at most " + std::to_string(V1_MAX_RECORDS) + " records; these sizes need " +
                    std::to_string(slots_));
    }
    if (file_records(slots_) - 1 > 0xFFFFFFFFULL) return fail("too many records for 32-bit record numbers");
    return true;
}

DepList Synth::sched_deps(std::uint64_t g) const {
    DepList d;
    if (!o_.deps) return d;
    if (g % o_.scheds != 0 && g % 3 == 0) d.add(PreschedDep, rec(sched_slot(g - 1)));
    if (g % 5 == 1) d.add(GlbMsgDep, rec(prompt_slot(g % nprompt_)));
    if (g % 7 == 2) d.add(static_cast<std::uint8_t>(32 + g % 3), rec(res_slot(g % nres_)));
    return d;
}

DepList Synth::job_deps(std::uint64_t g, std::uint64_t j) const {
    DepList d;
    if (!o_.deps) return d;
    if (j > 0 && j % 4 != 0) d.add(PrejobDep, rec(job_slot(g, j - 1)));
    if (j == 0 && g > 0 && g % 4 == 1) d.add(PrejobDep, rec(job_slot(g - 1, njob_ - 1)));
    if ((g + j) % 11 == 3) d.add(FileDep, rec(file_slot((g * njob_ + j) % nfile_)));
    if ((g + j) % 13 == 5) d.add(static_cast<std::uint8_t>(32 + j % 4), rec(res_slot((g + j) % nres_)));
    if ((g + j) % 17 == 7) d.add(LocMsgDep, rec(prompt_slot((g + j) % nprompt_)));
    return d;
}

// Chains of three jobs (47 -> 48 -> 49 in every fifty), always forward.
std::uint32_t Synth::restart_of(std::uint64_t g, std::uint64_t j) const {
    if (!o_.deps) return NULL_REC;
    if ((j % 50 == 47 && j + 2 < njob_) || (j % 50 == 48 && j + 1 < njob_)) return rec(job_slot(g, j + 1));
    return NULL_REC;
}

bool Synth::write_cpus() {
    for (std::uint64_t i = 0; i < ncpu_; ++i) {
        ALMRECTYPE r;
        init_record(RecKind::Cpu, r);
        const Name ws = ws_name(i);
        const Name dom = domain_name(i / kCpusPerDomain);
        char node[64];
        std::snprintf(node, sizeof node, "ws%06llu.example.net", static_cast<unsigned long long>(i + 1));
        put32(r, offsetof(SCI_RECTYPE, sci_rec_num), rec(cpu_slot(i)));
        PUT_TEXT(r, SCI_RECTYPE, sci_cpu_id, ws.text);
        PUT_TEXT(r, SCI_RECTYPE, sci_node_name, node);
        PUT_TEXT(r, SCI_RECTYPE, sci_domain_name, dom.text);
        put32(r, offsetof(SCI_RECTYPE, sci_first_sched), chain(o_.scheds > 0, sched_slot(i * o_.scheds)));
        const std::uint32_t prev = chain(i > 0, cpu_slot(i - 1));
        const std::uint32_t next = chain(i + 1 < ncpu_, cpu_slot(i + 1));
        // Domains are runs of consecutive workstations, so both chains agree.
        put32(r, offsetof(SCI_RECTYPE, sci_prev_cpu_ptr), prev);
        put32(r, offsetof(SCI_RECTYPE, sci_next_cpu_ptr), next);
        put32(r, offsetof(SCI_RECTYPE, sci_prev_domain_ptr), prev);
        put32(r, offsetof(SCI_RECTYPE, sci_next_domain_ptr), next);
        put32(r, offsetof(SCI_RECTYPE, sci_date_started), day_);
        put16(r, offsetof(SCI_RECTYPE, sci_time_started), 600);
        put16(r, offsetof(SCI_RECTYPE, sci_run_number), 1);
        if (!put(r)) return false;
    }
    return true;
}

bool Synth::write_prompts_files_resources() {
    const Name master = ws_name(0);
    for (std::uint64_t i = 0; i < nprompt_; ++i) {
        ALMRECTYPE r;
        init_record(RecKind::Prompt, r);
        char text[80];
        std::snprintf(text, sizeof text, "Reply YES when input batch %llu is ready",
                      static_cast<unsigned long long>(i + 1));
        put32(r, offsetof(SM_RECTYPE, sm_rec_num), rec(prompt_slot(i)));
        PUT_TEXT(r, SM_RECTYPE, sm_cpu_id, master.text);
        PUT_TEXT(r, SM_RECTYPE, sm_msg_name, name("P", 7, i + 1).text);
        PUT_TEXT(r, SM_RECTYPE, sm_message, text);
        put32(r, offsetof(SM_RECTYPE, sm_prev_msg), chain(i > 0, prompt_slot(i - 1)));
        put32(r, offsetof(SM_RECTYPE, sm_next_msg), chain(i + 1 < nprompt_, prompt_slot(i + 1)));
        put16(r, offsetof(SM_RECTYPE, sm_msg_no), static_cast<std::int64_t>(i + 1));
        if (!put(r)) return false;
    }
    for (std::uint64_t i = 0; i < nfile_; ++i) {
        ALMRECTYPE r;
        init_record(RecKind::File, r);
        char path[48];
        std::snprintf(path, sizeof path, "/data/in/f%07llu.dat", static_cast<unsigned long long>(i + 1));
        put32(r, offsetof(SF_RECTYPE, sf_rec_num), rec(file_slot(i)));
        PUT_TEXT(r, SF_RECTYPE, sf_cpu_id, ws_name(i % ncpu_).text);
        PUT_TEXT(r, SF_RECTYPE, sf_file_name, path);
        put32(r, offsetof(SF_RECTYPE, sf_prev_file), chain(i > 0, file_slot(i - 1)));
        put32(r, offsetof(SF_RECTYPE, sf_next_file), chain(i + 1 < nfile_, file_slot(i + 1)));
        if (!put(r)) return false;
    }
    for (std::uint64_t i = 0; i < nres_; ++i) {
        ALMRECTYPE r;
        init_record(RecKind::Resource, r);
        put32(r, offsetof(SR_RECTYPE, sr_rec_num), rec(res_slot(i)));
        PUT_TEXT(r, SR_RECTYPE, sr_cpu_id, ws_name(i % ncpu_).text);
        PUT_TEXT(r, SR_RECTYPE, sr_resource_name, name("R", 7, i + 1).text);
        put32(r, offsetof(SR_RECTYPE, sr_prev_resource), chain(i > 0, res_slot(i - 1)));
        put32(r, offsetof(SR_RECTYPE, sr_next_resource), chain(i + 1 < nres_, res_slot(i + 1)));
        put32(r, offsetof(SR_RECTYPE, sr_num_avail), static_cast<std::int64_t>(1 + i % 8));
        if (!put(r)) return false;
    }
    return true;
}

bool Synth::write_schedule(std::uint64_t g) {
    const Name ws = ws_name(g / o_.scheds);
    const Name sname = name("S", 7, g % o_.scheds + 1);
    const std::uint64_t start = start_minutes(g);
    if (!write_sched_record(g, ws, sname, start)) return false;
    for (std::uint64_t j = 0; j < njob_; ++j) {
        if (!write_job(g, j, ws, sname, start)) return false;
    }
    return true;
}

Synth::JobTotals Synth::job_totals(std::uint64_t g) const {
    JobTotals t;
    bool any_exec = false;
    bool all_succ = njob_ > 0;
    for (std::uint64_t j = 0; j < njob_; ++j) {
        const JobState* st = state_of_code(job_state(g, j));
        if (st == nullptr || st->counter == nullptr) continue;
        for (std::size_t c = 0; c < std::size(STATE_COUNTERS); ++c) {
            if (std::strcmp(st->counter, STATE_COUNTERS[c]) == 0) ++t.counters[c];
        }
        any_exec = any_exec || st->code == STATE_EXEC;
        all_succ = all_succ && st->code == STATE_SUCC;
    }
    t.state = any_exec ? STATE_EXEC : all_succ ? STATE_SUCC : STATE_HOLD;
    return t;
}

bool Synth::write_sched_record(std::uint64_t g, const Name& ws, const Name& sname, std::uint64_t start) {
    const JobTotals totals = job_totals(g);
    ALMRECTYPE s = sched_tmpl_;
    put32(s, offsetof(SS_RECTYPE, ss_rec_num), rec(sched_slot(g)));
    PUT_TEXT(s, SS_RECTYPE, ss_cpu_id, ws.text);
    PUT_TEXT(s, SS_RECTYPE, ss_sched_name, sname.text);
    PUT_TEXT(s, SS_RECTYPE, ss_orig_sched, sname.text);
    put16(s, offsetof(SS_RECTYPE, ss_status), totals.state);
    s.bytes[offsetof(SS_RECTYPE, ss_sched_pri.priority)] = 10;
    s.bytes[offsetof(SS_RECTYPE, ss_sched_pri.orig_pri)] = 10;
    put16(s, offsetof(SS_RECTYPE, ss_num_jobs), static_cast<std::int64_t>(njob_));
    put16(s, offsetof(SS_RECTYPE, ss_num_recs), static_cast<std::int64_t>(njob_ + 1));
    for (std::size_t c = 0; c < std::size(STATE_COUNTERS); ++c) {
        put16(s, find_field(RecKind::Sched, STATE_COUNTERS[c])->offset, totals.counters[c]);
    }
    put32(s, offsetof(SS_RECTYPE, ss_first_job), chain(njob_ > 0, job_slot(g, 0)));
    put32(s, offsetof(SS_RECTYPE, ss_last_job), chain(njob_ > 0, job_slot(g, njob_ - 1)));
    put32(s, offsetof(SS_RECTYPE, ss_prev_sch_ptr), chain(g > 0, sched_slot(g - 1)));
    put32(s, offsetof(SS_RECTYPE, ss_next_sch_ptr), chain(g + 1 < nsched_, sched_slot(g + 1)));
    put32(s, offsetof(SS_RECTYPE, ss_sched_date), day_);
    put16(s, offsetof(SS_RECTYPE, ss_start_time), hhmm_of(start));
    const DepList sd = sched_deps(g);
    for (int i = 0; i < sd.n; ++i) {
        s.bytes[offsetof(SS_RECTYPE, ss_depend_flags) + i] = sd.flags[i];
        put32(s, offsetof(SS_RECTYPE, ss_dependencies) + 4 * i, sd.recs[i]);
    }
    put16(s, offsetof(SS_RECTYPE, ss_num_depends), sd.n);
    deps_total_ += sd.n;
    return put(s);
}

bool Synth::write_job(std::uint64_t g, std::uint64_t j, const Name& ws, const Name& sname, std::uint64_t start) {
    const Name jname = name("J", 7, j + 1);
    const std::int16_t state = job_state(g, j);
    char script[64];
    ALMRECTYPE r = job_tmpl_;
    put32(r, offsetof(SJ_RECTYPE, sj_rec_num), rec(job_slot(g, j)));
    PUT_TEXT(r, SJ_RECTYPE, sj_cpu_id, ws.text);
    PUT_TEXT(r, SJ_RECTYPE, sj_job_name, jname.text);
    PUT_TEXT(r, SJ_RECTYPE, sj_schedule, sname.text);
    PUT_TEXT(r, SJ_RECTYPE, sj_job_user, "batch");
    std::snprintf(script, sizeof script, "/jobs/%s.sh", jname.text);
    put_text(r, offsetof(SJ_RECTYPE, sj_fname_jname.jcl_file), sizeof(SJ_FNAME_JNAME::jcl_file), script);
    put16(r, offsetof(SJ_RECTYPE, sj_status), state);
    r.bytes[offsetof(SJ_RECTYPE, sj_job_pri.priority)] = 10;
    r.bytes[offsetof(SJ_RECTYPE, sj_job_pri.orig_pri)] = 10;
    put32(r, offsetof(SJ_RECTYPE, sj_sched_ptr), rec(sched_slot(g)));
    put32(r, offsetof(SJ_RECTYPE, sj_prev_job_ptr), chain(j > 0, job_slot(g, j - 1)));
    put32(r, offsetof(SJ_RECTYPE, sj_next_job_ptr), chain(j + 1 < njob_, job_slot(g, j + 1)));
    put32(r, offsetof(SJ_RECTYPE, sj_restart_ptr), restart_of(g, j));
    put32(r, offsetof(SJ_RECTYPE, sj_sched_date), day_);
    put16(r, offsetof(SJ_RECTYPE, sj_start_time), hhmm_of(start));
    if (started(state)) {
        put32(r, offsetof(SJ_RECTYPE, sj_date_started), day_);
        put16(r, offsetof(SJ_RECTYPE, sj_time_started), hhmm_of(start + 1 + j % 60));
    }
    const DepList jd = job_deps(g, j);
    for (int i = 0; i < jd.n; ++i) {
        r.bytes[offsetof(SJ_RECTYPE, subdep.deps.sj_depend_flags) + i] = jd.flags[i];
        put32(r, offsetof(SJ_RECTYPE, subdep.deps.sj_dependencies) + 4 * i, jd.recs[i]);
    }
    put16(r, offsetof(SJ_RECTYPE, sj_num_depends), jd.n);
    deps_total_ += jd.n;
    return put(r);
}

void Synth::fill_header(ALMRECTYPE& h) const {
    init_record(RecKind::Header, h);
    const Name master = ws_name(0);
    PUT_TEXT(h, SH_RECTYPE, sh_cpu_id, master.text);
    PUT_TEXT(h, SH_RECTYPE, sh_mast_cpu, master.text);
    PUT_TEXT(h, SH_RECTYPE, sh_mast_domain, domain_name(0).text);
    struct Chain {
        std::size_t first, last, count;
        std::uint64_t n;
        std::uint64_t first_slot, last_slot;
    };
    const Chain chains[] = {
        {offsetof(SH_RECTYPE, sh_first_cpu), offsetof(SH_RECTYPE, sh_last_cpu), offsetof(SH_RECTYPE, sh_num_cpus),
         ncpu_, cpu_slot(0), cpu_slot(ncpu_ - 1)},
        {offsetof(SH_RECTYPE, sh_first_domain), offsetof(SH_RECTYPE, sh_last_domain),
         offsetof(SH_RECTYPE, sh_num_domains), ncpu_, cpu_slot(0), cpu_slot(ncpu_ - 1)},
        {offsetof(SH_RECTYPE, sh_first_msg), offsetof(SH_RECTYPE, sh_last_msg), offsetof(SH_RECTYPE, sh_num_msgs),
         nprompt_, prompt_slot(0), prompt_slot(nprompt_ - 1)},
        {offsetof(SH_RECTYPE, sh_first_file), offsetof(SH_RECTYPE, sh_last_file), offsetof(SH_RECTYPE, sh_num_files),
         nfile_, file_slot(0), file_slot(nfile_ - 1)},
        {offsetof(SH_RECTYPE, sh_first_resource), offsetof(SH_RECTYPE, sh_last_resource),
         offsetof(SH_RECTYPE, sh_num_resources), nres_, res_slot(0), res_slot(nres_ - 1)},
        {offsetof(SH_RECTYPE, sh_first_sched), offsetof(SH_RECTYPE, sh_last_sched),
         offsetof(SH_RECTYPE, sh_num_scheds), nsched_, sched_slot(0), sched_slot(nsched_ - 1)},
    };
    for (const Chain& c : chains) {
        put32(h, c.first, chain(c.n > 0, c.first_slot));
        put32(h, c.last, chain(c.n > 0, c.last_slot));
        put16(h, c.count, static_cast<std::int64_t>(c.n));
    }
    // The domain count is of domains, not of their workstations.
    put16(h, offsetof(SH_RECTYPE, sh_num_domains),
          static_cast<std::int64_t>((ncpu_ + kCpusPerDomain - 1) / kCpusPerDomain));
    put16(h, offsetof(SH_RECTYPE, sh_num_depends), std::min<std::int64_t>(deps_total_, 32767));
    put32(h, offsetof(SH_RECTYPE, sh_num_recs), static_cast<std::int64_t>(file_records(slots_)));
    put32(h, offsetof(SH_RECTYPE, sh_sched_date), day_);
    put32(h, offsetof(SH_RECTYPE, sh_date_started), day_);
    put16(h, offsetof(SH_RECTYPE, sh_time_started), 600);
    put32(h, offsetof(SH_RECTYPE, sh_last_date), day_);
    put16(h, offsetof(SH_RECTYPE, sh_last_time), 600);
    put16(h, offsetof(SH_RECTYPE, sh_run_number), 1);
    put16(h, offsetof(SH_RECTYPE, sh_day_start), 600);
    put16(h, offsetof(SH_RECTYPE, sh_alm_version), o_.alm_version);
}

bool Synth::run(const std::string& out) {
    if (!check_sizes()) return false;
    if (!writer_.open(out, err_) || !write_cpus() || !write_prompts_files_resources()) return false;
    for (std::uint64_t g = 0; g < nsched_; ++g) {
        if (!write_schedule(g)) return false;
    }
    ALMRECTYPE h;
    fill_header(h);
    return writer_.commit(h, err_);
}

}  // namespace

bool synth_plan(const SynthOptions& opt, const std::string& out, std::string& err) {
    Synth s(opt, err);
    return s.run(out);
}

}  // namespace alm
