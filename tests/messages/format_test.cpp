// Formatting into a buffer: argument types, placeholders, codes, fallbacks.
#include <cerrno>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "messages/issuemsg.h"
#include "messages/msg_helpers.h"
#include "messages/test_catalogs.h"

namespace alm::msgtest {
namespace {

class FormatTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { home_ = make_test_home(); }
    static void TearDownTestSuite() { home_.reset(); }

    // Runs each call in one child, in order, and returns one line per call:
    // the text and, after a "|", the length that came back.
    static std::vector<std::string> run(const std::vector<std::function<std::string()>>& calls,
                                        const std::string& home = "") {
        const std::string h = home.empty() ? home_->path() : home;
        RunResult r = run_child([&] {
            use_home(h);
            for (const auto& c : calls) std::printf("%s\n", c().c_str());
        });
        EXPECT_EQ(r.status, 0) << r.err;
        std::vector<std::string> lines;
        std::size_t start = 0;
        while (start < r.out.size()) {
            std::size_t end = r.out.find('\n', start);
            if (end == std::string::npos) end = r.out.size();
            lines.push_back(r.out.substr(start, end - start));
            start = end + 1;
        }
        return lines;
    }

    static std::unique_ptr<TempDir> home_;
};
std::unique_ptr<TempDir> FormatTest::home_;

template <class... A>
std::string tobuf(int set, int num, A... args) {
    char buf[IM_BUFSIZE];
    short len = -1;
    issuemsgtobuf(buf, &len, set, num, args...);
    return std::string(buf) + "|" + std::to_string(len);
}

template <class... A>
std::string tobuf_short(int set, int num, A... args) {
    char buf[IM_SHORTBUF];
    short len = 0;
    issuemsgtobuf(buf, &len, set, num, args...);
    return std::string(buf) + "|" + std::to_string(len);
}

template <class... A>
std::string text_of(int set, int num, A... args) {
    char buf[IM_BUFSIZE];
    short len = -1;
    issuemsgtobuf(buf, &len, set, num, args...);
    return buf;
}

int never_applied(char* out, int room, va_list*) { return std::snprintf(out, static_cast<std::size_t>(room), "X"); }

TEST_F(FormatTest, EachArgumentTypeGivesItsText) {
    static long big = 1234567890123L;
    static long minus5 = -5;
    struct Case {
        const char* what;
        std::function<std::string()> call;
        const char* expected;
    };
    const std::vector<Case> cases = {
        {"string trimmed", [] { return text_of(2005, 1, MSG_STR, "  padded\t", MSG_END); }, "[padded]"},
        {"string in place", [] { return text_of(2005, 1, MSG_STR, "inplace", MSG_END); }, "[inplace]"},
        {"null string", [] { return text_of(2005, 1, MSG_STR, static_cast<char*>(nullptr), MSG_END); }, "[]"},
        {"fixed field", [] { return text_of(2005, 1, -6, "ab  cdXYZ", MSG_END); }, "[ab  cd]"},
        {"fixed field trimmed", [] { return text_of(2005, 1, -8, "  ab    tail", MSG_END); }, "[ab]"},
        {"int", [] { return text_of(2005, 1, MSG_INT, -42, MSG_END); }, "[-42]"},
        {"long pointer", [] { return text_of(2005, 1, MSG_LONGP, &big, MSG_END); }, "[1234567890123]"},
        {"null long pointer", [] { return text_of(2005, 1, MSG_LONGP, static_cast<long*>(nullptr), MSG_END); }, "[]"},
        {"skipped word", [] { return text_of(2005, 1, MSG_SKIP, 99L, MSG_END); }, "[]"},
        {"errno", [] { return text_of(2005, 1, MSG_ERRNO, ENOENT, MSG_END); }, "[No such file or directory]"},
        {"errno 5", [] { return text_of(2005, 1, MSG_ERRNO2, EACCES, MSG_END); }, "[Permission denied]"},
        {"date in the test catalog's style", [] { return text_of(2005, 1, MSG_DATE, 1772668800, MSG_END); }, "[03/05/26]"},
        {"no date", [] { return text_of(2005, 1, MSG_DATE, 0, MSG_END); }, "[]"},
        {"int6", [] { return text_of(2005, 1, MSG_INT6, 42, MSG_END); }, "[    42]"},
        {"long11", [] { return text_of(2005, 1, MSG_LONGP11, &minus5, MSG_END); }, "[         -5]"},
        {"job", [] { return text_of(2005, 1, MSG_JOBNUM, 1234, MSG_END); }, "[#J1234]"},
        {"job bit 30", [] { return text_of(2005, 1, MSG_JOBNUM, 0x40000000 | 77, MSG_END); }, "[#S77]"},
        {"job negated", [] { return text_of(2005, 1, MSG_JOBNUM, -5, MSG_END); }, "[#J5]"},
        {"job zero", [] { return text_of(2005, 1, MSG_JOBNUM, 0, MSG_END); }, "[#J0]"},
        {"job top bits", [] { return text_of(2005, 1, MSG_JOBNUM, static_cast<int>(0xF0000000u), MSG_END); },
         "[#J268435456]"},
        {"hhmm", [] { return text_of(2005, 1, MSG_HHMM, 930, MSG_END); }, "[9:30]"},
        {"hhmm evening", [] { return text_of(2005, 1, MSG_HHMM, 1705, MSG_END); }, "[17:05]"},
        {"ip", [] { return text_of(2005, 1, MSG_IPADDR, 0xC0A80A01u, MSG_END); }, "[192.168.10.1]"},
        {"widest ip", [] { return text_of(2005, 1, MSG_IPADDR, 0xFFFFFFFFu, MSG_END); }, "[255.255.255.255]"},
        {"no arguments", [] { return text_of(2005, 1, MSG_END); }, "[]"},
    };
    std::vector<std::function<std::string()>> calls;
    for (const auto& c : cases) calls.push_back(c.call);
    std::vector<std::string> got = run(calls);
    ASSERT_EQ(got.size(), cases.size());
    for (std::size_t i = 0; i < cases.size(); ++i) EXPECT_EQ(got[i], cases[i].expected) << cases[i].what;
}

TEST_F(FormatTest, PlaceholderSlots) {
    struct Case {
        const char* what;
        std::function<std::string()> call;
        const char* expected;
    };
    const std::vector<Case> cases = {
        {"file numbers take no slot",
         [] { return text_of(2005, 2, MSG_FILENUM, 3L, MSG_INT, 1, MSG_DBSTAT, 0L, MSG_INT, 2, MSG_END); },
         "[1][2][][][][]"},
        {"a time runs on into the next text",
         [] { return text_of(2005, 2, MSG_HHMM, 930, MSG_STR, "x", MSG_INT, 7, MSG_END); }, "[9:307][x][7][][][]"},
        {"a time runs on into a copied text",
         [] { return text_of(2005, 2, MSG_HHMM, 930, MSG_STR, " y ", MSG_END); }, "[9:30y][y][][][][]"},
        {"an unknown type ends the list",
         [] { return text_of(2005, 2, MSG_INT, 1, 14, 5, MSG_INT, 3, MSG_END); }, "[1][][][][][]"},
        {"registered types end the list",
         [] {
             const int t = issuemsg_add_type(never_applied);
             return std::to_string(t) + " " + text_of(2005, 2, MSG_INT, 1, t, 5, MSG_INT, 2, MSG_END);
         },
         "1000 [1][][][][][]"},
        {"five texts, the sixth slot is empty",
         [] {
             return text_of(2005, 2, MSG_INT, 1, MSG_INT, 2, MSG_INT, 3, MSG_INT, 4, MSG_INT, 5, MSG_INT, 6,
                            MSG_END);
         },
         "[1][2][3][4][5][]"},
        {"tilde, bang and a lone bang",
         [] { return text_of(2005, 5, MSG_STR, "Z", MSG_END); }, "QFR20050005  a!b Z cxd "},
    };
    std::vector<std::function<std::string()>> calls;
    for (const auto& c : cases) calls.push_back(c.call);
    std::vector<std::string> got = run(calls);
    ASSERT_EQ(got.size(), cases.size());
    for (std::size_t i = 0; i < cases.size(); ++i) EXPECT_EQ(got[i], cases[i].expected) << cases[i].what;
}

TEST_F(FormatTest, CodeAndSetNumbering) {
    std::vector<std::string> got = run({
        [] { return tobuf(2005, 3, MSG_END); },
        [] { return tobuf(5, 3, MSG_END); },
        [] { return tobuf(2000, 503, MSG_END); },
        [] { return tobuf(0, 503, MSG_END); },
        [] { return tobuf(2000, 105, MSG_END); },
        [] {
            issuemsg_state()->default_set = 2009;
            std::string s = tobuf(0, 5, MSG_STR, "v", MSG_END);
            issuemsg_state()->default_set = 0;
            return s;
        },
        [] { return tobuf(9, 1, MSG_END); },
    });
    const std::vector<std::string> want = {
        "QFR20050003  Plain text|23",
        "QFR20050003  Plain text|23",
        "QFR20050003  Plain text|23",
        "QFR20050003  Plain text|23",
        "QFR20010005  Fifth of set one|29",
        "QFR20090005  Set nine message five: v|37",
        "QFR20090001  Message one of set nine|36",
    };
    EXPECT_EQ(got, want);
}

TEST_F(FormatTest, TrailingHashAndShortBuffers) {
    std::vector<std::string> got = run({
        [] { return tobuf(2005, 4, MSG_END); },
        [] { return tobuf(2005, 7, MSG_END); },
        [] { return tobuf(2005, 6, MSG_END); },
        [] { return tobuf_short(2005, 6, MSG_END); },
        [] { return tobuf_short(2005, 3, MSG_END); },
        [] {
            char buf[IM_BUFSIZE];
            short len = -1;
            nc_issuemsgtobuf(buf, &len, 2005, 3, MSG_END);
            return std::string(buf) + "|" + std::to_string(len);
        },
    });
    ASSERT_EQ(got.size(), 6u);
    EXPECT_EQ(got[0], "Trailing hash|13");
    EXPECT_EQ(got[1], "|0");
    EXPECT_EQ(got[2], "QFR20050006  " + LONG_TEXT + "|313");
    // 255 bytes fit; no room is left for a code, so the last one goes.
    EXPECT_EQ(got[3], std::string(254, 'x') + "|254");
    EXPECT_EQ(got[4], "QFR20050003  Plain text|23");
    EXPECT_EQ(got[5], "QFR20050003  Plain text|23");
}

TEST_F(FormatTest, NoMessageFallbacks) {
    std::vector<std::string> got = run({
        [] { return text_of(2005, 99, MSG_STR, "a", MSG_STR, "b", MSG_INT, 3, MSG_STR, "d", MSG_STR, "e", MSG_END); },
        [] { return text_of(2077, 1, MSG_STR, "a", MSG_END); },
        [] { return text_of(13001, 1, MSG_STR, "a", MSG_END); },
    });
    ASSERT_EQ(got.size(), 3u);
    EXPECT_EQ(got[0], "QFR20050099  NO MSG: a,b,3,d,e");
    EXPECT_EQ(got[1], "QFR20770001  NO MSG: a,,,,");
    EXPECT_EQ(got[2], "QFR130010001  NO MSG: a,,,, [product > MAX] ");
}

TEST_F(FormatTest, MissingCatalogDirectoryGivesOpenFailed) {
    TempDir empty;
    RunResult r = run_child([&] {
        use_home(empty.path());
        std::printf("%s\n", text_of(2072, 35, MSG_STR, "/x/Almanack", MSG_INT, 2, MSG_INT, 0, MSG_INT, 0,
                                    MSG_INT, 0, MSG_END)
                                .c_str());
        std::printf("%s\n", text_of(2072, 1, MSG_END).c_str());
    });
    EXPECT_EQ(r.out,
              "QFR20720035  NO MSG: /x/Almanack,2,0,0,0 open failed 2 \n"
              "QFR20720001  NO MSG: ,,,, open failed 2 \n");
    EXPECT_EQ(r.err, "catopen on " + empty.path() + "/catalog/C/cobalt.cat error: No such file or directory\n" +
                         "catopen on " + empty.path() + "/catalog/C/kestrel.cat error: No such file or directory\n");
}

TEST_F(FormatTest, OtherLanguageFallsBackToC) {
    RunResult r = run_child([&] {
        use_home(home_->path());
        ::setenv("LANG", "fr_FR", 1);
        std::printf("%s\n", text_of(2005, 3, MSG_END).c_str());
        std::printf("%s\n", text_of(2005, 98, MSG_END).c_str());
    });
    ASSERT_EQ(r.status, 0);
    EXPECT_NE(r.out.find("QFR20050003  Plain text\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("QFR20050098  NO MSG: ,,,,catgets failed "), std::string::npos) << r.out;
    EXPECT_NE(r.err.find("catopen on " + home_->path() + "/catalog/fr/kestrel.cat error: No such file or directory\n"),
              std::string::npos)
        << r.err;
}

TEST_F(FormatTest, StateStartsWithItsDefaults) {
    std::vector<std::string> got = run({[] {
        TPCATtype* st = issuemsg_state();
        char line[128];
        std::snprintf(line, sizeof line, "%d %d %d %d %d %d %s", st->flags, st->console_wid, st->stdout_wid,
                      st->level, st->syslog, st->default_set, st->progname == nullptr ? "none" : st->progname);
        return std::string(line);
    }});
    EXPECT_EQ(got, (std::vector<std::string>{"1 64 78 0 -1 0 none"}));
}

}  // namespace
}  // namespace alm::msgtest
