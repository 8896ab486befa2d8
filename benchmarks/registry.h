/// @file
/// What is measured: workloads, and for each of them its implementations by the library, by the floor and by peers.
///
/// An operation of an implementation is called for one item of a workload, and hands each of its results to a visitor.
/// To measure it, the visitor keeps the compiler from dropping the result; to check it, the visitor collects the
/// results as text. So it is the measured code that is checked.

#ifndef CCL_BENCHMARKS_REGISTRY_H
#define CCL_BENCHMARKS_REGISTRY_H

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace bench {

/// The implementations that every build has.
inline constexpr char library[] = "fio";      ///< the library
inline constexpr char least_code[] = "floor"; ///< the least code with the results and system calls of the library
inline constexpr char bare_calls[] = "bare";  ///< the system or string calls alone that the floor cannot do without
inline constexpr char libc[] = "libc";        ///< the C library

/// When the state of a workload is made.
enum class state_is { kept, made_for_each_pass };

struct workload {
  std::string name;  ///< AREA.WHAT, and for growth AREA.WHAT/SIZE
  std::string title; ///< what one operation does
  state_is state = state_is::kept;
};

/// All workloads, in the order of the report.
std::vector<workload>& workloads();

/// One call of every operation of a workload, ready to be run as often as wanted.
struct pass {
  std::function<void()> prepare;                     ///< to be called before each run, and not measured
  std::function<void()> run;                         ///< all operations
  std::function<std::vector<std::string>()> results; ///< the same run, with its results
  std::size_t operations = 0;                        ///< in one run
};

struct implementation {
  std::string workload;
  std::string name;
  std::string note; ///< what it does otherwise than the library; empty if it does the same
  std::function<pass()> make;
};

std::vector<implementation>& implementations();

/// Hides the overloads of other namespaces but for those of the result's own, to which nothing converts then.
void show() = delete;

template <typename Result, typename = void>
inline constexpr bool can_be_shown = false;

template <typename Result>
inline constexpr bool can_be_shown<Result, std::void_t<decltype(show(std::declval<Result const&>()))>> = true;

/// A result as text: strings and numbers, and what the namespace of its type has a `show` for. Other results of peers
/// are never compared.
template <typename Result>
std::string text_of(Result const& result) {
  if constexpr (std::is_convertible_v<Result const&, std::string_view>) {
    return std::string(std::string_view(result));
  } else if constexpr (std::is_arithmetic_v<Result>) {
    return std::to_string(result);
  } else if constexpr (can_be_shown<Result>) {
    return show(result);
  } else {
    return {};
  }
}

/// The visitor of measured runs.
struct keep {
  template <typename Result>
  void operator()(Result const& result) const {
    asm volatile("" : : "r"(&result) : "memory");
  }

  /// Results that take work of their own are not made.
  template <typename Make>
  void later(Make const& /*make*/) const {}
};

/// The visitor of checked runs.
struct collect {
  std::vector<std::string>& results;

  template <typename Result>
  void operator()(Result const& result) const {
    results.push_back(text_of(result));
  }

  template <typename Make>
  void later(Make const& make) const {
    results.push_back(text_of(make()));
  }
};

template <typename State, typename Operation, typename Visitor>
void run_all(State& state, Operation const& operation, Visitor const& visit) {
  std::size_t const count = state.size();
  for (std::size_t item = 0; item != count; ++item) {
    operation(state, item, visit);
  }
}

/// The number of operations in a run: what the state says of it, or else its number of items.
template <typename State>
auto operations_of(State const& state, int /*preferred*/) -> decltype(state.operations()) {
  return state.operations();
}

template <typename State>
std::size_t operations_of(State const& state, long /*otherwise*/) {
  return state.size();
}

void add_workload(std::string name, std::string title, state_is state = state_is::kept);

/// The state of a workload that is one long operation.
struct single {
  std::size_t entries = 1; ///< what its cost is divided by

  std::size_t size() const { return 1; }
  std::size_t operations() const { return entries; }
};

/// Adds an implementation. `make_state` gives a state with a `size()`, the number of items, and `operation(state, item,
/// visit)` works on one of them.
template <typename MakeState, typename Operation>
void add(std::string workload, std::string name, MakeState make_state, Operation operation, std::string note = {}) {
  state_is life = state_is::kept;
  for (auto const& known : workloads()) {
    life = known.name == workload ? known.state : life;
  }
  auto make = [life, make_state, operation] {
    auto state = std::make_shared<std::optional<std::decay_t<decltype(make_state())>>>();
    auto const prepare = [life, make_state, state] {
      if (!state->has_value() || life == state_is::made_for_each_pass) {
        state->reset();
        state->emplace(make_state());
      }
    };
    prepare();
    return pass{prepare, [state, operation] { run_all(**state, operation, keep()); },
                [state, operation] {
                  std::vector<std::string> results;
                  run_all(**state, operation, collect{results});
                  return results;
                },
                operations_of(**state, 0)};
  };
  implementations().push_back({std::move(workload), std::move(name), std::move(note), std::move(make)});
}

/// @name The areas, each with the library, the floor and the bare calls
/// @{
void add_path_workloads();
void add_wildcard_workloads();
void add_vocabulary_workloads();
void add_search_workloads();
void add_walk_workloads();
void add_copy_workloads();
void add_stream_workloads();
/// @}

/// All of the above, in the order of the report. The process gets the current directory and the environment on which the
/// figures rest.
void add_areas();

} // namespace bench

#endif
