#include "core/database/PrivateServer.h"

#include "core/platform/Processes.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QThread>

#include <fmt/format.h>

#include <chrono>
#include <stdexcept>

namespace quorvane::database {
namespace {

using namespace std::chrono_literals;

// The system's limit for a socket's path is 108 bytes.
constexpr qsizetype kLongestSocketPath = 100;

// Crash recovery of a large database may take its time; a server that dies is seen at once.
constexpr auto kLongestStart = 300s;
constexpr auto kLongestStop = 60s;

QString Program(const char* name) {
  QString path = platform::FindProgram(QLatin1String(name));
  if (path.isEmpty()) {
    throw std::runtime_error(
        fmt::format("{} is not installed; install the package mariadb-server", name));
  }
  return path;
}

/// A list of folders is separated by colons, so none of its folders can have one in its name.
constexpr QLatin1Char kListSeparator(':');

QString SocketFolder(const QString& folder) {
  QString inside = folder + QStringLiteral("/run");
  if (QFile::encodeName(inside).size() + 12 <= kLongestSocketPath &&
      !inside.contains(kListSeparator)) {
    platform::MakePrivateFolder(inside);
    return inside;
  }
  const QByteArray hash =
      QCryptographicHash::hash(folder.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
  return platform::ShortPrivateFolder(QString::fromLatin1(hash));
}

/// A folder of its own for the server's scratch tables: every server that starts clears those in
/// its folder away, whosever they are.
QString ScratchFolder(const QString& folder, const QString& socket) {
  QString inside = folder + QStringLiteral("/tmp");
  if (inside.contains(kListSeparator)) {
    return QFileInfo(socket).path();
  }
  platform::MakePrivateFolder(inside);
  return inside;
}

QString PidFileArgument(const QString& folder) {
  return QStringLiteral("--pid-file=") + folder + QStringLiteral("/server.pid");
}

QStringList ServerArguments(const QString& folder, const QString& socket) {
  QStringList arguments{
      QStringLiteral("--no-defaults"),
      QStringLiteral("--datadir=") + folder + QStringLiteral("/data"),
      QStringLiteral("--socket=") + socket,
      QStringLiteral("--tmpdir=") + ScratchFolder(folder, socket),
      PidFileArgument(folder),
      QStringLiteral("--log-error=") + folder + QStringLiteral("/server.log"),
      QStringLiteral("--skip-networking"),
      QStringLiteral("--skip-name-resolve"),
      QStringLiteral("--skip-log-bin"),
      QStringLiteral("--local-infile=0"),
      QStringLiteral("--lower-case-table-names=1"),
      QStringLiteral("--character-set-server=utf8mb4"),
      QStringLiteral("--collation-server=utf8mb4_general_ci"),
      QStringLiteral("--innodb-flush-log-at-trx-commit=1"),
      QStringLiteral("--innodb-buffer-pool-size=512M"),
      QStringLiteral("--innodb-log-file-size=256M"),
      QStringLiteral("--max-allowed-packet=256M"),
      QStringLiteral("--max-connections=50"),
  };
  if (platform::IsSuperuser()) {
    arguments << QStringLiteral("--user=root");
  }
  return arguments;
}

std::int64_t ReadProcess(const QString& pid_file) {
  QFile file(pid_file);
  return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toLongLong() : 0;
}

}  // namespace

PrivateServer::PrivateServer(const QString& folder, const std::function<void()>& on_first_start)
    : folder_(QDir(folder).absolutePath()) {
  platform::MakePrivateFolder(folder_);
  socket_ = SocketFolder(folder_) + QStringLiteral("/mariadb.sock");
  // Starting and stopping happen under this lock, one program after the other.
  platform::FileLock gate(File("start.lock"));
  gate.WaitExclusive();
  users_ = std::make_unique<platform::FileLock>(File("users.lock"));
  users_->WaitShared();
  if (!QFileInfo::exists(File("data"))) {
    if (on_first_start) {
      on_first_start();
    }
    Initialise();
  }
  if (!AnswersSoon()) {
    Start();
  }
}

void PrivateServer::Revive() {
  platform::FileLock gate(File("start.lock"));
  gate.WaitExclusive();
  if (!AnswersSoon()) {
    Start();
  }
}

PrivateServer::~PrivateServer() {
  if (leave_running_) {
    return;
  }
  try {
    Stop();
  } catch (const std::exception& error) {
    // The data is safe either way: the next start finds the server or recovers its folder.
    qWarning("the database server was not stopped: %s", error.what());
  }
}

QString PrivateServer::File(const char* name) const {
  return folder_ + QLatin1Char('/') + QLatin1String(name);
}

std::int64_t PrivateServer::Process() const {
  return ReadProcess(File("server.pid"));
}

void PrivateServer::Initialise() {
  // Made under another name first: a folder called "data" is always a whole one.
  const QString unfinished = File("data.new");
  QDir(unfinished).removeRecursively();
  QProcess process;
  process.setProcessChannelMode(QProcess::MergedChannels);
  QStringList arguments{QStringLiteral("--no-defaults"),
                        QStringLiteral("--auth-root-authentication-method=normal"),
                        QStringLiteral("--skip-test-db"),
                        // A machine may know no name, not even its own: the server has no network.
                        QStringLiteral("--skip-name-resolve"), QStringLiteral("--force"),
                        QStringLiteral("--datadir=./data.new")};
  if (platform::IsSuperuser()) {
    arguments << QStringLiteral("--user=root");
  }
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("TMPDIR"), ScratchFolder(folder_, socket_));
  process.setProcessEnvironment(environment);
  // A path from here, because the script stumbles over blanks and quotes in a whole one.
  process.setWorkingDirectory(folder_);
  process.start(Program("mariadb-install-db"), arguments);
  if (!process.waitForFinished(120000) || process.exitCode() != 0) {
    throw std::runtime_error("the database folder could not be made: " +
                             process.readAll().right(2000).toStdString());
  }
  if (!QDir().rename(unfinished, File("data"))) {
    throw std::runtime_error("cannot rename " + unfinished.toStdString());
  }
}

/// A program that was ended while its server came up or went down has left it in the middle. A
/// second server beside it would wait for the folder, and take it when nobody expects it any more.
bool PrivateServer::AnswersSoon() const {
  const auto deadline = std::chrono::steady_clock::now() + kLongestStart;
  while (!Answers()) {
    if (platform::FindProcess(PidFileArgument(folder_)) == 0) {
      return false;
    }
    if (std::chrono::steady_clock::now() > deadline) {
      FailWithLog(QStringLiteral("the database server neither comes up nor ends"));
    }
    QThread::msleep(10);
  }
  return true;
}

void PrivateServer::Start() {
  const std::int64_t old_process = Process();
  if (!platform::IsRunning(old_process)) {
    QFile::remove(File("server.pid"));
  }
  QProcess server;
  server.setProgram(Program("mariadbd"));
  server.setArguments(ServerArguments(folder_, socket_));
  server.setWorkingDirectory(folder_);
  // The server may outlive this program and must not keep its terminal or pipe open.
  server.setStandardInputFile(QProcess::nullDevice());
  server.setStandardOutputFile(QProcess::nullDevice());
  server.setStandardErrorFile(QProcess::nullDevice());
  qint64 process = 0;
  if (!server.startDetached(&process)) {
    throw std::runtime_error("the database server could not be started");
  }
  WaitUntilReady(process);
}

void PrivateServer::WaitUntilReady(std::int64_t process) const {
  const auto deadline = std::chrono::steady_clock::now() + kLongestStart;
  while (!Answers()) {
    if (!platform::IsRunning(process)) {
      FailWithLog(QStringLiteral("the database server ended while it was starting"));
    }
    if (std::chrono::steady_clock::now() > deadline) {
      FailWithLog(QStringLiteral("the database server did not come up in time"));
    }
    QThread::msleep(10);
  }
}

void PrivateServer::FailWithLog(const QString& what) const {
  throw std::runtime_error((what + QStringLiteral("; see ") + File("server.log")).toStdString());
}

bool PrivateServer::Answers() const {
  if (!QFileInfo::exists(socket_)) {
    return false;
  }
  try {
    ConnectionSettings settings;
    settings.socket = socket_;
    settings.user = QStringLiteral("root");
    Connection connection(settings);
    return true;
  } catch (const DatabaseError&) {
    // A server that is starting or has crashed refuses; the caller tells the two apart.
    return false;
  }
}

ConnectionSettings PrivateServer::SettingsOf(const QString& database) const {
  ConnectionSettings settings;
  settings.socket = socket_;
  settings.user = QStringLiteral("root");
  Connection connection(settings);
  QString name = database;
  name.remove(QLatin1Char('`'));
  connection.Execute(
      fmt::format("Create Database If Not Exists `{}` Default Character Set utf8mb4 "
                  "Collate utf8mb4_general_ci",
                  name.toStdString()));
  settings.database = name;
  return settings;
}

void PrivateServer::Stop() {
  platform::FileLock gate(File("start.lock"));
  gate.WaitExclusive();
  // The number in the file of a server that has crashed may belong to another program by now.
  if (!users_->TryExclusive() || !Answers()) {
    return;
  }
  const std::int64_t process = Process();
  platform::AskToEnd(process);
  const auto deadline = std::chrono::steady_clock::now() + kLongestStop;
  while (platform::IsRunning(process)) {
    if (std::chrono::steady_clock::now() > deadline) {
      throw std::runtime_error("the database server does not stop");
    }
    QThread::msleep(5);
  }
}

}  // namespace quorvane::database
