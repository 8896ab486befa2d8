#include "ccl/fio/fio_file_sys.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utime.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <string_view>
#include <utility>

#include "ccl/fio/fio_errc_codes.h"
#include "ccl/fio/fio_path.h"
#include "ccl/fio/internal/current_directory.h"
#include "ccl/fio/internal/module.h"
#include "ccl/fio/internal/path_text.h"
#include "ccl/fio/internal/search.h"
#include "ccl/osi/osi.h"

namespace {

using fio_internal::attribute_directory;
using fio_internal::nothing_found;
using fio_internal::search;

MEM_INITIALIZER const mem_initializer(fio_internal::module_name);

// The error number of a failure is the system's own; there is nothing to translate on this platform.
[[maybe_unused]] constexpr void fio_set_errno() {}

// Single bits of the mode, not values of its file-type field.
constexpr mode_t directory_bit = 0x4000;
constexpr mode_t regular_file_bit = 0x8000;

constexpr std::uint32_t attribute_read_only = 0x01;

constexpr int single_entry = 0;

bool has_wildcard(std::string_view path) {
  return path.find('*') != std::string_view::npos || path.find('?') != std::string_view::npos;
}

// Returns true if one byte of a pattern, not `*`, matches a byte of a name. Nothing matches the end of the name.
bool matches_byte(char name, char pattern) { return pattern == name || (pattern == '?' && name != '\0'); }

// Returns true if a piece of a pattern without `*` matches the start of a name, which is read no further than its end.
bool begins_with(char const* name, std::string_view piece) {
  for (char const byte : piece) {
    if (!matches_byte(*name++, byte)) {
      return false;
    }
  }
  return true;
}

// Returns the first place in a string that a piece of a pattern without `*` matches, or null.
char const* find_piece(std::string_view text, std::string_view piece) {
  if (piece.find('?') == std::string_view::npos) {
    return static_cast<char const*>(::memmem(text.data(), text.size(), piece.data(), piece.size()));
  }
  char const* const end = text.data() + text.size();
  char const* const place = std::search(text.data(), end, piece.begin(), piece.end(), matches_byte);
  return place != end ? place : nullptr;
}

// Returns true if a name matches a pattern that is a `*` and `rest`.
bool matches_behind_star(char const* name, char const* rest) {
  if (*rest == '\0') {
    return true;
  }
  char const* const end = name + std::strlen(name);
  // A piece that ends at another `*` is taken where it first matches, and leaves a byte of the name to that one.
  do {
    char const* const star = ::strchrnul(rest, '*');
    std::string_view const piece = {rest, static_cast<std::size_t>(star - rest)};
    std::size_t const left = static_cast<std::size_t>(end - name);
    if (*star == '\0') {
      return piece.size() <= left && begins_with(end - piece.size(), piece);
    }
    char const* const place = left != 0 ? find_piece({name, left - 1}, piece) : nullptr;
    if (place == nullptr) {
      return false;
    }
    name = place + piece.size();
    rest = star + 1;
  } while (*rest != '\0');
  return true;
}

bool has_mode_bit(char const* path, mode_t bit) {
  struct stat buffer;
  return FIO_FILE_SYSTEM::status(path, &buffer) && (buffer.st_mode & bit) != 0;
}

// Copies at most `limit` characters, which may be after the target's start, and terminates them with a NUL.
void copy_text(char* target, std::string_view text, std::size_t limit) {
  *std::copy_n(text.begin(), std::min(text.size(), limit), target) = '\0';
}

void write_part(char* target, std::string_view part) {
  if (target != nullptr) {
    copy_text(target, part, part.size());
  }
}

// One iteration over a directory. The caller of `findfirst` has its address as a number.
struct find_handle_record {
  find_handle_record(char const* filespec, std::string_view directory_part, DIR* opened) : stream(opened) {
    copy_text(pattern, filespec, fio_internal::longest_path);
    copy_text(directory, directory_part, fio_internal::longest_path);
  }

  // Entries are matched in the form in which the pattern was given: with a directory if it has one.
  bool compares_bare_names() const { return std::strcmp(directory, ".") == 0 && pattern[0] != '.'; }

  char pattern[fio_internal::longest_path + 1];
  char directory[fio_internal::longest_path + 1];
  DIR* stream;
};

// A stream whose value is not an address is not open.
bool is_open(DIR* stream) { return reinterpret_cast<std::uintptr_t>(stream) > 1; }

// Returns the record of a handle, or null for one of the values that are not addresses.
find_handle_record* record_of(long handle) {
  bool const is_address = handle != nothing_found && handle != single_entry && handle != 1;
  return is_address ? reinterpret_cast<find_handle_record*>(handle) : nullptr;
}

// Finds the entry of a path without a wildcard, by the system's own `stat`, whatever the operating-system layer does.
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
  // Last: the path may be the name that the record has from another search.
  char const* const last_slash = std::strrchr(path, '/');
  copy_text(fileinfo->name, last_slash != nullptr ? last_slash + 1 : path, sizeof fileinfo->name - 1);
  return single_entry;
}

struct stream_closer {
  void operator()(std::FILE* stream) const { std::fclose(stream); }
};

using open_stream = std::unique_ptr<std::FILE, stream_closer>;

// The system reads a string up to its first NUL, so what is appended is put there.
std::string with_slash(std::string const& path) {
  std::string text = path.c_str(); // NOLINT(readability-redundant-string-cstr): this ends at the NUL
  if (!text.empty() && text.back() != '/') {
    text += '/';
  }
  return text;
}

// Returns true if a path has a legal length with the slash that is appended. What follows a NUL counts, though the
// system does not read it.
bool is_legal_with_slash(std::string const& path, std::size_t added = 0) {
  bool const takes_slash = !path.empty() && path.back() != '/';
  return fio_internal::is_legal_length(path.size() + takes_slash + added);
}

// The unit in which content is copied.
constexpr std::size_t copy_block = 4096;

// Copies what is left of `source` into a new file and forces it to stable storage.
bool copy_content(std::FILE* source, std::string const& target) {
  char target_buffer[copy_block]; // outlives its stream
  open_stream const stream(FIO_FILE_SYSTEM::fopen(target.c_str(), "wb"));
  if (stream == nullptr) {
    return false;
  }
  std::setvbuf(stream.get(), target_buffer, _IOFBF, sizeof target_buffer);
  char block[copy_block];
  std::size_t size = 0;
  do {
    size = std::fread(block, 1, sizeof block, source);
  } while (size != 0 && std::fwrite(block, 1, size, stream.get()) == size);
  std::fflush(stream.get());
  ::fsync(::fileno(stream.get()));
  return std::ferror(source) == 0 && std::ferror(stream.get()) == 0;
}

bool copy_times(std::string const& source, std::string const& target) {
  struct stat buffer;
  if (!FIO_FILE_SYSTEM::status(source, &buffer)) {
    return false;
  }
  utimbuf const times = {buffer.st_atime, buffer.st_mtime};
  return ::utime(target.c_str(), &times) == 0;
}

// Returns what makes temporary names of different hosts and runs differ. A byte above 127 is hashed with its sign.
std::uint64_t make_base_id() {
  char host[257] = {};
  ::gethostname(host, sizeof host - 1);
  std::uint64_t hash = 0xcbf29ce484222325;
  for (char const* byte = host; *byte != '\0'; ++byte) {
    hash ^= static_cast<std::uint64_t>(static_cast<signed char>(*byte));
    hash *= 0x100000001b3;
  }
  return (hash * 0x4c51b1496b317d63 + static_cast<std::uint64_t>(std::time(nullptr))) * 0xa651cd391142cc1f;
}

std::uint64_t fio_get_tmp_id() {
  static std::uint64_t const s_base_id = make_base_id();
  static std::atomic<std::int32_t> s_increment1{1};
  static std::atomic<std::int32_t> s_increment2{1};
  auto const thread = static_cast<std::uint64_t>(::syscall(SYS_gettid));
  std::int32_t const step = s_increment1.fetch_add(2);
  std::int32_t const number = s_increment2.fetch_add(step);
  return thread * 0xf78daea9e4c87399 + static_cast<std::uint64_t>(number) + s_base_id;
}

constexpr char temporary_files[] = ".korvane.*.tmp";

// The path of a directory, to which names of entries are appended. It has its content again when the iteration ends,
// however it ends: there is always room for that.
class path_of_a_directory {
public:
  explicit path_of_a_directory(std::string& path)
      : m_path(path), m_length(std::strlen(path.c_str())), m_unseen(path, m_length) {
    // The system reads the string up to its first NUL.
    leave_entry();
  }
  ~path_of_a_directory() {
    leave_entry();
    m_path += m_unseen;
  }
  path_of_a_directory(path_of_a_directory const&) = delete;
  path_of_a_directory& operator=(path_of_a_directory const&) = delete;

  void leave_entry() const { m_path.resize(m_length); }

private:
  std::string& m_path;
  std::size_t m_length;
  std::string m_unseen;
};

// Returns the message of an error that cannot be returned, as one string.
std::string text_of(KORVANE_ERROR_MESSAGE const& message) {
  std::string text;
  for (KORVANE_ERROR_MESSAGE::LINE const& line : message.m_lines) {
    bool const is_indented = line.m_indent != 0;
    text.append(is_indented, '\n').append(static_cast<std::size_t>(line.m_indent), '\t').append(line.m_text);
  }
  return text;
}

} // namespace

// Makes what `make_korvane_error<T>(path)` makes, without the format library: that would be a sixth of this library, and
// a fifth of the names that the loader looks up for it.
template <typename T>
std::unique_ptr<T> fio_internal::make_path_error(std::string const& path) {
  static constexpr std::string_view format = T::format_text();
  static constexpr std::string_view placeholder = "%s";
  static constexpr std::size_t place = format.find(placeholder);
  std::string words(format.substr(0, place));
  words.append(path).append(format.substr(place + placeholder.size()));
  return std::unique_ptr<T>(new T(std::move(words)));
}

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

std::string FIO_FILE_SYSTEM::get_current_directory() { return std::string(fio_internal::current_directory().text()); }

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
  if (path == nullptr) {
    return false;
  }
  std::string_view const text = fio_internal::bounded_text(path);
  if (!fio_internal::is_legal_length(text.size())) {
    return false;
  }
  if (!has_wildcard(text)) {
    return osi_exists(path) != 0;
  }
  _finddata_t unused;
  long const handle = findfirst(path, &unused);
  findclose(handle);
  return handle != nothing_found;
}

bool FIO_FILE_SYSTEM::exists(FIO_PATH const& path) { return exists(static_cast<char const*>(path)); }

bool FIO_FILE_SYSTEM::same_file(char const* name, char const* pattern) {
  if (*pattern == '*') {
    return matches_behind_star(name, pattern + 1);
  }
  if (*pattern == '\0') {
    return true;
  }
  // A cheap rejection of most names without a directory.
  if (!matches_byte(*name, *pattern)) {
    return false;
  }
  // Up to the first `*` the pattern is a prefix. The `*` is reached only if some of the name is left.
  char const* const star = ::strchrnul(pattern, '*');
  std::string_view const prefix = {pattern, static_cast<std::size_t>(star - pattern)};
  if (std::strncmp(name, pattern, prefix.size()) != 0 && !begins_with(name, prefix)) {
    return false;
  }
  name += prefix.size();
  return *star == '\0' || (*name != '\0' && matches_behind_star(name, star + 1));
}

// Path strings

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
  std::string_view const text = fio_internal::bounded_text(filespec);
  if (!fio_internal::is_legal_length(text.size())) {
    return nothing_found;
  }
  if (!has_wildcard(text)) {
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
  // skipped, and one that had to be truncated is always too long.
  char candidate[fio_internal::longest_path + 1 + sizeof dirent64::d_name + 1];
  std::size_t prefix = 0;
  if (!record->compares_bare_names()) {
    prefix = std::strlen(record->directory);
    std::memcpy(candidate, record->directory, prefix);
    candidate[prefix++] = '/';
  }
  while (dirent64 const* const entry = ::readdir64(record->stream)) {
    copy_text(candidate + prefix, entry->d_name, sizeof candidate - prefix - 1);
    // A wildcard in the candidate would make it a search, and not the entry itself.
    if (same_file(candidate, record->pattern)) {
      std::string_view const text = fio_internal::bounded_text(candidate);
      if (fio_internal::is_legal_length(text.size()) && !has_wildcard(text) &&
          find_entry(candidate, fileinfo) == single_entry) {
        return 0;
      }
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

// Creating and copying

bool FIO_FILE_SYSTEM::create(std::string const& path) {
  if (path.empty() || !FIO_PATH::is_path_length_within_operating_system_limits(path)) {
    return false;
  }
  FIO_PATH const parsed(with_slash(path));
  std::string made = parsed.absolute() ? "/" : "";
  int const levels = parsed.levels();
  for (int i = 0; i < levels; ++i) {
    if (i > 0) {
      made += '/';
    }
    made += parsed[i];
    if (exists(made.c_str()) || mkdir(made.c_str()) == 0) {
      continue;
    }
    int const mkdir_errno = errno;
    // Another process may have made it meanwhile.
    if (is_directory(made.c_str())) {
      continue;
    }
    fio_internal::mem_msg_vdebug("mkdir failed with: %s (errno: %d)", made.c_str(), mkdir_errno);
    fio_internal::mem_msg_vdebug("is_directory (via status) failed with: %s (errno: %d)", made.c_str(), errno);
    break;
  }
  return exists(path.c_str());
}

bool FIO_FILE_SYSTEM::touch(std::string const& path) {
  if (!FIO_PATH::is_path_length_within_operating_system_limits(path)) {
    return false;
  }
  FIO_PATH const file(path);
  return create(file.directory()) && open_stream(fopen(file, "a")) != nullptr;
}

bool FIO_FILE_SYSTEM::copy(std::string const& source, std::string const& target, bool overwrite, bool preserve_time) {
  if (!FIO_PATH::is_path_length_within_operating_system_limits(source) ||
      !FIO_PATH::is_path_length_within_operating_system_limits(target) || !exists(source.c_str())) {
    return false;
  }
  open_stream stream(fopen(source.c_str(), "rb"));
  if (stream == nullptr) {
    return false;
  }
  if (overwrite && exists(target.c_str())) {
    remove(target);
  }
  if (!exists(target.c_str()) && !copy_content(stream.get(), target)) {
    return false;
  }
  stream.reset();
  return !preserve_time || copy_times(source, target);
}

bool FIO_FILE_SYSTEM::move(std::string const& source, std::string const& target, bool overwrite, bool preserve_time) {
  return copy(source, target, overwrite, preserve_time) && remove(source);
}

bool FIO_FILE_SYSTEM::copy_files(std::string const& source, std::string const& target_directory, bool overwrite,
                                 bool preserve_time) {
  std::string const directory = with_slash(target_directory);
  if (!exists(directory.c_str()) && !create(directory)) {
    return false;
  }
  if (!FIO_PATH::is_path_length_within_operating_system_limits(source)) {
    return false;
  }
  search matches(source.c_str());
  if (!matches.found()) {
    return true;
  }
  bool copied = false;
  do {
    // A name is never too long for a path by itself.
    std::string const name = FIO_PATH(matches.entry.name).filename();
    FIO_PATH from(source);
    FIO_PATH to(directory);
    from.filename(name);
    to.filename(name);
    copied = from.is_legal_length() && to.is_legal_length() &&
             copy(from.fullpath(), to.fullpath(), overwrite, preserve_time);
  } while (matches.next() && copied);
  return copied;
}

bool FIO_FILE_SYSTEM::copy_dir(std::string const& source, std::string const& target, bool overwrite,
                               bool preserve_time) {
  std::string const from = with_slash(source);
  std::string const to = with_slash(target);
  bool const is_legal_target = is_legal_with_slash(target);
  if (!exists(to.c_str()) && !(is_legal_target && create(to))) {
    return false;
  }
  std::string const all = from + '*';
  if (!is_legal_target || !is_legal_with_slash(source, 1)) {
    return false;
  }
  search entries(all.c_str());
  if (!entries.found()) {
    return true;
  }
  do {
    if (entries.is_directory() && entries.is_dot_entry()) {
      continue;
    }
    std::string const from_entry = from + entries.entry.name;
    std::string const to_entry = to + entries.entry.name;
    bool const copied = entries.is_directory() ? copy_dir(from_entry, to_entry, overwrite, preserve_time)
                                               : copy(from_entry, to_entry, overwrite, preserve_time);
    if (!copied) {
      return false;
    }
  } while (entries.next());
  return true;
}

// Temporary files

std::string FIO_FILE_SYSTEM::get_tmp_path(char const* path) {
  constexpr int attempts = 1000;
  std::string_view const text = path;
  std::size_t const last_separator = text.find_last_of("/\\");
  std::string const directory(text.substr(0, last_separator == std::string_view::npos ? 0 : last_separator + 1));
  std::string candidate;
  for (int attempt = 0; attempt != attempts; ++attempt) {
    std::string name;
    MEM_DETAIL::stl_raw_sprintf(&name, ".korvane.%X.tmp", static_cast<unsigned>(fio_get_tmp_id()));
    candidate.assign(directory).append(name);
    if (!exists(candidate.c_str())) {
      break;
    }
  }
  return candidate;
}

bool FIO_FILE_SYSTEM::remove_temp_files(char const* directory, int age_seconds, char const* pattern) {
  constexpr int attempts = 100;
  std::string probe;
  int descriptor = -1;
  for (int attempt = 0; attempt != attempts && descriptor == -1; ++attempt) {
    probe = get_tmp_path(directory);
    descriptor = open(probe.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0666);
  }
  if (descriptor == -1) {
    return false;
  }
  ::close(descriptor);
  struct stat buffer = {};
  bool const time_is_known = status(probe, &buffer);
  remove(probe);
  if (!time_is_known) {
    return false;
  }
  long const limit = buffer.st_mtime - age_seconds;
  remove_recursively(directory, pattern != nullptr ? pattern : temporary_files, &limit);
  return true;
}

// Removing in bulk

bool FIO_FILE_SYSTEM::remove_files(char const* filespec) {
  fio_internal::require_text(filespec);
  FIO_PATH path(filespec);
  search matches(filespec);
  if (!matches.found()) {
    return true;
  }
  bool removed = false;
  do {
    path.filename(matches.entry.name);
    removed = remove(path);
  } while (matches.next() && removed);
  return removed;
}

bool FIO_FILE_SYSTEM::remove_recursively(char const* path, char const* pattern, long const* limit) {
  if (path == nullptr || !fio_internal::is_legal_length(fio_internal::bounded_text(path).size()) || !exists(path) ||
      FIO_PATH::is_dot_directory(path)) {
    return false;
  }
  std::string const current = get_current_directory();
  std::string changed = path;
  bool const removed = do_remove_recursively(changed, pattern, limit);
  return set_current_directory(current) && removed;
}

bool FIO_FILE_SYSTEM::do_remove_recursively(std::string& path, char const* pattern, long const* limit) {
  auto const is_to_go = [&path, pattern, limit](char const* name) {
    return (pattern == nullptr || same_file(name, pattern)) && is_older(path.c_str(), limit);
  };
  bool removed = true;
  path_of_a_directory const directory(path);
  search entries((path + "/*").c_str());
  for (bool found = entries.found(); found; found = entries.next()) {
    if (entries.is_dot_entry()) {
      continue;
    }
    path += '/';
    path += entries.entry.name;
    if (entries.is_directory()) {
      removed = do_remove_recursively(path, pattern, limit) && removed;
    } else if (is_to_go(entries.entry.name)) {
      removed = native_remove(path.c_str()) && removed;
    }
    directory.leave_entry();
  }
  entries.close();
  // The directory itself is matched by the name of the last entry that was read.
  if (is_to_go(entries.entry.name)) {
    removed = native_remove(path.c_str()) && removed;
  }
  return removed;
}

bool FIO_FILE_SYSTEM::is_directory_empty(char const* path) {
  if (!is_directory(path)) {
    return false;
  }
  search entries((std::string(path) + "/*").c_str());
  for (bool found = entries.found(); found; found = entries.next()) {
    if (!entries.is_dot_entry()) {
      return false;
    }
  }
  return true;
}

std::unique_ptr<FIO_ERRC> FIO_FILE_SYSTEM::remove_empty_subdirectories(std::string const& path, bool remove_root) {
  if (!is_directory(path.c_str())) {
    return fio_internal::make_path_error<FIO::ERRC::NOT_A_DIRECTORY_ERRC>(path);
  }
  std::unique_ptr<FIO_ERRC> kept;
  {
    // The system reads the string up to its first NUL.
    std::string const text = path.c_str(); // NOLINT(readability-redundant-string-cstr)
    search entries((text + "/*").c_str());
    if (!entries.found()) {
      return fio_internal::make_path_error<FIO::ERRC::FAILED_TO_OPEN_DIRECTORY_ERRC>(path);
    }
    do {
      if (!entries.is_directory() || entries.is_dot_entry()) {
        continue;
      }
      std::unique_ptr<FIO_ERRC> error = remove_empty_subdirectories(text + '/' + entries.entry.name, true);
      if (kept == nullptr) {
        kept = std::move(error);
      } else if (error != nullptr) {
        fio_internal::mem_msg_vdebug("remove_empty_subdirectories failed with: %s", text_of(error->message()).c_str());
      }
    } while (entries.next());
  }
  if (remove_root && is_directory_empty(path.c_str()) && !native_remove(path.c_str())) {
    if (kept != nullptr) {
      fio_internal::mem_msg_vdebug("remove_empty_subdirectories failed to remove root: %s", path.c_str());
    } else {
      kept = fio_internal::make_path_error<FIO::ERRC::FAILED_TO_REMOVE_DIRECTORY_ERRC>(path);
    }
  }
  return kept;
}

// Errors

FIO_ERRC::~FIO_ERRC() = default;

KORVANE_ERROR_MESSAGE FIO_ERRC::message() const { return m_message; }

std::unique_ptr<KORVANE_ERRC> FIO::ERRC::NOT_A_DIRECTORY_ERRC::clone() const {
  return std::make_unique<NOT_A_DIRECTORY_ERRC>(*this);
}

std::unique_ptr<KORVANE_ERRC> FIO::ERRC::FAILED_TO_OPEN_DIRECTORY_ERRC::clone() const {
  return std::make_unique<FAILED_TO_OPEN_DIRECTORY_ERRC>(*this);
}

std::unique_ptr<KORVANE_ERRC> FIO::ERRC::FAILED_TO_REMOVE_DIRECTORY_ERRC::clone() const {
  return std::make_unique<FAILED_TO_REMOVE_DIRECTORY_ERRC>(*this);
}

std::string fio_get_unc_full_path(char const* path) {
  OSI_PATH* const full_path = osi_get_unc_full_path(path);
  char const* const text = osi_path_get_data(full_path);
  fio_internal::require_text(text);
  std::string result = text;
  osi_path_free(full_path);
  return result;
}
