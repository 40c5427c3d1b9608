#include "admin/backup/Backup.h"
#include "admin/backup/BackupList.h"
#include "admin/backup/Restore.h"
#include "admin/backup/RestoreFiles.h"
#include "admin/backup/TableRows.h"
#include "core/changes/Chain.h"
#include "core/database/Keys.h"
#include "core/database/Transaction.h"
#include "core/rates/RateBook.h"
#include "core/text/FinancialYear.h"
#include "support/Files.h"
#include "support/Records.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cfloat>
#include <limits>

using namespace quorvane;
using namespace quorvane::backup;
using test::ReadFile;
using test::WriteFile;

namespace {

const QDateTime kNow(QDate(2026, 11, 25), QTime(8, 15, 0));

/// Does harm to a backup, or leads elsewhere.
using Spoil = std::function<void(QString& backup)>;

/// An application folder over a database of its own.
struct Office {
  test::TestDatabase database;
  QTemporaryDir home{test::TestFolderTemplate()};
  app::Folders folders = app::Folders::At(home.filePath(QStringLiteral("app")));
  QString backups = home.filePath(QStringLiteral("backups"));
  Progress quiet;

  Office() {
    WriteFile(folders.documents + QStringLiteral("/1/sign.png"), "signature");
    WriteFile(folders.data + QStringLiteral("/TransRpt.xlsx"), "template");
    WriteFile(folders.config_file, "[Internet]\nIndexFeed=x\n\n[Database]\nServer=here\n");
  }

  Source All() { return {database.Get(), folders}; }

  QString BackUp(Kind kind = Kind::kByHand, const QDateTime& now = kNow) {
    const Result<QString> made = MakeBackup(All(), backups, kind, now, quiet);
    return made ? *made : made.Why().text;
  }

  /// "" when it went well.
  QString Restore(const QString& backup) {
    const Result<QString> replaced = RestoreBackup(All(), backup, kNow, quiet);
    aside = replaced ? *replaced : QString();
    return replaced ? QString() : replaced.Why().text;
  }

  /// Every row of every table, and every file that belongs to the user. A restore is itself an
  /// entry of the log of changes.
  QByteArrayList Everything() {
    QByteArrayList all;
    for (const TableEntry& table : TablesOf(database.Get())) {
      if (table.name == "ChangeLog" || table.name == "ChangeHead") {
        continue;
      }
      std::string text;
      SendRows(
          database.Get(), table, [&](std::string_view part) { text += part; }, [](std::int64_t) {});
      all << QByteArray::fromStdString(table.name + "\n" + text);
    }
    for (const QString& folder : {folders.documents, folders.data}) {
      QStringList names;
      for (QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
           files.hasNext();) {
        names << files.next();
      }
      names.sort();
      for (const QString& name : names) {
        all << QDir(folder).relativeFilePath(name).toUtf8() + '=' + ReadFile(name);
      }
    }
    return all << ReadFile(folders.config_file);
  }

  QString aside;
};

/// Does something at the n-th step.
class AtStep final : public Progress {
 public:
  AtStep(int step, std::function<void()> act) : step_(step), act_(std::move(act)) {}
  void Step(std::int64_t) override {
    if (--step_ == 0) {
      act_();
    }
  }
  void Begin(const QString&, std::int64_t) override { Step(0); }
  bool Cancelled() const override { return cancelled; }
  bool HasActed() const { return step_ <= 0; }

  bool cancelled = false;

 private:
  int step_;
  std::function<void()> act_;
};

/// Replaces a text in the manifest and mends its checksum, as somebody would who means harm.
void Forge(const QString& backup, const QByteArray& from, const QByteArray& to) {
  const QString path = backup + QStringLiteral("/manifest.json");
  QByteArray json = ReadFile(path);
  QVERIFY(json.contains(from));
  json.replace(from, to);
  WriteFile(path, json);
  WriteFile(
      backup + QStringLiteral("/manifest.sha256"),
      QCryptographicHash::hash(json, QCryptographicHash::Sha256).toHex() + "  manifest.json\n");
}

}  // namespace

class BackupTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void EveryValueComesBackBitForBit() {
    Office office;
    auto& connection = office.database.Get();
    const double numbers[] = {0.1 + 0.2,  -0.0,
                              DBL_MAX,    std::numeric_limits<double>::denorm_min(),
                              1e15 + 0.5, 33.333333333333336};
    int id = 0;
    for (const double number : numbers) {
      connection.Execute(
          "Insert Into Stock(Cid,Fyear,Id,AcId,ScriptId,Qty,Rate) Values(1,'2011-12',?,1,1,?,Null)",
          ++id, number);
    }
    const std::string texts[] = {"", "\\N", "a\tb\nc\rd\\e", std::string("x\0y", 3),
                                 "O'BRIEN \xE0\xA4\xB0\xF0\x9F\x93\x88"};
    for (const std::string& text : texts) {
      connection.Execute("Insert Into ClientInfo(Id,Name,Address) Values(?,?,Null)", ++id, text);
    }
    connection.Execute("Insert Into ClientInfo(Id,Address) Values(?,?)", ++id,
                       std::string(100000, 'x'));
    connection.Execute("Insert Into TradeKey Values(1,'T|NSE|20260827|O1|t1',4)");
    connection.Execute("Insert Into ImportProfile Values('columns','a','date|qty','date=0')");
    const QByteArrayList before = office.Everything();
    const QString made = office.BackUp();
    QCOMPARE(QFileInfo(made).fileName(), "Quorvane-2026-11-25-081500");
    connection.Execute("Delete From ClientInfo Where Id>3");
    connection.Execute("Update Stock Set Qty=1");
    connection.Execute("Delete From TradeKey");
    connection.Execute("Delete From ImportProfile");
    connection.Execute("Insert Into Broker(Id,Name) Values(1,'NEW')");
    WriteFile(office.folders.documents + QStringLiteral("/1/sign.png"), "another");
    WriteFile(office.folders.documents + QStringLiteral("/2/new.png"), "new");
    WriteFile(office.folders.data + QStringLiteral("/TransRpt.xlsx"), "spoilt");
    QCOMPARE(office.Restore(made), QString());
    QCOMPARE(office.Everything(), before);
    auto rows = connection.Open("Select Qty From Stock Order By RowKey");
    for (const double number : numbers) {
      QVERIFY(rows.Next());
      QCOMPARE(rows.Double(0), number);
    }
  }

  void AKeyGivenSinceTheBackupIsNotGivenAgain() {
    Office office;
    const auto next = [&] {
      database::Transaction transaction(office.database.Get());
      const int key = database::NextKey(transaction, "Broker");
      transaction.Commit();
      return key;
    };
    QCOMPARE(next(), 1);
    const QString made = office.BackUp();
    QCOMPARE(next(), 2);
    QCOMPARE(office.Restore(made), QString());
    QCOMPARE(next(), 3);
    const QString later = office.BackUp();
    office.database->Execute("Delete From RecordKey");
    QCOMPARE(office.Restore(later), QString());
    QCOMPARE(next(), 4);
  }

  /// What happened before a restore happened; an empty database takes the backup's log.
  void TheLogOfChangesGoesOnOverARestore() {
    const auto log = [](Office& office) {
      return test::Rows(office.database.Get(), "Select Kind,Title From ChangeLog Order By Id");
    };
    const auto rate = [](Office& office, int day) {
      const rates::ScripRate one{office.database.AddScrip(QString::number(day), {}), 5};
      rates::RateBook(office.database.Get())
          .Save(text::FinancialYear(2011).FirstDay() + std::chrono::days(day), {&one, 1});
    };
    Office office;
    rate(office, 1);
    const QString made = office.BackUp();
    rate(office, 2);
    QCOMPARE(office.Restore(made), QString());
    QCOMPARE(log(office),
             QStringList({"9|02/04/2011", "9|03/04/2011", "11|" + QFileInfo(made).fileName()}));
    QCOMPARE(changes::CheckChain(office.database.Get(), office.quiet), QStringList());

    Office fresh;
    QCOMPARE(fresh.Restore(made), QString());
    QCOMPARE(log(fresh), QStringList({"9|02/04/2011", "11|" + QFileInfo(made).fileName()}));
    QCOMPARE(changes::CheckChain(fresh.database.Get(), fresh.quiet), QStringList());
  }

  void WhatWasReplacedIsABackupToo() {
    Office office;
    const QString made = office.BackUp();
    office.database.AddClient(QStringLiteral("LATER"));
    const QByteArrayList later = office.Everything();
    QCOMPARE(office.Restore(made), QString());
    const QString first_aside = office.aside;
    QCOMPARE(office.Restore(first_aside), QString());
    QCOMPARE(office.Everything(), later);
    QCOMPARE(ListBackups(ReplacedFolder(office.folders)).size(), 2U);
    QCOMPARE(office.Restore(made), QString());
    QCOMPARE(ListBackups(ReplacedFolder(office.folders)).size(), 1U);
  }

  void TablesAreOfOneInstant() {
    Office office;
    database::Connection other(office.database.Settings());
    AtStep writer(1, [&] {
      other.Execute("Insert Into LoginId(id,Name) Values(9,'LATE')");
      other.Execute("Insert Into TransTaxPer(Id) Values(9)");
    });
    const Result<QString> made =
        MakeBackup(office.All(), office.backups, Kind::kByHand, kNow, writer);
    QVERIFY(made);
    QVERIFY(writer.HasActed());
    const Manifest manifest = *ReadManifest(*made);
    QCOMPARE(manifest.FindTable("LoginId")->rows, 0);
    QCOMPARE(manifest.FindTable("TransTaxPer")->rows, 0);
  }

  void ADamagedOrForeignBackupChangesNothing_data() {
    const test::Table<QString, Spoil> row;
    row("a changed byte", "does not agree with its checksum", [](QString& backup) {
      QByteArray rows = ReadFile(backup + "/tables/ScriptType.tsv");
      rows[0] = '9';
      WriteFile(backup + "/tables/ScriptType.tsv", rows);
    });
    row("a shorter file", "bytes instead of",
        [](QString& backup) { WriteFile(backup + "/SignDocs/1/sign.png", "sig"); });
    row("a link to elsewhere", "is missing", [](QString& backup) {
      QFile::remove(backup + "/Confg.ini");
      QFile::link("/etc/hostname", backup + "/Confg.ini");
    });
    row("a changed manifest", "does not agree with its checksum", [](QString& backup) {
      QByteArray json = ReadFile(backup + "/manifest.json");
      WriteFile(backup + "/manifest.json", json.replace("\"rows\": 5", "\"rows\": 4"));
    });
    row("a table named twice", " twice", [](QString& backup) {
      const QByteArray json = ReadFile(backup + "/manifest.json");
      QJsonObject root = QJsonDocument::fromJson(json).object();
      QJsonArray tables = root["tables"].toArray();
      tables.append(tables.last());
      root["tables"] = tables;
      Forge(backup, json, QJsonDocument(root).toJson());
    });
    row("not finished", "was not finished", [](QString& backup) {
      QDir().rename(backup, backup + ".part");
      backup += ".part";
    });
    row("ended while it was written", "was not finished",
        [](QString& backup) { QFile::remove(backup + "/manifest.json"); });
    row("another folder", "is no backup of Quorvane",
        [](QString& backup) { backup = QFileInfo(backup).path(); });
    const auto forged = [&](const char* name, const char* says, const char* from, const char* to) {
      row(name, says, [from, to](QString& backup) { Forge(backup, from, to); });
    };
    forged("a path that climbs out", "names the file", "SignDocs/1/sign.png", "SignDocs/../../x");
    forged("an absolute path", "names the file", "SignDocs/1/sign.png", "/tmp/quorvane-x");
    forged("a newer format", "made by a newer release", "\"format\": 1", "\"format\": 2");
    forged("an unknown column", "does not know", "\"SettlNo\"", "\"SettlNo2\"");
    forged("a wrong number of rows", "cannot be read", "\"rows\": 5", "\"rows\": 4");
  }
  void ADamagedOrForeignBackupChangesNothing() {
    const auto [says, spoil] = test::Table<QString, Spoil>::Row();
    Office office;
    QString made = office.BackUp();
    office.database.AddClient(QStringLiteral("LATER"));
    const QByteArrayList before = office.Everything();
    spoil(made);
    const QString told = office.Restore(made);
    QVERIFY2(told.contains(says), qPrintable(told));
    QCOMPARE(office.Everything(), before);
    QVERIFY(!QFileInfo::exists(office.folders.application + QStringLiteral("/Restore")));
    QVERIFY(ListBackups(ReplacedFolder(office.folders)).empty());
  }

  void CancellingChangesNothing() {
    Office office;
    const QString made = office.BackUp();
    office.database.AddClient(QStringLiteral("LATER"));
    const QByteArrayList before = office.Everything();
    bool ended = false;
    for (int step = 1; !ended; ++step) {
      AtStep cancelling(step, [&] { cancelling.cancelled = true; });
      try {
        QVERIFY(RestoreBackup(office.All(), made, kNow, cancelling));
        ended = true;
      } catch (const Cancellation&) {
        QCOMPARE(office.Everything(), before);
        QVERIFY(ListBackups(ReplacedFolder(office.folders)).empty());
      }
      QVERIFY(step < 1000);
    }
    QVERIFY(office.Everything() != before);
    AtStep cancelling(2, [&] { cancelling.cancelled = true; });
    QVERIFY_THROWS_EXCEPTION(
        Cancellation, static_cast<void>(MakeBackup(office.All(), office.backups, Kind::kByHand,
                                                   kNow, cancelling)));
    QCOMPARE(QDir(office.backups).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 1);
  }

  void ARestoreCutShortIsSettledByTheNextStart_data() {
    const test::Table<bool> row;
    row("before its commit", false);
    row("after its commit", true);
  }
  void ARestoreCutShortIsSettledByTheNextStart() {
    const auto [committed] = test::Table<bool>::Row();
    Office office;
    const QString made = office.BackUp();
    const Manifest manifest = *ReadManifest(made);
    const QString sign = office.folders.documents + QStringLiteral("/1/sign.png");
    const QString stale = office.folders.documents + QStringLiteral("/2/stale.png");
    WriteFile(sign, "another");
    WriteFile(stale, "stale");
    {
      RestoreFiles files(office.database.Get(), office.folders);
      QVERIFY(files.TryLock());
      files.Stage(made, manifest, office.quiet);
      files.Promise();
      SettleInterruptedRestore(office.database.Get(), office.folders);
      QVERIFY2(files.IsPending(), "another program must leave a running restore alone");
      database::Transaction transaction(office.database.Get());
      files.Mark(transaction);
      if (committed) {
        transaction.Commit();
      }
    }
    SettleInterruptedRestore(office.database.Get(), office.folders);
    QCOMPARE(ReadFile(sign), committed ? QByteArray("signature") : QByteArray("another"));
    QCOMPARE(QFileInfo::exists(stale), !committed);
    QVERIFY(!QFileInfo::exists(office.folders.application + QStringLiteral("/Restore")));
  }

  void WhatIsRestoredAnewIsClosedToOthers() {
    Office office;
    const QString made = office.BackUp();
    QVERIFY(QDir(office.folders.documents).removeRecursively());
    QVERIFY(QFile::remove(office.folders.config_file));
    QCOMPARE(office.Restore(made), QString());
    for (const QString& path :
         {office.folders.documents, office.folders.documents + "/1", office.folders.config_file}) {
      QVERIFY(QFileInfo::exists(path));
      QVERIFY(!(QFileInfo(path).permissions() & (QFile::ReadGroup | QFile::ReadOther)));
    }
  }

  void SettingsOfTheMachineStay_data() {
    const test::Table<QByteArray> row;
    row("plain", QByteArray("database"));
    row("no-break space before it", QByteArray("\xC2\xA0"
                                               "Database"));
    row("long s", QByteArray("Databa\xC5\xBF"
                             "e"));
  }
  void SettingsOfTheMachineStay() {
    const auto [section] = test::Table<QByteArray>::Row();
    Office office;
    WriteFile(office.folders.config_file,
              "[Internet]\nIndexFeed=a\nBseHost=c\n[" + section +
                  "]\nDriver=/tmp/x.so\nServer=there\n[Backup]\nKeep=3\n");
    const QString made = office.BackUp();
    WriteFile(office.folders.config_file,
              "; mine\n[Internet]\nIndexFeed=b\nNseHost=d\n[Database]\nServer=here\n");
    QCOMPARE(office.Restore(made), QString());
    QCOMPARE(ReadFile(office.folders.config_file),
             QByteArray("; mine\n[Internet]\nIndexFeed=a\nBseHost=c\n[Database]\nServer=here\n"));
  }

  void NothingIsWrittenThroughALink_data() {
    const test::Table<QString> row;
    for (const char* link : {"SignDocs", "SignDocs/1", "Data", "Data/TransRpt.xlsx", "Confg.ini"}) {
      row(link, link);
    }
  }
  void NothingIsWrittenThroughALink() {
    const auto [link] = test::Table<QString>::Row();
    Office office;
    const QString made = office.BackUp();
    const QString place = QDir(office.folders.application).filePath(link);
    const QString elsewhere = office.home.filePath(QStringLiteral("elsewhere"));
    QVERIFY(QFile::rename(place, elsewhere));
    QVERIFY(QFile::link(elsewhere, place));
    const QString told = office.Restore(made);
    QVERIFY2(told.contains(place), qPrintable(told));
    QVERIFY(ListBackups(ReplacedFolder(office.folders)).empty());
  }

  void OldAutomaticBackupsMakeRoom() {
    Office office;
    office.BackUp(Kind::kByHand, kNow.addDays(-9));
    for (int day = -4; day < 0; ++day) {
      office.BackUp(Kind::kAutomatic, kNow.addDays(day));
    }
    QFile::remove(ListBackups(office.backups)[0].path + QStringLiteral("/tables/Stock.tsv"));
    const Settings settings{office.backups, true, 2};
    QVERIFY(IsAutomaticDue(settings, kNow.date()));
    QVERIFY(!MakeAutomatic(office.All(), settings, kNow, office.quiet));
    QVERIFY(!IsAutomaticDue(settings, kNow.date()));
    QStringList left;
    for (const Entry& entry : ListBackups(office.backups)) {
      left << entry.name.mid(14, 5) +
                  (entry.state == BackupState::kComplete ? QString() : entry.fault);
    }
    QCOMPARE(left.size(), 4);
    QCOMPARE(left[0], "11-25");
    QVERIFY(left[1].startsWith(QStringLiteral("11-24The backup")));
    QCOMPARE(left[2], "11-23");
    QCOMPARE(left[3], "11-16");
  }

  void WhatAKilledProgramLeftGoesWithTheNextBackup() {
    Office office;
    const QString left = office.backups + QStringLiteral("/Quorvane-2026-01-01-000000.part");
    WriteFile(left + QStringLiteral("/tables/Stock.tsv"), "1");
    const std::vector<Entry> entries = ListBackups(office.backups);
    QCOMPARE(entries.size(), 1U);
    QVERIFY(entries[0].state == BackupState::kUnfinished);
    office.BackUp();
    QVERIFY(!QFileInfo::exists(left));
  }

  void ABackupDoesNotLieInWhatIsBackedUp() {
    Office office;
    office.backups = office.folders.documents + QStringLiteral("/1/../2");
    QVERIFY(office.BackUp().contains(QStringLiteral("cannot lie inside")));
  }
};

static const test::RegisterTest<BackupTest> kRegistered;
#include "BackupTest.moc"
