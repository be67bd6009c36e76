// The dependency listing: schedules, their jobs, restart chains and every record they depend on.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

#include "plan/almfind.h"
#include "plan/openplans.h"
#include "protocol/write.h"
#include "queries/queries.h"
#include "queries/queryargs.h"
#include "queries/wireform.h"
#include "util/bytecopy.h"
#include "util/strutil.h"

namespace alm {

namespace {

constexpr int kRecordBytes = ALM_REC_SIZE_V2;
constexpr std::uint8_t kNotCounted = 0x80;  // the one flag byte the count leaves out
constexpr std::uint8_t kKindMask = 0x7F;
constexpr int kFirstResourceKind = 32;       // resources are every kind above 31
constexpr std::size_t kNameBytes = 256;

// A schedule's or job's dependencies, copied out before the record is
// converted in place.
struct Dependencies {
    std::int16_t count = 0;
    std::uint8_t flags[MAX_DEPENDS] = {};
    std::uint32_t recs[MAX_DEPENDS] = {};
};

Dependencies dependenciesOf(const SS_RECTYPE& ss) {
    Dependencies d;
    d.count = static_cast<std::int16_t>(dependency_count(ss.ss_num_depends));
    std::memcpy(d.flags, ss.ss_depend_flags, sizeof d.flags);
    std::memcpy(d.recs, ss.ss_dependencies, sizeof d.recs);
    return d;
}

Dependencies dependenciesOf(const SJ_RECTYPE& sj) {
    Dependencies d;
    d.count = static_cast<std::int16_t>(dependency_count(sj.sj_num_depends));
    std::memcpy(d.flags, sj.subdep.deps.sj_depend_flags, sizeof d.flags);
    std::memcpy(d.recs, sj.subdep.deps.sj_dependencies, sizeof d.recs);
    return d;
}

// The header counts every dependency entry in use whose flag is not 0x80,
// whether or not a record follows for it.
std::int64_t countedDependencies(std::int16_t stored, const std::uint8_t* flags) {
    std::int64_t n = 0;
    for (int i = 0; i < dependency_count(stored); ++i) n += flags[i] != kNotCounted;
    return n;
}

// The walk both passes share: each schedule matching the patterns, then each
// of its jobs matching the job pattern, each followed by its restart chain.
// Visit is called with every record in output order and may convert it in
// place; whatever the walk still needs is taken before the call. The lookups
// bound their own walks; the restart chain is bounded by its own walk.
template <class Visit>
void walkListing(alm_comarea* ca, const char* cpuPattern, const char* schedPattern, const char* jobPattern,
                 Visit& visit) {
    const short width = queryNameWidth();
    char cpu[kNameBytes];
    char schedule[kNameBytes];
    SS_RECTYPE ss{};

    struct Jobs {
        alm_comarea* ca;
        Visit& visit;
        SJ_RECTYPE job{};
        SJ_RECTYPE chained{};
    } jobs{ca, visit};
    std::uint32_t ss_start = 0;
    while (alm_find_sched(ca, cpuPattern, schedPattern, ss_start, &ss) != NULL_REC) {
        pac_to_str(ss.ss_cpu_id, cpu, width);
        pac_to_str(ss.ss_sched_name, schedule, width);
        visit.schedule(ss);

        // A visit that sends nothing (the count) reads only links and dependency flags.
        constexpr alm_job_detail detail = Visit::kSends ? alm_job_detail::dated : alm_job_detail::links;
        alm_each_job(ca, cpu, schedule, jobPattern, detail, [](void* context, const SJ_RECTYPE& sj, std::uint32_t) {
            auto& j = *static_cast<Jobs*>(context);
            const auto readJob = Visit::kSends ? alm_read_job : alm_read_job_links;
            std::uint32_t link = sj.sj_restart_ptr;
            if constexpr (Visit::kSends) {
                copy_bytes(&j.job, &sj, sizeof j.job);
                j.visit.job(j.job);
            } else {
                j.visit.job(sj);
            }
            alm_walk restarts;
            while (link != NULL_REC && restarts.step(j.ca) && readJob(j.ca, link, &j.chained) >= 0) {
                link = j.chained.sj_restart_ptr;
                j.visit.job(j.chained);
            }
            return true;
        }, &jobs);
    }
}

struct Counter {
    static constexpr bool kSends = false;
    std::int64_t count = 0;
    void schedule(const SS_RECTYPE& ss) { count += 1 + countedDependencies(ss.ss_num_depends, ss.ss_depend_flags); }
    void job(const SJ_RECTYPE& sj) {
        count += 1 + countedDependencies(sj.sj_num_depends, sj.subdep.deps.sj_depend_flags);
    }
};

void WriteOutDependencies(alm_comarea* alm_ca, std::int16_t numdeps, const std::uint8_t* depflags,
                          const std::uint32_t* deprecs);

struct Writer {
    static constexpr bool kSends = true;
    alm_comarea* ca;
    void schedule(SS_RECTYPE& ss) {
        const Dependencies d = dependenciesOf(ss);
        readerWriteBlock(ConvertSchedule(&ss), kRecordBytes);
        WriteOutDependencies(ca, d.count, d.flags, d.recs);
    }
    void job(SJ_RECTYPE& sj) {
        const Dependencies d = dependenciesOf(sj);
        readerWriteBlock(ConvertJob(&sj), kRecordBytes);
        WriteOutDependencies(ca, d.count, d.flags, d.recs);
    }
};

// Sends the record of each dependency that names one, in index order; an
// entry without a record, of a kind that is not sent, or whose record cannot
// be read is left out.
void WriteOutDependencies(alm_comarea* alm_ca, std::int16_t numdeps, const std::uint8_t* depflags,
                          const std::uint32_t* deprecs) {
    ALMRECTYPE rec{};
    const int n = dependency_count(numdeps);
    for (int i = 0; i < n; ++i) {
        const std::uint32_t recnum = deprecs[i];
        if (recnum == NULL_REC) continue;
        const int kind = depflags[i] & kKindMask;
        const void* out = nullptr;
        switch (kind) {
            case LocMsgDep:
            case GlbMsgDep:
                if (alm_read_message(alm_ca, recnum, &rec.sm) != -1) out = ConvertPrompt(&rec.sm);
                break;
            case PreschedDep:
                if (alm_read_sched(alm_ca, recnum, &rec.ss) != -1) {
                    rec.ss.alm_rec_type = static_cast<std::int16_t>(SCHED_DEP_CODE);
                    out = ConvertScheduleDep(&rec.ss);
                }
                break;
            case PrejobDep:
                if (alm_read_job(alm_ca, recnum, &rec.sj) != -1) {
                    rec.sj.alm_rec_type = static_cast<std::int16_t>(JOB_DEP_CODE);
                    out = ConvertJobDep(&rec.sj);
                }
                break;
            case FileDep:
                if (alm_read_file(alm_ca, recnum, &rec.sf) != -1) out = ConvertFile(&rec.sf);
                break;
            default:
                // ResourceDep (9) itself is not a resource here: only kinds above 31 are.
                if (kind >= kFirstResourceKind && alm_read_resource(alm_ca, recnum, &rec.sr) != -1)
                    out = ConvertResource(&rec.sr);
                break;
        }
        if (out) readerWriteBlock(out, kRecordBytes);
    }
}

}  // namespace

void readerGetSchJobDep(Request& req) {
    const char* args[4];
    if (!queryArgs(req, args, 4)) return;
    const char* cpu = args[1];
    const char* sched = args[2];
    const char* job = args[3];
    alm_comarea* ca = openPlanSession(args[0]);
    const alm_read_ahead ahead(ca);

    Counter counter;
    if (ca) walkListing(ca, cpu, sched, job, counter);
    const std::int64_t count = std::min<std::int64_t>(counter.count, std::numeric_limits<std::int32_t>::max());
    readerWriteHeader(0, static_cast<int>(req.id), static_cast<int>(count), kRecordBytes);

    if (ca) {
        Writer writer{ca};
        walkListing(ca, cpu, sched, job, writer);
    }
    readerWriteTrailer();
}

}  // namespace alm
