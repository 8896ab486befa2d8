// Look-ups in the vocabulary against a hash table that is built at start.

#include <benchmark/benchmark.h>

#include <cctype>
#include <string>
#include <unordered_map>

#include "benchmarks/allocations.h"
#include "ccl/fio/fio_file_ext_type_info.h"

namespace {

std::unordered_map<std::string, FIO_FILE_TYPE> const& hash_table() {
  static auto const table = [] {
    std::unordered_map<std::string, FIO_FILE_TYPE> types;
    for (short value = 282; value > 0; --value) {
      auto const extension = static_cast<FIO_EXTENSION_TYPE>(value);
      types[fio_get_extension_string(extension)] = fio_get_file_type(extension);
    }
    return types;
  }();
  return table;
}

template <int>
std::string const name;
template <>
std::string const name<0> = "/projects/serial/rtl/unit.v";
template <>
std::string const name<1> = "/projects/serial/rtl/unit.ini";

template <int which>
void type_fio(benchmark::State& state) {
  measure(state, [] { benchmark::DoNotOptimize(fio_get_file_type(name<which>)); });
}
BENCHMARK(type_fio<0>)->Name("type of an early row/fio");
BENCHMARK(type_fio<1>)->Name("type of a late row/fio");

template <int which>
void type_hash(benchmark::State& state) {
  hash_table();
  measure(state, [] {
    std::string extension = name<which>.substr(name<which>.rfind('.'));
    for (char& character : extension) {
      character = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    }
    auto const found = hash_table().find(extension);
    benchmark::DoNotOptimize(found);
  });
}
BENCHMARK(type_hash<0>)->Name("type of an early row/hash table");
BENCHMARK(type_hash<1>)->Name("type of a late row/hash table");

} // namespace
