#include "tests/model/program.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>
#include <vector>

namespace {

[[noreturn]] void tell_use(char const* program) {
  std::fprintf(stderr, "use: %s [--full] [--jobs N] [--seed N] [--rounds N]\n", program);
  std::exit(2);
}

std::uint64_t read_number(char const* program, char const* text) {
  char* end = nullptr;
  std::uint64_t const number = text != nullptr ? std::strtoull(text, &end, 10) : 0;
  if (text == nullptr || end == text || *end != '\0') {
    tell_use(program);
  }
  return number;
}

struct worker_process {
  pid_t id;
  int figures_descriptor;
};

worker_process start_worker(int number, std::function<figures(int worker)> const& work) {
  int ends[2];
  if (::pipe(ends) != 0) {
    std::perror("pipe");
    std::exit(2);
  }
  std::fflush(nullptr);
  pid_t const id = ::fork();
  if (id < 0) {
    std::perror("fork");
    std::exit(2);
  }
  if (id == 0) {
    figures const counted = work(number);
    std::fflush(nullptr);
    bool const told = ::write(ends[1], &counted, sizeof counted) == static_cast<ssize_t>(sizeof counted);
    ::_exit(told ? 0 : 2);
  }
  ::close(ends[1]);
  return {id, ends[0]};
}

// The worker's figures are few enough to be read in one piece.
std::optional<figures> finish_worker(worker_process const& worker) {
  figures counted{};
  bool const told = ::read(worker.figures_descriptor, &counted, sizeof counted) == static_cast<ssize_t>(sizeof counted);
  ::close(worker.figures_descriptor);
  int status = 0;
  ::waitpid(worker.id, &status, 0);
  return told && status == 0 ? std::optional(counted) : std::nullopt;
}

} // namespace

program_options read_options(int argument_count, char** arguments) {
  program_options options;
  bool jobs_given = false;
  for (int index = 1; index < argument_count; ++index) {
    char const* const name = arguments[index];
    if (std::strcmp(name, "--full") == 0) {
      options.full = true;
      continue;
    }
    // The list of arguments ends in a null pointer, which is no number.
    std::uint64_t const number = read_number(arguments[0], arguments[index + 1]);
    ++index;
    if (std::strcmp(name, "--jobs") == 0) {
      options.jobs = static_cast<int>(std::clamp<std::uint64_t>(number, 1, 64));
      jobs_given = true;
    } else if (std::strcmp(name, "--seed") == 0) {
      options.seed = number;
    } else if (std::strcmp(name, "--rounds") == 0) {
      options.rounds = number;
    } else {
      tell_use(arguments[0]);
    }
  }
  if (options.full && !jobs_given) {
    options.jobs = static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1U, 64U));
  }
  return options;
}

std::optional<figures> run_workers(int jobs, std::function<figures(int worker)> const& work) {
  std::vector<worker_process> workers;
  for (int number = 0; number < jobs; ++number) {
    workers.push_back(start_worker(number, work));
  }
  bool all_told = true;
  figures sum{};
  for (worker_process const& worker : workers) {
    std::optional<figures> const counted = finish_worker(worker);
    all_told = all_told && counted.has_value();
    for (std::size_t index = 0; counted && index < sum.size(); ++index) {
      sum[index] += (*counted)[index];
    }
  }
  return all_told ? std::optional(sum) : std::nullopt;
}

std::string grouped(std::uint64_t number) {
  std::string text = std::to_string(number);
  for (std::size_t digits = 3; digits < text.size(); digits += 4) {
    text.insert(text.size() - digits, 1, ',');
  }
  return text;
}
