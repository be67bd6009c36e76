// The plans this process has open, each named by a handle: a small positive
// number, unique for the life of the process (never reused), which the
// client gets as decimal text and gives back to query or close the plan.
// Handles that name no open plan are found by nobody.
#pragma once

#include <memory>

#include "plan/almaccs.h"
#include "plan/almrecs.h"
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

// sh_alm_version of the most recently opened plan (0: the older layout); it
// chooses the width of workstation names (8 for 0, 16 otherwise).
extern short alm_version;

// False once every handle has been given out.
bool openPlanHandlesLeft();
// Keeps rf, which holds an open session, under the next handle and returns it.
readerFile* addOpenPlan(std::unique_ptr<readerFile> rf);
// The open plan named by handle text (read as atol reads it), or nullptr.
readerFile* readerFindFile(const char* handle_text);
// The session of the open plan named by handle text, or null.
alm_comarea* openPlanSession(const char* handle_text);
// Closes the plan's session and forgets it; rf is gone afterwards.
void closeOpenPlan(readerFile* rf);
// Closes and forgets every open plan.
void closeAllOpenPlans();

}  // namespace alm
