// Every character of real code sets, converted both ways, against iconv.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>

#include "messages/codeset_helpers.h"
#include "messages/codeset.h"

namespace alm {
namespace {

using test::iconv_convert;
using test::utf8_of;

struct CodeSetParam {
    const char* codeset;
    const char* type;
};

CodeSet* load(const CodeSetParam& p) {
    const std::string table = test::ensure_table(p.codeset, p.type);
    test::ScopedEnv ils("ILSDIR", test::shared_ilsdir());
    test::ScopedEnv bin("BINDIR", std::nullopt);
    return ils_get_cs(table.c_str());
}

std::string to_utf8(CodeSet* cs, const std::string& in) {
    std::string out(in.size() * 3 + 8, '\0');
    const int n = ils_to_utf8(cs, in.data(), static_cast<int>(in.size()), out.data(),
                              static_cast<int>(out.size()));
    out.resize(static_cast<std::size_t>(n));
    return out;
}

std::string from_utf8(CodeSet* cs, const std::string& in) {
    std::string out(in.size() * 4 + 8, '\0');
    const int n = ils_from_utf8(cs, in.data(), static_cast<int>(in.size()), out.data(),
                                static_cast<int>(out.size()));
    out.resize(static_cast<std::size_t>(n));
    return out;
}

// What a converter writes for a character iconv gives as ref: tables hold
// one 16-bit code point per character, anything else is "?".
std::string expected_utf8(const std::optional<std::string>& ref) {
    if (!ref || ref->empty() || ref->size() > 3) return "?";
    const unsigned char lead = static_cast<unsigned char>((*ref)[0]);
    const std::size_t len = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : 3;
    return len == ref->size() ? *ref : "?";
}

bool is_surrogate(std::uint32_t cp) { return cp >= 0xD800 && cp <= 0xDFFF; }

std::string hex(const std::string& s) {
    static const char d[] = "0123456789ABCDEF";
    std::string h;
    for (unsigned char c : s) h += {d[c >> 4], d[c & 15], ' '};
    return h;
}

void single_byte_to_utf8(const CodeSetParam& p) {
    CodeSet* cs = load(p);
    ASSERT_NE(cs, nullptr);
    const bool ascii = std::string(p.type) == "sbcs";
    std::string all, expected_all;
    for (unsigned b = 0; b < 256; ++b) {
        const std::string in(1, static_cast<char>(b));
        const std::string expected =
            ascii && b < 0x80 ? in : expected_utf8(iconv_convert(p.codeset, "UTF-8", in));
        EXPECT_EQ(to_utf8(cs, in), expected) << "byte " << b;
        all += in;
        expected_all += expected;
    }
    EXPECT_EQ(to_utf8(cs, all), expected_all);
}

void single_byte_from_utf8(const CodeSetParam& p) {
    CodeSet* cs = load(p);
    ASSERT_NE(cs, nullptr);
    const bool ascii = std::string(p.type) == "sbcs";
    const std::string question = ascii ? "?" : "\x6F";
    std::string all, expected_all;
    int mapped = 0;
    for (std::uint32_t cp = 0; cp <= 0xFFFF; ++cp) {
        if (is_surrogate(cp)) continue;
        const std::string in = utf8_of(cp);
        const auto ref = iconv_convert("UTF-8", p.codeset, in);
        std::string expected;
        if (ascii && cp < 0x80)
            expected = std::string(1, static_cast<char>(cp));
        else
            expected = ref ? *ref : question;
        EXPECT_EQ(from_utf8(cs, in), expected) << "code point " << cp;
        if (ref) {
            ++mapped;
            all += in;
            expected_all += expected;
        }
    }
    EXPECT_GE(mapped, 200);
    EXPECT_EQ(from_utf8(cs, all), expected_all);
    for (const char* bad : {"\x80", "\xBF", "\xC1", "\xFF"}) EXPECT_EQ(from_utf8(cs, bad), question) << "lone byte";
    // An overlong form, a surrogate, a lead byte without its second: each byte gives the substitute.
    EXPECT_EQ(from_utf8(cs, "\xE0\x80\x80"), question + question + question);
    EXPECT_EQ(from_utf8(cs, "\xED\xA0\x80"), question + question + question);
    EXPECT_EQ(from_utf8(cs, "\xC2\x41"), question + from_utf8(cs, "A"));
}

// One code set per converter path: ASCII-based with holes, and EBCDIC.
TEST(IconvSweep, SingleByte) {
    for (const CodeSetParam& p : {CodeSetParam{"CP1252", "sbcs"}, CodeSetParam{"IBM037", "ebcdic"}}) {
        SCOPED_TRACE(p.codeset);
        single_byte_to_utf8(p);
        single_byte_from_utf8(p);
    }
}

// What the converter gives for seq (a whole character or a rejected one).
std::string expected_for(const CodeSetParam& p, const std::string& seq) {
    return expected_utf8(iconv_convert(p.codeset, "UTF-8", seq));
}

void multi_byte_to_utf8(const CodeSetParam& p) {
    CodeSet* cs = load(p);
    ASSERT_NE(cs, nullptr);
    const bool mbcs = std::string(p.type) == "mbcs";
    int chars = 0;
    std::string all, expected_all;
    for (unsigned b = 0x80; b < 256; ++b) {
        const std::string lead(1, static_cast<char>(b));
        bool incomplete = false;
        const auto one = iconv_convert(p.codeset, "UTF-8", lead, &incomplete);
        if (incomplete && mbcs) {
            // A lead byte that no second byte completes starts nothing.
            bool completes = false;
            for (unsigned b2 = 0; b2 < 256 && !completes; ++b2) {
                bool more = false;
                completes = iconv_convert(p.codeset, "UTF-8", lead + static_cast<char>(b2), &more) || more;
            }
            incomplete = completes;
        }
        if (!incomplete) {
            // A single byte, or one that starts no character: "?" for the
            // double-byte converter, skipped by the multi-byte one.
            const std::string expected = one ? expected_utf8(one) : mbcs ? "" : "?";
            EXPECT_EQ(to_utf8(cs, lead), expected) << "byte " << b;
            continue;
        }
        for (unsigned b2 = 0; b2 < 256; ++b2) {
            const std::string two = lead + static_cast<char>(b2);
            bool incomplete2 = false;
            const auto ref2 = iconv_convert(p.codeset, "UTF-8", two, &incomplete2);
            if (!incomplete2 || !mbcs) {
                const std::string expected = expected_utf8(ref2);
                EXPECT_EQ(to_utf8(cs, two), expected) << "bytes " << b << " " << b2;
                if (ref2) {
                    ++chars;
                    all += two;
                    expected_all += expected;
                }
                continue;
            }
            for (unsigned b3 = 0; b3 < 256; ++b3) {
                const std::string three = two + static_cast<char>(b3);
                const std::string expected = expected_for(p, three);
                ASSERT_EQ(to_utf8(cs, three), expected) << "bytes " << b << " " << b2 << " " << b3;
                chars += expected != "?";
            }
        }
    }
    EXPECT_GE(chars, 5000);
    EXPECT_EQ(to_utf8(cs, all), expected_all);
}

void multi_byte_from_utf8(const CodeSetParam& p) {
    CodeSet* cs = load(p);
    ASSERT_NE(cs, nullptr);
    int exact = 0, duplicates = 0;
    std::string all, expected_all;
    for (std::uint32_t cp = 0x80; cp <= 0xFFFF; ++cp) {
        if (is_surrogate(cp)) continue;
        const std::string in = utf8_of(cp);
        const std::string ours = from_utf8(cs, in);
        const auto ref = iconv_convert("UTF-8", p.codeset, in);
        if (ours == "?") {
            // Only code points iconv cannot write, writes one way only, or
            // writes as an ASCII byte (which converts as ASCII here).
            if (ref) {
                const bool ascii_byte = ref->size() == 1 && static_cast<unsigned char>((*ref)[0]) < 0x80;
                EXPECT_TRUE(ascii_byte || iconv_convert(p.codeset, "UTF-8", *ref) != in)
                    << "code point " << cp << " has " << hex(*ref);
            }
            continue;
        }
        // Whatever is written reads back as the same code point.
        EXPECT_EQ(iconv_convert(p.codeset, "UTF-8", ours), in) << "code point " << cp << " gave " << hex(ours);
        if (ref && ours == *ref)
            ++exact;
        else
            ++duplicates;  // another sequence for the same character
        all += in;
        expected_all += ours;
    }
    EXPECT_GE(exact, 5000);
    EXPECT_LT(duplicates, exact / 20);
    EXPECT_EQ(from_utf8(cs, all), expected_all);
}

// Double-byte with duplicate mappings, another lead-byte range, and a
// multi-byte set with three-byte sequences.
TEST(IconvSweep, MultiByte) {
    for (const CodeSetParam& p :
         {CodeSetParam{"CP932", "dbcs"}, CodeSetParam{"GBK", "dbcs"}, CodeSetParam{"EUC-JP", "mbcs"}}) {
        SCOPED_TRACE(p.codeset);
        multi_byte_to_utf8(p);
        multi_byte_from_utf8(p);
    }
}

constexpr char kSO = 0x0E;
constexpr char kSI = 0x0F;

void ebcdic_double_to_utf8(const CodeSetParam& p) {
    CodeSet* cs = load(p);
    ASSERT_NE(cs, nullptr);
    for (unsigned b = 0; b < 256; ++b) {
        if (b == 0x0E || b == 0x0F) continue;
        const std::string in(1, static_cast<char>(b));
        EXPECT_EQ(to_utf8(cs, in), expected_for(p, in)) << "byte " << b;
    }
    int chars = 0;
    for (unsigned b1 = 1; b1 < 256; ++b1) {
        if (b1 == 0x0E || b1 == 0x0F) continue;
        for (unsigned b2 = 0; b2 < 256; ++b2) {
            if (b2 == 0x0E || b2 == 0x0F) continue;
            const std::string in = std::string(1, kSO) + static_cast<char>(b1) + static_cast<char>(b2) + kSI;
            const std::string expected = expected_for(p, in);
            ASSERT_EQ(to_utf8(cs, in), expected) << "bytes " << b1 << " " << b2;
            chars += expected != "?";
        }
    }
    EXPECT_GE(chars, 5000);
}

void ebcdic_double_from_utf8(const CodeSetParam& p) {
    CodeSet* cs = load(p);
    ASSERT_NE(cs, nullptr);
    int exact = 0, other = 0;
    for (std::uint32_t cp = 0; cp <= 0xFFFF; ++cp) {
        if (is_surrogate(cp)) continue;
        const std::string in = utf8_of(cp);
        const std::string ours = from_utf8(cs, in);
        const auto ref = iconv_convert("UTF-8", p.codeset, in);
        if (ours == "\x6F" && cp != '?') {
            if (ref) {
                EXPECT_NE(iconv_convert(p.codeset, "UTF-8", *ref), in) << "code point " << cp;
            }
            continue;
        }
        ASSERT_TRUE(ours.size() == 1 || (ours.size() == 4 && ours[0] == kSO && ours[3] == kSI))
            << "code point " << cp << " gave " << hex(ours);
        EXPECT_EQ(iconv_convert(p.codeset, "UTF-8", ours), in) << "code point " << cp;
        (ref && *ref == ours ? exact : other) += 1;
    }
    EXPECT_GE(exact, 5000);
    EXPECT_LT(other, exact / 20);
}

void ebcdic_double_mixed_text(const CodeSetParam& p) {
    CodeSet* cs = load(p);
    ASSERT_NE(cs, nullptr);
    // Digits, blanks and kanji with runs of both widths.
    const std::string text = "12 \xE6\x97\xA5\xE6\x9C\xAC 3\xE6\x97\xA5 4";
    const auto ref = iconv_convert("UTF-8", p.codeset, text);
    ASSERT_TRUE(ref);
    EXPECT_EQ(from_utf8(cs, text), *ref);
    EXPECT_EQ(to_utf8(cs, *ref), text);
}

TEST(IconvSweep, EbcdicDoubleByte) {
    const CodeSetParam p{"IBM930", "ebcdic-dbcs"};
    ebcdic_double_to_utf8(p);
    ebcdic_double_from_utf8(p);
    ebcdic_double_mixed_text(p);
}

// A double-byte character goes out only with room for its shift bytes and
// the terminator; otherwise the text stops before it.
TEST(RoomEdges, EbcdicDoubleByteKeepsItsShiftIn) {
    CodeSet* cs = load(CodeSetParam{"IBM930", "ebcdic-dbcs"});
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

// The alias list: two words a line, comments, a line without a line end
// left unused, the answer cut to the buffer.
TEST(AliasList, NamesAreReplacedByTheirTable) {
    test::TempDir dir;
    dir.write("codeset/aliases", "# FOO NOTE\nFOO BAR\nONE\n\t TWO  THREE extra\nFOO LATER\nLAST END");
    test::ScopedEnv ils("ILSDIR", dir.path());
    const std::pair<const char*, const char*> cases[] = {
        {"FOO", "BAR"}, {"TWO", "THREE"}, {"ONE", "ONE"}, {"LAST", "LAST"}, {"#", "#"}, {"NONE", "NONE"}, {"", ""}};
    char buffer[8];
    for (const auto& [name, want] : cases) {
        EXPECT_EQ(ils_alias_name(name, buffer, sizeof buffer), static_cast<int>(std::strlen(want))) << name;
        EXPECT_STREQ(buffer, want) << name;
    }
    EXPECT_EQ(ils_alias_name("TWO", buffer, 3), 2);
    EXPECT_STREQ(buffer, "TH");
}

// Locale names in their canonical form, and the language each stands for.
TEST(LanguageNames, CanonicalLocaleAndLanguage) {
    struct Case {
        const char* name;
        const char* locale;
        const char* language;
    };
    const Case cases[] = {
        {"za-az.UTF-8", "za_AZ", "za_AZ"}, {"ZA_az", "za_AZ", "za_AZ"}, {"fr_ca", "fr_CA", "fr_FR"},
        {"Pt_br@euro", "pt_BR", "pt_BR"},  {"japanese", "ja_JP", "ja_JP"}, {"cz", "cs", "cs"},
        {"en_GB", "en_GB", "C"},           {"de", "de", "de"},          {"de_ATX", "C", "C"},
        {"d1", "C", "C"},                  {"", "C", "C"},              {"fr_1A", "C", "C"},
    };
    char buffer[16];
    for (const Case& c : cases) {
        EXPECT_EQ(ils_canonical_loc(c.name, buffer, sizeof buffer), static_cast<int>(std::strlen(c.locale))) << c.name;
        EXPECT_STREQ(buffer, c.locale) << c.name;
        ils_canonical_lang(c.name, buffer, sizeof buffer);
        EXPECT_STREQ(buffer, c.language) << c.name;
    }
}

// A table is looked for while its directory and name fit in 253 bytes.
TEST(CodeSetNames, TheLongestNameThatFitsIsFound) {
    const std::string dir = test::shared_ilsdir() + "/codeset/";
    test::ensure_table("CP1252", "sbcs");
    test::ScopedEnv ils("ILSDIR", test::shared_ilsdir());
    test::ScopedEnv bin("BINDIR", std::nullopt);
    for (const std::size_t len : {253 - dir.size(), 254 - dir.size()}) {
        const std::string name(len, 'L');
        test::write_file(dir + name, "CP1252");  // an alias of the table
        EXPECT_EQ(ils_get_cs(name.c_str()) != nullptr, dir.size() + len == 253) << len;
    }
}

}  // namespace
}  // namespace alm
