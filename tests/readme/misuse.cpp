// Each marked line is a mistake of which a compiler warns, by the option that is named behind it, and the others are
// right.

#include <cstdio>

#include "ccl/fio/fio.h"

void mistakes(FIO_PATH& path, FIO_FIND& find, _finddata_t& entry) {
  FIO_FILE_SYSTEM::get_tmp_path("/tmp/");                     // unused-result
  FIO_FILE_SYSTEM::findfirst("rtl/*.v", &entry);              // unused-result
  FIO_FILE_SYSTEM::open("f", 0, 0);                           // unused-result
  FIO_FILE_SYSTEM::exists("f");                               // unused-result
  path.directory();                                           // unused-result
  path.get_relative_to("/a");                                 // unused-result
  find.find_first("top.v");                                   // unused-result
  fio_get_file_type("top.v");                                 // unused-result
  fio_str_to_clsid("");                                       // unused-result
  (void)FIO_FILE_SYSTEM::get_tmp_path(nullptr);               // nonnull
  (void)FIO_FILE_SYSTEM::remove_temp_files(nullptr, 0, "*");  // nonnull
  (void)FIO_FILE_SYSTEM::same_file("a", nullptr);             // nonnull
  (void)FIO_PATH::os_specific_comparison(nullptr, "a");       // nonnull
  FIO_FILE_SYSTEM::makepath(nullptr, nullptr, "a", "b", "c"); // nonnull
}

void what_is_right(FIO_PATH& path, FIO_FIND& find, char* buffer) {
  path.directory("a").extension("v", "");
  path = static_cast<char const*>(nullptr);
  path.split_full_path(nullptr);
  find.find_close();
  find.find_next();
  find.set_directory_for_results_to_become_absolute_to(nullptr);
  FIO_FILE_SYSTEM::create("a");
  FIO_FILE_SYSTEM::remove(static_cast<char const*>(nullptr));
  FIO_FILE_SYSTEM::remove_recursively(nullptr, nullptr, nullptr);
  FIO_FILE_SYSTEM::remove_temp_files("a", 0, nullptr);
  FIO_FILE_SYSTEM::splitpath(nullptr, nullptr, nullptr, nullptr, nullptr);
  FIO_FILE_SYSTEM::makepath(buffer, nullptr, nullptr, nullptr, nullptr);
  (void)FIO_FILE_SYSTEM::findfirst("nowhere", nullptr);
  FIO_FILE_SYSTEM::findnext(0, nullptr);
  FIO_FILE_SYSTEM::findclose(-1);
  (void)FIO_FILE_SYSTEM::same_file(nullptr, "");
  FIO_FILE_SYSTEM::remove_files(nullptr);
  (void)FIO_FILE_SYSTEM::exists(static_cast<char const*>(nullptr));
  (void)FIO_FILE_SYSTEM::is_older("a", nullptr);
  (void)FIO_FILE_SYSTEM::get_current_directory(0, nullptr);
  fio_display_path_too_long_assert_message(nullptr);
}
