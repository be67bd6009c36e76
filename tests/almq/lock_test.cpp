// A plan that another process holds locked: almq names the holder, or with
// --wait opens the plan once the holder lets go.
#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "common/child_process.h"
#include "common/installhome.h"
#include "common/runprogram.h"
#include "common/tempdir.h"

namespace alm::test {
namespace {

TEST(AlmqLock, NamesTheHolderOrWaitsForIt) {
    const TempDir home;
    ASSERT_TRUE(install_home(home.path(), {"almq", "almread"}));
    const std::string plan = home.file("Almanack");
    ASSERT_EQ(build_plan(ALM_SOURCE_DIR "/examples/sample.plan.txt", plan).status, 0);
    HoldingChild holder([&plan] {
        const int fd = ::open(plan.c_str(), O_RDWR);
        struct flock whole {};
        whole.l_type = F_WRLCK;
        whole.l_whence = SEEK_SET;
        return fd >= 0 && ::fcntl(fd, F_SETLK, &whole) == 0 ? static_cast<int>(::getpid()) : -1;
    });
    ASSERT_GT(holder.report(), 0);
    const std::string almq = home.file("bin/almq");
    const std::string says = "almq: cannot open plan " + plan + ": the plan file " + plan +
                             " is locked by process " + std::to_string(holder.report());
    const RunResult now = run_program(almq, {"--plan", plan, "info"});
    EXPECT_EQ(now.status, 3);
    EXPECT_EQ(now.err, says + " [QFR20720002]\n");
    const RunResult waited = run_program(almq, {"--plan", plan, "--wait", "1", "info"});
    EXPECT_EQ(waited.status, 3);
    EXPECT_EQ(waited.err, says + " (waited 1 s) [QFR20720002]\n");
    holder.release_after(300);
    const RunResult later = run_program(almq, {"--plan", plan, "--wait", "30", "info"});
    EXPECT_EQ(later.status, 0) << later.err;
    EXPECT_NE(later.out.find("plan date"), std::string::npos);
}

}  // namespace
}  // namespace alm::test
