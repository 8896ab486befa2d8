/// @file
/// The text rules of paths, on views: how a text divides into components, how components make a text, and what the
/// levels of a directory are. Nothing here allocates or touches the disk.

#ifndef CCL_FIO_INTERNAL_PATH_TEXT_H
#define CCL_FIO_INTERNAL_PATH_TEXT_H

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace fio_internal {

/// The longest path text: together with its NUL it fills the buffer of 1024 bytes that the system's calls work with.
inline constexpr std::size_t longest_path = 1023;

/// Whether a path text may have this many characters: the one test of it.
constexpr bool is_legal_length(std::size_t length) { return length <= longest_path; }

/// A C-string, looked at no further than it takes to see whether its length is legal.
inline std::string_view bounded_text(char const* text) { return {text, ::strnlen(text, longest_path + 1)}; }

/// The longest extension that a text is divided into, dot included.
inline constexpr std::size_t longest_extension = 256;

/// Both kinds of separator end a directory in a text, whatever separator a path prefers.
constexpr bool is_separator(char character) { return character == '/' || character == '\\'; }

/// The separator that gives way to `separator` in a path that prefers that one.
constexpr char opposite_separator(char separator) { return separator == '/' ? '\\' : '/'; }

/// A string as the C interfaces see it: an embedded NUL ends it.
inline std::string_view c_text(std::string const& text) { return text.c_str(); }

/// Whether a name is one of the two that every directory has.
inline bool is_dot_name(std::string_view name) { return name == "." || name == ".."; }

/// The components of a path text, as views into it.
struct divided_path {
  bool legal = false;         ///< false for a text that is null, empty or too long: all views are empty then
  std::string_view directory; ///< with its trailing separator
  std::string_view base;
  std::string_view extension; ///< with its dot
};

inline divided_path divide_path(char const* path) {
  divided_path parts;
  if (path == nullptr || *path == '\0') {
    return parts;
  }
  std::string_view const text = bounded_text(path);
  if (!is_legal_length(text.size())) {
    return parts;
  }
  parts.legal = true;
  std::size_t name_start = text.size();
  while (name_start != 0 && !is_separator(text[name_start - 1])) {
    --name_start;
  }
  std::string_view const name = text.substr(name_start);
  std::size_t const dot = name.rfind('.');
  parts.directory = text.substr(0, name_start);
  parts.base = name.substr(0, dot);
  if (dot != std::string_view::npos) {
    parts.extension = name.substr(dot, longest_extension);
  }
  return parts;
}

/// Hands the pieces of the text that the components make to `append`, one behind the other.
template <typename Append>
void compose_path(std::string_view drive, std::string_view directory, std::string_view base, std::string_view extension,
                  Append append) {
  using namespace std::string_view_literals;
  if (!drive.empty()) {
    append(drive.substr(0, 1));
    append(":"sv);
  }
  append(directory);
  if (!directory.empty() && !is_separator(directory.back())) {
    append("/"sv);
  }
  append(base);
  if (!extension.empty() && extension.front() != '.') {
    append("."sv);
  }
  append(extension);
}

/// Walks the levels of a text: its maximal runs of characters that are not separators.
class level_walk {
public:
  /// Walks `text`, in which `separator` and `alternative` both separate.
  level_walk(std::string_view text, char separator, char alternative)
      : m_text(text), m_separator(separator), m_alternative(alternative) {}

  /// Walks `text`, in which only `separator` separates.
  level_walk(std::string_view text, char separator) : level_walk(text, separator, separator) {}

  /// Moves to the next level. False, with the level unchanged, when there is none.
  bool next() {
    std::size_t start = m_end;
    while (start != m_text.size() && separates(m_text[start])) {
      ++start;
    }
    if (start == m_text.size()) {
      return false;
    }
    m_end = start;
    while (m_end != m_text.size() && !separates(m_text[m_end])) {
      ++m_end;
    }
    m_level = m_text.substr(start, m_end - start);
    return true;
  }

  /// Moves on to the level with this index, counted from 0 and from where the walk stands. Its text, or an empty one
  /// when there is none.
  std::string_view skip_to(int index) {
    for (; index >= 0 && next(); --index) {
      if (index == 0) {
        return m_level;
      }
    }
    return {};
  }

  /// The level that the walk has reached.
  std::string_view level() const { return m_level; }

  /// Whether a separator stands behind the level.
  bool is_closed() const { return m_end != m_text.size(); }

private:
  bool separates(char character) const { return character == m_separator || character == m_alternative; }

  std::string_view m_text;
  std::string_view m_level;
  std::size_t m_end = 0;
  char m_separator;
  char m_alternative;
};

} // namespace fio_internal

#endif
