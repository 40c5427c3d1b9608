#include "core/platform/Processes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSocketNotifier>
#include <QStandardPaths>

#include <fcntl.h>
#include <pwd.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#ifdef __linux__
#include <sys/prctl.h>
#endif

#ifdef Q_OS_WIN
#include <windows.h>
#endif

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

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

void Signal(std::int64_t process, int signal) {
  if (process > 0) {
    kill(static_cast<pid_t>(process), signal);
  }
}

}  // namespace

bool IsRunning(std::int64_t process) {
  return process > 0 && (kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM) &&
         !HasEnded(process);
}

void AskToEnd(std::int64_t process) {
  Signal(process, SIGTERM);
}

void ForceToEnd(std::int64_t process) {
  Signal(process, SIGKILL);
}

namespace {

/// Two paths of one file are the same pair.
std::optional<std::pair<dev_t, ino_t>> FileNumber(const QString& path) {
  struct stat status = {};
  return stat(QFile::encodeName(path).constData(), &status) == 0
             ? std::optional(std::pair(status.st_dev, status.st_ino))
             : std::nullopt;
}

bool IsOwn(const QString& path) {
  struct stat status = {};
  return stat(QFile::encodeName(path).constData(), &status) == 0 && status.st_uid == geteuid();
}

/// After an update the program that still runs has been deleted.
QString ProgramOf(const QString& process) {
  QString path = QFile::symLinkTarget(process + QStringLiteral("/exe"));
  return QFileInfo(path.remove(QStringLiteral(" (deleted)"))).fileName();
}

}  // namespace

std::int64_t FindProcess(const QString& program, const QStringList& folders) {
  const QString name = QFileInfo(QFileInfo(FindProgram(program)).canonicalFilePath()).fileName();
  for (const QString& number : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
    const QString process = QStringLiteral("/proc/") + number;
    if (number.toLongLong() <= 0 || !IsOwn(process) || ProgramOf(process) != name) {
      continue;
    }
    const auto works_in = FileNumber(process + QStringLiteral("/cwd"));
    const bool here = works_in && std::ranges::any_of(folders, [&](const QString& folder) {
                        return FileNumber(folder) == works_in;
                      });
    if (here) {
      return number.toLongLong();
    }
  }
  return 0;
}

bool IsListening(const QString& socket) {
  QFile sockets(QStringLiteral("/proc/net/unix"));
  return sockets.open(QIODevice::ReadOnly) &&
         (sockets.readAll() + '\n').contains(' ' + QFile::encodeName(socket) + '\n');
}

QString UserName() {
  const passwd* user = getpwuid(geteuid());
  return user == nullptr ? QString::number(geteuid()) : QString::fromLocal8Bit(user->pw_name);
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

QString NewShortFolder() {
  // Not the session's own folder: another session of the user has another one.
  std::array<char, 32> path{"/tmp/quorvane-XXXXXX"};
  if (mkdtemp(path.data()) == nullptr) {
    throw std::runtime_error(std::string("cannot make a folder in /tmp: ") + std::strerror(errno));
  }
  return QFile::decodeName(path.data());
}

QStringList ScratchDisks() {
  return {QStringLiteral("/dev/shm"), QStringLiteral("/tmp"), QStringLiteral("/var/tmp")};
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

namespace {

volatile std::sig_atomic_t status_when_used_up = 1;

void EndUsedUp(int /*signal*/) {
  _exit(status_when_used_up);
}

void Limit(int resource, rlim_t soft, rlim_t hard) {
  rlimit limit = {};
  if (getrlimit(resource, &limit) == 0) {
    limit.rlim_cur = std::min(soft, limit.rlim_max);
    limit.rlim_max = std::min(hard, limit.rlim_max);
    setrlimit(resource, &limit);
  }
}

// A signal's handler reaches nothing but what belongs to the whole process.
volatile std::sig_atomic_t g_requested = 0;
std::array<int, 2> g_pipe{-1, -1};

void Note(int) {
  g_requested = 1;
  const int error = errno;
  const char byte = 0;
  // A full pipe has told it already.
  static_cast<void>(write(g_pipe[1], &byte, 1) < 0);
  errno = error;
}

}  // namespace

void LimitThisProcess(const ProcessLimits& limits, int exit_status) {
  status_when_used_up = exit_status;
  std::signal(SIGXCPU, EndUsedUp);
  const auto seconds = static_cast<rlim_t>(limits.cpu.count());
  Limit(RLIMIT_CPU, seconds, seconds + 1);
  Limit(RLIMIT_CORE, 0, 0);
// The address sanitizer reserves terabytes of addresses for itself.
#ifndef __SANITIZE_ADDRESS__
  const auto bytes = static_cast<rlim_t>(limits.bytes);
  Limit(RLIMIT_AS, bytes, bytes);
#endif
}

void EndWithParent() {
#ifdef __linux__
  prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
}

void NoteEndRequests() {
  if (pipe2(g_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
    return;
  }
  struct sigaction action = {};
  action.sa_handler = Note;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
    sigaction(signal, &action, nullptr);
  }
}

bool EndRequested() {
  return g_requested != 0;
}

void OnEndRequest(QObject* owner, const std::function<void()>& act) {
  auto* notifier = new QSocketNotifier(g_pipe[0], QSocketNotifier::Read, owner);
  QObject::connect(notifier, &QSocketNotifier::activated, owner, [notifier, act] {
    notifier->setEnabled(false);
    act();
  });
}

}  // namespace quorvane::platform
