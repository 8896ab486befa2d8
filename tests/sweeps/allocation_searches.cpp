// The directory iterators, and the operations of `FIO_FIND`.

#include <list>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "ccl/fio/fio_find.h"
#include "ccl/fio/fio_iterator.h"
#include "tests/sweeps/allocation_coverage.h"
#include "tests/sweeps/allocation_operation.h"
#include "tests/sweeps/allocation_path_states.h"
#include "tests/sweeps/allocation_workspace.h"

namespace {

// Longer than a string holds in itself, so that each text is an allocation.
std::string const search_path = "a_missing_folder_of_a_search;the_folder_of_a_search/below_it;the_folder_of_a_search;";
std::string const other_search_path = "another_folder_of_a_search;the_folder_of_a_search";
std::string const name = "elsewhere/the_file_to_be_found.TXT";
std::string const bare_name = "the_file_to_be_found.TXT";
std::string const relative_name = "below_it/the_folder_below/the_file_to_be_found.TXT";
FIO_PATH const relative_path(relative_name);
std::string const wildcard_name = "the_file_to_be_*";
std::string const given_text = "the_text_of_a_relative_path/of_some_length";
std::string const anchor = "/where_the_results_are_anchored/in_two_levels";
std::string const other_anchor = "/another_place_where_the_results_are_anchored/in_two_levels";
std::string const missing_folder = "a_missing_folder_of_a_search/";
std::vector<std::string> const extensions = {"an_extension_that_none_has", "TXT", "*"};

constexpr char drawn_entries[] = "the_folder_of_a_search/below_it/the_folder_below/the_file_to_be_found.TXT=1 "
                                 "the_folder_of_a_search/the_file_to_be_found.TXT=2";

// Iterators

FIO_DIRECTORY_ENTRY const entry = {false, "the\\text_of_an_entry/with_separators_of_both_kinds"};

// An iterator that is destroyed in its place, which is no matter of a virtual destructor.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
template <typename Iterator>
struct placed final : Iterator {
  using Iterator::Iterator;
};
#pragma GCC diagnostic pop

// A walk over a tree that has one entry in each folder, so that their order is of no account.
template <typename Iterator>
struct walk {
  explicit walk(bool is_open) {
    if (is_open) {
      open();
    }
  }
  void open() { iterator.emplace("the_folder_of_a_walk"); }
  bool is_at_end() const { return *iterator == Iterator(); }

  drawn_tree tree{"the_folder_of_a_walk/the_folder_that_is_below_it/and_a_file_in_it_with_a_longer_name=1"};
  std::optional<placed<Iterator>> iterator;
};

template <typename Iterator>
std::string text_of(walk<Iterator> const& subject) {
  if (!subject.iterator) {
    return "no iterator";
  }
  if (subject.is_at_end()) {
    return "at the end";
  }
  FIO_DIRECTORY_ENTRY const& present = **subject.iterator;
  return present.path + (present.is_directory ? "/" : "");
}

template <typename Iterator>
walk<Iterator> unopened_walk() {
  return walk<Iterator>(false);
}

template <typename Iterator>
walk<Iterator> open_walk() {
  return walk<Iterator>(true);
}

// What cannot be opened has no entries.
bool is_at_end(std::string const& state, std::string const& before, std::string const& /*clean*/) {
  return state == before || state == "at the end";
}

struct shared_state {
  shared_state() = default;
  explicit shared_state(char const* directory) : impl(std::in_place, directory) {}

  std::optional<FIO_DIRECTORY_ITERATOR_IMPL> impl;
};

std::string text_of(shared_state const& subject) {
  return subject.impl ? subject.impl->directory + '|' + subject.impl->entry.path : "none";
}

template <typename Iterator>
void add_iterator(operation_table& table, std::string const& class_name, std::vector<std::string> increment) {
  table
      .add({class_name + "::" + class_name + "(char const*)"}, unopened_walk<Iterator>,
           [](walk<Iterator>& subject) {
             subject.open();
             return subject.is_at_end();
           })
      .may_leave(is_at_end)
      .answers_without_memory_below({"1"});
  // The entry that a failed call had read is lost to the next one.
  swept_operation& incrementing = table.add(std::move(increment), open_walk<Iterator>, [](walk<Iterator>& subject) {
    subject.iterator->increment();
    return subject.is_at_end();
  });
  incrementing.may_leave(is_at_end).goes_on_after_failure();
  if (std::is_same_v<Iterator, FIO_RECURSIVE_DIRECTORY_ITERATOR>) {
    incrementing.answers_without_memory_below({"1"});
  } else {
    incrementing.allocates = false; // there is no second entry
  }
  table.add_quiet({inline_prefix + ("copies and ranges of " + class_name)}, open_walk<Iterator>,
                  [](walk<Iterator>& subject) {
                    Iterator const copy = *subject.iterator;
                    return begin(copy) == end(copy);
                  });
}

void add_iterators(operation_table& table) {
  add_iterator<FIO_DIRECTORY_ITERATOR>(table, "FIO_DIRECTORY_ITERATOR", {"FIO_DIRECTORY_ITERATOR::increment()"});
  add_iterator<FIO_RECURSIVE_DIRECTORY_ITERATOR>(table, "FIO_RECURSIVE_DIRECTORY_ITERATOR",
                                                 {"FIO_RECURSIVE_DIRECTORY_ITERATOR::increment()",
                                                  "FIO_RECURSIVE_DIRECTORY_ITERATOR::update_entry_from_subdir_iter()"});
  table.add_quiet({"FIO_RECURSIVE_DIRECTORY_ITERATOR::~FIO_RECURSIVE_DIRECTORY_ITERATOR()",
                   "FIO_DIRECTORY_ITERATOR_IMPL::~FIO_DIRECTORY_ITERATOR_IMPL()"},
                  open_walk<FIO_RECURSIVE_DIRECTORY_ITERATOR>,
                  [](walk<FIO_RECURSIVE_DIRECTORY_ITERATOR>& subject) { subject.iterator.reset(); });
  table.add(
      {"FIO_DIRECTORY_ENTRY::derive_path() const"}, [] { return nothing(); },
      [](nothing) { return entry.derive_path(); });
  table.add(
      {"FIO_DIRECTORY_ITERATOR_IMPL::FIO_DIRECTORY_ITERATOR_IMPL(char const*)"}, [] { return shared_state(); },
      [](shared_state& subject) { subject.impl.emplace(search_path.c_str()); });
  table.add(
      {"FIO_DIRECTORY_ITERATOR_IMPL::set_filename(char const*, bool)"}, [] { return shared_state("x"); },
      [](shared_state& subject) { subject.impl->set_filename(name.c_str(), true); });
}

// Searches

struct finder {
  drawn_tree tree{drawn_entries};
  FIO_FIND find{search_path, false};
  std::list<FIO_PATH> matches{FIO_PATH("a_match_of_an_earlier_search")};
};

// One thing on each line.
std::string text_of(FIO_FIND const& find) {
  std::string text = "path " + find.m_search_path + "\nanchor " + find.m_absolute_to + '\n';
  for (std::string const& directory : find.m_directories) {
    text += "directory " + directory + '\n';
  }
  for (FIO_PATH const& directory : find.m_search_list) {
    text += "searched " + directory.fullpath() + '\n';
  }
  return text + (find.m_find_handle == -1 ? "" : "a walk is open\n");
}

std::string text_of(finder const& subject) { return text_of(subject.find) + ::text_of(subject.matches); }

// A search that changes what it is given.
template <typename Given>
struct finder_and {
  explicit finder_and(Given value) : given(std::move(value)) {
    find.set_directory_for_results_to_become_absolute_to(anchor.c_str());
  }

  FIO_FIND find{std::string(), false};
  Given given;
};

template <typename Given>
std::string text_of(finder_and<Given> const& subject) {
  using ::text_of;
  std::string text = text_of(subject.given);
  for (std::string const& directory : subject.find.m_directories) {
    text += directory + '\n';
  }
  return text;
}

struct unmade_finder {
  drawn_tree tree{drawn_entries};
  std::list<FIO_PATH> directories{FIO_PATH("the_folder_of_a_search/"), FIO_PATH(missing_folder)};
  std::optional<FIO_FIND> find;
};

std::string text_of(unmade_finder const& subject) { return subject.find ? text_of(*subject.find) : "no object"; }

// One that is to list all folders below those of its search path.
struct recursive_finder {
  drawn_tree tree{drawn_entries};
  FIO_FIND find{other_search_path, false};
  recursive_finder() { find.m_recursive = true; }
};

std::string text_of(recursive_finder const& subject) { return text_of(subject.find); }

struct unmade_finder_of_folders : unmade_finder {
  unmade_finder_of_folders() {
    find.emplace(other_search_path, false);
    find->m_recursive = true;
  }
};

struct finder_without_list {
  FIO_FIND find{search_path, false};
  finder_without_list() {
    find.m_directories.clear();
    find.m_search_list.clear();
  }
};

std::string text_of(finder_without_list const& subject) { return text_of(subject.find); }

struct anchored_finder : finder {
  anchored_finder() { find.set_directory_for_results_to_become_absolute_to(anchor.c_str()); }
};

// One with a walk that has a second match, whose name is a long one like the first.
struct walking_finder {
  drawn_tree tree{"the_folder_of_a_walk/the_first_file_of_it=1 the_folder_of_a_walk/another_file_of_it=2"};
  FIO_FIND find{"the_folder_of_a_walk/*_file_of_it", false};
  explicit walking_finder(bool is_open) {
    if (is_open) {
      find.find_first();
    }
  }
};

std::string text_of(walking_finder const& subject) { return text_of(subject.find); }

// One in the middle of a walk.
struct made_finder {
  made_finder() { find->find_first(); }

  drawn_tree tree{drawn_entries};
  std::optional<FIO_FIND> find{std::in_place, "the_folder_of_a_search/*", false};
};

std::string text_of(made_finder const& subject) { return subject.find ? text_of(*subject.find) : "gone"; }

// Boost.Filesystem tells by this one that a directory cannot be read, and so that it has no memory left to read it.
std::string const search_error = "boost::filesystem::filesystem_error";

std::string without(std::string text, std::string const& line) {
  std::size_t const start = text.find(line);
  return start == std::string::npos ? text : text.erase(start, line.size());
}

// A list to which some of the lines were appended, or which was made anew up to one of them. What stands behind the
// lists stays.
bool list_is_partly_made(std::string const& state, std::string const& before, std::string const& clean) {
  std::string const kept_path = before.substr(0, before.find('\n'));
  auto const lists = [](std::string const& text) { return text.substr(text.find('\n') + 1); };
  return state == before || clean.rfind(state, 0) == 0 ||
         (state.rfind(kept_path, 0) == 0 && lists(clean).rfind(lists(state), 0) == 0);
}

// A list that has taken the place of the former one as a whole, its last directory included; the folders below may be
// missing.
bool list_is_replaced(std::string const& state, std::string const& before, std::string const& clean) {
  return state == before || (clean.rfind(state, 0) == 0 && state.find(missing_folder) != std::string::npos);
}

bool walk_may_be_open(std::string const& state, std::string const& before, std::string const& /*clean*/) {
  return without(state, "a walk is open\n") == without(before, "a walk is open\n");
}

void add_making(operation_table& table) {
  auto const unmade = [] { return unmade_finder(); };
  auto const recursive = [] { return recursive_finder(); };
  table.add({"FIO_FIND::FIO_FIND(std::string, bool)"}, unmade,
            [](unmade_finder& subject) { subject.find.emplace(search_path, false); });
  table
      .add({"FIO_FIND::FIO_FIND(std::string, bool)"}, unmade,
           [](unmade_finder& subject) { subject.find.emplace(other_search_path, true); })
      .answers_without_memory_below({search_error})
      .hides_exceptions();
  table
      .add({"FIO_FIND::FIO_FIND(std::list<FIO_PATH> const&, bool)"}, unmade,
           [](unmade_finder& subject) { subject.find.emplace(subject.directories, true); })
      .answers_without_memory_below({search_error})
      .hides_exceptions();
  table
      .add({"FIO_FIND::init(std::string const&)"}, recursive,
           [](recursive_finder& subject) { subject.find.init(search_path); })
      .may_leave(list_is_partly_made)
      .answers_without_memory_below({search_error})
      .hides_exceptions();
  table
      .add(
          {"FIO_FIND::init(std::list<FIO_PATH> const&)"}, [] { return unmade_finder_of_folders(); },
          [](unmade_finder_of_folders& subject) { subject.find->init(subject.directories); })
      .may_leave(list_is_replaced)
      .answers_without_memory_below({search_error})
      .hides_exceptions();
  table.add({"FIO_FIND::add_subdirs()"}, recursive, [](recursive_finder& subject) { subject.find.add_subdirs(); })
      .answers_without_memory_below({search_error})
      .hides_exceptions();
}

void add_list_operations(operation_table& table) {
  table
      .add(
          {"FIO_FIND::parse_dirs()"}, [] { return finder_without_list(); },
          [](finder_without_list& subject) { subject.find.parse_dirs(); })
      .may_leave(list_is_partly_made)
      .goes_on_after_failure();
  table.add(
      {"FIO_FIND::set_directory_for_results_to_become_absolute_to(char const*)"}, [] { return anchored_finder(); },
      [](anchored_finder& subject) {
        return subject.find.set_directory_for_results_to_become_absolute_to(other_anchor.c_str());
      });
  // The text has its separator before it has its place in the list.
  table
      .add(
          {"FIO_FIND::push(std::string&)"}, [] { return finder_and<std::string>(given_text); },
          [](finder_and<std::string>& subject) { subject.find.push(subject.given); })
      .may_leave([](std::string const& state, std::string const& before, std::string const&) {
        return state == before || state == ::text_of(given_text + '/');
      });
  table
      .add(
          {"FIO_FIND::make_path_absolute_if_relative(FIO_PATH*) const"},
          [] { return finder_and<FIO_PATH>(FIO_PATH(given_text)); },
          [](finder_and<FIO_PATH>& subject) { subject.find.make_path_absolute_if_relative(&subject.given); })
      .may_leave(by_way_of(anchor + '/' + given_text))
      .goes_on_after_failure();
  table.add(
      {"FIO_FIND::make_path_absolute_if_relative(std::string*) const"},
      [] { return finder_and<std::string>(given_text); },
      [](finder_and<std::string>& subject) { subject.find.make_path_absolute_if_relative(&subject.given); });
  table.add_quiet(
      {"FIO_FIND::~FIO_FIND()"}, [] { return made_finder(); }, [](made_finder& subject) { subject.find.reset(); });
}

void add_searching(operation_table& table) {
  auto const anchored = [] { return anchored_finder(); };
  table.add({"FIO_FIND::find(std::string const&) const"}, anchored,
            [](anchored_finder const& subject) { return subject.find.find(bare_name); });
  table.add({"FIO_FIND::find_first(std::string const&) const"}, anchored,
            [](anchored_finder const& subject) { return subject.find.find_first(name); });
  table
      .add({"FIO_FIND::find_first(std::string const&) const"}, anchored,
           [](anchored_finder const& subject) { return subject.find.find_first(wildcard_name); })
      .answers_without_memory_below({::text_of(FIO_PATH())})
      .leaves_streams(2);
  table.add({"FIO_FIND::find_first_relative_path(FIO_PATH const&) const"}, anchored,
            [](anchored_finder const& subject) { return subject.find.find_first_relative_path(relative_path); });
  std::string const find_all = "FIO_FIND::find_all(std::string const&, std::vector<std::string> const&, "
                               "std::list<FIO_PATH>*, bool, bool) const";
  table
      .add({find_all}, anchored,
           [](anchored_finder& subject) {
             return subject.find.find_all(bare_name, extensions, &subject.matches, false, true);
           })
      .leaves_streams(5);
  // The names of the entries, one after the other; each is lost to the next call if there is no memory for it.
  table
      .add(
          {"FIO_FIND::find_first()"}, [] { return walking_finder(false); },
          [](walking_finder& subject) { return subject.find.find_first(); })
      .may_leave(walk_may_be_open)
      .answers_without_memory_below({"\"\""})
      .leaves_streams(1);
  table
      .add(
          {"FIO_FIND::find_next()"}, [] { return walking_finder(true); },
          [](walking_finder& subject) { return subject.find.find_next(); })
      .goes_on_after_failure();
  table.add_quiet(
      {"FIO_FIND::find_close()"}, [] { return walking_finder(true); },
      [](walking_finder& subject) { return subject.find.find_close(); });
}

} // namespace

void add_search_operations(operation_table& table) {
  add_iterators(table);
  add_making(table);
  add_list_operations(table);
  add_searching(table);
}
