/// @file
/// The document classes by name, for programs that show them to people.

#ifndef CCL_EXAMPLES_COMMON_DOCUMENT_CLASSES_H
#define CCL_EXAMPLES_COMMON_DOCUMENT_CLASSES_H

#include "ccl/fio/fio_clsid.h"
#include "ccl/fio/fio_clsid_list.h"

struct document_class {
  char const* name;
  _GUID const* clsid;
};

#define NAMED_CLASS(name, ...) {"VFC_CLSID_" #name, &VFC_CLSID_##name},
inline document_class const document_classes[] = {FIO_CLSID_LIST(NAMED_CLASS)};
#undef NAMED_CLASS

#endif
