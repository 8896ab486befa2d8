// Paths against each other: the places that two texts name, and the one as seen from the other.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <boost/filesystem/path.hpp>
#include <climits>
#include <cstring>
#include <filesystem>
#include <string>

#include "benchmarks/allocations.h"
#include "ccl/fio/fio_path.h"

namespace {

std::string const text = "/projects/serial/rtl/core/arithmetic_unit.v";
std::string const other_spelling = "/projects/serial/./rtl/../rtl/core/arithmetic_unit.v";
std::string const other_name = "/projects/serial/rtl/core/barrel_shifter.v";
std::string const directory = "/projects/serial/lib/memory";

template <std::string const& right_text>
void equal_fio(benchmark::State& state) {
  FIO_PATH const left(text);
  FIO_PATH const right(right_text);
  measure(state, [&] { benchmark::DoNotOptimize(left == right); });
}
BENCHMARK(equal_fio<other_spelling>)->Name("same place/fio");
BENCHMARK(equal_fio<other_name>)->Name("another name/fio");

// What the contract costs at least where the names agree: two texts to simplify, and the current directory, twice.
void equal_least(benchmark::State& state) {
  FIO_PATH const left(text);
  FIO_PATH const right(other_spelling);
  measure(state, [&] {
    char current[PATH_MAX];
    FIO_PATH left_copy(left);
    FIO_PATH right_copy(right);
    left_copy.become_simplified();
    right_copy.become_simplified();
    benchmark::DoNotOptimize(::getcwd(current, sizeof current));
    benchmark::DoNotOptimize(::getcwd(current, sizeof current));
    benchmark::DoNotOptimize(std::strcmp(left_copy, right_copy));
  });
}
BENCHMARK(equal_least)->Name("same place/least code");

template <typename Path, std::string const& right_text>
void equal_normal(benchmark::State& state) {
  Path const left(text);
  Path const right(right_text);
  measure(state, [&] { benchmark::DoNotOptimize(left.lexically_normal() == right.lexically_normal()); });
}
BENCHMARK(equal_normal<std::filesystem::path, other_spelling>)->Name("same place/std");
BENCHMARK(equal_normal<std::filesystem::path, other_name>)->Name("another name/std");
BENCHMARK(equal_normal<boost::filesystem::path, other_spelling>)->Name("same place/boost");
BENCHMARK(equal_normal<boost::filesystem::path, other_name>)->Name("another name/boost");

void relative_fio(benchmark::State& state) {
  FIO_PATH const path(text);
  measure(state, [&] { benchmark::DoNotOptimize(path.get_relative_to(directory)); });
}
BENCHMARK(relative_fio)->Name("seen from a directory/fio");

template <typename Path>
void relative(benchmark::State& state) {
  Path const path(text);
  measure(state, [&] { benchmark::DoNotOptimize(path.lexically_relative(directory)); });
}
BENCHMARK(relative<std::filesystem::path>)->Name("seen from a directory/std");
BENCHMARK(relative<boost::filesystem::path>)->Name("seen from a directory/boost");

} // namespace
