#include "tests/model/wildcard_model.h"

#include <cstddef>

namespace {

// The pattern begins with no `*`: a walk over both texts, in which the end of the pattern comes before the end of the
// name.
bool matches_as_prefix(std::string const& name, std::string const& pattern) {
  std::size_t position = 0;
  while (true) {
    if (position == pattern.size()) {
      return true;
    }
    if (position == name.size()) {
      return false;
    }
    if (pattern[position] == '*') {
      return model_same_file(name.substr(position), pattern.substr(position));
    }
    if (pattern[position] != name[position] && pattern[position] != '?') {
      return false;
    }
    ++position;
  }
}

// The pattern is a `*` and `rest`: the first start at which `rest` fits up to the end of the name, or up to its next
// `*`, decides.
bool matches_behind_star(std::string const& name, std::string const& rest) {
  for (std::size_t start = 0; start < name.size(); ++start) {
    std::size_t const left = name.size() - start;
    std::size_t count = 0;
    std::size_t index = 0;
    while (true) {
      if (index == rest.size()) {
        count = rest.size();
        break;
      }
      if (index == left) {
        count = left;
        break;
      }
      if (rest[index] == '*') {
        return model_same_file(name.substr(start + index), rest.substr(index));
      }
      if (rest[index] != '?' && rest[index] != name[start + index]) {
        count = index;
        break;
      }
      ++index;
    }
    if (start + count == name.size()) {
      return count >= rest.size();
    }
  }
  return rest.empty();
}

} // namespace

bool model_same_file(std::string const& name, std::string const& pattern) {
  if (!pattern.empty() && pattern[0] == '*') {
    return matches_behind_star(name, pattern.substr(1));
  }
  return matches_as_prefix(name, pattern);
}
