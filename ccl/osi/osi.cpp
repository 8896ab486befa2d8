#include "ccl/osi/osi.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string>

struct OSI_PATH {
  std::string text;
  bool known;
};

int osi_open(char const* path, int flags, int mode) {
  return ::open(path, flags | O_CLOEXEC, static_cast<mode_t>(mode));
}

std::FILE* osi_fopen(char const* path, char const* mode) {
  // "e" is the C library's own letter for close-on-exec. That library reads the first seven letters of a mode.
  constexpr std::size_t letters_that_count = 7;
  std::size_t const length = std::strlen(mode);
  if (length == 0 || length >= letters_that_count) {
    return std::fopen(path, mode);
  }
  std::string with_close_on_exec = mode; // too short to allocate
  with_close_on_exec.insert(1, 1, 'e');
  return std::fopen(path, with_close_on_exec.c_str());
}

int osi_chmod(char const* path, int mode) { return ::chmod(path, static_cast<mode_t>(mode)); }

char* osi_getcwd(char* buffer, unsigned long size) { return ::getcwd(buffer, size); }

int osi_mkdir(char const* path) { return ::mkdir(path, 0777); }

int osi_rmdir(char const* path) { return ::rmdir(path); }

int osi_chdir(char const* path) { return ::chdir(path); }

int osi_status(char const* path, struct stat* buffer) { return ::stat(path, buffer); }

int osi_exists(char const* path) {
  struct stat unused;
  return ::stat(path, &unused) == 0 ? 1 : 0;
}

OSI_PATH* osi_get_unc_full_path(char const* path) {
  try {
    auto record = std::make_unique<OSI_PATH>();
    record->known = path != nullptr;
    if (path == nullptr) {
      return record.release();
    }
    if (*path != '/') {
      // A null buffer makes the C library allocate as much as the directory needs.
      std::unique_ptr<char, decltype(&std::free)> const current(::getcwd(nullptr, 0), &std::free);
      record->known = current != nullptr;
      if (!record->known) {
        return record.release();
      }
      record->text = current.get();
      if (record->text != "/") {
        record->text += '/';
      }
    }
    record->text += path;
    return record.release();
  } catch (std::bad_alloc const&) {
    return nullptr;
  }
}

char const* osi_path_get_data(OSI_PATH* path) { return path != nullptr && path->known ? path->text.c_str() : nullptr; }

void osi_path_free(OSI_PATH* path) { delete path; }
