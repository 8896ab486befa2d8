#include "tools/ccl-fio/include_scanner.h"

#include <algorithm>
#include <cstddef>

namespace tool {

namespace {

bool is_white_space(char letter) { return letter == ' ' || (letter >= '\t' && letter <= '\r'); }

bool is_in_identifier(char letter) {
  return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9') ||
         letter == '_' || letter == '$';
}

/// Reads a source token by token, as far as tokens matter for where a directive begins.
class include_scanner {
public:
  explicit include_scanner(std::string_view source) : m_source(source), m_rest(source) {}

  std::vector<include_directive> scan() {
    auto const matters = [](char letter) { return letter == '"' || letter == '`' || letter == '\\' || letter == '/'; };
    for (take_until(matters); !m_rest.empty(); take_until(matters)) {
      if (m_rest.front() == '"') {
        skip_string();
      } else if (m_rest.front() == '`') {
        read_directive();
      } else if (m_rest.front() == '\\') {
        take_until(is_white_space); // an escaped identifier, in which nothing else has a meaning
      } else if (!skip_comment()) {
        skip(1);
      }
    }
    return std::move(m_found);
  }

private:
  bool starts_with(std::string_view text) const { return m_rest.substr(0, text.size()) == text; }

  void skip(std::size_t count) { m_rest.remove_prefix(std::min(count, m_rest.size())); }

  void skip_past(std::string_view end) {
    m_rest.remove_prefix(std::min(m_rest.find(end), m_rest.size()));
    skip(end.size());
  }

  template <typename Condition>
  std::string_view take_until(Condition ends) {
    auto const end = std::find_if(m_rest.begin(), m_rest.end(), ends);
    std::string_view const taken = m_rest.substr(0, static_cast<std::size_t>(end - m_rest.begin()));
    m_rest.remove_prefix(taken.size());
    return taken;
  }

  bool skip_comment() {
    if (starts_with("//")) {
      skip_past("\n");
    } else if (starts_with("/*")) {
      skip(2);
      skip_past("*/");
    } else {
      return false;
    }
    return true;
  }

  /// A string ends with its line unless a backslash continues it, or three quotes begin it.
  void skip_string() {
    std::string_view const quotes = starts_with("\"\"\"") ? "\"\"\"" : "\"";
    skip(quotes.size());
    while (!m_rest.empty() && !starts_with(quotes)) {
      if (m_rest.front() == '\n' && quotes.size() == 1) {
        return;
      }
      skip(m_rest.front() != '\\' ? 1 : starts_with("\\\r\n") ? 3 : 2);
    }
    skip(quotes.size());
  }

  /// A line that goes on, as in the body of a macro.
  bool skip_continuation() {
    bool const is_continued = starts_with("\\\n") || starts_with("\\\r\n");
    skip(is_continued ? 2 : 0);
    return is_continued;
  }

  void skip_space() {
    do {
      take_until([](char letter) { return !is_white_space(letter); });
    } while (skip_comment() || skip_continuation());
  }

  void read_directive() {
    // In the body of a macro, two of them join identifiers, and a quote behind one opens no string.
    for (std::string_view const token : {"``", "`\"", "`\\`\""}) {
      if (starts_with(token)) {
        return skip(token.size());
      }
    }
    auto const start = static_cast<std::size_t>(m_rest.data() - m_source.data());
    skip(1);
    if (take_identifier() == "include") {
      skip_space();
      read_name(start);
    }
  }

  void read_name(std::size_t start) {
    if (starts_with("\"") || starts_with("<")) {
      char const end = m_rest.front() == '<' ? '>' : '"';
      skip(1);
      std::string_view const name = take_until([end](char letter) { return letter == end || letter == '\n'; });
      if (!m_rest.empty() && m_rest.front() == end) {
        skip(1);
        m_found.push_back({std::string(name), line_of(start)});
      }
    } else if (starts_with("`")) {
      std::string name(m_rest.substr(0, starts_with("`\"") ? 2 : 1));
      skip(name.size());
      m_found.push_back({name.append(take_identifier()), line_of(start), true});
    }
  }

  std::string_view take_identifier() {
    return take_until([](char letter) { return !is_in_identifier(letter); });
  }

  /// The line of a place behind all those that were asked for before.
  int line_of(std::size_t place) {
    auto const begin = m_source.begin();
    m_line += static_cast<int>(std::count(begin + m_counted, begin + place, '\n'));
    m_counted = place;
    return m_line;
  }

  std::string_view m_source;
  std::string_view m_rest;
  std::size_t m_counted = 0; ///< up to where the lines are counted
  int m_line = 1;
  std::vector<include_directive> m_found;
};

} // namespace

std::vector<include_directive> scan_includes(std::string_view source) { return include_scanner(source).scan(); }

} // namespace tool
