// Integers on a stream in one byte order, whatever the machine. Nothing else is on the stream.

#include <ccl/fio/fio_file_bin.h>

#include <cstdio>
#include <iostream>
#include <sstream>

int main() {
  std::stringstream stream;

  FIO_BIN_OFILE out(stream);
  out << 0x12345678 << static_cast<short>(-2) << 'a';
  if (!stream) { // the operators test nothing: the stream tells, after one value or after many
    std::cerr << "the values cannot be written\n";
    return 1;
  }

  for (char const byte : stream.str()) {
    std::printf("%02x ", static_cast<unsigned>(static_cast<unsigned char>(byte)));
  }
  std::printf("\n");

  // Each value is read with the type that it was written with.
  int number = 0;
  short small = 0;
  char letter = 0;
  FIO_BIN_IFILE in(stream);
  in >> number >> small >> letter;
  std::printf("%x %d %c\n", static_cast<unsigned>(number), small, letter);

  in >> letter;
  std::printf("%s\n", stream ? "there is more" : "there is no more");
}
