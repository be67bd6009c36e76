// Writing messages: streams, severity letters, heads, boxes, line breaking,
// and the end of the process.
#include <csignal>
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

TEST_F(WriteTest, TextsWithoutCodeKeepTheirFirstBlank) {
    RunResult r = run([] {
        issuemsg(IM_ERROR, 2005, 4, MSG_END);
        issuemsg(0, 2005, 1, MSG_STR, "a b", MSG_END);
    });
    EXPECT_EQ(r.out, "Trailing hash\n[a b]\n");
}

TEST_F(WriteTest, HeadOfLine) {
    RunResult named = run([] { issuemsg(0, 2005, 3, MSG_END); }, 78, "almread");
    EXPECT_EQ(named.out, "almread:QFR20050003I Plain text\n");

    RunResult bell = run([] { issuemsg(IM_BELL, 2005, 3, MSG_END); });
    EXPECT_EQ(bell.out, "\aQFR20050003I Plain text\n");

    RunResult timed = run([] { issuemsg(IM_TIME | IM_BELL, 2005, 3, MSG_END); }, 78, "p");
    EXPECT_TRUE(std::regex_match(timed.out, std::regex("p:[0-2][0-9]:[0-5][0-9]/\aQFR20050003I Plain text\n")))
        << timed.out;
}

TEST_F(WriteTest, Boxes) {
    RunResult plus = run([] { issuemsg(IM_BOX, 2005, 3, MSG_END); });
    const std::string rule = "+ " + std::string(73, '+') + "\n";
    EXPECT_EQ(plus.out, rule + "+ QFR20050003E Plain text\n" + rule);

    RunResult star = run([] { issuemsg(IM_STARBOX, 2005, 3, MSG_END); }, 20, "ab");
    // head "ab:* " is 5 wide: rules of 20 - 3 - 5 stars.
    const std::string srule = "ab:* " + std::string(12, '*') + "\n";
    EXPECT_EQ(star.out, srule + "ab:* QFR20050003E\nab:* Plain text\n" + srule);
}

TEST_F(WriteTest, LineBreaking) {
    struct Case {
        const char* what;
        const char* text;
        int width;
        const char* out;
    };
    const Case cases[] = {
        {"at the last blank", "aaaa bbbb cccc dddd eeee ffff gggg", 30, "aaaa bbbb cccc dddd eeee\nffff gggg\n"},
        {"after the last comma", "one,two,three,four,five,six,seven,eight", 30,
         "one,two,three,four,five,\nsix,seven,eight\n"},
        {"comma later than blank", "aa bbbbbbbbbbbbbbbbbbb,ccccccccc", 30, "aa bbbbbbbbbbbbbbbbbbb,\nccccccccc\n"},
        {"blank after the comma dropped", "aa bbbbbbbbbbbbbbbbbbb, cccccccc", 30,
         "aa bbbbbbbbbbbbbbbbbbb,\ncccccccc\n"},
        {"blank later than comma", "a,bbbbbbbbbb cccccccccccccccccccc", 30, "a,bbbbbbbbbb\ncccccccccccccccccccc\n"},
        {"blank just past the room", "aaaaaaaaaaaaaaaaaaaaaaaaaaa bbb", 30, "aaaaaaaaaaaaaaaaaaaaaaaaaaa\nbbb\n"},
        {"no break point", "abcdefghijklmnopqrstuvwxyz0123456789", 30, "abcdefghijklmnopqrstuvwxyz0\n123456789\n"},
        {"a leading blank is no break", " abcdefghijklmnopqrstuvwxyz0123", 30, " abcdefghijklmnopqrstuvwxyz\n0123\n"},
        {"exact fit", "abcdefghijklmnopqrstuvwxyz0", 30, "abcdefghijklmnopqrstuvwxyz0\n"},
        {"line ends", "one\ntwo\\nthree\\Nfour", 30, "one\ntwo\nthree\nfour\n"},
        {"line end at the room", "abcdefghijklmnopqrstuvwxyz0\nz", 30, "abcdefghijklmnopqrstuvwxyz0\nz\n"},
        {"trailing line end", "one\n", 30, "one\n"},
        {"empty text", "", 30, "\n"},
        {"width 0 does not break", "aaaa bbbb cccc dddd eeee ffff gggg", 0, "aaaa bbbb cccc dddd eeee ffff gggg\n"},
        {"negative width does not break", "aaaa bbbb cccc dddd eeee ffff gggg", -5,
         "aaaa bbbb cccc dddd eeee ffff gggg\n"},
        {"tiny width", "abc", 2, "a\nb\nc\n"},
    };
    for (const auto& c : cases) {
        RunResult r = run([&] { issuebuf(0, c.text, 0); }, c.width);
        EXPECT_EQ(r.out, c.out) << c.what;
    }
}

TEST_F(WriteTest, HeadNarrowsTheRoom) {
    // width 30, head "prog:" 5: 22 characters of text per line.
    RunResult r = run([] { issuebuf(IM_STDERR, "aaaa bbbb cccc dddd eeee ffff", 0); }, 30, "prog");
    EXPECT_EQ(r.err, "prog:aaaa bbbb cccc dddd\nprog:eeee ffff\n");
}

TEST_F(WriteTest, BufferLengthCutsTheText) {
    RunResult r = run([] {
        issuebuf(0, "abcdef", 3);
        issuebuf(0, "abcdef", 10);
    });
    EXPECT_EQ(r.out, "abc\nabcdef\n");
}

TEST_F(WriteTest, DatabaseStatusFirstAddsAnEmptyLine) {
    RunResult r = run([] {
        issuemsg(0, 2005, 3, MSG_DBSTAT, 0L, MSG_END);
        issuemsg(0, 2005, 1, MSG_INT, 4, MSG_DBSTAT, 0L, MSG_END);
    });
    EXPECT_EQ(r.out, "QFR20050003I Plain text\n\n[4]\n");
}

TEST_F(WriteTest, RedirectedStreams) {
    RunResult r = run([] {
        std::FILE* out = std::tmpfile();
        std::FILE* err = std::tmpfile();
        msg_set_streams(out, err);
        issuemsg(0, 2005, 3, MSG_END);
        issuemsg(IM_STDERR, 2005, 4, MSG_END);
        msg_set_streams(nullptr, nullptr);
        for (std::FILE* f : {out, err}) {
            std::rewind(f);
            char line[128];
            while (std::fgets(line, sizeof line, f) != nullptr) std::printf("got %s", line);
            std::fclose(f);
        }
    });
    EXPECT_EQ(r.out, "got QFR20050003I Plain text\ngot Trailing hash\n");
    EXPECT_EQ(r.err, "");
}

TEST_F(WriteTest, SystemLogCopiesLeaveTheStreamsAlone) {
    RunResult r = run([] {
        issuemsg_state()->syslog = 8;  // user facility
        issuemsg(IM_SYSLOG | IM_ERROR, 2005, 3, MSG_END);
        issuemsg(IM_SYSLOG2 | IM_WARN, 2005, 3, MSG_END);
        issuemsg_state()->level = -2;
        issuemsg(IM_SYSLOG2 | IM_SYSLOG_FORCE, 2005, 3, MSG_END);
    });
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "QFR20050003E Plain text\nQFR20050003W Plain text\nQFR20050003I Plain text\n");
}

TEST_F(WriteTest, FatalMessagesEndTheProcess) {
    RunResult r = run([] {
        issuemsg(IM_FATAL, 2005, 3, MSG_END);
        std::printf("not reached\n");
    });
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "QFR20050003E Plain text\n");
    EXPECT_EQ(r.err, "");

    RunResult r4 = run([] { issuemsg(IM_FATAL2, 2005, 3, MSG_END); });
    EXPECT_EQ(r4.status, 1);
    EXPECT_EQ(r4.out, "QFR20050003I Plain text\n");
}

TEST_F(WriteTest, ShutdownRoutineSeesTheText) {
    RunResult r = run([] {
        issuemsg_set_shutdown([](int code, const char* text) { std::printf("shutdown %d [%s]\n", code, text); });
        issuemsg(IM_FATAL | IM_STDERR, 2005, 3, MSG_END);
    });
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "shutdown -1 [QFR20050003E Plain text]\n");
    EXPECT_EQ(r.err, "QFR20050003E Plain text\n");
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

TEST_F(WriteTest, CoreImageOnlyForFatalBitTwo) {
    RunResult core = run([] {
        issuemsg_state()->flags |= IM_FLAG_CORE;
        std::signal(SIGABRT, SIG_DFL);
        exit_cleanly(IM_FATAL);
    });
    EXPECT_EQ(core.status, 128 + SIGABRT);

    RunResult plain = run([] {
        issuemsg_state()->flags |= IM_FLAG_CORE;
        exit_cleanly(IM_FATAL2);
    });
    EXPECT_EQ(plain.status, 1);
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
