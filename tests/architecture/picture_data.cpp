// Prints what the pictures of the documentation show: in each line a key, a tabulator and a value.

#include <cstdio>
#include <string>

#include "ccl/fio/fio.h"

namespace {

void print(char const* key, std::string const& value) { std::printf("%s\t%s\n", key, value.c_str()); }

void print_components(char const* given) {
  FIO_PATH const path(given);
  print("given", given);
  print("fullpath", path.fullpath());
  print("directory", path.directory());
  print("base", path.base());
  print("extension", path.get_path_components(FIO_PATH::EXTENSION));
  for (int level = 0; level < path.levels(); ++level) {
    print("level", path[level]);
  }
}

void print_lists(char const* search_path, char const* name) {
  FIO_FIND const find(search_path, /*recursive=*/false);
  print("search_path", search_path);
  print("name", name);
  for (FIO_PATH const& directory : find.m_search_list) {
    print("m_search_list", directory.fullpath());
    print("hit", FIO_FILE_SYSTEM::exists((directory.fullpath() + name).c_str()) ? "yes" : "no");
  }
  for (std::string const& directory : find.m_directories) {
    print("m_directories", directory);
  }
  print("find_first", find.find_first(name).fullpath());
}

} // namespace

int main() {
  print_components("rtl\\core//alu.tb.v");
  print_lists("rtl; lib;;rtl/core", "alu.v");
}
