// Errors with words are results: a pointer that is set is a failure. They are read, nested and handed up, never thrown.

#include <ccl/fio/fio_errc.h>
#include <ccl/fio/fio_file_sys.h>

#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace {

// An error of a tool's own, with the errors that caused it.
class CLEANING_FAILED_ERRC final : public FIO_ERRC {
public:
  static constexpr char const* format_text() { return "Cannot clean %d of %d directories."; }
  using FIO_ERRC::FIO_ERRC;

  std::unique_ptr<KORVANE_ERRC> clone() const override { return std::make_unique<CLEANING_FAILED_ERRC>(*this); }
};

} // namespace

int main() {
  std::vector<KORVANE_ERROR_MESSAGE> causes;
  for (char const* const directory : {"README.md", "nowhere"}) {
    if (std::unique_ptr<FIO_ERRC> const error = FIO_FILE_SYSTEM::remove_empty_subdirectories(directory, false)) {
      causes.push_back(error->message());
    }
  }
  if (causes.empty()) {
    return 0;
  }

  std::unique_ptr<FIO_ERRC> const error = make_korvane_error<CLEANING_FAILED_ERRC>(causes.size(), 2);
  KORVANE_ERROR_MESSAGE message = error->message(); // a copy, which has to have a name
  message.unpack_submsgs(causes);
  for (KORVANE_ERROR_MESSAGE::LINE const& line : message.m_lines) {
    std::cout << std::string(static_cast<std::size_t>(line.m_indent), '\t') << line.m_text << '\n';
  }
}
