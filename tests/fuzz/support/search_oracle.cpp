#include "tests/fuzz/support/search_oracle.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "tests/fuzz/support/check.h"
#include "tests/fuzz/support/watched_path.h"
#include "tests/model/wildcard_model.h"

namespace fuzz {

namespace {

namespace fs = std::filesystem;

class search_tree {
public:
  search_tree() : m_root((fs::temp_directory_path() / "fio_fuzz.XXXXXX").string()) {
    if (::mkdtemp(m_root.data()) == nullptr) {
      fail("no folder of its own can be made: " + m_root);
    }
    fs::current_path(m_root);
    fs::create_directories("d/e");
    std::ofstream("f.v");
    std::ofstream("d/g.v");
  }

  ~search_tree() {
    std::error_code ignored;
    fs::current_path("/", ignored);
    fs::remove_all(m_root, ignored);
  }

  search_tree(search_tree const&) = delete;
  search_tree& operator=(search_tree const&) = delete;

private:
  std::string m_root;
};

std::vector<std::string> cut(std::string const& text, char separator) {
  std::vector<std::string> pieces(1);
  for (char const character : text) {
    if (character == separator) {
      pieces.emplace_back();
    } else {
      pieces.back() += character;
    }
  }
  return pieces;
}

std::string trimmed(std::string const& text) {
  static constexpr char white_space[] = " \t\n\r";
  std::size_t const start = std::min(text.find_first_not_of(white_space), text.size());
  return text.substr(start, text.find_last_not_of(white_space) + 1 - start);
}

} // namespace

void enter_search_tree() { static search_tree const tree; }

std::vector<std::string> search_elements(std::string const& search_path) {
  std::vector<std::string> elements;
  for (std::string const& piece : cut(search_path.c_str(), ';')) {
    std::string element = trimmed(piece);
    if (element.empty() && !piece.empty()) {
      break;
    }
    if (!element.empty()) {
      elements.push_back(element.back() == '/' ? element : element + '/');
    }
  }
  return elements;
}

std::vector<std::string> find_directories(std::string const& search_path) {
  std::vector<std::string> directories = cut(search_path, ';');
  directories.pop_back();
  directories.erase(std::remove(directories.begin(), directories.end(), ""), directories.end());
  for (std::string& directory : directories) {
    if (!is_separator(directory.back())) {
      directory += '/';
    }
  }
  return directories;
}

bool stays_inside(std::string const& text) {
  if (text.empty() || is_separator(text.front())) {
    return text.empty();
  }
  std::string slashes = text;
  std::replace(slashes.begin(), slashes.end(), '\\', '/');
  std::vector<std::string> const levels = cut(slashes, '/');
  // Trailing dots of a name may go, so anything made of dots might come to be a climb.
  return std::none_of(levels.begin(), levels.end(), [](std::string const& level) {
    return level.size() > 1 && level.find_first_not_of('.') == std::string::npos;
  });
}

bool has_wildcard(std::string const& text) { return text.find_first_of("*?") != std::string::npos; }

std::vector<std::string> matching_entries(std::string const& pattern) {
  if (!has_wildcard(pattern)) {
    return leads_anywhere(pattern) ? std::vector{pattern} : std::vector<std::string>();
  }
  std::size_t const start = pattern.rfind('/') + 1;
  std::string const directory = pattern.substr(0, start);
  std::vector<std::string> names = {".", ".."};
  std::error_code ignored;
  for (fs::directory_entry const& entry : fs::directory_iterator(directory, ignored)) {
    names.push_back(entry.path().filename().string());
  }
  std::vector<std::string> matches;
  for (std::string const& name : names) {
    if (model_same_file(name, pattern.substr(start))) {
      matches.push_back(directory + name);
    }
  }
  return matches;
}

bool leads_anywhere(std::string const& text) {
  return text.size() <= longest_path && ::access(text.c_str(), F_OK) == 0;
}

} // namespace fuzz
