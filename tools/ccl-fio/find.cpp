// find: takes names over a search path, as a tool does with its sources, and prints where each was found and what it is.

#include <fmt/format.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <boost/algorithm/string/split.hpp>
#include <boost/filesystem/exception.hpp>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "ccl/fio/fio.h"
#include "tools/ccl-fio/command.h"
#include "tools/ccl-fio/include_tree.h"
#include "tools/ccl-fio/json.h"
#include "tools/ccl-fio/output.h"
#include "tools/ccl-fio/search.h"
#include "tools/ccl-fio/vocabulary.h"

namespace tool {

namespace {

struct find_options {
  format_options format;
  std::string search_path;
  std::optional<std::string> absolute_to;
  std::optional<std::string> extensions;
  std::vector<std::string> names;
  bool recursive = false;
  bool shadowed = false;
  bool includes = false;
  bool beside = false;
};

/// A name and one place where it was found, with the places that it hides. Not found means an empty path.
struct result {
  std::string name;
  std::string path;
  std::vector<std::string> hidden;
};

// Searching

std::vector<std::string> split(std::string const& text, char separator) {
  std::vector<std::string> parts;
  boost::split(parts, text, [separator](char character) { return character == separator; });
  return parts;
}

void append_results(std::string const& name, find_options const& given, FIO_FIND const& find, name_search const& search,
                    std::vector<result>& results) {
  std::size_t const before = results.size();
  if (given.extensions) {
    std::list<FIO_PATH> places;
    if (is_findable(name)) {
      find.find_all(name, split(*given.extensions, ','), &places, false, false);
    }
    for (FIO_PATH const& place : places) {
      if (!FIO_PATH::is_dot_directory(place.filename())) {
        results.push_back({name, place.fullpath(), {}});
      }
    }
  } else if (given.shadowed) {
    std::vector<std::string> places = search.all(name);
    if (!places.empty()) {
      results.push_back({name, places.front(), {places.begin() + 1, places.end()}});
    }
  } else if (std::string place = search.first(name); !place.empty()) {
    results.push_back({name, std::move(place), {}});
  }
  if (results.size() == before) {
    results.push_back({name, "", {}});
  }
  for (std::size_t i = before; i != results.size(); ++i) {
    find.make_path_absolute_if_relative(&results[i].path);
    for (std::string& hidden : results[i].hidden) {
      find.make_path_absolute_if_relative(&hidden);
    }
  }
}

// Output

type_facts facts_of(std::string const& path) {
  FIO_EXTENSION_TYPE const extension = fio_get_extension_type(path);
  return {fio_get_file_type(extension), extension};
}

void write_for_people(std::vector<result> const& results, bool all_columns) {
  table contents = {{{"name"}, {"found at"}}, 3, {}};
  std::vector<column> const facts = fact_columns();
  contents.columns.insert(contents.columns.end(), facts.begin(), facts.end());
  for (result const& found : results) {
    bool const missing = found.path.empty();
    auto& row = contents.rows.emplace_back();
    row.reserve(contents.columns.size());
    row.push_back({found.name});
    row.push_back(missing ? cell{"not found", style::bad} : cell{found.path});
    append_facts(row, missing ? type_facts() : facts_of(found.path));
    for (std::string const& path : found.hidden) {
      auto& hidden = contents.rows.emplace_back();
      hidden = {{"  hides", style::faint}, {path, style::faint}};
      append_facts(hidden, type_facts());
    }
  }
  write_table(contents, all_columns);
}

void write_for_programs(std::vector<result> const& results, bool shadowed) {
  json list = json::array();
  for (result const& found : results) {
    json object = {{"name", name_to_json(found.name)}, {"path", name_or_null(found.path)}};
    append_facts(object, found.path.empty() ? type_facts() : facts_of(found.path));
    if (shadowed) {
      object["hides"] = json::array();
      std::transform(found.hidden.begin(), found.hidden.end(), std::back_inserter(object["hides"]), name_to_json);
    }
    list.push_back(std::move(object));
  }
  write_json(list);
}

void write_records(std::vector<result> const& results) {
  for (result const& found : results) {
    if (!found.path.empty()) {
      write_record(found.path);
      std::for_each(found.hidden.begin(), found.hidden.end(), write_record);
    }
  }
}

// The subcommand

/// Leaves out the directories that the library has rejected: nothing is left of their names.
void leave_out_too_long(std::list<FIO_PATH>& directories) {
  std::size_t const count = directories.size();
  directories.remove_if([](FIO_PATH const& directory) { return !directory.is_legal_length(); });
  if (directories.size() != count) {
    complain("warning", fmt::format("search path: directories too long for a path: {}", count - directories.size()));
  }
}

/// Whether names can be looked for in a directory. A warning says why not.
bool is_searchable(FIO_PATH const& directory) {
  std::string const text = directory.fullpath();
  errno = 0;
  bool const searchable = FIO_FILE_SYSTEM::is_directory(text.c_str()) && ::access(text.c_str(), X_OK) == 0;
  if (!searchable) {
    complain("warning", fmt::format("search path: {}: {}", text, std::strerror(errno != 0 ? errno : ENOTDIR)));
  }
  return searchable;
}

bool is_blank(std::string const& text) { return text.find_first_not_of(" \t\r\n") == std::string::npos; }

/// Warns of what cannot be searched, and refuses a search path of nothing else.
void check_directories(FIO_FIND const& find, std::string const& search_path) {
  // The library stops at an element that is blank and not empty.
  std::vector<std::string> const elements = split(search_path, ';');
  auto const stop = std::find_if(elements.begin(), elements.end(),
                                 [](std::string const& element) { return !element.empty() && is_blank(element); });
  if (!std::all_of(stop, elements.end(), is_blank)) {
    complain("warning", "search path: the directories after a blank element are not searched");
  }
  if (std::count_if(find.m_search_list.begin(), find.m_search_list.end(), is_searchable) == 0) {
    throw usage_error(fmt::format("no directory of the search path \"{}\" can be searched", search_path));
  }
}

/// A name with a wildcard is a pattern only for a search for all.
void check_names(find_options const& given) {
  if (given.extensions || given.includes) {
    return;
  }
  for (std::string const& name : given.names) {
    if (name.find_first_of("*?") != std::string::npos) {
      throw usage_error(fmt::format("\"{}\": a name with a wildcard needs --all", name));
    }
  }
}

/// Appends all subdirectories. Those that cannot be read are left out with a warning.
void add_subdirectories(FIO_FIND& find) try {
  find.m_recursive = true;
  find.add_subdirs();
} catch (boost::filesystem::filesystem_error const& failure) {
  complain("warning", fmt::format("search path: some subdirectories cannot be read: {}", failure.code().message()));
  namespace fs = std::filesystem;
  std::list<FIO_PATH> found;
  for (FIO_PATH const& directory : find.m_search_list) {
    std::error_code error;
    fs::recursive_directory_iterator entry(directory.fullpath(), fs::directory_options::skip_permission_denied, error);
    for (; entry != fs::recursive_directory_iterator(); entry.increment(error)) {
      std::error_code unknown;
      if (entry->is_directory(unknown)) {
        found.emplace_back(entry->path().string() + '/');
      }
    }
  }
  find.m_search_list.splice(find.m_search_list.end(), found);
}

exit_status run(find_options given) {
  FIO_FIND find(given.search_path, false);
  leave_out_too_long(find.m_search_list);
  check_directories(find, given.search_path);
  if (given.recursive) {
    auto const last = std::prev(find.m_search_list.end());
    add_subdirectories(find);
    leave_out_too_long(find.m_search_list);
    std::for_each(std::next(last), find.m_search_list.end(), is_searchable);
  }
  if (given.absolute_to) {
    find.set_directory_for_results_to_become_absolute_to(given.absolute_to->c_str());
  }
  given.names = expand_names(given.names, given.format.zero);
  check_names(given);
  if (given.includes) {
    return write_include_trees(find, given.names, given.beside, given.format);
  }
  name_search const search(find);
  std::vector<result> results;
  for (std::string const& name : given.names) {
    append_results(name, given, find, search, results);
  }
  if (given.format.json) {
    write_for_programs(results, given.shadowed);
  } else if (given.format.zero) {
    write_records(results);
  } else {
    write_for_people(results, given.format.all_columns);
  }
  bool const all = std::none_of(results.begin(), results.end(), [](result const& one) { return one.path.empty(); });
  return all ? done : not_all;
}

} // namespace

void add_find(CLI::App& application, invocation& call) {
  auto const given = std::make_shared<find_options>();
  CLI::App& find = *application.add_subcommand("find", "find files over a search path, and print what they are");
  find.add_option("-s,--search-path", given->search_path, "directories to search in this order, separated by \";\"")
      ->required()
      ->type_name("DIR;DIR...");
  find.add_flag("-r,--recursive", given->recursive, "search all subdirectories too, after all given directories");
  auto* const all = find.add_option("-a,--all", given->extensions,
                                    "find each name in all directories, with each of these extensions");
  all->type_name("EXT,EXT...");
  auto* const shadowed = find.add_flag("--shadowed", given->shadowed,
                                       "list also the files of that name in later directories, which each hit hides");
  add_anchor(find, "--absolute-to", given->absolute_to, "make relative results absolute to this directory");
  auto* const includes =
      find.add_flag("--includes", given->includes,
                    "the names are Verilog or SystemVerilog sources: print the tree of what they include");
  find.add_flag("--beside", given->beside, "with --includes, look first in the directory of the including file")
      ->needs(includes);
  add_format_options(find, given->format, "print all columns");
  add_names(find, "a file name, or a path below a directory of the search path; - for standard input");
  shadowed->excludes(all)->excludes(includes);
  all->excludes(includes);
  includes->excludes(find.get_option("--long"));
  run_with_names(find, call, given->names, [given] { return run(*given); });
}

} // namespace tool
