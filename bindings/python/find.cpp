// Searches over a list of directories.

#include "ccl/fio/fio_find.h"

#include <algorithm>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "bindings/python/bindings.h"
#include "bindings/python/errors.h"

namespace {

using search = one_at_a_time<FIO_FIND>;

/// Nothing for an empty result, which is what the library calls not found, unless what was found is too long.
std::optional<FIO_PATH> found(FIO_PATH path) {
  return legal(path).fullpath().empty() ? std::nullopt : std::optional<FIO_PATH>(std::move(path));
}

/// Directories, whether a separator ends their names or not.
std::list<FIO_PATH> directories_of(std::vector<file_name> const& names) {
  std::list<FIO_PATH> directories;
  for (file_name const& name : names) {
    directories.push_back(joined_path(name, {}));
  }
  return directories;
}

std::vector<std::string> strings_of(std::vector<file_name> const& names) {
  std::vector<std::string> strings;
  strings.reserve(names.size());
  for (file_name const& name : names) {
    strings.push_back(name.bytes);
  }
  return strings;
}

/// The names that match the search path as one pattern. It has a search of its own, so that several may be under way.
class pattern_walk {
public:
  explicit pattern_walk(FIO_FIND const& find) : m_find(std::string(), false) {
    m_find.m_search_path = find.m_search_path;
    m_find.m_absolute_to = find.m_absolute_to;
  }

  std::string next() {
    std::string name;
    if (!m_started) {
      m_started = true;
      name = m_find.find_first();
    } else if (m_find.m_find_handle != -1) {
      name = m_find.find_next();
    }
    if (name.empty()) {
      m_find.find_close();
    }
    return name;
  }

private:
  FIO_FIND m_find;
  bool m_started = false;
};

using shared_walk = one_at_a_time<pattern_walk>;

void bind_walk(py::module_& module) {
  whole_class<shared_walk> walk(module, "FindWalk", "An iterator over the names that Find.walk finds.");
  walk.def("__iter__", [](py::object const& self) { return self; }).def("__next__", [](shared_walk& self) {
    std::string const name = self.use([](pattern_walk& one) { return one.next(); });
    if (name.empty()) {
      throw py::stop_iteration();
    }
    return decoded(name);
  });
  walk.seal();
}

using find_class = whole_class<search>;

void bind_lists(find_class& bound) {
  bound
      .def(py::init([](file_name const& search_path, bool recursive) {
             return without_interpreter([&] { return std::make_unique<search>(search_path.bytes, recursive); });
           }),
           py::arg("search_path"), py::arg("recursive") = false,
           "A search over directories separated by ';'; with recursive, all subdirectories follow.")
      .def(py::init([](std::vector<file_name> const& directories, bool recursive) {
             std::list<FIO_PATH> const paths = directories_of(directories);
             return without_interpreter([&] { return std::make_unique<search>(paths, recursive); });
           }),
           py::arg("directories"), py::arg("recursive") = false,
           "A search over a list of directories, whether a separator ends their names or not.")
      .def(
          "init", [](search& self, file_name const& path) { self.use([&](FIO_FIND& find) { find.init(path.bytes); }); },
          py::arg("search_path"), "Replaces the search path, and makes the search list anew.")
      .def(
          "init",
          [](search& self, std::vector<file_name> const& directories) {
            std::list<FIO_PATH> const paths = directories_of(directories);
            self.use([&](FIO_FIND& find) { find.init(paths); });
          },
          py::arg("directories"), "Makes the search list anew from a list of directories.")
      .def(
          "parse_dirs", [](search& self) { self.use([](FIO_FIND& find) { find.parse_dirs(); }); },
          "Appends the elements of the search path to directories, the one behind the last ';' excepted.")
      .def(
          "push",
          [](search& self, file_name const& directory) {
            if (directory.bytes.empty()) {
              throw py::value_error("an empty directory");
            }
            std::string bytes = directory.bytes;
            self.use([&](FIO_FIND& find) { find.push(bytes); });
          },
          py::arg("directory"), "Appends a directory to directories.")
      .def(
          "add_subdirs", [](search& self) { self.use([](FIO_FIND& find) { find.add_subdirs(); }); },
          "Appends the subdirectories of the search list to it, if the search is recursive.");
}

void bind_state(find_class& bound) {
  bound
      .def_property_readonly(
          "search_path",
          [](search& self) { return self.use([](FIO_FIND& find) { return file_name{find.m_search_path}; }); },
          "The search path as it was given.")
      .def_property_readonly(
          "directories",
          [](search& self) { return self.use([](FIO_FIND& find) { return names_of(find.m_directories); }); },
          "The directories that find searches.")
      .def_property_readonly(
          "search_list",
          [](search& self) {
            return self.use([](FIO_FIND& find) {
              return std::vector<FIO_PATH>(find.m_search_list.begin(), find.m_search_list.end());
            });
          },
          "The directories of the other searches.")
      .def_property_readonly(
          "recursive", [](search& self) { return self.use([](FIO_FIND& find) { return find.m_recursive; }); },
          "Whether subdirectories are searched too.")
      .def_property(
          "absolute_to",
          [](search& self) { return self.use([](FIO_FIND& find) { return file_name{find.m_absolute_to}; }); },
          [](search& self, file_name const& directory) {
            char const* const path = legal_string(directory).c_str();
            bool const taken =
                self.use([&](FIO_FIND& find) { return find.set_directory_for_results_to_become_absolute_to(path); });
            if (!taken && !directory.bytes.empty()) {
              throw py::value_error("relative results become absolute to an absolute directory only");
            }
          },
          "The directory that relative results become absolute to, or '' for none.");
}

void bind_searches(find_class& bound) {
  bound
      .def(
          "find",
          [](search& self, file_name const& name) {
            std::string const place = self.use([&](FIO_FIND& find) { return find.find(name.bytes); });
            return place.empty() ? std::nullopt : std::optional<py::str>(decoded(place));
          },
          py::arg("name"), "The first place of a name, directories in it included, in directories; or None.")
      .def(
          "find_first",
          [](search& self, file_name const& name) {
            return found(self.use([&](FIO_FIND& find) { return find.find_first(name.bytes); }));
          },
          py::arg("name"),
          "The first place of a file name in the search list, or None. A directory in it is ignored. Without a name, "
          "or with "
          "one of more than 1023 bytes, the first directory.")
      .def(
          "find_first_relative_path",
          [](search& self, file_name const& path) {
            FIO_PATH const relative = path_of(path);
            return found(self.use([&](FIO_FIND& find) { return find.find_first_relative_path(relative); }));
          },
          py::arg("path"),
          "The first place of a relative path below the search list, or None. Of an absolute path only the name "
          "counts.")
      .def(
          "find_all",
          [](search& self, file_name const& name, std::vector<file_name> const& extensions, bool try_lower_case) {
            std::vector<std::string> const strings = strings_of(extensions);
            std::list<FIO_PATH> places;
            self.use([&](FIO_FIND& find) { find.find_all(name.bytes, strings, &places, false, try_lower_case); });
            std::for_each(places.begin(), places.end(), legal);
            return std::vector<FIO_PATH>(places.begin(), places.end());
          },
          py::arg("name"), py::arg("extensions"), py::kw_only(), py::arg("try_lower_case") = false,
          "All places of a name with each of the extensions, directory by directory. Both may have wildcards.")
      .def(
          "walk",
          [](search& self) { return self.use([](FIO_FIND& find) { return std::make_unique<shared_walk>(find); }); },
          "An iterator over the names that match the search path as one pattern, such as '/a/*.v'.");
}

} // namespace

void bind_find(py::module_& module) {
  bind_walk(module);
  find_class bound(module, "Find",
                   "A search over a list of directories, in their order: an earlier one shadows a later one.\n\n"
                   "find uses directories, which parse_dirs and push fill; the others use search_list. OSError if a "
                   "tree to be listed cannot be read.");
  bind_lists(bound);
  bind_state(bound);
  bind_searches(bound);
  bound.seal();
}
