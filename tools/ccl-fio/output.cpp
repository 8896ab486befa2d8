#include "tools/ccl-fio/output.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <stdexcept>

#include "tools/ccl-fio/utf8.h"

namespace tool {

namespace {

bool changes_direction(char32_t code) {
  return code == 0x061C || code == 0x200E || code == 0x200F || (code >= 0x2028 && code <= 0x202E) ||
         (code >= 0x2066 && code <= 0x2069);
}

/// The columns of a character, or -1 for one that is not to be written as it is.
int columns_of(character const& first) {
  if (!first.valid || changes_direction(first.code)) {
    return -1;
  }
  if (first.code < 0x80) {
    return first.code >= 0x20 && first.code != 0x7F ? 1 : -1;
  }
  return ::wcwidth(static_cast<wchar_t>(first.code));
}

/// Whether each byte of a text is a character of one column, and is written as it is.
bool is_plain(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char byte) { return byte < 0x20 || byte == 0x7F || byte == '\\'; });
}

std::string escape(character const& first) {
  switch (first.code) {
  case '\n':
    return "\\n";
  case '\r':
    return "\\r";
  case '\t':
    return "\\t";
  case '\\':
    return "\\\\";
  default:
    break;
  }
  auto const code = static_cast<unsigned>(first.code);
  if (!first.valid || code < 0x80) {
    return fmt::format("\\x{:02x}", code);
  }
  return code > 0xFFFF ? fmt::format("\\U{:08x}", code) : fmt::format("\\u{:04x}", code);
}

bool is_set(char const* variable) {
  char const* const value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

bool has_colours(std::FILE* stream) {
  char const* const terminal = std::getenv("TERM");
  return !is_set("NO_COLOR") && terminal != nullptr && std::strcmp(terminal, "dumb") != 0 && ::isatty(::fileno(stream));
}

constexpr std::size_t gap = 2;

/// A text as it is written, and its columns on a terminal.
struct shown_text {
  std::string_view text;
  std::size_t width;
};

shown_text measured(std::string_view text) { return {text, width_of(text)}; }

/// A text as it is written: itself, or its escaped form, which `room` holds.
shown_text shown(std::string_view text, std::string& room) {
  if (is_plain(text)) {
    return {text, text.size()};
  }
  room = escaped(text);
  return measured(room);
}

/// A column as it is written, with the width of its widest text and of its longest word.
struct written_column {
  std::size_t index = 0; ///< in the table
  std::string title;
  std::size_t width = 0;
  std::size_t least_width = 0;
};

std::string capitals(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char letter) { return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 32) : letter; });
  return text;
}

std::size_t longest_word_of(std::string_view text) {
  std::size_t longest = 0;
  for (std::string const& word : wrapped(text, 0)) {
    longest = std::max(longest, width_of(word));
  }
  return longest;
}

written_column write_column(table const& contents, std::size_t index) {
  constexpr std::size_t narrowest = 24;
  column const& heading = contents.columns[index];
  written_column result = {index, capitals(heading.title)};
  result.width = result.least_width = width_of(result.title);
  std::string room;
  char const* last = nullptr;
  for (std::vector<cell> const& row : contents.rows) {
    // Rows of one type have the very same texts.
    if (row[index].text.data() == last) {
      continue;
    }
    last = row[index].text.data();
    auto const [text, width] = shown(row[index].text, room);
    bool const may_break = heading.wraps && width > narrowest;
    result.width = std::max(result.width, width);
    result.least_width = std::max(result.least_width, may_break ? std::max(longest_word_of(text), narrowest) : width);
  }
  return result;
}

/// A table as it is written: the columns that have something to show.
struct layout {
  std::vector<written_column> columns;
  std::size_t essential = 0;
};

layout lay_out(table const& contents) {
  layout result;
  for (std::size_t index = 0; index != contents.columns.size(); ++index) {
    bool const has_text = std::any_of(contents.rows.begin(), contents.rows.end(),
                                      [index](std::vector<cell> const& row) { return !row[index].text.empty(); });
    if (has_text || index == 0 || contents.keeps_empty_columns) {
      result.columns.push_back(write_column(contents, index));
      result.essential += index < contents.essential ? 1 : 0;
    }
  }
  return result;
}

/// The widths of as many columns as there is room for: those that have to be shown may be narrower than their texts if
/// these can be broken, and of the others each is shown whole or not at all. Empty if there is no room.
std::vector<std::size_t> fitting_widths(layout const& form, std::size_t needed, std::size_t width) {
  std::vector<std::size_t> widths;
  std::size_t used = 0;
  for (std::size_t i = 0; i != needed; ++i) {
    widths.push_back(form.columns[i].least_width);
    used += widths.back() + gap;
  }
  if (used > width + gap) {
    return {};
  }
  for (std::size_t i = 0; i != needed; ++i) {
    std::size_t const more = std::min(form.columns[i].width - widths[i], width + gap - used);
    widths[i] += more;
    used += more;
  }
  for (std::size_t i = needed; i != form.columns.size() && used + form.columns[i].width <= width; ++i) {
    widths.push_back(form.columns[i].width);
    used += widths.back() + gap;
  }
  return widths;
}

/// A line of a table, whose cells are added from left to right.
class table_line {
public:
  void add(shown_text const& content, style look, std::size_t width) {
    if (!content.text.empty()) {
      m_line.append(m_blanks, ' ');
      look == style::plain ? m_line.append(content.text) : m_line.append(styled(content.text, look, stdout));
      m_blanks = 0;
    }
    m_blanks += width + gap - content.width;
  }

  void end() {
    m_line += '\n';
    write(m_line);
    m_line.clear();
    m_blanks = 0;
  }

private:
  std::string m_line;
  std::size_t m_blanks = 0;
};

/// Writes a row, on several lines if a text has to be broken.
void write_row(std::vector<cell> const& row, layout const& form, std::vector<std::size_t> const& widths,
               table_line& line) {
  std::string room;
  std::vector<std::vector<std::string>> parts; // of the texts that are broken, if there is one
  std::size_t height = 1;
  for (std::size_t i = 0; i != widths.size(); ++i) {
    cell const& one = row[form.columns[i].index];
    shown_text first = shown(one.text, room);
    if (first.width > widths[i]) {
      parts.resize(widths.size());
      parts[i] = wrapped(first.text, widths[i]);
      height = std::max(height, parts[i].size());
      first = measured(parts[i].front());
    }
    line.add(first, one.look, widths[i]);
  }
  line.end();
  for (std::size_t part = 1; part != height; ++part) {
    for (std::size_t i = 0; i != widths.size(); ++i) {
      line.add(measured(part < parts[i].size() ? parts[i][part] : ""), row[form.columns[i].index].look, widths[i]);
    }
    line.end();
  }
}

/// Writes a cell of a block behind its title, or below it if only there is room for what may not be broken.
void write_labelled(column const& heading, std::string_view text, style look, std::size_t width) {
  std::string const label = "  " + heading.title + ':';
  std::size_t const widest = heading.wraps ? longest_word_of(text) : width_of(text);
  std::size_t indent = label.size() + 1;
  std::string start = label + ' ';
  if (indent + widest > width && widest <= width) {
    indent = std::min<std::size_t>(4, width - widest);
    start = label + '\n' + std::string(indent, ' ');
  }
  std::size_t const room = width > indent ? width - indent : 1;
  for (std::string const& line : heading.wraps ? wrapped(text, room) : std::vector<std::string>{std::string(text)}) {
    write(start + styled(line, look, stdout) + '\n');
    start.assign(indent, ' ');
  }
}

void write_block(std::vector<cell> const& row, table const& contents, layout const& form, std::size_t needed,
                 std::size_t width) {
  std::string room;
  write(styled(shown(row[form.columns.front().index].text, room).text, style::heading, stdout) + '\n');
  for (std::size_t i = 1; i != needed; ++i) {
    column const& heading = contents.columns[form.columns[i].index];
    cell const& one = row[form.columns[i].index];
    if (!one.text.empty()) {
      write_labelled(heading, shown(one.text, room).text, one.look, width);
    }
  }
}

} // namespace

void occupy_standard_streams() {
  for (int const descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(descriptor, F_GETFD) == -1) {
      static_cast<void>(::open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY));
    }
  }
}

void write(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

void write_record(std::string_view text) {
  write(text);
  std::putc('\0', stdout);
}

void finish_output() {
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
    throw std::runtime_error("standard output cannot be written");
  }
}

void complain(std::string_view kind, std::string_view message) {
  std::string line = "ccl-fio: ";
  if (!kind.empty()) {
    line += styled(fmt::format("{}:", kind), style::bad, stderr) + ' ';
  }
  line += escaped(message) + '\n';
  std::fwrite(line.data(), 1, line.size(), stderr);
}

std::string escaped(std::string_view text) {
  if (is_plain(text)) {
    return std::string(text);
  }
  std::string result;
  while (!text.empty()) {
    character const first = first_character(text);
    columns_of(first) < 0 || first.code == '\\' ? result += escape(first) : result.append(text.substr(0, first.size));
    text.remove_prefix(first.size);
  }
  return result;
}

std::size_t width_of(std::string_view text) {
  if (is_plain(text)) {
    return text.size();
  }
  std::size_t width = 0;
  while (!text.empty()) {
    character const first = first_character(text);
    width += static_cast<std::size_t>(std::max(columns_of(first), 0));
    text.remove_prefix(first.size);
  }
  return width;
}

std::size_t output_width() {
  if (char const* const given = std::getenv("COLUMNS")) {
    std::size_t columns = 0;
    auto const [end, error] = std::from_chars(given, given + std::strlen(given), columns);
    if (error == std::errc() && *end == '\0' && columns != 0) {
      return columns;
    }
  }
  winsize size = {};
  return ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col != 0 ? size.ws_col : 80;
}

std::vector<std::string> wrapped(std::string_view text, std::size_t width) {
  std::vector<std::string> lines(1);
  while (!text.empty()) {
    std::size_t const end = std::min(text.find(' '), text.size());
    std::string_view const word = text.substr(0, end);
    std::string& line = lines.back();
    if (line.empty()) {
      line = word;
    } else if (width_of(line) + 1 + width_of(word) <= width) {
      line.append(1, ' ').append(word);
    } else {
      lines.emplace_back(word);
    }
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

std::string styled(std::string_view text, style chosen, std::FILE* stream) {
  static bool const coloured[] = {has_colours(stdout), has_colours(stderr)};
  constexpr char const* codes[] = {"", "1", "32", "31", "2"};
  if (chosen == style::plain || text.empty() || !coloured[stream == stderr]) {
    return std::string(text);
  }
  return fmt::format("\033[{}m{}\033[0m", codes[static_cast<int>(chosen)], text);
}

void write_table(table const& contents, bool all) {
  if (contents.rows.empty()) {
    return;
  }
  std::size_t const width = output_width();
  layout const form = lay_out(contents);
  std::size_t const needed = all ? form.columns.size() : form.essential;
  std::vector<std::size_t> const widths = fitting_widths(form, needed, width);
  if (widths.empty()) {
    for (std::vector<cell> const& row : contents.rows) {
      write_block(row, contents, form, needed, width);
    }
    return;
  }
  table_line line;
  for (std::size_t i = 0; i != widths.size(); ++i) {
    line.add(measured(form.columns[i].title), style::heading, widths[i]);
  }
  line.end();
  for (std::vector<cell> const& row : contents.rows) {
    write_row(row, form, widths, line);
  }
}

} // namespace tool
