/// @file
/// A path together with what it is known to be but does not tell, and what must hold of any path at any time.

#ifndef CCL_TESTS_FUZZ_SUPPORT_WATCHED_PATH_H
#define CCL_TESTS_FUZZ_SUPPORT_WATCHED_PATH_H

#include <cstddef>
#include <string>
#include <vector>

#include "ccl/fio/fio_path.h"

namespace fuzz {

constexpr std::size_t longest_path = 1023;

/// A path and its hidden state. Copies and moves construct the path; whoever assigns one says what that does.
struct watched_path {
  FIO_PATH path;
  std::string drive;             ///< as it stands in the text: empty, or a character and ":"
  char separator = '/';          ///< the path's own
  bool legal = true;             ///< whether the last text divided into it was short enough
  bool has_own_directory = true; ///< false after an assignment from a path with another separator
};

/// The components that a path tells, as they are stored.
struct components {
  std::string directory;
  std::string base;
  std::string extension;
};

components components_of(FIO_PATH const& path);

bool is_separator(char character);

/// The text that these components make.
std::string composed(std::string const& drive, components const& parts);

/// The components of a text, its directory as it stands there; all empty if the text is too long.
components divided(std::string const& text);

/// A directory as a path with this separator stores it.
std::string stored_directory(std::string const& text, char separator);

/// `text` with `separator` in the place of its opposite, and runs of it made one.
std::string synchronised(std::string const& text, char separator);

/// The runs of characters other than `separator`.
std::vector<std::string> levels_of(std::string const& directory, char separator);

/// Whether the text shows exactly the levels of the directory, so that simplification is about those alone: there is
/// no drive, no separator in the name, and no NUL that hides a part of it.
bool is_plain(watched_path const& watched);

/// Checks that the text follows from the components, the form of the directory, and what all queries answer.
void check_invariants(watched_path const& watched);

/// Checks that a path has these components and this text, with this drive.
void expect_components(FIO_PATH const& path, std::string const& drive, components const& expected, char const* what);

/// Checks that since the last look the debug channel was told `count` times that this text is too long, if it is.
void expect_length_messages(std::size_t count, std::string const& text, char const* what);

} // namespace fuzz

#endif
