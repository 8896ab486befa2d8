/// @file
/// The format of an entry in a file dialog.

#ifndef CCL_FIO_INTERNAL_FILTER_TEXT_H
#define CCL_FIO_INTERNAL_FILTER_TEXT_H

#include <string>
#include <string_view>

namespace fio_internal {

/// Returns "Name (patterns)", or "Names (patterns)" for the plural, which is a bare "s" whatever the word. Empty
/// without a name or without patterns.
inline std::string filter_text(std::string_view name, bool plural, std::string_view patterns) {
  if (name.empty() || patterns.empty()) {
    return {};
  }
  std::string filter;
  filter.reserve(name.size() + patterns.size() + 4);
  filter.append(name).append(plural ? "s (" : " (").append(patterns).append(1, ')');
  return filter;
}

} // namespace fio_internal

#endif
