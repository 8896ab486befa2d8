/// @file
/// Counts what is allocated, whoever does it.

#ifndef CCL_BENCHMARKS_ALLOCATIONS_H
#define CCL_BENCHMARKS_ALLOCATIONS_H

struct allocation_counts {
  unsigned long calls;
  unsigned long bytes; ///< as they were asked for
};

/// All allocations so far.
allocation_counts allocations();

#endif
