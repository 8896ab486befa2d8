// Opens a file dialog whose filters come from the vocabulary of files, and prints what was chosen and its type.
//
//     dialog [--editor NAME | --trait NAME]
//
// The exit status is 0, 1 if nothing was chosen, and 2 for arguments that make no sense.

#include <QApplication>
#include <QCommandLineParser>
#include <QFileDialog>
#include <iostream>

#include "ccl/fio/fio_file_ext_type_info.h"
#include "examples/dialog/file_filters.h"
#include "examples/dialog/last_directory.h"

int main(int count, char** values) {
  QApplication const application(count, values);
  QApplication::setApplicationName("dialog");
  QApplication::setOrganizationName("ccl");
  QCommandLineParser parser;
  parser.addHelpOption();
  parser.addOption({"editor", "Offer the types of this editor.", "name"});
  parser.addOption({"trait", "Offer the types with this trait.", "name"});
  parser.process(application);

  QString name = "design files";
  std::list<FIO_FILE_TYPE> types = design_files();
  if (parser.isSet("editor")) {
    name = parser.value("editor");
    types = types_of_editor(name.toStdString());
  } else if (parser.isSet("trait")) {
    name = parser.value("trait");
    types = types_with_trait(name.toStdString());
  }
  if (types.empty()) {
    std::cerr << "dialog: no file type is of \"" << name.toStdString() << "\"\n";
    return 2;
  }

  QSettings settings;
  QFileDialog dialog(nullptr, "Open", QFile::decodeName(last_directory(settings)));
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setNameFilters(file_filters("All " + name, types));
  if (dialog.exec() == QDialog::Rejected) {
    return 1;
  }
  QString const file = dialog.selectedFiles().first();
  remember_directory_of(file, settings);
  std::string const path = QFile::encodeName(file).toStdString();
  std::cout << path << ": " << fio_get_file_type_name(fio_get_file_type(path)) << std::endl;
  return std::cout ? 0 : 2;
}
