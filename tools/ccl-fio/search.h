/// @file
/// Where a search over a list of directories looks for a name, place by place.
///
/// The places are those of `FIO_FIND::find_first_relative_path`, which returns the first hit alone. Here the others are
/// wanted too: those that a hit hides, and all of them where there is none. Places stay as they are, relative or not. A
/// name costs one system call for each directory.

#ifndef CCL_TOOLS_SEARCH_H
#define CCL_TOOLS_SEARCH_H

#include <string>
#include <vector>

#include "ccl/fio/fio_find.h"

namespace tool {

/// Whether a search may look for `name`. Without a file name in it, the search would find the directories themselves.
bool is_findable(std::string const& name);

/// A search for names over the directories of `find`, which are copied.
class name_search {
public:
  explicit name_search(FIO_FIND const& find);

  /// The first place where `name` is, or an empty string.
  std::string first(std::string const& name) const;

  /// All places where `name` is, each once, in the order of the directories.
  std::vector<std::string> all(std::string const& name) const;

  /// All places where `name` may be, each once, in the order of the directories.
  std::vector<std::string> places(std::string const& name) const;

private:
  template <typename Visitor>
  void visit_places(std::string const& name, Visitor visitor) const;

  std::vector<std::string> m_directories;
};

} // namespace tool

#endif
