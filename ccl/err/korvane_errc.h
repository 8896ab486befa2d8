/// @file
/// The base of the suite's error codes, and the message that an error holds: all that it takes to hand an error up and
/// to read it. Those who make errors include `korvane_error.h`, which brings the format library with it.
///
/// @par Thread safety
/// Nothing is shared: an error belongs to whoever holds its pointer.

#ifndef CCL_ERR_KORVANE_ERRC_H
#define CCL_ERR_KORVANE_ERRC_H

#include <boost/container/small_vector.hpp>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>

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
  /// @param sub_messages a container of `KORVANE_ERROR_MESSAGE`, of which one may be this message: it is nested as it
  ///                     is when its turn comes
  /// @throws std::bad_alloc when the lines cannot be stored
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

  /// For `clone`.
  KORVANE_ERRC(KORVANE_ERRC const&) = default;
};

#endif
