#include "tests/sweeps/allocation_leftovers.h"

#include <dirent.h>
#include <dlfcn.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

#include "ccl/osi/osi.h"

namespace {

// What is open, noted without memory.
template <typename Object>
class open_set {
public:
  void opened(Object* object) {
    if (object == nullptr) {
      return;
    }
    if (m_count == m_objects.size()) {
      std::fputs("too much is open at once\n", stderr);
      std::abort();
    }
    m_objects[m_count++] = object;
  }

  void closed(Object* object) {
    auto const end = m_objects.begin() + m_count;
    m_count = static_cast<std::size_t>(std::remove(m_objects.begin(), end, object) - m_objects.begin());
  }

  int count() const { return static_cast<int>(m_count); }
  Object* last() const { return m_count != 0 ? m_objects[m_count - 1] : nullptr; }

private:
  std::array<Object*, 64> m_objects = {};
  std::size_t m_count = 0;
};

open_set<DIR> streams;
open_set<OSI_PATH> records;

// The definition that would be in force without this program.
template <typename Function>
Function* original(Function* /*double_of*/, char const* symbol) {
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

extern "C" DIR* opendir(char const* path) {
  static auto* const next = original(&::opendir, "opendir");
  DIR* const stream = next(path);
  streams.opened(stream);
  return stream;
}

extern "C" int closedir(DIR* stream) {
  static auto* const next = original(&::closedir, "closedir");
  streams.closed(stream);
  return next(stream);
}

OSI_PATH* osi_get_unc_full_path(char const* path) {
  static auto* const next = original(&::osi_get_unc_full_path, "_Z21osi_get_unc_full_pathPKc");
  OSI_PATH* const record = next(path);
  records.opened(record);
  return record;
}

void osi_path_free(OSI_PATH* record) {
  static auto* const next = original(&::osi_path_free, "_Z13osi_path_freeP8OSI_PATH");
  records.closed(record);
  next(record);
}

leftovers open_leftovers() { return {streams.count(), records.count()}; }

void close_leftovers() {
  while (DIR* const stream = streams.last()) {
    ::closedir(stream);
  }
  while (OSI_PATH* const record = records.last()) {
    ::osi_path_free(record);
  }
}

int open_descriptors() {
  DIR* const stream = ::opendir("/proc/self/fd");
  int count = 0;
  while (::readdir64(stream) != nullptr) {
    ++count;
  }
  ::closedir(stream);
  return count;
}
