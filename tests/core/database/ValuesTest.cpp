#include "core/database/Connection.h"
#include "support/DatabaseTest.h"

#include <bit>
#include <limits>

using quorvane::database::Connection;
using quorvane::database::Recordset;
using quorvane::test::TestDatabase;
namespace test = quorvane::test;

namespace {

constexpr std::size_t kFirst = 0;

}  // namespace

/// What is bound to a statement comes back as it was.
class ValuesTest : public quorvane::test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    database_.emplace(TestDatabase::Tables::kNone);
    Connection& connection = **database_;
    connection.Execute("Create Table Texts(Id int, Short varchar(255), Wide longtext)");
    connection.Execute("Create Table Numbers(Id int, Value double, Big bigint)");
    connection.Execute("Create Table LongTexts(Id int, A longtext, B int, C longtext, D longtext)");
  }

  void init() {
    for (const char* table : {"Texts", "Numbers", "LongTexts"}) {
      (*database_)->Execute(std::string("Delete From ") + table);
    }
  }

  void TextComesBackUnchanged_data() {
    const test::Table<QString> row;
    row("single quote", "O'BRIEN & SONS");
    row("four-byte", QString::fromUtf8("📈😀𝒳"));
    row("widest text of a column", QString::fromUtf8("😀").repeated(255));
    row("byte 0 inside", QString(QLatin1String("a\0b", 3)));
  }
  void TextComesBackUnchanged() {
    const auto [text] = test::Table<QString>::Row();
    Connection& connection = **database_;
    connection.Execute("Insert Into Texts Values(?,?,?)", 1, text, text);
    Recordset rows = connection.Open("Select Short,Wide From Texts Where Short=?", text);
    QVERIFY(rows.Next());
    QCOMPARE(rows.Text("Short"), text);
    QCOMPARE(rows.Text("Wide"), text);
    QVERIFY(!rows.IsNull("Short"));
    QVERIFY(!rows.IsNull("Wide"));
    QVERIFY(!rows.Next());
  }

  void NullIsToldFromZeroAndEmptyText() {
    Connection& connection = **database_;
    connection.Execute("Insert Into Texts Values(?,?,?)", std::nullopt, std::nullopt, std::nullopt);
    connection.Execute("Insert Into Texts Values(?,?,?)", 0, "", "");
    Recordset rows = connection.Open("Select Id,Short,Wide From Texts Order By Id Is Null Desc");
    QVERIFY(rows.Next());
    QVERIFY(rows.IsNull("Id") && rows.IsNull("Short") && rows.IsNull("Wide"));
    QCOMPARE(rows.Int("Id"), 0);
    QCOMPARE(rows.Text("Short"), QString());
    QVERIFY(rows.OptionalInt(0) == std::nullopt);
    QVERIFY(rows.OptionalDouble(0) == std::nullopt);
    QVERIFY(rows.OptionalText(1) == std::nullopt);
    QVERIFY(rows.OptionalText(2) == std::nullopt);
    QVERIFY(rows.Next());
    QVERIFY(!rows.IsNull("Id") && !rows.IsNull("Short") && !rows.IsNull("Wide"));
    QVERIFY(rows.OptionalInt(0) == 0);
    QVERIFY(rows.OptionalText(1) == QString(QLatin1String("")));
    QVERIFY(rows.OptionalText(2) == QString(QLatin1String("")));
  }
  void AStatementTakesValuesOfOtherTypesWhenItRunsAgain() {
    Connection& connection = **database_;
    const char* insert = "Insert Into Numbers(Value) Values(?)";
    connection.Execute(insert, 2.5);
    connection.Execute(insert, std::nullopt);
    connection.Execute(insert, 3);
    connection.Execute(insert, "4.25");
    Recordset rows = connection.Open("Select Count(*),Count(Value),Sum(Value) From Numbers");
    QVERIFY(rows.Next());
    QCOMPARE(rows.Int(kFirst), 4);
    QCOMPARE(rows.Int(1), 3);
    QCOMPARE(rows.Double(2), 9.75);
  }
};

static const quorvane::test::RegisterTest<ValuesTest> kRegistered;
#include "ValuesTest.moc"
