#include "core/database/PrivateServer.h"

#include "core/platform/PrivateFile.h"
#include "core/platform/Processes.h"

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

// Crash recovery of a large database may take its time; a server that dies is seen at once.
constexpr auto kLongestStart = 300s;
constexpr auto kLongestStop = 60s;
constexpr auto kLongestPatience = 5s;

// What the first start writes, and what a server needs to write at all.
constexpr std::int64_t kRoomForNew = 340 << 20;
constexpr std::int64_t kRoomToWrite = 32 << 20;

QString Program(const char* name) {
  QString path = platform::FindProgram(QLatin1String(name));
  if (path.isEmpty()) {
    throw std::runtime_error(
        fmt::format("{} is not installed; install the package mariadb-server", name));
  }
  return path;
}

/// Asked before a server is started that nothing could reach.
void InsistOnDriver() {
  ConnectionSettings settings;
  settings.socket = QStringLiteral("/nowhere");
  try {
    const Connection none(settings);
  } catch (const DatabaseError& error) {
    if (!error.IsConnectionLost()) {
      throw;
    }
  }
}

QByteArray ReadFrom(const QString& path, qint64 start) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) && file.seek(start) ? file.readAll() : QByteArray();
}

/// A server that cannot write any more still lets its records be read.
QStringList ReadOnlyArguments(const QString& spare) {
  return {QStringLiteral("--innodb-read-only=1"),
          QStringLiteral("--innodb-buffer-pool-dump-at-shutdown=0"),
          QStringLiteral("--tmpdir=") + spare,
          QStringLiteral("--pid-file=") + spare + QStringLiteral("/server.pid"),
          QStringLiteral("--log-ddl-recovery=") + spare + QStringLiteral("/ddl_recovery.log"),
          QStringLiteral("--log-error=") + spare + QStringLiteral("/server.log")};
}

QStringList WritingArguments(const ServerFolder& folder, const QString& socket) {
  return {QStringLiteral("--tmpdir=") + folder.Scratch(socket),
          QStringLiteral("--pid-file=") + folder.File("server.pid"),
          QStringLiteral("--log-error=") + folder.File("server.log")};
}

QStringList ServerArguments(const ServerFolder& folder, const QString& socket) {
  QStringList arguments{
      QStringLiteral("--no-defaults"),
      QStringLiteral("--datadir=") + folder.File("data"),
      QStringLiteral("--socket=") + socket,
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

}  // namespace

PrivateServer::PrivateServer(const QString& folder, const std::function<void()>& on_first_start)
    : folder_(folder) {
  Program("mariadbd");
  InsistOnDriver();
  // Starting and stopping happen under this lock, one program after the other.
  platform::FileLock gate(folder_.File("start.lock"));
  gate.WaitExclusive();
  socket_ = folder_.Socket();
  users_ = std::make_unique<platform::FileLock>(folder_.File("users.lock"));
  users_->WaitShared();
  if (!QFileInfo::exists(folder_.File("data"))) {
    Initialise(on_first_start);
  }
  if (!AnswersSoon()) {
    Start();
  }
}

void PrivateServer::Revive() {
  platform::FileLock gate(folder_.File("start.lock"));
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

void PrivateServer::Initialise(const std::function<void()>& on_first_start) {
  const QString program = Program("mariadb-install-db");
  if (const std::int64_t room = folder_.Room(); room < kRoomForNew) {
    throw std::runtime_error(fmt::format(
        "the disk of {} has {} MiB left, and a new database needs {}; make room there or choose "
        "another folder",
        folder_.Path().toStdString(), room >> 20, kRoomForNew >> 20));
  }
  if (on_first_start) {
    on_first_start();
  }
  // Made under another name first: a folder called "data" is always a whole one.
  const QString unfinished = folder_.File("data.new");
  QDir(unfinished).removeRecursively();
  RunInstaller(program);
  if (!QDir().rename(unfinished, folder_.File("data"))) {
    throw std::runtime_error("cannot rename " + unfinished.toStdString());
  }
}

void PrivateServer::RunInstaller(const QString& program) const {
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
  environment.insert(QStringLiteral("TMPDIR"), folder_.Scratch(socket_));
  process.setProcessEnvironment(environment);
  // A path from here, because the script stumbles over blanks and quotes in a whole one.
  process.setWorkingDirectory(folder_.Path());
  process.start(program, arguments);
  const bool ended = process.waitForFinished(120000);
  if (!ended || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
    // Its own help says nothing to the user of this program.
    const QByteArray output = process.readAll();
    const QString log = folder_.File("install.log");
    platform::WritePrivate(log, output);
    FailWith(QStringLiteral("the database folder could not be made"), ErrorsIn(output), log);
  }
}

/// A program that was ended while its server came up or went down has left it in the middle. A
/// second server beside it would wait for the folder, and take it when nobody expects it any more.
bool PrivateServer::AnswersSoon() {
  const auto deadline = std::chrono::steady_clock::now() + kLongestStart;
  while (!Answers()) {
    const std::int64_t process = folder_.Process();
    if (process == 0) {
      return false;
    }
    if (!QFileInfo::exists(socket_) && platform::IsListening(socket_)) {
      EndUnreachable(process);
      return false;
    }
    if (std::chrono::steady_clock::now() > deadline || platform::EndRequested()) {
      FailWith(QStringLiteral("the database server neither comes up nor ends"), {},
               folder_.File("server.log"));
    }
    QThread::msleep(10);
  }
  return true;
}

/// Its socket's file was removed, or belongs to a session that has a /tmp of its own.
void PrivateServer::EndUnreachable(std::int64_t process) {
  const bool alone = users_->TryExclusive();
  users_->WaitShared();
  if (!alone) {
    throw std::runtime_error(
        fmt::format("the database server of {} is in use by another program, and its socket {} "
                    "cannot be reached from here; close that program first",
                    folder_.Path().toStdString(), socket_.toStdString()));
  }
  EndProcess(process);
}

void PrivateServer::Start() {
  const bool read_only = folder_.Room() < kRoomToWrite;
  const QString spare = read_only ? folder_.SpareFolder() : QString();
  if (read_only && spare.isEmpty()) {
    throw std::runtime_error(
        fmt::format("the disk of {} is full, and so are the machine's folders for scratch files; "
                    "make room there",
                    folder_.Path().toStdString()));
  }
  QProcess server;
  server.setProgram(Program("mariadbd"));
  server.setArguments(ServerArguments(folder_, socket_) +
                      (read_only ? ReadOnlyArguments(spare) : WritingArguments(folder_, socket_)));
  server.setWorkingDirectory(folder_.Path());
  // The server may outlive this program and must not keep its terminal or pipe open.
  server.setStandardInputFile(QProcess::nullDevice());
  server.setStandardOutputFile(QProcess::nullDevice());
  server.setStandardErrorFile(QProcess::nullDevice());
  const QString log =
      read_only ? spare + QStringLiteral("/server.log") : folder_.File("server.log");
  const qint64 log_start = QFileInfo(log).size();
  qint64 process = 0;
  if (!server.startDetached(&process)) {
    throw std::runtime_error("the database server could not be started");
  }
  try {
    WaitUntilReady(process, log, log_start);
  } catch (...) {
    EndStarting(process);
    throw;
  }
}

void PrivateServer::WaitUntilReady(std::int64_t process, const QString& log,
                                   std::int64_t log_start) const {
  const auto began = std::chrono::steady_clock::now();
  while (!Answers()) {
    if (!platform::IsRunning(process)) {
      FailWith(QStringLiteral("the database server ended while it was starting"),
               ErrorsIn(ReadFrom(log, log_start)), log);
    }
    // A server that is asked to end in the middle of its start may never hear it.
    const std::chrono::seconds longest =
        platform::EndRequested() ? kLongestPatience : kLongestStart;
    if (std::chrono::steady_clock::now() - began > longest) {
      FailWith(QStringLiteral("the database server did not come up in time"),
               ErrorsIn(ReadFrom(log, log_start)), log);
    }
    QThread::msleep(10);
  }
}

/// Nothing is lost when it is forced: no record was written yet.
void PrivateServer::EndStarting(std::int64_t process) {
  platform::AskToEnd(process);
  const auto began = std::chrono::steady_clock::now();
  while (platform::IsRunning(process)) {
    if (std::chrono::steady_clock::now() - began > kLongestPatience) {
      platform::ForceToEnd(process);
    }
    QThread::msleep(10);
  }
}

void PrivateServer::FailWith(const QString& what, const QString& errors, const QString& log) const {
  std::string text = what.toStdString();
  if (!errors.isEmpty()) {
    text += ": " + errors.toStdString();
  }
  text += "; see " + log.toStdString();
  if (folder_.Room() < kRoomToWrite) {
    text += fmt::format("; the disk of {} is full, make room there", folder_.Path().toStdString());
  }
  throw std::runtime_error(text);
}

bool PrivateServer::Answers() const {
  if (!QFileInfo::exists(socket_)) {
    return false;
  }
  try {
    const Connection connection(RootSettings());
    return true;
  } catch (const DatabaseError& error) {
    // A server that is starting or has crashed cannot be reached; the caller tells the two apart.
    if (!error.IsConnectionLost()) {
      throw;
    }
    return false;
  }
}

ConnectionSettings PrivateServer::RootSettings() const {
  ConnectionSettings settings;
  settings.socket = socket_;
  settings.user = QStringLiteral("root");
  return settings;
}

bool PrivateServer::IsReadOnly() const {
  Connection connection(RootSettings());
  auto rows = connection.Open("Select @@innodb_read_only");
  return rows.Next() && rows.Int(0) != 0;
}

ConnectionSettings PrivateServer::SettingsOf(const QString& database) const {
  ConnectionSettings settings = RootSettings();
  Connection connection(settings);
  QString name = database;
  name.remove(QLatin1Char('`'));
  // Asked first: a full disk takes no database, not even one that is there.
  const bool exists =
      connection.Open("Select 1 From information_schema.SCHEMATA Where SCHEMA_NAME=Lower(?)", name)
          .Next();
  if (!exists) {
    connection.Execute(
        fmt::format("Create Database If Not Exists `{}` Default Character Set utf8mb4 "
                    "Collate utf8mb4_general_ci",
                    name.toStdString()));
  }
  settings.database = name;
  return settings;
}

void PrivateServer::Stop() {
  platform::FileLock gate(folder_.File("start.lock"));
  gate.WaitExclusive();
  if (!users_->TryExclusive()) {
    return;
  }
  EndProcess(folder_.Process());
  folder_.RemoveSpareFolders();
}

void PrivateServer::EndProcess(std::int64_t process) const {
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
