#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "common/tempdir.h"
#include "util/sysutils.h"

namespace alm {
namespace {

using test::TempDir;

struct Collected {
    std::vector<std::string> lines;
    short stop_after = 0;  // process returns `stop_code` once this many lines arrived
    short stop_code = 0;
};

short collect(const char* line, void* ud) {
    auto* c = static_cast<Collected*>(ud);
    c->lines.emplace_back(line);
    if (c->stop_after != 0 && c->lines.size() == static_cast<std::size_t>(c->stop_after))
        return c->stop_code;
    return 0;
}

std::vector<std::string> find(const std::string& fileset, short flags, int* rc = nullptr) {
    Collected c;
    int count = 42;
    int r = uni_find_files(fileset.c_str(), &count, flags, &c, nullptr, collect);
    EXPECT_EQ(count, 0);
    if (rc != nullptr) *rc = r;
    return c.lines;
}

int open_fd_count() {
    int n = 0;
    if (DIR* d = opendir("/proc/self/fd")) {
        while (readdir(d) != nullptr) ++n;
        closedir(d);
    }
    return n;
}

TEST(Finder, OrderAndSelection) {
    TempDir d;
    for (const char* n : {"M9901010600", "M9902010600", "M9901020600", "Ma", "M", "m9901010600",
                          "x9901010600", "AM9901010600", "M\xc3\xa9t"})
        d.write(n, "");
    mkdir((d.path() + "/Mdir").c_str(), 0755);
    const std::string p = d.path() + "/";

    struct Case {
        short flags;
        std::vector<std::string> names;
    } cases[] = {
        {FIND_DESCENDING,
         {"M\xc3\xa9t", "Mdir", "Ma", "M9902010600", "M9901020600", "M9901010600", "M"}},
        {FIND_DESCENDING | FIND_KEEP_IDS,
         {"M\xc3\xa9t", "Mdir", "Ma", "M9902010600", "M9901020600", "M9901010600", "M"}},
        {0, {"M", "M9901010600", "M9901020600", "M9902010600", "Ma", "Mdir", "M\xc3\xa9t"}},
    };
    for (const auto& c : cases) {
        int rc = -7;
        auto got = find(p + "M@", c.flags, &rc);
        EXPECT_EQ(rc, 0);
        std::vector<std::string> want;
        for (const auto& n : c.names) want.push_back(p + n);
        EXPECT_EQ(got, want) << "flags " << c.flags;
    }
}

TEST(Finder, DotEntriesOnlyMatchAWildPattern) {
    TempDir d;
    d.write("Mx", "");
    auto lettered = find(d.path() + "/M@", FIND_DESCENDING);
    EXPECT_EQ(lettered, std::vector<std::string>{d.path() + "/Mx"});
    auto all = find(d.path() + "/@", 0);
    std::vector<std::string> want{d.path() + "/.", d.path() + "/..", d.path() + "/Mx"};
    EXPECT_EQ(all, want);
}

TEST(Finder, RootDirectoryGetsNoSecondSlash) {
    auto got = find("/tm@", 0);
    EXPECT_NE(std::find(got.begin(), got.end(), "/tmp"), got.end());
    for (const auto& g : got) EXPECT_NE(g.substr(0, 2), "//") << g;
}

TEST(Finder, MissingOrUnreadableDirectoryListsNothing) {
    int rc = -7;
    EXPECT_TRUE(find("/nonexistent/almfinder/M@", FIND_DESCENDING, &rc).empty());
    EXPECT_EQ(rc, 0);
    TempDir d;
    d.write("Mfile", "");
    // A file, not a directory, as the directory part.
    EXPECT_TRUE(find(d.path() + "/Mfile/M@", 0, &rc).empty());
    EXPECT_EQ(rc, 0);
}

TEST(Finder, CapsAtMaximumAndSurvivesAFullPipe) {
    TempDir d;
    // Long names so that the child writes far more than a pipe holds.
    const std::string pad(180, 'p');
    std::vector<std::string> created;
    for (int i = 0; i < 1500; ++i) {
        char num[16];
        std::snprintf(num, sizeof num, "%05d", i);
        std::string name = std::string("M") + num + pad;
        d.write(name, "");
        created.push_back(d.path() + "/" + name);
    }
    d.write("other", "");
    std::sort(created.begin(), created.end());

    auto got = find(d.path() + "/M@", FIND_DESCENDING);
    ASSERT_EQ(got.size(), static_cast<std::size_t>(FIND_MAX_MATCHES));
    EXPECT_TRUE(std::is_sorted(got.begin(), got.end(), std::greater<>()));
    EXPECT_EQ(std::adjacent_find(got.begin(), got.end()), got.end());
    for (const auto& g : got)
        EXPECT_TRUE(std::binary_search(created.begin(), created.end(), g)) << g;
}

TEST(Finder, CallbackProtocol) {
    TempDir d;
    for (const char* n : {"M1", "M2", "M3", "M4"}) d.write(n, "");
    const std::string fs = d.path() + "/M@";

    // qualify: skip even names.
    {
        Collected c;
        int count = 9;
        auto skip_even = [](const char* line, void*) -> short {
            return static_cast<short>(line[std::strlen(line) - 1] % 2 == 0 ? 1 : 0);
        };
        EXPECT_EQ(uni_find_files(fs.c_str(), &count, 0, &c, skip_even, collect), 0);
        EXPECT_EQ(count, 0);
        EXPECT_EQ(c.lines, (std::vector<std::string>{d.path() + "/M1", d.path() + "/M3"}));
    }
    // qualify -1 stops at once, before process sees anything.
    {
        Collected c;
        int count = 0;
        auto refuse = [](const char*, void*) -> short { return -1; };
        EXPECT_EQ(uni_find_files(fs.c_str(), &count, 0, &c, refuse, collect), 0);
        EXPECT_TRUE(c.lines.empty());
    }
    struct {
        short stop_after, stop_code;
        int want_rc;
        std::size_t want_lines;
    } cases[] = {
        {2, 1, -1, 2},   // normal stop with no error number pending: -1
        {2, 7, -1, 2},
        {1, -1, 0, 1},   // error stop
        {4, -1, 0, 4},   // error stop on the last line
    };
    for (const auto& k : cases) {
        Collected c;
        c.stop_after = k.stop_after;
        c.stop_code = k.stop_code;
        int count = 0;
        EXPECT_EQ(uni_find_files(fs.c_str(), &count, 0, &c, nullptr, collect), k.want_rc)
            << k.stop_after << "/" << k.stop_code;
        EXPECT_EQ(c.lines.size(), k.want_lines);
    }
}

TEST(Finder, LeavesNoDescriptorsOrChildrenBehind) {
    TempDir d;
    for (int i = 0; i < 50; ++i) d.write("M" + std::to_string(i), "");
    const std::string fs = d.path() + "/M@";
    const int before = open_fd_count();
    for (int i = 0; i < 20; ++i) {
        Collected c;
        c.stop_after = static_cast<short>(i % 3 == 0 ? 1 : 0);  // some stop early
        c.stop_code = 1;
        int count = 0;
        uni_find_files(fs.c_str(), &count, FIND_DESCENDING, &c, nullptr, collect);
    }
    EXPECT_EQ(open_fd_count(), before);
    errno = 0;
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST(Finder, ChildReportsCleanExit) {
    TempDir d;
    d.write("Mone", "");
    FindPipe p;
    ASSERT_EQ(xeq_lscmd_caught_setuid(p, d.path().c_str(), (d.path() + "/M@").c_str(), false, true),
              0);
    ASSERT_NE(p.stream, nullptr);
    EXPECT_GT(p.pid, 0);
    char buf[FIND_LINE_MAX];
    ASSERT_NE(std::fgets(buf, sizeof buf, p.stream), nullptr);
    EXPECT_EQ(std::string(buf), d.path() + "/Mone\n");
    int status = xeq_closepipe(p);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(p.stream, nullptr);
    EXPECT_EQ(xeq_closepipe(p), -1);  // nothing left to close
}

// The listing child drops to the real identities unless asked to keep them.
// A forked process with real ids "nobody" and effective ids root lists a
// root-only directory only when it keeps its identities.
TEST(Finder, DropsToRealIdentities) {
    if (geteuid() != 0) GTEST_SKIP() << "needs root";
    TempDir d;
    ASSERT_EQ(chmod(d.path().c_str(), 0700), 0);
    d.write("Msecret", "");
    const std::string fs = d.path() + "/M@";

    pid_t pid = fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
        if (setresgid(65534, 0, 0) != 0 || setresuid(65534, 0, 0) != 0) _exit(10);
        if (getuid() != 65534 || geteuid() != 0) _exit(11);
        Collected kept, dropped;
        int count = 0;
        uni_find_files(fs.c_str(), &count, FIND_KEEP_IDS, &kept, nullptr, collect);
        uni_find_files(fs.c_str(), &count, 0, &dropped, nullptr, collect);
        if (kept.lines != std::vector<std::string>{d.path() + "/Msecret"}) _exit(12);
        if (!dropped.lines.empty()) _exit(13);
        // The caller's own identities are untouched by the child's drop.
        if (getuid() != 65534 || geteuid() != 0) _exit(14);
        _exit(0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(pid, &status, 0), pid);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);

    // Without a difference between real and effective ids the drop is harmless.
    EXPECT_EQ(find(fs, 0), std::vector<std::string>{d.path() + "/Msecret"});
}

}  // namespace
}  // namespace alm
