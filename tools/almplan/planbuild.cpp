#include "planbuild.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string_view>

#include "jobstates.h"
#include "planwriter.h"

namespace alm {
namespace {

// Indexed by RecKind; calendars carry no record number of their own.
constexpr const char* kRecNumField[REC_KIND_COUNT] = {
    "sh_rec_num", "sci_rec_num", "ss_rec_num", "sj_rec_num", "sm_rec_num",
    "sf_rec_num", "sr_rec_num",  nullptr,      "st_rec_num",
};

// A doubly linked list: its owner's first/last/count fields and the
// members' previous/next fields.
struct ChainFields {
    const char* first;
    const char* last;
    const char* count;  // null when the owner does not count the members
    const char* prev;
    const char* next;
};

// Chains hung off the header, in the order their members are numbered
// (schedules, with their jobs, come last).
struct HeaderChain {
    RecKind kind;
    ChainFields fields;
};
constexpr HeaderChain kHeaderChains[] = {
    {RecKind::Cpu, {"sh_first_cpu", "sh_last_cpu", "sh_num_cpus", "sci_prev_cpu_ptr", "sci_next_cpu_ptr"}},
    {RecKind::Calendar, {"sh_first_cal", "sh_last_cal", "sh_num_cals", "sc_prev_cal", "sc_next_cal"}},
    {RecKind::Prompt, {"sh_first_msg", "sh_last_msg", "sh_num_msgs", "sm_prev_msg", "sm_next_msg"}},
    {RecKind::File, {"sh_first_file", "sh_last_file", "sh_num_files", "sf_prev_file", "sf_next_file"}},
    {RecKind::Resource,
     {"sh_first_resource", "sh_last_resource", "sh_num_resources", "sr_prev_resource", "sr_next_resource"}},
    {RecKind::Sched, {"sh_first_sched", "sh_last_sched", "sh_num_scheds", "ss_prev_sch_ptr", "ss_next_sch_ptr"}},
};
constexpr ChainFields kDomainChain{"sh_first_domain", "sh_last_domain", nullptr, "sci_prev_domain_ptr",
                                   "sci_next_domain_ptr"};
constexpr ChainFields kJobChain{"ss_first_job", "ss_last_job", "ss_num_jobs", "sj_prev_job_ptr", "sj_next_job_ptr"};

struct DepFields {
    const char* flags;
    const char* recs;
    const char* count;
};
constexpr DepFields kSchedDeps{"ss_depend_flags", "ss_dependencies", "ss_num_depends"};
constexpr DepFields kJobDeps{"sj_depend_flags", "sj_dependencies", "sj_num_depends"};

const FieldDesc& field(RecKind kind, const char* name) {
    const FieldDesc* f = find_field(kind, name);
    if (f == nullptr) std::abort();  // the tables above name only real fields
    return *f;
}

std::string_view text_of(const Entity& e, const char* name) {
    const FieldDesc& f = field(e.kind, name);
    return {reinterpret_cast<const char*>(e.rec.bytes + f.offset), f.size()};
}

class Builder {
public:
    Builder(PlanDesc& d, std::string& err) : d_(d), err_(err) {}
    bool run(const std::string& out);

private:
    bool fail(const std::string& problem) {
        err_ = d_.path + ": " + problem;
        return false;
    }
    bool fail_at(int line, const std::string& problem) {
        err_ = d_.path + ":" + std::to_string(line) + ": " + problem;
        return false;
    }
    Entity& header() { return d_.entities[0]; }

    bool given(const Entity& e, const FieldDesc& f, int index) const {
        const std::size_t from = f.offset + static_cast<std::size_t>(index) * f.width;
        const std::size_t to = f.type == ValueType::Text ? f.offset + f.size() : from + f.width;
        for (std::size_t b = from; b < to; ++b) {
            if (e.given.test(b)) return true;
        }
        return false;
    }
    // Sets a field the description left alone; a value too big for it fails.
    bool fill(Entity& e, const char* name, std::int64_t v, int index = 0);
    void fill_text(Entity& e, const char* name, std::string_view text);

    bool check_workstations();
    bool number_records();
    bool resolve(const Target& t, std::uint32_t& rec);
    bool apply_links_and_deps();
    bool link_chain(Entity& owner, const std::vector<std::size_t>& members, const ChainFields& cf);
    bool link_all();
    bool fill_schedule_totals(Entity& sched);
    bool fill_header();
    bool write(const std::string& out);

    PlanDesc& d_;
    std::string& err_;
    std::vector<std::size_t> by_kind_[REC_KIND_COUNT];
    std::vector<std::size_t> sched_chain_;  // schedules ordered by workstation
    std::vector<std::size_t> order_;        // every record after the header, in record order
    std::vector<std::uint32_t> recnum_;     // by entity
    std::uint64_t slots_ = 0;
    std::int64_t total_deps_ = 0;
};

bool Builder::fill(Entity& e, const char* name, std::int64_t v, int index) {
    const FieldDesc& f = field(e.kind, name);
    if (given(e, f, index)) return true;
    if (!number_fits(f, v)) {
        const std::string problem = std::to_string(v) + " does not fit field '" + name + "'";
        return e.line > 0 ? fail_at(e.line, problem) : fail(problem);
    }
    store_number(e.rec.bytes, f, index, v);
    return true;
}

void Builder::fill_text(Entity& e, const char* name, std::string_view text) {
    const FieldDesc& f = field(e.kind, name);
    if (!given(e, f, 0)) store_text(e.rec.bytes, f, text.substr(0, f.width));
}

bool Builder::check_workstations() {
    const auto& cpus = d_.index[static_cast<int>(RecKind::Cpu)];
    for (const Entity& e : d_.entities) {
        if (e.kind != RecKind::Sched && e.kind != RecKind::File && e.kind != RecKind::Resource) continue;
        if (cpus.find(desc_key(e.ws)) == cpus.end()) return fail_at(e.line, "unknown workstation '" + e.ws + "'");
    }
    return true;
}

bool Builder::number_records() {
    for (std::size_t i = 1; i < d_.entities.size(); ++i) {
        by_kind_[static_cast<int>(d_.entities[i].kind)].push_back(i);
    }
    // Lookups stop at the first schedule whose workstation sorts above the
    // one asked for: keep the chain in ascending byte order of ss_cpu_id.
    sched_chain_ = by_kind_[static_cast<int>(RecKind::Sched)];
    std::stable_sort(sched_chain_.begin(), sched_chain_.end(), [&](std::size_t a, std::size_t b) {
        return text_of(d_.entities[a], "ss_cpu_id") < text_of(d_.entities[b], "ss_cpu_id");
    });
    for (const HeaderChain& hc : kHeaderChains) {
        if (hc.kind == RecKind::Sched) continue;
        const auto& members = by_kind_[static_cast<int>(hc.kind)];
        order_.insert(order_.end(), members.begin(), members.end());
    }
    for (std::size_t s : sched_chain_) {
        order_.push_back(s);
        const auto& jobs = d_.entities[s].jobs;
        order_.insert(order_.end(), jobs.begin(), jobs.end());
    }
    slots_ = 1 + order_.size();
    if (d_.alm_version == 0 && slots_ > V1_MAX_RECORDS) {
        return fail("a V1 plan holds at most " + std::to_string(V1_MAX_RECORDS) + " records; this one needs " +
                    std::to_string(slots_));
    }
    recnum_.assign(d_.entities.size(), 0);
    for (std::size_t pos = 0; pos < order_.size(); ++pos) {
        recnum_[order_[pos]] = static_cast<std::uint32_t>(recnum_of_slot(pos + 1));
    }
    return true;
}

bool Builder::resolve(const Target& t, std::uint32_t& rec) {
    if (t.kind == TargetKind::Raw) {
        rec = t.raw;
        return true;
    }
    const auto& index = d_.index[static_cast<int>(target_record_kind(t.kind))];
    const auto it = index.find(t.key);
    if (it == index.end()) return fail_at(t.line, "no record for '" + t.shown + "'");
    rec = recnum_[it->second];
    return true;
}

bool Builder::apply_links_and_deps() {
    for (Entity& e : d_.entities) {
        for (const LinkSpec& l : e.links) {
            std::uint32_t rec = 0;
            if (!resolve(l.target, rec)) return false;
            if (!number_fits(*l.field, rec)) {
                return fail_at(l.target.line, "record number " + std::to_string(rec) + " does not fit field '" +
                                                  l.field->name + "'");
            }
            store_number(e.rec.bytes, *l.field, l.index, rec);
            const std::size_t from = l.field->offset + static_cast<std::size_t>(l.index) * l.field->width;
            for (std::size_t b = from; b < from + l.field->width; ++b) e.given.set(b);
        }
        if (e.kind != RecKind::Sched && e.kind != RecKind::Job) continue;
        const DepFields& df = e.kind == RecKind::Sched ? kSchedDeps : kJobDeps;
        for (std::size_t i = 0; i < e.deps.size(); ++i) {
            std::uint32_t rec = 0;
            if (!resolve(e.deps[i].target, rec)) return false;
            const int idx = static_cast<int>(i);
            if (!fill(e, df.flags, e.deps[i].flag, idx) || !fill(e, df.recs, rec, idx)) return false;
        }
        if (!fill(e, df.count, static_cast<std::int64_t>(e.deps.size()))) return false;
        total_deps_ += static_cast<std::int64_t>(e.deps.size());
    }
    return true;
}

bool Builder::link_chain(Entity& owner, const std::vector<std::size_t>& members, const ChainFields& cf) {
    const std::uint32_t first = members.empty() ? NULL_REC : recnum_[members.front()];
    const std::uint32_t last = members.empty() ? NULL_REC : recnum_[members.back()];
    if (!fill(owner, cf.first, first) || !fill(owner, cf.last, last)) return false;
    if (cf.count != nullptr && !fill(owner, cf.count, static_cast<std::int64_t>(members.size()))) return false;
    for (std::size_t i = 0; i < members.size(); ++i) {
        Entity& m = d_.entities[members[i]];
        const std::uint32_t prev = i == 0 ? NULL_REC : recnum_[members[i - 1]];
        const std::uint32_t next = i + 1 == members.size() ? NULL_REC : recnum_[members[i + 1]];
        if (!fill(m, cf.prev, prev) || !fill(m, cf.next, next)) return false;
    }
    return true;
}

bool Builder::link_all() {
    for (std::size_t idx : order_) {
        Entity& e = d_.entities[idx];
        if (const char* f = kRecNumField[static_cast<int>(e.kind)]; f != nullptr && !fill(e, f, recnum_[idx])) {
            return false;
        }
    }
    for (const HeaderChain& hc : kHeaderChains) {
        const auto& members = hc.kind == RecKind::Sched ? sched_chain_ : by_kind_[static_cast<int>(hc.kind)];
        if (!link_chain(header(), members, hc.fields)) return false;
    }

    // Domain chain: workstations of one domain together, domains in order
    // of first appearance.
    const auto& cpus = by_kind_[static_cast<int>(RecKind::Cpu)];
    std::map<std::string_view, std::size_t> domain_of;  // name -> index in `domains`
    std::vector<std::vector<std::size_t>> domains;
    for (std::size_t c : cpus) {
        const auto [it, fresh] = domain_of.emplace(text_of(d_.entities[c], "sci_domain_name"), domains.size());
        if (fresh) domains.emplace_back();
        domains[it->second].push_back(c);
    }
    std::vector<std::size_t> domain_chain;
    for (const auto& members : domains) domain_chain.insert(domain_chain.end(), members.begin(), members.end());
    if (!link_chain(header(), domain_chain, kDomainChain) ||
        !fill(header(), "sh_num_domains", static_cast<std::int64_t>(domains.size()))) {
        return false;
    }

    const auto& cpu_index = d_.index[static_cast<int>(RecKind::Cpu)];
    std::vector<bool> has_first(d_.entities.size(), false);
    for (std::size_t s : sched_chain_) {
        Entity& sched = d_.entities[s];
        const std::size_t cpu = cpu_index.at(desc_key(sched.ws));
        if (!has_first[cpu]) {
            has_first[cpu] = true;
            if (!fill(d_.entities[cpu], "sci_first_sched", recnum_[s])) return false;
        }
        for (std::size_t j : sched.jobs) {
            if (!fill(d_.entities[j], "sj_sched_ptr", recnum_[s])) return false;
        }
        if (!link_chain(sched, sched.jobs, kJobChain) || !fill_schedule_totals(sched)) return false;
    }

    const std::string_view master = cpus.empty() ? std::string_view{} : d_.entities[cpus.front()].name;
    std::int64_t msg_no = 0;
    for (std::size_t p : by_kind_[static_cast<int>(RecKind::Prompt)]) {
        fill_text(d_.entities[p], "sm_cpu_id", master);
        if (!fill(d_.entities[p], "sm_msg_no", ++msg_no)) return false;
    }
    return fill_header();
}

bool Builder::fill_schedule_totals(Entity& sched) {
    std::int64_t totals[std::size(STATE_COUNTERS)] = {};
    for (std::size_t j : sched.jobs) {
        const Entity& job = d_.entities[j];
        const auto code = static_cast<std::int16_t>(load_number(job.rec.bytes, field(RecKind::Job, "sj_status"), 0));
        const JobState* st = state_of_code(code);
        if (st == nullptr || st->counter == nullptr) continue;
        for (std::size_t c = 0; c < std::size(STATE_COUNTERS); ++c) {
            if (std::strcmp(st->counter, STATE_COUNTERS[c]) == 0) ++totals[c];
        }
    }
    for (std::size_t c = 0; c < std::size(STATE_COUNTERS); ++c) {
        if (!fill(sched, STATE_COUNTERS[c], totals[c])) return false;
    }
    return fill(sched, "ss_num_recs", 1 + static_cast<std::int64_t>(sched.jobs.size()));
}

bool Builder::fill_header() {
    Entity& h = header();
    const auto& cpus = by_kind_[static_cast<int>(RecKind::Cpu)];
    if (!cpus.empty()) {
        const Entity& master = d_.entities[cpus.front()];
        fill_text(h, "sh_cpu_id", master.name);
        fill_text(h, "sh_mast_cpu", master.name);
        fill_text(h, "sh_mast_domain", text_of(master, "sci_domain_name"));
    }
    // A statistic nobody walks: saturated rather than refused.
    return fill(h, "sh_num_depends", std::min<std::int64_t>(total_deps_, 32767)) &&
           fill(h, "sh_num_recs", static_cast<std::int64_t>(file_records(slots_))) &&
           fill(h, "sh_alm_version", d_.alm_version);
}

bool Builder::write(const std::string& out) {
    // The writer's messages name the output file.
    PlanWriter writer(d_.alm_version);
    if (!writer.open(out, err_)) return false;
    for (std::size_t idx : order_) {
        if (!writer.put(d_.entities[idx].rec, err_)) return false;
    }
    return writer.commit(header().rec, err_);
}

bool Builder::run(const std::string& out) {
    return check_workstations() && number_records() && apply_links_and_deps() && link_all() && write(out);
}

}  // namespace

bool build_plan(PlanDesc& desc, const std::string& out, std::string& err) {
    Builder b(desc, err);
    return b.run(out);
}

}  // namespace alm
