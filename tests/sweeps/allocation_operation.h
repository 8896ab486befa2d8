/// @file
/// One operation of the library as the sweep sees it: what it covers, how it is prepared and called, and what its
/// contract says of memory that runs out.

#ifndef CCL_TESTS_SWEEPS_ALLOCATION_OPERATION_H
#define CCL_TESTS_SWEEPS_ALLOCATION_OPERATION_H

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "tests/sweeps/allocation_text.h"

/// One object that an operation is called on, with the arguments that it is given.
class trial {
public:
  virtual ~trial() = default;

  /// Calls the operation and keeps what it answers.
  virtual void run() = 0;

  /// The answer of the last call, and what the call left behind, as texts.
  virtual std::string answer() const = 0;
  virtual std::string state() const = 0;
};

/// Whether a failed operation may leave this state behind, where `before` stood before it and `clean` is what it leaves
/// when nothing fails.
using state_rule = std::function<bool(std::string const& state, std::string const& before, std::string const& clean)>;

/// An operation and its contract.
class swept_operation {
public:
  swept_operation(std::vector<std::string> covered, std::function<std::unique_ptr<trial>()> make_trial)
      : covers(std::move(covered)), prepare(std::move(make_trial)) {}

  /// Says which states a failure may leave, if it is not the one before the call.
  swept_operation& may_leave(state_rule rule) {
    allows_state = rule;
    return *this;
  }

  /// Says what the operation answers instead if a layer below is told that there is no memory: the C library for a
  /// stream, or Boost.Filesystem for what it walks. Each must come about. The right answer stands among them where it
  /// is given for nothing done.
  swept_operation& answers_without_memory_below(std::vector<std::string> answers) {
    refusals = std::move(answers);
    return *this;
  }

  /// Says that the layer below turns what `new` throws into an answer of its own.
  swept_operation& hides_exceptions() {
    exceptions_are_hidden = true;
    return *this;
  }

  /// Says that a call takes something from its object that a failed call has taken as well, so that the next call does
  /// not come to the same.
  swept_operation& goes_on_after_failure() {
    is_repeatable = false;
    return *this;
  }

  /// Says how many of the allocations leave a stream, or a record, if they are the first to fail.
  swept_operation& leaves_streams(int count) {
    streams_left = count;
    return *this;
  }
  swept_operation& leaves_records(int count) {
    records_left = count;
    return *this;
  }

  /// Says that some of the allocations end the program if they fail, for want of a better answer of Boost.Filesystem.
  swept_operation& ends_program() {
    may_end_program = true;
    return *this;
  }

  std::vector<std::string> covers;
  std::function<std::unique_ptr<trial>()> prepare;
  state_rule allows_state = [](std::string const& state, std::string const& before, std::string const& /*clean*/) {
    return state == before;
  };
  std::vector<std::string> refusals;
  bool exceptions_are_hidden = false;
  bool is_repeatable = true;
  bool may_end_program = false;
  bool allocates = true;
  int streams_left = 0;
  int records_left = 0;
};

/// What an operation without an answer answers, and what one without an object works on.
struct nothing {};
inline std::string text_of(nothing /*no_value*/) { return "nothing"; }

template <typename Subject, typename Operation>
class trial_of final : public trial {
public:
  template <typename Prepare>
  trial_of(Prepare const& make_subject, Operation operation) : m_subject(make_subject()), m_operation(operation) {}

  void run() override {
    m_answer.reset();
    if constexpr (std::is_void_v<std::invoke_result_t<Operation&, Subject&>>) {
      m_operation(m_subject);
      m_answer.emplace();
    } else {
      m_answer.emplace(m_operation(m_subject));
    }
  }

  std::string answer() const override { return text_of(*m_answer); }
  std::string state() const override { return text_of(m_subject); }

private:
  using result = std::invoke_result_t<Operation&, Subject&>;

  Subject m_subject;
  Operation m_operation;
  std::optional<std::conditional_t<std::is_void_v<result>, nothing, result>> m_answer;
};

/// All operations.
class operation_table {
public:
  /// An operation that may run out of memory. `prepare()` answers the subject, and `call(subject)` calls the operation;
  /// both are read as texts by `text_of`. An answer must not be a reference, which would be copied.
  template <typename Prepare, typename Operation>
  swept_operation& add(std::vector<std::string> covers, Prepare prepare, Operation call) {
    using subject = decltype(prepare());
    return m_operations.emplace_back(std::move(covers), [prepare, call]() -> std::unique_ptr<trial> {
      return std::make_unique<trial_of<subject, Operation>>(prepare, call);
    });
  }

  /// Operations that never ask for memory.
  template <typename Prepare, typename Operation>
  void add_quiet(std::vector<std::string> covers, Prepare prepare, Operation call) {
    add(std::move(covers), prepare, call).allocates = false;
  }

  std::deque<swept_operation> const& operations() const { return m_operations; }

private:
  std::deque<swept_operation> m_operations;
};

/// @name The operations, by area
/// @{
void add_path_operations(operation_table& table);
void add_file_operations(operation_table& table);
void add_error_operations(operation_table& table);
void add_search_operations(operation_table& table);
void add_type_operations(operation_table& table);
/// @}

/// The operations of all areas.
inline operation_table all_operations() {
  operation_table table;
  add_path_operations(table);
  add_file_operations(table);
  add_error_operations(table);
  add_search_operations(table);
  add_type_operations(table);
  return table;
}

#endif
