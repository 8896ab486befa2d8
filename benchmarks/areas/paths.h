/// @file
/// Paths of the library and of the floor as states and as results of workloads.

#ifndef CCL_BENCHMARKS_AREAS_PATHS_H
#define CCL_BENCHMARKS_AREAS_PATHS_H

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "benchmarks/floors/path.h"
#include "benchmarks/texts.h"
#include "ccl/fio/fio_path.h"

namespace bench {

template <typename Path>
std::string components_of(Path const& path) {
  return path.fullpath() + " = " + path.directory() + " + " + path.base() + " + " + path.extension() +
         (path.is_legal_length() ? "" : ", too long");
}

/// One path for each text.
template <typename Path>
std::vector<Path> paths_of(texts const& from) {
  std::vector<Path> paths;
  paths.reserve(from.size());
  for (std::string const& text : from) {
    paths.emplace_back(text.c_str());
  }
  return paths;
}

template <typename Path>
std::vector<std::pair<Path, Path>> path_pairs_of(text_pairs const& from) {
  std::vector<std::pair<Path, Path>> pairs;
  pairs.reserve(from.size());
  for (auto const& [left, right] : from) {
    pairs.emplace_back(Path(left.c_str()), Path(right.c_str()));
  }
  return pairs;
}

/// @name What the library and its peers work with
/// @{
inline constexpr int grown_levels[] = {2, 5, 10, 20, 50, 100, 200};

inline std::string const appended = "memory/fifo.v";
inline std::string const given_directory = "/home/design/projects/serial/rtl";

inline std::string const& new_name(std::size_t item) {
  static std::string const names[] = {"x.v", "a_much_longer_name_of_a_file.sv", "report.csf.rpt", "Makefile"};
  return names[item % std::size(names)];
}

inline std::string const& new_extension(std::size_t item) {
  static std::string const extensions[] = {".v", "json", ".vhd", "cpp"};
  return extensions[item % std::size(extensions)];
}

/// A directory that shares half of the levels with `text_with_levels(levels, false)`.
inline std::string directory_beside(int levels) {
  std::string const half = text_with_levels(levels / 2, false);
  return half.substr(0, half.rfind('/')) + text_with_levels(levels - levels / 2, true);
}
/// @}

/// Paths to be sorted a hundred at a time.
template <typename Path>
struct groups {
  std::vector<Path> paths;

  static constexpr std::size_t group = 100;
  static constexpr std::size_t sorted = 10; ///< groups, at most: to sort takes long
  std::size_t size() const { return std::min(paths.size() / group, sorted); }
};

template <typename Path, typename Less, typename Visitor>
void sort_group(groups<Path> const& all, std::size_t number, Less less, Visitor visit) {
  Path const* sorted[groups<Path>::group];
  for (std::size_t i = 0; i != groups<Path>::group; ++i) {
    sorted[i] = &all.paths[number * groups<Path>::group + i];
  }
  std::sort(std::begin(sorted), std::end(sorted), [less](Path const* a, Path const* b) { return less(*a, *b); });
  for (Path const* path : sorted) {
    visit(*path);
  }
}

} // namespace bench

inline std::string show(FIO_PATH const& path) { return bench::components_of(path); }

namespace floors {

inline std::string show(path const& value) { return bench::components_of(value); }

} // namespace floors

#endif
