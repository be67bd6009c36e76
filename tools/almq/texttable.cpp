#include "texttable.h"

#include <algorithm>

namespace alm {

std::size_t display_width(const std::string& s) {
    std::size_t n = 0;
    for (unsigned char c : s) {
        if ((c & 0xC0) != 0x80) ++n;
    }
    return n;
}

TextTable::TextTable(std::vector<Column> columns) : columns_(std::move(columns)) {}

void TextTable::add(std::vector<std::string> cells) {
    cells.resize(columns_.size());
    // Plan texts may hold anything; control bytes must not reach a terminal.
    for (std::string& cell : cells) {
        for (char& c : cell) {
            const auto b = static_cast<unsigned char>(c);
            if (b < 0x20 || b == 0x7F) c = '?';
        }
    }
    rows_.push_back(std::move(cells));
}

std::string TextTable::render() const {
    std::vector<std::size_t> width(columns_.size());
    for (std::size_t c = 0; c < columns_.size(); ++c) {
        width[c] = display_width(columns_[c].title);
        for (const auto& row : rows_) width[c] = std::max(width[c], display_width(row[c]));
    }
    std::string out;
    auto emit = [&](const std::vector<std::string>& cells) {
        std::string line;
        for (std::size_t c = 0; c < cells.size(); ++c) {
            const std::size_t pad = width[c] - display_width(cells[c]);
            if (c > 0) line += "  ";
            if (columns_[c].align == Align::Right) {
                line.append(pad, ' ');
                line += cells[c];
            } else {
                line += cells[c];
                line.append(pad, ' ');
            }
        }
        while (!line.empty() && line.back() == ' ') line.pop_back();
        out += line;
        out += '\n';
    };
    std::vector<std::string> titles;
    for (const Column& col : columns_) titles.push_back(col.title);
    emit(titles);
    for (const auto& row : rows_) emit(row);
    return out;
}

}  // namespace alm
