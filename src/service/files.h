// Open plans and the listing of archived plans.
//
// Each open plan is a readerFile named by a handle: a small positive number,
// unique for the life of the process (never reused), sent to the client as
// decimal text. Queries and the close request give the text back; handles
// that name no open plan are found by nobody.
#pragma once

#include <cstdint>

#include "plan/almaccs.h"
#include "plan/almrecs.h"
#include "service/request.h"
#include "service/sll.h"
#include "util/stdfuncs.h"

namespace alm {

struct readerFile {
    readerFile() = default;
    ~readerFile();  // closes a session still held
    readerFile(const readerFile&) = delete;
    readerFile& operator=(const readerFile&) = delete;

    long handle = 0;
    // The path after qualification: room for the home, "/" and a path of
    // QUAL_PATH_MAX characters.
    char pathName[2 * QUAL_PATH_MAX + 2] = {};
    SH_RECTYPE sh_rec{};             // the header as delivered at open time
    alm_comarea* alm_ca = nullptr;  // owned; null once closed
    int opened = 0;
};

// The open plans in order of opening; null before the first open succeeds
// and again after readerCloseAllAlmanack. Values are readerFile*, owned here.
extern std::unique_ptr<sll> pListOfFiles;

// sh_alm_version of the most recently opened plan (0: the older layout); it
// chooses the width of workstation names (8 for 0, 16 otherwise).
extern short alm_version;
short alm_version_of_last_open();

// The open plan named by handle text (read as atol reads it), or nullptr.
readerFile* readerFindFile(const char* handle_text);

// Command 2: exactly one argument, the plan file path.
void readerOpenAlmanack(Request& req);
// Command 3: exactly one argument, the plan handle.
void readerCloseAlmanack(Request& req);
// Command 4: arguments ignored.
void readerGetAlmanackLogs(Request& req);
// Closes every plan still open; called once after the request loop ends.
void readerCloseAllAlmanack();

// Nine strings: code, error text, handle, yymmdd date, day start, this
// workstation, master workstation, job fence, plan version.
void readerOpenAlmanackReturn(std::uint32_t id, sll* items);
// 24 bytes: no body, every count zero.
void readerCloseAlmanackReturn(std::uint32_t id);
// One full path per item.
void readerGetAlmanackLogsReturn(std::uint32_t id, std::uint32_t count, sll* items);

}  // namespace alm
