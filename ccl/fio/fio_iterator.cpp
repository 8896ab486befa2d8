#include "ccl/fio/fio_iterator.h"

#include <string_view>

#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/internal/module.h"
#include "ccl/fio/internal/path_text.h"

namespace {

MEM_INITIALIZER const mem_initializer(fio_internal::module_name);

// A single bit of the type byte and not one of its values.
constexpr unsigned char directory_bit = 4;

// Makes the entry with this name, which is not in the state itself, the current one. The memory of the entry before it
// is used again, and what may fail comes first.
void store_entry(FIO_DIRECTORY_ITERATOR_IMPL& state, std::string_view name, bool is_directory) {
  std::string& path = state.entry.path;
  path.reserve(state.directory.size() + 1 + name.size());
  path = state.directory;
  path += '/';
  path += name;
  state.entry.is_directory = is_directory;
}

} // namespace

// Both kinds of separator count when a path is parsed.
FIO_PATH FIO_DIRECTORY_ENTRY::derive_path() const { return FIO_PATH(path); }

FIO_DIRECTORY_ITERATOR_IMPL::FIO_DIRECTORY_ITERATOR_IMPL(char const* directory_text) : directory(directory_text) {}

FIO_DIRECTORY_ITERATOR_IMPL::~FIO_DIRECTORY_ITERATOR_IMPL() {
  if (stream != nullptr) {
    ::closedir(stream);
  }
}

void FIO_DIRECTORY_ITERATOR_IMPL::set_filename(char const* name, bool is_directory) {
  store_entry(*this, std::string(name), is_directory);
}

FIO_DIRECTORY_ITERATOR::FIO_DIRECTORY_ITERATOR(char const* path) {
  if (!FIO_FILE_SYSTEM::is_directory(path)) {
    return;
  }
  DIR* const stream = ::opendir(path);
  if (stream == nullptr) {
    return;
  }
  try {
    m_impl = std::make_shared<FIO_DIRECTORY_ITERATOR_IMPL>(path);
  } catch (...) {
    ::closedir(stream);
    throw;
  }
  m_impl->stream = stream;
  FIO_DIRECTORY_ITERATOR::increment();
}

void FIO_DIRECTORY_ITERATOR::increment() {
  if (m_impl == nullptr) {
    return;
  }
  while (dirent64 const* const found = ::readdir64(m_impl->stream)) {
    std::string_view const name = found->d_name;
    if (!fio_internal::is_dot_name(name)) {
      store_entry(*m_impl, name, (found->d_type & directory_bit) != 0);
      return;
    }
  }
  m_impl.reset();
}

FIO_RECURSIVE_DIRECTORY_ITERATOR::FIO_RECURSIVE_DIRECTORY_ITERATOR(char const* path) : FIO_DIRECTORY_ITERATOR(path) {}

FIO_RECURSIVE_DIRECTORY_ITERATOR::~FIO_RECURSIVE_DIRECTORY_ITERATOR() = default;

void FIO_RECURSIVE_DIRECTORY_ITERATOR::increment() {
  if (is_at_end()) {
    return;
  }
  if (m_subdir_iter != nullptr) {
    m_subdir_iter->increment();
    if (!m_subdir_iter->is_at_end()) {
      update_entry_from_subdir_iter();
      return;
    }
    m_subdir_iter.reset();
  }
  // After a subdirectory this may be the last entry from below, which was empty then: it is opened once more.
  if (m_impl->entry.is_directory) {
    m_subdir_iter = std::make_shared<FIO_RECURSIVE_DIRECTORY_ITERATOR>(m_impl->entry.path.c_str());
    if (!m_subdir_iter->is_at_end()) {
      update_entry_from_subdir_iter();
      return;
    }
    m_subdir_iter.reset();
  }
  FIO_DIRECTORY_ITERATOR::increment();
}

void FIO_RECURSIVE_DIRECTORY_ITERATOR::update_entry_from_subdir_iter() {
  FIO_DIRECTORY_ENTRY const& below = m_subdir_iter->m_impl->entry;
  // First what may fail: an entry is either the old or the new one.
  m_impl->entry.path = below.path;
  m_impl->entry.is_directory = below.is_directory;
}
