// Runs the benchmarks and prints, for each group, how long the library takes in multiples of each other way of doing
// the same. Benchmarks are named GROUP/WAY, and the way of the library is "fio". The machine may be shared: the figures
// are medians of several runs, taken side by side.

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "benchmarks/allocations.h"

namespace {

std::atomic<long> allocation_count{0};

struct figure {
  double nanoseconds;
  double allocations;
};

class ratio_reporter : public benchmark::ConsoleReporter {
public:
  bool ReportContext(Context const& /*context*/) override { return true; }

  void ReportRuns(std::vector<Run> const& runs) override {
    for (Run const& run : runs) {
      if (run.aggregate_name != "median") {
        continue;
      }
      std::string const& name = run.run_name.function_name;
      std::size_t const slash = name.find('/');
      auto const allocations = run.counters.find("allocations");
      m_groups[name.substr(0, slash)].push_back(
          {name.substr(slash + 1),
           {run.GetAdjustedRealTime(), allocations != run.counters.end() ? allocations->second.value : 0}});
    }
  }

  void Finalize() override {
    std::printf("%-28s %-22s %12s %12s %14s\n", "WHAT", "HOW", "TIME", "ALLOCATIONS", "FIO / THIS");
    for (auto const& [group, ways] : m_groups) {
      double fio = 0;
      for (auto const& [way, result] : ways) {
        fio = way == "fio" ? result.nanoseconds : fio;
      }
      for (auto const& [way, result] : ways) {
        std::printf("%-28s %-22s %9.1f ns %12.2f %14.2f\n", group.c_str(), way.c_str(), result.nanoseconds,
                    result.allocations, fio / result.nanoseconds);
      }
    }
  }

private:
  std::map<std::string, std::vector<std::pair<std::string, figure>>> m_groups;
};

} // namespace

long allocations() { return allocation_count; }

void* operator new(std::size_t size) {
  ++allocation_count;
  if (void* const memory = std::malloc(size)) {
    return memory;
  }
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept { std::free(memory); }

void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

int main(int count, char** values) {
  std::vector<char*> arguments(values, values + count);
  std::string repetitions = "--benchmark_repetitions=9";
  std::string interleaving = "--benchmark_enable_random_interleaving=true";
  arguments.insert(arguments.begin() + 1, {repetitions.data(), interleaving.data()});
  int new_count = static_cast<int>(arguments.size());
  benchmark::Initialize(&new_count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(new_count, arguments.data())) {
    return 2;
  }
  ratio_reporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
}
