#include <gtest/gtest.h>

#include <boost/format.hpp>
#include <climits>
#include <cstdint>
#include <cstring>
#include <exception>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include "ccl/err/korvane_error.h"
#include "ccl/fio/fio_errc.h"
#include "ccl/fio/fio_file_sys.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/scratch.h"

namespace {

using FIO::ERRC::FAILED_TO_OPEN_DIRECTORY_ERRC;
using FIO::ERRC::FAILED_TO_REMOVE_DIRECTORY_ERRC;
using FIO::ERRC::NOT_A_DIRECTORY_ERRC;
using message_line = KORVANE_ERROR_MESSAGE::LINE;

// An error is a result: none of these classes is meant to be thrown, and all hold what the base of the library holds.
template <typename Code>
constexpr bool is_a_code() {
  return std::is_base_of<FIO_ERRC, Code>::value && std::is_convertible<Code*, FIO_ERRC*>::value &&
         !std::is_abstract<Code>::value && sizeof(Code) == sizeof(FIO_ERRC) &&
         !std::is_base_of<std::exception, Code>::value;
}

static_assert(is_a_code<NOT_A_DIRECTORY_ERRC>());
static_assert(is_a_code<FAILED_TO_OPEN_DIRECTORY_ERRC>());
static_assert(is_a_code<FAILED_TO_REMOVE_DIRECTORY_ERRC>());
static_assert(std::is_base_of<KORVANE_ERRC, FIO_ERRC>::value && std::is_convertible<FIO_ERRC*, KORVANE_ERRC*>::value);
static_assert(std::is_abstract<KORVANE_ERRC>::value && std::is_abstract<FIO_ERRC>::value);
static_assert(std::has_virtual_destructor<KORVANE_ERRC>::value && std::has_virtual_destructor<FIO_ERRC>::value);
static_assert(sizeof(KORVANE_ERRC) == sizeof(void*));
static_assert(sizeof(FIO_ERRC) == sizeof(void*) + sizeof(KORVANE_ERROR_MESSAGE));
static_assert(!std::is_base_of<std::exception, KORVANE_ERROR<NOT_A_DIRECTORY_ERRC>>::value);
static_assert(!std::is_copy_constructible<KORVANE_ERROR<NOT_A_DIRECTORY_ERRC>>::value);
static_assert(!std::is_copy_assignable<KORVANE_ERROR<NOT_A_DIRECTORY_ERRC>>::value);
static_assert(sizeof(KORVANE_ERROR<NOT_A_DIRECTORY_ERRC>) == sizeof(void*));
static_assert(std::is_same<decltype(message_line::m_text), std::string>::value);
static_assert(std::is_same<decltype(message_line::m_aux_text), std::string>::value);
static_assert(std::is_same<decltype(message_line::m_code), std::int32_t>::value);
static_assert(std::is_same<decltype(message_line::m_indent), std::int32_t>::value);
static_assert(
    std::is_same<decltype(KORVANE_ERROR_MESSAGE::m_lines), boost::container::small_vector<message_line, 1>>::value);
static_assert(std::is_same<decltype(std::declval<FIO_ERRC const&>().message()), KORVANE_ERROR_MESSAGE>::value);

class error_value : public fio_test {};

// An error of another module, with its own text, that counts how many of its kind live.
class counted_error final : public FIO_ERRC {
public:
  static constexpr char const* format_text() { return "%s"; }
  static int living;

  explicit counted_error(boost::format const& formatted) : FIO_ERRC(formatted) { ++living; }
  counted_error(counted_error const& other) : FIO_ERRC(other) { ++living; }
  counted_error& operator=(counted_error const&) = delete;
  ~counted_error() override { --living; }
  std::unique_ptr<KORVANE_ERRC> clone() const override { return std::make_unique<counted_error>(*this); }
};

int counted_error::living = 0;

class two_arguments_error final : public FIO_ERRC {
public:
  static constexpr char const* format_text() { return "%s before %s"; }
  using FIO_ERRC::FIO_ERRC;
  std::unique_ptr<KORVANE_ERRC> clone() const override { return std::make_unique<two_arguments_error>(*this); }
};

template <typename Code>
std::unique_ptr<FIO_ERRC> error_of(std::string const& path) {
  return make_korvane_error<Code>(path);
}

using factory = std::unique_ptr<FIO_ERRC> (*)(std::string const&);

struct code_row {
  factory make;
  std::type_info const* type;
  char const* before;
  char const* after;
};

code_row const codes[] = {
    {error_of<NOT_A_DIRECTORY_ERRC>, &typeid(NOT_A_DIRECTORY_ERRC), "The given path \"",
     "\" is not a valid directory."},
    {error_of<FAILED_TO_OPEN_DIRECTORY_ERRC>, &typeid(FAILED_TO_OPEN_DIRECTORY_ERRC), "Failed to open \"",
     "\" as a directory."},
    {error_of<FAILED_TO_REMOVE_DIRECTORY_ERRC>, &typeid(FAILED_TO_REMOVE_DIRECTORY_ERRC),
     "Failed to remove directory \"", "\"."},
};

std::string const paths[] = {
    "/tmp/x",       "",
    "a%sb",         "%",
    "%%",           "%1%",
    "%2%",          "%d%n%s",
    "100%",         "%|1$s|",
    "a b",          "a\nb",
    "a\tb",         "\"",
    "a\"b\"c",      "a\\b",
    "\xff\xfe",     std::string("a\0b", 3),
    repeated(1023), repeated(100000),
};

class type_of_object {
public:
  explicit type_of_object(KORVANE_ERRC const& object) : m_type(typeid(object)) {}
  std::type_info const& get() const { return m_type; }

private:
  std::type_info const& m_type;
};

message_line line(std::string const& text, int indent, std::string const& aux = {}, int code = -1) {
  message_line result;
  result.m_text = text;
  result.m_aux_text = aux;
  result.m_code = code;
  result.m_indent = indent;
  return result;
}

KORVANE_ERROR_MESSAGE message_of(std::vector<message_line> const& lines) {
  KORVANE_ERROR_MESSAGE message;
  message.m_lines.assign(lines.begin(), lines.end());
  return message;
}

// Lines without texts, of these depths.
KORVANE_ERROR_MESSAGE message_of_depths(std::vector<int> const& depths) {
  KORVANE_ERROR_MESSAGE message;
  for (int const depth : depths) {
    message.m_lines.push_back(line("", depth));
  }
  return message;
}

std::vector<int> depths_of(KORVANE_ERROR_MESSAGE const& message) {
  std::vector<int> depths;
  for (message_line const& each : message.m_lines) {
    depths.push_back(each.m_indent);
  }
  return depths;
}

// All that a line holds, as one text.
std::vector<std::string> described(KORVANE_ERROR_MESSAGE const& message) {
  std::vector<std::string> result;
  for (message_line const& each : message.m_lines) {
    result.push_back(each.m_text + '|' + each.m_aux_text + '|' + std::to_string(each.m_code) + '|' +
                     std::to_string(each.m_indent));
  }
  return result;
}

using descriptions = std::vector<std::string>;

template <typename Operation>
long allocations_of(Operation operation) {
  allocation_failure const counting(LONG_MAX);
  operation();
  return counting.asked_for();
}

// Where a virtual operation stands in the table of its class, as the ABI of the platform writes it: the offset of the slot,
// to which most processors add one as the mark of a virtual operation. ARM has the mark elsewhere.
template <typename Operation>
std::uintptr_t slot_of(Operation operation) {
  std::uintptr_t number = 0;
  std::memcpy(&number, &operation, sizeof number);
  return number / sizeof(void*);
}

} // namespace

// Codes

// An error does not change once made, and is handed over only to a pointer to a base of it.
static_assert(!std::is_copy_assignable_v<FIO::ERRC::NOT_A_DIRECTORY_ERRC>);
static_assert(!std::is_copy_assignable_v<FIO::ERRC::FAILED_TO_OPEN_DIRECTORY_ERRC>);
static_assert(!std::is_copy_assignable_v<FIO::ERRC::FAILED_TO_REMOVE_DIRECTORY_ERRC>);
static_assert(!std::is_copy_assignable_v<FIO_ERRC>);
static_assert(std::is_convertible_v<KORVANE_ERROR<FIO::ERRC::NOT_A_DIRECTORY_ERRC>, std::unique_ptr<FIO_ERRC>>);
static_assert(!std::is_convertible_v<KORVANE_ERROR<FIO::ERRC::NOT_A_DIRECTORY_ERRC>, std::unique_ptr<int>>);

TEST_F(error_value, a_message_is_one_line_with_the_path_in_the_text_of_its_code) {
  for (code_row const& row : codes) {
    for (std::string const& path : paths) {
      SCOPED_TRACE(row.before + path);
      std::unique_ptr<FIO_ERRC> const error = row.make(path);
      ASSERT_NE(error, nullptr);
      KORVANE_ERROR_MESSAGE const message = error->message();
      ASSERT_EQ(message.m_lines.size(), 1u);
      EXPECT_EQ(message.m_lines[0].m_text, row.before + path + row.after);
      EXPECT_EQ(message.m_lines[0].m_aux_text, "");
      EXPECT_EQ(message.m_lines[0].m_code, -1);
      EXPECT_EQ(message.m_lines[0].m_indent, 0);
      EXPECT_EQ(type_of_object(*error).get(), *row.type);
    }
  }
  EXPECT_EQ(messages(), descriptions());
}

TEST_F(error_value, texts_are_told_word_for_word) {
  struct {
    factory make;
    char const* path;
    char const* text;
  } const rows[] = {
      {error_of<NOT_A_DIRECTORY_ERRC>, "/tmp/x", "The given path \"/tmp/x\" is not a valid directory."},
      {error_of<NOT_A_DIRECTORY_ERRC>, "", "The given path \"\" is not a valid directory."},
      {error_of<FAILED_TO_OPEN_DIRECTORY_ERRC>, "a%sb", "Failed to open \"a%sb\" as a directory."},
      {error_of<FAILED_TO_OPEN_DIRECTORY_ERRC>, "%1%%2%", "Failed to open \"%1%%2%\" as a directory."},
      {error_of<FAILED_TO_REMOVE_DIRECTORY_ERRC>, "", "Failed to remove directory \"\"."},
      {error_of<FAILED_TO_REMOVE_DIRECTORY_ERRC>, "a\nb", "Failed to remove directory \"a\nb\"."},
  };
  for (auto const& row : rows) {
    EXPECT_EQ(row.make(row.path)->message().m_lines[0].m_text, row.text) << row.path;
  }
}

TEST_F(error_value, the_errors_of_the_library_have_the_words_that_the_factory_makes) {
  std::vector<std::string> all_paths = {""};
  for (std::size_t i = 0; i != all_paths.size() && all_paths[i].size() != 4; ++i) {
    for (char const character : std::string("%s1$ \xff\0", 7)) {
      all_paths.push_back(all_paths[i] + character);
    }
  }
  all_paths.push_back(repeated(3000));
  for (std::string const& path : all_paths) {
    std::unique_ptr<FIO_ERRC> const own = FIO_FILE_SYSTEM::remove_empty_subdirectories(path, true);
    ASSERT_NE(dynamic_cast<FIO::ERRC::NOT_A_DIRECTORY_ERRC*>(own.get()), nullptr) << path;
    std::unique_ptr<FIO_ERRC> const made = make_korvane_error<FIO::ERRC::NOT_A_DIRECTORY_ERRC>(path);
    ASSERT_EQ(own->message().m_lines.size(), 1u);
    ASSERT_EQ(own->message().m_lines[0].m_text, made->message().m_lines[0].m_text);
    ASSERT_EQ(own->message().m_lines[0].m_aux_text, made->message().m_lines[0].m_aux_text);
    ASSERT_EQ(own->message().m_lines[0].m_code, made->message().m_lines[0].m_code);
    ASSERT_EQ(own->message().m_lines[0].m_indent, made->message().m_lines[0].m_indent);
  }
}

TEST_F(error_value, a_literal_serves_as_an_argument) {
  EXPECT_EQ(make_korvane_error<NOT_A_DIRECTORY_ERRC>("/tmp/x")->message().m_lines[0].m_text,
            "The given path \"/tmp/x\" is not a valid directory.");
}

TEST_F(error_value, virtual_operations_stand_in_a_fixed_order) {
  // The destructor takes two slots between them.
  EXPECT_EQ(slot_of(&KORVANE_ERRC::clone), 0u);
  EXPECT_EQ(slot_of(&KORVANE_ERRC::message), 3u);
  EXPECT_EQ(slot_of(&FIO_ERRC::clone), 0u);
  EXPECT_EQ(slot_of(&FIO_ERRC::message), 3u);
  EXPECT_EQ(slot_of(&NOT_A_DIRECTORY_ERRC::clone), 0u);
  EXPECT_EQ(slot_of(&NOT_A_DIRECTORY_ERRC::message), 3u);
}

// Copies

TEST_F(error_value, a_clone_has_the_class_and_the_words_of_its_origin) {
  for (code_row const& row : codes) {
    for (std::string const& path : paths) {
      SCOPED_TRACE(row.before + path);
      std::unique_ptr<FIO_ERRC> error = row.make(path);
      descriptions const words = described(error->message());
      auto const clone = error->clone();
      ASSERT_NE(clone, nullptr);
      EXPECT_NE(clone.get(), error.get());
      EXPECT_EQ(type_of_object(*clone).get(), *row.type);
      EXPECT_EQ(described(clone->message()), words);
      error.reset();
      EXPECT_EQ(described(clone->message()), words) << "after the origin went";
      auto const second = clone->clone();
      EXPECT_EQ(type_of_object(*second).get(), *row.type);
      EXPECT_EQ(described(second->message()), words);
    }
  }
}

TEST_F(error_value, what_is_done_to_a_message_stays_with_the_copy) {
  std::unique_ptr<FIO_ERRC> const error = error_of<NOT_A_DIRECTORY_ERRC>("a");
  auto const clone = error->clone();
  descriptions const words = {"The given path \"a\" is not a valid directory.||-1|0"};
  KORVANE_ERROR_MESSAGE message = error->message();
  message.m_lines[0] = line("other", 3, "aux", 7);
  message.m_lines.push_back(line("more", 1));
  EXPECT_EQ(described(error->message()), words);
  EXPECT_EQ(described(clone->message()), words);
  clone->message().m_lines.clear();
  EXPECT_EQ(described(clone->message()), words);
  EXPECT_EQ(described(message), (descriptions{"other|aux|7|3", "more||-1|1"}));
}

// Ownership

TEST_F(error_value, ownership_goes_from_the_factory_to_a_pointer_to_the_base) {
  ASSERT_EQ(counted_error::living, 0);
  {
    KORVANE_ERROR<counted_error> made = make_korvane_error<counted_error>("a");
    counted_error const* const object = &*made;
    EXPECT_EQ(made.operator->(), object);
    EXPECT_EQ(counted_error::living, 1);
    std::unique_ptr<FIO_ERRC> owner = std::move(made);
    EXPECT_EQ(owner.get(), object) << "the object itself is handed over";
    EXPECT_EQ(made.operator->(), nullptr) << "one owner at all times"; // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(counted_error::living, 1);
    auto clone = owner->clone();
    EXPECT_EQ(counted_error::living, 2);
    owner.reset();
    EXPECT_EQ(counted_error::living, 1) << "a pointer to the base destroys the whole error";
    clone.reset();
    EXPECT_EQ(counted_error::living, 0);
    std::unique_ptr<KORVANE_ERRC> const root = make_korvane_error<counted_error>("b");
    EXPECT_EQ(counted_error::living, 1);
    EXPECT_EQ(described(root->message()), descriptions{"b||-1|0"});
  }
  EXPECT_EQ(counted_error::living, 0);
}

TEST_F(error_value, an_error_that_nobody_takes_goes_with_the_result) {
  make_korvane_error<counted_error>("a");
  EXPECT_EQ(counted_error::living, 0);
}

// Nesting

TEST_F(error_value, nesting_appends_lines_and_deepens_all_but_the_first) {
  struct {
    std::vector<int> own;
    std::vector<std::vector<int>> nested;
    std::vector<int> expected;
  } const rows[] = {
      {{0}, {}, {0}},
      {{0}, {{}}, {0}},
      {{0}, {{0}}, {0, 1}},
      {{0}, {{0, 1}}, {0, 1, 2}},
      {{0}, {{0, 1}, {0, 1}}, {0, 1, 2, 1, 2}},
      {{0}, {{0}, {}, {0, 1, 2}}, {0, 1, 1, 2, 3}},
      // Older lines are deepened with the new ones, even if there are none.
      {{0, 1}, {}, {0, 2}},
      {{0, 1}, {{}}, {0, 2}},
      {{0, 1, 2}, {{0}}, {0, 2, 3, 1}},
      {{0, 1, 2, 1, 2}, {}, {0, 2, 3, 2, 3}},
      // The first line of the whole is never deepened, whatever its depth and wherever it comes from.
      {{5}, {}, {5}},
      {{5}, {{7}}, {5, 8}},
      {{}, {}, {}},
      {{}, {{0, 1}}, {0, 2}},
      {{}, {{3}, {3}}, {3, 4}},
  };
  for (auto const& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.own) + " with " + testing::PrintToString(row.nested));
    KORVANE_ERROR_MESSAGE message = message_of_depths(row.own);
    std::vector<KORVANE_ERROR_MESSAGE> nested;
    for (std::vector<int> const& depths : row.nested) {
      nested.push_back(message_of_depths(depths));
    }
    message.unpack_submsgs(nested);
    EXPECT_EQ(depths_of(message), row.expected);
    for (std::size_t i = 0; i < nested.size(); ++i) {
      EXPECT_EQ(depths_of(nested[i]), row.nested[i]) << "what is nested is copied";
    }
  }
}

TEST_F(error_value, nested_lines_keep_their_order_and_all_their_fields) {
  KORVANE_ERROR_MESSAGE message = message_of({line("main", 0, "m", 1)});
  std::vector<KORVANE_ERROR_MESSAGE> const nested = {
      message_of({line("first", 0, "f", 2), line("below first", 1, "bf", -3)}),
      message_of({line("second", 0), line("below second", 1)}),
  };
  message.unpack_submsgs(nested);
  EXPECT_EQ(described(message),
            (descriptions{"main|m|1|0", "first|f|2|1", "below first|bf|-3|2", "second||-1|1", "below second||-1|2"}));
  message.unpack_submsgs(std::vector<KORVANE_ERROR_MESSAGE>());
  EXPECT_EQ(described(message),
            (descriptions{"main|m|1|0", "first|f|2|2", "below first|bf|-3|3", "second||-1|2", "below second||-1|3"}));
}

TEST_F(error_value, a_message_that_is_nested_under_itself_loses_no_words) {
  for (std::size_t count = 1; count != 10; ++count) {
    for (std::size_t const room : {std::size_t{1}, 2 * count, std::size_t{100}}) {
      SCOPED_TRACE(std::to_string(count) + " lines in the room of " + std::to_string(room));
      std::vector<KORVANE_ERROR_MESSAGE> messages(2);
      KORVANE_ERROR_MESSAGE& message = messages[0];
      messages[1] = message_of({line("other", 0)});
      message.m_lines.reserve(room);
      descriptions expected;
      for (std::size_t round = 0; round != 2; ++round) {
        for (std::size_t i = 0; i != count; ++i) {
          // Words of every other line need storage of their own.
          std::string const words = std::to_string(i) + repeated(i % 2 * 100);
          expected.push_back(words + "|aux|7|" + (round + i == 0 ? "0" : "1"));
          if (round == 0) {
            message.m_lines.push_back(line(words, 0, "aux", 7));
          }
        }
      }
      expected.push_back("other||-1|1");
      message.unpack_submsgs(messages);
      EXPECT_EQ(described(message), expected);
      EXPECT_EQ(described(messages[1]), descriptions{"other||-1|0"});
    }
  }
}

// Formats

TEST_F(error_value, an_error_has_the_finished_text_of_any_format) {
  boost::format formatted("%2% of %1%");
  formatted % 3 % "two";
  two_arguments_error const error(formatted);
  EXPECT_EQ(described(error.message()), descriptions{"two of 3||-1|0"});
  EXPECT_EQ(formatted.str(), "two of 3") << "the format object is only read";
  EXPECT_EQ(make_korvane_error<two_arguments_error>(std::string("%s"), 4)->message().m_lines[0].m_text, "%s before 4");
}

TEST_F(error_value, a_wrong_number_of_arguments_is_the_format_layers_exception) {
  EXPECT_THROW(make_korvane_error<two_arguments_error>("a"), boost::io::too_few_args);
  EXPECT_THROW(make_korvane_error<two_arguments_error>("a", "b", "c"), boost::io::too_many_args);
  EXPECT_THROW(make_korvane_error<counted_error>("a", "b"), boost::io::too_many_args);
  EXPECT_EQ(counted_error::living, 0);
}

TEST_F(error_value, a_null_string_is_refused_and_is_no_lack_of_memory) {
  EXPECT_THROW(make_korvane_error<counted_error>(static_cast<char const*>(nullptr)), std::logic_error);
  EXPECT_THROW(make_korvane_error<counted_error>(static_cast<char*>(nullptr)), std::logic_error);
  EXPECT_THROW(make_korvane_error<counted_error>(static_cast<signed char const*>(nullptr)), std::logic_error);
  EXPECT_THROW(make_korvane_error<counted_error>(static_cast<unsigned char const*>(nullptr)), std::logic_error);
  EXPECT_THROW(make_korvane_error<two_arguments_error>("a", static_cast<char const*>(nullptr)), std::logic_error);
  EXPECT_EQ(counted_error::living, 0);
  EXPECT_EQ(make_korvane_error<counted_error>(static_cast<void const*>(nullptr))->message().m_lines[0].m_text, "0")
      << "an address is not a string";
}

// Storage

TEST_F(error_value, one_line_needs_no_storage_for_the_list) {
  KORVANE_ERROR_MESSAGE const one_line = message_of({line("short", 0)});
  EXPECT_EQ(allocations_of([&] { KORVANE_ERROR_MESSAGE const copy = one_line; }), 0);
  EXPECT_EQ(one_line.m_lines.capacity(), 1u);
  KORVANE_ERROR_MESSAGE const two_lines = message_of({line("short", 0), line("other", 1)});
  EXPECT_EQ(allocations_of([&] { KORVANE_ERROR_MESSAGE const copy = two_lines; }), 1);
  boost::format const formatted("short");
  counted_error const error(formatted);
  EXPECT_EQ(allocations_of([&] { error.message(); }), 0);
  EXPECT_EQ(allocations_of([&] { error.clone(); }), 1) << "the error itself";
}

TEST_F(error_value, the_only_storage_is_the_error_and_a_long_text) {
  for (code_row const& row : codes) {
    SCOPED_TRACE(row.before);
    std::unique_ptr<FIO_ERRC> const error = row.make("a");
    EXPECT_EQ(allocations_of([&] { error->message(); }), 1);
    EXPECT_EQ(allocations_of([&] { error->clone(); }), 2);
  }
}

TEST_F(error_value, the_finished_text_is_taken_over_without_a_copy) {
  for (std::size_t const length : {std::size_t{3}, std::size_t{100}, std::size_t{5000}}) {
    boost::format formatted("%s");
    formatted % repeated(length);
    long const finishing = allocations_of([&] { formatted.str(); });
    EXPECT_EQ(allocations_of([&] { counted_error const error(formatted); }), finishing) << length;
  }
}

TEST_F(error_value, lack_of_memory_leaves_nothing_behind) {
  bool enough = false;
  long failures = 0;
  for (; !enough && failures != 100; failures += enough ? 0 : 1) {
    {
      allocation_failure const failing(failures + 1);
      try {
        make_korvane_error<counted_error>("a path that is too long for the room in a text object");
        enough = true;
      } catch (std::bad_alloc const&) {
      }
    }
    EXPECT_EQ(counted_error::living, 0) << failures;
  }
  EXPECT_TRUE(enough);
  EXPECT_GE(failures, 2);
}

TEST_F(error_value, lack_of_memory_never_cuts_the_words) {
  std::string const path = repeated(700);
  bool enough = false;
  for (long failures = 0; !enough && failures != 100; ++failures) {
    allocation_failure const failing(failures + 1);
    try {
      auto const error = make_korvane_error<FIO::ERRC::NOT_A_DIRECTORY_ERRC>(path);
      enough = true;
      EXPECT_EQ(error->message().m_lines[0].m_text, "The given path \"" + path + "\" is not a valid directory.");
    } catch (std::bad_alloc const&) {
    }
  }
  EXPECT_TRUE(enough);
}
