// Where tables are found: alias files, the ILSDIR and BINDIR places, the
// alias list, and the default code set made from them.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <string>

#include "codeset/codeset_helpers.h"
#include "messages/codeset.h"
#include "messages/codeset_tables.h"

namespace alm {
namespace {

namespace fs = std::filesystem;
using test::ScopedEnv;
using test::TempDir;

// Changes the working directory for a scope.
class ScopedCwd {
public:
    explicit ScopedCwd(const std::string& dir) : old_(fs::current_path()) { fs::current_path(dir); }
    ~ScopedCwd() {
        std::error_code ec;
        fs::current_path(old_, ec);
    }

private:
    fs::path old_;
};

// Copies the shared table of an iconv code set to dir/name.
void put_table(const std::string& codeset, const std::string& type, const std::string& path) {
    const std::string table = test::ensure_table(codeset, type);
    fs::create_directories(fs::path(path).parent_path());
    fs::copy_file(test::shared_ilsdir() + "/codeset/" + table, path, fs::copy_options::overwrite_existing);
}

std::string to_utf8(CodeSet* cs, const std::string& in) {
    char out[64];
    return std::string(out, static_cast<std::size_t>(ils_to_utf8(cs, in.data(), static_cast<int>(in.size()),
                                                                  out, sizeof out)));
}

// Which table loaded, told by what byte 0xC1 becomes.
std::string c1_of(const std::unique_ptr<CodeSet>& cs) { return cs ? to_utf8(cs.get(), "\xC1") : "none"; }

const std::string kLatin1C1 = "\xC3\x81";  // ISO-8859-1: A acute
const std::string kEbcdicC1 = "A";         // IBM037
const std::string kPc850C1 = "\xE2\x94\xB4";  // IBM850: box drawing

TEST(AliasFiles, FiveStepsFollowedSixNot) {
    TempDir d;
    const std::string dir = d.path() + "/codeset/";
    put_table("ISO-8859-1", "sbcs", dir + "REAL");
    ASSERT_EQ(test::run_almcodeset({"--alias", d.path(), "S5", "a1"}), 0);
    for (int i = 1; i < 5; ++i)
        ASSERT_EQ(test::run_almcodeset({"--alias", d.path(), "a" + std::to_string(i),
                                        i == 4 ? "REAL" : "a" + std::to_string(i + 1)}),
                  0);
    ASSERT_EQ(test::run_almcodeset({"--alias", d.path(), "S6", "S5"}), 0);
    EXPECT_EQ(c1_of(load_table_file(dir + "REAL", "REAL")), kLatin1C1);
    EXPECT_EQ(c1_of(load_table_file(dir + "a4", "a4")), kLatin1C1);
    EXPECT_EQ(c1_of(load_table_file(dir + "S5", "S5")), kLatin1C1);
    EXPECT_EQ(load_table_file(dir + "S6", "S6"), nullptr);
    ScopedEnv ils("ILSDIR", d.path());
    EXPECT_NE(get_table("S5"), nullptr);
    EXPECT_EQ(get_table("S6"), nullptr);
}

TEST(AliasFiles, TextLosesWhiteSpaceAndControls) {
    TempDir d;
    const std::string dir = d.path() + "/codeset/";
    put_table("ISO-8859-1", "sbcs", dir + "REAL");
    test::write_file(dir + "spaced", std::string("  RE\tAL\r\n\x01\x7F", 11));
    test::write_file(dir + "loop1", "loop2\n");
    test::write_file(dir + "loop2", "loop1\n");
    test::write_file(dir + "empty", " \n\t");
    test::write_file(dir + "todir", "sub\n");
    fs::create_directories(dir + "sub");
    test::write_file(dir + "missing", "nothere\n");
    EXPECT_EQ(c1_of(load_table_file(dir + "spaced", "spaced")), kLatin1C1);
    for (const char* name : {"loop1", "empty", "todir", "missing", "sub", "nofile"})
        EXPECT_EQ(load_table_file(dir + name, name), nullptr) << name;
}

TEST(AliasFiles, ShortTableOrNoMagicIsAnAlias) {
    TempDir d;
    const std::string dir = d.path() + "/codeset/";
    fs::create_directories(dir);
    test::TableImage t;
    for (unsigned b = 0; b < 256; ++b) t.entries[b] = static_cast<std::uint16_t>(b);
    auto write = [&](const std::string& name, std::vector<unsigned char> bytes) {
        test::write_file(dir + name, std::string(bytes.begin(), bytes.end()));
    };
    write("full", t.bytes());
    t.size_override = 1759;
    write("short", t.bytes());
    t.size_override = 0;
    auto nomagic = t.bytes();
    nomagic[9] = 'C';
    write("nomagic", nomagic);
    EXPECT_NE(load_table_file(dir + "full", "full"), nullptr);
    EXPECT_EQ(load_table_file(dir + "short", "short"), nullptr);
    EXPECT_EQ(load_table_file(dir + "nomagic", "nomagic"), nullptr);
}

TEST(TableSearch, IlsdirThenBindirThenBareName) {
    TempDir ils, bin, cwd, empty;
    put_table("ISO-8859-1", "sbcs", ils.path() + "/codeset/X");
    fs::create_directories(bin.path() + "/bin");
    put_table("IBM037", "ebcdic", bin.path() + "/generic/codeset/X");
    put_table("IBM850", "sbcs", cwd.path() + "/X");
    ScopedCwd here(cwd.path());
    {
        ScopedEnv i("ILSDIR", ils.path());
        ScopedEnv b("BINDIR", bin.path() + "/bin");
        EXPECT_EQ(c1_of(get_table("X")), kLatin1C1);
    }
    {
        ScopedEnv i("ILSDIR", empty.path());
        ScopedEnv b("BINDIR", bin.path() + "/bin");
        EXPECT_EQ(c1_of(get_table("X")), kEbcdicC1);
    }
    {
        ScopedEnv i("ILSDIR", "");
        ScopedEnv b("BINDIR", bin.path() + "/bin");
        EXPECT_EQ(c1_of(get_table("X")), kEbcdicC1);
    }
    {
        ScopedEnv i("ILSDIR", std::nullopt);
        ScopedEnv b("BINDIR", empty.path());
        EXPECT_EQ(c1_of(get_table("X")), kPc850C1);
    }
    {
        ScopedEnv i("ILSDIR", std::nullopt);
        ScopedEnv b("BINDIR", std::nullopt);
        EXPECT_EQ(c1_of(get_table("X")), kPc850C1);
        EXPECT_EQ(get_table("Y"), nullptr);
        EXPECT_EQ(get_table(""), nullptr);
    }
}

// A directory under base whose path is exactly len bytes long.
std::string dir_of_length(const std::string& base, std::size_t len) {
    std::string path = base;
    while (path.size() < len) {
        const std::size_t left = len - path.size() - 1;  // after a "/"
        // Leave room for one more component of at least two bytes.
        std::size_t part = std::min<std::size_t>(left, 100);
        if (left > part && left - part < 2) part -= 2;
        path += "/" + std::string(part, 'd');
    }
    fs::create_directories(path);
    return path;
}

TEST(TableSearch, PathLengthLimits) {
    TempDir d;
    ASSERT_LT(d.path().size(), 100u);
    // ILSDIR + "/codeset/" + name may take 253 bytes at most.
    const std::string ils_ok = dir_of_length(d.path(), 243);
    const std::string ils_long = dir_of_length(d.path() + "/i", 244);
    put_table("ISO-8859-1", "sbcs", ils_ok + "/codeset/X");
    put_table("ISO-8859-1", "sbcs", ils_long + "/codeset/X");
    // BINDIR + "/../generic/codeset/" + name likewise.
    const std::string bin_ok = dir_of_length(d.path() + "/b", 232);
    const std::string bin_long = dir_of_length(d.path() + "/c", 233);
    put_table("IBM037", "ebcdic", fs::path(bin_ok).parent_path().string() + "/generic/codeset/X");
    put_table("IBM037", "ebcdic", fs::path(bin_long).parent_path().string() + "/generic/codeset/X");
    ScopedEnv none("BINDIR", std::nullopt);
    {
        ScopedEnv i("ILSDIR", ils_ok);
        EXPECT_EQ(c1_of(get_table("X")), kLatin1C1);
        // One byte more of name is past the limit.
        fs::copy_file(ils_ok + "/codeset/X", ils_ok + "/codeset/XX");
        EXPECT_EQ(get_table("XX"), nullptr);
    }
    {
        ScopedEnv i("ILSDIR", ils_long);
        EXPECT_EQ(get_table("X"), nullptr);
    }
    {
        ScopedEnv b("BINDIR", bin_ok);
        EXPECT_EQ(c1_of(get_table("X")), kEbcdicC1);
    }
    {
        ScopedEnv b("BINDIR", bin_long);
        EXPECT_EQ(get_table("X"), nullptr);
    }
}

std::string alias_of(const char* name) {
    char buf[64];
    const int n = ils_alias_name(name, buf, sizeof buf);
    EXPECT_EQ(n, static_cast<int>(std::strlen(buf)));
    return buf;
}

TEST(AliasList, LinesCommentsAndTheLastLine) {
    TempDir d;
    fs::create_directories(d.path() + "/codeset");
    test::write_file(d.path() + "/codeset/aliases",
                     "# name table\n"
                     "#850 COMMENTED\n"
                     "850 IBM850\n"
                     "  1252 \t CP1252 extra words\n"
                     "\n"
                     "lonely\n"
                     "850 SECOND\n"
                     "88591 ISO-8859-1\r\n"
                     "LAST LASTTABLE");
    ScopedEnv ils("ILSDIR", d.path());
    const struct {
        const char* in;
        const char* out;
    } cases[] = {
        {"850", "IBM850"},     {"1252", "CP1252"},  {"88591", "ISO-8859-1"}, {"LAST", "LAST"},
        {"#850", "#850"},      {"IBM850", "IBM850"}, {"lonely", "lonely"},   {"UNKNOWN", "UNKNOWN"},
        {"", ""},
    };
    for (const auto& c : cases) EXPECT_EQ(alias_of(c.in), c.out) << c.in;
    char small[4];
    EXPECT_EQ(ils_alias_name("850", small, sizeof small), 3);
    EXPECT_STREQ(small, "IBM");
}

TEST(AliasList, FromTheWorkingDirectoryWithoutUsableIlsdir) {
    TempDir cwd, ils;
    test::write_file(cwd.path() + "/aliases", "850 HERE\n");
    fs::create_directories(ils.path() + "/codeset");
    test::write_file(ils.path() + "/codeset/aliases", "850 THERE\n");
    ScopedCwd here(cwd.path());
    {
        ScopedEnv i("ILSDIR", ils.path());
        EXPECT_EQ(alias_of("850"), "THERE");
    }
    {
        ScopedEnv i("ILSDIR", std::nullopt);
        EXPECT_EQ(alias_of("850"), "HERE");
    }
    {
        ScopedEnv i("ILSDIR", "");
        EXPECT_EQ(alias_of("850"), "HERE");
    }
    {
        // Too long for "/codeset/aliases" to be added.
        ScopedEnv i("ILSDIR", ils.path() + std::string(238 - ils.path().size(), '/'));
        EXPECT_EQ(alias_of("850"), "HERE");
    }
    {
        ScopedEnv i("ILSDIR", ils.path() + std::string(237 - ils.path().size(), '/'));
        EXPECT_EQ(alias_of("850"), "THERE");
    }
}

TEST(AliasList, MadeByTheTool) {
    TempDir d;
    ASSERT_EQ(test::run_almcodeset({"--aliases", d.path(), "850=T850", "DEFAULT=CP1252"}), 0);
    EXPECT_NE(test::run_almcodeset({"--aliases", d.path(), "bad"}), 0);
    ScopedEnv ils("ILSDIR", d.path());
    EXPECT_EQ(alias_of("850"), "T850");
    EXPECT_EQ(alias_of("DEFAULT"), "CP1252");
}

class DefaultFromInit : public ::testing::Test {
protected:
    void TearDown() override { ils_set_def_cs(nullptr); }
};

TEST_F(DefaultFromInit, SystemNameThroughTheAliasList) {
    TempDir d;
    put_table("IBM850", "sbcs", d.path() + "/codeset/INIT850");
    test::write_file(d.path() + "/codeset/aliases", "850 INIT850\n");
    ScopedEnv ils("ILSDIR", d.path());
    ScopedEnv bin("BINDIR", std::nullopt);
    ils_init_default("IBM-850");
    EXPECT_EQ(to_utf8(nullptr, "\xC1"), kPc850C1);
    ils_set_def_cs(nullptr);
    ils_init_default("ibm850");  // only an upper-case prefix is dropped
    EXPECT_EQ(to_utf8(nullptr, "\xC1"), "\xC1");
}

// Records live as long as the process, so the case without any table
// comes first, before "DEFAULT" is loaded.
TEST_F(DefaultFromInit, FallsBackToDefaultThenUtf8) {
    ScopedEnv bin("BINDIR", std::nullopt);
    {
        TempDir nothing;
        ScopedCwd here(nothing.path());
        ScopedEnv ils("ILSDIR", nothing.path());
        CodeSet* before = ils_get_def_cs();
        ils_init_default("NOSUCHSET");
        EXPECT_EQ(ils_get_def_cs(), before);
        EXPECT_EQ(to_utf8(nullptr, "\x80"), "\x80");
    }
    TempDir d;
    put_table("CP1252", "sbcs", d.path() + "/codeset/INIT1252");
    test::write_file(d.path() + "/codeset/DEFAULT", "INIT1252\n");
    ScopedEnv ils("ILSDIR", d.path());
    ils_init_default("");
    EXPECT_EQ(to_utf8(nullptr, "\x80"), "\xE2\x82\xAC");
}

TEST(Registry, OneRecordPerName) {
    TempDir d;
    put_table("ISO-8859-1", "sbcs", d.path() + "/codeset/REGTEST");
    ScopedEnv ils("ILSDIR", d.path());
    CodeSet* a = ils_get_cs("REGTEST");
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(ils_get_cs("REGTEST"), a);
    EXPECT_EQ(ils_get_cs("NOSUCHTABLE"), nullptr);
    EXPECT_EQ(ils_get_cs(""), nullptr);
    EXPECT_EQ(ils_get_cs(nullptr), nullptr);
    CodeSet* utf8 = ils_get_cs("UTF8");
    ASSERT_NE(utf8, nullptr);
    EXPECT_EQ(to_utf8(utf8, "\xC1\x80"), "\xC1\x80");
    ils_init();
    ils_init();  // once only: a later call leaves the default alone
    ils_set_def_cs(a);
    ils_init();
    EXPECT_EQ(ils_get_def_cs(), a);
    ils_set_def_cs(nullptr);
}

}  // namespace
}  // namespace alm
