/// @file
/// The floor of wildcards: the runs of a pattern between its `*`, found one after the other, the last one at the end.

#ifndef CCL_BENCHMARKS_FLOORS_WILDCARD_H
#define CCL_BENCHMARKS_FLOORS_WILDCARD_H

#include <cstddef>
#include <cstring>
#include <string_view>

namespace floors {

inline bool run_fits(std::string_view run, char const* name) {
  // The ends of names differ more often than their beginnings.
  if (!run.empty() && run.back() != '?' && run.back() != name[run.size() - 1]) {
    return false;
  }
  for (char byte : run) {
    if (byte != '?' && byte != *name) {
      return false;
    }
    ++name;
  }
  return true;
}

/// Where a run, which is not empty, first fits in a name; null if it does not.
inline char const* find_run(std::string_view run, std::string_view name) {
  // The C library's search is linear, and takes long to begin.
  constexpr std::size_t short_run = 16;
  if (run.size() > short_run && run.find('?') == std::string_view::npos) {
    return static_cast<char const*>(::memmem(name.data(), name.size(), run.data(), run.size()));
  }
  for (; name.size() >= run.size(); name.remove_prefix(1)) {
    if ((run.front() == name.front() || run.front() == '?') && run_fits(run, name.data())) {
      return name.data();
    }
  }
  return nullptr;
}

/// Whether a name fits a pattern. A `*` that is not at the start of the pattern is reached with some of the name left.
inline bool matches(char const* name_text, char const* pattern_text) {
  bool const is_prefix_empty = *pattern_text == '*';
  for (; *pattern_text != '*'; ++pattern_text, ++name_text) {
    if (*pattern_text == '\0' || *name_text == '\0' || (*pattern_text != *name_text && *pattern_text != '?')) {
      return *pattern_text == '\0' && *name_text == '\0';
    }
  }
  std::string_view pattern = pattern_text + 1;
  if (pattern.empty()) {
    return is_prefix_empty || *name_text != '\0';
  }
  std::string_view name = name_text;
  std::string_view const ending = pattern.substr(pattern.rfind('*') + 1);
  if ((name.empty() && !is_prefix_empty) || name.size() < ending.size() ||
      !run_fits(ending, name.data() + name.size() - ending.size())) {
    return false;
  }
  while (pattern.size() != ending.size()) {
    std::size_t const end = pattern.find('*');
    // Something has to be left behind each run but the last.
    if (name.size() <= end) {
      return false;
    }
    char const* const found =
        end == 0 ? name.data() : find_run(pattern.substr(0, end), name.substr(0, name.size() - 1));
    if (found == nullptr) {
      return false;
    }
    name.remove_prefix(static_cast<std::size_t>(found - name.data()) + end);
    pattern.remove_prefix(end + 1);
  }
  return name.size() >= ending.size();
}

} // namespace floors

#endif
