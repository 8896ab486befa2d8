/// @file
/// The rules of path strings, on views: how a string is parsed into components, how components form a string, what the
/// levels of a directory are, when its separators are normalised, and how it is simplified. Nothing here allocates or
/// touches the disk.

#ifndef CCL_FIO_INTERNAL_PATH_TEXT_H
#define CCL_FIO_INTERNAL_PATH_TEXT_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace fio_internal {

/// The longest path string: with its NUL it fills the buffer of 1024 bytes that the system's calls work with.
inline constexpr std::size_t longest_path = 1023;

/// Returns true if a path string may have this many characters. This is the one test of it.
constexpr bool is_legal_length(std::size_t length) { return length <= longest_path; }

/// Returns a view of a C-string, read no further than is needed to see whether its length is legal.
inline std::string_view bounded_text(char const* text) { return {text, ::strnlen(text, longest_path + 1)}; }

/// The longest extension that is parsed, dot included.
inline constexpr std::size_t longest_extension = 256;

/// Returns true for both kinds of separator: either ends a directory in a string, whatever separator a path has.
constexpr bool is_separator(char character) { return character == '/' || character == '\\'; }

/// Returns the separator that `separator` replaces in a path that has that one.
constexpr char opposite_separator(char separator) { return separator == '/' ? '\\' : '/'; }

/// Returns a string as the C interfaces read it: up to its first NUL.
inline std::string_view c_text(std::string const& text) { return text.c_str(); }

/// Returns true if a name is one of the two that every directory has.
inline bool is_dot_name(std::string_view name) { return name == "." || name == ".."; }

/// The components of a path string, as adjacent views into it.
struct divided_path {
  bool legal = false;         ///< false for a string that is null, empty or too long: all views are empty then
  std::string_view directory; ///< with its trailing separator
  std::string_view base;
  std::string_view extension; ///< with its dot

  /// Returns base and extension.
  std::string_view name() const { return {base.data(), base.size() + extension.size()}; }

  /// Returns the string, without what was truncated from its extension.
  std::string_view text() const { return {directory.data(), directory.size() + name().size()}; }
};

/// Returns the number of characters up to and including the last one of a kind: 0 if there is none.
inline std::size_t end_of_last(std::string_view text, char character) {
  void const* const last = ::memrchr(text.data(), character, text.size());
  return last != nullptr ? static_cast<std::size_t>(static_cast<char const*>(last) - text.data()) + 1 : 0;
}

/// Returns the number of characters up to and including the last separator of either kind.
inline std::size_t directory_size(std::string_view text) {
  std::size_t const size = end_of_last(text, '/');
  return size + end_of_last(text.substr(size), '\\');
}

/// Returns the number of characters of a file name before its last dot.
inline std::size_t base_size(std::string_view name) {
  std::size_t const end = end_of_last(name, '.');
  return end != 0 ? end - 1 : name.size();
}

/// Returns a file name as it is parsed: with its extension truncated.
inline std::string_view cut_name(std::string_view name) {
  return name.size() <= longest_extension ? name : name.substr(0, base_size(name) + longest_extension);
}

/// Parses a string of legal length.
inline divided_path divide_text(std::string_view text) {
  std::string_view const name = text.substr(directory_size(text));
  divided_path parts;
  parts.legal = true;
  parts.directory = text.substr(0, text.size() - name.size());
  parts.base = name.substr(0, base_size(name));
  parts.extension = name.substr(parts.base.size(), longest_extension);
  return parts;
}

inline divided_path divide_path(char const* path) {
  if (path == nullptr || *path == '\0') {
    return {};
  }
  std::string_view const text = bounded_text(path);
  return is_legal_length(text.size()) ? divide_text(text) : divided_path();
}

/// Passes the pieces of the string that the components form to `append`, in order.
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

/// Returns true if `test` holds for any two adjacent characters of a string. It is called with two characters or with
/// two vectors of them, so it may combine results with `&` and `|` only.
template <typename Test>
bool any_neighbours(std::string_view text, Test test) {
  using block = char __attribute__((vector_size(16)));
  using halves = std::uint64_t __attribute__((vector_size(16)));
  if (text.size() <= sizeof(block)) {
    for (std::size_t i = 1; i < text.size(); ++i) {
      if (test(text[i - 1], text[i])) {
        return true;
      }
    }
    return false;
  }
  auto const test_block = [&test, &text](std::size_t i) {
    block left;
    block right;
    std::memcpy(&left, text.data() + i, sizeof left);
    std::memcpy(&right, text.data() + i + 1, sizeof right);
    return reinterpret_cast<halves>(test(left, right));
  };
  // The last block overlaps the one before it.
  std::size_t const last = text.size() - sizeof(block) - 1;
  halves found = test_block(last);
  for (std::size_t i = 0; i < last; i += sizeof(block)) {
    found |= test_block(i);
  }
  return (found[0] | found[1]) != 0;
}

/// Returns true if a string contains neither the opposite of `separator` nor two adjacent `separator`s.
inline bool is_normal(std::string_view text, char separator) {
  char const opposite = opposite_separator(separator);
  return text.empty() ||
         (text.back() != opposite && !any_neighbours(text, [separator, opposite](auto left, auto right) {
            return (left == opposite) | ((left == separator) & (right == separator));
          }));
}

/// Replaces the opposite of `separator` by it, and collapses runs of it into one. Returns the new size.
inline std::size_t normalise(char* text, std::size_t size, char separator) {
  char const opposite = opposite_separator(separator);
  std::size_t end = 0;
  for (std::size_t i = 0; i != size; ++i) {
    char const character = text[i] == opposite ? separator : text[i];
    if (character != separator || end == 0 || text[end - 1] != separator) {
      text[end++] = character;
    }
  }
  return end;
}

/// Returns the number of characters before the first in which two strings differ.
inline std::size_t common_size(std::string_view left, std::string_view right) {
  std::size_t const size = std::min(left.size(), right.size());
  std::size_t common = 0;
  for (std::uint64_t a, b; size - common >= sizeof a; common += sizeof a) {
    std::memcpy(&a, left.data() + common, sizeof a);
    std::memcpy(&b, right.data() + common, sizeof b);
    if (a != b) {
      break;
    }
  }
  while (common != size && left[common] == right[common]) {
    ++common;
  }
  return common;
}

/// Iterates over the levels of a string: its maximal runs of characters that are not separators.
class level_walk {
public:
  /// Iterates over `text`, in which both `separator` and `alternative` are separators.
  level_walk(std::string_view text, char separator, char alternative)
      : m_text(text), m_separator(separator), m_alternative(alternative) {}

  /// Iterates over `text`, in which only `separator` is one.
  level_walk(std::string_view text, char separator) : level_walk(text, separator, separator) {}

  /// Moves to the next level. Returns false, with the level unchanged, if there is none.
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

  /// Moves to the level with this index, counted from 0 and from the present position. Returns its string, or an empty
  /// one if there is none.
  std::string_view skip_to(int index) {
    for (; index >= 0 && next(); --index) {
      if (index == 0) {
        return m_level;
      }
    }
    return {};
  }

  /// Returns the current level.
  std::string_view level() const { return m_level; }

  /// Returns true if a separator follows the level.
  bool is_closed() const { return m_end != m_text.size(); }

private:
  bool separates(char character) const { return character == m_separator || character == m_alternative; }

  std::string_view m_text;
  std::string_view m_level;
  std::size_t m_end = 0;
  char m_separator;
  char m_alternative;
};

/// Returns true if a directory is normalised with the separator `/`, and none of its levels begins with a dot: such a
/// directory is simple.
inline bool is_simple(std::string_view directory) {
  return directory.empty() ||
         (directory.front() != '.' && directory.back() == '/' && !any_neighbours(directory, [](auto left, auto right) {
            return (left == '\\') | ((left == '/') & ((right == '/') | (right == '.')));
          }));
}

/// Returns the size of what precedes the first level of a normalised directory that begins with a dot.
inline std::size_t size_without_dot_levels(std::string_view directory) {
  std::size_t start = directory.find('.');
  while (start != std::string_view::npos && start != 0 && directory[start - 1] != '/') {
    start = directory.find('.', start + 1);
  }
  return std::min(start, directory.size());
}

/// A directory that is simplified while its levels are appended, in memory that its maker provides: room for the root,
/// and for each level and a separator. A level may be in that memory, not before the place where it is copied to.
class simplified_directory {
public:
  /// Starts from the first `size` characters of `text`, which are simple and have no separator at the end, unless they
  /// are the root.
  simplified_directory(char* text, std::size_t size, char separator, bool absolute)
      : m_text(text), m_size(size), m_separator(separator), m_absolute(absolute) {}

  void append(std::string_view level) {
    using namespace std::string_view_literals;
    if (level == "."sv || (level == ".."sv && climb())) {
      return;
    }
    close();
    std::memmove(m_text + m_size, level.data(), level.size());
    m_size += level.size();
  }

  /// Ends the directory with a separator, if it is not empty. Returns its size.
  std::size_t close() {
    if (m_size != 0 && m_text[m_size - 1] != m_separator) {
      m_text[m_size++] = m_separator;
    }
    return m_size;
  }

private:
  // Removes the last level, with the separator before it. Returns false, and removes nothing, for leading ".." and an
  // empty directory; the root remains.
  bool climb() {
    using namespace std::string_view_literals;
    std::size_t start = m_size;
    while (start != 0 && m_text[start - 1] != m_separator) {
      --start;
    }
    if (m_size == 0 || std::string_view(m_text + start, m_size - start) == ".."sv) {
      return false;
    }
    bool const reaches_root = start == 1 && m_absolute;
    m_size = start == 0 || reaches_root ? start : start - 1;
    return true;
  }

  char* m_text;
  std::size_t m_size;
  char m_separator;
  bool m_absolute;
};

} // namespace fio_internal

#endif
