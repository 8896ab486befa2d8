#include "benchmarks/floors/path.h"

#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "ccl/fio/fio_path.h"

namespace floors {

namespace {

constexpr std::size_t longest_path = 1023;
constexpr std::size_t longest_extension = 256;

// The contract reads it each time; what becomes of a path under the older simplification is not measured.
void read_environment() {
  char const* value = std::getenv("fio_old_simplify");
  asm volatile("" : : "r"(value));
}

// Copies a directory with one '/' in the place of every run of either separator. The length of the copy.
std::size_t copy_normalised(char* to, std::string_view directory) {
  char* end = to;
  for (char character : directory) {
    character = character == '\\' ? '/' : character;
    if (character != '/' || end == to || end[-1] != '/') {
      *end++ = character;
    }
  }
  return static_cast<std::size_t>(end - to);
}

// The length of what ends in the last `character`; 0 if there is none.
std::size_t length_up_to_last(std::string_view text, char character) {
  void const* const last = ::memrchr(text.data(), character, text.size());
  return last == nullptr ? 0 : static_cast<std::size_t>(static_cast<char const*>(last) - text.data()) + 1;
}

// The length of the beginning that two texts share.
std::size_t common_length(std::string_view left, std::string_view right) {
  std::size_t const limit = std::min(left.size(), right.size());
  std::size_t same = 0;
  while (same + 8 <= limit && std::memcmp(left.data() + same, right.data() + same, 8) == 0) {
    same += 8;
  }
  while (same != limit && left[same] == right[same]) {
    ++same;
  }
  return same;
}

using block = unsigned char __attribute__((vector_size(16)));

block load(char const* from) {
  block result;
  std::memcpy(&result, from, sizeof result);
  return result;
}

// Whether `test`, given characters and those before them, is true of any: a whole block at a time, the last one
// overlapping the one before.
template <typename Test>
bool any_after(std::string_view text, Test test) {
  if (text.size() <= sizeof(block)) {
    for (std::size_t i = 1; i < text.size(); ++i) {
      if (test(text[i - 1], text[i])) {
        return true;
      }
    }
    return false;
  }
  char const* const last = text.data() + text.size() - sizeof(block);
  block found = {};
  for (char const* at = text.data() + 1; at < last; at += sizeof(block)) {
    found |= reinterpret_cast<block>(test(load(at - 1), load(at)));
  }
  found |= reinterpret_cast<block>(test(load(last - 1), load(last)));
  std::uint64_t halves[2];
  std::memcpy(halves, &found, sizeof found);
  return (halves[0] | halves[1]) != 0;
}

bool is_plain(std::string_view directory) {
  return !(directory.substr(0, 1) == "\\" ||
           any_after(directory, [](auto before, auto at) { return (at == '\\') | ((at == '/') & (before == '/')); }));
}

bool has_level_with_dot(std::string_view directory) {
  return directory.substr(0, 1) == "." ||
         any_after(directory, [](auto before, auto at) { return (at == '.') & (before == '/'); });
}

std::size_t count_levels(std::string_view closed) {
  return static_cast<std::size_t>(std::count(closed.begin(), closed.end(), '/'));
}

// Simplifies a directory in normal form where it stands. Its new length.
std::size_t flatten(char* text, std::size_t size) {
  std::string_view const directory(text, size);
  bool const absolute = directory.front() == '/';
  std::size_t fixed = absolute ? 1 : 0; // what ".." cannot leave: the root, or ".." before it
  // Up to the first level with a dot everything stays.
  std::size_t start = directory.front() == '.' ? 0 : directory.find("/.") + 1;
  std::size_t end = start;
  while (start != size) {
    std::size_t level_end = end;
    do {
      text[level_end++] = text[start];
    } while (text[start++] != '/');
    std::string_view const level(text + end, level_end - end);
    if (level == "../" && end != fixed) {
      end = length_up_to_last({text, end - 1}, '/');
    } else if (level != "./" && (level != "../" || !absolute)) {
      end = level_end;
      fixed = level == "../" ? end : fixed;
    }
  }
  return end;
}

} // namespace

division divide(std::string_view text) {
  division parts;
  parts.directory = length_up_to_last(text, '/');
  if (std::memchr(text.data(), '\\', text.size()) != nullptr) {
    parts.directory = std::max(parts.directory, length_up_to_last(text, '\\'));
  }
  std::string_view const name = text.substr(parts.directory);
  std::size_t const dot = length_up_to_last(name, '.');
  parts.base = dot == 0 ? name.size() : dot - 1;
  parts.extension = std::min(name.size() - parts.base, longest_extension);
  parts.plain = is_plain(text.substr(0, parts.directory));
  return parts;
}

// Places

void place::put(std::string_view directory, std::string_view base, std::string_view extension) {
  char* end = std::copy(directory.begin(), directory.end(), text);
  end = std::copy(base.begin(), base.end(), end);
  *std::copy(extension.begin(), extension.end(), end) = '\0';
  parts = {directory.size(), base.size(), extension.size(), true};
}

void place::simplify() {
  read_environment();
  if (parts.directory == 0) {
    return;
  }
  std::string_view const base(text + parts.directory, parts.base);
  std::string_view const extension(base.data() + base.size(), parts.extension);
  bool const dots = has_level_with_dot({text, parts.directory});
  if (!dots && base != "." && extension != ".") {
    return;
  }
  std::size_t end = dots ? flatten(text, parts.directory) : parts.directory;
  parts.directory = end;
  parts.base = base == "." ? 0 : base.size();
  parts.extension = extension == "." ? 0 : extension.size();
  std::memmove(text + end, base.data(), parts.base);
  std::memmove(text + end + parts.base, extension.data(), parts.extension);
  text[size()] = '\0';
}

// Puts a directory before the components of a relative path, and simplifies the whole.
void place::put_below(std::string_view directory, std::string_view own_text, division const& own) {
  division const anchor = directory.size() <= longest_path ? divide(directory) : division();
  std::size_t size = anchor.directory + anchor.base + anchor.extension;
  if (size + 1 + own_text.size() > longest_path) {
    put({}, {}, {});
  } else {
    if (anchor.plain) {
      std::memcpy(text, directory.data(), size);
    } else {
      size = copy_normalised(text, directory.substr(0, size));
    }
    if (size == 0 || text[size - 1] != '/') {
      text[size++] = '/';
    }
    std::memcpy(text + size, own_text.data(), own_text.size());
    text[size + own_text.size()] = '\0';
    parts = {size + own.directory, own.base, own.extension, true};
  }
  simplify();
}

// Paths

path::path(std::string_view text)
    : path(text.substr(0, text.size() <= longest_path ? text.size() : 0),
           text.size() <= longest_path ? divide(text) : division()) {
  m_legal = text.size() <= longest_path;
}

path::path(std::string_view text, division const& parts)
    : m_full(text, 0, parts.plain ? parts.directory + parts.base + parts.extension : 0),
      m_directory(text, 0, parts.plain ? parts.directory : 0), m_base(text, parts.directory, parts.base),
      m_extension(text, parts.directory + parts.base, parts.extension) {
  if (!parts.plain) {
    char normalised[longest_path + 1];
    m_directory.assign(normalised, copy_normalised(normalised, text.substr(0, parts.directory)));
    m_full.reserve(m_directory.size() + m_base.size() + m_extension.size());
    m_full.append(m_directory).append(m_base).append(m_extension);
  }
}

path::path(path&& other) noexcept
    : m_full(std::move(other.m_full)), m_drive(std::move(other.m_drive)), m_directory(std::move(other.m_directory)),
      m_base(std::move(other.m_base)), m_extension(std::move(other.m_extension)), m_separator(other.m_separator),
      m_legal(std::exchange(other.m_legal, false)) {}

path& path::operator=(path&& other) noexcept {
  m_full = std::move(other.m_full);
  m_drive = std::move(other.m_drive);
  m_directory = std::move(other.m_directory);
  m_base = std::move(other.m_base);
  m_extension = std::move(other.m_extension);
  // The C++ library leaves what it likes in a string that was moved from.
  for (std::string* text : {&other.m_full, &other.m_drive, &other.m_directory, &other.m_base, &other.m_extension}) {
    text->clear();
  }
  m_separator = '/';
  m_legal = true;
  other.m_legal = false;
  return *this;
}

path& path::operator=(std::string_view text) {
  m_drive.clear();
  m_legal = text.empty() ? m_legal : text.size() <= longest_path;
  text = text.substr(0, text.size() <= longest_path ? text.size() : 0);
  division const parts = divide(text);
  char normalised[longest_path + 1];
  std::string_view directory = text.substr(0, parts.directory);
  if (!parts.plain) {
    directory = {normalised, copy_normalised(normalised, directory)};
  }
  m_directory.assign(directory);
  m_base.assign(text, parts.directory, parts.base);
  m_extension.assign(text, parts.directory + parts.base, parts.extension);
  if (parts.plain) {
    m_full.assign(text, 0, parts.directory + parts.base + parts.extension);
  } else {
    m_full.assign(m_directory).append(m_base).append(m_extension);
  }
  return *this;
}

std::string const& path::checked(std::string const& text) const {
  if (m_full.size() > longest_path) {
    fio_display_path_too_long_assert_message(m_full.c_str());
  }
  return text;
}

std::string path::extension() const {
  return {m_extension, !m_extension.empty() && m_extension.front() == '.' ? std::size_t(1) : std::size_t(0)};
}

int path::levels() const { return static_cast<int>(count_levels(m_directory)) - (is_absolute() ? 1 : 0); }

std::string path::operator[](int level) const {
  checked(m_full);
  char const* start = m_directory.c_str() + (is_absolute() ? 1 : 0);
  for (; level > 0 && *start != '\0'; ++start) {
    level -= *start == '/' ? 1 : 0; // levels are too short for a search by the C library
  }
  char const* end = start;
  while (*end != '/' && *end != '\0') {
    ++end;
  }
  return {start, end};
}

void path::filename(std::string_view text) {
  division const parts = divide(text);
  m_legal = text.empty() ? m_legal : text.size() <= longest_path;
  if (parts.directory != 0) {
    std::size_t const old_size = m_directory.size();
    bool const closed = old_size == 0 || text.front() != '/';
    m_directory.append(text, 0, parts.directory);
    if (!parts.plain || !closed) {
      m_directory.resize(copy_normalised(m_directory.data(), m_directory));
    }
  }
  m_base.assign(text, parts.directory, parts.base);
  m_extension.assign(text, parts.directory + parts.base, parts.extension);
  if (parts.directory == 0) {
    m_full.replace(m_directory.size(), std::string::npos, text.data(), parts.base + parts.extension);
    return;
  }
  m_full.reserve(m_directory.size() + m_base.size() + m_extension.size());
  m_full.assign(m_directory).append(m_base).append(m_extension);
}

void path::extension(std::string_view text) {
  m_extension.assign(!text.empty() && text.front() != '.' ? "." : "").append(text);
  m_full.replace(m_directory.size() + m_base.size(), std::string::npos, m_extension);
}

void path::store(place const& from) {
  char const* const name = from.text + from.parts.directory;
  m_directory.assign(from.text, from.parts.directory);
  m_base.assign(name, from.parts.base);
  m_extension.assign(name + from.parts.base, from.parts.extension);
  m_full.assign(from.text, from.size());
}

void path::become_simplified() {
  if (!has_level_with_dot(m_directory) && m_base != "." && m_extension != ".") {
    read_environment();
  } else {
    place simplified;
    simplified.put(m_directory, m_base, m_extension);
    simplified.simplify();
    store(simplified);
  }
  if (!m_directory.empty()) {
    checked(m_full);
  }
}

void path::become_absolute(std::string_view directory) {
  char current[longest_path + 1] = "";
  if (directory.empty() && ::getcwd(current, sizeof current) != nullptr) {
    directory = current;
  }
  if (is_absolute()) {
    return;
  }
  checked(m_full);
  place anchored;
  anchored.put_below(directory, m_full, {m_directory.size(), m_base.size(), m_extension.size(), true});
  store(anchored);
  m_legal = !m_directory.empty();
}

std::string path::relative_to(std::string_view directory) const {
  char reference[longest_path + 2];
  std::size_t size = 0;
  if (!directory.empty() && directory.size() < sizeof reference - 1) {
    size = directory.size();
    if (is_plain(directory)) {
      directory.copy(reference, size);
    } else {
      size = copy_normalised(reference, directory);
    }
    reference[size] = '/';
    size += reference[size - 1] == '/' ? 0 : 1;
  }
  if (size < 2 || size > longest_path || reference[0] != '/' || m_full.size() > longest_path || !is_absolute()) {
    return m_full;
  }
  std::string_view const theirs(reference, size);
  std::size_t const common = length_up_to_last(theirs.substr(0, common_length(theirs, m_directory)), '/');
  if (common <= 1) {
    return m_full;
  }
  std::size_t const levels_to_leave = count_levels(theirs.substr(common));
  std::string result;
  result.reserve(3 * levels_to_leave + m_full.size() - common);
  for (std::size_t i = 0; i != levels_to_leave; ++i) {
    result.append("../", 3);
  }
  return result.append(m_full, common);
}

int path::compare(path const& left, path const& right) {
  path const* const paths[] = {&left, &right};
  place simplified[2];
  place anchored[2];
  char const* texts[2];
  for (int side = 0; side != 2; ++side) {
    simplified[side].put(paths[side]->m_directory, paths[side]->m_base, paths[side]->m_extension);
    simplified[side].simplify();
  }
  for (int side = 0; side != 2; ++side) {
    char current[longest_path + 1] = "";
    if (::getcwd(current, sizeof current) == nullptr) {
      current[0] = '\0';
    }
    texts[side] = simplified[side].text;
    if (*texts[side] != '/') {
      anchored[side].put_below(current, {texts[side], simplified[side].size()}, simplified[side].parts);
      texts[side] = anchored[side].text;
    }
  }
  return std::strcmp(texts[0], texts[1]);
}

bool path::operator==(path const& other) const {
  checked(m_full);
  other.checked(other.m_full);
  std::size_t const size = m_base.size() + m_extension.size();
  return size == other.m_base.size() + other.m_extension.size() &&
         std::memcmp(m_full.data() + m_directory.size(), other.m_full.data() + other.m_directory.size(), size) == 0 &&
         compare(*this, other) == 0;
}

bool path::operator<(path const& other) const {
  checked(m_full);
  return compare(*this, other) < 0;
}

} // namespace floors
