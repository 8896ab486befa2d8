// Wildcards: patterns as searches and dialogs use them, and two that bring simple matchers to their knees.

#include <fnmatch.h>

#include <cstring>
#include <string>
#include <vector>

#include "benchmarks/areas/patterns.h"
#include "benchmarks/floors/wildcard.h"
#include "benchmarks/registry.h"
#include "benchmarks/texts.h"
#include "ccl/fio/fio_file_sys.h"

namespace bench {

std::vector<pattern_case> const& pattern_cases() {
  static std::vector<pattern_case> const cases = {
      {"wildcard.all", "*", "*", names},
      {"wildcard.suffix", "*.v", "*.v", names},
      {"wildcard.prefix", "uart*", "uart*", names},
      {"wildcard.middle", "*_core*", "*_core*", names},
      {"wildcard.walk", "dir/*.v, as a walk compares it", "/projects/serial/rtl/core/*.v",
       [] {
         texts paths;
         for (std::string const& name : names()) {
           paths.push_back("/projects/serial/rtl/core/" + name);
         }
         return paths;
       }},
      {"wildcard.equal_run", "*aaa...b on 500 equal letters", '*' + std::string(100, 'a') + 'b',
       [] { return texts(20, std::string(500, 'a')); }},
      {"wildcard.explosive", "a*a*a*a*a*b on 24 equal letters", "a*a*a*a*a*b",
       [] { return texts(20, std::string(24, 'a')); }},
  };
  return cases;
}

void add_wildcard_workloads() {
  for (pattern_case const& what : pattern_cases()) {
    add_workload(what.workload, what.title);
    add(what.workload, library, what.names, [&what](texts const& from, std::size_t item, auto visit) {
      visit(FIO_FILE_SYSTEM::same_file(from[item].c_str(), what.pattern.c_str()));
    });
    add(what.workload, least_code, what.names, [&what](texts const& from, std::size_t item, auto visit) {
      visit(floors::matches(from[item].c_str(), what.pattern.c_str()));
    });
    add(what.workload, libc, what.names, [&what](texts const& from, std::size_t item, auto visit) {
      visit(::fnmatch(what.pattern.c_str(), from[item].c_str(), 0) == 0);
    });
  }
  add(
      "wildcard.suffix", bare_calls, names,
      [](texts const& from, std::size_t item, auto visit) {
        char const* const name = from[item].c_str();
        std::size_t const size = std::strlen(name);
        visit(size >= 2 && std::memcmp(name + size - 2, ".v", 2) == 0);
      },
      "compares the end alone");
}

} // namespace bench
