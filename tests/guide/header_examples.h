// What the examples in the comments of the headers stand for. An example `"a", "b" => "c"` calls the function of `of`
// that has the name of its header and of the operation that it describes.

#ifndef CCL_TESTS_GUIDE_HEADER_EXAMPLES_H
#define CCL_TESTS_GUIDE_HEADER_EXAMPLES_H

#include <ccl/err/korvane_error.h>
#include <ccl/fio/fio.h>
#include <ccl/fio/fio_errc.h>
#include <ccl/mem/mem.h>
#include <ccl/stl/stl.h>
#include <sys/stat.h>
#include <unistd.h>

// Before the header that formats paths by it.
#if __has_include(<fmt/format.h>)
#include <fmt/format.h>
#endif
#include <ccl/fio/fio_std.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <list>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "tests/guide/shown.h"

namespace header_examples {

using strings = std::vector<std::string>;

// Where the absolute paths of examples are that have to exist. In results it is not shown.
inline std::string in_scratch(std::string text) {
  static std::string const root = FIO_FILE_SYSTEM::get_current_directory() + "/root";
  for (std::size_t position = 0; (position = text.find('/', position)) != std::string::npos;) {
    bool const first = position == 0 || text[position - 1] == ';';
    text.insert(position, first ? root : "");
    position += first ? root.size() + 1 : 1;
  }
  return text;
}

// A text that is shown without quotes.
struct words_of {
  std::string text;
};

using guide::shown;
inline std::string shown(words_of const& value) { return value.text; }

inline std::string words(std::string const& text) { return text; }

template <typename Error>
std::string words(KORVANE_ERROR<Error> error) {
  return std::unique_ptr<Error>(std::move(error))->message().m_lines.at(0).m_text;
}

// While it lives, root is a user whom permissions stop.
struct ordinary_user {
  uid_t const before = ::geteuid();
  ordinary_user() {
    if (before == 0 && ::seteuid(65534) != 0) {
      std::perror("seteuid");
    }
  }
  ~ordinary_user() {
    if (::seteuid(before) != 0) {
      std::perror("seteuid");
    }
  }
  ordinary_user(ordinary_user const&) = delete;
  ordinary_user& operator=(ordinary_user const&) = delete;
};

extern int failures;

inline void check(char const* place, std::string result, std::string const& expected) {
  static std::string const root = in_scratch("/");
  for (std::size_t position; (position = result.find(root)) != std::string::npos;) {
    result.erase(position, root.size() - 1);
  }
  if (result != expected) {
    ++failures;
    std::printf("%s: the result is %s, and not %s\n", place, result.c_str(), expected.c_str());
  }
}

inline _GUID const all_zero = FIO_CLSID_NULL;
inline std::string const a_name_that_is_too_long(1024, 'x');
inline int const depths_0 = 0;
inline int const and_two_messages_of_depths_0 = 0;

// Makes what the examples of the searches find.
inline void make_files() {
  for (char const* const name : {"/proj/rtl/top.v", "/proj/lib/top.v", "/a/x.v", "/a/sub/x.v", "/a/b/y.v", "/a/top.v",
                                 "/a/top.vhd", "/b/top.v", "/a/sub/top.v"}) {
    FIO_FILE_SYSTEM::touch(in_scratch(name));
  }
}

// What all of several inputs have for a result.
template <typename Operation, typename... Inputs>
auto common_result(Operation operation, Inputs const&... inputs) {
  auto const results = {operation(inputs)...};
  for (auto const& result : results) {
    if (shown(result) != shown(*results.begin())) {
      return decltype(operation(std::string()))();
    }
  }
  return *results.begin();
}

namespace of {

// The three parts that a text is divided into.
struct parts {
  std::string text_of_directory;
  std::string text_of_base;
  std::string text_of_extension;
  [[nodiscard]] std::string directory() const { return text_of_directory; }
  [[nodiscard]] std::string dir() const { return text_of_directory; }
  [[nodiscard]] std::string base() const { return text_of_base; }
  [[nodiscard]] std::string fname() const { return text_of_base; }
  [[nodiscard]] std::string extension() const { return text_of_extension; }
  [[nodiscard]] std::string ext() const { return text_of_extension; }
};

inline parts fio_path_split_full_path(FIO_PATH const& path) {
  return {path.directory(), path.base(), path.get_path_components(FIO_PATH::EXTENSION)};
}
template <typename... Inputs>
int fio_path_levels(Inputs const&... inputs) {
  return common_result([](std::string const& text) { return FIO_PATH(text).levels(); }, inputs...);
}
inline std::string fio_path_tail(FIO_PATH const& path) { return path.tail(); }
inline FIO_PATH fio_path_tail(FIO_PATH path, char const* text) { return path.tail(text); }
inline FIO_PATH fio_path_directory(FIO_PATH path, char const* text) { return path.directory(text); }
inline FIO_PATH fio_path_base(FIO_PATH path, char const* text) { return path.base(text); }
inline FIO_PATH fio_path_filename(FIO_PATH path, char const* text) { return path.filename(text); }
template <typename First>
FIO_PATH fio_path_extension(FIO_PATH path, First first, char const* second) {
  return path.extension(first, second);
}
inline FIO_PATH fio_path_path_separator(FIO_PATH path, char separator) { return path.path_separator(separator); }
inline FIO_PATH fio_path_become_simplified(FIO_PATH path) {
  path.become_simplified();
  return path;
}
inline FIO_PATH fio_path_become_absolute(FIO_PATH path, char const* directory) {
  path.become_absolute(directory);
  return path;
}
inline FIO_PATH fio_path_cd(FIO_PATH path, char const* directory) { return path.cd(directory); }
inline std::string fio_path_get_relative_to(FIO_PATH const& path, char const* directory) {
  return path.get_relative_to(directory);
}
inline std::string fio_path_sync_path_separators(char const* text) { return FIO_PATH().sync_path_separators(text); }

inline bool fio_file_sys_same_file(char const* name, char const* pattern) {
  return FIO_FILE_SYSTEM::same_file(name, pattern);
}
inline std::string fio_file_sys_makepath(char const* drive, char const* dir, char const* fname, char const* ext) {
  char path[100];
  FIO_FILE_SYSTEM::makepath(path, drive, dir, fname, ext);
  return path;
}
inline parts fio_file_sys_splitpath(char const* path) {
  std::string drive;
  parts result;
  FIO_FILE_SYSTEM::splitpath(path, drive, result.text_of_directory, result.text_of_base, result.text_of_extension);
  return result;
}
// A name for which the number in the example stands.
inline std::string fio_file_sys_get_tmp_path(char const* path) {
  std::string text = FIO_FILE_SYSTEM::get_tmp_path(path);
  std::size_t const number = text.find(".korvane.") + 9;
  std::size_t const end = text.find_first_not_of("0123456789ABCDEF", number);
  return text.substr(0, number) + (end == number ? "" : "5A81F3C2") + text.substr(end);
}

inline _GUID fio_clsid_fio_str_to_clsid(char const* text) { return fio_str_to_clsid(text); }
template <typename Value>
FIO_FILE_TYPE fio_file_ext_type_info_fio_get_file_type(Value const& value) {
  return fio_get_file_type(value);
}
template <typename... Inputs>
FIO_EXTENSION_TYPE fio_file_ext_type_info_fio_get_extension_type(Inputs const&... inputs) {
  return common_result([](std::string const& text) { return fio_get_extension_type(text); }, inputs...);
}
inline std::string fio_extension_type_info_fio_get_extension_type_filter(FIO_EXTENSION_TYPE type, bool plural) {
  return fio_get_extension_type_filter(type, plural);
}
inline std::string fio_file_type_info_fio_get_file_type_filter(FIO_FILE_TYPE type, bool plural) {
  return fio_get_file_type_filter(type, plural);
}

// The two lists that a search path becomes.
inline words_of fio_find_file(char const* search_path) {
  FIO_FIND find(search_path, false);
  return {shown(find.m_search_list) + " | " + shown(find.m_directories)};
}
template <typename... Inputs>
bool fio_find_set_directory_for_results_to_become_absolute_to(Inputs... inputs) {
  FIO_FIND find("/a", false);
  return (find.set_directory_for_results_to_become_absolute_to(inputs) || ...);
}
inline FIO_PATH fio_find_find_first(std::string const& name) {
  return FIO_FIND(in_scratch("/a"), false).find_first(name);
}
inline FIO_PATH fio_find_find_first(char const* name, char const* directory) {
  return FIO_FIND(in_scratch(directory), false).find_first(name);
}
inline std::string fio_find_find_first(char const* name, char const* other, char const* directory) {
  return common_result(
      [directory](std::string const& text) { return fio_find_find_first(text.c_str(), directory).fullpath(); }, name,
      other);
}
inline FIO_PATH fio_find_find_first_relative_path(char const* path, char const* directory) {
  return FIO_FIND(in_scratch(directory), false).find_first_relative_path(path);
}
inline std::list<FIO_PATH> fio_find_find_all(char const* name, strings const& extensions) {
  std::list<FIO_PATH> matches;
  FIO_FIND(in_scratch("/a;/b"), false).find_all(name, extensions, &matches, false, false);
  return matches;
}

// The depths of the lines of a message that other messages are nested under.
inline KORVANE_ERROR_MESSAGE message_of_depths(std::initializer_list<int> depths) {
  KORVANE_ERROR_MESSAGE message;
  for (int const depth : depths) {
    message.m_lines.emplace_back();
    message.m_lines.back().m_indent = depth;
  }
  return message;
}
inline std::list<int> korvane_errc_unpack_submsgs(int depth, int first, int second) {
  KORVANE_ERROR_MESSAGE message = message_of_depths({depth});
  message.unpack_submsgs(std::vector<KORVANE_ERROR_MESSAGE>(2, message_of_depths({first, second})));
  std::list<int> depths;
  for (KORVANE_ERROR_MESSAGE::LINE const& line : message.m_lines) {
    depths.push_back(line.m_indent);
  }
  return depths;
}

inline std::string stl_stl_tolower(std::string text) {
  stl_tolower(text);
  return text;
}
// The tokens of a text, and the null behind them.
inline std::list<char const*> stl_strtok_s(std::string text, char const* delimiters) {
  static std::string kept;
  kept = std::move(text);
  std::size_t remaining = kept.size() + 1;
  char* context = nullptr;
  std::list<char const*> tokens = {strtok_s(kept.data(), &remaining, delimiters, &context)};
  while (tokens.back() != nullptr) {
    tokens.push_back(strtok_s(nullptr, &remaining, delimiters, &context));
  }
  return tokens;
}

} // namespace of
} // namespace header_examples

// What stands before the examples that are C++.
#define BEFORE_fio_errc_file std::string const path = "/tmp/x";
#define BEFORE_fio_find_file make_files();
#define BEFORE_mem_stl_raw_sprintf                                                                                     \
  using MEM_DETAIL::stl_raw_sprintf;                                                                                   \
  std::string text;
// A directory in which an ordinary user can make nothing.
#define BEFORE_fio_file_sys_create                                                                                     \
  std::string const path = "closed/below";                                                                             \
  ::mkdir("closed", 0555);                                                                                             \
  ordinary_user const user;

// The bytes that the example of the streams has written.
#define RESULT_fio_file_bin_file bytes_after(file, "count.bin")

namespace header_examples {

inline std::string bytes_after(std::ofstream& file, char const* name) {
  file.flush();
  std::ifstream written(name, std::ios::binary);
  std::string text;
  for (std::istreambuf_iterator<char> byte(written), end; byte != end; ++byte) {
    char digits[4];
    std::snprintf(digits, sizeof digits, " %02x", static_cast<unsigned>(static_cast<unsigned char>(*byte)));
    text += text.empty() ? digits + 1 : digits;
  }
  return text;
}

} // namespace header_examples

#endif
