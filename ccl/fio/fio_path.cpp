#include "ccl/fio/fio_path.h"

#include <algorithm>
#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <boost/system/error_code.hpp>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "ccl/fio/fio_file_ext_type_info.h"
#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/internal/module.h"
#include "ccl/fio/internal/path_text.h"

namespace {

MEM_INITIALIZER const mem_initializer(fio_internal::module_name);

using fio_internal::c_text;
using fio_internal::divide_path;
using fio_internal::divided_path;
using fio_internal::level_walk;

void check_length(std::string const& path) {
  if (!FIO_PATH::is_path_length_within_operating_system_limits(path)) {
    fio_display_path_too_long_assert_message(path.c_str());
  }
}

// Puts `separator` in the place of its opposite, and leaves no two of them side by side.
void normalise_separators(std::string& text, char separator) {
  char const opposite = fio_internal::opposite_separator(separator);
  auto const follows_separator = [&text, separator](std::size_t i) { return i != 0 && text[i - 1] == separator; };
  // Most texts are in order: nothing is written before the first character that is not.
  std::size_t end = 0;
  while (end != text.size() && text[end] != opposite && (text[end] != separator || !follows_separator(end))) {
    ++end;
  }
  for (std::size_t i = end; i != text.size(); ++i) {
    char const character = text[i] == opposite ? separator : text[i];
    if (character != separator || !follows_separator(end)) {
      text[end++] = character;
    }
  }
  text.resize(end);
}

void close_with(std::string& text, char separator) {
  if (!text.empty() && text.back() != separator) {
    text += separator;
  }
}

// The parts of an extension, each given as a type or as a text.

bool is_absent(FIO_EXTENSION_TYPE part) { return part == FIO_EXTENSION_TYPE_ANY; }

bool is_absent(std::string const& part) { return part.empty(); }

void append_part(std::string& extension, FIO_EXTENSION_TYPE part) { extension += fio_get_extension_string(part); }

void append_part(std::string& extension, std::string const& part) {
  if (part.front() != '.') {
    extension += '.';
  }
  extension += part;
}

template <typename First, typename Second>
std::string join_extension(First const& first, Second const& second) {
  std::string extension;
  if (!is_absent(first)) {
    append_part(extension, first);
    if (!is_absent(second)) {
      append_part(extension, second);
    }
  }
  return extension;
}

// The file name of the path that a text would give, without making one: base and extension stand side by side in it.
std::string_view name_in(std::string const& text) {
  divided_path const parts = divide_path(text.c_str());
  return {parts.base.data(), parts.base.size() + parts.extension.size()};
}

// Compares the places that two paths name, and leaves the paths changed.
int fio_path_comparison_operation(FIO_PATH& left, FIO_PATH& right) {
  left.become_simplified();
  right.become_simplified();
  left.become_absolute({});
  right.become_absolute({});
  // A text that is too long is complained of as it is read, the right one first.
  char const* const right_text = right;
  return FIO_PATH::os_specific_comparison(left, right_text);
}

// The left operand is made anew from its text, with the default separator; the right one is copied as it comes.
template <typename Operand>
int compare(std::string const& left, Operand const& right) {
  FIO_PATH left_copy(left);
  FIO_PATH right_copy(right);
  return fio_path_comparison_operation(left_copy, right_copy);
}

} // namespace

// Making and assigning

FIO_PATH::FIO_PATH() = default;

FIO_PATH::FIO_PATH(char const* path) { split_full_path(path); }

FIO_PATH::FIO_PATH(std::string const& path) { split_full_path(path.c_str()); }

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
    : m_path_separator(other.m_path_separator), m_legal_length(other.m_legal_length) {
  take(other);
}

FIO_PATH& FIO_PATH::operator=(FIO_PATH const& other) {
  if (this != &other) {
    *this = FIO_PATH(other);
  }
  return *this;
}

FIO_PATH& FIO_PATH::operator=(FIO_PATH&& other) noexcept {
  if (this != &other) {
    take(other);
    m_path_separator = default_path_separator();
    m_legal_length = true;
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
  m_base.reserve(parts.base.size());
  m_extension.reserve(parts.extension.size());
  m_directory.reserve(parts.directory.size() + 1);
  m_legal_length = parts.legal;
  m_drive.clear();
  m_base = parts.base;
  m_extension = parts.extension;
  m_directory = parts.directory;
  store_directory();
  rebuild();
}

void FIO_PATH::make_path(FILE_COMPONENTS component, std::string const& value) {
  switch (component) {
  case DIRECTORY:
    m_directory.reserve(value.size() + 1);
    m_directory = value;
    store_directory();
    break;
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

// Brings the directory, as it was given, into the form in which it is kept.
void FIO_PATH::store_directory() {
  normalise_separators(m_directory, m_path_separator);
  close_with(m_directory, m_path_separator);
}

// Makes the text that `FIO_FILE_SYSTEM::makepath` gives for the components, in place.
void FIO_PATH::rebuild() {
  // The components, and a separator and a dot between them.
  m_full_path.reserve(m_drive.size() + m_directory.size() + m_base.size() + m_extension.size() + 2);
  m_full_path.clear();
  fio_internal::compose_path(c_text(m_drive), c_text(m_directory), c_text(m_base), c_text(m_extension),
                             [this](std::string_view piece) { m_full_path += piece; });
}

// Takes the texts of `other`, which need not be empty after a move of strings alone.
void FIO_PATH::take(FIO_PATH& other) noexcept {
  m_full_path = std::exchange(other.m_full_path, {});
  m_drive = std::exchange(other.m_drive, {});
  m_directory = std::exchange(other.m_directory, {});
  m_base = std::exchange(other.m_base, {});
  m_extension = std::exchange(other.m_extension, {});
  other.m_legal_length = false;
}

// Reading

std::string FIO_PATH::fullpath() const {
  check_length(m_full_path);
  return m_full_path;
}

FIO_PATH::operator std::string() const { return fullpath(); }

FIO_PATH::operator char const*() const {
  check_length(m_full_path);
  return m_full_path.c_str();
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
  // Once for this operation and once for the text that it reads its answer from.
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
  if (text.empty()) {
    m_base.clear();
    m_extension.clear();
  } else {
    divided_path const parts = divide_path(text.c_str());
    // Memory runs out before anything is changed, but for the text.
    m_base.reserve(parts.base.size());
    m_extension.reserve(parts.extension.size());
    if (!parts.directory.empty()) {
      m_directory.reserve(m_directory.size() + parts.directory.size() + 2);
    }
    m_legal_length = parts.legal;
    if (!parts.directory.empty()) {
      close_with(m_directory, m_path_separator);
      m_directory += parts.directory;
      store_directory();
    }
    m_base = parts.base;
    m_extension = parts.extension;
  }
  rebuild();
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
  // Without a separator to cut at, the only level stays and the new one is glued to it.
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
  m_extension = join_extension(first, second);
  rebuild();
  return *this;
}

FIO_PATH& FIO_PATH::extension(FIO_EXTENSION_TYPE first, std::string const& second) {
  m_extension = join_extension(first, second);
  rebuild();
  return *this;
}

FIO_PATH& FIO_PATH::extension(std::string const& first, FIO_EXTENSION_TYPE second) {
  m_extension = join_extension(first, second);
  rebuild();
  return *this;
}

FIO_PATH& FIO_PATH::extension(std::string const& first, std::string const& second) {
  m_extension = join_extension(first, second);
  rebuild();
  return *this;
}

FIO_PATH& FIO_PATH::path_separator(char separator) {
  std::replace(m_directory.begin(), m_directory.end(), m_path_separator, separator);
  m_path_separator = separator;
  store_directory();
  rebuild();
  return *this;
}

// Simplification and location

void FIO_PATH::become_simplified() {
  if (std::getenv("fio_old_simplify") == nullptr) {
    flatten();
    return;
  }
  std::string directory = simplified_root();
  FIO_PATH const parsed(m_full_path);
  for (level_walk walk(parsed.m_directory, parsed.m_path_separator); walk.next();) {
    append_component(directory, walk.level());
  }
  close_simplification(std::move(directory));
}

void FIO_PATH::flatten() {
  if (!has_directory()) {
    return;
  }
  // A NUL may hide the whole text of a directory; not even its root is left then.
  std::string directory = m_full_path.empty() ? std::string() : simplified_root();
  // What stands behind the last separator is the file name and no component, unless there is no separator at all: an
  // assigned path may have kept another one from its source.
  level_walk walk(m_full_path, m_path_separator);
  bool const all_is_one_component = m_full_path.find(m_path_separator) == std::string::npos;
  while (walk.next() && (walk.is_closed() || all_is_one_component)) {
    append_component(directory, walk.level());
  }
  close_simplification(std::move(directory));
}

// What a simplified directory starts from, with room for all of the text.
std::string FIO_PATH::simplified_root() const {
  std::string directory;
  directory.reserve(m_full_path.size() + 1);
  if (absolute()) {
    directory += m_path_separator;
  }
  return directory;
}

// Adds a component to a simplified directory that is being built.
void FIO_PATH::append_component(std::string& directory, std::string_view component) const {
  if (component == ".") {
    return;
  }
  if (component == ".." && !directory.empty()) {
    // A plain component goes, with the separator before it, but leading ".." pile up and the root stays.
    std::size_t const last_separator = directory.rfind(m_path_separator);
    bool const is_only_one = last_separator == std::string::npos;
    if (std::string_view(directory).substr(is_only_one ? 0 : last_separator + 1) != "..") {
      bool const reaches_root = last_separator == 0 && absolute();
      directory.resize(is_only_one ? 0 : last_separator + (reaches_root ? 1 : 0));
      return;
    }
  }
  close_with(directory, m_path_separator);
  directory += component;
}

void FIO_PATH::close_simplification(std::string&& directory) {
  // Memory runs out before anything is changed: the directory has its room, and this is all that the text can take.
  m_full_path.reserve(m_drive.size() + directory.size() + m_base.size() + m_extension.size() + 3);
  m_directory = std::move(directory);
  store_directory();
  if (std::strcmp(m_base.c_str(), ".") == 0) {
    m_base.clear();
  }
  if (m_extension == ".") {
    m_extension.clear();
  }
  rebuild();
  check_length(m_full_path);
}

void FIO_PATH::become_absolute(std::string const& directory) {
  std::string current;
  if (directory.empty()) {
    current = FIO_FILE_SYSTEM::get_current_directory();
  }
  if (absolute()) {
    return;
  }
  FIO_PATH const anchor(directory.empty() ? current : directory);
  check_length(m_full_path);
  std::string joined;
  joined.reserve(anchor.m_full_path.size() + 1 + m_full_path.size());
  joined.append(anchor.m_full_path).append(1, '/').append(m_full_path);
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
  std::string reference = sync_path_separators(directory);
  close_with(reference, m_path_separator);
  FIO_PATH const self(m_full_path);
  FIO_PATH const other(reference);
  level_walk own(self.m_directory, self.m_path_separator);
  level_walk theirs(other.m_directory, other.m_path_separator);
  if (!self.absolute() || !other.absolute() || !own.next() || !theirs.next() || own.level() != theirs.level()) {
    return m_full_path;
  }
  std::string_view rest = self.m_directory;
  rest.remove_prefix(1);
  bool has_level_to_leave = false;
  do {
    rest.remove_prefix(own.level().size() + 1);
    has_level_to_leave = theirs.next();
  } while (own.next() && has_level_to_leave && own.level() == theirs.level());
  std::string result;
  for (; has_level_to_leave; has_level_to_leave = theirs.next()) {
    result += "..";
    result += m_path_separator;
  }
  result.append(rest).append(self.m_base).append(self.m_extension);
  return result;
}

// Comparison

bool FIO_PATH::operator==(FIO_PATH const& other) const {
  check_length(m_full_path);
  std::string const other_name = other.filename();
  return name_in(m_full_path) == c_text(other_name) && compare(m_full_path, other) == 0;
}

bool FIO_PATH::operator==(std::string const& other) const {
  check_length(m_full_path);
  return name_in(m_full_path) == name_in(other) && compare(m_full_path, other) == 0;
}

bool FIO_PATH::operator!=(FIO_PATH const& other) const { return !(*this == other); }

bool FIO_PATH::operator!=(std::string const& other) const { return !(*this == other); }

bool FIO_PATH::operator<(FIO_PATH const& other) const {
  check_length(m_full_path);
  return compare(m_full_path, other) < 0;
}

bool FIO_PATH::operator<(std::string const& other) const {
  check_length(m_full_path);
  return compare(m_full_path, other) < 0;
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
#pragma GCC diagnostic ignored "-Wformat-security" // the debug channel has always read this text as a format
  fio_internal::mem_msg_vdebug(message.c_str());
#pragma GCC diagnostic pop
}
