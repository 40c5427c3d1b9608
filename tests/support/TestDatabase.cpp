#include "support/TestDatabase.h"

#include "core/database/Schema.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QStorageInfo>
#include <QTemporaryDir>

#include <fmt/format.h>

#include <stdexcept>

namespace quorvane::test {

QString TestFolderTemplate() {
  constexpr qint64 kRoom = 3LL * 1024 * 1024 * 1024;
  const QStorageInfo memory(QStringLiteral("/dev/shm"));
  const bool has_room = memory.isReady() && !memory.isReadOnly() && memory.bytesAvailable() > kRoom;
  return (has_room ? memory.rootPath() : QDir::tempPath()) +
         QStringLiteral("/quorvane-test-XXXXXX");
}

namespace {

using database::Connection;
using database::DatabaseError;
using database::PrivateServer;

/// Folder and server, in the order in which they must be made and must go.
struct RunningServer {
  QTemporaryDir folder{TestFolderTemplate()};
  PrivateServer server{folder.path() + QStringLiteral("/database")};
};

std::unique_ptr<RunningServer>& Running() {
  static std::unique_ptr<RunningServer> running;
  return running;
}

/// A test that crashes or is killed for taking too long leaves neither server nor folder behind.
void CleanUpAfterThisProcess(const RunningServer& running) {
  const QString script = QStringLiteral(
      "tail --pid=\"$1\" -f /dev/null; "
      "if [ -d \"$3\" ]; then kill \"$2\"; tail --pid=\"$2\" -f /dev/null; rm -rf \"$3\"; fi");
  QProcess process;
  process.setProgram(QStringLiteral("/bin/sh"));
  process.setArguments({QStringLiteral("-c"), script, QStringLiteral("sh"),
                        QString::number(QCoreApplication::applicationPid()),
                        QString::number(running.server.Process()), running.folder.path()});
  process.setStandardInputFile(QProcess::nullDevice());
  process.setStandardOutputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
  process.startDetached();
}

QString NewName() {
  static int made = 0;
  return QStringLiteral("test_%1").arg(++made);
}

}  // namespace

PrivateServer& TestServer::Get() {
  std::unique_ptr<RunningServer>& running = Running();
  if (running == nullptr) {
    running = std::make_unique<RunningServer>();
    CleanUpAfterThisProcess(*running);
    qAddPostRoutine([] { Running().reset(); });
    // What a test writes need not outlive a power cut.
    Connection(running->server.SettingsOf(QStringLiteral("test")))
        .Execute("Set Global innodb_flush_log_at_trx_commit=0");
  }
  return running->server;
}

TestDatabase::TestDatabase(Tables tables) : settings_(TestServer::Get().SettingsOf(NewName())) {
  connection_.emplace(settings_);
  if (tables == Tables::kPrepared) {
    for (const auto& [statement, reason, is_needed] : database::PrepareDatabase(*connection_)) {
      throw std::runtime_error(fmt::format("the set-up skipped {}: {}", statement, reason));
    }
  }
}

TestDatabase::~TestDatabase() {
  connection_.reset();
  try {
    Connection(settings_).Execute(
        fmt::format("Drop Database `{}`", settings_.database.toStdString()));
  } catch (const DatabaseError& error) {
    qWarning("a test's database was not dropped: %s", error.what());
  }
}

int TestDatabase::NextKey(const char* table) {
  auto rows = connection_->Open(fmt::format("Select Max(Id) From {}", table));
  return rows.Next() ? rows.Int(0) + 1 : 1;
}

ClientId TestDatabase::AddClient(const QString& code) {
  const ClientId id{NextKey("ClientInfo")};
  connection_->Execute("Insert Into ClientInfo(Id,Code,GCode,Name) Values(?,?,?,?)", id, code, code,
                       code);
  return id;
}

AccountId TestDatabase::AddAccount(ClientId client, const QString& number) {
  const AccountId id{NextKey("ClientActDet")};
  connection_->Execute("Insert Into ClientActDet(CId,id,DMATAC,DPID,ACNo) Values(?,?,?,?,?)",
                       client, id, 0, 0, number);
  return id;
}

ScripId TestDatabase::AddScrip(const QString& code, const QString& name) {
  const ScripId id{NextKey("Script")};
  connection_->Execute("Insert Into Script(Id,Code,Name,Type,ScrCls) Values(?,?,?,?,?)", id, code,
                       name, 1, 1);
  return id;
}

BrokerId TestDatabase::AddBroker(const QString& name) {
  const BrokerId id{NextKey("Broker")};
  connection_->Execute("Insert Into Broker(Id,Name) Values(?,?)", id, name);
  return id;
}

}  // namespace quorvane::test
