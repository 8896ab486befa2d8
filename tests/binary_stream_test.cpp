#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <fstream>
#include <ios>
#include <istream>
#include <iterator>
#include <limits>
#include <ostream>
#include <sstream>
#include <streambuf>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "ccl/fio/fio_file_bin.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/scratch.h"

namespace {

class binary_streams : public fio_test {};

using bytes = std::string;

/// The bytes of a text with their NULs.
template <std::size_t size>
bytes raw(char const (&text)[size]) {
  return bytes(text, size - 1);
}

template <typename Integer>
bytes written(Integer value) {
  std::ostringstream stream;
  FIO_BIN_OFILE out(stream);
  EXPECT_EQ(&(out << value), &out);
  EXPECT_TRUE(stream.good());
  return stream.str();
}

template <typename Integer>
Integer read_from(bytes const& content) {
  std::istringstream stream(content);
  FIO_BIN_IFILE in(stream);
  Integer value{};
  EXPECT_EQ(&(in >> value), &in);
  EXPECT_TRUE(stream.good());
  return value;
}

template <typename Integer>
struct value_row {
  Integer value;
  bytes content;
};

template <typename Integer>
void expect_both_ways(std::vector<value_row<Integer>> const& rows) {
  for (value_row<Integer> const& row : rows) {
    EXPECT_EQ(written(row.value), row.content) << row.value;
    EXPECT_EQ(read_from<Integer>(row.content), row.value) << row.value;
  }
}

/// The encoding by the book: the lowest byte first.
template <typename Integer>
bytes encoded(Integer value) {
  auto bits = static_cast<std::make_unsigned_t<Integer>>(value);
  bytes content;
  for (std::size_t i = 0; i != sizeof(Integer); ++i) {
    content += static_cast<char>(bits % 256);
    bits = static_cast<std::make_unsigned_t<Integer>>(sizeof(Integer) == 1 ? 0 : bits / 256);
  }
  return content;
}

/// Every single bit, its neighbours, and what has all bits but one.
template <typename Integer>
std::vector<Integer> telling_values() {
  std::vector<Integer> values = {0, std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max()};
  for (unsigned bit = 0; bit != sizeof(Integer) * CHAR_BIT; ++bit) {
    unsigned long const one = 1UL << bit;
    for (unsigned long const value : {one, one - 1, one + 1, ~one}) {
      values.push_back(static_cast<Integer>(value));
    }
  }
  return values;
}

template <typename Integer>
void expect_every_pattern_to_come_back() {
  using other_sign =
      std::conditional_t<std::is_signed_v<Integer>, std::make_unsigned_t<Integer>, std::make_signed_t<Integer>>;
  for (Integer const value : telling_values<Integer>()) {
    bytes const content = encoded(value);
    EXPECT_EQ(written(value), content) << value;
    EXPECT_EQ(written(static_cast<other_sign>(value)), content) << value;
    EXPECT_EQ(read_from<Integer>(content), value) << value;
    EXPECT_EQ(read_from<other_sign>(content), static_cast<other_sign>(value)) << value;
  }
}

/// Counts what is asked of it: a stream without a buffer that gives, or takes, `limit` bytes and then no more.
class counted_bytes : public std::streambuf {
public:
  explicit counted_bytes(bytes content, std::size_t limit = SIZE_MAX) : m_content(std::move(content)), m_limit(limit) {}

  std::vector<std::streamsize> sizes; ///< of the requests, in their order
  bytes taken;

protected:
  std::streamsize xsgetn(char* target, std::streamsize count) override {
    sizes.push_back(count);
    std::streamsize given = 0;
    for (; given != count && m_position < m_content.size(); ++given) {
      target[given] = m_content[m_position++];
    }
    return given;
  }

  std::streamsize xsputn(char const* source, std::streamsize count) override {
    sizes.push_back(count);
    std::streamsize accepted = 0;
    for (; accepted != count && taken.size() < m_limit; ++accepted) {
      taken += source[accepted];
    }
    return accepted;
  }

private:
  bytes m_content;
  std::size_t m_position = 0;
  std::size_t m_limit;
};

template <typename Integer>
void expect_one_call_a_byte() {
  counted_bytes target{{}};
  std::ostream output(&target);
  FIO_BIN_OFILE(output) << Integer{1};
  EXPECT_EQ(target.sizes, std::vector<std::streamsize>(sizeof(Integer), 1));

  counted_bytes source(bytes(sizeof(Integer) + 1, '\1'));
  std::istream input(&source);
  Integer value{};
  FIO_BIN_IFILE(input) >> value;
  EXPECT_EQ(source.sizes, std::vector<std::streamsize>(sizeof(Integer), 1));
}

/// Reads a value of which the stream has only the first `available` bytes, 0x81, 0x82 and so on.
template <typename Integer>
void expect_the_bytes_that_are_there(std::size_t available) {
  SCOPED_TRACE(testing::Message() << sizeof(Integer) << " bytes wide, there are " << available);
  bytes content;
  for (std::size_t i = 0; i != available; ++i) {
    content += static_cast<char>(0x81 + i);
  }
  bytes repeated_last = content;
  repeated_last.resize(sizeof(Integer), content.empty() ? '\0' : content.back());

  std::istringstream stream(content);
  Integer value = 7;
  FIO_BIN_IFILE(stream) >> value;
  EXPECT_TRUE(stream.fail());
  EXPECT_TRUE(stream.eof());
  if (available != 0) { // otherwise the value is anything
    EXPECT_EQ(encoded(value), repeated_last);
  }

  std::istringstream throwing(content);
  throwing.exceptions(std::ios::failbit);
  value = 7;
  EXPECT_THROW(FIO_BIN_IFILE(throwing) >> value, std::ios::failure);
  bytes as_far_as_filled = content;
  as_far_as_filled.resize(sizeof(Integer), '\0');
  EXPECT_EQ(encoded(value), as_far_as_filled);
}

template <typename Integer>
void expect_short_reads_to_keep_what_there_was() {
  for (std::size_t available = 0; available != sizeof(Integer); ++available) {
    expect_the_bytes_that_are_there<Integer>(available);
  }
}

template <typename Integer>
void expect_a_full_stream_to_take_what_it_can() {
  for (std::size_t space = 0; space != sizeof(Integer); ++space) {
    SCOPED_TRACE(testing::Message() << sizeof(Integer) << " bytes wide, there is space for " << space);
    counted_bytes target({}, space);
    std::ostream stream(&target);
    FIO_BIN_OFILE(stream) << static_cast<Integer>(-2);
    // A byte behind the one that was refused is attempted, which a bad stream takes as one more failure.
    bool const is_last = space + 1 == sizeof(Integer);
    EXPECT_EQ(stream.rdstate(), is_last ? std::ios::badbit : std::ios::badbit | std::ios::failbit);
    EXPECT_EQ(target.taken, encoded(static_cast<Integer>(-2)).substr(0, space));

    counted_bytes second({}, space);
    std::ostream throwing(&second);
    throwing.exceptions(std::ios::badbit);
    EXPECT_THROW(FIO_BIN_OFILE(throwing) << static_cast<Integer>(-2), std::ios::failure);
    EXPECT_EQ(second.taken.size(), space);
  }
}

template <typename Value, typename = void>
struct has_target_operator : std::false_type {};
template <typename Value>
struct has_target_operator<Value, std::void_t<decltype(std::declval<FIO_BIN_IFILE&>() >> std::declval<Value&>())>>
    : std::true_type {};

template <typename... Values>
constexpr bool all_can_be_read = (has_target_operator<Values>::value && ...);
template <typename... Values>
constexpr bool none_can_be_read = (!has_target_operator<Values>::value && ...);

static_assert(all_can_be_read<char, short, unsigned short, int, unsigned int, long, unsigned long>);
static_assert(none_can_be_read<signed char, unsigned char, bool, float, double, long long, char16_t, std::string>);

// The operator for exactly this type: its address says so, where a call would convert.
template <typename Value>
using writing = FIO_BIN_OFILE& (FIO_BIN_OFILE::*)(Value);
template <typename Value, typename = void>
struct has_source_operator : std::false_type {};
template <typename Value>
struct has_source_operator<Value, std::void_t<decltype(static_cast<writing<Value>>(&FIO_BIN_OFILE::operator<<))>>
    : std::true_type {};

template <typename... Values>
constexpr bool all_can_be_written = (has_source_operator<Values>::value && ...);
template <typename... Values>
constexpr bool none_can_be_written = (!has_source_operator<Values>::value && ...);

static_assert(all_can_be_written<char, short, unsigned short, int, unsigned int, long, unsigned long>);
static_assert(none_can_be_written<signed char, unsigned char, bool, float, double, long long, std::string>);

// A stream is bound on purpose, and belongs to its caller.
static_assert(!std::is_convertible_v<std::istream&, FIO_BIN_IFILE> && !std::is_default_constructible_v<FIO_BIN_IFILE>);
static_assert(!std::is_convertible_v<std::ostream&, FIO_BIN_OFILE> && !std::is_default_constructible_v<FIO_BIN_OFILE>);
static_assert(sizeof(FIO_BIN_IFILE) == sizeof(void*) && sizeof(FIO_BIN_OFILE) == sizeof(void*));
static_assert(std::is_trivially_destructible_v<FIO_BIN_IFILE> && std::is_trivially_destructible_v<FIO_BIN_OFILE>);

} // namespace

TEST_F(binary_streams, a_char_is_its_byte) {
  expect_both_ways<char>({{'\0', raw("\0")}, {'a', "a"}, {'\x7f', "\x7f"}, {static_cast<char>(-1), "\xff"}});
}

TEST_F(binary_streams, the_lowest_byte_stands_first) {
  expect_both_ways<short>({{0x1234, "\x34\x12"}, {-2, "\xfe\xff"}, {1, raw("\x01\x00")}, {SHRT_MIN, raw("\x00\x80")}});
  expect_both_ways<unsigned short>({{0x1234, "\x34\x12"}, {0xFF00, raw("\x00\xff")}, {0xFFFE, "\xfe\xff"}});
  expect_both_ways<int>({{0x12345678, "\x78\x56\x34\x12"}, {-1, "\xff\xff\xff\xff"}, {INT_MIN, raw("\0\0\0\x80")}});
  expect_both_ways<unsigned int>({{0x89ABCDEF, "\xef\xcd\xab\x89"}, {1, raw("\x01\0\0\0")}});
  expect_both_ways<long>({{1, raw("\x01\0\0\0\0\0\0\0")},
                          {-1, "\xff\xff\xff\xff\xff\xff\xff\xff"},
                          {0x0102030405060708, "\x08\x07\x06\x05\x04\x03\x02\x01"},
                          {LONG_MIN, raw("\0\0\0\0\0\0\0\x80")}});
  expect_both_ways<unsigned long>({{0xF1E2D3C4B5A69788, "\x88\x97\xa6\xb5\xc4\xd3\xe2\xf1"}});
}

TEST_F(binary_streams, every_pattern_of_bits_comes_back_signed_and_unsigned) {
  expect_every_pattern_to_come_back<short>();
  expect_every_pattern_to_come_back<unsigned short>();
  expect_every_pattern_to_come_back<int>();
  expect_every_pattern_to_come_back<unsigned int>();
  expect_every_pattern_to_come_back<long>();
  expect_every_pattern_to_come_back<unsigned long>();
}

TEST_F(binary_streams, minus_one_is_the_largest_unsigned_value) {
  bytes const content = written(-1L);
  EXPECT_EQ(content, bytes(8, '\xff'));
  EXPECT_EQ(read_from<long>(content), -1);
  EXPECT_EQ(read_from<unsigned long>(content), ULONG_MAX);
}

TEST_F(binary_streams, values_stand_side_by_side_in_their_order) {
  std::ostringstream output;
  FIO_BIN_OFILE out(output);
  out << 'K' << static_cast<short>(-2) << static_cast<unsigned short>(0xFF00) << 0x12345678 << 0x89ABCDEFu << 1L
      << 0xF1E2D3C4B5A69788ul;
  bytes const content = raw("K\xfe\xff\x00\xff\x78\x56\x34\x12\xef\xcd\xab\x89\x01\0\0\0\0\0\0\0"
                            "\x88\x97\xa6\xb5\xc4\xd3\xe2\xf1");
  EXPECT_EQ(output.str(), content);

  std::istringstream input(content);
  FIO_BIN_IFILE in(input);
  char letter = 0;
  short small = 0;
  unsigned short small_bits = 0;
  int number = 0;
  unsigned int number_bits = 0;
  long large = 0;
  unsigned long large_bits = 0;
  in >> letter >> small >> small_bits >> number >> number_bits >> large >> large_bits;
  EXPECT_EQ(letter, 'K');
  EXPECT_EQ(small, -2);
  EXPECT_EQ(small_bits, 0xFF00);
  EXPECT_EQ(number, 0x12345678);
  EXPECT_EQ(number_bits, 0x89ABCDEFu);
  EXPECT_EQ(large, 1);
  EXPECT_EQ(large_bits, 0xF1E2D3C4B5A69788ul);
  EXPECT_TRUE(input.good());
  EXPECT_EQ(input.peek(), std::char_traits<char>::eof());
}

TEST_F(binary_streams, binding_a_stream_does_nothing_to_it) {
  std::stringstream stream("content");
  stream.seekg(2);
  stream.seekp(3);
  { FIO_BIN_IFILE const in(stream); }
  { FIO_BIN_OFILE const out(stream); }
  EXPECT_TRUE(stream.good());
  EXPECT_EQ(stream.tellg(), 2);
  EXPECT_EQ(stream.tellp(), 3);
  EXPECT_EQ(stream.str(), "content");
}

TEST_F(binary_streams, each_byte_is_a_call_of_the_stream) {
  expect_one_call_a_byte<char>();
  expect_one_call_a_byte<short>();
  expect_one_call_a_byte<unsigned short>();
  expect_one_call_a_byte<int>();
  expect_one_call_a_byte<unsigned int>();
  expect_one_call_a_byte<long>();
  expect_one_call_a_byte<unsigned long>();
}

TEST_F(binary_streams, a_read_at_the_end_keeps_the_bytes_that_are_there_and_fails_the_stream) {
  expect_short_reads_to_keep_what_there_was<short>();
  expect_short_reads_to_keep_what_there_was<unsigned short>();
  expect_short_reads_to_keep_what_there_was<int>();
  expect_short_reads_to_keep_what_there_was<unsigned int>();
  expect_short_reads_to_keep_what_there_was<long>();
  expect_short_reads_to_keep_what_there_was<unsigned long>();
}

TEST_F(binary_streams, an_int_of_three_bytes_has_these_three) {
  std::istringstream stream("\x11\x22\x33");
  int value = 0;
  FIO_BIN_IFILE(stream) >> value;
  EXPECT_TRUE(stream.fail());
  EXPECT_EQ(value & 0xFFFFFF, 0x332211);
}

TEST_F(binary_streams, a_char_that_is_not_there_keeps_its_value) {
  std::istringstream stream;
  char value = 'x';
  FIO_BIN_IFILE(stream) >> value;
  EXPECT_TRUE(stream.fail());
  EXPECT_EQ(value, 'x');
  stream.clear();
  stream.exceptions(std::ios::failbit);
  EXPECT_THROW(FIO_BIN_IFILE(stream) >> value, std::ios::failure);
  EXPECT_EQ(value, 'x');
}

TEST_F(binary_streams, a_failed_stream_is_not_read_from_and_its_state_is_left_to_the_caller) {
  std::istringstream stream("12345678");
  stream.setstate(std::ios::failbit);
  int value = 0;
  FIO_BIN_IFILE in(stream);
  in >> value;
  EXPECT_TRUE(stream.fail());
  stream.clear();
  EXPECT_EQ(stream.tellg(), 0);
  in >> value;
  EXPECT_EQ(value, 0x34333231);
}

TEST_F(binary_streams, a_stream_that_takes_no_more_has_taken_the_first_bytes) {
  expect_a_full_stream_to_take_what_it_can<char>();
  expect_a_full_stream_to_take_what_it_can<short>();
  expect_a_full_stream_to_take_what_it_can<unsigned short>();
  expect_a_full_stream_to_take_what_it_can<int>();
  expect_a_full_stream_to_take_what_it_can<unsigned int>();
  expect_a_full_stream_to_take_what_it_can<long>();
  expect_a_full_stream_to_take_what_it_can<unsigned long>();
}

TEST_F(binary_streams, a_file_is_the_plain_values) {
  std::string const name = m_tree.path("values.bin");
  {
    std::ofstream file(name, std::ios::binary);
    FIO_BIN_OFILE(file) << 0x0A0D1A00 << '\n' << static_cast<short>(0x0D0A);
  }
  std::ifstream file(name, std::ios::binary);
  EXPECT_EQ(bytes(std::istreambuf_iterator<char>(file), {}), raw("\x00\x1a\x0d\x0a\n\x0a\x0d"));
  file.clear();
  file.seekg(4);
  char line_end = 0;
  short last = 0;
  FIO_BIN_IFILE(file) >> line_end >> last;
  EXPECT_EQ(line_end, '\n');
  EXPECT_EQ(last, 0x0D0A);
  EXPECT_TRUE(file.good());
}

TEST_F(binary_streams, nothing_is_allocated) {
  counted_bytes target{{}};
  target.taken.reserve(64);
  target.sizes.reserve(64);
  std::ostream output(&target);
  std::istringstream input(bytes(64, '\1'));
  FIO_BIN_OFILE out(output);
  FIO_BIN_IFILE in(input);
  char letter = 0;
  short small = 0;
  int number = 0;
  long large = 0;
  allocation_failure const failing(1);
  out << 'a' << static_cast<short>(1) << 1 << 1L;
  in >> letter >> small >> number >> large;
  EXPECT_EQ(failing.asked_for(), 0);
  EXPECT_EQ(large, 0x0101010101010101);
}
