// The product's own catalogs, as built into the build tree's home.
#include <cstdio>
#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "messages/issuemsg.h"
#include "messages/msg_helpers.h"

namespace alm::msgtest {
namespace {

const std::string BUILD_HOME = ALM_BUILD_DIR;

std::string plan_error(int code, bool with_errno) {
    char buf[IM_BUFSIZE];
    short len = -1;
    if (with_errno)
        issuemsgtobuf(buf, &len, 2072, code, MSG_STR, "/home/x/Almanack", MSG_INT, 2, MSG_INT, 19026, MSG_INT, 18770,
                      MSG_INT, 417, MSG_END);
    else
        issuemsgtobuf(buf, &len, 2072, code, MSG_STR, "/home/x/Almanack", MSG_INT, 19026, MSG_INT, 18770, MSG_INT,
                      417, MSG_END);
    return buf;
}

TEST(ProductCatalogs, WithoutCatalogsTheFallbackCarriesTheArguments) {
    TempDir empty;
    RunResult r = run_child([&] {
        use_home(empty.path());
        std::printf("%s\n", plan_error(35, true).c_str());
    });
    EXPECT_EQ(r.out, "QFR20720035  NO MSG: /home/x/Almanack,2,19026,18770,417 open failed 2 \n");
}

TEST(ProductCatalogs, EveryPlanErrorHasItsText) {
    struct Code {
        int code;
        bool with_errno;
        const char* shows;  // what the text must contain besides the file
    };
    const Code codes[] = {
        {1, true, "system error 2"},   {2, true, "record 417"},   {3, true, "file"},         {4, true, "system error 2"},
        {5, true, "system error 2"},   {6, true, "system error 2"}, {8, true, "record 417"}, {9, true, "record 417"},
        {11, true, "Record 417"},      {13, true, "system error 2"}, {14, false, "Record 417"},
        {19, false, "kind 18770, not of the expected kind 19026"}, {25, false, "record 417"},
        {26, false, "record 417"},     {35, true, "does not exist"}, {36, false, "kind 19026"},
    };
    RunResult r = run_child([&] {
        use_home(BUILD_HOME);
        for (const auto& c : codes) std::printf("%s\n", plan_error(c.code, c.with_errno).c_str());
        char buf[IM_SHORTBUF];
        short len = 0;
        std::printf("%s\n", issuemsgtobuf(buf, &len, 2072, 7, MSG_END));
        for (int m : {40, 41}) std::printf("%s\n", issuemsgtobuf(buf, &len, 2072, m, MSG_END));
        std::printf("%s\n", issuemsgtobuf(buf, &len, 2216, 9, MSG_END));
        for (int m : {2, 3, 4}) std::printf("%s\n", issuemsgtobuf(buf, &len, 1129, m, MSG_END));
        std::printf("date style %d\n", issuemsg_state()->date_fmt);
        char date[IM_SHORTBUF];
        std::printf("%s\n", issuemsgtobuf(date, &len, 2072, 35, MSG_DATE, 1772668800, MSG_END));
    });
    EXPECT_EQ(r.err, "");
    std::size_t start = 0;
    auto next_line = [&] {
        std::size_t end = r.out.find('\n', start);
        std::string l = r.out.substr(start, end - start);
        start = end + 1;
        return l;
    };
    for (const auto& c : codes) {
        const std::string line = next_line();
        char code[16];
        std::snprintf(code, sizeof code, "QFR2072%04d  ", c.code);
        EXPECT_EQ(line.rfind(code, 0), 0u) << line;
        EXPECT_NE(line.find("/home/x/Almanack"), std::string::npos) << line;
        EXPECT_NE(line.find(c.shows), std::string::npos) << line;
        EXPECT_EQ(line.find("NO MSG"), std::string::npos) << line;
    }
    EXPECT_EQ(next_line(), "QFR20720007  The plan file handle is not valid.");
    for (int m : {40, 41}) {
        const std::string line = next_line();
        EXPECT_EQ(line.rfind("QFR2072004" + std::to_string(m % 10) + "  %s(%d): ", 0), 0u) << line;
        EXPECT_NE(line.find("kind %d"), std::string::npos) << line;
    }
    EXPECT_EQ(next_line().rfind("QFR22160009  ", 0), 0u);
    EXPECT_EQ(next_line(), "QFR11290002  Internal error %d: the program ends.");
    EXPECT_EQ(next_line(), "QFR11290003  The program ends after %.2f seconds of CPU time.");
    EXPECT_EQ(next_line(), "QFR11290004  The program ends.");
    EXPECT_EQ(next_line(), "date style 0");
    EXPECT_EQ(next_line(), "QFR20720035  The plan file 26/03/05 does not exist (system error ).");
}

TEST(ProductCatalogs, RequestReadErrorLine) {
    RunResult r = run_child([] {
        use_home(BUILD_HOME);
        issuemsg(1, 2216, 9, MSG_END);
    });
    EXPECT_EQ(r.err, "QFR22160009I Read error on the request id of a request: the service ends.\n");
}

}  // namespace
}  // namespace alm::msgtest
