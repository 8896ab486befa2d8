// Takes names over a search path, as a tool does with its sources, and tells where each was found and what it is.
//
//     resolve --search-path "DIR;DIR;..." [--recursive] [--absolute-to DIR] [--all EXT,EXT] [--json] NAME...
//
// The exit status is 0 if every name was found, 1 if one was not, and 2 for arguments that make no sense or an answer
// that cannot be written.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <boost/filesystem/exception.hpp>
#include <exception>
#include <iostream>
#include <iterator>
#include <list>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "ccl/fio/fio.h"
#include "examples/common/output.h"
#include "examples/common/table.h"
#include "examples/common/vocabulary_texts.h"

namespace {

enum exit_status { all_found = 0, not_all_found = 1, bad_arguments = 2 };

struct arguments {
  std::string search_path;
  std::optional<std::string> absolute_to;
  std::optional<std::string> extensions;
  std::vector<std::string> names;
  bool recursive = false;
  bool json = false;
};

/// A name and one place where it was found. Not found means an empty path.
struct answer {
  std::string name;
  std::string path;
  FIO_EXTENSION_TYPE extension_type = FIO_EXTENSION_TYPE_INVALID;
  FIO_FILE_TYPE file_type = FIO_FILE_TYPE_INVALID;

  bool found() const { return !path.empty(); }
};

// What the vocabulary says, in words

std::string type_of(FIO_FILE_TYPE type) {
  std::string const name = fio_get_file_type_name(type);
  std::string const description = fio_get_file_description(type);
  return std::to_string(type) + ' ' + (name == description ? name : name + " (" + description + ')');
}

std::string extension_of(FIO_EXTENSION_TYPE type) {
  return type == FIO_EXTENSION_TYPE_INVALID ? std::string()
                                            : std::to_string(type) + ' ' + fio_get_extension_string(type);
}

/// The entry of a file dialog that offers all files of this type.
std::string filter_of(FIO_FILE_TYPE type) { return fio_get_file_type_filter(type, true); }

// Searching

answer describe(std::string const& name, FIO_PATH const& path) {
  answer result;
  result.name = name;
  result.path = path.fullpath();
  if (result.found()) {
    result.extension_type = fio_get_extension_type(result.path);
    result.file_type = fio_get_file_type(result.path);
  }
  return result;
}

std::vector<std::string> split(std::string const& text, char separator) {
  std::vector<std::string> parts(1);
  for (char const character : text) {
    if (character == separator) {
      parts.emplace_back();
    } else {
      parts.back() += character;
    }
  }
  return parts;
}

std::list<FIO_PATH> places_of(std::string const& name, arguments const& given, FIO_FIND const& find) {
  FIO_PATH const wanted(name);
  std::list<FIO_PATH> places;
  if (!wanted.is_legal_length() || wanted.filename().empty()) {
    // Without a name the search would find the directories themselves.
  } else if (given.extensions) {
    find.find_all(name, split(*given.extensions, ','), &places, false, false);
  } else {
    places.push_back(find.find_first_relative_path(wanted));
  }
  if (places.empty()) {
    places.emplace_back();
  }
  return places;
}

std::vector<answer> resolve(arguments const& given, FIO_FIND const& find) {
  std::vector<answer> answers;
  for (std::string const& name : given.names) {
    for (FIO_PATH const& place : places_of(name, given, find)) {
      answers.push_back(describe(name, place));
    }
  }
  return answers;
}

// Output

table_row to_row(answer const& row) {
  if (!row.found()) {
    return {row.name, "not found", "", "", "", "", "", ""};
  }
  document_class const* const document = class_of(row.file_type);
  table_row cells = {row.name,
                     row.path,
                     type_of(row.file_type),
                     extension_of(row.extension_type),
                     editor_of(row.file_type),
                     document != nullptr ? document->name : "",
                     joined(traits_of(row.file_type)),
                     filter_of(row.file_type)};
  std::replace(cells.begin(), cells.end(), std::string(), std::string("-"));
  return cells;
}

void print_table(std::vector<answer> const& answers) {
  std::vector<table_row> rows = {
      {"NAME", "FOUND AT", "TYPE", "EXTENSION", "EDITOR", "DOCUMENT CLASS", "TRAITS", "FILTER"}};
  std::transform(answers.begin(), answers.end(), std::back_inserter(rows), to_row);
  write_table(std::cout, rows);
}

// Every answer has the same keys; those of a name that was not found are null.
nlohmann::ordered_json to_json(answer const& row) {
  nlohmann::ordered_json json = {{"name", row.name},          {"path", nullptr},        {"file_type", nullptr},
                                 {"file_type_name", nullptr}, {"description", nullptr}, {"extension_type", nullptr},
                                 {"extension", nullptr},      {"editor", nullptr},      {"traits", nullptr},
                                 {"document_class", nullptr}, {"clsid", nullptr},       {"filter", nullptr}};
  if (!row.found()) {
    return json;
  }
  json["path"] = row.path;
  json["file_type"] = static_cast<int>(row.file_type);
  json["file_type_name"] = fio_get_file_type_name(row.file_type);
  json["description"] = fio_get_file_description(row.file_type);
  json["extension_type"] = static_cast<int>(row.extension_type);
  json["extension"] = fio_get_extension_string(row.extension_type);
  json["editor"] = editor_of(row.file_type);
  json["traits"] = traits_of(row.file_type);
  if (document_class const* const document = class_of(row.file_type)) {
    json["document_class"] = document->name;
    json["clsid"] = fio_clsid_to_str(*document->clsid, FIO_CLSID_FORMAT_TEXT);
  }
  json["filter"] = filter_of(row.file_type);
  return json;
}

void print_json(std::vector<answer> const& answers) {
  nlohmann::ordered_json list = nlohmann::ordered_json::array();
  for (answer const& row : answers) {
    list.push_back(to_json(row));
  }
  // File names are bytes: what is no UTF-8 is shown as a replacement character.
  std::cout << list.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
}

// The program

bool is_usable(FIO_FIND const& find) {
  return std::any_of(find.m_search_list.begin(), find.m_search_list.end(), [](FIO_PATH const& directory) {
    return directory.is_legal_length() && FIO_FILE_SYSTEM::is_directory(directory);
  });
}

// Throws what is wrong with the arguments, in one line.
void check(arguments const& given, FIO_FIND& find) {
  if (find.m_search_list.empty()) {
    throw std::invalid_argument("the search path \"" + given.search_path + "\" names no directory");
  }
  if (!is_usable(find)) {
    throw std::invalid_argument("no directory of the search path \"" + given.search_path + "\" exists");
  }
  if (given.absolute_to && !find.set_directory_for_results_to_become_absolute_to(given.absolute_to->c_str())) {
    throw std::invalid_argument("--absolute-to: \"" + *given.absolute_to + "\" is no absolute directory");
  }
  for (std::string const& name : given.names) {
    if (!given.extensions && name.find_first_of("*?") != std::string::npos) {
      throw std::invalid_argument("\"" + name + "\": a name with a wildcard needs --all");
    }
  }
}

int run(arguments const& given) {
  FIO_FIND find(given.search_path, given.recursive);
  check(given, find);
  std::vector<answer> const answers = resolve(given, find);
  given.json ? print_json(answers) : print_table(answers);
  require_written_output();
  bool const all = std::all_of(answers.begin(), answers.end(), [](answer const& row) { return row.found(); });
  return all ? all_found : not_all_found;
}

int fail(std::string reason) {
  std::replace(reason.begin(), reason.end(), '\n', ' ');
  std::cerr << "resolve: " << reason << '\n';
  return bad_arguments;
}

} // namespace

int main(int count, char** values) try {
  arguments given;
  CLI::App app("Finds files over a search path and tells what they are.", "resolve");
  app.add_option("--search-path", given.search_path, "directories to search, separated by \";\"")->required();
  app.add_flag("--recursive", given.recursive, "search all subdirectories too, behind all given directories");
  app.add_option("--absolute-to", given.absolute_to, "make relative results absolute to this directory");
  app.add_option("--all", given.extensions,
                 "find each name in all directories, with each of these extensions, separated by \",\"");
  app.add_flag("--json", given.json, "print JSON instead of a table");
  app.add_option("NAME", given.names, "file names, or paths below a directory of the search path")->required();
  try {
    app.parse(count, values);
  } catch (CLI::Success const& help) {
    app.exit(help);
    require_written_output();
    return all_found;
  }
  return run(given);
} catch (boost::filesystem::filesystem_error const& error) {
  return fail("the search path cannot be read: " + error.code().message() + ": \"" + error.path1().string() + '"');
} catch (std::exception const& error) {
  return fail(error.what());
}
