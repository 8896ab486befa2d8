#include "benchmarks/registry.h"

#include <cstdlib>
#include <filesystem>

namespace bench {

std::vector<workload>& workloads() {
  static std::vector<workload> all;
  return all;
}

std::vector<implementation>& implementations() {
  static std::vector<implementation> all;
  return all;
}

void add_workload(std::string name, std::string title, state_is state) {
  workloads().push_back({std::move(name), std::move(title), state});
}

namespace {

// What an operation reads of the process is the same on every machine: a look-up takes longer in an environment of more
// variables.
void settle() {
  constexpr int usual_size = 30;
  char const* const wanted = std::getenv("TMPDIR");
  std::string const temporary = wanted != nullptr ? wanted : "/tmp";
  ::clearenv();
  ::setenv("TMPDIR", temporary.c_str(), 1);
  for (int i = 1; i != usual_size; ++i) {
    ::setenv(("VARIABLE_" + std::to_string(i)).c_str(), "value", 1);
  }
  std::filesystem::current_path("/usr/share");
}

} // namespace

void add_areas() {
  settle();
  add_path_workloads();
  add_wildcard_workloads();
  add_vocabulary_workloads();
  add_search_workloads();
  add_walk_workloads();
  add_copy_workloads();
  add_stream_workloads();
}

} // namespace bench
