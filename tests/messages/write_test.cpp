// Writing messages: streams, severity letters, cut texts and the closing
// lines at the end of the process.
#include <cstdio>
#include <functional>
#include <memory>
#include <regex>
#include <string>

#include <gtest/gtest.h>

#include "messages/issuemsg.h"
#include "messages/msg_helpers.h"
#include "messages/msgstream.h"
#include "messages/test_catalogs.h"

namespace alm::msgtest {
namespace {

class WriteTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { home_ = make_test_home(); }
    static void TearDownTestSuite() { home_.reset(); }

    static RunResult run(const std::function<void()>& fn, int width = 78, const char* progname = nullptr) {
        const std::string h = home_->path();
        return run_child([&] {
            use_home(h);
            issuemsg_state()->stdout_wid = width;
            issuemsg_state()->progname = progname;
            fn();
        });
    }

    static std::unique_ptr<TempDir> home_;
};
std::unique_ptr<TempDir> WriteTest::home_;

TEST_F(WriteTest, StreamAndSeverityLetter) {
    struct Case {
        int opts;
        const char* out;
        const char* err;
    };
    const Case cases[] = {
        {0, "QFR20050003I Plain text\n", ""},
        {IM_STDERR, "", "QFR20050003I Plain text\n"},
        {IM_WARN, "QFR20050003W Plain text\n", ""},
        {IM_ERROR, "QFR20050003E Plain text\n", ""},
        {0x0080, "QFR20050003E Plain text\n", ""},
        {IM_ERROR | IM_WARN | IM_STDERR, "", "QFR20050003E Plain text\n"},
        {0x0008, "QFR20050003I Plain text\n", ""},
    };
    for (const auto& c : cases) {
        RunResult r = run([&] { issuemsg(c.opts, 2005, 3, MSG_END); });
        EXPECT_EQ(r.status, 0);
        EXPECT_EQ(r.out, c.out) << "opts " << c.opts;
        EXPECT_EQ(r.err, c.err) << "opts " << c.opts;
    }
}

TEST_F(WriteTest, BufferLengthCutsTheText) {
    RunResult r = run([] {
        issuebuf(0, "abcdef", 3);
        issuebuf(0, "abcdef", 10);
        issuebuf(0, "C:\\tmp\\nA\\Nb", 0);
    });
    EXPECT_EQ(r.out, "abc\nabcdef\nC:\\tmp\nA\nb\n");
}

TEST_F(WriteTest, LongTextsBreakAtTheLastBlankOrAfterTheLastComma) {
    RunResult r = run([] { issuebuf(0, "aaaa,bbbb,cccc dddd,eeee, ffff gggg,hhhh", 0); }, 16);
    EXPECT_EQ(r.out, "aaaa,bbbb,\ncccc dddd,\neeee, ffff\ngggg,hhhh\n");
}

TEST_F(WriteTest, ExitCleanlyClosingLines) {
    RunResult internal = run([] { exit_cleanly(0); });
    EXPECT_EQ(internal.status, 1);
    EXPECT_EQ(internal.err, "QFR11290002  Internal error 2150.\n");
    EXPECT_EQ(internal.out, "");

    RunResult bye = run([] {
        issuemsg_state()->flags |= IM_FLAG_BYE;
        exit_cleanly(IM_FATAL);
    });
    EXPECT_EQ(bye.status, 1);
    EXPECT_EQ(bye.out, "QFR11290004  The end.\n\n");
    EXPECT_EQ(bye.err, "");

    RunResult cpu = run([] {
        issuemsg_state()->flags |= IM_FLAG_BYE | IM_FLAG_CPU;
        exit_cleanly(IM_FATAL2);
    });
    EXPECT_EQ(cpu.status, 1);
    EXPECT_TRUE(std::regex_match(cpu.out, std::regex("QFR11290003  CPU [0-9]+\\.[0-9][0-9] seconds\\.\n\n"))) << cpu.out;
}

TEST(WriteForeignFormat, CatalogFormatsThatDoNotFitArePrintedAsTheyStand) {
    std::unique_ptr<TempDir> home = make_test_home(TEST_KESTREL,
                                                    "$set 1\n1 cobalt odd\n$set 129\n2 Bad %s here %n.\n");
    RunResult r = run_child([&] {
        use_home(home->path());
        exit_cleanly(0);
    });
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err, "QFR11290002  Bad %s here %n.\n");
}

}  // namespace
}  // namespace alm::msgtest
