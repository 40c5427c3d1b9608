#include "core/database/Connection.h"
#include "core/database/Recordset.h"
#include "core/database/Statement.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QTest>

#include <fmt/format.h>

#include <stdexcept>
#include <vector>

using quorvane::database::Connection;
using quorvane::database::DatabaseError;
using quorvane::database::Recordset;
using quorvane::database::StatementCache;
using quorvane::test::TestDatabase;

namespace {

constexpr std::size_t kFirst = 0;

}  // namespace

/// How rows are walked and columns named, and that statements of one connection keep apart.
class RecordsetTest : public QObject {
  Q_OBJECT

  std::optional<TestDatabase> database_;

 private Q_SLOTS:
  void initTestCase() { database_.emplace(TestDatabase::Tables::kNone); }

  void cleanupTestCase() { database_.reset(); }

  // A block has 1024 rows, and fewer when the rows are wide.
  void EveryRowIsReadOnceInOrder_data() {
    QTest::addColumn<QString>("columns");
    QTest::addColumn<int>("rows");
    const char* narrow = "seq";
    const char* wide = "seq,Cast(Repeat(Char(64+seq%26 Using utf8mb4),seq%500) As Char(500))";
    const char* with_long_text = "seq,Repeat('y',seq%3000) Y,Cast('' As Char(5000))";
    for (const int rows : {0, 1, 2, 1023, 1024, 1025, 2047, 2048, 2049, 5000}) {
      QTest::addRow("%d narrow rows", rows) << narrow << rows;
    }
    // 2001 bytes of text, 8 of number, 8 each of length: 129 rows fill 256 KiB.
    for (const int rows : {0, 1, 128, 129, 130, 257, 258, 259, 260, 1000}) {
      QTest::addRow("%d wide rows", rows) << wide << rows;
    }
    for (const int rows : {0, 1, 2, 300}) {
      QTest::addRow("%d rows with a long text", rows) << with_long_text << rows;
    }
  }

  void EveryRowIsReadOnceInOrder() {
    QFETCH(QString, columns);
    QFETCH(int, rows);
    int seen = 0;
    for (const auto& row :
         (*database_)
             ->Open(fmt::format("Select {} From seq_1_to_6000 Where seq<=? Order By seq",
                                columns.toStdString()),
                    rows)) {
      QCOMPARE(row.Int(kFirst), ++seen);
      if (columns.contains(QLatin1String("%500"))) {
        QCOMPARE(row.Text(1), QString(seen % 500, QLatin1Char(static_cast<char>(64 + seen % 26))));
      } else if (columns.contains(QLatin1String("%3000"))) {
        QCOMPARE(row.Text("Y").size(), seen % 3000);
      }
    }
    QCOMPARE(seen, rows);
  }

  void AfterTheLastRowThereIsNone() {
    Recordset rows = (*database_)->Open("Select 1");
    QVERIFY(rows.Next());
    QVERIFY(!rows.Next());
    QVERIFY(!rows.Next());
  }

  void ColumnsAreFoundInAnyCase() {
    Recordset rows = (*database_)->Open("Select 1 As ExName, 2 As id");
    QVERIFY(rows.Next());
    QCOMPARE(rows.ColumnCount(), std::size_t{2});
    QCOMPARE(rows.Column("EXNAME"), std::size_t{0});
    QCOMPARE(rows.Int("exname"), 1);
    QCOMPARE(rows.Int("ID"), 2);
  }

  void UnknownColumnNamesItselfAndTheStatement() {
    Recordset rows = (*database_)->Open("Select 1 As Id");
    QVERIFY(rows.Next());
    try {
      (void)rows.Int("Name");
      QFAIL("no exception");
    } catch (const std::out_of_range& error) {
      QVERIFY(QString::fromUtf8(error.what()).contains(QLatin1String("Name")));
      QVERIFY(QString::fromUtf8(error.what()).contains(QLatin1String("Select 1 As Id")));
    }
  }

  void TwoRecordsetsOfOneTextKeepApart() {
    Connection& connection = **database_;
    const char* sql = "Select seq From seq_1_to_3000 Where seq>? Order By seq";
    Recordset first = connection.Open(sql, 10);
    Recordset second = connection.Open(sql, 2000);
    int read = 0;
    for (; second.Next(); ++read) {
      QVERIFY(first.Next());
      QCOMPARE(first.Int(kFirst), 11 + read);
      QCOMPARE(second.Int(kFirst), 2001 + read);
    }
    QCOMPARE(read, 1000);
    QVERIFY(first.Next());
    QCOMPARE(first.Int(kFirst), 1011);
  }

  void AQueryWithinALoopOfTheSameQueryWorks() {
    Connection& connection = **database_;
    const char* sql = "Select seq From seq_1_to_5 Where seq<=? Order By seq";
    int sum = 0;
    for (const auto& outer : connection.Open(sql, 4)) {
      for (const auto& inner : connection.Open(sql, outer.Int(kFirst))) {
        sum += inner.Int(kFirst);
      }
    }
    QCOMPARE(sum, 1 + 3 + 6 + 10);
  }

  void ARecordsetLeftInTheMiddleFreesItsStatement() {
    Connection& connection = **database_;
    const char* sql = "Select seq From seq_1_to_3000 Order By seq";
    for (int round = 0; round < 3; ++round) {
      Recordset rows = connection.Open(sql);
      QVERIFY(rows.Next());
      QCOMPARE(rows.Int(kFirst), 1);
    }
  }

  void AMovedRecordsetGoesOnWhereItStood() {
    Recordset rows = (*database_)->Open("Select seq From seq_1_to_3 Order By seq");
    QVERIFY(rows.Next());
    Recordset moved = std::move(rows);
    QCOMPARE(moved.Int(kFirst), 1);
    QVERIFY(moved.Next());
    QCOMPARE(moved.Int(kFirst), 2);
  }

  void WritesWhileRowsAreReadDoNotDisturbThem() {
    Connection& connection = **database_;
    connection.Execute("Create Or Replace Table Lots(Id int)");
    connection.Execute("Insert Into Lots Select seq From seq_1_to_2500");
    int seen = 0;
    for (const auto& row : connection.Open("Select Id From Lots Order By Id")) {
      QCOMPARE(row.Int("Id"), ++seen);
      if (seen % 500 == 0) {
        connection.Execute("Delete From Lots Where Id>?", seen);
      }
    }
    QCOMPARE(seen, 2500);
  }

  void MoreStatementsThanAreKeptStillWork() {
    Connection& connection = **database_;
    const int count = static_cast<int>(StatementCache::kMost) * 3 + 7;
    for (int round = 0; round < 2; ++round) {
      for (int i = 0; i < count; ++i) {
        Recordset rows = connection.Open(fmt::format("Select {}+?", i), 1);
        QVERIFY(rows.Next());
        QCOMPARE(rows.Int(kFirst), i + 1);
      }
    }
    Recordset prepared = connection.Open("Show Session Status Like 'Prepared_stmt_count'");
    QVERIFY(prepared.Next());
    Recordset server = connection.Open("Show Global Status Like 'Prepared_stmt_count'");
    QVERIFY(server.Next());
    QVERIFY(server.Int(1) <= static_cast<int>(StatementCache::kMost) + 10);
  }

  void OpenRecordsetsOutliveAnOverflowOfTheKeptStatements() {
    Connection& connection = **database_;
    Recordset before = connection.Open("Select seq From seq_1_to_3000 Order By seq");
    QVERIFY(before.Next());
    std::vector<Recordset> open;
    open.reserve(StatementCache::kMost + 5);
    for (int i = 0; i < static_cast<int>(StatementCache::kMost) + 5; ++i) {
      open.push_back(connection.Open(fmt::format("Select {} As Open", i)));
    }
    connection.ForgetStatements();
    for (int i = 0; i < static_cast<int>(open.size()); ++i) {
      QVERIFY(open[static_cast<std::size_t>(i)].Next());
      QCOMPARE(open[static_cast<std::size_t>(i)].Int(kFirst), i);
    }
    int last = 1;
    while (before.Next()) {
      last = before.Int(kFirst);
    }
    QCOMPARE(last, 3000);
  }

  void AfterAColumnWasAddedAForgottenStatementSeesIt() {
    Connection& connection = **database_;
    connection.Execute("Create Or Replace Table Changing(Id int)");
    QCOMPARE(connection.Open("Select * From Changing").ColumnCount(), std::size_t{1});
    connection.Execute("Alter Table Changing Add(Name varchar(5) Default 'N.A.')");
    connection.ForgetStatements();
    QCOMPARE(connection.Open("Select * From Changing").ColumnCount(), std::size_t{2});
  }
};

static const quorvane::test::RegisterTest<RecordsetTest> kRegistered;
#include "RecordsetTest.moc"
