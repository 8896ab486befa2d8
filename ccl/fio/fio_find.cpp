#include "ccl/fio/fio_find.h"

#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>
#include <cstring>
#include <string_view>
#include <utility>

#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/internal/module.h"
#include "ccl/fio/internal/path_text.h"
#include "ccl/fio/internal/search.h"
#include "ccl/stl/stl.h"

// Joins names to a directory without a path for each.
struct fio_search_directory {
  // Makes the string that `directory` would have with this file name.
  static void join(FIO_PATH const& directory, std::string_view filename, std::string& text) {
    text.clear();
    fio_internal::compose_path(fio_internal::c_text(directory.m_drive), fio_internal::c_text(directory.m_directory),
                               filename, {}, [&text](std::string_view piece) { text += piece; });
  }
};

namespace {

using fio_internal::nothing_found;

MEM_INITIALIZER const mem_initializer(fio_internal::module_name);

std::string fio_remove_leading_and_trailing_white_spaces(std::string_view text) {
  static constexpr std::string_view white_space = " \t\n\r";
  std::size_t const start = text.find_first_not_of(white_space);
  if (start == std::string_view::npos) {
    return {};
  }
  return std::string(text.substr(start, text.find_last_not_of(white_space) - start + 1));
}

std::string lower_case(std::string text) {
  stl_tolower(text);
  return text;
}

// Appends the entries that match `filespec`, each in its directory. Returns true if there are any.
bool fio_find_all_helper(char const* filespec, std::list<FIO_PATH>& found) {
  fio_internal::search matches(filespec);
  if (!matches.found()) {
    return false;
  }
  do {
    found.emplace_back(filespec);
    found.back().filename(matches.entry.name);
  } while (matches.next());
  return true;
}

bool is_legal_and_exists(FIO_PATH const& directory) {
  return directory.is_legal_length() && FIO_FILE_SYSTEM::exists(directory);
}

// Returns true if a file of this name exists in a directory. The path that is tested is made in `candidate`, whose
// memory is used for one directory after the other.
bool exists_in(FIO_PATH const& directory, std::string_view filename, std::string& candidate) {
  if (!is_legal_and_exists(directory)) {
    return false;
  }
  fio_search_directory::join(directory, filename, candidate);
  return fio_internal::is_legal_length(candidate.size()) && FIO_FILE_SYSTEM::exists(candidate.c_str());
}

// Returns the path of a file that was found in a directory.
FIO_PATH found_in(FIO_FIND const& find, FIO_PATH directory, std::string_view filename) {
  directory.filename(std::string(filename));
  find.make_path_absolute_if_relative(&directory);
  return directory;
}

// Returns the first path of a file of this name over the search list, or in a directory relative to each element of it.
FIO_PATH find_over_list(FIO_FIND const& find, std::string_view filename, std::string const& relative_directory) {
  std::string candidate;
  for (FIO_PATH const& directory : find.m_search_list) {
    if (relative_directory.empty()) {
      if (exists_in(directory, filename, candidate)) {
        return found_in(find, directory, filename);
      }
    } else {
      FIO_PATH moved(directory);
      moved.cd(relative_directory);
      moved.become_simplified();
      if (exists_in(moved, filename, candidate)) {
        return found_in(find, std::move(moved), filename);
      }
    }
  }
  return {};
}

// Searches for one candidate, as it is and then in lower case, component by component.
void find_candidate(FIO_PATH& candidate, bool try_lower_case, std::list<FIO_PATH>& found) {
  if (fio_find_all_helper(candidate, found) || !try_lower_case) {
    return;
  }
  candidate.base(lower_case(candidate.base()));
  if (fio_find_all_helper(candidate, found)) {
    return;
  }
  candidate.extension(lower_case(candidate.extension()), std::string());
  if (fio_find_all_helper(candidate, found)) {
    return;
  }
  candidate = lower_case(candidate.fullpath());
  fio_find_all_helper(candidate, found);
}

} // namespace

// Building the lists

FIO_FIND::FIO_FIND(std::string search_path, bool recursive)
    : m_search_path(std::move(search_path)), m_recursive(recursive) {
  init(m_search_path);
  parse_dirs();
}

FIO_FIND::FIO_FIND(std::list<FIO_PATH> const& directories, bool recursive) : m_recursive(recursive) {
  init(directories);
}

FIO_FIND::~FIO_FIND() {
  if (m_find_handle != nothing_found) {
    FIO_FILE_SYSTEM::findclose(m_find_handle);
  }
}

void FIO_FIND::init(std::string const& search_path) {
  // The tokeniser writes into its string.
  std::string text = search_path;
  if (&search_path != &m_search_path) {
    m_search_path = search_path;
  }
  m_search_list.clear();
  std::size_t remaining = text.size() + 1;
  char* context = nullptr;
  char const* element = strtok_s(text.data(), &remaining, ";", &context);
  while (element != nullptr) {
    std::string directory = fio_remove_leading_and_trailing_white_spaces(element);
    if (directory.empty()) {
      break;
    }
    if (directory.back() != '/') {
      directory += '/';
    }
    m_search_list.emplace_back(directory);
    if (context == nullptr) {
      break;
    }
    element = strtok_s(nullptr, &remaining, ";", &context);
  }
  add_subdirs();
}

void FIO_FIND::init(std::list<FIO_PATH> const& directories) {
  if (&directories != &m_search_list) {
    // Not an assignment: that would give the paths another separator.
    m_search_list = std::list<FIO_PATH>(directories);
  }
  add_subdirs();
}

void FIO_FIND::parse_dirs() {
  std::size_t start = 0;
  for (std::size_t end; (end = m_search_path.find(m_list_separator, start)) != std::string::npos; start = end + 1) {
    std::string directory = m_search_path.substr(start, end - start);
    if (!directory.empty()) {
      push(directory);
    }
  }
}

void FIO_FIND::push(std::string& dir) {
  FIO_CHECK(0 != dir.size()); // NOLINT(readability-container-size-empty): the report contains this condition
  if (dir.back() != m_separator && dir.back() != m_alternate_separator) {
    dir += m_separator;
  }
  m_directories.push_back(dir);
}

void FIO_FIND::add_subdirs() {
  if (!m_recursive) {
    return;
  }
  namespace fs = boost::filesystem;
  std::list<FIO_PATH> found;
  for (FIO_PATH const& directory : m_search_list) {
    if (!directory.is_legal_length()) {
      continue;
    }
    fs::path const root = directory.fullpath();
    if (!fs::is_directory(fs::status(root))) {
      continue;
    }
    for (fs::directory_entry const& entry : fs::recursive_directory_iterator(root)) {
      if (fs::is_directory(entry.status())) {
        found.emplace_back(entry.path().string() + '/');
      }
    }
  }
  m_search_list.splice(m_search_list.end(), found);
}

// Relative results

bool FIO_FIND::set_directory_for_results_to_become_absolute_to(char const* dir) {
  if (dir == nullptr || *dir == '\0') {
    m_absolute_to.clear();
    return false;
  }
  if (!FIO_PATH(dir).absolute()) {
    return false;
  }
  m_absolute_to = dir;
  return true;
}

void FIO_FIND::make_path_absolute_if_relative(FIO_PATH* path) const {
  if (path != nullptr && !m_absolute_to.empty() && !path->absolute()) {
    path->become_absolute(m_absolute_to);
  }
}

void FIO_FIND::make_path_absolute_if_relative(std::string* path) const {
  if (path == nullptr || path->empty() || m_absolute_to.empty()) {
    return;
  }
  FIO_PATH absolute_path(*path);
  if (!absolute_path.absolute()) {
    absolute_path.become_absolute(m_absolute_to);
    *path = absolute_path.fullpath();
  }
}

// Searching for one file

std::string FIO_FIND::find(std::string const& name) const {
  std::string found;
  for (std::string const& directory : m_directories) {
    if (directory.empty()) {
      continue;
    }
    std::string candidate = directory;
    if (candidate.back() != '/') {
      candidate += '/';
    }
    candidate += name;
    if (FIO_FILE_SYSTEM::exists(candidate.c_str())) {
      found = std::move(candidate);
      break;
    }
  }
  make_path_absolute_if_relative(&found);
  return found;
}

FIO_PATH FIO_FIND::find_first(std::string const& name) const {
  fio_internal::divided_path const parts = fio_internal::divide_path(name.c_str());
  return find_over_list(*this, parts.name(), std::string());
}

FIO_PATH FIO_FIND::find_first_relative_path(FIO_PATH const& path) const {
  FIO_PATH const target(path.fullpath());
  return find_over_list(*this, target.filename(), target.absolute() ? std::string() : target.directory());
}

bool FIO_FIND::find_all(std::string const& name, std::vector<std::string> const& extensions,
                        std::list<FIO_PATH>* matches, bool append, bool try_lower_case) const {
  std::list<FIO_PATH> found;
  for (FIO_PATH const& directory : m_search_list) {
    if (!is_legal_and_exists(directory)) {
      continue;
    }
    for (std::string const& extension : extensions) {
      FIO_PATH candidate(directory);
      candidate.filename(name).extension(extension, std::string());
      if (candidate.is_legal_length()) {
        find_candidate(candidate, try_lower_case, found);
      }
    }
  }
  FIO_CHECK(matches);
  // Before the caller's list is modified: memory may run out here.
  for (FIO_PATH& path : found) {
    make_path_absolute_if_relative(&path);
  }
  if (!append) {
    matches->clear();
  }
  bool const found_any = !found.empty();
  matches->splice(matches->end(), found);
  return found_any;
}

// Iterating over the matches of the search path

std::string FIO_FIND::find_first() {
  find_close();
  _finddata_t entry;
  m_find_handle = FIO_FILE_SYSTEM::findfirst(m_search_path.c_str(), &entry);
  std::string name;
  if (m_find_handle != nothing_found) {
    name = entry.name;
  }
  make_path_absolute_if_relative(&name);
  return name;
}

std::string FIO_FIND::find_next() {
  _finddata_t entry;
  std::string name;
  if (FIO_FILE_SYSTEM::findnext(m_find_handle, &entry) == 0) {
    name = entry.name;
  }
  make_path_absolute_if_relative(&name);
  return name;
}

int FIO_FIND::find_close() {
  if (m_find_handle == nothing_found) {
    return -1;
  }
  int const answer = FIO_FILE_SYSTEM::findclose(m_find_handle);
  m_find_handle = nothing_found;
  return answer;
}
