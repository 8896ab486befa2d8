/// @file
/// Directories, entry by entry, with what a walk through links has to know.

#ifndef CCL_TOOLS_TREE_H
#define CCL_TOOLS_TREE_H

#include <sys/stat.h>

#include <string>
#include <utility>
#include <vector>

namespace tool {

/// Tells files apart, whatever their names.
using file_id = std::pair<dev_t, ino_t>;

/// What stands somewhere.
struct tree_entry {
  std::string path;
  std::string name;
  bool is_link = false;
  struct stat status = {}; ///< of the entry itself, or of what a followed link leads to
  int error = 0;           ///< why there is no status, or 0

  bool is_directory() const { return error == 0 && S_ISDIR(status.st_mode); }
  bool is_file() const { return error == 0 && S_ISREG(status.st_mode); }
  file_id id() const { return {status.st_dev, status.st_ino}; }
};

/// What stands at `path`. A link is itself unless `follow`.
tree_entry entry_at(std::string const& path, bool follow);

/// The entries of a directory, sorted by name. Empty, with the cause in `error`, if it cannot be read.
std::vector<tree_entry> entries_of(std::string const& directory, bool follow, int& error);

/// The directories that a walk is in. Followed links may lead back to one of them.
class open_directories {
public:
  /// False if the walk is in this one already.
  bool enter(tree_entry const& directory);
  void leave() { m_open.pop_back(); }

private:
  std::vector<tree_entry> m_open;
};

/// Why nothing can be made or removed at `path`, or 0. Of directories that are missing above it, those that exist count.
int change_error(std::string const& path);

/// `path` without separators at its end, but for the root.
std::string without_separator(std::string path);

} // namespace tool

#endif
