/// @file
/// Sequences of the model's steps. Results, paths and debug messages of each step are those of the model.
///
/// Each line of an input is a step: a byte for the operation, counted from "0" in the order of `step_kinds`, one for the
/// two paths, two for the numbers, and the two strings with a tab between them. What a line is too short for is 0.

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "tests/fuzz/support/check.h"
#include "tests/fuzz/support/input.h"
#include "tests/fuzz/support/target.h"
#include "tests/model/duel.h"

namespace {

constexpr std::size_t most_steps = 20;
constexpr std::size_t head_size = 4;

// The model says nothing of a component that starts with a NUL. "x" is no separator here, so that none does.
std::string readable(std::string const& text) {
  std::string result;
  for (char const character : text) {
    result += character == '\0' ? std::string("x\0", 2) : std::string(1, character);
  }
  return result;
}

int number_of(char byte, number_use use) {
  int const value = static_cast<signed char>(byte);
  switch (use) {
  case number_use::separator:
    return byte == '\0' || byte == 'x' ? '/' : static_cast<std::uint8_t>(byte);
  case number_use::letter:
  case number_use::offset:
    return static_cast<std::uint8_t>(byte);
  case number_use::extension_type:
    return modelled_extension_types[static_cast<std::uint8_t>(byte) % std::size(modelled_extension_types)];
  case number_use::length:
    return 1023 + value;
  case number_use::flag:
    return value & 1;
  default:
    return value;
  }
}

step step_of(std::string line) {
  std::string head = line.substr(0, head_size);
  head.resize(head_size);
  line.erase(0, head_size);
  std::size_t const paths = static_cast<std::uint8_t>(head[1]);
  step result;
  result.what = step_kinds()[static_cast<std::uint8_t>(head[0] - '0') % step_kinds().size()].what;
  result.target = paths % paths_of_a_scene;
  result.source = paths / paths_of_a_scene % paths_of_a_scene;
  number_use const use = kind_of(result).numbers;
  result.number = number_of(head[2], use);
  result.other_number = number_of(head[3], use);
  result.first = readable(fuzz::expanded(fuzz::cut_front(line, '\t')));
  result.second = readable(fuzz::expanded(line));
  return result;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  fuzz::input input(data, size);
  std::vector<step> steps;
  while (!input.at_end() && steps.size() != most_steps) {
    steps.push_back(step_of(input.line()));
  }
  if (std::optional<difference> const found = play(steps, looks::always)) {
    fuzz::fail(text_of(steps, *found));
  }
  return 0;
}
