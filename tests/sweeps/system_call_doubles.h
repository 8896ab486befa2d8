/// @file
/// Watching every call that an operation makes to the system, and disturbing one of them.
///
/// A program that links this stands between the library and both the platform layer and the C library. What one
/// operation calls is recorded; a plan makes the n-th call of one function fail, once or from there on. What the
/// platform layer itself calls is not seen: to the library that layer is one call.

#ifndef CCL_TESTS_SWEEPS_SYSTEM_CALL_DOUBLES_H
#define CCL_TESTS_SWEEPS_SYSTEM_CALL_DOUBLES_H

#include <string>
#include <vector>

namespace system_call {

/// How a disturbed call differs from the real one.
enum class manner {
  fails,       ///< the failure value of the function; a call that releases something has released it all the same
  falls_short, ///< half of what was asked for is read or written, and no error is told
  ends,        ///< nothing more is read, as at the end, and no error is told
  says_yes     ///< a question is answered by yes
};

/// One way to disturb a call. An error of 0 leaves `errno` alone.
struct disturbance {
  std::string name;
  int error;
  manner how;
};

/// A call that was made.
struct call {
  std::string function;
  std::string subject;       ///< the path or name that it was about; "directory: entry" for a read of a directory
  int occurrence;            ///< which call of this function, from 1
  int occurrence_on_subject; ///< which call of this function with this subject, from 1
};

/// Which calls are disturbed.
struct plan {
  std::string function;
  int occurrence;
  bool from_there_on;
  disturbance what;
};

/// What was seen while the library worked.
struct observation {
  std::vector<call> calls;
  int disturbed = 0;
  int errno_of_last_call = 0;
  int errno_at_end = 0;
};

/// Takes the places of the operations of the platform layer. Those of the C library are in place from the start.
void take_places();

/// The directory that stands as "$" in subjects.
void set_root(std::string const& root);

/// `text` with the root and the numbers of temporary names replaced.
std::string anonymous(std::string text);

/// The plan of all calls until the next one. Null: nothing is disturbed.
void set_plan(plan const* wanted);

/// The calls inside the life of an object of this class are watched.
class watched_section {
public:
  watched_section();
  ~watched_section();
  watched_section(watched_section const&) = delete;
  watched_section& operator=(watched_section const&) = delete;
};

/// What was seen since the last call of this.
observation take_observation();

/// What is still held of what the library opened since the last call of this: streams, directories and path records, by
/// their subjects. The path records are released by this, so that those which an operation may keep do not look like a
/// leak of the program.
std::vector<std::string> take_held();

/// Whether the definition of a dynamic symbol that the library finds is one of this program.
bool is_doubled(std::string const& symbol);

} // namespace system_call

#endif
