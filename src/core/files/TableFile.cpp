#include "core/files/TableFile.h"

#include "core/files/CompoundFile.h"
#include "core/files/JsonTable.h"
#include "core/files/TableReaders.h"
#include "core/text/Tr.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace quorvane::files {
namespace {

std::string_view View(const QByteArray& bytes) {
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

bool IsCsv(const ArchiveEntry& entry) {
  return QString::fromStdString(entry.name).endsWith(QLatin1String(".csv"), Qt::CaseInsensitive);
}

const ArchiveEntry& CsvEntryOf(const std::vector<ArchiveEntry>& entries) {
  const auto count = std::ranges::count_if(entries, IsCsv);
  if (count != 1) {
    throw TableError(
        (count == 0
             ? Tr("Files", "The archive holds no .csv file.")
             : Tr("Files", "The archive holds more than one .csv file. Unpack it and choose one."))
            .toStdString());
  }
  return *std::ranges::find_if(entries, IsCsv);
}

TextTable ReadArchived(std::string_view bytes) {
  const std::vector<ArchiveEntry> entries = ReadArchive(bytes);
  if (FindPart(entries, "[Content_Types].xml") != nullptr) {
    return ReadXlsx(entries);
  }
  if (FindPart(entries, "content.xml") != nullptr) {
    return ReadOds(entries);
  }
  const ArchiveEntry& entry = CsvEntryOf(entries);
  TextTable table = ReadCsvText(entry.content);
  table.name = entry.name;
  return table;
}

}  // namespace

QByteArray BytesOf(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    Fail(Tr("Files", "%1: %2").arg(path, file.errorString()));
  }
  QByteArray bytes = file.read(static_cast<qint64>(kLargestFile) + 1);
  if (static_cast<std::size_t>(bytes.size()) > kLargestFile) {
    Fail(Tr("Files", "The file holds more than can be read."));
  }
  return bytes;
}

bool HasTableEnding(const QString& path) {
  static const QStringList kEndings{QStringLiteral("csv"), QStringLiteral("xls"),
                                    QStringLiteral("xlsx"), QStringLiteral("ods"),
                                    QStringLiteral("zip")};
  return kEndings.contains(QFileInfo(path).suffix().toLower());
}

TextTable ReadTableFile(const QString& path) {
  const QByteArray bytes = BytesOf(path);
  if (CompoundFile::IsOne(View(bytes))) {
    return ReadXlsWorkbook(View(bytes));
  }
  if (IsArchive(View(bytes))) {
    return ReadArchived(View(bytes));
  }
  return IsJson(View(bytes)) ? ReadJsonTable(View(bytes)) : ReadCsvText(View(bytes));
}

UnpackedFile UnpackTable(const QByteArray& archive) {
  const std::vector<ArchiveEntry> entries = ReadArchive(View(archive));
  const ArchiveEntry& entry = CsvEntryOf(entries);
  return {QFileInfo(QString::fromStdString(entry.name)).fileName(),
          QByteArray::fromStdString(entry.content)};
}

}  // namespace quorvane::files
