// Columns aligned for reading: a header row and data rows, two blanks
// between columns, numbers right-aligned, no trailing blanks.
#pragma once

#include <string>
#include <vector>

namespace alm {

class TextTable {
public:
    enum class Align { Left, Right };
    struct Column {
        std::string title;
        Align align = Align::Left;
    };

    explicit TextTable(std::vector<Column> columns);

    // A row with fewer cells than columns is padded with empty cells.
    void add(std::vector<std::string> cells);
    std::size_t rows() const { return rows_.size(); }
    std::string render() const;

private:
    std::vector<Column> columns_;
    std::vector<std::vector<std::string>> rows_;
};

// Characters as a terminal shows them: UTF-8 continuation bytes take no room.
std::size_t display_width(const std::string& s);

}  // namespace alm
