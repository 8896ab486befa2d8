// A source that shrinks, goes or cannot be read while it is copied.

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string>

#include "ccl/fio/fio_file_sys.h"
#include "tests/faults/case.h"
#include "tests/faults/cases.h"
#include "tests/faults/trees.h"
#include "tests/support/platform_double.h"

using namespace faults;

namespace {

// Lets something happen when the target is opened: behind all questions about the source, and before the first byte.
void when_target_opens(std::function<void()> const& event) {
  platform_double::replaced().osi_fopen = [event](char const* path, char const* mode) {
    if (std::strcmp(mode, "wb") == 0) {
      event();
    }
    return std::fopen(path, mode);
  };
}

} // namespace

void source_that_changes_during_a_copy(scratch_tree const& /*tree*/) {
  std::string const content = patterned(50000);
  for (long const size : {0L, 1L, 4095L, 4096L, 4097L, 49999L, 50000L}) {
    about const topic("shrinks to " + std::to_string(size));
    write_file("source", content);
    when_target_opens([size] { CHECK_EQUAL(::truncate("source", size), 0); });
    // What is left then is all there is.
    CHECK(FIO_FILE_SYSTEM::copy("source", "target", true, true));
    CHECK(content_of("target") == content.substr(0, static_cast<std::size_t>(size)));
  }
  write_file("source", content);
  when_target_opens([] { CHECK_EQUAL(::unlink("source"), 0); });
  CHECK(FIO_FILE_SYSTEM::copy("source", "target", true, false));
  CHECK(content_of("target") == content);
  // Its times cannot be told any more, and it cannot be removed once more; the copy stays.
  for (bool const preserve_time : {false, true}) {
    write_file("source", content);
    CHECK(!FIO_FILE_SYSTEM::move("source", "target", true, preserve_time));
    CHECK(content_of("target") == content);
  }
  // The target may be replaced meanwhile: what was opened is no longer what stands there.
  write_file("source", content);
  platform_double::replaced().osi_fopen = [](char const* path, char const* mode) {
    std::FILE* const stream = std::fopen(path, mode);
    if (std::strcmp(mode, "wb") == 0) {
      CHECK_EQUAL(::unlink(path), 0);
      write_file(path, "other");
    }
    return stream;
  };
  CHECK(FIO_FILE_SYSTEM::copy("source", "target", true, false));
  CHECK_EQUAL(content_of("target"), "other");
}

void source_that_shrinks_in_a_race(scratch_tree const& /*tree*/) {
  int const rounds = full() ? 500 : 40;
  std::string const content = patterned(4000000);
  for (int round = 0; round != rounds; ++round) {
    about const topic("round " + std::to_string(round));
    write_file("source", content);
    pid_t const other = ::fork();
    if (other == 0) {
      for (long size = 4000000; size >= 0; size -= 100000) {
        if (::truncate("source", size) != 0) {
          ::_exit(1);
        }
      }
      ::_exit(0);
    }
    // Never an error: the copy ends where the source ends when that is reached.
    CHECK(FIO_FILE_SYSTEM::copy("source", "target", true, false));
    ::waitpid(other, nullptr, 0);
    std::string const copied = content_of("target");
    CHECK(content.compare(0, copied.size(), copied) == 0);
    CHECK_EQUAL(content_of("source"), "");
  }
}

void source_that_cannot_be_read(scratch_tree const& tree) {
  tree.draw({"dir/f", "target=old"});
  // A directory can be opened, and no byte read from it; the target is made, or emptied, before that shows.
  CHECK(!FIO_FILE_SYSTEM::copy("dir", "new", false, true));
  CHECK_EQUAL(content_of("new"), "");
  CHECK(stands("new"));
  CHECK(FIO_FILE_SYSTEM::copy("dir", "target", false, false));
  CHECK_EQUAL(content_of("target"), "old");
  CHECK(!FIO_FILE_SYSTEM::copy("dir", "target", true, false));
  CHECK_EQUAL(content_of("target"), "");
  // The memory of a process has no byte at its start.
  CHECK(!FIO_FILE_SYSTEM::copy("/proc/self/mem", "target", true, false));
  CHECK_EQUAL(content_of("target"), "");
  CHECK_EQUAL(drawing("."), (lines{"dir/", "dir/f", "new", "target"}));
}
