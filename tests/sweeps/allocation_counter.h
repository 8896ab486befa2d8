/// @file
/// Counts the memory of this program, and makes it run out at will: for `new`, and for the C library and those that ask
/// it.
///
/// A program that links this has an allocator of its own, through which all others of the process go: the dynamic linker
/// prefers it for the library, for the C++ library, and for what the C library itself needs, as for a directory stream.

#ifndef CCL_TESTS_SWEEPS_ALLOCATION_COUNTER_H
#define CCL_TESTS_SWEEPS_ALLOCATION_COUNTER_H

/// Which allocations fail, counted from the one with the number that is asked for.
enum class failing_mode { once, for_ever };

/// How an allocation tells that it failed.
enum class failure_kind { none, thrown, answered };

/// While an object of this class lives, allocations fail. One object at a time; the program has one thread.
class allocation_injection {
public:
  /// The first one to fail has this number, counted from 1. No allocation has the number 0.
  allocation_injection(long first_to_fail, failing_mode mode);
  ~allocation_injection();
  allocation_injection(allocation_injection const&) = delete;
  allocation_injection& operator=(allocation_injection const&) = delete;

  /// Neither fails allocations nor counts them from here on.
  void stop();

  long asked_for() const;
  long failed() const;

  /// How the first one that failed was to tell it.
  failure_kind first_failure() const;
};

/// The blocks that were allocated and not released since the program started.
long live_blocks();

#endif
