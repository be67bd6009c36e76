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
#include "util/bytecopy.h"

namespace alm {

namespace {

// A listing that finds at most this many jobs reads them again by where the
// counting walk found them, sparing the second walk its lookups; a longer one
// walks the plan again as it sends. Either way memory stays within 256 KiB
// whatever the plan's size, and only what is used of it is touched.
constexpr std::size_t kKeptPositions = 65536;

struct JobPatterns {
    const char* cpu;
    const char* sched;
    const char* job;
};

struct Found {
    std::int64_t count = 0;
    std::vector<std::uint32_t> at;  // where each job was read; empty past kKeptPositions
};

// The counting walk: of each job it reads only the fields the walk follows.
Found countJobs(alm_comarea* ca, const JobPatterns& p) {
    Found found;
    try {
        found.at.reserve(kKeptPositions);
    } catch (const std::bad_alloc&) {
        found.at.clear();
    }
    const bool keep = found.at.capacity() >= kKeptPositions;
    struct Count {
        Found& found;
        bool keep;
    } count{found, keep};
    alm_each_job(ca, p.cpu, p.sched, p.job, alm_job_detail::links, [](void* context, const SJ_RECTYPE&, std::uint32_t at) {
        auto& c = *static_cast<Count*>(context);
        ++c.found.count;
        c.keep = c.keep && c.found.at.size() < kKeptPositions;
        if (c.keep) c.found.at.push_back(at);
        return c.found.count < INT32_MAX;
    }, &count);
    if (!count.keep) found.at.clear();
    return found;
}

void sendJob(const SJ_RECTYPE& sj) {
    unsigned char* rec = readerReserveBlock(RecordBuffer::kRecordBytes);
    copy_bytes(rec, &sj, RecordBuffer::kRecordBytes);
    ConvertJobReply(rec);
}

// Reads the job at a position straight into the reply and puts it into its
// wire form there; one that can no longer be read as a job (the plan changed
// meanwhile) goes out as zeros, so that the reply holds exactly the records
// its header announced.
void sendJobAt(alm_comarea* ca, std::uint32_t at) {
    unsigned char* rec = readerReserveBlock(RecordBuffer::kRecordBytes);
    if (at != NULL_REC && alm_read_job_bytes(ca, at, rec) != -1)
        ConvertJobReply(rec);
    else
        std::memset(rec, 0, RecordBuffer::kRecordBytes);
}

void sendJobs(alm_comarea* ca, const JobPatterns& p, const Found& found) {
    if (static_cast<std::int64_t>(found.at.size()) == found.count) {
        for (const std::uint32_t at : found.at) sendJobAt(ca, at);
        return;
    }
    // The walk again, each job now read whole; should it find fewer than it
    // counted (the plan changed meanwhile), zeros make up the rest.
    struct Send {
        std::int64_t left;
    } send{found.count};
    alm_each_job(ca, p.cpu, p.sched, p.job, alm_job_detail::dated, [](void* context, const SJ_RECTYPE& job, std::uint32_t) {
        // found.count > 0 here: a count of 0 matches the empty list above.
        auto& left = static_cast<Send*>(context)->left;
        sendJob(job);
        return --left > 0;
    }, &send);
    for (; send.left > 0; --send.left) sendJobAt(ca, NULL_REC);
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
