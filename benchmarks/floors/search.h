/// @file
/// The floor of searches: two questions to the system for each directory, on texts that are put together on the stack.

#ifndef CCL_BENCHMARKS_FLOORS_SEARCH_H
#define CCL_BENCHMARKS_FLOORS_SEARCH_H

#include <sys/stat.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "benchmarks/floors/path.h"

namespace floors {

class search {
public:
  explicit search(std::vector<std::string> directories) : m_directories(std::move(directories)) {}

  /// The first path of a file of this name. The name has no wildcard.
  path find_first(std::string_view text) const {
    division const parts = divide(text);
    std::string_view const name = text.substr(parts.directory, parts.base + parts.extension);
    char candidate[2048];
    struct stat status;
    for (std::string const& directory : m_directories) {
      if (directory.size() > 1023 || ::stat(directory.c_str(), &status) != 0) {
        continue;
      }
      std::size_t const size = directory.size() + name.size();
      directory.copy(candidate, directory.size());
      *(candidate + directory.size() + name.copy(candidate + directory.size(), name.size())) = '\0';
      if (size <= 1023 && ::stat(candidate, &status) == 0) {
        return path({candidate, size});
      }
    }
    return {};
  }

private:
  std::vector<std::string> m_directories; ///< in normal form, each with its trailing separator
};

} // namespace floors

#endif
