// The operations that remove many entries.

#include "ccl/fio/fio_errc.h"
#include "ccl/fio/fio_file_sys.h"
#include "tests/sweeps/system_call_operations.h"
#include "tests/sweeps/system_call_results.h"

namespace system_call {
namespace {

using fs = FIO_FILE_SYSTEM;

#define ASKED(expression) [] { return text(watched([] { return expression; })); }

constexpr long old_age = 1'500'000'000;

constexpr char recursively[] = "FIO_FILE_SYSTEM::remove_recursively(char const*, char const*, long const*)";
constexpr char worker[] = "FIO_FILE_SYSTEM::do_remove_recursively(string&, char const*, long const*)";
constexpr char is_empty[] = "FIO_FILE_SYSTEM::is_directory_empty(char const*)";
constexpr char empty_subdirectories[] = "FIO_FILE_SYSTEM::remove_empty_subdirectories(string const&, bool)";

std::string remove_by_worker() {
  std::string path = "dir";
  bool const removed = watched([&path] { return fs::do_remove_recursively(path, nullptr, nullptr); });
  return text(removed) + (path == "dir" ? std::string() : " and the path is " + path);
}

template <bool RemoveRoot>
std::string remove_empty(char const* path) {
  auto const error = watched([path] { return fs::remove_empty_subdirectories(path, RemoveRoot); });
  return error == nullptr ? "null" : error->message().m_lines.front().m_text;
}

std::vector<operation> const rows = {
    {"remove files", "FIO_FILE_SYSTEM::remove_files(char const*)", ASKED(fs::remove_files("dir/*.v")), "true", "", ""},
    {"remove tree", recursively, ASKED(fs::remove_recursively("dir", nullptr, nullptr)), "true", "", ""},
    {"remove tree by worker", worker, remove_by_worker, "true", "", ""},
    {"remove old files", recursively, ASKED(fs::remove_recursively("dir", "*.v", &old_age)), "true", "", ""},
    {"is empty", is_empty, ASKED(fs::is_directory_empty("empty/in")), "true", "", ""},
    {"is empty where it is not", is_empty, ASKED(fs::is_directory_empty("dir")), "false", "", ""},
    {"remove empty with root", empty_subdirectories, [] { return remove_empty<true>("empty"); }, "null", "", ""},
    {"remove empty below root", empty_subdirectories, [] { return remove_empty<false>("pair"); }, "null", "", ""},
};

} // namespace

std::vector<operation> removing_operations() { return rows; }

} // namespace system_call
