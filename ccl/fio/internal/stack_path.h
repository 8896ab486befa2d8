/// @file
/// A path on the stack, for operations whose result is another path or none at all.

#ifndef CCL_FIO_INTERNAL_STACK_PATH_H
#define CCL_FIO_INTERNAL_STACK_PATH_H

#include <cstddef>
#include <cstring>
#include <string_view>

#include "ccl/fio/internal/path_text.h"

namespace fio_internal {

/// What a `FIO_PATH` with the separator `/` contains after a string was parsed into it: one string, and the sizes of
/// its components. The string is the given one, which must outlive this object, until it is changed. Not copyable: it
/// has room for the longest path.
class stack_path {
public:
  /// Constructs the path of a string without NULs: an empty path if it is too long.
  explicit stack_path(std::string_view text) : m_text(text.data()) {
    if (fits(text.size())) {
      divide(text.size());
    }
  }

  /// Constructs the path of two strings without NULs and a `/` between them.
  stack_path(std::string_view directory, std::string_view text) { join(directory, text); }

  stack_path(stack_path const&) = delete;
  stack_path& operator=(stack_path const&) = delete;

  std::string_view text() const { return {m_text, m_size}; }
  std::string_view directory() const { return {m_text, m_directory}; }
  std::string_view name() const { return {m_text + m_directory, m_size - m_directory}; }
  std::string_view base() const { return name().substr(0, find_base()); }
  std::string_view extension() const { return name().substr(find_base()); }

  bool is_absolute() const { return m_directory != 0 && m_text[0] == '/'; }

  /// Returns false if the string was too long; the path is empty then.
  bool is_legal_length() const { return m_legal; }

  /// Returns true if the name begins or ends with a dot: only such a name can have a base or an extension that is a
  /// lone dot.
  bool has_outer_dot() const {
    return m_size != m_directory && (m_text[m_directory] == '.' || m_text[m_size - 1] == '.');
  }

  /// Returns true if this is still the given string, all of it.
  bool is_unchanged(std::string_view given) const { return m_text == given.data() && m_size == given.size(); }

  /// Prepends a directory to the path.
  void anchor(std::string_view directory) { join(directory, text()); }

  /// Simplifies the directory, and erases a base and an extension of a lone dot. A path without a directory is left
  /// unchanged, unless `without_directory` requests that its name is simplified all the same.
  void simplify(bool without_directory) {
    if ((m_directory == 0 && !without_directory) || (m_is_simple && !has_outer_dot())) {
      return;
    }
    own_text();
    std::string_view const old_base = base();
    std::string_view const old_extension = extension();
    m_size = m_directory = m_is_simple ? m_directory : simplify_directory();
    append_unless_dot(old_base);
    m_base = m_size - m_directory;
    append_unless_dot(old_extension);
  }

private:
  static constexpr std::string_view dot = ".";
  static constexpr std::size_t unknown = std::string_view::npos;

  // Stores whether a string has a legal length.
  bool fits(std::size_t size) { return m_legal = fio_internal::is_legal_length(size); }

  // Copies the string into the buffer, where it can be changed.
  void own_text() {
    if (m_text != m_buffer) {
      std::memcpy(m_buffer, m_text, m_size);
      m_text = m_buffer;
    }
  }

  // `text` may be this path's own string.
  void join(std::string_view directory, std::string_view text) {
    std::size_t const size = directory.size() + 1 + text.size();
    m_text = m_buffer;
    m_size = m_directory = 0;
    m_is_simple = true;
    if (fits(size)) {
      std::memmove(m_buffer + directory.size() + 1, text.data(), text.size());
      std::memcpy(m_buffer, directory.data(), directory.size());
      m_buffer[directory.size()] = '/';
      divide(size);
    }
  }

  // Parses the first `size` characters of the string, and normalises the directory.
  void divide(std::size_t size) {
    m_base = unknown;
    m_size = size;
    m_directory = directory_size(text());
    m_is_simple = is_simple(directory());
    m_size = m_directory + cut_name(name()).size();
    if (!m_is_simple && !is_normal(directory(), '/')) {
      own_text();
      std::string_view const divided_name = name();
      m_size = m_directory = normalise(m_buffer, m_directory, '/');
      append(divided_name);
    }
  }

  // Most names are never parsed.
  std::size_t find_base() const { return m_base != unknown ? m_base : base_size(name()); }

  // `piece` is in the buffer, not before the place where it is copied to.
  void append(std::string_view piece) {
    std::memmove(m_buffer + m_size, piece.data(), piece.size());
    m_size += piece.size();
  }

  void append_unless_dot(std::string_view piece) {
    if (piece != dot) {
      append(piece);
    }
  }

  // Returns the number of characters from `start` on that precede a level of the directory that begins with a dot.
  std::size_t simple_size(std::size_t start) const { return size_without_dot_levels(directory().substr(start)); }

  // Simplifies the directory in its place. Returns its size.
  std::size_t simplify_directory() {
    std::size_t start = simple_size(0);
    simplified_directory result(m_buffer, start > 1 ? start - 1 : start, '/', is_absolute());
    while (start != m_directory) {
      std::size_t end = start;
      while (m_text[end] != '/') {
        ++end;
      }
      result.append({m_text + start, end - start});
      start = end + 1;
      // The levels up to the next one of these are appended like one.
      if (std::size_t const size = simple_size(start)) {
        result.append({m_text + start, size - 1});
        start += size;
      }
    }
    return result.close();
  }

  char m_buffer[longest_path + 1];
  char const* m_text;
  std::size_t m_size = 0;
  std::size_t m_directory = 0;
  std::size_t m_base = unknown; // a simplified name may have another base than its string when parsed
  bool m_is_simple = true;
  bool m_legal = true;
};

} // namespace fio_internal

#endif
