// The operations on files and directories. A failure is an OSError.

#include "ccl/fio/fio_file_sys.h"

#include <cerrno>
#include <cstddef>
#include <optional>
#include <string>

#include "bindings/python/bindings.h"
#include "bindings/python/errors.h"
#include "ccl/fio/fio_path.h"

namespace {

using files = FIO_FILE_SYSTEM;

template <bool (*Query)(char const*)>
bool query(file_name const& path) {
  return without_interpreter([&] { return Query(path.c_str()); });
}

void bind_queries(py::module_& module) {
  module.def("exists", query<files::exists>, py::arg("path"),
             "Whether there is such an entry or, with * or ? in the path, any entry that matches.");
  module.def("is_directory", query<files::is_directory>, py::arg("path"),
             "Whether it is a directory, a block device or a socket; links are followed.");
  module.def("is_regular_file", query<files::is_regular_file>, py::arg("path"),
             "Whether it is a regular file or a socket; links are followed.");
  module.def("is_directory_empty", query<files::is_directory_empty>, py::arg("path"),
             "Whether a walk finds nothing in a directory. True for one that cannot be opened.");
  module.def(
      "is_older",
      [](file_name const& path, long limit) {
        return without_interpreter([&] { return files::is_older(path.c_str(), &limit); });
      },
      py::arg("path"), py::arg("limit"),
      "Whether the last modification lies before limit, in seconds since the epoch; False if it cannot be read.");
  module.def(
      "same_file",
      [](file_name const& name, file_name const& pattern) { return files::same_file(name.c_str(), pattern.c_str()); },
      py::arg("name"), py::arg("pattern"),
      "Whether a name matches a pattern: the wildcard test of the library, with rules of its own. A pattern without "
      "* matches as a prefix.");
}

void bind_path_strings(py::module_& module) {
  module.def(
      "splitpath",
      [](file_name const& path) {
        file_name drive, directory, base, extension;
        if (!files::splitpath(path.c_str(), drive.bytes, directory.bytes, base.bytes, extension.bytes) &&
            !path.bytes.empty()) {
          raise_failure(ENAMETOOLONG, "", path);
        }
        return py::make_tuple(directory, base, extension);
      },
      py::arg("path"), "Parses a path into directory, base and extension without normalising anything.");
  module.def(
      "makepath",
      [](file_name const& directory, file_name const& base, file_name const& extension) {
        constexpr std::size_t separators = 5; // and the NUL
        std::string path(directory.bytes.size() + base.bytes.size() + extension.bytes.size() + separators, '\0');
        files::makepath(path.data(), nullptr, directory.c_str(), base.c_str(), extension.c_str());
        return decoded(path.c_str());
      },
      py::arg("directory"), py::arg("base"), py::arg("extension") = file_name(),
      "The path that a directory, a base and an extension form.");
  module.def(
      "tmp_path",
      [](file_name const& path) {
        return decoded(without_interpreter([&] { return files::get_tmp_path(path.c_str()); }));
      },
      py::arg("path") = file_name(),
      "A name for a temporary file in the directory of path; nothing is made. Open it exclusively.");
}

/// Returns `made`. If that is false, `errno` is why the directory could not be made, where the library leaves that of its
/// last test: the first level that is missing is tried once more.
bool with_cause(bool made, std::string const& directory) {
  FIO_PATH const path(directory, "");
  if (made || !path.is_legal_length()) {
    return made;
  }
  int const cause = errno;
  std::string level = path.absolute() ? "/" : "";
  for (int i = 0; path.legal(i); ++i) {
    level += path[i];
    if (!files::exists(level.c_str())) {
      files::mkdir(level.c_str());
      return false;
    }
    level += '/';
  }
  errno = cause;
  return false;
}

/// An operation on one name that returns whether it succeeded.
void define(py::module_& module, char const* name, bool (*operation)(file_name const&), char const* failure,
            char const* documentation) {
  module.def(
      name,
      [operation, failure](file_name const& path) {
        must_succeed(failure, path, nullptr, [&] { return operation(path); });
      },
      py::arg("path"), documentation);
}

void bind_single_operations(py::module_& module) {
  define(
      module, "mkdir", [](file_name const& path) { return files::mkdir(path.c_str()) == 0; }, "cannot be made",
      "Makes a directory.");
  define(
      module, "rmdir", [](file_name const& path) { return files::rmdir(path.c_str()) == 0; }, "cannot be removed",
      "Removes an empty directory.");
  define(
      module, "remove", [](file_name const& path) { return files::remove(path.c_str()); }, "cannot be removed",
      "Removes a file, a link or an empty directory.");
  define(
      module, "remove_if_exists", [](file_name const& path) { return files::remove_if_exists(path.bytes); },
      "cannot be removed", "Removes what is there; no failure if nothing is.");
  define(
      module, "remove_files", [](file_name const& path) { return files::remove_files(path.c_str()); },
      "not everything could be removed",
      "Removes every entry that matches a pattern, up to the first that cannot be removed.");
  define(
      module, "create", [](file_name const& path) { return with_cause(files::create(path.bytes), path.bytes); },
      "cannot be made", "Makes a directory with all its missing parents. No failure if anything stands there.");
  define(
      module, "touch",
      [](file_name const& path) { return with_cause(files::touch(path.bytes), FIO_PATH(path.bytes).directory()); },
      "has no directory or cannot be made",
      "Makes a directory with its parents, and an empty file in it if there is none. Error for a name alone.");
  define(
      module, "set_current_directory", [](file_name const& path) { return files::set_current_directory(path.bytes); },
      "cannot be entered", "Changes the current directory of the process.");
  module.def(
      "get_current_directory",
      [] { return decoded(without_interpreter([] { return files::get_current_directory(); })); },
      "The current directory, or '' if it cannot be read or is too long.");
  module.def(
      "chmod",
      [](file_name const& path, int mode) {
        must_succeed("cannot be changed", path, nullptr, [&] { return files::chmod(path.c_str(), mode); });
      },
      py::arg("path"), py::arg("mode"), "Changes the mode.");
}

using copy_operation = bool(std::string const& from, std::string const& to, bool overwrite, bool preserve_time);

/// A copy that makes its target directory.
template <copy_operation* Copy>
bool into_directory(std::string const& from, std::string const& to, bool overwrite, bool preserve_time) {
  return with_cause(Copy(from, to, overwrite, preserve_time), to);
}

/// An operation from one name to another with the two choices of all copies.
void define_copy(py::module_& module, char const* name, copy_operation* operation, char const* from, char const* to,
                 char const* documentation) {
  module.def(
      name,
      [operation](file_name const& source, file_name const& target, bool overwrite, bool preserve_time) {
        must_succeed("cannot be copied", source, &target,
                     [&] { return operation(source.bytes, target.bytes, overwrite, preserve_time); });
      },
      py::arg(from), py::arg(to), py::kw_only(), py::arg("overwrite") = false, py::arg("preserve_time") = false,
      documentation);
}

void bind_copies(py::module_& module) {
  module.def(
      "rename",
      [](file_name const& from, file_name const& to) {
        must_succeed("cannot be renamed", from, &to, [&] { return files::rename(from.c_str(), to.c_str()); });
      },
      py::arg("source"), py::arg("target"), "Renames a file or a directory; an existing target is replaced.");
  define_copy(module, "copy", files::copy, "source", "target",
              "Copies the content of a file and, with preserve_time, its times in whole seconds. A target that is not "
              "to be overwritten stays as it is, which is no failure.");
  define_copy(module, "move", files::move, "source", "target",
              "Removes the source after a copy that succeeded. Beware: it is lost where copy leaves an existing target "
              "as it is.");
  define_copy(module, "copy_files", into_directory<files::copy_files>, "pattern", "target_directory",
              "Copies every entry that matches a pattern into a directory, which is made if it is missing.");
  define_copy(module, "copy_dir", into_directory<files::copy_dir>, "source", "target",
              "Copies what a walk finds in a directory, and below it, into another one. Links are followed. The target "
              "must not lie in the source.");
}

void bind_removals(py::module_& module) {
  module.def(
      "remove_recursively",
      [](file_name const& path, std::optional<file_name> const& pattern, std::optional<long> limit) {
        must_succeed("not everything could be removed", path, nullptr, [&] {
          return files::remove_recursively(path.c_str(), pattern ? pattern->c_str() : nullptr,
                                           limit ? &*limit : nullptr);
        });
      },
      py::arg("path"), py::arg("pattern") = py::none(), py::arg("limit") = py::none(),
      "Removes a tree, or only what matches a pattern and was modified before limit. Beware: links to directories are "
      "followed.");
  module.def(
      "remove_temp_files",
      [](file_name const& directory, int age_seconds, std::optional<file_name> const& pattern) {
        must_succeed("the time of the file system cannot be told", directory, nullptr, [&] {
          return files::remove_temp_files(directory.c_str(), age_seconds, pattern ? pattern->c_str() : nullptr);
        });
      },
      py::arg("directory"), py::arg("age_seconds"), py::arg("pattern") = py::none(),
      "Removes temporary files that are older below a directory. What could not be removed is not reported. Beware: "
      "links to directories are followed.");
  module.def(
      "remove_empty_subdirectories",
      [](file_name const& path, bool remove_root) {
        auto const error =
            without_interpreter([&] { return files::remove_empty_subdirectories(path.bytes, remove_root); });
        if (error) {
          raise_error(*error, path);
        }
      },
      py::arg("path"), py::kw_only(), py::arg("remove_root") = false,
      "Removes the directories of a tree in which nothing is. NotADirectory, FailedToOpenDirectory or "
      "FailedToRemoveDirectory for the first error, which stops nothing.");
}

} // namespace

void bind_file_system(py::module_& module) {
  bind_queries(module);
  bind_path_strings(module);
  bind_single_operations(module);
  bind_copies(module);
  bind_removals(module);
}
