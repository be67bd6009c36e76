// The table format read by hand-made tables, and loading of damaged ones:
// whatever the bytes, converters stay inside the table and the output.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <cstring>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "codeset/codeset_helpers.h"
#include "messages/codeset.h"
#include "messages/codeset_tables.h"

namespace alm {
namespace {

using test::TableImage;

std::unique_ptr<CodeSet> load(const TableImage& t) {
    const auto bytes = t.bytes();
    return cs_from_image("test", bytes.data(), bytes.size());
}

std::string to_utf8(CodeSet* cs, const std::string& in) {
    std::string out(in.size() * 3 + 8, '\0');
    out.resize(static_cast<std::size_t>(
        ils_to_utf8(cs, in.data(), static_cast<int>(in.size()), out.data(), static_cast<int>(out.size()))));
    return out;
}

std::string from_utf8(CodeSet* cs, const std::string& in) {
    std::string out(in.size() * 4 + 8, '\0');
    out.resize(static_cast<std::size_t>(
        ils_from_utf8(cs, in.data(), static_cast<int>(in.size()), out.data(), static_cast<int>(out.size()))));
    return out;
}

TableImage blank(std::uint16_t type) {
    TableImage t;
    t.type = type;
    t.entries.fill(kNoMapping);
    t.lengths.fill(1);
    return t;
}

const std::string kA = "\xE3\x81\x82";          // U+3042
const std::string kHalfDot = "\xEF\xBD\xA1";    // U+FF61
const std::string kHalfOpen = "\xEF\xBD\xA2";   // U+FF62
const std::string kKanji = "\xE4\xB8\x82";      // U+4E02
const std::string kSun = "\xE6\x97\xA5";        // U+65E5

// Rows are counted in pairs of entries: row 128 starts at entry 256.
TableImage dbcs_table() {
    TableImage t = blank(CS_DBCS);
    t.rows.assign(512, kNoMapping);
    t.entries[0] = 0;  // the row of single bytes
    t.rows[0xA1] = 0xFF61;
    t.lengths[0xA1] = 1;
    t.entries[0x81] = 128;
    t.lengths[0x81] = 2;
    t.rows[256 + 0x40] = 0x3042;
    t.lengths[0xFF] = 255;
    t.lengths[0xFE] = 3;
    t.entries[0x82] = 0xFFFF;  // a row far beyond the table
    t.lengths[0x82] = 2;
    return t;
}

TEST(DoubleByteTable, LookupRules) {
    auto cs = load(dbcs_table());
    ASSERT_NE(cs, nullptr);
    EXPECT_EQ(to_utf8(cs.get(), "\xA1\x81\x40z"), kHalfDot + kA + "z");
    // Length 255 and any length but 1 or 2 give "?" for the byte alone.
    EXPECT_EQ(to_utf8(cs.get(), "\xFF" "a\xFE" "b"), "?a?b");
    EXPECT_EQ(to_utf8(cs.get(), "\x81\x41" "c"), "?c");    // no mapping in the row
    EXPECT_EQ(to_utf8(cs.get(), "\x82\x40" "d"), "?d");    // row out of the table
    EXPECT_EQ(to_utf8(cs.get(), "x\x81"), "x?");           // cut off at the end
    EXPECT_EQ(from_utf8(cs.get(), kA + kHalfDot + "q" + kKanji), "\x81\x40\xA1q?");
}

// Nodes: (count, base, count entries), numbered in pairs of entries.
TableImage mbcs_table() {
    TableImage t = blank(CS_MBCS);
    t.rows = {0, 0,                                  // node 0: empty
              2, 0xA1, 0xFF61, 0xFF62,               // node 1
              1, 0xB0, 5, 0,                         // node 3 -> node 5
              2, 0xA1, 0x4E02, kNoMapping};          // node 5
    t.entries[0x8E] = 1;
    t.lengths[0x8E] = 2;
    t.entries[0x8F] = 3;
    t.lengths[0x8F] = 3;
    t.lengths[0xA0] = 255;
    t.entries[0xA5] = 0x00A5;
    t.entries[0x90] = 0x7FFF;  // node far beyond the table
    t.lengths[0x90] = 2;
    return t;
}

TEST(MultiByteTable, LookupRules) {
    auto cs = load(mbcs_table());
    ASSERT_NE(cs, nullptr);
    const struct {
        std::string in;
        std::string out;
    } cases[] = {
        {"\x8E\xA1", kHalfDot},
        {"\x8E\xA2", kHalfOpen},
        {"\x8E\xA3z", "?z"},             // at base + count
        {"\x8E\x41z", "?z"},             // below base: still two bytes taken
        {"\x8F\xB0\xA1", kKanji},
        {"\x8F\xB1\xA1x", "?x"},         // bad second byte: all three taken
        {"\x8F\xB0\xA2", "?"},           // no mapping
        {"\xA0x\xA0", "x"},              // skipped bytes
        {"\xA5", "\xC2\xA5"},            // one byte: its entry is the code point
        {"\xA6", "?"},
        {"\x90\xA1y", "?y"},
        {"q\x8F\xB0", "q?"},             // cut off at the end
    };
    for (const auto& c : cases) EXPECT_EQ(to_utf8(cs.get(), c.in), c.out) << c.in.size();
    EXPECT_EQ(from_utf8(cs.get(), kKanji + kHalfOpen + "\xC2\xA5" + kA), "\x8F\xB0\xA1\x8E\xA2\xA5?");
}

TableImage ebcdic_dbcs_table() {
    TableImage t = blank(CS_EBCDIC_DBCS);
    t.rows.assign(512, kNoMapping);
    t.entries[0] = 0;
    t.rows[0xC1] = 'A';
    t.rows[0x6F] = '?';
    t.rows[0x40] = ' ';
    t.entries[0x45] = 128;
    t.lengths[0x45] = 2;
    t.rows[256 + 0x41] = 0x65E5;
    return t;
}

TEST(EbcdicDoubleByteTable, ShiftsAndLookups) {
    auto cs = load(ebcdic_dbcs_table());
    ASSERT_NE(cs, nullptr);
    EXPECT_EQ(to_utf8(cs.get(), "\xC1\x0E\x45\x41\x0F\xC1"), "A" + kSun + "A");
    EXPECT_EQ(to_utf8(cs.get(), "\x0E\x46\x41\x0F"), "?");  // lead without a row
    EXPECT_EQ(to_utf8(cs.get(), "\x41"), "?");
    EXPECT_EQ(from_utf8(cs.get(), "A" + kSun + kSun + " "), "\xC1\x0E\x45\x41\x45\x41\x0F\x40");
    EXPECT_EQ(from_utf8(cs.get(), kSun), "\x0E\x45\x41\x0F");
    EXPECT_EQ(from_utf8(cs.get(), "Z"), "\x6F");  // the table's own "?"
}

TEST(SingleByteTable, EbcdicMarkOnlyOnSingleByteTables) {
    TableImage t = blank(CS_SBCS);
    t.entries[0x41] = 0x00A0;
    t.entries[0xC1] = 'A';
    t.entries[0x6F] = '?';
    t.mark = kEbcdicMark;
    auto ebcdic = load(t);
    ASSERT_NE(ebcdic, nullptr);
    EXPECT_EQ(to_utf8(ebcdic.get(), "\x41\xC1\x42"), "\xC2\xA0" "A?");
    EXPECT_EQ(from_utf8(ebcdic.get(), "A\xC2\xA0" "B"), "\xC1\x41\x6F");
    t.mark = 0x1101;
    auto ascii = load(t);
    EXPECT_EQ(to_utf8(ascii.get(), "\x41\xC1\x42"), "A" "A" "B");
    EXPECT_EQ(from_utf8(ascii.get(), "A\xC2\xA0"), "A?");
    TableImage d = dbcs_table();
    d.mark = kEbcdicMark;
    auto dbcs = load(d);
    EXPECT_EQ(to_utf8(dbcs.get(), "A\x81\x40"), "A" + kA);
}

TEST(SingleByteTable, OtherTypesCopy) {
    for (std::uint16_t type : {0, 5, 6, 7, 0xFFFF}) {
        TableImage t = blank(type);
        auto cs = load(t);
        ASSERT_NE(cs, nullptr);
        EXPECT_EQ(to_utf8(cs.get(), "\xC1\x80" "a"), "\xC1\x80" "a") << type;
        EXPECT_EQ(from_utf8(cs.get(), "\xE3\x81\x82"), "\xE3\x81\x82") << type;
    }
}

// Converts many inputs with every converter of a damaged table, into
// buffers of exactly the given size, so that the sanitizers see any stray
// access; the results must still obey the room rules.
void exercise(CodeSet* cs, std::mt19937& rng) {
    std::uniform_int_distribution<int> byte(0, 255), len(0, 40), room(0, 24);
    for (int round = 0; round < 40; ++round) {
        std::string in(static_cast<std::size_t>(len(rng)), '\0');
        for (auto& c : in) c = static_cast<char>(byte(rng));
        if (round % 4 == 0) in = "\xE3\x81\x82\xC3\xA9" + in;  // some valid UTF-8
        const int k = room(rng);
        for (int terminated = 0; terminated < 2; ++terminated) {
            std::string src = in;
            if (terminated) src = src.substr(0, src.find('\0'));
            for (int dir = 0; dir < 2; ++dir) {
                std::vector<char> dst(static_cast<std::size_t>(k));
                auto src_heap = std::make_unique<char[]>(src.size() + 1);
                std::memcpy(src_heap.get(), src.c_str(), src.size() + 1);
                const int srclen = terminated ? -1 : static_cast<int>(src.size());
                const int n = dir == 0 ? ils_to_utf8(cs, src_heap.get(), srclen, dst.data(), k)
                                       : ils_from_utf8(cs, src_heap.get(), srclen, dst.data(), k);
                ASSERT_GE(n, 0);
                ASSERT_LE(n, k);
                if (terminated && k > 0) {
                    ASSERT_LT(n, k);
                    ASSERT_EQ(dst[static_cast<std::size_t>(n)], '\0');
                }
            }
        }
    }
}

TEST(DamagedTables, RowAreaOutOfPlace) {
    std::mt19937 rng(7);
    for (TableImage t : {dbcs_table(), mbcs_table(), ebcdic_dbcs_table()}) {
        for (std::uint32_t off : {0u, 1u, 1759u, 1761u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
            t.row_offset = off;
            auto rows = t.rows;
            if (off > 4096) t.rows.clear();
            auto cs = load(t);
            t.rows = rows;
            ASSERT_NE(cs, nullptr);
            exercise(cs.get(), rng);
            if (off > 4096) {
                EXPECT_TRUE(cs->rows.empty());
                // Every lookup through the (missing) rows gives "?".
                const char* expected = t.type == CS_DBCS ? "???" : t.type == CS_MBCS ? "?@?" : "????";
                EXPECT_EQ(to_utf8(cs.get(), "\x81\x40\x8E\xA1"), expected);
            }
        }
    }
}

TEST(DamagedTables, NodesThatRunOffTheEnd) {
    TableImage t = blank(CS_MBCS);
    t.rows = {0, 0, 0xFFFF, 0x00, 5, 6};  // node 1 claims 65535 entries
    t.entries[0x8E] = 1;
    t.lengths[0x8E] = 2;
    t.entries[0x8F] = 1;
    t.lengths[0x8F] = 254;
    auto cs = load(t);
    ASSERT_NE(cs, nullptr);
    EXPECT_EQ(to_utf8(cs.get(), std::string("\x8E\x00", 2)), "\x05");
    EXPECT_EQ(to_utf8(cs.get(), "\x8E\x01"), "\x06");
    EXPECT_EQ(to_utf8(cs.get(), "\x8E\x02z"), "?z");
    EXPECT_EQ(to_utf8(cs.get(), "\x8E\xFFz"), "?z");
    // A 254-byte character that the source cuts short.
    EXPECT_EQ(to_utf8(cs.get(), "a\x8F" + std::string(100, 'x')), "a?");
    std::mt19937 rng(11);
    exercise(cs.get(), rng);
}

TEST(DamagedTables, SelfReferringNodesLoadInBoundedWork) {
    TableImage t = blank(CS_MBCS);
    t.rows = {0, 0, 256, 0};
    t.rows.resize(2 + 2 + 256, 1);  // every entry of node 1 is node 1
    for (unsigned b = 128; b < 256; ++b) {
        t.entries[b] = 1;
        t.lengths[b] = 4;
    }
    auto cs = load(t);
    ASSERT_NE(cs, nullptr);
    EXPECT_EQ(to_utf8(cs.get(), "\x80\x01\x02\x03"), "\x01");
    std::mt19937 rng(13);
    exercise(cs.get(), rng);
}

TEST(DamagedTables, RandomTables) {
    std::mt19937 rng(20240601);
    std::uniform_int_distribution<int> any16(0, 0xFFFF), small(0, 300), byte(0, 255), pick(0, 9);
    const std::uint16_t types[] = {1, 1, 2, 3, 4, 3, 2, 4, 6, 9};
    for (int i = 0; i < 200; ++i) {
        TableImage t = blank(types[pick(rng)]);
        t.mark = pick(rng) < 5 ? kEbcdicMark : 0;
        for (auto& e : t.entries) e = static_cast<std::uint16_t>(pick(rng) < 7 ? small(rng) : any16(rng));
        for (auto& l : t.lengths) {
            const int p = pick(rng);
            l = static_cast<std::uint8_t>(p < 3 ? 1 : p < 6 ? 2 : p < 8 ? 3 : byte(rng));
        }
        t.rows.resize(static_cast<std::size_t>(small(rng)) * 4);
        for (auto& r : t.rows) r = static_cast<std::uint16_t>(pick(rng) < 6 ? small(rng) : any16(rng));
        if (pick(rng) == 0) t.row_offset = static_cast<std::uint32_t>(small(rng) * 8);
        if (pick(rng) == 0) t.size_override = 1760 + static_cast<std::size_t>(small(rng));
        auto cs = load(t);
        ASSERT_NE(cs, nullptr);
        exercise(cs.get(), rng);
    }
}

class RealTableCut : public ::testing::TestWithParam<std::pair<const char*, const char*>> {};

// A real table cut short anywhere converts each character as the whole
// table does, or as "?" (never beyond the bytes it has).
TEST_P(RealTableCut, ConvertsWhatIsLeft) {
    const auto [codeset, type] = GetParam();
    const std::string table = test::ensure_table(codeset, type);
    const std::string image = test::read_file(test::shared_ilsdir() + "/codeset/" + table);
    ASSERT_GE(image.size(), kTableMinSize);
    const auto* data = reinterpret_cast<const unsigned char*>(image.data());
    auto whole = cs_from_image("whole", data, image.size());
    ASSERT_NE(whole, nullptr);
    const bool ebcdic = std::string(type) == "ebcdic-dbcs";
    std::mt19937 rng(3);
    for (std::size_t size : {kTableMinSize - 1, kTableMinSize, kTableMinSize + 1, kTableMinSize + 777,
                             image.size() / 2, image.size() - 1}) {
        auto cut = cs_from_image("cut", data, size);
        if (size < kTableMinSize) {
            EXPECT_EQ(cut, nullptr);
            continue;
        }
        ASSERT_NE(cut, nullptr);
        for (unsigned b1 = 0x80; b1 < 256; ++b1) {
            for (unsigned b2 = 0x40; b2 < 256; b2 += 3) {
                std::string in = {static_cast<char>(b1), static_cast<char>(b2), static_cast<char>(0xA1)};
                if (ebcdic) in = "\x0E" + in.substr(0, 2) + "\x0F";
                const std::string got = to_utf8(cut.get(), in);
                if (got != to_utf8(whole.get(), in)) {
                    // Only characters whose entries were cut away differ.
                    EXPECT_NE(got.find('?'), std::string::npos) << size << " " << b1 << " " << b2;
                }
            }
        }
        exercise(cut.get(), rng);
    }
}

INSTANTIATE_TEST_SUITE_P(Tables, RealTableCut,
                         ::testing::Values(std::make_pair("SJIS", "dbcs"), std::make_pair("EUC-JP", "mbcs"),
                                           std::make_pair("IBM930", "ebcdic-dbcs")));

TEST(DamagedTables, FilesThatAreNotTables) {
    test::TempDir d;
    const std::string dir = d.path() + "/codeset/";
    std::filesystem::create_directories(dir);
    ASSERT_EQ(::mkfifo((dir + "FIFO").c_str(), 0600), 0);
    // Too large to be a table: not read at all.
    {
        std::FILE* f = std::fopen((dir + "HUGE").c_str(), "wb");
        ASSERT_NE(f, nullptr);
        std::fseek(f, static_cast<long>(kTableMaxSize), SEEK_SET);
        std::fputc('x', f);
        std::fclose(f);
    }
    test::write_file(dir + "TOFIFO", "FIFO\n");
    test::ScopedEnv ils("ILSDIR", d.path());
    test::ScopedEnv bin("BINDIR", std::nullopt);
    EXPECT_EQ(get_table("FIFO"), nullptr);
    EXPECT_EQ(get_table("TOFIFO"), nullptr);
    EXPECT_EQ(get_table("HUGE"), nullptr);
    EXPECT_EQ(get_table("codeset"), nullptr);  // the bare name is a directory
}

}  // namespace
}  // namespace alm
