#include "tools/ccl-fio/search.h"

#include <algorithm>

#include "ccl/fio/fio_file_sys.h"

namespace tool {

namespace {

void add_new(std::vector<std::string>& places, std::string const& place) {
  if (std::find(places.begin(), places.end(), place) == places.end()) {
    places.push_back(place);
  }
}

} // namespace

bool is_findable(std::string const& name) {
  FIO_PATH const wanted(name);
  return wanted.is_legal_length() && !wanted.filename().empty();
}

name_search::name_search(FIO_FIND const& find) {
  for (FIO_PATH const& directory : find.m_search_list) {
    if (directory.is_legal_length()) {
      m_directories.push_back(directory.fullpath());
    }
  }
}

/// Calls `visitor` with each place until it returns true.
template <typename Visitor>
void name_search::visit_places(std::string const& name, Visitor visitor) const {
  FIO_PATH const wanted(name);
  std::string const filename = wanted.filename();
  if (!wanted.is_legal_length() || filename.empty()) {
    return;
  }
  // Of an absolute path only the name counts.
  std::string const below = wanted.absolute() ? std::string() : wanted.directory();
  for (std::string const& directory : m_directories) {
    std::string place = directory;
    if (!below.empty()) {
      FIO_PATH moved(directory);
      moved.cd(below);
      place = moved.fullpath();
    }
    place += filename;
    if (visitor(place)) {
      return;
    }
  }
}

std::string name_search::first(std::string const& name) const {
  std::string found;
  visit_places(name, [&found](std::string& place) {
    bool const exists = FIO_FILE_SYSTEM::exists(place.c_str());
    if (exists) {
      found = std::move(place);
    }
    return exists;
  });
  return found;
}

std::vector<std::string> name_search::all(std::string const& name) const {
  std::vector<std::string> found = places(name);
  found.erase(std::remove_if(found.begin(), found.end(),
                             [](std::string const& place) { return !FIO_FILE_SYSTEM::exists(place.c_str()); }),
              found.end());
  return found;
}

std::vector<std::string> name_search::places(std::string const& name) const {
  std::vector<std::string> places;
  visit_places(name, [&places](std::string const& place) {
    add_new(places, place);
    return false;
  });
  return places;
}

} // namespace tool
