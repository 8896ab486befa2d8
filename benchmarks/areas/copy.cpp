// Copying and removing trees.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <ftw.h>

#include <string>

#include "benchmarks/areas/trees_to_change.h"
#include "benchmarks/floors/copy.h"
#include "benchmarks/registry.h"
#include "benchmarks/trees.h"
#include "ccl/fio/fio_file_sys.h"

namespace bench {

namespace {

// The content alone, without a question before.
void copy_bare(std::string const& source, std::string const& target) {
  int const from = ::open(source.c_str(), O_RDONLY | O_CLOEXEC);
  floors::copy_content(from, target.c_str());
  ::close(from);
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
    return floors::copy_tree(source, target);
  });
  add_copy(bare_calls,
           [](std::string const& source, std::string const& target) {
             file_tree const& tree = copied_tree();
             bool made = ::mkdir(target.c_str(), 0777) == 0;
             for (std::string const& directory : tree.directories) {
               made = ::mkdir((target + directory).c_str(), 0777) == 0 && made;
             }
             for (std::string const& file : tree.files) {
               copy_bare(source + file, target + file);
             }
             return made;
           },
           "the entries are known, and nothing is asked");
  add_removal(library, [](std::string const& top) {
    return FIO_FILE_SYSTEM::remove_recursively(top.c_str(), nullptr, nullptr);
  });
  add_removal(least_code, [](std::string const& top) { return floors::remove_tree(top); });
  add_removal(bare_calls,
              [](std::string const& top) {
                file_tree const& tree = copied_tree();
                bool removed = true;
                for (std::string const& file : tree.files) {
                  removed = ::unlink((top + file).c_str()) == 0 && removed;
                }
                for (auto directory = tree.directories.rbegin(); directory != tree.directories.rend(); ++directory) {
                  removed = ::rmdir((top + *directory).c_str()) == 0 && removed;
                }
                return ::rmdir(top.c_str()) == 0 && removed;
              },
              "the entries are known, and nothing is asked");
  add_removal("libc",
              [](std::string const& top) {
                return ::nftw(
                           top.c_str(), [](char const* path, struct stat const*, int, FTW*) { return std::remove(path); },
                           16, FTW_DEPTH | FTW_PHYS) == 0;
              },
              "nftw");
}

} // namespace bench
