#include "ccl/fio/fio_file_sys.h"

#include <dirent.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <string_view>

#include "ccl/fio/fio_path.h"
#include "ccl/fio/internal/module.h"
#include "ccl/fio/internal/path_text.h"
#include "ccl/osi/osi.h"

namespace {

MEM_INITIALIZER const mem_initializer(fio_internal::module_name);

// The error number of a failure is the system's own; there is nothing to translate on this platform.
[[gnu::used]] void fio_set_errno() {}

// Single bits of the mode, not values of its file-type field.
constexpr mode_t directory_bit = 0x4000;
constexpr mode_t regular_file_bit = 0x8000;

constexpr std::uint32_t attribute_directory = 0x10;
constexpr std::uint32_t attribute_read_only = 0x01;

constexpr int nothing_found = -1;
constexpr int single_entry = 0;

bool has_wildcard(char const* path) { return std::strpbrk(path, "*?") != nullptr; }

bool is_legal_text(char const* path) { return fio_internal::is_legal_length(fio_internal::bounded_text(path).size()); }

// Whether one byte of a pattern, which is no `*`, stands for a byte of a name. The end of a pattern stands for none.
bool matches_byte(char pattern, char name) { return (pattern == '?' && name != '\0') || pattern == name; }

bool has_mode_bit(char const* path, mode_t bit) {
  struct stat buffer;
  return FIO_FILE_SYSTEM::status(path, &buffer) && (buffer.st_mode & bit) != 0;
}

// Copies at most `limit` characters, which may lie behind the target's start, and ends them by a NUL.
void copy_text(char* target, std::string_view text, std::size_t limit) {
  *std::copy_n(text.begin(), std::min(text.size(), limit), target) = '\0';
}

void write_part(char* target, std::string_view part) {
  if (target != nullptr) {
    copy_text(target, part, part.size());
  }
}

// One walk over a directory. The caller of `findfirst` holds its address as a number.
struct find_handle_record {
  find_handle_record(char const* filespec, std::string_view directory_part, DIR* opened) : stream(opened) {
    copy_text(pattern, filespec, fio_internal::longest_path);
    copy_text(directory, directory_part, fio_internal::longest_path);
  }

  // Entries are compared in the form in which the pattern was given: with a directory if it has one.
  bool compares_bare_names() const { return std::strcmp(directory, ".") == 0 && pattern[0] != '.'; }

  char pattern[fio_internal::longest_path + 1];
  char directory[fio_internal::longest_path + 1];
  DIR* stream;
};

// A stream that is no address is no stream.
bool is_open(DIR* stream) { return reinterpret_cast<std::uintptr_t>(stream) > 1; }

// The record of a handle, or null for one of the values that are no address.
find_handle_record* record_of(long handle) {
  bool const is_address = handle != nothing_found && handle != single_entry && handle != 1;
  return is_address ? reinterpret_cast<find_handle_record*>(handle) : nullptr;
}

// The entry that a path without a wildcard names. The system's own `stat`, whatever the operating-system layer does.
long find_entry(char const* path, _finddata_t* fileinfo) {
  struct stat buffer;
  if (::stat(path, &buffer) != 0) {
    return nothing_found;
  }
  fileinfo->attrib = 0;
  if ((buffer.st_mode & directory_bit) != 0) {
    fileinfo->attrib = attribute_directory;
  } else if (::access(path, W_OK) == -1) {
    fileinfo->attrib = attribute_read_only;
  }
  fileinfo->time_write = buffer.st_mtime;
  fileinfo->size = buffer.st_size;
  // Last: the path may be the name that the record holds from another search.
  char const* const last_slash = std::strrchr(path, '/');
  copy_text(fileinfo->name, last_slash != nullptr ? last_slash + 1 : path, sizeof fileinfo->name - 1);
  return single_entry;
}

} // namespace

// Opening and attributes

int FIO_FILE_SYSTEM::open(char const* path, int flags, int mode) { return osi_open(path, flags, mode); }

std::FILE* FIO_FILE_SYSTEM::fopen(char const* path, char const* mode) { return osi_fopen(path, mode); }

bool FIO_FILE_SYSTEM::chmod(char const* path, int mode) { return osi_chmod(path, mode) == 0; }

// Directories

int FIO_FILE_SYSTEM::mkdir(char const* path) { return osi_mkdir(path); }

int FIO_FILE_SYSTEM::rmdir(char const* path) { return osi_rmdir(path); }

int FIO_FILE_SYSTEM::change_current_directory(char const* path) { return osi_chdir(path); }

bool FIO_FILE_SYSTEM::set_current_directory(std::string const& path) {
  return change_current_directory(path.c_str()) == 0;
}

char* FIO_FILE_SYSTEM::get_current_directory(char* buffer, unsigned long size) { return osi_getcwd(buffer, size); }

unsigned long FIO_FILE_SYSTEM::get_current_directory(unsigned long size, char* buffer) {
  get_current_directory(buffer, size);
  return buffer == nullptr ? 0 : std::strlen(buffer);
}

std::string FIO_FILE_SYSTEM::get_current_directory() {
  // One byte more than the layer below is told of, so that the text is ended whatever that layer writes.
  char buffer[fio_internal::longest_path + 2] = {};
  return get_current_directory(buffer, sizeof buffer - 1) == nullptr ? std::string() : std::string(buffer);
}

// Renaming

bool FIO_FILE_SYSTEM::posix_rename(char const* from, char const* to) { return ::rename(from, to) == 0; }

bool FIO_FILE_SYSTEM::rename(char const* from, char const* to) { return posix_rename(from, to); }

bool FIO_FILE_SYSTEM::rename(std::string const& from, std::string const& to) {
  return rename(from.c_str(), to.c_str());
}

bool FIO_FILE_SYSTEM::rename(FIO_PATH const& from, FIO_PATH const& to) {
  // Each may write a message about its length: the target first.
  char const* const target = to;
  char const* const source = from;
  return rename(source, target);
}

// Removing

bool FIO_FILE_SYSTEM::remove(char const* path) { return path != nullptr && posix_remove(path); }

bool FIO_FILE_SYSTEM::remove(std::string const& path) { return remove(path.c_str()); }

bool FIO_FILE_SYSTEM::remove(FIO_PATH const& path) { return remove(static_cast<char const*>(path)); }

bool FIO_FILE_SYSTEM::native_remove(char const* path) { return remove(path); }

bool FIO_FILE_SYSTEM::posix_remove(char const* path) { return ::remove(path) == 0; }

bool FIO_FILE_SYSTEM::unc_native_remove(std::string const& path) { return posix_remove(path.c_str()); }

bool FIO_FILE_SYSTEM::remove_if_exists(std::string const& path) { return !exists(path.c_str()) || remove(path); }

// Status

bool FIO_FILE_SYSTEM::status(char const* path, struct stat* buffer) { return osi_status(path, buffer) == 0; }

bool FIO_FILE_SYSTEM::status(std::string const& path, struct stat* buffer) { return status(path.c_str(), buffer); }

bool FIO_FILE_SYSTEM::status(FIO_PATH const& path, struct stat* buffer) {
  return status(static_cast<char const*>(path), buffer);
}

bool FIO_FILE_SYSTEM::is_directory(char const* path) { return has_mode_bit(path, directory_bit); }

bool FIO_FILE_SYSTEM::is_regular_file(char const* path) { return has_mode_bit(path, regular_file_bit); }

bool FIO_FILE_SYSTEM::is_older(char const* path, long const* limit) {
  if (limit == nullptr) {
    return true;
  }
  struct stat buffer;
  return status(path, &buffer) && buffer.st_mtime < *limit;
}

bool FIO_FILE_SYSTEM::exists(char const* path) {
  if (path == nullptr || !is_legal_text(path)) {
    return false;
  }
  if (!has_wildcard(path)) {
    return osi_exists(path) != 0;
  }
  _finddata_t unused;
  long const handle = findfirst(path, &unused);
  findclose(handle);
  return handle != nothing_found;
}

bool FIO_FILE_SYSTEM::exists(FIO_PATH const& path) { return exists(static_cast<char const*>(path)); }

bool FIO_FILE_SYSTEM::same_file(char const* name, char const* pattern) {
  // Up to the first `*` the pattern is a prefix. A `*` that is not at the very start is reached with name left only.
  if (*pattern != '*') {
    for (; *pattern != '*' || *name == '\0'; ++name, ++pattern) {
      if (*pattern == '\0') {
        return true;
      }
      if (*name == '\0' || !matches_byte(*pattern, *name)) {
        return false;
      }
    }
  }
  // Behind a `*` the text up to the next one is taken where it first fits, and the last text must end with the name.
  char const* rest = pattern + 1;
  while (*name != '\0') {
    std::size_t fitting = 0;
    while (name[fitting] != '\0' && rest[fitting] != '*' && matches_byte(rest[fitting], name[fitting])) {
      ++fitting;
    }
    if (name[fitting] == '\0') {
      return rest[fitting] == '\0';
    }
    if (rest[fitting] == '*') {
      name += fitting;
      rest += fitting + 1;
    } else {
      ++name;
    }
  }
  return *rest == '\0';
}

// Path texts

void FIO_FILE_SYSTEM::makepath(char* path, char const* drive, char const* dir, char const* fname, char const* ext) {
  auto const text = [](char const* part) { return part != nullptr ? std::string_view(part) : std::string_view(); };
  fio_internal::compose_path(text(drive), text(dir), text(fname), text(ext),
                             [&path](std::string_view piece) { path += piece.copy(path, piece.size()); });
  *path = '\0';
}

bool FIO_FILE_SYSTEM::splitpath(char const* path, char* drive, char* dir, char* fname, char* ext) {
  fio_internal::divided_path const parts = fio_internal::divide_path(path);
  write_part(drive, {});
  write_part(dir, parts.directory);
  write_part(fname, parts.base);
  write_part(ext, parts.extension);
  return parts.legal;
}

bool FIO_FILE_SYSTEM::splitpath(char const* path, std::string& drive, std::string& dir, std::string& fname,
                                std::string& ext) {
  char dir_text[fio_internal::longest_path + 1];
  char fname_text[fio_internal::longest_path + 1];
  char ext_text[fio_internal::longest_extension + 1];
  bool const legal = splitpath(path, nullptr, dir_text, fname_text, ext_text);
  drive.clear();
  dir = dir_text;
  fname = fname_text;
  ext = ext_text;
  return legal;
}

std::string FIO_FILE_SYSTEM::tolower(std::string const& text) { return text; }

// Find handles

long FIO_FILE_SYSTEM::findfirst(char const* filespec, _finddata_t* fileinfo) {
  fio_internal::require_text(filespec);
  if (!is_legal_text(filespec)) {
    return nothing_found;
  }
  if (!has_wildcard(filespec)) {
    return find_entry(filespec, fileinfo);
  }
  char directory[fio_internal::longest_path + 1] = ".";
  if (char const* const last_slash = std::strrchr(filespec, '/')) {
    copy_text(directory, filespec, static_cast<std::size_t>(last_slash - filespec));
  }
  DIR* const stream = ::opendir(directory);
  if (stream == nullptr) {
    return nothing_found;
  }
  auto const handle = reinterpret_cast<long>(new find_handle_record(filespec, directory, stream));
  if (findnext(handle, fileinfo) != 0) {
    findclose(handle); // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): this releases the record
    return nothing_found;
  }
  return handle;
}

int FIO_FILE_SYSTEM::findnext(long handle, _finddata_t* fileinfo) {
  find_handle_record const* const record = record_of(handle);
  if (record == nullptr || !is_open(record->stream)) {
    return nothing_found;
  }
  // Room for the longest directory, a separator and the longest name. A candidate that is too long for a path is
  // passed over, and one that had to be cut is always too long.
  char candidate[fio_internal::longest_path + 1 + sizeof dirent64::d_name + 1];
  std::size_t prefix = 0;
  if (!record->compares_bare_names()) {
    prefix = std::strlen(record->directory);
    std::memcpy(candidate, record->directory, prefix);
    candidate[prefix++] = '/';
  }
  while (dirent64 const* const entry = ::readdir64(record->stream)) {
    copy_text(candidate + prefix, entry->d_name, sizeof candidate - prefix - 1);
    // A wildcard in the candidate would make a search of it, and not the entry itself.
    if (same_file(candidate, record->pattern) && is_legal_text(candidate) && !has_wildcard(candidate) &&
        find_entry(candidate, fileinfo) == single_entry) {
      return 0;
    }
  }
  return nothing_found;
}

int FIO_FILE_SYSTEM::findclose(long handle) {
  find_handle_record* const record = record_of(handle);
  if (record == nullptr) {
    return -1;
  }
  ::closedir(record->stream);
  delete record;
  return 1;
}

std::string fio_get_unc_full_path(char const* path) {
  OSI_PATH* const full_path = osi_get_unc_full_path(path);
  char const* const text = osi_path_get_data(full_path);
  fio_internal::require_text(text);
  std::string result = text;
  osi_path_free(full_path);
  return result;
}
