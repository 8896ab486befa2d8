/// @file
/// The states that an operation on a path may leave when it fails.

#ifndef CCL_TESTS_SWEEPS_ALLOCATION_PATH_STATES_H
#define CCL_TESTS_SWEEPS_ALLOCATION_PATH_STATES_H

#include <string>

#include "ccl/fio/fio_path.h"
#include "tests/sweeps/allocation_operation.h"

/// The two halves of a path's text: its components, and the text that they make.
inline std::string components(std::string const& state) { return state.substr(0, state.find('\n')); }

inline std::string made_text(std::string const& state) { return state.substr(state.find('\n')); }

/// A setter that has stored its component, but not the text.
inline bool component_is_stored(std::string const& state, std::string const& before, std::string const& clean) {
  return state == before || (components(state) == components(clean) && made_text(state) == made_text(before));
}

/// An operation that stores a text first and then simplifies it, which changes nothing before it has its memory.
inline state_rule by_way_of(std::string const& stored) {
  std::string const state_between = text_of(FIO_PATH(stored));
  return [state_between](std::string const& state, std::string const& before, std::string const& /*clean*/) {
    return state == state_between || component_is_stored(state, before, state_between);
  };
}

#endif
