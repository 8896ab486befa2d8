// A platform of somebody else's: it writes down what it is asked and has an answer of its own for everything.

#include "recording_platform.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "ccl/err/err.h"
#include "ccl/mem/mem.h"
#include "ccl/osi/osi.h"
#include "ccl/stl/stl.h"

std::vector<std::string>& recorded_calls() {
  static std::vector<std::string> calls;
  return calls;
}

namespace {

template <typename Answer>
Answer record(char const* name, Answer answer) {
  recorded_calls().emplace_back(name);
  return answer;
}

} // namespace

MEM_INITIALIZER::MEM_INITIALIZER(char const* module) : m_module(module), m_previous(nullptr), m_next(nullptr) {
  recorded_calls().push_back(std::string("registered ") + m_module);
}

MEM_INITIALIZER::~MEM_INITIALIZER() = default;

void mem_msg_local_vdebug(char const* module, char const* /*format*/, va_list /*arguments*/) {
  recorded_calls().push_back(std::string("message of ") + module);
}

void MEM_DETAIL::stl_raw_sprintf(std::string* out, char const* /*format*/, ...) { *out = "formatted"; }

void err_report_internal_error(char const* condition, char const* module, char const* file, int /*line*/) {
  bool const expected = std::strcmp(condition, "matches") == 0 && std::strcmp(module, "FIO") == 0 &&
                        std::strcmp(file, "ccl/fio/fio_find.cpp") == 0;
  std::_Exit(expected ? 0 : 1);
}

int osi_open(char const* /*path*/, int flags, int mode) { return record("open", flags + mode); }

std::FILE* osi_fopen(char const* /*path*/, char const* /*mode*/) { return record("fopen", stderr); }

int osi_chmod(char const* /*path*/, int /*mode*/) { return record("chmod", 0); }

char* osi_getcwd(char* buffer, unsigned long /*size*/) { return record("getcwd", std::strcpy(buffer, "/somewhere")); }

int osi_mkdir(char const* /*path*/) { return record("mkdir", 11); }

int osi_rmdir(char const* /*path*/) { return record("rmdir", 12); }

int osi_chdir(char const* /*path*/) { return record("chdir", 13); }

int osi_status(char const* /*path*/, struct stat* buffer) {
  buffer->st_mode = S_IFDIR;
  return record("status", 0);
}

int osi_exists(char const* path) { return record("exists", std::strstr(path, "missing") == nullptr ? 14 : 0); }

struct OSI_PATH {};

OSI_PATH* osi_get_unc_full_path(char const* /*path*/) {
  static OSI_PATH record_of_all;
  return record("get_unc_full_path", &record_of_all);
}

char const* osi_path_get_data(OSI_PATH* /*path*/) { return record("path_get_data", "//server/share"); }

void osi_path_free(OSI_PATH* /*path*/) { recorded_calls().emplace_back("path_free"); }

void stl_tolower(std::string& text) { text = ".vhd"; }

char* strtok_s(char* text, std::size_t* /*remaining*/, char const* /*delimiters*/, char** context) {
  *context = nullptr;
  return text;
}
