#include "tablebuild.h"

#include <algorithm>
#include <map>

#include "messages/codeset_tables.h"
#include "util/endian.h"

namespace alm {

namespace {

constexpr int kMaxCharLen = 4;  // longest multi-byte character probed

std::string hex(unsigned b) {
    static const char digits[] = "0123456789ABCDEF";
    return {'0', 'x', digits[(b >> 4) & 15], digits[b & 15]};
}

std::uint16_t probe_char(Probe& probe, std::initializer_list<unsigned char> bytes,
                         ProbeResult* result = nullptr) {
    std::uint16_t cp;
    const ProbeResult r = probe.convert(std::data(bytes), bytes.size(), &cp);
    if (result != nullptr) *result = r;
    return r == ProbeResult::Char ? cp : kNoMapping;
}

void check_ascii(const TableParts& parts, std::vector<std::string>& warnings) {
    for (unsigned b = 0; b < 128; ++b)
        if (parts.entries[b] != b)
            warnings.push_back("byte " + hex(b) +
                               " is not ASCII in this code set; it converts as ASCII");
}

// Appends a 256-entry row and returns its row number.
bool add_row(TableParts& parts, const std::array<std::uint16_t, 256>& row, std::uint16_t* number,
             std::string& error) {
    const std::size_t start = parts.rows.size();
    if (start / 2 > 0xFFFF) {
        error = "too many rows for one table";
        return false;
    }
    parts.rows.insert(parts.rows.end(), row.begin(), row.end());
    *number = static_cast<std::uint16_t>(start / 2);
    return true;
}

bool build_sbcs(Probe& probe, bool ebcdic, TableParts& parts, std::vector<std::string>& warnings) {
    parts.type = CS_SBCS;
    parts.ebcdic_mark = ebcdic ? kEbcdicMark : 0;
    for (unsigned b = 0; b < 256; ++b) {
        parts.entries[b] = probe_char(probe, {static_cast<unsigned char>(b)});
        parts.lengths[b] = 1;
    }
    if (!ebcdic) check_ascii(parts, warnings);
    return true;
}

bool build_dbcs(Probe& probe, TableParts& parts, std::string& error,
                std::vector<std::string>& warnings) {
    parts.type = CS_DBCS;
    std::array<std::uint16_t, 256> singles;
    singles.fill(kNoMapping);
    std::array<ProbeResult, 256> kinds;
    for (unsigned b = 0; b < 256; ++b) {
        singles[b] = probe_char(probe, {static_cast<unsigned char>(b)}, &kinds[b]);
        parts.entries[b] = singles[b];
        parts.lengths[b] = 1;
    }
    check_ascii(parts, warnings);
    // Row 0 holds the single bytes; byte 0 names it.
    if (!add_row(parts, singles, &parts.entries[0], error)) return false;
    for (unsigned b = 128; b < 256; ++b) {
        if (kinds[b] == ProbeResult::Char) continue;
        if (kinds[b] == ProbeResult::Invalid) {
            parts.lengths[b] = kSkipByte;
            continue;
        }
        std::array<std::uint16_t, 256> row;
        for (unsigned b2 = 0; b2 < 256; ++b2)
            row[b2] = probe_char(probe, {static_cast<unsigned char>(b), static_cast<unsigned char>(b2)});
        parts.lengths[b] = 2;
        if (!add_row(parts, row, &parts.entries[b], error)) return false;
    }
    return true;
}

// Characters that start with one lead byte, by their byte sequences.
using CharMap = std::map<std::vector<unsigned char>, std::uint16_t>;

void explore(Probe& probe, std::vector<unsigned char>& prefix, CharMap& chars) {
    prefix.push_back(0);
    for (unsigned x = 0; x < 256; ++x) {
        prefix.back() = static_cast<unsigned char>(x);
        std::uint16_t cp;
        const ProbeResult r = probe.convert(prefix.data(), prefix.size(), &cp);
        if (r == ProbeResult::Char)
            chars[prefix] = cp;
        else if (r == ProbeResult::Incomplete && prefix.size() < kMaxCharLen)
            explore(probe, prefix, chars);
    }
    prefix.pop_back();
}

bool has_prefix(const std::vector<unsigned char>& seq, const std::vector<unsigned char>& prefix) {
    return seq.size() > prefix.size() && std::equal(prefix.begin(), prefix.end(), seq.begin());
}

// Adds the node for the characters of chars that begin with prefix, all of
// length len; returns its node number.
bool add_node(TableParts& parts, const CharMap& chars, const std::vector<unsigned char>& prefix,
              std::size_t len, std::uint16_t* number, std::string& error) {
    unsigned lo = 256, hi = 0;
    for (auto it = chars.lower_bound(prefix); it != chars.end() && has_prefix(it->first, prefix); ++it) {
        const unsigned next = it->first[prefix.size()];
        lo = std::min(lo, next);
        hi = std::max(hi, next);
    }
    const unsigned count = lo <= hi ? hi - lo + 1 : 0;
    const std::size_t start = parts.rows.size();
    if (start / 2 > 0xFFFF) {
        error = "too many nodes for one table";
        return false;
    }
    *number = static_cast<std::uint16_t>(start / 2);
    parts.rows.push_back(static_cast<std::uint16_t>(count));
    parts.rows.push_back(static_cast<std::uint16_t>(count != 0 ? lo : 0));
    const bool leaves = prefix.size() + 1 == len;
    // Missing characters: "none" for a leaf, the empty node 0 otherwise.
    parts.rows.insert(parts.rows.end(), count, leaves ? kNoMapping : 0);
    if (parts.rows.size() % 2 != 0) parts.rows.push_back(0);
    std::vector<unsigned char> child = prefix;
    child.push_back(0);
    for (unsigned k = 0; k < count; ++k) {
        child.back() = static_cast<unsigned char>(lo + k);
        std::uint16_t value;
        if (leaves) {
            auto it = chars.find(child);
            if (it == chars.end()) continue;
            value = it->second;
        } else {
            auto it = chars.lower_bound(child);
            if (it == chars.end() || !has_prefix(it->first, child)) continue;
            if (!add_node(parts, chars, child, len, &value, error)) return false;
        }
        parts.rows[start + 2 + k] = value;
    }
    return true;
}

bool build_mbcs(Probe& probe, TableParts& parts, std::string& error,
                std::vector<std::string>& warnings) {
    parts.type = CS_MBCS;
    parts.rows = {0, 0};  // node 0: the empty node
    for (unsigned b = 0; b < 256; ++b) {
        ProbeResult r;
        parts.entries[b] = probe_char(probe, {static_cast<unsigned char>(b)}, &r);
        parts.lengths[b] = 1;
        if (b < 128 || r == ProbeResult::Char) continue;
        if (r == ProbeResult::Invalid) {
            parts.lengths[b] = kSkipByte;
            continue;
        }
        std::vector<unsigned char> prefix{static_cast<unsigned char>(b)};
        CharMap chars;
        explore(probe, prefix, chars);
        std::map<std::size_t, std::size_t> by_len;
        for (const auto& c : chars) ++by_len[c.first.size()];
        std::size_t len = 0, most = 0;
        for (const auto& [l, n] : by_len)
            if (n > most) len = l, most = n;
        if (len == 0) {
            parts.lengths[b] = kSkipByte;
            continue;
        }
        if (by_len.size() > 1)
            warnings.push_back("lead byte " + hex(b) + ": only its characters of " +
                               std::to_string(len) + " bytes are kept");
        CharMap kept;
        for (const auto& c : chars)
            if (c.first.size() == len) kept.insert(c);
        parts.lengths[b] = static_cast<std::uint8_t>(len);
        if (!add_node(parts, kept, prefix, len, &parts.entries[b], error)) return false;
    }
    check_ascii(parts, warnings);
    return true;
}

bool build_ebcdic_dbcs(Probe& probe, TableParts& parts, std::string& error) {
    parts.type = CS_EBCDIC_DBCS;
    constexpr unsigned char so = 0x0E, si = 0x0F;
    std::array<std::uint16_t, 256> singles;
    for (unsigned b = 0; b < 256; ++b) {
        singles[b] = b == so || b == si ? kNoMapping : probe_char(probe, {static_cast<unsigned char>(b)});
        parts.lengths[b] = 1;
    }
    if (!add_row(parts, singles, &parts.entries[0], error)) return false;
    // Byte 0 names the single-byte row, so it cannot also lead a pair.
    for (unsigned b = 1; b < 256; ++b) {
        if (b == so || b == si) continue;
        std::array<std::uint16_t, 256> row;
        bool any = false;
        for (unsigned b2 = 0; b2 < 256; ++b2) {
            row[b2] = b2 == so || b2 == si
                          ? kNoMapping
                          : probe_char(probe, {so, static_cast<unsigned char>(b),
                                               static_cast<unsigned char>(b2), si});
            any = any || row[b2] != kNoMapping;
        }
        if (!any) continue;
        parts.lengths[b] = 2;
        if (!add_row(parts, row, &parts.entries[b], error)) return false;
    }
    return true;
}

}  // namespace

std::vector<unsigned char> table_image(const TableParts& parts) {
    const std::size_t row_offset = kTableMinSize;
    std::vector<unsigned char> image(row_offset + 2 * parts.rows.size(), 0);
    store_host32(image.data() + kOffRowArea, static_cast<std::uint32_t>(row_offset));
    image[kOffMagic] = 'u';
    image[kOffMagic + 1] = 'c';
    image[kOffMagic + 2] = 'v';
    store_host16(image.data() + kOffType, static_cast<std::uint16_t>(parts.type));
    store_host16(image.data() + kOffEbcdicMark, parts.ebcdic_mark);
    for (std::size_t b = 0; b < 256; ++b) {
        store_host16(image.data() + kOffEntries + 2 * b, parts.entries[b]);
        image[kOffLengths + b] = parts.lengths[b];
    }
    for (std::size_t i = 0; i < parts.rows.size(); ++i)
        store_host16(image.data() + row_offset + 2 * i, parts.rows[i]);
    return image;
}

bool build_table(Probe& probe, TableKind kind, TableParts& parts, std::string& error,
                 std::vector<std::string>& warnings) {
    parts = TableParts{};
    switch (kind) {
    case TableKind::Sbcs:
        return build_sbcs(probe, false, parts, warnings);
    case TableKind::Ebcdic:
        return build_sbcs(probe, true, parts, warnings);
    case TableKind::Dbcs:
        return build_dbcs(probe, parts, error, warnings);
    case TableKind::Mbcs:
        return build_mbcs(probe, parts, error, warnings);
    case TableKind::EbcdicDbcs:
        return build_ebcdic_dbcs(probe, parts, error);
    }
    return false;
}

}  // namespace alm
