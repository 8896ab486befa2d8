// The operations of `FIO_PATH`.

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "ccl/fio/fio_path.h"
#include "tests/sweeps/allocation_operation.h"
#include "tests/sweeps/allocation_path_states.h"
#include "tests/sweeps/allocation_workspace.h"

namespace {

// Longer than a string holds in itself, so that each piece is an allocation.
std::string const long_path = "a_first_directory_level/a_second_directory_level/the_base_of_the_name.and_its_extension";
std::string const unsimplified_long_path = "./" + long_path;
std::string const other_path =
    "another_first_level/./gone_again/../another_last_level/another_base_name.another_extension";
std::string const long_directory = "a\\directory_of_its_own//in_two_levels";
std::string const long_name = "a_name_to_be_set_without_directory.with_an_extension";
std::string const placed_name = "another_level_for_the_directory/a_base_to_be_set.an_extension_to_be_set";
std::string const long_text = "a_text_that_is_too_long_for_a_string_alone";
std::string const long_extension = ".an_extension_of_many_letters";
std::string const empty;
// Wider than the memory that any of the paths here has, and too long for a path.
std::string const wide_text(300, 'x');
std::string const too_long(1500, 'x');
std::string const anchor = "/where_it_is_anchored/in_two_levels";
std::string const below = "another_level_below_it/./and_yet_another_one";
std::string const missing = "a_name_that_does_not_exist";

// A copy has no more memory than its texts need, so that whatever makes one of them longer asks for more.
FIO_PATH path() {
  FIO_PATH const original(long_path);
  return FIO_PATH(original);
}

// The same, with a text that even the shortest edit needs more memory for.
FIO_PATH tight_path() {
  FIO_PATH const original("a_first_directory_level/b.");
  return FIO_PATH(original);
}

// A path that is longer than the limit: a reader that checks the length writes a message about it.
FIO_PATH path_over_the_limit() {
  FIO_PATH result("a_first_directory_level/a_second_directory_level/x.an_extension_of_some_length");
  result.base(too_long);
  return result;
}

nothing no_object() { return {}; }

// A path of illegal length, which only a name that is set makes legal.
FIO_PATH illegal_path() {
  FIO_PATH original(too_long);
  original.directory("a_first_directory_level");
  return FIO_PATH(original);
}

// A path that simplification makes longer: what stands in front of the base's separator enters the directory and stays
// in the base.
FIO_PATH path_with_separator_in_base() {
  FIO_PATH original(long_path);
  original.base(placed_name);
  return FIO_PATH(original);
}

// A path under the older rules of simplification, which the environment selects.
struct path_and_old_rules {
  explicit path_and_old_rules(FIO_PATH const& subject) : path(subject) { ::setenv("fio_old_simplify", "1", 1); }
  ~path_and_old_rules() { ::unsetenv("fio_old_simplify"); }
  path_and_old_rules(path_and_old_rules const&) = delete;
  path_and_old_rules& operator=(path_and_old_rules const&) = delete;

  FIO_PATH path;
};

std::string text_of(path_and_old_rules const& subject) { return ::text_of(subject.path); }

struct two_paths {
  FIO_PATH left{long_path};
  FIO_PATH right{other_path};
};

std::string text_of(two_paths const& paths) { return ::text_of(paths.left) + '\n' + ::text_of(paths.right); }

std::string directory_in(std::string const& state) { return state.substr(0, state.find('|')); }

std::string behind_directory(std::string const& state) { return state.substr(state.find('|')); }

// A setter of a whole name, which may have stored the directory alone.
bool name_is_stored(std::string const& state, std::string const& before, std::string const& clean) {
  return component_is_stored(state, before, clean) ||
         (directory_in(state) == directory_in(clean) && behind_directory(state) == behind_directory(before));
}

// An operation that has done its work, up to the message about the length.
bool work_is_done(std::string const& state, std::string const& before, std::string const& clean) {
  return state == before || state == clean;
}

void add_makers(operation_table& table) {
  table.add({"FIO_PATH::FIO_PATH(char const*)"}, no_object, [](nothing) { return FIO_PATH(long_path.c_str()); });
  table.add({"FIO_PATH::FIO_PATH(std::string const&)"}, no_object, [](nothing) { return FIO_PATH(long_path); });
  table.add({"FIO_PATH::FIO_PATH(std::string const&, std::string const&)"}, no_object,
            [](nothing) { return FIO_PATH(long_directory, long_name); });
  table.add({"FIO_PATH::FIO_PATH(FIO_PATH const&)"}, path, [](FIO_PATH const& other) { return FIO_PATH(other); });
  table.add(
      {"FIO_PATH::operator=(FIO_PATH const&)"}, [] { return two_paths(); },
      [](two_paths& paths) { paths.left = paths.right; });
  table.add({"FIO_PATH::operator=(std::string const&)"}, path, [](FIO_PATH& path) { path = other_path; })
      .may_leave(component_is_stored);
  table.add({"FIO_PATH::operator=(char const*)"}, path, [](FIO_PATH& path) { path = other_path.c_str(); })
      .may_leave(component_is_stored);
  table
      .add({"FIO_PATH::split_full_path(char const*)"}, path,
           [](FIO_PATH& path) { path.split_full_path(other_path.c_str()); })
      .may_leave(component_is_stored);
  // The text is divided that belongs to the path itself.
  table
      .add(
          {"FIO_PATH::split_full_path(char const*)", "FIO_PATH::operator char const*() const"},
          [] {
            FIO_PATH path("x");
            path.drive('C').base(long_text + "/in_a_directory").extension(long_extension, empty);
            return path;
          },
          [](FIO_PATH& path) { path.split_full_path(path); })
      .may_leave(component_is_stored);
  table.add_quiet({"FIO_PATH::FIO_PATH()"}, no_object, [](nothing) { return FIO_PATH(); });
  table.add_quiet({"FIO_PATH::FIO_PATH(FIO_PATH&&)", "FIO_PATH::operator=(FIO_PATH&&)"}, path, [](FIO_PATH& path) {
    FIO_PATH taken(std::move(path));
    path = std::move(taken);
  });
}

void add_component_setters(operation_table& table) {
  auto const add = [&table](char const* covered, auto set) {
    table.add({covered}, path, set).may_leave(component_is_stored);
  };
  add("FIO_PATH::make_path(FIO_PATH::FILE_COMPONENTS, std::string const&)",
      [](FIO_PATH& path) { path.make_path(FIO_PATH::DIRECTORY, wide_text); });
  add("FIO_PATH::make_path(FIO_PATH::FILE_COMPONENTS, std::string const&)",
      [](FIO_PATH& path) { path.make_path(FIO_PATH::BASE, wide_text); });
  add("FIO_PATH::make_path(FIO_PATH::FILE_COMPONENTS, std::string const&)",
      [](FIO_PATH& path) { path.make_path(FIO_PATH::EXTENSION, wide_text); });
  add("FIO_PATH::directory(std::string const&)", [](FIO_PATH& path) { path.directory(wide_text); });
  add("FIO_PATH::base(std::string const&)", [](FIO_PATH& path) { path.base(wide_text); });
  add("FIO_PATH::extension(std::string const&, std::string const&)",
      [](FIO_PATH& path) { path.extension(long_extension, wide_text); });
  add("FIO_PATH::extension(std::string const&, FIO_EXTENSION_TYPE)",
      [](FIO_PATH& path) { path.extension(wide_text, FIO_EXTENSION_TYPE_VHD); });
  add("FIO_PATH::extension(FIO_EXTENSION_TYPE, std::string const&)",
      [](FIO_PATH& path) { path.extension(FIO_EXTENSION_TYPE_VHD, wide_text); });
}

void add_other_setters(operation_table& table) {
  auto const add = [&table](char const* covered, auto set) -> swept_operation& {
    return table.add({covered}, tight_path, set).may_leave(component_is_stored);
  };
  add("FIO_PATH::extension(FIO_EXTENSION_TYPE, FIO_EXTENSION_TYPE)",
      [](FIO_PATH& path) { path.extension(FIO_EXTENSION_TYPE_VHD, FIO_EXTENSION_TYPE_VHD); });
  add("FIO_PATH::drive(char)", [](FIO_PATH& path) { path.drive('C'); });
  add("FIO_PATH::drive(std::string const&)", [](FIO_PATH& path) { path.drive(long_text); });
  add("FIO_PATH::path_separator(char)", [](FIO_PATH& path) { path.path_separator('|'); });
  table.add_quiet({"FIO_PATH::no_extension()"}, tight_path, [](FIO_PATH& path) { path.no_extension(); });
  add("FIO_PATH::tail(std::string const&)", [](FIO_PATH& path) { path.tail(wide_text); }).goes_on_after_failure();
  add("FIO_PATH::filename(std::string const&)", [](FIO_PATH& path) {
    path.filename(long_name);
  }).may_leave(name_is_stored);
  // The directory is appended to: a second call after a failure does it twice.
  add("FIO_PATH::filename(std::string const&)", [](FIO_PATH& path) { path.filename(placed_name); })
      .may_leave(name_is_stored)
      .goes_on_after_failure();
  table
      .add({"FIO_PATH::filename(std::string const&)"}, illegal_path, [](FIO_PATH& path) { path.filename(placed_name); })
      .may_leave(name_is_stored)
      .goes_on_after_failure();
}

// A path becomes shorter in its own memory, unless a new division of its text would give another one.
void add_simplifications(operation_table& table) {
  auto const unsimplified = [] { return FIO_PATH(other_path); };
  auto const flatten = [](FIO_PATH& path) { path.flatten(); };
  auto const simplify = [](FIO_PATH& path) { path.become_simplified(); };
  auto const simplify_by_old_rules = [](path_and_old_rules& subject) { subject.path.become_simplified(); };
  table.add_quiet({"FIO_PATH::flatten()"}, unsimplified, flatten);
  table.add_quiet({"FIO_PATH::become_simplified()"}, unsimplified, simplify);
  table.add_quiet(
      {"FIO_PATH::become_simplified()"}, [] { return path_and_old_rules(FIO_PATH(other_path)); },
      simplify_by_old_rules);
  table.add({"FIO_PATH::flatten()"}, path_with_separator_in_base, flatten);
  table.add({"FIO_PATH::become_simplified()"}, path_with_separator_in_base, simplify);
  table.add(
      {"FIO_PATH::become_simplified()"}, [] { return path_and_old_rules(path_with_separator_in_base()); },
      simplify_by_old_rules);
  table.add({"FIO_PATH::flatten()"}, path_over_the_limit, flatten).may_leave(work_is_done);
  table.add({"FIO_PATH::become_simplified()"}, path_over_the_limit, simplify).may_leave(work_is_done);
}

void add_locations(operation_table& table) {
  // A path whose directory is stored is an absolute one for the next call, which leaves it alone.
  table
      .add({"FIO_PATH::become_absolute(std::string const&)"}, path,
           [](FIO_PATH& path) { path.become_absolute(anchor); })
      .may_leave(by_way_of(anchor + '/' + long_path))
      .goes_on_after_failure();
  table
      .add({"FIO_PATH::become_absolute(std::string const&)"}, path, [](FIO_PATH& path) { path.become_absolute(empty); })
      .may_leave(by_way_of(workspace::root() + '/' + long_path))
      .goes_on_after_failure();
  table.add({"FIO_PATH::cd(std::string)"}, path, [](FIO_PATH& path) { path.cd(below); })
      .may_leave(by_way_of("a_first_directory_level/a_second_directory_level/" + below +
                           "/the_base_of_the_name.and_its_extension"))
      .goes_on_after_failure();
  table.add({"FIO_PATH::canonical(std::string const&)"}, no_object,
            [](nothing) { return FIO_PATH::canonical("/proc/self/task"); });
  table.add({"FIO_PATH::canonical(std::string const&)"}, no_object, [](nothing) { return FIO_PATH::canonical("."); })
      .ends_program();
  table.add(
      {"FIO_PATH::get_relative_to(std::string const&) const"}, [] { return FIO_PATH(anchor + '/' + long_path); },
      [](FIO_PATH const& path) { return path.get_relative_to(anchor); });
}

// A comparison asks for memory to copy a right path that a new division of its text would make another one, and to
// write the message about a length.
void add_comparisons(operation_table& table) {
  auto const equal = [](two_paths const& paths) { return paths.left == paths.right; };
  auto const unequal = [](two_paths const& paths) { return paths.left != paths.right; };
  auto const less = [](two_paths const& paths) { return paths.left < paths.right; };
  auto const equal_paths = [] {
    two_paths paths;
    paths.right = workspace::root() + "/./" + long_path;
    return paths;
  };
  table.add_quiet({"FIO_PATH::operator==(FIO_PATH const&) const"}, equal_paths, equal);
  table.add_quiet({"FIO_PATH::operator!=(FIO_PATH const&) const"}, equal_paths, unequal);
  table.add_quiet({"FIO_PATH::operator<(FIO_PATH const&) const"}, equal_paths, less);
  auto const paths_with_two_separators = [] {
    two_paths paths;
    paths.right = unsimplified_long_path;
    paths.right.path_separator('\\');
    return paths;
  };
  table.add({"FIO_PATH::operator==(FIO_PATH const&) const"}, paths_with_two_separators, equal);
  table.add({"FIO_PATH::operator!=(FIO_PATH const&) const"}, paths_with_two_separators, unequal);
  table.add({"FIO_PATH::operator<(FIO_PATH const&) const"}, paths_with_two_separators, less);

  auto const equal_to_text = [](FIO_PATH const& path) { return path == unsimplified_long_path; };
  auto const unequal_to_text = [](FIO_PATH const& path) { return path != unsimplified_long_path; };
  auto const less_than_text = [](FIO_PATH const& path) { return path < unsimplified_long_path; };
  table.add_quiet({"FIO_PATH::operator==(std::string const&) const"}, path, equal_to_text);
  table.add_quiet({"FIO_PATH::operator!=(std::string const&) const"}, path, unequal_to_text);
  table.add_quiet({"FIO_PATH::operator<(std::string const&) const"}, path, less_than_text);
  table.add({"FIO_PATH::operator==(std::string const&) const"}, path_over_the_limit, equal_to_text);
  table.add({"FIO_PATH::operator!=(std::string const&) const"}, path_over_the_limit, unequal_to_text);
  table.add({"FIO_PATH::operator<(std::string const&) const"}, path_over_the_limit, less_than_text);
  table.add_quiet({"FIO_PATH::os_specific_comparison(char const*, char const*)"}, no_object,
                  [](nothing) { return FIO_PATH::os_specific_comparison(long_path.c_str(), long_path.c_str()); });
}

// Readers of a text that is too long, about which they write a message, and which they then copy.
void add_readers(operation_table& table) {
  auto const add = [&table](char const* covered, auto read) { table.add({covered}, path_over_the_limit, read); };
  add("FIO_PATH::fullpath() const", [](FIO_PATH const& path) { return path.fullpath(); });
  add("FIO_PATH::operator std::string() const", [](FIO_PATH const& path) { return static_cast<std::string>(path); });
  add("FIO_PATH::operator char const*() const",
      [](FIO_PATH const& path) { return *static_cast<char const*>(path) != '\0'; });
  add("FIO_PATH::get_path_components(int) const", [](FIO_PATH const& path) { return path.get_path_components(15); });
  add("FIO_PATH::directory() const", [](FIO_PATH const& path) { return path.directory(); });
  add("FIO_PATH::full_directory() const", [](FIO_PATH const& path) { return path.full_directory(); });
  add("FIO_PATH::base() const", [](FIO_PATH const& path) { return path.base(); });
  add("FIO_PATH::extension() const", [](FIO_PATH const& path) { return path.extension(); });
  add("FIO_PATH::filename() const", [](FIO_PATH const& path) { return path.filename(); });
  add("FIO_PATH::operator[](int) const", [](FIO_PATH const& path) { return path[1]; });
  add("FIO_PATH::tail() const", [](FIO_PATH const& path) { return path.tail(); });
  table.add({"FIO_PATH::tail() const"}, path, [](FIO_PATH const& path) { return path.tail(); });
  add("FIO_PATH::sync_path_separators(std::string const&) const",
      [](FIO_PATH const& path) { return path.sync_path_separators(long_directory); });
  table.add({"fio_display_path_too_long_assert_message(char const*)"}, no_object,
            [](nothing) { fio_display_path_too_long_assert_message(long_text.c_str()); });
  table.add({"fio_display_path_too_long_assert_message(char const*)"}, no_object,
            [](nothing) { fio_display_path_too_long_assert_message(nullptr); });
}

void add_quiet_queries(operation_table& table) {
  table.add_quiet({"FIO_PATH::has_drive() const", "FIO_PATH::has_directory() const", "FIO_PATH::has_extension() const",
                   "FIO_PATH::absolute() const", "FIO_PATH::directory_path() const", "FIO_PATH::levels() const",
                   "FIO_PATH::legal(int) const", "FIO_PATH::is_legal_length() const", "FIO_PATH::unc() const"},
                  path_over_the_limit, [](FIO_PATH const& path) {
                    return path.has_drive() + path.has_directory() + path.has_extension() + path.absolute() +
                           path.directory_path() + path.levels() + path.legal(1) + path.is_legal_length() + path.unc();
                  });
  table.add_quiet({"FIO_PATH::drive() const"}, path_over_the_limit, [](FIO_PATH const& path) { return path.drive(); });
  table.add_quiet({"FIO_PATH::is_dot_directory(std::string const&)",
                   "FIO_PATH::is_path_length_within_operating_system_limits(unsigned long)",
                   "FIO_PATH::is_path_length_within_operating_system_limits(std::string const&)",
                   "FIO_PATH::default_path_separator()", "FIO_PATH::is_unc_path(char const*)",
                   "FIO_PATH::is_unc_path(std::string const&)", "FIO_PATH::change_path_separators_for_windows_api()"},
                  no_object, [](nothing) {
                    FIO_PATH::change_path_separators_for_windows_api();
                    return FIO_PATH::is_dot_directory(long_text) +
                           FIO_PATH::is_path_length_within_operating_system_limits(too_long.size()) +
                           FIO_PATH::is_path_length_within_operating_system_limits(too_long) +
                           FIO_PATH::default_path_separator() + FIO_PATH::is_unc_path(long_text.c_str()) +
                           FIO_PATH::is_unc_path(long_text);
                  });
  table.add_quiet(
      {"FIO_PATH::convert_unc_to_path_with_drive(char const*, std::string&)",
       "FIO_PATH::convert_path_with_drive_to_unc(char const*, std::string&)"},
      [] { return long_text; },
      [](std::string& text) {
        return FIO_PATH::convert_unc_to_path_with_drive(long_path.c_str(), text) +
               FIO_PATH::convert_path_with_drive_to_unc(long_path.c_str(), text);
      });
}

} // namespace

void add_path_operations(operation_table& table) {
  add_makers(table);
  add_component_setters(table);
  add_other_setters(table);
  add_simplifications(table);
  add_locations(table);
  add_comparisons(table);
  add_readers(table);
  add_quiet_queries(table);
}
