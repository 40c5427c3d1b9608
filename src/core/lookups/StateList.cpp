#include "core/lookups/StateList.h"

#include <QFile>
#include <QTextStream>

namespace quorvane::lookups {

QStringList FillStateList(const QString& path) {
  QStringList states;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    return states;
  }
  QTextStream lines(&file);
  QString line;
  while (lines.readLineInto(&line)) {
    states << line;
  }
  return states;
}

}  // namespace quorvane::lookups
