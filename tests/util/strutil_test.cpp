#include "util/strutil.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace alm {
namespace {

TEST(Strlento, StopsAtTheTerminatorOrTheLimit) {
    EXPECT_EQ(strlento("abcdef", 3), 3);
    EXPECT_EQ(strlento("ab", 8), 2);
    EXPECT_EQ(strlento("", 8), 0);
    EXPECT_EQ(strlento("abc", 0), 0);
    EXPECT_EQ(strlento("abc", -5), 0);
    const char noTerminator[4] = {'w', 'x', 'y', 'z'};
    EXPECT_EQ(strlento(noTerminator, 4), 4);
}

TEST(StrToPac, CopiesAndBlankPadsWithoutTerminator) {
    struct Case {
        const char* str;
        short width;
        std::string field;  // the whole 10-byte buffer afterwards
    };
    for (const Case& tc : std::vector<Case>{
             {"abc", 8, "abc     ##"},
             {"abcdefghij", 8, "abcdefgh##"},
             {"", 3, "   #######"},
             {"abc", 0, "##########"},
             {"abc", -1, "##########"},
         }) {
        std::string field(10, '#');
        str_to_pac(tc.str, field.data(), tc.width);
        EXPECT_EQ(field, tc.field) << tc.str << "/" << tc.width;
    }
}

TEST(PacToStr, TrimsTrailingWhiteSpaceAndStopsAtNul) {
    struct Case {
        std::string field;
        short width;
        std::string str;
    };
    for (const Case& tc : std::vector<Case>{
             {"CPU1    ", 8, "CPU1"},
             {"        ", 8, ""},
             {std::string("AB\0CD   ", 8), 8, "AB"},
             {"  lead  ", 8, "  lead"},
             {"tabs\t\r\n\v\f", 9, "tabs"},
             {"MASTERCPUXYZ", 6, "MASTER"},
             {"abc", 0, ""},
             {"abc", -3, ""},
             {"ab\xA0", 3, "ab\xA0"},  // a space only in some locales
         }) {
        char out[32];
        std::memset(out, '#', sizeof out);
        const short n = pac_to_str(tc.field.data(), out, tc.width);
        EXPECT_EQ(std::string(out), tc.str);
        EXPECT_EQ(n, static_cast<short>(tc.str.size()));
    }
}

TEST(Striptrailing, InPlace) {
    struct Case {
        const char* in;
        const char* out;
    };
    for (const Case& tc : std::vector<Case>{{"abc  ", "abc"},
                                            {"  abc", "  abc"},
                                            {" \t\n", ""},
                                            {"", ""},
                                            {"a b \r\n", "a b"}}) {
        std::string s(tc.in);
        const short n = striptrailing(s.data());
        EXPECT_STREQ(s.c_str(), tc.out);
        EXPECT_EQ(n, static_cast<short>(std::strlen(tc.out)));
    }
}

}  // namespace
}  // namespace alm
