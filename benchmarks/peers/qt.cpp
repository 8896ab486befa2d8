#include <QBuffer>
#include <QDataStream>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include "benchmarks/peers/peers.h"
#include "benchmarks/peers/workloads.h"

namespace bench {

namespace {

char const name[] = "Qt";
char const note[] = "no object; UTF-16, converted where a C string comes in or goes out";

QString anchored(QString const& value, QString const& directory) {
  return QDir::cleanPath(QDir::isAbsolutePath(value) ? value : directory + QLatin1Char('/') + value);
}

qsizetype name_start(QString const& value) { return value.lastIndexOf(QLatin1Char('/')) + 1; }

} // namespace

void add_qt() {
  auto const make = [](std::string const& text) { return QString::fromStdString(text); };
  add(
      "path.construct_and_read", name, all_texts,
      [](texts const& from, std::size_t item, auto visit) {
        QFileInfo const info(QString::fromStdString(from[item]));
        visit(info.path().toStdString());
        visit(info.completeBaseName().toStdString());
        visit(info.suffix().toStdString());
        visit(info.filePath().toStdString());
      },
      note);
  add_edits(
      name, "no object: edits of a QString", make,
      [](QString& value) { value.replace(name_start(value), value.size(), QString::fromStdString(appended)); },
      [](QString& value, std::string const& text) {
        value.replace(name_start(value), value.size(), QString::fromStdString(text));
      },
      [](QString& value, std::string const& text) {
        qsizetype const dot = value.lastIndexOf(QLatin1Char('.'));
        value.truncate(dot >= name_start(value) ? dot : value.size());
        value += QLatin1String(text.front() == '.' ? "" : ".") + QString::fromStdString(text);
      });
  add_simplification(name, "no object: QDir::cleanPath", make,
                     [](QString const& value) { return QDir::cleanPath(value); });
  add_anchoring(
      name, "no object", make, [](QString const& value) { return anchored(value, QDir::currentPath()); },
      [](QString const& value, std::string const& directory) {
        return anchored(value, QString::fromStdString(directory));
      });
  add_relative(name, "no object; QDir::relativeFilePath", make, [](QString const& value, std::string const& directory) {
    return QDir(QString::fromStdString(directory)).relativeFilePath(value).toStdString();
  });
  add_comparisons(name, "no object", make, [](QString const& left, QString const& right) {
    return anchored(left, QDir::currentPath()).compare(anchored(right, QDir::currentPath()));
  });
  add_patterns(
      name, "regular expression compiled before; UTF-16",
      [](std::string const& pattern) {
        QRegularExpression const expression(QRegularExpression::fromWildcard(
            QString::fromStdString(pattern), Qt::CaseSensitive, QRegularExpression::UnanchoredWildcardConversion));
        QRegularExpression anchored_expression(QRegularExpression::anchoredPattern(expression.pattern()));
        anchored_expression.optimize();
        return anchored_expression;
      },
      [](QRegularExpression const& expression, std::string const& text) {
        return expression.match(QString::fromStdString(text)).hasMatch();
      });
  add_searches(name, "calls access; UTF-16", make, [](QString const& directory, std::string const& text, auto visit) {
    if (!QFileInfo::exists(directory)) {
      return false;
    }
    QString const candidate = directory + QString::fromStdString(text);
    bool const found = QFileInfo::exists(candidate);
    if (found) {
      visit(candidate);
    }
    return found;
  });
  add_directory_walk(name, "three statuses an entry; UTF-16", [](std::string const& directory, auto visit) {
    QDirIterator entry(QString::fromStdString(directory), QDir::AllEntries | QDir::Hidden | QDir::System);
    while (entry.hasNext()) {
      QFileInfo const info = entry.nextFileInfo();
      visit(info.filePath().toStdString());
      visit(info.size());
      visit(info.lastModified().toSecsSinceEpoch());
      visit(info.isWritable());
    }
  });
  add_tree_walk(name, "UTF-16", [](std::string const& top, auto visit) {
    QDirIterator entry(QString::fromStdString(top),
                       QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (entry.hasNext()) {
      visit(entry.next().toStdString());
    }
  });
  add_removal(
      name, [](std::string const& top) { return QDir(QString::fromStdString(top)).removeRecursively(); },
      "no status of an entry");
}

} // namespace bench
