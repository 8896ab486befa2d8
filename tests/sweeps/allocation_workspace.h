/// @file
/// A folder of the program's own, in which it draws small trees and reads them back as text.

#ifndef CCL_TESTS_SWEEPS_ALLOCATION_WORKSPACE_H
#define CCL_TESTS_SWEEPS_ALLOCATION_WORKSPACE_H

#include <string>

/// Makes the folder, and removes it with all that is in it. It is the current directory meanwhile.
class workspace {
public:
  workspace();
  ~workspace();
  workspace(workspace const&) = delete;
  workspace& operator=(workspace const&) = delete;

  /// The absolute path of the folder, without a separator at its end.
  static std::string const& root();

private:
  std::string m_former_directory;
};

/// A tree in the folder. It stands there until another one is drawn: making this object again is quick where nothing has
/// changed the tree.
class drawn_tree {
public:
  /// The entries, separated by blanks: "dir/" is a directory and "name=content" a file. Parents are made.
  explicit drawn_tree(char const* entries);
  ~drawn_tree();
  drawn_tree(drawn_tree const&) = delete;
  drawn_tree& operator=(drawn_tree const&) = delete;

private:
  static void clear();
  static void draw(char const* entries);
};

/// All entries in the folder in the form in which they are drawn, each on a line of its own, in the order of their
/// names; and on the last line the current directory, if it is another one.
std::string text_of(drawn_tree const& tree);

#endif
