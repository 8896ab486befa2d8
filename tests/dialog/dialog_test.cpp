// What the toolkit makes of the filters of the vocabulary.

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QImage>
#include <QSplitter>
#include <QTemporaryDir>
#include <QTreeView>
#include <QUrl>
#include <cstdlib>

#include "ccl/fio/fio_file_type_info.h"
#include "examples/dialog/file_filters.h"
#include "examples/dialog/last_directory.h"
#include "tests/vocabulary_expected.h"

namespace {

QStringList patterns_of(int type) {
  QStringList patterns;
  for (vocabulary::extension_row const& row : vocabulary::extensions) {
    if (row.file_type == type) {
      patterns << QString("*") + row.text;
    }
  }
  return patterns;
}

QString filter_of(int type, bool plural) {
  return QString::fromStdString(fio_get_file_type_filter(static_cast<FIO_FILE_TYPE>(type), plural));
}

QString file_of_row(int number) {
  return QString("row_%1%2").arg(number, 3, 10, QChar('0')).arg(vocabulary::extensions[number].text);
}

/// The files of the folder that end in the extension of any of `patterns`, whatever the case of its letters.
QStringList files_that_match(QStringList const& patterns) {
  QStringList files;
  for (int number = 0; number != vocabulary::extension_row_count; ++number) {
    QString const file = file_of_row(number);
    for (QString const& pattern : patterns) {
      if (file.endsWith(pattern.mid(1), Qt::CaseInsensitive)) {
        files << file;
        break;
      }
    }
  }
  return files;
}

/// A dialog of the toolkit's own, which can be looked into, and a folder with a file for each row of the vocabulary.
class open_dialog : public testing::Test {
protected:
  void SetUp() override {
    ASSERT_TRUE(m_folder.isValid());
    for (int number = 0; number != vocabulary::extension_row_count; ++number) {
      ASSERT_TRUE(QFile(m_folder.filePath(file_of_row(number))).open(QIODevice::WriteOnly));
    }
    m_dialog.setOption(QFileDialog::DontUseNativeDialog);
    m_dialog.setFileMode(QFileDialog::ExistingFile);
    m_dialog.setViewMode(QFileDialog::List);
    m_dialog.setDirectory(m_folder.path());
  }

  QStringList patterns() const { return m_dialog.findChild<QFileSystemModel*>()->nameFilters(); }

  /// What the list of the dialog shows, as soon as it is what is expected and otherwise after a while.
  QStringList shown(QStringList const& expected) const {
    auto const* const list = m_dialog.findChild<QAbstractItemView*>("listView");
    QStringList names;
    QElapsedTimer waiting;
    waiting.start();
    do {
      QApplication::processEvents(QEventLoop::AllEvents, 20);
      names.clear();
      for (int row = 0; row != list->model()->rowCount(list->rootIndex()); ++row) {
        names << list->model()->index(row, 0, list->rootIndex()).data().toString();
      }
      names.sort();
    } while (names != expected && waiting.elapsed() < 5000);
    return names;
  }

  QTemporaryDir m_folder;
  QFileDialog m_dialog;
};

} // namespace

TEST_F(open_dialog, splits_the_filter_of_every_type_into_the_patterns_of_that_type) {
  int checked = 0;
  for (bool const plural : {false, true}) {
    for (int type = 0; type != vocabulary::file_type_count; ++type, ++checked) {
      QString const filter = filter_of(type, plural);
      m_dialog.setNameFilter(filter);
      m_dialog.selectNameFilter(filter);
      EXPECT_EQ(patterns(), patterns_of(type)) << filter.toStdString();
    }
  }
  EXPECT_EQ(checked, 2 * 246);
}

TEST_F(open_dialog, shows_of_a_file_for_each_row_those_that_match_the_type) {
  QStringList filters = {"All files (*)"};
  for (int type = 0; type != vocabulary::file_type_count; ++type) {
    filters << filter_of(type, true);
  }
  m_dialog.setNameFilters(filters);
  m_dialog.show();
  QStringList const all = files_that_match({"*"});
  ASSERT_EQ(all.size(), 298);
  ASSERT_EQ(shown(all), all);
  for (int type = 0; type != vocabulary::file_type_count; ++type) {
    QStringList const expected = files_that_match(patterns_of(type));
    m_dialog.selectNameFilter(filters[type + 1]);
    EXPECT_EQ(shown(expected), expected) << filters[type + 1].toStdString();
    EXPECT_EQ(QDir(m_folder.path()).entryList(patterns(), QDir::Files, QDir::Name), expected) << type;
  }
}

TEST_F(open_dialog, offers_all_design_files_first) {
  QStringList const filters = file_filters("All Text Files", types_of_editor("Text Files"));
  QStringList designs;
  QStringList texts;
  QStringList each;
  for (vocabulary::file_type_row const& row : vocabulary::file_types) {
    if ((row.traits & FIO_FILE_TYPE_FLAG_DESIGN_FILES) != 0) {
      designs << patterns_of(row.file_type);
    }
    if (row.editor_type == FIO_EDITOR_TYPE_TEXT_FILES) {
      texts << patterns_of(row.file_type);
      each << filter_of(row.file_type, true);
    }
  }
  designs.removeDuplicates();
  texts.removeDuplicates();
  each.removeDuplicates();
  EXPECT_EQ(filters.mid(2, each.size()), each);
  EXPECT_EQ(filters.size(), each.size() + 3);
  EXPECT_EQ(filters.last(), QString("All files (*)"));
  m_dialog.setNameFilters(filters);
  EXPECT_EQ(m_dialog.selectedNameFilter(), filters.first());
  EXPECT_TRUE(filters.first().startsWith("All design files ("));
  EXPECT_EQ(patterns(), designs);
  m_dialog.selectNameFilter(filters[1]);
  EXPECT_EQ(patterns(), texts);
}

TEST_F(open_dialog, offers_nothing_twice) {
  QStringList const filters = file_filters("All design files", design_files());
  EXPECT_EQ(filters.count(filters.first()), 1);
  EXPECT_EQ(filters.size(), static_cast<qsizetype>(design_files().size()) + 2);
}

TEST_F(open_dialog, takes_one_name_of_two_editors_and_of_two_traits) {
  EXPECT_EQ(types_of_editor("Power and Thermal Calculator Files").size(), 3);
  EXPECT_EQ(types_with_trait("Design Files").size(), 19);
  EXPECT_EQ(types_of_editor("Nothing").size(), 0);
  EXPECT_EQ(types_with_trait("Nothing").size(), 0);
}

TEST_F(open_dialog, opens_where_the_last_file_was_chosen) {
  QDir(m_folder.path()).mkdir("Entwürfe v1.2");
  QString const directory = m_folder.filePath("Entwürfe v1.2");
  QSettings settings(m_folder.filePath("settings.ini"), QSettings::IniFormat);
  EXPECT_EQ(last_directory(settings), FIO_FILE_SYSTEM::get_current_directory());
  remember_directory_of(directory + "/top.v", settings);
  settings.sync();
  QSettings const later(m_folder.filePath("settings.ini"), QSettings::IniFormat);
  m_dialog.setDirectory(QFile::decodeName(last_directory(later)));
  EXPECT_EQ(m_dialog.directory().path(), directory);
  QDir(directory).removeRecursively();
  EXPECT_EQ(last_directory(later), FIO_FILE_SYSTEM::get_current_directory());
}

// With CCL_SCREENSHOT=FILE, in the folder `rtl` of a copy of the design, the picture of the documentation is made anew.
TEST_F(open_dialog, shows_the_folders_and_sources_of_a_design_in_a_picture) {
  QStringList const expected = {"core", "include", "top.v", "uart"};
  // Apart from the folder that the dialog has listed already.
  QTemporaryDir const design;
  QDir const folder(design.path());
  for (char const* const name : {"core", "include", "uart"}) {
    ASSERT_TRUE(folder.mkdir(name));
  }
  QFile source(folder.filePath("top.v"));
  ASSERT_TRUE(source.open(QIODevice::WriteOnly));
  char const* const wanted = std::getenv("CCL_SCREENSHOT");
  QString const file = wanted != nullptr ? QFile::decodeName(wanted) : m_folder.filePath("picture.png");
  m_dialog.setDirectory(wanted != nullptr ? QDir::current() : folder);
  m_dialog.setSidebarUrls({QUrl("file:")});
  m_dialog.setNameFilters(file_filters("All Text Files", types_of_editor("Text Files")));
  m_dialog.setViewMode(QFileDialog::Detail);
  m_dialog.resize(720, 280);
  m_dialog.findChild<QSplitter*>()->setSizes({100, 600});
  m_dialog.show();
  EXPECT_EQ(shown(expected), expected);
  auto* const table = m_dialog.findChild<QTreeView*>("treeView");
  for (int column = 0; column != table->model()->columnCount(); ++column) {
    table->resizeColumnToContents(column);
  }
  table->setColumnWidth(0, 160);
  if (wanted != nullptr) {
    shown({}); // waits until the rows are sorted
  }
  EXPECT_TRUE(m_dialog.grab().save(file));
  EXPECT_EQ(QImage(file).size(), QSize(720, 280));
}

int main(int count, char** values) {
  testing::InitGoogleTest(&count, values);
  QApplication const application(count, values);
  return RUN_ALL_TESTS();
}
