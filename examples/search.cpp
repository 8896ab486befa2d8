// Names over a search path, as a tool resolves its sources. An earlier directory shadows a later one.

#include <ccl/fio/fio_find.h>

#include <iostream>
#include <list>
#include <string>

int main() {
  FIO_FIND const find("rtl;rtl/core;lib", /*recursive=*/false);

  // An empty text is "not found". `if (found)` would be true: it tests a pointer.
  for (char const* const name : {"top.v", "alu.v", "nowhere.v"}) {
    FIO_PATH const found = find.find_first(name);
    std::cout << name << ": " << (found.fullpath().empty() ? "not found" : found.fullpath()) << '\n';
  }

  // The directory of a path counts here; `find_first` ignores it.
  std::cout << find.find_first_relative_path("include/defs.vh").fullpath() << '\n';

  // All places, with each of several extensions.
  std::list<FIO_PATH> places;
  find.find_all("alu", {"v", "sv"}, &places, /*append=*/false, /*try_lower_case=*/false);
  for (FIO_PATH const& place : places) {
    std::cout << "alu: " << place.fullpath() << '\n';
  }

  // With the subdirectories of all directories behind them, and results that are absolute.
  FIO_FIND whole("rtl;lib", /*recursive=*/true);
  whole.set_directory_for_results_to_become_absolute_to("/proj");
  std::cout << whole.find_first("fifo.v").fullpath() << '\n';
}
