// A disk that is mounted read-only while it is in use: all that would change it fails as told, and nothing changes.

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "ccl/fio/fio_errc.h"
#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_path.h"
#include "tests/faults/case.h"
#include "tests/faults/cases.h"
#include "tests/faults/namespaces.h"
#include "tests/faults/trees.h"

using namespace faults;
using files = FIO_FILE_SYSTEM;

namespace {

void make_disk(scratch_tree const& tree) {
  tree.make_directory("disk");
  mount_memory(tree.path("disk"), "mode=755");
  tree.draw({"disk/a.v=a", "disk/b.v=b", "disk/.korvane.1.tmp", "disk/full/f=f", "disk/hollow/", "other/a.v=new",
             "other/b.v=new", "more/a.v=new", "more/b.v=new", "more/c.v=new", "tree/hollow/", "file=new"});
  set_times("disk/.korvane.1.tmp", 1000);
  set_times("file", 1000);
}

// A row of work on the disk.
struct work {
  char const* text;
  bool holds;
};

#define WORK(condition)                                                                                                \
  work { #condition, condition }

bool refused(int answer) { return answer == -1 && errno == EROFS; }

bool refused_stream(std::FILE* stream) { return stream == nullptr && errno == EROFS; }

std::string words_of(std::unique_ptr<FIO_ERRC> const& error) {
  return error == nullptr ? std::string() : error->message().m_lines.at(0).m_text;
}

} // namespace

void read_only_disk(scratch_tree const& tree) {
  make_disk(tree);
  lines const before = snapshot("disk");
  make_read_only(tree.path("disk"));
  long const any_age = INT32_MAX;
  work const rows[] = {
      WORK(refused(files::mkdir("disk/new"))),
      WORK(refused(files::rmdir("disk/hollow"))),
      WORK(refused(files::open("disk/new", O_WRONLY | O_CREAT, 0666))),
      WORK(refused(files::open("disk/a.v", O_WRONLY, 0))),
      WORK(refused_stream(files::fopen("disk/new", "w"))),
      WORK(refused_stream(files::fopen("disk/a.v", "a"))),
      WORK(!files::chmod("disk/a.v", 0600)),
      WORK(!files::rename("disk/a.v", "disk/c.v")),
      WORK(!files::rename("disk/a.v", "disk/b.v")),
      WORK(!files::rename("disk/full", "disk/hollow")),
      WORK(!files::rename(FIO_PATH("disk/a.v"), FIO_PATH("disk/c.v"))),
      WORK(!files::remove("disk/a.v")),
      WORK(!files::remove("disk/hollow")),
      WORK(!files::native_remove("disk/a.v")),
      WORK(!files::posix_remove("disk/a.v")),
      WORK(!files::unc_native_remove("disk/a.v")),
      WORK(!files::remove_if_exists("disk/a.v")),
      WORK(files::remove_if_exists("disk/missing")),
      WORK(files::create("disk/hollow")),
      WORK(!files::touch("disk/a.v")),
      WORK(!files::touch("disk/new")),
      WORK(!files::remove_files("disk/a.v")),
      WORK(!files::remove_files("disk/*.v")),
      WORK(files::remove_files("disk/*.w")),
      WORK(!files::remove_recursively("disk/a.v", nullptr, nullptr)),
      WORK(!files::remove_recursively("disk/full", nullptr, nullptr)),
      WORK(!files::remove_recursively("disk/hollow", nullptr, nullptr)),
      WORK(!files::remove_recursively("disk/full", "*", &any_age)),
      WORK(files::remove_recursively("disk/full", "none", nullptr)),
      WORK(!files::remove_temp_files("disk/", 0, nullptr)),
      WORK(files::is_directory_empty("disk/hollow")),
      WORK(words_of(files::remove_empty_subdirectories("disk", true)) == "Failed to remove directory \"disk/hollow\"."),
      WORK(words_of(files::remove_empty_subdirectories("disk/hollow", false)).empty()),
  };
  for (work const& row : rows) {
    about const topic(row.text);
    CHECK(row.holds);
  }
  CHECK_EQUAL(take_messages(), lines{});
  CHECK(!files::create("disk/new/sub"));
  CHECK_EQUAL(take_messages(),
              (lines{"mkdir failed with: disk/new (errno: " + std::to_string(EROFS) + ')',
                     "is_directory (via status) failed with: disk/new (errno: " + std::to_string(ENOENT) + ')'}));
  CHECK_EQUAL(snapshot("disk"), before);
}

void copies_to_a_read_only_disk(scratch_tree const& tree) {
  make_disk(tree);
  lines const before = snapshot("disk");
  make_read_only(tree.path("disk"));
  work const rows[] = {
      WORK(!files::copy("file", "disk/new", true, false)),
      // A target that cannot be removed stays, and that is a success, until its times are to change.
      WORK(files::copy("file", "disk/a.v", true, false)),
      WORK(files::copy("file", "disk/a.v", false, false)),
      WORK(!files::copy("file", "disk/a.v", true, true)),
      WORK(!files::copy("file", "disk/a.v", false, true)),
      WORK(files::copy_files("other/*.v", "disk", true, false)),
      WORK(!files::copy_files("other/*.v", "disk", true, true)),
      WORK(!files::copy_files("more/*.v", "disk", true, false)),
      WORK(!files::copy_files("more/*.v", "disk/new", true, false)),
      WORK(files::copy_files("more/*.w", "disk", true, false)),
      WORK(files::copy_dir("other", "disk", true, false)),
      WORK(files::copy_dir("tree", "disk", true, false)),
      WORK(!files::copy_dir("more", "disk", true, false)),
      WORK(!files::copy_dir("other", "disk/new", true, false)),
      // The copy of a source that cannot be removed stays.
      WORK(!files::move("disk/a.v", "moved", true, false)),
      WORK(content_of("moved") == "a"),
      WORK(!files::move("file", "disk/new", true, false)),
      WORK(files::copy("disk/b.v", "copied", true, true)),
      WORK(files::copy_dir("disk", "all", true, false)),
  };
  for (work const& row : rows) {
    about const topic(row.text);
    CHECK(row.holds);
  }
  CHECK_EQUAL(content_of("file"), "new");
  CHECK_EQUAL(drawing("all"), drawing("disk"));
  CHECK_EQUAL(snapshot("disk"), before);
  // Reported as a success, the copy costs the source.
  CHECK(files::move("file", "disk/a.v", true, false));
  CHECK(!stands("file"));
  CHECK_EQUAL(snapshot("disk"), before);
}

void disk_that_becomes_read_only_during_a_walk(scratch_tree const& tree) {
  make_disk(tree);
  _finddata_t entry;
  long const handle = files::findfirst("disk/*", &entry);
  std::map<std::string, std::uint32_t> seen{{entry.name, entry.attrib}};
  std::string const first = entry.name;
  make_read_only(tree.path("disk"));
  while (files::findnext(handle, &entry) == 0) {
    seen.emplace(entry.name, entry.attrib);
  }
  CHECK_EQUAL(files::findclose(handle), 1);
  // Nobody may write now, whatever the modes say; directories do not tell.
  for (auto const& [name, is_directory] : std::map<std::string, bool>{{".", true},
                                                                      {"..", true},
                                                                      {"a.v", false},
                                                                      {"b.v", false},
                                                                      {".korvane.1.tmp", false},
                                                                      {"full", true},
                                                                      {"hollow", true}}) {
    about const topic(name);
    CHECK_EQUAL(seen.count(name), 1U);
    CHECK_EQUAL(seen[name], is_directory ? 0x10U : name == first ? 0U : 0x01U);
  }
  CHECK_EQUAL(seen.size(), 7U);
}
