// Makes a scratch project from a design, and cleans it up again: what a tool does around its run.
//
//     workspace --design DIR --into DIR
//
// The scratch project must not exist yet. It is left as the last step leaves it, for a look at it. The exit status is 0,
// or 1 if a step failed or its words cannot be written, or 2 for arguments that make no sense.

#include <sys/stat.h>
#include <utime.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstddef>
#include <ctime>
#include <exception>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "ccl/fio/fio.h"
#include "examples/common/output.h"

namespace {

enum exit_status { done = 0, step_failed = 1, bad_arguments = 2 };

// A step that the others stand on.
void require(bool done_well, std::string const& step) {
  if (!done_well) {
    throw std::runtime_error("cannot " + step);
  }
}

template <typename Iterator>
void list(std::string const& directory) {
  std::vector<std::string> lines;
  for (FIO_DIRECTORY_ENTRY const& entry : Iterator(directory.c_str())) {
    lines.push_back("  " + entry.path.substr(directory.size() + 1) + (entry.is_directory ? "/" : ""));
  }
  // A directory delivers its entries in no order.
  std::sort(lines.begin(), lines.end());
  for (std::string const& line : lines) {
    std::cout << line << '\n';
  }
}

bool has_same_times(std::string const& left, std::string const& right) {
  struct stat left_status;
  struct stat right_status;
  return FIO_FILE_SYSTEM::status(left, &left_status) && FIO_FILE_SYSTEM::status(right, &right_status) &&
         left_status.st_mtime == right_status.st_mtime;
}

int count_temporary_files(std::string const& directory) {
  int count = 0;
  for (FIO_DIRECTORY_ENTRY const& entry : FIO_DIRECTORY_ITERATOR(directory.c_str())) {
    count += FIO_FILE_SYSTEM::same_file(entry.derive_path().filename().c_str(), ".korvane.*.tmp") ? 1 : 0;
  }
  return count;
}

void make_and_clean_temporary_files(std::string const& directory) {
  constexpr int hour = 3600;
  constexpr int number = 4;
  std::string const inside = directory + '/';
  for (int i = 0; i != number; ++i) {
    std::string const name = FIO_FILE_SYSTEM::get_tmp_path(inside.c_str());
    require(FIO_FILE_SYSTEM::touch(name), "make " + name);
    if (i % 2 == 0) {
      std::time_t const two_hours_ago = std::time(nullptr) - std::time_t{2} * hour;
      utimbuf const times = {two_hours_ago, two_hours_ago};
      require(::utime(name.c_str(), &times) == 0, "age " + name);
    }
  }
  std::cout << count_temporary_files(directory) << " temporary files, " << number / 2 << " of them two hours old\n";
  require(FIO_FILE_SYSTEM::remove_temp_files(inside.c_str(), hour, nullptr), "tell the time of " + directory);
  std::cout << count_temporary_files(directory) << " of them are left after those older than an hour were removed\n";
}

// Says what kept an empty directory, from the words of the error.
void clean_directories(std::string const& directory) {
  std::unique_ptr<FIO_ERRC> const error = FIO_FILE_SYSTEM::remove_empty_subdirectories(directory, false);
  if (error == nullptr) {
    std::cout << "all empty directories are gone\n";
    return;
  }
  for (KORVANE_ERROR_MESSAGE::LINE const& line : error->message().m_lines) {
    std::cout << std::string(static_cast<std::size_t>(line.m_indent), '\t') << line.m_text << '\n';
  }
}

void run(std::string const& design, std::string const& into) {
  require(FIO_FILE_SYSTEM::create(into + "/results/synthesis/maps"), "make " + into);
  require(FIO_FILE_SYSTEM::copy_dir(design, into, false, true), "copy " + design + " to " + into);
  std::cout << "The scratch project, its top level:\n";
  list<FIO_DIRECTORY_ITERATOR>(into);
  std::cout << "and all of it:\n";
  list<FIO_RECURSIVE_DIRECTORY_ITERATOR>(into);
  std::cout << "rtl/top.v kept its time: "
            << (has_same_times(design + "/rtl/top.v", into + "/rtl/top.v") ? "yes" : "no") << '\n';
  make_and_clean_temporary_files(into);
  clean_directories(into);
  std::cout << "What is left of results: "
            << (FIO_FILE_SYSTEM::exists((into + "/results").c_str()) ? "some" : "nothing") << '\n';
  std::string const source = into + "/rtl/top.v";
  std::cout << "Asked to clean a file: ";
  clean_directories(source);
  require_written_output();
}

// Whether a path, which need not exist, lies in a directory: one of the directories above it is that directory.
bool lies_in(std::string const& directory, std::string const& path) {
  auto const real_directory = FIO_PATH::canonical(directory);
  FIO_PATH above(path + '/');
  above.become_absolute("");
  for (; above.levels() > 0; above.cd("..")) {
    auto const real_above = FIO_PATH::canonical(above.fullpath());
    if (real_directory && real_above == real_directory) {
      return true;
    }
  }
  return false;
}

int fail(int status, std::string reason) {
  std::replace(reason.begin(), reason.end(), '\n', ' ');
  std::cerr << "workspace: " << reason << '\n';
  return status;
}

} // namespace

int main(int count, char** values) try {
  std::string design;
  std::string into;
  CLI::App app("Makes a scratch project from a design, and cleans it up.", "workspace");
  app.add_option("--design", design, "the design to copy")->required();
  app.add_option("--into", into, "the scratch project to make")->required();
  try {
    app.parse(count, values);
  } catch (CLI::Success const& help) {
    app.exit(help);
    require_written_output();
    return done;
  } catch (CLI::ParseError const& error) {
    return fail(bad_arguments, error.what());
  }
  if (!FIO_FILE_SYSTEM::is_directory(design.c_str())) {
    return fail(bad_arguments, "--design: \"" + design + "\" is no directory");
  }
  if (into.empty() || FIO_FILE_SYSTEM::exists(into.c_str())) {
    return fail(bad_arguments, "--into: \"" + into + "\" exists already");
  }
  if (lies_in(design, into)) {
    return fail(bad_arguments, "--into: \"" + into + "\" lies in the design");
  }
  run(design, into);
  return done;
} catch (std::exception const& error) {
  return fail(step_failed, error.what());
}
