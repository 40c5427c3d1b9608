#include "portfolio/Export.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace quorvane;

class ExportTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void AFailureHalfWayLeavesTheOldFiles() {
    test::TestDatabase database;
    database.AddClient(QStringLiteral("C1"));
    const QTemporaryDir folder;
    const QString clients = folder.filePath(QStringLiteral("clients.csv"));
    QFile old(clients);
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    // The last file cannot be written.
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("bills.csv")));
    Progress progress;
    const auto write = [&] {
      portfolio::ExportPortfolio(*database, folder.path(), std::nullopt, progress);
    };
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, write());
    QVERIFY(old.open(QIODevice::ReadOnly));
    QCOMPARE(old.readAll(), QByteArray("old"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList("clients.csv"));
  }
};

static const test::RegisterTest<ExportTest> kRegistered;

#include "ExportTest.moc"
