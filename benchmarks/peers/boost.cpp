#include <boost/filesystem.hpp>

#include "benchmarks/peers/filesystem.h"
#include "benchmarks/peers/peers.h"

namespace bench {

namespace {

struct boost_names {
  using path = boost::filesystem::path;
  using directory_iterator = boost::filesystem::directory_iterator;
  using recursive_directory_iterator = boost::filesystem::recursive_directory_iterator;

  static path absolute(path const& value) { return boost::filesystem::absolute(value); }
  static bool exists(path const& value) { return boost::filesystem::exists(value); }
  static auto file_size(path const& value) { return boost::filesystem::file_size(value); }
  static long last_write_time(path const& value) { return boost::filesystem::last_write_time(value); }
  static bool is_regular_file(boost::filesystem::directory_entry const& entry) {
    return boost::filesystem::is_regular_file(entry.status());
  }
  static void copy_tree(path const& source, path const& target) {
    boost::filesystem::copy(source, target, boost::filesystem::copy_options::recursive);
  }
  static auto remove_all(path const& top) { return boost::filesystem::remove_all(top); }
};

} // namespace

void add_boost() {
  add_filesystem<boost_names>("Boost", "parsed only when it is read", "three statuses an entry",
                              "content by copy_file_range, forced out by fdatasync, no test of permission",
                              "no test of permission");
}

} // namespace bench
