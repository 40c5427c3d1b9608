#include "core/database/Connection.h"

#include "core/database/Statement.h"

#include <QLatin1String>
#include <QStringList>
#include <QUuid>

#include <fmt/format.h>
#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>

namespace quorvane::database {
namespace {

std::string Quoted(const QString& value) {
  QString doubled = value;
  doubled.replace(QLatin1Char('}'), QLatin1String("}}"));
  return "{" + doubled.toStdString() + "}";
}

/// The driver splits the string at ";" only; a plain value is left as it is because not every key
/// is read with its braces. Blanks around a value are lost either way.
std::string Written(const QString& value) {
  const bool plain = !value.contains(QLatin1Char(';')) && !value.contains(QLatin1Char('{')) &&
                     !value.contains(QLatin1Char('}'));
  return plain ? value.toStdString() : Quoted(value);
}

constexpr int kNotGranted = 1227;
constexpr int kUnknownVariable = 1193;
constexpr int kNotReady = 1047;
constexpr int kLongestLoginSeconds = 15;

/// No such driver, or its library cannot be loaded or does not start.
bool IsWithoutDriver(const DatabaseError& error) {
  constexpr std::array kStates{"IM002", "IM003", "IM004"};
  return std::ranges::find(kStates, error.State()) != kStates.end() ||
         std::string_view(error.what()).find("Can't open lib") != std::string_view::npos;
}

/// The manager's own text tells neither where the driver was named nor what to install.
[[noreturn]] void FailWithoutDriver(const QString& driver) {
  const bool is_usual = driver == ConnectionSettings().driver;
  throw DatabaseError(
      "IM003", 0,
      fmt::format("the database driver \"{}\" is not installed; {}", driver.toStdString(),
                  is_usual ? "install the package odbc-mariadb"
                           : "install its package, or install the package odbc-mariadb and take "
                             "the line Driver= out of [Database] in the settings file"),
      "");
}

/// A query that takes no lock: to ask it twice is to ask it once.
bool OnlyReads(std::string_view sql) {
  const QLatin1String text(sql.data(), static_cast<qsizetype>(sql.size()));
  return text.startsWith(QLatin1String("Select "), Qt::CaseInsensitive) &&
         !text.contains(QLatin1String(" For Update"), Qt::CaseInsensitive) &&
         !text.contains(QLatin1String(" Lock In "), Qt::CaseInsensitive);
}

/// "host", "host:port" or "[address]:port"; an address of version 6 has several colons. A port that
/// is no number is -1.
ServerAddress ParseAddress(const QString& text, int port) {
  const qsizetype colon = text.lastIndexOf(QLatin1Char(':'));
  const bool has_port = colon > 0 && (text.indexOf(QLatin1Char(':')) == colon ||
                                      text.at(colon - 1) == QLatin1Char(']'));
  QString host = has_port ? text.left(colon) : text;
  if (host.startsWith(QLatin1Char('[')) && host.endsWith(QLatin1Char(']'))) {
    host = host.mid(1, host.size() - 2);
  }
  bool is_number = true;
  const int own_port = has_port ? text.mid(colon + 1).toInt(&is_number) : port;
  return {host, is_number ? own_port : -1};
}

}  // namespace

std::vector<ServerAddress> ConnectionSettings::Addresses() const {
  std::vector<ServerAddress> addresses;
  for (const QString& one : server.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
    addresses.push_back(ParseAddress(one.trimmed(), port));
  }
  if (addresses.empty()) {
    addresses.push_back({server, port});
  }
  return addresses;
}

std::string ConnectionSettings::ConnectionString(const ServerAddress& address) const {
  std::string text = "DRIVER=" + Quoted(driver) + ";CHARSET=utf8mb4";
  const auto add = [&](const char* key, const QString& value) {
    if (!value.isEmpty()) {
      text += fmt::format(";{}={}", key, Written(value));
    }
  };
  add("SERVER", address.host);
  add("PORT", address.port == 0 ? QString() : QString::number(address.port));
  add("SOCKET", socket);
  add("DATABASE", database);
  add("UID", user);
  add("PWD", password);
  add("SSLCA", tls_ca);
  add("SSLCERT", tls_certificate);
  add("SSLKEY", tls_key);
  add("SSLVERIFY", tls_verify ? QStringLiteral("1") : QString());
  return text;
}

Connection::Connection(ConnectionSettings settings)
    : settings_(std::move(settings)),
      addresses_(settings_.Addresses()),
      token_(QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString()),
      statements_(std::make_unique<StatementCache>()) {
  OpenAnyServer(0);
}

Connection::~Connection() {
  CloseHandles();
}

/// The first that answers, from `first` on and round; a refused log-in is refused by all.
void Connection::OpenAnyServer(std::size_t first) {
  for (std::size_t tried = 1;; ++tried) {
    address_ = (first + tried - 1) % addresses_.size();
    try {
      OpenHandles(addresses_[address_]);
      return;
    } catch (const DatabaseError& error) {
      if (!error.IsConnectionLost() || tried == addresses_.size()) {
        throw;
      }
    }
  }
}

void Connection::OpenHandles(const ServerAddress& address) {
  SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
  SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<void*>(SQL_OV_ODBC3), 0);
  SQLAllocHandle(SQL_HANDLE_DBC, environment_, &handle_);
  // A server that does not answer is given up, where the system would wait for minutes.
  SQLSetConnectAttr(handle_, SQL_ATTR_LOGIN_TIMEOUT,
                    reinterpret_cast<SQLPOINTER>(SQLULEN{kLongestLoginSeconds}), SQL_IS_UINTEGER);
  std::string text = settings_.ConnectionString(address);
  const SQLRETURN result = SQLDriverConnect(
      handle_, nullptr, reinterpret_cast<SQLCHAR*>(text.data()),
      static_cast<SQLSMALLINT>(text.size()), nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
  try {
    if (!SQL_SUCCEEDED(result)) {
      Fail(SQL_HANDLE_DBC, handle_, "connect");
    }
    alive_ = true;
    ConfigureServerSession();
    LookForCluster();
  } catch (const DatabaseError& error) {
    CloseHandles();
    if (IsWithoutDriver(error)) {
      FailWithoutDriver(settings_.driver);
    }
    throw;
  } catch (...) {
    CloseHandles();
    throw;
  }
}

void Connection::ConfigureServerSession() {
  // Values that do not fit are errors, never cut; and no lock is waited for without end.
  Execute(
      "Set Session sql_mode='STRICT_ALL_TABLES,ERROR_FOR_DIVISION_BY_ZERO,NO_ENGINE_SUBSTITUTION',"
      " lock_wait_timeout=30");
  // What a transaction reads is all of one instant, whatever the server's own settings are.
  Execute("Set Session Transaction Isolation Level Repeatable Read");
}

void Connection::LookForCluster() {
  is_cluster_ = false;
  try {
    Recordset rows = Open("Select @@wsrep_on");
    is_cluster_ = rows.Next() && rows.Int(0) != 0;
  } catch (const DatabaseError& error) {
    if (error.Native() != kUnknownVariable) {
      throw;
    }
  }
  if (!is_cluster_) {
    return;
  }
  Recordset ready = Open("Show Status Like 'wsrep_ready'");
  if (!ready.Next() || ready.Text(1) != QLatin1String("ON")) {
    throw DatabaseError("08S01", kNotReady, "This node of the cluster is not ready", "connect");
  }
}

void Connection::LookForSharedTables() {
  if (!has_shared_tables_) {
    Recordset rows = Open(
        "Select Count(*) From information_schema.TABLES Where TABLE_SCHEMA=Database() And "
        "TABLE_NAME In('Writers','CommitMark','ChangeHead')");
    has_shared_tables_ = rows.Next() && rows.Int(0) == 3;
  }
}

void Connection::CloseHandles() noexcept {
  statements_->Clear();
  if (handle_ != nullptr) {
    if (alive_) {
      SQLDisconnect(handle_);
    }
    SQLFreeHandle(SQL_HANDLE_DBC, handle_);
    handle_ = nullptr;
  }
  if (environment_ != nullptr) {
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
    environment_ = nullptr;
  }
  alive_ = false;
}

void Connection::Reopen() {
  if (alive_) {
    return;
  }
  CloseHandles();
  in_transaction_ = false;
  // One that died is tried last.
  const std::size_t next = (address_ + 1) % addresses_.size();
  try {
    OpenAnyServer(next);
  } catch (const DatabaseError& error) {
    if (!error.IsConnectionLost() || !revive_server_) {
      throw;
    }
    revive_server_();
    OpenAnyServer(next);
  }
}

/// In a transaction the loss stays: what went before it is gone, too.
void Connection::ReopenForStatement() {
  if (!alive_ && !in_transaction_) {
    Reopen();
  }
}

void Connection::ForgetStatements() {
  statements_->Clear();
}

bool Connection::IsAlive() const {
  return alive_;
}

void Connection::Fail(short handle_type, void* handle, std::string_view sql) {
  SQLCHAR state[6] = "HY000";
  SQLCHAR message[1024] = "the driver gave no reason";
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  SQLGetDiagRec(handle_type, handle, 1, state, &native, message, sizeof(message), &length);
  DatabaseError error(reinterpret_cast<const char*>(state), native,
                      reinterpret_cast<const char*>(message), std::string(sql));
  if (error.IsConnectionLost()) {
    alive_ = false;
  }
  throw error;
}

std::shared_ptr<Statement> Connection::Prepare(std::string_view sql) {
  if (std::shared_ptr<Statement> kept = statements_->FindFree(sql)) {
    return kept;
  }
  auto statement = std::make_shared<Statement>(std::string(sql));
  if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, handle_, &statement->handle))) {
    Fail(SQL_HANDLE_DBC, handle_, sql);
  }
  if (!SQL_SUCCEEDED(SQLPrepare(statement->handle,
                                reinterpret_cast<SQLCHAR*>(statement->sql.data()),
                                static_cast<SQLINTEGER>(statement->sql.size())))) {
    Fail(SQL_HANDLE_STMT, statement->handle, sql);
  }
  statements_->Keep(statement);
  return statement;
}

std::int64_t Connection::ExecuteValues(std::string_view sql, std::span<const Value> values) {
  ReopenForStatement();
  const std::shared_ptr<Statement> statement = Prepare(sql);
  statement->values.assign(values.begin(), values.end());
  SQLRETURN result = BindValues(*statement);
  if (SQL_SUCCEEDED(result)) {
    result = SQLExecute(statement->handle);
  }
  if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) {
    Fail(SQL_HANDLE_STMT, statement->handle, sql);
  }
  SQLLEN changed = 0;
  SQLRowCount(statement->handle, &changed);
  SQLFreeStmt(statement->handle, SQL_CLOSE);
  return changed;
}

Recordset Connection::OpenValues(std::string_view sql, std::span<const Value> values) {
  ReopenForStatement();
  try {
    return OpenOnce(sql, values);
  } catch (const DatabaseError& error) {
    if (!error.IsConnectionLost() || in_transaction_ || !OnlyReads(sql)) {
      throw;
    }
  }
  Reopen();
  return OpenOnce(sql, values);
}

Recordset Connection::OpenOnce(std::string_view sql, std::span<const Value> values) {
  std::shared_ptr<Statement> statement = Prepare(sql);
  statement->values.assign(values.begin(), values.end());
  SQLRETURN result = BindValues(*statement);
  if (SQL_SUCCEEDED(result)) {
    result = SQLExecute(statement->handle);
  }
  if (SQL_SUCCEEDED(result)) {
    result = BindColumns(*statement);
  }
  if (!SQL_SUCCEEDED(result)) {
    Fail(SQL_HANDLE_STMT, statement->handle, sql);
  }
  statement->in_use = true;
  return Recordset(*this, std::move(statement));
}

void Connection::FlushTables() {
  if (!flush_granted_) {
    return;
  }
  try {
    Execute("Flush Tables");
  } catch (const DatabaseError& error) {
    if (error.Native() != kNotGranted) {
      throw;
    }
    flush_granted_ = false;
  }
}

void Connection::SetAutocommit(bool on) {
  const SQLRETURN result = SQLSetConnectAttr(
      handle_, SQL_ATTR_AUTOCOMMIT,
      reinterpret_cast<void*>(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF), SQL_IS_UINTEGER);
  if (!SQL_SUCCEEDED(result)) {
    Fail(SQL_HANDLE_DBC, handle_, on ? "autocommit on" : "autocommit off");
  }
}

void Connection::EndTransaction(bool commit) {
  const SQLRETURN result = SQLEndTran(SQL_HANDLE_DBC, handle_, commit ? SQL_COMMIT : SQL_ROLLBACK);
  if (!SQL_SUCCEEDED(result)) {
    Fail(SQL_HANDLE_DBC, handle_, commit ? "commit" : "rollback");
  }
}

}  // namespace quorvane::database
