#include "core/app/AppInfo.h"
#include "core/app/Folders.h"
#include "core/app/MachineKey.h"
#include "core/app/SingleCopy.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

using namespace quorvane::app;

namespace {

void Put(const QString& path, const QByteArray& content) {
  QDir().mkpath(QFileInfo(path).absolutePath());
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
    qFatal("cannot write a test file");
  }
}

QByteArray Get(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
}

/// A process of its own that holds the folder until it is killed; -1 when it could not take it.
pid_t StartHolder(const QString& folder) {
  int ready[2];
  if (pipe(ready) != 0) {
    return -1;
  }
  const pid_t child = fork();
  if (child == 0) {
    const auto held = SingleCopy::Take(folder);
    const char answer = held ? 'y' : 'n';
    if (write(ready[1], &answer, 1) == 1) {
      pause();
    }
    _exit(1);
  }
  char answer = 'n';
  const bool answered = read(ready[0], &answer, 1) == 1;
  close(ready[0]);
  close(ready[1]);
  return answered && answer == 'y' ? child : -1;
}

}  // namespace

class FoldersTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void FoldersStandUnderTheApplicationFolder_data();
  void FoldersStandUnderTheApplicationFolder();
  void ScreenSettingsAreTheUsers();
  void DataGoesWhereItCanBeWritten();
  void ShippedFilesFillGapsOnly();
  void MissingShippedFolderIsReported();
  void SecondCopyIsKeptOutOfTheSameFolderOnly();
  void KilledCopyBarsNobody();
  void PasswordIsKeptExactly_data();
  void PasswordIsKeptExactly();
  void PlainPasswordOfAnEarlierReleaseIsCovered();
  void MissingPasswordIsEmpty();
  void UnreadableMachineKeyIsNotAnEmptyOne();
  void TitleNamesTheVersion();
};

void FoldersTest::FoldersStandUnderTheApplicationFolder_data() {
  QTest::addColumn<QString>("path");
  QTest::addColumn<QString>("application");
  QTest::addColumn<QString>("config");
  QTest::newRow("plain") << "/opt/q"
                         << "/opt/q"
                         << "/opt/q/Confg.ini";
  QTest::newRow("slash dropped") << "/opt/q/"
                                 << "/opt/q"
                                 << "/opt/q/Confg.ini";
  QTest::newRow("backslash dropped") << "C:\\Q\\"
                                     << "C:\\Q"
                                     << "C:\\Q/Confg.ini";
  QTest::newRow("drive root loses its backslash") << "C:\\"
                                                  << "C:"
                                                  << "C:/Confg.ini";
  QTest::newRow("root stays") << "/"
                              << "/"
                              << "/Confg.ini";
  QTest::newRow("nothing is the current folder, not the root") << ""
                                                               << "."
                                                               << "./Confg.ini";
}

void FoldersTest::FoldersStandUnderTheApplicationFolder() {
  QFETCH(QString, path);
  QFETCH(QString, config);
  const Folders folders = Folders::At(path);
  QTEST(folders.application, "application");
  QCOMPARE(folders.temporary, folders.application);
  QCOMPARE(folders.config_file, config);
  const QString stem = config.chopped(QString("Confg.ini").size());
  QCOMPARE(folders.data, stem + "Data");
  QCOMPARE(folders.documents, stem + "SignDocs");
  QCOMPARE(folders.market_rate, stem + "MRate");
  QCOMPARE(folders.database, stem + "database");
}

void FoldersTest::ScreenSettingsAreTheUsers() {
  QStandardPaths::setTestModeEnabled(true);
  const QString path = Folders::At("/opt/q").screen_ini;
  QVERIFY(path.endsWith("/OrvikConfig.INI"));
  QVERIFY(path.startsWith(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)));
}

void FoldersTest::DataGoesWhereItCanBeWritten() {
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

void FoldersTest::ShippedFilesFillGapsOnly() {
  const QTemporaryDir shipped;
  const QTemporaryDir application;
  Put(shipped.filePath("statelist.txt"), "GUJARAT\n");
  Put(shipped.filePath("TransRpt.xlsx"), "shipped");
  Put(shipped.filePath("sample/clients.csv"), "code\n");
  const Folders folders = Folders::At(application.path());
  Put(folders.data + "/TransRpt.xlsx", "the user's");

  InstallShippedFiles(folders, shipped.path());
  QCOMPARE(Get(folders.data + "/statelist.txt"), QByteArray("GUJARAT\n"));
  QCOMPARE(Get(folders.data + "/sample/clients.csv"), QByteArray("code\n"));
  QCOMPARE(Get(folders.data + "/TransRpt.xlsx"), QByteArray("the user's"));

  Put(folders.data + "/statelist.txt", "GOA\n");
  InstallShippedFiles(folders, shipped.path());
  QCOMPARE(Get(folders.data + "/statelist.txt"), QByteArray("GOA\n"));
}

void FoldersTest::MissingShippedFolderIsReported() {
  const QTemporaryDir application;
  const Folders folders = Folders::At(application.path());
  QVERIFY_EXCEPTION_THROWN(InstallShippedFiles(folders, application.filePath("none")),
                           std::runtime_error);
}

void FoldersTest::SecondCopyIsKeptOutOfTheSameFolderOnly() {
  const QTemporaryDir folder;
  const QTemporaryDir other;
  auto first = SingleCopy::Take(folder.filePath("new"));
  QVERIFY(first.has_value());
  QVERIFY(!(QFileInfo(folder.filePath("new")).permissions() & (QFile::ExeGroup | QFile::ExeOther)));
  QVERIFY(!SingleCopy::Take(folder.filePath("new")).has_value());
  QVERIFY(SingleCopy::Take(other.path()).has_value());
  first.reset();
  QVERIFY(SingleCopy::Take(folder.filePath("new")).has_value());
}

void FoldersTest::KilledCopyBarsNobody() {
  const QTemporaryDir folder;
  const pid_t holder = StartHolder(folder.path());
  QVERIFY(holder > 0);
  QVERIFY(!SingleCopy::Take(folder.path()).has_value());
  QCOMPARE(kill(holder, SIGKILL), 0);
  QCOMPARE(waitpid(holder, nullptr, 0), holder);
  QVERIFY(SingleCopy::Take(folder.path()).has_value());
}

void FoldersTest::PasswordIsKeptExactly_data() {
  QTest::addColumn<QString>("password");
  QTest::newRow("plain") << "tavel2";
  QTest::newRow("blanks, quotes and commas") << " a,\"b\"; =\\n ";
  QTest::newRow("long") << QString(400, 'x');
  QTest::newRow("rupee sign") << QString(QChar(0x20B9));
  QTest::newRow("digits keep their zeros") << "007";
}

void FoldersTest::PasswordIsKeptExactly() {
  QFETCH(QString, password);
  const QTemporaryDir folder;
  const QString file = folder.filePath("xdg/machine.ini");
  MachineKey(file).SetAdminPass("earlier");
  MachineKey(file).SetAdminPass(password);
  QCOMPARE(MachineKey(file).AdminPass(), password);
  const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
  QVERIFY(!(QFile::permissions(file) & others));
}

void FoldersTest::PlainPasswordOfAnEarlierReleaseIsCovered() {
  const QTemporaryDir folder;
  const QString path = folder.filePath("machine.ini");
  QFile file(path);
  QVERIFY(file.open(QIODevice::ReadWrite));
  file.write("[Software]\nOrvikInfo\\Quorvane\\AdminPass=\"59,46\"\n");
  file.close();
  QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther));
  for (int reading = 0; reading < 2; ++reading) {
    QCOMPARE(MachineKey(path).AdminPass(), QString("59,46"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(!file.readAll().contains("59,46"));
    file.close();
    QVERIFY(!(QFile::permissions(path) & QFile::ReadOther));
  }
}

void FoldersTest::MissingPasswordIsEmpty() {
  const QTemporaryDir folder;
  QCOMPARE(MachineKey(folder.filePath("none.ini")).AdminPass(), QString());
}

void FoldersTest::UnreadableMachineKeyIsNotAnEmptyOne() {
  const QTemporaryDir folder;
  QVERIFY_EXCEPTION_THROWN(MachineKey(folder.path()).AdminPass(), std::runtime_error);
  QVERIFY_EXCEPTION_THROWN(MachineKey(folder.path()).SetAdminPass("x"), std::runtime_error);
}

void FoldersTest::TitleNamesTheVersion() {
  QCOMPARE(TitleText(), QString("Quorvane: ver 2.12.2 "));
}

static const quorvane::test::RegisterTest<FoldersTest> kRegistered;

#include "FoldersTest.moc"
