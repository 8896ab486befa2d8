/// @file
/// The integers that are written and read, for the library and for its peers.

#ifndef CCL_BENCHMARKS_AREAS_INTEGERS_H
#define CCL_BENCHMARKS_AREAS_INTEGERS_H

#include <cstddef>
#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include "benchmarks/registry.h"

namespace bench {

/// A stream for so many integers.
struct integer_stream {
  std::unique_ptr<std::stringstream> stream;

  static constexpr std::size_t count = 4000;
  std::size_t size() const { return count; }
};

inline unsigned integer(std::size_t item) { return static_cast<unsigned>(item) * 2654435761U; }

/// `write(stream, value)` writes one integer.
template <typename Write>
void add_writing(std::string name, Write write, std::string note = {}) {
  add(
      "streams.write", std::move(name), [] { return integer_stream{std::make_unique<std::stringstream>()}; },
      [write](integer_stream const& file, std::size_t item, auto visit) {
        write(*file.stream, integer(item));
        visit(file.stream->good());
        visit.later([&] { return item + 1 == file.size() ? file.stream->str() : std::string(); });
      },
      std::move(note));
}

/// `read(stream)` reads one integer.
template <typename Read>
void add_reading(std::string name, Read read, std::string note = {}) {
  add(
      "streams.read", std::move(name),
      [] {
        std::string bytes(integer_stream::count * sizeof(unsigned), '\0');
        for (std::size_t i = 0; i != bytes.size(); ++i) {
          bytes[i] = static_cast<char>(integer(i) >> 24);
        }
        return integer_stream{std::make_unique<std::stringstream>(bytes)};
      },
      [read](integer_stream const& file, std::size_t, auto visit) { visit(read(*file.stream)); }, std::move(note));
}

} // namespace bench

#endif
