// A walk over a directory, and over a tree, neither of which is sorted or goes through links.

#include <ccl/fio/fio_file_sys.h>
#include <ccl/fio/fio_iterator.h>

#include <iostream>
#include <set>
#include <string>

int main() {
  // A directory that cannot be read looks empty. Where that matters, it is tested: there is always the entry ".".
  if (!FIO_FILE_SYSTEM::exists("rtl/*")) {
    std::cerr << "rtl cannot be read\n";
    return 1;
  }

  std::set<std::string> names;
  for (FIO_DIRECTORY_ENTRY const& entry : FIO_DIRECTORY_ITERATOR("rtl")) {
    names.insert(entry.derive_path().filename() + (entry.is_directory ? "/" : ""));
  }
  for (std::string const& name : names) {
    std::cout << name << '\n';
  }

  // The wildcard test of the library picks by name.
  std::set<std::string> sources;
  for (FIO_DIRECTORY_ENTRY const& entry : FIO_RECURSIVE_DIRECTORY_ITERATOR("rtl")) {
    if (!entry.is_directory && FIO_FILE_SYSTEM::same_file(entry.path.c_str(), "*.sv")) {
      sources.insert(entry.path);
    }
  }
  for (std::string const& source : sources) {
    std::cout << source << '\n';
  }
}
