#include "TextTable.hpp"

#include <algorithm>

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

void TextTable::addRow(std::vector<std::string> cells) {
    cells.resize(columns_.size());
    rows_.push_back(std::move(cells));
}

std::string TextTable::render(std::size_t wrapWidth) const {
    if (columns_.empty()) return {};
    const std::size_t last = columns_.size() - 1;
    std::vector<std::size_t> widths(last, 0);
    for (const auto& row : rows_) {
        for (std::size_t c = 0; c < last; ++c)
            widths[c] = std::max(widths[c], row[c].size());
    }

    std::string out;
    for (const auto& row : rows_) {
        std::string line;
        for (std::size_t c = 0; c < last; ++c) {
            const std::string padding(widths[c] - row[c].size(), ' ');
            line += columns_[c] == Align::Left ? row[c] + padding : padding + row[c];
            line += kGap;
        }
        const std::size_t indent = line.size();
        const auto pieces = wrapText(row[last], wrapWidth);
        for (std::size_t p = 0; p < pieces.size(); ++p) {
            if (p > 0) line = std::string(indent, ' ');
            line += pieces[p];
            trimTrailingBlanks(line);
            out += line + '\n';
        }
    }
    return out;
}

}  // namespace vastrel::tool
