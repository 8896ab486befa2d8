#include "tests/sweeps/allocation_coverage.h"

#include <cxxabi.h>

#include <cstdlib>
#include <fstream>
#include <set>

namespace {

void replace_all(std::string& text, std::string const& from, std::string const& to) {
  for (std::size_t start = 0; (start = text.find(from, start)) != std::string::npos; start += to.size()) {
    text.replace(start, from.size(), to);
  }
}

// The name of a function as a reader of the headers knows it. Both forms of a constructor have the same one.
std::string readable(std::string const& symbol) {
  int status = 0;
  std::unique_ptr<char, decltype(&std::free)> const name(abi::__cxa_demangle(symbol.c_str(), nullptr, nullptr, &status),
                                                         &std::free);
  std::string text = status == 0 ? name.get() : symbol;
  replace_all(text, "[abi:cxx11]", "");
  replace_all(text, "std::__cxx11::", "std::");
  replace_all(text, "std::basic_string<char, std::char_traits<char>, std::allocator<char> >", "std::string");
  for (std::size_t start = 0; (start = text.find(", std::allocator<", start)) != std::string::npos;) {
    text.erase(start, text.find("> >", start) + 2 - start);
  }
  return text;
}

std::set<std::string> exported_functions(char const* symbols) {
  std::set<std::string> functions;
  std::ifstream list(symbols);
  std::string symbol;
  for (char kind = '\0'; list >> kind >> symbol;) {
    if (kind == 'T') {
      functions.insert(readable(symbol));
    }
  }
  return functions;
}

} // namespace

std::vector<std::string> coverage_mistakes(operation_table const& table, char const* symbols) {
  std::vector<std::string> mistakes;
  std::set<std::string> const exported = exported_functions(symbols);
  if (exported.empty()) {
    mistakes.push_back(std::string("no function stands in ") + symbols);
  }
  std::set<std::string> covered;
  for (swept_operation const& row : table.operations()) {
    for (std::string const& name : row.covers) {
      covered.insert(name);
      if (name.rfind(inline_prefix, 0) != 0 && exported.count(name) == 0) {
        mistakes.push_back("in the sweep, but not exported: " + name);
      }
    }
  }
  for (std::string const& name : exported) {
    if (covered.count(name) == 0) {
      mistakes.push_back("exported, but not in the sweep: " + name);
    }
  }
  return mistakes;
}
