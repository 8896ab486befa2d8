/// @file
/// The texts of the vocabulary for a type, and the values that have a text.

#ifndef CCL_TOOLS_VOCABULARY_H
#define CCL_TOOLS_VOCABULARY_H

#include <string>
#include <vector>

#include "ccl/fio/fio_clsid.h"
#include "ccl/fio/fio_types.h"
#include "tools/ccl-fio/json.h"
#include "tools/ccl-fio/output.h"

namespace tool {

struct document_class {
  char const* name;
  _GUID const* clsid;
};

/// All document classes.
std::vector<document_class> const& document_classes();

/// The class whose documents are files of this type, or null. The vocabulary maps classes to types and not the
/// other way round, and a class that serves several types stands for the first of them: the others have none here.
document_class const* class_of(FIO_FILE_TYPE type);

/// The editor of a type, empty for none.
std::string editor_of(FIO_FILE_TYPE type);

/// The traits of a type, each text once: two traits may have the same words.
std::vector<std::string> traits_of(FIO_FILE_TYPE type);

/// @name The values that have a text
/// @{
std::vector<FIO_EDITOR_TYPE> editors();
std::vector<FIO_FILE_TYPE_FLAG> traits();
std::vector<FIO_EXTENSION_TYPE_FLAG> extension_traits();
/// @}

/// The types of an editor, or of all, with any of these traits, or any.
std::vector<FIO_FILE_TYPE> file_types(FIO_EDITOR_TYPE editor, long traits);

/// The extensions of a type, or of all, each once.
std::vector<FIO_EXTENSION_TYPE> extensions_of(FIO_FILE_TYPE type);

/// The extensions that have a trait, each once.
std::vector<FIO_EXTENSION_TYPE> extensions_with(FIO_EXTENSION_TYPE_FLAG trait);

std::string joined(std::vector<std::string> const& texts);

/// A type and the extension that it goes by. There are no facts of `FIO_FILE_TYPE_INVALID`.
struct type_facts {
  FIO_FILE_TYPE type = FIO_FILE_TYPE_INVALID;
  FIO_EXTENSION_TYPE extension = FIO_EXTENSION_TYPE_INVALID;
};

/// @name Facts as a part of a table, and of JSON
/// @{
std::vector<column> fact_columns();
void append_facts(std::vector<cell>& row, type_facts const& facts);
void append_facts(json& object, type_facts const& facts);
/// @}

} // namespace tool

#endif
