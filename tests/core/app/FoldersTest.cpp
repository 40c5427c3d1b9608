#include "core/app/Folders.h"
#include "core/app/MachineKey.h"
#include "core/app/Session.h"
#include "support/Files.h"
#include "support/Test.h"

#include <QStandardPaths>

#include <stdexcept>

using namespace quorvane::app;
using quorvane::test::ReadFile;
using quorvane::test::WriteFile;
namespace test = quorvane::test;

class FoldersTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void FoldersStandUnderTheApplicationFolder_data() {
    const test::Table<QString, QString, QString> row;
    row("slash dropped", "/opt/q/", "/opt/q", "/opt/q/Confg.ini");
    row("drive root loses its backslash", "C:\\", "C:", "C:/Confg.ini");
    row("root stays", "/", "/", "/Confg.ini");
    row("nothing is the current folder, not the root", "", ".", "./Confg.ini");
  }
  void FoldersStandUnderTheApplicationFolder() {
    const auto [path, application, config] = test::Table<QString, QString, QString>::Row();
    const Folders folders = Folders::At(path);
    QCOMPARE(folders.application, application);
    QCOMPARE(folders.temporary, folders.application);
    QCOMPARE(folders.config_file, config);
    const QString stem = config.chopped(QString("Confg.ini").size());
    QCOMPARE(folders.data, stem + "Data");
    QCOMPARE(folders.documents, stem + "SignDocs");
    QCOMPARE(folders.market_rate, stem + "MRate");
    QCOMPARE(folders.database, stem + "database");
  }

  void DataGoesWhereItCanBeWritten() {
    QStandardPaths::setTestModeEnabled(true);
    const QString user =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/quorvane";
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkpath("bin"));
    QCOMPARE(DefaultApplicationFolder(folder.path()), folder.path());
    QVERIFY(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).isEmpty());
    QCOMPARE(DefaultApplicationFolder(folder.filePath("bin")), user);
    QCOMPARE(DefaultApplicationFolder(folder.filePath("missing")), user);
    QCOMPARE(DefaultApplicationFolder("/proc"), user);
  }

  void ShippedFilesFillGapsAndReplaceTheProgramsOwn() {
    const QTemporaryDir shipped;
    const QTemporaryDir application;
    WriteFile(shipped.filePath("statelist.txt"), "GUJARAT\n");
    WriteFile(shipped.filePath("TransRpt.xlsx"), "shipped");
    WriteFile(shipped.filePath("sample/clients.csv"), "code\n");
    const Folders folders = Folders::At(application.path());
    WriteFile(folders.data + "/TransRpt.xlsx", "the user's");

    InstallShippedFiles(folders, shipped.path());
    QCOMPARE(ReadFile(folders.data + "/statelist.txt"), QByteArray("GUJARAT\n"));
    QCOMPARE(ReadFile(folders.data + "/sample/clients.csv"), QByteArray("code\n"));
    QCOMPARE(ReadFile(folders.data + "/TransRpt.xlsx"), QByteArray("the user's"));

    WriteFile(folders.data + "/statelist.txt", "GOA\n");
    WriteFile(shipped.filePath("sample/clients.csv"), "code,name\n");
    InstallShippedFiles(folders, shipped.path());
    QCOMPARE(ReadFile(folders.data + "/statelist.txt"), QByteArray("GOA\n"));
    QCOMPARE(ReadFile(folders.data + "/sample/clients.csv"), QByteArray("code,name\n"));
  }

  void SecondCopyIsKeptOutOfTheSameFolderOnly() {
    const QTemporaryDir folder;
    const QTemporaryDir other;
    auto first = SingleCopy::Take(folder.filePath("new"));
    QVERIFY(first.has_value());
    QVERIFY(
        !(QFileInfo(folder.filePath("new")).permissions() & (QFile::ExeGroup | QFile::ExeOther)));
    QVERIFY(!SingleCopy::Take(folder.filePath("new")).has_value());
    QVERIFY(SingleCopy::Take(other.path()).has_value());
    first.reset();
    QVERIFY(SingleCopy::Take(folder.filePath("new")).has_value());
  }

  void PasswordIsKeptExactly_data() {
    const test::Table<QString> row;
    row("blanks, quotes and commas", " a,\"b\"; =\\n ");
    row("digits keep their zeros", "007");
  }
  void PasswordIsKeptExactly() {
    const auto [password] = test::Table<QString>::Row();
    const QTemporaryDir folder;
    const QString file = folder.filePath("xdg/machine.ini");
    MachineKey(file).SetAdminPass("earlier");
    MachineKey(file).SetAdminPass(password);
    QCOMPARE(MachineKey(file).AdminPass(), password);
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QVERIFY(!(QFile::permissions(file) & others));
  }

  void PlainPasswordOfAnEarlierReleaseIsCovered() {
    const QTemporaryDir folder;
    const QString path = folder.filePath("machine.ini");
    WriteFile(path, "[Software]\nOrvikInfo\\Quorvane\\AdminPass=\"59,46\"\n");
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther));
    for (int reading = 0; reading < 2; ++reading) {
      QCOMPARE(MachineKey(path).AdminPass(), QString("59,46"));
      QVERIFY(!ReadFile(path).contains("59,46"));
      QVERIFY(!(QFile::permissions(path) & QFile::ReadOther));
    }
  }

  void UnreadableMachineKeyIsNotAnEmptyOne() {
    const QTemporaryDir folder;
    QVERIFY_EXCEPTION_THROWN(MachineKey(folder.path()).AdminPass(), std::runtime_error);
    QVERIFY_EXCEPTION_THROWN(MachineKey(folder.path()).SetAdminPass("x"), std::runtime_error);
  }
};

static const quorvane::test::RegisterTest<FoldersTest> kRegistered;
#include "FoldersTest.moc"
