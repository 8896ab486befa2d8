// The operations that create, copy and name.

#include "ccl/fio/fio_file_sys.h"
#include "tests/sweeps/system_call_operations.h"
#include "tests/sweeps/system_call_results.h"

namespace system_call {
namespace {

using fs = FIO_FILE_SYSTEM;

#define ASKED(expression) [] { return text(watched([] { return expression; })); }

constexpr char create[] = "FIO_FILE_SYSTEM::create(string const&)";
constexpr char copy[] = "FIO_FILE_SYSTEM::copy(string const&, string const&, bool, bool)";
constexpr char tmp_path[] = "FIO_FILE_SYSTEM::get_tmp_path(char const*)";
constexpr char remove_temp_files[] = "FIO_FILE_SYSTEM::remove_temp_files(char const*, int, char const*)";

std::string temporary_name() {
  return anonymous(watched([] { return fs::get_tmp_path("dir/"); }));
}

constexpr char mkdir_of_a_file[] = "false | mkdir failed with: file/x (errno: 20) | "
                                   "is_directory (via status) failed with: file/x (errno: 20)";

std::vector<operation> const rows = {
    {"first temporary name", tmp_path, temporary_name, "dir/.korvane.#.tmp", "", ""},
    {"temporary name", tmp_path, temporary_name, "dir/.korvane.#.tmp", "", ""},
    {"remove temporary files", remove_temp_files, ASKED(fs::remove_temp_files("dir/", 10, "*.v")), "true",
     "dir/.korvane.#.tmp", ""},
    {"create", create, ASKED(fs::create("new/deep")), "true", "", ""},
    {"create what stands", create, ASKED(fs::create("dir/sub")), "true", "", ""},
    {"create below a file", create, ASKED(fs::create("file/x")), mkdir_of_a_file, "", ""},
    {"touch", "FIO_FILE_SYSTEM::touch(string const&)", ASKED(fs::touch("dir/new")), "true", "", ""},
    {"copy", copy, ASKED(fs::copy("file", "target", false, false)), "true", "target", ""},
    {"copy over", copy, ASKED(fs::copy("file", "other", true, true)), "true", "other", ""},
    {"copy beside", copy, ASKED(fs::copy("file", "other", false, true)), "true", "other", ""},
    {"move", "FIO_FILE_SYSTEM::move(string const&, string const&, bool, bool)",
     ASKED(fs::move("file", "target", false, false)), "true", "target", "file"},
    {"copy files", "FIO_FILE_SYSTEM::copy_files(string const&, string const&, bool, bool)",
     ASKED(fs::copy_files("dir/*.v", "copied", false, false)), "true", "copied/a.v copied/b.v", ""},
    {"copy tree", "FIO_FILE_SYSTEM::copy_dir(string const&, string const&, bool, bool)",
     ASKED(fs::copy_dir("dir", "copied", false, false)), "true", "copied/a.v copied/b.v copied/sub/c.v", ""},
};

} // namespace

std::vector<operation> copying_operations() { return rows; }

} // namespace system_call
