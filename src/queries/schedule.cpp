// The schedule query.
#include <cstdint>
#include <cstring>

#include "plan/almfind.h"
#include "plan/openplans.h"
#include "protocol/write.h"
#include "queries/queries.h"
#include "queries/queryargs.h"
#include "queries/recordreply.h"
#include "queries/wireform.h"

namespace alm {

namespace {

// Up to this many schedules are gathered and sent in one reply; a longer
// listing is counted first and sent as a second walk reads it, so that
// memory stays the same whatever the plan's size.
constexpr std::size_t kGathered = 2048;

// Sends count schedules as a new walk finds them; should it find fewer (the
// plan changed meanwhile), zeros make up the rest.
void sendSchedules(alm_comarea* ca, std::uint32_t id, const char* cpu, const char* sched, std::int64_t count) {
    readerWriteHeader(0, static_cast<int>(id), static_cast<int>(count), RecordBuffer::kRecordBytes);
    SS_RECTYPE ss{};
    static_assert(sizeof ss == RecordBuffer::kRecordBytes);
    unsigned char* rec = record_bytes(&ss);
    std::uint32_t start = 0;
    std::int64_t sent = 0;
    for (; sent < count && alm_find_sched(ca, cpu, sched, start, &ss) != NULL_REC; ++sent) {
        ConvertScheduleReply(rec);
        readerWriteBlock(rec, sizeof ss);
    }
    std::memset(rec, 0, sizeof ss);
    for (; sent < count; ++sent) readerWriteBlock(rec, sizeof ss);
    readerWriteTrailer();
}

}  // namespace

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
        std::int64_t count = 0;
        while (count < INT32_MAX && alm_find_sched(ca, cpu, sched, start, &ss) != NULL_REC) {
            if (++count > static_cast<std::int64_t>(kGathered)) {
                // Sent by a second walk: what was gathered is given back
                // now, before the stream's own buffers fill.
                if (records.count() != 0) records = RecordBuffer();
                continue;
            }
            unsigned char* rec = records.append(&ss);
            if (!rec) break;
            ConvertScheduleReply(rec);
        }
        if (count > static_cast<std::int64_t>(kGathered)) return sendSchedules(ca, req.id, cpu, sched, count);
    }
    const std::unique_ptr<sll> list = records.list();
    readerGetSchedulesReturn(req.id, static_cast<std::int32_t>(records.count()), list.get());
}

void readerGetSchedulesReturn(std::uint32_t id, std::int32_t count, sll* list) {
    writeRecordReply(id, count, list);
}

}  // namespace alm
