// Files around the run of a tool: a scratch directory, copies with their times, temporary files, and the cleaning.

#include <ccl/fio/fio_file_sys.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <string>

int main() {
  // A name that nobody else has. The directory of the text counts, so it ends in a separator.
  std::string const scratch = FIO_FILE_SYSTEM::get_tmp_path("./");
  std::string const results = scratch + "/results/maps";
  if (!FIO_FILE_SYSTEM::create(results)) { // with all its parents
    std::cerr << "cannot make " << results << '\n';
    return 1;
  }

  std::string const source = scratch + "/top.v";
  std::FILE* const file = FIO_FILE_SYSTEM::fopen(source.c_str(), "w");
  if (file == nullptr) {
    std::cerr << source << ": " << std::strerror(errno) << '\n';
    return 1;
  }
  std::fputs("module top; endmodule\n", file);
  if (std::fclose(file) != 0) {
    std::cerr << "cannot write " << source << '\n';
    return 1;
  }

  // A wildcard stands for all that match. Neither replaces what is there, and both keep the times.
  bool const copied = FIO_FILE_SYSTEM::copy_files(scratch + "/*.v", scratch + "/backup", false, true);
  std::cout << "copied: " << copied << ", there: " << FIO_FILE_SYSTEM::exists((scratch + "/backup/top.v").c_str())
            << '\n';

  struct stat status;
  if (FIO_FILE_SYSTEM::status(scratch + "/backup/top.v", &status)) {
    std::cout << "bytes: " << status.st_size << '\n';
  }

  // Temporary files of an age, here of any, and then the directories in which nothing is left.
  std::string const inside = scratch + '/';
  FIO_FILE_SYSTEM::touch(FIO_FILE_SYSTEM::get_tmp_path(inside.c_str()));
  std::cout << "temporary files: " << FIO_FILE_SYSTEM::exists((inside + ".korvane.*.tmp").c_str());
  FIO_FILE_SYSTEM::remove_temp_files(inside.c_str(), -1, nullptr);
  std::cout << ", and then: " << FIO_FILE_SYSTEM::exists((inside + ".korvane.*.tmp").c_str()) << '\n';
  if (FIO_FILE_SYSTEM::remove_empty_subdirectories(scratch, false) == nullptr) {
    std::cout << "results: " << FIO_FILE_SYSTEM::exists((scratch + "/results").c_str()) << '\n';
  }

  return FIO_FILE_SYSTEM::remove_recursively(scratch.c_str(), nullptr, nullptr) ? 0 : 1;
}
