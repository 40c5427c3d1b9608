#pragma once

#include <QString>
#include <QStringList>

namespace quorvane::lookups {

/// The names of the states to choose from: the lines of a UTF-8 text file, in their order. Empty
/// when there is no such file.
QStringList FillStateList(const QString& path);

}  // namespace quorvane::lookups
