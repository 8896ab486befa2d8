// Errors are received, read, copied and dropped with the header of the operations alone, which does not bring the
// format library.

#include "ccl/fio/fio_file_sys.h"

#ifdef BOOST_FORMAT_HPP
#error "whoever removes directories compiles the format library"
#endif

std::string words_of_a_removal();

std::string words_of_a_removal() {
  FIO_FILE_SYSTEM::remove_empty_subdirectories("a", true);
  std::unique_ptr<FIO_ERRC> const error = FIO_FILE_SYSTEM::remove_empty_subdirectories("b", true);
  if (error == nullptr || dynamic_cast<FIO::ERRC::NOT_A_DIRECTORY_ERRC const*>(error.get()) != nullptr) {
    return {};
  }
  return error->clone()->message().m_lines[0].m_text;
}
