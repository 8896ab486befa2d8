// A directory of very many names. A walk takes as much memory for ten times the names, and ten times the calls.

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>
#include <vector>

#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_iterator.h"
#include "tests/faults/allocation_meter.h"
#include "tests/faults/case.h"
#include "tests/faults/cases.h"
#include "tests/faults/namespaces.h"
#include "tests/faults/trees.h"
#include "tests/support/platform_double.h"

using namespace faults;

namespace {

// Names of one length, so that each takes as much memory as any other.
std::string numbered(long number) {
  char name[16];
  std::snprintf(name, sizeof name, "n%07ld", number);
  return name;
}

// The names are links to one file: that is quick, and the system has memory for them.
void make_names(std::string const& directory, long count) {
  CHECK_EQUAL(::mkdir(directory.c_str(), 0755), 0);
  write_file("file", "");
  long made = 0;
  for (; made != count && ::link("file", (directory + '/' + numbered(made)).c_str()) == 0; ++made) {
  }
  CHECK_EQUAL(made, count);
  ::unlink("file");
}

// How much more of it a walk may take, in KiB.
#ifdef __SANITIZE_ADDRESS__
constexpr long resident_allowance = 512 * 1024; // what was released is kept for a while
#else
constexpr long resident_allowance = 1024;
#endif

// What one walk took.
struct costs {
  long entries = 0;
  long readdir = 0;
  long stat = 0;
  long remove = 0;
  long memory = 0;
  double seconds = 0;
};

// The most memory that the process ever had resident, in KiB.
long high_water() {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    if (line.compare(0, 6, "VmHWM:") == 0) {
      return std::strtol(line.c_str() + 6, nullptr, 10);
    }
  }
  return -1;
}

// Runs a walk with doubles that count the system's calls, and let them happen.
template <typename Walk>
costs cost_of(Walk walk) {
  costs found;
  platform_double::reset();
  platform_double::replacements& doubles = platform_double::replaced();
  doubles.readdir64 = [&found](DIR* stream) {
    ++found.readdir;
    return reinterpret_cast<dirent64*>(::readdir(stream));
  };
  doubles.stat = [&found](char const* path, struct stat* record) {
    ++found.stat;
    return ::fstatat(AT_FDCWD, path, record, 0);
  };
  doubles.remove = [&found](char const* path) {
    ++found.remove;
    return ::unlink(path) == 0 || (errno == EISDIR && ::rmdir(path) == 0) ? 0 : -1;
  };
  long const resident = high_water();
  std::clock_t const start = std::clock();
  allocation_meter::start();
  found.entries = walk();
  found.memory = allocation_meter::peak();
  found.seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  CHECK(high_water() - resident <= resident_allowance);
  platform_double::reset();
  return found;
}

// Notes that a name was delivered, and that this was its first time.
void mark(std::vector<bool>& seen, char const* name) {
  long const number = std::strtol(name + 1, nullptr, 10);
  auto const index = static_cast<std::size_t>(number);
  if (name[0] != 'n' || number < 0 || index >= seen.size() || seen[index]) {
    note_check(false, __FILE__, __LINE__, std::string("not made, or delivered twice: ") + name);
    return;
  }
  seen[index] = true;
}

long walk_by_handle(std::string const& directory, std::vector<bool>& seen) {
  long count = 0;
  _finddata_t entry;
  long const handle = FIO_FILE_SYSTEM::findfirst((directory + "/*").c_str(), &entry);
  do {
    ++count;
    if (entry.name[0] != '.') {
      mark(seen, entry.name);
    }
  } while (FIO_FILE_SYSTEM::findnext(handle, &entry) == 0);
  CHECK_EQUAL(FIO_FILE_SYSTEM::findclose(handle), 1);
  return count;
}

template <typename Iterator>
long walk_by_iterator(std::string const& directory, std::vector<bool>& seen) {
  long count = 0;
  for (FIO_DIRECTORY_ENTRY const& entry : Iterator(directory.c_str())) {
    ++count;
    mark(seen, entry.path.c_str() + directory.size() + 1);
  }
  return count;
}

// How a walk is done, and what it takes besides a read for each entry: a status of each, or one of the directory.
struct kind {
  char const* name;
  long (*walk)(std::string const& directory, std::vector<bool>& seen);
  long dot_entries;
  long status_for_each;
  long status;
};

kind const kinds[] = {
    {"findnext", walk_by_handle, 2, 1, 0},
    {"iterator", walk_by_iterator<FIO_DIRECTORY_ITERATOR>, 0, 0, 1},
    {"recursive iterator", walk_by_iterator<FIO_RECURSIVE_DIRECTORY_ITERATOR>, 0, 0, 1},
};

costs check_walk(kind const& one, std::string const& directory, long count) {
  about const topic(std::string(one.name) + " over " + std::to_string(count));
  std::vector<bool> seen(static_cast<std::size_t>(count));
  costs const found = cost_of([&] { return one.walk(directory, seen); });
  CHECK_EQUAL(found.entries, count + one.dot_entries);
  CHECK_EQUAL(found.readdir, count + 3); // two entries that every directory has, and the end
  CHECK_EQUAL(found.stat, one.status_for_each * (count + 2) + one.status);
  return found;
}

void add_figure(char const* name, costs const& few, costs const& many) {
  char text[80];
  std::snprintf(text, sizeof text, ", %s %.2f s (x%.1f)", name, many.seconds,
                few.seconds > 0 ? many.seconds / few.seconds : 0);
  found_so_far().figures += text;
}

long number_of_names() { return full() ? 1000000 : 100000; }

void make_disk(scratch_tree const& tree) {
  tree.make_directory("disk");
  mount_memory(tree.path("disk"), "nr_inodes=0,mode=755"); // as many names as there is memory for
  CHECK_EQUAL(::chdir("disk"), 0);
}

} // namespace

void walks_over_many_names(scratch_tree const& tree) {
  long const count = number_of_names();
  make_disk(tree);
  make_names("few_", count / 10);
  make_names("many", count);
  found_so_far().figures = "; " + std::to_string(count) + " names against a tenth";
  for (kind const& one : kinds) {
    costs const few = check_walk(one, "few_", count / 10);
    costs const many = check_walk(one, "many", count);
    about const topic(one.name);
    CHECK(many.memory > 0 && many.memory < 8192);
    CHECK_EQUAL(many.memory, few.memory);
    add_figure(one.name, few, many);
  }
  // One name is enough to tell that a directory is not empty.
  costs const found = cost_of([] { return FIO_FILE_SYSTEM::is_directory_empty("many") ? 1 : 0; });
  CHECK_EQUAL(found.entries, 0);
  CHECK(found.readdir <= 3);
  costs const sought = cost_of([] { return FIO_FILE_SYSTEM::remove_empty_subdirectories("many", true) ? 1 : 0; });
  CHECK_EQUAL(sought.entries, 0);
  CHECK_EQUAL(sought.remove, 0);
}

void removal_of_many_names(scratch_tree const& tree) {
  long const count = number_of_names();
  make_disk(tree);
  make_names("few_", count / 10);
  make_names("many", count);
  costs const few = cost_of([] { return FIO_FILE_SYSTEM::remove_recursively("few_", nullptr, nullptr) ? 1 : 0; });
  costs const many = cost_of([] { return FIO_FILE_SYSTEM::remove_recursively("many", nullptr, nullptr) ? 1 : 0; });
  CHECK_EQUAL(many.entries, 1);
  CHECK_EQUAL(many.remove, count + 1);
  CHECK_EQUAL(few.remove, count / 10 + 1);
  CHECK(many.memory > 0 && many.memory < 8192);
  CHECK_EQUAL(many.memory, few.memory);
  CHECK_EQUAL(drawing("."), lines{});
  add_figure("removal", few, many);
}
