// What file systems do differently, measured through the system's calls on the file system of the temporary directory,
// and what the library then does. Prints a row of the table of docs/testing.md.
//
//     file_system_differences [NAME [DIRECTORY]]
//
// DIRECTORY is one of the file system that was there before: of the lower layer of an overlay, or of a file system that
// cannot be written. It holds "d/f" with the content "f", "file" with the content "content", and "link" to "file".

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_find.h"
#include "ccl/fio/fio_iterator.h"
#include "tests/faults/case.h"
#include "tests/faults/trees.h"
#include "tests/support/scratch_tree.h"
#include "tests/support/walks.h"

using namespace faults;
using files = FIO_FILE_SYSTEM;

namespace {

struct raw_entry {
  std::string name;
  unsigned char type;
};

// What the system says of a directory, in its order.
std::vector<raw_entry> raw_entries(std::string const& directory) {
  std::vector<raw_entry> entries;
  DIR* const stream = ::opendir(directory.c_str());
  CHECK(stream != nullptr);
  while (dirent const* const entry = stream != nullptr ? ::readdir(stream) : nullptr) {
    entries.push_back({entry->d_name, entry->d_type});
  }
  if (stream != nullptr) {
    ::closedir(stream);
  }
  return entries;
}

lines raw_names(std::string const& directory) {
  lines names;
  for (raw_entry const& entry : raw_entries(directory)) {
    if (entry.name != "." && entry.name != "..") {
      names.push_back(entry.name);
    }
  }
  return names;
}

bool can_be_made(std::string const& path) {
  int const descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
  if (descriptor != -1) {
    ::close(descriptor);
    ::unlink(path.c_str());
  }
  return descriptor != -1;
}

struct stat record_of(std::string const& path) {
  struct stat record = {};
  CHECK_EQUAL(::lstat(path.c_str(), &record), 0);
  return record;
}

bool is_same_file(std::string const& left, std::string const& right) {
  struct stat one;
  struct stat other;
  return ::stat(left.c_str(), &one) == 0 && ::stat(right.c_str(), &other) == 0 && one.st_ino == other.st_ino;
}

// The iterators take the word of the directory; whatever asks for the status finds the directories all the same.
std::string entry_types(std::string const& top) {
  bool told = true;
  for (raw_entry const& entry : raw_entries(top)) {
    told = told && entry.type != DT_UNKNOWN;
  }
  lines const flat = {top + (told ? "/d/" : "/d"), top + "/file", top + "/link"};
  CHECK_EQUAL(iterated<FIO_DIRECTORY_ITERATOR>(top), flat);
  lines deep = flat;
  if (told) {
    deep.insert(deep.begin() + 1, top + "/d/f");
  }
  CHECK_EQUAL(iterated<FIO_RECURSIVE_DIRECTORY_ITERATOR>(top), deep);
  CHECK_EQUAL(found_names(top + "/*"), (lines{".", "..", "d", "file", "link"}));
  CHECK(files::is_directory((top + "/d").c_str()));
  CHECK(!files::is_directory_empty((top + "/d").c_str()));
  lines searched;
  for (FIO_PATH const& path : FIO_FIND(top.c_str(), true).m_search_list) {
    searched.push_back(path.fullpath());
  }
  CHECK_EQUAL(searched, (lines{top + '/', top + "/d/"}));
  return told ? "yes" : "none";
}

std::string order() {
  lines const made = {"m", "c", "z", "a", "y", "b", "x", "d", "k"};
  for (std::string const& name : made) {
    write_file("order/" + name, "");
  }
  lines const raw = raw_names("order");
  lines delivered;
  for (FIO_DIRECTORY_ENTRY const& entry : FIO_DIRECTORY_ITERATOR("order")) {
    delivered.push_back(entry.path.substr(entry.path.rfind('/') + 1));
  }
  CHECK_EQUAL(delivered, raw);
  lines found = walked("order/*");
  found.erase(std::remove_if(found.begin(), found.end(), [](auto const& name) { return name[0] == '.'; }), found.end());
  CHECK_EQUAL(found, raw);
  lines by_name = made;
  std::sort(by_name.begin(), by_name.end());
  return raw == made                                      ? "as made"
         : raw == lines(made.rbegin(), made.rend())       ? "the last made first"
         : raw == by_name                                 ? "by name"
         : raw == lines(by_name.rbegin(), by_name.rend()) ? "by name, backwards"
                                                          : "of a hash";
}

timespec time_kept(timespec wanted) {
  timespec const times[] = {wanted, wanted};
  if (::utimensat(AT_FDCWD, "time", times, 0) != 0) {
    return {0, -1};
  }
  return record_of("time").st_mtim;
}

// A copy has the whole seconds of its source, whatever the source can hold.
void check_copied_time() {
  CHECK(files::copy("time", "copied", true, true));
  CHECK_EQUAL(record_of("copied").st_mtim.tv_sec, record_of("time").st_mtim.tv_sec);
  CHECK_EQUAL(record_of("copied").st_mtim.tv_nsec, 0);
  _finddata_t entry;
  CHECK_EQUAL(files::findfirst("time", &entry), 0);
  CHECK_EQUAL(entry.time_write, record_of("time").st_mtim.tv_sec);
}

std::string step_of_times() {
  write_file("time", "");
  long const kept = time_kept({1000000000, 987654321}).tv_nsec;
  check_copied_time();
  return kept == 987654321   ? "1 ns"
         : kept == 987654300 ? "100 ns"
         : kept == 987654000 ? "1 µs"
         : kept == 0         ? "1 s"
                             : std::to_string(kept);
}

std::string year_kept(std::time_t wanted) {
  timespec const kept = time_kept({wanted, 0});
  if (kept.tv_nsec == -1) {
    return "refused";
  }
  check_copied_time();
  tm parts = {};
  ::gmtime_r(&kept.tv_sec, &parts);
  return kept.tv_sec == wanted ? "any" : std::to_string(parts.tm_year + 1900);
}

std::string range_of_times() {
  std::time_t const far = std::time_t{1} << 36;
  std::string const first = year_kept(-far);
  std::string const last = year_kept(far);
  return first == last ? first : first + " to " + last;
}

std::string repeated(std::string const& text, int count) {
  std::string result;
  for (int i = 0; i != count; ++i) {
    result += text;
  }
  return result;
}

// The library has no limit of its own for a name; the record of a find handle has room for 259 bytes of it, and what
// goes by that record, as a removal does, does not find a longer one.
int longest_name_of(std::string const& character) {
  int count = 0;
  while (can_be_made("names/" + repeated(character, count + 1))) {
    ++count;
  }
  std::string const name = repeated(character, count);
  std::string const path = "names/" + name;
  CHECK(files::create(path));
  CHECK(files::is_directory(path.c_str()));
  CHECK(!files::create(path + character));
  take_messages();
  CHECK(!files::exists((path + character).c_str()));
  CHECK(!files::touch("names/" + name + character));
  std::size_t entries = 0;
  for (FIO_DIRECTORY_ENTRY const& entry : FIO_DIRECTORY_ITERATOR("names")) {
    CHECK_EQUAL(entry.path, path);
    ++entries;
  }
  CHECK_EQUAL(entries, 1U);
  CHECK_EQUAL(found_names("names/*"), (lines{".", "..", name.substr(0, 259)}));
  CHECK_EQUAL(files::remove_recursively("names", nullptr, nullptr), name.size() <= 259);
  CHECK_EQUAL(stands("names"), name.size() > 259);
  CHECK_EQUAL(files::rmdir(path.c_str()) == 0, name.size() > 259);
  ::mkdir("names", 0755);
  return static_cast<int>(name.size());
}

std::string longest_names() {
  int const plain = longest_name_of("n");
  int const wide = longest_name_of("€");
  return plain == 255 && wide == 255 ? "255" : std::to_string(plain) + ", of € " + std::to_string(wide);
}

std::string links() {
  write_file("links/file", "content");
  ::mkdir("links/d", 0755);
  ::mkdir("links/d/sub", 0755);
  std::string cell = "directories count " + std::string(record_of("links/d").st_nlink == 3 ? "theirs" : "1");
  if (::link("links/file", "links/hard") == 0) {
    CHECK(files::copy("links/hard", "links/copied", false, false));
    CHECK_EQUAL(record_of("links/file").st_nlink, 2U); // a copy is no link
    CHECK_EQUAL(record_of("links/copied").st_nlink, 1U);
    write_file("links/copied", "other");
    CHECK(files::copy("links/copied", "links/hard", true, false));
    CHECK_EQUAL(content_of("links/file"), "content"); // the other name keeps what it had
  } else {
    cell += ", no hard ones";
  }
  if (::symlink("file", "links/soft") == 0) {
    CHECK(files::exists("links/soft"));
    CHECK(files::copy("links/soft", "links/through", false, false));
    CHECK_EQUAL(content_of("links/through"), "content");
    CHECK(S_ISREG(record_of("links/through").st_mode));
  } else {
    cell += ", no symbolic ones";
  }
  return cell;
}

// Where the file system takes two names for one, the library does too: it compares no texts before it works on a file.
std::string letter_case() {
  write_file("case/Name.v", "content");
  bool const one = is_same_file("case/Name.v", "case/NAME.V");
  std::string const stored = raw_names("case").at(0);
  CHECK_EQUAL(files::exists("case/NAME.V"), one);
  CHECK_EQUAL(files::exists("case/N*"), stored == "Name.v"); // a wildcard is compared with the name as it is stored
  CHECK_EQUAL(FIO_FIND("case", false).find_first("NAME.V").fullpath(), one ? "case/NAME.V" : "");
  CHECK_EQUAL(iterated<FIO_DIRECTORY_ITERATOR>("case"), lines{"case/" + stored});
  CHECK(files::copy("case/Name.v", "case/NAME.V", true, false));
  CHECK_EQUAL(content_of("case/NAME.V"), "content");
  CHECK_EQUAL(raw_names("case").size(), one ? 1U : 2U);
  // A move is a copy and a removal, so one to the same file under another name leaves nothing.
  write_file("case/moved", "moved");
  CHECK(files::move("case/moved", "case/MOVED", true, false));
  CHECK_EQUAL(stands("case/MOVED"), !one);
  write_file("case/other", "other");
  CHECK(files::rename("case/other", "case/OTHER"));
  CHECK_EQUAL(content_of("case/OTHER"), "other");
  return !one ? "told apart" : stored == "Name.v" ? "ignored and kept" : "ignored, names come back as " + stored;
}

std::string permissions(scratch_tree const& tree) {
  write_file("closed", "content");
  bool const kept = ::chmod("closed", 0400) == 0 && (record_of("closed").st_mode & 07777) == 0400;
  bool const told = holds_for_ordinary_user(
      [](scratch_tree const& whole) {
        _finddata_t entry;
        std::string const path = whole.path("closed");
        bool const writable = ::access(path.c_str(), W_OK) == 0;
        return files::findfirst(path.c_str(), &entry) == 0 && entry.attrib == (writable ? 0U : 1U);
      },
      tree);
  CHECK(told);
  bool const holds = holds_for_ordinary_user(
      [](scratch_tree const& whole) { return ::open(whole.path("closed").c_str(), O_WRONLY | O_CLOEXEC) == -1; }, tree);
  // A copy has the permissions of a new file.
  write_file("made", "");
  CHECK(files::copy("closed", "opened", false, false));
  CHECK_EQUAL(record_of("opened").st_mode, record_of("made").st_mode);
  return std::string(kept ? "kept" : "not kept") + (holds ? "" : ", not enforced");
}

std::string bytes_of_names() {
  int made = 0;
  for (int byte = 1; byte != 256; ++byte) {
    std::string const name = "a" + std::string(1, static_cast<char>(byte));
    std::string const path = "bytes/" + name;
    if (byte == '/' || byte == '\\') {
      continue; // separators of a path
    }
    bool const can = can_be_made(path);
    made += can ? 1 : 0;
    CHECK_EQUAL(files::touch(path), can);
    CHECK_EQUAL(::unlink(path.c_str()) == 0, can);
  }
  CHECK_EQUAL(raw_names("bytes"), lines{});
  return made == 253 ? "all" : std::to_string(made) + " of 253";
}

// Also of a directory that is not of this layer of the file system.
std::string renaming(std::string const& directory) {
  std::string const other = directory + ".other";
  bool const can = ::rename(directory.c_str(), other.c_str()) == 0;
  int const why = errno;
  if (can) {
    ::rename(other.c_str(), directory.c_str());
  }
  CHECK_EQUAL(files::rename(directory, other), can);
  CHECK(can || errno == why);
  CHECK_EQUAL(drawing(can ? other : directory), lines{"f=f"});
  if (can) {
    CHECK(files::rename(other, directory));
  }
  CHECK(files::copy_dir(directory, other, false, true));
  CHECK_EQUAL(drawing(other), lines{"f=f"});
  CHECK(files::remove_recursively(other.c_str(), nullptr, nullptr));
  return can ? "yes" : std::strerror(why);
}

// A current directory that was removed: a file system in a process of its own may no longer find it.
std::string removed_current_directory() {
  ::mkdir("removed", 0755);
  std::filesystem::path const start = std::filesystem::current_path();
  CHECK_EQUAL(::chdir("removed"), 0);
  CHECK(files::rmdir((start / "removed").c_str()) == 0);
  struct stat record;
  bool const found = ::stat(".", &record) == 0;
  CHECK_EQUAL(files::exists("."), found);
  CHECK_EQUAL(files::is_directory("."), found);
  CHECK_EQUAL(files::is_directory_empty("."), found);
  CHECK_EQUAL(files::create("."), found);
  CHECK_EQUAL(take_messages().size(), found ? 0U : 2U);
  CHECK(!files::touch("file"));
  take_messages();
  CHECK_EQUAL(::chdir(start.c_str()), 0);
  return found ? "found" : "not found";
}

// Everything that would write fails and leaves the disk as it is.
void check_read_only(std::string const& top) {
  lines const before = snapshot(top);
  auto const at = [&top](char const* name) { return top + '/' + name; };
  auto const is_read_only = [](bool failed) { return failed && errno == EROFS; };
  CHECK(!files::create(at("new")));
  CHECK_EQUAL(take_messages().size(), 2U);
  CHECK(is_read_only(files::mkdir(at("new").c_str()) == -1));
  CHECK(!files::touch(at("new")));
  CHECK(!files::touch(at("file")));
  CHECK(is_read_only(files::open(at("file").c_str(), O_WRONLY, 0) == -1));
  CHECK(is_read_only(files::fopen(at("file").c_str(), "a") == nullptr));
  CHECK(is_read_only(!files::rename(at("file"), at("other"))));
  CHECK(is_read_only(files::rmdir(at("d").c_str()) == -1));
  CHECK(!files::copy("made", at("new"), true, false));
  CHECK(files::copy("made", at("file"), true, false)); // a target that stays is no failure
  CHECK(!files::copy("made", at("file"), true, true)); // but its times are
  CHECK(!files::move(at("file"), "moved", true, false));
  CHECK_EQUAL(content_of("moved"), "content");
  CHECK(!files::remove_recursively(at("d").c_str(), nullptr, nullptr));
  CHECK(files::copy_dir(top, "copied", false, true));
  CHECK_EQUAL(drawing("copied"), (lines{"d/", "d/f=f", "file=content", "link=content"}));
  _finddata_t entry;
  CHECK_EQUAL(files::findfirst(at("file").c_str(), &entry), 0);
  CHECK_EQUAL(entry.attrib, 1U);
  CHECK(snapshot(top) == before);
  take_messages();
}

void draw_old(scratch_tree const& tree) { tree.draw({"old/d/f=f", "old/file=content", "old/link -> file"}); }

lines cells(scratch_tree const& tree, std::string const& old) {
  lines row = {entry_types(old)};
  if (::access(old.c_str(), W_OK) != 0 && errno == EROFS) {
    write_file("made", "");
    check_read_only(old);
    row.insert(row.end(),
               {"as stored", "none", "none", "none", "none", "told apart", "read-only", "none", "no", "none"});
    return row;
  }
  for (char const* const directory : {"order", "names", "links", "case", "bytes"}) {
    ::mkdir(directory, 0755);
  }
  return {row[0],
          order(),
          step_of_times(),
          range_of_times(),
          longest_names(),
          links(),
          letter_case(),
          permissions(tree),
          bytes_of_names(),
          renaming(old + "/d"),
          removed_current_directory()};
}

} // namespace

int main(int count, char** arguments) {
  std::string const name = count > 1 ? arguments[1] : "the temporary directory";
  ::umask(022);
  std::string row = "| " + name;
  {
    scratch_tree const tree;
    faults::about const topic(name);
    std::filesystem::path const start = std::filesystem::current_path();
    std::filesystem::current_path(tree.root());
    if (count <= 2) {
      draw_old(tree);
    }
    for (std::string const& cell : cells(tree, count > 2 ? arguments[2] : "old")) {
      row += " | " + cell;
    }
    std::filesystem::current_path(start);
  }
  std::printf("%s |\n", row.c_str());
  std::fprintf(stderr, "differences: %ld checks, %ld wrong\n", faults::found_so_far().checks,
               faults::found_so_far().wrong);
  return faults::found_so_far().wrong == 0 ? 0 : 1;
}
