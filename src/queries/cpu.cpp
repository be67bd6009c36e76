// The workstation query.
#include "plan/almfind.h"
#include "plan/openplans.h"
#include "queries/queries.h"
#include "queries/queryargs.h"
#include "queries/recordreply.h"
#include "queries/wireform.h"

namespace alm {

void readerGetCpus(Request& req) {
    const char* args[2];
    if (!queryArgs(req, args, 2)) return;
    const char* cpu = args[1];

    RecordBuffer records;
    if (alm_comarea* ca = openPlanSession(args[0])) {
        const alm_read_ahead ahead(ca);
        SCI_RECTYPE sci{};
        std::uint32_t start = 0;
        while (alm_find_cpu(ca, cpu, start, &sci) != NULL_REC) {
            unsigned char* rec = records.append(&sci);
            if (!rec) break;
            ConvertCpuReply(rec);
        }
    }
    const std::unique_ptr<sll> list = records.list();
    readerGetCpusReturn(req.id, static_cast<std::int32_t>(records.count()), list.get());
}

void readerGetCpusReturn(std::uint32_t id, std::int32_t count, sll* list) { writeRecordReply(id, count, list); }

}  // namespace alm
