/// @file
/// `FIO_BIN_IFILE` and `FIO_BIN_OFILE`: integers on a binary stream, in one byte order on every host.
///
/// A value is its bytes, the least significant one first, signed values in two's complement. Nothing else is on the
/// stream: no header, no length, no alignment.
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
/// The signed and the unsigned type of one width have the same bytes. The other types of the language are not on this
/// stream; some of them convert to one that is, so write what is meant by its own type. (``out << 'a'`` is one byte,
/// `out << true` is the four of an `int`.)
///
/// @par Failure
/// The operators test nothing. Whether a value was read or written is told by the state of the stream, after one value
/// or after many. Each byte of a value is attempted, with one `read` or `write` of the stream, whatever became of the
/// ones before. Exceptions that the caller has enabled on the stream pass through, and nothing else is thrown.
///
/// @par Thread safety
/// An object and its stream serve one thread at a time.
///
/// @par Complexity
/// One call of the stream a byte; the buffer is the stream's. Nothing is allocated.

#ifndef CCL_FIO_FIO_FILE_BIN_H
#define CCL_FIO_FIO_FILE_BIN_H

#include <iosfwd>

#include "ccl/fio/fio_export.h"

/// Reads integers from a binary stream.
///
/// After a read that failed the target has no useful value, but that of a `char`, which is as it was: it has what could
/// be read in its low bytes, and anything in the others.
///
/// @copydetails fio_file_bin.h
class FIO_BIN_IFILE {
public:
  /// Reads from `input`, which must outlive this object and is not touched yet.
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
  /// Writes to `output`, which must outlive this object and is not touched yet.
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
