#include "tests/fuzz/support/watched_path.h"

#include <algorithm>
#include <cstring>

#include "ccl/fio/fio_file_sys.h"
#include "tests/fuzz/support/check.h"
#include "tests/fuzz/support/debug_channel.h"

namespace fuzz {

namespace {

constexpr std::size_t longest_extension = 256;

// What the file system layer makes of the components, in a buffer with room for a drive, a separator, a dot and a NUL.
std::string made_by_file_system(std::string const& drive, components const& parts) {
  std::vector<char> buffer(parts.directory.size() + parts.base.size() + parts.extension.size() + 5, 'x');
  FIO_FILE_SYSTEM::makepath(buffer.data(), drive.c_str(), parts.directory.c_str(), parts.base.c_str(),
                            parts.extension.c_str());
  return buffer.data();
}

void check_text(watched_path const& watched, components const& parts) {
  std::string const text = watched.path.fullpath();
  expect_length_messages(1, text, "fullpath");
  expect_equal(text, composed(watched.drive, parts), "the text of the components");
  expect_equal(text, made_by_file_system(watched.drive, parts), "the text that the file system layer makes");
  expect_equal(static_cast<char const*>(watched.path), text, "the text as characters");
  expect_length_messages(1, text, "the text as characters");
  expect_equal(static_cast<std::string>(watched.path), text, "the text as a string");
  expect_length_messages(1, text, "the text as a string");
  expect(watched.path.is_legal_length() == (watched.legal && text.size() <= longest_path), "the length is legal", text);
  expect(FIO_PATH::is_path_length_within_operating_system_limits(text) == (text.size() <= longest_path),
         "the length of a text is within the limit", text);
  expect_length_messages(0, text, "asking for the length");
}

void check_component_queries(FIO_PATH const& path, components const& parts) {
  for (int const mask : {-1, 0, 1, 2, 4, 6, 8, 10, 12, 15, 16}) {
    expect_equal(path.get_path_components(mask),
                 ((mask & FIO_PATH::DIRECTORY) != 0 ? parts.directory : "") +
                     ((mask & FIO_PATH::BASE) != 0 ? parts.base : "") +
                     ((mask & FIO_PATH::EXTENSION) != 0 ? parts.extension : ""),
                 "the components of a mask");
  }
  bool const has_dot = !parts.extension.empty() && parts.extension.front() == '.';
  expect_equal(path.extension(), parts.extension.substr(has_dot ? 1 : 0), "extension");
  expect_equal(path.drive(), "", "drive");
  expect(!path.has_drive() && !path.unc(), "no drive and no network path", path.get_path_components(-1));
  expect(path.has_directory() == !parts.directory.empty(), "has_directory", parts.directory);
  expect(path.has_extension() == !parts.extension.empty(), "has_extension", parts.extension);
  expect(path.directory_path() == (!parts.directory.empty() && parts.base.empty() && parts.extension.empty()),
         "directory_path", path.get_path_components(-1));
  expect_length_messages(0, "", "the queries that check no length");
}

void check_name_queries(FIO_PATH const& path, components const& parts, std::string const& text) {
  expect_equal(path.directory(), parts.directory, "directory");
  expect_length_messages(1, text, "directory");
  expect_equal(path.full_directory(), parts.directory, "full_directory");
  expect_length_messages(1, text, "full_directory");
  expect_equal(path.base(), parts.base, "base");
  expect_length_messages(1, text, "base");
  expect_equal(path.filename(), parts.base + parts.extension, "filename");
  expect_length_messages(1, text, "filename");
}

void check_levels(watched_path const& watched, std::string const& directory, std::string const& text) {
  FIO_PATH const& path = watched.path;
  std::vector<std::string> const levels = levels_of(directory, watched.separator);
  auto const count = static_cast<int>(levels.size());
  expect_equal(path.levels(), count, "levels");
  expect(path.absolute() == (!directory.empty() && directory.front() == watched.separator), "absolute", directory);
  expect_length_messages(0, text, "levels");
  // Asking for a level walks to it: only the ends of a long directory.
  for (int level = -2; level != count + 2; level = level == 5 ? std::max(level, count - 3) + 1 : level + 1) {
    bool const exists = level >= 0 && level < count;
    expect(path.legal(level) == exists, "legal", directory);
    expect_equal(path[level], exists ? levels[static_cast<std::size_t>(level)] : "", "a level");
    expect_length_messages(1, text, "a level");
  }
  FIO_PATH const read_anew(text);
  expect_equal(path.tail(), read_anew[count - 1], "tail");
  expect_length_messages(2, text, "tail");
}

} // namespace

bool is_separator(char character) { return character == '/' || character == '\\'; }

components components_of(FIO_PATH const& path) {
  return {path.get_path_components(FIO_PATH::DIRECTORY), path.get_path_components(FIO_PATH::BASE),
          path.get_path_components(FIO_PATH::EXTENSION)};
}

std::string composed(std::string const& drive, components const& parts) {
  std::string text = drive.empty() || drive.front() == '\0' ? "" : drive.substr(0, 1) + ':';
  std::string const directory = parts.directory.c_str();
  text += directory;
  if (!directory.empty() && !is_separator(directory.back())) {
    text += '/';
  }
  text += parts.base.c_str();
  std::string const extension = parts.extension.c_str();
  if (!extension.empty() && extension.front() != '.') {
    text += '.';
  }
  return text + extension;
}

components divided(std::string const& text) {
  std::string const whole = text.c_str();
  if (whole.size() > longest_path) {
    return {};
  }
  std::size_t const name_start = whole.find_last_of("/\\") + 1;
  std::string const name = whole.substr(name_start);
  std::size_t const dot = std::min(name.rfind('.'), name.size());
  return {whole.substr(0, name_start), name.substr(0, dot), name.substr(dot, longest_extension)};
}

std::string synchronised(std::string const& text, char separator) {
  char const opposite = separator == '/' ? '\\' : '/';
  std::string result = text;
  std::replace(result.begin(), result.end(), opposite, separator);
  result.erase(std::unique(result.begin(), result.end(),
                           [separator](char left, char right) { return left == separator && right == separator; }),
               result.end());
  return result;
}

std::string stored_directory(std::string const& text, char separator) {
  std::string directory = synchronised(text, separator);
  if (!directory.empty() && directory.back() != separator) {
    directory += separator;
  }
  return directory;
}

std::vector<std::string> levels_of(std::string const& directory, char separator) {
  std::vector<std::string> levels;
  bool in_level = false;
  for (char const character : directory) {
    if (character == separator) {
      in_level = false;
      continue;
    }
    if (!in_level) {
      levels.emplace_back();
    }
    in_level = true;
    levels.back() += character;
  }
  return levels;
}

bool is_plain(watched_path const& watched) {
  components const parts = components_of(watched.path);
  std::string const name = parts.base + parts.extension;
  return watched.drive.empty() && watched.has_own_directory && watched.separator != '\0' &&
         (parts.directory + name).find('\0') == std::string::npos && name.find_first_of("/\\") == std::string::npos &&
         name.find(watched.separator) == std::string::npos;
}

void check_invariants(watched_path const& watched) {
  take_debug_messages();
  components const parts = components_of(watched.path);
  check_text(watched, parts);
  expect_equal(watched.path.sync_path_separators("/"), std::string(1, watched.separator), "the separator");
  if (watched.has_own_directory) {
    expect_equal(parts.directory, stored_directory(parts.directory, watched.separator), "the form of a directory");
  }
  check_component_queries(watched.path, parts);
  std::string const text = composed(watched.drive, parts);
  check_name_queries(watched.path, parts, text);
  check_levels(watched, parts.directory, text);
}

void expect_components(FIO_PATH const& path, std::string const& drive, components const& expected, char const* what) {
  components const found = components_of(path);
  expect_equal({found.directory, found.base, found.extension}, {expected.directory, expected.base, expected.extension},
               what);
  expect_equal(path.fullpath(), composed(drive, expected), what);
}

void expect_length_messages(std::size_t count, std::string const& text, char const* what) {
  std::vector<std::string> const found = take_debug_messages();
  if (text.size() <= longest_path) {
    count = 0;
  }
  expect_equal(static_cast<long>(found.size()), static_cast<long>(count), what);
  for (std::string const& message : found) {
    expect_equal(message,
                 "Path name is too long -- must be shorter than 1024 characters\nPath (length " +
                     std::to_string(text.size()) + "): " + text + "\n",
                 what);
  }
}

} // namespace fuzz
