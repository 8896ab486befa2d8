#include "tests/faults/case.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <vector>

namespace faults {

namespace {

bool full_wanted = false;

std::vector<std::string>& topics() {
  static std::vector<std::string> list;
  return list;
}

// The lines of one list that another one lacks.
std::string lacking(std::vector<std::string> const& list, std::vector<std::string> const& other) {
  std::vector<std::string> lines;
  std::copy_if(list.begin(), list.end(), std::back_inserter(lines), [&other](std::string const& line) {
    return std::find(other.begin(), other.end(), line) == other.end();
  });
  return testing::PrintToString(lines);
}

} // namespace

bool full() { return full_wanted; }

void want_full() { full_wanted = true; }

findings& found_so_far() {
  static findings found;
  return found;
}

about::about(std::string text) { topics().push_back(std::move(text)); }

about::~about() { topics().pop_back(); }

void note_check(bool holds, char const* file, int line, std::string const& message) {
  ++found_so_far().checks;
  if (holds) {
    return;
  }
  ++found_so_far().wrong;
  std::string where;
  for (std::string const& topic : topics()) {
    where += topic + ": ";
  }
  std::fprintf(stderr, "%s:%d: %s%s\n", file, line, where.c_str(), message.c_str());
}

void note_equal(std::vector<std::string> const& actual, std::vector<std::string> const& expected, char const* file,
                int line, char const* text) {
  bool const holds = actual == expected;
  note_check(holds, file, line,
             holds ? std::string()
                   : std::string(text) + " has " + lacking(actual, expected) + " and lacks " +
                         lacking(expected, actual) + ", of " + std::to_string(expected.size()) + " lines");
}

} // namespace faults
