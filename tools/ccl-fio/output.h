/// @file
/// Output for people: names with nothing in them that a terminal would act on, tables that fit its width, and writes
/// whose loss is noticed.

#ifndef CCL_TOOLS_OUTPUT_H
#define CCL_TOOLS_OUTPUT_H

#include <cstddef>
#include <cstdio>
#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tool {

/// The exit statuses of the command. Output that is lost counts as `unusable`.
enum exit_status { done = 0, not_all = 1, unusable = 2 };

/// Opens what is closed of the three standard streams such that its use fails. A file that is opened later would
/// otherwise take the place, and receive what is meant for people.
void occupy_standard_streams();

/// Writes to standard output.
void write(std::string_view text);

/// Writes `text` and a NUL.
void write_record(std::string_view text);

/// Flushes standard output.
///
/// @throws std::runtime_error if anything that was written to it is lost
void finish_output();

/// Writes a line to standard error that begins with the name of the command. With `kind` "warning" or "error" that word
/// stands before the message.
void complain(std::string_view kind, std::string_view message);

/// `text` with control characters, characters that change the direction of writing, bytes that are no UTF-8, and
/// backslashes as escapes: `\n`, `\t`, `\x1b`, `\u202e`, `\\`. Different texts have different escaped forms.
std::string escaped(std::string_view text);

/// The columns that a text takes on a terminal. `text` is escaped.
std::size_t width_of(std::string_view text);

/// The width of standard output: `COLUMNS`, else that of the terminal, else 80.
std::size_t output_width();

/// Breaks `text` at blanks into lines of at most `width` columns, as far as its words allow.
std::vector<std::string> wrapped(std::string_view text, std::size_t width);

/// Colours, on a terminal alone, and none where `NO_COLOR` is set or the terminal has none.
enum class style { plain, heading, good, bad, faint };

/// `text` in a style, for a stream.
std::string styled(std::string_view text, style chosen, std::FILE* stream);

/// A column of a table. What people ask for first stands on the left.
struct column {
  std::string title;
  bool wraps = false; ///< whether a long text may be broken at blanks: names are never
};

struct cell {
  std::string_view text; ///< as it is; it is escaped where it is written
  style look = style::plain;
};

/// A table in which the first `essential` columns are always shown.
struct table {
  std::vector<column> columns;
  std::size_t essential = 1;
  std::vector<std::vector<cell>> rows;
  bool keeps_empty_columns = false;   ///< otherwise a column without any text is left out
  std::deque<std::string> texts = {}; ///< of cells, where nothing else owns them

  /// A text that lives as long as the table.
  std::string_view keep(std::string text) { return texts.emplace_back(std::move(text)); }
};

/// Writes a table within the width of the output: as many columns as there is room for, or all of them with `all`. Where
/// those that have to be shown are too wide, each row is a block with a line for each cell.
void write_table(table const& contents, bool all);

} // namespace tool

#endif
