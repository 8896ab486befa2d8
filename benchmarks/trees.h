/// @file
/// Directories and files to search, to walk, to copy and to remove, in a scratch directory that goes when the program
/// ends.

#ifndef CCL_BENCHMARKS_TREES_H
#define CCL_BENCHMARKS_TREES_H

#include <cstddef>
#include <string>
#include <vector>

namespace bench {

/// The scratch directory: in shared memory if there is some, or else in `TMPDIR` or /tmp.
std::string const& scratch();

/// Directories of a search path, and names that are in one of them, or in none.
struct search_tree {
  std::vector<std::string> directories; ///< each with its trailing separator
  std::vector<std::string> present;
  std::vector<std::string> missing;

  std::string search_path(char separator) const;
};

search_tree const& searched_tree();

/// A directory of `entries` files, every tenth of them with the extension ".v".
std::string flat_directory(std::size_t entries);

/// A tree of directories with their files. What stands below its top is a multiple of ten.
struct file_tree {
  std::string top;
  std::vector<std::string> directories; ///< below the top, each before what is in it
  std::vector<std::string> files;       ///< below the top

  std::size_t size() const { return directories.size() + files.size(); }
};

/// 1110 entries on three levels, the files empty.
file_tree const& walked_tree();

/// 110 entries, the files with 0 to 32 KiB.
file_tree const& copied_tree();

/// Makes the tree below another top.
void make_again(file_tree const& tree, std::string const& top);

/// What is below a directory, with the size of each file, in the order of the names.
std::string listing(std::string const& top);

} // namespace bench

#endif
