/// @file
/// Results of operations as texts.

#ifndef CCL_TESTS_SWEEPS_SYSTEM_CALL_RESULTS_H
#define CCL_TESTS_SWEEPS_SYSTEM_CALL_RESULTS_H

#include <string>

#include "ccl/fio/fio_file_sys.h"
#include "tests/sweeps/system_call_doubles.h"

namespace system_call {

/// The result of the part of a row that is watched.
template <typename Operation>
auto watched(Operation operation) {
  watched_section const section;
  return operation();
}

inline std::string text(bool answer) { return answer ? "true" : "false"; }
inline std::string text(int answer) { return std::to_string(answer); }

/// A match of a search.
inline std::string text(_finddata_t const& entry) {
  return std::string(entry.name) + " attributes " + std::to_string(entry.attrib) + " size " +
         std::to_string(entry.size) + " time " + std::to_string(entry.time_write);
}

} // namespace system_call

#endif
