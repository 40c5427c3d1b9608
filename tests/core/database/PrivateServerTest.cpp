#include "core/database/PrivateServer.h"
#include "core/platform/Processes.h"
#include "support/Files.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

#include <QProcess>

#include <csignal>
#include <stdexcept>

using quorvane::database::Connection;
using quorvane::database::PrivateServer;
using quorvane::platform::IsRunning;
namespace test = quorvane::test;

namespace {

constexpr std::size_t kFirst = 0;
constexpr auto kOwnerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                            QFile::ReadUser | QFile::WriteUser | QFile::ExeUser;

QString Answer(Connection& connection, std::string_view sql) {
  auto rows = connection.Open(sql);
  return rows.Next() ? rows.Text(kFirst) : QStringLiteral("no row");
}

Connection Connect(const PrivateServer& server) {
  return Connection(server.SettingsOf(QStringLiteral("quorvane")));
}

void Crash(const PrivateServer& server) {
  const std::int64_t process = server.Process();
  kill(static_cast<pid_t>(process), SIGKILL);
  while (IsRunning(process)) {
    QTest::qSleep(5);
  }
}

QSet<QString> SocketsOf(std::int64_t process) {
  QSet<QString> inodes;
  const QDir descriptors(QStringLiteral("/proc/%1/fd").arg(process));
  for (const QString& name : descriptors.entryList(QDir::System | QDir::Files)) {
    const QString target = QFile(descriptors.filePath(name)).symLinkTarget();
    if (target.contains(QLatin1String("socket:["))) {
      inodes << target.section(QLatin1Char('['), 1).chopped(1);
    }
  }
  return inodes;
}

/// The inodes in a table of the system's sockets.
QSet<QString> InodesOf(const QString& table, int column) {
  QFile file(QStringLiteral("/proc/net/") + table);
  QSet<QString> inodes;
  if (file.open(QIODevice::ReadOnly)) {
    for (const QByteArray& line : file.readAll().split('\n')) {
      inodes << QString::fromLatin1(line.simplified().split(' ').value(column));
    }
  }
  return inodes;
}

}  // namespace

/// The program's own server: reachable by its user only, shared, and safe against crashes.
class PrivateServerTest : public QObject {
  Q_OBJECT

  QString Path() const { return folder_->path() + QStringLiteral("/database"); }

  std::optional<QTemporaryDir> folder_;
  QString socket_folder_;

 private Q_SLOTS:
  void init() { folder_.emplace(quorvane::test::TestFolderTemplate()); }

  void cleanup() {
    folder_.reset();
    if (!socket_folder_.isEmpty()) {
      QDir(std::exchange(socket_folder_, {})).removeRecursively();
    }
  }

  void OnlyItsUserCanReachIt() {
    const PrivateServer server(Path());
    QCOMPARE(QFileInfo(Path()).permissions(), QFile::Permissions(kOwnerOnly));
    QCOMPARE(QFileInfo(QFileInfo(server.Socket()).path()).permissions(),
             QFile::Permissions(kOwnerOnly));
    const QSet<QString> sockets = SocketsOf(server.Process());
    QVERIFY(sockets.intersects(InodesOf(QStringLiteral("unix"), 6)));
    for (const char* table : {"tcp", "tcp6", "udp", "udp6"}) {
      QVERIFY2(!sockets.intersects(InodesOf(QLatin1String(table), 9)), table);
    }
  }

  void ACommitIsOnTheDiskBeforeItIsReported() {
    const PrivateServer server(Path());
    Connection connection = Connect(server);
    QCOMPARE(Answer(connection, "Select @@innodb_flush_log_at_trx_commit"), QStringLiteral("1"));
    QCOMPARE(Answer(connection, "Select @@innodb_doublewrite"), QStringLiteral("1"));
    QCOMPARE(Answer(connection, "Select @@lower_case_table_names"), QStringLiteral("1"));
  }

  /// After a crash the number in the file may be that of any program.
  void LeavingACrashedServerEndsNoOtherProgram() {
    QProcess bystander;
    bystander.start(QStringLiteral("sleep"), {QStringLiteral("60")});
    QVERIFY(bystander.waitForStarted());
    {
      const PrivateServer server(Path());
      Crash(server);
      test::WriteFile(Path() + QStringLiteral("/server.pid"),
                      QByteArray::number(bystander.processId()));
    }
    QVERIFY(!bystander.waitForFinished(300));
    {
      const PrivateServer server(Path());
      QVERIFY(server.Process() != bystander.processId());
    }
    QVERIFY(!bystander.waitForFinished(300));
    bystander.kill();
    bystander.waitForFinished();
  }

  void AnyFolderWillDo_data() {
    const test::Table<QString> row;
    row("longer than a socket's path may be", QString(150, QLatin1Char('d')));
    row("a colon", "a:b");
    row("blanks, quotes, other letters", QString::fromUtf8("O'Brien \"& ₹\" Söhne"));
  }
  void AnyFolderWillDo() {
    const auto [name] = test::Table<QString>::Row();
    const QString folder = folder_->path() + QLatin1Char('/') + name;
    QDir socket_folder;
    {
      const PrivateServer server(folder);
      QVERIFY(QFile::encodeName(server.Socket()).size() < 108);
      socket_folder.setPath(QFileInfo(server.Socket()).path());
      QCOMPARE(QFileInfo(socket_folder.path()).permissions(), QFile::Permissions(kOwnerOnly));
      Connection connection = Connect(server);
      QCOMPARE(Answer(connection, "Select @@datadir"), folder + QStringLiteral("/data/"));
    }
    // Outside, where the folder itself would not do.
    QVERIFY(!socket_folder.exists() || socket_folder.removeRecursively());
  }

  /// Sessions of one user differ in their environment, and call the folder by different names.
  void EverySessionFindsTheSameServer() {
    const QString real = folder_->path() + QLatin1Char('/') + QString(150, QLatin1Char('d'));
    const QString link = folder_->path() + QStringLiteral("/link");
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    QVERIFY(QDir().mkpath(real));
    QVERIFY(QFile::link(real, link));
    {
      const PrivateServer server(real + QStringLiteral("/database"));
      qputenv("XDG_RUNTIME_DIR", folder_->path().toUtf8());
      const PrivateServer other(link + QStringLiteral("/database"));
      QCOMPARE(other.Socket(), server.Socket());
      QCOMPARE(other.Process(), server.Process());
      QVERIFY(QDir(QFileInfo(server.Socket()).path()).exists());
      // What clears /tmp away takes the socket from under the server.
      QVERIFY(QFile::remove(server.Socket()));
      QVERIFY_EXCEPTION_THROWN(PrivateServer(real + QStringLiteral("/database")),
                               std::runtime_error);
    }
    const PrivateServer again(real + QStringLiteral("/database"));
    Connection connection = Connect(again);
    QCOMPARE(Answer(connection, "Select 1"), QStringLiteral("1"));
    qputenv("XDG_RUNTIME_DIR", runtime);
    QVERIFY(QDir(QFileInfo(again.Socket()).path()).exists());
    socket_folder_ = QFileInfo(again.Socket()).path();
  }

  void NoOtherProgramIsTakenForTheServer() {
    { const PrivateServer server(Path()); }
    QProcess bystander;
    bystander.setWorkingDirectory(Path());
    bystander.start(QStringLiteral("sh"), {QStringLiteral("-c"), QStringLiteral("sleep 60"),
                                           "--pid-file=" + Path() + "/server.pid"});
    QVERIFY(bystander.waitForStarted());
    { const PrivateServer server(Path()); }
    QCOMPARE(bystander.state(), QProcess::Running);
    bystander.kill();
    bystander.waitForFinished();
  }

  void AServerThatDoesNotComeUpNamesItsLog() {
    QVERIFY(QDir().mkpath(Path() + QStringLiteral("/data")));
    try {
      const PrivateServer server(Path());
      QFAIL("came up without data");
    } catch (const std::runtime_error& error) {
      const QString log = Path() + QStringLiteral("/server.log");
      QVERIFY2(QString::fromUtf8(error.what()).contains(log), error.what());
      QVERIFY2(QString::fromUtf8(error.what()).contains(QStringLiteral("starting: ")),
               error.what());
    }
  }
};

static const quorvane::test::RegisterTest<PrivateServerTest> kRegistered;
#include "PrivateServerTest.moc"
