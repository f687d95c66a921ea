#include "TextTable.hpp"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace vastrel::tool {
namespace {

constexpr std::string_view kGap = "  ";

void trimTrailingBlanks(std::string& line) { line.erase(line.find_last_not_of(' ') + 1); }

}  // namespace

std::vector<std::string> wrapText(std::string_view text, std::size_t width) {
    if (width == 0 || text.size() <= width) return {std::string(text)};
    std::vector<std::string> pieces;
    for (std::size_t start = 0; start < text.size(); start += width) {
        pieces.emplace_back(text.substr(start, width));
    }
    return pieces;
}

void TextTable::addRow(std::initializer_list<std::string_view> cells) {
    const auto* given = cells.begin();
    for (std::size_t c = 0; c < columns_.size(); ++c) {
        const std::string_view text = c < cells.size() ? given[c] : std::string_view();
        text_ += text;
        if (text_.size() > std::numeric_limits<std::uint32_t>::max()) {
            throw std::length_error("the table is too large to show");
        }
        cellEnds_.push_back(static_cast<std::uint32_t>(text_.size()));
        widths_[c] = std::max(widths_[c], text.size());
    }
}

std::string_view TextTable::cell(std::size_t row, std::size_t column) const {
    const std::size_t index = row * columns_.size() + column;
    const std::size_t start = index == 0 ? 0 : cellEnds_[index - 1];
    return std::string_view(text_).substr(start, cellEnds_[index] - start);
}

std::string TextTable::render(std::size_t wrapWidth) const {
    if (columns_.empty()) return {};
    const std::size_t last = columns_.size() - 1;
    const std::size_t rows = cellEnds_.size() / columns_.size();
    std::string out;
    std::string line;
    for (std::size_t row = 0; row < rows; ++row) {
        line.clear();
        for (std::size_t c = 0; c < last; ++c) {
            const std::string_view text = cell(row, c);
            const std::size_t padding = widths_[c] - text.size();
            if (columns_[c] == Align::Right) line.append(padding, ' ');
            line += text;
            if (columns_[c] == Align::Left) line.append(padding, ' ');
            line += kGap;
        }
        const std::size_t indent = line.size();
        const std::string_view lastCell = cell(row, last);
        const std::size_t width =
            wrapWidth == 0 ? std::max<std::size_t>(lastCell.size(), 1) : wrapWidth;
        for (std::size_t start = 0; start == 0 || start < lastCell.size(); start += width) {
            if (start > 0) line.assign(indent, ' ');
            line += lastCell.substr(start, width);
            trimTrailingBlanks(line);
            out += line;
            out += '\n';
        }
    }
    return out;
}

}  // namespace vastrel::tool
