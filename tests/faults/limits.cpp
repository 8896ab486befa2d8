// Limits of the process: the size of its files, and the number of its descriptors.

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "ccl/fio/fio_errc.h"
#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_iterator.h"
#include "tests/faults/case.h"
#include "tests/faults/cases.h"
#include "tests/faults/trees.h"

using namespace faults;
using files = FIO_FILE_SYSTEM;

namespace {

// Leaves this many descriptors to the process while it lives.
class descriptors_left {
public:
  explicit descriptors_left(int count) {
    for (int taken = ::open("/", O_RDONLY | O_CLOEXEC); taken != -1; taken = ::open("/", O_RDONLY | O_CLOEXEC)) {
      m_taken.push_back(taken);
    }
    CHECK_EQUAL(errno, EMFILE);
    for (; count != 0; --count) {
      give_back();
    }
  }
  ~descriptors_left() {
    while (!m_taken.empty()) {
      give_back();
    }
  }
  descriptors_left(descriptors_left const&) = delete;
  descriptors_left& operator=(descriptors_left const&) = delete;

private:
  void give_back() {
    ::close(m_taken.back());
    m_taken.pop_back();
  }

  std::vector<int> m_taken;
};

// A sanitizer takes descriptors for its first look at an object of a class: it is to have had it before they run out.
void look_at_all_classes() {
  CHECK(FIO_DIRECTORY_ITERATOR("dir") != FIO_DIRECTORY_ITERATOR());
  CHECK(!iterated<FIO_RECURSIVE_DIRECTORY_ITERATOR>("dir").empty());
  CHECK(files::remove_empty_subdirectories("source", true) != nullptr);
}

std::string words_of(std::unique_ptr<FIO_ERRC> const& error) {
  return error == nullptr ? std::string() : error->message().m_lines.at(0).m_text;
}

} // namespace

void files_of_limited_size(scratch_tree const& tree) {
  std::string const content = patterned(20000);
  tree.make_file("source", content);
  tree.draw({"dir/small=small"});
  ::signal(SIGXFSZ, SIG_IGN); // so that the write fails instead
  for (rlim_t const limit : {0UL, 1UL, 4096UL, 10000UL, 16384UL, 19999UL, 20000UL, 20001UL}) {
    about const topic(std::to_string(limit) + " bytes");
    rlimit const limits = {limit, RLIM_INFINITY};
    CHECK_EQUAL(::setrlimit(RLIMIT_FSIZE, &limits), 0);
    bool const fits = content.size() <= limit;
    CHECK_EQUAL(files::copy("source", "target", true, false), fits);
    CHECK(content_of("target") == content.substr(0, limit));
    CHECK_EQUAL(files::move("source", "dir/moved", true, false), fits);
    CHECK_EQUAL(stands("source"), !fits);
    if (fits) {
      CHECK(files::rename("dir/moved", "source"));
    }
    ::unlink("dir/moved");
    CHECK_EQUAL(files::copy_dir("dir", "out", true, false), limit >= 5);
    CHECK_EQUAL(content_of("out/small"), std::string("small").substr(0, limit));
  }
}

void no_descriptor_left(scratch_tree const& tree) {
  tree.draw({"source=content", "target=old", "dir/sub/f=f", "hollow/"});
  lines const before = snapshot(".");
  look_at_all_classes();
  std::unique_ptr<FIO_ERRC> error;
  {
    descriptors_left const none(0);
    _finddata_t entry;
    CHECK_EQUAL(files::open("source", O_RDONLY, 0), -1);
    CHECK(files::fopen("source", "r") == nullptr);
    CHECK(!files::copy("source", "new", true, true));
    CHECK(!files::copy("source", "target", true, true));
    CHECK(!files::move("source", "target", true, true));
    CHECK(!files::touch("./new"));
    CHECK_EQUAL(files::findfirst("dir/*", &entry), -1);
    CHECK_EQUAL(errno, EMFILE);
    CHECK(!files::exists("dir/*"));
    CHECK(FIO_DIRECTORY_ITERATOR("dir") == FIO_DIRECTORY_ITERATOR());
    CHECK(files::is_directory_empty("dir")); // as it cannot be read
    error = files::remove_empty_subdirectories("dir", true);
    CHECK(files::remove_files("dir/*"));
    CHECK(!files::remove_recursively("dir", nullptr, nullptr));
    CHECK(!files::remove_temp_files("dir/", 0, nullptr));
    CHECK(files::copy_files("dir/*", "hollow", true, true));
    CHECK(files::copy_dir("dir", "hollow", true, true)); // as if it were empty
    // What needs none serves.
    CHECK(files::exists("source"));
    CHECK_EQUAL(files::findfirst("source", &entry), 0);
    CHECK_EQUAL(files::get_current_directory(), tree.root());
  }
  CHECK_EQUAL(words_of(error), "Failed to open \"dir\" as a directory.");
  CHECK_EQUAL(snapshot("."), before);
  descriptors_left const none(0);
  CHECK(files::create("new/sub"));
  CHECK(files::remove_recursively("new/sub", nullptr, nullptr)); // empty: removed without a look
  CHECK(files::rename("source", "new/source"));
  CHECK(files::remove_recursively("new/source", nullptr, nullptr));
  CHECK(files::remove("new"));
}

void few_descriptors_left(scratch_tree const& tree) {
  tree.draw({"source=content", "dir/a/b/c/f=f"});
  look_at_all_classes();
  {
    descriptors_left const one(1);
    // Enough for the source alone: the target is not made, and the source stays.
    CHECK(!files::copy("source", "new", true, true));
    CHECK(!files::move("source", "new", true, true));
    CHECK(!stands("new"));
    CHECK(files::copy("source", "source", false, false));
    CHECK_EQUAL(iterated<FIO_RECURSIVE_DIRECTORY_ITERATOR>("dir"), lines{"dir/a/"});
  }
  {
    descriptors_left const two(2);
    // One for each level that is entered. A level that could not be entered is tried once more when the one above it
    // is left, and has its descriptor then.
    CHECK_EQUAL(iterated<FIO_RECURSIVE_DIRECTORY_ITERATOR>("dir"),
                (lines{"dir/a/", "dir/a/b/", "dir/a/b/c/", "dir/a/b/c/f"}));
    CHECK(files::copy("source", "new", true, true));
  }
  {
    descriptors_left const three(3);
    CHECK(!files::remove_recursively("dir", nullptr, nullptr));
    CHECK(files::copy_dir("dir", "copy", false, false)); // what is not entered counts as done
    CHECK(files::remove_empty_subdirectories("dir", true) != nullptr);
  }
  CHECK_EQUAL(drawing("dir"), (lines{"a/", "a/b/", "a/b/c/", "a/b/c/f=f"}));
  CHECK_EQUAL(drawing("copy"), (lines{"a/", "a/b/", "a/b/c/"}));
  descriptors_left const four(4);
  CHECK(files::remove_recursively("dir", nullptr, nullptr));
  CHECK(files::remove_recursively("copy", nullptr, nullptr));
  CHECK_EQUAL(content_of("new"), "content");
}
