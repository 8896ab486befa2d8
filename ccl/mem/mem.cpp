#include "ccl/mem/mem.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>

namespace {

// Both are constant-initialised, so that the static objects of any library can register before this library's own
// start-up code has run.
std::mutex registry_mutex;
MEM_INITIALIZER* newest_registration = nullptr;

bool debug_messages_wanted() {
  char const* const value = std::getenv("CCL_DEBUG_MESSAGES");
  return value != nullptr && *value != '\0' && std::strcmp(value, "0") != 0;
}

// The format is the caller's: the two operations below are checked where they are called.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

// Appends a formatted string to `*out`. Returns false, with `*out` unchanged, if the format is invalid.
bool append_formatted(std::string* out, char const* format, va_list arguments) {
  va_list measured;
  va_copy(measured, arguments);
  // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): va_copy has just set it up
  int const length = std::vsnprintf(nullptr, 0, format, measured);
  va_end(measured);
  if (length < 0) {
    return false;
  }
  std::size_t const start = out->size();
  out->resize(start + static_cast<std::size_t>(length));
  // The terminating NUL replaces the one that the string has there anyway.
  std::vsnprintf(&(*out)[start], static_cast<std::size_t>(length) + 1, format, arguments);
  return true;
}

#pragma GCC diagnostic pop

} // namespace

MEM_INITIALIZER::MEM_INITIALIZER(char const* module) : m_module(module), m_next(nullptr) {
  std::lock_guard<std::mutex> const lock(registry_mutex);
  m_previous = newest_registration;
  if (m_previous != nullptr) {
    m_previous->m_next = this;
  }
  newest_registration = this;
}

MEM_INITIALIZER::~MEM_INITIALIZER() {
  std::lock_guard<std::mutex> const lock(registry_mutex);
  (m_next != nullptr ? m_next->m_previous : newest_registration) = m_previous;
  if (m_previous != nullptr) {
    m_previous->m_next = m_next;
  }
}

std::vector<std::string> MEM_INITIALIZER::registered_modules() {
  std::vector<std::string> modules;
  std::lock_guard<std::mutex> const lock(registry_mutex);
  for (MEM_INITIALIZER const* entry = newest_registration; entry != nullptr; entry = entry->m_previous) {
    modules.emplace_back(entry->m_module);
  }
  return {modules.rbegin(), modules.rend()};
}

void mem_msg_local_vdebug(char const* module, char const* format, va_list arguments) {
  if (!debug_messages_wanted()) {
    return;
  }
  int const kept_errno = errno;
  try {
    std::string line = module;
    line += ": ";
    if (append_formatted(&line, format, arguments)) {
      line += '\n';
      std::fwrite(line.data(), 1, line.size(), stderr);
    }
  } catch (std::bad_alloc const&) {
    // A debug message is never a failure of the operation that writes it.
  }
  errno = kept_errno;
}

void MEM_DETAIL::stl_raw_sprintf(std::string* out, char const* format, ...) {
  out->clear();
  va_list arguments;
  va_start(arguments, format);
  try {
    append_formatted(out, format, arguments);
  } catch (...) {
    va_end(arguments);
    throw;
  }
  va_end(arguments);
}
