// The command looks for names itself, place by place. It finds what the library finds, in the folder of the design.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ccl/fio/fio_find.h"
#include "tools/ccl-fio/search.h"

namespace {

std::vector<std::string> const search_paths = {
    "rtl;rtl/core;lib", "lib;rtl",       ".",         "./rtl/../lib;rtl",        "rtl\\core;lib\\memory",
    "nowhere;rtl",      "README.md;lib", " rtl ;lib", std::string(1100, 'x'),    "/;rtl",
    "rtl/core/",        "sim//;rtl",     "..",        "../design/rtl;../design", "",
};

std::vector<std::string> const names = {
    "top.v",
    "alu.v",
    "nowhere.v",
    "core/alu.v",
    "core//alu.v",
    "core\\alu.v",
    "./top.v",
    "../lib/alu.v",
    "../../lib/alu.v",
    "core/../top.v",
    "/abs/top.v",
    "/alu.v",
    "rtl",
    "core",
    "include/defs.vh",
    "design/README.md",
    "memory/./rom.v",
    ".",
    "..",
    std::string(1020, 'y') + "/top.v",
    std::string(1100, 'y'),
    "top.v.",
    "a/b/c/../../../top.v",
};

TEST(search, finds_what_the_library_finds) {
  for (std::string const& search_path : search_paths) {
    for (bool const recursive : {false, true}) {
      if (recursive && (search_path == ".." || search_path == "/;rtl")) {
        continue; // these are large
      }
      for (char const* const absolute_to : {"", "/proj"}) {
        FIO_FIND find(search_path, recursive);
        find.set_directory_for_results_to_become_absolute_to(absolute_to);
        tool::name_search const search(find);
        for (std::string const& name : names) {
          // Without a file name the library finds the directories themselves.
          std::string const expected =
              tool::is_findable(name) ? find.find_first_relative_path(FIO_PATH(name)).fullpath() : std::string();
          std::string found = search.first(name);
          find.make_path_absolute_if_relative(&found);
          EXPECT_EQ(found, expected) << '"' << name << "\" over \"" << search_path << '"';
        }
      }
    }
  }
}

} // namespace
