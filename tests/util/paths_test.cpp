#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/tempdir.h"
#include "util/stdfuncs.h"
#include "util/sysutils.h"

namespace alm {
namespace {

namespace fs = std::filesystem;

// Saves and restores the qualification state and the process environment
// that the path functions read.
class PathsTest : public testing::Test {
protected:
    void SetUp() override {
        std::memcpy(savedHome_, QUAL_HOMEDIR, sizeof savedHome_);
        savedUse_ = UseQualHomedir;
        // The canonical form, so that getcwd() answers the same text.
        dir_ = fs::canonical(tmp_.path()).string();
        cwd_ = fs::current_path().string();
        for (const char* name : {"PATH", "COBALTHOME"}) {
            const char* v = std::getenv(name);
            env_.push_back({name, v ? std::optional<std::string>(v) : std::nullopt});
        }
    }
    void TearDown() override {
        std::memcpy(QUAL_HOMEDIR, savedHome_, sizeof savedHome_);
        UseQualHomedir = savedUse_;
        euid_dir[0] = '\0';
        for (const auto& [name, value] : env_) {
            if (value)
                ::setenv(name.c_str(), value->c_str(), 1);
            else
                ::unsetenv(name.c_str());
        }
        std::error_code ec;
        fs::current_path(cwd_, ec);  // out of dir_ before it goes
    }

    void setHome(const char* home) {
        std::snprintf(QUAL_HOMEDIR, sizeof QUAL_HOMEDIR, "%s", home);
        setUseQualHome(1);
    }

    // An executable file at dir_/rel.
    std::string makeProgram(const std::string& rel, unsigned mode = 0755) {
        const fs::path p = fs::path(dir_) / rel;
        fs::create_directories(p.parent_path());
        std::ofstream(p) << "#!/bin/sh\n";
        ::chmod(p.c_str(), mode);
        return p.string();
    }

    std::string dir_;

private:
    test::TempDir tmp_;
    char savedHome_[QUAL_PATH_MAX + 1];
    int savedUse_ = 0;
    std::string cwd_;
    std::vector<std::pair<std::string, std::optional<std::string>>> env_;
};

struct QualCase {
    std::string path;
    short limit;
    std::string result;
    short rc;
};

std::pair<std::string, short> qualify(const std::string& path, short limit) {
    std::vector<char> buf(4 * QUAL_PATH_MAX, '\0');
    std::memcpy(buf.data(), path.data(), path.size());
    const short rc = qual_filename(buf.data(), limit, buf.size());
    return {std::string(buf.data()), rc};
}

TEST_F(PathsTest, QualFilenameUnderTheHome) {
    setHome("/opt/x");
    for (const QualCase& tc : std::vector<QualCase>{
             {"schedlog/M@", 1024, "/opt/x/schedlog/M@", 18},
             {"plans/current  \t", 1024, "/opt/x/plans/current", 20},
             {"/abs/plan   ", 1024, "/abs/plan", 9},
             {"/abs", 1024, "/abs", 4},
             {"\\\\server\\share", 1024, "\\\\server\\share", 14},
             {"c:\\plans\\p", 1024, "c:\\plans\\p", 10},
             {"Z:/plans", 1024, "Z:/plans", 8},
             {"1:/plans", 1024, "/opt/x/1:/plans", 15},
             {"abcdefgh", 4, "/opt/x/abcd", 11},  // cut at the limit first
             {"", 1024, "/opt/x/", 7},
         }) {
        const auto [result, rc] = qualify(tc.path, tc.limit);
        EXPECT_EQ(result, tc.result) << tc.path;
        EXPECT_EQ(rc, tc.rc) << tc.path;
    }
}

TEST_F(PathsTest, HomeBranchDoesNotCheckTheLimitButNeverOverruns) {
    setHome("/opt/x");
    char buf[64] = "abcdefgh";
    // Limit 8 with room for the prefix: the result is longer than the limit.
    EXPECT_EQ(qual_filename(buf, 8, sizeof buf), 15);
    EXPECT_STREQ(buf, "/opt/x/abcdefgh");
    // The two-argument form takes the buffer to hold limit + 1 bytes.
    char small[9] = "abcdefgh";
    EXPECT_EQ(qual_filename(small, 8), -1);
    EXPECT_STREQ(small, "abcdefgh");
}

TEST_F(PathsTest, QualFilenameWithoutAPrefix) {
    setHome("/opt/x");
    setUseQualHome(0);
    EXPECT_EQ(qualify("plans/p ", 1024), std::make_pair(std::string("plans/p"), short{-2}));
    EXPECT_EQ(qualify("/plans/p ", 1024), std::make_pair(std::string("/plans/p"), short{8}));

    // An unknown home leaves relative paths relative.
    setHome("");
    EXPECT_EQ(qualify("plans/p", 1024), std::make_pair(std::string("plans/p"), short{-2}));
}

TEST_F(PathsTest, QualFilenameWithTheEffectiveUsersPrefix) {
    setUseQualHome(0);
    std::snprintf(euid_dir, sizeof euid_dir, "%s", "/home/u");
    EXPECT_EQ(qualify("p", 1024), std::make_pair(std::string("/home/u/p"), short{9}));
    // Checked against the limit, unlike the home branch.
    EXPECT_EQ(qualify("plan", 11), std::make_pair(std::string("plan"), short{-1}));
    EXPECT_EQ(qualify("pla", 11), std::make_pair(std::string("/home/u/pla"), short{11}));
}

TEST_F(PathsTest, Mkhomedir) {
    struct Case {
        const char* in;
        const char* out;
    };
    for (const Case& tc : std::vector<Case>{{"/opt/x/bin/almread", "/opt/x"},
                                            {"/bin/almread", ""},
                                            {"/almread", ""},
                                            {"a/b/c", "a"}}) {
        char buf[64];
        std::snprintf(buf, sizeof buf, "%s", tc.in);
        mkhomedir(buf);
        EXPECT_STREQ(buf, tc.out) << tc.in;
    }
}

TEST_F(PathsTest, ResolveLinks) {
    const std::string prog = makeProgram("real/bin/prog");
    const std::string plain = makeProgram("real/bin/data", 0644);
    fs::create_directories(dir_ + "/links");
    fs::create_symlink(prog, dir_ + "/links/abs");
    fs::create_symlink("../real/bin/prog", dir_ + "/links/rel");
    fs::create_symlink("rel", dir_ + "/links/chain");
    fs::create_symlink("loop", dir_ + "/links/loop");
    fs::create_symlink("missing", dir_ + "/links/dangling");
    fs::create_symlink(std::string(QUAL_PATH_MAX, 'x'), dir_ + "/links/long");  // a target too long to take
    fs::create_directories(dir_ + "/links/sub");
    fs::create_symlink("../abs", dir_ + "/links/sub/own");  // right only from its own directory
    // Relative targets are taken as written, from the current directory.
    fs::current_path(dir_ + "/links");

    struct Case {
        std::string path;
        int mode;
        bool ok;
        std::string after;  // empty: not checked
    };
    for (const Case& tc : std::vector<Case>{
             {prog, X_OK, true, prog},
             {plain, R_OK, true, plain},
             {plain, X_OK, false, ""},
             {dir_ + "/real", R_OK, false, ""},  // a directory
             {dir_ + "/links/abs", X_OK, true, prog},
             {dir_ + "/links/rel", X_OK, true, "../real/bin/prog"},
             {dir_ + "/links/chain", X_OK, true, "../real/bin/prog"},
             {dir_ + "/links/sub/own", X_OK, false, "../abs"},
             {dir_ + "/links/loop", R_OK, false, ""},
             {dir_ + "/links/dangling", R_OK, false, ""},
             {dir_ + "/links/long", R_OK, false, ""},
         }) {
        char buf[QUAL_PATH_MAX + 1];
        std::snprintf(buf, sizeof buf, "%s", tc.path.c_str());
        EXPECT_EQ(resolve_links(buf, tc.mode), tc.ok) << tc.path;
        if (!tc.after.empty()) {
            EXPECT_EQ(std::string(buf), tc.after) << tc.path;
        }
    }
}

TEST(Paths, AbsoluteStartsWithASlashRelativeHoldsOne) {
    EXPECT_TRUE(is_absolute_path("/a") && !is_absolute_path("a/b") && !is_absolute_path(""));
    EXPECT_TRUE(is_relative_path("a/b") && is_relative_path("/a") && !is_relative_path("ab"));
}

std::string homeOf(const char* progpath) {
    char home[QUAL_PATH_MAX + 1] = "stale";
    qual_file(progpath, home, sizeof home);
    return home;
}

// The absolute-path and PATH cases are run end to end by the server tests.
TEST_F(PathsTest, QualFileEnvironmentTakenAsItStands) {
    EXPECT_EQ(homeOf(nullptr), "");
    EXPECT_EQ(homeOf(""), "");
    ::setenv("COBALTHOME", "/from/env/", 1);
    EXPECT_EQ(homeOf("./almread"), "/from/env/");
    EXPECT_EQ(homeOf("bin/almread"), "/from/env/");
    EXPECT_EQ(homeOf("almread"), "/from/env/");
}

TEST_F(PathsTest, QualFileFromTheCurrentDirectory) {
    ::unsetenv("COBALTHOME");
    fs::create_directories(dir_ + "/home/bin");
    fs::current_path(dir_ + "/home/bin");
    EXPECT_EQ(homeOf("./almread"), dir_ + "/home");
    fs::current_path(dir_ + "/home");
    EXPECT_EQ(homeOf("bin/almread"), dir_ + "/home");
    EXPECT_EQ(homeOf("../home/bin/almread"), dir_ + "/home/../home");
}

TEST_F(PathsTest, QualFileAlongPath) {
    ::unsetenv("COBALTHOME");
    makeProgram("first/bin/almread", 0644);                 // not executable
    fs::create_directories(dir_ + "/dirs/bin/almread");     // not a file
    const std::string second = makeProgram("second/bin/almread");
    makeProgram("third/bin/almread");
    fs::create_directories(dir_ + "/nothing");

    const std::string path = dir_ + "/nothing::" + dir_ + "/first/bin:" + dir_ + "/dirs/bin:" +
                             dir_ + "/second/bin:" + dir_ + "/third/bin";
    ::setenv("PATH", path.c_str(), 1);
    fs::current_path(dir_);
    EXPECT_EQ(homeOf("almread"), dir_ + "/second");

    // Relative entries are taken from the current directory.
    ::setenv("PATH", "third/bin", 1);
    EXPECT_EQ(homeOf("almread"), dir_ + "/third");
    // "." and the empty entry name the current directory itself.
    fs::current_path(dir_ + "/second/bin");
    ::setenv("PATH", ".", 1);
    EXPECT_EQ(homeOf("almread"), dir_ + "/second");
    ::setenv("PATH", "/nonexistent:", 1);
    EXPECT_EQ(homeOf("almread"), dir_ + "/second");

    // A link along PATH leads to the real program's home.
    fs::create_directories(dir_ + "/links/bin");
    fs::create_symlink(second, dir_ + "/links/bin/almread");
    ::setenv("PATH", (dir_ + "/links/bin").c_str(), 1);
    EXPECT_EQ(homeOf("almread"), dir_ + "/second");

    // Nothing found: the home stays empty.
    ::setenv("PATH", (dir_ + "/nothing").c_str(), 1);
    EXPECT_EQ(homeOf("almread"), "");
    ::unsetenv("PATH");
    EXPECT_EQ(homeOf("almread"), "");
}

// A walk over p1 p2 p3 (q1 does not match) whose callbacks give their
// answer at p2 and pass every other line.
struct FindWalk {
    short qualify_at_p2, process_at_p2;
    std::string seen;
    static short answer(const char* line, short at_p2) {
        return std::string_view(line).ends_with("p2") ? at_p2 : short{0};
    }
    static short qualify(const char* line, void* w) {
        return answer(line, static_cast<FindWalk*>(w)->qualify_at_p2);
    }
    static short process(const char* line, void* w) {
        static_cast<FindWalk*>(w)->seen += line[std::strlen(line) - 1];
        return answer(line, static_cast<FindWalk*>(w)->process_at_p2);
    }
};

TEST(FindFiles, CallbackAnswersSkipOrStopTheWalk) {
    test::TempDir dir;
    for (const char* name : {"p1", "p2", "p3", "q1"}) std::ofstream(dir.file(name)) << "x";
    struct Case {
        short flags, qualify, process;
        int result;
        const char* seen;
    };
    const Case cases[] = {
        {0, 0, 0, 0, "123"}, {FIND_DESCENDING, 0, 0, 0, "321"}, {0, 1, 0, 0, "13"},
        {0, -1, 0, 0, "1"},  {0, 0, 1, -1, "12"},               {0, 0, -1, 0, "12"},
    };
    for (const Case& c : cases) {
        FindWalk walk{c.qualify, c.process, ""};
        EXPECT_EQ(uni_find_files(dir.file("p@").c_str(), nullptr, c.flags, &walk, FindWalk::qualify, FindWalk::process),
                  c.result);
        EXPECT_EQ(walk.seen, c.seen) << c.flags << " " << c.qualify << " " << c.process;
    }
}

}  // namespace
}  // namespace alm
