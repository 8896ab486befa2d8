/// @file
/// The vocabulary as one page for a browser.

#ifndef CCL_TOOLS_TYPE_PAGE_H
#define CCL_TOOLS_TYPE_PAGE_H

#include <string>

namespace tool {

/// A page of HTML with a row for every file type, which needs no other file and no network. It can be read without
/// scripts, too; search, selections and sorting are added by the script that it carries.
std::string type_page();

} // namespace tool

#endif
