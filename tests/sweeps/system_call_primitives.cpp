// The operations that are one call, and those that ask.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_path.h"
#include "tests/sweeps/system_call_operations.h"
#include "tests/sweeps/system_call_results.h"

namespace system_call {
namespace {

using fs = FIO_FILE_SYSTEM;

constexpr long old_age = 1'500'000'000;

std::string open_file() {
  int const descriptor = watched([] { return fs::open("file", O_RDONLY, 0); });
  if (descriptor < 0) {
    return text(descriptor);
  }
  ::close(descriptor);
  return "descriptor";
}

std::string fopen_file() {
  std::FILE* const stream = watched([] { return fs::fopen("file", "rb"); });
  if (stream == nullptr) {
    return "null";
  }
  std::fclose(stream);
  return "stream";
}

std::string current_directory_into_buffer() {
  char buffer[1024] = "held";
  char const* const answer = watched([&buffer] { return fs::get_current_directory(buffer, sizeof buffer); });
  return answer == nullptr ? "null" : anonymous(buffer);
}

std::string current_directory_length() {
  char buffer[1024] = "held";
  unsigned long const length = watched([&buffer] { return fs::get_current_directory(sizeof buffer, buffer); });
  return length == std::strlen(buffer) ? anonymous(buffer) : "another length";
}

template <typename Path>
std::string status_of(Path const& path) {
  struct stat record = {};
  bool const known = watched([&] { return fs::status(path, &record); });
  return text(known) + (known ? " " + std::to_string(record.st_size) : std::string());
}

std::string tear_a_path() {
  char drive[1], dir[1025], fname[1025], ext[257], path[2600];
  bool const torn = watched([&] { return fs::splitpath("dir/a.v", drive, dir, fname, ext); });
  fs::makepath(path, drive, dir, fname, ext);
  return text(torn) + " " + path;
}

std::string tear_a_path_into_strings() {
  std::string drive, dir, fname, ext;
  bool const torn = watched([&] { return fs::splitpath("dir/a.v", drive, dir, fname, ext); });
  return text(torn) + " " + dir + "|" + fname + "|" + ext;
}

std::string join_a_path() {
  char path[64];
  watched([&path] { fs::makepath(path, "", "dir", "a", "v"); });
  return path;
}

// Searches

std::string find_first_of(char const* filespec) {
  _finddata_t entry = {};
  long const handle = watched([&] { return fs::findfirst(filespec, &entry); });
  fs::findclose(handle);
  return handle == -1 ? "-1" : (handle == 0 ? "0 " : "walk ") + text(entry);
}

std::string find_next() {
  _finddata_t entry = {};
  long const handle = fs::findfirst("dir/*", &entry);
  while (std::strcmp(entry.name, "..") != 0 && fs::findnext(handle, &entry) == 0) {
  }
  int const answer = watched([&] { return fs::findnext(handle, &entry); });
  fs::findclose(handle);
  return text(answer) + (answer == 0 ? " " + text(entry) : std::string());
}

std::string find_close() {
  _finddata_t entry = {};
  long const handle = fs::findfirst("dir/*", &entry);
  return text(watched([handle] { return fs::findclose(handle); }));
}

std::string find_close_of_nothing() {
  return text(watched([] { return fs::findclose(-1); }));
}

#define ASKED(expression) [] { return text(watched([] { return expression; })); }

std::vector<operation> const single_calls = {
    {"open", "FIO_FILE_SYSTEM::open(char const*, int, int)", open_file, "descriptor", "", ""},
    {"fopen", "FIO_FILE_SYSTEM::fopen(char const*, char const*)", fopen_file, "stream", "", ""},
    {"chmod", "FIO_FILE_SYSTEM::chmod(char const*, int)", ASKED(fs::chmod("file", 0600)), "true", "", ""},
    {"mkdir", "FIO_FILE_SYSTEM::mkdir(char const*)", ASKED(fs::mkdir("new")), "0", "", ""},
    {"rmdir", "FIO_FILE_SYSTEM::rmdir(char const*)", ASKED(fs::rmdir("empty/in")), "0", "", ""},
    {"change directory", "FIO_FILE_SYSTEM::change_current_directory(char const*)",
     ASKED(fs::change_current_directory("dir")), "0", "", ""},
    {"set directory", "FIO_FILE_SYSTEM::set_current_directory(string const&)", ASKED(fs::set_current_directory("dir")),
     "true", "", ""},
    {"directory into buffer", "FIO_FILE_SYSTEM::get_current_directory(char*, unsigned long)",
     current_directory_into_buffer, "$", "", ""},
    {"directory length", "FIO_FILE_SYSTEM::get_current_directory(unsigned long, char*)", current_directory_length, "$",
     "", ""},
    {"directory", "FIO_FILE_SYSTEM::get_current_directory()",
     [] { return anonymous(watched([] { return fs::get_current_directory(); })); }, "$", "", ""},
    {"rename posix", "FIO_FILE_SYSTEM::posix_rename(char const*, char const*)",
     ASKED(fs::posix_rename("file", "other")), "true", "", ""},
    {"rename", "FIO_FILE_SYSTEM::rename(char const*, char const*)", ASKED(fs::rename("file", "other")), "true", "", ""},
    {"rename strings", "FIO_FILE_SYSTEM::rename(string const&, string const&)",
     ASKED(fs::rename(std::string("file"), std::string("other"))), "true", "", ""},
    {"rename paths", "FIO_FILE_SYSTEM::rename(FIO_PATH const&, FIO_PATH const&)",
     ASKED(fs::rename(FIO_PATH("file"), FIO_PATH("other"))), "true", "", ""},
    {"remove", "FIO_FILE_SYSTEM::remove(char const*)", ASKED(fs::remove("file")), "true", "", ""},
    {"remove string", "FIO_FILE_SYSTEM::remove(string const&)", ASKED(fs::remove(std::string("empty/in"))), "true", "",
     ""},
    {"remove path", "FIO_FILE_SYSTEM::remove(FIO_PATH const&)", ASKED(fs::remove(FIO_PATH("file"))), "true", "", ""},
    {"remove native", "FIO_FILE_SYSTEM::native_remove(char const*)", ASKED(fs::native_remove("file")), "true", "", ""},
    {"remove posix", "FIO_FILE_SYSTEM::posix_remove(char const*)", ASKED(fs::posix_remove("file")), "true", "", ""},
    {"remove unc", "FIO_FILE_SYSTEM::unc_native_remove(string const&)", ASKED(fs::unc_native_remove("file")), "true",
     "", ""},
    {"remove if there", "FIO_FILE_SYSTEM::remove_if_exists(string const&)", ASKED(fs::remove_if_exists("file")), "true",
     "", ""},
};

std::vector<operation> const questions = {
    {"status", "FIO_FILE_SYSTEM::status(char const*, stat*)", [] { return status_of("dir/b.v"); }, "true 2", "", ""},
    {"status of string", "FIO_FILE_SYSTEM::status(string const&, stat*)",
     [] { return status_of(std::string("dir/b.v")); }, "true 2", "", ""},
    {"status of path", "FIO_FILE_SYSTEM::status(FIO_PATH const&, stat*)", [] { return status_of(FIO_PATH("dir/b.v")); },
     "true 2", "", ""},
    {"is directory", "FIO_FILE_SYSTEM::is_directory(char const*)", ASKED(fs::is_directory("dir")), "true", "", ""},
    {"is regular file", "FIO_FILE_SYSTEM::is_regular_file(char const*)", ASKED(fs::is_regular_file("file")), "true", "",
     ""},
    {"is older", "FIO_FILE_SYSTEM::is_older(char const*, long const*)", ASKED(fs::is_older("file", &old_age)), "true",
     "", ""},
    {"is older than nothing", "FIO_FILE_SYSTEM::is_older(char const*, long const*)",
     ASKED(fs::is_older("file", nullptr)), "true", "", ""},
    {"exists", "FIO_FILE_SYSTEM::exists(char const*)", ASKED(fs::exists("file")), "true", "", ""},
    {"exists path", "FIO_FILE_SYSTEM::exists(FIO_PATH const&)", ASKED(fs::exists(FIO_PATH("file"))), "true", "", ""},
    {"exists wildcard", "FIO_FILE_SYSTEM::exists(char const*)", ASKED(fs::exists("dir/*a.v")), "true", "", ""},
    {"same file", "FIO_FILE_SYSTEM::same_file(char const*, char const*)", ASKED(fs::same_file("a.v", "*.v")), "true",
     "", ""},
    {"tear", "FIO_FILE_SYSTEM::splitpath(char const*, char*, char*, char*, char*)", tear_a_path, "true dir/a.v", "",
     ""},
    {"tear into strings", "FIO_FILE_SYSTEM::splitpath(char const*, string&, string&, string&, string&)",
     tear_a_path_into_strings, "true dir/|a|.v", "", ""},
    {"join", "FIO_FILE_SYSTEM::makepath(char*, char const*, char const*, char const*, char const*)", join_a_path,
     "dir/a.v", "", ""},
    {"lower case", "FIO_FILE_SYSTEM::tolower(string const&)", [] { return watched([] { return fs::tolower("A"); }); },
     "A", "", ""},
    {"find literally", "FIO_FILE_SYSTEM::findfirst(char const*, _finddata_t*)", [] { return find_first_of("dir/a.v"); },
     "0 a.v attributes 0 size 1 time 1000000000", "", ""},
    {"find wildcard", "FIO_FILE_SYSTEM::findfirst(char const*, _finddata_t*)", [] { return find_first_of("dir/*a.v"); },
     "walk a.v attributes 0 size 1 time 1000000000", "", ""},
    {"find next", "FIO_FILE_SYSTEM::findnext(long, _finddata_t*)", find_next,
     "0 a.v attributes 0 size 1 time 1000000000", "", ""},
    {"find close", "FIO_FILE_SYSTEM::findclose(long)", find_close, "1", "", ""},
    {"find close of nothing", "FIO_FILE_SYSTEM::findclose(long)", find_close_of_nothing, "-1", "", ""},
};

} // namespace

std::vector<operation> primitive_operations() {
  std::vector<operation> rows = single_calls;
  rows.insert(rows.end(), questions.begin(), questions.end());
  return rows;
}

} // namespace system_call
