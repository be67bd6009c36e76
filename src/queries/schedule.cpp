// The schedule query.
#include "plan/almfind.h"
#include "plan/openplans.h"
#include "queries/queries.h"
#include "queries/queryargs.h"
#include "queries/recordreply.h"
#include "queries/wireform.h"

namespace alm {

void readerGetSchedules(Request& req) {
    const char* args[3];
    if (!queryArgs(req, args, 3)) return;
    const char* cpu = args[1];
    const char* sched = args[2];

    RecordBuffer records;
    if (alm_comarea* ca = openPlanSession(args[0])) {
        const alm_read_ahead ahead(ca);
        SS_RECTYPE ss{};
        std::uint32_t start = 0;
        while (alm_find_sched(ca, cpu, sched, start, &ss) != NULL_REC) {
            unsigned char* rec = records.append(&ss);
            if (!rec) break;
            ConvertScheduleReply(rec);
        }
    }
    const std::unique_ptr<sll> list = records.list();
    readerGetSchedulesReturn(req.id, static_cast<std::int32_t>(records.count()), list.get());
}

void readerGetSchedulesReturn(std::uint32_t id, std::int32_t count, sll* list) {
    writeRecordReply(id, count, list);
}

}  // namespace alm
