// Runs every operation of the library with memory that runs out, at each of its allocations in turn.

#include <cxxabi.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iterator>
#include <memory>
#include <new>
#include <string>
#include <typeinfo>
#include <vector>

#include "tests/sweeps/allocation_counter.h"
#include "tests/sweeps/allocation_coverage.h"
#include "tests/sweeps/allocation_leftovers.h"
#include "tests/sweeps/allocation_operation.h"
#include "tests/sweeps/allocation_workspace.h"

namespace {

constexpr char out_of_memory[] = "std::bad_alloc";

// How a child tells that an exception met a function that must not throw.
constexpr int exit_by_termination = 7;

// More allocations than any operation here has.
constexpr long no_end = 2000;

// What is left behind by promise when memory runs out. Each operation says how often that happens to it; whatever else
// stays is a leak.
struct known_leftover {
  char const* cause;
  char const* reason;
  int leftovers::*open;
  int swept_operation::*expected;
};

constexpr known_leftover known_leftovers[] = {
    {"FIO_FILE_SYSTEM::findfirst", "the directory is opened before there is memory for the handle, and stays open",
     &leftovers::streams, &swept_operation::streams_left},
    {"fio_get_unc_full_path", "the record is released behind the copy of its text alone", &leftovers::records,
     &swept_operation::records_left},
};
// Beside these, `boost::filesystem::path::compare` promises not to throw and asks for memory, for a component of more than
// 15 characters: the program ends if there is none.
constexpr std::size_t leftover_kinds = std::size(known_leftovers);

// What is being run, for the messages; also for the one about an exception that nobody caught.
struct {
  char const* name = "";
  failing_mode mode = failing_mode::once;
  long number = 0;
} running;

struct {
  long failed[2] = {}; // attempts in which an allocation failed once, and for ever
  long wrong = 0;
} total;

void complain(char const* what, std::string const& got = {}, std::string const& expected = {}) {
  ++total.wrong;
  std::printf("%s, allocation %ld fails %s: %s\n", running.name, running.number,
              running.mode == failing_mode::once ? "once" : "for ever", what);
  if (!got.empty()) {
    std::printf("  is: %.600s\n", got.c_str());
  }
  if (!expected.empty()) {
    std::printf("  should be: %.600s\n", expected.c_str());
  }
}

[[noreturn]] void report_termination() {
  complain("the program was terminated by an exception");
  std::fflush(stdout);
  std::abort();
}

std::string name_of(std::type_info const& type) {
  int status = 0;
  std::unique_ptr<char, decltype(&std::free)> const name(abi::__cxa_demangle(type.name(), nullptr, nullptr, &status),
                                                         &std::free);
  return status == 0 ? name.get() : type.name();
}

// What one call came to.
struct outcome {
  std::string answer; // or the type of the exception
  std::string state;
  long failed = 0;
  failure_kind first_failure = failure_kind::none;
  long asked_for = 0;
};

outcome call(trial& subject, long number, failing_mode mode) {
  outcome result;
  allocation_injection injection(number, mode);
  try {
    subject.run();
    injection.stop();
    result.answer = subject.answer();
  } catch (std::exception const& exception) {
    injection.stop();
    result.answer = name_of(typeid(exception));
  } catch (...) {
    injection.stop();
    result.answer = "an unknown exception";
  }
  result.failed = injection.failed();
  result.first_failure = injection.first_failure();
  result.asked_for = injection.asked_for();
  result.state = subject.state();
  return result;
}

outcome call_with_all_memory(trial& subject) { return call(subject, 0, failing_mode::once); }

// The sweep of one operation.
class sweep {
public:
  explicit sweep(swept_operation const& swept) : m_operation(swept), m_refusal_seen(swept.refusals.size(), false) {
    std::unique_ptr<trial> const subject = m_operation.prepare();
    m_before = subject->state();
    m_clean = call_with_all_memory(*subject);
  }

  // Whether the operation comes to the same each time, and asks for memory or does not, as it says.
  bool is_sound() const {
    std::unique_ptr<trial> const subject = m_operation.prepare();
    outcome const again = call_with_all_memory(*subject);
    expect_clean(again, "a run on another object comes to something else");
    if (m_operation.allocates != (again.asked_for != 0)) {
      complain(m_operation.allocates ? "it never asks for memory" : "it asks for memory");
      return false;
    }
    return true;
  }

  // Fails each allocation in turn, and looks at what is left of each attempt.
  void run(failing_mode mode) {
    running.mode = mode;
    std::fill_n(m_left, leftover_kinds, 0);
    bool enough = false;
    int const descriptors = open_descriptors();
    for (running.number = 1; !enough && running.number != no_end; ++running.number) {
      if (m_operation.may_end_program && ends_program(mode)) {
        ++m_endings;
        continue;
      }
      long const blocks = live_blocks();
      enough = !attempt(mode);
      note_leftovers();
      if (live_blocks() != blocks) {
        complain("blocks of memory are left", std::to_string(live_blocks() - blocks), "0");
      }
      if (open_descriptors() != descriptors) {
        complain("descriptors are left");
      }
    }
    if (!enough) {
      complain("it does not end");
    }
    is_sound(); // behind all the failures as before them
    for (std::size_t kind = 0; kind != leftover_kinds; ++kind) {
      int const expected = m_operation.*known_leftovers[kind].expected;
      if (m_left[kind] != expected) {
        complain(known_leftovers[kind].cause, "left something open " + std::to_string(m_left[kind]) + " times",
                 std::to_string(expected) + " times: " + known_leftovers[kind].reason);
      }
    }
  }

  // Looks for what the contract says and never came about.
  void expect_whole_contract() const {
    if (m_operation.may_end_program && m_endings == 0) {
      complain("it does not end the program any more");
    }
    for (std::size_t i = 0; i != m_refusal_seen.size(); ++i) {
      if (!m_refusal_seen[i]) {
        complain("never answered", {}, m_operation.refusals[i]);
      }
    }
  }

private:
  // One call with a failure, and all that is expected behind it. False if there was memory for all.
  bool attempt(failing_mode mode) {
    bool any_failed = false;
    {
      std::unique_ptr<trial> const subject = m_operation.prepare();
      outcome const result = call(*subject, running.number, mode);
      any_failed = result.failed != 0;
      check(result, mode);
      if (any_failed && !is_clean(result)) {
        outcome const next = call_with_all_memory(*subject);
        if (m_operation.is_repeatable) {
          expect_clean(next, "the next call comes to something else");
        } else if (next.answer == out_of_memory) {
          complain("the next call fails as well");
        }
      }
    }
    total.failed[mode == failing_mode::once ? 0 : 1] += any_failed ? 1 : 0;
    return any_failed;
  }

  // Whether the call ends a program. It is tried in a child.
  bool ends_program(failing_mode mode) const {
    pid_t const child = ::fork();
    if (child == 0) {
      std::set_terminate([] { ::_exit(exit_by_termination); });
      std::unique_ptr<trial> const subject = m_operation.prepare();
      call(*subject, running.number, mode);
      ::_exit(EXIT_SUCCESS);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == exit_by_termination;
  }

  void check(outcome const& result, failing_mode mode) {
    bool const below = result.first_failure == failure_kind::answered;
    if (result.failed == 0 || (below && is_clean(result))) {
      expect_clean(result, "it comes to something else");
      return;
    }
    bool const may_throw = !below || mode == failing_mode::for_ever;
    bool const may_refuse = below || m_operation.exceptions_are_hidden;
    if (!(may_throw && result.answer == out_of_memory) && !(may_refuse && is_refusal(result.answer))) {
      complain("a wrong answer", result.answer, may_throw ? out_of_memory : "an answer of its contract");
    }
    if (!m_operation.allows_state(result.state, m_before, m_clean.state)) {
      complain("a state that it may not leave", result.state,
               m_before + "\n  or a stated one on the way to\n" + m_clean.state);
    }
  }

  bool is_refusal(std::string const& answer) {
    auto const found = std::find(m_operation.refusals.begin(), m_operation.refusals.end(), answer);
    if (found == m_operation.refusals.end()) {
      return false;
    }
    m_refusal_seen[static_cast<std::size_t>(found - m_operation.refusals.begin())] = true;
    return true;
  }

  bool is_clean(outcome const& result) const {
    return result.answer == m_clean.answer && result.state == m_clean.state;
  }

  void expect_clean(outcome const& result, char const* what) const {
    if (!is_clean(result)) {
      complain(what, result.answer + '\n' + result.state, m_clean.answer + '\n' + m_clean.state);
    }
  }

  // Counts what is open behind an attempt, and closes it.
  void note_leftovers() {
    leftovers const open = open_leftovers();
    for (std::size_t kind = 0; kind != leftover_kinds; ++kind) {
      m_left[kind] += open.*known_leftovers[kind].open;
    }
    close_leftovers();
  }

  swept_operation const& m_operation;
  std::string m_before;
  outcome m_clean;
  int m_left[leftover_kinds] = {};
  int m_endings = 0;
  std::vector<bool> m_refusal_seen;
};

void sweep_operation(swept_operation const& swept) {
  running = {swept.covers.front().c_str(), failing_mode::once, 0};
  sweep sweep_of_it(swept);
  if (!sweep_of_it.is_sound() || !swept.allocates) {
    return;
  }
  sweep_of_it.run(failing_mode::once);
  sweep_of_it.run(failing_mode::for_ever);
  sweep_of_it.expect_whole_contract();
}

} // namespace

int main() {
  static char output_buffer[BUFSIZ];
  std::setvbuf(stdout, output_buffer, _IOLBF, sizeof output_buffer);
  std::set_terminate(report_termination);
  ::unsetenv("CCL_DEBUG_MESSAGES");
  ::unsetenv("fio_old_simplify");

  workspace const own_folder;
  operation_table const table = all_operations();
  for (std::string const& mistake : coverage_mistakes(table, FIO_SYMBOLS)) {
    ++total.wrong;
    std::printf("%s\n", mistake.c_str());
  }
  for (swept_operation const& row : table.operations()) {
    sweep_operation(row);
  }
  std::printf(
      "allocation sweep: %zu operations, %ld failed allocations, %ld of them once and %ld for ever, %ld wrong\n",
      table.operations().size(), total.failed[0] + total.failed[1], total.failed[0], total.failed[1], total.wrong);
  return total.wrong == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
