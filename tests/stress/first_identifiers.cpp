#include "tests/stress/first_identifiers.h"

#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "ccl/fio/fio_file_sys.h"
#include "tests/stress/meeting.h"

namespace {

constexpr int calls = 6;

// What a thread's identifiers have beyond the part that stems from the thread: the base and the number of the call.
void ask(stress::meeting& start, std::uint32_t* numbers) {
  auto const thread_part = static_cast<std::uint32_t>(::syscall(SYS_gettid)) * 0xe4c87399;
  start.wait();
  for (int i = 0; i != calls; ++i) {
    std::string const name = FIO_FILE_SYSTEM::get_tmp_path("");
    numbers[i] =
        static_cast<std::uint32_t>(std::stoul(name.substr(name.find_first_of("0123456789ABCDEF")), nullptr, 16));
    numbers[i] -= thread_part;
  }
}

// In the order of the second counter each call is ahead of the one before it by a value of the first counter, which
// gives each odd number once. The lead of the last call does not show.
bool are_numbered_calls(std::vector<std::uint32_t> numbers) {
  std::uint32_t const any = numbers.front();
  std::sort(numbers.begin(), numbers.end(), [any](std::uint32_t left, std::uint32_t right) {
    return static_cast<std::int32_t>(left - any) < static_cast<std::int32_t>(right - any);
  });
  std::set<std::uint32_t> leads;
  for (std::size_t i = 1; i != numbers.size(); ++i) {
    std::uint32_t const lead = numbers[i] - numbers[i - 1];
    if (lead % 2 == 0 || lead >= 2 * numbers.size() || !leads.insert(lead).second) {
      std::fprintf(stderr, "call %zu of %zu is ahead of another by %u\n", i, numbers.size(), lead);
      return false;
    }
  }
  return true;
}

bool ask_in_threads(int count) {
  stress::meeting start(count);
  std::vector<std::uint32_t> numbers(static_cast<std::size_t>(count) * calls);
  std::vector<std::thread> threads;
  for (int i = 0; i != count; ++i) {
    threads.emplace_back(ask, std::ref(start), &numbers[static_cast<std::size_t>(i) * calls]);
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  return are_numbered_calls(numbers);
}

} // namespace

bool stress::first_identifiers_are_right(int threads) {
  pid_t const child = ::fork();
  if (child == 0) {
    // Not `_exit`: a sanitizer has its say at the end of a program.
    std::exit(ask_in_threads(threads) ? 0 : 1); // NOLINT(concurrency-mt-unsafe): its threads have ended
  }
  int status = -1;
  return child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}
