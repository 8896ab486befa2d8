#include "ccl/fio/fio_file_sys.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "ccl/fio/fio_path.h"
#include "tests/support/calls.h"
#include "tests/support/path_texts.h"
#include "tests/support/paths.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"

namespace {

using platform_double::replaced;
using strings = std::vector<std::string>;

// The double of an operation that does nothing: it answers a number, and leaves an error number that no call has.
struct answer {
  int result;

  template <typename... Arguments>
  int operator()(Arguments...) const {
    errno = telltale;
    return result;
  }
};

// The double of a status operation, which tells of an entry with this record.
struct status_answer {
  struct stat record;
  int result = 0;

  int operator()(char const* /*path*/, struct stat* buffer) const {
    *buffer = record;
    errno = telltale;
    return result;
  }
};

// A path whose text edits have made longer than a path may be.
FIO_PATH overgrown(char character, std::size_t length) {
  FIO_PATH path("d/");
  path.base(repeated(length - 2, character));
  return path;
}

std::string overgrown_text(char character, std::size_t length) { return "d/" + repeated(length - 2, character); }

std::string content_of(std::string const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Looks at an entry itself, whatever it leads to.
bool is_there(std::string const& path) {
  struct stat unused;
  return ::lstat(path.c_str(), &unused) == 0;
}

mode_t mode_of(std::string const& path) {
  struct stat record = {};
  ::lstat(path.c_str(), &record);
  return record.st_mode;
}

// The wildcard test as its rules read, one by one: slow, and with no thought of its own.
bool same_file_by_the_rules(std::string_view name, std::string_view pattern) {
  if (pattern.empty() || pattern.front() != '*') {
    for (std::size_t walked = 0;; ++walked) {
      if (walked == pattern.size()) {
        return true;
      }
      if (walked == name.size()) {
        return false;
      }
      if (pattern[walked] == '*') {
        return same_file_by_the_rules(name.substr(walked), pattern.substr(walked));
      }
      if (pattern[walked] != name[walked] && pattern[walked] != '?') {
        return false;
      }
    }
  }
  std::string_view const rest = pattern.substr(1);
  for (std::size_t start = 0; start != name.size(); ++start) {
    std::size_t count = 0;
    for (;; ++count) {
      if (count == rest.size() || count == name.size() - start) {
        break;
      }
      if (rest[count] == '*') {
        return same_file_by_the_rules(name.substr(start + count), rest.substr(count));
      }
      if (rest[count] != '?' && rest[count] != name[start + count]) {
        break;
      }
    }
    if (start + count == name.size()) {
      return count >= rest.size();
    }
  }
  return rest.empty();
}

// All texts over `alphabet` of up to `longest` characters.
strings all_texts(std::string const& alphabet, std::size_t longest) {
  strings texts = {""};
  for (std::size_t first = 0, length = 0; length != longest; ++length) {
    std::size_t const end = texts.size();
    for (; first != end; ++first) {
      for (char const character : alphabet) {
        texts.push_back(texts[first] + character);
      }
    }
  }
  return texts;
}

// Whether a form of `exists` for strings is declared in its own right.
template <typename Form, typename = void>
struct has_form_of_exists : std::false_type {};
template <typename Form>
struct has_form_of_exists<Form, std::void_t<decltype(static_cast<Form>(&FIO_FILE_SYSTEM::exists))>> : std::true_type {};

// The operations that have one form have that one alone.
static_assert(std::is_same_v<decltype(&FIO_FILE_SYSTEM::open), int (*)(char const*, int, int)>);
static_assert(std::is_same_v<decltype(&FIO_FILE_SYSTEM::fopen), std::FILE* (*)(char const*, char const*)>);
static_assert(std::is_same_v<decltype(&FIO_FILE_SYSTEM::chmod), bool (*)(char const*, int)>);
static_assert(std::is_same_v<decltype(&FIO_FILE_SYSTEM::mkdir), int (*)(char const*)>);
static_assert(std::is_same_v<decltype(&FIO_FILE_SYSTEM::rmdir), int (*)(char const*)>);
static_assert(std::is_same_v<decltype(&FIO_FILE_SYSTEM::change_current_directory), int (*)(char const*)>);
static_assert(std::is_same_v<decltype(&FIO_FILE_SYSTEM::set_current_directory), bool (*)(std::string const&)>);
static_assert(std::is_same_v<decltype(&FIO_FILE_SYSTEM::posix_rename), bool (*)(char const*, char const*)>);
static_assert(std::is_same_v<decltype(&FIO_FILE_SYSTEM::native_remove), bool (*)(char const*)>);
static_assert(std::is_same_v<decltype(&FIO_FILE_SYSTEM::posix_remove), bool (*)(char const*)>);
static_assert(std::is_same_v<decltype(&FIO_FILE_SYSTEM::unc_native_remove), bool (*)(std::string const&)>);
static_assert(std::is_same_v<decltype(&FIO_FILE_SYSTEM::remove_if_exists), bool (*)(std::string const&)>);
static_assert(std::is_same_v<decltype(&FIO_FILE_SYSTEM::is_directory), bool (*)(char const*)>);
static_assert(std::is_same_v<decltype(&FIO_FILE_SYSTEM::is_regular_file), bool (*)(char const*)>);
static_assert(std::is_same_v<decltype(&FIO_FILE_SYSTEM::is_older), bool (*)(char const*, long const*)>);
static_assert(has_type<bool (*)(char const*, char const*)>(&FIO_FILE_SYSTEM::same_file));
static_assert(has_form_of_exists<bool (*)(char const*)>::value);
static_assert(has_form_of_exists<bool (*)(FIO_PATH const&)>::value);
static_assert(!has_form_of_exists<bool (*)(std::string const&)>::value);

static_assert(has_type(static_cast<bool (*)(char const*)>(&FIO_FILE_SYSTEM::remove)));
static_assert(has_type(static_cast<bool (*)(std::string const&)>(&FIO_FILE_SYSTEM::remove)));
static_assert(has_type(static_cast<bool (*)(FIO_PATH const&)>(&FIO_FILE_SYSTEM::remove)));
static_assert(has_type(static_cast<bool (*)(char const*, char const*)>(&FIO_FILE_SYSTEM::rename)));
static_assert(has_type(static_cast<bool (*)(std::string const&, std::string const&)>(&FIO_FILE_SYSTEM::rename)));
static_assert(has_type(static_cast<bool (*)(FIO_PATH const&, FIO_PATH const&)>(&FIO_FILE_SYSTEM::rename)));
static_assert(has_type(static_cast<bool (*)(char const*, struct stat*)>(&FIO_FILE_SYSTEM::status)));
static_assert(has_type(static_cast<bool (*)(std::string const&, struct stat*)>(&FIO_FILE_SYSTEM::status)));
static_assert(has_type(static_cast<bool (*)(FIO_PATH const&, struct stat*)>(&FIO_FILE_SYSTEM::status)));
static_assert(has_type(static_cast<char* (*)(char*, unsigned long)>(&FIO_FILE_SYSTEM::get_current_directory)));
static_assert(has_type(static_cast<unsigned long (*)(unsigned long, char*)>(&FIO_FILE_SYSTEM::get_current_directory)));
static_assert(has_type(static_cast<std::string (*)()>(&FIO_FILE_SYSTEM::get_current_directory)));

static_assert(!std::is_aggregate_v<FIO_FILE_SYSTEM> && !std::is_default_constructible_v<FIO_FILE_SYSTEM>);
static_assert(std::is_empty_v<FIO_FILE_SYSTEM>);

} // namespace

class file_system : public fio_test {};

// Forwarding

namespace {

enum class rule { result_unchanged, true_on_zero, true_on_other };

struct forwarding {
  char const* operation;
  char const* call;
  rule answers;
  std::function<void(answer)> replace;
  std::function<int()> run;
};

using F = FIO_FILE_SYSTEM;

void replace_open(answer a) { replaced().osi_open = a; }
void replace_chmod(answer a) { replaced().osi_chmod = a; }
void replace_mkdir(answer a) { replaced().osi_mkdir = a; }
void replace_rmdir(answer a) { replaced().osi_rmdir = a; }
void replace_chdir(answer a) { replaced().osi_chdir = a; }
void replace_rename(answer a) { replaced().rename = a; }
void replace_remove(answer a) { replaced().remove = a; }
void replace_status(answer a) { replaced().osi_status = a; }
void replace_exists(answer a) { replaced().osi_exists = a; }

struct stat unused_record;

forwarding const forwardings[] = {
    {"open", "osi_open(a//b)", rule::result_unchanged, replace_open, [] { return F::open("a//b", 0, 0); }},
    {"chmod", "osi_chmod(a//b)", rule::true_on_zero, replace_chmod, [] { return F::chmod("a//b", 0); }},

    {"mkdir", "osi_mkdir(a//b)", rule::result_unchanged, replace_mkdir, [] { return F::mkdir("a//b"); }},
    {"rmdir", "osi_rmdir(a//b)", rule::result_unchanged, replace_rmdir, [] { return F::rmdir("a//b"); }},
    {"change_current_directory", "osi_chdir(a//b)", rule::result_unchanged, replace_chdir,
     [] { return F::change_current_directory("a//b"); }},
    {"set_current_directory", "osi_chdir(a//b)", rule::true_on_zero, replace_chdir,
     [] { return F::set_current_directory("a//b"); }},

    {"posix_rename", "rename(a//b, c*)", rule::true_on_zero, replace_rename,
     [] { return F::posix_rename("a//b", "c*"); }},
    {"rename of C-strings", "rename(a//b, c*)", rule::true_on_zero, replace_rename,
     [] { return F::rename("a//b", "c*"); }},
    {"rename of strings", "rename(a//b, c*)", rule::true_on_zero, replace_rename,
     [] { return F::rename(std::string("a//b"), std::string("c*")); }},
    {"rename of paths", "rename(a/b, c*)", rule::true_on_zero, replace_rename,
     [] { return F::rename(FIO_PATH("a//b"), FIO_PATH("c*")); }},

    {"remove of a C-string", "remove(a//b*)", rule::true_on_zero, replace_remove, [] { return F::remove("a//b*"); }},
    {"remove of a string", "remove(a//b)", rule::true_on_zero, replace_remove,
     [] { return F::remove(std::string("a//b")); }},
    {"remove of a path", "remove(a/b)", rule::true_on_zero, replace_remove, [] { return F::remove(FIO_PATH("a//b")); }},
    {"native_remove", "remove(a//b)", rule::true_on_zero, replace_remove, [] { return F::native_remove("a//b"); }},
    {"posix_remove", "remove(a//b)", rule::true_on_zero, replace_remove, [] { return F::posix_remove("a//b"); }},
    {"unc_native_remove", "remove(a//b)", rule::true_on_zero, replace_remove,
     [] { return F::unc_native_remove("a//b"); }},
    {"remove of an empty text", "remove()", rule::true_on_zero, replace_remove, [] { return F::remove(""); }},
    {"native_remove of an empty text", "remove()", rule::true_on_zero, replace_remove,
     [] { return F::native_remove(""); }},

    {"status of a C-string", "osi_status(a//b*)", rule::true_on_zero, replace_status,
     [] { return F::status("a//b*", &unused_record); }},
    {"status of a string", "osi_status(a//b)", rule::true_on_zero, replace_status,
     [] { return F::status(std::string("a//b"), &unused_record); }},
    {"status of a path", "osi_status(a/b)", rule::true_on_zero, replace_status,
     [] { return F::status(FIO_PATH("a//b"), &unused_record); }},

    {"exists of a C-string", "osi_exists(a//b)", rule::true_on_other, replace_exists, [] { return F::exists("a//b"); }},
    {"exists of a path", "osi_exists(a/b)", rule::true_on_other, replace_exists,
     [] { return F::exists(FIO_PATH("a//b")); }},
    {"exists of an empty text", "osi_exists()", rule::true_on_other, replace_exists, [] { return F::exists(""); }},
    {"exists of an empty path", "osi_exists()", rule::true_on_other, replace_exists,
     [] { return F::exists(FIO_PATH()); }},
    {"exists of a path that was refused", "osi_exists()", rule::true_on_other, replace_exists,
     [] { return F::exists(FIO_PATH(repeated(1024))); }},

    // A null pointer is passed on by all but the guarded operations.
    {"open of null", "osi_open(null)", rule::result_unchanged, replace_open, [] { return F::open(nullptr, 0, 0); }},
    {"chmod of null", "osi_chmod(null)", rule::true_on_zero, replace_chmod, [] { return F::chmod(nullptr, 0); }},
    {"mkdir of null", "osi_mkdir(null)", rule::result_unchanged, replace_mkdir, [] { return F::mkdir(nullptr); }},
    {"rmdir of null", "osi_rmdir(null)", rule::result_unchanged, replace_rmdir, [] { return F::rmdir(nullptr); }},
    {"change_current_directory of null", "osi_chdir(null)", rule::result_unchanged, replace_chdir,
     [] { return F::change_current_directory(nullptr); }},
    {"posix_rename of null", "rename(null, null)", rule::true_on_zero, replace_rename,
     [] { return F::posix_rename(nullptr, nullptr); }},
    {"posix_remove of null", "remove(null)", rule::true_on_zero, replace_remove,
     [] { return F::posix_remove(nullptr); }},
    {"rename of null", "rename(null, null)", rule::true_on_zero, replace_rename,
     [] { return F::rename(static_cast<char const*>(nullptr), static_cast<char const*>(nullptr)); }},
    {"status of a C-string into null", "osi_status(f)", rule::true_on_zero, replace_status,
     [] { return F::status("f", nullptr); }},
    {"status of a string into null", "osi_status(f)", rule::true_on_zero, replace_status,
     [] { return F::status(std::string("f"), nullptr); }},
    {"status of a path into null", "osi_status(f)", rule::true_on_zero, replace_status,
     [] { return F::status(FIO_PATH("f"), nullptr); }},

    // And so is an empty text by all.
    {"open of an empty text", "osi_open()", rule::result_unchanged, replace_open, [] { return F::open("", 0, 0); }},
    {"chmod of an empty text", "osi_chmod()", rule::true_on_zero, replace_chmod, [] { return F::chmod("", 0); }},
    {"mkdir of an empty text", "osi_mkdir()", rule::result_unchanged, replace_mkdir, [] { return F::mkdir(""); }},
    {"rmdir of an empty text", "osi_rmdir()", rule::result_unchanged, replace_rmdir, [] { return F::rmdir(""); }},
    {"change_current_directory of an empty text", "osi_chdir()", rule::result_unchanged, replace_chdir,
     [] { return F::change_current_directory(""); }},
    {"set_current_directory of an empty text", "osi_chdir()", rule::true_on_zero, replace_chdir,
     [] { return F::set_current_directory(""); }},
    {"posix_rename of empty texts", "rename(, )", rule::true_on_zero, replace_rename,
     [] { return F::posix_rename("", ""); }},
    {"rename of empty C-strings", "rename(, )", rule::true_on_zero, replace_rename, [] { return F::rename("", ""); }},
    {"rename of empty strings", "rename(, )", rule::true_on_zero, replace_rename,
     [] { return F::rename(std::string(), std::string()); }},
    {"rename of empty paths", "rename(, )", rule::true_on_zero, replace_rename,
     [] { return F::rename(FIO_PATH(), FIO_PATH()); }},
    {"remove of an empty string", "remove()", rule::true_on_zero, replace_remove,
     [] { return F::remove(std::string()); }},
    {"remove of an empty path", "remove()", rule::true_on_zero, replace_remove, [] { return F::remove(FIO_PATH()); }},
    {"posix_remove of an empty text", "remove()", rule::true_on_zero, replace_remove,
     [] { return F::posix_remove(""); }},
    {"unc_native_remove of an empty text", "remove()", rule::true_on_zero, replace_remove,
     [] { return F::unc_native_remove(""); }},
    {"status of an empty C-string", "osi_status()", rule::true_on_zero, replace_status,
     [] { return F::status("", &unused_record); }},
    {"status of an empty string", "osi_status()", rule::true_on_zero, replace_status,
     [] { return F::status(std::string(), &unused_record); }},
    {"status of an empty path", "osi_status()", rule::true_on_zero, replace_status,
     [] { return F::status(FIO_PATH(), &unused_record); }},

    // An embedded NUL ends a string.
    {"set_current_directory with a NUL", "osi_chdir(a)", rule::true_on_zero, replace_chdir,
     [] { return F::set_current_directory(std::string("a\0b", 3)); }},
    {"rename with a NUL", "rename(a, c)", rule::true_on_zero, replace_rename,
     [] { return F::rename(std::string("a\0b", 3), std::string("c\0d", 3)); }},
    {"remove with a NUL", "remove(a)", rule::true_on_zero, replace_remove,
     [] { return F::remove(std::string("a\0b", 3)); }},
    {"unc_native_remove with a NUL", "remove(a)", rule::true_on_zero, replace_remove,
     [] { return F::unc_native_remove(std::string("a\0b", 3)); }},
    {"status with a NUL", "osi_status(a)", rule::true_on_zero, replace_status,
     [] { return F::status(std::string("a\0b", 3), &unused_record); }},
};

int expected_result(rule answers, int system_result) {
  switch (answers) {
  case rule::true_on_zero:
    return system_result == 0 ? 1 : 0;
  case rule::true_on_other:
    return system_result != 0 ? 1 : 0;
  case rule::result_unchanged:
    break;
  }
  return system_result;
}

} // namespace

TEST_F(file_system, an_operation_makes_one_call_and_hands_on_its_result_and_error_number) {
  for (forwarding const& row : forwardings) {
    for (int const system_result : {0, -1, 1, 7, -7}) {
      SCOPED_TRACE(std::string(row.operation) + " answering " + std::to_string(system_result));
      row.replace({system_result});
      int result = 0;
      errno = 0;
      strings const calls = calls_of([&] { result = row.run(); });
      EXPECT_EQ(errno, telltale);
      EXPECT_EQ(result, expected_result(row.answers, system_result));
      EXPECT_EQ(calls, strings{row.call});
      platform_double::reset();
    }
  }
}

TEST_F(file_system, no_forwarding_operation_writes_a_message) {
  for (forwarding const& row : forwardings) {
    row.replace({-1});
    row.run();
    EXPECT_EQ(messages(), strings{}) << row.operation;
    platform_double::reset();
  }
}

TEST_F(file_system, open_passes_flags_and_mode_as_they_are) {
  int seen_flags = 0;
  int seen_mode = 0;
  replaced().osi_open = [&](char const*, int flags, int mode) {
    seen_flags = flags;
    seen_mode = mode;
    return 42;
  };
  EXPECT_EQ(FIO_FILE_SYSTEM::open("f", O_WRONLY | O_APPEND, 0123), 42);
  EXPECT_EQ(seen_flags, O_WRONLY | O_APPEND);
  EXPECT_EQ(seen_mode, 0123);
}

TEST_F(file_system, chmod_passes_the_mode_as_it_is) {
  int seen_mode = 0;
  replaced().osi_chmod = [&](char const*, int mode) {
    seen_mode = mode;
    return 0;
  };
  EXPECT_TRUE(FIO_FILE_SYSTEM::chmod("f", 04711));
  EXPECT_EQ(seen_mode, 04711);
}

TEST_F(file_system, fopen_hands_on_the_stream) {
  std::FILE* answered = stderr;
  replaced().osi_fopen = [&](char const*, char const*) {
    errno = telltale;
    return answered;
  };
  std::FILE* stream = nullptr;
  EXPECT_EQ(calls_of([&] { stream = FIO_FILE_SYSTEM::fopen("a//b", "r+b"); }), strings{"osi_fopen(a//b, r+b)"});
  EXPECT_EQ(stream, stderr);

  answered = nullptr;
  errno = 0;
  EXPECT_EQ(calls_of([&] { stream = FIO_FILE_SYSTEM::fopen(nullptr, "w"); }), strings{"osi_fopen(null, w)"});
  EXPECT_EQ(errno, telltale);
  EXPECT_EQ(stream, nullptr);

  EXPECT_EQ(calls_of([] { (void)FIO_FILE_SYSTEM::fopen("f", nullptr); }), strings{"osi_fopen(f, null)"});
  EXPECT_EQ(calls_of([] { (void)FIO_FILE_SYSTEM::fopen("", ""); }), strings{"osi_fopen(, )"});
}

TEST_F(file_system, status_fills_the_record_of_the_caller) {
  FIO_PATH const path("f");
  struct stat* seen = nullptr;
  replaced().osi_status = [&](char const*, struct stat* buffer) {
    seen = buffer;
    buffer->st_size = 99;
    return 0;
  };
  struct stat records[3] = {};
  EXPECT_TRUE(FIO_FILE_SYSTEM::status("f", &records[0]));
  EXPECT_EQ(seen, &records[0]);
  EXPECT_TRUE(FIO_FILE_SYSTEM::status(std::string("f"), &records[1]));
  EXPECT_EQ(seen, &records[1]);
  EXPECT_TRUE(FIO_FILE_SYSTEM::status(path, &records[2]));
  EXPECT_EQ(seen, &records[2]);
  for (struct stat const& record : records) {
    EXPECT_EQ(record.st_size, 99);
  }
}

// The length of a text

TEST_F(file_system, a_long_text_is_refused_by_exists_alone) {
  std::string const text = repeated(1024);
  char const* const path = text.c_str();
  struct {
    char const* operation;
    std::string call;
    std::function<void()> run;
  } const rows[] = {
      {"open", "osi_open(" + text + ")", [path] { (void)F::open(path, 0, 0); }},
      {"fopen", "osi_fopen(" + text + ", r)", [path] { (void)F::fopen(path, "r"); }},
      {"chmod", "osi_chmod(" + text + ")", [path] { F::chmod(path, 0); }},
      {"mkdir", "osi_mkdir(" + text + ")", [path] { F::mkdir(path); }},
      {"rmdir", "osi_rmdir(" + text + ")", [path] { F::rmdir(path); }},
      {"change_current_directory", "osi_chdir(" + text + ")", [path] { F::change_current_directory(path); }},
      {"set_current_directory", "osi_chdir(" + text + ")", [&text] { F::set_current_directory(text); }},
      {"posix_rename", "rename(" + text + ", " + text + ")", [path] { F::posix_rename(path, path); }},
      {"rename", "rename(" + text + ", " + text + ")", [path] { F::rename(path, path); }},
      {"rename of strings", "rename(" + text + ", " + text + ")", [&text] { F::rename(text, text); }},
      {"remove", "remove(" + text + ")", [path] { F::remove(path); }},
      {"remove of a string", "remove(" + text + ")", [&text] { F::remove(text); }},
      {"native_remove", "remove(" + text + ")", [path] { F::native_remove(path); }},
      {"posix_remove", "remove(" + text + ")", [path] { F::posix_remove(path); }},
      {"unc_native_remove", "remove(" + text + ")", [&text] { F::unc_native_remove(text); }},
      {"status", "osi_status(" + text + ")", [path] { (void)F::status(path, &unused_record); }},
      {"status of a string", "osi_status(" + text + ")", [&text] { (void)F::status(text, &unused_record); }},
      {"is_directory", "osi_status(" + text + ")", [path] { (void)F::is_directory(path); }},
      {"is_regular_file", "osi_status(" + text + ")", [path] { (void)F::is_regular_file(path); }},
  };
  for (auto const& row : rows) {
    replace_open({-1});
    replaced().osi_fopen = [](char const*, char const*) { return nullptr; };
    replace_chmod({-1});
    replace_mkdir({-1});
    replace_rmdir({-1});
    replace_chdir({-1});
    replace_rename({-1});
    replace_remove({-1});
    replace_status({-1});
    EXPECT_EQ(calls_of(row.run), strings{row.call}) << row.operation;
  }
  EXPECT_EQ(messages(), strings{});
}

TEST_F(file_system, exists_refuses_1024_characters_without_a_call) {
  replace_exists({1});
  for (std::size_t const length : {1023u, 1024u, 5000u}) {
    bool const legal = length == 1023;
    std::string const text = repeated(length);
    bool found = !legal;
    errno = 0;
    strings const calls = calls_of([&] { found = FIO_FILE_SYSTEM::exists(text.c_str()); });
    EXPECT_EQ(found, legal) << length;
    EXPECT_EQ(calls, legal ? strings{"osi_exists(" + text + ")"} : strings{}) << length;
    EXPECT_EQ(errno, legal ? telltale : 0) << length;
  }
  EXPECT_EQ(messages(), strings{});
}

TEST_F(file_system, exists_refuses_a_long_wildcard_without_a_call) {
  m_tree.draw({"f"});
  std::string const shortest = padded(m_tree.path("?"), 1023);
  EXPECT_TRUE(FIO_FILE_SYSTEM::exists(shortest.c_str()));
  bool found = true;
  EXPECT_EQ(calls_of([&] { found = FIO_FILE_SYSTEM::exists(('/' + shortest).c_str()); }), strings{});
  EXPECT_FALSE(found);
}

TEST_F(file_system, exists_says_no_to_a_long_text_that_leads_to_a_file) {
  m_tree.draw({"f"});
  std::string const legal = padded(m_tree.path("f"), 1023);
  std::string const too_long = '/' + legal;
  ASSERT_EQ(too_long.size(), 1024u);
  ASSERT_EQ(::access(too_long.c_str(), F_OK), 0);
  EXPECT_TRUE(FIO_FILE_SYSTEM::exists(legal.c_str()));
  EXPECT_FALSE(FIO_FILE_SYSTEM::exists(too_long.c_str()));
}

TEST_F(file_system, path_forms_write_the_message_before_the_call) {
  struct {
    char const* operation;
    std::string text;
    strings calls;
    std::function<void(FIO_PATH const&)> run;
  } const rows[] = {
      {"remove", overgrown_text('x', 1023), {"remove"}, [](FIO_PATH const& path) { F::remove(path); }},
      {"remove", overgrown_text('x', 1024), {"remove"}, [](FIO_PATH const& path) { F::remove(path); }},
      {"status",
       overgrown_text('x', 1023),
       {"osi_status"},
       [](FIO_PATH const& path) { (void)F::status(path, &unused_record); }},
      {"status",
       overgrown_text('x', 1024),
       {"osi_status"},
       [](FIO_PATH const& path) { (void)F::status(path, &unused_record); }},
      {"exists", overgrown_text('x', 1023), {"osi_exists"}, [](FIO_PATH const& path) { (void)F::exists(path); }},
      {"exists", overgrown_text('x', 1024), {}, [](FIO_PATH const& path) { (void)F::exists(path); }},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(std::string(row.operation) + " of " + std::to_string(row.text.size()));
    platform_double::reset();
    strings events;
    auto const note = [&](char const* name) {
      return [&events, name](char const* path, auto...) {
        events.insert(events.end(), {"messages so far", std::to_string(messages().size()), name, path});
        return 0;
      };
    };
    replaced().remove = note("remove");
    replaced().osi_status = note("osi_status");
    replaced().osi_exists = note("osi_exists");
    bool const too_long = row.text.size() > 1023;
    row.run(overgrown('x', row.text.size()));
    EXPECT_EQ(messages(), too_long ? strings{length_message(row.text)} : strings{});
    strings const expected =
        row.calls.empty() ? strings{} : strings{"messages so far", too_long ? "1" : "0", row.calls.front(), row.text};
    EXPECT_EQ(events, expected);
  }
}

TEST_F(file_system, rename_of_paths_reads_the_target_first) {
  std::string const from = overgrown_text('f', 1500);
  std::string const to = overgrown_text('t', 2000);
  replace_rename({0});
  EXPECT_EQ(calls_of([] { F::rename(overgrown('f', 1500), overgrown('t', 2000)); }),
            strings{"rename(" + from + ", " + to + ")"});
  EXPECT_EQ(messages(), (strings{length_message(to), length_message(from)}));

  platform_double::debug_messages().clear();
  F::rename(overgrown('f', 1500), FIO_PATH("t"));
  F::rename(FIO_PATH("f"), overgrown('t', 2000));
  EXPECT_EQ(messages(), (strings{length_message(from), length_message(to)}));
}

TEST_F(file_system, messages_carry_the_name_of_the_module) {
  (void)F::exists(overgrown('x', 1024));
  ASSERT_EQ(platform_double::debug_messages().size(), 1u);
  EXPECT_EQ(platform_double::debug_messages()[0].module, "FIO");
}

// Null pointers

TEST_F(file_system, guarded_operations_answer_false_to_null_without_a_call) {
  bool results[] = {true, true, true};
  errno = telltale;
  strings const calls = calls_of([&] {
    results[0] = FIO_FILE_SYSTEM::remove(static_cast<char const*>(nullptr));
    results[1] = FIO_FILE_SYSTEM::native_remove(nullptr);
    results[2] = FIO_FILE_SYSTEM::exists(static_cast<char const*>(nullptr));
  });
  EXPECT_EQ(errno, telltale);
  EXPECT_EQ(calls, strings{});
  for (bool const result : results) {
    EXPECT_FALSE(result);
  }
}

TEST_F(file_system, unguarded_status_passes_null_on) {
  replace_status({-1});
  strings const expected = {"osi_status(null)"};
  EXPECT_EQ(calls_of([] { EXPECT_FALSE(F::status(static_cast<char const*>(nullptr), &unused_record)); }), expected);
  EXPECT_EQ(calls_of([] { EXPECT_FALSE(F::is_directory(nullptr)); }), expected);
  EXPECT_EQ(calls_of([] { EXPECT_FALSE(F::is_regular_file(nullptr)); }), expected);
  long const limit = LONG_MAX;
  EXPECT_EQ(calls_of([&] { EXPECT_FALSE(F::is_older(nullptr, &limit)); }), expected);
  EXPECT_EQ(calls_of([] { EXPECT_TRUE(F::is_older(nullptr, nullptr)); }), strings{});
}

// The current directory

TEST_F(file_system, get_current_directory_hands_on_buffer_size_and_result) {
  char buffer[16] = "old";
  char elsewhere[] = "elsewhere";
  char* answered = elsewhere;
  replaced().osi_getcwd = [&](char* given, unsigned long size) {
    EXPECT_EQ(given, buffer);
    EXPECT_EQ(size, 123u);
    errno = telltale;
    return answered;
  };
  EXPECT_EQ(calls_of([&] { EXPECT_EQ(F::get_current_directory(buffer, 123), elsewhere); }), strings{"osi_getcwd(123)"});
  answered = nullptr;
  errno = 0;
  EXPECT_EQ(F::get_current_directory(buffer, 123), nullptr);
  EXPECT_EQ(errno, telltale);
  EXPECT_STREQ(buffer, "old");
}

TEST_F(file_system, get_current_directory_with_the_size_first_answers_the_length_in_the_buffer) {
  struct {
    char const* what;
    char const* held;
    char const* written;
    bool fails;
    unsigned long length;
  } const rows[] = {
      {"a success", "old text", "/a", false, 2},
      {"a root", "old text", "/", false, 1},
      {"an empty text", "old text", "", false, 0},
      {"a failure that leaves the buffer", "old text", nullptr, true, 8},
      {"a failure with an empty buffer", "", nullptr, true, 0},
      {"a failure that writes", "old text", "/ab", true, 3},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.what);
    char buffer[32];
    std::strcpy(buffer, row.held);
    replaced().osi_getcwd = [&](char* given, unsigned long size) -> char* {
      EXPECT_EQ(given, buffer);
      EXPECT_EQ(size, 31u);
      if (row.written != nullptr) {
        std::strcpy(given, row.written);
      }
      errno = telltale;
      return row.fails ? nullptr : given;
    };
    unsigned long length = 99;
    errno = 0;
    EXPECT_EQ(calls_of([&] { length = F::get_current_directory(31, buffer); }), strings{"osi_getcwd(31)"});
    EXPECT_EQ(errno, telltale);
    EXPECT_EQ(length, row.length);
  }
}

TEST_F(file_system, get_current_directory_with_the_size_first_and_no_buffer_answers_0) {
  char elsewhere[] = "elsewhere";
  for (char* const answered : {static_cast<char*>(nullptr), elsewhere}) {
    replaced().osi_getcwd = [&](char* given, unsigned long) {
      EXPECT_EQ(given, nullptr);
      return answered;
    };
    unsigned long length = 99;
    EXPECT_EQ(calls_of([&] { length = F::get_current_directory(64, nullptr); }), strings{"osi_getcwd(64)"});
    EXPECT_EQ(length, 0u);
  }
}

TEST_F(file_system, get_current_directory_as_a_string_asks_for_1024_bytes_of_zeros) {
  replaced().osi_getcwd = [](char* buffer, unsigned long size) {
    EXPECT_EQ(size, 1024u);
    EXPECT_EQ(std::string(buffer, 1025), std::string(1025, '\0'));
    std::strcpy(buffer, "/some/where");
    return buffer;
  };
  std::string text;
  EXPECT_EQ(calls_of([&] { text = F::get_current_directory(); }), strings{"osi_getcwd(1024)"});
  EXPECT_EQ(text, "/some/where");
}

TEST_F(file_system, get_current_directory_as_a_string_leaves_the_error_number_of_a_success) {
  replaced().osi_getcwd = [](char* buffer, unsigned long) { return std::strcpy(buffer, "/some/where"); };
  errno = telltale;
  std::string const text = F::get_current_directory();
  EXPECT_EQ(errno, telltale);
  EXPECT_EQ(text, "/some/where");
}

TEST_F(file_system, get_current_directory_as_a_string_ends_a_text_that_fills_the_buffer) {
  replaced().osi_getcwd = [](char* buffer, unsigned long size) {
    std::memset(buffer, 'x', size);
    return buffer;
  };
  EXPECT_EQ(F::get_current_directory(), repeated(1024));
}

TEST_F(file_system, get_current_directory_as_a_string_answers_the_buffer_and_not_the_pointer) {
  char elsewhere[] = "elsewhere";
  replaced().osi_getcwd = [&](char* buffer, unsigned long) {
    std::strcpy(buffer, "/here");
    return elsewhere;
  };
  EXPECT_EQ(F::get_current_directory(), "/here");
}

TEST_F(file_system, get_current_directory_as_a_string_is_empty_on_failure) {
  replaced().osi_getcwd = [](char* buffer, unsigned long) -> char* {
    std::strcpy(buffer, "/written/all/the/same");
    errno = telltale;
    return nullptr;
  };
  errno = 0;
  std::string const text = F::get_current_directory();
  EXPECT_EQ(errno, telltale);
  EXPECT_EQ(text, "");
}

TEST_F(file_system, a_current_directory_of_1024_characters_reads_as_empty) {
  for (std::size_t const length : {1022u, 1023u, 1024u, 1025u}) {
    std::string const directory = directory_of_length(m_tree, length);
    ASSERT_EQ(directory.size(), length);
    ASSERT_EQ(F::change_current_directory(directory.c_str()), 0);
    errno = 0;
    std::string const text = F::get_current_directory();
    int const error = errno;
    EXPECT_EQ(text, length <= 1023 ? directory : "") << length;
    EXPECT_EQ(error, length <= 1023 ? 0 : ERANGE) << length;

    char buffer[2048] = "held";
    EXPECT_EQ(F::get_current_directory(buffer, length), nullptr) << length;
    EXPECT_EQ(F::get_current_directory(length + 1, buffer), length);
    EXPECT_EQ(F::get_current_directory(buffer, length + 1), buffer);
    EXPECT_EQ(buffer, directory);
  }
}

TEST_F(file_system, the_current_directory_moves_with_both_operations) {
  m_tree.draw({"a/b/", "a/f"});
  EXPECT_EQ(F::change_current_directory(m_tree.path("a").c_str()), 0);
  EXPECT_EQ(F::get_current_directory(), m_tree.path("a"));
  EXPECT_TRUE(F::set_current_directory("b"));
  EXPECT_EQ(F::get_current_directory(), m_tree.path("a/b"));
  EXPECT_EQ(F::change_current_directory(".."), 0);
  EXPECT_EQ(F::get_current_directory(), m_tree.path("a"));
  EXPECT_EQ(F::change_current_directory("f"), -1);
  EXPECT_FALSE(F::set_current_directory("missing"));
  EXPECT_EQ(F::get_current_directory(), m_tree.path("a"));
}

// Failures of the system itself

TEST_F(file_system, the_error_number_of_the_system_stays) {
  m_tree.draw({"f=x", "d/inner", "loop -> loop", "dangling -> nowhere"});
  enter(m_tree);
  long const limit = LONG_MAX;
  struct {
    char const* operation;
    int error;
    std::function<bool()> fails;
  } const rows[] = {
      {"open, missing", ENOENT, [] { return F::open("missing", O_RDONLY, 0) == -1; }},
      {"open, exclusive", EEXIST, [] { return F::open("f", O_WRONLY | O_CREAT | O_EXCL, 0600) == -1; }},
      {"fopen, missing", ENOENT, [] { return F::fopen("missing", "r") == nullptr; }},
      {"fopen, directory", EISDIR, [] { return F::fopen("d", "w") == nullptr; }},
      {"chmod, missing", ENOENT, [] { return !F::chmod("missing", 0600); }},
      {"mkdir, there", EEXIST, [] { return F::mkdir("d") == -1; }},
      {"mkdir, no parent", ENOENT, [] { return F::mkdir("missing/d") == -1; }},
      {"rmdir, not empty", ENOTEMPTY, [] { return F::rmdir("d") == -1; }},
      {"rmdir, file", ENOTDIR, [] { return F::rmdir("f") == -1; }},
      {"change_current_directory, file", ENOTDIR, [] { return F::change_current_directory("f") == -1; }},
      {"set_current_directory, missing", ENOENT, [] { return !F::set_current_directory("missing"); }},
      {"posix_rename, missing", ENOENT, [] { return !F::posix_rename("missing", "g"); }},
      {"rename, directory over file", ENOTDIR, [] { return !F::rename("d", "f"); }},
      {"rename, file over directory", EISDIR, [] { return !F::rename(std::string("f"), std::string("d")); }},
      {"rename of paths, missing", ENOENT, [] { return !F::rename(FIO_PATH("missing"), FIO_PATH("g")); }},
      {"remove, missing", ENOENT, [] { return !F::remove("missing"); }},
      {"remove of a string, not empty", ENOTEMPTY, [] { return !F::remove(std::string("d")); }},
      {"remove of a path, not empty", ENOTEMPTY, [] { return !F::remove(FIO_PATH("d")); }},
      {"native_remove, below a file", ENOTDIR, [] { return !F::native_remove("f/x"); }},
      {"posix_remove, missing", ENOENT, [] { return !F::posix_remove("missing"); }},
      {"unc_native_remove, missing", ENOENT, [] { return !F::unc_native_remove("missing"); }},
      {"remove_if_exists, not empty", ENOTEMPTY, [] { return !F::remove_if_exists("d"); }},
      {"status, missing", ENOENT, [] { return !F::status("missing", &unused_record); }},
      {"status, below a file", ENOTDIR, [] { return !F::status("f/x", &unused_record); }},
      {"status, loop", ELOOP, [] { return !F::status(std::string("loop"), &unused_record); }},
      {"is_directory, missing", ENOENT, [] { return !F::is_directory("missing"); }},
      {"is_regular_file, loop", ELOOP, [] { return !F::is_regular_file("loop"); }},
      {"is_older, missing", ENOENT, [&] { return !F::is_older("missing", &limit); }},
      {"exists, missing", ENOENT, [] { return !F::exists("missing"); }},
      {"exists, dangling", ENOENT, [] { return !F::exists("dangling"); }},
      {"exists of a path, below a file", ENOTDIR, [] { return !F::exists(FIO_PATH("f/x")); }},
      {"exists, wildcard in no directory", ENOENT, [] { return !F::exists("missing/*"); }},
  };
  for (auto const& row : rows) {
    errno = 0;
    bool const failed = row.fails();
    int const error = errno;
    EXPECT_TRUE(failed) << row.operation;
    EXPECT_EQ(error, row.error) << row.operation;
  }
  EXPECT_EQ(messages(), strings{});
  EXPECT_EQ(content_of("f"), "x");
}

// Opening, attributes and directories

TEST_F(file_system, open_creates_with_the_mode_that_it_is_given) {
  mode_t const mask = ::umask(0);
  int const descriptor = F::open(m_tree.path("f").c_str(), O_WRONLY | O_CREAT | O_EXCL, 0640);
  ::umask(mask);
  ASSERT_GE(descriptor, 0);
  EXPECT_EQ(::write(descriptor, "abc", 3), 3);
  ::close(descriptor);
  EXPECT_EQ(mode_of(m_tree.path("f")), mode_t{S_IFREG | 0640});
  EXPECT_EQ(content_of(m_tree.path("f")), "abc");
}

TEST_F(file_system, fopen_opens_in_the_mode_that_it_is_given) {
  std::string const path = m_tree.path("f");
  char const* const modes_and_contents[][2] = {{"w", "one"}, {"a", "onetwo"}, {"wb", "three"}};
  char const* const written[] = {"one", "two", "three"};
  for (std::size_t row = 0; row != 3; ++row) {
    std::FILE* const stream = F::fopen(path.c_str(), modes_and_contents[row][0]);
    ASSERT_NE(stream, nullptr);
    EXPECT_GE(std::fputs(written[row], stream), 0);
    EXPECT_EQ(std::fclose(stream), 0);
    EXPECT_EQ(content_of(path), modes_and_contents[row][1]);
  }
}

TEST_F(file_system, chmod_changes_what_a_link_leads_to) {
  m_tree.draw({"f", "link -> f"});
  EXPECT_TRUE(F::chmod(m_tree.path("f").c_str(), 0604));
  EXPECT_EQ(mode_of(m_tree.path("f")), mode_t{S_IFREG | 0604});
  EXPECT_TRUE(F::chmod(m_tree.path("link").c_str(), 0640));
  EXPECT_EQ(mode_of(m_tree.path("f")), mode_t{S_IFREG | 0640});
}

TEST_F(file_system, directories_are_made_and_removed_one_at_a_time) {
  std::string const parent = m_tree.path("d");
  std::string const child = m_tree.path("d/e");
  EXPECT_EQ(F::mkdir(child.c_str()), -1);
  EXPECT_EQ(F::mkdir(parent.c_str()), 0);
  EXPECT_EQ(F::mkdir(child.c_str()), 0);
  EXPECT_TRUE(F::is_directory(child.c_str()));
  EXPECT_EQ(F::rmdir(parent.c_str()), -1);
  EXPECT_EQ(F::rmdir(child.c_str()), 0);
  EXPECT_EQ(F::rmdir(parent.c_str()), 0);
  EXPECT_FALSE(is_there(parent));
}

// Renaming and removing

TEST_F(file_system, every_form_of_rename_replaces_an_existing_target) {
  using form = std::function<bool(std::string const&, std::string const&)>;
  form const forms[] = {
      [](std::string const& from, std::string const& to) { return F::posix_rename(from.c_str(), to.c_str()); },
      [](std::string const& from, std::string const& to) { return F::rename(from.c_str(), to.c_str()); },
      [](std::string const& from, std::string const& to) { return F::rename(from, to); },
      [](std::string const& from, std::string const& to) { return F::rename(FIO_PATH(from), FIO_PATH(to)); },
  };
  for (form const& rename : forms) {
    m_tree.draw({"from=new", "to=old"});
    EXPECT_TRUE(rename(m_tree.path("from"), m_tree.path("to")));
    EXPECT_FALSE(is_there(m_tree.path("from")));
    EXPECT_EQ(content_of(m_tree.path("to")), "new");
  }
}

TEST_F(file_system, rename_moves_a_link_and_not_what_it_leads_to) {
  m_tree.draw({"f=x", "link -> f", "dangling -> nowhere"});
  EXPECT_TRUE(F::rename(m_tree.path("link"), m_tree.path("moved")));
  EXPECT_EQ(mode_of(m_tree.path("moved")) & S_IFMT, mode_t{S_IFLNK});
  EXPECT_TRUE(F::rename(m_tree.path("dangling"), m_tree.path("moved")));
  EXPECT_FALSE(F::exists(m_tree.path("moved").c_str()));
  EXPECT_EQ(content_of(m_tree.path("f")), "x");
}

TEST_F(file_system, rename_to_another_file_system_is_a_failure_after_one_attempt) {
  m_tree.draw({"f=x"});
  replaced().rename = [](char const*, char const*) {
    errno = EXDEV;
    return -1;
  };
  std::string const from = m_tree.path("f");
  std::string const to = m_tree.path("g");
  bool renamed = true;
  errno = 0;
  EXPECT_EQ(calls_of([&] { renamed = F::rename(from, to); }), strings{"rename(" + from + ", " + to + ")"});
  EXPECT_EQ(errno, EXDEV);
  EXPECT_FALSE(renamed);
  EXPECT_EQ(content_of(from), "x");
  EXPECT_FALSE(is_there(to));
}

TEST_F(file_system, every_form_of_remove_takes_files_links_and_empty_directories) {
  using form = std::function<bool(std::string const&)>;
  form const forms[] = {
      [](std::string const& path) { return F::remove(path.c_str()); },
      [](std::string const& path) { return F::remove(path); },
      [](std::string const& path) { return F::remove(FIO_PATH(path)); },
      [](std::string const& path) { return F::native_remove(path.c_str()); },
      [](std::string const& path) { return F::posix_remove(path.c_str()); },
      [](std::string const& path) { return F::unc_native_remove(path); },
      [](std::string const& path) { return F::remove_if_exists(path); },
  };
  for (form const& remove : forms) {
    m_tree.draw({"f", "empty/", "full/f", "kept/f=x", "file link -> kept/f", "directory link -> kept"});
    for (char const* const name : {"f", "empty", "file link", "directory link"}) {
      EXPECT_TRUE(remove(m_tree.path(name))) << name;
      EXPECT_FALSE(is_there(m_tree.path(name))) << name;
    }
    EXPECT_FALSE(remove(m_tree.path("full")));
    EXPECT_TRUE(is_there(m_tree.path("full/f")));
    EXPECT_EQ(content_of(m_tree.path("kept/f")), "x");
  }
}

TEST_F(file_system, a_wildcard_removes_the_file_of_that_name_alone) {
  m_tree.draw({"a*", "ab"});
  EXPECT_TRUE(F::remove(m_tree.path("a*")));
  EXPECT_FALSE(is_there(m_tree.path("a*")));
  EXPECT_TRUE(is_there(m_tree.path("ab")));
  EXPECT_FALSE(F::remove(m_tree.path("a*")));
}

TEST_F(file_system, remove_if_exists_asks_before_it_removes) {
  for (int const there : {0, 1, -1}) {
    for (int const removal : {0, -1, 1}) {
      SCOPED_TRACE("exists " + std::to_string(there) + ", remove " + std::to_string(removal));
      replace_exists({there});
      replace_remove({removal});
      bool result = false;
      strings const calls = calls_of([&] { result = F::remove_if_exists("a/b"); });
      EXPECT_EQ(result, there == 0 || removal == 0);
      EXPECT_EQ(calls, there == 0 ? strings{"osi_exists(a/b)"} : (strings{"osi_exists(a/b)", "remove(a/b)"}));
    }
  }
}

TEST_F(file_system, remove_if_exists_takes_its_text_as_it_stands) {
  m_tree.draw({"d\\f", "d/f"});
  EXPECT_TRUE(F::remove_if_exists(m_tree.path("d\\f")));
  EXPECT_FALSE(is_there(m_tree.path("d\\f")));
  EXPECT_TRUE(is_there(m_tree.path("d/f")));

  replace_exists({1});
  replace_remove({0});
  EXPECT_EQ(calls_of([] { EXPECT_TRUE(F::remove_if_exists("a//b\\c")); }),
            (strings{"osi_exists(a//b\\c)", "remove(a//b\\c)"}));
}

TEST_F(file_system, remove_if_exists_leaves_the_error_number_of_the_question_where_nothing_is_there) {
  replace_exists({0});
  errno = 0;
  bool const removed = F::remove_if_exists("missing");
  EXPECT_EQ(errno, telltale);
  EXPECT_TRUE(removed);
}

TEST_F(file_system, remove_if_exists_counts_what_is_not_found_as_removed) {
  m_tree.draw({"f.txt", "dangling -> nowhere"});
  EXPECT_TRUE(F::remove_if_exists(m_tree.path("missing")));
  EXPECT_TRUE(F::remove_if_exists(m_tree.path("missing/below")));
  EXPECT_TRUE(F::remove_if_exists(""));
  EXPECT_TRUE(F::remove_if_exists(m_tree.path("dangling")));
  EXPECT_TRUE(is_there(m_tree.path("dangling")));
  EXPECT_TRUE(F::remove_if_exists(m_tree.path("*.none")));
  EXPECT_TRUE(F::remove_if_exists(padded(m_tree.path("f.txt"), 1024)));
  EXPECT_TRUE(is_there(m_tree.path("f.txt")));
}

TEST_F(file_system, remove_if_exists_does_not_expand_a_wildcard_that_exists) {
  m_tree.draw({"f.txt"});
  errno = 0;
  bool const removed = F::remove_if_exists(m_tree.path("*.txt"));
  EXPECT_EQ(errno, ENOENT);
  EXPECT_FALSE(removed);
  EXPECT_TRUE(is_there(m_tree.path("f.txt")));
}

// Status

TEST_F(file_system, each_value_of_the_file_type_is_read_bit_by_bit) {
  struct {
    mode_t type;
    char const* what;
    bool directory;
    bool regular_file;
  } const rows[] = {
      {0x0000, "none", false, false},
      {0x1000, "pipe", false, false},
      {0x2000, "character device", false, false},
      {0x3000, "unused", false, false},
      {0x4000, "directory", true, false},
      {0x5000, "unused", true, false},
      {0x6000, "block device", true, false},
      {0x7000, "unused", true, false},
      {0x8000, "regular file", false, true},
      {0x9000, "unused", false, true},
      {0xA000, "symbolic link", false, true},
      {0xB000, "unused", false, true},
      {0xC000, "socket", true, true},
      {0xD000, "unused", true, true},
      {0xE000, "unused", true, true},
      {0xF000, "unused", true, true},
  };
  for (auto const& row : rows) {
    for (mode_t const permissions : {mode_t{0}, mode_t{07777}}) {
      SCOPED_TRACE(std::string(row.what) + ", mode " + std::to_string(row.type | permissions));
      bool result = false;
      replaced().osi_status = status_answer{record_of_mode(row.type | permissions)};
      EXPECT_EQ(calls_of([&] { result = F::is_directory("a//b"); }), strings{"osi_status(a//b)"});
      EXPECT_EQ(result, row.directory);
      EXPECT_EQ(calls_of([&] { result = F::is_regular_file("a//b"); }), strings{"osi_status(a//b)"});
      EXPECT_EQ(result, row.regular_file);
    }
  }
}

TEST_F(file_system, the_status_of_an_empty_text_is_asked_for) {
  replaced().osi_status = status_answer{record_of_mode(0xC000)};
  strings const expected = {"osi_status()"};
  EXPECT_EQ(calls_of([] { EXPECT_TRUE(F::is_directory("")); }), expected);
  EXPECT_EQ(calls_of([] { EXPECT_TRUE(F::is_regular_file("")); }), expected);
  long const limit = 1;
  EXPECT_EQ(calls_of([&] { EXPECT_TRUE(F::is_older("", &limit)); }), expected);
}

TEST_F(file_system, a_status_that_fails_is_neither_directory_nor_regular_file) {
  for (int const result : {-1, 1}) {
    replaced().osi_status = status_answer{record_of_mode(0xF000), result};
    errno = 0;
    EXPECT_FALSE(F::is_directory("f"));
    EXPECT_EQ(errno, telltale);
    errno = 0;
    EXPECT_FALSE(F::is_regular_file("f"));
    EXPECT_EQ(errno, telltale);
  }
}

TEST_F(file_system, status_follows_links) {
  m_tree.draw({"f=abc", "d/", "file link -> f", "directory link -> d", "dangling -> nowhere"});
  ASSERT_EQ(::mkfifo(m_tree.path("pipe").c_str(), 0600), 0);
  ASSERT_EQ(::symlink("pipe", m_tree.path("pipe link").c_str()), 0);
  struct {
    std::string path;
    bool exists;
    bool directory;
    bool regular_file;
  } const rows[] = {
      {m_tree.path("f"), true, false, true},
      {m_tree.path("d"), true, true, false},
      {m_tree.path("d/"), true, true, false},
      {m_tree.path("f/"), false, false, false},
      {m_tree.path("file link"), true, false, true},
      {m_tree.path("directory link"), true, true, false},
      {m_tree.path("dangling"), false, false, false},
      {m_tree.path("pipe"), true, false, false},
      {m_tree.path("pipe link"), true, false, false},
      {m_tree.path("missing"), false, false, false},
      {"/dev/null", true, false, false},
      {"/", true, true, false},
      {"", false, false, false},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.path);
    struct stat record;
    EXPECT_EQ(F::exists(row.path.c_str()), row.exists);
    EXPECT_EQ(F::exists(FIO_PATH(row.path)), row.exists);
    EXPECT_EQ(F::status(row.path.c_str(), &record), row.exists);
    EXPECT_EQ(F::status(row.path, &record), row.exists);
    EXPECT_EQ(F::status(FIO_PATH(row.path), &record), row.exists);
    EXPECT_EQ(F::is_directory(row.path.c_str()), row.directory);
    EXPECT_EQ(F::is_regular_file(row.path.c_str()), row.regular_file);
  }
  struct stat record = {};
  EXPECT_TRUE(F::status(m_tree.path("file link"), &record));
  EXPECT_EQ(record.st_size, 3);
}

TEST_F(file_system, a_socket_is_a_directory_and_a_regular_file) {
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  std::string const path = m_tree.path("s");
  ASSERT_LT(path.size(), sizeof address.sun_path);
  path.copy(address.sun_path, path.size());
  int const descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  ASSERT_GE(descriptor, 0);
  ASSERT_EQ(::bind(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  ::close(descriptor);
  EXPECT_TRUE(F::is_directory(path.c_str()));
  EXPECT_TRUE(F::is_regular_file(path.c_str()));
}

TEST_F(file_system, is_older_is_strict_and_reads_whole_seconds) {
  struct {
    long modified;
    long limit;
    bool older;
  } const rows[] = {
      {99, 100, true},
      {100, 100, false},
      {101, 100, false},
      {0, 0, false},
      {0, 1, true},
      {-1, 0, true},
      {-5, -4, true},
      {-4, -5, false},
      {-5, -5, false},
      {5, -5, false},
      {0x1'0000'0000, 1, false},
      {1, 0x1'0000'0000, true},
      {LONG_MIN, 0, true},
      {LONG_MAX, LONG_MAX, false},
  };
  for (auto const& row : rows) {
    struct stat record = record_of_mode(0x8000);
    record.st_mtim.tv_sec = row.modified;
    record.st_mtim.tv_nsec = 999'999'999;
    record.st_atim.tv_sec = -row.limit;
    record.st_ctim.tv_sec = -row.limit;
    replaced().osi_status = status_answer{record};
    bool older = !row.older;
    EXPECT_EQ(calls_of([&] { older = F::is_older("a//b", &row.limit); }), strings{"osi_status(a//b)"});
    EXPECT_EQ(older, row.older) << row.modified << " against " << row.limit;

    replaced().osi_status = status_answer{record, -1};
    errno = 0;
    EXPECT_FALSE(F::is_older("f", &row.limit));
    EXPECT_EQ(errno, telltale);
  }
}

TEST_F(file_system, anything_is_older_than_no_limit) {
  errno = telltale;
  strings const calls = calls_of([&] {
    EXPECT_TRUE(F::is_older("missing", nullptr));
    EXPECT_TRUE(F::is_older(m_tree.root().c_str(), nullptr));
    EXPECT_TRUE(F::is_older(repeated(5000).c_str(), nullptr));
  });
  EXPECT_EQ(errno, telltale);
  EXPECT_EQ(calls, strings{});
}

TEST_F(file_system, a_file_is_not_older_than_its_own_time) {
  m_tree.draw({"f"});
  std::string const path = m_tree.path("f");
  timespec const times[] = {{123, 0}, {1'000'000'000, 500'000'000}};
  ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
  long const limits[] = {999'999'999, 1'000'000'000, 1'000'000'001};
  EXPECT_FALSE(F::is_older(path.c_str(), &limits[0]));
  EXPECT_FALSE(F::is_older(path.c_str(), &limits[1]));
  EXPECT_TRUE(F::is_older(path.c_str(), &limits[2]));
  EXPECT_FALSE(F::is_older(m_tree.path("missing").c_str(), &limits[2]));
}

// Existence of a wildcard

TEST_F(file_system, exists_of_a_wildcard_asks_whether_any_entry_matches) {
  m_tree.draw({"a.txt", "sub/b", "dangling -> nowhere"});
  enter(m_tree);
  struct {
    char const* path;
    bool exists;
  } const rows[] = {
      {"*.txt", true},   {"a.?xt", true},   {"?", true},    {"*", true},          {"./*.txt", true},
      {"*.text", false}, {"a.txt*", false}, {"A*", false},  {"sub/*", true},      {"sub/?", true},
      {"sub/c*", false}, {"su?/b", false},  {"*/b", false}, {"missing/*", false}, {"a.txt/*", false},
      {"dang*", false},  {"/*", false},     {"/?", false},  {"/ro*", false},      {".*", true},
      {".a*", false},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(F::exists(row.path), row.exists) << row.path;
    EXPECT_EQ(F::exists(FIO_PATH(row.path)), row.exists) << row.path;
  }
  EXPECT_EQ(messages(), strings{});
}

TEST_F(file_system, exists_of_a_wildcard_never_asks_osi_exists) {
  m_tree.draw({"only=x"});
  std::string const root = m_tree.root();
  replace_exists({1});
  strings calls = calls_of([&] { EXPECT_TRUE(F::exists((root + "/o*").c_str())); });
  // The number of entries read before the match depends on the directory.
  calls.erase(std::remove(calls.begin(), calls.end(), "readdir64()"), calls.end());
  EXPECT_EQ(calls,
            (strings{"opendir(" + root + ")", "stat(" + root + "/only)", "access(" + root + "/only)", "closedir()"}));

  calls = calls_of([&] { EXPECT_FALSE(F::exists((root + "/no*").c_str())); });
  EXPECT_EQ(calls, (strings{"opendir(" + root + ")", "readdir64()", "readdir64()", "readdir64()", "readdir64()",
                            "closedir()"}));
  EXPECT_EQ(calls_of([&] { EXPECT_FALSE(F::exists("/*")); }), strings{"opendir()"});
}

TEST_F(file_system, two_leading_separators_do_not_turn_a_wildcard_into_a_literal_name) {
  replace_exists({1});
  replaced().opendir = [](char const*) { return nullptr; };
  EXPECT_EQ(calls_of([] { EXPECT_FALSE(F::exists("//server/x*")); }), strings{"opendir(//server)"});
  EXPECT_EQ(calls_of([] { EXPECT_TRUE(F::exists("//server/x")); }), strings{"osi_exists(//server/x)"});
}

// The wildcard test

TEST_F(file_system, same_file_follows_its_rules) {
  struct {
    char const* pattern;
    char const* name;
    bool same;
  } const rows[] = {
      // A pattern without a star matches as a prefix.
      {"abc", "abc", true},
      {"abc", "abcdef", true},
      {"a?c", "abcd", true},
      {"abc", "ab", false},
      {"abc", "", false},
      {"abc", "xabc", false},
      {"a", "b", false},
      {"?", "", false},
      {"?", "x", true},
      {"?", "xy", true},
      {"??", "x", false},

      // The empty pattern is a prefix of everything.
      {"", "", true},
      {"", "x", true},
      {"", "a/b*", true},

      // A star at the start stands for anything, also nothing.
      {"*", "", true},
      {"*", "x", true},
      {"*", "a.b/c", true},
      {"*abc", "abc", true},
      {"*?", "", false},
      {"*?", "x", true},

      // Behind a star the tail must end with the name.
      {"*.txt", "a.txt", true},
      {"*.txt", ".txt", true},
      {"*.txt", "a.txt.bak", false},
      {"*.txt", "a.tx", false},
      {"*.txt", "a.txt.txt", true},
      {"a*c", "abcbc", true},
      {"a*c", "abcb", false},
      {"*??", "x", false},
      {"*??", "xyz", true},

      // A star that is not at the start needs a byte of name left.
      {"ab*", "abc", true},
      {"ab*", "ab", false},
      {"*a*", "xa", false},
      {"*a*", "xab", true},
      {"*a*", "a", false},
      {"a**", "ab", true},
      {"a**", "a", false},
      {"**", "", false},
      {"**", "x", true},
      {"***", "", false},
      {"***", "x", true},
      {"**a", "a", true},
      {"?*", "x", false},
      {"?*", "xy", true},

      // The first place where the text before a star fits is taken, and no other.
      {"*a*b", "xaab", true},
      {"*ab*b", "abab", true},
      {"*ab*b", "ab", false},
      {"*ab*", "xabxab", true},
      {"*a*a", "xaa", true},
      {"*a*a", "xa", false},

      // A tail that would fit later is tried at every place, one that uses the name up is the last.
      {"*ab", "aab", true},
      {"*aab", "aaab", true},
      {"*ab", "ababa", false},
      {"*abc", "xab", false},

      // There are no other metacharacters, and bytes are compared exactly.
      {"[ab]", "a", false},
      {"[ab]", "[ab]", true},
      {"\\*", "*", false},
      {"\\*", "\\x", true},
      {"ABC", "abc", false},
      {"{a,b}", "a", false},
      {"#", "#", true},
      {"\xc3\xa4", "\xc3\xa4", true},
      {"\xc3\xa4", "\xc3\x84", false},
      {"?", "\xff", true},
      {"*\xff", "a\xff", true},
      {"a*", "a\xff", true},

      // A separator and a leading dot are bytes like any other.
      {"a*c", "a/b/c", true},
      {"a?b", "a/b", true},
      {"*", ".hidden", true},
      {"?hidden", ".hidden", true},
      {"*", ".", true},
      {"*", "..", true},
      {".*", "..", true},
      {".*", ".", false},

      // Metacharacters in the name are bytes.
      {"a", "*", false},
      {"*", "*", true},
      {"?", "*", true},
      {"a*", "a*", true},
      {"ab", "a?", false},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(F::same_file(row.name, row.pattern), row.same) << row.name << " against " << row.pattern;
    EXPECT_EQ(same_file_by_the_rules(row.name, row.pattern), row.same) << row.name << " against " << row.pattern;
  }
}

TEST_F(file_system, same_file_agrees_with_its_rules_on_all_short_texts) {
  strings const texts = all_texts("*?ab", 5);
  ASSERT_EQ(texts.size(), 1365u);
  int differences = 0;
  for (std::string const& pattern : texts) {
    for (std::string const& name : texts) {
      bool const expected = same_file_by_the_rules(name, pattern);
      if (F::same_file(name.c_str(), pattern.c_str()) != expected && ++differences <= 10) {
        ADD_FAILURE() << name << " against " << pattern << " should be " << expected;
      }
    }
  }
  EXPECT_EQ(differences, 0);
}

TEST_F(file_system, same_file_reads_no_name_for_an_empty_pattern_and_none_behind_a_difference) {
  std::size_t const page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
  void* const pages = ::mmap(nullptr, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  ASSERT_NE(pages, MAP_FAILED);
  char* const unreadable = static_cast<char*>(pages) + page;
  ASSERT_EQ(::mprotect(unreadable, page, PROT_NONE), 0);
  std::memcpy(unreadable - 3, "abc", 3);
  EXPECT_TRUE(F::same_file(unreadable, ""));
  EXPECT_TRUE(F::same_file(nullptr, ""));
  EXPECT_TRUE(F::same_file(unreadable - 3, "abc"));
  EXPECT_FALSE(F::same_file(unreadable - 3, "axcdef"));
  EXPECT_EQ(::munmap(pages, 2 * page), 0);
}

TEST_F(file_system, same_file_agrees_with_its_rules_on_long_texts) {
  std::minstd_rand random(20240229);
  auto const text = [&random](char const* alphabet, std::size_t longest) {
    std::string result(random() % (longest + 1), ' ');
    for (char& character : result) {
      character = alphabet[random() % std::strlen(alphabet)];
    }
    return result;
  };
  int matches = 0;
  for (int round = 0; round != 200'000; ++round) {
    std::string const pattern = text("**?aaab./", 12);
    std::string const name = text("aaab./", 24);
    bool const expected = same_file_by_the_rules(name, pattern);
    matches += expected ? 1 : 0;
    ASSERT_EQ(F::same_file(name.c_str(), pattern.c_str()), expected) << name << " against " << pattern;
  }
  EXPECT_GT(matches, 20'000);
}

// Pieces that are cut out of the name mostly fit it somewhere, and often only nearly.
TEST_F(file_system, same_file_agrees_with_its_rules_on_names_of_ten_thousand_bytes) {
  std::minstd_rand random(20240301);
  auto const below = [&random](std::size_t bound) { return static_cast<std::size_t>(random()) % bound; };
  int matches = 0;
  for (int round = 0; round != 60; ++round) {
    std::string name(10'000, 'a');
    for (std::size_t changes = below(40); changes != 0; --changes) {
      name[below(name.size())] = "ab?\xff"[below(4)];
    }
    std::string pattern = below(2) == 0 ? "*" : "";
    std::size_t place = below(2) == 0 ? 0 : below(9'000);
    for (std::size_t pieces = 1 + below(4); pieces != 0; --pieces) {
      std::string piece = name.substr(place, below(3) == 0 ? below(700) : below(5));
      for (std::size_t changes = below(3); changes != 0 && !piece.empty(); --changes) {
        piece[below(piece.size())] = "b?"[below(2)];
      }
      pattern += piece + (pieces != 1 || below(2) == 0 ? "*" : "");
      place = std::min(place + piece.size() + below(1'000), name.size());
    }
    bool const expected = same_file_by_the_rules(name, pattern);
    matches += expected ? 1 : 0;
    ASSERT_EQ(F::same_file(name.c_str(), pattern.c_str()), expected) << name << " against " << pattern;
  }
  EXPECT_GT(matches, 5);
  EXPECT_LT(matches, 55);
}

// The work grows with the sum of the lengths and not with their product, which no test would live to see the end of.
TEST_F(file_system, same_file_walks_a_long_run_of_equal_letters_once) {
  std::string const name = repeated(2'000'000, 'a');
  std::string const run = repeated(1'000'000, 'a');
  EXPECT_FALSE(F::same_file(name.c_str(), ('*' + run + 'b').c_str()));
  EXPECT_FALSE(F::same_file(name.c_str(), ('*' + run + "b*").c_str()));
  EXPECT_FALSE(F::same_file(name.c_str(), ("*b" + run + "*").c_str()));
  EXPECT_TRUE(F::same_file((name + 'b').c_str(), ('*' + run + 'b').c_str()));
  EXPECT_TRUE(F::same_file((name + "bc").c_str(), ('*' + run + "b*").c_str()));
}

TEST_F(file_system, same_file_walks_a_hundred_thousand_stars) {
  std::string const stars = repeated(100'000, '*');
  EXPECT_TRUE(F::same_file("x", stars.c_str()));
  EXPECT_FALSE(F::same_file("", stars.c_str()));
  EXPECT_TRUE(F::same_file("xyz", (stars + 'z').c_str()));
  EXPECT_FALSE(F::same_file("xyz", (stars + 'y').c_str()));
  EXPECT_FALSE(F::same_file("a", ('a' + stars).c_str()));
  EXPECT_TRUE(F::same_file("ab", ('a' + stars).c_str()));
  EXPECT_TRUE(F::same_file(stars.c_str(), stars.c_str()));
}

TEST_F(file_system, same_file_walks_texts_of_a_hundred_thousand_bytes) {
  std::string const name = repeated(100'000, 'a');
  std::string alternating;
  for (int pair = 0; pair != 50'000; ++pair) {
    alternating += "a*";
  }
  EXPECT_TRUE(F::same_file(name.c_str(), name.c_str()));
  EXPECT_TRUE(F::same_file(name.c_str(), repeated(100'000, '?').c_str()));
  EXPECT_TRUE(F::same_file(name.c_str(), alternating.c_str()));
  EXPECT_FALSE(F::same_file(name.c_str(), ('*' + alternating + 'b').c_str()));
}

TEST_F(file_system, same_file_calls_nothing) {
  errno = telltale;
  EXPECT_EQ(calls_of([] { (void)F::same_file("a/b", "*/b"); }), strings{});
  EXPECT_EQ(errno, telltale);
  EXPECT_EQ(messages(), strings{});
}

TEST_F(file_system, a_name_may_be_asked_for_in_the_ways_that_the_header_shows) {
  m_tree.draw({"rtl/top.v"});
  enter(m_tree);
  EXPECT_TRUE(FIO_FILE_SYSTEM::exists("rtl/top.v"));
  EXPECT_TRUE(FIO_FILE_SYSTEM::exists("rtl/*.v"));
  EXPECT_FALSE(FIO_FILE_SYSTEM::exists("rtl/*.vhd"));
  EXPECT_TRUE(FIO_FILE_SYSTEM::same_file("a.txt", "*.txt"));
}
