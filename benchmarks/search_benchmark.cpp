// Searches against the system calls that they cannot do without.

#include <benchmark/benchmark.h>
#include <dirent.h>
#include <fnmatch.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "benchmarks/allocations.h"
#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_find.h"

namespace {

namespace fs = std::filesystem;

// Eight directories, the last of which holds the file that is looked for, and one of many files.
class search_tree {
public:
  search_tree() : m_root((fs::temp_directory_path() / "fio_benchmark.XXXXXX").string()) {
    if (::mkdtemp(m_root.data()) == nullptr) {
      std::abort();
    }
    for (int i = 0; i != 8; ++i) {
      directories.push_back(m_root + "/library" + std::to_string(i) + '/');
      fs::create_directory(directories.back());
      search_path += directories.back() + ';';
    }
    std::ofstream(directories.back() + "alu.v").flush();
    fs::create_directory(m_root + "/many");
    for (int i = 0; i != 1000; ++i) {
      std::ofstream(m_root + "/many/file" + std::to_string(i) + (i % 10 == 0 ? ".v" : ".txt")).flush();
    }
  }
  ~search_tree() { fs::remove_all(m_root); }

  std::string many() const { return m_root + "/many"; }

  std::vector<std::string> directories;
  std::string search_path;

private:
  std::string m_root;
};

search_tree const& tree() {
  static search_tree const instance;
  return instance;
}

void resolve_fio(benchmark::State& state) {
  FIO_FIND const find(tree().search_path, false);
  measure(state, [&find] { benchmark::DoNotOptimize(find.find_first("alu.v")); });
}
BENCHMARK(resolve_fio)->Name("resolve in the 8th/fio");

void resolve_least(benchmark::State& state) {
  measure(state, [] {
    struct stat buffer;
    for (std::string const& directory : tree().directories) {
      if (::stat(directory.c_str(), &buffer) == 0 && ::stat((directory + "alu.v").c_str(), &buffer) == 0) {
        benchmark::DoNotOptimize(directory);
      }
    }
  });
}
BENCHMARK(resolve_least)->Name("resolve in the 8th/least code");

void resolve_std(benchmark::State& state) {
  std::vector<fs::path> const directories(tree().directories.begin(), tree().directories.end());
  measure(state, [&directories] {
    for (fs::path const& directory : directories) {
      if (fs::exists(directory) && fs::exists(directory / "alu.v")) {
        benchmark::DoNotOptimize(directory);
      }
    }
  });
}
BENCHMARK(resolve_std)->Name("resolve in the 8th/std");

void walk_fio(benchmark::State& state) {
  std::string const pattern = tree().many() + "/*.v";
  measure(state, [&pattern] {
    _finddata_t entry;
    long const handle = FIO_FILE_SYSTEM::findfirst(pattern.c_str(), &entry);
    while (FIO_FILE_SYSTEM::findnext(handle, &entry) == 0) {
      benchmark::DoNotOptimize(entry);
    }
    FIO_FILE_SYSTEM::findclose(handle);
  });
}
BENCHMARK(walk_fio)->Name("100 matches of 1000/fio");

void walk_least(benchmark::State& state) {
  std::string const directory = tree().many();
  measure(state, [&directory] {
    DIR* const stream = ::opendir(directory.c_str());
    struct stat buffer;
    while (dirent const* const entry = ::readdir(stream)) {
      if (::fnmatch("*.v", entry->d_name, 0) == 0) {
        std::string const path = directory + '/' + entry->d_name;
        benchmark::DoNotOptimize(::stat(path.c_str(), &buffer));
        benchmark::DoNotOptimize(::access(path.c_str(), W_OK));
      }
    }
    ::closedir(stream);
  });
}
BENCHMARK(walk_least)->Name("100 matches of 1000/least code");

void match_fio(benchmark::State& state) {
  measure(state, [] {
    benchmark::DoNotOptimize(FIO_FILE_SYSTEM::same_file("/projects/serial/rtl/unit.v", "/projects/serial/rtl/*.v"));
  });
}
BENCHMARK(match_fio)->Name("match/fio");

void match_fnmatch(benchmark::State& state) {
  measure(state,
          [] { benchmark::DoNotOptimize(::fnmatch("/projects/serial/rtl/*.v", "/projects/serial/rtl/unit.v", 0)); });
}
BENCHMARK(match_fnmatch)->Name("match/fnmatch");

} // namespace
