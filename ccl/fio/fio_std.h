/// @file
/// Makes the types of this library usable with the standard library: in unordered containers, as keys by their string,
/// on streams, in fmt, and in comparisons with literals. `fio.h` does not include it; it adds nothing to the library.
///
///     std::unordered_set<FIO_PATH> files;                                        // by `==`
///     std::unordered_set<FIO_PATH, fio_text_hash, fio_text_equal> names;         // by the string alone
///     std::map<FIO_PATH, int, fio_text_less> sizes;                              // and sizes.find("rtl/top.v")
///     if ("rtl/top.v" == path) ...
///     for (FIO_EDITOR_TYPE const editor : fio_editor_types) ...
///     fio_test_trait_of(type, FIO_FILE_TYPE_FLAG_SOURCE_FILES | FIO_FILE_TYPE_FLAG_DESIGN_FILES)
///
/// @par What does not compile any more
/// A path converts to a pointer to its string, so without this header the following compile and use the address. With
/// it each is an error whose message is what to write instead:
///
///     p > q, p <= q, p >= q      // q < p, !(q < p), !(p < q)
///     !p, nullptr == p           // p.fullpath().empty()
///     p + 1, 1 + p, p - 1        // p.fullpath() + ...
///     p - q                      // p.get_relative_to(q.directory())
///
/// The same holds where one of the two is a C string. `if (p)`, `p && q`, `*p` and `p[0]` compile as they do without
/// this header; the first two test a pointer that is never null.
///
/// @par C++20
/// There `std::pair`, `std::tuple` and the containers compare their elements by `<=>`, which for paths without this
/// header is that of the pointers: the order of a `std::pair<FIO_PATH, int>` is that of addresses. With this header
/// paths have no `<=>`, and these types use `==` and `<` of the paths, as they do in C++17.
///
/// @warning A template of the standard library that depends on these operators must mean the same in each source file
/// (the one-definition rule). A program that is compiled as C++20 and compares such pairs or containers must include
/// this header in all of the source files that do so, or in none.

#ifndef CCL_FIO_FIO_STD_H
#define CCL_FIO_FIO_STD_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>

#include "ccl/fio/fio_clsid.h"
#include "ccl/fio/fio_path.h"
#include "ccl/fio/fio_types.h"

namespace fio_internal {

/// Internal to `fio_std.h`, like all that follows: whether this is `FIO_PATH` or a class derived from it. The operators
/// are candidates for all types, among them incomplete classes, which `std::is_base_of` does not allow.
template <typename T>
inline constexpr bool is_path = std::is_convertible_v<T*, FIO_PATH const*>;

/// Whether this is a string type that paths are compared with. Null is included only for its message.
template <typename T>
inline constexpr bool is_text =
    std::is_same_v<T, std::string> || std::is_same_v<T, std::string_view> || std::is_same_v<T, std::nullptr_t> ||
    std::is_same_v<std::decay_t<T>, char*> || std::is_same_v<std::decay_t<T>, char const*>;

/// False, but only on instantiation, for a `static_assert` that fails where the template is used.
template <typename T>
inline constexpr bool never = false;

/// The result of an operator of a path and a string. The members of the class are preferred, as they are no templates.
template <typename Path, typename Text, typename Result>
using if_path_and_text = std::enable_if_t<is_path<Path> && is_text<Text>, Result>;

/// The result of an operator that would compare or subtract two pointers.
template <typename Left, typename Right, typename Result>
using if_taken_for_pointers = std::enable_if_t<
    std::conjunction_v<std::bool_constant<is_path<Left> || is_path<Right>>,
                       std::is_convertible<Left const&, char const*>, std::is_convertible<Right const&, char const*>>,
    Result>;

/// Whether this is `FIO_PATH` itself or a string type.
template <typename T>
inline constexpr bool is_path_or_text = std::is_same_v<T, FIO_PATH> || is_text<T>;

/// The result of `<=>` between paths, or a path and a string. Not for derived classes, for which it would be preferred to
/// the operators of `FIO_PATH`.
template <typename Left, typename Right>
using if_ordered =
    std::enable_if_t<is_path_or_text<Left> && is_path_or_text<Right> && (is_path<Left> || is_path<Right>)>;

/// The result of an operator of a path.
template <typename Path, typename Result>
using if_path = std::enable_if_t<is_path<Path>, Result>;

/// A view of the string of a path, or of a string.
template <typename Text>
std::string_view view_of(Text const& text) {
  if constexpr (is_path<Text>) {
    return static_cast<char const*>(text);
  } else {
    return text;
  }
}

/// A string as the operators of a path take it. Null counts as empty, as it does for a path.
template <typename Text>
decltype(auto) operand(Text const& text) {
  static_assert(!std::is_same_v<Text, std::nullptr_t>, "a path is never null: write `p.fullpath().empty()`");
  if constexpr (std::is_same_v<Text, std::string>) {
    return (text);
  } else if constexpr (std::is_pointer_v<Text>) {
    return text == nullptr ? std::string() : std::string(text);
  } else {
    return std::string(text);
  }
}

/// The result of a comparison of class identifiers: a template, so that functions that a program already has are
/// preferred.
template <typename Guid>
using if_guid = std::enable_if_t<std::is_same_v<Guid, _GUID>, bool>;

/// The result of an operator of traits.
template <typename Flag>
using if_flag =
    std::enable_if_t<std::is_same_v<Flag, FIO_FILE_TYPE_FLAG> || std::is_same_v<Flag, FIO_EXTENSION_TYPE_FLAG>, Flag>;

} // namespace fio_internal

/// @name Paths and strings
/// The comparisons of `FIO_PATH` with a string on either side: a literal, a `std::string` or a `std::string_view`.
/// Their results, cost and messages are those of the operators of the class. A null pointer counts as empty, and a NUL
/// ends a string. The path is always the left operand of `==` and `!=`, as C++20 reverses them; `<` keeps the order.
/// @{

/// `path == std::string(text)`
template <typename Path, typename Text>
[[nodiscard]] fio_internal::if_path_and_text<Path, Text, bool> operator==(Path const& path, Text const& text) {
  return path.FIO_PATH::operator==(fio_internal::operand(text));
}

/// `path == std::string(text)`
template <typename Path, typename Text>
[[nodiscard]] fio_internal::if_path_and_text<Path, Text, bool> operator==(Text const& text, Path const& path) {
  return path.FIO_PATH::operator==(fio_internal::operand(text));
}

/// `path != std::string(text)`
template <typename Path, typename Text>
[[nodiscard]] fio_internal::if_path_and_text<Path, Text, bool> operator!=(Path const& path, Text const& text) {
  return path.FIO_PATH::operator!=(fio_internal::operand(text));
}

/// `path != std::string(text)`
template <typename Path, typename Text>
[[nodiscard]] fio_internal::if_path_and_text<Path, Text, bool> operator!=(Text const& text, Path const& path) {
  return path.FIO_PATH::operator!=(fio_internal::operand(text));
}

/// `path < std::string(text)`
template <typename Path, typename Text>
[[nodiscard]] fio_internal::if_path_and_text<Path, Text, bool> operator<(Path const& path, Text const& text) {
  return path.FIO_PATH::operator<(fio_internal::operand(text));
}

/// `FIO_PATH(text) < path`
template <typename Path, typename Text>
[[nodiscard]] fio_internal::if_path_and_text<Path, Text, bool> operator<(Text const& text, Path const& path) {
  return FIO_PATH(fio_internal::operand(text)) < path;
}
/// @}

/// @name Operators that paths do not have
/// Each is an error where it is used. They are not deleted functions, as the algorithms of `std::ranges` require that
/// the operators exist, and then use `<` alone.
/// @{

/// Write `q < p`.
template <typename Left, typename Right>
fio_internal::if_taken_for_pointers<Left, Right, bool> operator>(Left const& /*left*/, Right const& /*right*/) {
  static_assert(fio_internal::never<Left>, "`p > q` would compare addresses: write `q < p`");
  return false;
}

/// Write `!(q < p)`.
template <typename Left, typename Right>
fio_internal::if_taken_for_pointers<Left, Right, bool> operator<=(Left const& /*left*/, Right const& /*right*/) {
  static_assert(fio_internal::never<Left>, "`p <= q` would compare addresses: write `!(q < p)`");
  return false;
}

/// Write `!(p < q)`.
template <typename Left, typename Right>
fio_internal::if_taken_for_pointers<Left, Right, bool> operator>=(Left const& /*left*/, Right const& /*right*/) {
  static_assert(fio_internal::never<Left>, "`p >= q` would compare addresses: write `!(p < q)`");
  return false;
}

#if defined __cpp_impl_three_way_comparison && __cpp_impl_three_way_comparison >= 201907
/// Deleted, so that pairs, tuples and containers use `<` instead.
template <typename Left, typename Right>
fio_internal::if_ordered<Left, Right> operator<=>(Left const&, Right const&) = delete; // write `p == q` or `p < q`
#endif

/// Write `p.get_relative_to(q.directory())`.
template <typename Left, typename Right>
fio_internal::if_taken_for_pointers<Left, Right, std::ptrdiff_t> operator-(Left const& /*left*/,
                                                                           Right const& /*right*/) {
  static_assert(fio_internal::never<Left>, "`p - q` would subtract addresses: write `p.get_relative_to(q.directory())` "
                                           "for the way from one to the other");
  return 0;
}

/// Write `p.fullpath()`, and `substr` for a part of it.
template <typename Path>
fio_internal::if_path<Path, char const*> operator-(Path const& /*path*/, std::ptrdiff_t /*offset*/) {
  static_assert(fio_internal::never<Path>, "`p - 1` would be a pointer before the text: write `p.fullpath()`, and "
                                           "`substr` for a part of it");
  return nullptr;
}

/// Write `p.fullpath() + ...`, or `substr` for a part of the string.
template <typename Path>
fio_internal::if_path<Path, char const*> operator+(Path const& /*path*/, std::ptrdiff_t /*offset*/) {
  static_assert(fio_internal::never<Path>, "`p + 1` would be a pointer into the text: write `p.fullpath() + ...` to "
                                           "append, or `p.fullpath().substr(1)` for a part of it");
  return nullptr;
}

/// Write `p.fullpath().substr(1)`.
template <typename Path>
fio_internal::if_path<Path, char const*> operator+(std::ptrdiff_t /*offset*/, Path const& /*path*/) {
  static_assert(fio_internal::never<Path>, "`1 + p` would be a pointer into the text: write `p.fullpath().substr(1)`");
  return nullptr;
}

/// Write `p.fullpath().empty()`.
template <typename Path>
fio_internal::if_path<Path, bool> operator!(Path const& /*path*/) {
  static_assert(fio_internal::never<Path>, "`!p` is false for every path: write `p.fullpath().empty()`");
  return false;
}
/// @}

/// Writes the path's string, with the width and fill of the stream. Checks the length of the path.
template <typename Traits, typename Path>
std::enable_if_t<std::is_same_v<Path, FIO_PATH>, std::basic_ostream<char, Traits>&>
operator<<(std::basic_ostream<char, Traits>& stream, Path const& path) {
  return stream << std::basic_string_view<char, Traits>(static_cast<char const*>(path));
}

/// @name Keys by their string
/// For containers whose keys are paths that are compared by their strings, byte by byte: neither simplified nor made
/// absolute, so "a" and "./a" are two keys, as are "a/" and "a". The current directory is not read. The functors are
/// transparent: an ordered container finds a path by a literal, a `std::string` or a `std::string_view` without
/// constructing a path, and from C++20 on an unordered one does too.
///
/// @pre A string is not a null pointer.
///
///     std::map<FIO_PATH, int, fio_text_less> sizes;
///     sizes.find("rtl/top.v");
///
/// Checks the lengths of paths. Linear in the lengths of the strings; allocates nothing, except for the message about a
/// path that is too long.
/// @{

/// Whether two strings are equal.
struct fio_text_equal {
  using is_transparent = void; ///< takes paths and strings

  /// Whether the strings of two paths, or of a path and a string, are equal.
  template <typename Left, typename Right>
  [[nodiscard]] bool operator()(Left const& left, Right const& right) const {
    return fio_internal::view_of(left) == fio_internal::view_of(right);
  }
};

/// The order of two strings by their bytes.
struct fio_text_less {
  using is_transparent = void; ///< takes paths and strings

  /// Whether the first string compares less than the second, byte by byte.
  template <typename Left, typename Right>
  [[nodiscard]] bool operator()(Left const& left, Right const& right) const {
    return fio_internal::view_of(left) < fio_internal::view_of(right);
  }
};

/// The hash for `fio_text_equal`.
struct fio_text_hash {
  using is_transparent = void; ///< takes paths and strings

  /// The hash of a string: the same for a path and for its string.
  template <typename Text>
  [[nodiscard]] std::size_t operator()(Text const& text) const {
    return std::hash<std::string_view>()(fio_internal::view_of(text));
  }
};
/// @}

/// @name Class identifiers
/// @{

/// Whether all 16 bytes are the same.
template <typename Guid>
[[nodiscard]] constexpr fio_internal::if_guid<Guid> operator==(Guid const& left, Guid const& right) {
  if (left.Data1 != right.Data1 || left.Data2 != right.Data2 || left.Data3 != right.Data3) {
    return false;
  }
  for (std::size_t i = 0; i != sizeof left.Data4; ++i) {
    if (left.Data4[i] != right.Data4[i]) {
      return false;
    }
  }
  return true;
}

/// The opposite of `==`.
template <typename Guid>
[[nodiscard]] constexpr fio_internal::if_guid<Guid> operator!=(Guid const& left, Guid const& right) {
  return !(left == right);
}

/// Compares the fields in their order, which is the order of the strings that `fio_clsid_to_str` returns.
template <typename Guid>
[[nodiscard]] constexpr fio_internal::if_guid<Guid> operator<(Guid const& left, Guid const& right) {
  if (left.Data1 != right.Data1) {
    return left.Data1 < right.Data1;
  }
  if (left.Data2 != right.Data2) {
    return left.Data2 < right.Data2;
  }
  if (left.Data3 != right.Data3) {
    return left.Data3 < right.Data3;
  }
  for (std::size_t i = 0; i != sizeof left.Data4; ++i) {
    if (left.Data4[i] != right.Data4[i]) {
      return left.Data4[i] < right.Data4[i];
    }
  }
  return false;
}
/// @}

namespace std {

/// A hash that agrees with `==` of paths: the path's string is parsed again, simplified and made absolute with the
/// current directory, and the hash is that of the resulting string.
///
/// Where `p == q`, and `q` is equal to itself, the hashes of both are the same. Some paths that edits have made are not
/// equal to themselves, for which see "Comparison" in `FIO_PATH`: those with another separator, with a drive, with a
/// component that would be parsed differently, or too long. They cannot be keys of any container; use
/// `FIO_PATH(p.fullpath())` instead. Neither the current directory nor the choice of simplification may change while a
/// container has keys.
///
/// Reads the current directory once; each comparison with a key then reads it, as `==` does. Parses a copy of the
/// path. Checks its length. For many paths, `fio_text_hash` costs a fraction of this:
///
///     path.become_absolute("");
///     path.become_simplified();
///     std::unordered_set<FIO_PATH, fio_text_hash, fio_text_equal> names{path};
///
/// @throws std::bad_alloc when the copy cannot be stored
template <>
struct hash<FIO_PATH> {
  /// The hash of the simplified absolute path.
  [[nodiscard]] size_t operator()(FIO_PATH const& path) const {
    FIO_PATH place(static_cast<char const*>(path));
    place.become_simplified();
    place.become_absolute({});
    return fio_text_hash()(place);
  }
};

/// The hash of the 16 bytes of a class identifier.
template <>
struct hash<_GUID> {
  /// Agrees with `==`.
  [[nodiscard]] size_t operator()(_GUID const& clsid) const noexcept {
    return hash<string_view>()({reinterpret_cast<char const*>(&clsid), sizeof clsid});
  }
};

} // namespace std

/// @name Traits that combine
/// The bitwise operators of `FIO_FILE_TYPE_FLAG` and of `FIO_EXTENSION_TYPE_FLAG`, each with a result of its own type.
/// Without this header the result of `|` is an `int`, which the queries do not take. That of a trait and a number is
/// still a number.
/// @{

/// The traits in either.
template <typename Flag>
[[nodiscard]] constexpr fio_internal::if_flag<Flag> operator|(Flag left, Flag right) {
  return static_cast<Flag>(static_cast<int>(left) | static_cast<int>(right));
}

/// The traits in both.
template <typename Flag>
[[nodiscard]] constexpr fio_internal::if_flag<Flag> operator&(Flag left, Flag right) {
  return static_cast<Flag>(static_cast<int>(left) & static_cast<int>(right));
}

/// The traits in exactly one of the two.
template <typename Flag>
[[nodiscard]] constexpr fio_internal::if_flag<Flag> operator^(Flag left, Flag right) {
  return static_cast<Flag>(static_cast<int>(left) ^ static_cast<int>(right));
}

/// All bits but these.
template <typename Flag>
[[nodiscard]] constexpr fio_internal::if_flag<Flag> operator~(Flag flag) {
  return static_cast<Flag>(~static_cast<int>(flag));
}

/// Sets traits.
template <typename Flag>
constexpr fio_internal::if_flag<Flag>& operator|=(Flag& left, Flag right) {
  return left = left | right;
}

/// Keeps the traits in both.
template <typename Flag>
constexpr fio_internal::if_flag<Flag>& operator&=(Flag& left, Flag right) {
  return left = left & right;
}

/// Toggles traits.
template <typename Flag>
constexpr fio_internal::if_flag<Flag>& operator^=(Flag& left, Flag right) {
  return left = left ^ right;
}
/// @}

/// @name Traits and editors to iterate over
/// Each single bit with a description, in ascending order: without the wildcards and `FIO_EDITOR_TYPE_NONE`.
///
///     for (FIO_FILE_TYPE_FLAG const trait : fio_file_type_flags) {
///       if (fio_test_trait_of(type, trait)) {
///         std::puts(fio_get_file_type_trait_string(trait));
///       }
///     }
/// @{

/// The traits of file types.
inline constexpr std::array fio_file_type_flags{
    FIO_FILE_TYPE_FLAG_SOURCE_FILES,
    FIO_FILE_TYPE_FLAG_DESIGN_FILES,
    FIO_FILE_TYPE_FLAG_PROJECT_FILES,
    FIO_FILE_TYPE_FLAG_HTML_TEXT_FORMAT_REPORT_FILES,
    FIO_FILE_TYPE_FLAG_OUTPUT_FILES,
    FIO_FILE_TYPE_FLAG_SCRIPT_FILES,
    FIO_FILE_TYPE_FLAG_OTHER_FILES,
    FIO_FILE_TYPE_FLAG_HIDDEN_FILES,
    FIO_FILE_TYPE_FLAG_VEXLOG_LOGIC_ANALYZER_FILES,
    FIO_FILE_TYPE_FLAG_LOGIC_ANALYZER_INTERFACE_FILES,
    FIO_FILE_TYPE_FLAG_TEST_BENCH_OUTPUT_FILES,
    FIO_FILE_TYPE_FLAG_PROJECT_RESULTS_FILES,
    FIO_FILE_TYPE_FLAG_SIMULATION_INPUT_FILES,
    FIO_FILE_TYPE_FLAG_IN_SYSTEM_SOURCES_AND_PROBES_FILES,
    FIO_FILE_TYPE_FLAG_STATE_MACHINE_EDITOR_FILES,
    FIO_FILE_TYPE_FLAG_VOSC_VIEWER_INFO_FILES,
    FIO_FILE_TYPE_FLAG_IP_VARIATION_FILES,
    FIO_FILE_TYPE_FLAG_POWER_AND_THERMAL_CALCULATOR_FILES,
    FIO_FILE_TYPE_FLAG_POWER_AND_THERMAL_CALCULATOR_FILES_GROUP,
    FIO_FILE_TYPE_FLAG_DESIGN_FILES_GROUP,
    FIO_FILE_TYPE_FLAG_MEMORY_FILES,
    FIO_FILE_TYPE_FLAG_VERIFICATION_DEBUGGING_FILES,
    FIO_FILE_TYPE_FLAG_OTHER_FILES_GROUP,
};

/// The traits of extension rows.
inline constexpr std::array fio_extension_type_flags{
    FIO_EXTENSION_TYPE_FLAG_DEFAULT_EXTENSION,
    FIO_EXTENSION_TYPE_FLAG_ARCHIVED_EXTENSION,
    FIO_EXTENSION_TYPE_FLAG_CORE_VARIATION_EXTENSION,
};

/// The editors.
inline constexpr std::array fio_editor_types{
    FIO_EDITOR_TYPE_WAVEFORM_VECTOR_FILES,
    FIO_EDITOR_TYPE_MEMORY_FILES,
    FIO_EDITOR_TYPE_TEXT_FILES,
    FIO_EDITOR_TYPE_GRAPHIC_FILES,
    FIO_EDITOR_TYPE_BROWSER_FILES,
    FIO_EDITOR_TYPE_PROGRAMMING_FILES,
    FIO_EDITOR_TYPE_VEXLOG_LOGIC_ANALYZER_FILES,
    FIO_EDITOR_TYPE_LOGIC_ANALYZER_INTERFACE_FILES,
    FIO_EDITOR_TYPE_ASSIGNMENT_FILES,
    FIO_EDITOR_TYPE_CHIP_FILES,
    FIO_EDITOR_TYPE_ATOM_PROPERTY_FILES,
    FIO_EDITOR_TYPE_IN_SYSTEM_SOURCES_AND_PROBES_FILES,
    FIO_EDITOR_TYPE_STATE_MACHINE_EDITOR_FILES,
    FIO_EDITOR_TYPE_IP_VARIATION_FILES,
    FIO_EDITOR_TYPE_EXPORTED_DESIGN_PARTITION_FILES,
    FIO_EDITOR_TYPE_KSYS_SYSTEM_FILES,
    FIO_EDITOR_TYPE_IP_FILES,
    FIO_EDITOR_TYPE_PROGRAMMING_FILE_GENERATOR_FILES,
    FIO_EDITOR_TYPE_POWER_AND_THERMAL_CALCULATOR_FILES,
    FIO_EDITOR_TYPE_DESIGN_ENTRY_EDITOR_FILES,
    FIO_EDITOR_TYPE_POWER_AND_THERMAL_CALCULATOR_NG_FILES,
};
/// @}

#endif

// Outside the guard: fmt may have been included since.
#if (defined FMT_VERSION || defined CCL_FIO_WITH_FMT) && !defined CCL_FIO_FIO_STD_H_HAS_FMT
#define CCL_FIO_FIO_STD_H_HAS_FMT

#ifndef FMT_FORMAT_H_ // the copy of fmt inside another library has no such name
#include <fmt/format.h>
#endif

/// Formats a path as its string, with the format specifications of a string. Checks the length of the path.
///
///     fmt::format("{:>12}", FIO_PATH("top.v"))   => "       top.v"
///
/// It is defined if a header of fmt was included before this one. Sorted includes are often in the other order: if
/// the macro `CCL_FIO_WITH_FMT` is defined, this header includes what it needs itself.
template <>
struct fmt::formatter<FIO_PATH> : fmt::formatter<fmt::string_view> {
  /// Writes the path's string.
  template <typename Context>
  auto format(FIO_PATH const& path, Context& context) const {
    return fmt::formatter<fmt::string_view>::format(static_cast<char const*>(path), context);
  }
};

#endif
