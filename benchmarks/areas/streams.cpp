// Binary streams of integers, in memory.

#include "benchmarks/floors/streams.h"

#include <memory>
#include <sstream>
#include <string>

#include "benchmarks/areas/integers.h"
#include "benchmarks/registry.h"
#include "ccl/fio/fio_file_bin.h"

namespace bench {

void add_stream_workloads() {
  add_workload("streams.write", "write an integer of 32 bits", state_is::made_for_each_pass);
  add_workload("streams.read", "read an integer of 32 bits", state_is::made_for_each_pass);
  add_writing(library, [](std::ostream& stream, unsigned value) { FIO_BIN_OFILE(stream) << value; });
  add_writing(least_code, floors::write_integer);
  add_writing(
      bare_calls,
      [](std::ostream& stream, unsigned value) {
        for (unsigned shift = 0; shift != 32; shift += 8) {
          stream.rdbuf()->sputc(static_cast<char>(value >> shift));
        }
      },
      "bytes into the buffer, past the state of the stream");
  add_reading(library, [](std::istream& stream) {
    unsigned value = 0;
    FIO_BIN_IFILE(stream) >> value;
    return value;
  });
  add_reading(least_code, floors::read_integer);
  add_reading(
      bare_calls,
      [](std::istream& stream) {
        unsigned value = 0;
        for (unsigned shift = 0; shift != 32; shift += 8) {
          value |= static_cast<unsigned>(stream.rdbuf()->sbumpc() & 0xff) << shift;
        }
        return value;
      },
      "bytes from the buffer, past the state of the stream");
}

} // namespace bench
