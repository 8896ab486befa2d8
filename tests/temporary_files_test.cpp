#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

#include "ccl/fio/fio_file_sys.h"
#include "tests/support/calls.h"
#include "tests/support/ever_more_memory.h"
#include "tests/support/path_texts.h"
#include "tests/support/paths.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"

namespace {

// What the doubles of `gethostname` and `time` tell, once they are asked to.
std::atomic<char const*> told_host{nullptr};
std::atomic<int> host_answer{0};
std::atomic<long> told_time{-1};
std::atomic<int> host_questions{0};
std::atomic<int> time_questions{0};
std::atomic<std::size_t> host_size{0};

} // namespace

extern "C" int gethostname(char* name, std::size_t size) noexcept {
  char const* const host = told_host;
  if (host == nullptr) {
    int (*original)(char*, std::size_t);
    *reinterpret_cast<void**>(&original) = ::dlsym(RTLD_NEXT, "gethostname");
    return original(name, size);
  }
  ++host_questions;
  host_size = size;
  // As the system does, without an end where the name fills the buffer.
  for (std::size_t i = 0; i != size; ++i) {
    name[i] = host[i];
    if (host[i] == '\0') {
      break;
    }
  }
  return host_answer;
}

extern "C" std::time_t time(std::time_t* kept) noexcept {
  if (told_time == -1) {
    std::time_t (*original)(std::time_t*);
    *reinterpret_cast<void**>(&original) = ::dlsym(RTLD_NEXT, "time");
    return original(kept);
  }
  ++time_questions;
  if (kept != nullptr) {
    *kept = told_time;
  }
  return told_time;
}

namespace {

using platform_double::replaced;
using strings = std::vector<std::string>;

static_assert(has_type<std::string (*)(char const*)>(&FIO_FILE_SYSTEM::get_tmp_path));
static_assert(has_type<bool (*)(char const*, int, char const*)>(&FIO_FILE_SYSTEM::remove_temp_files));

constexpr std::uint64_t thread_factor = 0xf78daea9e4c87399;
constexpr std::uint64_t time_factor = 0xa651cd391142cc1f;

std::uint64_t thread_id() { return static_cast<std::uint64_t>(::syscall(SYS_gettid)); }

std::uint64_t hash_of(std::string const& host) {
  std::uint64_t hash = 0xcbf29ce484222325;
  for (char const character : host) {
    std::uint64_t byte = static_cast<unsigned char>(character);
    if (byte > 127) {
      byte += 0xffffffffffffff00;
    }
    hash = (hash ^ byte) * 0x100000001b3;
  }
  return hash;
}

std::string name_of(std::uint64_t identifier) {
  std::string digits;
  auto rest = static_cast<std::uint32_t>(identifier);
  do {
    digits.insert(digits.begin(), "0123456789ABCDEF"[rest % 16]);
    rest /= 16;
  } while (rest != 0);
  return ".korvane." + digits + ".tmp";
}

// The number in a name, which must have exactly the right form.
std::uint32_t number_of(std::string const& name) {
  std::uint32_t number = 0;
  for (std::size_t i = 9; i < name.size() && name[i] != '.'; ++i) {
    number = number * 16 + static_cast<std::uint32_t>(std::string("0123456789ABCDEF").find(name[i]));
  }
  EXPECT_EQ(name, name_of(number));
  return number;
}

std::string next_name() { return FIO_FILE_SYSTEM::get_tmp_path(""); }

struct first_use {
  char const* description;
  std::string host;
  int host_answer;
  long time;
  std::uint32_t below; // the first number is made to lie below this one by moving the time
};

// Compares the names that this thread gets with those that the rules make of the square of the call's index.
bool has_names(std::uint64_t base, std::uint64_t first_index) {
  bool all = true;
  for (std::uint64_t index = first_index; index != first_index + 5; ++index) {
    std::string const expected = name_of(thread_id() * thread_factor + index * index + 1 + base);
    std::string const name = next_name();
    if (name != expected) {
      std::fprintf(stderr, "call %d: %s instead of %s\n", static_cast<int>(index), name.c_str(), expected.c_str());
      all = false;
    }
  }
  return all;
}

// In a process that has not named a file before.
bool has_first_names(first_use const& use) {
  std::string const hashed = use.host.substr(0, 256);
  long now = use.time;
  auto const base = [&hashed, &now] {
    return (hash_of(hashed) * 0x4c51b1496b317d63 + static_cast<std::uint64_t>(now)) * time_factor;
  };
  while (static_cast<std::uint32_t>(thread_id() * thread_factor + 1 + base()) > use.below) {
    ++now;
  }
  told_host = use.host.c_str();
  host_answer = use.host_answer;
  told_time = now;
  bool all = has_names(base(), 0);
  std::thread([&all, &base] { all = has_names(base(), 5) && all; }).join();
  all = has_names(base(), 10) && all;
  if (host_questions != 1 || time_questions != 1 || host_size != 256) {
    std::fprintf(stderr, "host asked for %d times (size %d), time %d times\n", host_questions.load(),
                 static_cast<int>(host_size), time_questions.load());
    all = false;
  }
  return all;
}

int status_without_a_trace(char const* path, struct stat* buffer) { return ::fstatat(AT_FDCWD, path, buffer, 0); }

class temporary_files : public fio_test {
protected:
  void SetUp() override {
    fio_test::SetUp();
    enter(m_tree);
  }

  // Runs in the child of a death test, which nobody cleans up behind.
  [[noreturn]] void leave(bool succeeded) const {
    std::error_code ignored;
    std::filesystem::current_path("/", ignored);
    std::filesystem::remove(m_tree.root(), ignored);
    ::_exit(succeeded ? 0 : 1);
  }

  // The entries of the tree, without "." and "..".
  strings entries() const {
    strings result;
    for (auto const& entry : std::filesystem::recursive_directory_iterator(m_tree.root())) {
      result.push_back(entry.path().lexically_relative(m_tree.root()).string());
    }
    return sorted(result);
  }

  // From here on the file system's present is this second, and files have the given times. Directories are young.
  void set_clock(long now, std::map<std::string, long> times = {}) {
    replaced().osi_open = [this](char const* path, int flags, int mode) {
      m_probes.emplace_back(path);
      return ::open(path, flags, mode);
    };
    replaced().osi_status = [this, now, times](char const* path, struct stat* buffer) {
      int const result = status_without_a_trace(path, buffer);
      buffer->st_mtime = LONG_MAX;
      if (!m_probes.empty() && m_probes.back() == path) {
        buffer->st_mtime = now;
      } else if (auto const found = times.find(path); found != times.end()) {
        buffer->st_mtime = found->second;
      }
      return result;
    };
  }

  strings m_probes;
};

} // namespace

TEST_F(temporary_files, the_first_names_of_a_process_come_from_host_time_thread_and_counters) {
  GTEST_FLAG_SET(death_test_style, "threadsafe"); // a new program, in which nothing was named before
  first_use const rows[] = {
      {"no host", "", 0, 1700000000, UINT32_MAX},
      {"a host", "host", 0, 1700000000, UINT32_MAX},
      {"another time", "host", 0, 1, UINT32_MAX},
      {"bytes above 127", "h\xc3\xb6st\xff\x80", 0, 1700000000, UINT32_MAX},
      {"a failure that is not looked at", "host", -1, 1700000000, UINT32_MAX},
      {"the longest name", repeated(256, 'h'), 0, 1700000000, UINT32_MAX},
      {"a name that is cut", repeated(300, 'h'), 0, 1700000000, UINT32_MAX},
      {"leading zeros", "host", 0, 1700000000, 0xfff},
  };
  for (first_use const& row : rows) {
    SCOPED_TRACE(row.description);
    EXPECT_EXIT(leave(has_first_names(row)), testing::ExitedWithCode(0), "");
  }
}

TEST_F(temporary_files, a_name_stands_in_the_directory_of_the_path) {
  m_tree.draw({"d/"});
  struct {
    char const* path;
    char const* directory;
  } const rows[] = {
      // no directory
      {"", ""},
      {"name", ""},
      {".", ""},
      {"*?", ""},
      // a directory, with its separator
      {"/tmp/x", "/tmp/"},
      {"/tmp/", "/tmp/"},
      {"/tmp", "/"},
      {"/", "/"},
      {"d/x.y", "d/"},
      {"d/", "d/"},
      {"d", ""},
      {"./d/../x", "./d/../"},
      {"missing/x", "missing/"},
      {"d//x", "d//"},
      // either separator, the last one
      {"\\", "\\"},
      {"d\\x", "d\\"},
      {"a\\d/x", "a\\d/"},
      {"a/d\\x", "a/d\\"},
      {"C:x", ""},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.path);
    std::string const first = FIO_FILE_SYSTEM::get_tmp_path(row.path);
    std::string const second = FIO_FILE_SYSTEM::get_tmp_path(row.path);
    std::size_t const length = std::string(row.directory).size();
    EXPECT_EQ(first.substr(0, length), row.directory);
    EXPECT_EQ(second.substr(0, length), row.directory);
    EXPECT_NE(number_of(first.substr(length)), number_of(second.substr(length)));
  }
  EXPECT_EQ(entries(), strings({"d"})) << "nothing is made";
  EXPECT_EQ(messages(), strings());
}

TEST_F(temporary_files, the_steps_from_name_to_name_are_the_odd_numbers) {
  std::uint32_t before = number_of(next_name());
  std::uint32_t name = number_of(next_name());
  std::uint32_t step = name - before;
  EXPECT_EQ(step % 2, 1u);
  for (int i = 0; i != 100; ++i) {
    before = name;
    name = number_of(next_name());
    EXPECT_EQ(name - before, step + 2);
    step = name - before;
  }
}

TEST_F(temporary_files, a_taken_name_is_passed_over) {
  for (int const taken : {0, 1, 2, 998, 999}) {
    SCOPED_TRACE(taken);
    strings asked;
    replaced().osi_exists = [&asked, taken](char const* path) {
      asked.emplace_back(path);
      return static_cast<int>(asked.size()) <= taken ? 1 : 0;
    };
    std::string const name = FIO_FILE_SYSTEM::get_tmp_path("d/x");
    ASSERT_EQ(asked.size(), static_cast<std::size_t>(taken) + 1);
    EXPECT_EQ(name, asked.back());
    EXPECT_EQ(std::set<std::string>(asked.begin(), asked.end()).size(), asked.size());
  }
}

TEST_F(temporary_files, the_thousandth_name_is_answered_though_it_is_taken) {
  strings asked;
  replaced().osi_exists = [&asked](char const* path) {
    asked.emplace_back(path);
    return 1;
  };
  std::string const name = FIO_FILE_SYSTEM::get_tmp_path("d/x");
  ASSERT_EQ(asked.size(), 1000u);
  EXPECT_EQ(name, asked.back());
  EXPECT_EQ(std::set<std::string>(asked.begin(), asked.end()).size(), 1000u);
  EXPECT_EQ(messages(), strings());
}

TEST_F(temporary_files, a_name_too_long_for_a_path_counts_as_free) {
  std::string const directory = repeated(longest_path, 'd') + '/';
  std::string name;
  EXPECT_EQ(calls_of([&] { name = FIO_FILE_SYSTEM::get_tmp_path(directory.c_str()); }), strings());
  EXPECT_EQ(name.substr(0, directory.size()), directory);
  number_of(name.substr(directory.size()));
  EXPECT_EQ(messages(), strings());
}

TEST_F(temporary_files, a_removal_makes_a_probe_and_looks_at_it_before_it_begins) {
  m_tree.draw({"d/"});
  int open_flags = 0;
  int open_mode = 0;
  int descriptor = -1;
  std::string probe;
  replaced().osi_exists = [](char const* path) { return ::faccessat(AT_FDCWD, path, F_OK, 0) == 0 ? 1 : 0; };
  replaced().osi_open = [&](char const* path, int flags, int mode) {
    probe = path;
    open_flags = flags;
    open_mode = mode;
    return descriptor = ::open(path, flags, mode);
  };
  replaced().osi_status = [&](char const* path, struct stat* buffer) {
    if (path == probe) {
      EXPECT_EQ(::fcntl(descriptor, F_GETFD), -1) << "closed by now";
      auto const* const bytes = reinterpret_cast<unsigned char const*>(buffer);
      EXPECT_EQ(std::count(bytes, bytes + sizeof *buffer, 0), static_cast<long>(sizeof *buffer));
    }
    return status_without_a_trace(path, buffer);
  };
  strings calls = calls_of([] { EXPECT_TRUE(FIO_FILE_SYSTEM::remove_temp_files("d/", 3600, nullptr)); });
  EXPECT_EQ(open_flags, 0xc1);
  EXPECT_EQ(open_mode, 0x1b6);
  EXPECT_EQ(probe.substr(0, 2), "d/");
  number_of(probe.substr(2));
  ASSERT_GE(calls.size(), 6u);
  EXPECT_EQ(calls.back(), "osi_chdir(" + m_tree.root() + ")");
  calls.resize(6);
  EXPECT_EQ(calls, strings({"osi_exists(" + probe + ")", "osi_open(" + probe + ")", "osi_status(" + probe + ")",
                            "remove(" + probe + ")", "osi_exists(d/)", "osi_getcwd(1024)"}));
  EXPECT_EQ(entries(), strings({"d"}));
  EXPECT_EQ(messages(), strings());
}

TEST_F(temporary_files, the_probe_stands_in_the_directory_of_the_text) {
  m_tree.draw({"d/e/"});
  std::string const root = m_tree.root();
  struct {
    std::string directory;
    std::string probe_directory;
    bool succeeded;
  } const rows[] = {
      {"d", "", true},
      {"d/", "d/", true},
      {"d/e", "d/", true},
      {"d/e/", "d/e/", true},
      {root + "/d", root + '/', true},
      {root + "/d/", root + "/d/", true},
      {"missing", "", true},
      {".", "", true},
      {"", "", true},
      {"missing/", "missing/", false},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.directory);
    m_probes.clear();
    set_clock(1000000);
    EXPECT_EQ(FIO_FILE_SYSTEM::remove_temp_files(row.directory.c_str(), 0, nullptr), row.succeeded);
    ASSERT_EQ(m_probes.size(), row.succeeded ? 1u : 100u);
    EXPECT_EQ(m_probes[0].substr(0, row.probe_directory.size()), row.probe_directory);
    number_of(m_probes[0].substr(row.probe_directory.size()));
    EXPECT_EQ(entries(), strings({"d", "d/e"}));
  }
}

TEST_F(temporary_files, a_hundred_probes_are_tried) {
  for (int const failing : {0, 1, 99, 100, 200}) {
    SCOPED_TRACE(failing);
    m_tree.draw({"d/.korvane.1.tmp"});
    strings tried;
    set_clock(1000000, {{"d/.korvane.1.tmp", 1}});
    auto const opening = replaced().osi_open;
    replaced().osi_open = [&](char const* path, int flags, int mode) {
      tried.emplace_back(path);
      return static_cast<int>(tried.size()) <= failing ? -1 : opening(path, flags, mode);
    };
    bool const succeeded = failing < 100;
    EXPECT_EQ(FIO_FILE_SYSTEM::remove_temp_files("d", 0, nullptr), succeeded);
    EXPECT_EQ(tried.size(), static_cast<std::size_t>(succeeded ? failing + 1 : 100));
    EXPECT_EQ(std::set<std::string>(tried.begin(), tried.end()).size(), tried.size());
    EXPECT_EQ(entries(), succeeded ? strings({"d"}) : strings({"d", "d/.korvane.1.tmp"}));
  }
  EXPECT_EQ(messages(), strings());
}

TEST_F(temporary_files, without_a_probe_nothing_is_removed_or_read) {
  replaced().osi_exists = [](char const*) { return 0; };
  replaced().osi_open = [](char const*, int, int) { return -1; };
  strings const calls = calls_of([] { EXPECT_FALSE(FIO_FILE_SYSTEM::remove_temp_files("d", 0, nullptr)); });
  ASSERT_EQ(calls.size(), 200u);
  for (std::size_t i = 0; i != calls.size(); i += 2) {
    EXPECT_EQ(calls[i].substr(0, 11), "osi_exists(");
    EXPECT_EQ(calls[i + 1], "osi_open" + calls[i].substr(10));
  }
}

TEST_F(temporary_files, only_minus_one_is_no_descriptor) {
  int opened = 0;
  replaced().osi_open = [&opened](char const*, int, int) {
    ++opened;
    return -2;
  };
  EXPECT_FALSE(FIO_FILE_SYSTEM::remove_temp_files("d", 0, nullptr)) << "the probe has no status";
  EXPECT_EQ(opened, 1);
}

TEST_F(temporary_files, a_probe_without_a_status_is_removed_and_ends_the_removal) {
  m_tree.draw({"d/.korvane.1.tmp"});
  std::string probe;
  replaced().osi_exists = [](char const* path) { return ::faccessat(AT_FDCWD, path, F_OK, 0) == 0 ? 1 : 0; };
  replaced().osi_status = [&probe](char const* path, struct stat* buffer) {
    probe = path;
    buffer->st_mtime = LONG_MAX;
    return -1;
  };
  strings const calls = calls_of([] { EXPECT_FALSE(FIO_FILE_SYSTEM::remove_temp_files("d/", 0, nullptr)); });
  EXPECT_EQ(calls, strings({"osi_exists(" + probe + ")", "osi_open(" + probe + ")", "osi_status(" + probe + ")",
                            "remove(" + probe + ")"}));
  EXPECT_EQ(entries(), strings({"d", "d/.korvane.1.tmp"}));
}

TEST_F(temporary_files, a_failed_removal_is_no_failure) {
  m_tree.draw({"d/.korvane.1.tmp", "d/.korvane.2.tmp"});
  set_clock(1000000, {{"d//.korvane.1.tmp", 1}, {"d//.korvane.2.tmp", 1}});
  strings asked;
  replaced().remove = [&asked](char const* path) {
    asked.emplace_back(path);
    errno = EPERM;
    return -1;
  };
  EXPECT_TRUE(FIO_FILE_SYSTEM::remove_temp_files("d/", 0, nullptr));
  ASSERT_EQ(asked.size(), 3u);
  EXPECT_EQ(asked[0], m_probes[0]);
  EXPECT_EQ(sorted({asked[1], asked[2]}), strings({"d//.korvane.1.tmp", "d//.korvane.2.tmp"}));
}

TEST_F(temporary_files, what_is_older_than_the_age_goes) {
  constexpr long now = 1000000;
  struct {
    int age;
    long time;
    bool goes;
  } const rows[] = {
      {0, now - 1, true},
      {0, now, false},
      {0, now + 1, false},
      {10, now - 11, true},
      {10, now - 10, false},
      {-5, now + 4, true},
      {-5, now + 5, false},
      // where the difference needs more than 32 bits
      {INT_MAX, now - 2147483648, true},
      {INT_MAX, now - 2147483647, false},
      {INT_MIN, now + 2147483647, true},
      {INT_MIN, now + 2147483648, false},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(testing::Message() << "age " << row.age << ", time " << row.time);
    m_tree.draw({"d/.korvane.1.tmp"});
    set_clock(now, {{"d/.korvane.1.tmp", row.time}});
    EXPECT_TRUE(FIO_FILE_SYSTEM::remove_temp_files("d", row.age, nullptr));
    EXPECT_EQ(entries(), row.goes ? strings({"d"}) : strings({"d", "d/.korvane.1.tmp"}));
  }
}

TEST_F(temporary_files, a_pattern_chooses_what_goes_and_null_means_temporary_names) {
  struct {
    char const* pattern;
    char const* name;
    bool goes;
  } const rows[] = {
      {nullptr, ".korvane.1.tmp", true},          {nullptr, ".korvane.5A81F3C2.tmp", true},
      {nullptr, ".korvane.any name.x.tmp", true}, {nullptr, ".korvane..tmp", true},
      {nullptr, "sub/.korvane.1.tmp", true},      {nullptr, ".korvane.tmp", false},
      {nullptr, ".korvane.1.tmp.bak", false},     {nullptr, ".korvane.1.TMP", false},
      {nullptr, ".Korvane.1.tmp", false},         {nullptr, "korvane.1.tmp", false},
      {nullptr, "x.korvane.1.tmp", false},        {nullptr, ".korvane.1_tmp", false},
      {nullptr, ".korvane_1.tmp", false},         {"*.log", "a.log", true},
      {"*.log", ".korvane.1.tmp", false},         {"", "anything", true},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(testing::Message() << row.name << " by " << (row.pattern != nullptr ? row.pattern : "null"));
    std::string const path = std::string("d/") + row.name;
    m_tree.draw({"d/sub/"});
    m_tree.make_file(path);
    set_clock(1000000, {{path, 1}});
    EXPECT_TRUE(FIO_FILE_SYSTEM::remove_temp_files("d", 0, row.pattern));
    EXPECT_EQ(entries(), row.goes ? strings({"d", "d/sub"}) : sorted({"d", "d/sub", path}));
    std::filesystem::remove(path);
  }
}

TEST_F(temporary_files, the_present_is_that_of_the_file_system) {
  m_tree.draw({"d/.korvane.old.tmp", "d/.korvane.new.tmp"});
  timespec const old[] = {{1000, 0}, {1000, 0}};
  ASSERT_EQ(::utimensat(AT_FDCWD, "d/.korvane.old.tmp", old, 0), 0);
  told_time = 1; // whatever the clock of the process says
  EXPECT_TRUE(FIO_FILE_SYSTEM::remove_temp_files("d/", 3600, nullptr));
  told_time = -1;
  EXPECT_EQ(entries(), strings({"d", "d/.korvane.new.tmp"}));
}

TEST_F(temporary_files, a_folder_that_cannot_be_written_keeps_everything) {
  m_tree.draw({"d/.korvane.1.tmp"});
  timespec const old[] = {{1000, 0}, {1000, 0}};
  ASSERT_EQ(::utimensat(AT_FDCWD, "d/.korvane.1.tmp", old, 0), 0);
  ASSERT_EQ(::chmod("d", 0555), 0);
  EXPECT_TRUE(holds_for_ordinary_user(
      [](scratch_tree const& tree) {
        bool removed = true;
        strings const calls =
            calls_of([&] { removed = FIO_FILE_SYSTEM::remove_temp_files(tree.path("d/").c_str(), 0, nullptr); });
        auto const is_open = [](std::string const& call) { return call.rfind("osi_open(", 0) == 0; };
        return !removed && std::count_if(calls.begin(), calls.end(), is_open) == 100;
      },
      m_tree));
  EXPECT_EQ(entries(), strings({"d", "d/.korvane.1.tmp"}));
}

TEST_F(temporary_files, no_step_of_the_counters_is_lost_between_threads) {
  constexpr int threads = 4;
  constexpr int names_of_each = 100;
  replaced().osi_exists = [](char const*) { return 0; }; // so that each name takes one step
  std::uint32_t const before = number_of(next_name());
  std::uint32_t const last = number_of(next_name());
  std::vector<strings> taken(threads);
  std::vector<std::thread> running;
  for (strings& names : taken) {
    running.emplace_back([&names] {
      for (int i = 0; i != names_of_each; ++i) {
        names.push_back(next_name());
      }
    });
  }
  for (std::thread& thread : running) {
    thread.join();
  }
  std::uint32_t expected = last;
  std::uint32_t step = last - before;
  for (int i = 0; i != threads * names_of_each + 1; ++i) {
    step += 2;
    expected += step;
  }
  EXPECT_EQ(number_of(next_name()), expected);
  for (strings const& names : taken) {
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
  }
}

TEST_F(temporary_files, a_fork_differs_by_its_thread_alone) {
  number_of(next_name());
  int channel[2];
  ASSERT_EQ(::pipe(channel), 0);
  pid_t const child = ::fork();
  if (child == 0) {
    std::string const name = next_name();
    bool const written = ::write(channel[1], name.data(), name.size()) == static_cast<ssize_t>(name.size());
    ::_exit(written ? 0 : 1);
  }
  ASSERT_GT(child, 0);
  ::close(channel[1]);
  char buffer[64] = {};
  EXPECT_GT(::read(channel[0], buffer, sizeof buffer - 1), 0);
  ::close(channel[0]);
  EXPECT_EQ(::waitpid(child, nullptr, 0), child);
  std::uint64_t const distance = (static_cast<std::uint64_t>(child) - thread_id()) * thread_factor;
  EXPECT_EQ(number_of(buffer), static_cast<std::uint32_t>(number_of(next_name()) + distance));
}

TEST_F(temporary_files, names_opened_exclusively_are_never_doubled) {
  constexpr int processes = 3;
  constexpr int threads = 3;
  constexpr int files_of_each = 20;
  m_tree.draw({"d/"});
  auto const take = [] {
    for (int taken = 0; taken != files_of_each;) {
      int const file = ::open(FIO_FILE_SYSTEM::get_tmp_path("d/").c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
      taken += file != -1 ? 1 : 0;
      ::close(file);
    }
  };
  std::vector<pid_t> children;
  for (int i = 0; i != processes; ++i) {
    pid_t const child = ::fork();
    if (child == 0) {
      std::vector<std::thread> running;
      for (int j = 0; j != threads; ++j) {
        running.emplace_back(take);
      }
      for (std::thread& thread : running) {
        thread.join();
      }
      ::_exit(0);
    }
    children.push_back(child);
  }
  for (pid_t const child : children) {
    int status = -1;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  strings const names = entries();
  EXPECT_EQ(names.size(), static_cast<std::size_t>(processes * threads * files_of_each + 1));
  for (std::string const& name : names) {
    if (name != "d") {
      number_of(name.substr(2));
    }
  }
}

TEST_F(temporary_files, a_wildcard_in_the_directory_is_asked_about_as_one) {
  strings const calls = calls_of([] { (void)FIO_FILE_SYSTEM::get_tmp_path("no such directory */x"); });
  EXPECT_EQ(calls, strings{"opendir(no such directory *)"});
}

TEST_F(temporary_files, memory_that_runs_out_leaves_no_descriptor_and_removes_nothing_else) {
  enter(m_tree);
  m_tree.draw({"a directory with a name that needs memory/keep"});
  std::string const directory = "a directory with a name that needs memory/";
  with_ever_more_memory([&] { (void)FIO_FILE_SYSTEM::get_tmp_path(directory.c_str()); }, [](bool /*enough*/) {});
  DIR* newest = nullptr;
  replaced().opendir = [&newest](char const* path) { return newest = opendir_of_the_system(path); };
  int const streams = platform_double::open_streams();
  int left_open = 0;
  bool answer = false;
  with_ever_more_memory([&] { answer = FIO_FILE_SYSTEM::remove_temp_files(directory.c_str(), 0, nullptr); },
                        [&](bool /*enough*/) {
                          EXPECT_TRUE(FIO_FILE_SYSTEM::exists((directory + "keep").c_str()));
                          // Where the record of a walk cannot be stored its stream stays open.
                          if (platform_double::open_streams() != streams) {
                            ++left_open;
                            ::closedir(newest);
                          }
                        });
  EXPECT_TRUE(answer);
  EXPECT_EQ(left_open, 1);
}
