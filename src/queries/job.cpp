#include "plan/almfind.h"
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

    RecordBuffer records;
    if (alm_comarea* ca = querySession(args[0])) {
        const alm_read_ahead ahead(ca);
        SJ_RECTYPE sj;
        std::uint32_t start = 0;
        while (alm_find_job(ca, cpu, sched, job, start, &sj) != NULL_REC) {
            unsigned char* rec = records.append(&sj);
            if (!rec) break;
            ConvertJobReply(rec);
        }
    }
    const std::unique_ptr<sll> list = records.list();
    readerGetJobsReturn(req.id, static_cast<std::int32_t>(records.count()), list.get());
}

void readerGetJobsReturn(std::uint32_t id, std::int32_t count, sll* list) { writeRecordReply(id, count, list); }

}  // namespace alm
