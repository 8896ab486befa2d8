/// @file
/// A case of real faults, and the checks that it makes.

#ifndef CCL_TESTS_FAULTS_CASE_H
#define CCL_TESTS_FAULTS_CASE_H

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/support/scratch_tree.h"

namespace faults {

/// What a case cannot do without. Every case runs in a process of its own, in a folder of its own, which is its current
/// directory; a file system in memory is put over it wherever that is allowed.
enum class needs {
  folder,       ///< nothing more
  mounts,       ///< a mount namespace of its own
  devices,      ///< device nodes, which only the first user namespace of a machine can make
  ordinary_user ///< to be without privileges: a process that permissions hold for
};

/// One row of the table of cases.
struct fault_case {
  char const* name;
  needs need;
  void (*run)(scratch_tree const& tree);
};

/// Whether the long forms are wanted.
bool full();
void want_full();

/// Thrown by a case that finds out that this machine cannot have its fault.
struct skipped {
  std::string reason;
};

/// What the checks of this process came to.
struct findings {
  long checks = 0;
  long wrong = 0;
  std::string figures; ///< what is worth a place in the summary
};
findings& found_so_far();

/// Says what the checks are about while it lives; part of the message of each that fails.
class about {
public:
  explicit about(std::string text);
  ~about();
  about(about const&) = delete;
  about& operator=(about const&) = delete;
};

void note_check(bool holds, char const* file, int line, std::string const& message);

template <typename Actual, typename Expected>
void note_equal(Actual const& actual, Expected const& expected, char const* file, int line, char const* text) {
  bool const holds = actual == expected;
  note_check(holds, file, line,
             holds ? std::string()
                   : std::string(text) + " is " + testing::PrintToString(actual) + ", not " +
                         testing::PrintToString(expected));
}

/// Lists are long: only what differs is said.
void note_equal(std::vector<std::string> const& actual, std::vector<std::string> const& expected, char const* file,
                int line, char const* text);

} // namespace faults

/// Notes whether a condition holds, and goes on either way.
#define CHECK(condition) faults::note_check((condition), __FILE__, __LINE__, #condition)
#define CHECK_EQUAL(actual, expected) faults::note_equal((actual), (expected), __FILE__, __LINE__, #actual)

#endif
