#include "tests/stress/statements.h"

using stress::transcript;
using stress::workplace;

namespace {

void read(KORVANE_ERRC const& error, transcript& out) {
  for (KORVANE_ERROR_MESSAGE::LINE const& line : error.message().m_lines) {
    out << line.m_text << line.m_aux_text << line.m_code << line.m_indent;
  }
}

void read_shared_error(workplace const& place, transcript& out) {
  read(*place.shared.error, out);
  read(*place.shared.error->clone(), out);
}

void make_own_errors(workplace const& place, transcript& out) {
  using namespace FIO::ERRC;
  std::unique_ptr<FIO_ERRC> error = make_korvane_error<NOT_A_DIRECTORY_ERRC>(place.directory);
  read(*error, out);
  error = make_korvane_error<FAILED_TO_OPEN_DIRECTORY_ERRC>(place.directory);
  read(*error->clone(), out);
  error = make_korvane_error<FAILED_TO_REMOVE_DIRECTORY_ERRC>(place.directory);
  KORVANE_ERROR_MESSAGE message = error->message();
  message.unpack_submsgs(std::vector<KORVANE_ERROR_MESSAGE>{place.shared.error->message()});
  out << message.m_lines.size() << message.m_lines.back().m_indent;
}

} // namespace

std::vector<stress::statement> stress::error_statements() {
  return {
      {"fio_errc.h", "and does not change once made", "reading and copying the same error", read_shared_error},
      {"fio_errc.h", "An error belongs to whoever holds its pointer", "making, copying and nesting errors of its own",
       make_own_errors},
  };
}
