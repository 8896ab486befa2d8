/// @file
/// Feeds files, and all files of folders, to the fuzz target that it is linked with, in the order of their names.

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>
#include <vector>

#include "tests/fuzz/support/target.h"

// The sanitizers end the process without a signal, but not without this, where they are linked in.
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());

namespace {

namespace fs = std::filesystem;

std::string current_input;

// Nothing may be allocated here: the heap may be what is broken.
void name_the_input() {
  static constexpr char words[] = "while replaying ";
  static_cast<void>(::write(STDERR_FILENO, words, sizeof words - 1) +
                    ::write(STDERR_FILENO, current_input.data(), current_input.size()) +
                    ::write(STDERR_FILENO, "\n", 1));
}

void handle_abort(int /*signal*/) { name_the_input(); }

// Absolute, for a target may change the current directory.
std::vector<std::string> files_of(std::vector<std::string> const& arguments) {
  std::vector<std::string> files;
  for (fs::path const argument : arguments) {
    if (!fs::is_directory(argument)) {
      files.push_back(fs::absolute(argument).string());
      continue;
    }
    for (fs::directory_entry const& entry : fs::recursive_directory_iterator(fs::absolute(argument))) {
      if (entry.is_regular_file()) {
        files.push_back(entry.path().string());
      }
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

bool replay(std::string const& name) {
  std::ifstream file(name, std::ios::binary);
  std::vector<char> const content(std::istreambuf_iterator<char>(file), {});
  if (!file.is_open() || file.bad()) {
    std::fprintf(stderr, "cannot read %s\n", name.c_str());
    return false;
  }
  current_input = name;
  // A copy of exactly this size, so that a sanitizer sees a step beyond the end.
  std::vector<std::uint8_t> const data(content.begin(), content.end());
  LLVMFuzzerTestOneInput(data.data(), data.size());
  return true;
}

} // namespace

int main(int count, char** values) {
  std::signal(SIGABRT, handle_abort);
  if (__sanitizer_set_death_callback != nullptr) {
    __sanitizer_set_death_callback(name_the_input);
  }
  std::vector<std::string> const arguments(values + 1, values + count);
  std::vector<std::string> const files = files_of(arguments);
  if (files.empty()) {
    std::fprintf(stderr, "usage: %s FILE-OR-FOLDER..., and at least one file in them\n", values[0]);
    return 2;
  }
  if (!std::all_of(files.begin(), files.end(), replay)) {
    return 1;
  }
  std::printf("%s: %zu inputs replayed\n", program_invocation_short_name, files.size());
  return 0;
}
