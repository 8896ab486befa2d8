// The errors that carry words.

#include <memory>
#include <string>

#include "ccl/fio/fio_errc.h"
#include "tests/sweeps/allocation_coverage.h"
#include "tests/sweeps/allocation_operation.h"

namespace {

std::string const path = "a/path/of/some/length/that/an/error/speaks/of";

template <typename Error>
std::unique_ptr<FIO_ERRC> made_error() {
  return make_korvane_error<Error>(path);
}

template <typename Error>
void add_error(operation_table& table, std::string const& name) {
  table.add(
      {inline_prefix + ("make_korvane_error<" + name + ">")}, [] { return nothing(); },
      [](nothing) { return made_error<Error>(); });
  table.add({name + "::clone() const"}, made_error<Error>,
            [](std::unique_ptr<FIO_ERRC> const& error) { return error->clone(); });
}

} // namespace

void add_error_operations(operation_table& table) {
  using namespace FIO::ERRC;
  add_error<NOT_A_DIRECTORY_ERRC>(table, "FIO::ERRC::NOT_A_DIRECTORY_ERRC");
  add_error<FAILED_TO_OPEN_DIRECTORY_ERRC>(table, "FIO::ERRC::FAILED_TO_OPEN_DIRECTORY_ERRC");
  add_error<FAILED_TO_REMOVE_DIRECTORY_ERRC>(table, "FIO::ERRC::FAILED_TO_REMOVE_DIRECTORY_ERRC");
  table.add({"FIO_ERRC::message() const"}, made_error<NOT_A_DIRECTORY_ERRC>,
            [](std::unique_ptr<FIO_ERRC> const& error) { return error->message(); });
  table.add_quiet({"FIO_ERRC::~FIO_ERRC()"}, made_error<NOT_A_DIRECTORY_ERRC>,
                  [](std::unique_ptr<FIO_ERRC>& error) { error.reset(); });
}
