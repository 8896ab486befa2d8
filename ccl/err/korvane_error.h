/// @file
/// Declares errors that carry a message: objects that are made, returned as results and read, never thrown.
///
/// This header adds the factory to the base of the suite's error codes and the message that an error holds, both from
/// `korvane_errc.h`. Each library derives its own base from `KORVANE_ERRC` and its codes from that. An owning pointer
/// to an error is a failure; a null pointer is success.
///
/// @par Thread safety
/// Nothing is shared: an error belongs to the owner of its pointer.

#ifndef CCL_ERR_KORVANE_ERROR_H
#define CCL_ERR_KORVANE_ERROR_H

#include <boost/format.hpp>
#include <memory>
#include <new>
#include <ostream>
#include <stdexcept>
#include <type_traits>
#include <utility>

#include "ccl/err/korvane_errc.h"

/// Owns a new error of the class `T`, as returned by the factory. Not an exception.
template <typename T>
class KORVANE_ERROR {
public:
  /// Takes ownership of `error`.
  explicit KORVANE_ERROR(std::unique_ptr<T> error) : m_error(std::move(error)) {}

  /// Transfers ownership to a pointer to `T` or a base of it. Nothing is left here.
  template <typename Base, std::enable_if_t<std::is_convertible<T*, Base*>::value, int> = 0>
  operator std::unique_ptr<Base>() && {
    return std::move(m_error);
  }

  /// Returns the error, which stays here.
  T const& operator*() const { return *m_error; }

  /// Returns a pointer to the error, which stays here.
  T const* operator->() const { return m_error.get(); }

private:
  std::unique_ptr<T> m_error;
};

namespace korvane_detail {

/// Is true if a stream inserts a `T` as a string and not as an address.
template <typename T>
inline constexpr bool is_c_string = std::is_same_v<T, char*> || std::is_same_v<T, char const*> ||
                                    std::is_same_v<T, signed char*> || std::is_same_v<T, signed char const*> ||
                                    std::is_same_v<T, unsigned char*> || std::is_same_v<T, unsigned char const*>;

/// Inserts an argument into a format. A stream swallows the exception when memory runs out, and the string would be
/// truncated silently.
template <typename T>
struct fed_argument {
  T const& value;

  friend std::ostream& operator<<(std::ostream& stream, fed_argument const& argument) {
    if constexpr (is_c_string<T>) {
      if (argument.value == nullptr) {
        throw std::logic_error("make_korvane_error: null C-string");
      }
    }
    stream << argument.value;
    if (stream.bad()) {
      throw std::bad_alloc();
    }
    return stream;
  }
};

} // namespace korvane_detail

/// Makes an error of the class `T` from the format that `T::format_text()` returns, with `arguments` inserted.
///
///     make_korvane_error<FIO::ERRC::NOT_A_DIRECTORY_ERRC>("/tmp/x")
///         => The given path "/tmp/x" is not a valid directory.
///
/// An argument is never read as a format.
///
/// @throws boost::io::format_error if the format takes another number of arguments
/// @throws std::logic_error if an argument is a null C-string
/// @throws std::bad_alloc if the error cannot be stored
template <typename T, typename... Arguments>
KORVANE_ERROR<T> make_korvane_error(Arguments const&... arguments) {
  boost::format formatted(T::format_text());
  static_cast<void>((formatted % ... % korvane_detail::fed_argument<Arguments>{arguments}));
  return KORVANE_ERROR<T>(std::make_unique<T>(formatted));
}

#endif
