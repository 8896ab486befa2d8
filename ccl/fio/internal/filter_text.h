/// @file
/// The shape of an entry in a file dialog.

#ifndef CCL_FIO_INTERNAL_FILTER_TEXT_H
#define CCL_FIO_INTERNAL_FILTER_TEXT_H

#include <string>
#include <string_view>

namespace fio_internal {

/// "Name (patterns)", or "Names (patterns)" for the plural, which is a bare "s" whatever the word. Empty if either text
/// is.
inline std::string filter_text(std::string_view name, bool plural, std::string_view patterns) {
  std::string filter;
  if (name.empty() || patterns.empty()) {
    return filter;
  }
  filter.reserve(name.size() + patterns.size() + 4);
  filter.append(name).append(plural ? "s (" : " (").append(patterns).append(1, ')');
  return filter;
}

/// Adds the pattern for all names with an extension, given with its dot. An empty one adds nothing.
inline void append_pattern(std::string& patterns, std::string_view extension) {
  if (extension.empty()) {
    return;
  }
  if (!patterns.empty()) {
    patterns += ' ';
  }
  patterns.append(1, '*').append(extension);
}

} // namespace fio_internal

#endif
