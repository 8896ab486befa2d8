/// @file
/// Makes memory run out at will: the test program's `operator new` serves the libraries as well.

#ifndef CCL_TESTS_SUPPORT_ALLOCATION_FAILURE_H
#define CCL_TESTS_SUPPORT_ALLOCATION_FAILURE_H

/// While an object of this class lives, allocations of this thread fail from the one with this number on, counted
/// from 1.
class allocation_failure {
public:
  explicit allocation_failure(long first_to_fail);
  ~allocation_failure();
  allocation_failure(allocation_failure const&) = delete;
  allocation_failure& operator=(allocation_failure const&) = delete;

  /// The number of allocations that were asked for so far, the failed ones included.
  long asked_for() const;
};

#endif
