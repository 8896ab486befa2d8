#include "examples/dialog/file_filters.h"

#include "ccl/fio/fio_file_ext_type_info.h"
#include "ccl/fio/fio_file_type_info.h"

std::list<FIO_FILE_TYPE> design_files() {
  std::list<FIO_FILE_TYPE> types;
  fio_get_file_type_list(&types, FIO_FILE_TYPE_ANY, FIO_EDITOR_TYPE_ALL_FILES, FIO_FILE_TYPE_FLAG_DESIGN_FILES);
  return types;
}

// Two editors may have one name, and so may two traits: each of them counts.

std::list<FIO_FILE_TYPE> types_of_editor(std::string const& name) {
  std::list<FIO_FILE_TYPE> types;
  for (unsigned bit = 1; bit != 0; bit <<= 1) {
    auto const editor = static_cast<FIO_EDITOR_TYPE>(bit);
    char const* const its_name = fio_get_editor_type_string(editor);
    if (its_name != nullptr && name == its_name) {
      fio_get_file_type_list(&types, FIO_FILE_TYPE_ANY, editor, -1);
    }
  }
  return types;
}

std::list<FIO_FILE_TYPE> types_with_trait(std::string const& name) {
  long traits = 0;
  for (unsigned bit = 1; bit != 0; bit <<= 1) {
    auto const trait = static_cast<FIO_FILE_TYPE_FLAG>(bit);
    char const* const its_name = fio_get_file_type_trait_string(trait);
    traits |= its_name != nullptr && name == its_name ? trait : 0;
  }
  std::list<FIO_FILE_TYPE> types;
  fio_get_file_type_list(&types, FIO_FILE_TYPE_ANY, FIO_EDITOR_TYPE_ALL_FILES, traits);
  return types;
}

static QString filter_for_all(QString const& name, std::list<FIO_FILE_TYPE> const& types) {
  QStringList patterns;
  for (FIO_FILE_TYPE const type : types) {
    std::list<FIO_EXTENSION_TYPE> extensions;
    fio_get_extension_type_list(&extensions, FIO_EXTENSION_TYPE_ANY, type);
    for (FIO_EXTENSION_TYPE const extension : extensions) {
      patterns << QString("*") + fio_get_extension_string(extension);
    }
  }
  patterns.removeDuplicates();
  return QString("%1 (%2)").arg(name, patterns.join(' '));
}

QStringList file_filters(QString const& all, std::list<FIO_FILE_TYPE> const& types) {
  QStringList filters = {filter_for_all("All design files", design_files()), filter_for_all(all, types)};
  for (FIO_FILE_TYPE const type : types) {
    filters << QString::fromStdString(fio_get_file_type_filter(type, true));
  }
  filters << "All files (*)";
  filters.removeDuplicates();
  return filters;
}
