/// @file
/// What the programs of this folder have in common: their options, their worker processes and their summary line.

#ifndef CCL_TESTS_MODEL_PROGRAM_H
#define CCL_TESTS_MODEL_PROGRAM_H

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

struct program_options {
  bool full = false;
  int jobs = 1; ///< `--full` alone takes one for each processor
  std::uint64_t seed = 1;
  std::optional<std::uint64_t> rounds;
};

/// Reads `--full`, `--jobs N`, `--seed N` and `--rounds N`. Anything else ends the program with a line about its use.
program_options read_options(int argument_count, char** arguments);

/// What a worker counts; each program gives its figures their meaning.
using figures = std::array<std::uint64_t, 4>;

/// Runs `work` with the numbers from 0 up to `jobs`, each in a process of its own, and adds up their figures. A process
/// and no thread, because the environment of the library is the process's. Null if a worker died.
std::optional<figures> run_workers(int jobs, std::function<figures(int worker)> const& work);

/// The number in groups of three digits.
std::string grouped(std::uint64_t number);

#endif
