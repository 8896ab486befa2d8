/// @file
/// The directory that a dialog opens in.

#ifndef CCL_EXAMPLES_DIALOG_LAST_DIRECTORY_H
#define CCL_EXAMPLES_DIALOG_LAST_DIRECTORY_H

#include <QFile>
#include <QSettings>

#include "ccl/fio/fio_file_sys.h"
#include "ccl/fio/fio_path.h"

/// The directory that was remembered, or the current one if it is gone.
inline FIO_PATH last_directory(QSettings const& settings) {
  FIO_PATH const last = settings.value("last_directory").toByteArray().toStdString();
  return FIO_FILE_SYSTEM::is_directory(last) ? last : FIO_PATH(FIO_FILE_SYSTEM::get_current_directory());
}

/// Remembers the directory of a file, as bytes: not every name is text.
inline void remember_directory_of(QString const& file, QSettings& settings) {
  FIO_PATH const path = QFile::encodeName(file).toStdString();
  settings.setValue("last_directory", QByteArray::fromStdString(path.full_directory()));
}

#endif
