/// @file
/// Declares the base of the suite's error codes, and the message that an error holds: all that is needed to return an
/// error and to read it. Code that makes errors includes `korvane_error.h`, which includes the format library.
///
/// @par Thread safety
/// Nothing is shared: an error belongs to the owner of its pointer.

#ifndef CCL_ERR_KORVANE_ERRC_H
#define CCL_ERR_KORVANE_ERRC_H

#include <boost/container/small_vector.hpp>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>

/// Holds the message of an error, as lines, of which the first is the main one.
class KORVANE_ERROR_MESSAGE {
public:
  /// Holds one line of a message.
  struct LINE {
    std::string m_text;        ///< the formatted string
    std::string m_aux_text;    ///< a second string, copied with the line
    std::int32_t m_code = -1;  ///< a code for the line, copied with it
    std::int32_t m_indent = 0; ///< the depth of nesting: 0 for the main line
  };

  /// Nests other messages under this one: appends copies of all their lines, in order, and then adds 1 to the depth of
  /// every line but the first of the whole, including older lines. So a second call deepens them again.
  ///
  ///     depths 0, and two messages of depths 0, 1   => 0, 1, 2, 1, 2
  ///
  /// @param sub_messages a container of `KORVANE_ERROR_MESSAGE`, of which one may be this message: it is nested as it
  ///                     is at that point
  /// @throws std::bad_alloc if the lines cannot be stored
  template <typename Container>
  void unpack_submsgs(Container const& sub_messages) {
    for (KORVANE_ERROR_MESSAGE const& sub_message : sub_messages) {
      if (&sub_message == this) {
        // The lines move when they need more room, which must not happen to those that are being copied.
        auto own_lines = m_lines;
        m_lines.insert(m_lines.end(), std::make_move_iterator(own_lines.begin()),
                       std::make_move_iterator(own_lines.end()));
      } else {
        m_lines.insert(m_lines.end(), sub_message.m_lines.begin(), sub_message.m_lines.end());
      }
    }
    for (std::size_t i = 1; i < m_lines.size(); ++i) {
      ++m_lines[i].m_indent;
    }
  }

  /// Holds the lines. Nearly every message has exactly one, which needs no storage of its own.
  boost::container::small_vector<LINE, 1> m_lines;
};

/// Provides the base of all error codes.
class KORVANE_ERRC {
public:
  /// Returns a copy of the error, of the same class.
  virtual std::unique_ptr<KORVANE_ERRC> clone() const = 0;

  virtual ~KORVANE_ERRC() = default;

  KORVANE_ERRC& operator=(KORVANE_ERRC const&) = delete;

  /// Returns a copy of the message.
  virtual KORVANE_ERROR_MESSAGE message() const = 0;

protected:
  KORVANE_ERRC() = default;

  /// Copies an error. For `clone`.
  KORVANE_ERRC(KORVANE_ERRC const&) = default;
};

#endif
