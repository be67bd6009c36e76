// A scheduler home for almq tests: HOME/bin holds copies of the built almq
// and almread (so almq finds its server beside itself, as when installed),
// HOME/catalog/C the built catalogs; plans are written by almplan.
#pragma once

#include <string>
#include <vector>

#include "common/runprogram.h"
#include "common/tempdir.h"

namespace alm::almqtest {

// A fixed zone for every program a test runs, so local times are known.
inline constexpr const char* kTestZone = "EST5EDT,M3.2.0,M11.1.0";

using test::RunResult;

class AlmqHome {
public:
    explicit AlmqHome(std::string zone = kTestZone);

    bool ok() const { return ok_; }
    const std::string& path() const { return dir_.path(); }
    std::string file(const std::string& rel) const { return dir_.file(rel); }
    std::string almq() const { return file("bin/almq"); }
    std::string server() const { return file("bin/almread"); }

    // almplan build [--v1] DESC HOME/rel
    bool buildPlan(const std::string& desc, const std::string& rel, bool v1 = false) const;
    // The same from description text.
    bool buildPlanText(const std::string& text, const std::string& rel) const;

    // almplan synth: N workstations, M schedules each, K jobs each.
    bool synthPlan(int cpus, int scheds, int jobs, bool deps, const std::string& rel) const;
    // A server whose output breaks off after the given number of bytes, as
    // if it died there: a script that runs the home's almread and passes
    // on only that much of what it writes. Answers its path.
    std::string cutServer(std::size_t bytes) const;

    // Runs HOME/bin/almq with args (no standard input), in workDir if given.
    RunResult runAlmq(const std::vector<std::string>& args, const std::string& workDir = "") const;
    RunResult run(const std::string& program, const std::vector<std::string>& args,
                  const std::string& workDir = "") const;

private:
    test::TempDir dir_;
    std::string zone_;
    bool ok_ = false;
};

// The home shared by a test program: the sample plan as HOME/Almanack, two
// archived plans HOME/schedlog/M2611210600 and M2611220600.
const AlmqHome& sample_home();

inline const std::string kSampleDesc = ALM_SOURCE_DIR "/examples/sample.plan.txt";

}  // namespace alm::almqtest
