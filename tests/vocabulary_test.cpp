#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <climits>
#include <cstring>
#include <list>
#include <map>
#include <new>
#include <set>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

#include "ccl/fio/fio_extension_type_info.h"
#include "ccl/fio/fio_file_ext_type_info.h"
#include "ccl/fio/fio_file_type_info.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/ever_more_memory.h"
#include "tests/support/platform_double.h"
#include "tests/support/scratch.h"
#include "tests/vocabulary_expected.h"

namespace {

using integers = std::vector<int>;
using texts = std::vector<std::string>;
using vocabulary::extensions;
using vocabulary::file_types;

class vocabulary_queries : public fio_test {};

// Asked before any test runs, by a static constructor.
std::string const early = fio_get_default_extension_string(FIO_FILE_TYPE_VHDL_FILE);

FIO_FILE_TYPE file_type(int value) { return static_cast<FIO_FILE_TYPE>(value); }
FIO_EXTENSION_TYPE extension_type(int value) { return static_cast<FIO_EXTENSION_TYPE>(value); }
FIO_EDITOR_TYPE editor_type(std::uint32_t value) { return static_cast<FIO_EDITOR_TYPE>(value); }
FIO_FILE_TYPE_FLAG file_type_flag(std::uint32_t value) {
  return static_cast<FIO_FILE_TYPE_FLAG>(static_cast<std::int32_t>(value));
}
FIO_EXTENSION_TYPE_FLAG extension_type_flag(std::uint32_t value) {
  return static_cast<FIO_EXTENSION_TYPE_FLAG>(static_cast<std::int32_t>(value));
}

constexpr std::uint32_t all_bits = 0xFFFFFFFF;

// Far more values than the enumerations have: all known ones, those around them and around the numbers of rows, and
// the ends of the range.
integers asked_values() {
  integers values = {SHRT_MIN, SHRT_MIN + 1, -1000, SHRT_MAX - 1, SHRT_MAX};
  for (int value = -300; value <= 600; ++value) {
    values.push_back(value);
  }
  return values;
}

// The values that no file type has, and those that no extension type has, next to the known ones and far from them.
constexpr int unknown_file_types[] = {-1, -2, 246, 247, 282, 283, 297, 298, 299, SHRT_MIN, SHRT_MAX};
constexpr int unknown_extension_types[] = {-1, -2, 283, 284, 297, 298, 299, SHRT_MIN, SHRT_MAX};

bool same_class(_GUID const& left, _GUID const& right) { return std::memcmp(&left, &right, sizeof left) == 0; }

// The first answer other than 0 among the rows that fit, from row 0 on.
template <typename Rows, typename Fits, typename Answer>
int first_answer(Rows const& rows, Fits fits, Answer answer) {
  for (auto const& row : rows) {
    if (fits(row) && answer(row) != 0) {
      return answer(row);
    }
  }
  return 0;
}

int extension_of(vocabulary::extension_row const& row) { return row.extension_type; }
int type_of(vocabulary::extension_row const& row) { return row.file_type; }
bool is_default(vocabulary::extension_row const& row) { return (row.traits & 2) != 0; }

std::int64_t traits_of(int type) {
  return type >= 0 && type < vocabulary::file_type_count ? file_types[type].traits : 0;
}

int default_extension_of(int type) {
  return first_answer(
      extensions, [type](auto const& row) { return row.file_type == type && is_default(row); }, extension_of);
}

std::string text_of(int extension) {
  for (auto const& row : extensions) {
    if (row.extension_type == extension) {
      return row.text;
    }
  }
  return {};
}

int file_type_of(int extension) {
  auto const fits = [extension](auto const& row) { return row.extension_type == extension; };
  int const by_default = first_answer(
      extensions, [fits](auto const& row) { return fits(row) && is_default(row); }, type_of);
  return by_default != 0 ? by_default : first_answer(extensions, fits, type_of);
}

int file_type_of(_GUID const& clsid) {
  return first_answer(
      file_types, [&clsid](auto const& row) { return same_class(*vocabulary::document_classes[row.file_type], clsid); },
      [](auto const& row) { return row.file_type; });
}

int first_with_text(std::string const& text) {
  return first_answer(
      extensions, [&text](auto const& row) { return text == row.text; }, extension_of);
}

std::string lower_case(std::string text) {
  for (char& character : text) {
    character = character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
  }
  return text;
}

std::string upper_case(std::string text) {
  for (char& character : text) {
    character = character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
  }
  return text;
}

// The lookup of a name by hand. What follows the last dot of the file name counts; a name without a dot there, or one
// that is too long to be a path, counts as a whole.
int extension_by_hand(std::string const& name) {
  std::string const path = std::strlen(name.c_str()) <= 1023 ? name.c_str() : "";
  std::string const file = path.substr(path.find_last_of("/\\") + 1);
  std::size_t const dot = file.rfind('.');
  std::string text = dot == std::string::npos ? name : file.substr(dot + 1);
  if (text.empty()) {
    return 0;
  }
  if (text.front() != '.') {
    text.insert(0, 1, '.');
  }
  return first_with_text(lower_case(text));
}

template <typename Value>
integers as_integers(std::list<Value> const& values) {
  return integers(values.begin(), values.end());
}

integers extension_list(int extension, int type) {
  std::list<FIO_EXTENSION_TYPE> list;
  fio_get_extension_type_list(&list, extension_type(extension), file_type(type));
  return as_integers(list);
}

integers file_type_list(int type, std::uint32_t editor, long traits) {
  std::list<FIO_FILE_TYPE> list;
  fio_get_file_type_list(&list, file_type(type), editor_type(editor), traits);
  return as_integers(list);
}

integers extensions_with_trait(std::uint32_t flag) {
  std::list<FIO_EXTENSION_TYPE> list;
  fio_get_list_of_extensions_valid_for_trait(extension_type_flag(flag), &list);
  return as_integers(list);
}

template <typename Fits>
integers expected_extensions(Fits fits) {
  integers values;
  for (auto const& row : extensions) {
    if (fits(row)) {
      values.push_back(row.extension_type);
    }
  }
  return values;
}

template <typename Fits>
integers expected_file_types(Fits fits) {
  integers values;
  for (auto const& row : file_types) {
    if (fits(row)) {
      values.push_back(row.file_type);
    }
  }
  return values;
}

integers count_from_zero(int end) {
  integers values;
  for (int value = 0; value != end; ++value) {
    values.push_back(value);
  }
  return values;
}

// All that the table of texts answers for a value, a null text told from an empty one.
template <std::size_t size>
std::string expected_text(vocabulary::named_value const (&table)[size], std::uint32_t value) {
  for (auto const& entry : table) {
    if (entry.value == value) {
      return entry.text;
    }
  }
  return "(null)";
}

std::string text_or_null(char const* text) { return text != nullptr ? text : "(null)"; }

// Every value with no bit, one bit or two bits, those beside them, and those with all bits but one.
std::set<std::uint32_t> bit_patterns() {
  std::set<std::uint32_t> patterns = {0, all_bits};
  for (std::uint32_t high = 1; high != 0; high <<= 1) {
    patterns.insert({high, high - 1, high + 1, all_bits - high});
    for (std::uint32_t low = 1; low != high; low <<= 1) {
      patterns.insert(high | low);
    }
  }
  return patterns;
}

template <typename Call>
void expect_internal_error(Call call, std::string const& condition) {
  SCOPED_TRACE(condition);
  try {
    call();
    ADD_FAILURE() << "no internal error";
  } catch (platform_double::internal_error const& error) {
    EXPECT_EQ(error.condition, condition);
    EXPECT_EQ(error.module, "FIO");
    EXPECT_EQ(error.file, "ccl/fio/fio_file_ext_type_info.cpp");
    EXPECT_GT(error.line, 0);
  }
}

} // namespace

// The interface

static_assert(std::is_same_v<std::underlying_type_t<FIO_FILE_TYPE>, short>);
static_assert(std::is_same_v<std::underlying_type_t<FIO_EXTENSION_TYPE>, short>);
static_assert(std::is_same_v<std::underlying_type_t<FIO_EDITOR_TYPE>, unsigned>);
static_assert(std::is_same_v<std::underlying_type_t<FIO_FILE_TYPE_FLAG>, int>);
static_assert(std::is_same_v<std::underlying_type_t<FIO_EXTENSION_TYPE_FLAG>, int>);
static_assert(std::is_convertible_v<FIO_FILE_TYPE, int> && std::is_convertible_v<FIO_EXTENSION_TYPE, int>);
static_assert(std::is_empty_v<FIO_FILE_TYPE_INFO> && std::is_empty_v<FIO_EXTENSION_TYPE_INFO>);
static_assert(!std::is_default_constructible_v<FIO_FILE_TYPE_INFO> && !std::is_aggregate_v<FIO_FILE_TYPE_INFO>);
static_assert(!std::is_default_constructible_v<FIO_EXTENSION_TYPE_INFO> &&
              !std::is_aggregate_v<FIO_EXTENSION_TYPE_INFO>);

static_assert(std::is_same_v<decltype(fio_empty_result_value), char const*>);
static_assert(std::is_same_v<decltype(fio_get_file_type_name), char const*(FIO_FILE_TYPE)>);
static_assert(std::is_same_v<decltype(fio_get_file_description), char const*(FIO_FILE_TYPE)>);
static_assert(std::is_same_v<decltype(fio_get_editor_type), FIO_EDITOR_TYPE(FIO_FILE_TYPE)>);
static_assert(std::is_same_v<decltype(fio_test_trait_of), bool(FIO_FILE_TYPE, FIO_FILE_TYPE_FLAG)>);
static_assert(std::is_same_v<decltype(fio_get_default_extension_type), FIO_EXTENSION_TYPE(FIO_FILE_TYPE)>);
static_assert(std::is_same_v<decltype(fio_get_default_extension_string), char const*(FIO_FILE_TYPE)>);
static_assert(std::is_same_v<decltype(fio_get_extension_string), char const*(FIO_EXTENSION_TYPE)>);
static_assert(std::is_same_v<decltype(fio_get_extension_type), FIO_EXTENSION_TYPE(std::string const&)>);
static_assert(std::is_same_v<decltype(fio_get_editor_type_string), char const*(FIO_EDITOR_TYPE)>);
static_assert(std::is_same_v<decltype(fio_get_file_type_trait_string), char const*(FIO_FILE_TYPE_FLAG)>);
static_assert(std::is_same_v<decltype(fio_get_extension_type_trait_string), char const*(FIO_EXTENSION_TYPE_FLAG)>);
[[maybe_unused]] constexpr FIO_FILE_TYPE (*file_type_by_extension)(FIO_EXTENSION_TYPE) = &fio_get_file_type;
[[maybe_unused]] constexpr FIO_FILE_TYPE (*file_type_by_name)(std::string const&) = &fio_get_file_type;
[[maybe_unused]] constexpr FIO_FILE_TYPE (*file_type_by_class)(_GUID const&) = &fio_get_file_type;

static_assert(std::is_same_v<decltype(fio_get_extension_type_list),
                             void(std::list<FIO_EXTENSION_TYPE>*, FIO_EXTENSION_TYPE, FIO_FILE_TYPE)>);
static_assert(std::is_same_v<decltype(fio_get_file_type_list),
                             void(std::list<FIO_FILE_TYPE>*, FIO_FILE_TYPE, FIO_EDITOR_TYPE, long)>);
static_assert(std::is_same_v<decltype(fio_get_list_of_extensions_valid_for_trait),
                             void(FIO_EXTENSION_TYPE_FLAG, std::list<FIO_EXTENSION_TYPE>*)>);

static_assert(std::is_same_v<decltype(FIO_FILE_TYPE_INFO::get_file_type_list),
                             void(std::list<FIO_FILE_TYPE>*, FIO_FILE_TYPE, FIO_EDITOR_TYPE, long)>);
static_assert(std::is_same_v<decltype(FIO_FILE_TYPE_INFO::get_file_type_name), std::string(FIO_FILE_TYPE)>);
static_assert(std::is_same_v<decltype(FIO_FILE_TYPE_INFO::get_file_description), std::string(FIO_FILE_TYPE)>);
static_assert(std::is_same_v<decltype(FIO_FILE_TYPE_INFO::get_editor_type), FIO_EDITOR_TYPE(FIO_FILE_TYPE)>);
static_assert(std::is_same_v<decltype(FIO_FILE_TYPE_INFO::is_design_file), bool(FIO_FILE_TYPE)>);
[[maybe_unused]] constexpr FIO_FILE_TYPE (*member_by_name)(std::string const&) = &FIO_FILE_TYPE_INFO::get_file_type;
[[maybe_unused]] constexpr FIO_FILE_TYPE (*member_by_class)(_GUID const&) = &FIO_FILE_TYPE_INFO::get_file_type;

static_assert(std::is_same_v<decltype(FIO_EXTENSION_TYPE_INFO::get_extension_type_list),
                             void(std::list<FIO_EXTENSION_TYPE>*, FIO_EXTENSION_TYPE, FIO_FILE_TYPE, long)>);
static_assert(
    std::is_same_v<decltype(FIO_EXTENSION_TYPE_INFO::get_default_extension_type), FIO_EXTENSION_TYPE(FIO_FILE_TYPE)>);
static_assert(std::is_same_v<decltype(FIO_EXTENSION_TYPE_INFO::get_extension_string), std::string(FIO_EXTENSION_TYPE)>);
static_assert(
    std::is_same_v<decltype(FIO_EXTENSION_TYPE_INFO::get_extension_type), FIO_EXTENSION_TYPE(std::string const&)>);
static_assert(std::is_same_v<decltype(FIO_EXTENSION_TYPE_INFO::get_file_type), FIO_FILE_TYPE(FIO_EXTENSION_TYPE)>);

// The names of the values

TEST_F(vocabulary_queries, the_names_of_the_file_types_stand_for_the_rows_of_their_descriptions) {
  for (int value = 0; value != vocabulary::file_type_count; ++value) {
    EXPECT_EQ(vocabulary::file_type_names[value], value) << file_types[value].description;
  }
  EXPECT_EQ(FIO_FILE_TYPE_ANY, -1);
}

TEST_F(vocabulary_queries, the_names_of_the_extension_types_stand_for_their_texts) {
  for (int value = 0; value != vocabulary::extension_type_count; ++value) {
    EXPECT_EQ(vocabulary::extension_type_names[value], value) << text_of(value);
  }
  EXPECT_EQ(FIO_EXTENSION_TYPE_ANY, -1);
}

TEST_F(vocabulary_queries, the_names_of_the_traits_and_editors_stand_for_their_texts) {
  std::size_t i = 0;
  for (auto const& entry : vocabulary::editor_texts) {
    EXPECT_EQ(static_cast<std::uint32_t>(vocabulary::editor_names[i++]), entry.value) << entry.text;
  }
  i = 0;
  for (auto const& entry : vocabulary::file_type_trait_texts) {
    EXPECT_EQ(vocabulary::file_type_trait_names[i++], file_type_flag(entry.value)) << entry.text;
  }
  i = 0;
  for (auto const& entry : vocabulary::extension_trait_texts) {
    EXPECT_EQ(vocabulary::extension_trait_names[i++], extension_type_flag(entry.value)) << entry.text;
  }
}

// Queries by file type

TEST_F(vocabulary_queries, each_file_type_has_its_name_editor_and_traits) {
  for (auto const& row : file_types) {
    SCOPED_TRACE(row.file_type);
    FIO_FILE_TYPE const type = file_type(row.file_type);
    EXPECT_STREQ(fio_get_file_type_name(type), row.description);
    EXPECT_EQ(fio_get_editor_type(type), editor_type(row.editor_type));
    for (std::uint32_t const flag : bit_patterns()) {
      EXPECT_EQ(fio_test_trait_of(type, file_type_flag(flag)), (row.traits & flag) != 0) << flag;
    }
  }
}

TEST_F(vocabulary_queries, a_file_type_with_the_trait_of_other_files_is_described_as_other) {
  constexpr int others[] = {0,   66,  67,  68,  111, 112, 113, 114, 115, 128, 129, 130,
                            131, 132, 133, 134, 135, 137, 139, 140, 211, 212, 213, 244};
  std::set<int> const expected(std::begin(others), std::end(others));
  EXPECT_EQ(expected.size(), 24U);
  for (auto const& row : file_types) {
    FIO_FILE_TYPE const type = file_type(row.file_type);
    EXPECT_STREQ(fio_get_file_description(type), expected.count(type) != 0 ? "Other" : row.description) << type;
  }
  EXPECT_STREQ(fio_get_file_type_name(FIO_FILE_TYPE_STANDARD_DELAY_FORMAT_FILE), "Standard Delay Format File");
  EXPECT_STREQ(fio_get_file_description(FIO_FILE_TYPE_STANDARD_DELAY_FORMAT_FILE), "Other");
  EXPECT_STREQ(fio_get_file_type_name(FIO_FILE_TYPE_TAR_FILE), "TAR File");
  EXPECT_STREQ(fio_get_file_description(FIO_FILE_TYPE_TAR_FILE), "Other");
  EXPECT_STREQ(fio_get_file_type_name(FIO_FILE_TYPE_INVALID), "Invalid file type");
  EXPECT_STREQ(fio_get_file_description(FIO_FILE_TYPE_INVALID), "Other");
}

TEST_F(vocabulary_queries, the_second_group_of_other_files_does_not_hide_a_name) {
  EXPECT_TRUE(fio_test_trait_of(FIO_FILE_TYPE_TEXT_FILE, FIO_FILE_TYPE_FLAG_OTHER_FILES_GROUP));
  EXPECT_STREQ(fio_get_file_description(FIO_FILE_TYPE_TEXT_FILE), "Text File");
}

TEST_F(vocabulary_queries, the_default_extension_is_the_first_row_of_the_type_that_is_marked_so) {
  for (int const type : asked_values()) {
    SCOPED_TRACE(type);
    int const expected = default_extension_of(type);
    EXPECT_EQ(fio_get_default_extension_type(file_type(type)), expected);
    EXPECT_EQ(fio_get_default_extension_string(file_type(type)), text_of(expected));
  }
}

TEST_F(vocabulary_queries, the_default_extension_is_settled_where_several_rows_compete) {
  struct row {
    FIO_FILE_TYPE type;
    FIO_EXTENSION_TYPE extension;
    char const* text;
  };
  constexpr row rows[] = {
      {FIO_FILE_TYPE_VHDL_FILE, FIO_EXTENSION_TYPE_VHD, ".vhd"},
      // three types have more than one
      {FIO_FILE_TYPE_SYNTHESIS_FILE, FIO_EXTENSION_TYPE_MAP, ".map"},
      {FIO_FILE_TYPE_DATABASE_FILE_FOR_THE_KPT_XML_FORMAT, FIO_EXTENSION_TYPE_KPT, ".kpt"},
      {FIO_FILE_TYPE_DESIGN_ASSISTANT_CUSTOM_RULES_FILES, FIO_EXTENSION_TYPE_DACR, ".dacr"},
      // an extension may be the default of some of its types only
      {FIO_FILE_TYPE_VERILOG_HDL_FILE, FIO_EXTENSION_TYPE_V, ".v"},
      {FIO_FILE_TYPE_SYSTEMVERILOG_HDL_FILE, FIO_EXTENSION_TYPE_SV, ".sv"},
      {FIO_FILE_TYPE_VERILOG_INCLUDE_FILE, FIO_EXTENSION_TYPE_V, ".v"},
      // the default need not be the first row
      {FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_FILE_KPTC, FIO_EXTENSION_TYPE_KPTC, ".kptc"},
      // the second of two extension types with one text
      {FIO_FILE_TYPE_CPP_SOURCE_FILE, FIO_EXTENSION_TYPE_CPP, ".cpp"},
      {FIO_FILE_TYPE_POWER_AND_THERMAL_CALCULATOR_NG_FILE, FIO_EXTENSION_TYPE_PTCNG_PTC, ".ptc"},
      // no row is marked
      {FIO_FILE_TYPE_KORVANE_REPORT_DATABASE_FILE, FIO_EXTENSION_TYPE_INVALID, "."},
      {FIO_FILE_TYPE_INVALID, FIO_EXTENSION_TYPE_INVALID, "."},
      {FIO_FILE_TYPE_ANY, FIO_EXTENSION_TYPE_INVALID, "."},
  };
  for (row const& each : rows) {
    SCOPED_TRACE(each.type);
    EXPECT_EQ(fio_get_default_extension_type(each.type), each.extension);
    EXPECT_STREQ(fio_get_default_extension_string(each.type), each.text);
  }
}

TEST_F(vocabulary_queries, ten_file_types_have_no_default_extension) {
  integers without;
  for (int type = 1; type != vocabulary::file_type_count; ++type) {
    if (fio_get_default_extension_type(file_type(type)) == 0) {
      without.push_back(type);
      EXPECT_STREQ(fio_get_default_extension_string(file_type(type)), ".") << type;
    }
  }
  EXPECT_EQ(without, (integers{38, 118, 193, 194, 197, 198, 201, 203, 210, 215}));
}

TEST_F(vocabulary_queries, an_unknown_file_type_has_neutral_answers) {
  for (int const value : unknown_file_types) {
    SCOPED_TRACE(value);
    FIO_FILE_TYPE const type = file_type(value);
    EXPECT_EQ(static_cast<void const*>(fio_get_file_type_name(type)), fio_empty_result_value);
    EXPECT_EQ(static_cast<void const*>(fio_get_file_description(type)), fio_empty_result_value);
    EXPECT_EQ(fio_get_editor_type(type), FIO_EDITOR_TYPE_NONE);
    EXPECT_EQ(fio_get_default_extension_type(type), FIO_EXTENSION_TYPE_INVALID);
    EXPECT_STREQ(fio_get_default_extension_string(type), ".");
    for (std::uint32_t const flag : bit_patterns()) {
      EXPECT_FALSE(fio_test_trait_of(type, file_type_flag(flag))) << flag;
    }
  }
  EXPECT_STREQ(fio_empty_result_value, "");
}

TEST_F(vocabulary_queries, only_known_file_types_have_a_name_an_editor_or_a_trait) {
  for (int const type : asked_values()) {
    SCOPED_TRACE(type);
    bool const known = type >= 0 && type < vocabulary::file_type_count;
    EXPECT_STREQ(fio_get_file_type_name(file_type(type)), known ? file_types[type].description : "");
    EXPECT_EQ(fio_get_editor_type(file_type(type)), editor_type(known ? file_types[type].editor_type : 0));
    EXPECT_EQ(fio_test_trait_of(file_type(type), FIO_FILE_TYPE_FLAG_ALL_FILES), traits_of(type) != 0);
  }
}

TEST_F(vocabulary_queries, a_trait_test_wants_one_bit_in_common) {
  struct row {
    FIO_FILE_TYPE type;
    std::uint32_t flag;
    bool expected;
  };
  constexpr row rows[] = {
      {FIO_FILE_TYPE_VHDL_FILE, 2, true},        {FIO_FILE_TYPE_VHDL_FILE, 2 | 8, true},
      {FIO_FILE_TYPE_VHDL_FILE, 8 | 16, false},  {FIO_FILE_TYPE_VHDL_FILE, 0, false},
      {FIO_FILE_TYPE_VHDL_FILE, 1, false},       {FIO_FILE_TYPE_VHDL_FILE, 0x80000000, false},
      {FIO_FILE_TYPE_VHDL_FILE, all_bits, true}, {FIO_FILE_TYPE_IMAGE_FILE, all_bits, false},
      {FIO_FILE_TYPE_INVALID, 128, true},        {FIO_FILE_TYPE_INVALID, all_bits - 128, false},
  };
  for (row const& each : rows) {
    EXPECT_EQ(fio_test_trait_of(each.type, file_type_flag(each.flag)), each.expected) << each.type << ' ' << each.flag;
  }
}

// Queries by extension type

TEST_F(vocabulary_queries, each_extension_type_has_its_text) {
  for (auto const& row : extensions) {
    EXPECT_STREQ(fio_get_extension_string(extension_type(row.extension_type)), row.text) << row.extension_type;
  }
  EXPECT_STREQ(fio_get_extension_string(FIO_EXTENSION_TYPE_INVALID), ".");
  EXPECT_STREQ(fio_get_extension_string(extension_type(282)), ".ptc");
  for (int const value : unknown_extension_types) {
    EXPECT_EQ(static_cast<void const*>(fio_get_extension_string(extension_type(value))), fio_empty_result_value)
        << value;
  }
  for (int const value : asked_values()) {
    EXPECT_EQ(fio_get_extension_string(extension_type(value)), text_of(value)) << value;
  }
}

TEST_F(vocabulary_queries, an_extension_stands_for_the_type_it_is_the_default_of_or_else_for_its_first) {
  for (int const value : asked_values()) {
    EXPECT_EQ(fio_get_file_type(extension_type(value)), file_type_of(value)) << value;
  }
  for (int const value : unknown_extension_types) {
    EXPECT_EQ(fio_get_file_type(extension_type(value)), FIO_FILE_TYPE_INVALID) << value;
  }
  EXPECT_EQ(fio_get_file_type(FIO_EXTENSION_TYPE_INVALID), FIO_FILE_TYPE_INVALID);
  EXPECT_EQ(fio_get_file_type(FIO_EXTENSION_TYPE_CSF_RPT), FIO_FILE_TYPE_TEXT_FORMAT_REPORT_FILE);
}

TEST_F(vocabulary_queries, an_extension_of_several_file_types_stands_for_one_of_them) {
  struct row {
    FIO_EXTENSION_TYPE extension;
    integers types;
    int expected;
  };
  row const rows[] = {
      // the first row that is a default
      {FIO_EXTENSION_TYPE_HTM, {2, 117}, 2},
      {FIO_EXTENSION_TYPE_V, {9, 10, 11}, 9},
      {FIO_EXTENSION_TYPE_TCL, {47, 234}, 47},
      {FIO_EXTENSION_TYPE_SDC, {48, 49}, 48},
      {FIO_EXTENSION_TYPE_CSV, {127, 239}, 127},
      {FIO_EXTENSION_TYPE_XML, {160, 199}, 160},
      {FIO_EXTENSION_TYPE_ZIP, {222, 232}, 222},
      {FIO_EXTENSION_TYPE_RTLSDC, {242, 243}, 242},
      // the first row, as none is a default
      {FIO_EXTENSION_TYPE_HTML, {2, 117}, 2},
      {FIO_EXTENSION_TYPE_VLG, {9, 10, 11}, 9},
      {FIO_EXTENSION_TYPE_VERILOG, {9, 10, 11}, 9},
      {FIO_EXTENSION_TYPE_KIP, {38, 197}, 38},
  };
  std::set<int> listed;
  std::size_t repetitions = 0;
  for (row const& each : rows) {
    SCOPED_TRACE(each.extension);
    EXPECT_EQ(fio_get_file_type(each.extension), each.expected);
    EXPECT_EQ(fio_get_file_type(std::string(fio_get_extension_string(each.extension))), each.expected);
    integers types;
    for (int type = 0; type != vocabulary::file_type_count; ++type) {
      types.insert(types.end(), extension_list(each.extension, type).size(), type);
    }
    EXPECT_EQ(types, each.types);
    repetitions += types.size() - 1;
    listed.insert(each.extension);
  }
  EXPECT_EQ(repetitions, 15U);
  for (int value = 0; value != vocabulary::extension_type_count; ++value) {
    EXPECT_EQ(extension_list(value, -1).size() > 1, listed.count(value) != 0) << value;
  }
}

// Queries by name

TEST_F(vocabulary_queries, a_name_has_the_extension_type_of_what_follows_its_last_dot) {
  struct row {
    std::string name;
    int extension;
    int type;
  };
  row const rows[] = {
      // names, paths and bare extensions, in any case
      {"vhd", 9, 8},
      {".vhd", 9, 8},
      {"a.vhd", 9, 8},
      {"A.VHD", 9, 8},
      {"VHD", 9, 8},
      {".VhD", 9, 8},
      {"/x/y.Vhd", 9, 8},
      {"rtl/Top.VHD", 9, 8},
      {"/x/y.vhd", 9, 8},
      {"dir.txt/a.vhd", 9, 8},
      {"dir\\a.vhd", 9, 8},
      {"C:\\x\\y.vhd", 9, 8},
      {"a..vhd", 9, 8},
      {"..vhd", 9, 8},
      {"a b.vhd", 9, 8},
      {"*.vhd", 9, 8},
      // no extension, or an unknown one
      {"", 0, 0},
      {".", 0, 0},
      {"..", 0, 0},
      {"...", 0, 0},
      {"foo", 0, 0},
      {"foo.", 0, 0},
      {"vhd.", 0, 0},
      {"a.vhd.", 0, 0},
      {"dir/.", 0, 0},
      {"dir/vhd", 0, 0},
      {"/vhd", 0, 0},
      {"dir.vhd/foo", 0, 0},
      {"dir.vhd\\foo", 0, 0},
      {"dir.v/foo", 0, 0},
      {"a.vhd/", 0, 0},
      {".vhd/", 0, 0},
      {".vhd/vhd", 0, 0},
      {"/", 0, 0},
      {"\\", 0, 0},
      {"a.vhd ", 0, 0},
      {" vhd", 0, 0},
      {"a.vh d", 0, 0},
      {"a.vhdx", 0, 0},
      {"a.vhd\xc4", 0, 0},
      // part of a text is not the text
      {"vh", 16, 11},
      {"a.vh", 16, 11},
      {"a.ver", 0, 0},
      {"a.erilog", 0, 0},
      // a longer extension is never tried
      {"top.csf.rpt", 126, 116},
      {"top.rpt", 126, 116},
      {".csf.rpt", 126, 116},
      {"csf.rpt", 126, 116},
      {"top.ptc.gz", 0, 0},
      {"top.map.rdb", 230, 210},
      {"top.map.kpt", 203, 186},
      {"top.sim.html", 3, 2},
      // a text with capital letters is never met
      {"a.VHDLView", 0, 0},
      {"a.vhdlview", 0, 0},
      {"VerilogView", 0, 0},
      // of two types with one text the earlier one is met
      {"a.cpp", 23, 15},
      {"a.qml", 4, 3},
      {"a.tbl", 42, 33},
      {"a.ptc", 278, 240},
      // a type by default, though others have the extension too
      {"a.zip", 253, 222},
      {"a.html", 3, 2},
      {"a.v", 12, 9},
      // the text of the name ends at a NUL, but not that of a bare word
      {std::string("a.vhd\0.txt", 10), 9, 8},
      {std::string("a.vhd\0", 6), 9, 8},
      {std::string("vhd\0", 4), 0, 0},
      {std::string("vhd\0a.txt", 9), 0, 0},
      {std::string("\0vhd", 4), 0, 0},
      {std::string("\0", 1), 0, 0},
      {std::string("a\0.vhd", 6), 0, 0},
      {std::string(".\0vhd", 5), 0, 0},
  };
  for (row const& each : rows) {
    SCOPED_TRACE(each.name);
    EXPECT_EQ(extension_by_hand(each.name), each.extension);
    EXPECT_EQ(fio_get_extension_type(each.name), each.extension);
    EXPECT_EQ(fio_get_file_type(each.name), each.type);
  }
}

TEST_F(vocabulary_queries, each_extension_is_found_by_its_text_in_any_case_and_behind_any_path) {
  for (auto const& row : extensions) {
    std::string const text = row.text;
    for (std::string const before : {"", "a", "A", "/x/y", "dir.d/name", "dir.vhd/", "dir\\name", "a.txt", "..", " "}) {
      for (std::string const& after : {text, upper_case(text), lower_case(text), text.substr(1)}) {
        std::string const name = before + after;
        SCOPED_TRACE(name);
        EXPECT_EQ(fio_get_extension_type(name), extension_by_hand(name));
        EXPECT_EQ(fio_get_file_type(name), file_type_of(extension_by_hand(name)));
        EXPECT_EQ(fio_get_extension_type(name + '.'), FIO_EXTENSION_TYPE_INVALID);
        EXPECT_EQ(fio_get_extension_type(name + '/'), FIO_EXTENSION_TYPE_INVALID);
      }
    }
  }
}

TEST_F(vocabulary_queries, every_short_text_is_looked_up_as_by_hand) {
  texts all = {""};
  for (std::size_t i = 0; i != all.size() && all[i].size() != 3; ++i) {
    for (char const character : std::string("abcdefghijklmnopqrstuvwxyz0123456789_.A\0", 40)) {
      all.push_back(all[i] + character);
    }
  }
  ASSERT_EQ(all.size(), 1u + 40 + 1600 + 64000);
  for (std::string const& text : all) {
    ASSERT_EQ(fio_get_extension_type(text), extension_by_hand(text)) << text;
    ASSERT_EQ(fio_get_extension_type("a." + text), extension_by_hand("a." + text)) << text;
  }
}

TEST_F(vocabulary_queries, a_text_that_differs_from_an_extension_in_one_place_is_looked_up_as_by_hand) {
  for (auto const& row : extensions) {
    std::string const text = lower_case(row.text);
    for (std::size_t place = 0; place <= text.size(); ++place) {
      for (char const other : std::string("ax\0.\xff", 5)) {
        std::string const inserted = text.substr(0, place) + other + text.substr(place);
        std::string const changed = text.substr(0, place) + other + text.substr(std::min(place + 1, text.size()));
        std::string const cut = text.substr(0, place);
        for (std::string const& name : {inserted, changed, cut}) {
          ASSERT_EQ(fio_get_extension_type(name), extension_by_hand(name)) << name;
        }
      }
    }
  }
}

TEST_F(vocabulary_queries, a_text_in_lower_case_with_one_dot_leads_back_to_its_first_type) {
  for (auto const& row : extensions) {
    std::string const text = row.text;
    if (text.rfind('.') == 0 && lower_case(text) == text) {
      int const expected = first_with_text(text);
      EXPECT_EQ(fio_get_extension_type(text), expected) << text;
      EXPECT_EQ(fio_get_extension_type(text.substr(1)), expected) << text;
      EXPECT_EQ(fio_get_extension_type("/dir.d/name" + upper_case(text)), expected) << text;
    }
  }
}

TEST_F(vocabulary_queries, compound_capital_and_second_texts_are_reached_by_value_only) {
  integers unreachable;
  for (int value = 0; value != vocabulary::extension_type_count; ++value) {
    if (fio_get_extension_type(fio_get_extension_string(extension_type(value))) != value) {
      unreachable.push_back(value);
    }
  }
  EXPECT_EQ(unreachable, (integers{26,  122, 123, 127, 128, 131, 132, 133, 134, 176, 201, 204, 205, 231, 232, 233,
                                   234, 235, 236, 237, 238, 239, 240, 241, 269, 270, 273, 274, 276, 277, 282}));
}

TEST_F(vocabulary_queries, a_name_too_long_for_a_path_is_taken_as_a_bare_word) {
  EXPECT_EQ(fio_get_extension_type(repeated(1019) + ".vhd"), FIO_EXTENSION_TYPE_VHD);
  EXPECT_EQ(fio_get_extension_type(repeated(1020) + ".vhd"), FIO_EXTENSION_TYPE_INVALID);
  EXPECT_EQ(fio_get_extension_type('/' + repeated(1018, '/') + ".vhd"), FIO_EXTENSION_TYPE_VHD);
  EXPECT_EQ(fio_get_extension_type('.' + repeated(1020) + ".vhd"), FIO_EXTENSION_TYPE_INVALID);
  EXPECT_EQ(fio_get_extension_type(repeated(5000) + ".vhd"), FIO_EXTENSION_TYPE_INVALID);
  EXPECT_EQ(fio_get_extension_type(repeated(5000)), FIO_EXTENSION_TYPE_INVALID);
  EXPECT_EQ(fio_get_extension_type("a." + repeated(400)), FIO_EXTENSION_TYPE_INVALID);
  EXPECT_EQ(fio_get_file_type(repeated(1020) + ".vhd"), FIO_FILE_TYPE_INVALID);
  EXPECT_EQ(messages(), texts{});
}

TEST_F(vocabulary_queries, a_query_by_name_folds_the_dotted_text_and_asks_nothing_else) {
  struct row {
    std::string name;
    texts calls;
  };
  row const rows[] = {
      {"VHD", {"stl_tolower(.VHD)"}},
      {".VHD", {"stl_tolower(.VHD)"}},
      {"/X/Y.Vhd", {"stl_tolower(.Vhd)"}},
      {"Top.Csf.Rpt", {"stl_tolower(.Rpt)"}},
      {"Dir/Vhd", {"stl_tolower(.Dir/Vhd)"}},
      {".Dir/Vhd", {"stl_tolower(.Dir/Vhd)"}},
      {"a." + repeated(300, 'X'), {"stl_tolower(." + repeated(255, 'X') + ")"}},
      {repeated(1024, 'X') + ".VHD", {"stl_tolower(." + repeated(1024, 'X') + ".VHD)"}},
      // an empty text is not folded
      {"", {}},
      {"foo.", {}},
      {".", {}},
      {"..", {}},
  };
  for (row const& each : rows) {
    SCOPED_TRACE(each.name);
    platform_double::reset();
    platform_double::record_calls(true);
    (void)fio_get_extension_type(each.name);
    (void)fio_get_file_type(each.name);
    texts twice = each.calls;
    twice.insert(twice.end(), each.calls.begin(), each.calls.end());
    EXPECT_EQ(platform_double::calls(), twice);
    EXPECT_EQ(messages(), texts{});
  }
}

TEST_F(vocabulary_queries, the_folded_text_is_compared_as_it_comes_back) {
  struct row {
    char const* folded;
    int expected;
  };
  constexpr row rows[] = {{".VHDLView", 122},
                          {".csf.rpt", 127},
                          {".ptc_import.gz", 270},
                          {".routing.rdb", 241},
                          {".", 0},
                          {"", 0},
                          {"vhd", 0},
                          {".VHD", 0},
                          {".vhd", 9}};
  for (row const& each : rows) {
    platform_double::replaced().stl_tolower = [&each](std::string& text) { text = each.folded; };
    EXPECT_EQ(fio_get_extension_type("a.txt"), each.expected) << each.folded;
  }
}

// Queries by class identifier

TEST_F(vocabulary_queries, a_document_class_stands_for_the_lowest_of_its_file_types) {
  for (int type = 0; type != vocabulary::file_type_count; ++type) {
    _GUID const& clsid = *vocabulary::document_classes[type];
    EXPECT_EQ(fio_get_file_type(clsid), file_type_of(clsid)) << type;
  }
  struct row {
    _GUID const* clsid;
    integers types;
  };
  row const rows[] = {
      {&VFC_CLSID_TED_DEFAULT_DOC, {5, 15, 17, 18, 19, 72}},
      {&VFC_CLSID_TED_VERILOG_DOC, {9, 11, 12, 13}},
      {&VFC_CLSID_TED_TCL_DOC, {47, 234}},
      {&VFC_CLSID_TED_SDC_DOC, {48, 49}},
      {&VFC_CLSID_TED_RTL_SDC_DOC, {242, 243}},
      {&VFC_CLSID_PTCNG_DEFAULT_DOC, {245}},
      {&VFC_CLSID_TED_TDF_DOC, {6}},
  };
  for (row const& each : rows) {
    EXPECT_EQ(fio_get_file_type(*each.clsid), each.types.front());
    EXPECT_EQ(expected_file_types(
                  [&each](auto const& type) { return vocabulary::document_classes[type.file_type] == each.clsid; }),
              each.types);
  }
}

TEST_F(vocabulary_queries, the_null_identifier_stands_for_the_first_type_without_a_class) {
  EXPECT_EQ(fio_get_file_type(FIO_CLSID_NULL), FIO_FILE_TYPE_IMAGE_FILE);
  EXPECT_EQ(fio_get_file_type(_GUID{}), FIO_FILE_TYPE_IMAGE_FILE);
}

TEST_F(vocabulary_queries, a_class_without_a_file_type_stands_for_none) {
  std::set<_GUID const*> const used(std::begin(vocabulary::document_classes), std::end(vocabulary::document_classes));
  EXPECT_EQ(used.size() - used.count(&FIO_CLSID_NULL), 60U);
  int without = 0;
  for (auto const& each : vocabulary::classes) {
    FIO_FILE_TYPE const type = fio_get_file_type(*each.clsid);
    EXPECT_EQ(type != FIO_FILE_TYPE_INVALID, used.count(each.clsid) != 0) << each.name;
    without += type == FIO_FILE_TYPE_INVALID ? 1 : 0;
  }
  EXPECT_EQ(without, 96);
}

TEST_F(vocabulary_queries, all_16_bytes_of_an_identifier_count) {
  for (_GUID const* const clsid : vocabulary::document_classes) {
    for (std::size_t i = 0; i != sizeof *clsid; ++i) {
      unsigned char bytes[sizeof *clsid];
      std::memcpy(bytes, clsid, sizeof bytes);
      bytes[i] ^= 0x80;
      _GUID other;
      std::memcpy(&other, bytes, sizeof other);
      EXPECT_EQ(fio_get_file_type(other), FIO_FILE_TYPE_INVALID) << i;
    }
  }
}

// Texts of editors and traits

TEST_F(vocabulary_queries, a_value_has_the_text_of_its_entry_and_any_other_none) {
  for (std::uint32_t const value : bit_patterns()) {
    SCOPED_TRACE(value);
    EXPECT_EQ(text_or_null(fio_get_editor_type_string(editor_type(value))),
              expected_text(vocabulary::editor_texts, value));
    EXPECT_EQ(text_or_null(fio_get_file_type_trait_string(file_type_flag(value))),
              expected_text(vocabulary::file_type_trait_texts, value));
    EXPECT_EQ(text_or_null(fio_get_extension_type_trait_string(extension_type_flag(value))),
              expected_text(vocabulary::extension_trait_texts, value));
  }
}

TEST_F(vocabulary_queries, a_value_without_a_text_gives_null) {
  EXPECT_STREQ(fio_get_editor_type_string(FIO_EDITOR_TYPE_NONE), " ");
  EXPECT_STREQ(fio_get_editor_type_string(FIO_EDITOR_TYPE_ALL_FILES), "All Files (*.*)");
  for (std::uint32_t const value : {1U, 3U, 4194304U, 0xFFFFFFFEU}) {
    EXPECT_EQ(fio_get_editor_type_string(editor_type(value)), nullptr) << value;
  }
  EXPECT_STREQ(fio_get_file_type_trait_string(FIO_FILE_TYPE_FLAG_ALL_FILES), "All Files (*.*)");
  for (std::uint32_t const value : {0U, 1U, 3U, 6U, 1048576U, 33554432U}) {
    EXPECT_EQ(fio_get_file_type_trait_string(file_type_flag(value)), nullptr) << value;
  }
  EXPECT_STREQ(fio_get_extension_type_trait_string(FIO_EXTENSION_TYPE_FLAG_ALL_EXTENSIONS), "All Extensions");
  for (std::uint32_t const value : {0U, 1U, 6U, 12U, 14U, 16U}) {
    EXPECT_EQ(fio_get_extension_type_trait_string(extension_type_flag(value)), nullptr) << value;
  }
}

// Lists of extension types

TEST_F(vocabulary_queries, the_list_of_all_extensions_holds_every_row) {
  integers const all = extension_list(-1, -1);
  EXPECT_EQ(all.size(), 298U);
  EXPECT_EQ(all, expected_extensions([](auto const& /*row*/) { return true; }));
}

TEST_F(vocabulary_queries, an_extension_list_is_filtered_by_file_type) {
  for (int const type : asked_values()) {
    if (type != -1) {
      EXPECT_EQ(extension_list(-1, type),
                expected_extensions([type](auto const& row) { return row.file_type == type; }))
          << type;
    }
  }
  EXPECT_EQ(extension_list(-1, 0), (integers{0}));
  EXPECT_EQ(extension_list(-1, 8), (integers{9, 10, 11}));
  EXPECT_EQ(extension_list(-1, 210), (integers{230, 231, 232, 233, 234, 235, 236, 237, 238, 239, 240, 241}));
  EXPECT_EQ(extension_list(-1, 239), (integers{268, 269, 270, 271, 272, 273, 274, 275, 276, 144, 277}));
  EXPECT_EQ(extension_list(-1, 245), (integers{282}));
  EXPECT_EQ(extension_list(-1, 246), integers{});
}

TEST_F(vocabulary_queries, an_extension_list_is_filtered_by_extension_type) {
  for (int const value : asked_values()) {
    if (value != -1) {
      EXPECT_EQ(extension_list(value, -1),
                expected_extensions([value](auto const& row) { return row.extension_type == value; }))
          << value;
    }
  }
  EXPECT_EQ(extension_list(12, -1), (integers{12, 12, 12}));
  EXPECT_EQ(extension_list(283, -1), integers{});
}

TEST_F(vocabulary_queries, both_filters_of_an_extension_list_must_pass) {
  for (auto const& row : extensions) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(extension_list(row.extension_type, row.file_type), (integers{row.extension_type}));
    EXPECT_EQ(extension_list(row.extension_type, 246), integers{});
    EXPECT_EQ(extension_list(283, row.file_type), integers{});
  }
  EXPECT_EQ(extension_list(9, 9), integers{});
  EXPECT_EQ(extension_list(12, 8), integers{});
}

TEST_F(vocabulary_queries, extensions_are_listed_by_trait) {
  for (std::uint32_t const flag : bit_patterns()) {
    EXPECT_EQ(extensions_with_trait(flag),
              expected_extensions([flag](auto const& row) { return (row.traits & flag) != 0; }))
        << flag;
  }
  EXPECT_EQ(extensions_with_trait(8), (integers{7, 9, 12, 12, 12, 18, 47, 212, 213, 214, 47, 216, 220, 246}));
  EXPECT_EQ(extensions_with_trait(0), integers{});
  EXPECT_EQ(extensions_with_trait(1), integers{});
  EXPECT_EQ(extensions_with_trait(0x80000000), integers{});
}

TEST_F(vocabulary_queries, all_traits_leave_out_the_21_extensions_without_any) {
  integers const with = extensions_with_trait(all_bits);
  EXPECT_EQ(with.size(), 277U);
  std::multiset<int> without;
  for (int const value : extension_list(-1, -1)) {
    without.insert(value);
  }
  for (int const value : with) {
    without.erase(without.find(value));
  }
  EXPECT_EQ(integers(without.begin(), without.end()), (integers{3,   60,  131, 132, 133, 134, 135, 219, 223, 230, 231,
                                                                232, 233, 234, 235, 236, 237, 238, 239, 240, 241}));
}

// Lists of file types

TEST_F(vocabulary_queries, the_list_of_all_file_types_counts_through_the_rows) {
  EXPECT_EQ(file_type_list(-1, all_bits, -1), count_from_zero(246));
}

TEST_F(vocabulary_queries, a_file_type_list_is_filtered_by_file_type) {
  for (int const type : asked_values()) {
    if (type != -1) {
      bool const known = type >= 0 && type < vocabulary::file_type_count;
      EXPECT_EQ(file_type_list(type, all_bits, -1), known ? integers{type} : integers{}) << type;
    }
  }
}

TEST_F(vocabulary_queries, a_file_type_list_is_filtered_by_the_whole_editor) {
  for (std::uint32_t const editor : bit_patterns()) {
    if (editor != all_bits) {
      EXPECT_EQ(file_type_list(-1, editor, -1),
                expected_file_types([editor](auto const& row) { return row.editor_type == editor; }))
          << editor;
    }
  }
  EXPECT_EQ(file_type_list(-1, 2, -1), (integers{30, 31, 32, 33, 36, 42}));
  EXPECT_EQ(file_type_list(-1, 4, -1), (integers{40, 41}));
  EXPECT_EQ(file_type_list(-1, 2 | 4, -1), integers{});
  EXPECT_EQ(file_type_list(-1, all_bits - 1, -1), integers{});
  EXPECT_EQ(file_type_list(-1, 16384, -1), integers{});
  EXPECT_EQ(file_type_list(-1, 32768, -1), integers{});
  EXPECT_EQ(file_type_list(-1, 0, -1).size(), 167U);
}

TEST_F(vocabulary_queries, a_file_type_list_is_filtered_by_any_of_the_traits) {
  for (std::uint32_t const flag : bit_patterns()) {
    EXPECT_EQ(file_type_list(-1, all_bits, static_cast<long>(flag)),
              expected_file_types([flag](auto const& row) { return (row.traits & flag) != 0; }))
        << flag;
  }
  struct row {
    long traits;
    integers expected;
  };
  row const rows[] = {
      {0, {}},
      {1, {}},
      {16, {116, 117}},
      {16 | 512, {37, 116, 117}},
      {65536, {}},
      {1048576, {}},
      {1L << 32, {}},
      {LONG_MIN, {}},
      {(1L << 32) | 512, {37}},
      // all bits but one are no wildcard
      {-2, expected_file_types([](auto const& type) { return type.traits != 0; })},
      {LONG_MAX, expected_file_types([](auto const& type) { return type.traits != 0; })},
      {0xFFFFFFFFL, expected_file_types([](auto const& type) { return type.traits != 0; })},
  };
  for (row const& each : rows) {
    EXPECT_EQ(file_type_list(-1, all_bits, each.traits), each.expected) << each.traits;
  }
  EXPECT_EQ(file_type_list(-1, all_bits, -2).size(), 114U);
}

TEST_F(vocabulary_queries, all_three_filters_of_a_file_type_list_must_pass) {
  for (auto const& row : file_types) {
    SCOPED_TRACE(row.file_type);
    EXPECT_EQ(file_type_list(row.file_type, row.editor_type, -1), (integers{row.file_type}));
    EXPECT_EQ(file_type_list(row.file_type, row.editor_type ^ 2, -1), integers{});
    EXPECT_EQ(file_type_list(row.file_type, row.editor_type, row.traits),
              row.traits != 0 ? integers{row.file_type} : integers{});
    EXPECT_EQ(file_type_list(row.file_type, row.editor_type, -1 ^ (row.traits | 1)), integers{});
    EXPECT_EQ(file_type_list(246, row.editor_type, row.traits), integers{});
  }
  EXPECT_EQ(file_type_list(-1, 8, 64), (integers{47, 48, 49, 197, 198, 234, 242, 243}));
  EXPECT_EQ(file_type_list(-1, 16, 4), (integers{21, 22}));
  EXPECT_EQ(file_type_list(47, 8, 64), (integers{47}));
  EXPECT_EQ(file_type_list(47, 16, 64), integers{});
}

// All lists

TEST_F(vocabulary_queries, a_list_is_appended_to_and_not_cleared) {
  std::list<FIO_EXTENSION_TYPE> extension_types = {extension_type(283), FIO_EXTENSION_TYPE_ANY};
  fio_get_extension_type_list(&extension_types, FIO_EXTENSION_TYPE_ANY, FIO_FILE_TYPE_VHDL_FILE);
  fio_get_extension_type_list(&extension_types, FIO_EXTENSION_TYPE_VHD, FIO_FILE_TYPE_ANY);
  fio_get_extension_type_list(&extension_types, extension_type(283), FIO_FILE_TYPE_ANY);
  EXPECT_EQ(as_integers(extension_types), (integers{283, -1, 9, 10, 11, 9}));

  std::list<FIO_FILE_TYPE> types = {FIO_FILE_TYPE_ANY, FIO_FILE_TYPE_HTML_FORMAT_REPORT_FILE};
  fio_get_file_type_list(&types, FIO_FILE_TYPE_ANY, FIO_EDITOR_TYPE_ALL_FILES, 16);
  fio_get_file_type_list(&types, FIO_FILE_TYPE_ANY, FIO_EDITOR_TYPE_ALL_FILES, 0);
  EXPECT_EQ(as_integers(types), (integers{-1, 117, 116, 117}));

  std::list<FIO_EXTENSION_TYPE> by_trait = {FIO_EXTENSION_TYPE_TDF};
  fio_get_list_of_extensions_valid_for_trait(FIO_EXTENSION_TYPE_FLAG_CORE_VARIATION_EXTENSION, &by_trait);
  EXPECT_EQ(as_integers(by_trait), (integers{7, 7, 9, 12, 12, 12, 18, 47, 212, 213, 214, 47, 216, 220, 246}));
}

TEST_F(vocabulary_queries, a_null_list_is_an_internal_error) {
  std::list<FIO_EXTENSION_TYPE>* const no_extensions = nullptr;
  std::list<FIO_FILE_TYPE>* const no_types = nullptr;
  // also where nothing would be appended
  for (int const value : {-1, 8, SHRT_MAX}) {
    SCOPED_TRACE(value);
    FIO_EXTENSION_TYPE const extension = extension_type(value);
    FIO_FILE_TYPE const type = file_type(value);
    expect_internal_error([&] { fio_get_extension_type_list(no_extensions, extension, type); },
                          "extension_list != NULL");
    expect_internal_error([&] { FIO_EXTENSION_TYPE_INFO::get_extension_type_list(no_extensions, extension, type, 0); },
                          "extension_list != NULL");
    expect_internal_error(
        [&] {
          fio_get_list_of_extensions_valid_for_trait(extension_type_flag(value == 8 ? 0 : all_bits), no_extensions);
        },
        "extension_list != NULL");
    expect_internal_error([&] { fio_get_file_type_list(no_types, type, FIO_EDITOR_TYPE_ALL_FILES, value); },
                          "file_type_list != NULL");
    expect_internal_error(
        [&] { FIO_FILE_TYPE_INFO::get_file_type_list(no_types, type, FIO_EDITOR_TYPE_ALL_FILES, value); },
        "file_type_list != NULL");
  }
}

// The two classes

TEST_F(vocabulary_queries, the_members_of_the_file_type_class_answer_as_the_functions) {
  for (int const value : asked_values()) {
    SCOPED_TRACE(value);
    FIO_FILE_TYPE const type = file_type(value);
    std::string const name = FIO_FILE_TYPE_INFO::get_file_type_name(type);
    std::string const description = FIO_FILE_TYPE_INFO::get_file_description(type);
    EXPECT_EQ(name, fio_get_file_type_name(type));
    EXPECT_EQ(description, fio_get_file_description(type));
    EXPECT_EQ(FIO_FILE_TYPE_INFO::get_editor_type(type), fio_get_editor_type(type));
    EXPECT_EQ(FIO_FILE_TYPE_INFO::is_design_file(type), (traits_of(value) & 4) != 0);
    for (long const traits : {-1L, 0L, 4L}) {
      std::list<FIO_FILE_TYPE> list = {FIO_FILE_TYPE_TAR_FILE};
      FIO_FILE_TYPE_INFO::get_file_type_list(&list, type, FIO_EDITOR_TYPE_TEXT_FILES, traits);
      integers expected = file_type_list(value, 8, traits);
      expected.insert(expected.begin(), FIO_FILE_TYPE_TAR_FILE);
      EXPECT_EQ(as_integers(list), expected);
    }
  }
  for (auto const& each : vocabulary::classes) {
    EXPECT_EQ(FIO_FILE_TYPE_INFO::get_file_type(*each.clsid), file_type_of(*each.clsid)) << each.name;
  }
  EXPECT_EQ(FIO_FILE_TYPE_INFO::get_file_type(FIO_CLSID_NULL), FIO_FILE_TYPE_IMAGE_FILE);
  for (auto const& row : extensions) {
    std::string const file = std::string("dir/A") + row.text;
    EXPECT_EQ(FIO_FILE_TYPE_INFO::get_file_type(file), file_type_of(extension_by_hand(file))) << file;
  }
}

TEST_F(vocabulary_queries, only_the_first_bit_of_design_files_makes_a_design_file) {
  integers const design_files = {6, 8, 9, 10, 13, 14, 15, 16, 19, 21, 22, 38, 136, 150, 192, 193, 215};
  integers answered;
  for (int type = 0; type != vocabulary::file_type_count; ++type) {
    if (FIO_FILE_TYPE_INFO::is_design_file(file_type(type))) {
      answered.push_back(type);
    }
  }
  EXPECT_EQ(answered, design_files);
  for (FIO_FILE_TYPE const type : {FIO_FILE_TYPE_TCL_SCRIPT_FILE, FIO_FILE_TYPE_DESIGN_ENTRY_EDITOR_FILE}) {
    EXPECT_TRUE(fio_test_trait_of(type, FIO_FILE_TYPE_FLAG_DESIGN_FILES_GROUP)) << type;
    EXPECT_FALSE(FIO_FILE_TYPE_INFO::is_design_file(type)) << type;
  }
}

TEST_F(vocabulary_queries, the_members_of_the_extension_type_class_answer_as_the_functions) {
  for (int const value : asked_values()) {
    SCOPED_TRACE(value);
    FIO_EXTENSION_TYPE const extension = extension_type(value);
    std::string const text = FIO_EXTENSION_TYPE_INFO::get_extension_string(extension);
    EXPECT_EQ(text, text_of(value));
    EXPECT_EQ(FIO_EXTENSION_TYPE_INFO::get_file_type(extension), file_type_of(value));
    EXPECT_EQ(FIO_EXTENSION_TYPE_INFO::get_default_extension_type(file_type(value)), default_extension_of(value));
  }
  for (auto const& row : extensions) {
    std::string const file = std::string("dir/A") + row.text;
    EXPECT_EQ(FIO_EXTENSION_TYPE_INFO::get_extension_type(file), extension_by_hand(file)) << file;
  }
}

TEST_F(vocabulary_queries, the_extension_list_of_the_class_ignores_its_last_argument) {
  for (long const ignored : {-1L, 0L, 1L, 2L, 8L, LONG_MIN, LONG_MAX}) {
    SCOPED_TRACE(ignored);
    for (int const type : {-1, 8, 10, 210, 246}) {
      for (int const extension : {-1, 9, 12, 230, 283}) {
        std::list<FIO_EXTENSION_TYPE> list = {FIO_EXTENSION_TYPE_TAR};
        FIO_EXTENSION_TYPE_INFO::get_extension_type_list(&list, extension_type(extension), file_type(type), ignored);
        integers expected = extension_list(extension, type);
        expected.insert(expected.begin(), FIO_EXTENSION_TYPE_TAR);
        EXPECT_EQ(as_integers(list), expected) << extension << ' ' << type;
      }
    }
  }
}

TEST_F(vocabulary_queries, the_members_take_a_name_as_a_whole) {
  std::string const with_nul("vhd\0", 4);
  EXPECT_EQ(FIO_FILE_TYPE_INFO::get_file_type(with_nul), 0);
  EXPECT_EQ(FIO_EXTENSION_TYPE_INFO::get_extension_type(with_nul), 0);
  EXPECT_EQ(FIO_FILE_TYPE_INFO::get_file_type("vhd"), 8);
  EXPECT_EQ(FIO_EXTENSION_TYPE_INFO::get_extension_type("vhd"), 9);
}

// Constant data

TEST_F(vocabulary_queries, the_texts_stay_where_they_are) {
  struct answers {
    std::vector<char const*> names;
    std::vector<char const*> descriptions;
    std::vector<char const*> default_texts;
    std::vector<char const*> extension_texts;
  };
  auto const ask = [] {
    answers all;
    for (int type = 0; type != vocabulary::file_type_count; ++type) {
      all.names.push_back(fio_get_file_type_name(file_type(type)));
      all.descriptions.push_back(fio_get_file_description(file_type(type)));
      all.default_texts.push_back(fio_get_default_extension_string(file_type(type)));
    }
    for (int extension = 0; extension != vocabulary::extension_type_count; ++extension) {
      all.extension_texts.push_back(fio_get_extension_string(extension_type(extension)));
    }
    return all;
  };
  answers const first = ask();
  answers const second = ask();
  EXPECT_EQ(first.names, second.names);
  EXPECT_EQ(first.descriptions, second.descriptions);
  EXPECT_EQ(first.default_texts, second.default_texts);
  EXPECT_EQ(first.extension_texts, second.extension_texts);
  for (int type = 0; type != vocabulary::file_type_count; ++type) {
    auto const index = static_cast<std::size_t>(type);
    bool const is_other = (traits_of(type) & 128) != 0;
    EXPECT_STREQ(first.names[index], file_types[type].description);
    EXPECT_STREQ(first.descriptions[index], is_other ? "Other" : file_types[type].description);
    EXPECT_EQ(first.default_texts[index], text_of(default_extension_of(type)));
  }
  for (int extension = 0; extension != vocabulary::extension_type_count; ++extension) {
    EXPECT_EQ(first.extension_texts[static_cast<std::size_t>(extension)], text_of(extension));
  }
}

TEST_F(vocabulary_queries, static_constructors_may_ask) { EXPECT_EQ(early, ".vhd"); }

namespace {

int wrong_answers_about(int value) {
  FIO_FILE_TYPE const type = file_type(value);
  FIO_EXTENSION_TYPE const extension = extension_type(value);
  auto const bits = static_cast<std::uint32_t>(value);
  bool const is_known = value >= 0 && value < vocabulary::file_type_count;
  std::string const name = is_known ? file_types[value].description : "";
  bool const is_other = (traits_of(value) & 128) != 0;
  bool const right[] = {
      fio_get_file_type_name(type) == name,
      fio_get_file_description(type) == (is_other ? "Other" : name),
      FIO_FILE_TYPE_INFO::get_file_type_name(type) == name,
      FIO_FILE_TYPE_INFO::get_file_description(type) == (is_other ? "Other" : name),
      static_cast<std::uint32_t>(fio_get_editor_type(type)) == (is_known ? file_types[value].editor_type : 0),
      fio_test_trait_of(type, file_type_flag(all_bits)) == (traits_of(value) != 0),
      FIO_FILE_TYPE_INFO::get_editor_type(type) == fio_get_editor_type(type),
      FIO_FILE_TYPE_INFO::is_design_file(type) == ((traits_of(value) & 4) != 0),
      fio_get_default_extension_type(type) == default_extension_of(value),
      fio_get_default_extension_string(type) == text_of(default_extension_of(value)),
      fio_get_extension_string(extension) == text_of(value),
      FIO_EXTENSION_TYPE_INFO::get_extension_string(extension) == text_of(value),
      fio_get_file_type(extension) == file_type_of(value),
      FIO_EXTENSION_TYPE_INFO::get_default_extension_type(type) == default_extension_of(value),
      FIO_EXTENSION_TYPE_INFO::get_file_type(extension) == file_type_of(value),
      text_or_null(fio_get_editor_type_string(editor_type(bits))) == expected_text(vocabulary::editor_texts, bits),
      text_or_null(fio_get_file_type_trait_string(file_type_flag(bits))) ==
          expected_text(vocabulary::file_type_trait_texts, bits),
      text_or_null(fio_get_extension_type_trait_string(extension_type_flag(bits))) ==
          expected_text(vocabulary::extension_trait_texts, bits),
      extension_list(-1, value) ==
          expected_extensions([=](auto const& row) { return value == -1 || row.file_type == value; }),
      file_type_list(-1, all_bits, value) ==
          expected_file_types([=](auto const& row) { return value == -1 || (row.traits & value) != 0; }),
      extensions_with_trait(bits) == expected_extensions([=](auto const& row) { return (row.traits & value) != 0; }),
  };
  int wrong = 0;
  for (bool const each : right) {
    wrong += each ? 0 : 1;
  }
  return wrong;
}

int wrong_answers() {
  int wrong = 0;
  for (int const value : asked_values()) {
    wrong += wrong_answers_about(value);
  }
  for (auto const& row : extensions) {
    std::string const name = std::string("dir/A") + upper_case(row.text);
    int const extension = extension_by_hand(name);
    wrong += fio_get_extension_type(name) == extension ? 0 : 1;
    wrong += fio_get_file_type(name) == file_type_of(extension) ? 0 : 1;
    wrong += FIO_EXTENSION_TYPE_INFO::get_extension_type(name) == extension ? 0 : 1;
    wrong += FIO_FILE_TYPE_INFO::get_file_type(name) == file_type_of(extension) ? 0 : 1;
  }
  for (auto const& each : vocabulary::classes) {
    wrong += fio_get_file_type(*each.clsid) == file_type_of(*each.clsid) ? 0 : 1;
    wrong += FIO_FILE_TYPE_INFO::get_file_type(*each.clsid) == file_type_of(*each.clsid) ? 0 : 1;
  }
  std::list<FIO_EXTENSION_TYPE> extension_types;
  FIO_EXTENSION_TYPE_INFO::get_extension_type_list(&extension_types, FIO_EXTENSION_TYPE_ANY, FIO_FILE_TYPE_ANY, 0);
  wrong += as_integers(extension_types) == expected_extensions([](auto const& /*row*/) { return true; }) ? 0 : 1;
  std::list<FIO_FILE_TYPE> types;
  FIO_FILE_TYPE_INFO::get_file_type_list(&types, FIO_FILE_TYPE_ANY, FIO_EDITOR_TYPE_ALL_FILES, -1);
  wrong += as_integers(types) == count_from_zero(vocabulary::file_type_count) ? 0 : 1;
  return wrong;
}

} // namespace

TEST_F(vocabulary_queries, four_threads_may_ask_everything_at_once) {
  std::atomic<int> waiting{4};
  int wrong[] = {-1, -1, -1, -1};
  std::vector<std::thread> threads;
  for (int& each : wrong) {
    threads.emplace_back([&each, &waiting] {
      for (--waiting; waiting != 0;) {
        std::this_thread::yield();
      }
      each = wrong_answers();
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  for (int const each : wrong) {
    EXPECT_EQ(each, 0);
  }
}

// Memory

TEST_F(vocabulary_queries, the_queries_by_type_ask_for_no_memory) {
  integers const values = asked_values();
  long asked_for = -1;
  {
    allocation_failure const failing(1);
    for (int const value : values) {
      (void)fio_get_file_type_name(file_type(value));
      (void)fio_get_file_description(file_type(value));
      (void)fio_get_editor_type(file_type(value));
      (void)fio_test_trait_of(file_type(value), FIO_FILE_TYPE_FLAG_DESIGN_FILES);
      (void)FIO_FILE_TYPE_INFO::get_editor_type(file_type(value));
      (void)FIO_FILE_TYPE_INFO::is_design_file(file_type(value));
      (void)fio_get_default_extension_type(file_type(value));
      (void)fio_get_default_extension_string(file_type(value));
      (void)fio_get_extension_string(extension_type(value));
      (void)fio_get_file_type(extension_type(value));
      (void)fio_get_editor_type_string(editor_type(static_cast<std::uint32_t>(value)));
      (void)fio_get_file_type_trait_string(file_type_flag(static_cast<std::uint32_t>(value)));
      (void)fio_get_extension_type_trait_string(extension_type_flag(static_cast<std::uint32_t>(value)));
    }
    for (auto const& each : vocabulary::classes) {
      (void)fio_get_file_type(*each.clsid);
    }
    asked_for = failing.asked_for();
  }
  EXPECT_EQ(asked_for, 0);
}

TEST_F(vocabulary_queries, memory_that_runs_out_leaves_a_query_by_name_as_an_exception) {
  std::string const with_extension = "a." + repeated(20);
  std::string const bare = repeated(20);
  auto const nothing = [](bool) {};
  for (std::string const& name : {with_extension, bare}) {
    SCOPED_TRACE(name);
    EXPECT_GT(with_ever_more_memory([&] { (void)fio_get_extension_type(name); }, nothing), 0);
    EXPECT_GT(with_ever_more_memory([&] { (void)fio_get_file_type(name); }, nothing), 0);
    EXPECT_GT(with_ever_more_memory([&] { (void)FIO_EXTENSION_TYPE_INFO::get_extension_type(name); }, nothing), 0);
    EXPECT_GT(with_ever_more_memory([&] { (void)FIO_FILE_TYPE_INFO::get_file_type(name); }, nothing), 0);
  }
  // A text of up to 15 characters, as all extensions are, is stored in the string itself.
  FIO_FILE_TYPE const type = FIO_FILE_TYPE_VERILOG_HDL_FILE;
  EXPECT_EQ(with_ever_more_memory([&] { (void)FIO_FILE_TYPE_INFO::get_file_type_name(type); }, nothing), 1);
  EXPECT_EQ(with_ever_more_memory([&] { (void)FIO_FILE_TYPE_INFO::get_file_description(type); }, nothing), 1);
}

namespace {

// Lets memory run out at each element in turn, and looks at what the list then holds.
template <typename Value, typename Query>
void expect_what_was_appended_to_stay(Query query, integers const& all) {
  integers expected = {7, 9};
  for (std::size_t appended = 0; appended <= all.size(); ++appended) {
    std::list<Value> list = {static_cast<Value>(7), static_cast<Value>(9)};
    bool thrown = false;
    {
      allocation_failure const failing(static_cast<long>(appended) + 1);
      try {
        query(&list);
      } catch (std::bad_alloc const&) {
        thrown = true;
      }
    }
    EXPECT_EQ(as_integers(list), expected);
    EXPECT_EQ(thrown, appended != all.size());
    if (thrown && appended != all.size()) {
      expected.push_back(all[appended]);
    }
  }
}

} // namespace

TEST_F(vocabulary_queries, memory_that_runs_out_leaves_a_list_with_what_it_has_by_then) {
  integers const vhdl = {9, 10, 11};
  expect_what_was_appended_to_stay<FIO_EXTENSION_TYPE>(
      [](auto* list) { fio_get_extension_type_list(list, FIO_EXTENSION_TYPE_ANY, FIO_FILE_TYPE_VHDL_FILE); }, vhdl);
  expect_what_was_appended_to_stay<FIO_EXTENSION_TYPE>(
      [](auto* list) {
        FIO_EXTENSION_TYPE_INFO::get_extension_type_list(list, FIO_EXTENSION_TYPE_ANY, FIO_FILE_TYPE_VHDL_FILE, 0);
      },
      vhdl);
  integers const reports = {116, 117};
  expect_what_was_appended_to_stay<FIO_FILE_TYPE>(
      [](auto* list) { fio_get_file_type_list(list, FIO_FILE_TYPE_ANY, FIO_EDITOR_TYPE_ALL_FILES, 16); }, reports);
  expect_what_was_appended_to_stay<FIO_FILE_TYPE>(
      [](auto* list) {
        FIO_FILE_TYPE_INFO::get_file_type_list(list, FIO_FILE_TYPE_ANY, FIO_EDITOR_TYPE_ALL_FILES, 16);
      },
      reports);
  expect_what_was_appended_to_stay<FIO_EXTENSION_TYPE>(
      [](auto* list) {
        fio_get_list_of_extensions_valid_for_trait(FIO_EXTENSION_TYPE_FLAG_CORE_VARIATION_EXTENSION, list);
      },
      {7, 9, 12, 12, 12, 18, 47, 212, 213, 214, 47, 216, 220, 246});
}

// The vocabulary as a whole

TEST_F(vocabulary_queries, the_rows_of_the_extensions_follow_the_file_types) {
  integers joined;
  for (int type = 0; type != vocabulary::file_type_count; ++type) {
    integers const rows = extension_list(-1, type);
    EXPECT_FALSE(rows.empty()) << type;
    joined.insert(joined.end(), rows.begin(), rows.end());
  }
  EXPECT_EQ(joined, extension_list(-1, -1));
}

TEST_F(vocabulary_queries, extension_types_are_numbered_by_first_use) {
  int last = -1;
  for (int const value : extension_list(-1, -1)) {
    EXPECT_LE(value, last + 1);
    last = value > last ? value : last;
  }
  EXPECT_EQ(last, 282);
}

TEST_F(vocabulary_queries, the_first_row_is_the_invalid_one) {
  EXPECT_EQ(extension_list(-1, -1).front(), 0);
  EXPECT_EQ(extension_list(0, 0), (integers{0}));
  EXPECT_EQ(extension_list(0, -1), (integers{0}));
  EXPECT_EQ(extensions_with_trait(2).front(), 0);
  EXPECT_STREQ(fio_get_file_type_name(FIO_FILE_TYPE_INVALID), "Invalid file type");
  EXPECT_EQ(fio_get_editor_type(FIO_FILE_TYPE_INVALID), FIO_EDITOR_TYPE_NONE);
  EXPECT_TRUE(fio_test_trait_of(FIO_FILE_TYPE_INVALID, file_type_flag(128)));
  EXPECT_FALSE(fio_test_trait_of(FIO_FILE_TYPE_INVALID, file_type_flag(all_bits - 128)));
}

TEST_F(vocabulary_queries, four_texts_belong_to_two_extension_types) {
  std::map<std::string, integers> types_of;
  for (int value = 0; value != vocabulary::extension_type_count; ++value) {
    types_of[fio_get_extension_string(extension_type(value))].push_back(value);
  }
  EXPECT_EQ(types_of.size(), 279U);
  EXPECT_EQ(types_of[".cpp"], (integers{23, 26}));
  EXPECT_EQ(types_of[".qml"], (integers{4, 176}));
  EXPECT_EQ(types_of[".tbl"], (integers{42, 201}));
  EXPECT_EQ(types_of[".ptc"], (integers{278, 282}));
}

TEST_F(vocabulary_queries, every_extension_text_begins_with_a_dot_and_25_have_another) {
  int compound = 0;
  texts capital;
  for (int value = 0; value != vocabulary::extension_type_count; ++value) {
    std::string const text = fio_get_extension_string(extension_type(value));
    EXPECT_EQ(text.find('.'), 0U) << value;
    compound += text.rfind('.') != 0 ? 1 : 0;
    if (lower_case(text) != text) {
      capital.push_back(text);
    }
  }
  EXPECT_EQ(compound, 25);
  EXPECT_EQ(capital, (texts{".VHDLView", ".VerilogView"}));
}

TEST_F(vocabulary_queries, five_descriptions_belong_to_two_file_types) {
  std::map<std::string, integers> types_of;
  for (int value = 0; value != vocabulary::file_type_count; ++value) {
    types_of[fio_get_file_type_name(file_type(value))].push_back(value);
  }
  EXPECT_EQ(types_of.size(), 241U);
  EXPECT_EQ(types_of["JPEG File Interchange Format"], (integers{25, 26}));
  EXPECT_EQ(types_of["Change Manager File"], (integers{152, 153}));
  EXPECT_EQ(types_of["Pin Planner File"], (integers{168, 185}));
  EXPECT_EQ(types_of["Korvane Snapshot Viewer File"], (integers{233, 238}));
  EXPECT_EQ(types_of["Power and Thermal Calculator File"], (integers{239, 240}));
}

TEST_F(vocabulary_queries, an_editor_and_a_document_class_are_independent) {
  int editor_alone = 0;
  integers class_alone;
  for (int type = 0; type != vocabulary::file_type_count; ++type) {
    bool const has_editor = fio_get_editor_type(file_type(type)) != FIO_EDITOR_TYPE_NONE;
    bool const has_class = vocabulary::document_classes[type] != &FIO_CLSID_NULL;
    editor_alone += has_editor && !has_class ? 1 : 0;
    if (has_class && !has_editor) {
      class_alone.push_back(type);
    }
  }
  EXPECT_EQ(editor_alone, 22);
  EXPECT_EQ(class_alone, (integers{60, 63, 64, 70, 133, 136, 168, 184, 204, 210, 233, 237, 238, 241}));
}

TEST_F(vocabulary_queries, a_default_extension_belongs_to_its_type_and_leads_to_it_or_to_an_earlier_one) {
  for (int type = 1; type != vocabulary::file_type_count; ++type) {
    FIO_EXTENSION_TYPE const extension = fio_get_default_extension_type(file_type(type));
    if (extension != FIO_EXTENSION_TYPE_INVALID) {
      EXPECT_EQ(extension_list(extension, type), (integers{extension})) << type;
      EXPECT_LE(fio_get_file_type(extension), type);
      EXPECT_EQ(fio_get_default_extension_type(fio_get_file_type(extension)), extension) << type;
    }
  }
}
