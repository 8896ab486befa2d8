/// @file
/// The tree of what includes what, over a search path.

#ifndef CCL_TOOLS_INCLUDE_TREE_H
#define CCL_TOOLS_INCLUDE_TREE_H

#include <string>
#include <vector>

#include "ccl/fio/fio_find.h"
#include "tools/ccl-fio/command.h"

namespace tool {

/// Writes what `sources` include, and what that includes, as far as it is found. A file is shown with its own includes
/// once.
///
/// @param beside whether the directory of the including file comes before the search path
/// @return `not_all` if a source cannot be read, or an include is missing or given by a macro
exit_status write_include_trees(FIO_FIND const& find, std::vector<std::string> const& sources, bool beside,
                                format_options const& format);

} // namespace tool

#endif
