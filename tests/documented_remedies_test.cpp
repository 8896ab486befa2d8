// What costs people data or hours, and the lines of code that the headers give against it.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <ctime>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "ccl/fio/fio.h"
#include "ccl/fio/fio_errc.h"
#include "tests/support/calls.h"
#include "tests/support/path_texts.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"

namespace {

using platform_double::replaced;
using strings = std::vector<std::string>;

class documented_remedies : public fio_test {};

std::size_t count_of(strings const& calls, std::string const& name) {
  return static_cast<std::size_t>(std::count_if(
      calls.begin(), calls.end(), [&name](std::string const& call) { return call.rfind(name + '(', 0) == 0; }));
}

template <typename Iterator>
strings walk(std::string const& directory) {
  strings result;
  for (FIO_DIRECTORY_ENTRY const& entry : Iterator(directory.c_str())) {
    result.push_back(entry.path);
  }
  return result;
}

bool same_times(struct stat const& left, struct stat const& right) {
  return left.st_mtim.tv_sec == right.st_mtim.tv_sec && left.st_mtim.tv_nsec == right.st_mtim.tv_nsec;
}

TEST_F(documented_remedies, a_path_is_true_even_if_it_is_empty_and_its_text_says_so) {
  FIO_PATH const nothing = FIO_FIND(m_tree.root(), false).find_first("nowhere.v");
  EXPECT_TRUE(nothing ? true : false);
  EXPECT_TRUE(nothing.fullpath().empty());
}

TEST_F(documented_remedies, a_sorted_container_of_paths_reads_the_current_directory_and_one_of_texts_does_not) {
  enter(m_tree);
  std::map<FIO_PATH, int> by_path = {{"a", 1}, {"b", 2}};
  std::map<std::string, int> by_text;
  for (char const* const text : {"a", "x/../b"}) {
    FIO_PATH path(text);
    path.become_absolute("");
    path.become_simplified();
    ++by_text[path.fullpath()];
  }
  EXPECT_LT(0u, count_of(calls_of([&] { by_path.count("b"); }), "osi_getcwd"));
  EXPECT_EQ(0u, count_of(calls_of([&] { by_text.count(m_tree.path("b")); }), "osi_getcwd"));
  EXPECT_EQ(1u, by_text.count(m_tree.path("b")));

  // The order of paths, and with it the container, is another one in another directory.
  m_tree.make_directory("other");
  std::filesystem::current_path(m_tree.path("other"));
  EXPECT_EQ(0u, by_path.count(m_tree.path("b")));
  EXPECT_EQ(1u, by_text.count(m_tree.path("b")));
}

TEST_F(documented_remedies, an_absolute_path_is_simplified_by_the_second_line_alone) {
  FIO_PATH path("/a/../b");
  path.become_absolute("");
  EXPECT_EQ("/a/../b", path.fullpath());
  path.become_simplified();
  EXPECT_EQ("/b", path.fullpath());
}

TEST_F(documented_remedies, an_unreadable_directory_looks_empty_and_lacks_even_its_dot_entry) {
  m_tree.draw({"full/file", "empty/"});
  std::string const full = m_tree.path("full");
  EXPECT_TRUE(FIO_FILE_SYSTEM::exists((m_tree.path("empty") + "/*").c_str()));
  EXPECT_TRUE(FIO_FILE_SYSTEM::exists((full + "/*").c_str()));
  EXPECT_TRUE(FIO_FILE_SYSTEM::exists("//*"));

  replaced().opendir = [&full](char const* path) {
    if (full == path) {
      errno = EACCES;
      return static_cast<DIR*>(nullptr);
    }
    return opendir_of_the_system(path);
  };
  EXPECT_EQ(strings(), walk<FIO_DIRECTORY_ITERATOR>(full));
  EXPECT_EQ(strings(), walk<FIO_RECURSIVE_DIRECTORY_ITERATOR>(full));
  EXPECT_TRUE(FIO_FILE_SYSTEM::is_directory_empty(full.c_str()));
  EXPECT_TRUE(FIO_FILE_SYSTEM::copy_dir(full, m_tree.path("copy"), false, false));
  EXPECT_TRUE(FIO_FILE_SYSTEM::is_directory_empty(m_tree.path("copy").c_str()));

  errno = 0;
  EXPECT_FALSE(FIO_FILE_SYSTEM::exists((full + "/*").c_str()));
  EXPECT_EQ(EACCES, errno);
}

TEST_F(documented_remedies, an_ordinary_user_asks_whether_a_directory_can_be_listed) {
  m_tree.draw({"closed/file", "unsearchable/file", "open/"});
  ::chmod(m_tree.path("closed").c_str(), 0);
  ::chmod(m_tree.path("unsearchable").c_str(), 0444);
  EXPECT_TRUE(holds_for_ordinary_user(
      [](scratch_tree const& tree) {
        for (char const* const pattern : {"closed/*", "unsearchable/*"}) {
          errno = 0;
          if (FIO_FILE_SYSTEM::exists(tree.path(pattern).c_str()) || errno != EACCES) {
            return false;
          }
        }
        return FIO_FILE_SYSTEM::exists(tree.path("open/*").c_str());
      },
      m_tree));
  ::chmod(m_tree.path("closed").c_str(), 0777);
  ::chmod(m_tree.path("unsearchable").c_str(), 0777);
}

TEST_F(documented_remedies, a_copy_has_whole_seconds_and_another_line_gives_it_the_rest) {
  m_tree.draw({"source"});
  std::string const source = m_tree.path("source");
  std::string const target = m_tree.path("target");
  timespec const times[] = {{1000000000, 987654000}, {1000000000, 123456000}};
  ASSERT_EQ(0, ::utimensat(AT_FDCWD, source.c_str(), times, 0));
  ASSERT_TRUE(FIO_FILE_SYSTEM::copy(source, target, true, true));
  struct stat left;
  struct stat right;
  ASSERT_TRUE(FIO_FILE_SYSTEM::status(source, &left) && FIO_FILE_SYSTEM::status(target, &right));
  EXPECT_EQ(left.st_mtim.tv_sec, right.st_mtim.tv_sec);
  EXPECT_EQ(0, right.st_mtim.tv_nsec);
  EXPECT_LT(std::filesystem::last_write_time(target), std::filesystem::last_write_time(source));

  std::filesystem::last_write_time(target, std::filesystem::last_write_time(source));
  ASSERT_TRUE(FIO_FILE_SYSTEM::status(target, &right));
  EXPECT_TRUE(same_times(left, right));
}

TEST_F(documented_remedies, errno_after_create_is_not_that_of_mkdir_and_another_call_says_why) {
  m_tree.draw({"closed/"});
  ::chmod(m_tree.path("closed").c_str(), 0555);
  EXPECT_TRUE(holds_for_ordinary_user(
      [](scratch_tree const& tree) {
        std::string const path = tree.path("closed/a/b");
        errno = 0;
        if (FIO_FILE_SYSTEM::create(path) || errno != ENOENT) {
          return false;
        }
        std::error_code why;
        std::filesystem::create_directories(path, why);
        return why == std::errc::permission_denied;
      },
      m_tree));
}

TEST_F(documented_remedies, remove_temp_files_is_silent_about_what_stays_and_a_loop_reports_it) {
  m_tree.draw({"work/.korvane.1.tmp", "work/below/.korvane.2.tmp", "work/file"});
  std::string const work = m_tree.path("work");
  replaced().remove = [](char const* path) {
    if (std::string(path).find(".1.tmp") != std::string::npos) {
      errno = EACCES;
      return -1;
    }
    return ::unlink(path);
  };
  EXPECT_TRUE(FIO_FILE_SYSTEM::remove_temp_files(m_tree.path("work/").c_str(), -10, nullptr));
  EXPECT_TRUE(FIO_FILE_SYSTEM::exists(m_tree.path("work/.korvane.1.tmp").c_str()));
  EXPECT_FALSE(FIO_FILE_SYSTEM::exists(m_tree.path("work/below/.korvane.2.tmp").c_str()));

  m_tree.draw({"work/below/.korvane.2.tmp"});
  strings reported;
  long const limit = std::time(nullptr) + 10;
  for (FIO_DIRECTORY_ENTRY const& entry : FIO_RECURSIVE_DIRECTORY_ITERATOR(work.c_str())) {
    if (FIO_FILE_SYSTEM::same_file(entry.derive_path().filename().c_str(), ".korvane.*.tmp") &&
        FIO_FILE_SYSTEM::is_older(entry.path.c_str(), &limit) && !FIO_FILE_SYSTEM::remove(entry.path)) {
      reported.push_back(entry.path);
    }
  }
  EXPECT_EQ(strings{m_tree.path("work/.korvane.1.tmp")}, reported);
  EXPECT_FALSE(FIO_FILE_SYSTEM::exists(m_tree.path("work/below/.korvane.2.tmp").c_str()));
  EXPECT_TRUE(FIO_FILE_SYSTEM::exists(m_tree.path("work/file").c_str()));
}

TEST_F(documented_remedies, a_removal_that_follows_no_link_spares_what_links_lead_to) {
  m_tree.draw({"kept/file", "tree/", "tree/link -> ../kept", "other/", "other/link -> ../kept"});
  std::filesystem::remove_all(m_tree.path("tree"));
  EXPECT_FALSE(FIO_FILE_SYSTEM::exists(m_tree.path("tree").c_str()));
  EXPECT_TRUE(FIO_FILE_SYSTEM::exists(m_tree.path("kept/file").c_str()));

  EXPECT_TRUE(FIO_FILE_SYSTEM::remove_recursively(m_tree.path("other").c_str(), nullptr, nullptr));
  EXPECT_FALSE(FIO_FILE_SYSTEM::exists(m_tree.path("kept/file").c_str()));
  EXPECT_TRUE(FIO_FILE_SYSTEM::exists(m_tree.path("kept").c_str()));
}

TEST_F(documented_remedies, a_link_to_an_empty_directory_goes_and_its_target_is_cleaned_and_stays) {
  m_tree.draw({"kept/empty/", "tree/", "tree/link -> ../kept"});
  EXPECT_EQ(nullptr, FIO_FILE_SYSTEM::remove_empty_subdirectories(m_tree.path("tree"), false));
  EXPECT_EQ(strings(), walk<FIO_DIRECTORY_ITERATOR>(m_tree.path("tree")));
  EXPECT_EQ(strings(), walk<FIO_DIRECTORY_ITERATOR>(m_tree.path("kept")));
  EXPECT_TRUE(FIO_FILE_SYSTEM::exists(m_tree.path("kept").c_str()));
}

TEST_F(documented_remedies, the_lines_of_an_error_make_one_text) {
  KORVANE_ERROR_MESSAGE message =
      std::unique_ptr<FIO_ERRC>(make_korvane_error<FIO::ERRC::NOT_A_DIRECTORY_ERRC>("/tmp/x"))->message();
  message.unpack_submsgs(std::vector<KORVANE_ERROR_MESSAGE>{message});
  std::string text;
  for (KORVANE_ERROR_MESSAGE::LINE const& line : message.m_lines) {
    text.append(line.m_indent != 0, '\n').append(static_cast<std::size_t>(line.m_indent), '\t').append(line.m_text);
  }
  EXPECT_EQ(
      "The given path \"/tmp/x\" is not a valid directory.\n\tThe given path \"/tmp/x\" is not a valid directory.",
      text);
}

} // namespace
