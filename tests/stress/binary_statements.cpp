#include <fstream>
#include <limits>

#include "ccl/fio/fio_file_bin.h"
#include "ccl/fio/fio_file_sys.h"
#include "tests/stress/statements.h"

using stress::transcript;
using stress::workplace;

namespace {

template <typename Integer>
constexpr Integer values[] = {Integer(0),
                              Integer(1),
                              Integer(-1),
                              Integer(0x78),
                              Integer(0x1234567812345678),
                              std::numeric_limits<Integer>::min(),
                              std::numeric_limits<Integer>::max()};

template <typename Integer>
void write_values(FIO_BIN_OFILE& file) {
  for (Integer const value : values<Integer>) {
    file << value;
  }
}

template <typename Integer>
void read_values(FIO_BIN_IFILE& file, transcript& out) {
  for (std::size_t i = 0; i != std::size(values<Integer>); ++i) {
    Integer value = 0;
    file >> value;
    out << value;
  }
}

template <typename... Integers>
void write_and_read(std::string const& name, transcript& out) {
  {
    std::ofstream stream(name, std::ios::binary);
    FIO_BIN_OFILE file(stream);
    (write_values<Integers>(file), ...);
  }
  std::ifstream stream(name, std::ios::binary);
  FIO_BIN_IFILE file(stream);
  (read_values<Integers>(file, out), ...);
  out << stream.good();
  char beyond = 'x';
  file >> beyond;
  out << beyond << stream.good();
}

void write_and_read_own_files(workplace const& place, transcript& out) {
  std::string const name = place.directory + "values.bin";
  write_and_read<char, short, unsigned short, int, unsigned int, long, unsigned long>(name, out);
  out << FIO_FILE_SYSTEM::remove(name);
}

} // namespace

std::vector<stress::statement> stress::binary_statements() {
  return {
      {"fio_file_bin.h", "An object and its stream serve one thread at a time",
       "writing and reading every width on streams of its own", write_and_read_own_files},
  };
}
