// Paths: values, edits, simplification, anchoring and comparison, and how their cost grows with the levels.

#include "benchmarks/areas/paths.h"

#include <unistd.h>

#include <cstdlib>
#include <cstring>

#include "benchmarks/registry.h"

namespace bench {

namespace {

std::string const no_text;

// The same operations of the library and of the floor, where they are spelled differently.

void set_extension(FIO_PATH& path, std::string const& text) { path.extension(text, no_text); }
void set_extension(floors::path& path, std::string const& text) { path.extension(text); }

std::string relative(FIO_PATH const& path, std::string const& directory) { return path.get_relative_to(directory); }
std::string relative(floors::path const& path, std::string const& directory) { return path.relative_to(directory); }

template <typename Path>
void add_values(char const* name) {
  add("path.construct", name, all_texts,
      [](texts const& from, std::size_t item, auto visit) { visit(Path(from[item].c_str())); });
  add("path.construct_and_read", name, all_texts, [](texts const& from, std::size_t item, auto visit) {
    Path const path(from[item].c_str());
    visit(path.directory());
    visit(path.base());
    visit(path.extension());
    visit(path.fullpath());
  });
  add(
      "path.assign", name, [] { return paths_of<Path>(all_texts()); },
      [](std::vector<Path>& paths, std::size_t item, auto visit) {
        paths[item] = all_texts()[(item + 1) % paths.size()].c_str();
        visit(paths[item]);
      });
  add(
      "path.copy", name, [] { return paths_of<Path>(all_texts()); },
      [](std::vector<Path> const& paths, std::size_t item, auto visit) { visit(Path(paths[item])); });
  add(
      "path.move", name, [] { return paths_of<Path>(all_texts()); },
      [](std::vector<Path>& paths, std::size_t item, auto visit) {
        Path moved(std::move(paths[item]));
        visit(moved);
        paths[item] = std::move(moved);
        visit(paths[item]);
      });
}

template <typename Path>
void add_edits(char const* name) {
  auto const plain = [] { return paths_of<Path>(plain_absolute()); };
  add("edit.append", name, plain, [](std::vector<Path>& paths, std::size_t item, auto visit) {
    paths[item].filename(appended);
    visit(paths[item]);
  });
  add("edit.filename", name, plain, [](std::vector<Path>& paths, std::size_t item, auto visit) {
    paths[item].filename(new_name(item));
    visit(paths[item]);
  });
  add("edit.extension", name, plain, [](std::vector<Path>& paths, std::size_t item, auto visit) {
    set_extension(paths[item], new_extension(item));
    visit(paths[item]);
  });
}

template <typename Path>
void add_places(char const* name) {
  auto const simplify = [](std::vector<Path> const& paths, std::size_t item, auto visit) {
    Path path(paths[item]);
    path.become_simplified();
    visit(path);
  };
  add(
      "simplify.clean", name, [] { return paths_of<Path>(plain_absolute()); }, simplify);
  add(
      "simplify.dotted", name, [] { return paths_of<Path>(dotted()); }, simplify);
  auto const make_absolute = [](std::string const& directory) {
    return [&directory](std::vector<Path> const& paths, std::size_t item, auto visit) {
      Path path(paths[item]);
      path.become_absolute(directory);
      visit(path);
    };
  };
  add(
      "absolute.current", name, [] { return paths_of<Path>(plain_relative()); }, make_absolute(no_text));
  add(
      "absolute.given", name, [] { return paths_of<Path>(plain_relative()); }, make_absolute(given_directory));
  add(
      "relative", name,
      [] {
        std::vector<std::pair<Path, std::string>> pairs;
        for (auto const& [text, directory] : path_and_directory()) {
          pairs.emplace_back(Path(text.c_str()), directory);
        }
        return pairs;
      },
      [](auto const& pairs, std::size_t item, auto visit) { visit(relative(pairs[item].first, pairs[item].second)); });
}

template <typename Path>
void add_comparisons(char const* name) {
  auto const equal = [](auto const& pairs, std::size_t item, auto visit) {
    visit(pairs[item].first == pairs[item].second);
  };
  auto const less = [](auto const& pairs, std::size_t item, auto visit) {
    visit(pairs[item].first < pairs[item].second);
  };
  add(
      "compare.other_name", name, [] { return path_pairs_of<Path>(neighbours()); }, equal);
  add(
      "compare.same_place", name, [] { return path_pairs_of<Path>(same_places()); }, equal);
  add(
      "compare.less", name, [] { return path_pairs_of<Path>(neighbours()); }, less);
  add(
      "compare.sort", name, [] { return groups<Path>{paths_of<Path>(plain_absolute())}; },
      [](groups<Path> const& all, std::size_t item, auto visit) {
        sort_group(
            all, item, [](Path const& a, Path const& b) { return a < b; }, visit);
      });
}

template <typename Path>
void add_growth(char const* name) {
  for (int const levels : grown_levels) {
    std::string const size = '/' + std::to_string(levels);
    std::string const text = text_with_levels(levels, false);
    auto const dots = [levels] { return paths_of<Path>(texts(20, text_with_levels(levels, true))); };
    auto const plain = [text] { return paths_of<Path>(texts(20, text)); };
    add("growth.simplify" + size, name, dots, [](std::vector<Path> const& paths, std::size_t item, auto visit) {
      Path path(paths[item]);
      path.become_simplified();
      visit(path);
    });
    std::string const directory = directory_beside(levels);
    add("growth.relative" + size, name, plain,
        [directory](std::vector<Path> const& paths, std::size_t item, auto visit) {
          visit(relative(paths[item], directory));
        });
    add("growth.less" + size, name, dots, [text](std::vector<Path> const& paths, std::size_t item, auto visit) {
      visit(paths[item] < paths[(item + 1) % paths.size()]);
    });
    add("growth.levels" + size, name, plain, [](std::vector<Path> const& paths, std::size_t item, auto visit) {
      int const count = paths[item].levels();
      for (int level = 0; level != count; ++level) {
        visit(paths[item][level]);
      }
    });
  }
}

// What a path cannot do without: five strings of lengths that are known.
struct five_strings {
  explicit five_strings(std::string_view text, floors::division const& parts)
      : full(text), directory(text, 0, parts.directory), base(text, parts.directory, parts.base),
        extension(text, parts.directory + parts.base, parts.extension) {}

  std::string full;
  std::string drive;
  std::string directory;
  std::string base;
  std::string extension;
};

std::string show(five_strings const& strings) { return strings.full; }

void add_bare_calls() {
  struct divided_texts {
    std::vector<std::string_view> text;
    std::vector<floors::division> parts;
    std::size_t size() const { return text.size(); }
  };
  auto const divided = [] {
    divided_texts all;
    for (std::string const& text : all_texts()) {
      all.text.push_back(std::string_view(text).substr(0, text.size() <= 1023 ? text.size() : 0));
      all.parts.push_back(floors::divide(all.text.back()));
    }
    return all;
  };
  auto const strings_of = [divided] {
    divided_texts const all = divided();
    std::vector<five_strings> strings;
    for (std::size_t i = 0; i != all.size(); ++i) {
      strings.emplace_back(all.text[i], all.parts[i]);
    }
    return strings;
  };
  add(
      "path.construct", bare_calls, divided,
      [](divided_texts const& all, std::size_t item, auto visit) {
        visit(five_strings(all.text[item], all.parts[item]));
      },
      "copies strings whose lengths are known");
  add(
      "path.copy", bare_calls, strings_of,
      [](std::vector<five_strings> const& all, std::size_t item, auto visit) { visit(five_strings(all[item])); },
      "five strings");
  add(
      "path.move", bare_calls, strings_of,
      [](std::vector<five_strings>& all, std::size_t item, auto visit) {
        five_strings moved(std::move(all[item]));
        visit(moved);
        all[item] = std::move(moved);
        visit(all[item]);
      },
      "five strings");
  auto const read_environment = [](texts const&, std::size_t, auto visit) {
    visit(std::getenv("fio_old_simplify") != nullptr);
  };
  add("simplify.clean", bare_calls, plain_absolute, read_environment, "reads the environment alone");
  add(
      "absolute.current", bare_calls, plain_relative,
      [](texts const&, std::size_t, auto visit) {
        char current[1024];
        visit(::getcwd(current, sizeof current) != nullptr);
      },
      "reads the current directory alone");
  add(
      "compare.less", bare_calls, neighbours,
      [](text_pairs const& pairs, std::size_t item, auto visit) {
        char current[1024];
        for (int side = 0; side != 2; ++side) {
          visit(std::getenv("fio_old_simplify") != nullptr);
          visit(::getcwd(current, sizeof current) != nullptr);
        }
        visit(std::strcmp(pairs[item].first.c_str(), pairs[item].second.c_str()) < 0);
      },
      "reads environment and current directory, and compares the strings");
  add(
      "compare.other_name", bare_calls, neighbours,
      [](text_pairs const& pairs, std::size_t item, auto visit) { visit(pairs[item].first == pairs[item].second); },
      "compares the strings");
}

// A path without one sentence of the contract: what that sentence costs.

// One string, and how it divides.
struct one_string {
  explicit one_string(std::string_view from) : parts(floors::divide(from)), text(from) {}

  floors::division parts;
  std::string text;
};

int compare_texts(FIO_PATH const& left, FIO_PATH const& right) { return FIO_PATH::os_specific_comparison(left, right); }

void add_variants() {
  add(
      "path.construct", "one string", plain_absolute,
      [](texts const& from, std::size_t item, auto visit) { visit(one_string(from[item].c_str())); },
      "one string and three lengths in the place of five strings; normal form is not made");
  add(
      "path.copy", "one string",
      [] {
        std::vector<one_string> all;
        for (std::string const& text : all_texts()) {
          all.emplace_back(text);
        }
        return all;
      },
      [](std::vector<one_string> const& all, std::size_t item, auto visit) { visit(one_string(all[item])); },
      "one string and three lengths in the place of five strings");
  add(
      "compare.less", "by text", [] { return path_pairs_of<FIO_PATH>(neighbours()); },
      [](auto const& pairs, std::size_t item, auto visit) {
        visit(compare_texts(pairs[item].first, pairs[item].second) < 0);
      },
      "the library's own comparison of two texts");
  add(
      "compare.sort", "by text", [] { return groups<FIO_PATH>{paths_of<FIO_PATH>(plain_absolute())}; },
      [](groups<FIO_PATH> const& all, std::size_t item, auto visit) {
        sort_group(
            all, item, [](FIO_PATH const& a, FIO_PATH const& b) { return compare_texts(a, b) < 0; }, visit);
      },
      "the library's own comparison of two texts");
}

} // namespace

void add_path_workloads() {
  add_workload("path.construct", "construct a path from a string");
  add_workload("path.construct_and_read", "construct a path and copy directory, base, extension and string");
  add_workload("path.assign", "assign a string to a path");
  add_workload("path.copy", "copy-construct a path");
  add_workload("path.move", "move a path away and back");
  add_workload("edit.append", "append \"memory/fifo.v\" to a directory", state_is::made_for_each_pass);
  add_workload("edit.filename", "replace the file name");
  add_workload("edit.extension", "replace the extension");
  add_workload("simplify.clean", "copy and simplify a path in normal form");
  add_workload("simplify.dotted", "copy and simplify a path with \".\" or \"..\"");
  add_workload("absolute.current", "copy a relative path and anchor it at the current directory");
  add_workload("absolute.given", "copy a relative path and anchor it at a given directory");
  add_workload("relative", "express a path as seen from a directory");
  add_workload("compare.other_name", "==, neighbours in their order");
  add_workload("compare.same_place", "==, two spellings of one place");
  add_workload("compare.less", "<, neighbours in their order");
  add_workload("compare.sort", "sort 100 paths by place");
  for (int const levels : grown_levels) {
    std::string const size = '/' + std::to_string(levels);
    add_workload("growth.simplify" + size, "copy and simplify, every third level is \"..\"");
    add_workload("growth.relative" + size, "express as seen from a directory that shares half of the levels");
    add_workload("growth.less" + size, "<, every third level is \"..\"");
    add_workload("growth.levels" + size, "copy every level, by its index");
  }
  add_values<FIO_PATH>(library);
  add_values<floors::path>(least_code);
  add_edits<FIO_PATH>(library);
  add_edits<floors::path>(least_code);
  add_places<FIO_PATH>(library);
  add_places<floors::path>(least_code);
  add_comparisons<FIO_PATH>(library);
  add_comparisons<floors::path>(least_code);
  add_growth<FIO_PATH>(library);
  add_growth<floors::path>(least_code);
  add_bare_calls();
  add_variants();
}

} // namespace bench
