#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace vastrel::tool {

// Lines up rows of text in columns for a terminal: every column but the last is padded to
// its widest cell, columns are two blanks apart, and the last column is never padded.
class TextTable {
  public:
    enum class Align { Left, Right };

    explicit TextTable(std::vector<Align> columns)
        : columns_(std::move(columns)), widths_(columns_.size(), 0) {}

    // Adds a row; missing trailing cells are empty, extra ones are dropped. Throws
    // std::length_error past 4 GiB of text.
    void addRow(std::initializer_list<std::string_view> cells);

    // Makes room for this many rows in all, so that a large table is allocated once.
    void reserveRows(std::size_t rows) { cellEnds_.reserve(rows * columns_.size()); }

    // The table, one line per row, each ending in a newline, without trailing blanks. A last
    // cell longer than wrapWidth characters (0: no limit) continues on further lines,
    // aligned under its column, so nothing is ever cut off.
    [[nodiscard]] std::string render(std::size_t wrapWidth = 0) const;

  private:
    std::string_view cell(std::size_t row, std::size_t column) const;

    std::vector<Align> columns_;
    std::vector<std::size_t> widths_;  // of each column's widest cell so far
    // The cells end to end in one text, with the end of each, so that a table of many rows
    // takes little more memory than its text.
    std::string text_;
    std::vector<std::uint32_t> cellEnds_;
};

// text split into pieces of at most width characters (the whole text when width is 0);
// an empty text gives one empty piece.
std::vector<std::string> wrapText(std::string_view text, std::size_t width);

}  // namespace vastrel::tool
