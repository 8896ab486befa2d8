#include "tools/ccl-fio/suggestion.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace tool {

namespace {

/// The number of letters to insert, remove or replace to make one text of the other.
std::size_t distance_between(std::string_view left, std::string_view right) {
  std::vector<std::size_t> row(right.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i != left.size(); ++i) {
    std::size_t diagonal = row.front();
    row.front() = i + 1;
    for (std::size_t j = 0; j != right.size(); ++j) {
      std::size_t const replaced = diagonal + (left[i] == right[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
    }
  }
  return row.back();
}

} // namespace

std::string suggestion(std::string_view given, std::vector<std::string> const& known) {
  std::string const* best = nullptr;
  std::size_t least = 2 + given.size() / 4;
  for (std::string const& candidate : known) {
    std::size_t const distance = distance_between(given, candidate);
    if (distance < least) {
      least = distance;
      best = &candidate;
    }
  }
  return best == nullptr ? std::string() : fmt::format("; did you mean {}?", *best);
}

} // namespace tool
