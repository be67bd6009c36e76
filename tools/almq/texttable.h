// Columns aligned for reading: a header row and data rows, two blanks
// between columns, numbers right-aligned, no trailing blanks.
#pragma once

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace alm {

class TextTable {
public:
    enum class Align { Left, Right };
    struct Column {
        std::string title;
        Align align = Align::Left;
        bool wideOnly = false;  // shown in the wide form only
    };
    enum class Form { Narrow, Wide };

    // Rows are added with a cell for every column; the narrow form leaves
    // out the wide-only ones.
    explicit TextTable(std::vector<Column> columns, Form form = Form::Wide);

    // A row with fewer cells than columns is padded with empty cells.
    void add(std::initializer_list<std::string_view> cells) { add(cells.begin(), cells.size()); }
    void add(const std::vector<std::string>& cells);
    std::size_t rows() const { return rows_; }
    // Hands the table out line by line, each with its newline.
    void render(const std::function<void(std::string_view)>& emit) const;

private:
    void add(const std::string_view* cells, std::size_t count);
    void append(std::size_t column, std::string_view cell);

    std::vector<Column> columns_;  // the columns shown
    std::vector<bool> shown_;      // for every column given
    std::vector<std::size_t> width_;  // widest cell of each column so far, title included
    // The cells only, each ended by a NUL (control bytes never stay in a
    // cell), row after row, in blocks that a row never straddles: a long
    // listing grows without copying what it holds.
    std::vector<std::string> blocks_;
    std::size_t rows_ = 0;
};

// Characters as a terminal shows them: UTF-8 continuation bytes take no room.
std::size_t display_width(std::string_view s);

}  // namespace alm
