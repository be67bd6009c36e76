// End-to-end: the built almread over real pipes.
#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "client/almclient.h"
#include "common/tempdir.h"
#include "common/frames.h"

namespace alm {
namespace {

using test::header;
using test::nopReply;
using test::request;

constexpr int kWaitMs = 20000;
const std::string kServer = ALM_BUILD_DIR "/bin/almread";

#define ASSERT_OK(expr) ASSERT_EQ(clientStatusName(expr), std::string("Ok"))
#define EXPECT_OK(expr) EXPECT_EQ(clientStatusName(expr), std::string("Ok"))

void startGreeted(AlmClient& c, std::vector<std::string> argv = {}, const SpawnOptions& opts = {}) {
    ASSERT_OK(c.start(kServer, argv, opts));
    ASSERT_OK(c.readGreeting(kWaitMs));
}

// Closes the input, then expects exactly `rest` on the output and status.
void expectEnd(AlmClient& c, const std::string& rest, int status) {
    if (c.running()) c.closeInput();
    std::string out;
    EXPECT_OK(c.readAll(out, kWaitMs));
    EXPECT_EQ(out, rest);
    int code = -1000;
    ASSERT_OK(c.waitExit(code, kWaitMs));
    EXPECT_EQ(code, status);
}

std::string readRaw(AlmClient& c, std::size_t n) {
    std::string buf(n, '\0');
    std::size_t got = 0;
    c.readExact(buf.data(), n, kWaitMs, &got);
    buf.resize(got);
    return buf;
}

TEST(Server, NopReplyFollowsTheGreetingDirectly) {
    AlmClient c;
    ASSERT_OK(c.start(kServer));
    ASSERT_OK(c.send(0, 0x12345678, {}));
    const std::string bytes = readRaw(c, 13 + 24);
    EXPECT_EQ(bytes, "AlmRead Lives" + std::string("\0\0\0\x14\0\0\0\0\x12\x34\x56\x78", 12) +
                         std::string(12, '\0'));
    expectEnd(c, "", 0);
}

TEST(Server, PipelinedRequestsAreAnsweredInOrder) {
    AlmClient c;
    startGreeted(c);
    std::string batch;
    std::string expected;
    for (std::uint32_t id = 0; id < 2000; ++id) {
        batch += request(0, id * 7919, id % 3 ? std::vector<std::string>{"a", "bc"}
                                              : std::vector<std::string>{});
        expected += nopReply(id * 7919);
    }
    ASSERT_OK(c.sendRaw(batch));
    EXPECT_EQ(readRaw(c, expected.size()), expected);
    expectEnd(c, "", 0);
}

TEST(Server, ExitRequestEndsWithStatusZeroAndNoReply) {
    AlmClient c;
    startGreeted(c);
    // Input stays open: the server ends on its own.
    ASSERT_OK(c.sendRaw(request(1, 5, {}) + request(0, 6, {})));
    int code = -1000;
    ASSERT_OK(c.waitExit(code, kWaitMs));
    EXPECT_EQ(code, 0);
    std::string out;
    EXPECT_OK(c.readAll(out, kWaitMs));
    EXPECT_EQ(out, "");
}

TEST(Server, EndOfInputAtEveryPointOfAFrame) {
    const std::string frame = request(0, 9, {"plans/x", "y"});
    for (std::size_t cut = 0; cut <= frame.size(); ++cut) {
        AlmClient c;
        startGreeted(c);
        ASSERT_OK(c.sendRaw(request(0, 1, {}) + frame.substr(0, cut)));
        expectEnd(c, cut == frame.size() ? nopReply(1) + nopReply(9) : nopReply(1), 0);
    }
}

TEST(Server, UnknownCommandsAreIgnored) {
    AlmClient c;
    startGreeted(c);
    ASSERT_OK(c.sendRaw(request(9, 1, {}) + request(0xFFFFFFFF, 2, {"x"}) + request(0, 3, {})));
    Reply r;
    ASSERT_OK(c.readReply(r, kWaitMs));
    EXPECT_EQ(r.header.id, 3u);
    expectEnd(c, "", 0);
}

TEST(Server, WrongArgumentCountsGetNoReply) {
    struct Case {
        std::uint32_t type;
        std::vector<std::string> args;
    };
    const std::vector<Case> cases = {
        {2, {}}, {2, {"a", "b"}},                   // open: exactly 1
        {3, {}}, {3, {"1", "2"}},                   // close: exactly 1
        {5, {"1", "@"}}, {5, {"1", "@", "@", "@"}},  // schedules: exactly 3
        {6, {"1", "@", "@"}}, {6, {"1", "@", "@", "@", "@"}},
        {7, {"1", "@", "@"}}, {7, {"1", "@", "@", "@", "@"}},
        {8, {"1"}}, {8, {"1", "@", "@"}},           // workstations: exactly 2
    };
    AlmClient c;
    startGreeted(c);
    std::uint32_t id = 100;
    for (const Case& tc : cases) {
        ASSERT_OK(c.send(tc.type, id++, tc.args));
        ASSERT_OK(c.send(0, id, {}));
        Reply r;
        ASSERT_OK(c.readReply(r, kWaitMs));
        EXPECT_EQ(r.header.id, id) << "type " << tc.type << " with " << tc.args.size();
        ++id;
    }
    expectEnd(c, "", 0);
}

TEST(Server, SizeIsIgnoredWithoutArguments) {
    AlmClient c;
    startGreeted(c);
    ASSERT_OK(c.sendRaw(header(0, 0, 1, 0) + header(44, 0, 2, 0) + request(0, 3, {})));
    EXPECT_EQ(readRaw(c, 72), nopReply(1) + nopReply(2) + nopReply(3));
    expectEnd(c, "", 0);
}

TEST(Server, UnservableArgumentAreasEndTheProcess) {
    for (std::uint32_t size : {0u, 19u, 20u + (1u << 20) + 1u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        AlmClient c;
        startGreeted(c);
        // Input left open: the server must not wait for the area.
        ASSERT_OK(c.sendRaw(request(0, 1, {}) + header(size, 0, 2, 1)));
        int code = -1000;
        ASSERT_OK(c.waitExit(code, kWaitMs));
        EXPECT_EQ(code, 255) << size;
        std::string out;
        EXPECT_OK(c.readAll(out, kWaitMs));
        EXPECT_EQ(out, nopReply(1)) << size;
    }
}

TEST(Server, AMebibyteOfArgumentsIsServed) {
    AlmClient c;
    startGreeted(c);
    std::string area(1u << 20, 'p');
    area.back() = '\0';
    ASSERT_OK(c.sendRaw(header(20 + (1u << 20), 0, 7, 1) + area + request(0, 8, {})));
    EXPECT_EQ(readRaw(c, 48), nopReply(7) + nopReply(8));
    expectEnd(c, "", 0);
}

TEST(Server, ReadErrorOnInputEndsWithStatus255AndNoMessage) {
    // Reading a directory fails at once, on the first header word.
    const int dir = ::open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_GE(dir, 0);
    SpawnOptions opts;
    opts.stdinFd = dir;
    opts.captureStderr = true;
    AlmClient c;
    ASSERT_OK(c.start(kServer, {}, opts));
    ::close(dir);
    std::string out, err;
    EXPECT_OK(c.readAll(out, kWaitMs));
    EXPECT_OK(c.readStderr(err, kWaitMs));
    EXPECT_EQ(out, "AlmRead Lives");
    EXPECT_EQ(err, "");
    int code = -1000;
    ASSERT_OK(c.waitExit(code, kWaitMs));
    EXPECT_EQ(code, 255);
}

TEST(Server, VanishedReaderDoesNotKillTheServer) {
    AlmClient c;
    startGreeted(c);
    ASSERT_OK(c.closeOutput());
    std::string many;
    for (int i = 0; i < 5000; ++i) many += request(0, static_cast<std::uint32_t>(i), {});
    ASSERT_OK(c.sendRaw(many));
    ASSERT_OK(c.closeInput());
    int code = -1000;
    ASSERT_OK(c.waitExit(code, kWaitMs));
    EXPECT_EQ(code, 0);
}

// The home shows in the archived-plan listing: HOME/schedlog/M... paths.
TEST(CommandLine, HomeFollowsTheProgramPath) {
    const test::TempDir home;
    ASSERT_FALSE(home.path().empty());
    const std::string bin = home.path() + "/bin";
    std::filesystem::create_directories(bin);
    std::filesystem::copy_file(kServer, bin + "/almread");
    for (const char* name : {"M9901010600", "M9901020600", "x"}) home.write(std::string("schedlog/") + name, "");

    const test::TempDir other;  // a second home, named by COBALTHOME
    ASSERT_FALSE(other.path().empty());
    other.write("schedlog/M9912310600", "");

    const std::vector<std::string> inHome = {home.path() + "/schedlog/M9901020600",
                                             home.path() + "/schedlog/M9901010600"};
    const std::vector<std::string> inOther = {other.path() + "/schedlog/M9912310600"};
    // A link on PATH whose relative target is right from links/ but not from
    // its own directory: it is taken as written, from the working directory.
    std::filesystem::create_directories(home.path() + "/links/deep");
    std::filesystem::create_symlink("../bin/almread", home.path() + "/links/deep/almread");
    const std::string viaLinks = home.path() + "/links/..";
    const std::vector<std::string> inLinks = {viaLinks + "/schedlog/M9901020600", viaLinks + "/schedlog/M9901010600"};
    struct Case {
        const char* what;
        std::string argv0;
        std::string workDir;
        std::vector<std::string> env;
        std::vector<std::string> unset;
        std::vector<std::string> listing;
    };
    const std::vector<Case> cases = {
        {"absolute path wins over COBALTHOME", bin + "/almread", "/",
         {"COBALTHOME=" + other.path()}, {}, inHome},
        {"COBALTHOME for a relative path", "./almread", bin, {"COBALTHOME=" + other.path()}, {},
         inOther},
        {"./ start", "./almread", bin, {}, {"COBALTHOME"}, inHome},
        {"relative dir/prog", "bin/almread", home.path(), {}, {"COBALTHOME"}, inHome},
        {"found along PATH", "almread", "/", {"PATH=/nonexistent:" + bin}, {"COBALTHOME"}, inHome},
        {"not found: no home", "almread", "/", {"PATH=/nonexistent"}, {"COBALTHOME"}, {}},
        {"relative link on PATH, from the working directory", "almread", home.path() + "/links",
         {"PATH=" + home.path() + "/links/deep"}, {"COBALTHOME"}, inLinks},
        {"relative link on PATH, from elsewhere: no home", "almread", "/",
         {"PATH=" + home.path() + "/links/deep"}, {"COBALTHOME"}, {}},
    };
    for (const Case& tc : cases) {
        SpawnOptions opts;
        opts.workDir = tc.workDir;
        opts.extraEnv = tc.env;
        opts.unsetEnv = tc.unset;
        AlmClient c;
        ASSERT_OK(c.start(bin + "/almread", {tc.argv0}, opts));
        ASSERT_OK(c.readGreeting(kWaitMs));
        ASSERT_OK(c.send(4, 1, {}));
        Reply r;
        ASSERT_OK(c.readReply(r, kWaitMs));
        EXPECT_EQ(r.strings(), tc.listing) << tc.what;
        EXPECT_EQ(r.header.numData, tc.listing.size()) << tc.what;
        expectEnd(c, "", 0);
    }
}

}  // namespace
}  // namespace alm
