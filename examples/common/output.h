/// @file
/// Standard output whose loss is noticed.

#ifndef CCL_EXAMPLES_COMMON_OUTPUT_H
#define CCL_EXAMPLES_COMMON_OUTPUT_H

#include <iostream>
#include <stdexcept>

/// Flushes standard output, and throws if anything that was written to it is lost.
inline void require_written_output() {
  if (!std::cout.flush()) {
    throw std::runtime_error("standard output cannot be written");
  }
}

#endif
