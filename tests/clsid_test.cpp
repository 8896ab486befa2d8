#include <gtest/gtest.h>

#include <cctype>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <new>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include "ccl/fio/fio_clsid.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/scratch.h"
#include "tests/vocabulary_expected.h"

static_assert(sizeof(_GUID) == 16 && std::is_trivially_copyable_v<_GUID> && std::is_standard_layout_v<_GUID>);
static_assert(std::is_same_v<decltype(_GUID::Data1), std::uint32_t> && offsetof(_GUID, Data1) == 0);
static_assert(std::is_same_v<decltype(_GUID::Data2), std::uint16_t> && offsetof(_GUID, Data2) == 4);
static_assert(std::is_same_v<decltype(_GUID::Data3), std::uint16_t> && offsetof(_GUID, Data3) == 6);
static_assert(std::is_same_v<decltype(_GUID::Data4), std::uint8_t[8]> && offsetof(_GUID, Data4) == 8);
static_assert(std::is_same_v<decltype(FIO_CLSID_NULL), _GUID const>);
static_assert(std::is_same_v<decltype(VFC_CLSID_TED_DEFAULT_DOC), _GUID const>);
static_assert(FIO_CLSID_FORMAT_TEXT == 0 && FIO_CLSID_FORMAT_INITIALIZER == 1);
static_assert(std::is_same_v<decltype(fio_str_to_clsid), _GUID(std::string const&)>);
static_assert(std::is_same_v<decltype(fio_clsid_to_str), std::string(_GUID const&, FIO_CLSID_FORMAT)>);

// So that a failed comparison shows both identifiers.
static bool operator==(_GUID const& left, _GUID const& right) { return std::memcmp(&left, &right, sizeof left) == 0; }
static void PrintTo(_GUID const& clsid, std::ostream* stream) {
  *stream << std::hex << clsid.Data1 << ' ' << clsid.Data2 << ' ' << clsid.Data3;
  for (unsigned const byte : clsid.Data4) {
    *stream << ' ' << byte;
  }
}

namespace {

class class_identifiers : public fio_test {};

constexpr _GUID zero = {};

// The constants that are fixed to the bit.
struct given_value {
  _GUID const* clsid;
  char const* text;
  _GUID fields;
};

given_value const given_values[] = {
    {&VFC_CLSID_TED_DEFAULT_DOC,
     "{0b720e69-67da-11d0-bf4f-0000c08cb0c0}",
     {0x0b720e69, 0x67da, 0x11d0, {0xbf, 0x4f, 0x00, 0x00, 0xc0, 0x8c, 0xb0, 0xc0}}},
    {&VFC_CLSID_PJM_PROJECT,
     "{77e37a26-cc18-11d2-a0ac-00c04fb9ceb4}",
     {0x77e37a26, 0xcc18, 0x11d2, {0xa0, 0xac, 0x00, 0xc0, 0x4f, 0xb9, 0xce, 0xb4}}},
    {&VFC_CLSID_KDB_DEFAULT_DOC,
     "{45c60823-96d4-4f31-b0ea-b92714f82226}",
     {0x45c60823, 0x96d4, 0x4f31, {0xb0, 0xea, 0xb9, 0x27, 0x14, 0xf8, 0x22, 0x26}}},
    {&VFC_CLSID_TED_TCL_DOC,
     "{15e0fbd8-ee0c-11d2-a07a-00c04f6bedd6}",
     {0x15e0fbd8, 0xee0c, 0x11d2, {0xa0, 0x7a, 0x00, 0xc0, 0x4f, 0x6b, 0xed, 0xd6}}},
    {&VFC_CLSID_RPW_TEXT_TYPE,
     "{83493fc3-a8b0-11d1-a095-0020affa4418}",
     {0x83493fc3, 0xa8b0, 0x11d1, {0xa0, 0x95, 0x00, 0x20, 0xaf, 0xfa, 0x44, 0x18}}},
    {&VFC_CLSID_EPEQ_READABLE_DOC,
     "{1b8e1d83-823c-2300-aeae-cb2db3bf3bd7}",
     {0x1b8e1d83, 0x823c, 0x2300, {0xae, 0xae, 0xcb, 0x2d, 0xb3, 0xbf, 0x3b, 0xd7}}},
};

// Identifiers that show the order of the fields, their widths and their zeros.
constexpr _GUID shapes[] = {
    {0, 0, 0, {}},
    {0xffffffff, 0xffff, 0xffff, {0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff}},
    {0x01234567, 0x89ab, 0xcdef, {0xfe, 0xdc, 0xba, 0x98, 0x76, 0x54, 0x32, 0x10}},
    {1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}},
    {0x80000000, 0x8000, 0x0080, {0x80, 0, 0, 0, 0, 0, 0, 0x08}},
    {0xabcdef, 0xabc, 0xa, {0, 0xa, 0, 0xb, 0, 0xc, 0, 0xd}},
};

std::vector<_GUID> all_identifiers() {
  std::vector<_GUID> all(std::begin(shapes), std::end(shapes));
  all.push_back(FIO_CLSID_NULL);
  for (auto const& each : vocabulary::classes) {
    all.push_back(*each.clsid);
  }
  return all;
}

std::string digits(unsigned value, int count) {
  std::string text;
  while (count-- != 0) {
    text += "0123456789abcdef"[value >> (4 * count) & 15];
  }
  return text;
}

std::string text_by_hand(_GUID const& clsid) {
  std::string text = '{' + digits(clsid.Data1, 8) + '-' + digits(clsid.Data2, 4) + '-' + digits(clsid.Data3, 4) + '-';
  for (int i = 0; i != 8; ++i) {
    text += digits(clsid.Data4[i], 2) + (i == 1 ? "-" : "");
  }
  return text + '}';
}

std::string initializer_by_hand(_GUID const& clsid) {
  std::string text =
      "{0x" + digits(clsid.Data1, 8) + ", 0x" + digits(clsid.Data2, 4) + ", 0x" + digits(clsid.Data3, 4) + ", {";
  for (int i = 0; i != 8; ++i) {
    text += (i == 0 ? "0x" : ", 0x") + digits(clsid.Data4[i], 2);
  }
  return text + "}}";
}

// The reading of a text, one step after the other.
_GUID read_by_hand(std::string const& text) {
  if (text.size() != 38 || text[0] != '{' || text[9] != '-' || text[14] != '-' || text[19] != '-' || text[24] != '-' ||
      text[37] != '}') {
    return zero;
  }
  unsigned read[11] = {};
  int sum = std::sscanf(text.substr(1, 8).c_str(), "%x", &read[0]);
  sum += std::sscanf(text.substr(10, 4).c_str(), "%x", &read[1]);
  sum += std::sscanf(text.substr(15, 4).c_str(), "%x", &read[2]);
  sum += std::sscanf(text.substr(20, 4).c_str(), "%2x%2x", &read[3], &read[4]);
  sum += std::sscanf(text.substr(25, 12).c_str(), "%2x%2x%2x%2x%2x%2x", &read[5], &read[6], &read[7], &read[8],
                     &read[9], &read[10]);
  if (sum != 11) {
    return zero;
  }
  _GUID clsid = {
      read[0], static_cast<std::uint16_t>(read[1] & 0xffff), static_cast<std::uint16_t>(read[2] & 0xffff), {}};
  for (int i = 0; i != 8; ++i) {
    clsid.Data4[i] = static_cast<std::uint8_t>(read[3 + i] & 0xff);
  }
  return clsid;
}

std::string upper_case(std::string text) {
  for (char& character : text) {
    character = static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
  }
  return text;
}

std::string with_character(std::string text, std::size_t position, char character) {
  text[position] = character;
  return text;
}

bool is_mark(std::size_t position) {
  return position == 0 || position == 9 || position == 14 || position == 19 || position == 24 || position == 37;
}

// The addresses that the program may write to.
bool is_writable(void const* address) {
  auto const place = reinterpret_cast<std::uintptr_t>(address);
  std::ifstream regions("/proc/self/maps");
  for (std::string line; std::getline(regions, line);) {
    std::uintptr_t start = 0;
    std::uintptr_t end = 0;
    char dash = 0;
    std::string permissions;
    std::istringstream(line) >> std::hex >> start >> dash >> end >> permissions;
    if (start <= place && place < end) {
      return permissions.find('w') != std::string::npos;
    }
  }
  ADD_FAILURE() << "no region holds the address";
  return true;
}

} // namespace

// The constants

TEST_F(class_identifiers, all_156_constants_are_distinct_and_none_is_zero) {
  EXPECT_EQ(vocabulary::class_count, 156);
  for (auto const& each : vocabulary::classes) {
    EXPECT_FALSE(*each.clsid == zero) << each.name;
    for (auto const& other : vocabulary::classes) {
      EXPECT_EQ(*each.clsid == *other.clsid, &each == &other) << each.name << ' ' << other.name;
    }
  }
}

TEST_F(class_identifiers, the_null_identifier_is_16_zero_bytes) {
  constexpr unsigned char zeros[16] = {};
  EXPECT_EQ(std::memcmp(&FIO_CLSID_NULL, zeros, sizeof zeros), 0);
}

TEST_F(class_identifiers, the_constants_cannot_be_written_to) {
  EXPECT_FALSE(is_writable(&FIO_CLSID_NULL));
  for (auto const& each : vocabulary::classes) {
    EXPECT_FALSE(is_writable(each.clsid)) << each.name;
  }
}

TEST_F(class_identifiers, some_constants_have_known_values) {
  for (given_value const& each : given_values) {
    SCOPED_TRACE(each.text);
    EXPECT_EQ(*each.clsid, each.fields);
    EXPECT_EQ(fio_clsid_to_str(*each.clsid, FIO_CLSID_FORMAT_TEXT), each.text);
    EXPECT_EQ(fio_str_to_clsid(each.text), *each.clsid);
  }
}

TEST_F(class_identifiers, a_constant_keeps_its_value) {
  for (auto const& each : vocabulary::classes) {
    EXPECT_EQ(fio_clsid_to_str(*each.clsid, FIO_CLSID_FORMAT_TEXT), each.value) << each.name;
  }
}

TEST_F(class_identifiers, a_series_of_constants_counts_up_in_its_first_field) {
  _GUID expected = VFC_CLSID_TED_TCL_DOC;
  for (_GUID const* const clsid :
       {&VFC_CLSID_TED_TCL_DOC, &VFC_CLSID_TED_TDF_INC_DOC, &VFC_CLSID_PJM_SSF, &VFC_CLSID_PJM_CSF}) {
    EXPECT_EQ(*clsid, expected);
    --expected.Data1;
  }
}

// The two texts of an identifier

TEST_F(class_identifiers, an_identifier_has_two_text_forms) {
  EXPECT_EQ(fio_clsid_to_str(VFC_CLSID_TED_DEFAULT_DOC, FIO_CLSID_FORMAT_TEXT),
            "{0b720e69-67da-11d0-bf4f-0000c08cb0c0}");
  EXPECT_EQ(fio_clsid_to_str(VFC_CLSID_TED_DEFAULT_DOC, FIO_CLSID_FORMAT_INITIALIZER),
            "{0x0b720e69, 0x67da, 0x11d0, {0xbf, 0x4f, 0x00, 0x00, 0xc0, 0x8c, 0xb0, 0xc0}}");
  EXPECT_EQ(fio_clsid_to_str(FIO_CLSID_NULL, FIO_CLSID_FORMAT_TEXT), "{00000000-0000-0000-0000-000000000000}");
  EXPECT_EQ(fio_clsid_to_str(FIO_CLSID_NULL, FIO_CLSID_FORMAT_INITIALIZER),
            "{0x00000000, 0x0000, 0x0000, {0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00}}");
  EXPECT_EQ(fio_clsid_to_str({0x1, 0x2, 0x3, {0x4, 0x5, 0x6, 0x7, 0x8, 0x9, 0xa, 0xb}}, FIO_CLSID_FORMAT_TEXT),
            "{00000001-0002-0003-0405-060708090a0b}");
}

TEST_F(class_identifiers, every_field_is_written_in_its_place_and_full_width) {
  for (_GUID const& clsid : all_identifiers()) {
    std::string const text = fio_clsid_to_str(clsid, FIO_CLSID_FORMAT_TEXT);
    EXPECT_EQ(text, text_by_hand(clsid));
    EXPECT_EQ(text.size(), 38U);
    EXPECT_EQ(fio_clsid_to_str(clsid, FIO_CLSID_FORMAT_INITIALIZER), initializer_by_hand(clsid));
  }
}

TEST_F(class_identifiers, a_written_identifier_reads_back_in_either_case) {
  for (_GUID const& clsid : all_identifiers()) {
    std::string const text = fio_clsid_to_str(clsid, FIO_CLSID_FORMAT_TEXT);
    EXPECT_EQ(fio_str_to_clsid(text), clsid) << text;
    EXPECT_EQ(fio_str_to_clsid(upper_case(text)), clsid) << text;
    EXPECT_EQ(fio_clsid_to_str(fio_str_to_clsid(upper_case(text)), FIO_CLSID_FORMAT_TEXT), text);
  }
}

TEST_F(class_identifiers, the_initializer_form_cannot_be_read) {
  for (_GUID const& clsid : all_identifiers()) {
    EXPECT_EQ(fio_str_to_clsid(fio_clsid_to_str(clsid, FIO_CLSID_FORMAT_INITIALIZER)), zero);
  }
}

TEST_F(class_identifiers, a_text_that_cannot_be_stored_is_a_failure) {
  for (FIO_CLSID_FORMAT const format : {FIO_CLSID_FORMAT_TEXT, FIO_CLSID_FORMAT_INITIALIZER}) {
    bool thrown = false;
    {
      allocation_failure const failing(1);
      try {
        (void)fio_clsid_to_str(VFC_CLSID_TED_DEFAULT_DOC, format);
      } catch (std::bad_alloc const&) {
        thrown = true;
      }
    }
    EXPECT_TRUE(thrown) << format;
  }
}

// Reading

TEST_F(class_identifiers, a_text_is_read_with_the_tolerance_of_a_formatted_scan) {
  struct row {
    std::string text;
    _GUID expected;
  };
  row const rows[] = {
      // either case
      {"{ABCDEFab-cdEF-AbCd-eFAB-abcdefABCDEF}",
       {0xabcdefab, 0xcdef, 0xabcd, {0xef, 0xab, 0xab, 0xcd, 0xef, 0xab, 0xcd, 0xef}}},
      // the first three fields stop at what is no digit
      {"{12zz5678-0000-0000-0000-000000000000}", {0x12, 0, 0, {}}},
      {"{1------8-0000-0000-0000-000000000000}", {0x1, 0, 0, {}}},
      {"{00000000-1g34-0000-0000-000000000000}", {0, 0x1, 0, {}}},
      {"{00000000-0000-abc}-0000-000000000000}", {0, 0, 0xabc, {}}},
      {"{12 45678-1 34-12 4-0000-000000000000}", {0x12, 0x1, 0x12, {}}},
      {std::string("{12\0"
                   "45678-1\0"
                   "34-12\0"
                   "4-0000-000000000000}",
                   38),
       {0x12, 0x1, 0x12, {}}},
      // blanks, signs and prefixes in them
      {"{      12-   3-\t\n 4-0000-000000000000}", {0x12, 0x3, 0x4, {}}},
      {"{+1234567-+123-+00f-0000-000000000000}", {0x1234567, 0x123, 0xf, {}}},
      {"{-0000001-0000-0000-0000-000000000000}", {0xffffffff, 0, 0, {}}},
      {"{00000000--001--00f-0000-000000000000}", {0, 0xffff, 0xfff1, {}}},
      {"{  -00002- -01-\t-02-0000-000000000000}", {0xfffffffe, 0xffff, 0xfffe, {}}},
      {"{0x123456-0x1f-0XfF-0000-000000000000}", {0x123456, 0x1f, 0xff, {}}},
      {"{ -0x0010-0X12-0x1z-0000-000000000000}", {0xfffffff0, 0x12, 0x1, {}}},
      // the pairs of the last two: a blank before a pair does not count to its two characters, a sign does
      {"{00000000-0000-0000- bf4-000000000000}", {0, 0, 0, {0xbf, 0x4}}},
      {"{00000000-0000-0000-b f -000000000000}", {0, 0, 0, {0xb, 0xf}}},
      {"{00000000-0000-0000--1+2-000000000000}", {0, 0, 0, {0xff, 0x2}}},
      {"{00000000-0000-0000-bf4g-000000000000}", {0, 0, 0, {0xbf, 0x4}}},
      {"{00000000-0000-0000-0000-1 2 3 4 5 6 }", {0, 0, 0, {0, 0, 1, 2, 3, 4, 5, 6}}},
      {"{00000000-0000-0000-0000- 1 2 3 4 5 6}", {0, 0, 0, {0, 0, 1, 2, 3, 4, 5, 6}}},
      {"{00000000-0000-0000-0000-+1-2+3-4+5-6}", {0, 0, 0, {0, 0, 1, 0xfe, 3, 0xfc, 5, 0xfa}}},
      {"{00000000-0000-0000-0000-1122334455 6}", {0, 0, 0, {0, 0, 0x11, 0x22, 0x33, 0x44, 0x55, 0x6}}},
      {"{00000000-0000-0000-0000-11223344556g}", {0, 0, 0, {0, 0, 0x11, 0x22, 0x33, 0x44, 0x55, 0x6}}},
      {std::string("{00000000-0000-0000-0000-11223344556\0}", 38),
       {0, 0, 0, {0, 0, 0x11, 0x22, 0x33, 0x44, 0x55, 0x6}}},
      // no field reaches into the next
      {"{        -   1-   2-0304-05060708090a}", {}},
      {"{00000001-0002-0003-04  -05060708090a}", {}},
  };
  for (row const& each : rows) {
    SCOPED_TRACE(each.text);
    EXPECT_EQ(fio_str_to_clsid(each.text), each.expected);
    EXPECT_EQ(read_by_hand(each.text), each.expected);
  }
}

TEST_F(class_identifiers, a_text_that_is_no_identifier_gives_all_zero) {
  std::string const rows[] = {
      "",
      "{}",
      "{00000000-0000-0000-0000-000000000000}",
      // the length
      "{0b720e69-67da-11d0-bf4f-0000c08cb0c}",
      "{0b720e69-67da-11d0-bf4f-0000c08cb0c00}",
      "{0b720e69-67da-11d0-bf4f-0000c08cb0c0} ",
      " {0b720e69-67da-11d0-bf4f-0000c08cb0c0}",
      "{0b720e69-67da-11d0-bf4f-0000c08cb0c0}\n",
      std::string("{0b720e69-67da-11d0-bf4f-0000c08cb0c0}\0", 39),
      "0b720e69-67da-11d0-bf4f-0000c08cb0c0",
      "0b720e69-67da-11d0-bf4f-0000c08cb0c000",
      "{0x0b720e69, 0x67da, 0x11d0, {0xbf, 0x4f, 0x00, 0x00, 0xc0, 0x8c, 0xb0, 0xc0}}",
      repeated(38, '0'),
      repeated(38, '-'),
      std::string(38, '\0'),
      repeated(100000, '0'),
      // the marks
      "(0b720e69-67da-11d0-bf4f-0000c08cb0c0)",
      "[0b720e69-67da-11d0-bf4f-0000c08cb0c0]",
      "{0b720e69_67da_11d0_bf4f_0000c08cb0c0}",
      "{0b720e6967da-11d0-bf4f-0000c08cb0c00}",
      "}0b720e69-67da-11d0-bf4f-0000c08cb0c0{",
      // a field without a digit
      "{z2345678-67da-11d0-bf4f-0000c08cb0c0}",
      "{        -67da-11d0-bf4f-0000c08cb0c0}",
      "{0b720e69-zzzz-11d0-bf4f-0000c08cb0c0}",
      "{0b720e69-    -11d0-bf4f-0000c08cb0c0}",
      "{0b720e69-67da-    -bf4f-0000c08cb0c0}",
      "{0b720e69-67da----1-bf4f-0000c08cb0c0}",
      "{0b720e69-67da-+-+1-bf4f-0000c08cb0c0}",
      // a pair without a digit
      "{0b720e69-67da-11d0-gf4f-0000c08cb0c0}",
      "{0b720e69-67da-11d0-bg4f-0000c08cb0c0}",
      "{0b720e69-67da-11d0-bfg4-0000c08cb0c0}",
      "{0b720e69-67da-11d0-bf  -0000c08cb0c0}",
      "{0b720e69-67da-11d0-    -0000c08cb0c0}",
      "{0b720e69-67da-11d0-bf4f-g000c08cb0c0}",
      "{0b720e69-67da-11d0-bf4f-gggggggggggg}",
      "{0b720e69-67da-11d0-bf4f-            }",
      "{0b720e69-67da-11d0-bf4f-0000c08cb0  }",
      "{0b720e69-67da-11d0-bf4f-0000c08cb0+-}",
      "{0b720e69-67da-11d0-bf4f-   1 2 3 4 5}",
  };
  for (std::string const& text : rows) {
    EXPECT_EQ(fio_str_to_clsid(text), zero) << text;
    EXPECT_EQ(fio_str_to_clsid(text), FIO_CLSID_NULL) << text;
    EXPECT_EQ(read_by_hand(text), zero) << text;
  }
  EXPECT_EQ(messages(), std::vector<std::string>{});
}

TEST_F(class_identifiers, only_a_text_of_38_characters_is_read) {
  std::string const good = "{11111111-1111-1111-1111-111111111111}";
  for (std::size_t length = 0; length != good.size(); ++length) {
    EXPECT_EQ(fio_str_to_clsid(good.substr(0, length)), zero) << length;
    EXPECT_EQ(fio_str_to_clsid(good.substr(good.size() - length)), zero) << length;
    EXPECT_EQ(fio_str_to_clsid(good + good.substr(0, length + 1)), zero) << length;
  }
  EXPECT_FALSE(fio_str_to_clsid(good) == zero);
}

TEST_F(class_identifiers, the_marks_must_stand_in_their_places) {
  std::string const good = "{0b720e69-67da-11d0-bf4f-0000c08cb0c0}";
  for (std::size_t position = 0; position != good.size(); ++position) {
    for (int character = 0; is_mark(position) && character != 256; ++character) {
      std::string const text = with_character(good, position, static_cast<char>(character));
      EXPECT_EQ(fio_str_to_clsid(text), text == good ? VFC_CLSID_TED_DEFAULT_DOC : zero)
          << position << ' ' << character;
    }
  }
}

TEST_F(class_identifiers, a_character_that_is_no_digit_is_taken_where_its_field_has_one_before) {
  std::string const good = "{11111111-1111-1111-1111-111111111111}";
  for (std::size_t position = 0; position != good.size(); ++position) {
    if (!is_mark(position)) {
      bool const first_in_field = position == 1 || position == 10 || position == 15;
      bool const lost_pair = position >= 20 && position != 23 && position != 36;
      for (char const character : {'g', 'z', '{', '}', '.', '/', ':', '@', 'G', '`', '\0', '\x7f', '\xff'}) {
        std::string const text = with_character(good, position, character);
        EXPECT_EQ(fio_str_to_clsid(text) == zero, first_in_field || lost_pair) << position << ' ' << character;
      }
    }
  }
}

TEST_F(class_identifiers, any_changed_character_is_read_as_a_formatted_scan_reads_it) {
  for (std::string const good : {"{0b720e69-67da-11d0-bf4f-0000c08cb0c0}", "{ABCDEF01-2345-6789-abcd-ef9876543210}",
                                 "{  -1234f-0x1f- +a -1 2 - 1-2+3 4 5 6}"}) {
    EXPECT_FALSE(read_by_hand(good) == zero) << good;
    for (std::size_t position = 0; position != good.size(); ++position) {
      for (int character = 0; character != 256; ++character) {
        std::string const text = with_character(good, position, static_cast<char>(character));
        EXPECT_EQ(fio_str_to_clsid(text), read_by_hand(text)) << text;
      }
    }
  }
}

TEST_F(class_identifiers, any_two_changed_characters_are_read_as_a_formatted_scan_reads_them) {
  std::string const good = "{1b720e69-67da-11d0-bf4f-1234c08cb0c5}";
  for (std::size_t first = 0; first != good.size(); ++first) {
    for (std::size_t second = first + 1; second != good.size(); ++second) {
      for (char const left : {' ', '-', '+', 'g', '0', '\0'}) {
        for (char const right : {' ', '-', 'x', 'g', '{', '\0'}) {
          std::string const text = with_character(with_character(good, first, left), second, right);
          EXPECT_EQ(fio_str_to_clsid(text), read_by_hand(text)) << text;
        }
      }
    }
  }
}

TEST_F(class_identifiers, reading_asks_for_no_memory) {
  std::string const good = "{0b720e69-67da-11d0-bf4f-0000c08cb0c0}";
  std::string const tolerated = "{12zz5678-0000-0000--1+2-1 2 3 4 5 6 }";
  std::string const bad = "{0b720e69-67da-11d0-bf4f-gggggggggggg}";
  std::string const long_text = repeated(100000, '0');
  _GUID read[4];
  long asked_for = -1;
  {
    allocation_failure const failing(1);
    read[0] = fio_str_to_clsid(good);
    read[1] = fio_str_to_clsid(tolerated);
    read[2] = fio_str_to_clsid(bad);
    read[3] = fio_str_to_clsid(long_text);
    asked_for = failing.asked_for();
  }
  EXPECT_EQ(asked_for, 0);
  EXPECT_EQ(read[0], VFC_CLSID_TED_DEFAULT_DOC);
  EXPECT_EQ(read[1], (_GUID{0x12, 0, 0, {0xff, 2, 1, 2, 3, 4, 5, 6}}));
  EXPECT_EQ(read[2], zero);
  EXPECT_EQ(read[3], zero);
}
