#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utime.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "ccl/fio/fio_file_sys.h"
#include "tests/support/calls.h"
#include "tests/support/ever_more_memory.h"
#include "tests/support/path_texts.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"

namespace fs = std::filesystem;

namespace {

using F = FIO_FILE_SYSTEM;
using platform_double::replaced;
using strings = std::vector<std::string>;

// What a test puts in the place of the stream operations and of the calls that no layer stands before. An empty one
// means the real operation. All of them are recorded among the other calls while `watching` is true.
struct stream_replacements {
  std::function<std::size_t(void*, std::size_t, std::FILE*)> fread;
  std::function<std::size_t(void const*, std::size_t, std::FILE*)> fwrite;
  std::function<int(std::FILE*)> fflush;
  std::function<int(std::FILE*)> fclose;
  std::function<int(int)> fsync;
  std::function<int(char const*, utimbuf const*)> utime;
};

bool watching = false;

stream_replacements& replaced_streams() {
  static auto* const instance = new stream_replacements;
  return *instance;
}

template <typename Function>
Function* real(Function* /*double_of*/, char const* symbol) {
  Function* function;
  *reinterpret_cast<void**>(&function) = ::dlsym(RTLD_NEXT, symbol);
  return function;
}

std::string name_of(int descriptor) {
  char target[4096] = {};
  std::string const link = "/proc/self/fd/" + std::to_string(descriptor);
  return ::readlink(link.c_str(), target, sizeof target - 1) > 0 ? fs::path(target).filename().string() : "unknown";
}

void note(std::string const& call) {
  if (watching) {
    int const kept = errno;
    platform_double::calls().push_back(call);
    errno = kept;
  }
}

std::string call_on(char const* name, std::FILE* stream) { return std::string(name) + '(' + name_of(::fileno(stream)); }

std::size_t really_read(void* buffer, std::size_t count, std::FILE* stream) {
  static auto* const original = real(&::fread, "fread");
  return original(buffer, 1, count, stream);
}

std::size_t really_write(void const* buffer, std::size_t count, std::FILE* stream) {
  static auto* const original = real(&::fwrite, "fwrite");
  return original(buffer, 1, count, stream);
}

int really_close(std::FILE* stream) {
  static auto* const original = real(&::fclose, "fclose");
  return original(stream);
}

} // namespace

extern "C" std::size_t fread(void* buffer, std::size_t size, std::size_t count, std::FILE* stream) {
  static auto* const original = real(&::fread, "fread");
  if (!watching) {
    return original(buffer, size, count, stream);
  }
  auto const& replacement = replaced_streams().fread;
  std::size_t const result =
      replacement ? replacement(buffer, size * count, stream) / size : original(buffer, size, count, stream);
  note(call_on("fread", stream) + ", " + std::to_string(size * count) + ") = " + std::to_string(size * result));
  return result;
}

extern "C" std::size_t fwrite(void const* buffer, std::size_t size, std::size_t count, std::FILE* stream) {
  static auto* const original = real(&::fwrite, "fwrite");
  if (!watching) {
    return original(buffer, size, count, stream);
  }
  note(call_on("fwrite", stream) + ", " + std::to_string(size * count) + ')');
  auto const& replacement = replaced_streams().fwrite;
  return replacement ? replacement(buffer, size * count, stream) / size : original(buffer, size, count, stream);
}

extern "C" int fflush(std::FILE* stream) {
  static auto* const original = real(&::fflush, "fflush");
  if (!watching) {
    return original(stream);
  }
  note(call_on("fflush", stream) + ')');
  auto const& replacement = replaced_streams().fflush;
  return replacement ? replacement(stream) : original(stream);
}

extern "C" int fclose(std::FILE* stream) {
  static auto* const original = real(&::fclose, "fclose");
  if (!watching) {
    return original(stream);
  }
  note(call_on("fclose", stream) + ')');
  auto const& replacement = replaced_streams().fclose;
  return replacement ? replacement(stream) : original(stream);
}

extern "C" int setvbuf(std::FILE* stream, char* buffer, int mode, std::size_t size) noexcept {
  static auto* const original = real(&::setvbuf, "setvbuf");
  if (watching) {
    note(call_on("setvbuf", stream) + ", " + (buffer != nullptr ? "local" : "null") +
         (mode == _IOFBF ? ", full, " : ", other, ") + std::to_string(size) + ')');
  }
  return original(stream, buffer, mode, size);
}

extern "C" int fsync(int descriptor) {
  static auto* const original = real(&::fsync, "fsync");
  if (watching) {
    note("fsync(" + name_of(descriptor) + ')');
  }
  auto const& replacement = replaced_streams().fsync;
  return replacement ? replacement(descriptor) : original(descriptor);
}

extern "C" int utime(char const* path, utimbuf const* times) noexcept {
  static auto* const original = real(&::utime, "utime");
  if (watching) {
    note(std::string("utime(") + path + ", " + std::to_string(times->actime) + ", " + std::to_string(times->modtime) +
         ')');
  }
  auto const& replacement = replaced_streams().utime;
  return replacement ? replacement(path, times) : original(path, times);
}

namespace {

class creating_and_copying : public fio_test {
protected:
  void SetUp() override {
    fio_test::SetUp();
    replaced_streams() = {};
    enter(m_tree);
  }
  void TearDown() override {
    replaced_streams() = {};
    fio_test::TearDown();
  }
};

// The calls of an operation, the stream operations among them, without those that the layers make underneath.
template <typename Operation>
strings all_calls_of(Operation operation) {
  strings calls = calls_of([&] {
    watching = true;
    operation();
    watching = false;
  });
  auto const is_underneath = [](std::string const& call) {
    return call.rfind("stat(", 0) == 0 || call.rfind("access(", 0) == 0 || call == "readdir64()";
  };
  calls.erase(std::remove_if(calls.begin(), calls.end(), is_underneath), calls.end());
  return calls;
}

// The same without the stream operations.
template <typename Operation>
strings path_calls_of(Operation operation) {
  strings calls = all_calls_of(operation);
  auto const is_of_a_stream = [](std::string const& call) { return call[0] == 'f' || call.rfind("setvbuf", 0) == 0; };
  calls.erase(std::remove_if(calls.begin(), calls.end(), is_of_a_stream), calls.end());
  return calls;
}

std::string content_of(std::string const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Looks at an entry itself, whatever it leads to.
struct stat record_of(std::string const& path) {
  struct stat record = {};
  ::lstat(path.c_str(), &record);
  return record;
}

bool is_there(std::string const& path) { return record_of(path).st_mode != 0; }

bool is_file(std::string const& path) { return S_ISREG(record_of(path).st_mode); }

bool is_dir(std::string const& path) { return S_ISDIR(record_of(path).st_mode); }

// Sets both times, with a part of a second that a copy does not carry over, and no finer than any file system has it.
void set_times(std::string const& path, time_t access, time_t modification) {
  timespec const times[2] = {{access, 123456000}, {modification, 987654000}};
  ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
}

time_t modified(std::string const& path) { return record_of(path).st_mtime; }

// All that is below a directory: "name/" for directories, "name=content" for files, "name -> target" for links.
strings drawing_of(std::string const& directory) {
  strings entries;
  for (fs::recursive_directory_iterator entry(directory), end; entry != end; ++entry) {
    std::string const name = entry->path().string().substr(directory.size() + 1);
    if (entry->is_symlink()) {
      entries.push_back(name + " -> " + fs::read_symlink(entry->path()).string());
    } else {
      entries.push_back(entry->is_directory() ? name + '/' : name + '=' + content_of(entry->path().string()));
    }
  }
  return sorted(entries);
}

strings mkdir_messages(std::string const& path, int mkdir_error, int status_error) {
  return {"mkdir failed with: " + path + " (errno: " + std::to_string(mkdir_error) + ")",
          "is_directory (via status) failed with: " + path + " (errno: " + std::to_string(status_error) + ")"};
}

strings const nothing;

} // namespace

// Creating

TEST_F(creating_and_copying, create_makes_one_level_after_the_other_and_then_asks_for_the_text_as_it_was_given) {
  struct {
    char const* path;
    strings calls;
    bool answer;
  } const rows[] = {
      {"a", {"osi_exists(a)", "osi_mkdir(a)", "osi_exists(a)"}, true},
      {"b/", {"osi_exists(b)", "osi_mkdir(b)", "osi_exists(b/)"}, true},
      {"c//d", {"osi_exists(c)", "osi_mkdir(c)", "osi_exists(c/d)", "osi_mkdir(c/d)", "osi_exists(c//d)"}, true},
      {"there/x//", {"osi_exists(there)", "osi_exists(there/x)", "osi_mkdir(there/x)", "osi_exists(there/x//)"}, true},
      {"there/y.d.e",
       {"osi_exists(there)", "osi_exists(there/y.d.e)", "osi_mkdir(there/y.d.e)", "osi_exists(there/y.d.e)"},
       true},
      {"./e", {"osi_exists(.)", "osi_exists(./e)", "osi_mkdir(./e)", "osi_exists(./e)"}, true},
      {"there/../f",
       {"osi_exists(there)", "osi_exists(there/..)", "osi_exists(there/../f)", "osi_mkdir(there/../f)",
        "osi_exists(there/../f)"},
       true},
      {"g/../h",
       {"osi_exists(g)", "osi_mkdir(g)", "osi_exists(g/..)", "osi_exists(g/../h)", "osi_mkdir(g/../h)",
        "osi_exists(g/../h)"},
       true},
      {"i\\j", {"osi_exists(i)", "osi_mkdir(i)", "osi_exists(i/j)", "osi_mkdir(i/j)", "osi_exists(i\\j)"}, false},
      {"there", {"osi_exists(there)", "osi_exists(there)"}, true},
      {"there/", {"osi_exists(there)", "osi_exists(there/)"}, true},
      {"file", {"osi_exists(file)", "osi_exists(file)"}, true},
      {"file/", {"osi_exists(file)", "osi_exists(file/)"}, false},
      {"link/k", {"osi_exists(link)", "osi_exists(link/k)", "osi_mkdir(link/k)", "osi_exists(link/k)"}, true},
      {"/", {"osi_exists(/)"}, true},
      {"//", {"osi_exists(//)"}, true},
      {".", {"osi_exists(.)", "osi_exists(.)"}, true},
      {"..", {"osi_exists(..)", "osi_exists(..)"}, true},
      {"", {}, false},
  };
  m_tree.draw({"there/", "file=content", "link -> there"});
  for (auto const& row : rows) {
    SCOPED_TRACE(row.path);
    bool answer = false;
    EXPECT_EQ(all_calls_of([&] { answer = F::create(row.path); }), row.calls);
    EXPECT_EQ(answer, row.answer);
  }
  EXPECT_EQ(drawing_of(m_tree.root()),
            (strings{"a/", "b/", "c/", "c/d/", "e/", "f/", "file=content", "g/", "h/", "i/", "i/j/", "link -> there",
                     "there/", "there/k/", "there/x/", "there/y.d.e/"}));
  EXPECT_EQ(messages(), nothing);
}

TEST_F(creating_and_copying, create_begins_an_absolute_path_at_the_root) {
  replaced().osi_exists = [](char const* /*path*/) { return 0; };
  replaced().osi_mkdir = [](char const* /*path*/) { return 0; };
  bool answer = true;
  for (char const* path : {"/a/b", "//a//b", "/a/b/"}) {
    EXPECT_EQ(path_calls_of([&] { answer = F::create(path); }),
              (strings{"osi_exists(/a)", "osi_mkdir(/a)", "osi_exists(/a/b)", "osi_mkdir(/a/b)",
                       "osi_exists(" + std::string(path) + ")"}));
    EXPECT_FALSE(answer) << "what mkdir answers is not what is there";
  }
  EXPECT_EQ(messages(), nothing);
}

TEST_F(creating_and_copying, create_stops_at_a_level_that_cannot_be_made) {
  m_tree.draw({"d/file=content"});
  bool answer = true;
  EXPECT_EQ(path_calls_of([&] { answer = F::create("d/file/x/y"); }),
            (strings{"osi_exists(d)", "osi_exists(d/file)", "osi_exists(d/file/x)", "osi_mkdir(d/file/x)",
                     "osi_status(d/file/x)", "osi_exists(d/file/x/y)"}));
  EXPECT_FALSE(answer);
  EXPECT_EQ(messages(), mkdir_messages("d/file/x", ENOTDIR, ENOTDIR));
  EXPECT_EQ(drawing_of("d"), strings{"file=content"});
}

TEST_F(creating_and_copying, create_reports_the_error_numbers_of_both_calls_in_order) {
  m_tree.draw({"d/", "dangling -> nowhere"});
  EXPECT_FALSE(F::create("dangling/x"));
  EXPECT_EQ(messages(), mkdir_messages("dangling", EEXIST, ENOENT));
  platform_double::debug_messages().clear();
  std::string const long_name = "d/" + repeated(256, 'n');
  EXPECT_FALSE(F::create(long_name + "/x"));
  EXPECT_EQ(messages(), mkdir_messages(long_name, ENAMETOOLONG, ENAMETOOLONG));
  platform_double::debug_messages().clear();

  replaced().osi_mkdir = [](char const* /*path*/) { return errno = 111, 1; };
  replaced().osi_status = [](char const* /*path*/, struct stat* /*buffer*/) { return errno = 222, -1; };
  EXPECT_FALSE(F::create("100%s/%d"));
  EXPECT_EQ(messages(), mkdir_messages("100%s", 111, 222));
  std::vector<platform_double::debug_message> const& log = platform_double::debug_messages();
  ASSERT_EQ(log.size(), 2U);
  EXPECT_EQ(log[0].module, "FIO");
  EXPECT_EQ(log[0].format, "mkdir failed with: %s (errno: %d)");
  EXPECT_EQ(log[1].module, "FIO");
  EXPECT_EQ(log[1].format, "is_directory (via status) failed with: %s (errno: %d)");
}

TEST_F(creating_and_copying, create_asks_once_whether_another_process_was_faster) {
  struct {
    char const* what;
    mode_t mode;
    int status;
    strings calls;
    strings messages;
  } const rows[] = {
      {"a directory",
       S_IFDIR,
       0,
       {"osi_exists(a)", "osi_mkdir(a)", "osi_status(a)", "osi_exists(a/b)", "osi_mkdir(a/b)", "osi_status(a/b)",
        "osi_exists(a/b)"},
       {}},
      {"a socket, which has the bit of a directory",
       S_IFSOCK,
       0,
       {"osi_exists(a)", "osi_mkdir(a)", "osi_status(a)", "osi_exists(a/b)", "osi_mkdir(a/b)", "osi_status(a/b)",
        "osi_exists(a/b)"},
       {}},
      {"a file",
       S_IFREG,
       0,
       {"osi_exists(a)", "osi_mkdir(a)", "osi_status(a)", "osi_exists(a/b)"},
       mkdir_messages("a", EIO, telltale)},
      {"no answer",
       S_IFDIR,
       -1,
       {"osi_exists(a)", "osi_mkdir(a)", "osi_status(a)", "osi_exists(a/b)"},
       mkdir_messages("a", EIO, telltale)},
  };
  for (auto const& row : rows) {
    for (int const mkdir_answer : {-1, 1}) {
      SCOPED_TRACE(std::string(row.what) + ", mkdir answers " + std::to_string(mkdir_answer));
      platform_double::reset();
      replaced().osi_exists = [](char const* /*path*/) { return 0; };
      replaced().osi_mkdir = [&](char const* /*path*/) { return errno = EIO, mkdir_answer; };
      replaced().osi_status = [&](char const* /*path*/, struct stat* buffer) {
        *buffer = record_of_mode(row.mode);
        errno = telltale;
        return row.status;
      };
      bool answer = true;
      EXPECT_EQ(path_calls_of([&] { answer = F::create("a/b"); }), row.calls);
      EXPECT_FALSE(answer);
      EXPECT_EQ(messages(), row.messages);
    }
  }
}

TEST_F(creating_and_copying, create_goes_on_below_a_directory_that_another_process_made) {
  replaced().osi_mkdir = [](char const* path) {
    ::mkdir(path, 0700); // the other process
    return errno = EEXIST, -1;
  };
  EXPECT_TRUE(F::create("a/b/c"));
  EXPECT_TRUE(is_dir("a/b/c"));
  EXPECT_EQ(messages(), nothing);
}

TEST_F(creating_and_copying, create_answers_what_stands_there_even_if_a_level_failed) {
  replaced().osi_exists = [](char const* path) { return path == std::string("a//b") ? 1 : 0; };
  replaced().osi_mkdir = [](char const* /*path*/) { return errno = EACCES, -1; };
  replaced().osi_status = [](char const* /*path*/, struct stat* /*buffer*/) { return errno = ENOENT, -1; };
  EXPECT_TRUE(F::create("a//b"));
  EXPECT_EQ(messages(), mkdir_messages("a", EACCES, ENOENT));
}

TEST_F(creating_and_copying, create_takes_a_wildcard_that_matches_for_a_level_that_exists) {
  m_tree.draw({"d/abc/"});
  EXPECT_TRUE(F::create("d/a*"));
  EXPECT_EQ(drawing_of("d"), strings{"abc/"});
  // Without a match a directory of this name is made, which no wildcard finds.
  EXPECT_FALSE(F::create("d/x*"));
  EXPECT_EQ(drawing_of("d"), (strings{"abc/", "x*/"}));
  EXPECT_EQ(messages(), nothing);
}

TEST_F(creating_and_copying, create_refuses_1024_characters_without_a_call) {
  m_tree.draw({"d/"});
  bool answer = true;
  EXPECT_EQ(path_calls_of([&] { answer = F::create(padded(m_tree.path("d"), 1024)); }), nothing);
  EXPECT_FALSE(answer);
  EXPECT_EQ(path_calls_of([&] { answer = F::create(padded(m_tree.path("new/"), 1024)); }), nothing);
  EXPECT_FALSE(answer);
  EXPECT_EQ(messages(), nothing);
}

TEST_F(creating_and_copying, create_counts_the_characters_behind_a_nul) {
  std::string const path = m_tree.path("new") + std::string(1, '\0') + repeated(1024);
  EXPECT_FALSE(F::create(path));
  EXPECT_FALSE(fs::exists(m_tree.path("new")));
}

TEST_F(creating_and_copying, create_makes_nothing_for_1023_characters_without_a_separator_at_their_end) {
  struct {
    char const* name;
    std::size_t length;
    bool answer;
    bool made;
  } const rows[] = {
      {"new1", 1022, true, true},   {"new2/", 1022, true, true}, {"new3/", 1023, true, true},
      {"new4", 1023, false, false}, {"there", 1023, true, true}, {"there/", 1023, true, true},
  };
  m_tree.draw({"there/"});
  for (auto const& row : rows) {
    SCOPED_TRACE(row.name);
    std::string const path = padded(m_tree.path(row.name), row.length);
    bool answer = false;
    strings const calls = path_calls_of([&] { answer = F::create(path); });
    EXPECT_EQ(answer, row.answer);
    EXPECT_EQ(is_there(row.name), row.made);
    if (row.length == 1023 && path.back() != '/') {
      EXPECT_EQ(calls, strings{"osi_exists(" + path + ")"});
    }
  }
  EXPECT_EQ(messages(), nothing);
}

TEST_F(creating_and_copying, processes_that_create_overlapping_paths_at_once_all_succeed) {
  constexpr int processes = 4;
  std::vector<pid_t> children;
  int gate[2];
  ASSERT_EQ(::pipe(gate), 0);
  for (int process = 0; process != processes; ++process) {
    pid_t const child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      char unused;
      ::close(gate[1]);
      bool all = ::read(gate[0], &unused, 1) == 0; // ends when the parent opens the gate
      for (int i = 0; i != 100; ++i) {
        std::string const path = "p" + std::to_string(i) + "/a/b/c/" + std::to_string(process % 2);
        all = F::create(path) && is_dir(path) && all;
      }
      ::_exit(all && platform_double::debug_messages().empty() ? 0 : 1);
    }
    children.push_back(child);
  }
  ::close(gate[0]);
  ::close(gate[1]);
  for (pid_t const child : children) {
    int status = -1;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
}

TEST_F(creating_and_copying, create_in_a_directory_that_may_not_be_written_is_a_failure) {
  EXPECT_TRUE(holds_for_ordinary_user(
      [](scratch_tree const& tree) {
        tree.draw({"closed/"});
        ::chmod("closed", 0555);
        return !F::create("closed/a/b") && messages() == mkdir_messages("closed/a", EACCES, ENOENT);
      },
      m_tree));
}

// Touching

TEST_F(creating_and_copying, touch_makes_the_directory_and_opens_the_file_to_append) {
  struct {
    char const* path;
    strings calls;
    bool answer;
  } const rows[] = {
      {"a/f", {"osi_exists(a)", "osi_mkdir(a)", "osi_exists(a/)", "osi_fopen(a/f, a)", "fclose(f)"}, true},
      {"a/f", {"osi_exists(a)", "osi_exists(a/)", "osi_fopen(a/f, a)", "fclose(f)"}, true},
      {"a//b\\g.x",
       {"osi_exists(a)", "osi_exists(a/b)", "osi_mkdir(a/b)", "osi_exists(a/b/)", "osi_fopen(a/b/g.x, a)",
        "fclose(g.x)"},
       true},
      {"./h", {"osi_exists(.)", "osi_exists(./)", "osi_fopen(./h, a)", "fclose(h)"}, true},
      {"c/", {"osi_exists(c)", "osi_mkdir(c)", "osi_exists(c/)", "osi_fopen(c/, a)"}, false},
      {"./dir", {"osi_exists(.)", "osi_exists(./)", "osi_fopen(./dir, a)"}, false},
      {"a/f/x", {"osi_exists(a)", "osi_exists(a/f)", "osi_exists(a/f/)"}, false},
      {"a/w*", {"osi_exists(a)", "osi_exists(a/)", "osi_fopen(a/w*, a)", "fclose(w*)"}, true},
      {"plain", {}, false},
      {".hidden", {}, false},
      {"", {}, false},
  };
  m_tree.draw({"dir/"});
  for (auto const& row : rows) {
    SCOPED_TRACE(row.path);
    bool answer = false;
    EXPECT_EQ(all_calls_of([&] { answer = F::touch(row.path); }), row.calls);
    EXPECT_EQ(answer, row.answer);
  }
  EXPECT_EQ(drawing_of(m_tree.root()), (strings{"a/", "a/b/", "a/b/g.x=", "a/f=", "a/w*=", "c/", "dir/", "h="}));
  EXPECT_EQ(messages(), nothing);
}

TEST_F(creating_and_copying, touch_leaves_content_and_times_of_an_existing_file) {
  m_tree.draw({"d/f=content"});
  set_times("d/f", 1000, 2000);
  EXPECT_TRUE(F::touch("d/f"));
  EXPECT_EQ(record_of("d/f").st_atim.tv_nsec, 123456000);
  EXPECT_EQ(record_of("d/f").st_mtim.tv_nsec, 987654000);
  EXPECT_EQ(record_of("d/f").st_atime, 1000);
  EXPECT_EQ(modified("d/f"), 2000);
  EXPECT_EQ(content_of("d/f"), "content");
}

TEST_F(creating_and_copying, touch_fails_if_the_file_or_its_directory_cannot_be_made) {
  m_tree.draw({"d/f"});
  replaced().osi_fopen = [](char const* /*path*/, char const* /*mode*/) -> std::FILE* { return nullptr; };
  EXPECT_FALSE(F::touch("d/f"));
  platform_double::reset();
  EXPECT_FALSE(F::touch("d/f/below/x"));
  EXPECT_EQ(messages(), mkdir_messages("d/f/below", ENOTDIR, ENOTDIR));
}

TEST_F(creating_and_copying, touch_refuses_1024_characters_without_a_call) {
  bool answer = true;
  EXPECT_EQ(path_calls_of([&] { answer = F::touch(padded(m_tree.path("f"), 1024)); }), nothing);
  EXPECT_FALSE(answer);
  EXPECT_TRUE(F::touch(padded(m_tree.path("f"), 1023)));
  EXPECT_TRUE(is_file("f"));
  EXPECT_EQ(messages(), nothing);
}

// Copying one file

TEST_F(creating_and_copying, copy_makes_its_calls_in_order) {
  strings const opened = {"osi_exists(s)", "osi_fopen(s, rb)"};
  strings const asked = {"osi_exists(t)"};
  strings const removed = {"osi_exists(t)", "remove(t)", "osi_exists(t)"};
  strings const moved = {"osi_fopen(t, wb)",
                         "setvbuf(t, local, full, 4096)",
                         "fread(s, 4096) = 4096",
                         "fwrite(t, 4096)",
                         "fread(s, 4096) = 1",
                         "fwrite(t, 1)",
                         "fread(s, 4096) = 0",
                         "fflush(t)",
                         "fsync(t)",
                         "fclose(t)",
                         "fclose(s)"};
  strings const closed = {"fclose(s)"};
  strings const dated = {"osi_status(s)", "utime(t, 11, 22)"};
  struct {
    bool there;
    bool overwrite;
    bool preserve_time;
    std::vector<strings> calls;
    bool copied;
  } const rows[] = {
      {false, false, false, {opened, asked, moved}, true},
      {false, false, true, {opened, asked, moved, dated}, true},
      {false, true, false, {opened, asked, asked, moved}, true},
      {false, true, true, {opened, asked, asked, moved, dated}, true},
      {true, false, false, {opened, asked, closed}, false},
      {true, false, true, {opened, asked, closed, dated}, false},
      {true, true, false, {opened, removed, moved}, true},
      {true, true, true, {opened, removed, moved, dated}, true},
  };
  std::string const content = repeated(4097);
  for (auto const& row : rows) {
    SCOPED_TRACE(testing::Message() << "there " << row.there << ", overwrite " << row.overwrite << ", preserve_time "
                                    << row.preserve_time);
    platform_double::reset();
    fs::remove("t");
    m_tree.make_file("s", content);
    if (row.there) {
      m_tree.make_file("t", "old");
      set_times("t", 3000, 4000);
    }
    replaced().osi_status = [](char const* /*path*/, struct stat* buffer) {
      *buffer = {};
      buffer->st_atime = 11;
      buffer->st_mtime = 22;
      return 0;
    };
    strings expected;
    for (strings const& part : row.calls) {
      expected.insert(expected.end(), part.begin(), part.end());
    }
    bool answer = false;
    EXPECT_EQ(all_calls_of([&] { answer = F::copy("s", "t", row.overwrite, row.preserve_time); }), expected);
    EXPECT_TRUE(answer);
    EXPECT_EQ(content_of("t"), row.copied ? content : "old");
    EXPECT_EQ(modified("t") == 22, row.preserve_time);
    EXPECT_EQ(modified("t") == 4000, row.there && !row.copied && !row.preserve_time);
    EXPECT_EQ(content_of("s"), content);
  }
  EXPECT_EQ(messages(), nothing);
}

TEST_F(creating_and_copying, copy_carries_content_of_every_size) {
  for (std::size_t const size : {0U, 1U, 4095U, 4096U, 4097U, 8191U, 8192U, 8193U, 1000003U}) {
    SCOPED_TRACE(size);
    std::string content(size, '\0');
    for (std::size_t i = 0; i != size; ++i) {
      content[i] = static_cast<char>(i * 31 + i / 251);
    }
    m_tree.make_file("s", content);
    bool answer = false;
    strings const calls = all_calls_of([&] { answer = F::copy("s", "t", true, false); });
    EXPECT_TRUE(answer);
    EXPECT_TRUE(content_of("t") == content);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "fsync(t)"), 1);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "fread(s, 4096) = 4096"), static_cast<long>(size / 4096));
  }
}

TEST_F(creating_and_copying, copy_reads_the_holes_of_a_sparse_file_as_zeros) {
  m_tree.make_file("s", "begin");
  ASSERT_EQ(::truncate("s", 100000), 0);
  EXPECT_TRUE(F::copy("s", "t", false, false));
  EXPECT_EQ(content_of("t"), "begin" + std::string(99995, '\0'));
}

TEST_F(creating_and_copying, copy_stops_at_the_first_check_that_fails) {
  std::string const long_source = padded(m_tree.path("s"), 1024);
  std::string const long_target = padded(m_tree.path("t"), 1024);
  struct {
    std::string source;
    std::string target;
    strings calls;
  } const rows[] = {
      {long_source, "t", {}},
      {"s", long_target, {}},
      {"missing", long_target, {}},
      {long_source, long_target, {}},
      {"missing", "t", {"osi_exists(missing)"}},
      {"dangling", "t", {"osi_exists(dangling)"}},
      {"", "t", {"osi_exists()"}},
      {"s/", "t", {"osi_exists(s/)"}},
      {"no*", "t", {"opendir(.)", "closedir()"}},
      {"?", "t", {"opendir(.)", "closedir()", "osi_fopen(?, rb)"}},
      {"s", "", {"osi_exists(s)", "osi_fopen(s, rb)", "osi_exists()", "osi_exists()", "osi_fopen(, wb)", "fclose(s)"}},
      {"s",
       "new/t",
       {"osi_exists(s)", "osi_fopen(s, rb)", "osi_exists(new/t)", "osi_exists(new/t)", "osi_fopen(new/t, wb)",
        "fclose(s)"}},
  };
  m_tree.draw({"s=new", "t=old", "dangling -> nowhere"});
  for (auto const& row : rows) {
    SCOPED_TRACE(row.source + " to " + row.target);
    bool answer = true;
    EXPECT_EQ(all_calls_of([&] { answer = F::copy(row.source, row.target, true, true); }), row.calls);
    EXPECT_FALSE(answer);
  }
  EXPECT_EQ(drawing_of(m_tree.root()), (strings{"dangling -> nowhere", "s=new", "t=old"}));
  EXPECT_EQ(messages(), nothing);
}

TEST_F(creating_and_copying, copy_takes_texts_of_1023_characters) {
  m_tree.draw({"s=new"});
  EXPECT_TRUE(F::copy(padded(m_tree.path("s"), 1023), padded(m_tree.path("t"), 1023), false, false));
  EXPECT_EQ(content_of("t"), "new");
}

TEST_F(creating_and_copying, copy_uses_its_texts_as_they_stand) {
  m_tree.draw({"a\\b=new", "c*=old", "cd=other"});
  EXPECT_TRUE(F::copy("a\\b", "x\\y", false, false));
  EXPECT_EQ(content_of("x\\y"), "new");
  EXPECT_TRUE(F::copy("a\\b", "no?match", false, false));
  EXPECT_EQ(content_of("no?match"), "new");
  // A target that matches something exists; what has this very name is removed, and the other still matches.
  EXPECT_TRUE(F::copy("a\\b", "c*", true, false));
  EXPECT_FALSE(is_there("c*"));
  EXPECT_EQ(content_of("cd"), "other");
}

TEST_F(creating_and_copying, copy_leaves_a_target_that_cannot_be_removed_and_says_it_was_a_success) {
  m_tree.draw({"s=new", "full/f=old", "t=old"});
  set_times("s", 1000, 2000);
  EXPECT_TRUE(F::copy("s", "full", true, true));
  EXPECT_EQ(drawing_of("full"), strings{"f=old"});
  EXPECT_EQ(modified("full"), 2000);

  replaced().remove = [](char const* /*path*/) { return -1; };
  EXPECT_TRUE(F::copy("s", "t", true, false));
  EXPECT_EQ(content_of("t"), "old");
}

TEST_F(creating_and_copying, copy_does_not_ask_what_the_removal_of_the_target_answers) {
  m_tree.draw({"s=new", "t=old"});
  replaced().remove = [](char const* path) { return ::unlink(path), -1; };
  EXPECT_TRUE(F::copy("s", "t", true, false));
  EXPECT_EQ(content_of("t"), "new");
  replaced().remove = [](char const* /*path*/) { return 0; };
  m_tree.draw({"t=old"});
  EXPECT_TRUE(F::copy("s", "t", true, false));
  EXPECT_EQ(content_of("t"), "old");
}

TEST_F(creating_and_copying, copy_replaces_an_entry_and_does_not_write_through_it) {
  m_tree.draw({"s=new", "f=old", "link -> f", "empty/", "dangling -> made"});
  ASSERT_EQ(::link("f", "twin"), 0);
  EXPECT_TRUE(F::copy("s", "link", true, false));
  EXPECT_TRUE(F::copy("s", "twin", true, false));
  EXPECT_TRUE(F::copy("s", "empty", true, false));
  // A link that leads nowhere does not exist, and opening it makes what it leads to.
  EXPECT_TRUE(F::copy("s", "dangling", true, false));
  EXPECT_EQ(drawing_of(m_tree.root()),
            (strings{"dangling -> made", "empty=new", "f=old", "link=new", "made=new", "s=new", "twin=new"}));
}

TEST_F(creating_and_copying, copy_reads_through_a_link) {
  m_tree.draw({"f=content", "link -> f"});
  set_times("f", 1000, 2000);
  EXPECT_TRUE(F::copy("link", "t", false, true));
  EXPECT_EQ(drawing_of(m_tree.root()), (strings{"f=content", "link -> f", "t=content"}));
  EXPECT_EQ(modified("t"), 2000);
}

TEST_F(creating_and_copying, copy_of_a_file_to_itself_keeps_its_content) {
  m_tree.draw({"f=content"});
  EXPECT_TRUE(F::copy("f", "f", true, false));
  EXPECT_EQ(content_of("f"), "content");
  EXPECT_TRUE(F::copy("f", "f", false, true));
  EXPECT_EQ(content_of("f"), "content");
}

TEST_F(creating_and_copying, copy_gives_the_target_the_mode_of_a_new_file) {
  m_tree.draw({"s=content", "reference"});
  ASSERT_EQ(::chmod("s", 0700), 0);
  EXPECT_TRUE(F::copy("s", "t", false, true));
  EXPECT_EQ(record_of("t").st_mode, record_of("reference").st_mode);
}

TEST_F(creating_and_copying, copy_preserves_times_in_whole_seconds_and_only_if_told_to) {
  m_tree.draw({"s=content"});
  set_times("s", 2000000000, 2000);
  EXPECT_TRUE(F::copy("s", "t", false, true));
  EXPECT_EQ(record_of("t").st_atime, record_of("s").st_atime);
  EXPECT_EQ(modified("t"), 2000);
  EXPECT_EQ(record_of("t").st_atim.tv_nsec, 0);
  EXPECT_EQ(record_of("t").st_mtim.tv_nsec, 0);
  time_t const before = ::time(nullptr) - 2; // the clock of the file system may be a little late
  EXPECT_TRUE(F::copy("s", "t", true, false));
  EXPECT_GE(modified("t"), before);
}

TEST_F(creating_and_copying, copy_fails_if_the_times_cannot_be_carried_over) {
  for (bool const there : {false, true}) {
    SCOPED_TRACE(there);
    m_tree.draw({"s=new"});
    fs::remove("t");
    if (there) {
      m_tree.draw({"t=new"});
    }
    replaced().osi_status = [](char const* /*path*/, struct stat* /*buffer*/) { return -1; };
    bool answer = true;
    strings calls = path_calls_of([&] { answer = F::copy("s", "t", false, true); });
    EXPECT_FALSE(answer);
    EXPECT_EQ(calls.back(), "osi_status(s)") << "no utime";
    EXPECT_TRUE(F::copy("s", "t", false, false));
    replaced().osi_status = nullptr;
    for (int const result : {-1, 1}) {
      replaced_streams().utime = [result](char const* /*path*/, utimbuf const* /*times*/) { return result; };
      EXPECT_FALSE(F::copy("s", "t", false, true));
    }
    replaced_streams().utime = nullptr;
    EXPECT_EQ(content_of("t"), "new") << "what was copied stays";
  }
}

TEST_F(creating_and_copying, copy_of_a_directory_fails_at_the_read_and_leaves_an_empty_target) {
  m_tree.draw({"d/f", "there=old"});
  bool answer = true;
  EXPECT_EQ(all_calls_of([&] { answer = F::copy("d", "t", false, true); }),
            (strings{"osi_exists(d)", "osi_fopen(d, rb)", "osi_exists(t)", "osi_fopen(t, wb)",
                     "setvbuf(t, local, full, 4096)", "fread(d, 4096) = 0", "fflush(t)", "fsync(t)", "fclose(t)",
                     "fclose(d)"}));
  EXPECT_FALSE(answer);
  EXPECT_TRUE(F::copy("d", "there", false, false));
  EXPECT_EQ(drawing_of(m_tree.root()), (strings{"d/", "d/f=", "t=", "there=old"}));
}

TEST_F(creating_and_copying, copy_to_a_full_device_fails) {
  for (std::size_t const size : {1U, 4096U, 5000U, 100000U}) {
    SCOPED_TRACE(size);
    m_tree.make_file("s", repeated(size));
    replaced().osi_exists = [](char const* path) { return path == std::string("s") ? 1 : 0; };
    replaced().osi_fopen = [](char const* path, char const* mode) {
      return std::fopen(path == std::string("t") ? "/dev/full" : path, mode);
    };
    bool answer = true;
    strings const calls = all_calls_of([&] { answer = F::copy("s", "t", false, true); });
    EXPECT_FALSE(answer);
    ASSERT_GE(calls.size(), 4U);
    EXPECT_EQ(strings(calls.end() - 4, calls.end()),
              (strings{"fflush(full)", "fsync(full)", "fclose(full)", "fclose(s)"}));
  }
}

TEST_F(creating_and_copying, copy_through_a_link_to_a_full_device_copies_nothing_or_replaces_the_link) {
  m_tree.draw({"s=content", "t -> /dev/full"});
  EXPECT_TRUE(F::copy("s", "t", false, false));
  EXPECT_EQ(drawing_of(m_tree.root()), (strings{"s=content", "t -> /dev/full"}));
  EXPECT_TRUE(F::copy("s", "t", true, false));
  EXPECT_EQ(drawing_of(m_tree.root()), (strings{"s=content", "t=content"}));
}

TEST_F(creating_and_copying, copy_asks_the_streams_alone_whether_it_succeeded) {
  m_tree.make_file("s", repeated(9000));
  auto const copied = [] {
    bool answer = false;
    watching = true;
    answer = F::copy("s", "t", true, false);
    watching = false;
    return answer;
  };
  auto& streams = replaced_streams();
  streams.fflush = [](std::FILE* /*stream*/) { return EOF; };
  EXPECT_TRUE(copied());
  EXPECT_EQ(fs::file_size("t"), 9000U);
  streams = {};
  streams.fsync = [](int /*descriptor*/) { return errno = EIO, -1; };
  EXPECT_TRUE(copied());
  EXPECT_EQ(fs::file_size("t"), 9000U);
  streams = {};
  streams.fclose = [](std::FILE* stream) { return really_close(stream), EOF; };
  EXPECT_TRUE(copied());
  EXPECT_EQ(fs::file_size("t"), 9000U);
  streams = {};
  // A write that falls short ends the loop, and is a success if the stream knows of no error.
  streams.fwrite = [](void const* buffer, std::size_t count, std::FILE* stream) {
    return really_write(buffer, count - 1, stream);
  };
  EXPECT_TRUE(copied());
  EXPECT_EQ(fs::file_size("t"), 4095U);
  streams = {};
  // A read that falls short does not end the loop.
  streams.fread = [](void* buffer, std::size_t count, std::FILE* stream) {
    return really_read(buffer, std::min<std::size_t>(count, 100), stream);
  };
  EXPECT_TRUE(copied());
  EXPECT_EQ(fs::file_size("t"), 9000U);
}

TEST_F(creating_and_copying, a_source_that_may_not_be_read_leaves_the_target_alone) {
  EXPECT_TRUE(holds_for_ordinary_user(
      [](scratch_tree const& tree) {
        tree.draw({"s=new", "t=old"});
        ::chmod("s", 0);
        return !F::copy("s", "t", true, true) && content_of("t") == "old" && messages().empty();
      },
      m_tree));
}

TEST_F(creating_and_copying, a_directory_that_may_not_be_written_keeps_its_files) {
  EXPECT_TRUE(holds_for_ordinary_user(
      [](scratch_tree const& tree) {
        tree.draw({"s=new", "closed/t=old"});
        set_times("s", 1000, 2000);
        ::chmod("closed", 0555);
        bool const kept = F::copy("s", "closed/t", true, true) && content_of("closed/t") == "old";
        bool const dated = modified("closed/t") == 2000;
        bool const refused = !F::copy("s", "closed/new", true, true) && !is_there("closed/new");
        bool const not_moved = !F::move("closed/t", "u", false, false) && is_file("closed/t") && is_file("u");
        return kept && dated && refused && not_moved && messages().empty();
      },
      m_tree));
}

// Moving

TEST_F(creating_and_copying, move_is_a_copy_and_then_a_removal_of_the_source) {
  m_tree.draw({"s=content"});
  bool answer = false;
  EXPECT_EQ(path_calls_of([&] { answer = F::move("s", "t", true, true); }).back(), "remove(s)");
  EXPECT_TRUE(answer);
  EXPECT_EQ(drawing_of(m_tree.root()), strings{"t=content"});
}

TEST_F(creating_and_copying, move_hands_both_flags_on) {
  for (bool const overwrite : {false, true}) {
    for (bool const preserve_time : {false, true}) {
      SCOPED_TRACE(testing::Message() << "overwrite " << overwrite << ", preserve_time " << preserve_time);
      m_tree.draw({"s=new", "t=old"});
      set_times("s", 1000, 2000);
      EXPECT_TRUE(F::move("s", "t", overwrite, preserve_time));
      // Without `overwrite` the source is lost.
      EXPECT_EQ(drawing_of(m_tree.root()), strings{overwrite ? "t=new" : "t=old"});
      EXPECT_EQ(modified("t") == 2000, preserve_time);
    }
  }
}

TEST_F(creating_and_copying, move_never_renames_and_answers_what_the_removal_answers) {
  m_tree.draw({"s=content"});
  replaced().remove = [](char const* /*path*/) { return -1; };
  bool answer = true;
  strings const calls = path_calls_of([&] { answer = F::move("s", "t", false, false); });
  EXPECT_EQ(calls, (strings{"osi_exists(s)", "osi_fopen(s, rb)", "osi_exists(t)", "osi_fopen(t, wb)", "remove(s)"}));
  EXPECT_FALSE(answer);
  EXPECT_EQ(drawing_of(m_tree.root()), (strings{"s=content", "t=content"}));
}

TEST_F(creating_and_copying, move_removes_nothing_if_the_copy_failed) {
  m_tree.draw({"s=content", "empty/"});
  EXPECT_FALSE(F::move("s", "new/t", true, true));
  EXPECT_FALSE(F::move("empty", "t", true, true));
  EXPECT_FALSE(F::move("missing", "t", true, true));
  replaced_streams().utime = [](char const* /*path*/, utimbuf const* /*times*/) { return -1; };
  EXPECT_FALSE(F::move("s", "u", false, true));
  EXPECT_EQ(drawing_of(m_tree.root()), (strings{"empty/", "s=content", "t=", "u=content"}));
}

TEST_F(creating_and_copying, move_of_a_file_to_itself_loses_it) {
  m_tree.draw({"s=content"});
  EXPECT_TRUE(F::move("s", "s", true, false));
  EXPECT_EQ(drawing_of(m_tree.root()), nothing);
}

TEST_F(creating_and_copying, copy_and_touch_without_memory_leave_nothing_open) {
  m_tree.draw({"s=content"});
  with_ever_more_memory([] { F::copy("s", "t", true, true); }, [](bool /*succeeded*/) {});
  EXPECT_EQ(content_of("t"), "content");
  std::string const path = repeated(50, 'd') + '/' + repeated(50, 'f');
  with_ever_more_memory([&] { F::touch(path); }, [](bool /*succeeded*/) {});
  EXPECT_TRUE(is_file(path));
}

// Copying the matches of a wildcard

TEST_F(creating_and_copying, copy_files_copies_what_matches) {
  struct {
    char const* source;
    char const* target;
    strings copied;
  } const rows[] = {
      {"d/*.v", "t1", {"a.v=1", "b.v=2"}},
      {"d//*.v", "t2/", {"a.v=1", "b.v=2"}},
      {"d/a.v", "t3/x/y", {"x/", "x/y/", "x/y/a.v=1"}},
      {"d/a.v", "t4//", {"a.v=1"}},
      {"h/*.v", "t0", {".hidden.v=3"}},
      {"h/.h*", "t5", {".hidden.v=3", ".hidden=4"}},
      {"d/*.none", "t6", {}},
      {"d/missing", "t7", {}},
      {"missing/*", "t8", {}},
      {"", "t9", {}},
      {"d/x?", "t10", {"x1=5", "x1y=6"}},
      {"/*", "t11", {}},
      {"d/*k", "t12", {"link=2"}},
      {"d/*%s\n", "t13", {"100%s\n=7"}},
      {".abc*", "t14", {}},
  };
  m_tree.draw({"d/a.v=1", "d/b.v=2", "h/.hidden.v=3", "h/.hidden=4", "d/x1=5", "d/x1y=6", "d/link -> b.v",
               "d/subdirectory/", "d/dangling.v -> nowhere"});
  m_tree.make_file("d/100%s\n", "7");
  for (auto const& row : rows) {
    SCOPED_TRACE(row.source);
    EXPECT_TRUE(F::copy_files(row.source, row.target, false, false));
    std::string target = row.target;
    target = target.substr(0, target.find('/'));
    ASSERT_TRUE(is_dir(target));
    EXPECT_EQ(drawing_of(target), row.copied);
  }
  EXPECT_EQ(messages(), nothing);
}

TEST_F(creating_and_copying, copy_files_hands_both_flags_on) {
  for (bool const overwrite : {false, true}) {
    for (bool const preserve_time : {false, true}) {
      SCOPED_TRACE(testing::Message() << "overwrite " << overwrite << ", preserve_time " << preserve_time);
      m_tree.draw({"d/f.x=new", "t/f.x=old"});
      set_times("d/f.x", 1000, 2000);
      EXPECT_TRUE(F::copy_files("d/*.x", "t", overwrite, preserve_time));
      EXPECT_EQ(drawing_of("t"), strings{overwrite ? "f.x=new" : "f.x=old"});
      EXPECT_EQ(modified("t/f.x") == 2000, preserve_time);
      EXPECT_EQ(content_of("d/f.x"), "new");
      fs::remove_all("t");
    }
  }
}

TEST_F(creating_and_copying, copy_files_makes_its_calls_in_order) {
  m_tree.draw({"d/f.x=new"});
  bool answer = false;
  EXPECT_EQ(
      path_calls_of([&] { answer = F::copy_files("d/*.x", "t", false, false); }),
      (strings{"osi_exists(t/)", "osi_exists(t)", "osi_mkdir(t)", "osi_exists(t/)", "opendir(d)", "osi_exists(d/f.x)",
               "osi_fopen(d/f.x, rb)", "osi_exists(t/f.x)", "osi_fopen(t/f.x, wb)", "closedir()"}));
  EXPECT_TRUE(answer);
  EXPECT_EQ(path_calls_of([&] { answer = F::copy_files("d/f.x", "t/", false, false); }),
            (strings{"osi_exists(t/)", "osi_exists(d/f.x)", "osi_fopen(d/f.x, rb)", "osi_exists(t/f.x)"}));
  EXPECT_TRUE(answer);
}

TEST_F(creating_and_copying, copy_files_fails_without_its_directory) {
  m_tree.draw({"d/f.x=new", "file=content"});
  bool answer = true;
  EXPECT_EQ(path_calls_of([&] { answer = F::copy_files("d/*", "", true, true); }), strings{"osi_exists()"});
  EXPECT_FALSE(answer);
  EXPECT_FALSE(F::copy_files("d/*", "file", true, true));
  EXPECT_EQ(messages(), nothing);
  EXPECT_FALSE(F::copy_files("d/*", "file/t", true, true));
  EXPECT_EQ(messages(), mkdir_messages("file/t", ENOTDIR, ENOTDIR));
}

TEST_F(creating_and_copying, copy_files_looks_at_the_lengths_of_its_texts_and_of_what_they_become) {
  m_tree.draw({"d/f.x=new", "d/long_name.y=new", "t/"});
  std::string const source = m_tree.path("d/*.x");
  EXPECT_TRUE(F::copy_files(padded(source, 1023), "t", false, false));
  EXPECT_EQ(drawing_of("t"), strings{"f.x=new"});
  EXPECT_FALSE(F::copy_files(padded(source, 1024), "u", false, false));
  EXPECT_TRUE(is_dir("u")) << "the directory is made first";
  EXPECT_FALSE(F::copy_files("d/*.x", padded(m_tree.path("t"), 1023), false, false));
  EXPECT_FALSE(F::copy_files("d/*.x", padded(m_tree.path("t/"), 1024), false, false));

  // A target of 1020 characters with its separator has room for three more.
  std::string const deep = directory_of_length(m_tree, 1019);
  EXPECT_TRUE(F::copy_files("d/*.x", deep, false, false));
  EXPECT_EQ(drawing_of(deep), strings{"f.x=new"});
  std::string const deeper = directory_of_length(m_tree, 1020);
  EXPECT_FALSE(F::copy_files("d/*.x", deeper, false, false));
  EXPECT_EQ(drawing_of(deeper), nothing);
  EXPECT_EQ(messages(), nothing);
}

TEST_F(creating_and_copying, copy_files_ends_at_the_first_failure) {
  m_tree.draw({"d/a.x=1", "d/b.x=2", "d/c.x=3", "t/"});
  int opened = 0;
  replaced().osi_fopen = [&](char const* path, char const* mode) -> std::FILE* {
    return ++opened == 3 ? nullptr : std::fopen(path, mode); // the second source
  };
  EXPECT_FALSE(F::copy_files("d/*.x", "t", false, false));
  EXPECT_EQ(opened, 3);
  EXPECT_EQ(drawing_of("t").size(), 1U) << "what was copied before stays";
}

TEST_F(creating_and_copying, copy_files_takes_a_directory_for_a_file_that_cannot_be_read) {
  m_tree.draw({"d/sub.x/f", "t/"});
  EXPECT_FALSE(F::copy_files("d/*.x", "t", true, false));
  EXPECT_EQ(drawing_of("t"), strings{"sub.x="});
  EXPECT_TRUE(F::copy_files("d/*.x", "t", false, false)) << "it is there now";
  EXPECT_FALSE(F::copy_files("d/*.x", "t", true, false));
}

TEST_F(creating_and_copying, copy_files_passes_the_entries_of_every_directory_to_copy) {
  m_tree.draw({"d/f=new", "t/f=old"});
  for (bool const overwrite : {false, true}) {
    SCOPED_TRACE(overwrite);
    // Both stand in the target already, and cannot be removed.
    strings const calls = path_calls_of([&] { EXPECT_TRUE(F::copy_files("d/*", "t", overwrite, false)); });
    for (char const* call : {"osi_fopen(d/., rb)", "osi_fopen(d/.., rb)", "osi_fopen(d/f, rb)"}) {
      EXPECT_EQ(std::count(calls.begin(), calls.end(), call), 1) << call;
    }
    for (char const* call : {"remove(t/.)", "remove(t/..)", "remove(t/f)"}) {
      EXPECT_EQ(std::count(calls.begin(), calls.end(), call), overwrite ? 1 : 0) << call;
    }
    EXPECT_EQ(drawing_of("t"), strings{overwrite ? "f=new" : "f=old"});
  }
}

TEST_F(creating_and_copying, copy_files_copies_the_part_of_a_name_behind_a_backslash) {
  m_tree.draw({"d/a\\b=whole", "d/b=part"});
  EXPECT_TRUE(F::copy_files("d/a*b", "t", false, false));
  EXPECT_EQ(drawing_of("t"), strings{"b=part"});
}

// Copying a tree

TEST_F(creating_and_copying, copy_dir_copies_everything_below_a_directory) {
  m_tree.draw({"s/f=1", "s/.hidden/.f=2", "s/sub/deep/f=3", "s/sub/empty/", "s/link -> f", "s/dirlink -> sub",
               "s/dangling -> nowhere", "s/..f=4", "s/a\\b=5"});
  m_tree.make_file("s/100%s", "6");
  m_tree.make_file("s/line\nfeed/x\ny", "7");
  m_tree.make_file("s/not*seen", "8");
  strings const copied = sorted({"f=1", ".hidden/", ".hidden/.f=2", "sub/", "sub/deep/", "sub/deep/f=3", "sub/empty/",
                                 "link=1", "dirlink/", "dirlink/deep/", "dirlink/deep/f=3", "dirlink/empty/", "..f=4",
                                 "a\\b=5", "100%s=6", "line\nfeed/", "line\nfeed/x\ny=7"});
  struct {
    char const* source;
    char const* target;
  } const rows[] = {{"s", "t1"}, {"s/", "t2/"}, {"s", "t3/x/y"}, {"./s//", "./t4//"}};
  for (auto const& row : rows) {
    SCOPED_TRACE(row.target);
    EXPECT_TRUE(F::copy_dir(row.source, row.target, false, false));
    EXPECT_EQ(drawing_of(fs::canonical(row.target).string()), copied);
  }
  EXPECT_EQ(messages(), nothing);
}

TEST_F(creating_and_copying, copy_dir_makes_its_calls_in_order) {
  m_tree.draw({"s/d/f=1"});
  set_times("s/d/f", 2000000000, 22);
  bool answer = false;
  EXPECT_EQ(path_calls_of([&] { answer = F::copy_dir("s", "t", true, true); }),
            (strings{"osi_exists(t/)",       "osi_exists(t)",
                     "osi_mkdir(t)",         "osi_exists(t/)",
                     "opendir(s)",           "osi_exists(t/d/)",
                     "osi_exists(t)",        "osi_exists(t/d)",
                     "osi_mkdir(t/d)",       "osi_exists(t/d/)",
                     "opendir(s/d)",         "osi_exists(s/d/f)",
                     "osi_fopen(s/d/f, rb)", "osi_exists(t/d/f)",
                     "osi_exists(t/d/f)",    "osi_fopen(t/d/f, wb)",
                     "osi_status(s/d/f)",    "utime(t/d/f, " + std::to_string(record_of("s/d/f").st_atime) + ", 22)",
                     "closedir()",           "closedir()"}));
  EXPECT_TRUE(answer);
}

TEST_F(creating_and_copying, copy_dir_hands_both_flags_on) {
  for (bool const overwrite : {false, true}) {
    for (bool const preserve_time : {false, true}) {
      SCOPED_TRACE(testing::Message() << "overwrite " << overwrite << ", preserve_time " << preserve_time);
      m_tree.draw({"s/f=new", "s/d/f=new", "t/f=old", "t/d/f=old"});
      set_times("s/f", 1000, 2000);
      set_times("s/d/f", 1000, 2000);
      EXPECT_TRUE(F::copy_dir("s", "t", overwrite, preserve_time));
      EXPECT_EQ(drawing_of("t"), overwrite ? (strings{"d/", "d/f=new", "f=new"}) : (strings{"d/", "d/f=old", "f=old"}));
      EXPECT_EQ(modified("t/f") == 2000, preserve_time);
      EXPECT_EQ(modified("t/d/f") == 2000, preserve_time);
      fs::remove_all("t");
    }
  }
}

TEST_F(creating_and_copying, copy_dir_makes_its_target_before_it_looks_at_the_source) {
  m_tree.draw({"empty/", "file=content"});
  EXPECT_TRUE(F::copy_dir("empty", "t1", false, false));
  EXPECT_TRUE(F::copy_dir("missing", "t2", false, false));
  EXPECT_TRUE(F::copy_dir("file", "t3", false, false)) << "it cannot be opened as a directory";
  EXPECT_TRUE(F::copy_dir("/", "t4", false, false)) << "nothing is found directly under the root";
  EXPECT_EQ(drawing_of(m_tree.root()), (strings{"empty/", "file=content", "t1/", "t2/", "t3/", "t4/"}));
  EXPECT_TRUE(holds_for_ordinary_user(
      [](scratch_tree const& tree) {
        tree.draw({"closed/f=content"});
        ::chmod("closed", 0);
        return F::copy_dir("closed", "t5", false, false) && is_dir("t5") && drawing_of("t5").empty();
      },
      m_tree));
}

TEST_F(creating_and_copying, copy_dir_of_an_empty_text_copies_the_current_directory) {
  m_tree.draw({"s/f=1", "t/"});
  fs::current_path("s");
  EXPECT_TRUE(F::copy_dir("", m_tree.path("t"), false, false));
  EXPECT_EQ(drawing_of(m_tree.path("t")), strings{"f=1"});
  EXPECT_FALSE(F::copy_dir(m_tree.path("s"), "", false, false));
}

TEST_F(creating_and_copying, copy_dir_fails_without_its_target) {
  m_tree.draw({"s/f=1", "file=content"});
  EXPECT_FALSE(F::copy_dir("s", "file", true, true));
  EXPECT_EQ(messages(), nothing);
  EXPECT_FALSE(F::copy_dir("s", "file/t", true, true));
  EXPECT_EQ(messages(), mkdir_messages("file/t", ENOTDIR, ENOTDIR));
}

TEST_F(creating_and_copying, copy_dir_ends_at_the_first_failure) {
  m_tree.draw({"s/a=1", "s/b=2", "s/c=3"});
  int opened = 0;
  replaced().osi_fopen = [&](char const* path, char const* mode) -> std::FILE* {
    return ++opened == 3 ? nullptr : std::fopen(path, mode); // the second source
  };
  EXPECT_FALSE(F::copy_dir("s", "t", false, false));
  EXPECT_EQ(opened, 3);
  EXPECT_EQ(drawing_of("t").size(), 1U) << "what was copied before stays";
}

TEST_F(creating_and_copying, copy_dir_ends_at_a_failure_below) {
  m_tree.draw({"s/a/b/c/f=1"});
  replaced().osi_fopen = [](char const* /*path*/, char const* /*mode*/) -> std::FILE* { return nullptr; };
  EXPECT_FALSE(F::copy_dir("s", "t", false, false));
  EXPECT_EQ(drawing_of("t"), (strings{"a/", "a/b/", "a/b/c/"}));
}

TEST_F(creating_and_copying, copy_dir_refuses_texts_that_grow_too_long) {
  // A separator and a `*` are added to the source.
  EXPECT_TRUE(F::copy_dir(directory_of_length(m_tree, 1021), "t1", false, false));
  for (std::size_t const length : {1022U, 1023U}) {
    SCOPED_TRACE(length);
    std::string const target = "t" + std::to_string(length);
    EXPECT_FALSE(F::copy_dir(directory_of_length(m_tree, length), target, false, false));
    EXPECT_TRUE(is_dir(target)) << "the target is made first";
  }
  // A separator is added to the target.
  m_tree.draw({"empty/"});
  EXPECT_TRUE(F::copy_dir("empty", directory_of_length(m_tree, 1022), false, false));
  EXPECT_FALSE(F::copy_dir("empty", directory_of_length(m_tree, 1023), false, false));
  EXPECT_EQ(messages(), nothing);
}

TEST_F(creating_and_copying, copy_dir_counts_the_characters_behind_a_nul) {
  auto const with_unseen = [](std::string text, std::size_t length) {
    text += '\0';
    return text + repeated(length - text.size());
  };
  m_tree.draw({"s/f", "there/"});
  struct {
    std::string source;
    std::string target;
    bool answer;
    bool made;
  } const rows[] = {
      // A separator and a wildcard are added to the source, and a separator to the target.
      {with_unseen("s", 1021), "t1", true, true},       {with_unseen("s", 1022), "t2", false, true},
      {with_unseen("s/", 1022), "t3", false, true},     {"s", with_unseen("t4", 1022), true, true},
      {"s", with_unseen("t5", 1023), false, false},     {"s", with_unseen("t6", 1024), false, false},
      {"s", with_unseen("there", 1023), false, true},   {with_unseen("s", 1021) + '/', "t7", true, true},
      {"s", with_unseen("t8", 1022) + '/', true, true},
  };
  for (auto const& row : rows) {
    std::string const target = row.target.c_str();
    SCOPED_TRACE(target);
    EXPECT_EQ(F::copy_dir(row.source, row.target, false, false), row.answer);
    EXPECT_EQ(is_dir(target), row.made);
    EXPECT_EQ(is_there(target + "/f"), row.answer);
  }
}

TEST_F(creating_and_copying, copy_dir_leaves_a_loop_of_links_when_the_paths_are_too_long) {
  struct {
    char const* source;
    char const* target;
    std::size_t levels;
    bool answer;
  } const rows[] = {
      {"s", "a_longer_target", 201, false}, // the target of the next level is too long
      {"source7", "t", 203, false},         // the source has 1022 characters, and no room for a wildcard
      {"source", "t", 203, true},           // the next source has 1024 characters or more: no walk finds it
  };
  // The system would stop following the links long before that.
  static auto const without_loops = [](std::string path) {
    for (std::size_t at = path.find("/loop"); at != std::string::npos; at = path.find("/loop")) {
      path.erase(at, 5);
    }
    return path;
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.source + std::string(" to ") + row.target);
    m_tree.draw({(row.source + std::string("/loop -> .")).c_str()});
    replaced().stat = [](char const* path, struct stat* buffer) {
      return ::fstatat(AT_FDCWD, path[0] == 's' ? without_loops(path).c_str() : path, buffer, 0);
    };
    replaced().opendir = [](char const* path) { return opendir_of_the_system(without_loops(path).c_str()); };
    EXPECT_EQ(F::copy_dir(row.source, row.target, false, false), row.answer);
    platform_double::reset();
    EXPECT_EQ(drawing_of(row.target).size(), row.levels);
    fs::remove_all(row.target);
  }
  EXPECT_EQ(messages(), nothing);
}

TEST_F(creating_and_copying, copy_files_of_a_text_that_ends_in_a_separator_copies_the_directories_themselves) {
  m_tree.draw({"d/f", "t/"});
  EXPECT_TRUE(F::copy_files("d/", "t", false, false)) << "the target is there";
  EXPECT_FALSE(F::copy_files("d/", "t", true, false));
  EXPECT_FALSE(is_there("t")) << "an empty target is removed, and no file can have its name";
}

TEST_F(creating_and_copying, copy_dir_into_itself_ends_when_the_paths_are_too_long) {
  m_tree.draw({"s/f=1"});
  std::string const below = "s/" + repeated(200, 'd');
  EXPECT_FALSE(F::copy_dir("s", below, false, false));
  EXPECT_TRUE(is_dir(below + '/' + repeated(200, 'd')));
  EXPECT_EQ(messages(), nothing);
}

TEST_F(creating_and_copying, a_failure_closes_every_directory_and_only_copy_files_reads_on) {
  m_tree.draw({"s/a/b/c/f=1", "d/a.x=1", "t/"});
  replaced().osi_fopen = [](char const* /*path*/, char const* /*mode*/) -> std::FILE* { return nullptr; };
  strings calls = calls_of([] { EXPECT_FALSE(F::copy_dir("s", "u", false, false)); });
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "closedir()"), 4);
  auto const failed = std::find(calls.begin(), calls.end(), "osi_fopen(s/a/b/c/f, rb)");
  EXPECT_EQ(std::count(failed, calls.end(), "readdir64()"), 0);
  calls = calls_of([] { EXPECT_FALSE(F::copy_files("d/*.x", "t", false, false)); });
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "closedir()"), 1);
  auto const failed_file = std::find(calls.begin(), calls.end(), "osi_fopen(d/a.x, rb)");
  EXPECT_GE(std::count(failed_file, calls.end(), "readdir64()"), 1);
}

TEST_F(creating_and_copying, copy_dir_finishes_a_subdirectory_before_the_next_entry) {
  m_tree.draw({"s/d1/f", "s/d2/f"});
  strings const calls = calls_of([] { EXPECT_TRUE(F::copy_dir("s", "t", false, false)); });
  for (char const* const directory : {"s/d1", "s/d2"}) {
    SCOPED_TRACE(directory);
    auto const opened = std::find(calls.begin(), calls.end(), "opendir(" + std::string(directory) + ')');
    ASSERT_NE(opened, calls.end());
    auto const closed = std::find(opened, calls.end(), "closedir()");
    std::string const other = directory == std::string("s/d1") ? "s/d2" : "s/d1";
    EXPECT_TRUE(std::none_of(opened, closed, [&](std::string const& call) { return call.find(other) != call.npos; }));
  }
}

TEST_F(creating_and_copying, an_entry_that_vanishes_during_a_walk_is_passed_over) {
  m_tree.draw({"s/a=1", "s/b=2"});
  replaced().stat = [](char const* path, struct stat* buffer) {
    if (std::string(path) == "s/a") {
      errno = ENOENT;
      return -1;
    }
    return ::lstat(path, buffer);
  };
  EXPECT_TRUE(F::copy_dir("s", "t", false, false));
  EXPECT_EQ(drawing_of("t"), strings{"b=2"});
}

TEST_F(creating_and_copying, content_and_times_go_to_another_file_system) {
  namespace fs = std::filesystem;
  m_tree.draw({"s/a/f=content"});
  // Where there is no second file system at hand, the same holds for the one of all tests.
  std::string target = "/dev/shm/fio_test.XXXXXX";
  if (::mkdtemp(target.data()) == nullptr) {
    target = m_tree.path("target");
    m_tree.make_directory("target");
  }
  EXPECT_TRUE(F::copy_dir("s", target, false, true));
  EXPECT_TRUE(F::move("s/a/f", target + "/moved", false, true));
  EXPECT_FALSE(fs::exists("s/a/f"));
  EXPECT_EQ(fs::file_size(target + "/a/f"), 7U);
  EXPECT_EQ(fs::last_write_time(target + "/a/f"), fs::last_write_time(target + "/moved"));
  fs::remove_all(target);
}
