#pragma once

#include "core/database/Connection.h"
#include "core/database/PrivateServer.h"

#include <QString>

#include <memory>
#include <optional>

namespace quorvane::test {

/// For a QTemporaryDir in which databases are made: in memory where there is room, because many
/// small writes to a shared disk take long.
QString TestFolderTemplate();

/// The database server of this test process, with a folder that is removed later. It is started
/// when it is first asked for and stopped at the end of main, or soon after when the process is
/// killed.
class TestServer {
 public:
  static database::PrivateServer& Get();
};

/// A new database on the test server, dropped when the object is destroyed. A test declares
/// its own connections to it later in the same scope.
class TestDatabase {
 public:
  enum class Tables { kPrepared, kNone };

  explicit TestDatabase(Tables tables = Tables::kPrepared);
  ~TestDatabase();
  TestDatabase(const TestDatabase&) = delete;

  database::Connection& Get() { return *connection_; }
  database::Connection& operator*() { return *connection_; }
  database::Connection* operator->() { return connection_.operator->(); }

  /// For a second connection to the same database.
  const database::ConnectionSettings& Settings() const { return settings_; }

  /// Single records with the next free key; columns that are not given stay NULL.
  ClientId AddClient(const QString& code);
  AccountId AddAccount(ClientId client, const QString& number);
  ScripId AddScrip(const QString& code, const QString& name);
  BrokerId AddBroker(const QString& name);

 private:
  int NextKey(const char* table);

  database::ConnectionSettings settings_;
  std::optional<database::Connection> connection_;
};

}  // namespace quorvane::test
