// Runs every implementation of every workload once, and compares the results of the library with those of the floor,
// result by result. An argument names a file of texts to use in the place of the generated ones, one a line.

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "benchmarks/registry.h"
#include "benchmarks/texts.h"

namespace {

bench::texts read_texts(char const* file) {
  bench::texts texts;
  std::ifstream stream(file);
  for (std::string line; std::getline(stream, line);) {
    texts.push_back(line);
  }
  return texts;
}

std::vector<std::string> results_of(bench::implementation const& what) {
  bench::pass const pass = what.make();
  pass.prepare();
  pass.run();
  pass.prepare();
  return pass.results();
}

// The results of an implementation of this name, or none.
std::vector<std::string> results_of(std::string const& workload, char const* name) {
  for (bench::implementation const& what : bench::implementations()) {
    if (what.workload == workload && what.name == name) {
      return results_of(what);
    }
  }
  return {};
}

// The number of differences. The first is printed.
std::size_t count_differences(std::string const& workload, std::vector<std::string> const& library,
                              std::vector<std::string> const& floor) {
  if (library.empty() || library.size() != floor.size()) {
    std::printf("%s: %zu results of the library, %zu of the floor\n", workload.c_str(), library.size(), floor.size());
    return 1;
  }
  std::size_t differences = 0;
  for (std::size_t i = 0; i != library.size(); ++i) {
    if (library[i] != floor[i] && differences++ == 0) {
      std::printf("%s, result %zu:\n  library: %s\n  floor:   %s\n", workload.c_str(), i, library[i].c_str(),
                  floor[i].c_str());
    }
  }
  return differences;
}

bool is_compared(bench::implementation const& what) {
  return what.name == bench::library || what.name == bench::least_code;
}

} // namespace

int main(int count, char** values) {
  constexpr std::size_t generated = 2000;
  bench::texts texts = count > 1 ? read_texts(values[1]) : bench::generated_texts(generated);
  bench::texts const odd = bench::odd_texts();
  texts.insert(texts.end(), odd.begin(), odd.end());
  bench::use_texts(texts);
  bench::add_areas();
  std::size_t results = 0;
  std::size_t differences = 0;
  for (bench::workload const& workload : bench::workloads()) {
    std::vector<std::string> const library = results_of(workload.name, bench::library);
    differences += count_differences(workload.name, library, results_of(workload.name, bench::least_code));
    results += library.size();
  }
  for (bench::implementation const& what : bench::implementations()) {
    if (!is_compared(what)) {
      results_of(what);
    }
  }
  std::printf("benchmarks: %zu workloads, %zu results, %zu differences\n", bench::workloads().size(), results,
              differences);
  return differences == 0 ? 0 : 1;
}
