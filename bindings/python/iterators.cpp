// Walks over a directory, over a tree, and over what matches a wildcard, as iterators of Python.

#include "ccl/fio/fio_iterator.h"

#include <memory>
#include <optional>
#include <string>

#include "bindings/python/bindings.h"
#include "bindings/python/errors.h"
#include "ccl/fio/fio_file_sys.h"

namespace {

/// Entries of the library's iterators, one by one.
template <typename Iterator>
class entry_walk {
public:
  using value = FIO_DIRECTORY_ENTRY;

  explicit entry_walk(std::string const& directory) : m_at(directory.c_str()) {}

  std::optional<value> next() {
    Iterator const end;
    if (m_started && m_at != end) {
      ++m_at;
    }
    m_started = true;
    return m_at == end ? std::nullopt : std::optional<value>(*m_at);
  }

private:
  Iterator m_at;
  bool m_started = false;
};

/// The entries that match a wildcard.
class match_walk {
public:
  using value = _finddata_t;

  explicit match_walk(std::string const& pattern) : m_handle(FIO_FILE_SYSTEM::findfirst(pattern.c_str(), &m_entry)) {}
  ~match_walk() { FIO_FILE_SYSTEM::findclose(m_handle); }
  match_walk(match_walk const&) = delete;
  match_walk& operator=(match_walk const&) = delete;

  std::optional<value> next() {
    m_found = m_started ? m_found && FIO_FILE_SYSTEM::findnext(m_handle, &m_entry) == 0 : m_handle != -1;
    m_started = true;
    return m_found ? std::optional<value>(m_entry) : std::nullopt;
  }

private:
  value m_entry = {};
  long m_handle;
  bool m_started = false;
  bool m_found = false;
};

/// The class of Python for one of the walks above.
template <typename Walk>
void bind_iterator(py::module_& module, char const* name, char const* argument, char const* documentation) {
  using shared = one_at_a_time<Walk>;
  whole_class<shared> iterator(module, name, documentation);
  iterator
      .def(py::init([](file_name const& path) {
             return without_interpreter([&] { return std::make_unique<shared>(path.bytes); });
           }),
           py::arg(argument))
      .def("__iter__", [](py::object const& self) { return self; })
      .def("__next__", [](shared& self) {
        auto entry = self.use([](Walk& walk) { return walk.next(); });
        if (!entry) {
          throw py::stop_iteration();
        }
        return *entry;
      });
  iterator.seal();
}

void bind_entry(py::module_& module) {
  whole_class<FIO_DIRECTORY_ENTRY> entry(module, "DirectoryEntry", "One entry of a directory.");
  entry
      .def_property_readonly(
          "path", [](FIO_DIRECTORY_ENTRY const& self) { return file_name{self.path}; },
          "The string given to the iterator, '/' and the name; below the top level likewise.")
      .def_property_readonly(
          "is_directory", [](FIO_DIRECTORY_ENTRY const& self) { return self.is_directory; },
          "What the directory says of the entry; also true for block devices and sockets, and false for links.")
      .def(
          "derive_path", [](FIO_DIRECTORY_ENTRY const& self) { return FIO_PATH(legal(self.derive_path())); },
          "The path of the entry, with every \\ of its string taken for a separator.")
      .def("__fspath__", [](FIO_DIRECTORY_ENTRY const& self) { return decoded(self.path); })
      .def("__repr__", [](FIO_DIRECTORY_ENTRY const& self) {
        return py::str("DirectoryEntry(path={}, is_directory={})")
            .format(py::repr(decoded(self.path)), self.is_directory);
      });
  entry.seal();
}

void bind_match(py::module_& module) {
  whole_class<_finddata_t> match(module, "Match", "What a walk over a wildcard says of an entry.");
  match
      .def_property_readonly(
          "name", [](_finddata_t const& self) { return file_name{self.name}; },
          "The name without a directory, cut to 259 bytes.")
      .def_property_readonly(
          "is_directory", [](_finddata_t const& self) { return (self.attrib & 0x10u) != 0; },
          "Whether it is a directory; also true for block devices and sockets.")
      .def_property_readonly(
          "read_only", [](_finddata_t const& self) { return (self.attrib & 0x01u) != 0; },
          "Whether it is no directory and may not be written.")
      .def_property_readonly(
          "time_write", [](_finddata_t const& self) { return self.time_write; },
          "The time of the last modification, in seconds since the epoch.")
      .def_property_readonly(
          "size", [](_finddata_t const& self) { return self.size; }, "The size in bytes.")
      .def("__repr__", [](_finddata_t const& self) {
        return py::str("Match(name={}, size={})").format(py::repr(decoded(self.name)), self.size);
      });
  match.seal();
}

} // namespace

void bind_iterators(py::module_& module) {
  bind_entry(module);
  bind_match(module);
  bind_iterator<entry_walk<FIO_DIRECTORY_ITERATOR>>(
      module, "DirectoryIterator", "directory",
      "Walks one directory, in the order of the file system, without '.' and '..'.\n\n"
      "What is no directory, or cannot be opened, has no entries: exists(directory + '/*') is false for it.");
  bind_iterator<entry_walk<FIO_RECURSIVE_DIRECTORY_ITERATOR>>(
      module, "RecursiveDirectoryIterator", "directory",
      "Walks a tree depth first, a directory before its contents; links are not entered.\n\n"
      "What is no directory, or cannot be opened, has no entries, at each level.");
  bind_iterator<match_walk>(
      module, "WildcardIterator", "pattern",
      "Walks what matches a wildcard, such as 'rtl/*.v', in the order of the file system, '.' and '..' included.\n\n"
      "Without a wildcard, the one entry of that name. same_file says how names are compared.");
}
