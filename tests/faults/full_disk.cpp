// A disk of sixteen pages, and more than sixteen pages to be written.

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <initializer_list>
#include <string>

#include "ccl/fio/fio_file_sys.h"
#include "tests/faults/case.h"
#include "tests/faults/cases.h"
#include "tests/faults/namespaces.h"
#include "tests/faults/trees.h"

using namespace faults;

namespace {

constexpr std::size_t page = 4096;
constexpr std::size_t capacity = 16 * page;

void make_disk(scratch_tree const& tree) {
  tree.make_directory("disk");
  mount_memory(tree.path("disk"), "size=64k,nr_inodes=1000,huge=never,mode=755");
}

// Leaves exactly this much room on the disk.
void fill_but_for(std::size_t room) { write_file("disk/filler", patterned(capacity - room)); }

// How many files of a directory are whole, with this content, and how many of the others are empty.
struct tally {
  int whole = 0;
  int empty = 0;
  int other = 0;
};

tally counted(std::string const& directory, std::string const& content) {
  tally found;
  for (auto const& entry : std::filesystem::recursive_directory_iterator(directory)) {
    if (entry.is_regular_file()) {
      std::string const there = content_of(entry.path().string());
      ++(there == content ? found.whole : there.empty() ? found.empty : found.other);
    }
  }
  return found;
}

} // namespace

void copies_to_a_full_disk(scratch_tree const& tree) {
  make_disk(tree);
  for (std::size_t const size : {std::size_t{0}, std::size_t{1}, page - 1, page, page + 1, capacity - 1, capacity,
                                 capacity + 1, capacity + 100, capacity + page - 1, capacity + page, 3 * capacity}) {
    about const topic("a copy of " + std::to_string(size) + " bytes");
    std::string const content = patterned(size);
    write_file("source", content);
    for (bool const by_move : {false, true}) {
      bool const told = by_move ? FIO_FILE_SYSTEM::move("source", "disk/target", false, false)
                                : FIO_FILE_SYSTEM::copy("source", "disk/target", false, false);
      CHECK_EQUAL(told, size <= capacity);
      // What fits stays, and a source that was not copied as a whole is not removed.
      CHECK(content_of("disk/target") == content.substr(0, capacity));
      CHECK_EQUAL(stands("source"), !by_move || size > capacity);
      ::unlink("disk/target");
    }
  }
}

void targets_on_a_full_disk(scratch_tree const& tree) {
  make_disk(tree);
  fill_but_for(page);
  std::string const old(page, 'o');
  std::string const content = patterned(2 * page);
  write_file("source", content);
  set_times("source", 1000);
  write_file("disk/target", old);

  // What is not to be overwritten is a success that needs no room, and its times change.
  CHECK(FIO_FILE_SYSTEM::copy("source", "disk/target", false, false));
  CHECK(modified_at("disk/target") != 1000);
  CHECK(FIO_FILE_SYSTEM::copy("source", "disk/target", false, true));
  CHECK_EQUAL(modified_at("disk/target"), 1000);
  CHECK(content_of("disk/target") == old);

  // A new file has no room at all, and no times of the source.
  CHECK(!FIO_FILE_SYSTEM::copy("source", "disk/new", false, true));
  CHECK(stands("disk/new"));
  CHECK_EQUAL(content_of("disk/new"), "");
  CHECK(modified_at("disk/new") != 1000);

  // An overwritten one makes room for half of its successor.
  CHECK(!FIO_FILE_SYSTEM::copy("source", "disk/target", true, true));
  CHECK(content_of("disk/target") == content.substr(0, page));
  CHECK(modified_at("disk/target") != 1000);
  CHECK(!FIO_FILE_SYSTEM::move("source", "disk/target", true, true));
  CHECK(content_of("source") == content);
  CHECK_EQUAL(modified_at("source"), 1000);

  // The disk serves again when there is room.
  CHECK(FIO_FILE_SYSTEM::remove("disk/filler"));
  CHECK(FIO_FILE_SYSTEM::move("source", "disk/target", true, true));
  CHECK(content_of("disk/target") == content);
  CHECK_EQUAL(modified_at("disk/target"), 1000);
  CHECK(!stands("source"));
}

void many_files_to_a_full_disk(scratch_tree const& tree) {
  make_disk(tree);
  // Four of five files have room; which ones is for the directory to say.
  std::string const content = patterned(4 * page);
  for (char const* const name : {"flat/1.v", "flat/2.v", "flat/3.v", "flat/4.v", "flat/5.v"}) {
    tree.make_file(name, content);
  }
  for (char const* const name : {"deep/1.v", "deep/a/2.v", "deep/a/b/3.v", "deep/c/4.v", "deep/d/5.v"}) {
    tree.make_file(name, content);
  }
  lines const before = snapshot("flat");
  lines const deep_before = snapshot("deep");
  for (int const kind : {0, 1, 2}) {
    about const topic("kind " + std::to_string(kind));
    bool const told = kind == 0   ? FIO_FILE_SYSTEM::copy_files("flat/*.v", "disk/out", false, false)
                      : kind == 1 ? FIO_FILE_SYSTEM::copy_dir("flat", "disk/out", true, false)
                                  : FIO_FILE_SYSTEM::copy_dir("deep", "disk/out", false, true);
    CHECK(!told);
    tally const found = counted("disk/out", content);
    CHECK_EQUAL(found.whole, 4);
    CHECK_EQUAL(found.empty, 1);
    CHECK_EQUAL(found.other, 0);
    CHECK(FIO_FILE_SYSTEM::remove_recursively("disk/out", nullptr, nullptr));
  }
  CHECK_EQUAL(snapshot("flat"), before);
  CHECK_EQUAL(snapshot("deep"), deep_before);
  CHECK_EQUAL(drawing("disk"), lines{});
}

void other_work_on_a_full_disk(scratch_tree const& tree) {
  make_disk(tree);
  tree.draw({"disk/.korvane.1.tmp=old", "disk/b"});
  set_times("disk/.korvane.1.tmp", 1000);
  fill_but_for(page); // the temporary file has the last page
  // Here directories and empty files take inodes only.
  CHECK(FIO_FILE_SYSTEM::create("disk/new/sub"));
  CHECK(stands("disk/new/sub"));
  CHECK(FIO_FILE_SYSTEM::touch("disk/new/file"));
  CHECK_EQUAL(content_of("disk/new/file"), "");
  CHECK_EQUAL(take_messages(), lines{});

  std::string const name = FIO_FILE_SYSTEM::get_tmp_path("disk/");
  CHECK(!stands(name));
  int const descriptor = FIO_FILE_SYSTEM::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0666);
  CHECK(descriptor >= 0);
  CHECK_EQUAL(::write(descriptor, "x", 1), -1);
  CHECK_EQUAL(errno, ENOSPC);
  ::close(descriptor);
  std::FILE* const stream = FIO_FILE_SYSTEM::fopen(name.c_str(), "a");
  CHECK(std::fputs("x", stream) >= 0);
  CHECK_EQUAL(std::fclose(stream), EOF);

  CHECK(FIO_FILE_SYSTEM::rename("disk/b", "disk/new/c"));
  // The probe that tells the time is an empty file, so that old files can go even now. That makes room.
  CHECK(FIO_FILE_SYSTEM::remove_temp_files("disk/", 0, nullptr));
  CHECK(!stands("disk/.korvane.1.tmp"));
  tree.make_file("source", patterned(page));
  CHECK(FIO_FILE_SYSTEM::copy("source", "disk/fits", false, false));
  CHECK(content_of("disk/fits") == patterned(page));
}
