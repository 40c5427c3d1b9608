#pragma once

#include "admin/backup/HashedFile.h"
#include "core/Result.h"

#include <QDateTime>
#include <QString>

#include <cstdint>
#include <string>
#include <vector>

namespace quorvane::backup {

/// Why a backup was made. Only automatic ones are ever removed to make room for newer ones.
enum class Kind { kByHand, kAutomatic, kReplaced };

struct TableColumn {
  std::string name;
  char type = 't';  ///< i whole number, d double, t text

  bool operator==(const TableColumn&) const = default;
};

/// The rows of one table are in "tables/<name>.tsv".
struct TableEntry {
  std::string name;
  std::vector<TableColumn> columns;  ///< in the order of the file
  std::int64_t rows = 0;

  QString Path() const;
};

/// What a backup holds. It is written last, so that a folder with one is a whole backup.
struct Manifest {
  static constexpr int kFormat = 1;

  QString program;  ///< release that made it ("2.12.2")
  QDateTime made;
  Kind kind = Kind::kByHand;
  std::vector<TableEntry> tables;
  std::vector<BackupFile> files;

  std::int64_t Bytes() const;
  const BackupFile* Find(const QString& path) const;
  const TableEntry* FindTable(const char* name) const;
};

inline constexpr char kDocumentsFolder[] = "SignDocs/";
inline constexpr char kDataFolder[] = "Data/";
inline constexpr char kSettingsFile[] = "Confg.ini";

/// "manifest.json" and its own checksum "manifest.sha256". Throws std::runtime_error.
void WriteManifest(const QString& folder, const Manifest& manifest);

/// Refused when the folder is no backup, an unfinished one, one of a newer release, or when the
/// manifest is damaged or names a file outside the backup.
Result<Manifest> ReadManifest(const QString& folder);

/// Refused when a file of the manifest is missing or of another size. Does not read the files.
MaybeRefusal CheckSizes(const QString& folder, const Manifest& manifest);

/// True for "tables/Broker.tsv"; false for what could lead out of the backup or does not belong
/// in one.
bool IsBackupPath(const QString& path);

/// "The backup %1 is damaged: %2."
Refusal Damaged(const QString& folder, const QString& reason);

}  // namespace quorvane::backup
