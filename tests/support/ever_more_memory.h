/// @file
/// Makes an operation fail at each of its allocations in turn.

#ifndef CCL_TESTS_SUPPORT_EVER_MORE_MEMORY_H
#define CCL_TESTS_SUPPORT_EVER_MORE_MEMORY_H

#include <gtest/gtest.h>

#include <new>

#include "tests/support/allocation_failure.h"

/// Runs `operation` again and again, each time with memory for one more allocation, until it has enough. After each
/// attempt, with all memory there is, `check(succeeded)` is called. Answers how many attempts failed.
template <typename Operation, typename Check>
int with_ever_more_memory(Operation operation, Check check) {
  bool enough = false;
  int failed = 0;
  while (!enough && failed != 1000 && !testing::Test::HasFatalFailure()) {
    SCOPED_TRACE(testing::Message() << "allocations that succeed: " << failed);
    {
      allocation_failure const failing(failed + 1);
      try {
        operation();
        enough = true;
      } catch (std::bad_alloc const&) {
      }
    }
    check(enough);
    failed += enough ? 0 : 1;
  }
  EXPECT_TRUE(enough) << "no end after " << failed << " attempts";
  return failed;
}

#endif
