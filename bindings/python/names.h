/// @file
/// Names of files on their way between Python and the library: `os.fspath` and `os.fsencode` one way, `os.fsdecode` the
/// other, so that every byte survives.

#ifndef CCL_BINDINGS_PYTHON_NAMES_H
#define CCL_BINDINGS_PYTHON_NAMES_H

#include <pybind11/pybind11.h>

#include <string>
#include <string_view>
#include <vector>

/// A name as the library has it.
struct file_name {
  std::string bytes;

  [[nodiscard]] char const* c_str() const { return bytes.c_str(); }
};

/// The names of a container of strings.
template <typename Strings>
std::vector<file_name> names_of(Strings const& strings) {
  std::vector<file_name> names;
  for (std::string const& string : strings) {
    names.push_back({string});
  }
  return names;
}

/// The string of Python for a name.
inline pybind11::str decoded(std::string_view name) {
  PyObject* const string = PyUnicode_DecodeFSDefaultAndSize(name.data(), static_cast<Py_ssize_t>(name.size()));
  if (string == nullptr) {
    throw pybind11::error_already_set();
  }
  return pybind11::reinterpret_steal<pybind11::str>(string);
}

template <>
struct pybind11::detail::type_caster<file_name> {
  PYBIND11_TYPE_CASTER(file_name, const_name("str | bytes | os.PathLike"));

  /// Whether `source` is a name at all.
  ///
  /// @throws error_already_set with a `ValueError` for a NUL, and for characters that no name of a file has
  bool load(handle source, bool /*convert*/) {
    PyObject* encoded = nullptr;
    if (PyUnicode_FSConverter(source.ptr(), &encoded) == 0) {
      if (PyErr_ExceptionMatches(PyExc_TypeError) == 0) {
        throw error_already_set();
      }
      PyErr_Clear();
      return false;
    }
    auto const owner = reinterpret_steal<object>(encoded);
    value.bytes.assign(PyBytes_AS_STRING(encoded), static_cast<std::size_t>(PyBytes_GET_SIZE(encoded)));
    return true;
  }

  static handle cast(file_name const& from, return_value_policy /*policy*/, handle /*parent*/) {
    return decoded(from.bytes).release();
  }
};

#endif
