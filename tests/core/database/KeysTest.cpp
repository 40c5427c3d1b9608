#include "core/database/Connection.h"
#include "core/database/Keys.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QTest>

#include <fmt/format.h>

#include <atomic>
#include <thread>

using quorvane::MaybeRefusal;
using quorvane::database::Connection;
using quorvane::database::InTransaction;
using quorvane::database::NextKey;
using quorvane::database::NextSharedKey;
using quorvane::database::Transaction;
using quorvane::test::TestDatabase;

namespace {

constexpr std::size_t kFirst = 0;

/// Keys are taken only inside a transaction; this one is rolled back.
template <class Work>
int Within(TestDatabase& database, const Work& work) {
  Transaction transaction(*database);
  return work(transaction);
}

}  // namespace

/// One more than the largest key, and never the same key twice.
class KeysTest : public QObject {
  Q_OBJECT

  std::optional<TestDatabase> database_;

 private Q_SLOTS:
  void init() { database_.emplace(); }

  void cleanup() { database_.reset(); }

  void FirstKeyOfAnEmptyTableIsOne() {
    QCOMPARE(Within(*database_, [](Transaction& t) { return NextKey(t, "Broker"); }), 1);
    QCOMPARE(Within(*database_,
                    [](Transaction& t) {
                      return NextSharedKey(t, {"Stock", "Stock_Temp"});
                    }),
             1);
  }

  void KeyIsOneMoreThanTheLargest() {
    (*database_)->Execute("Insert Into Broker(Id) Values(7),(3),(Null)");
    QCOMPARE(Within(*database_, [](Transaction& t) { return NextKey(t, "Broker"); }), 8);
  }

  void ColumnMayBeNamed() {
    (*database_)->Execute("Insert Into SPTrans(SID,Id) Values(40,1)");
    QCOMPARE(Within(*database_, [](Transaction& t) { return NextKey(t, "SPTrans", "SID"); }), 41);
  }

  void SharedSequenceFollowsTheLargerTable_data() {
    QTest::addColumn<int>("stock");
    QTest::addColumn<int>("scratch");
    QTest::addColumn<int>("next");
    QTest::newRow("scratch empty") << 5 << 0 << 6;
    QTest::newRow("stock empty") << 0 << 9 << 10;
    QTest::newRow("stock larger") << 9 << 5 << 10;
    QTest::newRow("scratch larger") << 5 << 9 << 10;
    QTest::newRow("equal") << 5 << 5 << 6;
  }

  void SharedSequenceFollowsTheLargerTable() {
    QFETCH(int, stock);
    QFETCH(int, scratch);
    QFETCH(int, next);
    (*database_)->Execute("Insert Into Stock(Id) Select ? From Dual Where ?>0", stock, stock);
    (*database_)
        ->Execute("Insert Into Stock_Temp(Id) Select ? From Dual Where ?>0", scratch, scratch);
    QCOMPARE(Within(*database_,
                    [](Transaction& t) {
                      return NextSharedKey(t, {"Stock", "Stock_Temp"});
                    }),
             next);
  }

  void KeyOfAnUncommittedRowIsNotTakenByItsOwnTransaction() {
    Transaction transaction(**database_);
    transaction.Execute("Insert Into Broker(Id) Values(?)", NextKey(transaction, "Broker"));
    QCOMPARE(NextKey(transaction, "Broker"), 2);
  }

  void WritersAtOnceNeverTakeTheSameKey_data() {
    QTest::addColumn<int>("rows_before");
    QTest::newRow("empty table") << 0;
    QTest::newRow("filled table") << 500;
  }

  void WritersAtOnceNeverTakeTheSameKey() {
    QFETCH(int, rows_before);
    (*database_)
        ->Execute(fmt::format("Insert Into Broker(Id) Select seq From seq_1_to_1000 Where seq<={}",
                              rows_before));
    constexpr int kWriters = 4;
    constexpr int kRowsEach = 25;
    std::atomic<int> failures = 0;
    const auto write = [&] {
      Connection connection(database_->Settings());
      for (int i = 0; i < kRowsEach; ++i) {
        try {
          InTransaction(connection, [](Transaction& transaction) -> MaybeRefusal {
            const int key = NextKey(transaction, "Broker");
            transaction.Execute("Insert Into Broker(Id) Values(?)", key);
            return std::nullopt;
          });
        } catch (const std::exception& error) {
          qWarning("%s", error.what());
          ++failures;
        }
      }
    };
    std::vector<std::thread> writers;
    writers.reserve(kWriters);
    for (int i = 0; i < kWriters; ++i) {
      writers.emplace_back(write);
    }
    for (std::thread& writer : writers) {
      writer.join();
    }
    QCOMPARE(failures.load(), 0);
    auto rows = (*database_)->Open("Select Count(*),Count(Distinct Id),Max(Id) From Broker");
    QVERIFY(rows.Next());
    const int expected = rows_before + kWriters * kRowsEach;
    QCOMPARE(rows.Int(kFirst), expected);
    QCOMPARE(rows.Int(1), expected);
    QCOMPARE(rows.Int(2), expected);
  }
};

static const quorvane::test::RegisterTest<KeysTest> kRegistered;
#include "KeysTest.moc"
