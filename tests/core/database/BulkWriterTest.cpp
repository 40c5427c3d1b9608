#include "core/database/BulkWriter.h"
#include "core/database/Connection.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QTest>

#include <sys/resource.h>

#include <bit>
#include <limits>
#include <stdexcept>

using quorvane::database::BulkWriter;
using quorvane::database::Connection;
using quorvane::database::DatabaseError;
using quorvane::database::Transaction;
using quorvane::test::TestDatabase;

namespace {

constexpr std::size_t kFirst = 0;
constexpr const char* kInsert = "Insert Into Records(Id,Name,Amount) Values(?,?,?)";

/// The most memory that this process has ever held, in KiB.
std::int64_t PeakMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

/// A text whose length jumps from row to row.
std::string TextOf(int row) {
  return std::string(static_cast<std::size_t>(row % 7 == 0 ? 0 : row * 37 % 251), 'a') +
         (row % 5 == 0 ? "😀'\\" : "");
}

}  // namespace

/// Many rows arrive as single ones would.
class BulkWriterTest : public QObject {
  Q_OBJECT

  std::optional<TestDatabase> database_;

 private Q_SLOTS:
  void initTestCase() {
    database_.emplace(TestDatabase::Tables::kNone);
    (*database_)
        ->Execute(
            "Create Table Records(Id bigint, Name longtext, Amount double, "
            "Written int Not Null Auto_Increment Primary Key) Engine=InnoDB");
  }

  void cleanupTestCase() { database_.reset(); }

  void init() { (*database_)->Execute("Truncate Table Records"); }

  /// One statement text is kept and run for single rows and for batches of any size in turn.
  void KeptStatementTakesBatchesOfEverySize() {
    int next = 0;
    for (int round = 0; round < 200; ++round) {
      Transaction transaction(**database_);
      BulkWriter writer(transaction, kInsert, "itd");
      const int rows = round % 2 == 0 ? 1 : 2 + round * 7 % 23;
      for (int i = 0; i < rows; ++i, ++next) {
        writer.Int(next).Text(TextOf(next)).Double(next / 7.0).EndRow();
      }
      writer.Finish();
      if (round % 5 == 0) {
        transaction.Execute(kInsert, next, TextOf(next), next / 7.0);
        ++next;
      }
      transaction.Commit();
    }
    int read = 0;
    for (const auto& row : (*database_)->Open("Select Id,Name,Amount From Records Order By Id")) {
      QCOMPARE(row.Int(kFirst), read);
      QCOMPARE(std::string(row.Utf8(1)), TextOf(read));
      QCOMPARE(row.Double(2), read / 7.0);
      ++read;
    }
    QCOMPARE(read, next);
  }

  // A batch has 2000 rows.
  void RowsArriveCompleteAndInOrder_data() {
    QTest::addColumn<int>("rows");
    for (const int rows : {0, 1, 2, 1999, 2000, 2001, 4000, 4001, 9999}) {
      QTest::addRow("%d", rows) << rows;
    }
  }

  void RowsArriveCompleteAndInOrder() {
    QFETCH(int, rows);
    Transaction transaction(**database_);
    BulkWriter writer(transaction, kInsert, "itd");
    for (int i = 0; i < rows; ++i) {
      writer.Int(std::int64_t{i} * 3).Text(TextOf(i)).Double(i / 7.0).EndRow();
    }
    writer.Finish();
    transaction.Commit();
    int seen = 0;
    for (const auto& row : (*database_)->Open("Select * From Records Order By Written")) {
      QCOMPARE(row.Int64(kFirst), std::int64_t{seen} * 3);
      QVERIFY(row.Utf8(1) == TextOf(seen));
      QVERIFY(!row.IsNull(1));
      QCOMPARE(std::bit_cast<std::uint64_t>(row.Double(2)),
               std::bit_cast<std::uint64_t>(seen / 7.0));
      ++seen;
    }
    QCOMPARE(seen, rows);
  }

  void NumbersKeepTheirWholeRange() {
    using Limits = std::numeric_limits<double>;
    const std::array<double, 5> doubles{0.1 + 0.2, 1e-300, Limits::max(), Limits::denorm_min(),
                                        -1.0 / 3};
    Transaction transaction(**database_);
    BulkWriter writer(transaction, kInsert, "itd");
    for (const double value : doubles) {
      writer.Int(std::numeric_limits<std::int64_t>::min() + 1).Text("").Double(value).EndRow();
    }
    writer.Finish();
    std::size_t seen = 0;
    for (const auto& row : transaction.Open("Select * From Records Order By Written")) {
      QCOMPARE(std::bit_cast<std::uint64_t>(row.Double(2)),
               std::bit_cast<std::uint64_t>(doubles.at(seen++)));
      QCOMPARE(row.Int64(kFirst), std::numeric_limits<std::int64_t>::min() + 1);
    }
    QCOMPARE(seen, doubles.size());
  }

  // At one width for all, these rows would take some gigabytes.
  void OneVeryLongTextAmongManyShortOnes() {
    const std::string text(3UL * 1024 * 1024, 'x');
    const std::int64_t before = PeakMemory();
    Transaction transaction(**database_);
    BulkWriter writer(transaction, kInsert, "itd");
    for (int i = 0; i < 1500; ++i) {
      writer.Int(i).Text(i == 700 || i == 702 ? text : TextOf(i)).Double(i).EndRow();
    }
    writer.Finish();
    QVERIFY(PeakMemory() - before < std::int64_t{1024} * 1024);
    int seen = 0;
    for (const auto& row : transaction.Open("Select Id,Name From Records Order By Written")) {
      QCOMPARE(row.Int(kFirst), seen);
      QVERIFY(row.Utf8(1) == (seen == 700 || seen == 702 ? text : TextOf(seen)));
      ++seen;
    }
    QCOMPARE(seen, 1500);
  }

  void AnErrorInTheMiddleLeavesNothingAfterTheRollback_data() {
    QTest::addColumn<int>("bad_row");
    QTest::newRow("first batch") << 1000;
    QTest::newRow("third batch") << 4500;
    QTest::newRow("last row") << 4999;
  }

  void AnErrorInTheMiddleLeavesNothingAfterTheRollback() {
    QFETCH(int, bad_row);
    Connection& connection = **database_;
    connection.Execute("Create Or Replace Table Narrow(Name varchar(10)) Engine=InnoDB");
    const char* insert = "Insert Into Narrow Values(?)";
    const auto write = [&] {
      Transaction transaction(connection);
      BulkWriter writer(transaction, insert, "t");
      for (int i = 0; i < 5000; ++i) {
        writer.Text(i == bad_row ? "more than ten letters" : "short").EndRow();
      }
      writer.Finish();
      transaction.Commit();
    };
    QVERIFY_EXCEPTION_THROWN(write(), DatabaseError);
    QVERIFY(!connection.Open("Select * From Narrow").Next());
    // The same text, now with a value of its own.
    QCOMPARE(connection.Execute(insert, "single"), 1);
    auto rows = connection.Open("Select Count(*),Min(Name) From Narrow");
    QVERIFY(rows.Next());
    QCOMPARE(rows.Int(kFirst), 1);
    QCOMPARE(rows.Text(1), QStringLiteral("single"));
  }

  void AStatementRunsWithOneRowAfterItRanWithMany() {
    Connection& connection = **database_;
    {
      Transaction transaction(connection);
      BulkWriter writer(transaction, kInsert, "itd");
      for (int i = 0; i < 100; ++i) {
        writer.Int(i).Text("many").Double(0).EndRow();
      }
      writer.Finish();
      transaction.Commit();
    }
    QCOMPARE(connection.Execute(kInsert, 1000, "one", 0.5), 1);
    auto rows = connection.Open("Select Count(*) From Records");
    QVERIFY(rows.Next());
    QCOMPARE(rows.Int(kFirst), 101);
  }

  void UnfinishedRowIsNotSent() {
    Transaction transaction(**database_);
    {
      BulkWriter writer(transaction, kInsert, "itd");
      writer.Int(1).Text("whole").Double(1).EndRow();
      writer.Int(2).Text("half");
      writer.Finish();
    }
    auto rows = transaction.Open("Select Id From Records");
    QVERIFY(rows.Next());
    QCOMPARE(rows.Int(kFirst), 1);
    QVERIFY(!rows.Next());
  }

  void UpdatesAreRunForEveryRow() {
    (*database_)->Execute("Insert Into Records(Id,Amount) Select seq,0 From seq_1_to_3000");
    Transaction transaction(**database_);
    BulkWriter writer(transaction, "Update Records Set Amount=Amount+? Where Written=?", "di");
    for (int i = 1; i <= 3000; ++i) {
      writer.Double(i).Int(i).EndRow();
    }
    writer.Finish();
    auto rows = transaction.Open("Select Count(*) From Records Where Amount=Id");
    QVERIFY(rows.Next());
    QCOMPARE(rows.Int(kFirst), 3000);
  }

  void ValuesThatDoNotSuitTheStatementAreAProgrammersError() {
    Transaction transaction(**database_);
    BulkWriter writer(transaction, kInsert, "itd");
    QVERIFY_EXCEPTION_THROWN(writer.Text("first must be a number"), std::logic_error);
    writer.Int(1);
    QVERIFY_EXCEPTION_THROWN(writer.EndRow(), std::logic_error);
    writer.Text("x").Double(2);
    QVERIFY_EXCEPTION_THROWN(writer.Double(3), std::logic_error);
  }
};

static const quorvane::test::RegisterTest<BulkWriterTest> kRegistered;
#include "BulkWriterTest.moc"
