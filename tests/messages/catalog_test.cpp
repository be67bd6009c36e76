// Catalog files, their cache and the search for them.
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "messages/catalogfile.h"
#include "messages/msg_helpers.h"
#include "messages/msgcat.h"
#include "messages/msgord.h"
#include "util/endian.h"

namespace alm::msgtest {
namespace {

const std::string CORRUPT_TAIL =
    " which is not a valid Nimbus message catalog.\n"
    "Moving the Nimbus message catalog directory to the front of NLSPATH\n"
    "may correct this problem.\n";

std::string corrupt_text(const std::string& path) {
    return "Message Catalog System: Attempted to use Nimbus message catalog software to access\n" + path +
           CORRUPT_TAIL;
}

std::vector<RawSet> sample_sets() {
    return {
        {1, {{1, "one"}, {2, "two"}, {3, "three"}}},
        {5, {{1, "five-one"}, {10, "five-ten"}, {999, "five-999"}}},
        {7, {{2, "seven-two"}}},
        {100, {{1, "hundred"}}},
        {2000, {{4, "big"}}},
    };
}

// Loads path in a child and prints the handle class and what each lookup
// gives, one per line.
RunResult probe(const std::string& path, int flags, const std::vector<std::pair<int, int>>& lookups) {
    return run_child([&] {
        use_home("");
        nim_catd h = loadCat(path.c_str(), flags);
        std::printf("handle %s\n", h == 0 ? "0" : h == NIM_CATD_ERR ? "-1" : "ok");
        for (auto [set, msg] : lookups) std::printf("%d/%d %s\n", set, msg, nim_catgets(h, set, msg, "(none)"));
    });
}

TEST(CatalogFile, SetsAndMessagesFoundByNarrowingSearch) {
    TempDir home;
    const std::string path = home.write("a.cat", build_catalog(sample_sets()));
    const std::vector<std::pair<int, int>> lookups = {
        {1, 1},   {1, 2},   {1, 3}, {1, 4}, {5, 1},     {5, 10}, {5, 999}, {5, 2},  {5, 1000}, {7, 2},
        {7, 1},   {100, 1}, {2000, 4}, {3, 1}, {0, 1}, {-1, 1}, {1, 0},   {1, -3}, {99999, 1}, {6, 1},
    };
    const std::string want =
        "handle ok\n"
        "1/1 one\n1/2 two\n1/3 three\n1/4 (none)\n5/1 five-one\n5/10 five-ten\n5/999 five-999\n5/2 (none)\n"
        "5/1000 (none)\n7/2 seven-two\n7/1 (none)\n100/1 hundred\n2000/4 big\n3/1 (none)\n0/1 (none)\n"
        "-1/1 (none)\n1/0 (none)\n1/-3 (none)\n99999/1 (none)\n6/1 (none)\n";
    for (int flags : {0, NIM_CAT_LOADALL}) {
        RunResult r = probe(path, flags, lookups);
        EXPECT_EQ(r.out, want) << "flags " << flags;
        EXPECT_EQ(r.err, "");
    }
}

TEST(CatalogFile, InvalidSetsAndMessagesAreSkipped) {
    TempDir home;
    const std::string path = home.write(
        "b.cat", build_catalog({
                     {1, {{1, "deleted set"}}, 1},
                     {2, {{1, "two-one"}, {2, "gone", 1}, {3, "two-three"}}},
                     {3, {}, 1},
                     {4, {{1, "four-one", 1}, {2, "four-two"}}},
                 }));
    RunResult r = run_child([&] {
        nim_catd h = loadCat(path.c_str(), 0);
        MCCatT* cat = nim_cat(h);
        std::printf("sets %d:", cat->numSets);
        for (const MCSetT& s : cat->sets) std::printf(" %d", s.setId);
        std::printf("\n");
        for (auto [set, msg] : std::vector<std::pair<int, int>>{{1, 1}, {2, 1}, {2, 2}, {2, 3}, {4, 1}, {4, 2}})
            std::printf("%d/%d %s\n", set, msg, nim_catgets(h, set, msg, "(none)"));
        std::printf("set 2 holds %d\n", MCGetSet(cat, 2)->numMsgs);
    });
    EXPECT_EQ(r.out,
              "sets 2: 2 4\n1/1 (none)\n2/1 two-one\n2/2 (none)\n2/3 two-three\n4/1 (none)\n4/2 four-two\n"
              "set 2 holds 2\n");
}

TEST(CatalogFile, FileIsClosedOnceEverySetIsLoaded) {
    TempDir home;
    const std::string path = home.write("c.cat", build_catalog(sample_sets()));
    RunResult r = run_child([&] {
        MCCatT* lazy = nim_cat(loadCat(path.c_str(), 0));
        std::printf("lazy open %d\n", lazy->fd >= 0);
        for (MCSetT& s : lazy->sets) MCGetSet(lazy, s.setId);
        std::printf("lazy after %d\n", lazy->fd);
        nim_cache_flush();
        const std::string copy = path + "2";
        ::link(path.c_str(), copy.c_str());
        MCCatT* all = nim_cat(loadCat(copy.c_str(), NIM_CAT_LOADALL));
        std::printf("all %d\n", all->fd);
    });
    EXPECT_EQ(r.out, "lazy open 1\nlazy after -1\nall -1\n");
}

struct Damage {
    const char* what;
    void (*apply)(std::vector<unsigned char>&);
    const char* handle;  // what loadCat gives
    bool corrupt_text;
    const char* other_err;  // exact text, %s for the path
};

TEST(CatalogFile, DamagedFilesAreRejectedWithTheirText) {
    const Damage cases[] = {
        {"empty file", [](std::vector<unsigned char>& b) { b.clear(); }, "0", true, nullptr},
        {"short header", [](std::vector<unsigned char>& b) { b.resize(20); }, "0", true, nullptr},
        {"wrong magic", [](std::vector<unsigned char>& b) { b[1] = 'N'; }, "0", true, nullptr},
        {"version 2", [](std::vector<unsigned char>& b) { store_be32(b.data() + 8, 2); }, "-1", false,
         "Message Catalog System: %s is version 2, we need 1.\n"},
        {"no sets", [](std::vector<unsigned char>& b) { store_be32(b.data() + 20, 0); }, "-1", false,
         "Message Catalog System: %s has 0 sets!\n"},
        {"negative sets", [](std::vector<unsigned char>& b) { store_be32(b.data() + 20, 0xFFFFFFFFu); }, "-1", false,
         "Message Catalog System: %s has -1 sets!\n"},
        {"more sets than the file holds",
         [](std::vector<unsigned char>& b) { store_be32(b.data() + 20, 0x7FFFFFFFu); }, "0", true, nullptr},
        {"one set more than chained", [](std::vector<unsigned char>& b) { store_be32(b.data() + 20, 6); }, "0", true,
         nullptr},
        {"first set beyond the end", [](std::vector<unsigned char>& b) { store_be32(b.data() + 24, 100000); }, "0",
         true, nullptr},
        {"negative first set", [](std::vector<unsigned char>& b) { store_be32(b.data() + 24, 0x80000000u); }, "0",
         true, nullptr},
        {"truncated set record", [](std::vector<unsigned char>& b) { b.resize(40); }, "0", true, nullptr},
    };
    TempDir home;
    const std::vector<unsigned char> good = build_catalog(sample_sets());
    for (const auto& c : cases) {
        std::vector<unsigned char> bytes = good;
        c.apply(bytes);
        const std::string path = home.write("bad.cat", bytes);
        for (int flags : {0, NIM_CAT_LOADALL}) {
            RunResult r = probe(path, flags, {{1, 1}});
            EXPECT_EQ(r.out, std::string("handle ") + c.handle + "\n1/1 (none)\n") << c.what;
            std::string want;
            if (c.corrupt_text) {
                want = corrupt_text(path);
            } else {
                char buf[512];
                std::snprintf(buf, sizeof buf, c.other_err, path.c_str());
                want = buf;
            }
            EXPECT_EQ(r.err, want) << c.what;
        }
    }
}

TEST(CatalogFile, ChainThatLoopsOnDeletedSetsIsRejected) {
    TempDir home;
    std::vector<unsigned char> b = build_catalog({{1, {{1, "x"}}, 1}, {2, {{1, "y"}}}});
    // The deleted first set points at itself: the valid set is never reached.
    store_be32(b.data() + CAT_HEADER_SIZE + 4, CAT_HEADER_SIZE);
    const std::string path = home.write("loop.cat", b);
    RunResult r = probe(path, 0, {});
    EXPECT_EQ(r.out, "handle 0\n");
    EXPECT_EQ(r.err, corrupt_text(path));
}

// Damage inside a set shows only when the set is loaded: lazily the message
// is simply absent; loading everything at open rejects the file.
TEST(CatalogFile, DamagedSetsGiveNoTexts) {
    struct SetDamage {
        const char* what;
        void (*apply)(std::vector<unsigned char>&, std::size_t set_at);
    };
    const SetDamage cases[] = {
        {"text block beyond the end",
         [](std::vector<unsigned char>& b, std::size_t s) { store_be32(b.data() + s + 16, 100000); }},
        {"negative text length",
         [](std::vector<unsigned char>& b, std::size_t s) { store_be32(b.data() + s + 16, 0xFFFFFFF0u); }},
        {"message records beyond the end",
         [](std::vector<unsigned char>& b, std::size_t s) { store_be32(b.data() + s + 20, 0x10000000u); }},
        {"negative message count",
         [](std::vector<unsigned char>& b, std::size_t s) { store_be32(b.data() + s + 20, 0xFFFFFFFFu); }},
        {"text offset outside its block",
         [](std::vector<unsigned char>& b, std::size_t s) {
             store_be32(b.data() + load_be32(b.data() + s + 8) + 4, 50);
         }},
        {"text without its NUL",
         [](std::vector<unsigned char>& b, std::size_t s) {
             // The block is "one\0"; cut it to "one".
             store_be32(b.data() + s + 16, 3);
         }},
    };
    TempDir home;
    for (const auto& c : cases) {
        std::vector<unsigned char> b = build_catalog({{1, {{1, "one"}}}, {2, {{1, "fine"}}}});
        c.apply(b, CAT_HEADER_SIZE);
        const std::string path = home.write("set.cat", b);
        RunResult lazy = probe(path, 0, {{1, 1}, {2, 1}});
        EXPECT_EQ(lazy.out, "handle ok\n1/1 (none)\n2/1 fine\n") << c.what;
        EXPECT_EQ(lazy.err, "") << c.what;
        RunResult all = probe(path, NIM_CAT_LOADALL, {{2, 1}});
        EXPECT_EQ(all.out, "handle 0\n2/1 (none)\n") << c.what;
        EXPECT_EQ(all.err, corrupt_text(path)) << c.what;
    }
}

TEST(CatalogCache, EleventhCatalogEvictsTheLeastRecentlyUsedClosedOne) {
    TempDir home;
    const std::vector<unsigned char> bytes = build_catalog(sample_sets());
    std::vector<std::string> paths;
    for (int i = 0; i < 12; ++i) paths.push_back(home.write("c" + std::to_string(i) + ".cat", bytes));
    RunResult r = run_child([&] {
        std::vector<nim_catd> h;
        for (int i = 0; i < 10; ++i) h.push_back(loadCat(paths[i].c_str(), 0));
        // Every slot is held: the eleventh cannot be entered.
        std::printf("full %ld\n", loadCat(paths[10].c_str(), 0));
        for (nim_catd x : h) std::printf("%d", nim_catclose(x));
        std::printf(" again %d\n", nim_catclose(h[0]));
        // c0 is used again (stamped and held), so c1 is now the oldest.
        std::printf("reuse %d\n", loadCat(paths[0].c_str(), 0) == h[0]);
        nim_catd eleventh = loadCat(paths[10].c_str(), 0);
        std::printf("eleventh %d\n", eleventh != NIM_CATD_ERR && eleventh != 0);
        std::printf("c0 %d c1 %d c2 %d\n", lookupCat(paths[0].c_str()) != nullptr,
                    lookupCat(paths[1].c_str()) != nullptr, lookupCat(paths[2].c_str()) != nullptr);
        std::printf("evicted handle %s\n", nim_catgets(h[1], 1, 1, "(none)"));
        std::printf("held handle %s\n", nim_catgets(h[0], 1, 1, "(none)"));
        std::printf("close evicted %d\n", nim_catclose(h[1]));
        nim_catd twelfth = loadCat(paths[11].c_str(), 0);
        std::printf("c2 %d c12 %d\n", lookupCat(paths[2].c_str()) != nullptr, twelfth != NIM_CATD_ERR && twelfth != 0);
    });
    EXPECT_EQ(r.out,
              "full -1\n0000000000 again -1\nreuse 1\neleventh 1\nc0 1 c1 0 c2 1\nevicted handle (none)\n"
              "held handle one\nclose evicted -1\nc2 0 c12 1\n");
}

TEST(CatalogCache, GarbageHandlesAreHarmless) {
    RunResult r = run_child([] {
        long dummy = 0;
        const nim_catd bogus[] = {0, -1, 1, reinterpret_cast<nim_catd>(&dummy)};
        for (nim_catd h : bogus) std::printf("%s %d\n", nim_catgets(h, 1, 1, "dflt"), nim_catclose(h));
        std::printf("%s\n", nim_catgets(-1, 1, 1, nullptr) == nullptr ? "null" : "text");
    });
    EXPECT_EQ(r.out, "dflt -1\ndflt -1\ndflt -1\ndflt -1\nnull\n");
}

TEST(CatalogSearch, TemplateExpansion) {
    struct Case {
        const char* elem;
        const char* lang;
        const char* want;
    };
    const Case cases[] = {
        {"/nls/%L/%N.cat", "fr_FR.ISO8859-1", "/nls/fr_FR.ISO8859-1/kestrel.cat"},
        {"%l|%t|%c", "fr_FR.ISO8859-1", "fr|FR|ISO8859-1"},
        {"%l|%t|%c", "fr_FR", "fr|FR|"},
        {"%l|%t|%c", "de.UTF-8", "de||UTF-8"},
        {"%l|%t|%c", "C", "C||"},
        {"%x%%N%", "C", "%x%kestrel%"},
        {"plain", "C", "plain"},
        {"", "C", ""},
    };
    for (const auto& c : cases) EXPECT_EQ(nls_expand(c.elem, "kestrel", c.lang), c.want) << c.elem << " " << c.lang;
}

class CatalogSearchTest : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* lang : {"fr_FR", "fr", "C", "de"}) {
            home_.write(std::string("nls/") + lang + "/kestrel.cat",
                        build_catalog({{1, {{1, std::string("kestrel in ") + lang}}}}));
        }
    }
    // Opens name in a child with the environment given, printing set 1
    // message 1 of what was found.
    RunResult open(const std::string& name, int flags, const std::vector<std::pair<const char*, std::string>>& env) {
        return run_child([&] {
            use_home(home_.path());
            for (const auto& [k, v] : env) ::setenv(k, v.c_str(), 1);
            nim_catd h = nim_catopen(name.c_str(), flags);
            std::printf("%s\n", nim_catgets(h, 1, 1, "(failed)"));
        });
    }
    TempDir home_;
};

TEST_F(CatalogSearchTest, LanguageThenItsTwoLettersThenC) {
    const std::string tmpl = home_.path() + "/nls/%L/%N.cat";
    EXPECT_EQ(open("kestrel", 0, {{"NLSPATH", tmpl}, {"LANG", "fr_FR"}}).out, "kestrel in fr_FR\n");
    EXPECT_EQ(open("kestrel", 0, {{"NLSPATH", tmpl}, {"LANG", "de_DE"}}).out, "kestrel in de\n");
    EXPECT_EQ(open("kestrel", 0, {{"NLSPATH", tmpl}, {"LANG", "it_IT"}}).out, "kestrel in C\n");
    EXPECT_EQ(open("kestrel", 0, {{"NLSPATH", home_.path() + "/nls/%l/%N.cat"}, {"LANG", "fr_FR"}}).out,
              "kestrel in fr\n");
    EXPECT_EQ(open("missing", 0, {{"NLSPATH", tmpl}}).out, "(failed)\n");
    EXPECT_EQ(open("", 0, {{"NLSPATH", tmpl}}).out, "(failed)\n");
}

TEST_F(CatalogSearchTest, LocaleVariablesNeedFlagOne) {
    const std::string tmpl = home_.path() + "/nls/%L/%N.cat";
    EXPECT_EQ(open("kestrel", NIM_CAT_LOCALE, {{"NLSPATH", tmpl}, {"LC_ALL", "fr"}, {"LC_MESSAGES", "de"}}).out,
              "kestrel in fr_FR\n");
    EXPECT_EQ(open("kestrel", NIM_CAT_LOCALE, {{"NLSPATH", tmpl}, {"LC_MESSAGES", "de_DE"}}).out, "kestrel in de\n");
    EXPECT_EQ(open("kestrel", NIM_CAT_LOCALE | NIM_CAT_LOADALL, {{"NLSPATH", tmpl}, {"LANG", "fr_FR"}}).out,
              "kestrel in fr_FR\n");
    EXPECT_EQ(open("kestrel", 0, {{"NLSPATH", tmpl}, {"LC_ALL", "fr"}}).out, "kestrel in C\n");
    EXPECT_EQ(open("kestrel", NIM_CAT_LOADALL, {{"NLSPATH", tmpl}}).out, "(failed)\n");
}

TEST_F(CatalogSearchTest, TemplateElements) {
    const std::string d = home_.path();
    // Split at ":" and ";", the first existing expansion wins.
    EXPECT_EQ(open("kestrel", 0, {{"NLSPATH", "/nowhere/%N:" + d + "/nls/de/%N.cat;" + d + "/nls/C/%N.cat"}}).out,
              "kestrel in de\n");
    EXPECT_EQ(open("kestrel", 0, {{"NLSPATH", "/nowhere/%N;" + d + "/nls/C/%N.cat"}}).out, "kestrel in C\n");
    // A ":" as an element's second character is a drive letter, not a split.
    RunResult drive = run_child([&] {
        use_home(d);
        ::chdir(d.c_str());
        home_.write("q:/kestrel.cat", build_catalog({{1, {{1, "kestrel on q:"}}}}));
        ::setenv("NLSPATH", "q:/%N.cat", 1);
        std::printf("%s\n", nim_catgets(nim_catopen("kestrel", 0), 1, 1, "(failed)"));
    });
    EXPECT_EQ(drive.out, "kestrel on q:\n");
    // A path is loaded as it stands.
    EXPECT_EQ(open(d + "/nls/fr/kestrel.cat", 0, {{"NLSPATH", "/nowhere/%N"}}).out, "kestrel in fr\n");
    EXPECT_EQ(open(d + "/nls/xx/kestrel.cat", 0, {}).out, "(failed)\n");
    EXPECT_EQ(open(d + "/nls", 0, {}).out, "(failed)\n");
}

TEST_F(CatalogSearchTest, ApplicationPathIsTriedLast) {
    RunResult r = run_child([&] {
        use_home(home_.path());
        ::setenv("NLSPATH", "/nowhere/%N", 1);
        nim_set_app_path((home_.path() + "/nls/de/%N.cat").c_str());
        std::printf("%s\n", nim_catgets(nim_catopen("kestrel", 0), 1, 1, "(failed)"));
    });
    EXPECT_EQ(r.out, "kestrel in de\n");
}

TEST_F(CatalogSearchTest, CorruptCatalogStopsTheTemplateButNotTheFallbacks) {
    home_.write("bad/fr_FR/kestrel.cat", std::string("not a catalog at all, not at all"));
    const std::string d = home_.path();
    RunResult r = open("kestrel", 0, {{"NLSPATH", d + "/bad/%L/%N.cat:" + d + "/nls/%L/%N.cat"}, {"LANG", "fr_FR"}});
    // fr_FR stops at the corrupt file; fr finds the good one.
    EXPECT_EQ(r.out, "kestrel in fr\n");
    EXPECT_EQ(r.err, corrupt_text(d + "/bad/fr_FR/kestrel.cat"));
}

TEST(ProductCatalog, StemMustOpenTheFirstMessage) {
    TempDir home;
    home.write("nls/C/kestrel.cat", build_catalog({{1, {{1, "somebody else's catalog"}}}}));
    home.write("nls/C/cobalt.cat", build_catalog({{1, {{1, "cobalt via NLSPATH"}}}}));
    home.write("catalog/C/kestrel.cat", build_catalog({{1, {{1, "kestrel from home"}}}}));
    RunResult r = run_child([&] {
        use_home(home.path());
        ::setenv("NLSPATH", (home.path() + "/nls/%L/%N.cat").c_str(), 1);
        std::printf("%s\n", nim_catgets(open_catalog(2), 1, 1, "(failed)"));
        std::printf("%s\n", nim_catgets(open_catalog(1), 1, 1, "(failed)"));
        std::printf("%ld\n", open_catalog(13));
        std::printf("%ld\n", open_catalog(-1));
        std::printf("%s\n", nim_catgets(open_catalog(3), 1, 1, "(failed)"));
    });
    EXPECT_EQ(r.out, "kestrel from home\ncobalt via NLSPATH\n-1\n-1\n(failed)\n");
    EXPECT_EQ(r.err, "no catalog available for product 13\nno catalog available for product -1\ncatopen on " +
                         home.path() + "/catalog/C/reelwright.cat error: No such file or directory\n");
}

TEST(ProductCatalog, LanguageDirectoriesUnderHome) {
    TempDir home;
    home.write("catalog/C/kestrel.cat", build_catalog({{1, {{1, "kestrel C"}}}}));
    home.write("catalog/fr/kestrel.cat", build_catalog({{1, {{1, "kestrel fr"}}}}));
    home.write("catalog/ja_JP/kestrel.cat", build_catalog({{1, {{1, "kestrel ja_JP"}}}}));
    for (auto [lang, want] : std::vector<std::pair<const char*, const char*>>{
             {"fr_FR", "kestrel fr"}, {"ja", "kestrel ja_JP"}, {"C", "kestrel C"}}) {
        RunResult r = run_child([&] {
            use_home(home.path());
            ::setenv("LANG", lang, 1);
            std::printf("%s\n", nim_catgets(open_catalog(2), 1, 1, "(failed)"));
        });
        EXPECT_EQ(r.out, std::string(want) + "\n") << lang;
    }
}

}  // namespace
}  // namespace alm::msgtest
