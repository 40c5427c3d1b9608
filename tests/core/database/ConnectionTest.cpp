#include "core/database/Connection.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

#include <fmt/format.h>

using namespace quorvane::database;
using quorvane::test::TestDatabase;
namespace test = quorvane::test;

namespace {

constexpr std::size_t kFirst = 0;

DatabaseError ErrorOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const DatabaseError& error) {
    return error;
  }
  return {"", 0, "no error", ""};
}

int ConnectionNumber(Connection& connection) {
  auto rows = connection.Open("Select Connection_Id()");
  return rows.Next() ? rows.Int(kFirst) : 0;
}

void Kill(TestDatabase& database, int connection) {
  Connection(database.Settings()).Execute(fmt::format("Kill {}", connection));
}

}  // namespace

/// Log-in, errors and lost connections.
class ConnectionTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PasswordOfAnyCharactersLogsIn_data() {
    const test::Table<QString> row;
    row("semicolon", "a;UID=root;b");
    row("braces", "{a}b}c{d");
    row("quotes", "a'b\"c\\d");
  }
  void PasswordOfAnyCharactersLogsIn() {
    const auto [password] = test::Table<QString>::Row();
    TestDatabase database(TestDatabase::Tables::kNone);
    QString quoted = password;
    quoted.replace(QLatin1String("\\"), QLatin1String("\\\\"));
    quoted.replace(QLatin1String("'"), QLatin1String("''"));
    database->Execute("Create Or Replace User clerk@localhost Identified By '" +
                      quoted.toStdString() + "'");
    ConnectionSettings settings;
    settings.socket = database.Settings().socket;
    settings.user = QStringLiteral("clerk");
    settings.password = password;
    Connection connection(settings);
    auto rows = connection.Open("Select Current_User()");
    QVERIFY(rows.Next());
    QCOMPARE(rows.Text(kFirst), QStringLiteral("clerk@localhost"));
    settings.password += QLatin1Char('x');
    QCOMPARE(ErrorOf([&] { Connection wrong(settings); }).Native(), 1045);
  }

  void NoServerIsALostConnection() {
    ConnectionSettings settings;
    settings.socket = QStringLiteral("/nowhere/mariadb.sock");
    settings.password = QStringLiteral("secret-word");
    const DatabaseError error = ErrorOf([&] { Connection connection(settings); });
    QVERIFY2(error.IsConnectionLost(), error.what());
    QVERIFY2(!QString::fromUtf8(error.what()).contains(QLatin1String("secret-word")), error.what());
  }

  void ErrorNeverShowsABoundValue_data() {
    const test::Table<QString, QString> row;
    const QString secret = QStringLiteral("ABCDE1234F");
    row("text for a number", "Insert Into T(Number) Values(?)", secret);
    row("quotes inside", "Insert Into T(Number) Values(?)",
        QStringLiteral("' for column 'ABCDE1234F' at row 1 'x"));
    row("long text", "Insert Into T(Number) Values(?)", QStringLiteral("ABCDE1234F").repeated(500));
    row("text too long", "Insert Into T(Short) Values(?)", secret);
    row("not a number in a condition", "Update T Set Number=1 Where Real_=?", secret);
    row("sum out of range", "Update T Set Real_=1e308*10*Length(?)", secret);
  }
  void ErrorNeverShowsABoundValue() {
    const auto [sql, value] = test::Table<QString, QString>::Row();
    TestDatabase database(TestDatabase::Tables::kNone);
    database->Execute(
        "Create Table T(Number int, Real_ double, Day date, Key_ varchar(50) Unique, "
        "Short varchar(5))");
    database->Execute("Insert Into T(Number,Real_) Values(0,0)");
    const std::vector<quorvane::database::Value> values(
        static_cast<std::size_t>(sql.count(QLatin1Char('?'))), value);
    const DatabaseError error =
        ErrorOf([&] { database->ExecuteValues(sql.toStdString(), values); });
    QVERIFY2(!error.State().empty(), error.what());
    const QString text = QString::fromUtf8(error.what());
    QVERIFY2(!text.contains(QLatin1String("ABCDE")), error.what());
    QVERIFY2(text.contains(sql), error.what());
  }

  void TextThatDoesNotFitIsRefused() {
    TestDatabase database(TestDatabase::Tables::kNone);
    database->Execute("Create Table T(Pan varchar(10), Number int)");
    QCOMPARE(
        ErrorOf([&] { database->Execute("Insert Into T(Pan) Values(?)", "ABCDE1234FG"); }).Native(),
        1406);
    QCOMPARE(ErrorOf([&] {
               database->Execute("Insert Into T(Number) Values(?)", std::int64_t{1} << 40);
             }).Native(),
             1264);
    QVERIFY(!database->Open("Select * From T").Next());
  }

  void KilledConnectionIsLostAndReopens() {
    TestDatabase database(TestDatabase::Tables::kNone);
    Connection& connection = *database;
    connection.Execute("Create Table T(Id int)");
    Kill(database, ConnectionNumber(connection));
    const DatabaseError error = ErrorOf([&] { connection.Execute("Insert Into T Values(?)", 1); });
    QVERIFY2(error.IsConnectionLost(), error.what());
    QVERIFY(!connection.IsAlive());
    connection.Reopen();
    QVERIFY(connection.IsAlive());
    QCOMPARE(connection.Execute("Insert Into T Values(?)", 1), 1);
    auto mode = connection.Open("Select @@sql_mode");
    QVERIFY(mode.Next());
    QVERIFY(mode.Text(kFirst).contains(QLatin1String("STRICT_ALL_TABLES")));
  }

  void OnlyAQueryThatOnlyReadsIsSentAgain() {
    TestDatabase database(TestDatabase::Tables::kNone);
    Connection& connection = *database;
    connection.Execute("Create Table T(Id int)");
    const auto is_lost = [&](const char* sql) {
      Kill(database, ConnectionNumber(connection));
      return ErrorOf([&] { connection.Open(sql); }).IsConnectionLost();
    };
    QVERIFY(is_lost("Select Id From T For Update"));
    QVERIFY(is_lost("Select Id From T Lock In Share Mode"));
    Kill(database, ConnectionNumber(connection));
    QVERIFY(!connection.Open("Select Id From T").Next());
  }
};

static const quorvane::test::RegisterTest<ConnectionTest> kRegistered;
#include "ConnectionTest.moc"
