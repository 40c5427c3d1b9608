#pragma once

#include "core/changes/Author.h"
#include "core/changes/Edits.h"
#include "core/database/DatabaseError.h"
#include "core/database/Recordset.h"
#include "core/database/Value.h"

#include <QString>

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvane::database {

class BulkWriter;
class StatementCache;
struct Statement;

/// A server's name or address, and its port; 0 is left to the driver.
struct ServerAddress {
  QString host;
  int port = 0;
};

/// Where the database is and how to log in. Empty members are left to the driver.
struct ConnectionSettings {
  QString driver = QStringLiteral("MariaDB Unicode");
  QString server;  ///< several, "host" or "host:port", separated by commas: the nodes of a cluster
  int port = 0;
  QString socket;
  QString database;
  QString user;
  QString password;
  QString tls_ca;
  QString tls_certificate;
  QString tls_key;
  bool tls_verify = false;

  /// The servers in their order, at least one; one without a port has that of `port`.
  std::vector<ServerAddress> Addresses() const;

  /// The ODBC connection string for one of them; every value is quoted.
  std::string ConnectionString(const ServerAddress& address) const;
};

/// One ODBC connection to a MySQL-protocol server. Of several servers the first one that answers
/// and is ready is used; after a loss the next one. Used by one thread. Prepared statements are
/// kept by their text, so the text of a statement is best a constant.
///
/// Outside a Transaction each statement commits by itself, and a connection that was lost is opened
/// again: for the next statement, and once for a query that only reads and was lost on its way. A
/// statement that writes is never sent a second time.
class Connection {
 public:
  /// Opens the connection; throws DatabaseError.
  explicit Connection(ConnectionSettings settings);
  ~Connection();
  Connection(Connection&&) = delete;

  /// Runs a statement with its values bound to the "?" in order and returns the number of rows it
  /// changed. Throws DatabaseError.
  template <class... Values>
  std::int64_t Execute(std::string_view sql, const Values&... values) {
    const std::array<Value, sizeof...(Values)> list{Value(values)...};
    return ExecuteValues(sql, list);
  }
  std::int64_t ExecuteValues(std::string_view sql, std::span<const Value> values);

  /// Runs a query. The rows come in the order in which the server gives them; without "Order By"
  /// that may be any order.
  template <class... Values>
  Recordset Open(std::string_view sql, const Values&... values) {
    const std::array<Value, sizeof...(Values)> list{Value(values)...};
    return OpenValues(sql, list);
  }
  Recordset OpenValues(std::string_view sql, std::span<const Value> values);

  /// "Flush Tables". To be sent after a commit, never inside a transaction: it would commit. A
  /// server that does not grant it is not asked again.
  void FlushTables();

  /// Drops the prepared statements; to be called after a change of a table's columns.
  void ForgetStatements();

  /// False once a statement has failed because the connection was lost.
  bool IsAlive() const;

  /// Opens the connection again when it was lost; does nothing when it is alive.
  void Reopen();

  /// Called when a lost connection cannot be opened again, to bring the server back; the connection
  /// is then tried once more.
  void SetServerReviver(std::function<void()> revive) { revive_server_ = std::move(revive); }

  bool InTransaction() const { return in_transaction_; }
  const ConnectionSettings& Settings() const { return settings_; }

  /// The server in use.
  const ServerAddress& Address() const { return addresses_[address_]; }

  /// Who works with it. Until a user logs in that is the user of the operating system.
  const changes::Author& Author() const { return author_; }
  void SetAuthor(changes::Author author) { author_ = std::move(author); }

  /// What its program is editing at this moment.
  changes::Edits& Edits() { return edits_; }

  /// A text that no other connection has; stays the same when this one is opened again.
  const std::string& Token() const { return token_; }

  /// The tables that programs share (Writers, CommitMark, ChangeHead) existed at the last look.
  bool HasSharedTables() const { return has_shared_tables_; }
  void LookForSharedTables();

  /// The server is a node of a cluster whose nodes may all be written to.
  bool IsCluster() const { return is_cluster_; }

 private:
  friend class Transaction;
  friend class Recordset;
  friend class BulkWriter;
  friend class CommitMark;
  friend class Turns;

  std::int64_t NextSerial() { return ++serial_; }

  void OpenAnyServer(std::size_t first);
  void OpenHandles(const ServerAddress& address);
  void ReopenForStatement();
  Recordset OpenOnce(std::string_view sql, std::span<const Value> values);
  void CloseHandles() noexcept;
  void ConfigureServerSession();
  void LookForCluster();
  void SetAutocommit(bool on);
  void EndTransaction(bool commit);
  std::shared_ptr<Statement> Prepare(std::string_view sql);
  [[noreturn]] void Fail(short handle_type, void* handle, std::string_view sql);

  ConnectionSettings settings_;
  std::vector<ServerAddress> addresses_;
  std::size_t address_ = 0;
  std::string token_;
  changes::Author author_ = changes::SystemAuthor();
  changes::Edits edits_;
  std::int64_t serial_ = 0;
  std::function<void()> revive_server_;
  void* environment_ = nullptr;
  void* handle_ = nullptr;
  std::unique_ptr<StatementCache> statements_;
  bool alive_ = false;
  bool in_transaction_ = false;
  bool flush_granted_ = true;
  bool is_cluster_ = false;
  bool has_shared_tables_ = false;
};

}  // namespace quorvane::database
