// Builds conversion table images from what iconv reports for a code set.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "probe.h"

namespace alm {

enum class TableKind { Sbcs, Ebcdic, Dbcs, Mbcs, EbcdicDbcs };

struct TableParts {
    int type = 0;
    std::uint16_t ebcdic_mark = 0;
    std::array<std::uint16_t, 256> entries{};
    std::array<std::uint8_t, 256> lengths{};
    std::vector<std::uint16_t> rows;
};

// Lays the parts out in the table file format (host byte order); the row
// area follows the fixed part.
std::vector<unsigned char> table_image(const TableParts& parts);

// Fills parts for a code set of the given kind. Returns false with a reason
// in error when the code set cannot be put in this form; notes on what
// the table leaves out go to warnings.
bool build_table(Probe& probe, TableKind kind, TableParts& parts, std::string& error,
                 std::vector<std::string>& warnings);

}  // namespace alm
