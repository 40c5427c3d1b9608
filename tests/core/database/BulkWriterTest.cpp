#include "core/database/BulkWriter.h"
#include "core/database/Connection.h"
#include "support/DatabaseTest.h"

#include <sys/resource.h>

using namespace quorvane::database;
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
class BulkWriterTest : public quorvane::test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    database_.emplace(TestDatabase::Tables::kNone);
    (*database_)
        ->Execute(
            "Create Table Records(Id bigint, Name longtext, Amount double, "
            "Written int Not Null Auto_Increment Primary Key) Engine=InnoDB");
  }

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

  void AnErrorInTheMiddleLeavesNothingAfterTheRollback() {
    Connection& connection = **database_;
    connection.Execute("Create Or Replace Table Narrow(Name varchar(10)) Engine=InnoDB");
    const char* insert = "Insert Into Narrow Values(?)";
    const auto write = [&] {
      Transaction transaction(connection);
      BulkWriter writer(transaction, insert, "t");
      for (int i = 0; i < 5000; ++i) {
        writer.Text(i == 4500 ? "more than ten letters" : "short").EndRow();
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
};

static const quorvane::test::RegisterTest<BulkWriterTest> kRegistered;
#include "BulkWriterTest.moc"
