// Errors are made with the header of the errors alone.

#include "ccl/fio/fio_errc.h"

std::unique_ptr<FIO_ERRC> two_ways_to_an_error(bool from_format);

std::unique_ptr<FIO_ERRC> two_ways_to_an_error(bool from_format) {
  using FIO::ERRC::NOT_A_DIRECTORY_ERRC;
  if (from_format) {
    return std::make_unique<NOT_A_DIRECTORY_ERRC>(boost::format("%s") % "a");
  }
  return make_korvane_error<NOT_A_DIRECTORY_ERRC>("a");
}
