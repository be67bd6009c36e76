// Loaded code-set conversion tables and the registry that owns them.
//
// Table file (native byte order, at least kTableMinSize bytes):
//   0     u32        byte offset of the row area (double- and multi-byte)
//   8     "ucv"      magic
//   48    u16        code-set type (CodeSetType)
//   50    u16        kEbcdicMark on an EBCDIC-based single-byte table
//   736   256 x u16  per byte: code point (single-byte, 0xFFFF none) or
//                    row / first node number (double- and multi-byte)
//   1248  256 x u8   per byte: length of a character starting with it;
//                    255 marks a byte that is not a character start
// Row numbers and node numbers count pairs of u16: row r starts at u16
// index 2r of the row area. A double-byte row holds 256 entries indexed by
// the second byte; the row for single bytes is the one named by byte 0.
// A multi-byte node is (count, base, count entries); an entry of an inner
// node is the next node, of the last byte the code point.
// A shorter file, or one without "ucv", is an alias: its text minus white
// space and control characters names another table in the same directory.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace alm {

enum CodeSetType : int {
    CS_SBCS = 1,
    CS_DBCS = 2,
    CS_MBCS = 3,
    CS_EBCDIC_DBCS = 4,
    CS_UTF8 = 6,
};

inline constexpr std::size_t kTableMinSize = 1760;
inline constexpr std::size_t kOffRowArea = 0;
inline constexpr std::size_t kOffMagic = 8;
inline constexpr std::size_t kOffType = 48;
inline constexpr std::size_t kOffEbcdicMark = 50;
inline constexpr std::size_t kOffEntries = 736;
inline constexpr std::size_t kOffLengths = 1248;
inline constexpr std::uint16_t kEbcdicMark = 0x1100;
inline constexpr std::uint16_t kNoMapping = 0xFFFF;
inline constexpr std::uint8_t kSkipByte = 255;
inline constexpr int kMaxAliasSteps = 5;
// Larger files are not tables of any real code set; they are not loaded.
inline constexpr std::size_t kTableMaxSize = 4u << 20;

// Byte sequence of at most four bytes that a code point converts back to.
struct RevEntry {
    std::uint8_t len = 0;  // 0: no mapping
    std::array<std::uint8_t, 4> bytes{};
};

// Reverse (code point -> bytes) lookup: a two-level direct table over the
// 16-bit code points, 256 pages of 256 entries, a page allocated only when
// one of its code points maps. One lookup is two indexings, with no search;
// a single-byte table costs a few pages, a large Japanese table about a
// hundred (128 KiB). When several sequences map to one code point the first
// added wins; builders add in ascending byte order, single bytes first.
class ReverseMap {
public:
    void add(std::uint16_t cp, const std::uint8_t* bytes, int len);
    const RevEntry* find(std::uint32_t cp) const;
    std::size_t pages_used() const;

private:
    using Page = std::array<RevEntry, 256>;
    std::array<std::unique_ptr<Page>, 256> pages_;
};

struct CodeSet {
    std::string name;
    std::size_t size = 0;  // bytes of the table file; 0 for UTF-8
    int type = CS_UTF8;
    bool ebcdic = false;  // single-byte table with the EBCDIC mark
    std::uint32_t row_offset = 0;
    std::uint16_t ebcdic_mark = 0;
    std::array<std::uint16_t, 256> entries{};
    std::array<std::uint8_t, 256> lengths{};
    std::vector<std::uint16_t> rows;  // the row area, to the end of the file
    ReverseMap rev;

    // Row-area entry, or kNoMapping when the index lies outside the table.
    std::uint16_t row_at(std::size_t index) const {
        return index < rows.size() ? rows[index] : kNoMapping;
    }
};

// True when the bytes are a table (size and magic), false for an alias.
bool is_table_image(const unsigned char* data, std::size_t size);
// Builds a record from a table image; nullptr unless is_table_image holds.
std::unique_ptr<CodeSet> cs_from_image(const char* name, const unsigned char* data,
                                       std::size_t size);
// Finds the table file for a name in the usual places (following aliases)
// and loads it; nullptr when none loads.
std::unique_ptr<CodeSet> get_table(const char* name);
// Loads the table at path, following alias files within its directory.
std::unique_ptr<CodeSet> load_table_file(const std::string& path, const char* name);

// The registry: a record per name, made on first use (nullptr if no table
// loads). "UTF8" gives the UTF-8 record.
CodeSet* cs_new(const char* name);
CodeSet* utf8_cs();

}  // namespace alm
