// Searches over a search path of fifty directories.

#include <sys/stat.h>

#include <memory>
#include <string>
#include <vector>

#include "benchmarks/areas/paths.h"
#include "benchmarks/floors/search.h"
#include "benchmarks/registry.h"
#include "benchmarks/trees.h"
#include "ccl/fio/fio_find.h"

namespace bench {

namespace {

// A search, and the names to look for.
template <typename Search>
struct searches {
  std::shared_ptr<Search const> search;
  std::vector<std::string> const& names;

  std::size_t size() const { return names.size(); }
};

void add_searches(char const* workload, std::vector<std::string> const& (*names)()) {
  auto const find_first = [](auto const& state, std::size_t item, auto visit) {
    visit(state.search->find_first(state.names[item]));
  };
  add(
      workload, library,
      [names] {
        return searches<FIO_FIND>{std::make_shared<FIO_FIND const>(searched_tree().search_path(';'), false), names()};
      },
      find_first);
  add(
      workload, least_code,
      [names] {
        return searches<floors::search>{std::make_shared<floors::search const>(searched_tree().directories), names()};
      },
      find_first);
  add(
      workload, bare_calls,
      [names] {
        // The texts that are asked for.
        std::vector<std::vector<std::string>> questions;
        for (std::string const& name : names()) {
          questions.emplace_back();
          for (std::string const& directory : searched_tree().directories) {
            questions.back().push_back(directory);
            questions.back().push_back(directory + name);
            if (struct stat status; ::stat(questions.back().back().c_str(), &status) == 0) {
              break;
            }
          }
        }
        return questions;
      },
      [](std::vector<std::vector<std::string>> const& questions, std::size_t item, auto visit) {
        struct stat status;
        for (std::string const& question : questions[item]) {
          visit(::stat(question.c_str(), &status));
        }
      },
      "makes the same tests on strings that exist");
  add(
      workload, "one question",
      [names] {
        return searches<std::vector<std::string>>{
            std::make_shared<std::vector<std::string> const>(searched_tree().directories), names()};
      },
      [](auto const& state, std::size_t item, auto visit) {
        struct stat status;
        std::string candidate;
        for (std::string const& directory : *state.search) {
          candidate.assign(directory).append(state.names[item]);
          if (::stat(candidate.c_str(), &status) == 0) {
            visit(floors::path(candidate));
            break;
          }
        }
      },
      "tests the file alone, not its directory");
  add(
      workload, "find",
      [names] {
        return searches<FIO_FIND>{std::make_shared<FIO_FIND const>(searched_tree().search_path(';'), false), names()};
      },
      [](auto const& state, std::size_t item, auto visit) { visit(state.search->find(state.names[item])); },
      "the library's search for a string, which tests the file alone");
}

} // namespace

void add_search_workloads() {
  add_workload("search.hit", "find_first over 50 directories, found in one of them");
  add_workload("search.miss", "find_first over 50 directories, found in none");
  add_searches("search.hit", []() -> std::vector<std::string> const& { return searched_tree().present; });
  add_searches("search.miss", []() -> std::vector<std::string> const& { return searched_tree().missing; });
}

} // namespace bench
