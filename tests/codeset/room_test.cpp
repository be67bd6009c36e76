// How much a conversion writes: whole characters only, and the terminator
// of a NUL-terminated conversion.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "codeset/codeset_helpers.h"
#include "messages/codeset.h"

namespace alm {
namespace {

enum class Dir { To, From };

struct RoomCase {
    const char* codeset;  // nullptr: the UTF-8 record
    const char* type;
    Dir dir;
    std::vector<std::string> pieces;  // source, one character at a time
};

CodeSet* load(const char* codeset, const char* type) {
    if (codeset == nullptr) return ils_get_cs("UTF8");
    const std::string table = test::ensure_table(codeset, type);
    test::ScopedEnv ils("ILSDIR", test::shared_ilsdir());
    return ils_get_cs(table.c_str());
}

int convert(Dir dir, CodeSet* cs, const std::string& src, int srclen, char* dst, int dstsize) {
    const char* s = src.c_str();
    return dir == Dir::To ? ils_to_utf8(cs, s, srclen, dst, dstsize)
                          : ils_from_utf8(cs, s, srclen, dst, dstsize);
}

// Output of a whole conversion with room to spare.
std::string full(Dir dir, CodeSet* cs, const std::string& src) {
    std::string out(src.size() * 4 + 8, '\0');
    out.resize(static_cast<std::size_t>(
        convert(dir, cs, src, static_cast<int>(src.size()), out.data(), static_cast<int>(out.size()))));
    return out;
}

const RoomCase kCases[] = {
    // UTF-8 is copied byte by byte.
    {nullptr, nullptr, Dir::To, {"a", "\xC3", "\xA9", "b"}},
    {"ISO-8859-1", "sbcs", Dir::To, {"a", "\xE9", "b", "\xFF", "\x7F"}},
    {"ISO-8859-1", "sbcs", Dir::From, {"a", "\xC3\xA9", "b", "\xE2\x82\xAC", "c"}},
    {"CP1252", "sbcs", Dir::To, {"\x80", "x", "\x80", "\xE9"}},
    {"CP1252", "sbcs", Dir::From, {"\xE2\x82\xAC", "x", "\xC3\xA9"}},
    {"IBM037", "ebcdic", Dir::To, {"\xC1", "\x4A", "\x40", "\x9F"}},
    {"IBM037", "ebcdic", Dir::From, {"A", "\xC2\xA2", " ", "\xE2\x82\xAC"}},
    {"SJIS", "dbcs", Dir::To, {"\x82\xA0", "a", "\xB1", "\x88\x9F", "\xFD"}},
    {"SJIS", "dbcs", Dir::From, {"\xE3\x81\x82", "a", "\xEF\xBD\xB1", "\xF0\x9F\x98\x80", "z"}},
    {"EUC-JP", "mbcs", Dir::To, {"\xA4\xA2", "z", "\x8F\xB0\xA1", "\x8E\xB1", "q"}},
    {"EUC-JP", "mbcs", Dir::From, {"\xE3\x81\x82", "z", "\xE4\xB8\x82", "\xEF\xBD\xB1"}},
    {"IBM930", "ebcdic-dbcs", Dir::To, {"\xC1", "\x0E\x45\x41", "\x45\x42", "\x0F\xC2"}},
};

void PrintTo(const RoomCase& c, std::ostream* os) {
    *os << (c.codeset != nullptr ? c.codeset : "UTF8") << (c.dir == Dir::To ? " to" : " from") << " UTF-8";
}

class Room : public ::testing::TestWithParam<RoomCase> {};

// With dstsize k an explicit-length conversion writes the longest run of
// whole characters that fits; a terminated one then puts its NUL after
// them, over the last byte when they fill the destination.
TEST_P(Room, WholeCharactersAndTerminator) {
    const RoomCase& c = GetParam();
    CodeSet* cs = load(c.codeset, c.type);
    ASSERT_NE(cs, nullptr);
    std::string src;
    std::vector<std::size_t> ends;  // output length after each piece
    for (const auto& piece : c.pieces) {
        src += piece;
        ends.push_back(full(c.dir, cs, src).size());
    }
    const std::string whole = full(c.dir, cs, src);
    ASSERT_EQ(whole.size(), ends.back());
    for (std::size_t k = 0; k <= whole.size() + 2; ++k) {
        std::size_t fits = 0;
        for (std::size_t e : ends)
            if (e <= k) fits = e;
        std::vector<char> dst(k + 1, '#');
        const int n = convert(c.dir, cs, src, static_cast<int>(src.size()), dst.data(), static_cast<int>(k));
        EXPECT_EQ(n, static_cast<int>(fits)) << "room " << k;
        EXPECT_EQ(std::string(dst.data(), fits), whole.substr(0, fits)) << "room " << k;
        EXPECT_EQ(dst[k], '#') << "room " << k;

        std::fill(dst.begin(), dst.end(), '#');
        const int t = convert(c.dir, cs, src, -1, dst.data(), static_cast<int>(k));
        if (k == 0) {
            EXPECT_EQ(t, 0);
            EXPECT_EQ(dst[0], '#');
            continue;
        }
        const std::size_t len = fits == k ? k - 1 : fits;
        EXPECT_EQ(t, static_cast<int>(len)) << "room " << k;
        EXPECT_EQ(std::string(dst.data(), len), whole.substr(0, len)) << "room " << k;
        EXPECT_EQ(dst[len], '\0') << "room " << k;
        EXPECT_EQ(dst[k], '#') << "room " << k;
    }
}

INSTANTIATE_TEST_SUITE_P(Converters, Room, ::testing::ValuesIn(kCases));

TEST(RoomEdges, DegenerateArguments) {
    CodeSet* cs = load("ISO-8859-1", "sbcs");
    ASSERT_NE(cs, nullptr);
    char dst[4] = {'#', '#', '#', '#'};
    EXPECT_EQ(ils_to_utf8(cs, "abc", 3, nullptr, 4), 0);
    EXPECT_EQ(ils_to_utf8(cs, "abc", 3, dst, -5), 0);
    EXPECT_EQ(ils_to_utf8(cs, "abc", 0, dst, 4), 0);
    EXPECT_EQ(dst[0], '#');
    EXPECT_EQ(ils_to_utf8(cs, "abc", -7, dst, 4), 0);  // only -1 means terminated
    EXPECT_EQ(dst[0], '#');
    EXPECT_EQ(ils_to_utf8(cs, nullptr, -1, dst, 4), 0);
    EXPECT_EQ(dst[0], '\0');
    EXPECT_EQ(ils_from_utf8(cs, "", -1, dst, 1), 0);
    EXPECT_EQ(ils_from_utf8(ils_get_cs("UTF8"), "abc", -1, dst, 1), 0);
    EXPECT_EQ(dst[0], '\0');
}

TEST(RoomEdges, ExplicitLengthPassesNulBytes) {
    CodeSet* cs = load("SJIS", "dbcs");
    ASSERT_NE(cs, nullptr);
    char dst[8];
    EXPECT_EQ(ils_to_utf8(cs, "a\0b", 3, dst, sizeof dst), 3);
    EXPECT_EQ(std::string(dst, 3), std::string("a\0b", 3));
    EXPECT_EQ(ils_from_utf8(cs, "a\0b", 3, dst, sizeof dst), 3);
    EXPECT_EQ(std::string(dst, 3), std::string("a\0b", 3));
}

// Written double-byte EBCDIC always ends in single-byte mode: a character
// goes out only with room for the shift-in after it, and for a terminated
// result also for the NUL, so that the NUL never replaces the shift-in.
TEST(RoomEdges, EbcdicDoubleByteKeepsItsShiftIn) {
    CodeSet* cs = load("IBM930", "ebcdic-dbcs");
    ASSERT_NE(cs, nullptr);
    const std::string text = "A\xE6\x97\xA5" "B";  // A, a kanji, B
    const auto ref = test::iconv_convert("UTF-8", "IBM930", text);
    ASSERT_TRUE(ref);
    ASSERT_EQ(ref->size(), 6u);  // C1 0E xx xx 0F C2
    const std::string kanji = ref->substr(1, 4);
    struct Expect {
        int room;
        int srclen;
        std::string out;  // bytes counted by the result
    };
    const Expect cases[] = {
        {6, 5, *ref},
        {5, 5, "\xC1" + kanji},
        {4, 5, "\xC1"},
        {2, 5, "\xC1"},
        {6, -1, "\xC1" + kanji},  // the NUL then lands on the B
        {5, -1, "\xC1"},
        {7, -1, *ref},
    };
    for (const auto& e : cases) {
        std::vector<char> dst(static_cast<std::size_t>(e.room), '#');
        const int n = ils_from_utf8(cs, text.c_str(), e.srclen, dst.data(), e.room);
        ASSERT_EQ(n, static_cast<int>(e.out.size())) << "room " << e.room << " srclen " << e.srclen;
        EXPECT_EQ(std::string(dst.data(), e.out.size()), e.out) << "room " << e.room;
        if (e.srclen == -1) {
            EXPECT_EQ(dst[e.out.size()], '\0');
        }
    }
}

TEST(RoomEdges, EbcdicDoubleByteShiftBytesMidText) {
    CodeSet* cs = load("IBM930", "ebcdic-dbcs");
    ASSERT_NE(cs, nullptr);
    const auto pair = test::iconv_convert("UTF-8", "IBM930", "\xE6\x97\xA5");
    ASSERT_TRUE(pair && pair->size() == 4);
    const std::string dbcs = pair->substr(1, 2);
    auto to = [&](const std::string& in) {
        char out[32];
        return std::string(out, static_cast<std::size_t>(ils_to_utf8(cs, in.data(), static_cast<int>(in.size()),
                                                                      out, sizeof out)));
    };
    // Repeated shifts change nothing; a pair cut short by shift-in or by
    // the end gives "?" for its lead byte.
    EXPECT_EQ(to("\x0E\x0E" + dbcs + "\x0E\x0F\x0F\xC1"), "\xE6\x97\xA5" "A");
    EXPECT_EQ(to("\x0E" + dbcs.substr(0, 1) + "\x0F\xC1"), "?A");
    EXPECT_EQ(to("\x0E" + dbcs + dbcs.substr(0, 1)), "\xE6\x97\xA5?");
    EXPECT_EQ(to("\xC1\x0E"), "A");
}

TEST(DefaultCodeSet, NullMeansTheDefault) {
    CodeSet* cs = load("ISO-8859-1", "sbcs");
    ASSERT_NE(cs, nullptr);
    CodeSet* utf8 = ils_get_def_cs();
    ASSERT_EQ(utf8, ils_get_cs("UTF8"));
    char dst[8];
    EXPECT_EQ(ils_to_utf8(nullptr, "\xE9", -1, dst, sizeof dst), 1);  // copied
    ils_set_def_cs(cs);
    EXPECT_EQ(ils_get_def_cs(), cs);
    EXPECT_EQ(ils_to_utf8(nullptr, "\xE9", -1, dst, sizeof dst), 2);
    EXPECT_STREQ(dst, "\xC3\xA9");
    EXPECT_EQ(ils_from_utf8(nullptr, "\xC3\xA9", -1, dst, sizeof dst), 1);
    EXPECT_STREQ(dst, "\xE9");
    ils_set_def_cs(nullptr);
    EXPECT_EQ(ils_get_def_cs(), utf8);
}

TEST(FromUtf8, MalformedInputGivesOneQuestionMarkPerBrokenSequence) {
    CodeSet* cs = load("ISO-8859-1", "sbcs");
    ASSERT_NE(cs, nullptr);
    struct Case {
        std::string in;
        std::string out;
    };
    const Case cases[] = {
        {"\x80", "?"},                      // stray continuation byte
        {"\xC3", "?"},                      // cut off at the end
        {"\xC3" "a", "?a"},                 // cut off by ASCII
        {"\xE2\x82" "a", "?a"},             // longest valid prefix taken whole
        {"\xC0\xAF", "??"},                 // overlong lead never valid
        {"\xE0\x80\xAF", "???"},            // overlong three-byte form
        {"\xED\xA0\x80", "???"},            // surrogate
        {"\xF0\x9F\x98\x80" "b", "?b"},     // beyond 16 bits: no table has it
        {"\xF4\x90\x80\x80", "????"},       // beyond Unicode
        {"\xFF\xFE", "??"},
        {"\xC3\xA9\xC3", "\xE9?"},
    };
    for (const auto& c : cases) {
        char dst[16];
        const int n = ils_from_utf8(cs, c.in.data(), static_cast<int>(c.in.size()), dst, sizeof dst);
        EXPECT_EQ(std::string(dst, static_cast<std::size_t>(n)), c.out) << "case " << (&c - cases);
    }
}

}  // namespace
}  // namespace alm
