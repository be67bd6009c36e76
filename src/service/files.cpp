// The open, close and archived-plan listing requests and their replies.
#include "service/files.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "plan/almaccs.h"
#include "plan/openplans.h"
#include "protocol/write.h"
#include "util/dateutil.h"
#include "util/stdfuncs.h"
#include "util/strutil.h"
#include "util/sysutils.h"

namespace alm {

namespace {

constexpr int OPEN_REPLY_ITEMS = 9;

struct OpenReply {
    char code[16] = "0";
    char errtext[ALM_ERRTEXT_SIZE] = {};
    char handle[24] = "0";
    char date[16] = "0";
    char dayStart[8] = "0";
    char cpu[17] = {};
    char master[17] = {};
    // Four characters each, so three digits (or two and a sign) survive.
    char fence[4] = "0";
    char version[4] = "0";

    void send(std::uint32_t id) {
        const char* items[OPEN_REPLY_ITEMS] = {code, errtext, handle, date,   dayStart,
                                               cpu,  master,  fence,  version};
        auto list = sllCreate();
        for (const char* item : items) sllAddNode(list.get(), const_cast<char*>(item));
        readerOpenAlmanackReturn(id, list.get());
    }
};

// A 16-bit value in a four-character field: longer numbers lose their tail.
void formatShortField(char (&field)[4], short value) {
    char text[8] = {};
    std::snprintf(text, sizeof text, "%d", value);
    text[sizeof field - 1] = '\0';
    std::memcpy(field, text, sizeof field);
}

short addLogName(const char* line, void* userdata) {
    try {
        static_cast<std::vector<std::string>*>(userdata)->emplace_back(line);
    } catch (const std::bad_alloc&) {
        return -1;
    }
    return 0;
}

const char* firstArgument(const Request& req) {
    return static_cast<const char*>(sllGetFirst(req.dataList));
}

}  // namespace

void readerOpenAlmanack(Request& req) {
    if (req.numData != 1) return;
    const char* path = firstArgument(req);
    if (path == nullptr) return;
    const std::size_t length = strnlen(path, QUAL_PATH_MAX + 1);
    if (length > static_cast<std::size_t>(QUAL_PATH_MAX)) return;
    if (!openPlanHandlesLeft()) return;

    auto rf = std::make_unique<readerFile>();
    rf->opened = 1;
    std::memcpy(rf->pathName, path, length);
    rf->pathName[length] = '\0';
    qual_filename(rf->pathName, QUAL_PATH_MAX, sizeof rf->pathName);

    OpenReply reply;
    const int rc =
        alm_open_text(rf->pathName, ALM_MODE_READ, 0, &rf->alm_ca, &rf->sh_rec, reply.errtext);
    if (rc != 0) {
        std::snprintf(reply.code, sizeof reply.code, "%d", rc);
        reply.send(req.id);
        return;
    }
    reply.errtext[0] = '\0';

    const SH_RECTYPE& sh = rf->sh_rec;
    alm_version = sh.sh_alm_version;
    const readerFile* record = addOpenPlan(std::move(rf));

    const short width = alm_version == 0 ? 8 : 16;
    pac_to_str(sh.sh_cpu_id, reply.cpu, width);
    pac_to_str(sh.sh_mast_cpu, reply.master, width);
    std::snprintf(reply.handle, sizeof reply.handle, "%ld", record->handle);
    std::snprintf(reply.date, sizeof reply.date, "%ld",
                  static_cast<long>(epoch_to_yymmdd(sh.sh_sched_date)));
    std::snprintf(reply.dayStart, sizeof reply.dayStart, "%d", sh.sh_day_start);
    formatShortField(reply.fence, sh.sh_job_fence);
    formatShortField(reply.version, sh.sh_alm_version);
    reply.send(req.id);
}

void readerCloseAlmanack(Request& req) {
    if (req.numData != 1) return;
    readerFile* rf = readerFindFile(firstArgument(req));
    if (rf == nullptr) return;
    closeOpenPlan(rf);
    readerCloseAlmanackReturn(req.id);
}

void readerCloseAllAlmanack() { closeAllOpenPlans(); }

void readerGetAlmanackLogs(Request& req) {
    char pattern[2 * QUAL_PATH_MAX + 2] = "schedlog/M@";
    qual_filename(pattern, QUAL_PATH_MAX, sizeof pattern);

    std::vector<std::string> names;
    int filecount = 0;
    uni_find_files(pattern, &filecount, FIND_DESCENDING, &names, nullptr, addLogName);

    auto list = sllCreate();
    for (auto& name : names) sllAddNode(list.get(), name.data());
    readerGetAlmanackLogsReturn(req.id, static_cast<std::uint32_t>(names.size()), list.get());
}

void readerOpenAlmanackReturn(std::uint32_t id, sll* items) {
    Request reply;
    reply.type = 0;
    reply.id = id;
    reply.numData = OPEN_REPLY_ITEMS;
    reply.dataType = 0;
    reply.dataList = items;
    readerWrite(reply);
}

void readerCloseAlmanackReturn(std::uint32_t id) {
    Request reply;
    reply.type = 0;
    reply.id = id;
    reply.numData = 0;
    reply.bytesPerRecord = 0;
    reply.dataType = 0;
    readerWrite(reply);
}

void readerGetAlmanackLogsReturn(std::uint32_t id, std::uint32_t count, sll* items) {
    Request reply;
    reply.type = 0;
    reply.id = id;
    reply.numData = count;
    reply.dataType = 0;
    reply.dataList = items;
    readerWrite(reply);
}

}  // namespace alm
