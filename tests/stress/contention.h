/// @file
/// Operations that many carry out on the same files at the same moment, and what may come of it.

#ifndef CCL_TESTS_STRESS_CONTENTION_H
#define CCL_TESTS_STRESS_CONTENTION_H

#include <string>
#include <vector>

namespace stress {

/// What one participant came to. Lies in memory that processes share.
struct outcome {
  int answer;      ///< of the operation: 1 for true, 0 for false, or as the operation has it
  int refused;     ///< how often a name turned out to be taken
  char text[1024]; ///< names or words, each with a line feed behind it
};

/// What a round was like, for the one who judges it.
struct round_of_outcomes {
  std::string place;
  std::vector<outcome> outcomes;
  bool names_repeat; ///< whether the participants are of one host and one thread id, so that their names are the same
};

/// One operation. All of it happens at `place`, a directory that is empty before and behind each round.
struct contention {
  char const* name;
  void (*prepare)(std::string const& place);
  void (*act)(std::string const& place, int participant, outcome& result);
  /// What is wrong with the results and with what is left at the place, or an empty text.
  std::string (*judge)(round_of_outcomes const& round);
};

std::vector<contention> all_contentions();

} // namespace stress

#endif
