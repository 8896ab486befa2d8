/// @file
/// Values of the library as texts, to be compared.

#ifndef CCL_TESTS_SWEEPS_ALLOCATION_TEXT_H
#define CCL_TESTS_SWEEPS_ALLOCATION_TEXT_H

#include <boost/optional/optional.hpp>
#include <list>
#include <memory>
#include <string>
#include <type_traits>

#include "ccl/fio/fio_clsid.h"
#include "ccl/fio/fio_errc.h"
#include "ccl/fio/fio_path.h"

template <typename Number, std::enable_if_t<std::is_arithmetic_v<Number> || std::is_enum_v<Number>, int> = 0>
std::string text_of(Number number) {
  return std::to_string(static_cast<long>(number));
}

inline std::string text_of(std::string const& text) { return '"' + text + '"'; }

inline std::string text_of(char const* text) { return text != nullptr ? text_of(std::string(text)) : "null"; }

/// The components and what belongs to them on the first line, the text that they make on the second.
inline std::string text_of(FIO_PATH const& path) {
  std::string text;
  for (FIO_PATH::FILE_COMPONENTS const component : {FIO_PATH::DIRECTORY, FIO_PATH::BASE, FIO_PATH::EXTENSION}) {
    text += path.get_path_components(component) + '|';
  }
  return text + path.sync_path_separators("/") + (path.is_legal_length() ? "" : " illegal") + '\n' + path.fullpath();
}

template <typename Value>
std::string text_of(boost::optional<Value> const& value) {
  return value ? text_of(*value) : "none";
}

template <typename Value>
std::string text_of(std::list<Value> const& list) {
  std::string text;
  for (Value const& value : list) {
    text += text_of(value) + '\n';
  }
  return text;
}

inline std::string text_of(_GUID const& clsid) { return fio_clsid_to_str(clsid, FIO_CLSID_FORMAT_TEXT); }

inline std::string text_of(KORVANE_ERROR_MESSAGE const& message) {
  std::string text;
  for (KORVANE_ERROR_MESSAGE::LINE const& line : message.m_lines) {
    text += line.m_text + '\n';
  }
  return text;
}

template <typename Error, std::enable_if_t<std::is_base_of_v<KORVANE_ERRC, Error>, int> = 0>
std::string text_of(std::unique_ptr<Error> const& error) {
  return error != nullptr ? text_of(error->message()) : "no error";
}

#endif
