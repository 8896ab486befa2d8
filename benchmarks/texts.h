/// @file
/// The path texts that the benchmarks work on: a fixed set from a seeded generator, for figures that can be repeated,
/// or the names that the machine's own file system holds.

#ifndef CCL_BENCHMARKS_TEXTS_H
#define CCL_BENCHMARKS_TEXTS_H

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace bench {

using texts = std::vector<std::string>;
using text_pairs = std::vector<std::pair<std::string, std::string>>;

/// Texts that look like the files of design projects, in the same proportions as the machine's: eight of ten absolute
/// and in normal form, one relative, and one with repeated separators, backslashes, "." and "..". The same on every
/// machine.
texts generated_texts(std::size_t count);

/// As many texts from the directories of the machine where software is installed, in the same proportions.
texts machine_texts(std::size_t count);

/// Texts at the borders of what a path is.
texts odd_texts();

/// Sets the texts that all workloads are made from.
void use_texts(texts all);

/// @name The texts in use, and what is derived from them
/// @{
texts const& all_texts();
texts const& plain_absolute();          ///< in normal form
texts const& plain_relative();          ///< in normal form
texts const& dotted();                  ///< with "." or ".."
texts const& names();                   ///< file names
text_pairs const& neighbours();         ///< different texts, side by side in their order
text_pairs const& same_places();        ///< a text and another spelling of it
text_pairs const& path_and_directory(); ///< a text and a directory that shares its beginning
/// @}

/// An absolute text of a file below this many levels. With `dots` every third level is left again.
std::string text_with_levels(int levels, bool dots);

} // namespace bench

#endif
