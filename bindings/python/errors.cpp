#include "bindings/python/errors.h"

#include <boost/filesystem/exception.hpp>
#include <cstring>
#include <exception>
#include <string>

namespace {

/// Raises an object of a class of Python.
[[noreturn]] void raise(py::object const& exception) {
  PyErr_SetObject(reinterpret_cast<PyObject*>(Py_TYPE(exception.ptr())), exception.ptr());
  throw py::error_already_set();
}

py::object class_named(char const* name) { return py::module_::import("ccl_fio._errors").attr(name); }

bool is_too_long(file_name const& name) { return !FIO_PATH::is_path_length_within_operating_system_limits(name.bytes); }

py::object os_error(int code, file_name const& name, py::object const& second) {
  if (name.bytes.empty() && second.is_none()) { // not known
    return py::reinterpret_borrow<py::object>(PyExc_OSError)(code, py::str(std::strerror(code)));
  }
  return py::reinterpret_borrow<py::object>(PyExc_OSError)(code, py::str(std::strerror(code)), name, py::none(),
                                                           second);
}

/// Lists that cannot be read leave `FIO_FIND` as this exception.
// NOLINTNEXTLINE(performance-unnecessary-value-param): it is registered with this signature
void translate(std::exception_ptr pointer) {
  try {
    if (pointer) {
      std::rethrow_exception(pointer);
    }
  } catch (boost::filesystem::filesystem_error const& error) {
    py::object const exception = os_error(error.code().value(), {error.path1().native()}, py::none());
    PyErr_SetObject(reinterpret_cast<PyObject*>(Py_TYPE(exception.ptr())), exception.ptr());
  }
}

} // namespace

void raise_failure(int code, char const* what, file_name const& name, file_name const* second) {
  py::object const other = second == nullptr ? py::none() : py::cast(*second);
  if (code == 0 && (is_too_long(name) || (second != nullptr && is_too_long(*second)))) { // no system call was made
    code = ENAMETOOLONG;
  }
  if (code != 0) {
    raise(os_error(code, name, other));
  }
  raise(class_named("Error")(py::make_tuple(what), name, other));
}

void raise_error(FIO_ERRC const& error, file_name const& name) {
  char const* type = "Error";
  if (dynamic_cast<FIO::ERRC::NOT_A_DIRECTORY_ERRC const*>(&error) != nullptr) {
    type = "NotADirectory";
  } else if (dynamic_cast<FIO::ERRC::FAILED_TO_OPEN_DIRECTORY_ERRC const*>(&error) != nullptr) {
    type = "FailedToOpenDirectory";
  } else if (dynamic_cast<FIO::ERRC::FAILED_TO_REMOVE_DIRECTORY_ERRC const*>(&error) != nullptr) {
    type = "FailedToRemoveDirectory";
  }
  py::list lines;
  KORVANE_ERROR_MESSAGE const message = error.message();
  for (KORVANE_ERROR_MESSAGE::LINE const& line : message.m_lines) {
    lines.append(file_name{std::string(static_cast<std::size_t>(line.m_indent), '\t') + line.m_text});
  }
  raise(class_named(type)(lines, name));
}

FIO_PATH const& legal(FIO_PATH const& path) {
  if (!path.is_legal_length()) {
    raise(os_error(ENAMETOOLONG, {}, py::none()));
  }
  return path;
}

std::string const& legal_string(file_name const& name) {
  if (is_too_long(name)) {
    raise_failure(ENAMETOOLONG, "", name);
  }
  return name.bytes;
}

FIO_PATH path_of(file_name const& name) { return legal_string(name); }

FIO_PATH joined_path(file_name const& directory, file_name const& name) {
  FIO_PATH path(directory.bytes, name.bytes);
  if (!path.is_legal_length()) {
    raise_failure(ENAMETOOLONG, "", directory, &name);
  }
  return path;
}

void bind_errors(py::module_& /*module*/) { py::register_local_exception_translator(translate); }
