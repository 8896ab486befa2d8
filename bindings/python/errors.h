/// @file
/// Failures of the library as exceptions of Python.

#ifndef CCL_BINDINGS_PYTHON_ERRORS_H
#define CCL_BINDINGS_PYTHON_ERRORS_H

#include <cerrno>
#include <string>

#include "bindings/python/bindings.h"
#include "ccl/fio/fio_errc_codes.h"
#include "ccl/fio/fio_path.h"

/// Raises the subclass of `OSError` for `code`, or `ccl_fio.Error` with the words `what` and the names if it is 0.
[[noreturn]] void raise_failure(int code, char const* what, file_name const& name, file_name const* second = nullptr);

/// Raises the exception for an error with words.
[[noreturn]] void raise_error(FIO_ERRC const& error, file_name const& name);

/// The path itself.
///
/// @throws error_already_set with an `OSError` of `ENAMETOOLONG` if a string was too long for it
FIO_PATH const& legal(FIO_PATH const& path);

/// The bytes of a name, for an operation that takes a longer one for another.
///
/// @throws error_already_set as `legal` does
std::string const& legal_string(file_name const& name);

/// The path parsed from a name.
///
/// @throws error_already_set as `legal` does
FIO_PATH path_of(file_name const& name);

/// The path of a directory and a name in it.
///
/// @throws error_already_set as `legal` does
FIO_PATH joined_path(file_name const& directory, file_name const& name);

/// Calls `work` without the lock of the interpreter, and raises a failure if it returns false. `what` says what could
/// not be done, for a failure that left no `errno`.
template <typename Work>
void must_succeed(char const* what, file_name const& name, file_name const* second, Work work) {
  int code = 0;
  bool const succeeded = without_interpreter([&] {
    errno = 0;
    bool const result = work();
    code = errno;
    return result;
  });
  if (!succeeded) {
    raise_failure(code, what, name, second);
  }
}

#endif
