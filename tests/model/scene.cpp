#include "tests/model/scene.h"

#include <cstdlib>
#include <cstring>

#include "ccl/fio/fio_file_sys.h"
#include "tests/model/wildcard_model.h"
#include "tests/support/platform_double.h"

namespace {

constexpr std::size_t longest_current_directory = 1023;

std::string parts_text(bool answer, std::string const& drive, std::string const& directory, std::string const& base,
                       std::string const& extension) {
  return (answer ? "true\n" : "false\n") + drive + '\n' + directory + '\n' + base + '\n' + extension;
}

} // namespace

bool real_side::same_file(std::string const& name, std::string const& pattern) {
  return FIO_FILE_SYSTEM::same_file(name.c_str(), pattern.c_str());
}

std::string real_side::splitpath(std::string const& text) {
  std::string drive = "left over";
  std::string directory = "left over";
  std::string base = "left over";
  std::string extension = "left over";
  bool const answer = FIO_FILE_SYSTEM::splitpath(text.c_str(), drive, directory, base, extension);
  std::string const parts = parts_text(answer, drive, directory, base, extension);

  char drive_buffer[1];
  char directory_buffer[1025];
  char base_buffer[1025];
  char extension_buffer[257];
  bool const c_answer =
      FIO_FILE_SYSTEM::splitpath(text.c_str(), drive_buffer, directory_buffer, base_buffer, extension_buffer);
  std::string const c_parts = parts_text(c_answer, drive_buffer, directory_buffer, base_buffer, extension_buffer);
  return parts == c_parts ? parts : parts + "\nbut with buffers\n" + c_parts;
}

std::string real_side::makepath(std::string const& drive, std::string const& directory, std::string const& base,
                                std::string const& extension) {
  std::vector<char> buffer(drive.size() + directory.size() + base.size() + extension.size() + 5);
  FIO_FILE_SYSTEM::makepath(buffer.data(), drive.c_str(), directory.c_str(), base.c_str(), extension.c_str());
  return buffer.data();
}

void real_side::length_message(char const* path) { fio_display_path_too_long_assert_message(path); }

// Only presence counts, so the value is the empty one.
void real_side::set_old_simplify(bool on) {
  if (on) {
    ::setenv("fio_old_simplify", "", 1);
  } else {
    ::unsetenv("fio_old_simplify");
  }
}

void real_side::set_current_directory(std::string const& directory) {
  platform_double::replaced().osi_getcwd = [directory](char* buffer, unsigned long size) -> char* {
    if (directory.empty() || directory.size() >= size) {
      return nullptr;
    }
    return std::strcpy(buffer, directory.c_str());
  };
}

std::vector<std::string> real_side::take_messages() {
  std::vector<std::string> result;
  for (platform_double::debug_message const& message : platform_double::debug_messages()) {
    result.push_back(message.module == "FIO" ? message.format : message.module + ": " + message.format);
  }
  platform_double::debug_messages().clear();
  return result;
}

bool model_side::same_file(std::string const& name, std::string const& pattern) {
  return model_same_file(c_text(name), c_text(pattern));
}

std::string model_side::splitpath(std::string const& text) {
  path_parts const parts = divide_text(text);
  return parts_text(parts.legal, parts.drive, parts.directory, parts.base, parts.extension);
}

std::string model_side::makepath(std::string const& drive, std::string const& directory, std::string const& base,
                                 std::string const& extension) {
  return join_parts(drive, directory, base, extension);
}

void model_side::length_message(char const* path) { model_length_message(path); }

void model_side::set_old_simplify(bool on) { model_surroundings.old_simplify = on; }

void model_side::set_current_directory(std::string const& directory) {
  model_surroundings.current_directory = directory.size() <= longest_current_directory ? directory : "";
}

std::vector<std::string> model_side::take_messages() {
  std::vector<std::string> result;
  result.swap(model_surroundings.messages);
  return result;
}
