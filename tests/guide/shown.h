// Results as the documentation writes them.

#ifndef CCL_TESTS_GUIDE_SHOWN_H
#define CCL_TESTS_GUIDE_SHOWN_H

#include <ccl/fio/fio.h>

#include <boost/filesystem.hpp>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <list>
#include <string>
#include <type_traits>

namespace guide {

inline std::string shown(std::string const& text) { return '"' + text + '"'; }
inline std::string shown(char const* text) { return text == nullptr ? "null" : shown(std::string(text)); }
inline std::string shown(FIO_PATH const& path) { return shown(path.fullpath()); }
inline std::string shown(std::filesystem::path const& path) { return shown(path.native()); }
inline std::string shown(boost::filesystem::path const& path) { return shown(path.native()); }
inline std::string shown(_GUID const& value) { return fio_clsid_to_str(value, FIO_CLSID_FORMAT_TEXT); }

template <typename Number, std::enable_if_t<std::is_integral_v<Number> || std::is_enum_v<Number>, int> = 0>
std::string shown(Number value) {
  if constexpr (std::is_same_v<Number, bool>) {
    return value ? "true" : "false";
  } else {
    return std::to_string(static_cast<long>(value));
  }
}

template <typename Value>
std::string shown(boost::optional<Value> const& value) {
  return value ? shown(*value) : "none";
}

template <typename Element>
std::string shown(std::list<Element> const& list) {
  std::string text;
  for (Element const& element : list) {
    text += (text.empty() ? "" : ", ") + shown(element);
  }
  return text;
}

template <typename First, typename Second, typename... Others>
std::string shown(First const& first, Second const& second, Others const&... others) {
  return shown(first) + ", " + shown(second, others...);
}

/// Writes what an operation of a table returns, or what it has made of `path` if it returns nothing.
template <typename Operation, typename Path>
void show(Operation operation, [[maybe_unused]] Path const& path) {
  try {
    if constexpr (std::is_void_v<decltype(operation())>) {
      operation();
      std::puts(shown(path).c_str());
    } else {
      std::puts(shown(operation()).c_str());
    }
  } catch (std::exception const&) {
    std::puts("throws");
  }
}

} // namespace guide

#endif
