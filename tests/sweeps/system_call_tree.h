/// @file
/// The files that the operations work on, and what became of them.

#ifndef CCL_TESTS_SWEEPS_SYSTEM_CALL_TREE_H
#define CCL_TESTS_SWEEPS_SYSTEM_CALL_TREE_H

#include <map>
#include <set>
#include <string>

#include "tests/support/scratch_tree.h"

namespace system_call {

/// What can be told of one entry. Times are "now" if they are not those that the tree was drawn with.
struct entry {
  std::string kind;    ///< type and permissions, or the target of a link
  std::string content; ///< of a file
  std::string time;    ///< of the last modification of a file

  bool operator==(entry const& other) const {
    return kind == other.kind && content == other.content && time == other.time;
  }
};

/// All entries by their names, and the current directory as the entry "(current)".
using snapshot = std::map<std::string, entry>;

/// What a run may have left of the files.
enum class effect {
  before,     ///< nothing happened
  after,      ///< all that happens without a disturbance
  between,    ///< some of it: each entry is as before or as after, and what is never removed is there
  partial,    ///< the same, and what is at stake may be missing, or hold the start of its content only
  overwritten ///< as before, but what is at stake is a copy of "file", its time included
};

/// The tree that every operation finds. The current directory is its root.
class tree {
public:
  tree();
  ~tree();
  tree(tree const&) = delete;
  tree& operator=(tree const&) = delete;

  std::string const& root() const { return m_scratch.root(); }
  snapshot look() const;

  /// Draws the tree anew, unless `seen` is what it looks like when drawn.
  void restore(snapshot const& seen);

  /// What the tree looks like when drawn.
  snapshot const& drawn() const { return m_drawn; }

private:
  void draw();

  scratch_tree m_scratch;
  std::string m_current_directory;
  snapshot m_drawn;
};

/// Why `seen` is not such an effect of what leads from `before` to `after`. Empty if it is.
std::string difference(effect wanted, snapshot const& before, snapshot const& after, snapshot const& seen,
                       std::set<std::string> const& at_stake);

} // namespace system_call

#endif
