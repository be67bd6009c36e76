#include "util/patmatch.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace alm {
namespace {

struct Case {
    const char* pattern;
    std::string field;  // may hold NULs
    int expect;
};

// Field width and pattern length are the whole strings here.
const Case kCases[] = {
    // plain bytes, trailing white space of the field ignored
    {"ABC", "ABC", 1},
    {"ABC", "ABC     ", 1},
    {"ABC", "ABC\t\n", 1},
    {"ABC", "ABCD", 0},
    {"ABCD", "ABC", 0},
    {"abc", "ABC", 0},
    {"A C", "A C", 1},
    {" ABC", "ABC", 0},
    // "@": any run, also empty; the latest "@" grows on a mismatch
    {"@", "", 1},
    {"@", "ANYTHING", 1},
    {"A@", "A", 1},
    {"A@", "ABC", 1},
    {"@C", "ABC", 1},
    {"@C", "ABD", 0},
    {"A@C", "AXXC", 1},
    {"A@C", "ACXC", 1},
    {"A@C", "ACX", 0},
    {"@B@", "AABAA", 1},
    {"@A@B", "XAYB", 1},
    {"@A@B", "XAYC", 0},
    {"@@", "X", 1},
    // the end: the remainder must be empty or exactly one "@"
    {"@@", "", 0},
    {"A@@", "A", 0},
    {"A@", "A   ", 1},
    // "?": any one character
    {"?", "A", 1},
    {"?", "", 0},
    {"??", "A", 0},
    {"A?C", "A C", 1},
    {"A?C", "ABBC", 0},
    // "$", "%", "#": one digit
    {"$", "5", 1},
    {"%", "7", 1},
    {"#", "0", 1},
    {"$", "A", 0},
    {"%", "x", 0},
    {"#", "#", 0},
    {"JOB##", "JOB42", 1},
    // "^" and white space in the pattern: one white-space character
    {"A^B", "A B", 1},
    {"A^B", "A\tB", 1},
    {"A^B", "AXB", 0},
    {"A B", "A\tB", 1},
    {"A\tB", "A B", 1},
    {"A B", "A_B", 0},
    // "~": one letter
    {"~", "q", 1},
    {"~", "Q", 1},
    {"~", "1", 0},
    {"~~#", "AB1", 1},
    // a trailing "^" may take the white space cut from the field
    {"AB^", "AB  ", 1},
    {"AB^^", "AB  ", 1},
    {"AB^^^", "AB  ", 0},
    {"AB^", "AB", 0},
    {"AB^@", "AB ", 1},
    {"@^", "A B", 0},
    {"A@^", "AXB ", 1},
    // a NUL ends the field
    {"AB", std::string("AB\0CD", 5), 1},
    {"AB@D", std::string("AB\0CD", 5), 0},
};

TEST(PatternMatch, Table) {
    for (const Case& c : kCases) {
        SCOPED_TRACE(std::string("pattern \"") + c.pattern + "\" field \"" + c.field + "\"");
        EXPECT_EQ(c_patternmatch(c.field.data(), c.pattern, static_cast<int>(c.field.size()),
                                 static_cast<int>(std::strlen(c.pattern))) != 0,
                  c.expect != 0);
    }
}

TEST(PatternMatch, EmptyAndNullArguments) {
    EXPECT_NE(c_patternmatch("ABC", nullptr, 3, 5), 0);
    EXPECT_NE(c_patternmatch("ABC", "", 3, 0), 0);
    EXPECT_NE(c_patternmatch("ABC", "XYZ", 3, 0), 0);  // pattern length 0
    EXPECT_NE(c_patternmatch("ABC", "XYZ", 3, -1), 0);
    EXPECT_NE(c_patternmatch(nullptr, "", 0, 0), 0);
    EXPECT_EQ(c_patternmatch(nullptr, "A", 0, 1), 0);
    EXPECT_EQ(c_patternmatch(nullptr, "@", 0, 1), 0);
}

TEST(PatternMatch, LengthsLimitBothSides) {
    EXPECT_EQ(c_patternmatch("ABC", "ABX", 3, 2), 0);  // "AB" against "ABC"
    EXPECT_NE(c_patternmatch("AB", "ABX", 2, 2), 0);
    EXPECT_NE(c_patternmatch("ABCD", "AB", 2, 2), 0);   // only two field bytes
    EXPECT_NE(c_patternmatch("ABCD", "AB@", 2, 2), 0);
    EXPECT_NE(c_patternmatch("A", "A\0B", 1, 3), 0);    // the pattern ends at its NUL
}

TEST(PatternMatch, CaseFolding) {
    EXPECT_NE(c_patternmatch2("ABC", "abc", 3, 3, 1), 0);
    EXPECT_NE(c_patternmatch2("XYZ", "xyz", 3, 3, 1), 0);  // the last letter too
    EXPECT_NE(c_patternmatch2("abc", "A@", 3, 2, 1), 0);
    EXPECT_EQ(c_patternmatch2("ABC", "abc", 3, 3, 0), 0);
    EXPECT_NE(c_patternmatch2("A1", "a%", 2, 2, 1), 0);
    EXPECT_EQ(c_patternmatch2("[", "{", 1, 1, 1), 0);  // only letters fold
}

}  // namespace
}  // namespace alm
