#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <ctime>
#include <functional>
#include <map>
#include <new>
#include <set>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "ccl/fio/fio_file_sys.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/calls.h"
#include "tests/support/path_texts.h"
#include "tests/support/paths.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"
#include "tests/support/walks.h"

namespace {

using platform_double::replaced;
using strings = std::vector<std::string>;

// The record as its readers in other tools know it.
static_assert(std::is_same_v<decltype(_finddata_t::attrib), std::uint32_t>);
static_assert(std::is_signed_v<decltype(_finddata_t::time_write)> && sizeof(_finddata_t::time_write) == 8);
static_assert(std::is_signed_v<decltype(_finddata_t::size)> && sizeof(_finddata_t::size) == 8);
static_assert(std::is_same_v<decltype(_finddata_t::name), char[260]>);
static_assert(offsetof(_finddata_t, attrib) == 0 && offsetof(_finddata_t, time_create) == 8);
static_assert(offsetof(_finddata_t, time_access) == 16 && offsetof(_finddata_t, time_write) == 24);
static_assert(offsetof(_finddata_t, size) == 32 && offsetof(_finddata_t, name) == 40);

static_assert(has_type<long (*)(char const*, _finddata_t*)>(&FIO_FILE_SYSTEM::findfirst));
static_assert(has_type<int (*)(long, _finddata_t*)>(&FIO_FILE_SYSTEM::findnext));
static_assert(std::is_same_v<decltype(&FIO_FILE_SYSTEM::findclose), int (*)(long)>);

// A record in which every byte is one that no operation writes.
_finddata_t untouched() {
  _finddata_t entry;
  std::memset(&entry, 0x5a, sizeof entry);
  return entry;
}

constexpr std::time_t untouched_time = 0x5a5a5a5a5a5a5a5a;

bool is_untouched(_finddata_t const& entry) {
  _finddata_t const expected = untouched();
  return std::memcmp(&entry, &expected, sizeof entry) == 0;
}

// The doubles of a directory whose stream delivers `names` in this order. All entries are there, except those that are
// in `gone`, and are files unless `modes` says otherwise; both go by the text that is asked for.
class drawn_directory {
public:
  explicit drawn_directory(strings names) : m_names(std::move(names)) {
    replaced().opendir = [this](char const*) { return stream(); };
    replaced().readdir64 = [this](DIR* given) { return read(given); };
    replaced().closedir = [this](DIR* given) {
      EXPECT_EQ(given, stream());
      return 0;
    };
    replaced().stat = [this](char const* path, struct stat* buffer) { return tell(path, buffer); };
    replaced().access = [](char const*, int) { return 0; };
  }
  ~drawn_directory() {
    replaced().opendir = nullptr;
    replaced().readdir64 = nullptr;
    replaced().closedir = nullptr;
    replaced().stat = nullptr;
    replaced().access = nullptr;
  }
  drawn_directory(drawn_directory const&) = delete;
  drawn_directory& operator=(drawn_directory const&) = delete;

  std::set<std::string> gone;
  std::map<std::string, mode_t> modes;
  int end_error = 0; // what the read at the end leaves in the error number

private:
  DIR* stream() { return reinterpret_cast<DIR*>(this); }

  dirent64* read(DIR* given) {
    EXPECT_EQ(given, stream());
    if (m_next == m_names.size()) {
      errno = end_error != 0 ? end_error : errno;
      return nullptr;
    }
    std::string const& name = m_names[m_next++];
    EXPECT_LT(name.size(), sizeof m_entry.d_name);
    m_entry.d_name[name.copy(m_entry.d_name, sizeof m_entry.d_name - 1)] = '\0';
    return &m_entry;
  }

  int tell(std::string const& path, struct stat* buffer) {
    if (gone.count(path) != 0) {
      errno = ENOENT;
      return -1;
    }
    auto const mode = modes.find(path);
    *buffer = record_of_mode(mode != modes.end() ? mode->second : mode_t{0x8000});
    return 0;
  }

  strings m_names;
  std::size_t m_next = 0;
  dirent64 m_entry = {};
};

} // namespace

class find_handle : public fio_test {
protected:
  void SetUp() override {
    fio_test::SetUp();
    m_streams_before = platform_double::open_streams();
  }

  void TearDown() override {
    EXPECT_EQ(messages(), strings{}) << "find handles write no message";
    fio_test::TearDown();
  }

  // The streams that this test has open.
  int open_streams() const { return platform_double::open_streams() - m_streams_before; }

private:
  int m_streams_before = 0;
};

// Without a wildcard

TEST_F(find_handle, an_entry_without_a_wildcard_needs_no_handle) {
  m_tree.draw({"d/f=abcde"});
  std::string const path = m_tree.path("d/f");
  timespec const times[] = {{111, 0}, {1'234'567'890, 999'999'999}};
  ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
  _finddata_t entry = untouched();
  EXPECT_EQ(FIO_FILE_SYSTEM::findfirst(path.c_str(), &entry), 0);
  EXPECT_STREQ(entry.name, "f");
  EXPECT_EQ(entry.size, 5);
  EXPECT_EQ(entry.time_write, 1'234'567'890);
  EXPECT_EQ(entry.time_create, untouched_time);
  EXPECT_EQ(entry.time_access, untouched_time);

  _finddata_t const found = entry;
  EXPECT_EQ(FIO_FILE_SYSTEM::findnext(0, &entry), -1);
  EXPECT_EQ(std::memcmp(&entry, &found, sizeof entry), 0);
  EXPECT_EQ(FIO_FILE_SYSTEM::findclose(0), -1);
}

TEST_F(find_handle, the_entry_is_looked_up_by_the_calls_of_the_system) {
  m_tree.draw({"f", "d/"});
  struct {
    std::string path;
    strings calls;
  } const rows[] = {
      {m_tree.path("f"), {"stat(" + m_tree.path("f") + ")", "access(" + m_tree.path("f") + ")"}},
      {m_tree.path("d"), {"stat(" + m_tree.path("d") + ")"}},
      {m_tree.path("missing"), {"stat(" + m_tree.path("missing") + ")"}},
      {"", {"stat()"}},
  };
  for (auto const& row : rows) {
    _finddata_t entry;
    EXPECT_EQ(calls_of([&] { (void)FIO_FILE_SYSTEM::findfirst(row.path.c_str(), &entry); }), row.calls);
  }
}

TEST_F(find_handle, the_name_is_the_text_behind_the_last_slash) {
  std::string const longest = repeated(259, 'n');
  struct {
    std::string filespec;
    std::string name;
  } const rows[] = {
      {"f", "f"},
      {"d/f", "f"},
      {"/f", "f"},
      {"/d//e/f.g.h", "f.g.h"},
      {"d/", ""},
      {"/", ""},
      {"d/.", "."},
      {"..", ".."},
      {"./f", "f"},
      {"d/a\\b", "a\\b"},
      {"a\\b", "a\\b"},
      {"C:\\x", "C:\\x"},
      {"d/%s", "%s"},
      // The buffer holds 259 characters and the NUL.
      {longest, longest},
      {longest + 'x', longest},
      {repeated(1023, 'n'), longest},
      {"d/" + longest, longest},
      {"d/" + longest + 'x', longest},
      {"d/" + repeated(1021, 'n'), longest},
      {repeated(700, 'd') + '/' + repeated(258, 'n'), repeated(258, 'n')},
  };
  replaced().stat = [](char const*, struct stat* buffer) {
    *buffer = record_of_mode(0x4000);
    return 0;
  };
  for (auto const& row : rows) {
    struct {
      _finddata_t entry;
      char behind[8];
    } guarded;
    std::memset(&guarded, 0x5a, sizeof guarded);
    EXPECT_EQ(FIO_FILE_SYSTEM::findfirst(row.filespec.c_str(), &guarded.entry), 0) << row.filespec;
    EXPECT_EQ(std::string(guarded.entry.name, ::strnlen(guarded.entry.name, 260)), row.name) << row.filespec;
    EXPECT_EQ(std::string(guarded.behind, 8), repeated(8, 'Z')) << row.filespec;
  }
}

TEST_F(find_handle, time_and_size_are_told_in_64_bits) {
  struct {
    long size;
    long time;
  } const rows[] = {{0, 0}, {1, -1}, {0x1'2345'6789, 0x7'0000'0001}, {-3, -0x7'0000'0001}};
  for (auto const& row : rows) {
    replaced().stat = [&](char const*, struct stat* buffer) {
      *buffer = record_of_mode(0x8000);
      buffer->st_size = row.size;
      buffer->st_mtim = {row.time, 999'999'999};
      buffer->st_atim = {1, 0};
      buffer->st_ctim = {2, 0};
      return 0;
    };
    replaced().access = [](char const*, int) { return 0; };
    _finddata_t entry = untouched();
    EXPECT_EQ(FIO_FILE_SYSTEM::findfirst("f", &entry), 0);
    EXPECT_EQ(entry.size, row.size);
    EXPECT_EQ(entry.time_write, row.time);
    EXPECT_EQ(entry.time_create, untouched_time);
    EXPECT_EQ(entry.time_access, untouched_time);
  }
}

TEST_F(find_handle, each_value_of_the_file_type_is_read_bit_by_bit) {
  struct {
    mode_t type;
    char const* what;
    bool directory;
  } const rows[] = {
      {0x0000, "none", false},        {0x1000, "pipe", false},          {0x2000, "character device", false},
      {0x3000, "unused", false},      {0x4000, "directory", true},      {0x5000, "unused", true},
      {0x6000, "block device", true}, {0x7000, "unused", true},         {0x8000, "regular file", false},
      {0x9000, "unused", false},      {0xA000, "symbolic link", false}, {0xB000, "unused", false},
      {0xC000, "socket", true},       {0xD000, "unused", true},         {0xE000, "unused", true},
      {0xF000, "unused", true},
  };
  for (auto const& row : rows) {
    for (mode_t const permissions : {mode_t{0}, mode_t{0222}, mode_t{07777}}) {
      for (int const access_result : {0, -1, 1, -2}) {
        SCOPED_TRACE(std::string(row.what) + ", access " + std::to_string(access_result));
        replaced().stat = [&](char const*, struct stat* buffer) {
          *buffer = record_of_mode(row.type | permissions);
          return 0;
        };
        replaced().access = [&](char const*, int mode) {
          EXPECT_EQ(mode, W_OK);
          return access_result;
        };
        _finddata_t entry = untouched();
        strings const calls = calls_of([&] { EXPECT_EQ(FIO_FILE_SYSTEM::findfirst("a//b", &entry), 0); });
        EXPECT_EQ(entry.attrib, row.directory ? 0x10u : access_result == -1 ? 0x01u : 0u);
        EXPECT_EQ(calls, row.directory ? strings{"stat(a//b)"} : (strings{"stat(a//b)", "access(a//b)"}));
      }
    }
  }
}

TEST_F(find_handle, a_refused_access_leaves_its_error_number_behind_a_success) {
  m_tree.draw({"d/f"});
  replaced().access = [](char const*, int) {
    errno = EROFS;
    return -1;
  };
  for (std::string const& filespec : {m_tree.path("d/f"), m_tree.path("d/*f")}) {
    _finddata_t entry = untouched();
    errno = 0;
    long const handle = FIO_FILE_SYSTEM::findfirst(filespec.c_str(), &entry);
    int const error = errno;
    EXPECT_NE(handle, -1) << filespec;
    EXPECT_EQ(error, EROFS) << filespec;
    EXPECT_EQ(entry.attrib, 1u) << filespec;
    FIO_FILE_SYSTEM::findclose(handle);
  }
}

TEST_F(find_handle, a_text_may_be_the_name_in_the_record_that_is_filled) {
  m_tree.draw({"d/g"});
  enter(m_tree);
  _finddata_t entry = untouched();
  std::strcpy(entry.name, "d/g");
  EXPECT_EQ(FIO_FILE_SYSTEM::findfirst(entry.name, &entry), 0);
  EXPECT_EQ(entry.attrib, 0u) << "the access of \"g\", which is not there, was asked for";
  EXPECT_STREQ(entry.name, "g");
}

TEST_F(find_handle, the_attribute_is_told_in_a_walk_as_well) {
  drawn_directory directory({"file", "locked", "sub", "socket"});
  directory.modes = {{"d/sub", 0x4000}, {"d/socket", 0xC000}};
  replaced().access = [](char const* path, int mode) {
    EXPECT_EQ(mode, W_OK);
    return std::strcmp(path, "d/locked") == 0 ? -1 : 0;
  };
  std::uint32_t const expected[] = {0x00, 0x01, 0x10, 0x10};
  _finddata_t entry = untouched();
  long const handle = FIO_FILE_SYSTEM::findfirst("d/*", &entry);
  for (std::uint32_t const attribute : expected) {
    EXPECT_EQ(entry.attrib, attribute) << entry.name;
    EXPECT_EQ(entry.time_create, untouched_time);
    EXPECT_EQ(entry.time_access, untouched_time);
    entry = untouched();
    (void)FIO_FILE_SYSTEM::findnext(handle, &entry);
  }
  EXPECT_EQ(FIO_FILE_SYSTEM::findclose(handle), 1);
}

TEST_F(find_handle, links_report_what_they_lead_to) {
  m_tree.draw({"f=abc", "d/", "file link -> f", "directory link -> d", "dangling -> nowhere", "loop -> loop"});
  timespec const times[] = {{111, 0}, {222, 0}};
  ASSERT_EQ(::utimensat(AT_FDCWD, m_tree.path("f").c_str(), times, 0), 0);
  ASSERT_EQ(::utimensat(AT_FDCWD, m_tree.path("d").c_str(), times, 0), 0);

  for (char const* const name : {"d", "directory link"}) {
    _finddata_t entry = untouched();
    EXPECT_EQ(FIO_FILE_SYSTEM::findfirst(m_tree.path(name).c_str(), &entry), 0) << name;
    EXPECT_STREQ(entry.name, name);
    EXPECT_EQ(entry.attrib, 0x10u) << name;
    EXPECT_EQ(entry.time_write, 222) << name;
  }
  _finddata_t entry = untouched();
  EXPECT_EQ(FIO_FILE_SYSTEM::findfirst(m_tree.path("file link").c_str(), &entry), 0);
  EXPECT_STREQ(entry.name, "file link");
  EXPECT_EQ(entry.size, 3);
  EXPECT_EQ(entry.time_write, 222);
  EXPECT_EQ(entry.attrib & 0x10u, 0u);

  entry = untouched();
  EXPECT_EQ(FIO_FILE_SYSTEM::findfirst(m_tree.path("dangling").c_str(), &entry), -1);
  EXPECT_EQ(FIO_FILE_SYSTEM::findfirst(m_tree.path("loop").c_str(), &entry), -1);
  EXPECT_TRUE(is_untouched(entry));
}

TEST_F(find_handle, a_walk_passes_over_links_that_lead_nowhere) {
  m_tree.draw({"xf", "xlink -> xf", "xdangling -> nowhere", "xloop -> xloop"});
  EXPECT_EQ(found_names(m_tree.path("x?")), (strings{"xf", "xlink"}));
}

TEST_F(find_handle, what_is_missing_is_not_found_and_leaves_the_record_alone) {
  m_tree.draw({"f"});
  struct {
    std::string filespec;
    int error;
  } const rows[] = {
      {m_tree.path("missing"), ENOENT},
      {m_tree.path("missing/f"), ENOENT},
      {m_tree.path("f/x"), ENOTDIR},
      {m_tree.path("f/"), ENOTDIR},
      {"", ENOENT},
      {m_tree.path("missing/*"), ENOENT},
      {m_tree.path("f/*"), ENOTDIR},
      {m_tree.path("F"), ENOENT},
      {"/*", ENOENT},
      {repeated(300), ENAMETOOLONG},
      {repeated(300) + "/*", ENAMETOOLONG},
      {m_tree.path("?/f"), ENOENT},
  };
  for (auto const& row : rows) {
    _finddata_t entry = untouched();
    errno = 0;
    long const handle = FIO_FILE_SYSTEM::findfirst(row.filespec.c_str(), &entry);
    int const error = errno;
    EXPECT_EQ(handle, -1) << row.filespec;
    EXPECT_EQ(error, row.error) << row.filespec;
    EXPECT_TRUE(is_untouched(entry)) << row.filespec;
  }
}

TEST_F(find_handle, a_null_text_is_refused_like_a_string_made_of_it) {
  _finddata_t entry;
  std::string reason;
  strings const calls = calls_of([&] {
    try {
      (void)FIO_FILE_SYSTEM::findfirst(nullptr, &entry);
    } catch (std::logic_error const& error) {
      reason = error.what();
    }
  });
  EXPECT_EQ(reason, "basic_string: construction from null is not valid");
  EXPECT_EQ(calls, strings{});
}

TEST_F(find_handle, a_text_of_1024_characters_is_not_found_without_a_call) {
  m_tree.draw({"f"});
  for (char const* const name : {"f", "?", "*"}) {
    std::string const legal = padded(m_tree.path(name), 1023);
    _finddata_t entry = untouched();
    long const handle = FIO_FILE_SYSTEM::findfirst(legal.c_str(), &entry);
    EXPECT_NE(handle, -1) << name;
    FIO_FILE_SYSTEM::findclose(handle);

    for (std::string const& too_long : {'/' + legal, padded(legal, 5000)}) {
      entry = untouched();
      errno = telltale;
      strings const calls =
          calls_of([&] { EXPECT_EQ(FIO_FILE_SYSTEM::findfirst(too_long.c_str(), &entry), -1) << name; });
      EXPECT_EQ(errno, telltale);
      EXPECT_EQ(calls, strings{}) << name;
      EXPECT_TRUE(is_untouched(entry)) << name;
    }
  }
}

// Handles

TEST_F(find_handle, numbers_that_are_no_address_have_nothing_to_read_or_release) {
  for (long const handle : {-1L, 0L, 1L}) {
    _finddata_t entry = untouched();
    errno = telltale;
    strings const calls = calls_of([&] {
      EXPECT_EQ(FIO_FILE_SYSTEM::findnext(handle, &entry), -1) << handle;
      EXPECT_EQ(FIO_FILE_SYSTEM::findclose(handle), -1) << handle;
    });
    EXPECT_EQ(errno, telltale);
    EXPECT_EQ(calls, strings{}) << handle;
    EXPECT_TRUE(is_untouched(entry)) << handle;
  }
}

TEST_F(find_handle, a_walk_begins_with_a_match_in_hand_and_stays_valid_behind_its_end) {
  m_tree.draw({"x1=1", "x2=22", "y"});
  _finddata_t entry = untouched();
  long const handle = FIO_FILE_SYSTEM::findfirst(m_tree.path("x?").c_str(), &entry);
  ASSERT_NE(handle, -1);
  EXPECT_NE(handle, 0);
  EXPECT_NE(handle, 1);
  EXPECT_EQ(open_streams(), 1);
  std::map<std::string, std::int64_t> sizes = {{entry.name, entry.size}};
  EXPECT_EQ(FIO_FILE_SYSTEM::findnext(handle, &entry), 0);
  sizes.emplace(entry.name, entry.size);
  EXPECT_EQ(sizes, (std::map<std::string, std::int64_t>{{"x1", 1}, {"x2", 2}}));

  _finddata_t another = untouched();
  for (int attempt = 0; attempt != 3; ++attempt) {
    EXPECT_NE(FIO_FILE_SYSTEM::findnext(handle, &another), 0);
  }
  EXPECT_TRUE(is_untouched(another));
  EXPECT_EQ(open_streams(), 1);
  EXPECT_EQ(FIO_FILE_SYSTEM::findclose(handle), 1);
  EXPECT_EQ(open_streams(), 0);
}

TEST_F(find_handle, a_walk_may_be_closed_at_any_time) {
  m_tree.draw({"a", "b", "c"});
  for (int steps = 0; steps != 3; ++steps) {
    _finddata_t entry;
    long const handle = FIO_FILE_SYSTEM::findfirst(m_tree.path("*").c_str(), &entry);
    ASSERT_NE(handle, -1);
    for (int step = 0; step != steps; ++step) {
      EXPECT_EQ(FIO_FILE_SYSTEM::findnext(handle, &entry), 0);
    }
    EXPECT_EQ(FIO_FILE_SYSTEM::findclose(handle), 1);
    EXPECT_EQ(open_streams(), 0);
  }
}

TEST_F(find_handle, walks_have_nothing_to_do_with_each_other) {
  m_tree.draw({"a/x1", "a/x2", "b/x3", "b/x4"});
  strings pairs;
  _finddata_t outer;
  long const outer_handle = FIO_FILE_SYSTEM::findfirst(m_tree.path("a/x*").c_str(), &outer);
  ASSERT_NE(outer_handle, -1);
  do {
    for (std::string const& inner : walked(m_tree.path("b/x*"))) {
      pairs.push_back(outer.name + (' ' + inner));
    }
  } while (FIO_FILE_SYSTEM::findnext(outer_handle, &outer) == 0);
  FIO_FILE_SYSTEM::findclose(outer_handle);
  EXPECT_EQ(sorted(pairs), (strings{"x1 x3", "x1 x4", "x2 x3", "x2 x4"}));
}

TEST_F(find_handle, a_walk_without_a_match_leaves_no_stream) {
  m_tree.draw({"a", "b"});
  _finddata_t entry = untouched();
  strings calls = calls_of([&] { EXPECT_EQ(FIO_FILE_SYSTEM::findfirst(m_tree.path("c*").c_str(), &entry), -1); });
  EXPECT_EQ(open_streams(), 0);
  EXPECT_TRUE(is_untouched(entry));
  EXPECT_EQ(calls, (strings{"opendir(" + m_tree.root() + ")", "readdir64()", "readdir64()", "readdir64()",
                            "readdir64()", "readdir64()", "closedir()"}));
}

TEST_F(find_handle, a_stream_that_is_no_address_is_not_read_but_closed) {
  auto* const no_stream = reinterpret_cast<DIR*>(1);
  replaced().opendir = [=](char const*) { return no_stream; };
  replaced().closedir = [=](DIR* given) {
    EXPECT_EQ(given, no_stream);
    return 0;
  };
  _finddata_t entry = untouched();
  strings const calls = calls_of([&] { EXPECT_EQ(FIO_FILE_SYSTEM::findfirst("*", &entry), -1); });
  EXPECT_EQ(calls, (strings{"opendir(.)", "closedir()"}));
  EXPECT_TRUE(is_untouched(entry));
}

TEST_F(find_handle, whatever_the_system_says_a_walk_is_closed) {
  m_tree.draw({"f"});
  for (int const result : {0, -1, 7}) {
    SCOPED_TRACE(result);
    replaced().closedir = [result](DIR* stream) {
      closedir_of_the_system(stream);
      errno = telltale;
      return result;
    };
    _finddata_t entry = untouched();
    long const handle = FIO_FILE_SYSTEM::findfirst(m_tree.path("*").c_str(), &entry);
    ASSERT_NE(handle, -1);
    errno = 0;
    int answer = FIO_FILE_SYSTEM::findclose(handle);
    EXPECT_EQ(errno, telltale);
    EXPECT_EQ(answer, 1);

    errno = 0;
    long const no_handle = FIO_FILE_SYSTEM::findfirst(m_tree.path("*.none").c_str(), &entry);
    EXPECT_EQ(errno, telltale);
    EXPECT_EQ(no_handle, -1);
    EXPECT_EQ(open_streams(), 0);
  }
}

// Memory

TEST_F(find_handle, a_walk_whose_record_cannot_be_stored_leaves_its_stream_open) {
  m_tree.draw({"d/f"});
  enter(m_tree);
  DIR* opened = nullptr;
  replaced().opendir = [&opened](char const* path) { return opened = opendir_of_the_system(path); };
  platform_double::calls().reserve(16); // what is recorded must not ask for memory itself
  _finddata_t entry = untouched();
  bool thrown = false;
  strings const calls = calls_of([&] {
    allocation_failure const failing(1);
    try {
      (void)FIO_FILE_SYSTEM::findfirst("d/*", &entry);
    } catch (std::bad_alloc const&) {
      thrown = true;
    }
  });
  EXPECT_TRUE(thrown);
  EXPECT_EQ(calls, strings{"opendir(d)"});
  EXPECT_TRUE(is_untouched(entry));
  ASSERT_EQ(open_streams(), 1);
  EXPECT_EQ(::closedir(opened), 0);
}

TEST_F(find_handle, a_search_without_a_wildcard_asks_for_no_memory) {
  m_tree.draw({"f"});
  std::string const there = m_tree.path("f");
  std::string const missing = m_tree.path("missing");
  _finddata_t entry = untouched();
  long found = -1;
  long not_found = 0;
  long asked_for = -1;
  {
    allocation_failure const failing(1);
    found = FIO_FILE_SYSTEM::findfirst(there.c_str(), &entry);
    not_found = FIO_FILE_SYSTEM::findfirst(missing.c_str(), &entry);
    asked_for = failing.asked_for();
  }
  EXPECT_EQ(asked_for, 0);
  EXPECT_EQ(found, 0);
  EXPECT_STREQ(entry.name, "f");
  EXPECT_EQ(not_found, -1);
}

// The calls of a walk

TEST_F(find_handle, a_walk_reads_compares_and_asks_in_this_order) {
  drawn_directory const directory({"b1", "other", "b2"});
  _finddata_t entry = untouched();
  long handle = -1;
  EXPECT_EQ(calls_of([&] { handle = FIO_FILE_SYSTEM::findfirst("d/b*", &entry); }),
            (strings{"opendir(d)", "readdir64()", "stat(d/b1)", "access(d/b1)"}));
  EXPECT_STREQ(entry.name, "b1");
  EXPECT_EQ(calls_of([&] { EXPECT_EQ(FIO_FILE_SYSTEM::findnext(handle, &entry), 0); }),
            (strings{"readdir64()", "readdir64()", "stat(d/b2)", "access(d/b2)"}));
  EXPECT_STREQ(entry.name, "b2");
  EXPECT_EQ(calls_of([&] { EXPECT_NE(FIO_FILE_SYSTEM::findnext(handle, &entry), 0); }), strings{"readdir64()"});
  EXPECT_STREQ(entry.name, "b2");
  EXPECT_EQ(calls_of([&] { EXPECT_EQ(FIO_FILE_SYSTEM::findclose(handle), 1); }), strings{"closedir()"});
}

TEST_F(find_handle, the_directory_part_is_opened_as_it_is_written) {
  struct {
    char const* filespec;
    char const* opened;
    char const* candidate; // of an entry "name"
  } const rows[] = {
      {"*", ".", "name"},        {"n*", ".", "name"},          {"?", ".", "name"},        {".*", ".", "./name"},
      {"./*", ".", "./name"},    {"./n*", ".", "./name"},      {"d/*", "d", "d/name"},    {".d/*", ".d", ".d/name"},
      {"../*", "..", "../name"}, {"d/./*", "d/.", "d/./name"}, {"d//*", "d/", "d//name"}, {"/d/*", "/d", "/d/name"},
      {"//*", "/", "//name"},    {"/./n*", "/.", "/./name"},   {"C:/*", "C:", "C:/name"},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(row.filespec);
    drawn_directory const directory({"name"});
    std::string const opened = row.opened;
    std::string const candidate = row.candidate;
    _finddata_t entry = untouched();
    long handle = -1;
    EXPECT_EQ(
        calls_of([&] { handle = FIO_FILE_SYSTEM::findfirst(row.filespec, &entry); }),
        (strings{"opendir(" + opened + ")", "readdir64()", "stat(" + candidate + ")", "access(" + candidate + ")"}));
    EXPECT_STREQ(entry.name, "name");
    EXPECT_EQ(FIO_FILE_SYSTEM::findclose(handle), 1);
  }
}

TEST_F(find_handle, a_directory_that_cannot_be_opened_is_not_read) {
  struct {
    char const* filespec;
    char const* opened;
  } const rows[] = {
      {"/*", ""},      {"/?", ""},         {"/etc*", ""},    {"d?/f", "d?"}, {"*/f", "*"},
      {"d/*/", "d/*"}, {"d*/e/f", "d*/e"}, {"a?b/*", "a?b"}, {"a\\*", "."},  {"//x/*", "//x"},
  };
  for (auto const& row : rows) {
    replaced().opendir = [](char const*) {
      errno = telltale;
      return nullptr;
    };
    _finddata_t entry = untouched();
    errno = 0;
    strings const calls = calls_of([&] { EXPECT_EQ(FIO_FILE_SYSTEM::findfirst(row.filespec, &entry), -1); });
    EXPECT_EQ(errno, telltale) << row.filespec;
    EXPECT_EQ(calls, strings{"opendir(" + std::string(row.opened) + ")"}) << row.filespec;
    EXPECT_TRUE(is_untouched(entry)) << row.filespec;
  }
}

TEST_F(find_handle, entries_come_in_the_order_of_the_stream) {
  strings const names = {"zeta", "..", "alpha", "Mu", ".", "beta", "zeta", ".hidden"};
  drawn_directory const directory(names);
  EXPECT_EQ(walked("d/*"), names);
}

TEST_F(find_handle, an_entry_that_vanishes_before_it_is_asked_about_is_passed_over) {
  struct {
    char const* what;
    std::set<std::string> gone;
    strings reported;
  } const rows[] = {
      {"none", {}, {"a", "b", "c"}},
      {"the first", {"d/a"}, {"b", "c"}},
      {"the middle", {"d/b"}, {"a", "c"}},
      {"the last", {"d/c"}, {"a", "b"}},
      {"all but the last", {"d/a", "d/b"}, {"c"}},
      {"all", {"d/a", "d/b", "d/c"}, {}},
  };
  for (auto const& row : rows) {
    drawn_directory directory({"a", "b", "c"});
    directory.gone = row.gone;
    EXPECT_EQ(walked("d/*"), row.reported) << row.what;
    EXPECT_EQ(open_streams(), 0) << row.what;
  }
}

TEST_F(find_handle, an_entry_that_vanished_leaves_the_record_alone) {
  drawn_directory directory({"a", "b"});
  directory.gone = {"d/b"};
  _finddata_t entry;
  long const handle = FIO_FILE_SYSTEM::findfirst("d/*", &entry);
  entry = untouched();
  errno = 0;
  EXPECT_NE(FIO_FILE_SYSTEM::findnext(handle, &entry), 0);
  EXPECT_EQ(errno, ENOENT);
  EXPECT_TRUE(is_untouched(entry));
  EXPECT_EQ(FIO_FILE_SYSTEM::findclose(handle), 1);
}

TEST_F(find_handle, a_read_that_fails_ends_the_walk) {
  {
    drawn_directory directory({"a"});
    directory.end_error = telltale;
    _finddata_t entry;
    long const handle = FIO_FILE_SYSTEM::findfirst("d/*", &entry);
    EXPECT_STREQ(entry.name, "a");
    errno = 0;
    EXPECT_NE(FIO_FILE_SYSTEM::findnext(handle, &entry), 0);
    EXPECT_EQ(errno, telltale);
    EXPECT_EQ(FIO_FILE_SYSTEM::findclose(handle), 1);
  }
  drawn_directory directory({});
  directory.end_error = telltale;
  _finddata_t entry = untouched();
  errno = 0;
  long const handle = FIO_FILE_SYSTEM::findfirst("d/*", &entry);
  EXPECT_EQ(errno, telltale);
  EXPECT_EQ(handle, -1);
  EXPECT_TRUE(is_untouched(entry));
  EXPECT_EQ(open_streams(), 0);
}

// What matches

TEST_F(find_handle, the_whole_text_of_an_entry_is_compared) {
  m_tree.draw({"w/abc", "w/abcd", "w/abd", "w/Abc", "w/.abc", "w/.hid", "w/a.txt", "w/a.txt.bak", "w/sub/x1",
               "w/sub/.x2", "w/.dot/y", "outside"});
  ASSERT_EQ(::chdir(m_tree.path("w").c_str()), 0);
  strings const all = {".", "..", ".abc", ".dot", ".hid", "Abc", "a.txt", "a.txt.bak", "abc", "abcd", "abd", "sub"};
  struct {
    char const* filespec;
    strings names;
  } const rows[] = {
      // Nothing is hidden, and "." and ".." are entries like all others.
      {"*", all},
      {"./*", all},
      {"sub/*", {".", "..", ".x2", "x1"}},
      {"sub/?", {".", "..", ".x2", "x1"}},

      // A pattern without a star matches as a prefix.
      {"?", all},
      {"ab?", {"abc", "abcd", "abd"}},
      {"./ab?", {"abc", "abcd", "abd"}},
      {"sub/x?", {"x1"}},
      {"?bc", {"Abc", "abc", "abcd"}},

      // Behind a star the pattern must end with the entry.
      {"*.txt", {"a.txt"}},
      {"./*.txt", {"a.txt"}},
      {"a*c", {"abc"}},
      {"sub/*1", {"x1"}},

      // A star behind other text needs something to stand for.
      {"abc*", {"abcd"}},
      {"sub*", {}},
      {"su*", {"sub"}},
      {"a.txt*", {"a.txt.bak"}},
      {"sub/.*", {"..", ".x2"}},
      {"./.*", {"..", ".abc", ".dot", ".hid"}},

      // Case counts.
      {"A*", {"Abc"}},
      {"SUB/*", {}},

      // Without a directory, a leading dot is compared with the "." of "./name".
      {".*", all},
      {".?", all},
      {".*abc", {".abc", "abc"}},
      {".?abc", {"abc", "abcd"}},
      {".abc*", {}},
      {".h*", {}},
      {"..*", {}},
      {".dot/*", {".", "..", "y"}},
      {".dot/y?", {}},

      // A wildcard in the directory is not expanded.
      {"su?/x1", {}},
      {"su?/*", {}},
      {"*/x1", {}},
      {"*/*", {}},
      {"sub/*/", {}},

      // The directory part is compared as it is written.
      {"sub//x*", {"x1"}},
      {"sub/./x*", {"x1"}},
      {"../w/sub/x*", {"x1"}},
      {"../out*", {"outside"}},
      {"sub/../ab?", {"abc", "abcd", "abd"}},
      {"missing/*", {}},
      {"abc/*", {}},

      // Only "/" ends a directory.
      {"sub\\*", {}},
      {"sub\\x?", {}},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(found_names(row.filespec), sorted(row.names)) << row.filespec;
  }
}

TEST_F(find_handle, a_prefix_finds_the_longer_names_in_the_directory_too) {
  m_tree.draw({"dir/abc", "dir/abcd", "dir/ab", "dir/xabc"});
  EXPECT_EQ(found_names(m_tree.path("dir/ab?")), (strings{"abc", "abcd"}));
}

TEST_F(find_handle, a_backslash_is_part_of_a_name) {
  m_tree.draw({"d/a\\b", "d/x"});
  ASSERT_EQ(::chdir(m_tree.path("d").c_str()), 0);
  EXPECT_EQ(walked("a\\*"), strings{"a\\b"});
  EXPECT_EQ(walked(m_tree.path("d/a\\?")), strings{"a\\b"});
  EXPECT_EQ(walked(m_tree.path("d/a\\b")), strings{"a\\b"});
}

TEST_F(find_handle, nothing_is_found_directly_under_the_root) {
  for (char const* const filespec : {"/*", "/?", "/*tmp", "/t*", "/e?c"}) {
    _finddata_t entry;
    EXPECT_EQ(FIO_FILE_SYSTEM::findfirst(filespec, &entry), -1) << filespec;
  }
  strings const names = found_names("//*");
  EXPECT_TRUE(std::binary_search(names.begin(), names.end(), "..")) << "a second separator makes a directory";
}

TEST_F(find_handle, a_walk_does_not_descend) {
  m_tree.draw({"d/sub/x1", "d/sub/deeper/x2", "d/x3"});
  EXPECT_EQ(walked(m_tree.path("d/x?")), strings{"x3"});
}

TEST_F(find_handle, an_entry_whose_name_holds_a_metacharacter_is_not_reported) {
  m_tree.draw({"s*r", "s?r", "*", "?", "**/in", "sxr", "s_x_r", "plain"});
  struct {
    char const* filespec;
    strings names;
  } const rows[] = {
      {"*", {".", "..", "plain", "s_x_r", "sxr"}},
      {"s*r", {"s_x_r", "sxr"}},
      {"s?r", {"sxr"}},
      {"?", {".", "..", "plain", "s_x_r", "sxr"}},
      {"plain*", {}},
      {"?*?*?*?*r", {"s_x_r"}},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(found_names(m_tree.path(row.filespec)), row.names) << row.filespec;
    EXPECT_EQ(open_streams(), 0) << row.filespec;
  }
}

TEST_F(find_handle, a_metacharacter_cannot_be_asked_for) {
  m_tree.draw({"one/s*r", "two/s?r", "d?/f", "three/s*r", "three/sr"});
  for (char const* const filespec : {"one/s*r", "one/*", "two/s?r", "one/s\\*r", "d?/f", "d?/*"}) {
    strings names = found_names(m_tree.path(filespec));
    names.erase(std::remove_if(names.begin(), names.end(), [](auto const& name) { return name[0] == '.'; }),
                names.end());
    EXPECT_EQ(names, strings{}) << filespec;
    EXPECT_EQ(open_streams(), 0) << filespec;
  }
  EXPECT_EQ(walked(m_tree.path("three/s*r")), strings{"sr"});
  EXPECT_FALSE(FIO_FILE_SYSTEM::exists(m_tree.path("one/s*r").c_str()));
  EXPECT_FALSE(FIO_FILE_SYSTEM::exists(m_tree.path("d?/f").c_str()));
}

TEST_F(find_handle, names_of_255_bytes_are_found_whole) {
  std::string const longest = repeated(255, 'n');
  m_tree.make_file("d/" + longest, "12345");
  m_tree.make_file("d/" + repeated(254, 'n'), "1234");
  _finddata_t entry = untouched();
  EXPECT_EQ(FIO_FILE_SYSTEM::findfirst(m_tree.path("d/" + longest).c_str(), &entry), 0);
  EXPECT_EQ(entry.name, longest);
  EXPECT_EQ(found_names(m_tree.path("d/n*")), (strings{repeated(254, 'n'), longest}));
  EXPECT_EQ(walked(m_tree.path("d/" + repeated(254, 'n') + '?')), strings{longest});
}

TEST_F(find_handle, bytes_of_a_name_are_taken_as_they_are) {
  m_tree.draw({"d/\xc3\xa4\xff", "d/a b\n", "d/%s%n", "d/[a]"});
  EXPECT_EQ(walked(m_tree.path("d/\xc3*")), strings{"\xc3\xa4\xff"});
  EXPECT_EQ(walked(m_tree.path("d/a *")), strings{"a b\n"});
  EXPECT_EQ(walked(m_tree.path("d/%?%")), strings{"%s%n"});
  EXPECT_EQ(walked(m_tree.path("d/[?]")), strings{"[a]"});
}

TEST_F(find_handle, an_entry_whose_whole_text_is_too_long_is_passed_over) {
  std::string const directory = directory_of_length(m_tree, 1000);
  std::string const name = directory.substr(m_tree.root().size() + 1);
  strings expected = {".", ".."};
  for (std::size_t const length : {1u, 21u, 22u, 23u, 24u, 255u}) {
    m_tree.make_file(name + '/' + repeated(length));
    if (length <= 22) {
      expected.push_back(repeated(length));
    }
  }
  EXPECT_EQ(found_names(directory + "/*"), sorted(expected));
  EXPECT_EQ(found_names(directory + "/x?"), (strings{repeated(21), repeated(22)}));

  // A pattern that only names of 23 bytes and more match finds nothing.
  _finddata_t entry;
  EXPECT_EQ(FIO_FILE_SYSTEM::findfirst((directory + '/' + repeated(21) + "??").c_str(), &entry), -1);
  EXPECT_EQ(open_streams(), 0);
}

TEST_F(find_handle, the_longest_directory_leaves_room_for_one_byte_of_name) {
  std::string const directory = directory_of_length(m_tree, 1021);
  std::string const name = directory.substr(m_tree.root().size() + 1);
  for (std::string const& entry : {std::string("a"), std::string("bb"), repeated(255)}) {
    m_tree.make_file(name + '/' + entry);
  }
  EXPECT_EQ(found_names(directory + "/*"), (strings{".", "a"}));
  EXPECT_EQ(walked(directory + "/**"), strings{});
}

TEST_F(find_handle, a_bare_pattern_of_the_greatest_length_is_compared_whole) {
  m_tree.draw({"x"});
  enter(m_tree);
  EXPECT_EQ(walked(repeated(1022, '*') + 'x'), strings{"x"});
  EXPECT_EQ(walked(repeated(1022, '*') + 'y'), strings{});
}

// A directory that changes

TEST_F(find_handle, entries_may_be_removed_during_their_walk) {
  strings expected;
  for (int number = 100; number != 150; ++number) {
    expected.push_back('f' + std::to_string(number));
    m_tree.make_file("d/" + expected.back());
  }
  m_tree.draw({"d/kept"});
  strings found;
  _finddata_t entry;
  long const handle = FIO_FILE_SYSTEM::findfirst(m_tree.path("d/f*").c_str(), &entry);
  ASSERT_NE(handle, -1);
  do {
    found.emplace_back(entry.name);
    EXPECT_TRUE(FIO_FILE_SYSTEM::remove(m_tree.path(std::string("d/") + entry.name)));
  } while (FIO_FILE_SYSTEM::findnext(handle, &entry) == 0);
  EXPECT_EQ(FIO_FILE_SYSTEM::findclose(handle), 1);
  EXPECT_EQ(sorted(found), expected);
  EXPECT_EQ(found_names(m_tree.path("d/*")), (strings{".", "..", "kept"}));
}

TEST_F(find_handle, a_directory_that_is_removed_during_its_walk_has_no_more_entries) {
  m_tree.draw({"d/f"});
  _finddata_t entry;
  long const handle = FIO_FILE_SYSTEM::findfirst(m_tree.path("d/f?").c_str(), &entry);
  EXPECT_EQ(handle, -1);
  long const live = FIO_FILE_SYSTEM::findfirst(m_tree.path("d/*").c_str(), &entry);
  ASSERT_NE(live, -1);
  EXPECT_TRUE(FIO_FILE_SYSTEM::remove(m_tree.path("d/f")));
  EXPECT_TRUE(FIO_FILE_SYSTEM::remove(m_tree.path("d")));
  // What the stream has read ahead is gone by now, and everything below the directory with it.
  EXPECT_NE(FIO_FILE_SYSTEM::findnext(live, &entry), 0);
  EXPECT_EQ(FIO_FILE_SYSTEM::findclose(live), 1);
}

// Permissions

namespace {

bool attribute_is(scratch_tree const& tree, char const* name, std::uint32_t attribute) {
  _finddata_t entry = untouched();
  return FIO_FILE_SYSTEM::findfirst(tree.path(name).c_str(), &entry) == 0 && entry.attrib == attribute;
}

bool attributes_follow_permissions(scratch_tree const& tree) {
  return attribute_is(tree, "open", 0x00) && attribute_is(tree, "locked", 0x01) && attribute_is(tree, "sub", 0x10) &&
         attribute_is(tree, "link to locked", 0x01) && attribute_is(tree, "link to sub", 0x10);
}

bool closed_directories_hold_nothing(scratch_tree const& tree) {
  int const streams = platform_double::open_streams();
  bool held = true;
  for (char const* const name : {"closed/*", "closed/f", "unsearchable/f", "unsearchable/*"}) {
    _finddata_t entry = untouched();
    errno = 0;
    held = FIO_FILE_SYSTEM::findfirst(tree.path(name).c_str(), &entry) == -1 && errno == EACCES &&
           is_untouched(entry) && !FIO_FILE_SYSTEM::exists(tree.path(name).c_str()) &&
           platform_double::open_streams() == streams && held;
  }
  // Without the right to list, an entry can still be asked for by its name.
  return held && walked(tree.path("unlistable/f")) == strings{"f"} && walked(tree.path("unlistable/?")).empty();
}

} // namespace

TEST_F(find_handle, an_ordinary_user_sees_which_files_may_not_be_written) {
  m_tree.draw({"open", "locked", "sub/", "link to locked -> locked", "link to sub -> sub"});
  ASSERT_EQ(::chmod(m_tree.path("open").c_str(), 0666), 0);
  ASSERT_EQ(::chmod(m_tree.path("locked").c_str(), 0444), 0);
  ASSERT_EQ(::chmod(m_tree.path("sub").c_str(), 0555), 0);
  EXPECT_TRUE(holds_for_ordinary_user(attributes_follow_permissions, m_tree));
}

TEST_F(find_handle, a_user_who_may_write_regardless_sees_no_read_only_file) {
  m_tree.draw({"locked"});
  ASSERT_EQ(::chmod(m_tree.path("locked").c_str(), 0444), 0);
  bool const may_write = ::access(m_tree.path("locked").c_str(), W_OK) == 0;
  EXPECT_TRUE(attribute_is(m_tree, "locked", may_write ? 0x00 : 0x01));
  for (int const access_result : {0, -1}) {
    replaced().access = [=](char const*, int) { return access_result; };
    EXPECT_TRUE(attribute_is(m_tree, "locked", access_result == 0 ? 0x00 : 0x01));
  }
}

TEST_F(find_handle, an_ordinary_user_finds_nothing_behind_a_closed_door) {
  m_tree.draw({"closed/f", "unsearchable/f", "unlistable/f"});
  ASSERT_EQ(::chmod(m_tree.path("closed").c_str(), 0), 0);
  ASSERT_EQ(::chmod(m_tree.path("unsearchable").c_str(), 0444), 0);
  ASSERT_EQ(::chmod(m_tree.path("unlistable").c_str(), 0111), 0);
  EXPECT_TRUE(holds_for_ordinary_user(closed_directories_hold_nothing, m_tree));
}
