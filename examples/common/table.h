/// @file
/// Tables of text, in columns as wide as their widest cell.

#ifndef CCL_EXAMPLES_COMMON_TABLE_H
#define CCL_EXAMPLES_COMMON_TABLE_H

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

using table_row = std::vector<std::string>;

inline std::string joined(std::vector<std::string> const& texts, char const* separator = ", ") {
  std::string result;
  char const* gap = "";
  for (std::string const& text : texts) {
    result += gap + text;
    gap = separator;
  }
  return result;
}

/// The number of characters of a UTF-8 text: of each, one byte is no continuation.
inline std::size_t width_of(std::string const& text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }));
}

/// Writes rows of the same number of cells, with no blank at the end of a line.
inline void write_table(std::ostream& stream, std::vector<table_row> const& rows) {
  std::vector<std::size_t> widths(rows.front().size());
  for (table_row const& row : rows) {
    for (std::size_t i = 0; i != row.size(); ++i) {
      widths[i] = std::max(widths[i], width_of(row[i]));
    }
  }
  for (table_row const& row : rows) {
    std::string line;
    for (std::size_t i = 0; i != row.size(); ++i) {
      line += row[i] + std::string(widths[i] + 2 - width_of(row[i]), ' ');
    }
    stream << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
  }
}

#endif
