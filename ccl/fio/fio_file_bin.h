/// @file
/// Declares `FIO_BIN_IFILE` and `FIO_BIN_OFILE`: integers on a binary stream, in one byte order on every host.
///
/// A value is stored as its bytes, the least significant one first, signed values in two's complement. Nothing else is
/// stored: no header, no length, no alignment.
///
///     char                    1 byte
///     short, unsigned short   2 bytes
///     int, unsigned int       4 bytes
///     long, unsigned long     8 bytes
///
///     std::ofstream file("count.bin", std::ios::binary);
///     FIO_BIN_OFILE out(file);
///     out << 0x12345678 << static_cast<short>(-2);   => 78 56 34 12 fe ff
///
/// The signed and the unsigned type of one width have the same bytes. There are no operators for other types; some of
/// them convert to one of these, so convert a value to the type that is meant. (``out << 'a'`` writes one byte,
/// `out << true` the four of an `int`.)
///
/// @par Failure
/// The operators test nothing. The state of the stream shows whether a value was read or written, after one value or
/// after many. Each byte of a value is attempted, by one `read` or `write` of the stream, even after earlier ones
/// failed. Exceptions that the caller has enabled on the stream are passed on, and no others are thrown.
///
/// @par Thread safety
/// An object and its stream may be used by one thread at a time.
///
/// @par Complexity
/// One call of the stream for each byte; the buffer is the stream's. Nothing is allocated.

#ifndef CCL_FIO_FIO_FILE_BIN_H
#define CCL_FIO_FIO_FILE_BIN_H

#include <iosfwd>

#include "ccl/fio/fio_export.h"

/// Reads integers from a binary stream.
///
/// After a failed read a `char` is unchanged, and any other target has an unspecified value, whose low bytes are those
/// that could be read.
///
/// @copydetails fio_file_bin.h
class FIO_BIN_IFILE {
public:
  /// Reads from `input`, which must outlive this object. Nothing is read yet.
  explicit FIO_BIN_IFILE(std::istream& input) : stream(input) {}

  FIO_EXPORT FIO_BIN_IFILE& operator>>(char& value);           ///< Reads 1 byte.
  FIO_EXPORT FIO_BIN_IFILE& operator>>(short& value);          ///< Reads 2 bytes.
  FIO_EXPORT FIO_BIN_IFILE& operator>>(unsigned short& value); ///< Reads 2 bytes.
  FIO_EXPORT FIO_BIN_IFILE& operator>>(int& value);            ///< Reads 4 bytes.
  FIO_EXPORT FIO_BIN_IFILE& operator>>(unsigned int& value);   ///< Reads 4 bytes.
  FIO_EXPORT FIO_BIN_IFILE& operator>>(long& value);           ///< Reads 8 bytes.
  FIO_EXPORT FIO_BIN_IFILE& operator>>(unsigned long& value);  ///< Reads 8 bytes.

private:
  std::istream& stream;
};

/// Writes integers to a binary stream.
///
/// @copydetails fio_file_bin.h
class FIO_BIN_OFILE {
public:
  /// Writes to `output`, which must outlive this object. Nothing is written yet.
  explicit FIO_BIN_OFILE(std::ostream& output) : stream(output) {}

  FIO_EXPORT FIO_BIN_OFILE& operator<<(char value);           ///< Writes 1 byte.
  FIO_EXPORT FIO_BIN_OFILE& operator<<(short value);          ///< Writes 2 bytes.
  FIO_EXPORT FIO_BIN_OFILE& operator<<(unsigned short value); ///< Writes 2 bytes.
  FIO_EXPORT FIO_BIN_OFILE& operator<<(int value);            ///< Writes 4 bytes.
  FIO_EXPORT FIO_BIN_OFILE& operator<<(unsigned int value);   ///< Writes 4 bytes.
  FIO_EXPORT FIO_BIN_OFILE& operator<<(long value);           ///< Writes 8 bytes.
  FIO_EXPORT FIO_BIN_OFILE& operator<<(unsigned long value);  ///< Writes 8 bytes.

private:
  std::ostream& stream;
};

#endif
