#include "admin/backup/Restore.h"

#include "admin/backup/BackupList.h"
#include "admin/backup/RestoreFiles.h"
#include "admin/backup/TableRows.h"
#include "core/changes/Log.h"
#include "core/database/Keys.h"
#include "core/database/Transaction.h"
#include "core/text/Tr.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <stdexcept>

namespace quorvane::backup {
namespace {

bool SameName(const std::string& one, const std::string& other) {
  return QString::fromStdString(one).compare(QString::fromStdString(other), Qt::CaseInsensitive) ==
         0;
}

/// The present table that a table of the backup goes into; its columns are checked.
MaybeRefusal FindPlace(const QString& backup, const TableEntry& stored,
                       const std::vector<TableEntry>& present) {
  const auto place = std::ranges::find_if(
      present, [&](const TableEntry& table) { return table.name == stored.name; });
  const auto unknown = [&](const std::string& what) {
    return Refusal{Tr("Backup", "The backup %1 holds %2, which this release does not know.")
                       .arg(QDir::toNativeSeparators(backup), QString::fromStdString(what)),
                   {}};
  };
  if (place == present.end()) {
    return unknown(stored.name);
  }
  for (const TableColumn& column : stored.columns) {
    const bool known = std::ranges::any_of(place->columns, [&](const TableColumn& own) {
      return SameName(own.name, column.name) && own.type == column.type;
    });
    if (!known) {
      return unknown(stored.name + "." + column.name);
    }
  }
  return std::nullopt;
}

MaybeRefusal CheckTables(const QString& backup, const Manifest& manifest,
                         const std::vector<TableEntry>& present) {
  for (const TableEntry& stored : manifest.tables) {
    if (MaybeRefusal refusal = FindPlace(backup, stored, present)) {
      return refusal;
    }
  }
  return std::nullopt;
}

/// Tells one count over all tables.
class RowCount {
 public:
  RowCount(Progress& progress, const Manifest& manifest) : progress_(progress) {
    std::int64_t rows = 0;
    for (const TableEntry& table : manifest.tables) {
      rows += table.rows;
    }
    progress_.Begin(Tr("Backup", "Restoring the records"), 2 * rows);
  }

  void operator()(std::int64_t rows) {
    progress_.Step(done_ += rows);
    progress_.ThrowIfCancelled();
  }

 private:
  Progress& progress_;
  std::int64_t done_ = 0;
};

/// Reads a table back and insists on the bytes of the backup.
void Compare(database::Connection& connection, const TableEntry& table, const Manifest& manifest,
             RowCount& count) {
  QCryptographicHash hash(QCryptographicHash::Sha256);
  SendRows(
      connection, table,
      [&](std::string_view text) {
        hash.addData(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
      },
      [&](std::int64_t rows) { count(rows); });
  if (hash.result().toHex() != manifest.Find(table.Path())->sha256) {
    throw std::runtime_error("the database does not take the rows of " + table.name +
                             " as they are in the backup; nothing was changed");
  }
}

/// The log of changes goes on over a restore: only an empty one is taken from the backup.
bool StaysAsItIs(const TableEntry& table, bool keeps_log) {
  return keeps_log && (table.name == "ChangeLog" || table.name == "ChangeHead");
}

MaybeRefusal ReplaceRows(database::Transaction& transaction, const QString& backup,
                         const Manifest& manifest, const std::vector<TableEntry>& present,
                         Progress& progress) {
  RowCount count(progress, manifest);
  const database::KeyCounters given = database::ReadCounters(transaction.GetConnection());
  const bool keeps_log = changes::LastEntry(transaction.GetConnection()) > 0;
  transaction.Changes().Summarise(changes::Kind::kRestored, QFileInfo(backup).fileName(),
                                  {.table = changes::kEverything});
  // A table that the backup does not name was not there yet and had no rows.
  for (const TableEntry& table : present) {
    if (!StaysAsItIs(table, keeps_log)) {
      transaction.Execute("Delete From " + table.name);
    }
    progress.ThrowIfCancelled();
  }
  for (const TableEntry& table : manifest.tables) {
    if (StaysAsItIs(table, keeps_log)) {
      continue;
    }
    if (const MaybeRefusal refusal =
            InsertRows(transaction, table, QDir(backup).filePath(table.Path()),
                       [&](std::int64_t rows) { count(rows); })) {
      return Damaged(backup, refusal->text);
    }
  }
  for (const TableEntry& table : manifest.tables) {
    if (!StaysAsItIs(table, keeps_log)) {
      Compare(transaction.GetConnection(), table, manifest, count);
    }
  }
  // A backup of an older release has none.
  transaction.Execute("Insert Ignore Into ChangeHead Values(1,0,'',0,'')");
  // A key that was given since the backup is not given again.
  database::RaiseCounters(transaction, given);
  return std::nullopt;
}

/// Opens the database anew and counts.
void CheckRestored(const database::ConnectionSettings& settings, const Manifest& manifest,
                   const QString& aside) {
  database::Connection fresh(settings);
  for (const TableEntry& table : manifest.tables) {
    auto rows = fresh.Open(fmt::format("Select Count(*) From {}", table.name));
    // These have what both had by now.
    const bool grows = table.name == "RecordKey" || StaysAsItIs(table, true);
    if (!rows.Next() || (rows.Int64(0) != table.rows && !grows)) {
      throw std::runtime_error(
          Tr("Backup",
             "The backup was restored, but the table %1 has another number of rows now. What was "
             "replaced lies in %2.")
              .arg(QString::fromStdString(table.name), QDir::toNativeSeparators(aside))
              .toStdString());
    }
  }
}

void RemoveEarlierAside(const app::Folders& folders, const QString& aside, const QString& source) {
  for (const Entry& entry : ListBackups(ReplacedFolder(folders))) {
    const bool is_source =
        QFileInfo(entry.path).canonicalFilePath() == QFileInfo(source).canonicalFilePath();
    if (entry.path != aside && !is_source && entry.kind == Kind::kReplaced) {
      QDir(entry.path).removeRecursively();
    }
  }
}

/// The part that either happens or does not.
MaybeRefusal Replace(const Source& source, const QString& backup, const Manifest& manifest,
                     const std::vector<TableEntry>& present, RestoreFiles& files,
                     Progress& progress) {
  files.Stage(backup, manifest, progress);
  files.Promise();
  return database::InTransaction(source.connection, [&](database::Transaction& transaction) {
    files.Mark(transaction);
    return ReplaceRows(transaction, backup, manifest, present, progress);
  });
}

/// The mark in the database tells, also when the connection was lost at the commit. A database that
/// cannot be asked any more leaves the files as they are, for the next start to settle.
bool Happened(database::Connection& connection, RestoreFiles& files,
              const std::exception_ptr& failure) {
  try {
    connection.Reopen();
    return files.Settle();
  } catch (...) {
    std::rethrow_exception(failure ? failure : std::current_exception());
  }
}

}  // namespace

QString ReplacedFolder(const app::Folders& folders) {
  return QDir(folders.application).filePath(QStringLiteral("BackUp/Replaced"));
}

Result<QString> RestoreBackup(const Source& source, const QString& backup, const QDateTime& now,
                              Progress& progress) {
  if (IsUnfinishedName(QFileInfo(backup).fileName())) {
    return Refusal{
        Tr("Backup", "The backup %1 was not finished.").arg(QDir::toNativeSeparators(backup)), {}};
  }
  const Result<Manifest> verified = VerifyBackup(backup, progress);
  if (!verified) {
    return verified.Why();
  }
  const Manifest& manifest = *verified;
  const std::vector<TableEntry> present = TablesOf(source.connection);
  if (MaybeRefusal refusal = CheckTables(backup, manifest, present)) {
    return *refusal;
  }
  RestoreFiles files(source.connection, source.folders);
  if (!files.TryLock()) {
    return Refusal{Tr("Backup", "Another program is restoring a backup at this moment."), {}};
  }
  if (MaybeRefusal refusal = files.CheckLinks(manifest)) {
    return *refusal;
  }
  if (files.IsPending()) {
    files.Settle();
  }
  Result<QString> replaced =
      MakeBackup(source, ReplacedFolder(source.folders), Kind::kReplaced, now, progress);
  if (!replaced) {
    return replaced;
  }
  const QString& aside = *replaced;
  MaybeRefusal broken;
  std::exception_ptr failure;
  try {
    broken = Replace(source, backup, manifest, present, files, progress);
  } catch (...) {
    failure = std::current_exception();
  }
  if (!Happened(source.connection, files, failure)) {
    QDir(aside).removeRecursively();
    if (failure) {
      std::rethrow_exception(failure);
    }
    return broken.value();
  }
  CheckRestored(source.connection.Settings(), manifest, aside);
  RemoveEarlierAside(source.folders, aside, backup);
  return aside;
}

std::vector<Holding> HoldingsOf(const Manifest& manifest) {
  std::vector<Holding> holdings;
  constexpr std::pair<const char*, const char*> kTables[] = {
      {"ClientInfo", QT_TRANSLATE_NOOP("Backup", "Clients")},
      {"ClientActDet", QT_TRANSLATE_NOOP("Backup", "Demat accounts")},
      {"Broker", QT_TRANSLATE_NOOP("Backup", "Brokers")},
      {"Script", QT_TRANSLATE_NOOP("Backup", "Scrips")},
      {"SPMaster", QT_TRANSLATE_NOOP("Backup", "Bills")},
      {"SPTrans", QT_TRANSLATE_NOOP("Backup", "Bill lines")},
      {"StkOpBal", QT_TRANSLATE_NOOP("Backup", "Opening stock")},
      {"ScrTransfer", QT_TRANSLATE_NOOP("Backup", "Transfers")},
      {"Stock", QT_TRANSLATE_NOOP("Backup", "Lots held")},
      {"BrPayment", QT_TRANSLATE_NOOP("Backup", "Payments")},
      {"BrRec", QT_TRANSLATE_NOOP("Backup", "Receipts")},
      {"MarketRate", QT_TRANSLATE_NOOP("Backup", "Market rates")},
      {"LoginId", QT_TRANSLATE_NOOP("Backup", "Users")}};
  for (const auto& [table, what] : kTables) {
    if (const TableEntry* entry = manifest.FindTable(table)) {
      holdings.push_back({Tr("Backup", what), entry->rows});
    }
  }
  holdings.push_back({Tr("Backup", "Scanned documents"),
                      std::ranges::count_if(manifest.files, [](const BackupFile& file) {
                        return file.path.startsWith(QLatin1String(kDocumentsFolder));
                      })});
  return holdings;
}

}  // namespace quorvane::backup
