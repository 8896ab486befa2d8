// The directory iterators and the searches over a list.

#include <list>
#include <memory>
#include <string>
#include <vector>

#include "ccl/fio/fio_find.h"
#include "ccl/fio/fio_iterator.h"
#include "tests/sweeps/system_call_operations.h"
#include "tests/sweeps/system_call_results.h"

namespace system_call {
namespace {

// Directory iterators

template <typename Iterator>
std::string entry_text(Iterator const& at) {
  return at == Iterator() ? "end" : at->path + (at->is_directory ? "/" : "");
}

template <typename Iterator>
std::string make_iterator() {
  Iterator const made = watched([] { return Iterator("dir"); });
  return entry_text(made);
}

std::string increment_once() {
  FIO_DIRECTORY_ITERATOR at("dir");
  watched([&at] { at.increment(); });
  return entry_text(at);
}

std::string walk_tree() {
  FIO_RECURSIVE_DIRECTORY_ITERATOR at("dir");
  std::string walked = entry_text(at);
  while (at != FIO_RECURSIVE_DIRECTORY_ITERATOR()) {
    watched([&at] { at.increment(); });
    walked += " " + entry_text(at);
  }
  return walked;
}

std::string leave_walk() {
  auto at = std::make_unique<FIO_RECURSIVE_DIRECTORY_ITERATOR>("dir");
  while (at->operator*().path != "dir/sub/c.v") {
    at->increment();
  }
  return watched([&at] {
    at.reset();
    return "left";
  });
}

std::string update_entry() {
  FIO_RECURSIVE_DIRECTORY_ITERATOR at("dir");
  while (at->path != "dir/sub/c.v") {
    at.increment();
  }
  at->path = "lost";
  watched([&at] { at.update_entry_from_subdir_iter(); });
  return entry_text(at);
}

std::string make_state() {
  FIO_DIRECTORY_ITERATOR_IMPL const state = watched([] { return FIO_DIRECTORY_ITERATOR_IMPL("dir"); });
  return state.directory;
}

std::string set_filename() {
  FIO_DIRECTORY_ITERATOR_IMPL state("dir");
  return watched([&state] {
    state.set_filename("a.v", false);
    return state.entry.path;
  });
}

std::string destroy_state() {
  auto state = std::make_unique<FIO_DIRECTORY_ITERATOR_IMPL>("dir");
  state->stream = ::opendir("dir");
  return watched([&state] {
    state.reset();
    return "closed";
  });
}

std::string derive_path() {
  FIO_DIRECTORY_ENTRY entry;
  entry.path = "dir\\a.v";
  return watched([&entry] { return entry.derive_path(); }).fullpath();
}

std::vector<operation> const iterators = {
    {"iterator", "FIO_DIRECTORY_ITERATOR::FIO_DIRECTORY_ITERATOR(char const*)", make_iterator<FIO_DIRECTORY_ITERATOR>,
     "dir/a.v", "", ""},
    {"iterator of tree", "FIO_RECURSIVE_DIRECTORY_ITERATOR::FIO_RECURSIVE_DIRECTORY_ITERATOR(char const*)",
     make_iterator<FIO_RECURSIVE_DIRECTORY_ITERATOR>, "dir/a.v", "", ""},
    {"increment", "FIO_DIRECTORY_ITERATOR::increment()", increment_once, "dir/b.v", "", ""},
    {"walk tree", "FIO_RECURSIVE_DIRECTORY_ITERATOR::increment()", walk_tree,
     "dir/a.v dir/b.v dir/sub/ dir/sub/c.v end", "", ""},
    {"leave walk", "FIO_RECURSIVE_DIRECTORY_ITERATOR::~FIO_RECURSIVE_DIRECTORY_ITERATOR()", leave_walk, "left", "", ""},
    {"update entry", "FIO_RECURSIVE_DIRECTORY_ITERATOR::update_entry_from_subdir_iter()", update_entry, "dir/sub/c.v",
     "", ""},
    {"iterator state", "FIO_DIRECTORY_ITERATOR_IMPL::FIO_DIRECTORY_ITERATOR_IMPL(char const*)", make_state, "dir", "",
     ""},
    {"set filename", "FIO_DIRECTORY_ITERATOR_IMPL::set_filename(char const*, bool)", set_filename, "dir/a.v", "", ""},
    {"destroy state", "FIO_DIRECTORY_ITERATOR_IMPL::~FIO_DIRECTORY_ITERATOR_IMPL()", destroy_state, "closed", "", ""},
    {"derive path", "FIO_DIRECTORY_ENTRY::derive_path() const", derive_path, "dir/a.v", "", ""},
};

// Search lists

std::string text_of(std::list<FIO_PATH> const& paths) {
  std::string text;
  for (FIO_PATH const& path : paths) {
    text += (text.empty() ? "" : " ") + path.fullpath();
  }
  return text;
}

std::string text_of(std::list<std::string> const& texts) {
  std::string joined;
  for (std::string const& each : texts) {
    joined += (joined.empty() ? "" : " ") + each;
  }
  return joined;
}

std::string make_find() {
  std::unique_ptr<FIO_FIND> made;
  watched([&made] { made = std::make_unique<FIO_FIND>(std::string("dir;pair"), true); });
  return text_of(made->m_search_list);
}

std::string make_find_of_paths() {
  std::list<FIO_PATH> const directories = {FIO_PATH("dir/"), FIO_PATH("pair/")};
  std::unique_ptr<FIO_FIND> made;
  watched([&] { made = std::make_unique<FIO_FIND>(directories, true); });
  return text_of(made->m_search_list);
}

template <typename Change>
std::string search_list_after(bool recursive, Change change) {
  FIO_FIND find(std::string(), recursive);
  watched([&] { change(find); });
  return text_of(find.m_search_list);
}

std::string init_by_text() {
  return search_list_after(true, [](FIO_FIND& find) { find.init(std::string("dir;pair")); });
}

std::string init_by_paths() {
  std::list<FIO_PATH> const directories = {FIO_PATH("dir/"), FIO_PATH("pair/")};
  return search_list_after(true, [&directories](FIO_FIND& find) { find.init(directories); });
}

std::string add_subdirs() {
  FIO_FIND find("dir;pair", false);
  find.m_recursive = true;
  watched([&find] { find.add_subdirs(); });
  return text_of(find.m_search_list);
}

std::string parse_dirs() {
  FIO_FIND find(std::string(), false);
  find.m_search_path = "dir;pair;";
  watched([&find] { find.parse_dirs(); });
  return text_of(find.m_directories);
}

std::string push() {
  FIO_FIND find(std::string(), false);
  std::string directory = "dir";
  watched([&] { find.push(directory); });
  return text_of(find.m_directories);
}

std::string set_absolute_to() {
  FIO_FIND find(std::string(), false);
  return text(watched([&find] { return find.set_directory_for_results_to_become_absolute_to("/w"); })) + " " +
         find.m_absolute_to;
}

std::string make_path_absolute() {
  FIO_FIND find(std::string(), false);
  find.m_absolute_to = "/w";
  FIO_PATH path("dir/a.v");
  watched([&] { find.make_path_absolute_if_relative(&path); });
  return path.fullpath();
}

std::string make_text_absolute() {
  FIO_FIND find(std::string(), false);
  find.m_absolute_to = "/w";
  std::string path = "dir/a.v";
  watched([&] { find.make_path_absolute_if_relative(&path); });
  return path;
}

constexpr char whole_list[] = "dir/ pair/ dir/sub/ pair/x/ pair/y/";

std::vector<operation> const lists = {
    {"make search list", "FIO_FIND::FIO_FIND(string, bool)", make_find, whole_list, "", ""},
    {"make search list of paths", "FIO_FIND::FIO_FIND(list<FIO_PATH> const&, bool)", make_find_of_paths, whole_list, "",
     ""},
    {"make search list anew", "FIO_FIND::init(string const&)", init_by_text, whole_list, "", ""},
    {"make search list of paths anew", "FIO_FIND::init(list<FIO_PATH> const&)", init_by_paths, whole_list, "", ""},
    {"make search list longer", "FIO_FIND::add_subdirs()", add_subdirs, whole_list, "", ""},
    {"parse dirs", "FIO_FIND::parse_dirs()", parse_dirs, "dir/ pair/", "", ""},
    {"push", "FIO_FIND::push(string&)", push, "dir/", "", ""},
    {"set absolute to", "FIO_FIND::set_directory_for_results_to_become_absolute_to(char const*)", set_absolute_to,
     "true /w", "", ""},
    {"absolute result path", "FIO_FIND::make_path_absolute_if_relative(FIO_PATH*) const", make_path_absolute,
     "/w/dir/a.v", "", ""},
    {"absolute result text", "FIO_FIND::make_path_absolute_if_relative(string*) const", make_text_absolute,
     "/w/dir/a.v", "", ""},
};

// Searches

std::string find_text() {
  FIO_FIND const find("empty;dir;", false);
  return watched([&find] { return find.find("a.v"); });
}

std::string find_first_path() {
  FIO_FIND const find("empty;dir", false);
  return watched([&find] { return find.find_first("sub/a.v"); }).fullpath();
}

std::string find_relative_path() {
  FIO_FIND const find("empty;dir", false);
  FIO_PATH const wanted("sub/c.v");
  return watched([&] { return find.find_first_relative_path(wanted); }).fullpath();
}

std::string find_all_of(char const* name, char const* extension, bool try_lower_case) {
  FIO_FIND const find("empty;dir", false);
  std::vector<std::string> const extensions = {extension};
  std::list<FIO_PATH> matches;
  bool const found = watched([&] { return find.find_all(name, extensions, &matches, false, try_lower_case); });
  return text(found) + " " + text_of(matches);
}

std::string walk_begins() {
  FIO_FIND find("dir/*.v", false);
  return watched([&find] { return find.find_first(); });
}

std::string walk_goes_on() {
  FIO_FIND find("dir/*.v", false);
  find.find_first();
  return watched([&find] { return find.find_next(); });
}

std::string walk_ends() {
  FIO_FIND find("dir/*.v", false);
  find.find_first();
  return text(watched([&find] { return find.find_close(); }));
}

std::string destroy_find() {
  auto find = std::make_unique<FIO_FIND>("dir/*.v", false);
  find->find_first();
  return watched([&find] {
    find.reset();
    return "closed";
  });
}

constexpr char find_all[] =
    "FIO_FIND::find_all(string const&, vector<string> const&, list<FIO_PATH>*, bool, bool) const";

std::vector<operation> const searches = {
    {"find", "FIO_FIND::find(string const&) const", find_text, "dir/a.v", "", ""},
    {"find first", "FIO_FIND::find_first(string const&) const", find_first_path, "dir/a.v", "", ""},
    {"find relative", "FIO_FIND::find_first_relative_path(FIO_PATH const&) const", find_relative_path, "dir/sub/c.v",
     "", ""},
    {"find all", find_all, [] { return find_all_of("*", ".v", false); }, "true dir/a.v dir/b.v", "", ""},
    {"find all lower case", find_all, [] { return find_all_of("A", ".V", true); }, "true dir/a.v", "", ""},
    {"walk begins", "FIO_FIND::find_first()", walk_begins, "a.v", "", ""},
    {"walk goes on", "FIO_FIND::find_next()", walk_goes_on, "b.v", "", ""},
    {"walk ends", "FIO_FIND::find_close()", walk_ends, "1", "", ""},
    {"destroy search", "FIO_FIND::~FIO_FIND()", destroy_find, "closed", "", ""},
};

} // namespace

std::vector<operation> searching_operations() {
  std::vector<operation> rows = iterators;
  rows.insert(rows.end(), lists.begin(), lists.end());
  rows.insert(rows.end(), searches.begin(), searches.end());
  return rows;
}

} // namespace system_call
