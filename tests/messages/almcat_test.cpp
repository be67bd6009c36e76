// The catalog compiler: source syntax, file layout, listing and errors.
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "messages/catalogfile.h"
#include "messages/msg_helpers.h"
#include "messages/msgcat.h"
#include "util/endian.h"

namespace alm::msgtest {
namespace {

RunResult almcat(const std::string& args) { return run_command(almcat_path() + " " + args); }

const std::string ROUND_TRIP_SOURCE =
    "$ a comment\n"
    "1 default set message\n"
    "$set 3 trailing comment\n"
    "2 tab\\there, newline\\nthere, backslash \\\\ and octal \\101\\102\n"
    "1 first of set three\n"
    "$quote \"\n"
    "3 \"quoted text with \\\" inside\"  \n"
    "4 continued \\\n"
    "line\n"
    "5  two leading blanks kept\n"
    "6 \n"
    "7 deleted below\n"
    "7\n"
    "$quote\n"
    "8 \"not quoted\"\n"
    "\n"
    "$set 2\n"
    "1 set two\n"
    "$delset 2 gone again\n"
    "$set 4\r\n"
    "1 one\n"
    "1 replaced\n"
    "9 ends with a backslash \\\\\n"
    "10 bell \\a, del \\177, \\r\\v\\b\\f and UTF-8 caf\xc3\xa9\n";

const std::string ROUND_TRIP_LISTING =
    "$set 1\n"
    "1 default set message\n"
    "$set 3\n"
    "1 first of set three\n"
    "2 tab\\there, newline\\nthere, backslash \\\\ and octal AB\n"
    "3 quoted text with \" inside\n"
    "4 continued line\n"
    "5  two leading blanks kept\n"
    "6 \n"
    "8 \"not quoted\"\n"
    "$set 4\n"
    "1 replaced\n"
    "9 ends with a backslash \\\\\n"
    "10 bell \\007, del \\177, \\r\\v\\b\\f and UTF-8 caf\xc3\xa9\n";

TEST(Almcat, RoundTrip) {
    TempDir home;
    const std::string src = home.write("a.msg", ROUND_TRIP_SOURCE);
    RunResult c = almcat(src + " " + home.file("a.cat"));
    ASSERT_EQ(c.status, 0) << c.err;
    EXPECT_EQ(c.err, "");
    RunResult l = almcat("--list " + home.file("a.cat"));
    ASSERT_EQ(l.status, 0) << l.err;
    EXPECT_EQ(l.out, ROUND_TRIP_LISTING);

    // The listing compiles to the very same file.
    const std::string again = home.write("b.msg", l.out);
    ASSERT_EQ(almcat(again + " " + home.file("b.cat")).status, 0);
    EXPECT_EQ(read_file(home.file("a.cat")), read_file(home.file("b.cat")));
}

TEST(Almcat, FileLayout) {
    TempDir home;
    const std::string src = home.write("s.msg", "$set 3\n1 hi\n2 yo\n$set 7\n4 z\n");
    ASSERT_EQ(almcat(src + " " + home.file("s.cat")).status, 0);
    const std::string got = read_file(home.file("s.cat"));
    std::vector<unsigned char> want;
    auto be = [&](std::uint32_t v) {
        unsigned char b[4];
        store_be32(b, v);
        want.insert(want.end(), b, b + 4);
    };
    auto text = [&](const std::string& t) { want.insert(want.end(), t.begin(), t.end()); };
    text("*nazgul*");
    be(1), be(1), be(0), be(2), be(28);
    // set 3 at 28: records at 56, texts at 80 ("hi\0yo\0")
    be(3), be(86), be(56), be(80), be(6), be(2), be(0);
    be(1), be(0), be(0);
    be(2), be(3), be(0);
    text(std::string("hi\0yo\0", 6));
    // set 7 at 86: record at 114, text at 126 ("z\0")
    be(7), be(0), be(114), be(126), be(2), be(1), be(0);
    be(4), be(0), be(0);
    text(std::string("z\0", 2));
    EXPECT_EQ(got, std::string(want.begin(), want.end()));
}

TEST(Almcat, DeletedRecordsKeptOnRequestAreSkippedByReaders) {
    TempDir home;
    const std::string src = home.write("d.msg", "$set 1\n1 a\n$set 2\n1 b\n2 c\n2\n3 d\n$delset 1\n");
    ASSERT_EQ(almcat("--keep-deleted " + src + " " + home.file("d.cat")).status, 0);
    const std::string bytes = read_file(home.file("d.cat"));
    ASSERT_GE(bytes.size(), 56u);
    const auto* b = reinterpret_cast<const unsigned char*>(bytes.data());
    EXPECT_EQ(load_be32(b + 20), 1u);           // one valid set
    EXPECT_EQ(load_be32(b + 28), 1u);           // the first record is set 1...
    EXPECT_EQ(load_be32(b + 28 + 24), 1u);      // ...marked invalid
    const std::uint32_t set2 = load_be32(b + 28 + 4);
    EXPECT_EQ(load_be32(b + set2 + 20), 3u);    // three records, one of them deleted
    const std::uint32_t recs = load_be32(b + set2 + 8);
    EXPECT_EQ(load_be32(b + recs + 12 + 8), 1u);

    RunResult r = run_child([&] {
        nim_catd h = loadCat(home.file("d.cat").c_str(), 0);
        MCCatT* cat = nim_cat(h);
        std::printf("%d sets, first %d\n", cat->numSets, cat->sets[0].setId);
        for (int m = 1; m <= 3; ++m) std::printf("2/%d %s\n", m, nim_catgets(h, 2, m, "(none)"));
        std::printf("1/1 %s\n", nim_catgets(h, 1, 1, "(none)"));
    });
    EXPECT_EQ(r.out, "1 sets, first 2\n2/1 b\n2/2 (none)\n2/3 d\n1/1 (none)\n");

    RunResult l = almcat("--list " + home.file("d.cat"));
    EXPECT_EQ(l.out, "$set 2\n1 b\n3 d\n");

    // Without the option the deletions leave no trace.
    ASSERT_EQ(almcat(src + " " + home.file("e.cat")).status, 0);
    EXPECT_LT(read_file(home.file("e.cat")).size(), bytes.size());
    EXPECT_EQ(almcat("--list " + home.file("e.cat")).out, "$set 2\n1 b\n3 d\n");
}

TEST(Almcat, SourceErrorsNameTheLine) {
    struct Case {
        const char* source;
        const char* error;  // after "almcat: SRC:"
    };
    const Case cases[] = {
        {"$set\n", "1: $set needs a set number from 1 to 2147483647"},
        {"$set 0\n", "1: set numbers start at 1"},
        {"$set 12x\n", "1: $set needs a set number from 1 to 2147483647"},
        {"$delset 99999999999\n", "1: $delset needs a set number from 1 to 2147483647"},
        {"1 a\n$frob 1\n", "2: unknown directive $frob"},
        {"1 a\n\n  5 indented\n", "3: expected a message number or a $ directive"},
        {"abc\n", "1: expected a message number or a $ directive"},
        {"0 zero\n", "1: message numbers start at 1"},
        {"99999999999 x\n", "1: message number above 2147483647"},
        {"5x text\n", "1: expected a blank after the message number"},
        {"5 bad \\q escape\n", "1: unknown escape \\q"},
        {"5 nul \\0 here\n", "1: a NUL byte cannot be part of a text"},
        {"5 big \\400\n", "1: octal escape above \\377"},
        {"$quote \"\n5 \"open\n", "2: missing closing quote"},
        {"$quote \"\n5 \"a\" b\n", "2: text after the closing quote"},
        {"1 ok\n2 continued \\\n", "2: continuation at the end of the file"},
        {"1 a\n2 two \\\nlines \\q\n", "2: unknown escape \\q"},
    };
    TempDir home;
    for (const auto& c : cases) {
        const std::string src = home.write("e.msg", c.source);
        RunResult r = almcat(src + " " + home.file("e.cat"));
        EXPECT_EQ(r.status, 1) << c.source;
        EXPECT_EQ(r.err, "almcat: " + src + ":" + c.error + "\n") << c.source;
        EXPECT_FALSE(std::ifstream(home.file("e.cat")).good()) << c.source;
    }
}

TEST(Almcat, OtherFailures) {
    TempDir home;
    const std::string none = home.write("none.msg", "$ nothing but a comment\n");
    RunResult empty = almcat(none + " " + home.file("x.cat"));
    EXPECT_EQ(empty.status, 1);
    EXPECT_EQ(empty.err, "almcat: " + none + ": no sets to write\n");

    const std::string deleted = home.write("del.msg", "$set 1\n1 a\n$delset 1\n");
    EXPECT_EQ(almcat(deleted + " " + home.file("x.cat")).err, "almcat: " + deleted + ": no sets to write\n");

    RunResult missing = almcat(home.file("missing.msg") + " " + home.file("x.cat"));
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.err, "almcat: " + home.file("missing.msg") + ": No such file or directory\n");

    const std::string ok = home.write("ok.msg", "1 a\n");
    RunResult unwritable = almcat(ok + " " + home.file("no/such/dir/x.cat"));
    EXPECT_EQ(unwritable.status, 1);
    EXPECT_EQ(unwritable.err, "almcat: " + home.file("no/such/dir/x.cat.tmp") + ": No such file or directory\n");

    const std::string junk = home.write("junk.cat", std::string("this is no catalog"));
    RunResult bad = almcat("--list " + junk);
    EXPECT_EQ(bad.status, 1);
    EXPECT_EQ(bad.err,
              "Message Catalog System: Attempted to use Nimbus message catalog software to access\n" + junk +
                  " which is not a valid Nimbus message catalog.\n"
                  "Moving the Nimbus message catalog directory to the front of NLSPATH\n"
                  "may correct this problem.\n"
                  "almcat: " + junk + ": not a readable message catalog\n");
}

}  // namespace
}  // namespace alm::msgtest
