// Walks over a directory and over a tree.

#include <dirent.h>
#include <fts.h>
#include <ftw.h>
#include <glob.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include "benchmarks/floors/walk.h"
#include "benchmarks/registry.h"
#include "benchmarks/trees.h"
#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_iterator.h"

// An entry of a walk, without its times: they are the same for every walk.
static std::string show(_finddata_t const& entry) {
  return std::string(entry.name) + ' ' + std::to_string(entry.attrib) + ' ' + std::to_string(entry.size) + ' ' +
         std::to_string(entry.time_write);
}

static std::string show(FIO_DIRECTORY_ENTRY const& entry) { return entry.path + (entry.is_directory ? "/" : ""); }

namespace floors {

static std::string show(tree_walk const& entry) { return entry.path + (entry.is_directory ? "/" : ""); }

} // namespace floors

namespace bench {

namespace {

struct directory_walk : single {
  explicit directory_walk(char const* matched)
      : single{1000}, directory(flat_directory(1000)), pattern(directory + '/' + matched) {}

  std::string directory;
  std::string pattern;
};

void add_directory_walks(char const* workload, char const* pattern, std::string const& shell_pattern) {
  auto const state = [pattern] { return directory_walk(pattern); };
  add(workload, library, state, [](directory_walk const& walk, std::size_t, auto visit) {
    _finddata_t entry;
    long const handle = FIO_FILE_SYSTEM::findfirst(walk.pattern.c_str(), &entry);
    for (bool found = handle != -1; found; found = FIO_FILE_SYSTEM::findnext(handle, &entry) == 0) {
      visit(entry);
    }
    FIO_FILE_SYSTEM::findclose(handle);
  });
  add(workload, least_code, state,
      [](directory_walk const& walk, std::size_t, auto visit) { floors::walk_matches(walk.pattern, visit); });
  add(
      workload, bare_calls, state,
      [ending = shell_pattern.substr(1)](directory_walk const& walk, std::size_t, auto visit) {
        DIR* const stream = ::opendir(walk.directory.c_str());
        struct stat status;
        while (dirent const* const entry = ::readdir(stream)) {
          std::string_view const name = entry->d_name;
          if (name.size() < ending.size() || name.substr(name.size() - ending.size()) != ending) {
            continue;
          }
          visit(::fstatat(::dirfd(stream), entry->d_name, &status, 0));
          if (!S_ISDIR(status.st_mode)) {
            visit(::faccessat(::dirfd(stream), entry->d_name, W_OK, 0));
          }
        }
        ::closedir(stream);
      },
      "reads the status in the open directory, by the name alone");
  add(
      workload, "no status", state,
      [](directory_walk const& walk, std::size_t, auto visit) {
        FIO_DIRECTORY_ITERATOR entry(walk.directory.c_str());
        for (FIO_DIRECTORY_ITERATOR const end; !(entry == end); ++entry) {
          if (floors::matches(entry->path.c_str(), walk.pattern.c_str())) {
            visit(*entry);
          }
        }
      },
      "the library's iterator, which says no more than what the directory says");
  add(
      workload, libc, state,
      [](directory_walk const& walk, std::size_t, auto visit) {
        glob_t found = {};
        ::glob(walk.pattern.c_str(), GLOB_NOSORT, nullptr, &found);
        struct stat status;
        for (std::size_t i = 0; i != found.gl_pathc; ++i) {
          visit(::stat(found.gl_pathv[i], &status));
          visit(::access(found.gl_pathv[i], W_OK));
        }
        ::globfree(&found);
      },
      "glob, which keeps all names, then stat and access");
}

struct tree_walk : single {
  tree_walk() : single{walked_tree().size()}, top(walked_tree().top) {}

  std::string top;
};

void add_tree_walks() {
  auto const state = [] { return tree_walk(); };
  add("walk.tree", library, state, [](tree_walk const& walk, std::size_t, auto visit) {
    FIO_RECURSIVE_DIRECTORY_ITERATOR entry(walk.top.c_str());
    for (FIO_RECURSIVE_DIRECTORY_ITERATOR const end; !(entry == end); entry.increment()) {
      visit(*entry);
    }
  });
  add("walk.tree", least_code, state,
      [](tree_walk const& walk, std::size_t, auto visit) { floors::tree_walk(walk.top).below(visit); });
  add(
      "walk.tree", bare_calls, state,
      [](tree_walk const& walk, std::size_t, auto visit) {
        struct stat status;
        auto const read_all = [&](std::string const& directory) {
          visit(::stat(directory.c_str(), &status));
          DIR* const stream = ::opendir(directory.c_str());
          while (dirent const* const entry = ::readdir(stream)) {
            visit(*entry->d_name);
          }
          ::closedir(stream);
        };
        read_all(walk.top);
        for (std::string const& directory : walked_tree().directories) {
          read_all(walk.top + directory);
        }
      },
      "the directories are known, and no path is made");
  add(
      "walk.tree", libc, state,
      [](tree_walk& walk, std::size_t, auto visit) {
        char* const tops[] = {walk.top.data(), nullptr};
        FTS* const tree = ::fts_open(tops, FTS_PHYSICAL | FTS_NOSTAT | FTS_NOCHDIR, nullptr);
        while (FTSENT const* const entry = ::fts_read(tree)) {
          visit(entry->fts_path);
        }
        ::fts_close(tree);
      },
      "fts without status; visits a directory twice");
  add(
      "walk.tree", "nftw", state,
      [](tree_walk const& walk, std::size_t, auto visit) {
        visit(::nftw(
            walk.top.c_str(),
            [](char const* path, struct stat const*, int, FTW*) {
              keep()(path);
              return 0;
            },
            16, FTW_PHYS));
      },
      "libc's; reads the status of every entry");
}

} // namespace

void add_walk_workloads() {
  add_workload("walk.all", "findfirst and findnext over dir/*, an entry");
  add_workload("walk.matches", "findfirst and findnext over dir/*.v, an entry of which every tenth matches");
  add_workload("walk.tree", "a recursive iterator, an entry");
  add_directory_walks("walk.all", "*", "*");
  add_directory_walks("walk.matches", "*.v", "*.v");
  add_tree_walks();
}

} // namespace bench
