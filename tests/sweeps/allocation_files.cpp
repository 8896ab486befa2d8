// The operations of `FIO_FILE_SYSTEM`.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_path.h"
#include "tests/sweeps/allocation_operation.h"
#include "tests/sweeps/allocation_workspace.h"

namespace {

// Longer than a string holds in itself, so that each text is an allocation.
std::string const folder = "the_folder_of_a_sweep";
std::string const file = folder + "/the_first_file_in_it.txt";
std::string const missing_file = folder + "/no_such_file_in_it.txt";
std::string const pattern = folder + "/the_*";
std::string const target_folder = "the_folder_of_copies/and_one_below_it";
std::string const target_file = folder + "/the_file_that_is_made.txt";
std::string const folder_in_file = file + "/a_folder_in_a_file";

// A folder with two files and a folder below it.
drawn_tree draw() {
  return drawn_tree("the_folder_of_a_sweep/the_first_file_in_it.txt=one "
                    "the_folder_of_a_sweep/the_second_file_in_it.txt=two "
                    "the_folder_of_a_sweep/a_folder_below_it/the_third_file.txt=three");
}

// Folders with nothing in them, beside one with a file.
drawn_tree draw_empty_folders() {
  return drawn_tree("the_folder_of_a_sweep/an_empty_folder_below_it/and_one_below_that/ "
                    "the_folder_of_a_sweep/another_empty_folder/ "
                    "the_folder_of_a_sweep/a_folder_that_is_kept/with_a_file_in_it=kept");
}

nothing no_object() { return {}; }

FIO_PATH path_over_the_limit() {
  FIO_PATH result(folder);
  result.base(std::string(1500, 'x'));
  return result;
}

std::set<std::string> lines_of(std::string const& text) {
  std::set<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    lines.insert(line);
  }
  return lines;
}

// A part of the work: everything that stands there stood there before or is to stand there, and nothing is missing that
// was to stay.
bool part_is_done(std::string const& state, std::string const& before, std::string const& clean) {
  std::set<std::string> const now = lines_of(state);
  std::set<std::string> const old = lines_of(before);
  std::set<std::string> const aim = lines_of(clean);
  auto const may_be = [&](std::string const& line) { return old.count(line) + aim.count(line) != 0; };
  auto const is_kept = [&](std::string const& line) { return aim.count(line) == 0 || now.count(line) != 0; };
  return std::all_of(now.begin(), now.end(), may_be) && std::all_of(old.begin(), old.end(), is_kept);
}

// The same for a name with a wildcard: if nothing can be found by it, it is made as it stands. `drawn` is what follows
// the name of what is made, as it is drawn.
state_rule name_with_wildcard_is_made(std::string const& drawn) {
  return [drawn](std::string const& state, std::string const& before, std::string const& clean) {
    return part_is_done(state, before, clean + pattern + drawn + '\n');
  };
}

// A stream, closed with its owner.
struct stream_closer {
  void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using owned_stream = std::unique_ptr<std::FILE, stream_closer>;

std::string text_of(owned_stream const& stream) { return stream != nullptr ? "a stream" : "no stream"; }

// The answer of `findfirst` and what it found, closed with its owner.
class search {
public:
  explicit search(char const* filespec) : m_handle(FIO_FILE_SYSTEM::findfirst(filespec, &m_entry)) {}
  ~search() { close(); }
  search(search&& other) noexcept : m_handle(std::exchange(other.m_handle, -1)), m_entry(other.m_entry) {}
  search& operator=(search&&) = delete;

  int next() { return FIO_FILE_SYSTEM::findnext(m_handle, &m_entry); }
  int close() { return FIO_FILE_SYSTEM::findclose(std::exchange(m_handle, -1)); }

  std::string text() const { return m_handle == -1 ? "nothing found" : m_entry.name; }

private:
  long m_handle;
  _finddata_t m_entry = {};
};

std::string text_of(search const& subject) { return subject.text(); }

struct open_search {
  drawn_tree tree{"a_file=1 a_folder/"};
  search walk{"*"};
};

std::string text_of(open_search const& subject) { return text_of(subject.walk); }

// A removal, and the text that it is given, which it changes on its way; also what the system does not see of it.
struct removal {
  drawn_tree tree = draw();
  std::string path = folder + '\0' + "a_rest_that_the_system_does_not_see";
};

std::string text_of(removal const& subject) { return text_of(subject.tree) + "path " + subject.path; }

// A part of the removal, with the text as it was.
bool part_is_removed(std::string const& state, std::string const& before, std::string const& clean) {
  auto const path_in = [](std::string const& text) { return text.substr(text.rfind("path ")); };
  return path_in(state) == path_in(before) && part_is_done(state, before, clean);
}

void add_primitives(operation_table& table) {
  table
      .add({"FIO_FILE_SYSTEM::fopen(char const*, char const*)"}, draw,
           [](drawn_tree const&) { return owned_stream(FIO_FILE_SYSTEM::fopen(file.c_str(), "r")); })
      .answers_without_memory_below({"no stream"});
  table.add({"FIO_FILE_SYSTEM::get_current_directory()"}, no_object,
            [](nothing) { return FIO_FILE_SYSTEM::get_current_directory(); });
  table.add_quiet({"FIO_FILE_SYSTEM::open(char const*, int, int)"}, draw,
                  [](drawn_tree const&) { return ::close(FIO_FILE_SYSTEM::open(file.c_str(), O_RDONLY, 0)); });
  table.add_quiet({"FIO_FILE_SYSTEM::chmod(char const*, int)"}, draw,
                  [](drawn_tree const&) { return FIO_FILE_SYSTEM::chmod(file.c_str(), 0600); });
  table.add_quiet({"FIO_FILE_SYSTEM::mkdir(char const*)", "FIO_FILE_SYSTEM::rmdir(char const*)"}, draw,
                  [](drawn_tree const&) {
                    return FIO_FILE_SYSTEM::mkdir(missing_file.c_str()) + FIO_FILE_SYSTEM::rmdir(missing_file.c_str());
                  });
  table.add_quiet({"FIO_FILE_SYSTEM::change_current_directory(char const*)",
                   "FIO_FILE_SYSTEM::set_current_directory(std::string const&)"},
                  draw, [](drawn_tree const&) {
                    return FIO_FILE_SYSTEM::change_current_directory(folder.c_str()) +
                           FIO_FILE_SYSTEM::set_current_directory(workspace::root());
                  });
  table.add_quiet({"FIO_FILE_SYSTEM::get_current_directory(char*, unsigned long)",
                   "FIO_FILE_SYSTEM::get_current_directory(unsigned long, char*)"},
                  no_object, [](nothing) {
                    char buffer[1024] = {};
                    return FIO_FILE_SYSTEM::get_current_directory(buffer, sizeof buffer) == buffer
                               ? FIO_FILE_SYSTEM::get_current_directory(sizeof buffer, buffer)
                               : 0;
                  });
}

void add_renaming_and_removing(operation_table& table) {
  table.add_quiet(
      {"FIO_FILE_SYSTEM::posix_rename(char const*, char const*)", "FIO_FILE_SYSTEM::rename(char const*, char const*)",
       "FIO_FILE_SYSTEM::rename(std::string const&, std::string const&)"},
      draw, [](drawn_tree const&) {
        return FIO_FILE_SYSTEM::posix_rename(file.c_str(), missing_file.c_str()) +
               FIO_FILE_SYSTEM::rename(missing_file.c_str(), file.c_str()) + FIO_FILE_SYSTEM::rename(file, target_file);
      });
  table.add_quiet({"FIO_FILE_SYSTEM::remove(char const*)", "FIO_FILE_SYSTEM::remove(std::string const&)",
                   "FIO_FILE_SYSTEM::native_remove(char const*)", "FIO_FILE_SYSTEM::posix_remove(char const*)",
                   "FIO_FILE_SYSTEM::unc_native_remove(std::string const&)"},
                  draw, [](drawn_tree const&) {
                    return FIO_FILE_SYSTEM::remove(file) + FIO_FILE_SYSTEM::remove(missing_file.c_str()) +
                           FIO_FILE_SYSTEM::native_remove(missing_file.c_str()) +
                           FIO_FILE_SYSTEM::posix_remove(missing_file.c_str()) +
                           FIO_FILE_SYSTEM::unc_native_remove(missing_file);
                  });
  // The only memory that these ask for is for the message about the length.
  table.add({"FIO_FILE_SYSTEM::rename(FIO_PATH const&, FIO_PATH const&)"}, path_over_the_limit,
            [](FIO_PATH const& path) { return FIO_FILE_SYSTEM::rename(path, path); });
  table.add({"FIO_FILE_SYSTEM::remove(FIO_PATH const&)"}, path_over_the_limit,
            [](FIO_PATH const& path) { return FIO_FILE_SYSTEM::remove(path); });
  // Nothing that could be removed has this name, so that the answer is true where nothing is found by it.
  table
      .add({"FIO_FILE_SYSTEM::remove_if_exists(std::string const&)"}, draw,
           [](drawn_tree const&) { return FIO_FILE_SYSTEM::remove_if_exists(pattern); })
      .answers_without_memory_below({"1"})
      .leaves_streams(1);
}

void add_status(operation_table& table) {
  table
      .add({"FIO_FILE_SYSTEM::exists(char const*)"}, draw,
           [](drawn_tree const&) { return FIO_FILE_SYSTEM::exists(pattern.c_str()); })
      .answers_without_memory_below({"0"})
      .leaves_streams(1);
  table.add({"FIO_FILE_SYSTEM::exists(FIO_PATH const&)"}, path_over_the_limit,
            [](FIO_PATH const& path) { return FIO_FILE_SYSTEM::exists(path); });
  table.add({"FIO_FILE_SYSTEM::status(FIO_PATH const&, stat*)"}, path_over_the_limit, [](FIO_PATH const& path) {
    struct stat unused;
    return FIO_FILE_SYSTEM::status(path, &unused);
  });
  table.add_quiet({"FIO_FILE_SYSTEM::status(char const*, stat*)", "FIO_FILE_SYSTEM::status(std::string const&, stat*)",
                   "FIO_FILE_SYSTEM::is_directory(char const*)", "FIO_FILE_SYSTEM::is_regular_file(char const*)",
                   "FIO_FILE_SYSTEM::is_older(char const*, long const*)", "FIO_FILE_SYSTEM::exists(char const*)"},
                  draw, [](drawn_tree const&) {
                    struct stat unused;
                    long const limit = 0;
                    return FIO_FILE_SYSTEM::status(file.c_str(), &unused) + FIO_FILE_SYSTEM::status(file, &unused) +
                           FIO_FILE_SYSTEM::is_directory(folder.c_str()) +
                           FIO_FILE_SYSTEM::is_regular_file(file.c_str()) +
                           FIO_FILE_SYSTEM::is_older(file.c_str(), &limit) + FIO_FILE_SYSTEM::exists(file.c_str());
                  });
  table.add_quiet({"FIO_FILE_SYSTEM::same_file(char const*, char const*)"}, no_object,
                  [](nothing) { return FIO_FILE_SYSTEM::same_file(file.c_str(), pattern.c_str()); });
}

// The four parts of a text, with something in them before.
struct four_parts {
  std::string drive = "a drive", dir = "a directory", fname = "a name", ext = "an extension";
};

std::string text_of(four_parts const& parts) {
  return parts.drive + '|' + parts.dir + '|' + parts.fname + '|' + parts.ext;
}

// Each part is as it was or as it is to be.
bool parts_are_assigned(std::string const& state, std::string const& before, std::string const& clean) {
  auto const as_lines = [](std::string text) {
    std::replace(text.begin(), text.end(), '|', '\n');
    return text;
  };
  return part_is_done(as_lines(state), as_lines(before), as_lines(clean));
}

void add_path_texts(operation_table& table) {
  table
      .add(
          {"FIO_FILE_SYSTEM::splitpath(char const*, std::string&, std::string&, std::string&, std::string&)"},
          [] { return four_parts(); },
          [](four_parts& parts) {
            return FIO_FILE_SYSTEM::splitpath(
                "a_directory_of_some_length/a_name_of_some_length.an_extension_of_its_own", parts.drive, parts.dir,
                parts.fname, parts.ext);
          })
      .may_leave(parts_are_assigned);
  table.add({"FIO_FILE_SYSTEM::tolower(std::string const&)"}, no_object,
            [](nothing) { return FIO_FILE_SYSTEM::tolower(file); });
  table
      .add({"fio_get_unc_full_path(char const*)"}, no_object,
           [](nothing) { return fio_get_unc_full_path(file.c_str()); })
      .answers_without_memory_below({"std::logic_error"})
      .hides_exceptions()
      .leaves_records(2);
  table.add_quiet({"FIO_FILE_SYSTEM::splitpath(char const*, char*, char*, char*, char*)",
                   "FIO_FILE_SYSTEM::makepath(char*, char const*, char const*, char const*, char const*)"},
                  no_object, [](nothing) {
                    char drive[1], dir[1025], fname[1025], ext[257], path[1100];
                    bool const legal = FIO_FILE_SYSTEM::splitpath(file.c_str(), drive, dir, fname, ext);
                    FIO_FILE_SYSTEM::makepath(path, drive, dir, fname, ext);
                    return legal && path == file;
                  });
}

void add_find_handles(operation_table& table) {
  table
      .add({"FIO_FILE_SYSTEM::findfirst(char const*, _finddata_t*)"}, draw,
           [](drawn_tree const&) { return search(pattern.c_str()); })
      .answers_without_memory_below({"nothing found"})
      .leaves_streams(1);
  table.add_quiet({"FIO_FILE_SYSTEM::findfirst(char const*, _finddata_t*)"}, draw,
                  [](drawn_tree const&) { return search(file.c_str()); });
  table.add_quiet(
      {"FIO_FILE_SYSTEM::findnext(long, _finddata_t*)", "FIO_FILE_SYSTEM::findclose(long)"},
      [] { return open_search(); }, [](open_search& subject) { return subject.walk.next() + subject.walk.close(); });
}

void add_creating_and_copying(operation_table& table) {
  auto const add = [&table](char const* covered, auto call) -> swept_operation& {
    return table.add({covered}, draw, call).may_leave(part_is_done);
  };
  add("FIO_FILE_SYSTEM::create(std::string const&)",
      [](drawn_tree const&) { return FIO_FILE_SYSTEM::create(target_folder); });
  add("FIO_FILE_SYSTEM::create(std::string const&)",
      [](drawn_tree const&) { return FIO_FILE_SYSTEM::create(folder_in_file); });
  // A level that cannot be looked for is made, under the name with the wildcard.
  add("FIO_FILE_SYSTEM::create(std::string const&)", [](drawn_tree const&) { return FIO_FILE_SYSTEM::create(pattern); })
      .may_leave(name_with_wildcard_is_made("/"))
      .answers_without_memory_below({"0", "1"})
      .goes_on_after_failure()
      .leaves_streams(2);
  add("FIO_FILE_SYSTEM::touch(std::string const&)", [](drawn_tree const&) {
    return FIO_FILE_SYSTEM::touch(target_file);
  }).answers_without_memory_below({"0"});
  add("FIO_FILE_SYSTEM::copy(std::string const&, std::string const&, bool, bool)", [](drawn_tree const&) {
    return FIO_FILE_SYSTEM::copy(file, target_file, true, true);
  }).answers_without_memory_below({"0"});
  // The source is open while the target is looked for, which may throw.
  add("FIO_FILE_SYSTEM::copy(std::string const&, std::string const&, bool, bool)",
      [](drawn_tree const&) { return FIO_FILE_SYSTEM::copy(file, pattern, true, false); })
      .may_leave(name_with_wildcard_is_made("=one"))
      .answers_without_memory_below({"0", "1"})
      .leaves_streams(2);
  add("FIO_FILE_SYSTEM::move(std::string const&, std::string const&, bool, bool)", [](drawn_tree const&) {
    return FIO_FILE_SYSTEM::move(file, target_file, false, false);
  }).answers_without_memory_below({"0"});
  // A source that cannot be opened counts as empty.
  add("FIO_FILE_SYSTEM::copy_files(std::string const&, std::string const&, bool, bool)",
      [](drawn_tree const&) { return FIO_FILE_SYSTEM::copy_files(pattern, target_folder, true, false); })
      .answers_without_memory_below({"0", "1"})
      .leaves_streams(1);
  add("FIO_FILE_SYSTEM::copy_dir(std::string const&, std::string const&, bool, bool)",
      [](drawn_tree const&) { return FIO_FILE_SYSTEM::copy_dir(folder, target_folder, true, false); })
      .answers_without_memory_below({"0", "1"})
      .leaves_streams(2);
}

// What cannot be opened is an error where it is to be searched, and where it is to be removed it counts as empty.
std::vector<std::string> removal_errors() {
  std::vector<std::string> errors;
  for (char const* const name : {"", "/an_empty_folder_below_it", "/an_empty_folder_below_it/and_one_below_that",
                                 "/another_empty_folder", "/a_folder_that_is_kept"}) {
    errors.push_back("Failed to open \"" + folder + name + "\" as a directory.\n");
  }
  for (char const* const name : {"", "/a_folder_that_is_kept"}) {
    errors.push_back("Failed to remove directory \"" + folder + name + "\".\n");
  }
  return errors;
}

void add_bulk_removal(operation_table& table) {
  auto const add = [&table](char const* covered, auto call) -> swept_operation& {
    return table.add({covered}, draw, call).may_leave(part_is_done);
  };
  table.add({"FIO_FILE_SYSTEM::get_tmp_path(char const*)"}, no_object, [](nothing) {
    return FIO_FILE_SYSTEM::same_file(FIO_FILE_SYSTEM::get_tmp_path(file.c_str()).c_str(),
                                      "the_folder_of_a_sweep/.korvane.*.tmp");
  });
  // What cannot be opened counts as empty, and whatever comes of it, the answer is true. Whether the folder goes too
  // depends on which of its entries is read last, and a failed call has removed some.
  add("FIO_FILE_SYSTEM::remove_temp_files(char const*, int, char const*)",
      [](drawn_tree const&) { return FIO_FILE_SYSTEM::remove_temp_files(folder.c_str(), -100, "the_*"); })
      .answers_without_memory_below({"1"})
      .goes_on_after_failure()
      .leaves_streams(2);
  add("FIO_FILE_SYSTEM::remove_files(char const*)",
      [](drawn_tree const&) { return FIO_FILE_SYSTEM::remove_files(pattern.c_str()); })
      .answers_without_memory_below({"1"})
      .leaves_streams(1);
  add("FIO_FILE_SYSTEM::remove_recursively(char const*, char const*, long const*)",
      [](drawn_tree const&) { return FIO_FILE_SYSTEM::remove_recursively(folder.c_str(), nullptr, nullptr); })
      .answers_without_memory_below({"0"})
      .leaves_streams(2);
  table
      .add(
          {"FIO_FILE_SYSTEM::do_remove_recursively(std::string&, char const*, long const*)"}, [] { return removal(); },
          [](removal& subject) { return FIO_FILE_SYSTEM::do_remove_recursively(subject.path, nullptr, nullptr); })
      .may_leave(part_is_removed)
      .answers_without_memory_below({"0"})
      .leaves_streams(2);
  table
      .add({"FIO_FILE_SYSTEM::is_directory_empty(char const*)"}, draw,
           [](drawn_tree const&) { return FIO_FILE_SYSTEM::is_directory_empty(folder.c_str()); })
      .answers_without_memory_below({"1"})
      .leaves_streams(1);
  table
      .add({"FIO_FILE_SYSTEM::remove_empty_subdirectories(std::string const&, bool)"}, draw_empty_folders,
           [](drawn_tree const&) { return FIO_FILE_SYSTEM::remove_empty_subdirectories(folder, true); })
      .may_leave(part_is_done)
      .answers_without_memory_below(removal_errors())
      .leaves_streams(10);
}

} // namespace

void add_file_operations(operation_table& table) {
  add_primitives(table);
  add_renaming_and_removing(table);
  add_status(table);
  add_path_texts(table);
  add_find_handles(table);
  add_creating_and_copying(table);
  add_bulk_removal(table);
}
