#include "texttable.h"

#include <algorithm>
#include <cstring>

namespace alm {
namespace {

// Blocks start small, for the short tables, and double up to this size.
constexpr std::size_t kFirstBlockBytes = 4096;
constexpr std::size_t kBlockBytes = std::size_t{1} << 20;

}  // namespace

std::size_t display_width(std::string_view s) {
    std::size_t n = 0;
    for (unsigned char c : s) {
        if ((c & 0xC0) != 0x80) ++n;
    }
    return n;
}

TextTable::TextTable(std::vector<Column> columns, Form form) {
    for (Column& col : columns) {
        shown_.push_back(form == Form::Wide || !col.wideOnly);
        if (!shown_.back()) continue;
        width_.push_back(display_width(col.title));
        columns_.push_back(std::move(col));
    }
}

void TextTable::add(const std::vector<std::string>& cells) {
    const std::vector<std::string_view> views(cells.begin(), cells.end());
    add(views.data(), views.size());
}

void TextTable::add(const std::string_view* cells, std::size_t count) {
    std::size_t bytes = columns_.size();
    for (std::size_t i = 0; i < count; ++i) bytes += cells[i].size();
    if (blocks_.empty() || blocks_.back().size() + bytes > blocks_.back().capacity()) {
        const std::size_t size = blocks_.empty() ? kFirstBlockBytes : std::min(2 * blocks_.back().capacity(), kBlockBytes);
        blocks_.emplace_back().reserve(std::max(bytes, size));
    }
    std::size_t c = 0;
    std::size_t given = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string_view cell = cells[i];
        if (c == columns_.size()) break;
        if (given < shown_.size() && !shown_[given++]) continue;
        append(c++, cell);
    }
    for (; c < columns_.size(); ++c) append(c, {});
    ++rows_;
}

void TextTable::append(std::size_t column, std::string_view cell) {
    std::string& block = blocks_.back();
    const std::size_t at = block.size();
    block.append(cell);
    // Plan texts may hold anything; control bytes must not reach a terminal.
    for (std::size_t i = at; i < block.size(); ++i) {
        const auto b = static_cast<unsigned char>(block[i]);
        if (b < 0x20 || b == 0x7F) block[i] = '?';
    }
    block += '\0';
    width_[column] = std::max(width_[column], display_width(cell));
}

void TextTable::render(const std::function<void(std::string_view)>& emit) const {
    std::string line;
    auto cell = [&](std::size_t c, std::string_view text) {
        const std::size_t pad = width_[c] - display_width(text);
        if (c > 0) line += "  ";
        if (columns_[c].align == Align::Right) {
            line.append(pad, ' ');
            line += text;
        } else {
            line += text;
            line.append(pad, ' ');
        }
    };
    auto finish = [&] {
        while (!line.empty() && line.back() == ' ') line.pop_back();
        line += '\n';
        emit(line);
        line.clear();
    };
    for (std::size_t c = 0; c < columns_.size(); ++c) cell(c, columns_[c].title);
    finish();
    for (const std::string& block : blocks_) {
        const char* p = block.data();
        const char* const end = p + block.size();
        while (p < end) {
            for (std::size_t c = 0; c < columns_.size(); ++c) {
                const auto* stop = static_cast<const char*>(std::memchr(p, '\0', static_cast<std::size_t>(end - p)));
                cell(c, std::string_view(p, static_cast<std::size_t>(stop - p)));
                p = stop + 1;
            }
            finish();
        }
    }
}

}  // namespace alm
