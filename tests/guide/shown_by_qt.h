// What the tables of the documentation use of Qt.

#ifndef CCL_TESTS_GUIDE_SHOWN_BY_QT_H
#define CCL_TESTS_GUIDE_SHOWN_BY_QT_H

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QStringList>
#include <string>

namespace guide {

inline std::string shown(QString const& text);
inline std::string shown(QStringList const& list);

} // namespace guide

#include "tests/guide/shown.h"

namespace guide {

inline std::string shown(QString const& text) { return shown(text.toStdString()); }
inline std::string shown(QStringList const& list) { return shown(list.join(", ")); }

} // namespace guide

#endif
