/// @file
/// The floor of binary streams: one byte a call, as the state of a stream that ends inside a value shows it.

#ifndef CCL_BENCHMARKS_FLOORS_STREAMS_H
#define CCL_BENCHMARKS_FLOORS_STREAMS_H

#include <istream>
#include <ostream>

namespace floors {

inline void write_integer(std::ostream& stream, unsigned value) {
  for (unsigned shift = 0; shift != 32; shift += 8) {
    char const byte = static_cast<char>(value >> shift);
    stream.write(&byte, 1);
  }
}

inline unsigned read_integer(std::istream& stream) {
  unsigned value = 0;
  char byte = 0;
  for (unsigned shift = 0; shift != 32; shift += 8) {
    stream.read(&byte, 1);
    value |= static_cast<unsigned>(static_cast<unsigned char>(byte)) << shift;
  }
  return value;
}

} // namespace floors

#endif
