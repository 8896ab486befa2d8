/// @file
/// The filters of a file dialog, from the vocabulary of files.

#ifndef CCL_EXAMPLES_DIALOG_FILE_FILTERS_H
#define CCL_EXAMPLES_DIALOG_FILE_FILTERS_H

#include <QString>
#include <QStringList>
#include <list>
#include <string>

#include "ccl/fio/fio_types.h"

std::list<FIO_FILE_TYPE> design_files();

/// The types of an editor by its name, such as "Text Files"; none for an unknown name.
std::list<FIO_FILE_TYPE> types_of_editor(std::string const& name);

/// The types with a trait by its name, such as "Design Files"; none for an unknown name.
std::list<FIO_FILE_TYPE> types_with_trait(std::string const& name);

/// A filter for all design files, then one for all of `types` together under the name `all`, one for each of them, and
/// one for every file.
QStringList file_filters(QString const& all, std::list<FIO_FILE_TYPE> const& types);

#endif
