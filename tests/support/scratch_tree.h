/// @file
/// A private directory tree for one test.

#ifndef CCL_TESTS_SUPPORT_SCRATCH_TREE_H
#define CCL_TESTS_SUPPORT_SCRATCH_TREE_H

#include <initializer_list>
#include <string>

/// A directory of its own under the system's temporary directory, removed with everything in it at the end.
///
/// All names are relative to it, and a name that would leave it (absolute, or with "..") fails the program.
class scratch_tree {
public:
  scratch_tree();
  ~scratch_tree();
  scratch_tree(scratch_tree const&) = delete;
  scratch_tree& operator=(scratch_tree const&) = delete;

  /// The absolute path of the tree, without a separator at its end, or of a name in it.
  std::string const& root() const { return m_root; }
  std::string path(std::string const& name) const;

  /// Makes entries: "dir/" is a directory, "name" an empty file, "name=content" a file with this content, and
  /// "name -> target" a symbolic link. Missing parents are made.
  void draw(std::initializer_list<char const*> entries) const;

  /// Makes one entry, whatever bytes its name has.
  void make_file(std::string const& name, std::string const& content = {}) const;
  void make_directory(std::string const& name) const;

private:
  std::string m_root;
};

/// Runs `body` in a child process without any privilege, so that permissions hold for it even where the tests run as
/// root, and answers whether `body` answered true. Nothing but the answer comes back.
bool holds_for_ordinary_user(bool (*body)(scratch_tree const&), scratch_tree const& tree);

#endif
