#include <algorithm>
#include <thread>
#include <utility>

#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_find.h"
#include "ccl/fio/fio_iterator.h"
#include "tests/stress/statements.h"

using stress::transcript;
using stress::workplace;

namespace {

// The order of a directory is nobody's promise.
void add_sorted(std::vector<std::string> names, transcript& out) {
  std::sort(names.begin(), names.end());
  for (std::string const& name : names) {
    out << name;
  }
}

// Carries `rest` out in another thread, while this one waits.
template <typename Work>
void hand_over(Work const& rest) {
  std::thread(rest).join();
}

// The same directory is walked by all threads, each with a handle of its own, which another one takes over.
void walk_by_handle(workplace const& place, transcript& out) {
  std::vector<std::string> names;
  _finddata_t entry = {};
  long const handle = FIO_FILE_SYSTEM::findfirst((place.shared.files + "*").c_str(), &entry);
  hand_over([&] {
    for (int answer = handle != -1 ? 0 : -1; answer == 0; answer = FIO_FILE_SYSTEM::findnext(handle, &entry)) {
      names.push_back(std::string(entry.name) + ' ' + std::to_string(entry.attrib) + ' ' + std::to_string(entry.size));
    }
  });
  out << FIO_FILE_SYSTEM::findclose(handle) << names.size();
  // ".." changes with the work of others.
  names.erase(std::remove_if(names.begin(), names.end(), [](std::string const& name) { return name[0] == '.'; }),
              names.end());
  add_sorted(names, out);
}

template <typename Iterator>
void walk_by_iterator(std::string const& directory, transcript& out) {
  std::vector<std::string> names;
  Iterator entry(directory.c_str());
  Iterator const copy = entry;
  out << (copy == entry);
  hand_over([&names, entry]() mutable {
    for (; entry != Iterator(); ++entry) {
      names.push_back(entry->derive_path().fullpath() + ' ' + std::to_string(entry->is_directory));
    }
  });
  add_sorted(names, out);
}

void walk_by_iterators(workplace const& place, transcript& out) {
  walk_by_iterator<FIO_DIRECTORY_ITERATOR>(place.shared.files, out);
  walk_by_iterator<FIO_RECURSIVE_DIRECTORY_ITERATOR>(place.shared.files, out);
  walk_by_iterator<FIO_RECURSIVE_DIRECTORY_ITERATOR>(place.directory, out);
}

void add_sorted(std::list<FIO_PATH> const& paths, transcript& out) {
  std::vector<std::string> texts;
  for (FIO_PATH const& path : paths) {
    texts.push_back(path.fullpath());
  }
  add_sorted(texts, out);
}

void search_for_one(FIO_FIND& find, transcript& out) {
  out << find.set_directory_for_results_to_become_absolute_to("/proj");
  for (char const* name : {"alu.v", "core.sv", "missing.v", "core/fpu.sv", "*.v", ""}) {
    out << find.find(name) << find.find_first(name).fullpath();
    out << find.find_first_relative_path(FIO_PATH(name)).fullpath();
  }
  std::list<FIO_PATH> matches;
  out << find.find_all("ALU", {"V", "sv", ""}, &matches, true, true);
  out << find.find_all("core", {"sv"}, &matches, true, false) << find.find_all("*", {"v"}, &matches, true, false);
  add_sorted(matches, out);
}

void search_with_own_objects(workplace const& place, transcript& out) {
  std::string const& files = place.shared.files;
  FIO_FIND find(files + "; " + files + "core ;" + place.directory + ";", true);
  add_sorted(find.m_search_list, out);
  search_for_one(find, out);
  find.init(place.shared.search_list);
  std::string pushed = files + "core";
  find.push(pushed);
  search_for_one(find, out);
  FIO_FIND from_list(place.shared.search_list, false);
  search_for_one(from_list, out);
  FIO_FIND walk(files + "*.v", false);
  std::vector<std::string> names;
  for (std::string name = walk.find_first(); !name.empty(); name = walk.find_next()) {
    names.push_back(name);
  }
  add_sorted(names, out);
  out << walk.find_close();
}

} // namespace

std::vector<stress::statement> stress::search_statements() {
  return {
      {"fio_file_sys.h", "A find handle serves one thread at a time",
       "handles on the same directory, each handed to another thread on the way", walk_by_handle},
      {"fio_find.h", "objects share nothing", "objects of its own over the same directories and list of directories",
       search_with_own_objects},
      {"fio_iterator.h", "An iterator and its copies serve one thread at a time",
       "iterators on the same tree, a copy of each handed to another thread", walk_by_iterators},
  };
}
