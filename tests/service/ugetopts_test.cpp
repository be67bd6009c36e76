#include "service/ugetopts.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace alm {
namespace {

struct Parsed {
    short code = 0;
    short parm = -1;
    short flags = 0;
    std::vector<short> status;
    std::vector<const char*> values;
};

Parsed parse(std::vector<const char*> args, const char* const* keywords = nullptr,
             int keywordCount = 0) {
    std::vector<const char*> argv{"almread"};
    argv.insert(argv.end(), args.begin(), args.end());
    argv.push_back(nullptr);
    Parsed p;
    p.status.assign(static_cast<std::size_t>(keywordCount) + 1, -1);
    p.values.assign(static_cast<std::size_t>(keywordCount) + 1, nullptr);
    p.code = u_getopts(static_cast<int>(argv.size() - 1), argv.data(), keywords, &p.parm, &p.flags,
                       p.status.data(), p.values.data());
    return p;
}

const char* const kCaller[] = {"FILE=", "QUIET", "PARM=", "QUEUE", nullptr};

TEST(UGetopts, CodesOfTheTable) {
    struct Case {
        std::vector<const char*> args;
        short code;
        short parm;
    };
    const std::vector<Case> cases = {
        // Success: index of the first operand, or argc + 1 when all are options.
        {{}, 2, 0},
        {{"plan"}, 1, 0},
        {{"-debug", "plan", "-x"}, 2, 0},
        {{"-debug", "--", "-x"}, 3, 0},
        {{"-debug", "--"}, 4, 0},
        {{"-quiet", "-file", "a", "rest"}, 4, 0},
        {{"-parm=42"}, 3, 42},
        {{"-parm", "7", "x"}, 3, 7},
        {{"-debug", nullptr, "-x"}, 5, 0},  // a null argument ends the scan
        // A keyword that needs a value, without one.
        {{"-quiet", "-file"}, UOPT_NEEDS_VALUE, 2},
        {{"-file", "--"}, UOPT_NEEDS_VALUE, 1},
        // Unknown and ambiguous keywords.
        {{"-x"}, UOPT_UNKNOWN, 1},
        {{"-debug", "-zzz"}, UOPT_UNKNOWN, 2},
        {{"-qu"}, UOPT_AMBIGUOUS, 1},
        // Usage and version, only as the sole argument.
        {{"-u"}, UOPT_USAGE, 1},
        {{"-USAGE"}, UOPT_USAGE, 1},
        {{"-us"}, UOPT_USAGE, 1},
        {{"-v"}, UOPT_VERSION, 1},
        {{"-vers"}, UOPT_VERSION, 1},
        {{"-Version"}, UOPT_VERSION, 1},
        {{"-v", "-v"}, UOPT_UNKNOWN, 1},
        {{"-v", "plan"}, UOPT_UNKNOWN, 1},
        {{"-debug", "-u"}, UOPT_UNKNOWN, 2},
        // A value on a keyword without a value slot.
        {{"-quiet=1"}, UOPT_UNEXPECTED_VALUE, 1},
        {{"-debug=yes"}, UOPT_UNEXPECTED_VALUE, 1},
        // Keywords longer than 20 characters (an exact 20 is still looked up).
        {{"-abcdefghijklmnopqrstu"}, UOPT_TOO_LONG, 1},
        {{"-abcdefghijklmnopqrst"}, UOPT_UNKNOWN, 1},
        {{"-debug", "-abcdefghijklmnopqrstu=1"}, UOPT_TOO_LONG, 2},
        // A keyword given twice, also through different abbreviations.
        {{"-debug", "-deb"}, UOPT_REPEATED, 2},
        {{"-file=a", "-fi", "b"}, UOPT_REPEATED, 2},
    };
    for (const Case& tc : cases) {
        std::string shown;
        for (const char* a : tc.args) shown += std::string(a ? a : "(null)") + " ";
        const Parsed p = parse(tc.args, kCaller, 4);
        EXPECT_EQ(p.code, tc.code) << shown;
        EXPECT_EQ(p.parm, tc.parm) << shown;
        EXPECT_EQ(p.status.back(), -1) << shown;  // nothing written past the caller's keywords
    }
}

TEST(UGetopts, CallerListWithoutTerminator) {
    std::vector<const char*> full(UOPT_MAX_CALLER, "KEY");
    short parm = -1, flags = 0;
    const char* argv[] = {"almread", "-v", nullptr};
    EXPECT_EQ(u_getopts(2, argv, full.data(), &parm, &flags, nullptr, nullptr), UOPT_NO_TERMINATOR);
    EXPECT_EQ(parm, 0);

    full.back() = nullptr;  // 40 keywords and the terminator fit
    EXPECT_EQ(u_getopts(2, argv, full.data(), &parm, &flags, nullptr, nullptr), UOPT_VERSION);
}

TEST(UGetopts, DebugSetsTheLowestFlagAndParsingContinues) {
    const Parsed p = parse({"-DEB", "-quiet", "operand"}, kCaller, 4);
    EXPECT_EQ(p.code, 3);
    EXPECT_EQ(p.flags, UOPT_FLAG_DEBUG);
    EXPECT_EQ(p.status[1], 1);  // QUIET given
    EXPECT_EQ(p.status[0], 0);
}

TEST(UGetopts, ValuesArriveInTheCallerArrays) {
    const Parsed p = parse({"-file", "plan.dat", "-parm=5"}, kCaller, 4);
    EXPECT_EQ(p.code, 5);
    EXPECT_EQ(p.status[0], 1);
    EXPECT_STREQ(p.values[0], "plan.dat");
    EXPECT_EQ(p.status[2], 1);
    EXPECT_STREQ(p.values[2], "5");
    EXPECT_EQ(p.parm, 5);
    EXPECT_EQ(p.status[3], 0);
    EXPECT_EQ(p.values[3], nullptr);
}

TEST(UGetopts, NoCallerKeywords) {
    struct Case {
        std::vector<const char*> args;
        short code;
    };
    for (const Case& tc : std::vector<Case>{{{"-v"}, UOPT_VERSION},
                                            {{"-ver"}, UOPT_VERSION},
                                            {{"-x"}, UOPT_UNKNOWN},
                                            {{"-"}, UOPT_AMBIGUOUS},
                                            {{"-d"}, 3},
                                            {{"-u"}, UOPT_USAGE},
                                            {{"-v", "-v"}, UOPT_UNKNOWN}}) {
        EXPECT_EQ(parse(tc.args).code, tc.code) << tc.args[0];
    }
}

TEST(CValidKeyword, MatchingRules) {
    const char* const table[] = {"DEBUG", "V", "VERSION", "U", "USAGE", "FILE=", "FILTER", " "};
    struct Case {
        const char* text;
        short result;
    };
    for (const Case& tc : std::vector<Case>{
             {"v", 1},         // exact match wins over the longer VERSION
             {"VERS", 2},      // abbreviation
             {"usa", 4},
             {"file", 5},      // the "=" marks a value slot, not part of the name
             {"fil", UOPT_AMBIGUOUS},
             {"filt", 6},
             {"debugx", UOPT_UNKNOWN},
             {" ", UOPT_UNKNOWN},  // blank entries never match
             {"\xc3\xa9", UOPT_UNKNOWN},
         }) {
        EXPECT_EQ(c_valid_keyword(tc.text, table, 8), tc.result) << tc.text;
    }
}

}  // namespace
}  // namespace alm
