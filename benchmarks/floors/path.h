/// @file
/// The floor of paths: the least code that keeps five owned strings as a path does, with the same texts, the same
/// readings of the environment and of the current directory, and the same messages. It knows the separator '/' alone,
/// no drive, and no memory that runs out.

#ifndef CCL_BENCHMARKS_FLOORS_PATH_H
#define CCL_BENCHMARKS_FLOORS_PATH_H

#include <cstddef>
#include <string>
#include <string_view>

namespace floors {

/// How a text divides, as lengths of what stands side by side in it.
struct division {
  std::size_t directory = 0;
  std::size_t base = 0;
  std::size_t extension = 0;
  bool plain = true; ///< the directory has neither a backslash nor a run of separators
};

division divide(std::string_view text);

/// A path text that is put together on the stack.
struct place {
  char text[3100]; ///< ended by a NUL
  division parts;

  std::size_t size() const { return parts.directory + parts.base + parts.extension; }
  void put(std::string_view directory, std::string_view base, std::string_view extension);
  void simplify();
  void put_below(std::string_view directory, std::string_view own_text, division const& own);
};

class path {
public:
  path() = default;
  explicit path(std::string_view text);
  path(path const&) = default;
  path(path&& other) noexcept;
  path& operator=(path&& other) noexcept;
  path& operator=(std::string_view text);

  std::string fullpath() const { return checked(m_full); }
  std::string directory() const { return checked(m_directory); }
  std::string base() const { return checked(m_base); }
  std::string extension() const;
  bool is_legal_length() const { return m_legal && m_full.size() <= 1023; }
  std::string_view text() const { return m_full; }
  std::string operator[](int level) const;
  int levels() const;

  void filename(std::string_view text);
  void extension(std::string_view text);
  void become_simplified();
  void become_absolute(std::string_view directory);
  std::string relative_to(std::string_view directory) const;

  bool operator==(path const& other) const;
  bool operator<(path const& other) const;

private:
  path(std::string_view text, division const& parts);

  bool is_absolute() const { return !m_directory.empty() && m_directory.front() == '/'; }
  std::string const& checked(std::string const& text) const;
  void store(place const& from);
  static int compare(path const& left, path const& right);

  std::string m_full;
  std::string m_drive;
  std::string m_directory;
  std::string m_base;
  std::string m_extension;
  char m_separator = '/';
  bool m_legal = true;
};

} // namespace floors

#endif
