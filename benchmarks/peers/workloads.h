/// @file
/// The workloads of the areas, for peers: each of these adds one kind, given how the peer spells it. `make(text)` gives
/// the peer's path, be it an object or a string.

#ifndef CCL_BENCHMARKS_PEERS_WORKLOADS_H
#define CCL_BENCHMARKS_PEERS_WORKLOADS_H

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "benchmarks/areas/integers.h"
#include "benchmarks/areas/paths.h"
#include "benchmarks/areas/patterns.h"
#include "benchmarks/areas/trees_to_change.h"
#include "benchmarks/registry.h"
#include "benchmarks/texts.h"
#include "benchmarks/trees.h"

namespace bench {

/// The path that a peer makes from a text.
template <typename Make>
using path_made_by = std::decay_t<std::invoke_result_t<Make, std::string const&>>;

template <typename Make>
auto made_from(texts const& (*from)(), Make make) {
  return [from, make] {
    std::vector<path_made_by<Make>> paths;
    for (std::string const& text : from()) {
      paths.push_back(make(text));
    }
    return paths;
  };
}

template <typename Make>
auto pairs_made_from(text_pairs const& (*from)(), Make make) {
  return [from, make] {
    std::vector<std::pair<path_made_by<Make>, path_made_by<Make>>> pairs;
    for (auto const& [left, right] : from()) {
      pairs.emplace_back(make(left), make(right));
    }
    return pairs;
  };
}

/// `read(path, visit)` visits directory, base, extension and text.
template <typename Make, typename Read>
void add_path_values(char const* name, std::string const& note, Make make, Read read) {
  using path = path_made_by<Make>;
  add(
      "path.construct", name, all_texts,
      [make](texts const& from, std::size_t item, auto visit) { visit(make(from[item])); }, note);
  add("path.construct_and_read", name, all_texts, [make, read](texts const& from, std::size_t item, auto visit) {
    path const value = make(from[item]);
    read(value, visit);
  });
  add(
      "path.assign", name, made_from(all_texts, make),
      [](std::vector<path>& paths, std::size_t item, auto visit) {
        paths[item] = all_texts()[(item + 1) % paths.size()].c_str();
        visit(paths[item]);
      },
      note);
  add("path.copy", name, made_from(all_texts, make),
      [](std::vector<path> const& paths, std::size_t item, auto visit) { visit(path(paths[item])); });
  add("path.move", name, made_from(all_texts, make), [](std::vector<path>& paths, std::size_t item, auto visit) {
    path moved(std::move(paths[item]));
    visit(moved);
    paths[item] = std::move(moved);
    visit(paths[item]);
  });
}

/// `append(path)` takes the file name away and puts `appended` in its place, `set_name(path, text)` and
/// `set_extension(path, text)` put the text in the place of the old one. All change the path.
template <typename Make, typename Append, typename SetName, typename SetExtension>
void add_edits(char const* name, std::string const& note, Make make, Append append, SetName set_name,
               SetExtension set_extension) {
  using path = path_made_by<Make>;
  auto const plain = made_from(plain_absolute, make);
  add(
      "edit.append", name, plain,
      [append](std::vector<path>& paths, std::size_t item, auto visit) {
        append(paths[item]);
        visit(paths[item]);
      },
      note);
  add(
      "edit.filename", name, plain,
      [set_name](std::vector<path>& paths, std::size_t item, auto visit) {
        set_name(paths[item], new_name(item));
        visit(paths[item]);
      },
      note);
  add(
      "edit.extension", name, plain,
      [set_extension](std::vector<path>& paths, std::size_t item, auto visit) {
        set_extension(paths[item], new_extension(item));
        visit(paths[item]);
      },
      note);
}

/// `simplify(path)` gives another path.
template <typename Make, typename Simplify>
void add_simplification(char const* name, std::string const& note, Make make, Simplify simplify) {
  using path = path_made_by<Make>;
  auto const operation = [simplify](std::vector<path> const& paths, std::size_t item, auto visit) {
    visit(simplify(paths[item]));
  };
  add("simplify.clean", name, made_from(plain_absolute, make), operation, note);
  add("simplify.dotted", name, made_from(dotted, make), operation, note);
  for (int const levels : grown_levels) {
    add(
        "growth.simplify/" + std::to_string(levels), name,
        [make, levels] { return std::vector<path>(20, make(text_with_levels(levels, true))); }, operation, note);
  }
}

/// `at_current(path)` and `at_given(path, directory)` give another path, which is simplified.
template <typename Make, typename AtCurrent, typename AtGiven>
void add_anchoring(char const* name, std::string const& note, Make make, AtCurrent at_current, AtGiven at_given) {
  using path = path_made_by<Make>;
  add(
      "absolute.current", name, made_from(plain_relative, make),
      [at_current](std::vector<path> const& paths, std::size_t item, auto visit) { visit(at_current(paths[item])); },
      note);
  add(
      "absolute.given", name, made_from(plain_relative, make),
      [at_given](std::vector<path> const& paths, std::size_t item, auto visit) {
        visit(at_given(paths[item], given_directory));
      },
      note);
}

/// `relative(path, directory)` gives another path.
template <typename Make, typename Relative>
void add_relative(char const* name, std::string const& note, Make make, Relative relative) {
  using path = path_made_by<Make>;
  add(
      "relative", name, made_from(plain_absolute, make),
      [relative](std::vector<path> const& paths, std::size_t item, auto visit) {
        visit(relative(paths[item], path_and_directory()[item].second));
      },
      note);
  for (int const levels : grown_levels) {
    add(
        "growth.relative/" + std::to_string(levels), name,
        [make, levels] { return std::vector<path>(20, make(text_with_levels(levels, false))); },
        [relative, directory = directory_beside(levels)](std::vector<path> const& paths, std::size_t item, auto visit) {
          visit(relative(paths[item], directory));
        },
        note);
  }
}

/// `compare(left, right)` compares the places of two paths, anchored and simplified.
template <typename Make, typename Compare>
void add_comparisons(char const* name, std::string const& note, Make make, Compare compare) {
  using path = path_made_by<Make>;
  auto const less = [compare](path const& left, path const& right) { return compare(left, right) < 0; };
  auto const visit_equal = [compare](auto const& pairs, std::size_t item, auto visit) {
    visit(compare(pairs[item].first, pairs[item].second) == 0);
  };
  add("compare.other_name", name, pairs_made_from(neighbours, make), visit_equal, note);
  add("compare.same_place", name, pairs_made_from(same_places, make), visit_equal, note);
  add(
      "compare.less", name, pairs_made_from(neighbours, make),
      [less](auto const& pairs, std::size_t item, auto visit) { visit(less(pairs[item].first, pairs[item].second)); },
      note);
  add(
      "compare.sort", name, [make] { return groups<path>{made_from(plain_absolute, make)()}; },
      [less](groups<path> const& all, std::size_t item, auto visit) { sort_group(all, item, less, visit); }, note);
  for (int const levels : grown_levels) {
    add(
        "growth.less/" + std::to_string(levels), name,
        [make, levels] { return std::vector<path>(20, make(text_with_levels(levels, true))); },
        [less](std::vector<path> const& paths, std::size_t item, auto visit) {
          visit(less(paths[item], paths[(item + 1) % paths.size()]));
        },
        note);
  }
}

/// `levels(path, visit)` visits every level of the directory.
template <typename Make, typename Levels>
void add_levels(char const* name, std::string const& note, Make make, Levels levels_of) {
  using path = path_made_by<Make>;
  for (int const levels : grown_levels) {
    add(
        "growth.levels/" + std::to_string(levels), name,
        [make, levels] { return std::vector<path>(20, make(text_with_levels(levels, false))); },
        [levels_of](std::vector<path> const& paths, std::size_t item, auto visit) { levels_of(paths[item], visit); },
        note);
  }
}

/// `compile(pattern)` gives what `matches(compiled, name)` takes.
template <typename Compile, typename Matches>
void add_patterns(char const* name, std::string const& note, Compile compile, Matches matches) {
  for (pattern_case const& what : pattern_cases()) {
    add(
        what.workload, name, what.names,
        [compiled = compile(what.pattern), matches](texts const& from, std::size_t item, auto visit) {
          visit(matches(compiled, from[item]));
        },
        note);
  }
}

/// `find_in(directory, name, visit)` visits the path of the name and returns true, if both exist.
template <typename MakeDirectory, typename FindIn>
void add_searches(char const* name, std::string const& note, MakeDirectory make, FindIn find_in) {
  using names = std::vector<std::string>;
  struct searches {
    std::vector<path_made_by<MakeDirectory>> directories;
    names const& wanted;

    std::size_t size() const { return wanted.size(); }
  };
  auto const add_search = [&](char const* workload, names const& (*wanted)()) {
    add(
        workload, name,
        [make, wanted] {
          searches state{{}, wanted()};
          for (std::string const& directory : searched_tree().directories) {
            state.directories.push_back(make(directory));
          }
          return state;
        },
        [find_in](searches const& all, std::size_t item, auto visit) {
          for (auto const& directory : all.directories) {
            if (find_in(directory, all.wanted[item], visit)) {
              break;
            }
          }
        },
        note);
  };
  add_search("search.hit", []() -> names const& { return searched_tree().present; });
  add_search("search.miss", []() -> names const& { return searched_tree().missing; });
}

struct walked_directory : single {
  walked_directory() : single{1000}, path(flat_directory(1000)) {}

  std::string path;
};

/// `walk(directory, visit)` visits all entries of a directory, with their size and time and whether they may be written.
template <typename Walk>
void add_directory_walk(char const* name, std::string const& note, Walk walk) {
  add(
      "walk.all", name, [] { return walked_directory(); },
      [walk](walked_directory const& directory, std::size_t, auto visit) { walk(directory.path, visit); }, note);
}

/// `walk(top, visit)` visits all paths below a directory.
template <typename Walk>
void add_tree_walk(char const* name, std::string const& note, Walk walk) {
  add(
      "walk.tree", name, [] { return single{walked_tree().size()}; },
      [walk](single const&, std::size_t, auto visit) { walk(walked_tree().top, visit); }, note);
}

} // namespace bench

#endif
