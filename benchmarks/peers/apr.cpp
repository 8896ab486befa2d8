#include <apr_file_info.h>
#include <apr_file_io.h>
#include <apr_fnmatch.h>
#include <apr_general.h>
#include <apr_pools.h>
#include <unistd.h>

#include <cstring>

#include "benchmarks/peers/peers.h"
#include "benchmarks/peers/workloads.h"

namespace bench {

namespace {

char const name[] = "APR";
char const note[] = "no object; memory from a pool that is cleared each time";

// All texts live in a pool; one that is cleared behind each operation asks the system for no memory any more.
class pool {
public:
  pool() {
    static bool const initialised = apr_initialize() == APR_SUCCESS;
    if (initialised) {
      apr_pool_create(&m_pool, nullptr);
    }
  }
  ~pool() { apr_pool_destroy(m_pool); }
  pool(pool const&) = delete;
  pool& operator=(pool const&) = delete;

  static apr_pool_t* cleared() {
    static pool const shared;
    apr_pool_clear(shared.m_pool);
    return shared.m_pool;
  }

private:
  apr_pool_t* m_pool = nullptr;
};

// Without a directory the current one is read. The result is simplified.
char const* anchored(std::string const& value, char const* directory, apr_pool_t* memory) {
  char* result = nullptr;
  apr_filepath_merge(&result, directory, value.c_str(), 0, memory);
  return result != nullptr ? result : "";
}

template <typename Visitor>
void walk_tree(std::string& path, Visitor visit, apr_pool_t* memory) {
  std::size_t const size = path.size();
  apr_dir_t* directory = nullptr;
  if (apr_dir_open(&directory, path.c_str(), memory) != APR_SUCCESS) {
    return;
  }
  apr_finfo_t entry;
  while (apr_dir_read(&entry, APR_FINFO_NAME | APR_FINFO_TYPE, directory) == APR_SUCCESS) {
    if (std::string_view(entry.name) == "." || std::string_view(entry.name) == "..") {
      continue;
    }
    path.resize(size);
    path.append(1, '/').append(entry.name);
    visit(path);
    if (entry.filetype == APR_DIR) {
      walk_tree(path, visit, memory);
    }
  }
  apr_dir_close(directory);
  path.resize(size);
}

} // namespace

void add_apr() {
  auto const make = [](std::string const& text) { return text; };
  add(
      "simplify.dotted", name, dotted,
      [](texts const& from, std::size_t item, auto visit) { visit(anchored(from[item], "/", pool::cleared())); },
      "made absolute too; memory from a pool that is cleared each time");
  add_anchoring(
      name, note, make, [](std::string const& value) { return anchored(value, nullptr, pool::cleared()); },
      [](std::string const& value, std::string const& directory) {
        return anchored(value, directory.c_str(), pool::cleared());
      });
  add_comparisons(name, note, make, [](std::string const& left, std::string const& right) {
    apr_pool_t* const memory = pool::cleared();
    return std::strcmp(anchored(left, nullptr, memory), anchored(right, nullptr, memory));
  });
  add_patterns(
      name, "", [](std::string const& pattern) { return pattern; },
      [](std::string const& pattern, std::string const& text) {
        return apr_fnmatch(pattern.c_str(), text.c_str(), 0) == APR_SUCCESS;
      });
  add_searches(name, note, make, [](std::string const& directory, std::string const& text, auto visit) {
    apr_pool_t* const memory = pool::cleared();
    apr_finfo_t status;
    if (apr_stat(&status, directory.c_str(), APR_FINFO_TYPE, memory) != APR_SUCCESS) {
      return false;
    }
    std::string const candidate = directory + text;
    bool const found = apr_stat(&status, candidate.c_str(), APR_FINFO_TYPE, memory) == APR_SUCCESS;
    if (found) {
      visit(candidate);
    }
    return found;
  });
  add_directory_walk(name, "does not follow links", [](std::string const& path, auto visit) {
    apr_dir_t* directory = nullptr;
    apr_dir_open(&directory, path.c_str(), pool::cleared());
    apr_finfo_t entry;
    while (apr_dir_read(&entry, APR_FINFO_NAME | APR_FINFO_SIZE | APR_FINFO_MTIME, directory) == APR_SUCCESS) {
      visit(entry.size);
      visit(::access((path + '/' + entry.name).c_str(), W_OK));
    }
    apr_dir_close(directory);
  });
  add_tree_walk(name, "memory from a pool", [](std::string const& top, auto visit) {
    std::string path = top;
    walk_tree(path, visit, pool::cleared());
  });
}

} // namespace bench
