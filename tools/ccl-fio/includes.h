/// @file
/// What Verilog and SystemVerilog sources include.

#ifndef CCL_TOOLS_INCLUDES_H
#define CCL_TOOLS_INCLUDES_H

#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// An include line.
struct include_line {
  std::string name; ///< what stands between the quotes, or the macro that stands for it
  int line = 0;
  bool is_macro = false; ///< the name is told by a macro, which nothing here expands
};

/// The include lines of a source, in comments and strings excepted. Conditions are not evaluated: both branches count.
std::vector<include_line> include_lines_of(std::string_view source);

} // namespace tool

#endif
