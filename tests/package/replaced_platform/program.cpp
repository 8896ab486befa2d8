// Sees that every question of the library to its platform goes to the platform that was put in place.

#include <cstdio>
#include <cstdlib>

#include "ccl/fio/fio.h"
#include "recording_platform.h"

namespace {

void expect(bool condition, char const* what) {
  if (!condition) {
    std::fprintf(stderr, "not so: %s\n", what);
    std::exit(1);
  }
}

#define EXPECT(condition) expect(condition, #condition)

} // namespace

int main() {
  std::vector<std::string>& calls = recorded_calls();
  EXPECT(calls == std::vector<std::string>(9, "registered FIO"));
  calls.clear();

  EXPECT(FIO_FILE_SYSTEM::open("a", 3, 4) == 7);
  EXPECT(FIO_FILE_SYSTEM::fopen("a", "r") == stderr);
  EXPECT(FIO_FILE_SYSTEM::chmod("a", 0));
  EXPECT(FIO_FILE_SYSTEM::mkdir("a") == 11);
  EXPECT(FIO_FILE_SYSTEM::rmdir("a") == 12);
  EXPECT(FIO_FILE_SYSTEM::change_current_directory("a") == 13);
  EXPECT(FIO_FILE_SYSTEM::get_current_directory() == "/somewhere");
  EXPECT(FIO_FILE_SYSTEM::is_directory("a"));
  EXPECT(FIO_FILE_SYSTEM::exists("a"));
  EXPECT(!FIO_FILE_SYSTEM::exists("missing"));
  EXPECT(fio_get_unc_full_path("a") == "//server/share");
  fio_display_path_too_long_assert_message(nullptr);
  EXPECT((calls == std::vector<std::string>{"open", "fopen", "chmod", "mkdir", "rmdir", "chdir", "getcwd", "status",
                                            "exists", "exists", "get_unc_full_path", "path_get_data", "path_free",
                                            "message of FIO"}));

  EXPECT(fio_get_file_type("a.v") == FIO_FILE_TYPE_VHDL_FILE);
  EXPECT(fio_clsid_to_str(FIO_CLSID_NULL, FIO_CLSID_FORMAT_TEXT) == "formatted");
  FIO_FIND const find("a;b", false);
  EXPECT(find.m_search_list.size() == 1);
  EXPECT(find.m_search_list.front().fullpath() == "a;b/");
  // Ends the program, well if the report is right.
  find.find_all("a", {}, nullptr, false, false);
  return 1;
}
