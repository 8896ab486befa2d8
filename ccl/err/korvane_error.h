/// @file
/// Errors that carry words: objects that are made, handed up as results and read, never thrown.
///
/// The base of the suite's error codes, the message that an error holds, and the factory. Each library derives its own
/// base from `KORVANE_ERRC` and its codes from that. An owning pointer to an error is a failure; a null pointer is
/// success.
///
/// @par Thread safety
/// Nothing is shared: an error belongs to whoever holds its pointer.

#ifndef CCL_ERR_KORVANE_ERROR_H
#define CCL_ERR_KORVANE_ERROR_H

#include <boost/container/small_vector.hpp>
#include <boost/format.hpp>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <ostream>
#include <string>
#include <type_traits>
#include <utility>

/// The words of an error, as lines, of which the first is the main one.
class KORVANE_ERROR_MESSAGE {
public:
  /// One line of a message.
  struct LINE {
    std::string m_text;        ///< the words, fully formatted
    std::string m_aux_text;    ///< a second text, carried along
    std::int32_t m_code = -1;  ///< a code for the line, carried along
    std::int32_t m_indent = 0; ///< the depth of nesting: 0 for the main line
  };

  /// Nests other messages under this one: appends copies of all their lines, in order, and then adds 1 to the depth of
  /// every line but the first of the whole, older lines included. So a second call deepens them again.
  ///
  ///     depths 0, and two messages of depths 0, 1   => 0, 1, 2, 1, 2
  ///
  /// @param sub_messages a container of `KORVANE_ERROR_MESSAGE`
  /// @throws std::bad_alloc when the lines cannot be stored
  template <typename Container>
  void unpack_submsgs(Container const& sub_messages) {
    for (KORVANE_ERROR_MESSAGE const& sub_message : sub_messages) {
      m_lines.insert(m_lines.end(), sub_message.m_lines.begin(), sub_message.m_lines.end());
    }
    for (std::size_t i = 1; i < m_lines.size(); ++i) {
      ++m_lines[i].m_indent;
    }
  }

  /// The lines. Nearly every message has exactly one, which needs no storage of its own.
  boost::container::small_vector<LINE, 1> m_lines;
};

/// The base of all error codes.
class KORVANE_ERRC {
public:
  /// A copy of the error, of the same class.
  virtual std::unique_ptr<KORVANE_ERRC> clone() const = 0;

  virtual ~KORVANE_ERRC() = default;

  KORVANE_ERRC& operator=(KORVANE_ERRC const&) = delete;

  /// A copy of the words.
  virtual KORVANE_ERROR_MESSAGE message() const = 0;

protected:
  KORVANE_ERRC() = default;
  KORVANE_ERRC(KORVANE_ERRC const&) = default;
};

/// What the factory answers: the owner of a new error of the class `T`. Not an exception.
template <typename T>
class KORVANE_ERROR {
public:
  /// Takes over `error`.
  explicit KORVANE_ERROR(std::unique_ptr<T> error) : m_error(std::move(error)) {}

  /// Hands the error over to a pointer to `T` or a base of it. Nothing is left here.
  template <typename Base, std::enable_if_t<std::is_convertible<T*, Base*>::value, int> = 0>
  operator std::unique_ptr<Base>() && {
    return std::move(m_error);
  }

  /// The error, which stays here.
  T const& operator*() const { return *m_error; }
  T const* operator->() const { return m_error.get(); }

private:
  std::unique_ptr<T> m_error;
};

namespace korvane_detail {

/// An argument on its way into a format. A stream swallows the exception when memory runs out, and the text would be
/// cut without a word.
template <typename T>
struct fed_argument {
  T const& value;

  friend std::ostream& operator<<(std::ostream& stream, fed_argument const& argument) {
    stream << argument.value;
    if (stream.bad()) {
      throw std::bad_alloc();
    }
    return stream;
  }
};

} // namespace korvane_detail

/// Makes an error of the class `T` from the text that `T::format_text()` answers, with `arguments` fed into it.
///
///     make_korvane_error<FIO::ERRC::NOT_A_DIRECTORY_ERRC>("/tmp/x")
///         => The given path "/tmp/x" is not a valid directory.
///
/// An argument is never read as a format.
///
/// @throws boost::io::format_error if the text takes another number of arguments
/// @throws std::bad_alloc when the error cannot be stored
template <typename T, typename... Arguments>
KORVANE_ERROR<T> make_korvane_error(Arguments const&... arguments) {
  boost::format formatted(T::format_text());
  static_cast<void>((formatted % ... % korvane_detail::fed_argument<Arguments>{arguments}));
  return KORVANE_ERROR<T>(std::make_unique<T>(formatted));
}

#endif
