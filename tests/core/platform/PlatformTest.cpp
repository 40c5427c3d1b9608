#include "core/platform/FileLock.h"
#include "core/platform/Processes.h"
#include "support/Test.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>

using namespace quorvane::platform;

namespace {

constexpr auto kOwnerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                            QFile::ReadUser | QFile::WriteUser | QFile::ExeUser;

}  // namespace

/// What is asked of the operating system.
class PlatformTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void AProcessRunsUntilItHasEnded() {
    QVERIFY(IsRunning(QCoreApplication::applicationPid()));
    QVERIFY(!IsRunning(0));
    QVERIFY(!IsRunning(-1));
    pid_t child = 0;
    std::array<char, 6> program{"sleep"};
    std::array<char, 3> seconds{"60"};
    const std::array<char*, 3> arguments{program.data(), seconds.data(), nullptr};
    QCOMPARE(posix_spawnp(&child, program.data(), nullptr, nullptr, arguments.data(), environ), 0);
    QVERIFY(IsRunning(child));
    AskToEnd(child);
    // Nobody has asked yet how it ended, so the system still lists it.
    QTRY_VERIFY(!IsRunning(child));
    QCOMPARE(waitpid(child, nullptr, 0), child);
    QVERIFY(!IsRunning(child));
  }

  void ALockIsSharedOrHeldAlone() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("lock"));
    FileLock first(path);
    FileLock second(path);
    first.WaitShared();
    second.WaitShared();
    QVERIFY(!first.TryExclusive());
    { const FileLock moved = std::move(second); }
    QVERIFY(first.TryExclusive());
    FileLock third(path);
    QVERIFY(!third.TryExclusive());
    first.WaitShared();
    third.WaitShared();
  }

  void ALockGoesWithItsProcess() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("lock"));
    const QString held = folder.filePath(QStringLiteral("held"));
    const pid_t child = fork();
    if (child == 0) {
      FileLock lock(path);
      lock.WaitExclusive();
      QFile(held).open(QIODevice::WriteOnly);
      alarm(60);  // it must not outlive a test that was broken off
      pause();
      _exit(0);
    }
    QTRY_VERIFY(QFileInfo::exists(held));
    FileLock lock(path);
    QVERIFY(!lock.TryExclusive());
    kill(child, SIGKILL);
    QCOMPARE(waitpid(child, nullptr, 0), child);
    QVERIFY(lock.TryExclusive());
  }

  void APrivateFolderIsClosedToOthers() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a/b"));
    MakePrivateFolder(path);
    QCOMPARE(QFileInfo(path).permissions(), QFile::Permissions(kOwnerOnly));
    QVERIFY(QFile::setPermissions(path, kOwnerOnly | QFile::ReadGroup | QFile::ExeOther));
    MakePrivateFolder(path);
    QCOMPARE(QFileInfo(path).permissions(), QFile::Permissions(kOwnerOnly));
  }

  void MissingFoldersAreMadePrivateAndOthersStay() {
    const QTemporaryDir folder;
    const QFile::Permissions open = kOwnerOnly | QFile::ReadGroup | QFile::ExeGroup;
    QVERIFY(QFile::setPermissions(folder.path(), open));
    MakeMissingFolder(folder.filePath(QStringLiteral("a/b/")));
    for (const char* made : {"a", "a/b"}) {
      QCOMPARE(QFileInfo(folder.filePath(QLatin1String(made))).permissions(),
               QFile::Permissions(kOwnerOnly));
    }
    const QString link = folder.filePath(QStringLiteral("link"));
    QVERIFY(QFile::link(folder.path(), link));
    MakeMissingFolder(link);
    QCOMPARE(QFileInfo(folder.path()).permissions(), open);
    QVERIFY_EXCEPTION_THROWN(MakeMissingFolder(QStringLiteral("/dev/null/a")), std::runtime_error);
  }

  void ALinkIsNoPrivateFolder() {
    const QTemporaryDir folder;
    const QString link = folder.filePath(QStringLiteral("link"));
    QVERIFY(QFile::link(folder.path(), link));
    QVERIFY_EXCEPTION_THROWN(MakePrivateFolder(link), std::runtime_error);
  }

  void ServersAreFoundOutsideTheUsersPath() {
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", "/nowhere");
    const QString found = FindProgram(QStringLiteral("mariadbd"));
    const QString missing = FindProgram(QStringLiteral("no-such-program-here"));
    qputenv("PATH", path);
    QVERIFY(QFileInfo(found).isExecutable());
    QCOMPARE(missing, QString());
  }
};

static const quorvane::test::RegisterTest<PlatformTest> kRegistered;
#include "PlatformTest.moc"
