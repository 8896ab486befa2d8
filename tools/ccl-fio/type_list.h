/// @file
/// The vocabulary as lists: types, extensions, editors, traits and document classes.

#ifndef CCL_TOOLS_TYPE_LIST_H
#define CCL_TOOLS_TYPE_LIST_H

#include <string>
#include <vector>

#include "ccl/fio/fio_types.h"

namespace tool {

/// What is to be written: file types, and of their extensions all or those that were asked for.
struct selection {
  std::vector<FIO_FILE_TYPE> types;
  std::vector<FIO_EXTENSION_TYPE> extensions;
  bool whole = true; ///< nothing was asked for in particular
};

/// Writes a selection in one of the formats "text", "json" and "markdown". As text it has as many columns as there is room
/// for, unless all are asked for.
void write_lists(selection const& picked, std::string const& format, bool all_columns);

} // namespace tool

#endif
