#include "tests/model/path_model.h"

#include <algorithm>

// What moves a path or holds it against another: simplification, absolute and relative paths, comparison.

// Simplification

void path_model::become_simplified() {
  if (model_surroundings.old_simplify) {
    simplify_the_second_way();
  } else {
    flatten();
  }
}

void path_model::flatten() {
  if (!has_directory()) {
    return;
  }
  std::string result;
  if (absolute()) {
    result = m_path_separator;
  }
  for (std::string const& component : components_of_full_path()) {
    if (component == ".") {
      continue;
    }
    if (component == "..") {
      climb(result);
    } else {
      append_component(result, component);
    }
  }
  close_simplification(result);
}

std::vector<std::string> path_model::components_of_full_path() const {
  std::string const& text = m_full_path;
  std::vector<std::string> components;
  std::size_t start = 0;
  while (!text.empty()) {
    std::size_t const next = text.find(m_path_separator, start);
    if (start >= text.size() || next == std::string::npos) {
      components.push_back(text.substr(start));
      break;
    }
    std::size_t const first = text.find_first_not_of(m_path_separator, start);
    if (first == std::string::npos) {
      break;
    }
    if (first < next) {
      components.push_back(text.substr(first, next - first));
      start = next;
      continue;
    }
    std::size_t const behind = text.find(m_path_separator, first);
    if (behind == std::string::npos) {
      break;
    }
    components.push_back(text.substr(first, behind - first));
    start = behind;
  }
  return components;
}

// What a ".." does to the directory that has been built so far.
void path_model::climb(std::string& result) const {
  std::size_t const separator = result.rfind(m_path_separator);
  std::string last;
  if (separator != std::string::npos) {
    last = result.substr(separator + 1);
  } else if (result == "..") {
    last = "..";
  }
  if (last == "..") {
    result += m_path_separator;
    result += "..";
  } else if (result.empty()) {
    result = "..";
  } else if (separator == std::string::npos) {
    result.clear();
  } else {
    result = result.substr(0, separator);
    if (result.empty() && absolute()) {
      result = m_path_separator;
    }
  }
}

void path_model::append_component(std::string& result, std::string const& component) const {
  if (!result.empty() && result.back() != m_path_separator) {
    result += m_path_separator;
  }
  result += component;
}

void path_model::simplify_the_second_way() {
  path_model const scratch(m_full_path);
  std::string result;
  if (absolute()) {
    result = m_path_separator;
  }
  for (int index = 0; index < scratch.levels(); ++index) {
    std::string const component = scratch[index];
    if (component == ".") {
      continue;
    }
    if (component == "..") {
      climb(result);
    } else if (index == 0) {
      result += component;
    } else {
      append_component(result, component);
    }
  }
  close_simplification(result);
}

void path_model::close_simplification(std::string const& result) {
  std::string directory_text = result;
  if (!directory_text.empty() || has_drive()) {
    directory_text += m_path_separator;
  }
  make_path(directory_component, directory_text);
  if (c_text(m_base) == ".") {
    make_path(base_component, "");
  }
  if (m_extension == ".") {
    make_path(extension_component, "");
  }
  check_length();
}

// Absolute and relative paths

void path_model::become_absolute(std::string const& directory) {
  path_model const anchor(directory.empty() ? model_surroundings.current_directory : directory);
  if (absolute()) {
    return;
  }
  std::string joined = anchor.fullpath();
  joined += "/";
  joined += fullpath();
  *this = joined;
  become_simplified();
}

path_model& path_model::cd(std::string const& directory) {
  std::string target = sync_path_separators(directory);
  std::string current = m_directory;
  if (target.empty()) {
    return *this;
  }
  if (target[0] != m_path_separator) {
    if (!current.empty() && current.back() != m_path_separator) {
      current += m_path_separator;
    }
    target = current + target;
  }
  make_path(directory_component, target);
  become_simplified();
  return *this;
}

std::string path_model::get_relative_to(std::string const& directory) const {
  std::string const unchanged = m_full_path;
  std::string reference = sync_path_separators(directory);
  if (!reference.empty() && reference.back() != m_path_separator) {
    reference += m_path_separator;
  }
  path_model const self(m_full_path);
  path_model const other(reference);
  if (!self.absolute() || !other.absolute()) {
    return unchanged;
  }
  if (self.levels() <= 0 || other.levels() <= 0) {
    return unchanged;
  }
  if (os_specific_comparison(self[0].c_str(), other[0].c_str()) != 0) {
    return unchanged;
  }
  int const limit = std::min(self.levels(), other.levels());
  int common = 0;
  std::string prefix;
  for (int index = 0; index < limit && self[index] == other[index]; ++index) {
    prefix += m_path_separator;
    prefix += self[index];
    common = index + 1;
  }
  std::string result = self.directory().substr(prefix.size() + 1);
  for (int up = 0; up < other.levels() - common; ++up) {
    result = std::string("..") + m_path_separator + result;
  }
  return result + self.filename();
}

// Comparison. The left copy is made from the text; the right one as the overload tells.

bool path_model::operator==(path_model const& other) const {
  path_model left(fullpath());
  path_model right(other);
  return same_names(left, right) && compare(left, right) == 0;
}

bool path_model::operator==(std::string const& other) const {
  path_model left(fullpath());
  path_model right(other);
  return same_names(left, right) && compare(left, right) == 0;
}

bool path_model::operator!=(path_model const& other) const {
  path_model left(fullpath());
  path_model right(other);
  return !same_names(left, right) || compare(left, right) != 0;
}

bool path_model::operator!=(std::string const& other) const {
  path_model left(fullpath());
  path_model right(other);
  return !same_names(left, right) || compare(left, right) != 0;
}

bool path_model::operator<(path_model const& other) const {
  path_model left(fullpath());
  path_model right(other);
  return compare(left, right) < 0;
}

bool path_model::operator<(std::string const& other) const {
  path_model left(fullpath());
  path_model right(other);
  return compare(left, right) < 0;
}

bool path_model::same_names(path_model const& left, path_model const& right) {
  std::string const left_name = left.filename();
  std::string const right_name = right.filename();
  return os_specific_comparison(left_name.c_str(), right_name.c_str()) == 0;
}

int path_model::compare(path_model& left, path_model& right) {
  left.become_simplified();
  right.become_simplified();
  left.become_absolute("");
  right.become_absolute("");
  char const* const right_text = right;
  char const* const left_text = left;
  return os_specific_comparison(left_text, right_text);
}

int path_model::os_specific_comparison(char const* left, char const* right) {
  int const order = std::string(left).compare(right);
  return order < 0 ? -1 : order > 0 ? 1 : 0;
}
