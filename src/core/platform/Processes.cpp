#include "core/platform/Processes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <sys/stat.h>
#include <unistd.h>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

#include <cerrno>
#include <csignal>
#include <stdexcept>

namespace quorvane::platform {

namespace {

/// A process that has ended stays listed until its parent asks how, which in a container nobody
/// may ever do.
bool HasEnded(std::int64_t process) {
  QFile file(QStringLiteral("/proc/%1/stat").arg(process));
  if (!file.open(QIODevice::ReadOnly)) {
    return false;
  }
  const QByteArray line = file.readAll();
  return line.mid(line.lastIndexOf(')') + 2, 1) == "Z";
}

}  // namespace

bool IsRunning(std::int64_t process) {
  return process > 0 && (kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM) &&
         !HasEnded(process);
}

void AskToEnd(std::int64_t process) {
  if (process > 0) {
    kill(static_cast<pid_t>(process), SIGTERM);
  }
}

/// The folder in which the process works was deleted; one that has its name now is another.
static bool LostItsFolder(qlonglong process) {
  return QFile::symLinkTarget(QStringLiteral("/proc/%1/cwd").arg(process))
      .endsWith(QLatin1String(" (deleted)"));
}

std::int64_t FindProcess(const QString& argument) {
  const QByteArray wanted = QFile::encodeName(argument);
  for (const QString& name : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
    const qlonglong process = name.toLongLong();
    QFile file(QStringLiteral("/proc/%1/cmdline").arg(process));
    if (process > 0 && file.open(QIODevice::ReadOnly) &&
        file.readAll().split('\0').contains(wanted) && !LostItsFolder(process)) {
      return process;
    }
  }
  return 0;
}

bool IsSuperuser() {
  return geteuid() == 0;
}

bool IsOfSuperuser(const QString& file) {
  struct stat status = {};
  return stat(QFile::encodeName(file).constData(), &status) == 0 && S_ISREG(status.st_mode) &&
         status.st_uid == 0 && (status.st_mode & 022) == 0;
}

void MakePrivateFolder(const QString& path) {
  QDir().mkpath(QFileInfo(path).absolutePath());
  const QByteArray name = QFile::encodeName(path);
  if (mkdir(name.constData(), 0700) != 0 && errno != EEXIST) {
    throw std::runtime_error("cannot make the folder " + path.toStdString());
  }
  struct stat status = {};
  // lstat: a link that somebody else left here must not be followed.
  if (lstat(name.constData(), &status) != 0 || !S_ISDIR(status.st_mode) ||
      status.st_uid != geteuid()) {
    throw std::runtime_error(path.toStdString() + " is not a folder of this user");
  }
  if ((status.st_mode & 077) != 0 && chmod(name.constData(), 0700) != 0) {
    throw std::runtime_error("cannot close the folder " + path.toStdString() + " to others");
  }
}

void MakeMissingFolder(const QString& path) {
  const QFileInfo folder(path);
  if (!folder.isDir()) {
    MakeMissingFolder(folder.absolutePath());
    MakePrivateFolder(folder.absoluteFilePath());
  }
}

QString ShortPrivateFolder(const QString& name) {
  const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  QString path = runtime.isEmpty() || runtime.size() > 40
                     ? QStringLiteral("/tmp/quorvane-%1-%2").arg(geteuid()).arg(name)
                     : runtime + QStringLiteral("/quorvane-") + name;
  MakePrivateFolder(path);
  return path;
}

QString FindProgram(const QString& name) {
  QString on_path = QStandardPaths::findExecutable(name);
  if (!on_path.isEmpty()) {
    return on_path;
  }
  return QStandardPaths::findExecutable(
      name, {QStringLiteral("/usr/sbin"), QStringLiteral("/usr/local/sbin"),
             QStringLiteral("/usr/libexec"), QStringLiteral("/usr/bin")});
}

bool ShowWindowTitled(const QString& title) {
#ifdef Q_OS_WIN
  const std::wstring name = title.toStdWString();
  const HWND window = FindWindowW(nullptr, name.c_str());
  return window != nullptr && (ShowWindow(window, SW_SHOWNORMAL), SetForegroundWindow(window));
#else
  static_cast<void>(title);
  return false;
#endif
}

}  // namespace quorvane::platform
