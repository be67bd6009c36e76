// A scratch installation for end-to-end tests: a home holding bin/almread
// (a copy, so that the server finds this home), the compiled catalogs,
// plans/ and schedlog/; and a separate process that inspects the locks on
// a file.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "client/almclient.h"
#include "common/tempdir.h"

namespace alm::filestest {

inline constexpr int kWaitMs = 20000;

class TempHome {
public:
    TempHome();

    bool ok() const { return ok_; }
    const std::string& path() const { return dir_.path(); }
    std::string file(const std::string& rel) const { return dir_.file(rel); }
    std::string server() const { return file("bin/almread"); }
    // Creates an empty file (and no directories).
    bool touch(const std::string& rel) const;

private:
    test::TempDir dir_;
    bool ok_ = false;
};

// The text of message `number` of set `set` in a catalog source, with its
// "!N" inserts replaced by args[N-1]; empty when not found.
std::string catalogText(const std::string& source, int set, int number,
                        const std::vector<std::string>& args);

struct LockInfo {
    short type = -1;  // F_UNLCK when nothing conflicts; -1 when the probe failed
    pid_t pid = 0;
};

// Asks, from a separate process, which lock would block a write lock on
// [start, start + length) of the file.
LockInfo probeLock(const std::string& path, off_t start, off_t length);

// Starts the server of `home` and reads its greeting.
bool startServer(AlmClient& client, const TempHome& home, const SpawnOptions& options = {});

}  // namespace alm::filestest
