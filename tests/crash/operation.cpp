// Carries one operation out in the current directory, and notes when it returned true.
//
// usage: crash_operation NAME MARKS [--without-fsync]
//
// A note is a line in the file MARKS: "returned", and then "forced" when the directories have been forced to the disk,
// as a caller does to whom the names matter.

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "ccl/fio/fio_file_sys.h"

namespace {

using files = FIO_FILE_SYSTEM;

bool without_fsync = false;

struct row {
  char const* name;
  bool (*run)();
};

constexpr row operations[] = {
    {"copy", [] { return files::copy("source", "out/target", false, false); }},
    {"copy_overwriting", [] { return files::copy("source", "out/old", true, false); }},
    {"copy_with_times", [] { return files::copy("source", "out/target", false, true); }},
    {"copy_files", [] { return files::copy_files("tree/*.v", "out", false, false); }},
    {"copy_dir", [] { return files::copy_dir("tree", "out/tree", false, false); }},
    {"move", [] { return files::move("source", "out/target", false, false); }},
    {"move_overwriting", [] { return files::move("source", "out/old", true, false); }},
    {"rename", [] { return files::rename("source", "out/old"); }},
    {"create", [] { return files::create("out/made/deep"); }},
    {"touch", [] { return files::touch("out/made"); }},
    {"remove", [] { return files::remove("out/old"); }},
    {"remove_recursively", [] { return files::remove_recursively("tree", nullptr, nullptr); }},
};

bool force(char const* name) {
  int const directory = ::open(name, O_RDONLY | O_DIRECTORY);
  bool const forced = directory != -1 && ::syscall(SYS_fsync, directory) == 0;
  return ::close(directory) == 0 && forced;
}

bool run(row const& operation, char const* marks_name) {
  int const marks = ::open(marks_name, O_WRONLY);
  auto const mark = [marks](std::string const& line) {
    return ::write(marks, line.data(), line.size()) == static_cast<ssize_t>(line.size());
  };
  bool const done =
      marks != -1 && operation.run() && mark("returned\n") && force("out") && force(".") && mark("forced\n");
  return ::close(marks) == 0 && done;
}

} // namespace

// In the place of the C library's, which the library would call otherwise.
extern "C" int fsync(int descriptor) { return without_fsync ? 0 : static_cast<int>(::syscall(SYS_fsync, descriptor)); }

int main(int count, char** values) {
  without_fsync = count == 4 && std::strcmp(values[3], "--without-fsync") == 0;
  if (count == 3 || without_fsync) {
    for (row const& operation : operations) {
      if (std::strcmp(operation.name, values[1]) == 0) {
        return run(operation, values[2]) ? 0 : 1;
      }
    }
  }
  std::fprintf(stderr, "usage: crash_operation NAME MARKS [--without-fsync]\n");
  return 2;
}
