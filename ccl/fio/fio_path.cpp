#include "ccl/fio/fio_path.h"

#include <algorithm>
#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/system/error_code.hpp>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <utility>

#include "ccl/fio/internal/current_directory.h"
#include "ccl/fio/internal/extension_part.h"
#include "ccl/fio/internal/module.h"
#include "ccl/fio/internal/path_text.h"
#include "ccl/fio/internal/stack_path.h"

namespace {

MEM_INITIALIZER const mem_initializer(fio_internal::module_name);

using fio_internal::c_text;
using fio_internal::current_directory;
using fio_internal::divide_path;
using fio_internal::divided_path;
using fio_internal::extension_part;
using fio_internal::level_walk;
using fio_internal::stack_path;

void check_length(std::string const& path) {
  if (!FIO_PATH::is_path_length_within_operating_system_limits(path)) {
    fio_display_path_too_long_assert_message(path.c_str());
  }
}

void normalise_separators(std::string& text, char separator) {
  if (!fio_internal::is_normal(text, separator)) {
    text.resize(fio_internal::normalise(text.data(), text.size(), separator));
  }
}

void close_with(std::string& text, char separator) {
  if (!text.empty() && text.back() != separator) {
    text += separator;
  }
}

bool is_dot(std::string_view text) { return text == std::string_view(".", 1); }

bool has_nul(std::string const& text) { return c_text(text).size() != text.size(); }

// Not just `reserve`, which is a call into the C++ library even when there is room.
void make_room(std::string& text, std::size_t size) {
  if (text.capacity() < size) {
    text.reserve(size);
  }
}

// Selects the algorithm of simplification, at each call anew.
bool is_old_simplification_chosen() { return std::getenv("fio_old_simplify") != nullptr; }

// Returns the file name of the path that a string without NULs would give.
std::string_view name_in(std::string_view text) {
  return fio_internal::is_legal_length(text.size())
             ? fio_internal::cut_name(text.substr(fio_internal::directory_size(text)))
             : std::string_view();
}

// Prepends the current directory, which is read for an absolute path as well.
void become_absolute(stack_path& path) {
  if (path.is_absolute()) {
    current_directory::read();
    return;
  }
  path.anchor(stack_path(current_directory().text()).text());
  path.simplify(is_old_simplification_chosen());
}

// Compares two paths once simplified and absolute, and leaves them changed.

int fio_path_comparison_operation(stack_path& left, stack_path& right) {
  left.simplify(is_old_simplification_chosen());
  right.simplify(is_old_simplification_chosen());
  become_absolute(left);
  become_absolute(right);
  return left.text().compare(right.text());
}

int fio_path_comparison_operation(FIO_PATH& left, FIO_PATH& right) {
  left.become_simplified();
  right.become_simplified();
  left.become_absolute({});
  right.become_absolute({});
  // A string that is too long is reported as it is read, the right one first.
  char const* const right_text = right;
  return FIO_PATH::os_specific_comparison(left, right_text);
}

} // namespace

// The components of a string, for the constructor.
struct FIO_PATH::division : divided_path {
  explicit division(char const* path) : divided_path(divide_path(path)) {}
};

// What the operations have in common.
struct FIO_PATH::detail {
  // Returns true if the string is directory, base and extension in a row: nothing was put between them, no NUL ended
  // one of them, and the string is not one that was left when memory ran out, since that one is shorter.
  static bool is_plain(FIO_PATH const& path) {
    return path.m_drive.empty() && (path.m_directory.empty() || path.m_directory.back() == '/') &&
           has_plain_extension(path) &&
           path.m_full_path.size() == path.m_directory.size() + path.m_base.size() + path.m_extension.size();
  }

  static bool has_plain_extension(FIO_PATH const& path) {
    return path.m_extension.empty() || path.m_extension.front() == '.';
  }

  // Not inlined: a string of legal length is read without a stack.
  [[gnu::noinline]] static char const* long_text(FIO_PATH const& path) {
    check_length(path.m_full_path);
    return path.m_full_path.c_str();
  }

  // Replaces the end of a plain string, from `start` on.
  static void replace_end(FIO_PATH& path, std::size_t start, std::string_view end) {
    make_room(path.m_full_path, start + end.size());
    path.m_full_path.erase(start);
    path.m_full_path += end;
  }

  template <typename First, typename Second>
  static FIO_PATH& store_extension(FIO_PATH& path, First const& first, Second const& second) {
    extension_part const first_part(first);
    extension_part const second_part = first_part.is_present ? extension_part(second) : extension_part();
    bool const was_plain = is_plain(path);
    // Room for two dots. From here on only the string can run out of memory.
    make_room(path.m_extension, first_part.text.size() + second_part.text.size() + 2);
    path.m_extension.clear();
    first_part.append_to(path.m_extension);
    second_part.append_to(path.m_extension);
    if (was_plain && has_plain_extension(path)) {
      replace_end(path, path.m_directory.size() + path.m_base.size(), c_text(path.m_extension));
    } else {
      path.rebuild();
    }
    return path;
  }

  static void store(FIO_PATH& path, stack_path const& parts) {
    // Memory runs out before anything is changed.
    make_room(path.m_full_path, parts.text().size());
    make_room(path.m_directory, parts.directory().size());
    make_room(path.m_base, parts.base().size());
    make_room(path.m_extension, parts.extension().size());
    path.m_drive.clear();
    path.m_full_path = parts.text();
    path.m_directory = parts.directory();
    path.m_base = parts.base();
    path.m_extension = parts.extension();
  }

  // The end of a move: moved strings need not be empty.
  static void leave_empty(FIO_PATH& path) noexcept {
    path.m_full_path.clear();
    path.m_drive.clear();
    path.m_directory.clear();
    path.m_base.clear();
    path.m_extension.clear();
    path.m_legal_length = false;
  }

  // Returns true if a path that is parsed anew from the string of this one, into `parts`, differs from it in nothing
  // that simplification reads.
  static bool is_as_divided(FIO_PATH const& path, stack_path const& parts) {
    return path.m_path_separator == '/' && is_plain(path) && parts.is_unchanged(path.m_full_path) &&
           parts.directory().size() == path.m_directory.size() &&
           (!parts.has_outer_dot() || parts.base().size() == path.m_base.size());
  }

  // Returns true if neither algorithm of simplification would change this path.
  static bool is_simplified(FIO_PATH const& path) {
    return path.m_path_separator == '/' && is_plain(path) && path.has_directory() &&
           is_path_length_within_operating_system_limits(path.m_full_path) && !is_dot(path.m_base) &&
           !is_dot(path.m_extension) && fio_internal::directory_size(path.m_full_path) == path.m_directory.size() &&
           fio_internal::is_simple(path.m_directory);
  }

  static void simplify(FIO_PATH& path, bool in_the_old_way) {
    if ((!in_the_old_way && !path.has_directory()) || is_simplified(path)) {
      return;
    }
    stack_path parts(path.m_full_path);
    if (is_as_divided(path, parts)) {
      parts.simplify(in_the_old_way);
      // None of it becomes longer, so no memory is needed.
      path.m_directory = parts.directory();
      path.m_full_path = parts.text();
      erase_lone_dots(path);
    } else {
      simplify_components(path, in_the_old_way);
    }
  }

  // Simplifies a path that is not what its string is parsed into, or too long for that.
  static void simplify_components(FIO_PATH& path, bool in_the_old_way) {
    std::string const& text = path.m_full_path;
    char const separator = path.m_path_separator;
    // Room for the root, all of the string and a separator. A NUL may hide the whole of a directory; not even its root
    // is left then.
    std::string directory(text.size() + 2, separator);
    bool const has_root = path.absolute() && (in_the_old_way || !text.empty());
    fio_internal::simplified_directory result(directory.data(), has_root ? 1 : 0, separator, path.absolute());
    if (in_the_old_way) {
      FIO_PATH const parsed(text);
      for (level_walk walk(parsed.m_directory, parsed.m_path_separator); walk.next();) {
        result.append(walk.level());
      }
    } else {
      // What follows the last separator is the file name and no component, unless there is no separator at all:
      // an assigned path may have kept another one from its source.
      bool const all_is_one_component = text.find(separator) == std::string::npos;
      level_walk walk(text, separator);
      while (walk.next() && (walk.is_closed() || all_is_one_component)) {
        result.append(walk.level());
      }
    }
    directory.resize(result.close());
    // Memory runs out before anything is changed: this is all that the string can need.
    path.m_full_path.reserve(path.m_drive.size() + directory.size() + path.m_base.size() + path.m_extension.size() + 2);
    path.m_directory = std::move(directory);
    path.store_directory();
    erase_lone_dots(path);
    path.rebuild();
    check_length(path.m_full_path);
  }

  static void erase_lone_dots(FIO_PATH& path) {
    if (is_dot(c_text(path.m_base))) {
      path.m_base.clear();
    }
    if (is_dot(path.m_extension)) {
      path.m_extension.clear();
    }
  }

  // Returns true if the string may end with the name of another path. Mostly the ends show that two paths are unequal.
  static bool may_end_with_name(std::string const& text, FIO_PATH const& path) {
    std::size_t const size = text.size();
    std::size_t const name_size = path.m_base.size() + path.m_extension.size();
    // Beyond these limits the extension may be truncated, and there may be a message about the length.
    bool const is_known = size <= fio_internal::longest_extension && is_plain(path) &&
                          is_path_length_within_operating_system_limits(path.m_full_path);
    return !is_known || (size >= name_size && (name_size == 0 || text.back() == path.m_full_path.back()) &&
                         (size == name_size || fio_internal::is_separator(text[size - name_size - 1])));
  }

  // Not inlined: the quick test before it needs no stack for two paths.
  [[gnu::noinline]] static bool is_equal(std::string const& left, FIO_PATH const& right) {
    check_length(left);
    check_length(right.m_full_path);
    std::string_view base = right.m_base;
    std::string_view extension = right.m_extension;
    if (!is_plain(right)) {
      // As long as a C-string of the file name would be.
      extension = has_nul(right.m_base) ? std::string_view() : c_text(right.m_extension);
      base = c_text(right.m_base);
    }
    std::string_view const name = name_in(left);
    return name.size() == base.size() + extension.size() && name.substr(0, base.size()) == base &&
           name.substr(base.size()) == extension && compare(left, right) == 0;
  }

  // The left operand is parsed anew from its string, with the default separator; a path on the right is copied.

  static int compare(std::string const& left, FIO_PATH const& right) {
    stack_path right_parts(right.m_full_path);
    if (!is_as_divided(right, right_parts)) {
      FIO_PATH left_copy(left);
      FIO_PATH right_copy(right);
      return fio_path_comparison_operation(left_copy, right_copy);
    }
    stack_path left_parts(left);
    return fio_path_comparison_operation(left_parts, right_parts);
  }

  static int compare(std::string const& left, std::string const& right) {
    stack_path left_parts(left);
    stack_path right_parts(c_text(right));
    return fio_path_comparison_operation(left_parts, right_parts);
  }
};

// Construction and assignment

FIO_PATH::FIO_PATH() = default;

FIO_PATH::FIO_PATH(char const* path) : FIO_PATH(division(path)) {
  // An empty string has no components, but is not rejected.
  m_legal_length = m_legal_length || path == nullptr || *path == '\0';
}

FIO_PATH::FIO_PATH(std::string const& path) : FIO_PATH(path.c_str()) {}

FIO_PATH::FIO_PATH(division const& parts)
    : m_full_path(parts.text()), m_directory(parts.directory), m_base(parts.base), m_extension(parts.extension),
      m_legal_length(parts.legal) {
  if (!fio_internal::is_normal(m_directory, m_path_separator)) {
    store_directory();
    rebuild();
  }
}

FIO_PATH::FIO_PATH(std::string const& directory, std::string const& name) : m_directory(directory), m_base(name) {
  normalise_separators(m_base, m_path_separator);
  std::size_t const dot = m_base.rfind('.');
  if (dot != std::string::npos) {
    m_extension = m_base.substr(dot);
    m_base.resize(dot);
  }
  store_directory();
  rebuild();
}

FIO_PATH::FIO_PATH(FIO_PATH const& other) = default;

FIO_PATH::FIO_PATH(FIO_PATH&& other) noexcept
    : m_full_path(std::move(other.m_full_path)), m_drive(std::move(other.m_drive)),
      m_directory(std::move(other.m_directory)), m_base(std::move(other.m_base)),
      m_extension(std::move(other.m_extension)), m_path_separator(other.m_path_separator),
      m_legal_length(other.m_legal_length) {
  detail::leave_empty(other);
}

FIO_PATH& FIO_PATH::operator=(FIO_PATH const& other) {
  if (this != &other) {
    // Memory runs out before anything is changed.
    make_room(m_full_path, other.m_full_path.size());
    make_room(m_drive, other.m_drive.size());
    make_room(m_directory, other.m_directory.size());
    make_room(m_base, other.m_base.size());
    make_room(m_extension, other.m_extension.size());
    m_full_path = other.m_full_path;
    m_drive = other.m_drive;
    m_directory = other.m_directory;
    m_base = other.m_base;
    m_extension = other.m_extension;
    m_path_separator = default_path_separator();
    m_legal_length = true;
  }
  return *this;
}

FIO_PATH& FIO_PATH::operator=(FIO_PATH&& other) noexcept {
  if (this != &other) {
    m_full_path = std::move(other.m_full_path);
    m_drive = std::move(other.m_drive);
    m_directory = std::move(other.m_directory);
    m_base = std::move(other.m_base);
    m_extension = std::move(other.m_extension);
    m_path_separator = default_path_separator();
    m_legal_length = true;
    detail::leave_empty(other);
  }
  return *this;
}

FIO_PATH& FIO_PATH::operator=(std::string const& path) { return *this = path.c_str(); }

FIO_PATH& FIO_PATH::operator=(char const* path) {
  split_full_path(path);
  return *this;
}

void FIO_PATH::split_full_path(char const* path) {
  if (path == nullptr || *path == '\0') {
    m_base.clear();
    m_drive.clear();
    m_extension.clear();
    m_directory.clear();
    m_full_path.clear();
    return;
  }
  divided_path const parts = divide_path(path);
  // Memory runs out before anything is changed. The views may lie in `m_full_path`, which is written last.
  make_room(m_base, parts.base.size());
  make_room(m_extension, parts.extension.size());
  make_room(m_directory, parts.directory.size() + (fio_internal::is_separator(m_path_separator) ? 0 : 1));
  m_legal_length = parts.legal;
  m_drive.clear();
  m_base = parts.base;
  m_extension = parts.extension;
  m_directory = parts.directory;
  if (m_path_separator == '/' && fio_internal::is_normal(m_directory, '/')) {
    m_full_path = parts.text();
  } else {
    store_directory();
    rebuild();
  }
}

void FIO_PATH::make_path(FILE_COMPONENTS component, std::string const& value) {
  switch (component) {
  case DIRECTORY: {
    bool const was_plain = detail::is_plain(*this);
    std::size_t const old_size = m_directory.size();
    bool const is_closed = value.empty() || value.back() == m_path_separator;
    make_room(m_directory, value.size() + (is_closed ? 0 : 1));
    m_directory = value;
    store_directory();
    if (was_plain && m_path_separator == '/' && !has_nul(m_directory)) {
      m_full_path.replace(0, old_size, m_directory);
      return;
    }
    break;
  }
  case DRIVE:
    m_drive.assign(value, 0, 1);
    if (!m_drive.empty()) {
      m_drive += ':';
    }
    break;
  case BASE:
    m_base = value;
    break;
  case EXTENSION:
    m_extension = value;
    break;
  }
  rebuild();
}

// Normalises the directory, which is as it was given.
void FIO_PATH::store_directory() {
  normalise_separators(m_directory, m_path_separator);
  close_with(m_directory, m_path_separator);
}

// Makes the string that `FIO_FILE_SYSTEM::makepath` gives for the components, in place. Requests exactly the size of
// the string. `is_plain` relies on it: a string left by `std::bad_alloc` is shorter than its components.
void FIO_PATH::rebuild() {
  auto const compose = [drive = c_text(m_drive), directory = c_text(m_directory), base = c_text(m_base),
                        extension = c_text(m_extension)](auto append) {
    fio_internal::compose_path(drive, directory, base, extension, append);
  };
  std::size_t size = 0;
  compose([&size](std::string_view piece) { size += piece.size(); });
  make_room(m_full_path, size);
  m_full_path.clear();
  compose([this](std::string_view piece) { m_full_path += piece; });
}

// Reading

std::string FIO_PATH::fullpath() const {
  check_length(m_full_path);
  return m_full_path;
}

FIO_PATH::operator std::string() const { return fullpath(); }

FIO_PATH::operator char const*() const {
  return is_path_length_within_operating_system_limits(m_full_path) ? m_full_path.c_str() : detail::long_text(*this);
}

std::string FIO_PATH::get_path_components(int mask) const {
  std::string components;
  if ((mask & DIRECTORY) != 0) {
    components += m_directory;
  }
  if ((mask & BASE) != 0) {
    components += m_base;
  }
  if ((mask & EXTENSION) != 0) {
    components += m_extension;
  }
  return components;
}

bool FIO_PATH::has_drive() const { return false; }

bool FIO_PATH::has_directory() const { return !m_directory.empty(); }

bool FIO_PATH::has_extension() const { return !m_extension.empty(); }

bool FIO_PATH::absolute() const { return !m_directory.empty() && m_directory.front() == m_path_separator; }

bool FIO_PATH::directory_path() const { return !m_directory.empty() && m_base.empty() && m_extension.empty(); }

std::string FIO_PATH::drive() const { return {}; }

std::string FIO_PATH::directory() const {
  check_length(m_full_path);
  return m_directory;
}

std::string FIO_PATH::full_directory() const { return directory(); }

std::string FIO_PATH::base() const {
  check_length(m_full_path);
  return m_base;
}

std::string FIO_PATH::extension() const {
  return !m_extension.empty() && m_extension.front() == '.' ? m_extension.substr(1) : m_extension;
}

std::string FIO_PATH::filename() const {
  check_length(m_full_path);
  return m_base + m_extension;
}

int FIO_PATH::levels() const {
  int count = 0;
  for (level_walk walk(m_directory, m_path_separator); walk.next();) {
    ++count;
  }
  return count;
}

std::string FIO_PATH::operator[](int level) const {
  check_length(m_full_path);
  return std::string(level_walk(m_directory, m_path_separator).skip_to(level));
}

std::string FIO_PATH::tail() const {
  // Once for this operation and once for the string that its result is read from.
  check_length(m_full_path);
  check_length(m_full_path);
  divided_path const parts = divide_path(m_full_path.c_str());
  return std::string(level_walk(parts.directory, '/', '\\').skip_to(levels() - 1));
}

bool FIO_PATH::legal(int level) const { return level >= 0 && level < levels(); }

bool FIO_PATH::is_dot_directory(std::string const& name) { return fio_internal::is_dot_name(c_text(name)); }

bool FIO_PATH::is_path_length_within_operating_system_limits(unsigned long length) {
  return fio_internal::is_legal_length(length);
}

bool FIO_PATH::is_path_length_within_operating_system_limits(std::string const& text) {
  return is_path_length_within_operating_system_limits(text.size());
}

bool FIO_PATH::is_legal_length() const {
  return m_legal_length && is_path_length_within_operating_system_limits(m_full_path);
}

// Editing

FIO_PATH& FIO_PATH::drive(char letter) { return drive(std::string(1, letter)); }

FIO_PATH& FIO_PATH::drive(std::string const& text) {
  make_path(DRIVE, text);
  return *this;
}

FIO_PATH& FIO_PATH::directory(std::string const& text) {
  make_path(DIRECTORY, text);
  return *this;
}

FIO_PATH& FIO_PATH::base(std::string const& text) {
  make_path(BASE, text);
  return *this;
}

FIO_PATH& FIO_PATH::filename(std::string const& text) {
  divided_path const parts = divide_path(text.c_str());
  // Once there is room, only the string can run out of memory.
  make_room(m_base, parts.base.size());
  make_room(m_extension, parts.extension.size());
  if (!parts.directory.empty()) {
    make_room(m_directory, m_directory.size() + parts.directory.size() + 2);
  }
  bool const was_plain = detail::is_plain(*this);
  m_legal_length = text.empty() ? m_legal_length : parts.legal;
  if (!parts.directory.empty()) {
    close_with(m_directory, m_path_separator);
    m_directory += parts.directory;
    store_directory();
  }
  m_base = parts.base;
  m_extension = parts.extension;
  if (was_plain && parts.directory.empty()) {
    detail::replace_end(*this, m_directory.size(), parts.name());
  } else {
    rebuild();
  }
  return *this;
}

FIO_PATH& FIO_PATH::tail(std::string const& text) {
  if (text.empty()) {
    return *this;
  }
  std::string_view kept = m_directory;
  if (!kept.empty() && kept.back() == m_path_separator) {
    kept.remove_suffix(1);
  }
  // Without a separator the only level remains and the new one is appended to it.
  std::size_t const last_separator = kept.rfind(m_path_separator);
  if (last_separator != std::string_view::npos) {
    kept.remove_suffix(kept.size() - last_separator - 1);
  }
  std::string directory;
  directory.reserve(kept.size() + text.size() + 1);
  directory.append(kept).append(text);
  m_directory = std::move(directory);
  store_directory();
  rebuild();
  return *this;
}

FIO_PATH& FIO_PATH::no_extension() {
  make_path(EXTENSION, {});
  return *this;
}

FIO_PATH& FIO_PATH::extension(FIO_EXTENSION_TYPE first, FIO_EXTENSION_TYPE second) {
  return detail::store_extension(*this, first, second);
}

FIO_PATH& FIO_PATH::extension(FIO_EXTENSION_TYPE first, std::string const& second) {
  return detail::store_extension(*this, first, second);
}

FIO_PATH& FIO_PATH::extension(std::string const& first, FIO_EXTENSION_TYPE second) {
  return detail::store_extension(*this, first, second);
}

FIO_PATH& FIO_PATH::extension(std::string const& first, std::string const& second) {
  return detail::store_extension(*this, first, second);
}

FIO_PATH& FIO_PATH::path_separator(char separator) {
  std::replace(m_directory.begin(), m_directory.end(), m_path_separator, separator);
  m_path_separator = separator;
  store_directory();
  rebuild();
  return *this;
}

// Simplification and location

void FIO_PATH::become_simplified() { detail::simplify(*this, is_old_simplification_chosen()); }

void FIO_PATH::flatten() { detail::simplify(*this, false); }

void FIO_PATH::become_absolute(std::string const& directory) {
  std::optional<current_directory> current;
  if (directory.empty()) {
    current.emplace();
  }
  if (absolute()) {
    return;
  }
  stack_path const anchor(current ? current->text() : c_text(directory));
  check_length(m_full_path);
  if (m_path_separator == '/') {
    stack_path path(anchor.text(), m_full_path);
    path.simplify(is_old_simplification_chosen());
    detail::store(*this, path);
    m_legal_length = path.is_legal_length();
    return;
  }
  std::string joined;
  joined.reserve(anchor.text().size() + 1 + m_full_path.size());
  joined.append(anchor.text()).append(1, '/').append(m_full_path);
  *this = joined;
  become_simplified();
}

FIO_PATH& FIO_PATH::cd(std::string directory) {
  normalise_separators(directory, m_path_separator);
  if (directory.empty()) {
    return *this;
  }
  if (directory.front() != m_path_separator) {
    std::string current = m_directory;
    close_with(current, m_path_separator);
    directory.insert(0, current);
  }
  make_path(DIRECTORY, directory);
  become_simplified();
  return *this;
}

boost::optional<std::string> FIO_PATH::canonical(std::string const& path) {
  boost::system::error_code error;
  boost::filesystem::path const current = boost::filesystem::current_path(error);
  if (error) {
    return {};
  }
  boost::filesystem::path const real = boost::filesystem::canonical(path, current, error);
  if (error) {
    return {};
  }
  return real.string();
}

std::string FIO_PATH::get_relative_to(std::string const& directory) const {
  std::string reference;
  bool const is_usual = fio_internal::is_separator(m_path_separator) && directory.size() < fio_internal::longest_path &&
                        !has_nul(directory);
  if (!is_usual) {
    reference = sync_path_separators(directory);
    close_with(reference, m_path_separator);
  }
  stack_path const self(m_full_path);
  stack_path const other = is_usual ? stack_path(directory, "") : stack_path(c_text(reference));
  if (!self.is_absolute() || !other.is_absolute()) {
    return m_full_path;
  }
  // Both begin and end with a separator, and so does what they have in common once it is truncated after the last one.
  std::size_t common = fio_internal::common_size(self.directory(), other.directory());
  while (self.text()[common - 1] != '/') {
    --common;
  }
  if (common == 1) {
    return m_full_path;
  }
  std::string_view const to_leave = other.directory().substr(common);
  std::string_view const rest = self.text().substr(common);
  auto const ups = static_cast<std::size_t>(std::count(to_leave.begin(), to_leave.end(), '/'));
  std::string result(3 * ups + rest.size(), '.');
  for (std::size_t i = 0; i != ups; ++i) {
    result[3 * i + 2] = m_path_separator;
  }
  rest.copy(&result[3 * ups], rest.size());
  return result;
}

// Comparison

bool FIO_PATH::operator==(FIO_PATH const& other) const {
  return detail::may_end_with_name(m_full_path, other) && detail::is_equal(m_full_path, other);
}

bool FIO_PATH::operator==(std::string const& other) const {
  check_length(m_full_path);
  return name_in(m_full_path) == name_in(c_text(other)) && detail::compare(m_full_path, other) == 0;
}

bool FIO_PATH::operator!=(FIO_PATH const& other) const { return !(*this == other); }

bool FIO_PATH::operator!=(std::string const& other) const { return !(*this == other); }

bool FIO_PATH::operator<(FIO_PATH const& other) const {
  check_length(m_full_path);
  return detail::compare(m_full_path, other) < 0;
}

bool FIO_PATH::operator<(std::string const& other) const {
  check_length(m_full_path);
  return detail::compare(m_full_path, other) < 0;
}

int FIO_PATH::os_specific_comparison(char const* left, char const* right) { return std::strcmp(left, right); }

// Separators and other platforms

std::string FIO_PATH::sync_path_separators(std::string const& text) const {
  std::string result = text;
  normalise_separators(result, m_path_separator);
  return result;
}

char FIO_PATH::default_path_separator() { return '/'; }

bool FIO_PATH::unc() const { return false; }

bool FIO_PATH::is_unc_path(char const* /*path*/) { return false; }

bool FIO_PATH::is_unc_path(std::string const& /*path*/) { return false; }

bool FIO_PATH::convert_unc_to_path_with_drive(char const* /*path*/, std::string& /*result*/) { return false; }

bool FIO_PATH::convert_path_with_drive_to_unc(char const* /*path*/, std::string& /*result*/) { return false; }

void FIO_PATH::change_path_separators_for_windows_api() {}

void fio_display_path_too_long_assert_message(char const* path) {
  std::string message;
  MEM_DETAIL::stl_raw_sprintf(&message, "Path name is too long -- must be shorter than %d characters",
                              static_cast<int>(fio_internal::longest_path + 1));
  if (path != nullptr) {
    message += "\nPath (length ";
    message += std::to_string(static_cast<int>(std::strlen(path)));
    message += "): ";
    message += path;
    message += '\n';
  }
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-security" // the debug channel has always read this string as a format
  fio_internal::mem_msg_vdebug(message.c_str());
#pragma GCC diagnostic pop
}
