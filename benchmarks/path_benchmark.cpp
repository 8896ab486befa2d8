// Paths against the path classes that C++ programs use, and against the least code that keeps the contract: a text that
// is stored whole and in its parts costs at least the copies of those.

#include <benchmark/benchmark.h>

#include <boost/filesystem/path.hpp>
#include <cstring>
#include <filesystem>
#include <string>

#include "benchmarks/allocations.h"
#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_path.h"

namespace {

std::string const text = "/projects/serial/rtl/core/arithmetic_unit.v";
std::string const untidy = "/projects/serial/./rtl/../lib/core/../arithmetic_unit.v";

struct least_path {
  explicit least_path(std::string const& source) : full(source) {
    std::size_t const name = source.find_last_of("/\\") + 1;
    std::size_t const dot = source.rfind('.');
    std::size_t const end = dot == std::string::npos || dot < name ? source.size() : dot;
    directory.assign(source, 0, name);
    base.assign(source, name, end - name);
    extension.assign(source, end, std::string::npos);
  }

  std::string full;
  std::string directory;
  std::string base;
  std::string extension;
};

template <typename Path>
void parse(benchmark::State& state) {
  measure(state, [] {
    Path path(text);
    benchmark::DoNotOptimize(path);
  });
}
BENCHMARK(parse<FIO_PATH>)->Name("parse/fio");
BENCHMARK(parse<std::filesystem::path>)->Name("parse/std");
BENCHMARK(parse<boost::filesystem::path>)->Name("parse/boost");
BENCHMARK(parse<least_path>)->Name("parse/least code");

template <typename Path>
void copy(benchmark::State& state) {
  Path const source(text);
  measure(state, [&source] {
    Path path(source);
    benchmark::DoNotOptimize(path);
  });
}
BENCHMARK(copy<FIO_PATH>)->Name("copy/fio");
BENCHMARK(copy<std::filesystem::path>)->Name("copy/std");
BENCHMARK(copy<least_path>)->Name("copy/least code");

void rename_fio(benchmark::State& state) {
  FIO_PATH path(text);
  std::string const names[] = {"adder.v", "multiplier.sv"};
  std::size_t turn = 0;
  measure(state, [&] { benchmark::DoNotOptimize(path.filename(names[turn++ % 2])); });
}
BENCHMARK(rename_fio)->Name("replace name/fio");

void rename_std(benchmark::State& state) {
  std::filesystem::path path(text);
  std::string const names[] = {"adder.v", "multiplier.sv"};
  std::size_t turn = 0;
  measure(state, [&] { benchmark::DoNotOptimize(path.replace_filename(names[turn++ % 2])); });
}
BENCHMARK(rename_std)->Name("replace name/std");

void read_fio(benchmark::State& state) {
  FIO_PATH path(text);
  measure(state, [&path] {
    benchmark::DoNotOptimize(path);
    benchmark::DoNotOptimize(static_cast<char const*>(path));
  });
}
BENCHMARK(read_fio)->Name("read text/fio");

void read_std(benchmark::State& state) {
  std::filesystem::path path(text);
  measure(state, [&path] {
    benchmark::DoNotOptimize(path);
    benchmark::DoNotOptimize(path.c_str());
  });
}
BENCHMARK(read_std)->Name("read text/std");

void simplify_fio(benchmark::State& state) {
  measure(state, [] {
    FIO_PATH path(untidy);
    path.become_simplified();
    benchmark::DoNotOptimize(path);
  });
}
BENCHMARK(simplify_fio)->Name("parse and simplify/fio");

template <typename Path>
void simplify(benchmark::State& state) {
  measure(state, [] {
    Path const path = Path(untidy).lexically_normal();
    benchmark::DoNotOptimize(path);
  });
}
BENCHMARK(simplify<std::filesystem::path>)->Name("parse and simplify/std");
BENCHMARK(simplify<boost::filesystem::path>)->Name("parse and simplify/boost");

void split_fio(benchmark::State& state) {
  std::string drive;
  std::string directory;
  std::string base;
  std::string extension;
  measure(state, [&] {
    benchmark::DoNotOptimize(FIO_FILE_SYSTEM::splitpath(text.c_str(), drive, directory, base, extension));
  });
}
BENCHMARK(split_fio)->Name("split/fio");

void split_std(benchmark::State& state) {
  std::filesystem::path const path(text);
  measure(state, [&path] {
    benchmark::DoNotOptimize(path.parent_path());
    benchmark::DoNotOptimize(path.stem());
    benchmark::DoNotOptimize(path.extension());
  });
}
BENCHMARK(split_std)->Name("split/std");

} // namespace
