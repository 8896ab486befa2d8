// What compiles with the header for the standard library, and what it means: the header comes first, and all others
// after it.

#include "ccl/fio/fio_std.h"

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "ccl/fio/fio.h"
#include "ccl/fio/fio_errc.h"
#if __has_include(<fmt/core.h>)
#include <fmt/core.h>
#endif
#include "ccl/fio/fio_std.h" // which now has the formatter, too
#include "ccl/fio/fio_std.h" // and has it once

namespace using_std {

// Operators

template <typename Left, typename Right, typename = void>
constexpr bool are_comparable = false;
template <typename Left, typename Right>
constexpr bool are_comparable<Left, Right,
                              std::void_t<decltype(std::declval<Left>() == std::declval<Right>()),
                                          decltype(std::declval<Left>() != std::declval<Right>()),
                                          decltype(std::declval<Left>() < std::declval<Right>())>> =
    std::is_same_v<bool, decltype(std::declval<Left>() == std::declval<Right>())>;

template <typename Text>
constexpr bool is_comparable_on_both_sides = are_comparable<Text, FIO_PATH>&& are_comparable<FIO_PATH const&, Text>&&
    are_comparable<Text, FIO_PATH const&>&& are_comparable<FIO_PATH&, Text>;

static_assert(is_comparable_on_both_sides<char const (&)[4]>);
static_assert(is_comparable_on_both_sides<char (&)[4]>);
static_assert(is_comparable_on_both_sides<char const*>);
static_assert(is_comparable_on_both_sides<char*>);
static_assert(is_comparable_on_both_sides<std::string>);
static_assert(is_comparable_on_both_sides<std::string&>);
static_assert(is_comparable_on_both_sides<std::string_view>);
static_assert(is_comparable_on_both_sides<FIO_PATH>);
static_assert(!are_comparable<FIO_PATH, int> && !are_comparable<int, FIO_PATH>);
static_assert(!are_comparable<FIO_PATH, bool> && !are_comparable<_GUID, FIO_PATH>);

struct derived_path : FIO_PATH {
  using FIO_PATH::FIO_PATH;
};
struct path_like {
  operator FIO_PATH() const;
};
struct text_like {
  operator std::string() const;
};
struct path_or_number {
  operator FIO_PATH() const;
  operator int() const;
};

// What compiles without the header and means something does so with it.
[[maybe_unused]] bool unchanged(FIO_PATH const& p, FIO_PATH const& q, derived_path const& d, std::ostream& stream) {
  bool all = p == q || p != q || p < q || p == std::string() || p != std::string() || p < std::string();
  all = all && (d == p || p == d || d < d || p < d || d == std::string());
  all = all && (p == path_like() || p < path_like() || p == text_like() || p == std::filesystem::path());
  all = all && (std::optional<FIO_PATH>(p) == p || p == std::optional<FIO_PATH>(q));
  all = all && (std::pair(p, 1) < std::pair(q, 2) || std::tuple(p) == std::tuple(q) || std::tie(p) < std::tie(q));
  all = all && std::vector<FIO_PATH>() < std::vector<FIO_PATH>() && std::max(p, q) == p && std::less<>()(p, q);
  if (p) {
    all = p && q && *p != 0 && p[0].empty() && (all || d);
  }
  FIO_PATH const chosen = all ? p : "x";
  char const* const pointer = chosen;
  stream << p << d << path_or_number() << std::filesystem::path() << std::string(p) << std::string_view(p) << pointer;
  return bool(chosen);
}

// Functions that a program has of its own are preferred to those of the header.
namespace relations {
[[maybe_unused]] bool are_found(FIO_PATH const& p, FIO_PATH const& q) {
  using namespace std::rel_ops;
  return p > q || p <= q || p >= q;
}
} // namespace relations

namespace own_comparisons {
constexpr bool operator==(_GUID const&, _GUID const&) { return false; }
constexpr bool operator!=(_GUID const&, _GUID const&) { return false; }
constexpr bool operator<(_GUID const&, _GUID const&) { return true; }
constexpr _GUID null = {0, 0, 0, {}};
static_assert(!(null == null) && !(null != null) && null < null);
} // namespace own_comparisons

#if __cplusplus >= 202002L
static_assert(std::totally_ordered<FIO_PATH>);       // for the algorithms, which use `<` alone
static_assert(!std::three_way_comparable<FIO_PATH>); // so that pairs and containers do, too
template <typename Left, typename Right>
concept has_three_way_comparison = requires(Left const& left, Right const& right) {
  left <=> right;
};
static_assert(!has_three_way_comparison<FIO_PATH, FIO_PATH> && !has_three_way_comparison<FIO_PATH, char const*>);
static_assert(!has_three_way_comparison<char[2], FIO_PATH> && !has_three_way_comparison<FIO_PATH, char[2]>);
static_assert(has_three_way_comparison<int, int> && has_three_way_comparison<std::string, char const*>);
static_assert(std::indirect_strict_weak_order<std::ranges::less, FIO_PATH*>);
#endif

// Streams

template <typename Stream>
constexpr bool is_written_to = std::is_same_v<decltype(std::declval<Stream>() << std::declval<FIO_PATH>()),
                                              std::basic_ostream<typename std::decay_t<Stream>::char_type>&>;
static_assert(is_written_to<std::ostream&> && is_written_to<std::ostringstream&> && is_written_to<std::wostream&>);

static_assert(std::is_same_v<decltype(::operator<< <std::char_traits<char>, FIO_PATH>),
                             std::ostream&(std::ostream&, FIO_PATH const&)>);

// Keys

static_assert(std::is_same_v<decltype(std::hash<FIO_PATH>()(FIO_PATH())), std::size_t>);
static_assert(std::is_same_v<decltype(std::hash<_GUID>()(_GUID())), std::size_t>);
[[maybe_unused]] std::unordered_set<FIO_PATH> const by_place;
[[maybe_unused]] std::unordered_map<_GUID, int> const by_class;
[[maybe_unused]] std::set<_GUID> const sorted_classes;

[[maybe_unused]] bool finds_without_paths(std::set<FIO_PATH, fio_text_less> const& sorted,
                                          std::unordered_set<FIO_PATH, fio_text_hash, fio_text_equal> const& hashed) {
  bool found = sorted.count("x") + sorted.count(std::string()) + sorted.count(std::string_view()) != 0;
#if defined __cpp_lib_generic_unordered_lookup
  found = found || hashed.contains("x") || hashed.contains(std::string()) || hashed.contains(std::string_view());
#endif
  return found || sorted.count(FIO_PATH()) + hashed.count(FIO_PATH()) != 0;
}

// Class identifiers

constexpr _GUID low = {1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};
constexpr _GUID high = {1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 12}};
static_assert(low == low && low != high && low < high && !(high < low) && !(low < low) && !(low == high));
static_assert(_GUID{1, 0, 0, {}} < _GUID{256, 0, 0, {}} && _GUID{0, 1, 0, {}} < _GUID{0, 256, 0, {}});
static_assert(_GUID{0, 0, 1, {}} < _GUID{0, 0, 256, {}} && _GUID{0, 9, 9, {9}} < _GUID{1, 0, 0, {}});
static_assert(_GUID{0, 0, 9, {9}} < _GUID{0, 1, 0, {}} && _GUID{0, 0, 0, {9}} < _GUID{0, 0, 1, {}});
static_assert(_GUID{0, 0, 0, {1, 9}} < _GUID{0, 0, 0, {2, 0}});
static_assert(noexcept(std::hash<_GUID>()(low)));

// Traits that combine

constexpr FIO_FILE_TYPE_FLAG source = FIO_FILE_TYPE_FLAG_SOURCE_FILES;
constexpr FIO_FILE_TYPE_FLAG design = FIO_FILE_TYPE_FLAG_DESIGN_FILES;
constexpr FIO_EXTENSION_TYPE_FLAG archived = FIO_EXTENSION_TYPE_FLAG_ARCHIVED_EXTENSION;
constexpr FIO_EXTENSION_TYPE_FLAG all_extensions = FIO_EXTENSION_TYPE_FLAG_ALL_EXTENSIONS;

static_assert(std::is_same_v<decltype(source | design), FIO_FILE_TYPE_FLAG> && (source | design) == 6);
static_assert(std::is_same_v<decltype(source & design), FIO_FILE_TYPE_FLAG> && (source & design) == 0);
static_assert(std::is_same_v<decltype(source ^ source), FIO_FILE_TYPE_FLAG> && (source ^ design) == 6);
static_assert(std::is_same_v<decltype(~source), FIO_FILE_TYPE_FLAG> && ~source == -3);
static_assert(std::is_same_v<decltype(~archived), FIO_EXTENSION_TYPE_FLAG> && ~all_extensions == 0);
static_assert((all_extensions & ~archived) == -5 && (archived | archived) == 4 && (archived ^ archived) == 0);

constexpr FIO_FILE_TYPE_FLAG after_assignments() {
  FIO_FILE_TYPE_FLAG traits = source;
  ((traits |= design) ^= source) &= FIO_FILE_TYPE_FLAG_ALL_FILES;
  return traits;
}
static_assert(after_assignments() == design);

// A number stays one, and so do the traits of two kinds, as do other enumerations.
static_assert(std::is_same_v<decltype(source | 1), int> && std::is_same_v<decltype(source & 1ul), unsigned long>);
static_assert(std::is_same_v<decltype(FIO_EDITOR_TYPE_TEXT_FILES | FIO_EDITOR_TYPE_GRAPHIC_FILES), unsigned>);
constexpr int number = source | design;
static_assert(number == 6);

[[maybe_unused]] bool queries_take_them(FIO_FILE_TYPE type, std::list<FIO_EXTENSION_TYPE>* extensions) {
  fio_get_list_of_extensions_valid_for_trait(archived | FIO_EXTENSION_TYPE_FLAG_DEFAULT_EXTENSION, extensions);
  return fio_test_trait_of(type, source | design);
}

// Traits and editors

template <typename List>
constexpr bool holds_single_bits_in_ascending_order(List const& list) {
  long long last = 0;
  for (long long const bit : list) {
    if (bit <= last || (bit & (bit - 1)) != 0) {
      return false;
    }
    last = bit;
  }
  return true;
}
static_assert(fio_file_type_flags.size() == 23 && holds_single_bits_in_ascending_order(fio_file_type_flags));
static_assert(fio_extension_type_flags.size() == 3 && holds_single_bits_in_ascending_order(fio_extension_type_flags));
static_assert(fio_editor_types.size() == 21 && holds_single_bits_in_ascending_order(fio_editor_types));
static_assert(std::is_same_v<decltype(fio_editor_types)::value_type, FIO_EDITOR_TYPE>);

// fmt

#if defined FMT_VERSION
static_assert(fmt::has_formatter<FIO_PATH, fmt::format_context>::value);
#endif

// Code in a namespace with operators of its own finds those of the header by their operands.
namespace elsewhere {
struct other {};
[[maybe_unused]] bool operator==(other, other);
[[maybe_unused]] bool operator<(other, other);
[[maybe_unused]] void operator|(other, other);
[[maybe_unused]] void operator<<(other, other);

static_assert(is_comparable_on_both_sides<char const*>);
static_assert(std::is_same_v<decltype("x" == std::declval<FIO_PATH>()), bool>);
static_assert(std::is_same_v<decltype(source | design), FIO_FILE_TYPE_FLAG>);
static_assert(std::is_same_v<decltype(std::declval<std::ostream&>() << FIO_PATH()), std::ostream&>);
static_assert(low == low);
} // namespace elsewhere

} // namespace using_std

// Operators of incomplete classes in the global namespace: those of the header are candidates there, too.

struct opaque;
bool operator==(opaque const& left, opaque const& right);
bool operator>(opaque const& left, opaque const& right);
bool operator-(opaque const& left, opaque const& right);
bool operator!(opaque const& one);
[[maybe_unused]] static bool combined(opaque const& left, opaque const& right) {
  return left == right || left > right || left - right || !left;
}

struct comparable_while_incomplete {
  friend bool operator==(comparable_while_incomplete const&, comparable_while_incomplete const&) { return true; }
  friend auto operator!=(comparable_while_incomplete const& left, comparable_while_incomplete const& right)
      -> decltype(!(left == right)) {
    return !(left == right);
  }
};
static_assert(std::is_same_v<bool, decltype(comparable_while_incomplete() != comparable_while_incomplete())>);
