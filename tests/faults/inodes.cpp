// A disk with room for content and none for another file.

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "ccl/fio/fio_file_sys.h"
#include "tests/faults/case.h"
#include "tests/faults/cases.h"
#include "tests/faults/namespaces.h"
#include "tests/faults/trees.h"

using namespace faults;

namespace {

void make_disk(scratch_tree const& tree) {
  tree.make_directory("disk");
  mount_memory(tree.path("disk"), "size=1m,nr_inodes=40,mode=755");
}

// Takes all inodes of the disk but this many.
void leave_inodes(int count) {
  ::mkdir("disk/taken", 0755);
  int taken = 0;
  for (;; ++taken) {
    int const descriptor = ::open(("disk/taken/" + std::to_string(taken)).c_str(), O_WRONLY | O_CREAT, 0644);
    if (descriptor == -1) {
      CHECK_EQUAL(errno, ENOSPC);
      break;
    }
    ::close(descriptor);
  }
  for (int i = 0; i != count; ++i) {
    ::unlink(("disk/taken/" + std::to_string(--taken)).c_str());
  }
}

// What is told of a directory that could not be made for lack of inodes.
lines not_made(std::string const& path) {
  return {"mkdir failed with: " + path + " (errno: " + std::to_string(ENOSPC) + ')',
          "is_directory (via status) failed with: " + path + " (errno: " + std::to_string(ENOENT) + ')'};
}

} // namespace

void no_inode_left(scratch_tree const& tree) {
  make_disk(tree);
  tree.draw({"source=content", "two/a=1", "two/b=2", "disk/old=old", "disk/d/"});
  leave_inodes(0);
  lines const before = snapshot("disk");

  CHECK(!FIO_FILE_SYSTEM::create("disk/new/sub"));
  CHECK_EQUAL(take_messages(), not_made("disk/new"));
  CHECK_EQUAL(FIO_FILE_SYSTEM::mkdir("disk/new"), -1);
  CHECK_EQUAL(errno, ENOSPC);
  CHECK(!FIO_FILE_SYSTEM::touch("disk/new"));
  CHECK_EQUAL(FIO_FILE_SYSTEM::open("disk/new", O_WRONLY | O_CREAT, 0666), -1);
  CHECK_EQUAL(errno, ENOSPC);
  CHECK(FIO_FILE_SYSTEM::fopen("disk/new", "w") == nullptr);
  CHECK(!FIO_FILE_SYSTEM::copy("source", "disk/new", true, true));
  CHECK(!FIO_FILE_SYSTEM::move("source", "disk/new", true, true));
  CHECK(!FIO_FILE_SYSTEM::copy_files("two/*", "disk/d", true, false));
  CHECK_EQUAL(take_messages(), lines{});
  CHECK(!FIO_FILE_SYSTEM::copy_files("two/*", "disk/new", true, true));
  CHECK_EQUAL(take_messages(), not_made("disk/new"));
  CHECK(!FIO_FILE_SYSTEM::copy_dir("two", "disk/d", true, true));
  CHECK(!FIO_FILE_SYSTEM::copy_dir("two", "disk/new", true, true));
  CHECK_EQUAL(take_messages(), not_made("disk/new"));
  CHECK_EQUAL(snapshot("disk"), before);

  // What is there serves as ever: its directory, its content, its name.
  CHECK(FIO_FILE_SYSTEM::create("disk/d"));
  CHECK(FIO_FILE_SYSTEM::touch("disk/old"));
  CHECK(FIO_FILE_SYSTEM::rename("disk/old", "disk/d/renamed"));
  // An overwritten file gives its inode to its successor.
  CHECK(FIO_FILE_SYSTEM::move("source", "disk/d/renamed", true, false));
  CHECK_EQUAL(content_of("disk/d/renamed"), "content");
  CHECK(FIO_FILE_SYSTEM::remove("disk/d/renamed"));
  CHECK(FIO_FILE_SYSTEM::create("disk/new"));
  CHECK_EQUAL(drawing("two"), (lines{"a=1", "b=2"}));
}

void few_inodes_left(scratch_tree const& tree) {
  make_disk(tree);
  tree.draw({"five/1=x", "five/2=x", "five/3=x", "five/4=x", "five/5=x"});
  leave_inodes(2);
  CHECK(!FIO_FILE_SYSTEM::create("disk/a/b/c/d"));
  CHECK_EQUAL(take_messages(), not_made("disk/a/b/c"));
  CHECK_EQUAL(drawing("disk/a"), lines{"b/"});
  CHECK(FIO_FILE_SYSTEM::remove_recursively("disk/a", nullptr, nullptr));

  // The directory itself takes one of four.
  leave_inodes(2);
  CHECK(!FIO_FILE_SYSTEM::touch("disk/a/b/file"));
  CHECK_EQUAL(drawing("disk/a"), lines{"b/"});
  CHECK(FIO_FILE_SYSTEM::remove_recursively("disk/a", nullptr, nullptr));
  CHECK(FIO_FILE_SYSTEM::touch("disk/a/file"));
  CHECK(FIO_FILE_SYSTEM::remove_recursively("disk/a", nullptr, nullptr));

  leave_inodes(4);
  CHECK(!FIO_FILE_SYSTEM::copy_dir("five", "disk/out", false, true));
  CHECK_EQUAL(drawing("disk/out").size(), 3U);
  CHECK(FIO_FILE_SYSTEM::remove_recursively("disk/out", nullptr, nullptr));
  CHECK(!FIO_FILE_SYSTEM::copy_files("five/*", "disk/out", false, true));
  CHECK(drawing("disk/out").size() <= 3); // "." may come first, and ends the work
  CHECK(FIO_FILE_SYSTEM::remove_recursively("disk/out", nullptr, nullptr));
  CHECK_EQUAL(drawing("five"), (lines{"1=x", "2=x", "3=x", "4=x", "5=x"}));
}

void temporary_files_without_an_inode_left(scratch_tree const& tree) {
  make_disk(tree);
  tree.draw({"disk/.korvane.1.tmp"});
  set_times("disk/.korvane.1.tmp", 1000);
  leave_inodes(0);
  lines const before = snapshot("disk");
  // A name is found, and nothing tells the time.
  std::string const name = FIO_FILE_SYSTEM::get_tmp_path("disk/file");
  CHECK_EQUAL(name.compare(0, 14, "disk/.korvane."), 0);
  CHECK(!stands(name));
  CHECK(!FIO_FILE_SYSTEM::remove_temp_files("disk/", 0, nullptr));
  CHECK_EQUAL(snapshot("disk"), before);
  // A folder that lies on another disk is looked at from its parent.
  CHECK(FIO_FILE_SYSTEM::remove_temp_files("disk", 0, nullptr));
  CHECK(!stands("disk/.korvane.1.tmp"));
}
