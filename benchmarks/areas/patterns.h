/// @file
/// The patterns that are compared with names.

#ifndef CCL_BENCHMARKS_AREAS_PATTERNS_H
#define CCL_BENCHMARKS_AREAS_PATTERNS_H

#include <functional>
#include <string>
#include <vector>

#include "benchmarks/texts.h"

namespace bench {

struct pattern_case {
  std::string workload;
  std::string title;
  std::string pattern;
  std::function<texts()> names;
};

std::vector<pattern_case> const& pattern_cases();

} // namespace bench

#endif
