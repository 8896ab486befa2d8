/// @file
/// The bytes of an input, cut into lines, so that an input can be written by hand and read in the repository.

#ifndef CCL_TESTS_FUZZ_SUPPORT_INPUT_H
#define CCL_TESTS_FUZZ_SUPPORT_INPUT_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace fuzz {

/// Hands out the lines of an input, one by one.
class input {
public:
  input(std::uint8_t const* data, std::size_t size) : m_next(data), m_end(data + size) {}

  bool at_end() const { return m_next == m_end; }

  /// The bytes up to the next line feed, or all that are left.
  std::string line() {
    std::uint8_t const* const feed = std::find(m_next, m_end, std::uint8_t{'\n'});
    std::string text(m_next, feed);
    m_next = feed == m_end ? m_end : feed + 1;
    return text;
  }

private:
  std::uint8_t const* m_next;
  std::uint8_t const* m_end;
};

/// A text in which "^" and a byte n stand for n more of the character before them, so that short inputs reach the
/// limits of length. Nothing grows beyond `longest`, which is behind every limit of the library.
inline std::string expanded(std::string const& text) {
  constexpr std::size_t longest = 2500;
  std::string result;
  for (std::size_t i = 0; i != text.size() && result.size() < longest; ++i) {
    if (text[i] == '^' && i + 1 != text.size() && !result.empty()) {
      result.append(static_cast<std::uint8_t>(text[++i]), result.back());
    } else {
      result += text[i];
    }
  }
  return result;
}

/// What stands before the first `separator`, which is taken out of `text` with it; all of it if there is none.
inline std::string cut_front(std::string& text, char separator) {
  std::size_t const end = text.find(separator);
  std::string front = text.substr(0, end);
  text.erase(0, end == std::string::npos ? end : end + 1);
  return front;
}

} // namespace fuzz

#endif
