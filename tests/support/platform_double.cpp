#include "tests/support/platform_double.h"

#include <dlfcn.h>
#include <unistd.h>

#include <atomic>
#include <cstdarg>
#include <cstdlib>
#include <mutex>

#include "ccl/err/err.h"
#include "ccl/mem/mem.h"
#include "ccl/stl/stl.h"

namespace {

struct state {
  std::mutex mutex;
  platform_double::replacements replaced;
  std::vector<platform_double::debug_message> messages;
  std::vector<std::string> calls;
  std::atomic<bool> recording{false};
  std::atomic<int> open_streams{0};
};

// Never destroyed: the libraries call the doubles until the very end of the program.
state& shared() {
  static auto* const instance = new state;
  return *instance;
}

std::string join(std::string const& call) { return call; }

template <typename... Rest>
std::string join(std::string const& first, std::string const& second, Rest const&... rest) {
  return join(first + ", " + second, rest...);
}

char const* text_or_null(char const* text) { return text != nullptr ? text : "null"; }

template <typename... Texts>
void record(char const* name, Texts const*... texts) {
  if (shared().recording) {
    std::lock_guard<std::mutex> const lock(shared().mutex);
    shared().calls.push_back(std::string(name) + '(' + join(std::string(text_or_null(texts))...) + ')');
  }
}

// The definition that would be in force without this program.
template <typename Function>
Function* real(Function* /*double_of*/, char const* symbol) {
  void* const found = ::dlsym(RTLD_NEXT, symbol);
  if (found == nullptr) {
    std::fprintf(stderr, "no other definition of %s\n", symbol);
    std::abort();
  }
  Function* function;
  *reinterpret_cast<void**>(&function) = found;
  return function;
}

} // namespace

namespace platform_double {

replacements& replaced() { return shared().replaced; }

std::vector<debug_message>& debug_messages() { return shared().messages; }

std::vector<std::string>& calls() { return shared().calls; }

void record_calls(bool on) { shared().recording = on; }

int open_streams() { return shared().open_streams; }

void reset() {
  shared().replaced = {};
  shared().messages.clear();
  shared().calls.clear();
  shared().recording = false;
}

} // namespace platform_double

// Each double records its call and hands it to the replacement, or else to the real operation.
#define HAND_ON(name, symbol, ...)                                                                                     \
  auto const& replacement = shared().replaced.name;                                                                    \
  if (replacement) {                                                                                                   \
    return replacement(__VA_ARGS__);                                                                                   \
  }                                                                                                                    \
  static auto* const original = real(&::name, symbol);                                                                 \
  return original(__VA_ARGS__)

void mem_msg_local_vdebug(char const* module, char const* format, va_list arguments) {
  std::string const kept_format = format;
  std::string text = kept_format;
  if (kept_format.rfind("Path name is too long", 0) != 0) {
    char buffer[4096];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    std::vsnprintf(buffer, sizeof buffer, format, arguments);
#pragma GCC diagnostic pop
    text = buffer;
  }
  std::lock_guard<std::mutex> const lock(shared().mutex);
  shared().messages.push_back({module, kept_format, text});
}

void err_report_internal_error(char const* condition, char const* module, char const* file, int line) {
  throw platform_double::internal_error{condition, module, file, line};
}

int osi_open(char const* path, int flags, int mode) {
  record("osi_open", path);
  HAND_ON(osi_open, "_Z8osi_openPKcii", path, flags, mode);
}

std::FILE* osi_fopen(char const* path, char const* mode) {
  record("osi_fopen", path, mode);
  HAND_ON(osi_fopen, "_Z9osi_fopenPKcS0_", path, mode);
}

int osi_chmod(char const* path, int mode) {
  record("osi_chmod", path);
  HAND_ON(osi_chmod, "_Z9osi_chmodPKci", path, mode);
}

char* osi_getcwd(char* buffer, unsigned long size) {
  record("osi_getcwd", std::to_string(size).c_str());
  HAND_ON(osi_getcwd, "_Z10osi_getcwdPcm", buffer, size);
}

int osi_mkdir(char const* path) {
  record("osi_mkdir", path);
  HAND_ON(osi_mkdir, "_Z9osi_mkdirPKc", path);
}

int osi_rmdir(char const* path) {
  record("osi_rmdir", path);
  HAND_ON(osi_rmdir, "_Z9osi_rmdirPKc", path);
}

int osi_chdir(char const* path) {
  record("osi_chdir", path);
  HAND_ON(osi_chdir, "_Z9osi_chdirPKc", path);
}

int osi_status(char const* path, struct stat* buffer) {
  record("osi_status", path);
  HAND_ON(osi_status, "_Z10osi_statusPKcP4stat", path, buffer);
}

int osi_exists(char const* path) {
  record("osi_exists", path);
  HAND_ON(osi_exists, "_Z10osi_existsPKc", path);
}

OSI_PATH* osi_get_unc_full_path(char const* path) {
  record("osi_get_unc_full_path", path);
  HAND_ON(osi_get_unc_full_path, "_Z21osi_get_unc_full_pathPKc", path);
}

char const* osi_path_get_data(OSI_PATH* path) {
  record("osi_path_get_data", "");
  HAND_ON(osi_path_get_data, "_Z17osi_path_get_dataP8OSI_PATH", path);
}

void osi_path_free(OSI_PATH* path) {
  record("osi_path_free", "");
  HAND_ON(osi_path_free, "_Z13osi_path_freeP8OSI_PATH", path);
}

void stl_tolower(std::string& text) {
  record("stl_tolower", text.c_str());
  HAND_ON(stl_tolower, "_Z11stl_tolowerRNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE", text);
}

char* strtok_s(char* text, std::size_t* remaining, char const* delimiters, char** context) {
  record("strtok_s", text, delimiters);
  HAND_ON(strtok_s, "_Z8strtok_sPcPmPKcPS_", text, remaining, delimiters, context);
}

// The C library's functions, with its own promise not to throw. A replacement must keep it.

extern "C" int stat(char const* path, struct stat* buffer) noexcept {
  record("stat", path);
  HAND_ON(stat, "stat", path, buffer);
}

extern "C" int access(char const* path, int mode) noexcept {
  record("access", path);
  HAND_ON(access, "access", path, mode);
}

extern "C" DIR* opendir(char const* path) {
  record("opendir", path);
  auto const call = [path]() -> DIR* { HAND_ON(opendir, "opendir", path); };
  DIR* const stream = call();
  if (stream != nullptr) {
    ++shared().open_streams;
  }
  return stream;
}

// Not among the operations of the library, but a stream like any other to those who count them.
extern "C" DIR* fdopendir(int descriptor) {
  static auto* const original = real(&::fdopendir, "fdopendir");
  DIR* const stream = original(descriptor);
  if (stream != nullptr) {
    ++shared().open_streams;
  }
  return stream;
}

extern "C" dirent64* readdir64(DIR* stream) {
  record("readdir64", "");
  HAND_ON(readdir64, "readdir64", stream);
}

extern "C" int closedir(DIR* stream) {
  record("closedir", "");
  --shared().open_streams;
  HAND_ON(closedir, "closedir", stream);
}

extern "C" int remove(char const* path) noexcept {
  record("remove", path);
  HAND_ON(remove, "remove", path);
}

extern "C" int rename(char const* from, char const* to) noexcept {
  record("rename", from, to);
  HAND_ON(rename, "rename", from, to);
}
