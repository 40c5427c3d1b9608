#include "portfolio/Export.h"
#include "support/Files.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

using namespace quorvane;

class ExportTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void AFailureHalfWayLeavesTheOldFiles() {
    test::TestDatabase database;
    database.AddClient(QStringLiteral("C1"));
    const QTemporaryDir folder;
    const QString clients = test::WriteFile(folder.filePath("clients.csv"), "old");
    // The last file cannot be written.
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("bills.csv")));
    Progress progress;
    const auto write = [&] {
      portfolio::ExportPortfolio(*database, folder.path(), std::nullopt, progress);
    };
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, write());
    QCOMPARE(test::ReadFile(clients), QByteArray("old"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList("clients.csv"));
  }
};

static const test::RegisterTest<ExportTest> kRegistered;
#include "ExportTest.moc"
