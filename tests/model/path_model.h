/// @file
/// A slow second writing of the path class, against which the programs of this folder hold the real one.
///
/// It shares no code, no header and no helper with the library. Every rule is written as the step-by-step text work
/// that describes it, with strings and vectors alone, and nothing is done for speed, so that it can be checked by
/// reading.
/// The operations have the names of the real ones, so that one text can drive both.

#ifndef CCL_TESTS_MODEL_PATH_MODEL_H
#define CCL_TESTS_MODEL_PATH_MODEL_H

#include <string>
#include <vector>

/// What stands around a path: the things that the class reads from the process, and the channel that it writes to.
struct path_surroundings {
  bool old_simplify = false;         ///< the environment variable "fio_old_simplify" is set
  std::string current_directory;     ///< empty: it cannot be read
  std::vector<std::string> messages; ///< the debug messages, in order, each as the format that is handed over
};

extern path_surroundings model_surroundings;

/// The four parts of a text; `legal` is false for an empty text and for one that is too long.
struct path_parts {
  bool legal = false;
  std::string drive;
  std::string directory;
  std::string base;
  std::string extension;
};

/// Divides a text. An embedded NUL ends it.
path_parts divide_text(std::string const& text);

/// Puts the text of four parts together. An embedded NUL ends a part.
std::string join_parts(std::string const& drive, std::string const& directory, std::string const& base,
                       std::string const& extension);

/// The text up to its first NUL.
std::string c_text(std::string const& text);

/// The path itself. One thread at a time, since all paths share the surroundings.
class path_model {
public:
  static constexpr int drive_component = 1;
  static constexpr int directory_component = 2;
  static constexpr int base_component = 4;
  static constexpr int extension_component = 8;

  path_model() = default;
  path_model(char const* text);
  path_model(std::string const& text);
  path_model(std::string const& directory, std::string const& name);
  path_model(path_model const& other) = default;
  path_model(path_model&& other);
  ~path_model() = default;
  path_model& operator=(path_model const& other);
  path_model& operator=(path_model&& other);
  path_model& operator=(std::string const& text);
  path_model& operator=(char const* text);

  void split_full_path(char const* text);
  void make_path(int component, std::string const& value);
  std::string sync_path_separators(std::string const& text) const;
  path_model& path_separator(char separator);

  /// Each of these three makes the length check.
  std::string fullpath() const;
  operator std::string() const;
  operator char const*() const;

  static bool is_path_length_within_operating_system_limits(unsigned long length);
  static bool is_path_length_within_operating_system_limits(std::string const& text);
  bool is_legal_length() const;
  bool legal(int level) const;

  std::string get_path_components(int mask) const;
  bool has_drive() const;
  bool has_directory() const;
  bool has_extension() const;
  bool absolute() const;
  bool directory_path() const;
  std::string drive() const;
  std::string directory() const;
  std::string full_directory() const;
  std::string base() const;
  std::string extension() const;
  std::string filename() const;
  int levels() const;
  std::string operator[](int level) const;
  std::string tail() const;
  static bool is_dot_directory(std::string const& name);

  path_model& drive(char letter);
  path_model& drive(std::string const& text);
  path_model& directory(std::string const& text);
  path_model& base(std::string const& text);
  path_model& filename(std::string const& text);
  path_model& tail(std::string const& text);
  path_model& no_extension();
  path_model& extension(int first, int second);
  path_model& extension(int first, std::string const& second);
  path_model& extension(std::string const& first, int second);
  path_model& extension(std::string const& first, std::string const& second);

  void become_simplified();
  void flatten();
  void become_absolute(std::string const& directory);
  path_model& cd(std::string const& directory);
  std::string get_relative_to(std::string const& directory) const;

  bool operator==(path_model const& right) const;
  bool operator==(std::string const& right) const;
  bool operator!=(path_model const& right) const;
  bool operator!=(std::string const& right) const;
  bool operator<(path_model const& right) const;
  bool operator<(std::string const& right) const;
  /// -1, 0 or 1.
  static int os_specific_comparison(char const* left, char const* right);

private:
  void check_length() const;
  void take_strings_of(path_model& other);
  std::vector<std::string> components_of_full_path() const;
  void climb(std::string& result) const;
  void append_component(std::string& result, std::string const& component) const;
  void simplify_the_second_way();
  void close_simplification(std::string const& result);
  static bool same_names(path_model const& left, path_model const& right);
  static int compare(path_model& left, path_model& right);

  std::string m_full_path;
  std::string m_drive;
  std::string m_directory;
  std::string m_base;
  std::string m_extension;
  char m_path_separator = '/';
  bool m_legal_length = true;
};

/// Writes the message about a path that is too long. A null pointer is left out of it.
void model_length_message(char const* path);

#endif
