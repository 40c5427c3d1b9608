#pragma once

#include "core/files/TextTable.h"

#include <QByteArray>
#include <QString>

namespace quorvane::files {

/// The endings of files that tables are read from: "csv", "xls", "xlsx", "ods" and "zip".
bool HasTableEnding(const QString& path);

/// The contents of a file. Throws TableError when it cannot be read or has more than kLargestFile.
QByteArray BytesOf(const QString& path);

/// Reads the table in a file, whose kind is found from its contents, not its name: comma separated
/// text, a list of objects in JSON, the first sheet of a workbook, or the one comma separated file
/// in a zip archive. Throws TableError with a text for the user.
TextTable ReadTableFile(const QString& path);

/// The one comma separated file in a zip archive: its name without folders and its bytes. Throws
/// TableError.
struct UnpackedFile {
  QString name;
  QByteArray content;
};
UnpackedFile UnpackTable(const QByteArray& archive);

}  // namespace quorvane::files
