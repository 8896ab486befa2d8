#include "benchmarks/trees.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace bench {

namespace {

namespace fs = std::filesystem;

class scratch_directory {
public:
  scratch_directory() {
    char const* const wanted = std::getenv("TMPDIR");
    m_path = ::access("/dev/shm", W_OK) == 0 ? "/dev/shm" : wanted != nullptr ? wanted : "/tmp";
    m_path += "/fio_benchmark.XXXXXX";
    if (::mkdtemp(m_path.data()) == nullptr) {
      throw std::runtime_error("no scratch directory");
    }
  }
  ~scratch_directory() {
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
  }
  scratch_directory(scratch_directory const&) = delete;
  scratch_directory& operator=(scratch_directory const&) = delete;

  std::string const& path() const { return m_path; }

private:
  std::string m_path;
};

void write_file(std::string const& path, std::size_t size) { std::ofstream(path) << std::string(size, 'x'); }

std::string numbered(char const* name, std::size_t number) { return name + std::to_string(number); }

file_tree make_tree(char const* name, std::size_t depth, std::size_t largest) {
  file_tree tree;
  std::vector<std::string> level = {""};
  for (std::size_t step = 0; step != depth; ++step) {
    std::vector<std::string> next;
    for (std::string const& above : level) {
      for (std::size_t i = 0; i != 10; ++i) {
        bool const is_file = step + 1 == depth;
        next.push_back(above + numbered(is_file ? "/file" : "/directory", i) + (is_file ? ".v" : ""));
      }
    }
    std::vector<std::string>& list = step + 1 == depth ? tree.files : tree.directories;
    list.insert(list.end(), next.begin(), next.end());
    level = next;
  }
  tree.top = scratch() + '/' + name;
  make_again(tree, tree.top);
  for (std::size_t i = 0; i != tree.files.size(); ++i) {
    write_file(tree.top + tree.files[i], i * largest / tree.files.size());
  }
  return tree;
}

} // namespace

std::string const& scratch() {
  static scratch_directory const directory;
  return directory.path();
}

std::string search_tree::search_path(char separator) const {
  std::string list;
  for (std::string const& directory : directories) {
    list += directory + separator;
  }
  return list;
}

search_tree const& searched_tree() {
  static search_tree const tree = [] {
    search_tree made;
    for (std::size_t i = 0; i != 50; ++i) {
      made.directories.push_back(scratch() + numbered("/library", i) + '/');
      fs::create_directory(made.directories.back());
      for (std::size_t file = 0; file != 4; ++file) {
        made.present.push_back(numbered("cell_", i * 4 + file) + ".v");
        made.missing.push_back(numbered("nowhere_", i * 4 + file) + ".v");
        write_file(made.directories.back() + made.present.back(), 0);
      }
    }
    return made;
  }();
  return tree;
}

std::string flat_directory(std::size_t entries) {
  std::string const directory = scratch() + numbered("/flat", entries);
  if (fs::create_directory(directory)) {
    for (std::size_t i = 0; i != entries; ++i) {
      write_file(directory + numbered("/file", i) + (i % 10 == 0 ? ".v" : ".txt"), i % 100);
    }
  }
  return directory;
}

file_tree const& walked_tree() {
  static file_tree const tree = make_tree("walked", 3, 0);
  return tree;
}

file_tree const& copied_tree() {
  static file_tree const tree = make_tree("copied", 2, 32768);
  return tree;
}

void make_again(file_tree const& tree, std::string const& top) {
  fs::remove_all(top);
  fs::create_directory(top);
  for (std::string const& directory : tree.directories) {
    fs::create_directory(top + directory);
  }
  for (std::string const& file : tree.files) {
    write_file(top + file, 0);
  }
}

std::string listing(std::string const& top) {
  std::vector<std::string> lines;
  if (fs::exists(top)) {
    for (fs::directory_entry const& entry : fs::recursive_directory_iterator(top)) {
      lines.push_back(entry.path().string().substr(top.size()) +
                      (entry.is_directory() ? "/" : ' ' + std::to_string(entry.file_size())));
    }
  }
  std::sort(lines.begin(), lines.end());
  std::string text;
  for (std::string const& line : lines) {
    text += line + '\n';
  }
  return text;
}

} // namespace bench
