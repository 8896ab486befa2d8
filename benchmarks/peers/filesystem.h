/// @file
/// The two libraries that have the interface of std::filesystem. `Names` has what they call differently.

#ifndef CCL_BENCHMARKS_PEERS_FILESYSTEM_H
#define CCL_BENCHMARKS_PEERS_FILESYSTEM_H

#include <unistd.h>

#include <string>

#include "benchmarks/peers/workloads.h"

namespace bench {

template <typename Names>
void add_filesystem(char const* name, std::string const& when_divided, std::string const& statuses,
                    std::string const& when_copied, std::string const& when_removed) {
  using path = typename Names::path;
  auto const make = [](std::string const& text) { return path(text); };
  add_path_values(name, when_divided, make, [](path const& value, auto visit) {
    visit(value.parent_path());
    visit(value.stem());
    visit(value.extension());
    visit(value.string());
  });
  add_edits(
      name, "", make, [](path& value) { value.remove_filename() /= appended; },
      [](path& value, std::string const& text) { value.remove_filename() /= text; },
      [](path& value, std::string const& text) { value.replace_extension(text); });
  add_simplification(name, "", make, [](path const& value) { return value.lexically_normal(); });
  auto const anchored = [](path const& value) { return Names::absolute(value).lexically_normal(); };
  add_anchoring(name, "", make, anchored, [](path const& value, std::string const& directory) {
    return (path(directory) / value).lexically_normal();
  });
  add_relative(name, "", make,
               [](path const& value, std::string const& directory) { return value.lexically_relative(directory); });
  add_comparisons(name, "no current directory where both are absolute", make,
                  [anchored](path const& left, path const& right) { return anchored(left).compare(anchored(right)); });
  add_levels(name, "", make, [](path const& value, auto visit) {
    for (path const& level : value) {
      visit(level);
    }
  });
  add_searches(name, "", make, [](path const& directory, std::string const& text, auto visit) {
    if (!Names::exists(directory)) {
      return false;
    }
    path const candidate = directory / text;
    bool const found = Names::exists(candidate);
    if (found) {
      visit(candidate);
    }
    return found;
  });
  add_directory_walk(name, statuses, [](std::string const& directory, auto visit) {
    for (auto const& entry : typename Names::directory_iterator(directory)) {
      visit(entry.path().native());
      visit(Names::is_regular_file(entry) ? Names::file_size(entry.path()) : 0);
      visit(Names::last_write_time(entry.path()));
      visit(::access(entry.path().c_str(), W_OK));
    }
  });
  add_tree_walk(name, "", [](std::string const& top, auto visit) {
    for (auto const& entry : typename Names::recursive_directory_iterator(top)) {
      visit(entry.path().native());
    }
  });
  add_copy(
      name,
      [](std::string const& source, std::string const& target) {
        Names::copy_tree(source, target);
        return true;
      },
      when_copied);
  add_removal(
      name, [](std::string const& top) { return Names::remove_all(top) != 0; }, when_removed);
}

} // namespace bench

#endif
