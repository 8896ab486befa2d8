#include <filesystem>

#include "benchmarks/peers/filesystem.h"
#include "benchmarks/peers/peers.h"

namespace bench {

namespace {

struct std_names {
  using path = std::filesystem::path;
  using directory_iterator = std::filesystem::directory_iterator;
  using recursive_directory_iterator = std::filesystem::recursive_directory_iterator;

  static path absolute(path const& value) { return std::filesystem::absolute(value); }
  static bool exists(path const& value) { return std::filesystem::exists(value); }
  static auto file_size(path const& value) { return std::filesystem::file_size(value); }
  static long last_write_time(path const& value) {
    return std::filesystem::last_write_time(value).time_since_epoch().count();
  }
  static bool is_regular_file(std::filesystem::directory_entry const& entry) { return entry.is_regular_file(); }
  static void copy_tree(path const& source, path const& target) {
    std::filesystem::copy(source, target, std::filesystem::copy_options::recursive);
  }
  static auto remove_all(path const& top) { return std::filesystem::remove_all(top); }
};

} // namespace

void add_std() {
  add_filesystem<std_names>("std", "", "two statuses an entry",
                            "content by sendfile, nothing forced out, no test of permission", "no status of an entry");
}

} // namespace bench
