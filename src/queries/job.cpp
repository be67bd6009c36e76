// The job query.
#include <cstdint>
#include <cstring>
#include <new>
#include <vector>

#include "plan/almfind.h"
#include "plan/openplans.h"
#include "protocol/write.h"
#include "queries/queries.h"
#include "queries/queryargs.h"
#include "queries/recordreply.h"
#include "queries/wireform.h"

namespace alm {

namespace {

// A listing that finds at most this many jobs reads them again by where the
// counting walk found them; a longer one walks the plan again as it sends.
// Either way memory stays the same whatever the plan's size.
constexpr std::size_t kKeptPositions = 4096;

struct JobPatterns {
    const char* cpu;
    const char* sched;
    const char* job;
};

struct Found {
    std::int64_t count = 0;
    std::vector<std::uint32_t> at;  // where each job was read; empty past kKeptPositions
};

// The counting walk: it reads each job without converting its dates.
Found countJobs(alm_comarea* ca, const JobPatterns& p) {
    Found found;
    bool keep = true;
    try {
        found.at.reserve(kKeptPositions);
    } catch (const std::bad_alloc&) {
        keep = false;
    }
    SJ_RECTYPE sj{};
    std::uint32_t start = 0;
    while (found.count < INT32_MAX && alm_find_job_undated(ca, p.cpu, p.sched, p.job, start, &sj) != NULL_REC) {
        ++found.count;
        keep = keep && found.at.size() < kKeptPositions;
        if (keep) found.at.push_back(ca->job_walk.found_at);
    }
    if (!keep) found.at.clear();
    return found;
}

// Reads the job at a position and sends it; one that can no longer be read
// as a job (the plan changed meanwhile) goes out as zeros, so that the reply
// holds exactly the records its header announced.
void sendJobAt(alm_comarea* ca, std::uint32_t at, SJ_RECTYPE& sj) {
    static_assert(sizeof sj == RecordBuffer::kRecordBytes);
    unsigned char* rec = record_bytes(&sj);
    if (at != NULL_REC && alm_read_job(ca, at, &sj) >= 0)
        ConvertJobReply(rec);
    else
        std::memset(rec, 0, sizeof sj);
    readerWriteBlock(rec, sizeof sj);
}

void sendJobs(alm_comarea* ca, const JobPatterns& p, const Found& found) {
    SJ_RECTYPE sj{};
    if (static_cast<std::int64_t>(found.at.size()) == found.count) {
        for (const std::uint32_t at : found.at) sendJobAt(ca, at, sj);
        return;
    }
    // The walk again, each job now read whole; should it find fewer than it
    // counted (the plan changed meanwhile), zeros make up the rest.
    std::uint32_t start = 0;
    std::int64_t sent = 0;
    while (sent < found.count && alm_find_job(ca, p.cpu, p.sched, p.job, start, &sj) != NULL_REC) {
        unsigned char* rec = record_bytes(&sj);
        ConvertJobReply(rec);
        readerWriteBlock(rec, sizeof sj);
        ++sent;
    }
    for (; sent < found.count; ++sent) sendJobAt(ca, NULL_REC, sj);
}

}  // namespace

void readerGetJobs(Request& req) {
    const char* args[4];
    if (!queryArgs(req, args, 4)) return;
    const JobPatterns patterns{args[1], args[2], args[3]};

    // One walk counts the jobs, for the header; the jobs are then sent one by
    // one, so that a long listing is never held in memory.
    alm_comarea* ca = openPlanSession(args[0]);
    const alm_read_ahead ahead(ca);
    Found found;
    if (ca) found = countJobs(ca, patterns);
    readerWriteHeader(0, static_cast<int>(req.id), static_cast<int>(found.count), RecordBuffer::kRecordBytes);
    if (ca) sendJobs(ca, patterns, found);
    readerWriteTrailer();
}

void readerGetJobsReturn(std::uint32_t id, std::int32_t count, sll* list) { writeRecordReply(id, count, list); }

}  // namespace alm
