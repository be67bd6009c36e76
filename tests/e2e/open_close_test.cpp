// End-to-end: opening and closing plans through the built almread.
#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "client/almclient.h"
#include "common/child_process.h"
#include "common/files.h"
#include "common/frames.h"
#include "common/runprogram.h"
#include "e2e/home.h"

namespace alm::filestest {
namespace {

#define ASSERT_OK(expr) ASSERT_EQ(clientStatusName(expr), std::string("Ok"))
#define EXPECT_OK(expr) EXPECT_EQ(clientStatusName(expr), std::string("Ok"))

const std::string kCatalog = ALM_SOURCE_DIR "/catalog/C/kestrel.msg";
constexpr int kPlanMsgSet = 72;  // set 2072 of the scheduler's catalog

std::string v2Description(const std::string& fence = "12") {
    return "header\n"
           "set sh_cpu_id THISCPU\n"
           "set sh_mast_cpu \"MASTER-OF-ALL-16\"\n"
           "set sh_sched_date 2026-11-22\n"
           "set sh_day_start 600\n"
           "set sh_job_fence " + fence + "\n"
           "workstation THISCPU\n"
           "workstation MASTER-OF-ALL-16\n";
}

// Sends a request and reads its reply.
std::vector<std::string> ask(AlmClient& c, std::uint32_t type, std::uint32_t id,
                             const std::vector<std::string>& args, FrameHeader* header = nullptr) {
    EXPECT_OK(c.send(type, id, args));
    Reply r;
    EXPECT_OK(c.readReply(r, kWaitMs));
    EXPECT_EQ(r.header.id, id);
    EXPECT_EQ(r.header.type, 0u);
    if (header != nullptr) *header = r.header;
    return r.strings();
}

std::vector<std::string> openPlan(AlmClient& c, const std::string& path, std::uint32_t id = 7) {
    FrameHeader h;
    auto items = ask(c, 2, id, {path}, &h);
    EXPECT_EQ(h.numData, 9u);
    EXPECT_EQ(h.dataType, 0u);
    EXPECT_EQ(items.size(), 9u);
    items.resize(9);
    return items;
}

// Expects the next reply to answer a no-operation request with this id,
// proving that nothing was written for the requests sent before it.
void expectNopNext(AlmClient& c, std::uint32_t id) {
    ASSERT_OK(c.send(0, id, {}));
    Reply r;
    ASSERT_OK(c.readReply(r, kWaitMs));
    EXPECT_EQ(r.header.id, id);
    EXPECT_EQ(r.header.size, 20u);
    EXPECT_EQ(r.header.numData, 0u);
}

void expectCleanEnd(AlmClient& c) {
    ASSERT_OK(c.closeInput());
    std::string rest;
    EXPECT_OK(c.readAll(rest, kWaitMs));
    EXPECT_EQ(rest.size(), 0u);
    int code = -1000;
    ASSERT_OK(c.waitExit(code, kWaitMs));
    EXPECT_EQ(code, 0);
}

bool isHandle(const std::string& s) {
    if (s.empty() || s[0] == '0') return false;
    for (char ch : s)
        if (ch < '0' || ch > '9') return false;
    return s.size() <= 10;
}

class Files : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(home_.ok());
        plan_ = home_.file("plans/current");
        test::make_plan(plan_, v2Description());
        ASSERT_TRUE(startServer(client_, home_));
    }
    TempHome home_;
    std::string plan_;
    AlmClient client_;
};

TEST_F(Files, FenceIsCutToFourCharacterField) {
    const struct {
        const char* fence;
        const char* shown;
    } cases[] = {{"0", "0"}, {"999", "999"}, {"1234", "123"}, {"-99", "-99"},
                 {"-123", "-12"}, {"32767", "327"}};
    int n = 0;
    for (const auto& k : cases) {
        const std::string p = home_.file("plans/fence" + std::to_string(n++));
        test::make_plan(p, v2Description(k.fence));
        EXPECT_EQ(openPlan(client_, p)[7], k.shown) << k.fence;
    }
    expectCleanEnd(client_);
}

TEST_F(Files, LockedFileAnswersCode2AndOpensOnceReleased) {
    {
        // Another process holds a write lock on the whole file.
        test::HoldingChild holder([&] {
            const int fd = ::open(plan_.c_str(), O_RDWR);
            struct flock fl {};
            fl.l_type = F_WRLCK;
            fl.l_whence = SEEK_SET;
            return fd >= 0 && ::fcntl(fd, F_SETLK, &fl) == 0 ? 1 : 0;
        });
        ASSERT_EQ(holder.report(), 1);
        auto items = openPlan(client_, plan_);
        EXPECT_EQ(items[0], "2");
        const std::string text = catalogText(kCatalog, kPlanMsgSet, 2, {plan_, "", "", "", ""});
        const std::string head = text.substr(0, text.find(" at record"));
        ASSERT_FALSE(head.empty());
        EXPECT_NE(items[1].find(head), std::string::npos) << items[1];
        EXPECT_EQ(std::vector<std::string>(items.begin() + 2, items.end()),
                  (std::vector<std::string>{"0", "0", "0", "", "", "0", "0"}));
    }
    auto items = openPlan(client_, plan_);
    EXPECT_EQ(items[0], "0");
    EXPECT_TRUE(isHandle(items[2]));
    expectCleanEnd(client_);
}

TEST_F(Files, RelativePathsAreTakenUnderTheHome) {
    // The server's working directory holds a plans/ of its own; relative
    // paths must not see it.
    TempHome elsewhere;
    ASSERT_TRUE(elsewhere.ok());
    test::make_plan(elsewhere.file("plans/onlyhere"), v2Description());
    AlmClient c;
    SpawnOptions opts;
    opts.workDir = elsewhere.path();
    ASSERT_TRUE(startServer(c, home_, opts));

    auto items = openPlan(c, "plans/current");
    EXPECT_EQ(items[0], "0");
    EXPECT_EQ(items[5], "THISCPU");
    items = openPlan(c, "plans/onlyhere");
    EXPECT_EQ(items[0], "35");
    EXPECT_NE(items[1].find(home_.file("plans/onlyhere")), std::string::npos) << items[1];
    // Trailing blanks are dropped before the path is used.
    EXPECT_EQ(openPlan(c, "plans/current  ")[0], "0");
    // An absolute path is used as it stands.
    EXPECT_EQ(openPlan(c, elsewhere.file("plans/onlyhere"))[0], "0");
    expectCleanEnd(c);
    expectCleanEnd(client_);
}

TEST_F(Files, TwoOpensOfOneFileGiveTwoHandles) {
    const auto a = openPlan(client_, plan_, 1);
    const auto b = openPlan(client_, plan_, 2);
    ASSERT_EQ(a[0], "0");
    ASSERT_EQ(b[0], "0");
    EXPECT_NE(a[2], b[2]);
    // Closing one leaves the other open, its presence lock still held.
    EXPECT_EQ(ask(client_, 3, 3, {a[2]}).size(), 0u);
    const LockInfo held = probeLock(plan_, 0, 1);
    EXPECT_EQ(held.type, F_RDLCK);
    EXPECT_EQ(held.pid, client_.pid());
    FrameHeader h;
    ask(client_, 8, 4, {b[2], "@"}, &h);
    EXPECT_EQ(h.numData, 2u);
    EXPECT_EQ(ask(client_, 3, 5, {b[2]}).size(), 0u);
    EXPECT_EQ(probeLock(plan_, 0, 1).type, F_UNLCK);
    expectCleanEnd(client_);
}

TEST_F(Files, CloseReplyIsExactly24Bytes) {
    const auto handle = openPlan(client_, plan_)[2];
    ASSERT_OK(client_.send(3, 0x01020304, {handle}));
    std::string bytes(24, '\xff');
    std::size_t got = 0;
    ASSERT_OK(client_.readExact(bytes.data(), bytes.size(), kWaitMs, &got));
    EXPECT_EQ(bytes, std::string("\0\0\0\x14\0\0\0\0\x01\x02\x03\x04", 12) + std::string(12, '\0'));
    expectNopNext(client_, 99);
    expectCleanEnd(client_);
}

TEST_F(Files, CloseOfAHandleThatNamesNoPlanGetsNoReply) {
    const auto handle = openPlan(client_, plan_)[2];
    const long h = std::stol(handle);
    for (const std::string& bad : {std::string("0"), std::string(""), std::string("abc"),
                                   std::string("-1"), std::to_string(h + 1),
                                   std::string("99999999999999999999999"), std::string(" ")}) {
        ASSERT_OK(client_.send(3, 50, {bad}));
    }
    expectNopNext(client_, 51);
    // The handle is read as atol reads it: blanks, a sign, trailing rubbish.
    EXPECT_EQ(ask(client_, 3, 52, {"  +" + handle + "xyz"}).size(), 0u);
    ASSERT_OK(client_.send(3, 53, {handle}));  // already closed
    expectNopNext(client_, 54);
    expectCleanEnd(client_);
}

TEST_F(Files, HandlesAreNeverReused) {
    std::vector<std::string> seen;
    for (int i = 0; i < 5; ++i) {
        const auto handle = openPlan(client_, plan_)[2];
        ASSERT_TRUE(isHandle(handle));
        for (const auto& s : seen) EXPECT_NE(s, handle);
        seen.push_back(handle);
        EXPECT_EQ(ask(client_, 3, 60, {handle}).size(), 0u);
    }
    // A failed open consumes nothing and hands out nothing.
    EXPECT_EQ(openPlan(client_, home_.file("plans/nothere"))[2], "0");
    ASSERT_OK(client_.send(3, 61, {seen.front()}));
    expectNopNext(client_, 62);
    expectCleanEnd(client_);
}

TEST_F(Files, PathsLongerThan1024CharactersGetNoReply) {
    std::string path = "/";
    while (path.size() < 1024) path += std::string(99, 'd') + "/";
    path.resize(1024);
    ASSERT_OK(client_.send(2, 70, {path + "x"}));
    expectNopNext(client_, 71);
    // Exactly 1024 is still served.
    const auto items = openPlan(client_, path, 72);
    EXPECT_EQ(items[0], "35");
    EXPECT_EQ(items[2], "0");
    expectCleanEnd(client_);
}

TEST_F(Files, PlansStillOpenAtEndOfInputAreClosed) {
    const std::string other = home_.file("plans/other");
    test::make_plan(other, v2Description());
    ASSERT_EQ(openPlan(client_, plan_)[0], "0");
    ASSERT_EQ(openPlan(client_, other)[0], "0");
    ASSERT_EQ(openPlan(client_, plan_)[0], "0");
    EXPECT_EQ(probeLock(plan_, 0, 1).pid, client_.pid());
    EXPECT_EQ(probeLock(other, 0, 1).pid, client_.pid());
    expectCleanEnd(client_);
    EXPECT_EQ(probeLock(plan_, 0, 1).type, F_UNLCK);
    EXPECT_EQ(probeLock(other, 0, 1).type, F_UNLCK);
}

// A plan cut short by another process in the middle of a long listing: the
// listing still sends as many whole records as its header announced, those
// past the cut as zeros, and the framing stays whole for the next request.
TEST(CutPlan, LongListingsStayWhole) {
    struct Case {
        std::uint32_t type;
        std::vector<std::string> patterns;
        std::vector<std::string> synth;  // almplan synth options
        std::uint32_t count;
        char code;  // first byte of each record sent whole
    };
    const Case cases[] = {
        {6, {"@", "@", "@"}, {"--cpus", "1", "--scheds", "10", "--jobs", "2000"}, 20000, 'J'},  // read again where counted
        {6, {"@", "@", "@"}, {"--cpus", "1", "--scheds", "10", "--jobs", "7000"}, 70000, 'J'},  // sent by a second walk
        {5, {"@", "@"}, {"--cpus", "1", "--scheds", "16000", "--jobs", "1"}, 16000, 'S'},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.type);
        TempHome home;
        ASSERT_TRUE(home.ok());
        const std::string plan = home.file("big");
        std::vector<std::string> synth{"synth"};
        synth.insert(synth.end(), c.synth.begin(), c.synth.end());
        synth.push_back(plan);
        ASSERT_EQ(test::run_program(test::built_program("almplan"), synth).status, 0);
        AlmClient s;
        ASSERT_TRUE(startServer(s, home));
        std::vector<std::string> args{openPlan(s, plan)[2]};
        args.insert(args.end(), c.patterns.begin(), c.patterns.end());
        ASSERT_OK(s.send(c.type, 41, args));
        FrameHeader header;
        ASSERT_OK(s.readHeader(header, kWaitMs));
        ASSERT_EQ(header.numData, c.count);
        ASSERT_EQ(::truncate(plan.c_str(), 1000 * 512), 0);

        std::uint32_t whole = 0;
        std::uint32_t zeros = 0;
        std::vector<unsigned char> rec(512);
        for (std::uint32_t i = 0; i < c.count; ++i) {
            ASSERT_OK(s.readExact(rec.data(), rec.size(), kWaitMs));
            whole += rec[0] == static_cast<unsigned char>(c.code);
            zeros += rec == std::vector<unsigned char>(512, 0);
        }
        EXPECT_EQ(whole + zeros, c.count);
        EXPECT_GT(whole, 0u);
        EXPECT_GT(zeros, c.count / 2);
        expectNopNext(s, 42);
    }
}


// Long replies are handed to the pipe by reference from a ring of buffers,
// each filled again only once the pipe has been read past it: a reader that
// takes its time still gets the bytes that a plain file gets.
TEST(LongReplies, ASlowReaderGetsTheBytesAFileGets) {
    TempHome home;
    ASSERT_TRUE(home.ok());
    const std::string plan = home.file("big");
    ASSERT_EQ(test::run_program(test::built_program("almplan"),
                                {"synth", "--cpus", "1", "--scheds", "10", "--jobs", "1000", plan}).status, 0);
    const std::string listing = test::request(6, 2, {"1", "@", "@", "@"});
    const std::string requests = home.file("requests");
    const std::string reference = home.file("reference");
    test::write_file(requests, test::request(2, 1, {plan}) + listing);
    ASSERT_EQ(test::run_program("/bin/sh", {"-c", "exec \"$0\" <\"$1\" >\"$2\"", test::built_program("almread"),
                                            requests, reference}).status, 0);
    const std::string expected = test::read_file(reference);

    AlmClient s;
    ASSERT_TRUE(startServer(s, home));
    openPlan(s, plan, 1);
    ASSERT_OK(s.sendRaw(listing));
    const std::size_t start = expected.size() - 24 - 10000 * 512;  // the listing's reply
    std::string got(expected.size() - start, '\0');
    for (std::size_t at = 0; at < got.size(); at += 4096) {
        if (at % (1u << 20) == (64u << 10)) ::usleep(50000);  // the server fills the pipe meanwhile
        ASSERT_OK(s.readExact(got.data() + at, std::min<std::size_t>(4096, got.size() - at), kWaitMs));
    }
    EXPECT_TRUE(got == expected.substr(start)) << "the listing differs from the file's";
    expectNopNext(s, 3);
}

}  // namespace
}  // namespace alm::filestest
