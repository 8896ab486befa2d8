/// @file
/// The errors of this library that carry words: `FIO_ERRC` and its codes.
///
/// Most of the library tells a failure by a result. An operation that needs words answers an owning pointer to a
/// `FIO_ERRC`, and null for success; nothing here is ever thrown.
///
///     std::unique_ptr<FIO_ERRC> error = make_korvane_error<FIO::ERRC::NOT_A_DIRECTORY_ERRC>(path);
///     error->message().m_lines[0].m_text   => The given path "/tmp/x" is not a valid directory.
///
/// A reader turns a message into one text by walking its lines: before each line whose depth is not 0 stand a line feed
/// and as many tabs as the depth.
///
/// @par Thread safety
/// An error belongs to whoever holds its pointer and does not change once made. Any thread may make one. A thread
/// checker may complain of two that make their first at once: the C++ library fills a cache of characters there
/// without a lock, each time with the same values.

#ifndef CCL_FIO_FIO_ERRC_H
#define CCL_FIO_FIO_ERRC_H

#include <initializer_list>
#include <memory>
#include <string>

#include "ccl/err/korvane_error.h"
#include "ccl/fio/fio_export.h"

/// The base of this library's errors: it holds the message, which has one line when made.
class FIO_EXPORT FIO_ERRC : public KORVANE_ERRC {
public:
  /// Takes the finished text of a format object for the one line of the message.
  ///
  /// @throws boost::io::format_error if the object was fed too few arguments
  template <typename Character, typename Traits, typename Allocator>
  explicit FIO_ERRC(boost::basic_format<Character, Traits, Allocator> const& formatted) {
    m_message.m_lines.emplace_back();
    m_message.m_lines.back().m_text = formatted.str();
    m_message.unpack_submsgs(std::initializer_list<KORVANE_ERROR_MESSAGE>());
  }

  std::unique_ptr<KORVANE_ERRC> clone() const override = 0;
  ~FIO_ERRC() override;
  FIO_ERRC& operator=(FIO_ERRC const&) = delete;

  /// A copy of the message, for the caller to keep or change.
  KORVANE_ERROR_MESSAGE message() const override;

protected:
  FIO_ERRC(FIO_ERRC const&) = default;

private:
  KORVANE_ERROR_MESSAGE m_message;
};

namespace FIO::ERRC {

/// A path that should name a directory does not.
class FIO_EXPORT NOT_A_DIRECTORY_ERRC final : public FIO_ERRC {
public:
  static constexpr char const* format_text() { return "The given path \"%s\" is not a valid directory."; }
  using FIO_ERRC::FIO_ERRC;
  std::unique_ptr<KORVANE_ERRC> clone() const override;
};

/// A directory cannot be listed.
class FIO_EXPORT FAILED_TO_OPEN_DIRECTORY_ERRC final : public FIO_ERRC {
public:
  static constexpr char const* format_text() { return "Failed to open \"%s\" as a directory."; }
  using FIO_ERRC::FIO_ERRC;
  std::unique_ptr<KORVANE_ERRC> clone() const override;
};

/// A directory cannot be removed.
class FIO_EXPORT FAILED_TO_REMOVE_DIRECTORY_ERRC final : public FIO_ERRC {
public:
  static constexpr char const* format_text() { return "Failed to remove directory \"%s\"."; }
  using FIO_ERRC::FIO_ERRC;
  std::unique_ptr<KORVANE_ERRC> clone() const override;
};

} // namespace FIO::ERRC

#endif
