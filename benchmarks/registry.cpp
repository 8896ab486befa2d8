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

void add_areas() {
  std::filesystem::current_path("/usr/share");
  ::unsetenv("fio_old_simplify");
  add_path_workloads();
  add_wildcard_workloads();
  add_vocabulary_workloads();
  add_search_workloads();
  add_walk_workloads();
  add_copy_workloads();
  add_stream_workloads();
}

} // namespace bench
