/// @file
/// What the vocabulary of files says of a type, in words.

#ifndef CCL_EXAMPLES_COMMON_VOCABULARY_TEXTS_H
#define CCL_EXAMPLES_COMMON_VOCABULARY_TEXTS_H

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "ccl/fio/fio_file_ext_type_info.h"
#include "examples/common/document_classes.h"

/// The editor of a type, empty for none.
inline std::string editor_of(FIO_FILE_TYPE type) {
  FIO_EDITOR_TYPE const editor = fio_get_editor_type(type);
  return editor == FIO_EDITOR_TYPE_NONE ? std::string() : std::string(fio_get_editor_type_string(editor));
}

/// The traits of a type, each text once: two traits may have the same words.
inline std::vector<std::string> traits_of(FIO_FILE_TYPE type) {
  std::vector<std::string> texts;
  for (unsigned bit = 1; bit != 0; bit <<= 1) {
    auto const trait = static_cast<FIO_FILE_TYPE_FLAG>(bit);
    char const* const text = fio_get_file_type_trait_string(trait);
    if (text != nullptr && fio_test_trait_of(type, trait) &&
        std::find(texts.begin(), texts.end(), text) == texts.end()) {
      texts.emplace_back(text);
    }
  }
  return texts;
}

/// The class whose documents are files of this type, or null. The vocabulary tells types by their class and not the
/// other way round, and a class that serves several types stands for the first of them: the others have none here.
inline document_class const* class_of(FIO_FILE_TYPE type) {
  if (type == FIO_FILE_TYPE_INVALID) {
    return nullptr;
  }
  auto const* const found =
      std::find_if(std::begin(document_classes), std::end(document_classes),
                   [type](document_class const& candidate) { return fio_get_file_type(*candidate.clsid) == type; });
  return found != std::end(document_classes) ? found : nullptr;
}

#endif
