/// @file
/// Counts what a benchmark allocates.

#ifndef CCL_BENCHMARKS_ALLOCATIONS_H
#define CCL_BENCHMARKS_ALLOCATIONS_H

#include <benchmark/benchmark.h>

/// The number of calls of `operator new` so far.
long allocations();

/// Runs `body` for as long as the benchmark wants, and reports the allocations of each turn.
template <typename Body>
void measure(benchmark::State& state, Body body) {
  long const before = allocations();
  for (auto _ : state) {
    body();
  }
  state.counters["allocations"] = static_cast<double>(allocations() - before) / static_cast<double>(state.iterations());
}

#endif
