/// @file
/// One operation with one call disturbed, and the checks of what came out.

#ifndef CCL_TESTS_SWEEPS_SYSTEM_CALL_TRIAL_H
#define CCL_TESTS_SWEEPS_SYSTEM_CALL_TRIAL_H

#include <string>
#include <vector>

#include "tests/sweeps/system_call_doubles.h"
#include "tests/sweeps/system_call_operations.h"
#include "tests/sweeps/system_call_tree.h"

namespace system_call {

/// What was done so far.
struct figures {
  long operations = 0;
  long calls = 0;
  long failures = 0;
  long wrong = 0;
};

figures& total();

/// Counts something that is wrong and tells of it.
void complain(std::string const& about, std::string const& what);

/// All that one run shows.
struct run_result {
  std::string result;
  observation seen;
  snapshot left;
  std::vector<std::string> held;
  int descriptors = 0;
  int open_streams = 0;
};

/// Runs an operation in drawn files. Null: nothing is disturbed.
run_result run(operation const& row, plan const* wanted, tree const& files);

/// One operation, its files, and what it does undisturbed.
class swept_operation {
public:
  swept_operation(operation const& row, tree& files, run_result undisturbed);

  std::vector<call> const& calls() const { return m_undisturbed.seen.calls; }

  /// Runs the operation with a call disturbed and checks what comes out by the rules.
  void disturb(call const& disturbed, bool always, disturbance const& what);

  /// Checks that the operation knows nothing of what befell it before.
  void check_is_right_again(std::string const& about);

private:
  void check_by_rule(std::string const& about, call const& disturbed, bool always, disturbance const& what,
                     run_result const& shown) const;
  std::string difference_of_files(effect wanted, run_result const& shown) const;

  operation const& m_row;
  tree& m_files;
  run_result m_undisturbed;
};

} // namespace system_call

#endif
