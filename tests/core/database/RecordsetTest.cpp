#include "core/database/Connection.h"
#include "core/database/Recordset.h"
#include "core/database/Statement.h"
#include "support/DatabaseTest.h"

#include <fmt/format.h>

namespace test = quorvane::test;
using namespace quorvane::database;
using quorvane::test::TestDatabase;

namespace {

constexpr std::size_t kFirst = 0;

}  // namespace

/// How rows are walked and columns named, and that statements of one connection keep apart.
class RecordsetTest : public quorvane::test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { database_.emplace(TestDatabase::Tables::kNone); }

  // A block has 1024 rows, and fewer when the rows are wide.
  void EveryRowIsReadOnceInOrder_data() {
    const test::Table<std::string, int> row;
    const char* narrow = "seq";
    const char* wide = "seq,Cast(Repeat(Char(64+seq%26 Using utf8mb4),seq%500) As Char(500))";
    const char* with_long_text = "seq,Repeat('y',seq%3000) Y,Cast('' As Char(5000))";
    for (const int rows : {0, 1, 1023, 1024, 1025, 2049}) {
      row(fmt::format("{} narrow rows", rows).c_str(), narrow, rows);
    }
    // 2001 bytes of text, 8 of number, 8 each of length: 129 rows fill 256 KiB.
    for (const int rows : {128, 129, 130, 259}) {
      row(fmt::format("{} wide rows", rows).c_str(), wide, rows);
    }
    for (const int rows : {1, 300}) {
      row(fmt::format("{} rows with a long text", rows).c_str(), with_long_text, rows);
    }
  }
  void EveryRowIsReadOnceInOrder() {
    const auto [columns, rows] = test::Table<std::string, int>::Row();
    int seen = 0;
    for (const auto& row :
         (*database_)
             ->Open(fmt::format("Select {} From seq_1_to_6000 Where seq<=? Order By seq", columns),
                    rows)) {
      QCOMPARE(row.Int(kFirst), ++seen);
      if (columns.find("%500") != std::string::npos) {
        QCOMPARE(row.Text(1), QString(seen % 500, QLatin1Char(static_cast<char>(64 + seen % 26))));
      } else if (columns.find("%3000") != std::string::npos) {
        QCOMPARE(row.Text("Y").size(), seen % 3000);
      }
    }
    QCOMPARE(seen, rows);
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
};

static const quorvane::test::RegisterTest<RecordsetTest> kRegistered;
#include "RecordsetTest.moc"
