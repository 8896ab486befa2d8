/// @file
/// Declares the errors of this library as results: `FIO_ERRC` and its codes, for code that receives and reads them.
/// Code that makes errors includes `fio_errc.h`, which includes the format library.
///
/// A pointer that is not null is a failure, so `if (error)` has the opposite meaning of a `bool` result of the file
/// operations. `message()` returns a copy: give it a name before taking a pointer into it.
///
/// To join the lines, put a line feed and as many tabs as the depth before each line whose depth is not 0:
///
///     KORVANE_ERROR_MESSAGE const message = error->message();
///     std::string text;
///     for (KORVANE_ERROR_MESSAGE::LINE const& line : message.m_lines) {
///       text.append(line.m_indent != 0, '\n').append(static_cast<std::size_t>(line.m_indent), '\t').append(line.m_text);
///     }
///
/// @par Thread safety
/// An error belongs to the owner of its pointer and does not change once made.

#ifndef CCL_FIO_FIO_ERRC_CODES_H
#define CCL_FIO_FIO_ERRC_CODES_H

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

#include "ccl/fio/fio_export.h"

// Another platform may have all of its errors in one header.
#if !defined(CCL_PLATFORM_REPLACED) && __has_include("ccl/err/korvane_errc.h")
#include "ccl/err/korvane_errc.h"
#else
#include "ccl/err/korvane_error.h"
#endif

namespace boost {

// The format library's own header of forward declarations includes the locales.
template <typename Character, typename Traits, typename Allocator>
class basic_format;

} // namespace boost

namespace fio_internal {

/// Makes an error of this code about a path, for the library alone.
template <typename T>
std::unique_ptr<T> make_path_error(std::string const& path);

} // namespace fio_internal

/// Holds the message of an error, which has one line when made. This is the base of the library's errors.
///
/// @copydetails fio_errc_codes.h
class FIO_EXPORT FIO_ERRC : public KORVANE_ERRC {
public:
  /// Stores the finished string of a format object as the one line of the message.
  ///
  /// @throws boost::io::format_error if the object was fed too few arguments
  template <typename Character, typename Traits, typename Allocator>
  explicit FIO_ERRC(boost::basic_format<Character, Traits, Allocator> const& formatted) {
    set_line(formatted.str());
  }

  std::unique_ptr<KORVANE_ERRC> clone() const override = 0;
  ~FIO_ERRC() override;
  FIO_ERRC& operator=(FIO_ERRC const&) = delete;

  /// Returns a copy of the message, for the caller to keep or change.
  KORVANE_ERROR_MESSAGE message() const override;

protected:
  /// Copies the message. For `clone`.
  FIO_ERRC(FIO_ERRC const&) = default;

private:
  template <typename T>
  friend std::unique_ptr<T> fio_internal::make_path_error(std::string const& path);

  explicit FIO_ERRC(std::string words) { set_line(std::move(words)); }

  template <typename Words>
  void set_line(Words&& words) {
    m_message.m_lines.emplace_back();
    m_message.m_lines.back().m_text = std::forward<Words>(words);
    m_message.unpack_submsgs(std::initializer_list<KORVANE_ERROR_MESSAGE>());
  }

  KORVANE_ERROR_MESSAGE m_message;
};

namespace FIO::ERRC {

/// Reports that a path is not a directory.
class FIO_EXPORT NOT_A_DIRECTORY_ERRC final : public FIO_ERRC {
public:
  /// Returns the format, with the path as its argument.
  static constexpr char const* format_text() { return "The given path \"%s\" is not a valid directory."; }
  using FIO_ERRC::FIO_ERRC;

  std::unique_ptr<KORVANE_ERRC> clone() const override;
};

/// Reports that a directory cannot be listed.
class FIO_EXPORT FAILED_TO_OPEN_DIRECTORY_ERRC final : public FIO_ERRC {
public:
  /// Returns the format, with the path as its argument.
  static constexpr char const* format_text() { return "Failed to open \"%s\" as a directory."; }
  using FIO_ERRC::FIO_ERRC;

  std::unique_ptr<KORVANE_ERRC> clone() const override;
};

/// Reports that a directory cannot be removed.
class FIO_EXPORT FAILED_TO_REMOVE_DIRECTORY_ERRC final : public FIO_ERRC {
public:
  /// Returns the format, with the path as its argument.
  static constexpr char const* format_text() { return "Failed to remove directory \"%s\"."; }
  using FIO_ERRC::FIO_ERRC;

  std::unique_ptr<KORVANE_ERRC> clone() const override;
};

} // namespace FIO::ERRC

#endif
