/// @file
/// Both sides play the same steps, and every answer, every query and every debug message must be the same.

#ifndef CCL_TESTS_MODEL_DUEL_H
#define CCL_TESTS_MODEL_DUEL_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/model/scene.h"
#include "tests/model/steps.h"

/// Where the sides parted, and what each had to say.
struct difference {
  std::size_t steps_played = 0;
  std::string where;
  std::string real;
  std::string model;
};

/// The steps up to the difference, and the difference.
std::string text_of(std::vector<step> const& steps, difference const& found);

/// Two scenes, one of each side, in the same surroundings: the current directory `/a`, which short texts can name, and
/// the first simplification.
class duel {
public:
  duel();

  /// Plays the step on both sides and compares the answers and the messages.
  std::optional<difference> play(step const& what);

  /// Compares every query on one path, and the messages of each.
  std::optional<difference> look_at(std::size_t path);

  /// All the values compared so far, by all duels of the program.
  static std::uint64_t comparisons();

private:
  std::optional<difference> compare(std::string const& where, std::string const& real, std::string const& model);

  scene<real_side> m_real;
  scene<model_side> m_model;
};

/// When the paths themselves are looked at.
enum class looks {
  never,  ///< the answers say it all
  at_end, ///< path 0 alone
  always, ///< the paths that a step touches, and all of them at the end
};

/// Plays the steps in a new duel up to the first difference.
std::optional<difference> play(std::vector<step> const& steps, looks when);

#endif
