#include "tests/model/path_model.h"

#include <utility>

// The record: its parts, its parsing, the readers and the setters. What moves or compares a path is in
// path_model_moves.cpp.

path_surroundings model_surroundings;

namespace {

constexpr std::size_t longest_legal_text = 1023;
constexpr std::size_t longest_extension = 256;

bool is_any_separator(char character) { return character == '/' || character == '\\'; }

struct extension_text {
  int type;
  char const* text;
};

// The few types that the programs use. Every other type is unknown and has the empty text.
constexpr extension_text extension_texts[] = {{0, "."}, {9, ".vhd"}, {12, ".v"}, {56, ".tcl"}, {244, ".tar"}};

std::string text_of_extension_type(int type) {
  for (extension_text const& row : extension_texts) {
    if (row.type == type) {
      return row.text;
    }
  }
  return "";
}

std::string with_leading_dot(std::string const& text) {
  if (!text.empty() && text[0] == '.') {
    return text;
  }
  return "." + text;
}

} // namespace

std::string c_text(std::string const& text) {
  std::string result;
  for (char character : text) {
    if (character == '\0') {
      break;
    }
    result += character;
  }
  return result;
}

path_parts divide_text(std::string const& whole) {
  path_parts parts;
  std::string const text = c_text(whole);
  if (text.empty() || text.size() > longest_legal_text) {
    return parts;
  }
  parts.legal = true;
  std::size_t name_start = 0;
  bool dot_found = false;
  std::size_t last_dot = 0;
  for (std::size_t position = 0; position < text.size(); ++position) {
    if (is_any_separator(text[position])) {
      name_start = position + 1;
    }
    if (text[position] == '.') {
      dot_found = true;
      last_dot = position;
    }
  }
  parts.directory = text.substr(0, name_start);
  if (dot_found && last_dot >= name_start) {
    parts.base = text.substr(name_start, last_dot - name_start);
    parts.extension = text.substr(last_dot);
  } else {
    parts.base = text.substr(name_start);
  }
  if (parts.extension.size() > longest_extension) {
    parts.extension = parts.extension.substr(0, longest_extension);
  }
  return parts;
}

std::string join_parts(std::string const& drive, std::string const& directory, std::string const& base,
                       std::string const& extension) {
  std::string result;
  if (!c_text(drive).empty()) {
    result += drive[0];
    result += ':';
  }
  std::string const directory_text = c_text(directory);
  if (!directory_text.empty()) {
    result += directory_text;
    if (!is_any_separator(directory_text.back())) {
      result += '/';
    }
  }
  result += c_text(base);
  std::string const extension_part = c_text(extension);
  if (!extension_part.empty()) {
    result += with_leading_dot(extension_part);
  }
  return result;
}

// Construction and assignment

path_model::path_model(char const* text) { split_full_path(text); }

path_model::path_model(std::string const& text) { split_full_path(text.c_str()); }

path_model::path_model(std::string const& directory, std::string const& name) {
  std::string const directory_text = sync_path_separators(directory);
  std::string name_text = sync_path_separators(name);
  std::string extension_part;
  std::size_t const last_dot = name_text.rfind('.');
  if (last_dot != std::string::npos) {
    extension_part = name_text.substr(last_dot);
    name_text = name_text.substr(0, last_dot);
  }
  make_path(drive_component, "");
  make_path(directory_component, directory_text);
  make_path(base_component, name_text);
  make_path(extension_component, extension_part);
}

path_model::path_model(path_model&& other)
    : m_path_separator(other.m_path_separator), m_legal_length(other.m_legal_length) {
  take_strings_of(other);
  other.m_legal_length = false;
}

path_model& path_model::operator=(path_model const& other) {
  if (this != &other) {
    m_full_path = other.m_full_path;
    m_drive = other.m_drive;
    m_directory = other.m_directory;
    m_base = other.m_base;
    m_extension = other.m_extension;
    m_path_separator = '/';
    m_legal_length = true;
  }
  return *this;
}

path_model& path_model::operator=(path_model&& other) {
  if (this != &other) {
    take_strings_of(other);
    m_path_separator = '/';
    m_legal_length = true;
    other.m_legal_length = false;
  }
  return *this;
}

path_model& path_model::operator=(std::string const& text) {
  split_full_path(text.c_str());
  return *this;
}

path_model& path_model::operator=(char const* text) {
  split_full_path(text);
  return *this;
}

void path_model::take_strings_of(path_model& other) {
  for (std::string path_model::*field : {&path_model::m_full_path, &path_model::m_drive, &path_model::m_directory,
                                         &path_model::m_base, &path_model::m_extension}) {
    this->*field = other.*field;
    (other.*field).clear();
  }
}

// Parsing and storing

void path_model::split_full_path(char const* text) {
  if (text == nullptr || text[0] == '\0') {
    m_base.clear();
    m_drive.clear();
    m_extension.clear();
    m_directory.clear();
    m_full_path.clear();
    return;
  }
  path_parts const parts = divide_text(text);
  m_legal_length = parts.legal;
  m_drive = parts.drive;
  m_base = parts.base;
  m_extension = parts.extension;
  make_path(directory_component, parts.directory);
}

void path_model::make_path(int component, std::string const& value) {
  if (component == directory_component) {
    m_directory = sync_path_separators(value);
    if (!m_directory.empty() && m_directory.back() != m_path_separator) {
      m_directory += m_path_separator;
    }
  } else if (component == drive_component) {
    m_drive = value;
    if (!m_drive.empty()) {
      m_drive = m_drive.substr(0, 1) + ":";
    }
  } else if (component == base_component) {
    m_base = value;
  } else if (component == extension_component) {
    m_extension = value;
  }
  m_full_path = join_parts(m_drive, m_directory, m_base, m_extension);
}

std::string path_model::sync_path_separators(std::string const& text) const {
  char const other = m_path_separator == '/' ? '\\' : '/';
  std::string result;
  for (char character : text) {
    char const copied = character == other ? m_path_separator : character;
    bool const repeats = copied == m_path_separator && !result.empty() && result.back() == m_path_separator;
    if (!repeats) {
      result += copied;
    }
  }
  return result;
}

path_model& path_model::path_separator(char separator) {
  std::string copy = get_path_components(directory_component);
  for (char& character : copy) {
    if (character == m_path_separator) {
      character = separator;
    }
  }
  m_path_separator = separator;
  make_path(directory_component, copy);
  return *this;
}

// The finished text and its length

std::string path_model::fullpath() const {
  check_length();
  return m_full_path;
}

path_model::operator std::string() const {
  check_length();
  return m_full_path;
}

path_model::operator char const*() const {
  check_length();
  return m_full_path.c_str();
}

bool path_model::is_path_length_within_operating_system_limits(unsigned long length) {
  return length <= longest_legal_text;
}

bool path_model::is_path_length_within_operating_system_limits(std::string const& text) {
  return text.size() <= longest_legal_text;
}

bool path_model::is_legal_length() const {
  return is_path_length_within_operating_system_limits(m_full_path) && m_legal_length;
}

bool path_model::legal(int level) const { return level >= 0 && level < levels(); }

void path_model::check_length() const {
  if (!is_path_length_within_operating_system_limits(m_full_path)) {
    model_length_message(m_full_path.c_str());
  }
}

void model_length_message(char const* path) {
  std::string message = "Path name is too long -- must be shorter than 1024 characters";
  if (path != nullptr) {
    message += "\nPath (length ";
    message += std::to_string(std::string(path).size());
    message += "): ";
    message += path;
    message += "\n";
  }
  model_surroundings.messages.push_back(message);
}

// Queries

std::string path_model::get_path_components(int mask) const {
  std::string result;
  if ((mask & directory_component) != 0) {
    result += m_directory;
  }
  if ((mask & base_component) != 0) {
    result += m_base;
  }
  if ((mask & extension_component) != 0) {
    result += m_extension;
  }
  return result;
}

bool path_model::has_drive() const { return !get_path_components(drive_component).empty(); }

bool path_model::has_directory() const { return !m_directory.empty(); }

bool path_model::has_extension() const { return !m_extension.empty(); }

bool path_model::absolute() const { return !m_directory.empty() && m_directory[0] == m_path_separator; }

bool path_model::directory_path() const { return !m_directory.empty() && m_base.empty() && m_extension.empty(); }

std::string path_model::drive() const { return get_path_components(drive_component).substr(0, 1); }

std::string path_model::directory() const {
  check_length();
  return get_path_components(directory_component);
}

std::string path_model::full_directory() const {
  check_length();
  return get_path_components(drive_component | directory_component);
}

std::string path_model::base() const {
  check_length();
  return get_path_components(base_component);
}

std::string path_model::extension() const {
  std::string const text = get_path_components(extension_component);
  return !text.empty() && text[0] == '.' ? text.substr(1) : text;
}

std::string path_model::filename() const {
  check_length();
  return get_path_components(base_component | extension_component);
}

int path_model::levels() const {
  int count = 0;
  bool inside = false;
  for (char character : get_path_components(directory_component)) {
    if (character == m_path_separator) {
      inside = false;
    } else if (!inside) {
      inside = true;
      ++count;
    }
  }
  return count;
}

std::string path_model::operator[](int level) const {
  check_length();
  std::string rest = get_path_components(directory_component);
  if (rest.empty() || level >= levels()) {
    return "";
  }
  auto const drop_leading_separators = [this, &rest] {
    while (!rest.empty() && rest[0] == m_path_separator) {
      rest = rest.substr(1);
    }
  };
  drop_leading_separators();
  for (int counter = 0; !rest.empty(); ++counter) {
    std::size_t const next = rest.find(m_path_separator);
    std::string const name = next == std::string::npos ? rest : rest.substr(0, next);
    if (counter == level) {
      return name;
    }
    rest = rest.substr(name.size());
    drop_leading_separators();
  }
  return "";
}

std::string path_model::tail() const {
  check_length();
  int const count = levels();
  path_model const temporary(fullpath());
  return count <= 0 ? "" : temporary[count - 1];
}

bool path_model::is_dot_directory(std::string const& name) { return c_text(name) == "." || c_text(name) == ".."; }

// Setters

path_model& path_model::drive(char letter) {
  make_path(drive_component, std::string(1, letter) + ":");
  return *this;
}

path_model& path_model::drive(std::string const& text) {
  std::string copy = text;
  if (!copy.empty()) {
    copy = copy.substr(0, 1) + ":";
  }
  make_path(drive_component, copy);
  return *this;
}

path_model& path_model::directory(std::string const& text) {
  make_path(directory_component, sync_path_separators(text));
  return *this;
}

path_model& path_model::base(std::string const& text) {
  make_path(base_component, text);
  return *this;
}

path_model& path_model::filename(std::string const& text) {
  if (text.empty()) {
    make_path(base_component, "");
    make_path(extension_component, "");
    return *this;
  }
  path_parts const parts = divide_text(text);
  m_legal_length = parts.legal;
  if (!parts.drive.empty()) {
    make_path(drive_component, parts.drive);
  }
  if (!parts.directory.empty()) {
    std::string result = m_directory;
    if (!result.empty() && result.back() != m_path_separator) {
      result += m_path_separator;
    }
    make_path(directory_component, result + parts.directory);
  }
  make_path(base_component, parts.base);
  make_path(extension_component, parts.extension);
  return *this;
}

path_model& path_model::tail(std::string const& text) {
  if (text.empty()) {
    return *this;
  }
  std::string result = m_directory;
  if (!result.empty() && result.back() == m_path_separator) {
    result.pop_back();
  }
  std::size_t const last = result.rfind(m_path_separator);
  if (last != std::string::npos) {
    result = result.substr(0, last + 1);
  }
  result += text;
  if (!result.empty() && result.back() != m_path_separator) {
    result += m_path_separator;
  }
  make_path(directory_component, result);
  return *this;
}

path_model& path_model::no_extension() {
  make_path(extension_component, "");
  return *this;
}

path_model& path_model::extension(int first, int second) {
  if (first == -1) {
    make_path(extension_component, "");
    return *this;
  }
  make_path(extension_component, text_of_extension_type(first) + (second == -1 ? "" : text_of_extension_type(second)));
  return *this;
}

path_model& path_model::extension(int first, std::string const& second) {
  if (first == -1) {
    make_path(extension_component, "");
    return *this;
  }
  make_path(extension_component, text_of_extension_type(first) + (second.empty() ? "" : with_leading_dot(second)));
  return *this;
}

path_model& path_model::extension(std::string const& first, int second) {
  if (first.empty()) {
    make_path(extension_component, "");
    return *this;
  }
  make_path(extension_component, with_leading_dot(first) + (second == -1 ? "" : text_of_extension_type(second)));
  return *this;
}

path_model& path_model::extension(std::string const& first, std::string const& second) {
  if (first.empty()) {
    make_path(extension_component, "");
    return *this;
  }
  make_path(extension_component, with_leading_dot(first) + (second.empty() ? "" : with_leading_dot(second)));
  return *this;
}
