#include "tests/sweeps/allocation_workspace.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

namespace fs = std::filesystem;

namespace {

std::string& current_root() {
  static std::string root;
  return root;
}

} // namespace

// What is copied here need not outlive the program.
extern "C" int fsync(int /*descriptor*/) { return 0; }

workspace::workspace() : m_former_directory(fs::current_path().string()) {
  std::string name = (fs::temp_directory_path() / "allocation_sweep.XXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr) {
    std::fprintf(stderr, "no directory of its own can be made at %s\n", name.c_str());
    std::abort();
  }
  current_root() = fs::canonical(name).string();
  fs::current_path(current_root());
}

workspace::~workspace() {
  std::error_code ignored;
  fs::current_path(m_former_directory, ignored);
  fs::remove_all(current_root(), ignored);
}

std::string const& workspace::root() { return current_root(); }

drawn_tree::drawn_tree(char const* entries) {
  // What was drawn last, and how it looked then. An old drawing may stand for a new one that is the same to the byte.
  static std::string drawn_entries;
  static std::string drawing;
  if (drawn_entries != entries || text_of(*this) != drawing) {
    clear();
    draw(entries);
    drawn_entries = entries;
    drawing = text_of(*this);
  }
}

drawn_tree::~drawn_tree() { fs::current_path(workspace::root()); }

void drawn_tree::clear() {
  for (fs::directory_entry const& entry : fs::directory_iterator(workspace::root())) {
    fs::remove_all(entry.path());
  }
}

void drawn_tree::draw(char const* entries) {
  std::istringstream words(entries);
  for (std::string entry; words >> entry;) {
    std::size_t const equals = entry.find('=');
    fs::path const path = workspace::root() + '/' + entry.substr(0, equals);
    fs::create_directories(path.parent_path());
    if (equals != std::string::npos) {
      std::ofstream(path) << entry.substr(equals + 1);
    }
  }
}

std::string text_of(drawn_tree const& /*tree*/) {
  std::set<std::string> lines;
  for (fs::directory_entry const& entry : fs::recursive_directory_iterator(workspace::root())) {
    std::string line = entry.path().string().substr(workspace::root().size() + 1);
    if (entry.is_directory()) {
      line += '/';
    } else {
      std::ifstream file(entry.path());
      line += '=' + std::string(std::istreambuf_iterator<char>(file), {});
    }
    lines.insert(line + '\n');
  }
  std::string text;
  for (std::string const& line : lines) {
    text += line;
  }
  fs::path const current = fs::current_path();
  return current == workspace::root() ? text : text + "in " + current.string();
}
