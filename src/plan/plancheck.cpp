// The structural check of a plan file's chains.
#include "plan/plancheck.h"

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <vector>

#include "plan/almrecs.h"
#include "plan/planrecords.h"
#include "util/endian.h"

namespace alm {
namespace {

// A field's byte offset in the 256-byte and in the 512-byte form.
struct Off {
    std::uint16_t v1;
    std::uint16_t v2;
};
constexpr Off kNoField{0xFFFF, 0xFFFF};
#define ALM_OFF(T, field) \
    Off { static_cast<std::uint16_t>(offsetof(T##_V1, field)), static_cast<std::uint16_t>(offsetof(T, field)) }

// A doubly (or, for strings, singly) linked chain: where its ends and count
// stand in the owning record, and its links in each member.
struct ChainSpec {
    const char* name;    // "workstation"
    const char* plural;  // "workstations"
    std::int16_t code;
    Off first, last, count;
    Off prev, next, recNum;
};

constexpr ChainSpec kHeaderChains[] = {
    {"workstation", "workstations", SCI_CODE, ALM_OFF(SH_RECTYPE, sh_first_cpu), ALM_OFF(SH_RECTYPE, sh_last_cpu),
     ALM_OFF(SH_RECTYPE, sh_num_cpus), ALM_OFF(SCI_RECTYPE, sci_prev_cpu_ptr), ALM_OFF(SCI_RECTYPE, sci_next_cpu_ptr),
     ALM_OFF(SCI_RECTYPE, sci_rec_num)},
    // The header counts domains, not the workstations of the domain chain.
    {"domain", "domains", SCI_CODE, ALM_OFF(SH_RECTYPE, sh_first_domain), ALM_OFF(SH_RECTYPE, sh_last_domain),
     kNoField, ALM_OFF(SCI_RECTYPE, sci_prev_domain_ptr), ALM_OFF(SCI_RECTYPE, sci_next_domain_ptr),
     ALM_OFF(SCI_RECTYPE, sci_rec_num)},
    {"schedule", "schedules", SS_CODE, ALM_OFF(SH_RECTYPE, sh_first_sched), ALM_OFF(SH_RECTYPE, sh_last_sched),
     ALM_OFF(SH_RECTYPE, sh_num_scheds), ALM_OFF(SS_RECTYPE, ss_prev_sch_ptr), ALM_OFF(SS_RECTYPE, ss_next_sch_ptr),
     ALM_OFF(SS_RECTYPE, ss_rec_num)},
    {"prompt", "prompts", SM_CODE, ALM_OFF(SH_RECTYPE, sh_first_msg), ALM_OFF(SH_RECTYPE, sh_last_msg),
     ALM_OFF(SH_RECTYPE, sh_num_msgs), ALM_OFF(SM_RECTYPE, sm_prev_msg), ALM_OFF(SM_RECTYPE, sm_next_msg),
     ALM_OFF(SM_RECTYPE, sm_rec_num)},
    {"file", "files", SF_CODE, ALM_OFF(SH_RECTYPE, sh_first_file), ALM_OFF(SH_RECTYPE, sh_last_file),
     ALM_OFF(SH_RECTYPE, sh_num_files), ALM_OFF(SF_RECTYPE, sf_prev_file), ALM_OFF(SF_RECTYPE, sf_next_file),
     ALM_OFF(SF_RECTYPE, sf_rec_num)},
    {"resource", "resources", SR_CODE, ALM_OFF(SH_RECTYPE, sh_first_resource), ALM_OFF(SH_RECTYPE, sh_last_resource),
     ALM_OFF(SH_RECTYPE, sh_num_resources), ALM_OFF(SR_RECTYPE, sr_prev_resource),
     ALM_OFF(SR_RECTYPE, sr_next_resource), ALM_OFF(SR_RECTYPE, sr_rec_num)},
    {"calendar", "calendars", SC_CODE, ALM_OFF(SH_RECTYPE, sh_first_cal), ALM_OFF(SH_RECTYPE, sh_last_cal),
     ALM_OFF(SH_RECTYPE, sh_num_cals), ALM_OFF(SC_RECTYPE, sc_prev_cal), ALM_OFF(SC_RECTYPE, sc_next_cal), kNoField},
    {"string", "strings", ST_CODE, ALM_OFF(SH_RECTYPE, sh_first_st), ALM_OFF(SH_RECTYPE, sh_last_st),
     ALM_OFF(SH_RECTYPE, sh_num_sts), kNoField, ALM_OFF(ST_RECTYPE, st_next_ptr), kNoField},
};

constexpr ChainSpec kJobChain{"job", "jobs", SJ_CODE, ALM_OFF(SS_RECTYPE, ss_first_job), ALM_OFF(SS_RECTYPE, ss_last_job),
                              ALM_OFF(SS_RECTYPE, ss_num_jobs), ALM_OFF(SJ_RECTYPE, sj_prev_job_ptr),
                              ALM_OFF(SJ_RECTYPE, sj_next_job_ptr), ALM_OFF(SJ_RECTYPE, sj_rec_num)};
constexpr Off kSchedPtr = ALM_OFF(SJ_RECTYPE, sj_sched_ptr);
constexpr Off kNumRecs = ALM_OFF(SH_RECTYPE, sh_num_recs);
#undef ALM_OFF

struct KindName {
    std::int16_t code;
    const char* name;
};
constexpr KindName kKinds[] = {{SH_CODE, "header"},   {SCI_CODE, "workstation"}, {SS_CODE, "schedule"},
                               {SJ_CODE, "job"},      {SM_CODE, "prompt"},       {SF_CODE, "file"},
                               {SR_CODE, "resource"}, {SC_CODE, "calendar"},     {ST_CODE, "string"},
                               {SD_CODE, "dependency"}, {PJ_CODE, "purgeable-jobs"}};

std::string kind_of(std::uint16_t code) {
    for (const KindName& k : kKinds) {
        if (static_cast<std::uint16_t>(k.code) == code) return std::string("a ") + k.name + " record";
    }
    char text[48];
    std::snprintf(text, sizeof text, "a record of unknown type 0x%04x", static_cast<unsigned>(code));
    return text;
}

std::string num(std::uint64_t n) { return std::to_string(n); }

// One bit per record: which records the chain being walked has met.
class Visited {
public:
    void clear(std::uint64_t records) { bits_.assign(records / 64 + 1, 0); }
    // Marks n; answers whether it was marked already.
    bool testAndSet(std::uint64_t n) {
        if (n / 64 >= bits_.size()) bits_.resize(n / 64 + 1, 0);
        const std::uint64_t mask = std::uint64_t{1} << (n % 64);
        const bool was = (bits_[n / 64] & mask) != 0;
        bits_[n / 64] |= mask;
        return was;
    }

private:
    std::vector<std::uint64_t> bits_;
};

struct Walked {
    std::uint64_t length = 0;
    std::uint32_t lastSeen = NULL_REC;
    bool broken = false;
};

class Checker {
public:
    Checker(PlanRecords& recs, const PlanCheckOptions& o, const PlanProblemFn& fn) : recs_(recs), o_(o), fn_(fn) {}
    PlanCheckStatus run(std::string& error);

private:
    using EachFn = void (Checker::*)(std::uint32_t n, const unsigned char* rec);

    bool readHeader();
    void problem(const std::string& text) {
        ++problems_;
        if (!stop_ && !fn_(text)) stop_ = true;
    }
    std::uint32_t ptr(const unsigned char* r, Off o) const {
        return v2_ ? load_le32(r + o.v2) : load_le16(r + o.v1);
    }
    std::uint32_t count(const unsigned char* r, Off o) const { return load_le16(r + (v2_ ? o.v2 : o.v1)); }
    const unsigned char* member(const std::string& label, std::uint32_t n, std::uint32_t prev, const ChainSpec& spec);
    Walked walk(const ChainSpec& spec, const std::string& label, std::uint32_t first, EachFn each);
    void checkEnd(const std::string& label, const Walked& w, std::uint32_t last, const char* owner);
    void headerChain(const ChainSpec& spec);
    void scheduleJobs(std::uint32_t s, const unsigned char* rec);
    void jobOwner(std::uint32_t n, const unsigned char* rec);

    PlanRecords& recs_;
    const PlanCheckOptions& o_;
    const PlanProblemFn& fn_;
    bool v2_ = false;
    bool stop_ = false;
    std::uint64_t problems_ = 0;
    unsigned char header_[ALM_REC_SIZE_V2] = {};
    Visited visited_;
    std::uint32_t schedule_ = NULL_REC;  // whose jobs are being walked
};

bool Checker::readHeader() {
    const std::uint64_t bytes = recs_.fileBytes();
    if (bytes == 0) {
        problem("the file is empty");
        return false;
    }
    recs_.setRecordSize(ALM_REC_SIZE_V1);
    const unsigned char* h = recs_.record(0);
    if (h != nullptr && load_le16(h) != static_cast<std::uint16_t>(SH_CODE)) {
        problem("record 0 is not a plan header: it is " + kind_of(load_le16(h)));
        return false;
    }
    const auto version = h != nullptr ? static_cast<std::int16_t>(load_le16(h + 254)) : 0;
    if (version != 0 && version != 1) {
        problem("the header is of an unknown format (version " + std::to_string(version) + ")");
        return false;
    }
    v2_ = version == 1;
    recs_.setRecordSize(alm_rec_size(version));
    if (h == nullptr || (h = recs_.record(0)) == nullptr) {
        problem("the file is too short for a plan header (" + num(bytes) + " bytes)");
        return false;
    }
    std::memcpy(header_, h, static_cast<std::size_t>(recs_.recordSize()));
    return true;
}

PlanCheckStatus Checker::run(std::string& error) {
    if (readHeader()) {
        const auto size = static_cast<std::uint64_t>(recs_.recordSize());
        if (o_.wholeRecords && recs_.fileBytes() % size != 0) {
            problem("the file size " + num(recs_.fileBytes()) + " is not a whole number of " + num(size) +
                    "-byte records");
        }
        const std::uint32_t claimed = v2_ ? load_le32(header_ + kNumRecs.v2) : load_le16(header_ + kNumRecs.v1);
        if (o_.counts && claimed > recs_.records()) {
            problem("the header counts " + num(claimed) + " records, the file holds " + num(recs_.records()));
        }
        for (const ChainSpec& spec : kHeaderChains) {
            if (!stop_) headerChain(spec);
        }
    }
    if (recs_.error() != 0) {
        error = std::strerror(recs_.error());
        return PlanCheckStatus::Unreadable;
    }
    return problems_ == 0 ? PlanCheckStatus::Sound : PlanCheckStatus::Damaged;
}

// The record n that the chain reaches after prev, when it is one of the
// chain's kind met for the first time; else a problem and nullptr.
const unsigned char* Checker::member(const std::string& label, std::uint32_t n, std::uint32_t prev,
                                     const ChainSpec& spec) {
    // Made only for a problem: this runs for every record of the plan.
    auto where = [&] {
        return label + ": record " + num(n) +
               (prev == NULL_REC ? " (its first)" : " (after record " + num(prev) + ")");
    };
    if (n == 0) {
        problem(where() + " is the header");
        return nullptr;
    }
    const unsigned char* rec = recs_.record(n);
    if (rec == nullptr) {
        if (recs_.error() == 0) {
            problem(where() + " lies beyond the end of the file (" + num(recs_.records()) + " records)");
        }
        return nullptr;
    }
    if (load_le16(rec) != static_cast<std::uint16_t>(spec.code)) {
        problem(where() + " is " + kind_of(load_le16(rec)) + ", not a " + spec.name + " record");
        return nullptr;
    }
    if (visited_.testAndSet(n)) {
        problem(label + " loops: record " + num(n) + " comes again after record " + num(prev));
        return nullptr;
    }
    return rec;
}

Walked Checker::walk(const ChainSpec& spec, const std::string& label, std::uint32_t first, EachFn each) {
    Walked w;
    for (std::uint32_t n = first; n != NULL_REC && !stop_;) {
        const unsigned char* rec = member(label, n, w.lastSeen, spec);
        if (rec == nullptr) {
            w.broken = true;
            return w;
        }
        if (spec.prev.v1 != kNoField.v1 && ptr(rec, spec.prev) != w.lastSeen) {
            const std::uint32_t back = ptr(rec, spec.prev);
            problem(label + ": record " + num(n) + " points back to " + (back == NULL_REC ? "no record" : "record " + num(back)) +
                    ", not to " + (w.lastSeen == NULL_REC ? "no record" : "record " + num(w.lastSeen)));
        }
        if (spec.recNum.v1 != kNoField.v1 && ptr(rec, spec.recNum) != n) {
            problem(label + ": record " + num(n) + " calls itself record " + num(ptr(rec, spec.recNum)));
        }
        const std::uint32_t next = ptr(rec, spec.next);
        if (each != nullptr) (this->*each)(n, rec);
        ++w.length;
        w.lastSeen = n;
        n = next;
    }
    return w;
}

void Checker::checkEnd(const std::string& label, const Walked& w, std::uint32_t last, const char* owner) {
    if (w.broken || w.lastSeen == last) return;
    if (w.lastSeen == NULL_REC) {
        problem(label + " is empty, but " + owner + " says it ends at record " + num(last));
    } else if (last == NULL_REC) {
        problem(label + " ends at record " + num(w.lastSeen) + ", but " + owner + " says it is empty");
    } else {
        problem(label + " ends at record " + num(w.lastSeen) + ", but " + owner + " says record " + num(last));
    }
}

void Checker::headerChain(const ChainSpec& spec) {
    visited_.clear(recs_.records());
    const std::string label = std::string("the ") + spec.name + " chain";
    const bool schedules = spec.code == SS_CODE;
    const Walked w = walk(spec, label, ptr(header_, spec.first),
                          schedules && o_.jobChains ? &Checker::scheduleJobs : nullptr);
    checkEnd(label, w, ptr(header_, spec.last), "the header");
    if (w.broken || !o_.counts || spec.count.v1 == kNoField.v1) return;
    const std::uint32_t counted = count(header_, spec.count);
    if (counted != w.length) {
        problem("the header counts " + num(counted) + " " + spec.plural + ", the chain holds " + num(w.length));
    }
}

// Called with the schedule record before any other record is read.
void Checker::scheduleJobs(std::uint32_t s, const unsigned char* rec) {
    const std::uint32_t first = ptr(rec, kJobChain.first);
    const std::uint32_t last = ptr(rec, kJobChain.last);
    const std::uint32_t counted = count(rec, kJobChain.count);
    const std::string label = "the job chain of schedule " + num(s);
    schedule_ = s;
    const Walked w = walk(kJobChain, label, first, &Checker::jobOwner);
    checkEnd(label, w, last, "the schedule");
    if (!w.broken && o_.counts && counted != w.length) {
        problem("schedule " + num(s) + " counts " + num(counted) + " jobs, its chain holds " + num(w.length));
    }
}

void Checker::jobOwner(std::uint32_t n, const unsigned char* rec) {
    const std::uint32_t owner = ptr(rec, kSchedPtr);
    if (owner != schedule_) {
        problem("job " + num(n) + " points to schedule " + num(owner) + ", not to its schedule " + num(schedule_));
    }
}

}  // namespace

PlanCheckStatus check_plan(const std::string& path, const PlanCheckOptions& options, const PlanProblemFn& onProblem,
                           std::string& error) {
    PlanRecords recs;
    if (const int e = recs.open(path); e != 0) {
        error = std::strerror(e);
        return PlanCheckStatus::Unreadable;
    }
    Checker checker(recs, options, onProblem);
    return checker.run(error);
}

}  // namespace alm
