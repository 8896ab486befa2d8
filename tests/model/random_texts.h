/// @file
/// Random steps, and the texts at the limits of a path that they are made of.

#ifndef CCL_TESTS_MODEL_RANDOM_TEXTS_H
#define CCL_TESTS_MODEL_RANDOM_TEXTS_H

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "tests/model/steps.h"

/// A source of steps. The same seed gives the same steps on every machine.
class step_source {
public:
  explicit step_source(std::uint64_t seed) : m_engine(seed) {}

  std::vector<step> sequence();

private:
  std::size_t below(std::size_t bound) { return static_cast<std::size_t>(m_engine() % bound); }
  template <typename Items>
  auto const& one_of(Items const& items) {
    return items[below(std::size(items))];
  }
  step next();
  operation next_operation();
  int number_for(number_use use);
  std::string text();
  std::string characters_text();
  std::string names_text();
  std::string long_text();
  std::string long_extension_text();
  std::string pattern_text();

  std::mt19937_64 m_engine;
};

#endif
