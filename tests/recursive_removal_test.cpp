#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <deque>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "ccl/fio/fio_errc.h"
#include "ccl/fio/fio_file_sys.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/calls.h"
#include "tests/support/path_texts.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"

namespace {

namespace fs = std::filesystem;
using names = std::vector<std::string>;

class recursive_removal : public fio_test {
protected:
  // What is left in the tree, sorted: directories end in a separator, and no link is followed.
  names left() const {
    names result;
    for (fs::directory_entry const& entry : fs::recursive_directory_iterator(m_tree.root())) {
      std::string const name = entry.path().string().substr(m_tree.root().size() + 1);
      result.push_back(!entry.is_symlink() && entry.is_directory() ? name + '/' : name);
    }
    return sorted(result);
  }

  void clear() const {
    for (fs::directory_entry const& entry : fs::directory_iterator(m_tree.root())) {
      fs::remove_all(entry.path());
    }
  }

  // Sets the time of the last modification, of a link itself if it is one.
  void set_time(std::string const& name, time_t seconds) const {
    timespec const times[] = {{seconds, 0}, {seconds, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, m_tree.path(name).c_str(), times, AT_SYMLINK_NOFOLLOW), 0) << name;
  }

  // A socket has the mode bit by which directories are known.
  void make_socket(std::string const& name) const {
    enter(m_tree);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    ASSERT_LT(name.size(), sizeof address.sun_path);
    std::memcpy(address.sun_path, name.c_str(), name.size());
    int const descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address), 0) << name;
    ::close(descriptor);
  }

  bool remove_tree(std::string const& name, char const* pattern = nullptr, long const* limit = nullptr) const {
    return FIO_FILE_SYSTEM::remove_recursively(m_tree.path(name).c_str(), pattern, limit);
  }
};

dirent64* readdir_of_the_system(DIR* stream) {
  dirent64* (*original)(DIR*);
  *reinterpret_cast<void**>(&original) = ::dlsym(RTLD_NEXT, "readdir64");
  return original(stream);
}

int remove_of_the_system(char const* path) {
  int (*original)(char const*);
  *reinterpret_cast<void**>(&original) = ::dlsym(RTLD_NEXT, "remove");
  return original(path);
}

// While an object of this class lives, directories are read in the order of the names, but for some that come last in
// the order given.
class ordered_streams {
public:
  explicit ordered_streams(names last = {}) : m_last(std::move(last)) {
    platform_double::replacements& replaced = platform_double::replaced();
    replaced.opendir = [this](char const* path) { return open(path); };
    replaced.readdir64 = [this](DIR* stream) { return read(stream); };
    replaced.closedir = [this](DIR* stream) {
      m_streams.erase(stream);
      return closedir_of_the_system(stream);
    };
  }

  ~ordered_streams() {
    platform_double::replacements& replaced = platform_double::replaced();
    replaced.opendir = nullptr;
    replaced.readdir64 = nullptr;
    replaced.closedir = nullptr;
  }

  ordered_streams(ordered_streams const&) = delete;
  ordered_streams& operator=(ordered_streams const&) = delete;

  // This directory cannot be opened any more after so many times.
  void refuse(std::string const& path, int after = 0) { m_refused[path] = after; }

private:
  DIR* open(char const* path) {
    auto const refused = m_refused.find(path);
    if (refused != m_refused.end() && refused->second-- <= 0) {
      errno = EACCES;
      return nullptr;
    }
    DIR* const stream = opendir_of_the_system(path);
    if (stream != nullptr) {
      std::vector<std::pair<std::ptrdiff_t, std::string>> keys;
      while (dirent64 const* const entry = readdir_of_the_system(stream)) {
        auto const found = std::find(m_last.begin(), m_last.end(), entry->d_name);
        keys.emplace_back(found == m_last.end() ? -1 : found - m_last.begin(), entry->d_name);
      }
      std::sort(keys.begin(), keys.end());
      std::deque<std::string>& entries = m_streams[stream];
      for (auto const& key : keys) {
        entries.push_back(key.second);
      }
    }
    return stream;
  }

  dirent64* read(DIR* stream) {
    auto const known = m_streams.find(stream);
    if (known == m_streams.end()) {
      return readdir_of_the_system(stream);
    }
    if (known->second.empty()) {
      return nullptr;
    }
    m_entry = {};
    known->second.front().copy(m_entry.d_name, sizeof m_entry.d_name - 1);
    known->second.pop_front();
    return &m_entry;
  }

  names m_last;
  std::map<std::string, int> m_refused;
  std::map<DIR*, std::deque<std::string>> m_streams;
  dirent64 m_entry = {};
};

// The calls of the library itself, without those of the platform and the reading of directory entries.
template <typename Operation>
names calls_but_reading(Operation operation) {
  names result;
  for (std::string const& call : calls_of(operation)) {
    std::string const arguments = call.substr(call.find('('));
    bool const is_of_platform =
        !result.empty() && call == "stat" + arguments &&
        (result.back() == "osi_status" + arguments || result.back() == "osi_exists" + arguments);
    if (call != "readdir64()" && !is_of_platform) {
      result.push_back(call);
    }
  }
  return result;
}

names removals_of(names const& calls) {
  names result;
  for (std::string const& call : calls) {
    if (call.rfind("remove(", 0) == 0) {
      result.push_back(call.substr(7, call.size() - 8));
    }
  }
  return result;
}

// These are not removed.
std::function<int(char const*)> remove_refusing(std::set<std::string> const& refused) {
  return [refused](char const* path) {
    if (refused.count(path) != 0) {
      errno = EACCES;
      return -1;
    }
    return remove_of_the_system(path);
  };
}

// The one line of an error.
std::string text_of(FIO_ERRC const& error) {
  KORVANE_ERROR_MESSAGE const message = error.message();
  EXPECT_EQ(message.m_lines.size(), 1u);
  EXPECT_EQ(message.m_lines[0].m_indent, 0);
  return message.m_lines[0].m_text;
}

std::string text_of(std::unique_ptr<FIO_ERRC> const& error) { return error == nullptr ? "no error" : text_of(*error); }

std::string not_a_directory(std::string const& path) {
  return "The given path \"" + path + "\" is not a valid directory.";
}

std::string failed_to_open(std::string const& path) { return "Failed to open \"" + path + "\" as a directory."; }

std::string failed_to_remove(std::string const& path) { return "Failed to remove directory \"" + path + "\"."; }

constexpr long far_future = 4000000000;

using drawing = std::initializer_list<char const*>;

} // namespace

// remove_files

TEST_F(recursive_removal, files_that_match_are_removed) {
  struct {
    drawing drawn;
    char const* filespec;
    bool answer;
    names left;
  } const rows[] = {
      // Without a wildcard it is that one entry.
      {{"d/a", "d/b"}, "d/a", true, {"d/", "d/b"}},
      {{"d/a"}, "d/missing", true, {"d/", "d/a"}},
      {{"d/a"}, "missing/a", true, {"d/", "d/a"}},
      {{"d/a", "e/"}, "e", true, {"d/", "d/a"}},
      {{"d/a", "e/"}, "e/", true, {"d/", "d/a"}},
      {{"d/a"}, "d", false, {"d/", "d/a"}},
      {{"d/a b", "d/a"}, "d/a b", true, {"d/", "d/a"}},
      {{"d/a\nb", "d/a"}, "d/a\nb", true, {"d/", "d/a"}},
      {{"d/%s%n", "d/a"}, "d/%s%n", true, {"d/", "d/a"}},
      {{"d/.x", "d/x"}, "d/.x", true, {"d/", "d/x"}},
      {{"d/x.", "d/x"}, "d/x.", true, {"d/", "d/x"}},
      {{"d/a.tar.gz", "d/a"}, "d/a.tar.gz", true, {"d/", "d/a"}},
      // With one it is all that match, in that directory alone.
      {{"d/a.o", "d/b.o", "d/c.c", "d/e/a.o"}, "d/*.o", true, {"d/", "d/c.c", "d/e/", "d/e/a.o"}},
      {{"d/a"}, "d/*.o", true, {"d/", "d/a"}},
      {{"d/a"}, "missing/*", true, {"d/", "d/a"}},
      {{"d/a"}, "d/a/*", true, {"d/", "d/a"}},
      {{"d/ab1", "d/ab23", "d/ab", "d/ac1"}, "d/ab?", true, {"d/", "d/ab", "d/ac1"}},
      {{"d/a.o", "d/b c.o", "d/l\nf.o", "d/%s.o", "d/.o"}, "d/*.o", true, {"d/"}},
      {{"d/1.x/", "d/2.x"}, "d/*.x", true, {"d/"}},
      {{"d/1.x/keep"}, "d/*.x", false, {"d/", "d/1.x/", "d/1.x/keep"}},
      // Links go themselves, and one that leads nowhere is not found.
      {{"d/a", "d/l.x -> a"}, "d/*.x", true, {"d/", "d/a"}},
      {{"d/a", "l.x -> d"}, "*.x", true, {"d/", "d/a"}},
      {{"d/l.x -> missing", "d/m.x -> m.x"}, "d/*.x", true, {"d/", "d/l.x", "d/m.x"}},
      {{"d/l.x -> missing"}, "d/l.x", true, {"d/", "d/l.x"}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.filespec);
    m_tree.draw(row.drawn);
    EXPECT_EQ(FIO_FILE_SYSTEM::remove_files(m_tree.path(row.filespec).c_str()), row.answer);
    EXPECT_EQ(left(), row.left);
    clear();
  }
  EXPECT_EQ(messages(), names());
}

TEST_F(recursive_removal, files_are_removed_up_to_the_first_failure) {
  m_tree.draw({"d/a.o", "d/b.o", "d/c.o", "d/e.o"});
  std::string const d = m_tree.path("d");
  ordered_streams const ordered;
  platform_double::replaced().remove = remove_refusing({d + "/b.o"});
  bool answer = true;
  // The next entry is looked up before the answer is.
  EXPECT_EQ(calls_but_reading([&] { answer = FIO_FILE_SYSTEM::remove_files((d + "/*.o").c_str()); }),
            (names{"opendir(" + d + ")", "stat(" + d + "/a.o)", "access(" + d + "/a.o)", "remove(" + d + "/a.o)",
                   "stat(" + d + "/b.o)", "access(" + d + "/b.o)", "remove(" + d + "/b.o)", "stat(" + d + "/c.o)",
                   "access(" + d + "/c.o)", "closedir()"}));
  EXPECT_FALSE(answer);
  EXPECT_EQ(left(), (names{"d/", "d/b.o", "d/c.o", "d/e.o"}));
}

TEST_F(recursive_removal, the_dot_entries_are_matches_that_cannot_be_removed) {
  struct {
    names last;
    names left;
  } const rows[] = {
      {{}, {"d/", "d/a", "d/b"}},
      {{".", ".."}, {"d/"}},
      {{"..", "b"}, {"d/", "d/a", "d/b"}},
      {{".", "b"}, {"d/", "d/a", "d/b"}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.last));
    m_tree.draw({"d/a", "d/b"});
    {
      ordered_streams const ordered(row.last);
      EXPECT_FALSE(FIO_FILE_SYSTEM::remove_files(m_tree.path("d/*").c_str()));
    }
    EXPECT_EQ(left(), row.left);
    clear();
  }
}

TEST_F(recursive_removal, a_backslash_in_a_name_leads_into_a_directory) {
  m_tree.draw({"d/x\\y", "d/x/y"});
  names const calls = calls_of([&] { EXPECT_TRUE(FIO_FILE_SYSTEM::remove_files(m_tree.path("d/*y").c_str())); });
  EXPECT_EQ(removals_of(calls), names{m_tree.path("d/x/y")});
  EXPECT_EQ(left(), (names{"d/", "d/x/", "d/x\\y"}));
  EXPECT_FALSE(FIO_FILE_SYSTEM::remove_files(m_tree.path("d/*y").c_str()));
}

TEST_F(recursive_removal, files_of_a_text_that_is_too_long_are_no_match) {
  m_tree.draw({"d/a"});
  std::string const path = m_tree.path("d/a");
  EXPECT_TRUE(FIO_FILE_SYSTEM::remove_files(padded(path, 1024).c_str()));
  EXPECT_EQ(left(), (names{"d/", "d/a"}));
  EXPECT_EQ(messages(), names());
  EXPECT_TRUE(FIO_FILE_SYSTEM::remove_files(padded(path, 1023).c_str()));
  EXPECT_EQ(left(), names{"d/"});
  EXPECT_EQ(messages(), names());
}

TEST_F(recursive_removal, a_null_file_specification_is_refused) {
  EXPECT_THROW(FIO_FILE_SYSTEM::remove_files(nullptr), std::logic_error);
}

// remove_recursively: what it refuses

TEST_F(recursive_removal, nothing_is_done_for_paths_that_are_refused) {
  m_tree.draw({"d/a", "d/e/b"});
  fs::current_path(m_tree.path("d/e"));
  names const before = left();
  std::string const too_long = padded(m_tree.path("d"), 1024);
  std::string const missing = m_tree.path("missing");
  std::string const below_file = m_tree.path("d/a/x");
  for (char const* path : {static_cast<char const*>(nullptr), "", ".", "..", "missing", missing.c_str(),
                           below_file.c_str(), too_long.c_str()}) {
    SCOPED_TRACE(path != nullptr ? path : "null");
    bool answer = true;
    names const calls =
        calls_but_reading([&] { answer = FIO_FILE_SYSTEM::remove_recursively(path, nullptr, nullptr); });
    EXPECT_FALSE(answer);
    for (std::string const& call : calls) {
      EXPECT_EQ(call.substr(0, call.find('(')), "osi_exists") << "nothing but a look";
    }
    EXPECT_EQ(left(), before);
  }
  EXPECT_EQ(messages(), names());
}

TEST_F(recursive_removal, a_path_of_the_longest_legal_length_is_removed) {
  m_tree.draw({"d/"});
  EXPECT_TRUE(FIO_FILE_SYSTEM::remove_recursively(padded(m_tree.path("d"), 1023).c_str(), nullptr, nullptr));
  EXPECT_EQ(left(), names());
}

TEST_F(recursive_removal, a_directory_whose_entries_cannot_be_told_is_not_entered) {
  for (std::size_t const length : {std::size_t{1021}, std::size_t{1022}}) {
    std::string const directory = directory_of_length(m_tree, length);
    m_tree.make_file(directory.substr(m_tree.root().size() + 1) + "/a");
    EXPECT_EQ(FIO_FILE_SYSTEM::is_directory_empty(directory.c_str()), length == 1022) << length;
    EXPECT_EQ(FIO_FILE_SYSTEM::remove_recursively(directory.c_str(), nullptr, nullptr), length == 1021) << length;
    clear();
  }
}

TEST_F(recursive_removal, only_the_exact_dot_names_are_refused) {
  m_tree.draw({"d/a", "d/e/b"});
  fs::current_path(m_tree.path("d"));
  // What is in it goes, but the directory cannot go by this name.
  EXPECT_FALSE(FIO_FILE_SYSTEM::remove_recursively("./", nullptr, nullptr));
  EXPECT_EQ(left(), names{"d/"});
  m_tree.draw({"d/a", "d/e/b"});
  fs::current_path(m_tree.path("d/e"));
  EXPECT_FALSE(FIO_FILE_SYSTEM::remove_recursively("../", nullptr, nullptr));
  EXPECT_EQ(left(), names{"d/"});
  // The way back to the current directory is lost with it.
  fs::current_path(m_tree.path("d"));
  EXPECT_FALSE(remove_tree("d"));
  EXPECT_EQ(left(), names());
}

// remove_recursively: the walk

TEST_F(recursive_removal, a_whole_tree_goes_without_filters) {
  struct {
    drawing drawn;
    char const* path;
    bool answer;
    names left;
  } const rows[] = {
      {{"f"}, "f", true, {}},
      {{"d/"}, "d", true, {}},
      {{"d/a", "d/.b", "d/e/f/g", "d/e/h", "d/i/", "k"}, "d", true, {"k"}},
      {{"d/a", "d/e/f"}, "d/", true, {}},
      {{"d/a b", "d/l\nf", "d/%s%n", "d/ /\n/%", "d/...", "d/x\\y"}, "d", true, {}},
      {{"%s d\n/a"}, "%s d\n", true, {}},
      // A link to a file, and one to a directory: what that holds goes with the link.
      {{"t", "d/l -> ../t"}, "d", true, {"t"}},
      {{"t/a", "t/e/b", "d/l -> ../t"}, "d", true, {"t/"}},
      {{"t/a", "d -> t"}, "d", true, {"t/"}},
      {{"t", "d -> t"}, "d", true, {"t"}},
      // Links that lead nowhere are not found, and so keep their directory.
      {{"d/l -> missing", "d/a"}, "d", false, {"d/", "d/l"}},
      {{"d/l -> l", "d/a"}, "d", false, {"d/", "d/l"}},
      {{"d -> missing"}, "d", false, {"d"}},
      // Nor is a name found that holds a wildcard.
      {{"d/a", "d/b*c", "d/b?"}, "d", false, {"d/", "d/b*c", "d/b?"}},
      // A link to the directory around it is followed as far as the system does, and can be removed but once.
      {{"d/a", "d/l -> .", "d/z"}, "d", false, {}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.path);
    SCOPED_TRACE(testing::PrintToString(row.drawn));
    m_tree.draw(row.drawn);
    EXPECT_EQ(remove_tree(row.path), row.answer);
    EXPECT_EQ(left(), row.left);
    clear();
  }
  EXPECT_EQ(messages(), names());
}

TEST_F(recursive_removal, a_pattern_tells_which_files_go_and_directories_go_by_the_last_entry) {
  struct {
    drawing drawn;
    char const* pattern;
    names last;
    bool answer;
    names left;
  } const rows[] = {
      // The directory goes by the name of the last entry that was read, not by its own.
      {{"d/a.o", "d/z.o"}, "*.o", {}, true, {}},
      {{"d/a.o"}, "*.o", {".", ".."}, true, {"d/"}},
      {{"d/a.o"}, "*.o", {"..", "a.o"}, true, {}},
      {{"d/"}, "*.o", {}, true, {"d/"}},
      {{"d.o/"}, "*.o", {}, true, {"d.o/"}},
      {{"d/"}, ".", {}, true, {}},
      {{"d/"}, "*", {}, true, {}},
      {{"d/a", "d/b.o"}, "*.o", {}, false, {"d/", "d/a"}},
      {{"d/a", "d/b.o"}, "*.o", {"a"}, true, {"d/", "d/a"}},
      // Directories are entered whatever their name is.
      {{"d/e/a.o", "d/f/b"}, "*.o", {}, true, {"d/", "d/f/", "d/f/b"}},
      {{"d/e.o/a", "d/f/b.o"}, "*.o", {}, true, {"d/", "d/e.o/", "d/e.o/a"}},
      {{"d/e/a.o", "d/x.o/b.o"}, "*.o", {}, true, {}},
      {{"d/e/a.o", "d/x/b.o"}, "*.o", {}, true, {"d/"}},
      {{"d/e/a", "d/x.o/b.o"}, "*.o", {}, false, {"d/", "d/e/", "d/e/a"}},
      // The bare name is compared, by the rules of wildcards.
      {{"d/ab", "d/abc", "d/xab"}, "ab", {"ab"}, false, {"d/", "d/xab"}},
      {{"d/a"}, "d/a", {}, true, {"d/", "d/a"}},
      {{"d/a"}, "", {}, true, {}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.drawn) + " by " + row.pattern);
    m_tree.draw(row.drawn);
    std::string const top = fs::directory_iterator(m_tree.root())->path().filename().string();
    {
      ordered_streams const ordered(row.last);
      EXPECT_EQ(remove_tree(top, row.pattern), row.answer);
    }
    EXPECT_EQ(left(), row.left);
    clear();
  }
}

TEST_F(recursive_removal, what_has_no_entries_is_compared_as_an_empty_name) {
  struct {
    char const* pattern;
    bool goes;
  } const rows[] = {{"*", true}, {"", true}, {"f", false}, {"*.o", false}, {"f*", false}, {"?", false}};
  for (auto const& row : rows) {
    m_tree.draw({"f", "d/"});
    ordered_streams ordered;
    ordered.refuse(m_tree.path("d"));
    EXPECT_TRUE(remove_tree("f", row.pattern)) << row.pattern;
    EXPECT_TRUE(remove_tree("d", row.pattern)) << row.pattern;
    EXPECT_EQ(left(), row.goes ? names() : (names{"d/", "f"})) << row.pattern;
    clear();
  }
}

TEST_F(recursive_removal, a_socket_is_walked_as_a_directory) {
  struct {
    char const* pattern;
    bool answer;
    names left;
  } const rows[] = {
      {nullptr, true, {}},
      {"*", true, {}},
      {"a.x", true, {"a.x"}},
      {"*.x", true, {"a.x"}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.pattern != nullptr ? row.pattern : "null");
    make_socket("a.x");
    EXPECT_EQ(remove_tree("a.x", row.pattern), row.answer);
    EXPECT_EQ(left(), row.left);
    clear();
  }
  make_socket("s.x");
  std::unique_ptr<FIO_ERRC> const error = FIO_FILE_SYSTEM::remove_empty_subdirectories(m_tree.root(), false);
  ASSERT_NE(error, nullptr);
  EXPECT_EQ(text_of(*error), "Failed to open \"" + m_tree.path("s.x") + "\" as a directory.");
  EXPECT_EQ(left(), names{"s.x"});
  EXPECT_TRUE(FIO_FILE_SYSTEM::is_directory_empty(m_tree.path("s.x").c_str()));
}

TEST_F(recursive_removal, a_limit_spares_what_is_not_older) {
  struct {
    long file;
    long limit;
    bool answer;
    names left;
  } const rows[] = {
      {500, 1000, true, {"d/"}}, // the directory was changed just now, and so is too young to go
      {999, 1000, true, {"d/"}},
      {1000, 1000, true, {"d/", "d/a"}},
      {1001, 1000, true, {"d/", "d/a"}},
      {500, far_future, true, {}},
      {far_future, far_future, false, {"d/", "d/a"}},
      {far_future + 1, far_future, false, {"d/", "d/a"}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(testing::Message() << row.file << " against " << row.limit);
    m_tree.draw({"d/a"});
    set_time("d/a", row.file);
    EXPECT_EQ(remove_tree("d", nullptr, &row.limit), row.answer);
    EXPECT_EQ(left(), row.left);
    clear();
  }
}

TEST_F(recursive_removal, a_spared_file_keeps_its_directories_and_older_ones_are_gone) {
  m_tree.draw({"d/old", "d/e/old", "d/e/young", "d/f/old", "d/z"});
  set_time("d/e/young", far_future + 5);
  EXPECT_FALSE(remove_tree("d", nullptr, &far_future));
  EXPECT_EQ(left(), (names{"d/", "d/e/", "d/e/young"}));
}

TEST_F(recursive_removal, a_directory_is_entered_whatever_its_age) {
  long const limit = 1000;
  m_tree.draw({"d/e/old", "d/empty/", "d/young/"});
  set_time("d/e/old", 500);
  set_time("d/empty", 500);
  EXPECT_TRUE(remove_tree("d", nullptr, &limit));
  EXPECT_EQ(left(), (names{"d/", "d/e/", "d/young/"}));
}

TEST_F(recursive_removal, both_filters_must_agree) {
  ordered_streams const ordered;
  m_tree.draw({"d/1.o", "d/2.o", "d/3.c", "d/4.c"});
  set_time("d/2.o", far_future + 1);
  set_time("d/4.c", far_future + 1);
  EXPECT_TRUE(remove_tree("d", "*.o", &far_future));
  EXPECT_EQ(left(), (names{"d/", "d/2.o", "d/3.c", "d/4.c"}));
}

TEST_F(recursive_removal, a_failure_does_not_stop_the_walk) {
  m_tree.draw({"d/a", "d/b", "d/e/f", "d/e/g", "d/h/i", "d/z"});
  ordered_streams const ordered;
  platform_double::replaced().remove = remove_refusing({m_tree.path("d/b"), m_tree.path("d/e/f")});
  names const calls = calls_of([&] { EXPECT_FALSE(remove_tree("d")); });
  names expected;
  for (char const* name : {"d/a", "d/b", "d/e/f", "d/e/g", "d/e", "d/h/i", "d/h", "d/z", "d"}) {
    expected.push_back(m_tree.path(name));
  }
  EXPECT_EQ(removals_of(calls), expected) << "every file, and every directory behind its contents";
  EXPECT_EQ(left(), (names{"d/", "d/b", "d/e/", "d/e/f"}));
}

TEST_F(recursive_removal, the_current_directory_is_kept_around_the_removal) {
  m_tree.draw({"d/a", "d/e/b"});
  enter(m_tree);
  ordered_streams const ordered;
  // A stream is closed before its directory is removed.
  EXPECT_EQ(
      calls_but_reading([] { EXPECT_TRUE(FIO_FILE_SYSTEM::remove_recursively("d", nullptr, nullptr)); }),
      (names{"osi_exists(d)", "osi_getcwd(1024)", "opendir(d)",  "stat(d/.)",     "stat(d/..)",
             "stat(d/a)",     "access(d/a)",      "remove(d/a)", "stat(d/e)",     "opendir(d/e)",
             "stat(d/e/.)",   "stat(d/e/..)",     "stat(d/e/b)", "access(d/e/b)", "remove(d/e/b)",
             "closedir()",    "remove(d/e)",      "closedir()",  "remove(d)",     "osi_chdir(" + m_tree.root() + ")"}));
  EXPECT_EQ(fs::current_path().string(), m_tree.root());
}

TEST_F(recursive_removal, a_current_directory_that_is_lost_is_a_failure_behind_the_removal) {
  m_tree.draw({"d/a", "e/a"});
  platform_double::replaced().osi_getcwd = [](char* /*buffer*/, unsigned long /*size*/) -> char* { return nullptr; };
  names const calls = calls_of([&] { EXPECT_FALSE(remove_tree("d")); });
  EXPECT_EQ(calls.back(), "osi_chdir()");
  EXPECT_EQ(left(), (names{"e/", "e/a"}));
  platform_double::replaced().osi_getcwd = nullptr;
  platform_double::replaced().osi_chdir = [](char const* /*path*/) { return -1; };
  EXPECT_FALSE(remove_tree("e"));
  EXPECT_EQ(left(), names());
}

TEST_F(recursive_removal, the_age_is_asked_only_of_what_the_pattern_names) {
  m_tree.draw({"d/a.c", "d/b.o"});
  set_time("d/b.o", 500);
  std::string const d = m_tree.path("d");
  long const limit = 1000;
  ordered_streams const ordered;
  names calls = calls_of([&] { remove_tree("d", "*.o", &limit); });
  calls.erase(std::remove_if(calls.begin(), calls.end(), [](auto const& c) { return c.rfind("osi_status", 0) != 0; }),
              calls.end());
  EXPECT_EQ(calls, (names{"osi_status(" + d + "/b.o)", "osi_status(" + d + ")"}));
  EXPECT_EQ(left(), (names{"d/", "d/a.c"}));
}

TEST_F(recursive_removal, what_has_no_status_is_not_older) {
  m_tree.draw({"d/a"});
  platform_double::replaced().osi_status = [](char const* /*path*/, struct stat* /*buffer*/) { return -1; };
  EXPECT_TRUE(remove_tree("d", nullptr, &far_future));
  EXPECT_EQ(left(), (names{"d/", "d/a"}));
}

TEST_F(recursive_removal, entries_that_vanish_are_passed_over) {
  m_tree.draw({"d/a", "d/b", "d/c"});
  ordered_streams const ordered;
  std::string const d = m_tree.path("d");
  platform_double::replaced().remove = [d](char const* path) {
    ::unlink((d + "/b").c_str());
    return remove_of_the_system(path);
  };
  EXPECT_TRUE(remove_tree("d"));
  EXPECT_EQ(left(), names());
}

TEST_F(recursive_removal, a_removal_that_another_was_first_at_is_a_failure) {
  m_tree.draw({"d/a", "d/b"});
  ordered_streams const ordered;
  platform_double::replaced().remove = [](char const* path) {
    remove_of_the_system(path);
    return remove_of_the_system(path);
  };
  EXPECT_FALSE(remove_tree("d"));
  EXPECT_EQ(left(), names());
}

TEST_F(recursive_removal, one_failure_is_remembered_whatever_succeeds_behind_it) {
  ordered_streams const ordered;
  for (char const* name : {"d/a", "d/b/f", "d/b", "d/c/g", "d/z", "d"}) {
    m_tree.draw({"d/a", "d/b/f", "d/c/g", "d/z"});
    std::string const disowned = m_tree.path(name);
    platform_double::replaced().remove = [disowned](char const* path) {
      return remove_of_the_system(path) == 0 && path != disowned ? 0 : -1;
    };
    EXPECT_FALSE(remove_tree("d")) << name;
    EXPECT_EQ(left(), names()) << name;
  }
}

// do_remove_recursively

TEST_F(recursive_removal, the_worker_gives_its_path_back) {
  m_tree.draw({"d/a", "d/e/f", "d/g/", "d/z"});
  ordered_streams const ordered;
  for (char const* name : {"d/a", "d/e/f", "d", "missing"}) {
    std::string path = m_tree.path(name);
    std::string const before = path;
    EXPECT_EQ(FIO_FILE_SYSTEM::do_remove_recursively(path, nullptr, nullptr), path != m_tree.path("missing")) << name;
    EXPECT_EQ(path, before);
  }
  EXPECT_EQ(left(), names());
  m_tree.draw({"d/a", "d/e/f"});
  platform_double::replaced().remove = [](char const* /*path*/) { return -1; };
  std::string path = m_tree.path("d");
  EXPECT_FALSE(FIO_FILE_SYSTEM::do_remove_recursively(path, nullptr, nullptr));
  EXPECT_EQ(path, m_tree.path("d"));
}

TEST_F(recursive_removal, the_worker_checks_nothing) {
  m_tree.draw({"d/a"});
  fs::current_path(m_tree.path("d"));
  std::string path = ".";
  names const calls = calls_of([&] { EXPECT_FALSE(FIO_FILE_SYSTEM::do_remove_recursively(path, nullptr, nullptr)); });
  EXPECT_EQ(left(), names{"d/"});
  for (char const* unexpected : {"osi_exists", "osi_getcwd", "osi_chdir"}) {
    EXPECT_TRUE(std::none_of(calls.begin(), calls.end(), [&](auto const& c) { return c.rfind(unexpected, 0) == 0; }));
  }
}

// is_directory_empty

TEST_F(recursive_removal, only_a_directory_without_entries_is_empty) {
  struct {
    drawing drawn;
    bool answer;
  } const rows[] = {
      {{}, false},
      {{"d"}, false},
      {{"d/"}, true},
      {{"d/a"}, false},
      {{"d/.a"}, false},
      {{"d/..."}, false},
      {{"d/ "}, false},
      {{"d/\n"}, false},
      {{"d/e/"}, false},
      {{"d/l -> ."}, false},
      {{"t/", "d -> t"}, true},
      {{"t/a", "d -> t"}, false},
      {{"d -> d"}, false},
      {{"d -> t"}, false},
      {{"t", "d -> t"}, false},
      // What a walk does not find is not there: a link that leads nowhere, and a name with a wildcard.
      {{"d/l -> t"}, true},
      {{"d/a*"}, true},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.drawn));
    m_tree.draw(row.drawn);
    names const before = left();
    EXPECT_EQ(FIO_FILE_SYSTEM::is_directory_empty(m_tree.path("d").c_str()), row.answer);
    EXPECT_EQ(left(), before);
    clear();
  }
}

TEST_F(recursive_removal, a_directory_that_cannot_be_read_counts_as_empty) {
  m_tree.draw({"d/a"});
  ordered_streams ordered;
  ordered.refuse(m_tree.path("d"));
  EXPECT_TRUE(FIO_FILE_SYSTEM::is_directory_empty(m_tree.path("d").c_str()));
}

TEST_F(recursive_removal, an_ordinary_user_meets_unreadable_directories) {
  m_tree.draw({"d/"});
  ASSERT_EQ(::chmod(m_tree.root().c_str(), 0777), 0);
  EXPECT_TRUE(holds_for_ordinary_user(
      [](scratch_tree const& tree) {
        tree.draw({"top/e/f/", "top/locked/a", "top/z/"});
        std::string const locked = tree.path("top/locked");
        ::chmod(locked.c_str(), 0);
        bool const empty = FIO_FILE_SYSTEM::is_directory_empty(locked.c_str());
        auto const error = FIO_FILE_SYSTEM::remove_empty_subdirectories(tree.path("top"), true);
        return empty && text_of(error) == failed_to_open(locked) && !fs::exists(tree.path("top/e")) &&
               !fs::exists(tree.path("top/z")) && fs::exists(locked) && !tree.root().empty() &&
               !FIO_FILE_SYSTEM::remove_recursively(tree.path("top").c_str(), nullptr, nullptr);
      },
      m_tree));
}

// remove_empty_subdirectories

TEST_F(recursive_removal, directories_without_files_are_removed_from_the_bottom_up) {
  struct {
    drawing drawn;
    bool remove_root;
    names left;
  } const rows[] = {
      {{"d/"}, false, {"d/"}},
      {{"d/"}, true, {}},
      {{"d/a/b/c/", "d/e/", "d/f/g/"}, false, {"d/"}},
      {{"d/a/b/c/", "d/e/", "d/f/g/"}, true, {}},
      {{"d/a/b/c/", "d/e/f", "d/.g/", "d/h"}, true, {"d/", "d/e/", "d/e/f", "d/h"}},
      {{"d/a/b/.x", "d/a/c/"}, true, {"d/", "d/a/", "d/a/b/", "d/a/b/.x"}},
      {{"d/a b/", "d/l\nf/", "d/%s%n/", "d/.../", "d/ /"}, true, {}},
      // Links to directories are followed, and go if what they lead to ends up empty.
      {{"t/a/b/", "d/l -> ../t"}, true, {"t/"}},
      {{"t/a/b/", "t/f", "d/l -> ../t"}, true, {"d/", "d/l", "t/", "t/f"}},
      {{"t/a/", "d -> t"}, true, {"t/"}},
      {{"t/a/", "d -> t"}, false, {"d", "t/"}},
      {{"t", "d/l -> ../t"}, true, {"d/", "d/l", "t"}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.drawn));
    m_tree.draw(row.drawn);
    EXPECT_EQ(text_of(FIO_FILE_SYSTEM::remove_empty_subdirectories(m_tree.path("d"), row.remove_root)), "no error");
    EXPECT_EQ(left(), row.left);
    clear();
  }
  EXPECT_EQ(messages(), names());
}

TEST_F(recursive_removal, what_is_no_directory_is_an_error) {
  m_tree.draw({"f", "l -> l", "m -> missing", "n -> f"});
  names const before = left();
  for (char const* name : {"f", "l", "m", "n", "missing", "f/x", "%s\n"}) {
    std::string const path = m_tree.path(name);
    for (bool const remove_root : {false, true}) {
      auto const error = FIO_FILE_SYSTEM::remove_empty_subdirectories(path, remove_root);
      EXPECT_EQ(text_of(error), not_a_directory(path));
      EXPECT_NE(dynamic_cast<FIO::ERRC::NOT_A_DIRECTORY_ERRC const*>(error.get()), nullptr);
    }
  }
  EXPECT_EQ(text_of(FIO_FILE_SYSTEM::remove_empty_subdirectories("", true)), not_a_directory(""));
  EXPECT_EQ(left(), before);
  EXPECT_EQ(messages(), names());
}

TEST_F(recursive_removal, what_cannot_be_listed_is_an_error) {
  m_tree.draw({"d/e/"});
  ordered_streams ordered;
  std::string const d = m_tree.path("d");
  ordered.refuse(d);
  for (bool const remove_root : {false, true}) {
    auto const error = FIO_FILE_SYSTEM::remove_empty_subdirectories(d, remove_root);
    EXPECT_EQ(text_of(error), failed_to_open(d));
    EXPECT_NE(dynamic_cast<FIO::ERRC::FAILED_TO_OPEN_DIRECTORY_ERRC const*>(error.get()), nullptr);
  }
  EXPECT_EQ(left(), (names{"d/", "d/e/"}));
  EXPECT_EQ(messages(), names());
}

TEST_F(recursive_removal, a_directory_that_cannot_be_removed_is_an_error) {
  m_tree.draw({"d/"});
  std::string const d = m_tree.path("d");
  platform_double::replaced().remove = remove_refusing({d});
  auto const error = FIO_FILE_SYSTEM::remove_empty_subdirectories(d, true);
  EXPECT_EQ(text_of(error), failed_to_remove(d));
  EXPECT_NE(dynamic_cast<FIO::ERRC::FAILED_TO_REMOVE_DIRECTORY_ERRC const*>(error.get()), nullptr);
  EXPECT_EQ(text_of(FIO_FILE_SYSTEM::remove_empty_subdirectories(d, false)), "no error");
  EXPECT_EQ(left(), names{"d/"});
  EXPECT_EQ(messages(), names());
}

TEST_F(recursive_removal, a_directory_that_becomes_unreadable_counts_as_empty_and_cannot_go) {
  m_tree.draw({"d/f"});
  std::string const d = m_tree.path("d");
  ordered_streams ordered;
  ordered.refuse(d, 1);
  EXPECT_EQ(text_of(FIO_FILE_SYSTEM::remove_empty_subdirectories(d, true)), failed_to_remove(d));
  EXPECT_EQ(left(), (names{"d/", "d/f"}));
}

TEST_F(recursive_removal, the_first_error_travels_up_and_later_ones_are_logged) {
  m_tree.draw({"d/a/x/", "d/b/%s/", "d/c/", "d/e/f/", "d/g/"});
  ordered_streams ordered;
  ordered.refuse(m_tree.path("d/a/x"));
  ordered.refuse(m_tree.path("d/b/%s"));
  platform_double::replaced().remove = remove_refusing({m_tree.path("d/e/f")});
  auto const error = FIO_FILE_SYSTEM::remove_empty_subdirectories(m_tree.path("d"), true);
  EXPECT_EQ(text_of(error), failed_to_open(m_tree.path("d/a/x")));
  EXPECT_EQ(messages(), (names{"remove_empty_subdirectories failed with: " + failed_to_open(m_tree.path("d/b/%s")),
                               "remove_empty_subdirectories failed with: " + failed_to_remove(m_tree.path("d/e/f"))}));
  for (auto const& message : platform_double::debug_messages()) {
    EXPECT_EQ(message.module, "FIO");
    EXPECT_EQ(message.format, "remove_empty_subdirectories failed with: %s");
  }
  EXPECT_EQ(left(), (names{"d/", "d/a/", "d/a/x/", "d/b/", "d/b/%s/", "d/e/", "d/e/f/"}));
}

TEST_F(recursive_removal, a_root_that_cannot_go_is_logged_behind_another_error) {
  m_tree.draw({"d/%s/"});
  std::string const d = m_tree.path("d");
  platform_double::replaced().remove = [d](char const* path) {
    if (path != d) {
      remove_of_the_system(path); // it goes, but the caller is told that it does not
    }
    return -1;
  };
  auto const error = FIO_FILE_SYSTEM::remove_empty_subdirectories(d, true);
  EXPECT_EQ(text_of(error), failed_to_remove(d + "/%s"));
  EXPECT_EQ(messages(), names{"remove_empty_subdirectories failed to remove root: " + d});
  EXPECT_EQ(platform_double::debug_messages()[0].module, "FIO");
  EXPECT_EQ(platform_double::debug_messages()[0].format, "remove_empty_subdirectories failed to remove root: %s");
  EXPECT_EQ(left(), names{"d/"});
}

TEST_F(recursive_removal, a_subdirectory_that_vanishes_is_an_error_that_stops_nothing) {
  m_tree.draw({"d/a/", "d/b/"});
  ordered_streams const ordered;
  std::string const vanished = m_tree.path("d/a");
  platform_double::replaced().osi_status = [vanished](char const* path, struct stat* buffer) {
    if (path == vanished) {
      ::rmdir(path);
    }
    return ::stat(path, buffer);
  };
  EXPECT_EQ(text_of(FIO_FILE_SYSTEM::remove_empty_subdirectories(m_tree.path("d"), true)), not_a_directory(vanished));
  EXPECT_EQ(left(), names());
  EXPECT_EQ(messages(), names());
}

TEST_F(recursive_removal, empty_directories_are_removed_by_these_calls) {
  m_tree.draw({"d/e/", "d/f"});
  enter(m_tree);
  ordered_streams const ordered;
  auto const run = [](bool remove_root) {
    return calls_but_reading([=] { FIO_FILE_SYSTEM::remove_empty_subdirectories("d", remove_root); });
  };
  EXPECT_EQ(run(true), (names{"osi_status(d)",   "opendir(d)",   "stat(d/.)",   "stat(d/..)",   "stat(d/e)",
                              "osi_status(d/e)", "opendir(d/e)", "stat(d/e/.)", "stat(d/e/..)", "closedir()",
                              "osi_status(d/e)", "opendir(d/e)", "stat(d/e/.)", "stat(d/e/..)", "closedir()",
                              "remove(d/e)",     "stat(d/f)",    "access(d/f)", "closedir()",   "osi_status(d)",
                              "opendir(d)",      "stat(d/.)",    "stat(d/..)",  "stat(d/f)",    "access(d/f)",
                              "closedir()"}));
  EXPECT_EQ(run(false), (names{"osi_status(d)", "opendir(d)", "stat(d/.)", "stat(d/..)", "stat(d/f)", "access(d/f)",
                               "closedir()"}));
}

TEST_F(recursive_removal, a_text_counts_up_to_its_first_nul) {
  enter(m_tree);
  m_tree.draw({"d/sub/", "f", "e/sub/file"});
  EXPECT_EQ(FIO_FILE_SYSTEM::remove_empty_subdirectories(std::string("d\0x", 3), true), nullptr);
  EXPECT_FALSE(FIO_FILE_SYSTEM::exists("d"));
  for (std::string const& text : {std::string("f\0x", 3), std::string("e\0y", 3)}) {
    std::string path = text;
    EXPECT_TRUE(FIO_FILE_SYSTEM::do_remove_recursively(path, nullptr, nullptr));
    EXPECT_EQ(path, text);
    EXPECT_FALSE(FIO_FILE_SYSTEM::exists(path.c_str()));
  }
}

TEST_F(recursive_removal, the_path_of_a_removal_has_its_content_again_when_memory_runs_out) {
  std::string const name = repeated(100, 'n');
  std::string const content = std::string("top\0unseen", 10);
  enter(m_tree);
  // A walk whose record cannot be stored leaves its stream open.
  std::vector<DIR*> open;
  open.reserve(16);
  platform_double::replaced().opendir = [&open](char const* path) {
    open.push_back(opendir_of_the_system(path));
    return open.back();
  };
  platform_double::replaced().closedir = [&open](DIR* stream) {
    open.erase(std::remove(open.begin(), open.end(), stream), open.end());
    return closedir_of_the_system(stream);
  };
  bool done = false;
  for (long failures = 0; !done && failures != 100; ++failures) {
    m_tree.make_file("top/" + name + '/' + name);
    std::string path = content;
    {
      allocation_failure const failing(failures + 1);
      try {
        done = FIO_FILE_SYSTEM::do_remove_recursively(path, nullptr, nullptr);
      } catch (std::bad_alloc const&) {
      }
    }
    EXPECT_EQ(path, content) << failures;
    while (!open.empty()) {
      ::closedir(open.back());
    }
  }
  EXPECT_TRUE(done);
  EXPECT_EQ(left(), names());
}
