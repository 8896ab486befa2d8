#include "tests/faults/trees.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "ccl/fio/fio_iterator.h"
#include "tests/support/platform_double.h"

namespace fs = std::filesystem;

namespace faults {

namespace {

std::string drawn(fs::directory_entry const& entry, std::string name) {
  if (entry.is_symlink()) {
    return name + " -> " + fs::read_symlink(entry.path()).string();
  }
  if (entry.is_directory()) {
    return name + '/';
  }
  if (!entry.is_regular_file()) {
    return name + '?';
  }
  std::string const content = content_of(entry.path().string());
  return content.empty() ? name : name + '=' + content;
}

std::string state_of(std::string const& path) {
  struct stat record;
  if (::lstat(path.c_str(), &record) != 0) {
    return "gone";
  }
  return std::to_string(record.st_mode) + ' ' + std::to_string(record.st_nlink) + ' ' +
         std::to_string(record.st_mtim.tv_sec) + '.' + std::to_string(record.st_mtim.tv_nsec);
}

lines listed(std::string const& directory, bool with_state) {
  lines result;
  for (fs::directory_entry const& entry : fs::recursive_directory_iterator(directory)) {
    std::string const path = entry.path().string();
    std::string const line = drawn(entry, path.substr(directory.size() + 1));
    result.push_back(with_state ? line + " (" + state_of(path) + ')' : line);
  }
  if (with_state) {
    result.push_back(". (" + state_of(directory) + ')');
  }
  std::sort(result.begin(), result.end());
  return result;
}

} // namespace

lines drawing(std::string const& directory) { return listed(directory, false); }

lines snapshot(std::string const& directory) { return listed(directory, true); }

template <typename Iterator>
lines iterated(std::string const& directory) {
  lines paths;
  for (FIO_DIRECTORY_ENTRY const& entry : Iterator(directory.c_str())) {
    paths.push_back(entry.is_directory ? entry.path + '/' : entry.path);
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

template lines iterated<FIO_DIRECTORY_ITERATOR>(std::string const& directory);
template lines iterated<FIO_RECURSIVE_DIRECTORY_ITERATOR>(std::string const& directory);

std::string patterned(std::size_t size) {
  std::string text(size, '\0');
  for (std::size_t i = 0; i != size; ++i) {
    text[i] = static_cast<char>('a' + (i % 23 + i / 4096) % 26);
  }
  return text;
}

std::string content_of(std::string const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void write_file(std::string const& path, std::string const& content) {
  std::ofstream(path, std::ios::binary) << content;
}

void set_times(std::string const& path, time_t seconds) {
  timespec const times[] = {{seconds, 0}, {seconds, 0}};
  ::utimensat(AT_FDCWD, path.c_str(), times, AT_SYMLINK_NOFOLLOW);
}

time_t modified_at(std::string const& path) {
  struct stat record = {};
  ::lstat(path.c_str(), &record);
  return record.st_mtime;
}

bool stands(std::string const& path) {
  struct stat record;
  return ::lstat(path.c_str(), &record) == 0;
}

int open_descriptors() {
  int count = 0;
  for (int descriptor = 0; descriptor != 1024; ++descriptor) {
    count += ::fcntl(descriptor, F_GETFD) != -1 ? 1 : 0;
  }
  return count;
}

lines take_messages() {
  lines texts;
  for (platform_double::debug_message const& message : platform_double::debug_messages()) {
    texts.push_back(message.text);
  }
  platform_double::debug_messages().clear();
  return texts;
}

} // namespace faults
