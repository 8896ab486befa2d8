// The platform layer by itself. Nothing stands in the place of anything here: this program is linked to the platform
// library alone, and loads the library under test as a tool's plug-in would.

#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "ccl/err/err.h"
#include "ccl/mem/mem.h"
#include "ccl/osi/osi.h"
#include "ccl/stl/stl.h"

namespace {

namespace fs = std::filesystem;

// A directory of its own for each test, which is the current one while the test runs.
class platform : public testing::Test {
protected:
  void SetUp() override {
    std::string name = (fs::temp_directory_path() / "platform_test.XXXXXX").string();
    ASSERT_NE(::mkdtemp(name.data()), nullptr);
    m_directory = fs::canonical(name);
    m_former = fs::current_path();
    fs::current_path(m_directory);
    ::unsetenv("CCL_DEBUG_MESSAGES");
  }

  void TearDown() override {
    ::unsetenv("CCL_DEBUG_MESSAGES");
    fs::current_path(m_former);
    fs::remove_all(m_directory);
  }

  fs::path m_directory;
  fs::path m_former;
};

void send_message(char const* module, char const* format, ...) __attribute__((format(printf, 2, 3)));

void send_message(char const* module, char const* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  mem_msg_local_vdebug(module, format, arguments);
  va_end(arguments);
}

std::vector<std::string> tokens_of(std::string text, char const* delimiters) {
  std::vector<std::string> tokens;
  std::size_t remaining = text.size() + 1;
  char* context = nullptr;
  for (char const* token = strtok_s(text.data(), &remaining, delimiters, &context); token != nullptr;
       token = strtok_s(nullptr, &remaining, delimiters, &context)) {
    tokens.emplace_back(token);
  }
  return tokens;
}

} // namespace

// Registration

TEST_F(platform, lists_registrations_in_order_and_forgets_them_with_their_objects) {
  std::vector<std::string> const before = MEM_INITIALIZER::registered_modules();
  auto expect = [&before](std::vector<std::string> added) {
    added.insert(added.begin(), before.begin(), before.end());
    EXPECT_EQ(MEM_INITIALIZER::registered_modules(), added);
  };
  {
    MEM_INITIALIZER const first("A");
    {
      MEM_INITIALIZER const second("B");
      MEM_INITIALIZER const third("A");
      expect({"A", "B", "A"});
    }
    expect({"A"});
    auto* const fourth = new MEM_INITIALIZER("C");
    auto* const fifth = new MEM_INITIALIZER("D");
    auto* const sixth = new MEM_INITIALIZER("E");
    delete fifth;
    expect({"A", "C", "E"});
    delete sixth;
    delete fourth;
  }
  expect({});
}

TEST_F(platform, sees_nine_registrations_while_the_library_is_loaded_and_none_after) {
  void* const library = ::dlopen(FIO_LIBRARY, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(library, nullptr) << ::dlerror();
  EXPECT_EQ(MEM_INITIALIZER::registered_modules(), std::vector<std::string>(9, "FIO"));
  ASSERT_EQ(::dlclose(library), 0);
  EXPECT_EQ(MEM_INITIALIZER::registered_modules(), std::vector<std::string>());
}

// Debug messages and internal errors

TEST_F(platform, is_silent_unless_debug_messages_are_asked_for) {
  struct {
    char const* setting;
    char const* output;
  } const rows[] = {
      {nullptr, ""}, {"", ""}, {"0", ""}, {"1", "MOD: 7 of x%\n"}, {"00", "MOD: 7 of x%\n"}, {"yes", "MOD: 7 of x%\n"},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.setting != nullptr ? row.setting : "unset");
    row.setting != nullptr ? ::setenv("CCL_DEBUG_MESSAGES", row.setting, 1) : ::unsetenv("CCL_DEBUG_MESSAGES");
    testing::internal::CaptureStderr();
    errno = ENOTTY;
    send_message("MOD", "%d of %s%%", 7, "x");
    EXPECT_EQ(errno, ENOTTY);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), row.output);
  }
}

TEST_F(platform, writes_long_debug_messages_whole) {
  ::setenv("CCL_DEBUG_MESSAGES", "1", 1);
  std::string const text(5000, 'y');
  testing::internal::CaptureStderr();
  send_message("MOD", "%s", text.c_str());
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "MOD: " + text + "\n");
}

TEST_F(platform, reports_an_internal_error_with_its_place_and_aborts) {
  EXPECT_EXIT(err_report_internal_error("0 != size", "MOD", "a/b.cpp", 42), testing::KilledBySignal(SIGABRT),
              "^internal error: 0 != size \\(module MOD, a/b\\.cpp:42\\)\n$");
}

// Texts

TEST_F(platform, formats_texts_of_any_length_in_place_of_the_old_content) {
  for (std::size_t const length : {0u, 1u, 15u, 16u, 255u, 256u, 1023u, 1024u, 100000u}) {
    std::string text = "old content";
    MEM_DETAIL::stl_raw_sprintf(&text, "%s", std::string(length, 'x').c_str());
    EXPECT_EQ(text, std::string(length, 'x'));
  }
  std::string text;
  MEM_DETAIL::stl_raw_sprintf(&text, "%04x|%-3d|%%", 255u, 7);
  EXPECT_EQ(text, "00ff|7  |%");
}

TEST_F(platform, leaves_an_empty_text_where_a_format_cannot_be_processed) {
  std::string text = "old content";
  wchar_t const no_character[] = {static_cast<wchar_t>(0x7fffffff), 0};
  MEM_DETAIL::stl_raw_sprintf(&text, "%ls", no_character);
  EXPECT_EQ(text, "");
}

TEST_F(platform, folds_the_letters_a_to_z_alone) {
  std::string all;
  std::string expected;
  for (int byte = 1; byte != 256; ++byte) {
    all += static_cast<char>(byte);
    expected += static_cast<char>(byte >= 'A' && byte <= 'Z' ? byte + 32 : byte);
  }
  stl_tolower(all);
  EXPECT_EQ(all, expected);
  std::string empty;
  stl_tolower(empty);
  EXPECT_EQ(empty, "");
}

// The tokeniser

TEST_F(platform, cuts_a_text_at_runs_of_delimiters) {
  struct {
    char const* text;
    char const* delimiters;
    std::vector<std::string> tokens;
  } const rows[] = {
      {"", ";", {}},
      {";;;", ";", {}},
      {"a", ";", {"a"}},
      {"a;b", ";", {"a", "b"}},
      {";;a;;b;;", ";", {"a", "b"}},
      {" a ; b ", ";", {" a ", " b "}},
      {"a,b;c", ";,", {"a", "b", "c"}},
      {"a;b", "", {"a;b"}},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(tokens_of(row.text, row.delimiters), row.tokens) << row.text << " by " << row.delimiters;
  }
}

TEST_F(platform, counts_what_remains_behind_each_token) {
  char text[] = "a;bc;d";
  std::size_t remaining = sizeof text;
  char* context = nullptr;
  EXPECT_EQ(strtok_s(text, &remaining, ";", &context), text);
  EXPECT_EQ(remaining, sizeof text - 2);
  EXPECT_EQ(context, text + 2);
  EXPECT_EQ(strtok_s(nullptr, &remaining, ";", &context), text + 2);
  EXPECT_EQ(remaining, sizeof text - 5);
  EXPECT_EQ(strtok_s(nullptr, &remaining, ";", &context), text + 5);
  EXPECT_EQ(remaining, 1u);
  EXPECT_EQ(strtok_s(nullptr, &remaining, ";", &context), nullptr);
  EXPECT_EQ(strtok_s(nullptr, &remaining, ";", &context), nullptr);
}

TEST_F(platform, lets_the_delimiters_change_between_calls) {
  char text[] = "?a???b,,,#c";
  std::size_t remaining = sizeof text;
  char* context = nullptr;
  EXPECT_STREQ(strtok_s(text, &remaining, "?", &context), "a");
  EXPECT_STREQ(strtok_s(nullptr, &remaining, ",", &context), "??b");
  EXPECT_STREQ(strtok_s(nullptr, &remaining, "#,", &context), "c");
  EXPECT_EQ(strtok_s(nullptr, &remaining, "?", &context), nullptr);
}

TEST_F(platform, changes_nothing_when_an_argument_of_the_tokeniser_is_bad) {
  char text[] = "a;b";
  std::size_t remaining = sizeof text;
  char* context = text;
  EXPECT_EQ(strtok_s(text, nullptr, ";", &context), nullptr);
  EXPECT_EQ(strtok_s(text, &remaining, nullptr, &context), nullptr);
  EXPECT_EQ(strtok_s(text, &remaining, ";", nullptr), nullptr);
  remaining = SIZE_MAX / 2 + 1;
  EXPECT_EQ(strtok_s(text, &remaining, ";", &context), nullptr);
  EXPECT_EQ(remaining, SIZE_MAX / 2 + 1);
  remaining = sizeof text;
  EXPECT_EQ(context, text);
  context = nullptr;
  EXPECT_EQ(strtok_s(nullptr, &remaining, ";", &context), nullptr);
  EXPECT_EQ(remaining, sizeof text);
  EXPECT_STREQ(text, "a;b");
}

TEST_F(platform, reads_and_writes_nothing_behind_the_bytes_that_remain) {
  char text[] = {'a', 'b', ';', 'c'};
  std::size_t remaining = 2;
  char* context = nullptr;
  EXPECT_EQ(strtok_s(text, &remaining, ";", &context), nullptr);
  EXPECT_EQ(context, nullptr);
  EXPECT_EQ(std::string(text, sizeof text), "ab;c");
  remaining = 3;
  EXPECT_STREQ(strtok_s(text, &remaining, ";", &context), "ab");
  EXPECT_EQ(remaining, 0u);
  EXPECT_EQ(strtok_s(nullptr, &remaining, ";", &context), nullptr);
  EXPECT_EQ(text[3], 'c');
}

// The operating system

TEST_F(platform, opens_files_that_no_child_inherits) {
  int const descriptor = osi_open("file", O_CREAT | O_WRONLY, 0640);
  ASSERT_GE(descriptor, 0);
  EXPECT_EQ(::fcntl(descriptor, F_GETFD), FD_CLOEXEC);
  struct stat buffer;
  ASSERT_EQ(::fstat(descriptor, &buffer), 0);
  mode_t const mask = ::umask(0);
  ::umask(mask);
  EXPECT_EQ(buffer.st_mode & 0777, 0640 & ~mask);
  ::close(descriptor);
  for (char const* const mode : {"r", "rb", "r+b", "a", "wb", "w"}) {
    std::FILE* const stream = osi_fopen("file", mode);
    ASSERT_NE(stream, nullptr) << mode;
    EXPECT_EQ(::fcntl(::fileno(stream), F_GETFD), FD_CLOEXEC) << mode;
    std::fclose(stream);
  }
}

TEST_F(platform, tells_the_failures_of_the_system_with_errno) {
  struct stat buffer;
  char directory[8];
  struct {
    char const* what;
    bool failed;
    int error;
  } const rows[] = {
      {"open", (errno = 0, osi_open("missing", O_RDONLY, 0) == -1), errno},
      {"fopen", (errno = 0, osi_fopen("missing", "r") == nullptr), errno},
      {"chmod", (errno = 0, osi_chmod("missing", 0600) == -1), errno},
      {"mkdir", (errno = 0, osi_mkdir("missing/new") == -1), errno},
      {"rmdir", (errno = 0, osi_rmdir("missing") == -1), errno},
      {"chdir", (errno = 0, osi_chdir("missing") == -1), errno},
      {"status", (errno = 0, osi_status("missing", &buffer) == -1), errno},
      {"exists", (errno = 0, osi_exists("missing") == 0), errno},
  };
  for (auto const& row : rows) {
    EXPECT_TRUE(row.failed) << row.what;
    EXPECT_EQ(row.error, ENOENT) << row.what;
  }
  errno = 0;
  EXPECT_EQ(osi_getcwd(directory, sizeof directory), nullptr);
  EXPECT_EQ(errno, ERANGE);
  errno = 0;
  EXPECT_EQ(osi_fopen("missing", "x, a mode that is far too long"), nullptr);
  EXPECT_EQ(errno, EINVAL);
  errno = 0;
  EXPECT_EQ(osi_fopen("missing", ""), nullptr);
  EXPECT_EQ(errno, EINVAL);
}

TEST_F(platform, makes_changes_and_removes) {
  EXPECT_EQ(osi_mkdir("new"), 0);
  mode_t const mask = ::umask(0);
  ::umask(mask);
  struct stat buffer;
  EXPECT_EQ(osi_status("new", &buffer), 0);
  EXPECT_EQ(buffer.st_mode & 07777, 0777 & ~mask);
  EXPECT_EQ(osi_chmod("new", 0711), 0);
  EXPECT_EQ(osi_status("new", &buffer), 0);
  EXPECT_EQ(buffer.st_mode & 07777, 0711u);
  EXPECT_EQ(osi_chdir("new"), 0);
  char directory[PATH_MAX];
  EXPECT_EQ(osi_getcwd(directory, sizeof directory), directory);
  EXPECT_EQ(directory, (m_directory / "new").string());
  EXPECT_EQ(osi_chdir(".."), 0);
  EXPECT_EQ(osi_rmdir("new"), 0);
  EXPECT_EQ(osi_exists("new"), 0);
}

TEST_F(platform, follows_links_to_what_they_lead_to) {
  fs::create_directory("directory");
  fs::create_symlink("directory", "link");
  fs::create_symlink("nowhere", "dangling");
  struct stat buffer;
  EXPECT_EQ(osi_status("link", &buffer), 0);
  EXPECT_TRUE(S_ISDIR(buffer.st_mode));
  EXPECT_EQ(osi_exists("link"), 1);
  EXPECT_EQ(osi_exists("dangling"), 0);
  EXPECT_EQ(osi_exists("."), 1);
}

TEST_F(platform, tells_the_full_form_of_a_path) {
  struct {
    char const* path;
    std::string full;
  } const rows[] = {
      {"/a/b", "/a/b"},
      {"//server/share", "//server/share"},
      {"a/../b", m_directory.string() + "/a/../b"},
      {"", m_directory.string() + "/"},
  };
  for (auto const& row : rows) {
    OSI_PATH* const path = osi_get_unc_full_path(row.path);
    EXPECT_EQ(osi_path_get_data(path), row.full);
    osi_path_free(path);
  }
  fs::current_path("/");
  OSI_PATH* const below_root = osi_get_unc_full_path("a");
  EXPECT_STREQ(osi_path_get_data(below_root), "/a");
  osi_path_free(below_root);
}

TEST_F(platform, has_no_text_where_the_full_form_is_unknown) {
  OSI_PATH* const of_null = osi_get_unc_full_path(nullptr);
  EXPECT_EQ(osi_path_get_data(of_null), nullptr);
  osi_path_free(of_null);
  fs::create_directory("gone");
  fs::current_path("gone");
  fs::remove(m_directory / "gone");
  OSI_PATH* const of_gone = osi_get_unc_full_path("a");
  EXPECT_EQ(osi_path_get_data(of_gone), nullptr);
  osi_path_free(of_gone);
  EXPECT_EQ(osi_path_get_data(nullptr), nullptr);
  osi_path_free(nullptr);
}
