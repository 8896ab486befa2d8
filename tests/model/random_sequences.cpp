/// @file
/// Random sequences of operations on a few paths, with texts at every limit; after each step everything that can be
/// seen of the paths, and every debug message, must be as the model has it.
///
/// A round is one sequence, and is the same for the same seed and number. A failing sequence is shrunk and printed.

#include <cstdio>
#include <vector>

#include "tests/model/duel.h"
#include "tests/model/program.h"
#include "tests/model/random_texts.h"
#include "tests/model/shrinking.h"

namespace {

constexpr std::uint64_t quick_rounds = 5000;
constexpr std::uint64_t full_rounds = 300000;
constexpr std::uint64_t most_differences = 5; // each of them is shrunk, which takes its time

// Rounds of different seeds have nothing in common.
std::uint64_t seed_of_round(std::uint64_t seed, std::uint64_t round) { return seed * 1000000007U + round; }

void tell_shrunk(std::uint64_t round, std::vector<step> const& steps) {
  std::vector<step> const fewer =
      shrunk(steps, [](std::vector<step> const& candidate) { return play(candidate, looks::always).has_value(); });
  auto const found = play(fewer, looks::always);
  std::fprintf(stderr, "difference in round %llu after\n%s", static_cast<unsigned long long>(round),
               found ? text_of(fewer, *found).c_str() : lines_of(fewer).c_str());
}

// Its figures: rounds, steps, comparisons, differences.
figures play_rounds(program_options const& options, std::uint64_t rounds, std::uint64_t worker) {
  figures counted{};
  auto& [played, steps_played, comparisons, differences] = counted;
  for (std::uint64_t round = worker; round < rounds; round += static_cast<std::uint64_t>(options.jobs)) {
    std::vector<step> const steps = step_source(seed_of_round(options.seed, round)).sequence();
    ++played;
    steps_played += steps.size();
    if (play(steps, looks::always)) {
      comparisons = duel::comparisons();
      tell_shrunk(round, steps);
      if (++differences == most_differences) {
        return counted;
      }
    }
  }
  comparisons = duel::comparisons();
  return counted;
}

} // namespace

int main(int argument_count, char** arguments) {
  program_options const options = read_options(argument_count, arguments);
  std::uint64_t const rounds = options.rounds.value_or(options.full ? full_rounds : quick_rounds);
  auto const counted = run_workers(
      options.jobs, [&](int worker) { return play_rounds(options, rounds, static_cast<std::uint64_t>(worker)); });
  if (!counted) {
    std::fprintf(stderr, "a worker process did not come to its end\n");
    return 1;
  }
  auto const [played, steps, comparisons, differences] = *counted;
  std::printf("random sequences: seed %llu, %s sequences of %s steps, %s comparisons, %s differences\n",
              static_cast<unsigned long long>(options.seed), grouped(played).c_str(), grouped(steps).c_str(),
              grouped(comparisons).c_str(), grouped(differences).c_str());
  return differences == 0 ? 0 : 1;
}
