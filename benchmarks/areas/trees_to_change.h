/// @file
/// What is copied and what is removed, for the library and for its peers.

#ifndef CCL_BENCHMARKS_AREAS_TREES_TO_CHANGE_H
#define CCL_BENCHMARKS_AREAS_TREES_TO_CHANGE_H

#include <filesystem>
#include <string>
#include <utility>

#include "benchmarks/registry.h"
#include "benchmarks/trees.h"

namespace bench {

inline std::string changed_top() { return scratch() + "/changed"; }

struct changed_tree : single {
  changed_tree() : single{copied_tree().size()}, top(changed_top()) { std::filesystem::remove_all(top); }

  std::string top;
};

/// `copy(source, target)` makes the target, which does not exist, and says whether it could.
template <typename Copy>
void add_copy(std::string name, Copy copy, std::string note = {}) {
  add(
      "copy.tree", std::move(name), [] { return changed_tree(); },
      [copy](changed_tree const& tree, std::size_t, auto visit) {
        visit(copy(copied_tree().top, tree.top));
        visit.later([&tree] { return listing(tree.top); });
      },
      std::move(note));
}

/// `remove(top)` says whether it could.
template <typename Remove>
void add_removal(std::string name, Remove remove, std::string note = {}) {
  add(
      "remove.tree", std::move(name),
      [] {
        changed_tree tree;
        make_again(copied_tree(), tree.top);
        return tree;
      },
      [remove](changed_tree const& tree, std::size_t, auto visit) {
        visit(remove(tree.top));
        visit.later([&tree] { return listing(tree.top); });
      },
      std::move(note));
}

} // namespace bench

#endif
