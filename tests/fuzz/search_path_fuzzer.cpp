/// @file
/// Searches over any search path: both lists, with subdirectories and without, and what is found in a small tree.
///
/// The first line of an input is a name to look for, the second a directory for absolute results, and the rest, in
/// which line feeds are white space, is the search path.

#include <algorithm>
#include <boost/system/system_error.hpp>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <list>
#include <string>
#include <vector>

#include "ccl/fio/fio_find.h"
#include "tests/fuzz/support/check.h"
#include "tests/fuzz/support/debug_channel.h"
#include "tests/fuzz/support/input.h"
#include "tests/fuzz/support/search_oracle.h"
#include "tests/fuzz/support/target.h"
#include "tests/fuzz/support/watched_path.h"

namespace {

struct request {
  std::string name;
  std::string absolute_to;
  std::string search_path;
};

std::vector<std::string> texts_of(std::list<FIO_PATH> const& paths) {
  std::vector<std::string> texts;
  std::transform(paths.begin(), paths.end(), std::back_inserter(texts),
                 [](FIO_PATH const& path) { return path.fullpath(); });
  return texts;
}

std::vector<std::string> texts_of(std::list<std::string> const& directories) {
  return {directories.begin(), directories.end()};
}

// The text of the path of a text.
std::string normal_form(std::string const& text) {
  fuzz::components parts = fuzz::divided(text);
  parts.directory = fuzz::stored_directory(parts.directory, '/');
  return fuzz::composed("", parts);
}

std::vector<std::string> expected_search_list(std::string const& search_path) {
  std::vector<std::string> list = fuzz::search_elements(search_path);
  std::transform(list.begin(), list.end(), list.begin(), normal_form);
  return list;
}

void check_lists(std::string const& search_path) {
  FIO_FIND find(search_path, false);
  std::vector<std::string> const search_list = expected_search_list(search_path);
  std::vector<std::string> const directories = fuzz::find_directories(search_path);
  fuzz::expect_equal(find.m_search_path, search_path, "the search path");
  fuzz::expect_equal(texts_of(find.m_search_list), search_list, "the search list");
  fuzz::expect_equal(texts_of(find.m_directories), directories, "the directories of find");
  for (FIO_PATH const& directory : find.m_search_list) {
    fuzz::expect(directory.is_legal_length() != directory.fullpath().empty(), "only a long element is empty",
                 search_path);
    fuzz::expect(directory.fullpath().empty() || directory.directory_path(), "an element is a directory", search_path);
  }
  find.init(search_path);
  fuzz::expect_equal(texts_of(find.m_search_list), search_list, "the search list made anew");
  fuzz::expect_equal(texts_of(find.m_directories), directories, "the directories after that");
  find.parse_dirs();
  std::vector<std::string> twice = directories;
  twice.insert(twice.end(), directories.begin(), directories.end());
  fuzz::expect_equal(texts_of(find.m_directories), twice, "the directories made twice");
  FIO_FIND const copy(find.m_search_list, false);
  fuzz::expect_equal(texts_of(copy.m_search_list), search_list, "the search list from a list");
  fuzz::expect(copy.m_directories.empty() && copy.m_search_path.empty(), "a list gives nothing else", search_path);
  fuzz::expect(fuzz::take_debug_messages().empty(), "making the lists writes no message", search_path);
}

// The directories below a directory of the tree, in the order of the file system.
void append_subdirectories(std::string const& directory, std::vector<std::string>& list) {
  namespace fs = std::filesystem;
  if (directory.empty() || !fs::is_directory(directory)) {
    return;
  }
  for (fs::directory_entry const& entry : fs::recursive_directory_iterator(directory)) {
    if (entry.is_directory()) {
      list.push_back(normal_form(entry.path().string() + '/'));
    }
  }
}

void check_subdirectories(std::string const& search_path) {
  std::vector<std::string> const given = expected_search_list(search_path);
  if (!std::all_of(given.begin(), given.end(), fuzz::stays_inside)) {
    return;
  }
  std::vector<std::string> expected = given;
  bool readable = true;
  try {
    for (std::string const& directory : given) {
      append_subdirectories(directory, expected);
    }
  } catch (std::filesystem::filesystem_error const&) {
    readable = false;
  }
  try {
    FIO_FIND const find(search_path, true);
    fuzz::expect(readable, "a name that is no name throws", search_path);
    fuzz::expect_equal(texts_of(find.m_search_list), expected, "the search list with subdirectories");
  } catch (boost::system::system_error const&) {
    fuzz::expect(!readable, "a list that can be read throws nothing", search_path);
  }
}

// The text of a result that passed through the absolute directory.
std::string made_absolute(std::string const& text, FIO_FIND const& find) {
  FIO_PATH path(text);
  if (!find.m_absolute_to.empty() && !path.absolute()) {
    path.become_absolute(find.m_absolute_to);
  }
  return path.fullpath();
}

// The text of the first hit, or nothing.
std::string expected_find_first(FIO_FIND const& find, std::string const& name) {
  fuzz::components const parts = fuzz::divided(name);
  for (std::string const& directory : texts_of(find.m_search_list)) {
    std::string const candidate = directory + parts.base + parts.extension;
    if (!directory.empty() && fuzz::leads_anywhere(directory) && fuzz::leads_anywhere(candidate)) {
      return made_absolute(candidate, find);
    }
  }
  return {};
}

std::string expected_find(FIO_FIND const& find, std::string const& name) {
  std::string found;
  for (std::string const& directory : find.m_directories) {
    std::string const candidate = (directory.back() == '/' ? directory : directory + '/') + name;
    if (found.empty() && fuzz::leads_anywhere(candidate.c_str())) {
      found = candidate;
    }
  }
  FIO_PATH const path(found);
  return found.empty() || find.m_absolute_to.empty() || path.absolute() ? found : made_absolute(found, find);
}

std::string lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char character) { return static_cast<char>(std::tolower(character)); });
  return text;
}

// What find_all finds for a name without a directory, whose search list has no wildcard.
std::vector<std::string> expected_find_all(FIO_FIND const& find, std::string const& name,
                                           std::vector<std::string> const& extensions) {
  std::vector<std::string> found;
  std::string const base = fuzz::divided(name).base;
  for (std::string const& directory : texts_of(find.m_search_list)) {
    if (directory.empty() || !fuzz::leads_anywhere(directory)) {
      continue;
    }
    for (std::string const& given : extensions) {
      std::string const extension = given.empty() ? "" : '.' + given;
      std::string const half_lower = directory + lower(base) + lower(extension);
      for (std::string const& candidate :
           {directory + base + extension, directory + lower(base) + extension, half_lower, lower(half_lower)}) {
        std::vector<std::string> const matches = fuzz::matching_entries(candidate);
        if (!matches.empty()) {
          found.insert(found.end(), matches.begin(), matches.end());
          break;
        }
      }
    }
  }
  std::transform(found.begin(), found.end(), found.begin(),
                 [&find](std::string const& text) { return made_absolute(text, find); });
  std::sort(found.begin(), found.end());
  return found;
}

// Whether what a name stands for is a file of this name in each directory: no component of it is empty or made of dots,
// and all that is made of it is short enough.
bool is_plain_name(std::string const& name) {
  constexpr std::size_t short_enough = 500;
  return name.size() < short_enough && name.find_first_of(std::string("/\\\0", 3)) == std::string::npos &&
         fuzz::divided(name).base.find_first_not_of('.') != std::string::npos;
}

void check_find_all(FIO_FIND const& find, std::string const& name, bool is_predictable) {
  std::vector<std::string> const extensions = {"v", "", "*"};
  std::list<FIO_PATH> matches(1);
  bool const found = find.find_all(name, extensions, &matches, true, true);
  fuzz::expect(found == (matches.size() > 1) && !matches.empty(), "find_all tells whether it adds", name);
  matches.pop_front();
  std::vector<std::string> const directories = texts_of(find.m_search_list);
  if (is_predictable && is_plain_name(name) &&
      std::all_of(directories.begin(), directories.end(), [](std::string const& text) { return text.size() < 500; })) {
    std::vector<std::string> texts = texts_of(matches);
    std::sort(texts.begin(), texts.end());
    fuzz::expect_equal(texts, expected_find_all(find, name, extensions), "what find_all finds");
  }
}

void check_absolute_directory(FIO_FIND& find, std::string const& directory) {
  bool const is_absolute = !directory.empty() && directory.size() <= fuzz::longest_path &&
                           fuzz::is_separator(directory.front()) && directory.front() != '\0';
  fuzz::expect(find.set_directory_for_results_to_become_absolute_to(directory.c_str()) == is_absolute,
               "only an absolute directory is taken", directory);
  fuzz::expect_equal(find.m_absolute_to, is_absolute ? directory : "", "the directory for absolute results");
}

void check_walk(FIO_FIND& find) {
  fuzz::expect_equal(find.find_close(), -1, "closing no walk");
  int count = 0;
  for (std::string name = find.find_first(); !name.empty() && count <= fuzz::most_entries; name = find.find_next()) {
    ++count;
  }
  fuzz::expect(count <= fuzz::most_entries, "a walk ends", find.m_search_path);
  // A wildcard search is closed with 1, and one for a plain name has nothing to close.
  int const answer = fuzz::has_wildcard(find.m_search_path.c_str()) && count != 0 ? 1 : -1;
  fuzz::expect_equal(find.find_close(), answer, "closing a walk");
}

// All searches, if none of them can leave the tree.
void check_searches(request const& given) {
  std::vector<std::string> places = expected_search_list(given.search_path);
  std::vector<std::string> const directories = fuzz::find_directories(given.search_path);
  places.insert(places.end(), directories.begin(), directories.end());
  places.push_back(given.search_path);
  places.push_back(given.name);
  if (!std::all_of(places.begin(), places.end(), fuzz::stays_inside)) {
    return;
  }
  FIO_FIND find(given.search_path, false);
  check_absolute_directory(find, given.absolute_to);
  std::string const first = find.find_first(given.name).fullpath();
  std::string const by_text = find.find(given.name);
  std::string const relative = find.find_first_relative_path(given.name).fullpath();
  bool const is_predictable = std::none_of(places.begin(), places.end(), fuzz::has_wildcard);
  if (is_predictable) {
    fuzz::expect_equal(first, expected_find_first(find, given.name), "the first file of a name");
    fuzz::expect_equal(by_text, expected_find(find, given.name), "what find finds");
    if (fuzz::divided(given.name).directory.empty()) {
      fuzz::expect_equal(relative, first, "the first file of a relative path without a directory");
    }
  }
  check_find_all(find, given.name, is_predictable);
  check_walk(find);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  fuzz::enter_search_tree();
  fuzz::input input(data, size);
  request given;
  given.name = fuzz::expanded(input.line());
  given.absolute_to = fuzz::expanded(std::string(input.line().c_str()));
  while (!input.at_end()) {
    given.search_path += (given.search_path.empty() ? "" : "\n") + input.line();
  }
  given.search_path = fuzz::expanded(given.search_path);
  check_lists(given.search_path);
  check_subdirectories(given.search_path);
  check_searches(given);
  fuzz::take_debug_messages();
  return 0;
}
