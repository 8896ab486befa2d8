/// @file
/// The include directives of Verilog and SystemVerilog sources.

#ifndef CCL_TOOLS_INCLUDE_SCANNER_H
#define CCL_TOOLS_INCLUDE_SCANNER_H

#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// An `include directive.
struct include_directive {
  std::string name;      ///< between the quotes or angle brackets, or the macro that stands for them
  int line = 0;          ///< of the directive, from 1
  bool is_macro = false; ///< whether a macro gives the name: none is expanded
};

/// The include directives of a source, except for those in comments and strings. Conditions are not evaluated, and no
/// macro is expanded: both branches of an `ifdef count, and so does the body of a `define.
///
/// A directive without a name, or whose name does not end on its line, is no directive. Linear in the size of the source.
std::vector<include_directive> scan_includes(std::string_view source);

} // namespace tool

#endif
