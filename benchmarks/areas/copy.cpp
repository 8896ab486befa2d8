// Copying and removing trees.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <ftw.h>

#include <cstddef>
#include <string>
#include <vector>

#include "benchmarks/areas/trees_to_change.h"
#include "benchmarks/floors/copy.h"
#include "benchmarks/registry.h"
#include "benchmarks/trees.h"
#include "ccl/fio/fio_file_sys.h"

namespace bench {

namespace {

// The whole texts of what is copied and removed, made before they are needed.
struct known_entries {
  known_entries() : directories(1, changed_top()) {
    for (std::string const& directory : copied_tree().directories) {
      directories.push_back(directories.front() + directory);
    }
    for (std::string const& file : copied_tree().files) {
      sources.push_back(copied_tree().top + file);
      files.push_back(directories.front() + file);
    }
  }

  std::vector<std::string> directories;
  std::vector<std::string> sources;
  std::vector<std::string> files;
};

known_entries const& known() {
  static known_entries const entries;
  return entries;
}

bool copy_known() {
  bool copied = true;
  for (std::string const& directory : known().directories) {
    copied = ::mkdir(directory.c_str(), 0777) == 0 && copied;
  }
  for (std::size_t i = 0; i != known().files.size(); ++i) {
    int const source = ::open(known().sources[i].c_str(), O_RDONLY | O_CLOEXEC);
    copied = floors::copy_content(source, known().files[i].c_str(), floors::force_out) && copied;
    ::close(source);
  }
  return copied;
}

bool remove_known() {
  bool removed = true;
  for (std::string const& file : known().files) {
    removed = ::unlink(file.c_str()) == 0 && removed;
  }
  for (auto directory = known().directories.rbegin(); directory != known().directories.rend(); ++directory) {
    removed = ::rmdir(directory->c_str()) == 0 && removed;
  }
  return removed;
}

} // namespace

void add_copy_workloads() {
  add_workload("copy.tree", "copy a tree of 110 entries, an entry", state_is::made_for_each_pass);
  add_workload("remove.tree", "remove a tree of 110 entries, an entry", state_is::made_for_each_pass);
  add_copy(library, [](std::string const& source, std::string const& target) {
    return FIO_FILE_SYSTEM::copy_dir(source, target, true, false);
  });
  add_copy(least_code, [](std::string const& source_top, std::string const& target_top) {
    std::string source = source_top + '/';
    std::string target = target_top + '/';
    return floors::copy_tree(source, target, floors::force_out);
  });
  add_copy(
      bare_calls, [](std::string const&, std::string const&) { return copy_known(); },
      "the entries are known, and nothing is tested");
  add_copy(
      "not forced out",
      [](std::string const& source_top, std::string const& target_top) {
        std::string source = source_top + '/';
        std::string target = target_top + '/';
        return floors::copy_tree(source, target, [](int) {});
      },
      "the floor without fsync");
  add_removal(library, [](std::string const& top) {
    return FIO_FILE_SYSTEM::remove_recursively(top.c_str(), nullptr, nullptr);
  });
  add_removal(least_code, [](std::string const& top) { return floors::remove_tree(top); });
  add_removal(
      bare_calls, [](std::string const&) { return remove_known(); }, "the entries are known, and nothing is tested");
  add_removal(
      libc,
      [](std::string const& top) {
        return ::nftw(
                   top.c_str(), [](char const* path, struct stat const*, int, FTW*) { return std::remove(path); }, 16,
                   FTW_DEPTH | FTW_PHYS) == 0;
      },
      "nftw; no test of permission");
}

} // namespace bench
