// Measures what the registry holds. `measure.py` runs this program and writes the report; by hand:
//
//     fio_benchmark --list                      the workloads and their implementations
//     fio_benchmark --only='^relative:'         times of one workload: Google Benchmark, whose options are understood
//     fio_benchmark --count --only=':fio$'      every operation once, between marks for callgrind and strace, and what
//                                               it allocates
//     fio_benchmark --machine-texts=1000        texts from the machine's file system
//     fio_benchmark --texts=FILE                measures on the texts of a file, one a line

#include <benchmark/benchmark.h>
#include <unistd.h>
#include <valgrind/callgrind.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iostream>
#include <regex>
#include <string>
#include <vector>

#include "benchmarks/allocations.h"
#include "benchmarks/peers/peers.h"
#include "benchmarks/registry.h"
#include "benchmarks/texts.h"

namespace {

struct options {
  bool list = false;
  bool count = false;
  std::size_t machine_texts = 0;
  std::size_t generated_texts = 10000;
  std::string texts;
  std::string only = ".";
  std::vector<char*> others;
};

// Takes the value of an option of this name; false if the argument is another one.
bool take(std::string const& argument, std::string const& name, std::string& value) {
  std::string const start = "--" + name + '=';
  bool const is_meant = argument.compare(0, start.size(), start) == 0;
  value = is_meant ? argument.substr(start.size()) : value;
  return is_meant;
}

options parse(int count, char** values) {
  options result;
  result.others.push_back(values[0]);
  for (int i = 1; i < count; ++i) {
    std::string const argument = values[i];
    std::string number;
    if (argument == "--list") {
      result.list = true;
    } else if (argument == "--count") {
      result.count = true;
    } else if (take(argument, "machine-texts", number)) {
      result.machine_texts = std::stoul(number);
    } else if (take(argument, "generated-texts", number)) {
      result.generated_texts = std::stoul(number);
    } else if (!take(argument, "texts", result.texts) && !take(argument, "only", result.only)) {
      result.others.push_back(values[i]);
    }
  }
  return result;
}

bench::texts read_lines(std::string const& file) {
  bench::texts lines;
  std::ifstream stream(file);
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(line);
  }
  if (lines.empty()) {
    std::fprintf(stderr, "no texts in %s\n", file.c_str());
    std::exit(2);
  }
  return lines;
}

std::string full_name(bench::implementation const& what) { return what.workload + ':' + what.name; }

// Processor time: what other processes of the machine do is not counted.
double seconds() {
  timespec now = {};
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

double timed(bench::pass const& pass) {
  pass.prepare();
  double const start = seconds();
  pass.run();
  return seconds() - start;
}

double median(std::vector<double> values) {
  auto const middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

// The speed of a machine that others use as well changes from moment to moment, so that each run stands beside a run of
// the floor, in turns before and behind it, and the ratio is formed there.
void measure_time(benchmark::State& state, bench::implementation const& what, bench::implementation const& floor) {
  bench::pass const pass = what.make();
  bench::pass const other = floor.make();
  timed(pass); // what a library sets up at its first use is not measured
  timed(other);
  std::vector<double> times;
  std::vector<double> ratios;
  for (auto _ : state) {
    bool const floor_first = times.size() % 2 == 0;
    double beside = floor_first ? timed(other) : 0;
    double const time = timed(pass);
    beside = floor_first ? beside : timed(other);
    state.SetIterationTime(time);
    times.push_back(time);
    ratios.push_back(time / beside);
  }
  state.counters["nanoseconds"] = 1e9 * median(times) / static_cast<double>(pass.operations);
  state.counters["ratio"] = median(ratios);
}

bench::implementation const* floor_of(std::string const& workload) {
  for (bench::implementation const& what : bench::implementations()) {
    if (what.workload == workload && what.name == bench::least_code) {
      return &what;
    }
  }
  return nullptr;
}

void mark(std::string const& text) {
  // Fails, and is seen by who watches the calls.
  [[maybe_unused]] ssize_t const failed = ::write(-1, text.data(), text.size());
}

void count_once(bench::implementation const& what) {
  bench::pass const pass = what.make();
  std::string const label = full_name(what) + '\t' + std::to_string(pass.operations);
  pass.prepare();
  pass.run();
  pass.prepare();
  mark("begin\t" + label);
  allocation_counts const before = allocations();
  CALLGRIND_ZERO_STATS;
  pass.run();
  CALLGRIND_DUMP_STATS_AT(label.c_str());
  allocation_counts const after = allocations();
  mark("end");
  auto const each = [&pass](unsigned long count) {
    return static_cast<double>(count) / static_cast<double>(pass.operations);
  };
  std::printf("%s\t%.4f\t%.2f\n", full_name(what).c_str(), each(after.calls - before.calls),
              each(after.bytes - before.bytes));
}

void list_all() {
  for (bench::workload const& what : bench::workloads()) {
    std::printf("workload\t%s\t%s\n", what.name.c_str(), what.title.c_str());
  }
  for (bench::implementation const& what : bench::implementations()) {
    std::printf("implementation\t%s\t%s\t%s\n", what.workload.c_str(), what.name.c_str(), what.note.c_str());
  }
}

} // namespace

int main(int count, char** values) {
  options wanted = parse(count, values);
  if (wanted.machine_texts != 0) {
    for (std::string const& text : bench::machine_texts(wanted.machine_texts)) {
      std::cout << text << '\n';
    }
    return 0;
  }
  bench::use_texts(wanted.texts.empty() ? bench::generated_texts(wanted.generated_texts) : read_lines(wanted.texts));
  bench::add_areas();
  bench::add_peers();
  if (wanted.list) {
    list_all();
    return 0;
  }
  std::regex const only(wanted.only);
  for (bench::implementation const& what : bench::implementations()) {
    if (!std::regex_search(full_name(what), only)) {
      continue;
    }
    if (wanted.count) {
      count_once(what);
      continue;
    }
    bench::implementation const* const floor = floor_of(what.workload);
    auto const body = [&what, floor](benchmark::State& state) { measure_time(state, what, *floor); };
    benchmark::RegisterBenchmark(full_name(what).c_str(), body)->UseManualTime();
  }
  if (wanted.count) {
    return 0;
  }
  int others = static_cast<int>(wanted.others.size());
  benchmark::Initialize(&others, wanted.others.data());
  if (benchmark::ReportUnrecognizedArguments(others, wanted.others.data())) {
    return 2;
  }
  benchmark::RunSpecifiedBenchmarks();
}
