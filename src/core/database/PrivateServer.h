#pragma once

#include "core/database/Connection.h"
#include "core/database/ServerFolder.h"
#include "core/platform/FileLock.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <memory>

namespace quorvane::database {

/// The program's own MariaDB server over a folder of its own. It listens on a unix socket in a
/// folder that only this user can enter, and on no network port; a commit is on the disk before it
/// is reported.
///
/// Several programs of one user may share it: the first starts it, the last one to leave stops it.
/// A server that a crash left behind is found and used again.
class PrivateServer {
 public:
  /// Joins the folder's server; makes the folder and starts the server when need be, which takes
  /// about a second the first time (`on_first_start` is then called). Throws std::runtime_error at
  /// once when a program, the driver or room on the disk is missing, and with the server's own
  /// words and the path of its log when it does not start; nothing is left running then.
  explicit PrivateServer(const QString& folder,
                         const std::function<void()>& on_first_start = nullptr);
  ~PrivateServer();
  PrivateServer(const PrivateServer&) = delete;

  /// How to reach a database of this server, which is made when it is missing.
  ConnectionSettings SettingsOf(const QString& database) const;

  /// Starts the server again when it has died; does nothing while it answers. Throws as the
  /// constructor does.
  void Revive();

  /// The server keeps running after this object, for another program to use.
  void LeaveRunning() { leave_running_ = true; }

  QString Socket() const { return socket_; }
  std::int64_t Process() const { return folder_.Process(); }

  /// The disk was full when the server started: records can be read and copied to another disk, and
  /// not changed.
  bool IsReadOnly() const;

 private:
  void Initialise(const std::function<void()>& on_first_start);
  void RunInstaller(const QString& program) const;
  void Start();
  void WaitUntilReady(std::int64_t process, const QString& log, std::int64_t log_start) const;
  ConnectionSettings RootSettings() const;
  bool Answers() const;
  bool AnswersSoon();
  void EndUnreachable(std::int64_t process);
  void EndProcess(std::int64_t process) const;
  static void EndStarting(std::int64_t process);
  void Stop();
  [[noreturn]] void FailWith(const QString& what, const QString& errors, const QString& log) const;

  ServerFolder folder_;
  QString socket_;
  std::unique_ptr<platform::FileLock> users_;
  bool leave_running_ = false;
};

}  // namespace quorvane::database
