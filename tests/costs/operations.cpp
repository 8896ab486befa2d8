// Each operation once, on names in a directory of its own, between two writes to no file: what a trace has between them
// are the system calls of the operation.

#include <ccl/fio/fio.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <list>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct operation {
  char const* group;
  char const* words;                 // as the table has it
  std::vector<char const*> existing; // files, and directories with a separator at the end
  std::function<void()> run;
};

// Marks a place in the trace. No descriptor has this number, so nothing is written.
void mark(char const* words) { static_cast<void>(!::write(-1, words, std::strlen(words))); }

template <typename Iterator>
void iterate(char const* directory) {
  for (FIO_DIRECTORY_ENTRY const& entry : Iterator(directory)) {
    static_cast<void>(entry);
  }
}

void scan(char const* filespec) {
  _finddata_t entry;
  long const handle = FIO_FILE_SYSTEM::findfirst(filespec, &entry);
  while (FIO_FILE_SYSTEM::findnext(handle, &entry) == 0) {
  }
  FIO_FILE_SYSTEM::findclose(handle);
}

void find_all_in(char const* search_path) {
  std::list<FIO_PATH> matches;
  FIO_FIND(search_path, false).find_all("top", {"v", "sv"}, &matches, false, false);
}

template <typename... Arguments>
void ignore(Arguments const&... /*results*/) {}

using files = FIO_FILE_SYSTEM;

std::vector<operation> const operations = {
    {"Paths", "`FIO_PATH(string)`, reading and editing", {}, [] { FIO_PATH("a/b.c").filename("d.e").cd("../x"); }},
    {"Paths", "`become_absolute(\"/x\")`", {}, [] { FIO_PATH("a/b").become_absolute("/x"); }},
    {"Paths", "`become_absolute(\"\")`", {}, [] { FIO_PATH("a/b").become_absolute(""); }},
    {"Paths", "`a == b`, different file names", {}, [] { ignore(FIO_PATH("/a/b") == FIO_PATH("/a/c")); }},
    {"Paths", "`a == b`, the same file name", {}, [] { ignore(FIO_PATH("/a/b") == FIO_PATH("/x/b")); }},
    {"Paths", "`a < b`", {}, [] { ignore(FIO_PATH("/a/b") < FIO_PATH("/a/c")); }},
    {"Paths", "`canonical(\"/etc/passwd\")`", {}, [] { ignore(FIO_PATH::canonical("/etc/passwd")); }},

    {"Status", "`exists(\"a\")`", {"a"}, [] { ignore(files::exists("a")); }},
    {"Status", "`exists(\"a\")`, missing", {}, [] { ignore(files::exists("a")); }},
    {"Status", "`exists(\"d/*.v\")`", {"d/a.v"}, [] { ignore(files::exists("d/*.v")); }},
    {"Status", "`is_directory(\"d\")`", {"d/"}, [] { ignore(files::is_directory("d")); }},
    {"Status", "`is_directory_empty(\"d\")`", {"d/"}, [] { ignore(files::is_directory_empty("d")); }},

    {"Opening, renaming and removing",
     "`open(\"a\", ...)` with `O_CREAT` and `O_EXCL`",
     {},
     [] { ::close(files::open("a", O_CREAT | O_EXCL | O_WRONLY, 0666)); }},
    {"Opening, renaming and removing", "`rename(\"a\", \"b\")`", {"a", "b"}, [] { files::rename("a", "b"); }},
    {"Opening, renaming and removing", "`remove(\"a\")`", {"a"}, [] { files::remove("a"); }},
    {"Opening, renaming and removing", "`remove(\"d\")`, a directory", {"d/"}, [] { files::remove("d"); }},
    {"Opening, renaming and removing", "`remove_if_exists(\"a\")`", {"a"}, [] { files::remove_if_exists("a"); }},

    {"Creating and copying", "`create(\"d/e\")`", {}, [] { files::create("d/e"); }},
    {"Creating and copying", "`create(\"d/e\")`, existing", {"d/e/"}, [] { files::create("d/e"); }},
    {"Creating and copying", "`touch(\"d/a\")`", {"d/"}, [] { files::touch("d/a"); }},
    {"Creating and copying", "`copy(\"a\", \"b\", false, false)`", {"a"}, [] { files::copy("a", "b", false, false); }},
    {"Creating and copying",
     "`copy(\"a\", \"b\", true, true)`, both existing",
     {"a", "b"},
     [] { files::copy("a", "b", true, true); }},
    {"Creating and copying",
     "`copy(\"a\", \"b\", false, false)`, both existing",
     {"a", "b"},
     [] { files::copy("a", "b", false, false); }},
    {"Creating and copying", "`move(\"a\", \"b\", false, false)`", {"a"}, [] { files::move("a", "b", false, false); }},
    {"Creating and copying",
     "`copy_files(\"d/*.v\", \"e\", false, false)`, one match",
     {"d/a.v", "e/"},
     [] { files::copy_files("d/*.v", "e", false, false); }},
    {"Creating and copying",
     "`copy_dir(\"d\", \"e\", false, false)`, one file",
     {"d/a"},
     [] { files::copy_dir("d", "e", false, false); }},

    {"Temporary files", "`get_tmp_path(\"./\")`", {}, [] { ignore(files::get_tmp_path("./")); }},
    {"Temporary files",
     "`remove_temp_files(\"./\", 60, nullptr)`, nothing to remove",
     {},
     [] { files::remove_temp_files("./", 60, nullptr); }},

    {"Removing in bulk", "`remove_files(\"d/*.v\")`, one match", {"d/a.v"}, [] { files::remove_files("d/*.v"); }},
    {"Removing in bulk",
     "`remove_recursively(\"d\", nullptr, nullptr)`, one file",
     {"d/a"},
     [] { files::remove_recursively("d", nullptr, nullptr); }},
    {"Removing in bulk",
     "`remove_empty_subdirectories(\"d\", false)`, one of them",
     {"d/e/"},
     [] { files::remove_empty_subdirectories("d", false); }},

    {"Iterating", "`findfirst` and `findnext` over `d/*`, one file", {"d/a"}, [] { scan("d/*"); }},
    {"Iterating", "`findfirst` and `findnext` over `d/*.v`, one of two files", {"d/a.v", "d/b"}, [] { scan("d/*.v"); }},
    {"Iterating",
     "`FIO_DIRECTORY_ITERATOR(\"d\")`, two files",
     {"d/a", "d/b"},
     [] { iterate<FIO_DIRECTORY_ITERATOR>("d"); }},
    {"Iterating",
     "`FIO_RECURSIVE_DIRECTORY_ITERATOR(\"d\")`, a file in a subdirectory",
     {"d/e/a"},
     [] { iterate<FIO_RECURSIVE_DIRECTORY_ITERATOR>("d"); }},

    {"Searching", "`FIO_FIND(\"d;e\", false)`", {"d/", "e/"}, [] { FIO_FIND("d;e", false); }},
    {"Searching", "`FIO_FIND(\"d\", true)`, a file in a subdirectory", {"d/e/a"}, [] { FIO_FIND("d", true); }},
    {"Searching",
     "`find(\"a\")` over `d;e;`, in none",
     {"d/", "e/"},
     [] { ignore(FIO_FIND("d;e;", false).find("a")); }},
    {"Searching",
     "`find_first(\"a\")` over `d;e`, in the second",
     {"d/", "e/a"},
     [] { ignore(FIO_FIND("d;e", false).find_first("a")); }},
    {"Searching",
     "`find_first(\"a\")` over `d;e`, no directory `d`, in none",
     {"e/"},
     [] { ignore(FIO_FIND("d;e", false).find_first("a")); }},
    {"Searching",
     "`find_first_relative_path(\"s/a\")` over `d;e`, in the second",
     {"d/", "e/s/a"},
     [] { ignore(FIO_FIND("d;e", false).find_first_relative_path("s/a")); }},
    {"Searching",
     "`find_all(\"top\", {\"v\", \"sv\"}, ...)` over `d;e`, one in each",
     {"d/top.v", "e/top.sv"},
     [] { find_all_in("d;e"); }},

    {"The vocabulary",
     "every query",
     {},
     [] { ignore(fio_get_file_type("a.v"), fio_get_file_type_filter(FIO_FILE_TYPE_VHDL_FILE, false)); }},
};

} // namespace

// In the directory that the argument names, which is empty.
int main(int count, char** arguments) {
  if (count != 2) {
    std::fprintf(stderr, "usage: %s DIRECTORY\n", arguments[0]);
    return 2;
  }
  fs::path const top = arguments[1];
  for (std::size_t i = 0; i != operations.size(); ++i) {
    fs::path const place = top / std::to_string(i);
    fs::create_directory(place);
    fs::current_path(place);
    for (char const* const name : operations[i].existing) {
      fs::path const path = place / name;
      fs::create_directories(path.parent_path());
      if (path.has_filename()) {
        std::ofstream(path) << "text\n";
      }
    }
    mark(operations[i].group);
    mark(operations[i].words);
    operations[i].run();
    mark("");
  }
}
