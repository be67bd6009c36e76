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

void readerGetJobs(Request& req) {
    const char* args[4];
    if (!queryArgs(req, args, 4)) return;
    const char* cpu = args[1];
    const char* sched = args[2];
    const char* job = args[3];

    // One walk finds the jobs and notes where each was read from; they are
    // then read again one by one and sent, so that a long listing is never
    // held in memory. A job that can no longer be read as a job (the plan
    // changed meanwhile) goes out as zeros: the reply always holds exactly
    // the records its header announces.
    alm_comarea* ca = openPlanSession(args[0]);
    const alm_read_ahead ahead(ca);
    SJ_RECTYPE sj{};
    std::vector<std::uint32_t> found;
    if (ca) {
        std::uint32_t start = 0;
        try {
            while (found.size() < INT32_MAX && alm_find_job(ca, cpu, sched, job, start, &sj) != NULL_REC)
                found.push_back(ca->job_walk.found_at);
        } catch (const std::bad_alloc&) {
            // The jobs found so far are sent, as when the records could not be kept.
        }
    }
    readerWriteHeader(0, static_cast<int>(req.id), static_cast<int>(found.size()), RecordBuffer::kRecordBytes);
    static_assert(sizeof sj == RecordBuffer::kRecordBytes);
    for (const std::uint32_t at : found) {
        unsigned char* rec = record_bytes(&sj);
        if (alm_read_job(ca, at, &sj) >= 0)
            ConvertJobReply(rec);
        else
            std::memset(rec, 0, sizeof sj);
        readerWriteBlock(rec, sizeof sj);
    }
    readerWriteTrailer();
}

void readerGetJobsReturn(std::uint32_t id, std::int32_t count, sll* list) { writeRecordReply(id, count, list); }

}  // namespace alm
