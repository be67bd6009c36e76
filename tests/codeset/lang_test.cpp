#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "codeset/codeset_helpers.h"
#include "messages/codeset.h"

namespace alm {
namespace {

struct NameCase {
    const char* in;
    const char* out;
};

std::string canonical_loc(const char* name) {
    char buf[64];
    const int n = ils_canonical_loc(name, buf, sizeof buf);
    EXPECT_EQ(n, static_cast<int>(std::strlen(buf)));
    return buf;
}

std::string canonical_lang(const char* name) {
    char buf[64];
    const int n = ils_canonical_lang(name, buf, sizeof buf);
    EXPECT_EQ(n, static_cast<int>(std::strlen(buf)));
    return buf;
}

TEST(CanonicalLocale, MapsAndShapes) {
    const NameCase cases[] = {
        // The map, matched exactly.
        {"C", "C"},
        {"american", "C"},
        {"ar_AA", "ar"},
        {"cz", "cs"},
        {"japanese", "ja_JP"},
        {"Jp_JP", "ja_JP"},
        // Language alone.
        {"fr", "fr"},
        {"FR", "fr"},
        {"fr.UTF-8", "fr"},
        {"Cz", "cz"},
        // Language and territory.
        {"en_US", "en_US"},
        {"en_US.UTF-8", "en_US"},
        {"en_us", "en_US"},
        {"EN_us@euro", "en_US"},
        {"de-DE", "de_DE"},
        {"ar_SA", "ar_SA"},
        // Anything else.
        {"", "C"},
        {"POSIX", "C"},
        {"e", "C"},
        {"eng", "C"},
        {"en_", "C"},
        {"en_U", "C"},
        {"en_USA", "C"},
        {"en_US1", "C"},
        {"e1_US", "C"},
        {"12", "C"},
        {"en-US-x", "en_US"},
        {"american.ISO8859-1", "C"},
        {"de_-E", "C"},
    };
    for (const auto& c : cases) EXPECT_EQ(canonical_loc(c.in), c.out) << "name \"" << c.in << "\"";
    EXPECT_EQ(canonical_loc(nullptr), "C");
}

TEST(CanonicalLanguage, MapsThenTwoLettersThenLocale) {
    const NameCase cases[] = {
        {"C", "C"},         {"en", "C"},         {"en_US.UTF-8", "C"}, {"en_GB", "C"},
        {"american", "C"},  {"fr", "fr_FR"},     {"fr_CA", "fr_FR"},   {"fr_FR", "fr_FR"},
        {"ja", "ja_JP"},    {"japanese", "ja_JP"}, {"ja_JP.eucJP", "ja_JP"},
        {"pt", "pt_BR"},    {"pt_PT", "pt_BR"},  {"pt_BR", "pt_BR"},   {"zh", "zh_CN"},
        {"zh_HK", "zh_CN"}, {"zh_TW", "zh_TW"},  {"zh_CN", "zh_CN"},   {"de_DE", "de_DE"},
        {"de", "de"},       {"cz", "cs"},        {"es-MX", "es_MX"},   {"POSIX", "C"},
        {"", "C"},
    };
    for (const auto& c : cases) EXPECT_EQ(canonical_lang(c.in), c.out) << "name \"" << c.in << "\"";
}

TEST(CanonicalNames, CutToBufferSize) {
    char buf[8];
    std::memset(buf, 'x', sizeof buf);
    EXPECT_EQ(ils_canonical_loc("en_US", buf, 3), 2);
    EXPECT_STREQ(buf, "en");
    EXPECT_EQ(ils_canonical_lang("fr", buf, 4), 3);
    EXPECT_STREQ(buf, "fr_");
    EXPECT_EQ(ils_canonical_loc("en_US", buf, 1), 0);
    EXPECT_STREQ(buf, "");
    std::memset(buf, 'x', sizeof buf);
    EXPECT_EQ(ils_canonical_loc("en_US", buf, 0), 0);
    EXPECT_EQ(buf[0], 'x');
    EXPECT_EQ(ils_canonical_loc("en_US", nullptr, 8), 0);
}

TEST(OsLangName, FromLangOrC) {
    char buf[32];
    {
        test::ScopedEnv lang("LANG", std::nullopt);
        EXPECT_EQ(ils_os_lang_name(buf, sizeof buf), 1);
        EXPECT_STREQ(buf, "C");
    }
    {
        test::ScopedEnv lang("LANG", "");
        ils_os_lang_name(buf, sizeof buf);
        EXPECT_STREQ(buf, "C");
    }
    {
        test::ScopedEnv lang("LANG", "de_DE.UTF-8");
        EXPECT_EQ(ils_os_lang_name(buf, sizeof buf), 11);
        EXPECT_STREQ(buf, "de_DE.UTF-8");
        EXPECT_EQ(ils_os_lang_name(buf, 4), 3);
        EXPECT_STREQ(buf, "de_");
    }
}

}  // namespace
}  // namespace alm
