#include <cstdint>
#include <cstring>

#include "plan/almfind.h"
#include "queries/queries.h"
#include "queries/queryargs.h"
#include "queries/recordreply.h"
#include "queries/wireform.h"
#include "service/write.h"

namespace alm {

void readerGetJobs(Request& req) {
    const char* args[4];
    if (!queryArgs(req, args, 4)) return;
    const char* cpu = args[1];
    const char* sched = args[2];
    const char* job = args[3];

    // The jobs are counted by one walk and sent as a second walk finds them,
    // so that a long listing is never held in memory. Should the plan change
    // between the walks, the reply still holds exactly the records its header
    // announces: the surplus is left out, a shortfall filled with zeros.
    alm_comarea* ca = querySession(args[0]);
    const alm_read_ahead ahead(ca);
    SJ_RECTYPE sj;
    std::int64_t count = 0;
    if (ca) {
        std::uint32_t start = 0;
        while (count < INT32_MAX && alm_find_job(ca, cpu, sched, job, start, &sj) != NULL_REC) ++count;
    }
    readerWriteHeader(0, static_cast<int>(req.id), static_cast<int>(count), RecordBuffer::kRecordBytes);

    unsigned char rec[RecordBuffer::kRecordBytes];
    std::int64_t sent = 0;
    if (ca) {
        std::uint32_t start = 0;
        while (sent < count && alm_find_job(ca, cpu, sched, job, start, &sj) != NULL_REC) {
            std::memcpy(rec, &sj, sizeof rec);
            ConvertJobReply(rec);
            readerWriteBlock(rec, sizeof rec);
            ++sent;
        }
    }
    std::memset(rec, 0, sizeof rec);
    for (; sent < count; ++sent) readerWriteBlock(rec, sizeof rec);
    readerWriteTrailer();
}

void readerGetJobsReturn(std::uint32_t id, std::int32_t count, sll* list) { writeRecordReply(id, count, list); }

}  // namespace alm
