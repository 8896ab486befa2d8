#include "ccl/fio/fio_file_bin.h"

#include <istream>
#include <ostream>
#include <type_traits>

#include "ccl/fio/internal/module.h"

namespace {

MEM_INITIALIZER const mem_initializer(fio_internal::module_name);

static_assert(sizeof(short) == 2 && sizeof(int) == 4 && sizeof(long) == 8, "the widths on the stream");

constexpr unsigned bits_in_a_byte = 8;

// The value is made byte by byte in the caller's own variable, so that it has what was read if the stream throws.
template <typename Integer>
void read_integer(std::istream& stream, Integer& value) {
  using bits = std::make_unsigned_t<Integer>;
  value = 0;
  char byte = 0; // not cleared between bytes: at the end of the stream the last one is repeated for the rest
  for (unsigned position = 0; position != sizeof(Integer); ++position) {
    stream.read(&byte, 1);
    bits const read = static_cast<bits>(static_cast<unsigned char>(byte));
    value = static_cast<Integer>(static_cast<bits>(value) | static_cast<bits>(read << (bits_in_a_byte * position)));
  }
}

template <typename Integer>
void write_integer(std::ostream& stream, Integer value) {
  for (unsigned position = 0; position != sizeof(Integer); ++position) {
    char const byte = static_cast<char>(value & 0xff);
    stream.write(&byte, 1);
    value = static_cast<Integer>(value >> bits_in_a_byte);
  }
}

} // namespace

FIO_BIN_IFILE& FIO_BIN_IFILE::operator>>(char& value) {
  stream.read(&value, 1);
  return *this;
}

FIO_BIN_IFILE& FIO_BIN_IFILE::operator>>(short& value) {
  read_integer(stream, value);
  return *this;
}

FIO_BIN_IFILE& FIO_BIN_IFILE::operator>>(unsigned short& value) {
  read_integer(stream, value);
  return *this;
}

FIO_BIN_IFILE& FIO_BIN_IFILE::operator>>(int& value) {
  read_integer(stream, value);
  return *this;
}

FIO_BIN_IFILE& FIO_BIN_IFILE::operator>>(unsigned int& value) {
  read_integer(stream, value);
  return *this;
}

FIO_BIN_IFILE& FIO_BIN_IFILE::operator>>(long& value) {
  read_integer(stream, value);
  return *this;
}

FIO_BIN_IFILE& FIO_BIN_IFILE::operator>>(unsigned long& value) {
  read_integer(stream, value);
  return *this;
}

FIO_BIN_OFILE& FIO_BIN_OFILE::operator<<(char value) {
  stream.write(&value, 1);
  return *this;
}

FIO_BIN_OFILE& FIO_BIN_OFILE::operator<<(short value) {
  write_integer(stream, value);
  return *this;
}

FIO_BIN_OFILE& FIO_BIN_OFILE::operator<<(unsigned short value) {
  write_integer(stream, value);
  return *this;
}

FIO_BIN_OFILE& FIO_BIN_OFILE::operator<<(int value) {
  write_integer(stream, value);
  return *this;
}

FIO_BIN_OFILE& FIO_BIN_OFILE::operator<<(unsigned int value) {
  write_integer(stream, value);
  return *this;
}

FIO_BIN_OFILE& FIO_BIN_OFILE::operator<<(long value) {
  write_integer(stream, value);
  return *this;
}

FIO_BIN_OFILE& FIO_BIN_OFILE::operator<<(unsigned long value) {
  write_integer(stream, value);
  return *this;
}
