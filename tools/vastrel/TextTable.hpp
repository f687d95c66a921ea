#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vastrel::tool {

// Lines up rows of text in columns for a terminal: every column but the last is padded to
// its widest cell, columns are two blanks apart, and the last column is never padded.
class TextTable {
  public:
    enum class Align { Left, Right };

    explicit TextTable(std::vector<Align> columns) : columns_(std::move(columns)) {}

    // Adds a row; missing trailing cells are empty.
    void addRow(std::vector<std::string> cells);

    // The table, one line per row, each ending in a newline, without trailing blanks. A last
    // cell longer than wrapWidth characters (0: no limit) continues on further lines,
    // aligned under its column, so nothing is ever cut off.
    [[nodiscard]] std::string render(std::size_t wrapWidth = 0) const;

  private:
    std::vector<Align> columns_;
    std::vector<std::vector<std::string>> rows_;
};

// text split into pieces of at most width characters (the whole text when width is 0);
// an empty text gives one empty piece.
std::vector<std::string> wrapText(std::string_view text, std::size_t width);

}  // namespace vastrel::tool
