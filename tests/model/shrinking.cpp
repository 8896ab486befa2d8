#include "tests/model/shrinking.h"

#include <cstddef>
#include <string>
#include <utility>

namespace {

// Enough for all that is worth reading, and a bound on what a stubborn sequence may cost.
constexpr int most_trials = 5000;

class shrinker {
public:
  shrinker(std::vector<step> steps, std::function<bool(std::vector<step> const&)> const& fails)
      : m_steps(std::move(steps)), m_fails(fails) {}

  std::vector<step> run() {
    bool shorter = true;
    while (shorter) {
      shorter = drop_steps();
      shorter = shorten_texts() || shorter;
      shorter = settle_paths() || shorter;
    }
    return m_steps;
  }

private:
  // Keeps the candidate if it still fails.
  bool keep(std::vector<step> const& candidate) {
    if (m_trials >= most_trials || !m_fails(candidate)) {
      ++m_trials;
      return false;
    }
    ++m_trials;
    m_steps = candidate;
    return true;
  }

  bool drop_steps() {
    bool dropped = false;
    for (std::size_t count = m_steps.size(); count > 0; count /= 2) {
      for (std::size_t start = 0; start + count <= m_steps.size();) {
        std::vector<step> candidate = m_steps;
        auto const first = candidate.begin() + static_cast<std::ptrdiff_t>(start);
        candidate.erase(first, first + static_cast<std::ptrdiff_t>(count));
        if (keep(candidate)) {
          dropped = true;
        } else {
          ++start;
        }
      }
    }
    return dropped;
  }

  bool shorten_texts() {
    bool shortened = false;
    for (std::size_t index = 0; index < m_steps.size(); ++index) {
      for (std::string step::*text : {&step::first, &step::second}) {
        shortened = shorten_text(index, text) || shortened;
      }
    }
    return shortened;
  }

  bool shorten_text(std::size_t index, std::string step::*text) {
    bool shortened = false;
    for (std::size_t count = (m_steps[index].*text).size(); count > 0; count /= 2) {
      for (std::size_t start = 0; start + count <= (m_steps[index].*text).size();) {
        std::vector<step> candidate = m_steps;
        (candidate[index].*text).erase(start, count);
        if (keep(candidate)) {
          shortened = true;
        } else {
          start += count;
        }
      }
    }
    return shortened;
  }

  bool settle_paths() {
    bool settled = false;
    for (std::size_t index = 0; index < m_steps.size(); ++index) {
      for (std::size_t step::*path : {&step::target, &step::source}) {
        std::vector<step> candidate = m_steps;
        candidate[index].*path = 0;
        settled = (m_steps[index].*path != 0 && keep(candidate)) || settled;
      }
    }
    return settled;
  }

  std::vector<step> m_steps;
  std::function<bool(std::vector<step> const&)> const& m_fails;
  int m_trials = 0;
};

} // namespace

std::vector<step> shrunk(std::vector<step> steps, std::function<bool(std::vector<step> const&)> const& fails) {
  return shrinker(std::move(steps), fails).run();
}
