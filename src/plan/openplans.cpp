// The plans this process has open, by handle.
#include "plan/openplans.h"

#include <sys/stat.h>

#include <climits>
#include <cstdlib>
#include <map>

namespace alm {

short alm_version = 0;

namespace {

// By handle, which is also the order of opening.
std::map<long, std::unique_ptr<readerFile>> openFiles;
long nextHandle = 1;

constexpr int ERRTEXT_MAX = 256;

// Closes the plan through the library; its error report is not wanted.
void closePlan(readerFile& rf) {
    if (rf.alm_ca == nullptr) return;
    int errType = 0;
    char msg[ERRTEXT_MAX + 1] = {};
    alm_close(&rf.alm_ca, 0, &errType, msg, sizeof msg);
    rf.alm_ca = nullptr;
}

// fcntl locks belong to the process, not to the descriptor: closing one
// session drops the presence lock of every other session this process has
// on the same file. Deliberately, those sessions take theirs again, so the
// scheduler still sees a reader while any of them is open.
void retakePresenceLocks(const struct stat& closed) {
    for (auto& [handle, rf] : openFiles) {
        if (!rf->opened || rf->alm_ca == nullptr) continue;
        struct stat st {};
        if (::fstat(rf->alm_ca->fnum, &st) != 0 || st.st_dev != closed.st_dev || st.st_ino != closed.st_ino)
            continue;
        alm_lock(rf->alm_ca, ALM_LOCK_READER, 0);
    }
}

}  // namespace

readerFile::~readerFile() { closePlan(*this); }

bool openPlanHandlesLeft() { return nextHandle < INT_MAX; }

readerFile* addOpenPlan(std::unique_ptr<readerFile> rf) {
    rf->handle = nextHandle++;
    readerFile* record = rf.get();
    openFiles.emplace(record->handle, std::move(rf));
    return record;
}

readerFile* readerFindFile(const char* handle_text) {
    if (handle_text == nullptr) return nullptr;
    // atol's reading, without its undefined overflow.
    const long handle = std::strtol(handle_text, nullptr, 10);
    auto it = openFiles.find(handle);
    return it == openFiles.end() ? nullptr : it->second.get();
}

alm_comarea* openPlanSession(const char* handle_text) {
    const readerFile* file = readerFindFile(handle_text);
    return file && file->opened ? file->alm_ca : nullptr;
}

void closeOpenPlan(readerFile* rf) {
    struct stat closed {};
    const bool shared = rf->opened && rf->alm_ca != nullptr && ::fstat(rf->alm_ca->fnum, &closed) == 0;
    if (rf->opened) closePlan(*rf);
    openFiles.erase(rf->handle);
    if (shared) retakePresenceLocks(closed);
}

void closeAllOpenPlans() {
    for (auto& [handle, rf] : openFiles)
        if (rf->opened) closePlan(*rf);
    openFiles.clear();
}

}  // namespace alm
