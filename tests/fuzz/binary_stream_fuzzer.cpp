/// @file
/// Binary streams: sequences of values as bytes and back, from whole streams and from streams that end too early.
///
/// The first byte of an input tells after how many bytes the short stream ends, as a part of 256 of all. Then each
/// value is a byte for its type, with a bit that flips the sign of the type it is read back as, and eight bytes.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <ios>
#include <istream>
#include <ostream>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

#include "ccl/fio/fio_file_bin.h"
#include "tests/fuzz/support/check.h"
#include "tests/fuzz/support/target.h"

namespace {

// Bytes with an end: nothing is taken or given beyond `limit`. It notes if more than one byte is asked for at a time.
class bounded_buffer : public std::streambuf {
public:
  bounded_buffer(std::string content, std::size_t limit) : m_content(std::move(content)), m_limit(limit) {}

  std::string const& content() const { return m_content; }
  bool went_by_single_bytes() const { return m_single; }

protected:
  std::streamsize xsputn(char const* bytes, std::streamsize count) override {
    m_single = m_single && count == 1;
    std::streamsize done = 0;
    while (done != count && m_content.size() != m_limit) {
      m_content += bytes[done++];
    }
    return done;
  }

  std::streamsize xsgetn(char* bytes, std::streamsize count) override {
    m_single = m_single && count == 1;
    std::streamsize done = 0;
    while (done != count && m_next != std::min(m_limit, m_content.size())) {
      bytes[done++] = m_content[m_next++];
    }
    return done;
  }

private:
  std::string m_content;
  std::size_t m_limit;
  std::size_t m_next = 0;
  bool m_single = true;
};

template <typename Type>
void write_as(FIO_BIN_OFILE& out, std::uint64_t bits) {
  FIO_BIN_OFILE const& answer = out << static_cast<Type>(bits);
  fuzz::expect(&answer == &out, "a write answers its object", "");
}

// The bits of a value that is read into a target with these bits in it before.
template <typename Type>
std::uint64_t read_as(FIO_BIN_IFILE& in, std::uint64_t before) {
  auto value = static_cast<Type>(before);
  try {
    FIO_BIN_IFILE const& answer = in >> value;
    fuzz::expect(&answer == &in, "a read answers its object", "");
  } catch (std::ios_base::failure const&) {
    // Only streams that were told to throw do; their state says the rest.
  }
  return static_cast<std::uint64_t>(value);
}

// The types, each next to the one of the same width and the other sign.
struct value_type {
  std::size_t width;
  void (*write)(FIO_BIN_OFILE&, std::uint64_t);
  std::uint64_t (*read)(FIO_BIN_IFILE&, std::uint64_t);
};

constexpr value_type types[] = {
    {1, write_as<char>, read_as<char>},   {1, write_as<char>, read_as<char>},
    {2, write_as<short>, read_as<short>}, {2, write_as<unsigned short>, read_as<unsigned short>},
    {4, write_as<int>, read_as<int>},     {4, write_as<unsigned int>, read_as<unsigned int>},
    {8, write_as<long>, read_as<long>},   {8, write_as<unsigned long>, read_as<unsigned long>},
};

struct value {
  value_type const* written_as;
  value_type const* read_as;
  std::uint64_t bits;
};

std::uint64_t low_bytes(std::uint64_t bits, std::size_t count) {
  return count >= 8 ? bits : bits & ((std::uint64_t{1} << (8 * count)) - 1);
}

std::vector<value> values_of(std::uint8_t const* data, std::size_t size) {
  constexpr std::size_t value_size = 9;
  std::vector<value> values;
  for (std::size_t i = 0; i + value_size <= size; i += value_size) {
    std::size_t const type = data[i] & 7U;
    std::size_t const other_sign = (data[i] >> 3) & 1U;
    std::uint64_t bits = 0;
    std::memcpy(&bits, data + i + 1, sizeof bits);
    values.push_back({&types[type], &types[type ^ other_sign], bits});
  }
  return values;
}

std::string encoded(std::vector<value> const& values) {
  std::string bytes;
  for (value const& each : values) {
    for (std::size_t i = 0; i != each.written_as->width; ++i) {
      bytes += static_cast<char>(static_cast<std::uint8_t>(each.bits >> (8 * i)));
    }
  }
  return bytes;
}

// Writes all values to a stream that takes `limit` bytes.
void check_writing(std::vector<value> const& values, std::string const& expected, std::size_t limit) {
  bounded_buffer buffer("", limit);
  std::ostream stream(&buffer);
  FIO_BIN_OFILE out(stream);
  for (value const& each : values) {
    each.written_as->write(out, each.bits);
  }
  fuzz::expect_equal(buffer.content(), expected.substr(0, limit), "the bytes of what was written");
  fuzz::expect(stream.good() == (expected.size() <= limit), "the state after writing", expected);
  fuzz::expect(buffer.went_by_single_bytes(), "a value is written byte by byte", expected);
}

// What must hold of a value of which only `available` bytes could be read.
void check_partial(value const& given, std::uint64_t found, std::uint64_t before, std::size_t available) {
  if (given.read_as->width == 1) {
    fuzz::expect(low_bytes(found, 1) == low_bytes(before, 1), "an unread character stays", "");
  } else if (available != 0) {
    fuzz::expect(low_bytes(found, available) == low_bytes(given.bits, available), "the bytes before the end are there",
                 std::to_string(found));
  }
}

// Reads all values from a stream that ends after `limit` bytes, which throws if `throwing`.
void check_reading(std::vector<value> const& values, std::string const& bytes, std::size_t limit, bool throwing) {
  constexpr std::uint64_t before = 0x5a5a5a5a5a5a5a5a;
  bounded_buffer buffer(bytes, limit);
  std::istream stream(&buffer);
  if (throwing) {
    stream.exceptions(std::ios_base::failbit | std::ios_base::eofbit);
  }
  FIO_BIN_IFILE in(stream);
  std::size_t end = 0;
  for (value const& each : values) {
    std::size_t const start = end;
    end += each.read_as->width;
    std::uint64_t const found = each.read_as->read(in, before);
    if (end <= limit) {
      fuzz::expect(stream.good(), "the state after a whole value", bytes);
      fuzz::expect(low_bytes(found, each.read_as->width) == low_bytes(each.bits, each.read_as->width),
                   "a value is read back", bytes);
    } else {
      fuzz::expect(stream.fail() && stream.eof() && !stream.bad(), "the state behind the end", bytes);
      check_partial(each, found, before, limit > start ? limit - start : 0);
    }
  }
  fuzz::expect(buffer.went_by_single_bytes(), "a value is read byte by byte", bytes);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  if (size == 0) {
    return 0;
  }
  std::vector<value> const values = values_of(data + 1, size - 1);
  std::string const bytes = encoded(values);
  std::size_t const short_end = bytes.size() * data[0] / 256;
  for (std::size_t const limit : {bytes.size(), short_end}) {
    check_writing(values, bytes, limit);
    check_reading(values, bytes, limit, false);
    check_reading(values, bytes, limit, true);
  }
  return 0;
}
