// What is an include directive, by the lexical rules of Verilog and SystemVerilog.

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tools/ccl-fio/include_scanner.h"

namespace {

struct scanned_source {
  char const* rule;
  std::string_view source;
  std::vector<std::string> found; ///< "line:name" of each
};

scanned_source const sources[] = {
    {"a name stands between quotes or angle brackets", "`include \"a.vh\"\n`include <b.vh>", {"1:a.vh", "2:b.vh"}},
    {"white space is free", " \f`include\t\v\"a b.vh\"`include<c.vh>", {"1:a b.vh", "1:c.vh"}},
    {"the name may stand on a later line", "\n`include\r\n\n \"a.vh\" `include \"b.vh\"", {"2:a.vh", "4:b.vh"}},
    {"a comment may stand before the name",
     "`include /* \"x.vh\" */ \"a.vh\"\n`include // \"x.vh\"\n\"b.vh\"\n`include/**/<c.vh>",
     {"1:a.vh", "2:b.vh", "4:c.vh"}},
    {"a continued line may stand before the name",
     "`include \\\n\"a.vh\"\n`include\\\r\n <b.vh>",
     {"1:a.vh", "3:b.vh"}},
    {"a name ends on its line",
     "`include \"x.vh\n`include \"a.vh\"\n`include <y\n`include <b.vh>",
     {"2:a.vh", "4:b.vh"}},
    {"a name may be the end of the source", "`include \"a.vh\"", {"1:a.vh"}},
    {"a directive without a name is none", "`include x\n`include 1\n`include \"", {}},
    {"a macro may give the name", "`include `A\n`include `B(1, 2)\n", {"1:`A macro", "2:`B macro"}},
    {"a longer word is another directive", "`includes \"x.vh\"\n`include_once \"x.vh\" include \"x.vh\"", {}},
    {"a line comment holds no directive", "// `include \"x.vh\" \\\n`include \"a.vh\"", {"2:a.vh"}},
    {"a block comment holds no directive",
     "/* `include \"x.vh\"\n// */`include \"a.vh\" /* /* */ `include \"b.vh\"",
     {"2:a.vh", "2:b.vh"}},
    {"a block comment does not end where it begins", "/*/ `include \"x.vh\" */ `include \"a.vh\"", {"1:a.vh"}},
    {"a comment without an end goes to the end", "/* `include \"x.vh\"", {}},
    {"a string holds neither directives nor comments", "\"`include <x.vh> /*\" `include \"a.vh\"", {"1:a.vh"}},
    {"an escaped quote ends no string", "\"\\\" `include <x.vh>\" \"\\\\\" `include <a.vh>", {"1:a.vh"}},
    {"a string ends with its line", "\"open\n`include \"a.vh\"", {"2:a.vh"}},
    {"a string goes on behind a continued line",
     "\"open \\\n`include <x.vh>\" \"open \\\r\n`include <y.vh>\"`include <a.vh>",
     {"3:a.vh"}},
    {"three quotes hold lines and quotes", "\"\"\"\n\"`include <x.vh>\" \\\"\"\"\n\"\"\" `include <a.vh>", {"3:a.vh"}},
    {"an empty string is a string", "\"\" `include <a.vh>", {"1:a.vh"}},
    {"a quote in an escaped identifier opens no string",
     "\\esc\"id `include \"a.vh\"\n\\/* `include \"b.vh\"",
     {"1:a.vh", "2:b.vh"}},
    {"an escaped identifier may look like a directive", "\\`include \"x.vh\"", {}},
    {"a body of a macro counts", "`define A \\\n  `include \"a.vh\"\n", {"2:a.vh"}},
    {"a quote of a macro opens no string", "`define A(x) `\"x `\\`\"x`\\`\" y`\" `include <a.vh>", {"1:a.vh"}},
    {"a quote of a macro gives the name as a macro does", "`define A(x) `include `\"x`\"\n", {"1:`\"x macro"}},
    {"joined identifiers are no directive", "x``include \"x.vh\"", {}},
    {"both branches of a condition count",
     "`ifdef A `include <a.vh>\n`else `include <b.vh>\n`endif",
     {"1:a.vh", "2:b.vh"}},
    {"a division is no comment", "a / `include <a.vh>", {"1:a.vh"}},
    {"a NUL is a character", {"\0`include \"a.vh\"", 16}, {"1:a.vh"}},
    {"nothing is found in nothing", "", {}},
};

TEST(include_scanner, follows_the_lexical_rules) {
  for (scanned_source const& one : sources) {
    std::vector<std::string> found;
    for (tool::include_directive const& include : tool::scan_includes(one.source)) {
      found.push_back(std::to_string(include.line) + ':' + include.name + (include.is_macro ? " macro" : ""));
    }
    EXPECT_EQ(found, one.found) << one.rule;
  }
}

} // namespace
