// Integers on a stream, byte by byte, against one call for a whole value in the host's own order, which is no contract.

#include <benchmark/benchmark.h>

#include <sstream>
#include <string>

#include "benchmarks/allocations.h"
#include "ccl/fio/fio_file_bin.h"

namespace {

constexpr long pattern = 0x0123456789abcdef;

void write_fio(benchmark::State& state) {
  std::stringstream stream(std::string(64, '\0'));
  FIO_BIN_OFILE file(stream);
  measure(state, [&] {
    stream.seekp(0);
    file << pattern;
  });
}
BENCHMARK(write_fio)->Name("write 8 bytes/fio");

void write_calls(benchmark::State& state) {
  std::stringstream stream(std::string(64, '\0'));
  measure(state, [&] {
    stream.seekp(0);
    for (unsigned position = 0; position != sizeof pattern; ++position) {
      char const byte = static_cast<char>(pattern >> (8 * position));
      stream.write(&byte, 1);
    }
  });
}
BENCHMARK(write_calls)->Name("write 8 bytes/least code");

void read_fio(benchmark::State& state) {
  std::stringstream stream(std::string(64, 'x'));
  FIO_BIN_IFILE file(stream);
  long value = 0;
  measure(state, [&] {
    stream.seekg(0);
    file >> value;
    benchmark::DoNotOptimize(value);
  });
}
BENCHMARK(read_fio)->Name("read 8 bytes/fio");

void read_calls(benchmark::State& state) {
  std::stringstream stream(std::string(64, 'x'));
  measure(state, [&] {
    unsigned long value = 0;
    char byte = 0;
    stream.seekg(0);
    for (unsigned position = 0; position != sizeof value; ++position) {
      stream.read(&byte, 1);
      value |= static_cast<unsigned long>(static_cast<unsigned char>(byte)) << (8 * position);
    }
    benchmark::DoNotOptimize(value);
  });
}
BENCHMARK(read_calls)->Name("read 8 bytes/least code");

} // namespace
