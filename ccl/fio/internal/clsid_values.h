/// @file
/// The class identifiers as compile-time values, for the exported constants and for the table of file types.

#ifndef CCL_FIO_INTERNAL_CLSID_VALUES_H
#define CCL_FIO_INTERNAL_CLSID_VALUES_H

#include "ccl/fio/fio_clsid.h"
#include "ccl/fio/fio_clsid_list.h"

/// The identifiers as compile-time values, under their names without the prefix.
namespace fio_clsid_values {

#define FIO_DEFINE_VALUE(name, data1, data2, data3, ...)                                                               \
  inline constexpr _GUID name = {data1, data2, data3, {__VA_ARGS__}};
FIO_CLSID_LIST(FIO_DEFINE_VALUE)
#undef FIO_DEFINE_VALUE

inline constexpr _GUID NONE = {0, 0, 0, {}};

constexpr bool are_equal(_GUID const& left, _GUID const& right) {
  bool equal = left.Data1 == right.Data1 && left.Data2 == right.Data2 && left.Data3 == right.Data3;
  for (int i = 0; equal && i != 8; ++i) {
    equal = left.Data4[i] == right.Data4[i];
  }
  return equal;
}

constexpr bool all_are_distinct_and_none_is_zero() {
#define FIO_LIST_NAME(name, ...) name,
  _GUID const values[] = {NONE, FIO_CLSID_LIST(FIO_LIST_NAME)};
#undef FIO_LIST_NAME
  for (_GUID const& value : values) {
    for (_GUID const* earlier = values; earlier != &value; ++earlier) {
      if (are_equal(*earlier, value)) {
        return false;
      }
    }
  }
  return true;
}
static_assert(all_are_distinct_and_none_is_zero());

} // namespace fio_clsid_values

#endif
