// What paths do in few steps where they can, compared with the same done step by step: over all short texts, over
// paths that no text gives, and around the lengths at which something changes.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "ccl/fio/fio_extension_type_info.h"
#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_path.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/current_directory.h"
#include "tests/support/paths.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"
#include "tests/support/text.h"

namespace {

using std::string_literals::operator""s;
using texts = std::vector<std::string>;

class path_shortcuts : public fio_test {};

// All texts of up to so many of these characters, the empty one first.
texts all_texts(std::string const& characters, std::size_t longest) {
  texts all{""};
  for (std::size_t i = 0; all[i].size() != longest; ++i) {
    for (char const character : characters) {
      all.push_back(all[i] + character);
    }
  }
  return all;
}

std::string const path_characters = "a./\\";

// The simplification that is in force while an object of this class lives.
class simplification {
public:
  explicit simplification(bool old) {
    if (old) {
      ::setenv("fio_old_simplify", "1", 1);
    }
  }
  ~simplification() { ::unsetenv("fio_old_simplify"); }
  simplification(simplification const&) = delete;
  simplification& operator=(simplification const&) = delete;
};

std::string normalised(std::string const& text, char separator) {
  char const opposite = separator == '/' ? '\\' : '/';
  std::string result;
  for (char const given : text) {
    char const character = given == opposite ? separator : given;
    if (character != separator || result.empty() || result.back() != separator) {
      result += character;
    }
  }
  return result;
}

std::string closed(std::string text, char separator) {
  if (!text.empty() && text.back() != separator) {
    text += separator;
  }
  return text;
}

std::string with_dot(std::string const& part) { return part.empty() || part.front() == '.' ? part : '.' + part; }

void append_level(std::string& directory, std::string const& level, char separator, bool absolute) {
  std::size_t const cut = directory.rfind(separator);
  std::string const last = cut != std::string::npos ? directory.substr(cut + 1) : directory == ".." ? directory : "";
  if (level == ".") {
    return;
  }
  if (level != ".." || last == ".." || directory.empty()) {
    directory = closed(directory, separator) + level;
  } else if (cut == std::string::npos) {
    directory.clear();
  } else {
    directory.erase(cut);
    if (directory.empty() && absolute) {
      directory = separator;
    }
  }
}

texts levels_of(std::string const& text, char separator) {
  texts levels;
  std::string level;
  for (char const character : text + separator) {
    if (character != separator) {
      level += character;
    } else if (!level.empty()) {
      levels.push_back(std::move(level));
      level.clear();
    }
  }
  return levels;
}

// A path that takes no short cut: each edit stores components, and the whole text is made of them.
struct plain_path {
  std::string drive;
  std::string directory;
  std::string base;
  std::string extension;
  std::string text;
  char separator = '/';
  bool legal = true;

  void make_text() {
    char buffer[4096];
    FIO_FILE_SYSTEM::makepath(buffer, drive.c_str(), directory.c_str(), base.c_str(), extension.c_str());
    text = buffer;
  }

  void store_directory(std::string const& given) { directory = closed(normalised(given, separator), separator); }

  // Returns the directory of the text.
  std::string store_name(std::string const& given) {
    std::string name(given, 0, given.find('\0'));
    legal = !name.empty() && name.size() <= longest_path;
    if (!legal) {
      name.clear();
    }
    std::size_t const start = name.find_last_of("/\\") + 1;
    std::size_t const dot = std::min(name.find_last_of('.'), name.size());
    std::size_t const end = dot < start ? name.size() : dot;
    base = name.substr(start, end - start);
    extension = name.substr(end, 256);
    return name.substr(0, start);
  }

  void divide(std::string const& given) {
    bool const was_legal = legal;
    std::string const given_directory = store_name(given);
    legal = *given.c_str() == '\0' ? was_legal : legal;
    drive.clear();
    store_directory(given_directory);
    make_text();
  }

  void set_directory(std::string const& given) {
    store_directory(given);
    make_text();
  }

  void set_drive(std::string const& given) {
    drive = given.empty() ? "" : given.substr(0, 1) + ':';
    make_text();
  }

  void set_base(std::string const& given) {
    base = given;
    make_text();
  }

  void set_extension(std::string const& given) {
    extension = given;
    make_text();
  }

  void set_filename(std::string const& given) {
    if (given.empty()) {
      base.clear();
      extension.clear();
    } else {
      std::string const added = store_name(given);
      if (!added.empty()) {
        store_directory(closed(directory, separator) + added);
      }
    }
    make_text();
  }

  void set_separator(char given) {
    std::replace(directory.begin(), directory.end(), separator, given);
    separator = given;
    set_directory(directory);
  }

  void flatten() { simplify(false); }

  void simplify(bool old) {
    if (!old && directory.empty()) {
      return;
    }
    bool const absolute = !directory.empty() && directory.front() == separator;
    texts levels = levels_of(text, separator);
    if (old) {
      plain_path divided;
      divided.divide(text);
      levels = levels_of(divided.directory, '/');
    } else if (text.find(separator) != std::string::npos && text.back() != separator) {
      levels.pop_back();
    }
    std::string simplified(absolute && (old || !text.empty()) ? 1 : 0, separator);
    for (std::string const& level : levels) {
      append_level(simplified, level, separator, absolute);
    }
    store_directory(simplified);
    if (std::strcmp(base.c_str(), ".") == 0) {
      base.clear();
    }
    if (extension == ".") {
      extension.clear();
    }
    make_text();
  }
};

// What a path holds. A drive shows only in a text that is made anew.
std::string state_of(std::string const& directory, std::string const& base, std::string const& extension,
                     std::string const& text, std::string const& new_text, char separator, bool legal) {
  return directory + '|' + base + '|' + extension + '|' + text + '|' + (new_text == text ? "" : new_text) + '|' +
         separator + (legal ? "" : " illegal");
}

std::string state_of(plain_path const& path) {
  plain_path anew(path);
  anew.make_text();
  return state_of(path.directory, path.base, path.extension, path.text, anew.text, path.separator,
                  path.legal && path.text.size() <= longest_path);
}

std::string state_of(FIO_PATH const& path) {
  FIO_PATH anew(path);
  anew.make_path(FIO_PATH::FILE_COMPONENTS(), "");
  return state_of(path.get_path_components(FIO_PATH::DIRECTORY), path.get_path_components(FIO_PATH::BASE),
                  path.get_path_components(FIO_PATH::EXTENSION), path.fullpath(), anew.fullpath(),
                  path.sync_path_separators("/").front(), path.is_legal_length());
}

struct both_paths {
  FIO_PATH path;
  plain_path plain;
};

// An operation on both, with its name for the messages.
struct operation {
  std::string name;
  std::function<void(FIO_PATH&)> real;
  std::function<void(plain_path&)> plain;
};

operation assign(std::string const& text) {
  return {"assign", [text](FIO_PATH& path) { path = text; }, [text](plain_path& path) { path.divide(text); }};
}

operation set_separator(char separator) {
  return {"separator", [separator](FIO_PATH& path) { path.path_separator(separator); },
          [separator](plain_path& path) { path.set_separator(separator); }};
}

operation set_drive(std::string const& text) {
  return {"drive", [text](FIO_PATH& path) { path.drive(text); }, [text](plain_path& path) { path.set_drive(text); }};
}

operation set_directory(std::string const& text) {
  return {"directory", [text](FIO_PATH& path) { path.directory(text); },
          [text](plain_path& path) { path.set_directory(text); }};
}

operation set_base(std::string const& text) {
  return {"base", [text](FIO_PATH& path) { path.base(text); }, [text](plain_path& path) { path.set_base(text); }};
}

operation set_filename(std::string const& text) {
  return {"filename", [text](FIO_PATH& path) { path.filename(text); },
          [text](plain_path& path) { path.set_filename(text); }};
}

operation make_directory(std::string const& text) {
  return {"make_path(DIRECTORY)", [text](FIO_PATH& path) { path.make_path(FIO_PATH::DIRECTORY, text); },
          [text](plain_path& path) { path.set_directory(text); }};
}

operation make_extension(std::string const& text) {
  return {"make_path(EXTENSION)", [text](FIO_PATH& path) { path.make_path(FIO_PATH::EXTENSION, text); },
          [text](plain_path& path) { path.set_extension(text); }};
}

std::string part_of(std::string const& part) { return with_dot(part); }

std::string part_of(FIO_EXTENSION_TYPE type) {
  return type == FIO_EXTENSION_TYPE_ANY ? "" : FIO_EXTENSION_TYPE_INFO::get_extension_string(type);
}

bool is_absent(std::string const& part) { return part.empty(); }

bool is_absent(FIO_EXTENSION_TYPE type) { return type == FIO_EXTENSION_TYPE_ANY; }

template <typename First, typename Second>
operation set_extension(First const& first, Second const& second) {
  std::string const extension = is_absent(first) ? "" : part_of(first) + part_of(second);
  return {"extension", [first, second](FIO_PATH& path) { path.extension(first, second); },
          [extension](plain_path& path) { path.set_extension(extension); }};
}

operation const flatten = {"flatten", [](FIO_PATH& path) { path.flatten(); }, [](plain_path& path) { path.flatten(); }};

operation const simplify_in_the_old_way = {"the older simplification",
                                           [](FIO_PATH& path) {
                                             simplification const old(true);
                                             path.become_simplified();
                                           },
                                           [](plain_path& path) { path.simplify(true); }};

void apply(both_paths& paths, operation const& what) {
  what.real(paths.path);
  what.plain(paths.plain);
}

void expect_same(both_paths const& before, operation const& what, std::string const& value = {}) {
  both_paths paths = before;
  apply(paths, what);
  ASSERT_EQ(state_of(paths.path), state_of(paths.plain)) << what.name << " with " << testing::PrintToString(value)
                                                         << " on " << testing::PrintToString(state_of(before.path));
}

std::vector<operation> setters_of(std::string const& text) {
  return {assign(text),
          set_filename(text),
          set_directory(text),
          make_directory(text),
          make_extension(text),
          set_base(text),
          set_extension(text, ""s),
          set_extension("x"s, text),
          set_extension(text, FIO_EXTENSION_TYPE_VHD),
          set_extension(text, FIO_EXTENSION_TYPE_ANY),
          set_extension(FIO_EXTENSION_TYPE_VHD, text),
          set_extension(FIO_EXTENSION_TYPE_ANY, text)};
}

operation operator+(operation const& first, operation const& second) {
  return {first.name + " and " + second.name,
          [first, second](FIO_PATH& path) {
            first.real(path);
            second.real(path);
          },
          [first, second](plain_path& path) {
            first.plain(path);
            second.plain(path);
          }};
}

// What an edit makes of a path and its text does not tell. A NUL may take as much from the text as something else adds
// to it.
std::vector<operation> odd_edits() {
  std::vector<operation> edits = {set_drive("C"), set_drive("/"), set_directory("a\0b"s), set_directory("\0a"s)};
  for (operation const& shorter : {set_base("b\0c"s), set_base("\0"s), make_extension(".\0x"s), make_extension(".\0"s),
                                   set_directory("a\0"s), set_directory("\0"s)}) {
    edits.push_back(set_drive("C") + shorter);
    edits.push_back(make_extension("x") + shorter);
  }
  for (std::string const& base :
       {"b\0c"s, "\0"s, "."s, ".\0"s, ".."s, "b/c"s, "/"s, "./b"s, "b\\c"s, "b.c"s, "/a/b/c"s}) {
    edits.push_back(set_base(base));
  }
  for (std::string const& extension : {"x"s, "x."s, "."s, ".."s, ".\0x"s, "\0"s, ".x.y"s, "./y"s, ".\\y"s}) {
    edits.push_back(make_extension(extension));
  }
  return edits;
}

// Paths of these texts under three separators, as they come, with each odd edit, and assigned, which keeps the separator
// in the directory alone.
std::vector<both_paths> odd_paths(texts const& given) {
  std::vector<operation> const edits = odd_edits();
  std::vector<both_paths> all;
  for (std::string const& text : given) {
    for (char const separator : {'/', '\\', '|'}) {
      both_paths paths;
      apply(paths, set_separator(separator));
      apply(paths, assign(text));
      all.push_back(paths);
      for (operation const& edit : edits) {
        all.push_back(paths);
        apply(all.back(), edit);
      }
    }
  }
  std::size_t const made = all.size();
  for (std::size_t i = 0; i != made; ++i) {
    if (all[i].plain.separator != '/') {
      both_paths assigned;
      assigned.path = all[i].path;
      assigned.plain = all[i].plain;
      assigned.plain.separator = '/';
      all.push_back(assigned);
    }
  }
  return all;
}

void expect_division(std::string const& text, std::vector<both_paths> const& before) {
  plain_path plain;
  plain.divide(text);
  ASSERT_EQ(state_of(FIO_PATH(text)), state_of(plain)) << testing::PrintToString(text);
  ASSERT_EQ(state_of(FIO_PATH(text.c_str())), state_of(plain)) << testing::PrintToString(text);
  for (both_paths const& paths : before) {
    ASSERT_NO_FATAL_FAILURE(expect_same(paths, assign(text), text));
  }
}

// Texts around the blocks in which a directory is read, with something at each place of it.
texts texts_in_blocks() {
  texts all;
  for (std::size_t const size : {14u, 15u, 16u, 17u, 18u, 30u, 31u, 32u, 33u, 34u, 40u, 47u, 48u, 49u}) {
    for (std::size_t place = 0; place != size; ++place) {
      for (char const* const inserted : {"", ".", "/", "//", "\\", "/.", "/..", "/./", "/../"}) {
        std::string directory = repeated(size - 1) + '/';
        directory.replace(place, std::strlen(inserted), inserted);
        all.push_back(directory + "b.c");
        all.push_back('/' + directory);
      }
    }
  }
  return all;
}

texts texts_at_the_limits() {
  texts all;
  for (std::size_t const size : {255u, 256u, 257u, 258u}) {
    for (std::string const& directory : {""s, "d/"s, "./"s, "d//"s}) {
      all.push_back(directory + "b." + repeated(size - 1));
      all.push_back(directory + '.' + repeated(size - 2) + '.');
    }
  }
  for (std::size_t const size : {1021u, 1022u, 1023u, 1024u, 1025u}) {
    for (std::string const& directory : {""s, "/"s, "d/"s, "/./"s, "//"s, "/d/../"s}) {
      all.push_back(directory + repeated(size - directory.size()));
      all.push_back(directory + repeated(size - directory.size() - 1) + '.');
      all.push_back(directory + repeated(size - directory.size() - 1) + '/');
    }
  }
  return all;
}

std::vector<both_paths> paths_to_assign_to() { return odd_paths({"", "a/b.c"}); }

TEST_F(path_shortcuts, every_short_text_divides_as_it_does_step_by_step) {
  std::vector<both_paths> before;
  for (char const separator : {'/', '\\', '|'}) {
    before.emplace_back();
    apply(before.back(), set_separator(separator));
  }
  for (std::string const& text : all_texts(path_characters, 6)) {
    ASSERT_NO_FATAL_FAILURE(expect_division(text, before));
  }
}

TEST_F(path_shortcuts, a_text_divides_in_the_same_way_whatever_the_path_was_before) {
  std::vector<both_paths> const before = paths_to_assign_to();
  for (std::string const& text : all_texts(path_characters + '\0', 2)) {
    ASSERT_NO_FATAL_FAILURE(expect_division(text, before));
  }
}

TEST_F(path_shortcuts, a_text_of_any_length_divides_as_it_does_step_by_step) {
  std::vector<both_paths> const before(1);
  for (texts const& all : {texts_in_blocks(), texts_at_the_limits()}) {
    for (std::string const& text : all) {
      ASSERT_NO_FATAL_FAILURE(expect_division(text, before));
    }
  }
}

TEST_F(path_shortcuts, the_end_of_a_path_s_own_text_divides_as_any_other) {
  for (std::string const& text : all_texts(path_characters, 4)) {
    for (std::size_t start = 0; start <= FIO_PATH(text).fullpath().size(); ++start) {
      both_paths paths{FIO_PATH(text), {}};
      paths.plain.divide(paths.path.fullpath().substr(start));
      paths.path.split_full_path(static_cast<char const*>(paths.path) + start);
      ASSERT_EQ(state_of(paths.path), state_of(paths.plain)) << text << " from " << start;
    }
  }
}

TEST_F(path_shortcuts, every_short_component_is_set_as_it_is_step_by_step) {
  std::vector<both_paths> const before = odd_paths({"", "a", "/a/b.c", "a/.b."});
  for (std::string const& text : all_texts(path_characters + '\0', 2)) {
    for (operation const& set : setters_of(text)) {
      for (both_paths const& paths : before) {
        ASSERT_NO_FATAL_FAILURE(expect_same(paths, set, text));
      }
    }
  }
}

TEST_F(path_shortcuts, longer_components_are_set_as_they_are_step_by_step) {
  std::vector<both_paths> before;
  for (char const* const text : {"b.c", "/a/b.c", "a/"}) {
    before.emplace_back();
    apply(before.back(), assign(text));
  }
  texts values = all_texts(path_characters + '\0', 4);
  for (texts const& more : {texts_at_the_limits(), texts{repeated(15), repeated(16), repeated(17), repeated(40)}}) {
    values.insert(values.end(), more.begin(), more.end());
  }
  for (std::string const& text : values) {
    for (operation const& set : {set_filename(text), make_directory(text), set_extension(text, ""s)}) {
      for (both_paths const& paths : before) {
        ASSERT_NO_FATAL_FAILURE(expect_same(paths, set, text));
      }
    }
  }
}

TEST_F(path_shortcuts, extensions_of_two_types_are_set_as_they_are_step_by_step) {
  FIO_EXTENSION_TYPE const types[] = {FIO_EXTENSION_TYPE_ANY, FIO_EXTENSION_TYPE_INVALID, FIO_EXTENSION_TYPE_VHD,
                                      static_cast<FIO_EXTENSION_TYPE>(9999)};
  for (both_paths const& paths : odd_paths({"", "a/b.c"})) {
    for (FIO_EXTENSION_TYPE const first : types) {
      for (FIO_EXTENSION_TYPE const second : types) {
        ASSERT_NO_FATAL_FAILURE(expect_same(paths, set_extension(first, second)));
      }
    }
  }
}

// The same simplified with the separator `\`, in which a path takes no short cut.
std::string simplified_with_backslashes(std::string const& text, bool old) {
  FIO_PATH path = with_separator('\\', text);
  simplification const chosen(old);
  path.become_simplified();
  path.path_separator('/');
  return state_of(path);
}

void expect_simplification(std::string const& text) {
  both_paths paths;
  apply(paths, assign(text));
  ASSERT_NO_FATAL_FAILURE(expect_same(paths, flatten));
  ASSERT_NO_FATAL_FAILURE(expect_same(paths, simplify_in_the_old_way));
  for (bool const old : {false, true}) {
    FIO_PATH path(text);
    simplification const chosen(old);
    path.become_simplified();
    ASSERT_EQ(state_of(path), simplified_with_backslashes(text, old)) << testing::PrintToString(text) << old;
  }
}

TEST_F(path_shortcuts, every_short_text_simplifies_as_it_does_step_by_step) {
  for (std::string const& text : all_texts("a./", 7)) {
    ASSERT_NO_FATAL_FAILURE(expect_simplification(text));
  }
}

TEST_F(path_shortcuts, a_text_of_any_length_simplifies_as_it_does_step_by_step) {
  for (texts const& all : {texts_in_blocks(), texts_at_the_limits()}) {
    for (std::string const& text : all) {
      ASSERT_NO_FATAL_FAILURE(expect_simplification(text));
    }
  }
}

// Directories and names that simplification has something to do with.
texts const texts_to_simplify = {"",       "a",        ".",         "..", "a.",    "..a",   "/",
                                 "/a/b.c", "a/../b.c", "/../a/./b", "./", "../.a", "a/...", "/a/..b."};

TEST_F(path_shortcuts, a_path_that_no_text_gives_simplifies_as_it_does_step_by_step) {
  for (both_paths const& paths : odd_paths(texts_to_simplify)) {
    ASSERT_NO_FATAL_FAILURE(expect_same(paths, flatten));
    ASSERT_NO_FATAL_FAILURE(expect_same(paths, simplify_in_the_old_way));
  }
}

TEST_F(path_shortcuts, a_path_that_edits_made_too_long_simplifies_as_it_does_step_by_step) {
  for (char const* const text : {"/a/../b", "a/./b", "a/b", "b"}) {
    for (std::size_t const size : {1017u, 1018u, 1019u, 1020u, 1021u, 1022u, 1023u, 1024u}) {
      both_paths paths;
      apply(paths, assign(text));
      apply(paths, set_base(repeated(size)));
      ASSERT_NO_FATAL_FAILURE(expect_same(paths, flatten));
      ASSERT_NO_FATAL_FAILURE(expect_same(paths, simplify_in_the_old_way));
    }
  }
}

// The steps by which a path is anchored.
void anchor_step_by_step(FIO_PATH& path, std::string const& directory) {
  FIO_PATH const anchor(directory.empty() ? FIO_FILE_SYSTEM::get_current_directory() : directory);
  if (path.absolute()) {
    return;
  }
  std::string const front = anchor.fullpath();
  path = front + '/' + path.fullpath();
  path.become_simplified();
}

// What an operation comes to: the result, how often it reads the current directory, and the messages.
template <typename Operation>
std::string outcome_of(std::string const& current_directory, Operation operate) {
  int reads = 0;
  platform_double::debug_messages().clear();
  platform_double::replaced().osi_getcwd = [&](char* buffer, unsigned long size) {
    ++reads;
    return current_directory.empty() ? nullptr : report_current_directory(current_directory, buffer, size);
  };
  std::string outcome = operate();
  platform_double::replaced().osi_getcwd = nullptr;
  outcome += ", " + std::to_string(reads) + " reads";
  for (platform_double::debug_message const& message : platform_double::debug_messages()) {
    outcome += '\n' + message.text;
  }
  return outcome;
}

void expect_anchored(FIO_PATH const& path, std::string const& directory, std::string const& current) {
  FIO_PATH real(path);
  FIO_PATH plain(path);
  auto const anchor_real = [&] { return real.become_absolute(directory), ""s; };
  auto const anchor_plain = [&] { return anchor_step_by_step(plain, directory), ""s; };
  ASSERT_EQ(outcome_of(current, anchor_real), outcome_of(current, anchor_plain));
  ASSERT_EQ(state_of(real), state_of(plain))
      << testing::PrintToString(state_of(path)) << " at " << testing::PrintToString(directory) << " in " << current;
}

TEST_F(path_shortcuts, every_short_text_is_anchored_as_it_is_step_by_step) {
  texts const directories = {"/", "/a", "a", "/a/", "..", "./a/..", "\\a//", "a\0b"s, "\0"s, "/a.b", "/..a", "."};
  for (bool const old : {false, true}) {
    simplification const chosen(old);
    for (std::string const& text : all_texts(path_characters, 4)) {
      for (std::string const& current : {""s, "/"s, "/a/b"s, "/a/../b."s}) {
        ASSERT_NO_FATAL_FAILURE(expect_anchored(FIO_PATH(text), "", current));
      }
      for (std::string const& directory : directories) {
        ASSERT_NO_FATAL_FAILURE(expect_anchored(FIO_PATH(text), directory, "/w"));
      }
    }
  }
}

TEST_F(path_shortcuts, a_path_that_no_text_gives_is_anchored_as_it_is_step_by_step) {
  for (bool const old : {false, true}) {
    simplification const chosen(old);
    for (both_paths const& paths : odd_paths(texts_to_simplify)) {
      ASSERT_NO_FATAL_FAILURE(expect_anchored(paths.path, "", "/a/b"));
      ASSERT_NO_FATAL_FAILURE(expect_anchored(paths.path, "/..a", "/w"));
    }
  }
}

TEST_F(path_shortcuts, a_text_of_any_length_is_anchored_as_it_is_step_by_step) {
  for (std::string const& text : texts_at_the_limits()) {
    ASSERT_NO_FATAL_FAILURE(expect_anchored(FIO_PATH(text), "", "/"));
    ASSERT_NO_FATAL_FAILURE(expect_anchored(FIO_PATH("b"), text, "/w"));
    ASSERT_NO_FATAL_FAILURE(expect_anchored(FIO_PATH("../b"), text, "/w"));
    FIO_PATH edited("b");
    edited.base(text);
    ASSERT_NO_FATAL_FAILURE(expect_anchored(edited, "", "/"));
  }
}

// The steps by which two paths are compared, on copies.
int order_step_by_step(FIO_PATH& left, FIO_PATH& right) {
  left.become_simplified();
  right.become_simplified();
  left.become_absolute("");
  right.become_absolute("");
  char const* const right_text = right;
  return FIO_PATH::os_specific_comparison(left, right_text);
}

bool is_equal_step_by_step(FIO_PATH left, FIO_PATH right) {
  std::string const left_name = left.filename();
  std::string const right_name = right.filename();
  return FIO_PATH::os_specific_comparison(left_name.c_str(), right_name.c_str()) == 0 &&
         order_step_by_step(left, right) == 0;
}

bool is_less_step_by_step(FIO_PATH left, FIO_PATH right) { return order_step_by_step(left, right) < 0; }

std::string text_of(bool result) { return result ? "yes" : "no"; }

template <typename Right>
void expect_comparison(FIO_PATH const& left, Right const& right, std::string const& current) {
  auto const outcome = [&current](auto compare) {
    return outcome_of(current, [&compare] { return text_of(compare()); });
  };
  std::string const equal = outcome([&] { return is_equal_step_by_step(FIO_PATH(left.fullpath()), FIO_PATH(right)); });
  std::string const unequal =
      outcome([&] { return !is_equal_step_by_step(FIO_PATH(left.fullpath()), FIO_PATH(right)); });
  std::string const less = outcome([&] { return is_less_step_by_step(FIO_PATH(left.fullpath()), FIO_PATH(right)); });
  ASSERT_TRUE(outcome([&] { return left == right; }) == equal && outcome([&] { return left != right; }) == unequal &&
              outcome([&] { return left < right; }) == less)
      << testing::PrintToString(static_cast<std::string>(left)) << " and "
      << testing::PrintToString(static_cast<std::string>(right)) << " in " << current << ": equal " << equal
      << ", less " << less;
}

void expect_comparisons(texts const& all, std::string const& current) {
  std::vector<FIO_PATH> const paths(all.begin(), all.end());
  for (FIO_PATH const& left : paths) {
    for (std::size_t i = 0; i != all.size(); ++i) {
      ASSERT_NO_FATAL_FAILURE(expect_comparison(left, paths[i], current));
      ASSERT_NO_FATAL_FAILURE(expect_comparison(left, all[i], current));
    }
  }
}

TEST_F(path_shortcuts, every_two_short_texts_compare_as_they_do_step_by_step) {
  ASSERT_NO_FATAL_FAILURE(expect_comparisons(all_texts("a./", 4), "/a"));
  ASSERT_NO_FATAL_FAILURE(expect_comparisons(all_texts("a./", 3), ""));
  simplification const old(true);
  ASSERT_NO_FATAL_FAILURE(expect_comparisons(all_texts(path_characters, 3), "/a"));
}

TEST_F(path_shortcuts, texts_that_differ_in_one_place_compare_as_they_do_step_by_step) {
  texts all = {"a\0b"s, "b\0"s, "\\a\\b", "/a/b", "/a/./b", "b", "./b", "../a/b", "b.", "b..", "/a/b.c", "b.c", "c.b"};
  for (std::size_t const size : {15u, 16u, 17u, 255u, 256u, 257u, 1020u, 1021u, 1023u, 1024u}) {
    all.push_back(repeated(size));
    all.push_back("/a/" + repeated(size - 1) + 'y');
    all.push_back("/a/." + repeated(size));
  }
  for (bool const old : {false, true}) {
    simplification const chosen(old);
    ASSERT_NO_FATAL_FAILURE(expect_comparisons(all, "/a"));
  }
}

TEST_F(path_shortcuts, a_path_that_no_text_gives_compares_as_it_does_step_by_step) {
  std::vector<both_paths> const rights = odd_paths({"", "b", "/a/b.c", "a/../b.", "/."});
  for (bool const old : {false, true}) {
    simplification const chosen(old);
    for (both_paths const& right : rights) {
      for (char const* const left : {"/a/b.c", "b", "/a/b", ""}) {
        ASSERT_NO_FATAL_FAILURE(expect_comparison(FIO_PATH(left), right.path, "/a"));
      }
      ASSERT_NO_FATAL_FAILURE(expect_comparison(right.path, right.path, "/a"));
      ASSERT_NO_FATAL_FAILURE(expect_comparison(right.path, FIO_PATH(right.path.fullpath()), "/a"));
      ASSERT_NO_FATAL_FAILURE(expect_comparison(right.path, right.path.fullpath(), "/a"));
      ASSERT_NO_FATAL_FAILURE(expect_comparison(FIO_PATH(right.path.fullpath()), right.path, "/a"));
    }
  }
}

TEST_F(path_shortcuts, a_path_that_edits_made_too_long_compares_as_it_does_step_by_step) {
  for (std::size_t const size : {1018u, 1019u, 1020u, 1021u, 1022u, 1023u, 1024u}) {
    for (char const* const text : {"b", "/a/b", "./b", "/b.c"}) {
      FIO_PATH path(text);
      path.base(repeated(size));
      for (bool const old : {false, true}) {
        simplification const chosen(old);
        ASSERT_NO_FATAL_FAILURE(expect_comparison(path, path, "/a"));
        ASSERT_NO_FATAL_FAILURE(expect_comparison(path, path.get_path_components(15), "/a"));
        ASSERT_NO_FATAL_FAILURE(expect_comparison(FIO_PATH("b"), path, "/a"));
        ASSERT_NO_FATAL_FAILURE(expect_comparison(path, FIO_PATH(), "/a"));
      }
    }
  }
}

std::string text_without_check(FIO_PATH const& path) {
  platform_double::debug_messages().clear();
  std::string text = path.fullpath();
  platform_double::debug_messages().clear();
  return text;
}

// The steps by which a path is seen from a directory.
std::string relative_step_by_step(FIO_PATH const& path, std::string const& directory) {
  char const separator = path.sync_path_separators("/").front();
  std::string text = text_without_check(path);
  FIO_PATH const self(text);
  FIO_PATH const other(closed(path.sync_path_separators(directory), separator));
  if (!self.absolute() || !other.absolute() || self.levels() == 0 || other.levels() == 0 || self[0] != other[0]) {
    return text;
  }
  int const limit = std::min(self.levels(), other.levels());
  int common = 0;
  std::string prefix;
  while (common != limit && self[common] == other[common]) {
    prefix += separator + self[common];
    ++common;
  }
  std::string result = self.directory().substr(prefix.size() + 1);
  for (int ups = other.levels() - common; ups != 0; --ups) {
    result.insert(0, ".."s + separator);
  }
  return result + self.filename();
}

void expect_relative(FIO_PATH const& path, std::string const& directory) {
  std::string const expected = relative_step_by_step(path, directory);
  ASSERT_EQ(path.get_relative_to(directory), expected)
      << testing::PrintToString(static_cast<std::string>(path)) << " from " << testing::PrintToString(directory);
  ASSERT_TRUE(platform_double::debug_messages().empty());
}

TEST_F(path_shortcuts, every_short_text_is_seen_from_every_directory_as_it_is_step_by_step) {
  for (std::string const& text : all_texts("ab./", 3)) {
    FIO_PATH const path('/' + text);
    for (std::string const& directory : all_texts(path_characters, 4)) {
      ASSERT_NO_FATAL_FAILURE(expect_relative(path, '/' + directory));
    }
  }
}

TEST_F(path_shortcuts, odd_directories_and_paths_are_seen_as_they_are_step_by_step) {
  texts directories = {"", "a", "/a", "/a\0b"s, "/a/b\0/c"s, "\0"s, "/a/\0"s, "\\a\\", "/a/..", "/.a", "/a//b/", "|a|"};
  for (std::size_t const size : {1019u, 1020u, 1021u, 1022u, 1023u, 1024u}) {
    for (std::string const& front : {"/a/"s, "/a//"s, "//a\\"s}) {
      directories.push_back(front + repeated(size - front.size()));
      directories.push_back(front + repeated(size - front.size() - 1) + '/');
      directories.push_back(front + repeated(size - front.size() - 2) + "//");
    }
  }
  std::vector<both_paths> paths = odd_paths({"", "/", "/a", "/a/b.c", "/a/b/../c.", "a/b"});
  for (std::size_t const size : {1019u, 1020u, 1023u, 1024u}) {
    paths.push_back({FIO_PATH("/a/b/c.d"), {}});
    paths.back().path.base(repeated(size));
  }
  for (both_paths const& seen : paths) {
    for (std::string const& directory : directories) {
      ASSERT_NO_FATAL_FAILURE(expect_relative(seen.path, directory));
    }
  }
}

TEST_F(path_shortcuts, levels_that_differ_in_one_place_are_seen_as_they_are_step_by_step) {
  std::string const text = "/first/" + repeated(20) + "/third/fourth_level/n.e";
  std::string const directory = "/first/" + repeated(20) + "/third/fourth_level/fifth";
  for (std::size_t place = 0; place <= directory.size(); ++place) {
    std::string changed = directory;
    expect_relative(FIO_PATH(text), changed.substr(0, place));
    for (char const character : {'y', '/'}) {
      changed.replace(std::min(place, changed.size() - 1), 1, 1, character);
      ASSERT_NO_FATAL_FAILURE(expect_relative(FIO_PATH(text), changed));
    }
  }
}

// Paths with a text that is older than a component, for which there was no memory: all that the edits leave of each
// text, whichever allocation fails.
std::vector<both_paths> outdated_paths() {
  std::vector<both_paths> all;
  std::string const edits[] = {repeated(40), "a/./" + repeated(30), '.' + repeated(30),
                               "./" + repeated(20) + "/../a/" + repeated(30)};
  for (char const* const text :
       {"", "b.c", "/a/../b.c", "./a_level_of_some_length/b.c", "/a_level_of_some_length/x/.."}) {
    for (std::string const& edit : edits) {
      for (operation const& set : setters_of(edit)) {
        for (int memory = 0; memory != 3; ++memory) {
          FIO_PATH const original(text);
          both_paths paths{FIO_PATH(original), {}};
          try {
            allocation_failure const failing(memory + 1);
            set.real(paths.path);
          } catch (std::bad_alloc const&) {
          }
          paths.plain.directory = paths.path.get_path_components(FIO_PATH::DIRECTORY);
          paths.plain.base = paths.path.get_path_components(FIO_PATH::BASE);
          paths.plain.extension = paths.path.get_path_components(FIO_PATH::EXTENSION);
          paths.plain.make_text();
          if (paths.path.fullpath() != paths.plain.text) {
            paths.plain.text = paths.path.fullpath();
            all.push_back(std::move(paths));
          }
        }
      }
    }
  }
  return all;
}

TEST_F(path_shortcuts, a_text_that_is_older_than_a_component_is_not_taken_for_what_the_components_make) {
  std::vector<both_paths> const all = outdated_paths();
  ASSERT_GT(all.size(), 100u);
  texts const values = {"", "x", "x/y", ".", repeated(40)};
  for (both_paths const& outdated : all) {
    both_paths const copied = outdated;
    both_paths assigned;
    assigned.path = outdated.path;
    assigned.plain = outdated.plain;
    for (both_paths const& paths : {copied, assigned}) {
      for (std::string const& value : values) {
        for (operation const& set : setters_of(value)) {
          ASSERT_NO_FATAL_FAILURE(expect_same(paths, set, value));
        }
      }
      ASSERT_NO_FATAL_FAILURE(expect_same(paths, flatten));
      ASSERT_NO_FATAL_FAILURE(expect_same(paths, simplify_in_the_old_way));
      ASSERT_NO_FATAL_FAILURE(expect_anchored(paths.path, "", "/w"));
      ASSERT_NO_FATAL_FAILURE(expect_relative(paths.path, "/a_level_of_some_length/y"));
      for (char const* const left : {"/a/b.c", "b.c"}) {
        ASSERT_NO_FATAL_FAILURE(expect_comparison(FIO_PATH(left), paths.path, "/a"));
      }
      ASSERT_NO_FATAL_FAILURE(expect_comparison(paths.path, paths.path, "/a"));
    }
  }
}

} // namespace
