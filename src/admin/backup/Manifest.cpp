#include "admin/backup/Manifest.h"

#include "core/platform/PrivateFile.h"
#include "core/text/Tr.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <algorithm>
#include <array>

namespace quorvane::backup {
namespace {

const QString kManifest = QStringLiteral("manifest.json");
const QString kChecksum = QStringLiteral("manifest.sha256");
const QString kSystem = QStringLiteral("Quorvane backup");
constexpr std::array kKinds{"by hand", "automatic", "replaced"};

QString Shown(const QString& folder) {
  return QDir::toNativeSeparators(folder);
}

QByteArray Sha256(const QByteArray& bytes) {
  return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

QString FromUtf8(const std::string& text) {
  return QString::fromStdString(text);
}

QJsonObject TableAsJson(const TableEntry& table) {
  QJsonArray columns;
  for (const TableColumn& column : table.columns) {
    columns.append(QJsonObject{{QStringLiteral("name"), FromUtf8(column.name)},
                               {QStringLiteral("type"), QString(QLatin1Char(column.type))}});
  }
  return {{QStringLiteral("name"), FromUtf8(table.name)},
          {QStringLiteral("rows"), static_cast<qint64>(table.rows)},
          {QStringLiteral("columns"), columns}};
}

QByteArray AsJson(const Manifest& manifest) {
  QJsonArray tables;
  for (const TableEntry& table : manifest.tables) {
    tables.append(TableAsJson(table));
  }
  QJsonArray files;
  for (const BackupFile& file : manifest.files) {
    files.append(QJsonObject{{QStringLiteral("path"), file.path},
                             {QStringLiteral("bytes"), static_cast<qint64>(file.bytes)},
                             {QStringLiteral("sha256"), QString::fromLatin1(file.sha256)}});
  }
  const QJsonObject root{
      {QStringLiteral("system"), kSystem},
      {QStringLiteral("format"), Manifest::kFormat},
      {QStringLiteral("program"), manifest.program},
      {QStringLiteral("made"), manifest.made.toString(Qt::ISODate)},
      {QStringLiteral("kind"), QLatin1String(kKinds.at(static_cast<std::size_t>(manifest.kind)))},
      {QStringLiteral("tables"), tables},
      {QStringLiteral("files"), files}};
  return QJsonDocument(root).toJson();
}

TableEntry TableFromJson(const QJsonObject& json) {
  TableEntry table;
  table.name = json[QStringLiteral("name")].toString().toStdString();
  table.rows = json[QStringLiteral("rows")].toInteger(-1);
  for (const QJsonValue value : json[QStringLiteral("columns")].toArray()) {
    const QString type = value[QStringLiteral("type")].toString();
    table.columns.push_back({value[QStringLiteral("name")].toString().toStdString(),
                             type.size() == 1 ? type[0].toLatin1() : '?'});
  }
  return table;
}

Manifest FromJson(const QJsonObject& root) {
  Manifest manifest;
  manifest.program = root[QStringLiteral("program")].toString();
  manifest.made = QDateTime::fromString(root[QStringLiteral("made")].toString(), Qt::ISODate);
  const auto* kind = std::ranges::find(kKinds, root[QStringLiteral("kind")].toString());
  manifest.kind = kind == kKinds.end() ? Kind::kByHand : static_cast<Kind>(kind - kKinds.begin());
  for (const QJsonValue value : root[QStringLiteral("tables")].toArray()) {
    manifest.tables.push_back(TableFromJson(value.toObject()));
  }
  for (const QJsonValue value : root[QStringLiteral("files")].toArray()) {
    manifest.files.push_back({value[QStringLiteral("path")].toString(),
                              value[QStringLiteral("bytes")].toInteger(-1),
                              value[QStringLiteral("sha256")].toString().toLatin1()});
  }
  return manifest;
}

/// What is wrong with the contents; empty when nothing is.
QString Fault(const Manifest& manifest) {
  QSet<QString> seen;
  for (const BackupFile& file : manifest.files) {
    if (!IsBackupPath(file.path)) {
      return Tr("Backup", "the manifest names the file \"%1\"").arg(file.path);
    }
    if (seen.contains(file.path)) {
      return Tr("Backup", "the manifest names %1 twice").arg(file.path);
    }
    seen.insert(file.path);
  }
  QSet<QString> tables;
  for (const TableEntry& table : manifest.tables) {
    const QString name = FromUtf8(table.name);
    if (!seen.contains(table.Path())) {
      return Tr("Backup", "the manifest names no file for the table %1").arg(name);
    }
    if (tables.contains(name.toLower())) {
      return Tr("Backup", "the manifest names %1 twice").arg(name);
    }
    tables.insert(name.toLower());
  }
  return manifest.tables.empty() ? Tr("Backup", "the manifest names no table") : QString();
}

Refusal NoBackup(const QString& folder) {
  const bool begun = folder.endsWith(QLatin1String(".part")) ||
                     QFileInfo(QDir(folder).filePath(QStringLiteral("tables"))).isDir();
  return {(begun ? Tr("Backup", "The backup %1 was not finished.")
                 : Tr("Backup", "%1 is no backup of Quorvane: it has no manifest."))
              .arg(Shown(folder)),
          {}};
}

bool ReadFile(const QString& path, QByteArray& bytes) {
  QFile file(path);
  // Reading a pipe would wait for somebody to write into it.
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
    return false;
  }
  bytes = file.readAll();
  return file.error() == QFileDevice::NoError;
}

}  // namespace

QString TableEntry::Path() const {
  return QStringLiteral("tables/%1.tsv").arg(FromUtf8(name));
}

std::int64_t Manifest::Bytes() const {
  std::int64_t bytes = 0;
  for (const BackupFile& file : files) {
    bytes += file.bytes;
  }
  return bytes;
}

const BackupFile* Manifest::Find(const QString& path) const {
  const auto found = std::ranges::find(files, path, &BackupFile::path);
  return found == files.end() ? nullptr : &*found;
}

const TableEntry* Manifest::FindTable(const char* name) const {
  const auto found = std::ranges::find(tables, std::string(name), &TableEntry::name);
  return found == tables.end() ? nullptr : &*found;
}

bool IsBackupPath(const QString& path) {
  if (path.contains(QLatin1Char('\\')) || path.contains(QLatin1Char(':')) ||
      path.contains(QChar(QChar::Null))) {
    return false;
  }
  const QStringList parts = path.split(QLatin1Char('/'));
  const bool plain = std::ranges::none_of(parts, [](const QString& part) {
    return part.isEmpty() || part == QLatin1String(".") || part == QLatin1String("..");
  });
  const bool known = path == QLatin1String(kSettingsFile) ||
                     path.startsWith(QLatin1String("tables/")) ||
                     path.startsWith(QLatin1String(kDocumentsFolder)) ||
                     path.startsWith(QLatin1String(kDataFolder));
  return plain && known;
}

Refusal Damaged(const QString& folder, const QString& reason) {
  return {Tr("Backup", "The backup %1 is damaged: %2.").arg(Shown(folder), reason), {}};
}

void WriteManifest(const QString& folder, const Manifest& manifest) {
  const QByteArray json = AsJson(manifest);
  platform::WritePrivate(QDir(folder).filePath(kChecksum),
                         Sha256(json) + "  " + kManifest.toUtf8() + '\n');
  platform::WritePrivate(QDir(folder).filePath(kManifest), json);
}

Result<Manifest> ReadManifest(const QString& folder) {
  QByteArray json;
  QByteArray checksum;
  if (!ReadFile(QDir(folder).filePath(kManifest), json)) {
    return NoBackup(folder);
  }
  const QJsonObject root = QJsonDocument::fromJson(json).object();
  if (!root.isEmpty() && root[QStringLiteral("system")].toString() != kSystem) {
    return NoBackup(folder);
  }
  if (root.isEmpty() || !ReadFile(QDir(folder).filePath(kChecksum), checksum) ||
      checksum.left(64) != Sha256(json)) {
    return Damaged(folder, Tr("Backup", "the manifest does not agree with its checksum"));
  }
  if (const int format = root[QStringLiteral("format")].toInt(); format > Manifest::kFormat) {
    return Refusal{Tr("Backup",
                      "The backup %1 was made by a newer release (format %2). This release reads "
                      "format %3.")
                       .arg(Shown(folder))
                       .arg(format)
                       .arg(Manifest::kFormat),
                   {}};
  }
  Manifest manifest = FromJson(root);
  if (const QString fault = Fault(manifest); !fault.isEmpty()) {
    return Damaged(folder, fault);
  }
  return manifest;
}

MaybeRefusal CheckSizes(const QString& folder, const Manifest& manifest) {
  const QString root = QDir(folder).canonicalPath();
  for (const BackupFile& file : manifest.files) {
    const QFileInfo info(QDir(folder).filePath(file.path));
    // A link could lead out of the backup, whatever the manifest says.
    if (!info.isFile() || !info.canonicalFilePath().startsWith(root + QLatin1Char('/'))) {
      return Damaged(folder, Tr("Backup", "the file %1 is missing").arg(file.path));
    }
    if (info.size() != file.bytes) {
      return Damaged(folder, Tr("Backup", "the file %1 has %2 bytes instead of %3")
                                 .arg(file.path)
                                 .arg(info.size())
                                 .arg(file.bytes));
    }
  }
  return std::nullopt;
}

}  // namespace quorvane::backup
