// Paths as values: an edit makes another path.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bindings/python/bindings.h"
#include "bindings/python/errors.h"
#include "ccl/fio/fio_path.h"

namespace {

/// The string of a path, without a copy. No path of Python is too long, so no message is written.
std::string_view string_of(FIO_PATH const& path) { return static_cast<char const*>(path); }

/// A path that an edit has made.
///
/// @throws error_already_set with an `OSError` of `ENAMETOOLONG` if it is too long to be used
template <typename Edit>
FIO_PATH edited(FIO_PATH path, Edit edit) {
  edit(path);
  return legal(path);
}

/// A setter of one string as a method that returns another path.
template <FIO_PATH& (FIO_PATH::*Set)(std::string const&)>
FIO_PATH with(FIO_PATH const& path, file_name const& value) {
  return edited(path, [&](FIO_PATH& copy) { (copy.*Set)(value.bytes); });
}

template <std::string (FIO_PATH::*Get)() const>
py::str part(FIO_PATH const& path) {
  return decoded((path.*Get)());
}

// Not the member itself, which would be called for None.
template <bool (FIO_PATH::*Query)() const>
bool holds(FIO_PATH const& path) {
  return (path.*Query)();
}

std::vector<file_name> levels_of(FIO_PATH const& path) {
  std::vector<file_name> levels;
  for (int level = 0; path.legal(level); ++level) {
    levels.push_back({path[level]});
  }
  return levels;
}

std::optional<FIO_PATH> canonical(FIO_PATH const& path) {
  std::string const text = path.fullpath();
  auto const real = without_interpreter([&] { return FIO_PATH::canonical(text); });
  return real ? std::optional<FIO_PATH>(path_of({*real})) : std::nullopt;
}

using path_class = whole_class<FIO_PATH>;

void bind_making(path_class& path) {
  path.def(py::init([] { return FIO_PATH(); }), "An empty path.")
      .def(py::init([](FIO_PATH const& other) { return other; }), py::arg("path"), "The same path.")
      .def(py::init(&path_of), py::arg("path"),
           "The path parsed from a string into directory, base and extension; both / and \\ separate, and runs of them "
           "are one. OSError with ENAMETOOLONG for more than 1023 bytes, here and in all edits.")
      .def(py::init(&joined_path), py::arg("directory"), py::arg("name"),
           "Joins a directory and a name without parsing them: a separator in the name stays in the base.");
}

void bind_text(path_class& path) {
  path.def("__fspath__", part<&FIO_PATH::fullpath>)
      .def("__str__", part<&FIO_PATH::fullpath>)
      .def("__bytes__", [](FIO_PATH const& self) { return py::bytes(string_of(self)); })
      .def("__repr__",
           [](FIO_PATH const& self) { return py::str("Path({})").format(py::repr(decoded(string_of(self)))); })
      .def("__reduce__",
           [](py::object const& self) { return py::make_tuple(py::type::of(self), py::make_tuple(py::str(self))); })
      .def(
          "__bool__", [](FIO_PATH const& self) { return !string_of(self).empty(); }, "Whether the string is not empty.")
      .def("__hash__", [](FIO_PATH const& self) { return py::hash(py::bytes(string_of(self))); })
      .def(
          "__eq__", [](FIO_PATH const& self, FIO_PATH const& other) { return string_of(self) == string_of(other); },
          py::is_operator(), "Whether the strings are the same; see same_place.")
      .def(
          "__lt__", [](FIO_PATH const& self, FIO_PATH const& other) { return string_of(self) < string_of(other); },
          py::is_operator(), "Orders by the bytes of the strings.")
      .def(
          "__le__", [](FIO_PATH const& self, FIO_PATH const& other) { return string_of(self) <= string_of(other); },
          py::is_operator());
}

void bind_components(path_class& path) {
  path.def_property_readonly("directory", part<&FIO_PATH::directory>, "The directory with its trailing separator.")
      .def_property_readonly("base", part<&FIO_PATH::base>, "The name up to its last dot: 'a.tar' of 'a.tar.gz'.")
      .def_property_readonly("extension", part<&FIO_PATH::extension>,
                             "The extension without its leading dot: 'gz' of 'a.tar.gz'.")
      .def_property_readonly("filename", part<&FIO_PATH::filename>, "The name with its extension.")
      .def_property_readonly("tail", part<&FIO_PATH::tail>, "The name of the last directory level.")
      .def_property_readonly(
          "levels", [](FIO_PATH const& self) { return py::tuple(py::cast(levels_of(self))); },
          "The names of the directory levels, from left to right; the file name is not one.")
      .def_property_readonly("has_directory", holds<&FIO_PATH::has_directory>, "Whether there is a directory.")
      .def_property_readonly("has_extension", holds<&FIO_PATH::has_extension>,
                             "Whether there is an extension; true for 'file.', whose extension is a lone dot.")
      .def_property_readonly("is_absolute", holds<&FIO_PATH::absolute>, "Whether the path begins with a separator.")
      .def_property_readonly("is_directory_path", holds<&FIO_PATH::directory_path>,
                             "Whether the path is nothing but a directory: 'a/' is, and neither 'a' nor 'a/..' is.");
}

void bind_edits(path_class& path) {
  path.def("with_directory", with<&FIO_PATH::directory>, py::arg("directory"),
           "Another directory; an empty one removes it.")
      .def("with_base", with<&FIO_PATH::base>, py::arg("base"), "Another base, unchecked: a dot in it stays in it.")
      .def("with_filename", with<&FIO_PATH::filename>, py::arg("filename"),
           "Another name and extension. A directory in it is appended to the present one.")
      .def("with_tail", with<&FIO_PATH::tail>, py::arg("tail"), "Another last level of the directory.")
      .def(
          "with_extension",
          [](FIO_PATH const& self, file_name const& first, file_name const& second) {
            return edited(self, [&](FIO_PATH& copy) { copy.extension(first.bytes, second.bytes); });
          },
          py::arg("extension"), py::arg("second") = file_name(),
          "Another extension, with or without its dot, of up to two parts; without a first part there is none.")
      .def(
          "without_extension",
          [](FIO_PATH const& self) { return edited(self, [](FIO_PATH& copy) { copy.no_extension(); }); },
          "The path without its extension.")
      .def(
          "cd",
          [](FIO_PATH const& self, file_name const& directory) {
            return edited(self, [&](FIO_PATH& copy) { copy.cd(directory.bytes); });
          },
          py::arg("directory"),
          "The path in another directory, seen from its own as a shell's cd sees it, simplified.");
}

// The interpreter stays locked in all of these but the last: they read the environment, which a thread of Python could
// change meanwhile.
void bind_location(path_class& path) {
  path.def(
          "simplified",
          [](FIO_PATH const& self) { return edited(self, [](FIO_PATH& copy) { copy.become_simplified(); }); },
          "Without '.' and, as far as the string allows, '..' in the directory; links are not looked at. The "
          "environment "
          "variable fio_old_simplify selects an older algorithm.")
      .def(
          "flattened", [](FIO_PATH const& self) { return edited(self, [](FIO_PATH& copy) { copy.flatten(); }); },
          "The simplification itself, whatever the environment says.")
      .def(
          "absolute",
          [](FIO_PATH const& self, file_name const& directory) {
            return edited(self, [&](FIO_PATH& copy) { copy.become_absolute(legal_string(directory)); });
          },
          py::arg("directory") = file_name(),
          "A relative path anchored at a directory, or at the current one if that is empty, and simplified. An "
          "absolute "
          "path is not even simplified.")
      .def(
          "relative_to",
          [](FIO_PATH const& self, file_name const& directory) {
            return path_of({self.get_relative_to(legal_string(directory))});
          },
          py::arg("directory"),
          "The path as seen from a directory, if both are absolute and share their first level; otherwise the path as "
          "it is.")
      .def(
          "same_place", [](FIO_PATH const& self, file_name const& other) { return self == path_of(other); },
          py::arg("other"),
          "Whether the two name the same place: compared simplified and anchored at the current directory. Links are "
          "not looked at.")
      .def(
          "precedes", [](FIO_PATH const& self, file_name const& other) { return self < path_of(other); },
          py::arg("other"),
          "Whether this path, simplified and anchored at the current directory, stands before the other one in the "
          "order of their bytes.")
      .def("canonical", canonical,
           "The real location of an existing path: absolute, with all links resolved; None on any failure.");
}

} // namespace

void bind_path(py::module_& module) {
  path_class path(
      module, "Path",
      "A file or directory name, in components and as one string.\n\n"
      "Paths do not change: an edit returns another one. They are equal, hashed and sorted by their strings. "
      "A path says nothing about what exists.");
  bind_making(path);
  bind_text(path);
  bind_components(path);
  bind_edits(path);
  bind_location(path);
  path.seal();
}
