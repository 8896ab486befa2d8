// Two file systems, and a stack of them: a rename stays on one.

#include <cerrno>
#include <string>

#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_path.h"
#include "tests/faults/case.h"
#include "tests/faults/cases.h"
#include "tests/faults/namespaces.h"
#include "tests/faults/trees.h"

using namespace faults;

namespace {

// Every form of a rename is refused as one across devices, and changes nothing on either side.
void check_refused(std::string const& from, std::string const& to) {
  about const topic(from + " to " + to);
  lines const before = snapshot(".");
  errno = 0;
  CHECK(!FIO_FILE_SYSTEM::posix_rename(from.c_str(), to.c_str()));
  CHECK_EQUAL(errno, EXDEV);
  errno = 0;
  CHECK(!FIO_FILE_SYSTEM::rename(from.c_str(), to.c_str()));
  CHECK_EQUAL(errno, EXDEV);
  errno = 0;
  CHECK(!FIO_FILE_SYSTEM::rename(from, to));
  CHECK_EQUAL(errno, EXDEV);
  errno = 0;
  CHECK(!FIO_FILE_SYSTEM::rename(FIO_PATH(from), FIO_PATH(to)));
  CHECK_EQUAL(errno, EXDEV);
  CHECK_EQUAL(snapshot("."), before);
}

// Stacks a writable directory on one that stays as it is.
void mount_overlay(scratch_tree const& tree) {
  tree.draw({"lower/dir/f=lower", "lower/dir/sub/g=lower", "lower/file=lower", "layers/", "merged/"});
  mount_memory(tree.path("layers"), "mode=755");
  tree.draw({"layers/upper/", "layers/scratch/"});
  std::string const options = "lowerdir=" + tree.path("lower") + ",upperdir=" + tree.path("layers/upper") +
                              ",workdir=" + tree.path("layers/scratch");
  try {
    mount_over(tree.path("merged"), "overlay", "overlay", options + ",redirect_dir=off");
  } catch (skipped const&) {
    // In a user namespace of its own, an overlay keeps its notes as an ordinary user does, and never redirects.
    mount_over(tree.path("merged"), "overlay", "overlay", options + ",userxattr");
  }
}

} // namespace

void renaming_across_devices(scratch_tree const& tree) {
  tree.draw({"here/f=here", "here/d/g=g", "here/hollow/", "there/"});
  mount_memory(tree.path("there"), "mode=755");
  tree.draw({"there/f=there", "there/hollow/"});
  check_refused("here/f", "there/new");
  check_refused("here/f", "there/f");
  check_refused("there/f", "here/f");
  check_refused("here/d", "there/d");
  check_refused("here/hollow", "there/hollow");

  // What copies is at home on both.
  set_times("here/f", 1000);
  CHECK(FIO_FILE_SYSTEM::move("here/f", "there/f", false, false));
  CHECK_EQUAL(content_of("there/f"), "there"); // lost, as told
  tree.draw({"here/f=here"});
  set_times("here/f", 1000);
  CHECK(FIO_FILE_SYSTEM::move("here/f", "there/f", true, true));
  CHECK_EQUAL(content_of("there/f"), "here");
  CHECK_EQUAL(modified_at("there/f"), 1000);
  CHECK(!stands("here/f"));
  CHECK(FIO_FILE_SYSTEM::copy_dir("here", "there/copy", false, true));
  CHECK_EQUAL(drawing("there/copy"), drawing("here"));
  CHECK(FIO_FILE_SYSTEM::rename("there/copy", "there/renamed"));

  // A removal walks into the other device, whose own top is in use.
  CHECK(!FIO_FILE_SYSTEM::remove_recursively("there", nullptr, nullptr));
  CHECK_EQUAL(errno, EBUSY);
  CHECK_EQUAL(drawing("there"), lines{});
}

void renaming_across_mounts_of_one_device(scratch_tree const& tree) {
  tree.draw({"here/f=f", "here/d/", "again/"});
  mount_again(tree.path("here"), tree.path("again"));
  check_refused("here/f", "again/g");
  check_refused("again/d", "here/e");
  // The same file under two names: there is nothing to copy.
  CHECK(FIO_FILE_SYSTEM::copy("here/f", "again/f", false, false));
  CHECK_EQUAL(content_of("here/f"), "f");
  CHECK(FIO_FILE_SYSTEM::rename("again/f", "again/g"));
  CHECK_EQUAL(drawing("here"), (lines{"d/", "g=f"}));
}

void renaming_on_an_overlay(scratch_tree const& tree) {
  mount_overlay(tree);
  check_refused("merged/dir", "merged/renamed");
  check_refused("merged/dir/sub", "merged/sub");
  CHECK(FIO_FILE_SYSTEM::rename("merged/file", "merged/renamed"));
  CHECK(FIO_FILE_SYSTEM::create("merged/new/sub"));
  CHECK(FIO_FILE_SYSTEM::rename("merged/new", "merged/other"));
  CHECK(FIO_FILE_SYSTEM::move("merged/dir/f", "merged/other/f", false, true));
  CHECK_EQUAL(drawing("merged"),
              (lines{"dir/", "dir/sub/", "dir/sub/g=lower", "other/", "other/f=lower", "other/sub/", "renamed=lower"}));
  CHECK_EQUAL(drawing("lower"), (lines{"dir/", "dir/f=lower", "dir/sub/", "dir/sub/g=lower", "file=lower"}));
}

void removing_on_an_overlay(scratch_tree const& tree) {
  mount_overlay(tree);
  lines const lower = snapshot("lower");
  tree.draw({"merged/dir/h=upper", "merged/dir/f=upper"});
  CHECK(FIO_FILE_SYSTEM::copy_dir("merged", "copy", false, false));
  CHECK_EQUAL(drawing("copy"), drawing("merged"));
  CHECK(FIO_FILE_SYSTEM::remove_recursively("merged/dir", nullptr, nullptr));
  CHECK(!FIO_FILE_SYSTEM::exists("merged/dir"));
  CHECK_EQUAL(drawing("merged"), lines{"file=lower"});
  CHECK(FIO_FILE_SYSTEM::create("merged/dir/sub"));
  CHECK_EQUAL(drawing("merged/dir"), lines{"sub/"}); // nothing shines through
  CHECK_EQUAL(snapshot("lower"), lower);
}
