#include "tests/sweeps/system_call_doubles.h"

#include <dirent.h>
#include <dlfcn.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utime.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "ccl/osi/osi.h"
#include "tests/support/calls.h"
#include "tests/support/platform_double.h"

namespace system_call {
namespace {

// The entries of an open directory by their names: the order must not depend on the file system.
struct listing {
  std::string directory;
  std::vector<dirent64> entries;
  std::size_t next = 0;
};

struct state {
  bool watching = false;
  int inside = 0; // the depth of real operations, whose own calls are theirs
  std::optional<plan> wanted;
  std::string root;
  observation seen;
  std::map<std::string, int> calls_of_function;
  std::map<std::pair<std::string, std::string>, int> calls_on_subject;
  std::map<DIR*, listing> directories;
  std::map<std::FILE*, std::string> streams;
  std::map<int, std::string> descriptors;
  std::map<OSI_PATH*, std::string> records;
  std::set<std::FILE*> broken_streams; // what their error indicators would say
};

// Never destroyed: the C library's functions are called until the very end of the program.
state& shared() {
  static auto* const instance = new state;
  return *instance;
}

// Bookkeeping leaves no trace in `errno`.
class errno_kept {
public:
  errno_kept() = default;
  ~errno_kept() { errno = m_kept; }
  errno_kept(errno_kept const&) = delete;
  errno_kept& operator=(errno_kept const&) = delete;

private:
  int const m_kept = errno;
};

bool is_hit(plan const& wanted, call const& made) {
  return wanted.function == made.function &&
         (wanted.from_there_on ? made.occurrence >= wanted.occurrence : made.occurrence == wanted.occurrence);
}

// Notes a call of the library. The way to disturb it, or null.
disturbance const* arrive(char const* function, std::string const& subject) {
  state& now = shared();
  if (!now.watching || now.inside != 0) {
    return nullptr;
  }
  errno_kept const kept;
  call made = {function, anonymous(subject), 0, 0};
  made.occurrence = ++now.calls_of_function[made.function];
  made.occurrence_on_subject = ++now.calls_on_subject[{made.function, made.subject}];
  bool const hit = now.wanted && is_hit(*now.wanted, made);
  now.seen.calls.push_back(std::move(made));
  now.seen.disturbed += hit ? 1 : 0;
  return hit ? &now.wanted->what : nullptr;
}

// Behind a call of the library: what `errno` is now is to stay.
template <typename Result>
Result leave(Result result) {
  state& now = shared();
  if (now.watching && now.inside == 0) {
    now.seen.errno_of_last_call = errno;
  }
  return result;
}

template <typename Result>
Result fail(disturbance const& wanted, Result failure) {
  if (wanted.error != 0) {
    errno = wanted.error;
  }
  return leave(failure);
}

template <typename Real>
auto undisturbed(Real real) {
  ++shared().inside;
  auto const result = real();
  --shared().inside;
  return result;
}

template <typename Result, typename Real>
Result hand_on(char const* function, std::string const& subject, Result failure, Real real) {
  disturbance const* const wanted = arrive(function, subject);
  return wanted != nullptr ? fail(*wanted, failure) : leave(undisturbed(real));
}

// A failed release is a release all the same.
template <typename Real>
int release(char const* function, std::string const& subject, int failure, Real real) {
  disturbance const* const wanted = arrive(function, subject);
  int const result = undisturbed(real);
  return wanted != nullptr ? fail(*wanted, failure) : leave(result);
}

template <typename Function>
Function* definition_behind(Function* /*double_of*/, char const* symbol) {
  Function* function;
  *reinterpret_cast<void**>(&function) = ::dlsym(RTLD_NEXT, symbol);
  if (function == nullptr) {
    std::abort();
  }
  return function;
}

template <typename Key>
std::string subject_of(std::map<Key, std::string> const& known, Key key) {
  auto const found = known.find(key);
  return found != known.end() ? found->second : std::string("?");
}

std::string text_of(char const* text) { return text != nullptr ? text : "null"; }

DIR* open_directory(char const* path) {
  return hand_on("opendir", path, static_cast<DIR*>(nullptr), [path] {
    DIR* const stream = opendir_of_the_system(path);
    if (stream != nullptr) {
      errno_kept const kept;
      shared().directories[stream].directory = path;
    }
    return stream;
  });
}

listing& read_whole(DIR* stream) {
  static auto* const original = definition_behind(&::readdir64, "readdir64");
  errno_kept const kept;
  listing& read = shared().directories[stream];
  if (read.entries.empty()) {
    while (dirent64 const* const entry = original(stream)) {
      read.entries.push_back(*entry);
    }
    std::sort(read.entries.begin(), read.entries.end(),
              [](dirent64 const& left, dirent64 const& right) { return std::string(left.d_name) < right.d_name; });
  }
  return read;
}

dirent64* read_directory(DIR* stream) {
  listing& read = read_whole(stream);
  bool const at_end = read.next == read.entries.size();
  std::string const entry = at_end ? "(end)" : read.entries[read.next].d_name;
  return hand_on("readdir64", read.directory + ": " + entry, static_cast<dirent64*>(nullptr),
                 [&read, at_end] { return at_end ? nullptr : &read.entries[read.next++]; });
}

int close_directory(DIR* stream) {
  return release("closedir", shared().directories[stream].directory, -1, [stream] {
    shared().directories.erase(stream);
    return closedir_of_the_system(stream);
  });
}

int ask_whether_it_exists(char const* path) {
  static auto* const original = definition_behind(&::osi_exists, "_Z10osi_existsPKc");
  disturbance const* const wanted = arrive("osi_exists", text_of(path));
  if (wanted == nullptr) {
    return leave(undisturbed([path] { return original(path); }));
  }
  return fail(*wanted, wanted->how == manner::says_yes ? 1 : 0);
}

void take_places_of_opening(platform_double::replacements& replaced) {
  replaced.osi_open = [](char const* path, int flags, int mode) {
    static auto* const original = definition_behind(&::osi_open, "_Z8osi_openPKcii");
    return hand_on("osi_open", text_of(path), -1, [=] {
      int const descriptor = original(path, flags, mode);
      if (descriptor != -1) {
        shared().descriptors[descriptor] = path;
      }
      return descriptor;
    });
  };
  replaced.osi_fopen = [](char const* path, char const* mode) {
    static auto* const original = definition_behind(&::osi_fopen, "_Z9osi_fopenPKcS0_");
    return hand_on("osi_fopen", text_of(path), static_cast<std::FILE*>(nullptr), [=] {
      std::FILE* const stream = original(path, mode);
      if (stream != nullptr) {
        errno_kept const kept;
        shared().streams[stream] = path;
      }
      return stream;
    });
  };
  replaced.opendir = open_directory;
  replaced.readdir64 = read_directory;
  replaced.closedir = close_directory;
}

void take_places_of_changing(platform_double::replacements& replaced) {
  replaced.osi_chmod = [](char const* path, int mode) {
    static auto* const original = definition_behind(&::osi_chmod, "_Z9osi_chmodPKci");
    return hand_on("osi_chmod", text_of(path), -1, [=] { return original(path, mode); });
  };
  replaced.osi_mkdir = [](char const* path) {
    static auto* const original = definition_behind(&::osi_mkdir, "_Z9osi_mkdirPKc");
    return hand_on("osi_mkdir", text_of(path), -1, [=] { return original(path); });
  };
  replaced.osi_rmdir = [](char const* path) {
    static auto* const original = definition_behind(&::osi_rmdir, "_Z9osi_rmdirPKc");
    return hand_on("osi_rmdir", text_of(path), -1, [=] { return original(path); });
  };
  replaced.osi_chdir = [](char const* path) {
    static auto* const original = definition_behind(&::osi_chdir, "_Z9osi_chdirPKc");
    return hand_on("osi_chdir", text_of(path), -1, [=] { return original(path); });
  };
  replaced.remove = [](char const* path) {
    static auto* const original = definition_behind(&::remove, "remove");
    return hand_on("remove", text_of(path), -1, [=] { return original(path); });
  };
  replaced.rename = [](char const* from, char const* to) {
    static auto* const original = definition_behind(&::rename, "rename");
    return hand_on("rename", text_of(from) + ", " + text_of(to), -1, [=] { return original(from, to); });
  };
}

void take_places_of_asking(platform_double::replacements& replaced) {
  replaced.osi_getcwd = [](char* buffer, unsigned long size) {
    static auto* const original = definition_behind(&::osi_getcwd, "_Z10osi_getcwdPcm");
    return hand_on("osi_getcwd", "", static_cast<char*>(nullptr), [=] { return original(buffer, size); });
  };
  replaced.osi_status = [](char const* path, struct stat* buffer) {
    static auto* const original = definition_behind(&::osi_status, "_Z10osi_statusPKcP4stat");
    return hand_on("osi_status", text_of(path), -1, [=] { return original(path, buffer); });
  };
  replaced.osi_exists = ask_whether_it_exists;
  replaced.stat = [](char const* path, struct stat* buffer) {
    static int (*const original)(char const*, struct stat*) = definition_behind(&::stat, "stat");
    return hand_on("stat", text_of(path), -1, [=] { return original(path, buffer); });
  };
  replaced.access = [](char const* path, int mode) {
    static auto* const original = definition_behind(&::access, "access");
    return hand_on("access", text_of(path), -1, [=] { return original(path, mode); });
  };
}

void take_places_of_path_records(platform_double::replacements& replaced) {
  replaced.osi_get_unc_full_path = [](char const* path) {
    static auto* const original = definition_behind(&::osi_get_unc_full_path, "_Z21osi_get_unc_full_pathPKc");
    return hand_on("osi_get_unc_full_path", text_of(path), static_cast<OSI_PATH*>(nullptr), [=] {
      OSI_PATH* const record = original(path);
      shared().records[record] = text_of(path);
      return record;
    });
  };
  replaced.osi_path_get_data = [](OSI_PATH* record) {
    static auto* const original = definition_behind(&::osi_path_get_data, "_Z17osi_path_get_dataP8OSI_PATH");
    return hand_on("osi_path_get_data", "", static_cast<char const*>(nullptr), [=] { return original(record); });
  };
  replaced.osi_path_free = [](OSI_PATH* record) {
    static auto* const original = definition_behind(&::osi_path_free, "_Z13osi_path_freeP8OSI_PATH");
    shared().records.erase(record);
    original(record);
  };
}

} // namespace

void take_places() {
  platform_double::replacements& replaced = platform_double::replaced();
  take_places_of_opening(replaced);
  take_places_of_changing(replaced);
  take_places_of_asking(replaced);
  take_places_of_path_records(replaced);
}

void set_root(std::string const& root) { shared().root = root; }

std::string anonymous(std::string text) {
  std::string const& root = shared().root;
  for (std::size_t at = 0; !root.empty() && (at = text.find(root, at)) != std::string::npos;) {
    text.replace(at, root.size(), "$");
  }
  static std::string const head = ".korvane.";
  std::size_t const number = text.find(head);
  if (number != std::string::npos) {
    std::size_t const start = number + head.size();
    std::size_t const end = text.find_first_not_of("0123456789ABCDEF", start);
    text.replace(start, (end == std::string::npos ? text.size() : end) - start, "#");
  }
  return text;
}

void set_plan(plan const* wanted) {
  shared().wanted = wanted != nullptr ? std::optional<plan>(*wanted) : std::nullopt;
  shared().broken_streams.clear();
}

watched_section::watched_section() {
  shared().watching = true;
  errno = telltale;
  shared().seen.errno_of_last_call = telltale;
}

watched_section::~watched_section() {
  shared().seen.errno_at_end = errno;
  shared().watching = false;
}

observation take_observation() {
  shared().calls_of_function.clear();
  shared().calls_on_subject.clear();
  return std::exchange(shared().seen, {});
}

std::vector<std::string> take_held() {
  std::vector<std::string> held;
  for (auto const& [stream, path] : std::exchange(shared().streams, {})) {
    held.push_back("stream " + path);
  }
  for (auto const& [descriptor, path] : std::exchange(shared().descriptors, {})) {
    held.push_back("descriptor " + path);
  }
  for (auto const& [stream, read] : std::exchange(shared().directories, {})) {
    held.push_back("directory " + read.directory);
  }
  for (auto const& [record, path] : std::exchange(shared().records, {})) {
    held.push_back("record " + path);
    osi_path_free(record);
  }
  return held;
}

bool is_doubled(std::string const& symbol) {
  Dl_info program = {};
  Dl_info found = {};
  void* const definition = ::dlsym(RTLD_DEFAULT, symbol.c_str());
  void* const here = ::dlsym(RTLD_DEFAULT, "utime");
  return definition != nullptr && ::dladdr(here, &program) != 0 && ::dladdr(definition, &found) != 0 &&
         program.dli_fbase == found.dli_fbase;
}

} // namespace system_call

// The C library's functions that no other double stands for, with its own promise not to throw.

namespace {

using system_call::arrive;
using system_call::definition_behind;
using system_call::disturbance;
using system_call::fail;
using system_call::hand_on;
using system_call::leave;
using system_call::manner;
using system_call::release;
using system_call::shared;
using system_call::subject_of;
using system_call::text_of;
using system_call::undisturbed;

// Moves a block through a stream, or a part of it.
template <typename Move>
std::size_t move_block(char const* function, std::FILE* stream, std::size_t count, Move move) {
  disturbance const* const wanted = arrive(function, subject_of(shared().streams, stream));
  if (wanted != nullptr && wanted->how == manner::fails) {
    shared().broken_streams.insert(stream);
  }
  if (wanted != nullptr && wanted->how != manner::falls_short) {
    return fail(*wanted, std::size_t{0});
  }
  return leave(undisturbed([&] { return move(wanted != nullptr ? count / 2 : count); }));
}

} // namespace

extern "C" std::size_t fread(void* buffer, std::size_t size, std::size_t count, std::FILE* stream) {
  static auto* const original = definition_behind(&::fread, "fread");
  return move_block("fread", stream, count, [=](std::size_t part) { return original(buffer, size, part, stream); });
}

extern "C" std::size_t fwrite(void const* buffer, std::size_t size, std::size_t count, std::FILE* stream) {
  static auto* const original = definition_behind(&::fwrite, "fwrite");
  return move_block("fwrite", stream, count, [=](std::size_t part) { return original(buffer, size, part, stream); });
}

extern "C" int fflush(std::FILE* stream) {
  static auto* const original = definition_behind(&::fflush, "fflush");
  disturbance const* const wanted = arrive("fflush", subject_of(shared().streams, stream));
  if (wanted != nullptr) {
    shared().broken_streams.insert(stream);
    return fail(*wanted, EOF);
  }
  return leave(undisturbed([=] { return original(stream); }));
}

extern "C" int ferror(std::FILE* stream) noexcept {
  static auto* const original = definition_behind(&::ferror, "ferror");
  return hand_on("ferror", subject_of(shared().streams, stream), 1,
                 [=] { return shared().broken_streams.count(stream) != 0 ? 1 : original(stream); });
}

extern "C" int fileno(std::FILE* stream) noexcept {
  static auto* const original = definition_behind(&::fileno, "fileno");
  return hand_on("fileno", subject_of(shared().streams, stream), -1, [=] { return original(stream); });
}

extern "C" int setvbuf(std::FILE* stream, char* buffer, int mode, std::size_t size) noexcept {
  static auto* const original = definition_behind(&::setvbuf, "setvbuf");
  return hand_on("setvbuf", subject_of(shared().streams, stream), -1,
                 [=] { return original(stream, buffer, mode, size); });
}

extern "C" int fclose(std::FILE* stream) {
  static auto* const original = definition_behind(&::fclose, "fclose");
  return release("fclose", subject_of(shared().streams, stream), EOF, [=] {
    shared().streams.erase(stream);
    return original(stream);
  });
}

extern "C" int fsync(int descriptor) {
  static auto* const original = definition_behind(&::fsync, "fsync");
  // What survives a loss of power is not looked at here, and would cost more time than all the rest.
  return hand_on("fsync", "", -1, [=] { return shared().watching && descriptor != -1 ? 0 : original(descriptor); });
}

extern "C" int close(int descriptor) {
  static auto* const original = definition_behind(&::close, "close");
  return release("close", subject_of(shared().descriptors, descriptor), -1, [=] {
    shared().descriptors.erase(descriptor);
    return original(descriptor);
  });
}

extern "C" int utime(char const* path, utimbuf const* times) noexcept {
  static auto* const original = definition_behind(&::utime, "utime");
  return hand_on("utime", text_of(path), -1, [=] { return original(path, times); });
}

extern "C" char* getenv(char const* name) noexcept {
  static auto* const original = definition_behind(&::getenv, "getenv");
  static char set[] = "1";
  return hand_on("getenv", text_of(name), &set[0], [=] { return original(name); });
}

extern "C" int gethostname(char* name, std::size_t size) noexcept {
  static auto* const original = definition_behind(&::gethostname, "gethostname");
  return hand_on("gethostname", "", -1, [=] { return original(name, size); });
}

extern "C" std::time_t time(std::time_t* result) noexcept {
  static auto* const original = definition_behind(&::time, "time");
  return hand_on("time", "", std::time_t{-1}, [=] { return original(result); });
}

extern "C" long syscall(long number, ...) noexcept {
  static auto* const original = definition_behind(&::syscall, "syscall");
  long a[6];
  va_list arguments;
  va_start(arguments, number);
  for (long& argument : a) {
    argument = va_arg(arguments, long);
  }
  va_end(arguments);
  return hand_on("syscall", number == SYS_gettid ? "gettid" : std::to_string(number), -1L,
                 [&] { return original(number, a[0], a[1], a[2], a[3], a[4], a[5]); });
}

extern "C" char* getcwd(char* buffer, std::size_t size) noexcept {
  static auto* const original = definition_behind(&::getcwd, "getcwd");
  return hand_on("getcwd", "", static_cast<char*>(nullptr), [=] { return original(buffer, size); });
}

extern "C" int stat64(char const* path, struct stat64* buffer) noexcept {
  static int (*const original)(char const*, struct stat64*) = definition_behind(&::stat64, "stat64");
  return hand_on("stat64", text_of(path), -1, [=] { return original(path, buffer); });
}

extern "C" int lstat64(char const* path, struct stat64* buffer) noexcept {
  static int (*const original)(char const*, struct stat64*) = definition_behind(&::lstat64, "lstat64");
  return hand_on("lstat64", text_of(path), -1, [=] { return original(path, buffer); });
}

extern "C" ssize_t readlink(char const* path, char* buffer, std::size_t size) noexcept {
  static auto* const original = definition_behind(&::readlink, "readlink");
  return hand_on("readlink", text_of(path), ssize_t{-1}, [=] { return original(path, buffer, size); });
}
