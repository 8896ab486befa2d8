/// @file
/// The operations that put path texts together and take them apart as plain C-strings, and the full network form.

#include <gtest/gtest.h>

#include <cerrno>
#include <iterator>
#include <new>
#include <ostream>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <vector>

#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_path.h"
#include "ccl/osi/osi.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/calls.h"
#include "tests/support/paths.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"

namespace {

using texts = std::vector<std::string>;

char const* const none = nullptr;

using makepath_form = void (*)(char*, char const*, char const*, char const*, char const*);
using splitpath_into_buffers = bool (*)(char const*, char*, char*, char*, char*);
using splitpath_into_strings = bool (*)(char const*, std::string&, std::string&, std::string&, std::string&);
static_assert(has_type<makepath_form>(&FIO_FILE_SYSTEM::makepath));
static_assert(std::is_same_v<decltype(&FIO_FILE_SYSTEM::tolower), std::string (*)(std::string const&)>);
static_assert(std::is_same_v<decltype(fio_get_unc_full_path), std::string(char const*)>);
// These compile where the forms are declared exactly so.
static_assert(sizeof(static_cast<splitpath_into_buffers>(&FIO_FILE_SYSTEM::splitpath)) != 0);
static_assert(sizeof(static_cast<splitpath_into_strings>(&FIO_FILE_SYSTEM::splitpath)) != 0);

/// A text that may hold NUL bytes.
template <std::size_t Size>
std::string bytes(char const (&literal)[Size]) {
  return std::string(literal, Size - 1);
}

/// What `makepath` writes, taken from a buffer that held something else in every byte.
std::string made(char const* drive, char const* dir, char const* fname, char const* ext) {
  std::string buffer(8192, '#');
  FIO_FILE_SYSTEM::makepath(buffer.data(), drive, dir, fname, ext);
  std::string result = buffer.c_str();
  EXPECT_EQ(buffer.substr(result.size() + 1), std::string(buffer.size() - result.size() - 1, '#'))
      << "written behind the end of " << result;
  return result;
}

struct parts {
  bool answer = true;
  std::string drive;
  std::string dir;
  std::string fname;
  std::string ext;
};

bool operator==(parts const& left, parts const& right) {
  return left.answer == right.answer && left.drive == right.drive && left.dir == right.dir &&
         left.fname == right.fname && left.ext == right.ext;
}

std::ostream& operator<<(std::ostream& out, parts const& parts) {
  return out << (parts.answer ? "true" : "false") << ", drive " << testing::PrintToString(parts.drive) << ", dir "
             << testing::PrintToString(parts.dir) << ", fname " << testing::PrintToString(parts.fname) << ", ext "
             << testing::PrintToString(parts.ext);
}

parts const no_parts = {false, "", "", "", ""};

/// A buffer of exactly the size that a caller must give, between bytes that nobody may touch.
class guarded_buffer {
public:
  explicit guarded_buffer(std::size_t size) : m_bytes(size + 2 * guard, '#') {}

  char* data() { return m_bytes.data() + guard; }

  std::string text() const {
    std::string const border(guard, '#');
    EXPECT_EQ(m_bytes.substr(0, guard), border) << "written in front of the buffer";
    EXPECT_EQ(m_bytes.substr(m_bytes.size() - guard), border) << "written behind the buffer";
    std::string const content = m_bytes.substr(guard, m_bytes.size() - 2 * guard);
    EXPECT_NE(content.find('\0'), std::string::npos) << "not terminated";
    return content.c_str();
  }

private:
  static constexpr std::size_t guard = 64;
  std::string m_bytes;
};

parts split_into_buffers(char const* path) {
  guarded_buffer drive(1);
  guarded_buffer dir(1025);
  guarded_buffer fname(1025);
  guarded_buffer ext(257);
  bool const answer = FIO_FILE_SYSTEM::splitpath(path, drive.data(), dir.data(), fname.data(), ext.data());
  return {answer, drive.text(), dir.text(), fname.text(), ext.text()};
}

parts split_into_strings(char const* path) {
  std::string drive = "old drive";
  std::string dir = "old dir";
  std::string fname = bytes("old\0fname");
  std::string ext = repeated(500, 'o');
  bool const answer = FIO_FILE_SYSTEM::splitpath(path, drive, dir, fname, ext);
  return {answer, drive, dir, fname, ext};
}

struct split_row {
  std::string path;
  parts expected;
};

std::vector<split_row> split_rows() {
  std::string const x1020 = repeated(1020);
  return {
      // The last dot of a name starts the extension.
      {"a", {true, "", "", "a", ""}},
      {"a.b", {true, "", "", "a", ".b"}},
      {"a.b.c", {true, "", "", "a.b", ".c"}},
      {"a.", {true, "", "", "a", "."}},
      {"a..", {true, "", "", "a.", "."}},
      {".profile", {true, "", "", "", ".profile"}},
      {".", {true, "", "", "", "."}},
      {"..", {true, "", "", ".", "."}},
      {"...", {true, "", "", "..", "."}},
      // A dot in the directory does not.
      {"dir.d/name", {true, "", "dir.d/", "name", ""}},
      {"dir.d\\name", {true, "", "dir.d\\", "name", ""}},
      {"dir.d/", {true, "", "dir.d/", "", ""}},
      {"./", {true, "", "./", "", ""}},
      {"a.b/c.d", {true, "", "a.b/", "c", ".d"}},
      {"a.b/.c", {true, "", "a.b/", "", ".c"}},
      {"dir/..", {true, "", "dir/", ".", "."}},
      {"dir\\.", {true, "", "dir\\", "", "."}},
      // The directory reaches up to the last separator of either kind, and nothing in it is changed.
      {"a/b/c", {true, "", "a/b/", "c", ""}},
      {"a\\b", {true, "", "a\\", "b", ""}},
      {"a\\b/c", {true, "", "a\\b/", "c", ""}},
      {"a/b\\c", {true, "", "a/b\\", "c", ""}},
      {"a\\b//c.tar.gz", {true, "", "a\\b//", "c.tar", ".gz"}},
      {"/", {true, "", "/", "", ""}},
      {"\\", {true, "", "\\", "", ""}},
      {"//\\\\", {true, "", "//\\\\", "", ""}},
      {"//server/share/f", {true, "", "//server/share/", "f", ""}},
      {"/name", {true, "", "/", "name", ""}},
      // A letter and a colon are no drive.
      {"C:", {true, "", "", "C:", ""}},
      {"C:x.y", {true, "", "", "C:x", ".y"}},
      {"C:/x.y", {true, "", "C:/", "x", ".y"}},
      {"C:\\x", {true, "", "C:\\", "x", ""}},
      // All other bytes are taken as they come.
      {" a / b . c ", {true, "", " a /", " b ", ". c "}},
      {"*?\n%s/\x01\t.\x7f", {true, "", "*?\n%s/", "\x01\t", ".\x7f"}},
      {"\xff\x80/\xc3\xa9.\xfe", {true, "", "\xff\x80/", "\xc3\xa9", ".\xfe"}},
      {"\xaf\xdc\xae", {true, "", "", "\xaf\xdc\xae", ""}}, // the separators and the dot, with the highest bit set
      // A text has up to 1023 characters.
      {repeated(1022), {true, "", "", repeated(1022), ""}},
      {repeated(1023), {true, "", "", repeated(1023), ""}},
      {repeated(1023, '\xff'), {true, "", "", repeated(1023, '\xff'), ""}},
      {repeated(1022) + '/', {true, "", repeated(1022) + '/', "", ""}},
      {repeated(1023, '/'), {true, "", repeated(1023, '/'), "", ""}},
      {"d/" + repeated(1019) + ".c", {true, "", "d/", repeated(1019), ".c"}},
      {repeated(1022) + '.', {true, "", "", repeated(1022), "."}},
      {repeated(1024), no_parts},
      {repeated(1024, '\xff'), no_parts},
      {"d/" + x1020 + ".c", no_parts},
      {repeated(1023) + '/', no_parts},
      {repeated(1023) + '.', no_parts},
      {repeated(1025), no_parts},
      {repeated(100000), no_parts},
      // An extension is cut behind its 256th character.
      {"d/n." + repeated(254), {true, "", "d/", "n", '.' + repeated(254)}},
      {"d/n." + repeated(255), {true, "", "d/", "n", '.' + repeated(255)}},
      {"d/n." + repeated(256), {true, "", "d/", "n", '.' + repeated(255)}},
      {"d/n." + repeated(255) + 'y', {true, "", "d/", "n", '.' + repeated(255)}},
      {"d/n." + repeated(1019), {true, "", "d/", "n", '.' + repeated(255)}},
      {'.' + repeated(1022), {true, "", "", "", '.' + repeated(255)}},
      {'.' + repeated(1023), no_parts},
      // Nothing.
      {"", no_parts},
  };
}

} // namespace

class path_text_tools : public fio_test {
protected:
  /// A layer below whose record has this text, and which watches that it is given its own record back.
  void answer_full_path(char const* text) {
    platform_double::replaced().osi_get_unc_full_path = [this](char const* path) {
      m_asked = path;
      return record();
    };
    platform_double::replaced().osi_path_get_data = [this, text](OSI_PATH* path) {
      EXPECT_EQ(path, record());
      return text;
    };
    platform_double::replaced().osi_path_free = [this](OSI_PATH* path) { EXPECT_EQ(path, record()); };
    platform_double::record_calls(true);
  }

  OSI_PATH* record() { return reinterpret_cast<OSI_PATH*>(&m_record); }

  char const* m_asked = nullptr;
  long m_record = 0;
};

// Putting together

TEST_F(path_text_tools, makepath_writes_each_component_in_its_own_way) {
  struct piece {
    char const* given;
    char const* written;
  };
  piece const drives[] = {{nullptr, ""}, {"", ""},    {"C", "C:"},  {"C:", "C:"},
                          {"CDE", "C:"}, {":", "::"}, {"/x", "/:"}, {"\xff", "\xff:"}};
  piece const directories[] = {{nullptr, ""},  {"", ""},          {"d", "d/"},           {"d/", "d/"},
                               {"d\\", "d\\"}, {"d//", "d//"},    {"a\\b/c", "a\\b/c/"}, {"a/b\\", "a/b\\"},
                               {"/", "/"},     {"\\", "\\"},      {".", "./"},           {"d|", "d|/"},
                               {"C:", "C:/"},  {"\xaf", "\xaf/"}, {"\xdc", "\xdc/"},     {" ", " /"}};
  piece const names[] = {{nullptr, ""}, {"", ""},           {"n", "n"},   {"n.m", "n.m"},  {"n.", "n."},
                         {".n", ".n"},  {"x/y\\", "x/y\\"}, {"/n", "/n"}, {"\xfe", "\xfe"}};
  piece const extensions[] = {{nullptr, ""}, {"", ""},        {"e", ".e"},   {".e", ".e"},      {".", "."},
                              {"..", ".."},  {"e.f", ".e.f"}, {"/e", "./e"}, {"\xae", ".\xae"}, {" .e", ". .e"}};
  for (piece const& drive : drives) {
    for (piece const& directory : directories) {
      for (piece const& name : names) {
        for (piece const& extension : extensions) {
          std::string const expected =
              std::string(drive.written) + directory.written + name.written + extension.written;
          ASSERT_EQ(made(drive.given, directory.given, name.given, extension.given), expected);
        }
      }
    }
  }
}

TEST_F(path_text_tools, makepath_makes_whole_texts) {
  struct row {
    char const* drive;
    char const* dir;
    char const* fname;
    char const* ext;
    char const* expected;
  };
  row const rows[] = {
      {nullptr, nullptr, nullptr, nullptr, ""},  {"", "", "", "", ""},
      {"C", "a", "b", "c", "C:a/b.c"},           {"", "a\\", "b", ".c", "a\\b.c"},
      {"Drive", "/a/b", "c", "d", "D:/a/b/c.d"}, {nullptr, "a", nullptr, nullptr, "a/"},
      {nullptr, nullptr, nullptr, "e", ".e"},    {"C", nullptr, nullptr, nullptr, "C:"},
      {nullptr, nullptr, "n", nullptr, "n"},     {nullptr, "a|b|", "f", nullptr, "a|b|/f"},
  };
  for (row const& row : rows) {
    EXPECT_EQ(made(row.drive, row.dir, row.fname, row.ext), row.expected);
  }
}

TEST_F(path_text_tools, makepath_has_no_limit_of_its_own) {
  for (std::size_t const length : {255U, 256U, 257U, 1022U, 1023U, 1024U, 1025U, 2000U}) {
    std::string const d = repeated(length, 'd');
    std::string const n = repeated(length, 'n');
    std::string const e = repeated(length, 'e');
    EXPECT_EQ(made(d.c_str(), d.c_str(), n.c_str(), e.c_str()), "d:" + d + '/' + n + '.' + e) << length;
  }
  EXPECT_EQ(messages(), texts());
}

TEST_F(path_text_tools, makepath_needs_room_for_its_text_and_a_nul_and_no_more) {
  guarded_buffer exact(sizeof "C:a/b.c");
  FIO_FILE_SYSTEM::makepath(exact.data(), "C", "a", "b", "c");
  EXPECT_EQ(exact.text(), "C:a/b.c");

  guarded_buffer single(1);
  FIO_FILE_SYSTEM::makepath(single.data(), none, none, none, none);
  EXPECT_EQ(single.text(), "");
}

// Taking apart

TEST_F(path_text_tools, splitpath_divides_a_text) {
  for (split_row const& row : split_rows()) {
    SCOPED_TRACE(testing::PrintToString(row.path));
    EXPECT_EQ(split_into_buffers(row.path.c_str()), row.expected) << "buffers";
    EXPECT_EQ(split_into_strings(row.path.c_str()), row.expected) << "strings";
  }
  EXPECT_EQ(messages(), texts()) << "a text is refused in silence";
}

TEST_F(path_text_tools, splitpath_refuses_null) {
  EXPECT_EQ(split_into_buffers(nullptr), no_parts);
  EXPECT_EQ(split_into_strings(nullptr), no_parts);
}

TEST_F(path_text_tools, splitpath_stops_at_the_first_nul) {
  std::string const text = bytes("a/b\0c/d.e");
  EXPECT_EQ(split_into_buffers(text.c_str()), (parts{true, "", "a/", "b", ""}));
  EXPECT_EQ(split_into_strings(text.c_str()), (parts{true, "", "a/", "b", ""}));
  std::string const nothing = bytes("\0a/b.c");
  EXPECT_EQ(split_into_buffers(nothing.c_str()), no_parts);
  EXPECT_EQ(split_into_strings(nothing.c_str()), no_parts);
  // Behind the end of a text there is nothing to be long.
  std::string const longest = repeated(1023) + bytes("\0") + repeated(1000);
  EXPECT_EQ(split_into_buffers(longest.c_str()), (parts{true, "", "", repeated(1023), ""}));
}

TEST_F(path_text_tools, splitpath_writes_only_the_parts_that_are_wanted) {
  constexpr std::size_t sizes[] = {1, 1025, 1025, 257};
  for (split_row const& row : split_rows()) {
    std::string const expected[] = {row.expected.drive, row.expected.dir, row.expected.fname, row.expected.ext};
    for (unsigned wanted = 0; wanted != 16; ++wanted) {
      SCOPED_TRACE(testing::PrintToString(row.path) + ", parts " + std::to_string(wanted));
      std::vector<guarded_buffer> buffers(std::begin(sizes), std::end(sizes));
      char* outputs[4] = {};
      for (unsigned part = 0; part != 4; ++part) {
        outputs[part] = (wanted >> part & 1) != 0 ? buffers[part].data() : nullptr;
      }
      EXPECT_EQ(FIO_FILE_SYSTEM::splitpath(row.path.c_str(), outputs[0], outputs[1], outputs[2], outputs[3]),
                row.expected.answer);
      for (unsigned part = 0; part != 4; ++part) {
        if (outputs[part] != nullptr) {
          EXPECT_EQ(buffers[part].text(), expected[part]) << "part " << part;
        }
      }
    }
  }
  EXPECT_FALSE(FIO_FILE_SYSTEM::splitpath(nullptr, nullptr, nullptr, nullptr, nullptr));
}

TEST_F(path_text_tools, splitpath_takes_the_text_of_one_of_its_strings) {
  std::string const path = "directory/" + repeated(100) + ".extension";
  parts const expected = {true, "", "directory/", repeated(100), ".extension"};
  for (int which = 0; which != 4; ++which) {
    std::string strings[4];
    strings[which] = path;
    bool const answer =
        FIO_FILE_SYSTEM::splitpath(strings[which].c_str(), strings[0], strings[1], strings[2], strings[3]);
    EXPECT_EQ((parts{answer, strings[0], strings[1], strings[2], strings[3]}), expected) << "string " << which;
  }
}

TEST_F(path_text_tools, a_divided_text_is_made_again_from_its_parts) {
  for (split_row const& row : split_rows()) {
    SCOPED_TRACE(testing::PrintToString(row.path));
    parts const parts = split_into_buffers(row.path.c_str());
    std::string const text = made(parts.drive.c_str(), parts.dir.c_str(), parts.fname.c_str(), parts.ext.c_str());
    EXPECT_EQ(text, parts.dir + parts.fname + parts.ext);
    if (parts.answer && parts.ext.size() < 256) {
      EXPECT_EQ(text, row.path);
    }
    EXPECT_EQ(split_into_buffers(text.c_str()), parts);
  }
}

TEST_F(path_text_tools, a_path_divides_a_text_as_splitpath_does) {
  for (split_row const& row : split_rows()) {
    SCOPED_TRACE(testing::PrintToString(row.path));
    FIO_PATH const path(row.path);
    EXPECT_EQ(path.directory(), FIO_PATH().sync_path_separators(row.expected.dir));
    EXPECT_EQ(path.base(), row.expected.fname);
    EXPECT_EQ(path.get_path_components(FIO_PATH::EXTENSION), row.expected.ext);
    EXPECT_EQ(path.is_legal_length(), row.expected.answer || row.path.empty());
  }
}

TEST_F(path_text_tools, nothing_is_asked_of_the_layers_below) {
  platform_double::record_calls(true);
  char buffer[64];
  errno = telltale;
  FIO_FILE_SYSTEM::makepath(buffer, "C", "a", "b", "c");
  parts const in_buffers = split_into_buffers("a/b.c");
  parts const in_strings = split_into_strings("a/b.c");
  parts const refused = split_into_buffers(nullptr);
  std::string const lower = FIO_FILE_SYSTEM::tolower("ABC");
  EXPECT_EQ(errno, telltale);
  EXPECT_STREQ(buffer, "C:a/b.c");
  EXPECT_EQ(in_buffers, (parts{true, "", "a/", "b", ".c"}));
  EXPECT_EQ(in_strings, (parts{true, "", "a/", "b", ".c"}));
  EXPECT_EQ(refused, no_parts);
  EXPECT_EQ(lower, "ABC");
  EXPECT_EQ(platform_double::calls(), texts());
  EXPECT_EQ(messages(), texts());
}

// Case

TEST_F(path_text_tools, tolower_changes_no_case) {
  for (std::string const& text :
       {std::string(), std::string("ABC"), std::string("abc"), std::string("/Dir/File.TXT"), bytes("A\0B\\C"),
        std::string("\xc3\x84\xc4\xff"), repeated(5000, 'Q'), std::string("[@Z`{")}) {
    EXPECT_EQ(FIO_FILE_SYSTEM::tolower(text), text);
  }
}

// The full network form

TEST_F(path_text_tools, the_full_network_path_is_copied_and_its_record_released) {
  struct row {
    char const* path;
    std::string text;
  };
  row const rows[] = {
      {"a/b", "//host/share/a/b"},   {"/a", "/a"},        {"a", ""}, {"", "//host"},
      {"\xff", "\xff\\\x80"},        {nullptr, "//host"}, // what a path may be is for the layer below to say
      {"a", '/' + repeated(100000)},
  };
  std::string const longest = repeated(2000);
  for (row const& row : rows) {
    SCOPED_TRACE(row.path != nullptr ? row.path : "null");
    platform_double::calls().clear();
    answer_full_path(row.text.c_str());
    EXPECT_EQ(fio_get_unc_full_path(row.path), row.text);
    EXPECT_EQ(m_asked, row.path) << "the path itself is handed on";
    std::string const argument = row.path != nullptr ? row.path : "null";
    EXPECT_EQ(platform_double::calls(),
              (texts{"osi_get_unc_full_path(" + argument + ")", "osi_path_get_data()", "osi_path_free()"}));
  }
  answer_full_path("/long");
  EXPECT_EQ(fio_get_unc_full_path(longest.c_str()), "/long") << "no length is tested";
  EXPECT_EQ(m_asked, longest.c_str());
  EXPECT_EQ(messages(), texts());
}

TEST_F(path_text_tools, the_full_network_path_is_copied_before_its_record_is_released) {
  std::string text = "//host/a";
  answer_full_path(text.c_str());
  platform_double::replaced().osi_path_free = [&text](OSI_PATH*) { text.replace(0, text.size(), text.size(), '#'); };
  EXPECT_EQ(fio_get_unc_full_path("a"), "//host/a");
  EXPECT_EQ(text, "########");
}

TEST_F(path_text_tools, a_full_network_path_that_is_not_known_is_a_logic_error_and_keeps_its_record) {
  answer_full_path(nullptr);
  try {
    (void)fio_get_unc_full_path("a");
    FAIL() << "no exception";
  } catch (std::logic_error const& error) {
    EXPECT_EQ(typeid(error), typeid(std::logic_error));
    EXPECT_STREQ(error.what(), "basic_string: construction from null is not valid");
  }
  EXPECT_EQ(platform_double::calls(), (texts{"osi_get_unc_full_path(a)", "osi_path_get_data()"}));
  EXPECT_EQ(messages(), texts());
}

TEST_F(path_text_tools, a_null_record_of_a_full_network_path_is_handled_as_any_other) {
  answer_full_path("//host/a");
  OSI_PATH* released = record();
  platform_double::replaced().osi_get_unc_full_path = [](char const*) -> OSI_PATH* { return nullptr; };
  platform_double::replaced().osi_path_get_data = [](OSI_PATH* path) {
    EXPECT_EQ(path, nullptr);
    return "//host/a";
  };
  platform_double::replaced().osi_path_free = [&released](OSI_PATH* path) { released = path; };
  EXPECT_EQ(fio_get_unc_full_path("a"), "//host/a");
  EXPECT_EQ(released, nullptr);
  EXPECT_EQ(platform_double::calls(), (texts{"osi_get_unc_full_path(a)", "osi_path_get_data()", "osi_path_free()"}));
}

TEST_F(path_text_tools, a_full_network_path_that_cannot_be_stored_keeps_its_record) {
  std::string const text = repeated(100);
  answer_full_path(text.c_str());
  int released = 0;
  platform_double::record_calls(false);
  platform_double::replaced().osi_path_free = [&released](OSI_PATH*) { ++released; };
  {
    allocation_failure const failure(1);
    EXPECT_THROW((void)fio_get_unc_full_path("a"), std::bad_alloc);
  }
  EXPECT_EQ(released, 0);
  EXPECT_EQ(fio_get_unc_full_path("a"), text);
  EXPECT_EQ(released, 1);
}

TEST_F(path_text_tools, the_full_network_path_is_what_the_layer_below_tells) {
  for (char const* const path : {"/a/b", "a/b", "", "/", "//host/a", "\\a"}) {
    OSI_PATH* const record = osi_get_unc_full_path(path);
    char const* const text = osi_path_get_data(record);
    ASSERT_NE(text, nullptr) << path;
    EXPECT_EQ(fio_get_unc_full_path(path), text) << path;
    osi_path_free(record);
  }
}
