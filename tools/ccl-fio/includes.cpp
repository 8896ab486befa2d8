#include "tools/ccl-fio/includes.h"

#include <algorithm>
#include <cstddef>

namespace tool {

namespace {

bool is_in_identifier(char letter) {
  return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9') ||
         letter == '_' || letter == '$';
}

/// Reads a source from its beginning to its end.
class reader {
public:
  explicit reader(std::string_view source) : m_rest(source) {}

  bool at_end() const { return m_rest.empty(); }
  bool starts_with(std::string_view text) const { return m_rest.substr(0, text.size()) == text; }
  char front() const { return m_rest.front(); }
  int line() const { return m_line; }

  std::string_view take(std::size_t count) {
    std::string_view const taken = m_rest.substr(0, count);
    m_line += static_cast<int>(std::count(taken.begin(), taken.end(), '\n'));
    m_rest.remove_prefix(taken.size());
    return taken;
  }

  /// Takes all before the first `end` from `start` on, or all that there is.
  std::string_view take_up_to(std::string_view end, std::size_t start = 0) { return take(m_rest.find(end, start)); }

  std::string_view take_identifier() {
    return take(
        static_cast<std::size_t>(std::find_if_not(m_rest.begin(), m_rest.end(), is_in_identifier) - m_rest.begin()));
  }

private:
  std::string_view m_rest;
  int m_line = 1;
};

void skip_string(reader& source) {
  source.take(1);
  while (!source.at_end() && source.front() != '"' && source.front() != '\n') {
    source.take(source.front() == '\\' ? 2 : 1);
  }
  source.take(1);
}

void skip_blanks(reader& source) {
  while (!source.at_end() && (source.front() == ' ' || source.front() == '\t')) {
    source.take(1);
  }
}

/// Reads what stands behind the word: a name between quotes or angle brackets, or a macro.
void read_name(reader& source, std::vector<include_line>& lines) {
  skip_blanks(source);
  int const line = source.line();
  if (source.starts_with("\"") || source.starts_with("<")) {
    char const* const end = source.front() == '"' ? "\"" : ">";
    source.take(1);
    std::string_view const name = source.take_up_to(end);
    if (!source.at_end() && name.find('\n') == std::string_view::npos) {
      lines.push_back({std::string(name), line});
    }
    source.take(1);
  } else if (source.starts_with("`")) {
    source.take(1);
    lines.push_back({"`" + std::string(source.take_identifier()), line, true});
  }
}

} // namespace

std::vector<include_line> include_lines_of(std::string_view text) {
  std::vector<include_line> lines;
  reader source(text);
  while (!source.at_end()) {
    if (source.starts_with("//")) {
      source.take_up_to("\n");
    } else if (source.starts_with("/*")) {
      source.take_up_to("*/", 2);
      source.take(2);
    } else if (source.front() == '"') {
      skip_string(source);
    } else if (source.front() == '`') {
      source.take(1);
      if (source.take_identifier() == "include") {
        read_name(source, lines);
      }
    } else {
      source.take(1);
    }
  }
  return lines;
}

} // namespace tool
