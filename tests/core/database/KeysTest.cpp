#include "core/database/Connection.h"
#include "core/database/Keys.h"
#include "core/database/Schema.h"
#include "core/database/SchemaTables.h"
#include "core/records/Masters.h"
#include "core/records/Writing.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

#include <fmt/format.h>

namespace test = quorvane::test;
using quorvane::test::TestDatabase;
using namespace quorvane;
using namespace quorvane::database;

namespace {

constexpr std::size_t kFirst = 0;

/// Takes keys as a save does, whose transaction is committed.
int Taken(TestDatabase& database, std::string_view table, int count = 1) {
  Transaction transaction(*database);
  const int first = NextKeys(transaction, table, count);
  transaction.Commit();
  return first;
}

/// The counters of a database that an older program kept.
void ForgetCounters(TestDatabase& database) {
  database->Execute("Delete From RecordKey");
  MakeCounters(*database);
}

}  // namespace

/// One more than the largest key ever given.
class KeysTest : public QObject {
  Q_OBJECT

  std::optional<TestDatabase> database_;

 private Q_SLOTS:
  void init() { database_.emplace(); }

  void cleanup() { database_.reset(); }

  void FreedKeyIsNeverGivenAgain() {
    for (const std::string_view table : KeyedTables()) {
      auto rows = (*database_)->Open(fmt::format("Select Coalesce(Max(Id),0) From {}", table));
      QVERIFY(rows.Next());
      const int before = rows.Int(kFirst);
      const int key = Taken(*database_, table);
      QCOMPARE(key, before + 1);
      (*database_)->Execute(fmt::format("Insert Into {}(Id) Values(?)", table), key);
      (*database_)->Execute(fmt::format("Delete From {}", table));
      QCOMPARE(Taken(*database_, table, 100), before + 2);
      QCOMPARE(Taken(*database_, table), before + 102);
    }
  }

  void ARecordDeletedMeanwhileGetsANewKey() {
    const int key = Taken(*database_, "Broker");
    Transaction transaction(**database_);
    const auto claim = [&](int id) {
      return records::ClaimKey(transaction, &records::Broker::id, BrokerId{id}).value;
    };
    QCOMPARE(claim(key), key + 1);
    transaction.Execute("Insert Into Broker(Id) Values(?)", key + 1);
    QCOMPARE(claim(key + 1), key + 1);
  }

  /// A program without counters wrote: the counter is not behind its table.
  void CounterFollowsTheTable_data() {
    const test::Table<std::string, std::string, int> row;
    row("largest", "Insert Into Broker(Id) Values(7),(3),(Null)", "Broker", 8);
    row("none", "Insert Into Exchange(Id) Values(Null)", "Exchange", 3);
    row("lot", "Insert Into Stock(Id) Values(5)", "Stock", 6);
    row("lot of the scratch table", "Insert Into Stock_Temp(Id) Values(9)", "Stock", 10);
  }
  void CounterFollowsTheTable() {
    const auto [written, table, next] = test::Table<std::string, std::string, int>::Row();
    (*database_)->Execute(written);
    QCOMPARE(Taken(*database_, table), next);
    QCOMPARE(Taken(*database_, table), next + 1);
  }

  /// What an older program deleted left lines; no new record takes them over.
  void KeyThatLinesStillNameIsNotGiven() {
    for (const auto& [table, column, names] : KeyReferences()) {
      (*database_)->Execute(fmt::format("Insert Into {}({}) Values(41)", table, column));
      ForgetCounters(*database_);
      QVERIFY2(Taken(*database_, names) == 42, fmt::format("{}.{}", table, column).c_str());
      (*database_)->Execute(fmt::format("Delete From {}", table));
    }
  }

  void KeysThatAreUsedUpAreRefused() {
    (*database_)->Execute("Insert Into Broker(Id) Values(2147483647)");
    QVERIFY_EXCEPTION_THROWN(Taken(*database_, "Broker"), std::runtime_error);
  }

  void CountersAreRaisedAndNeverLowered() {
    Taken(*database_, "Broker", 9);
    {
      Transaction transaction(**database_);
      RaiseCounters(transaction, {{"Broker", 4}, {"Script", 6}, {"Later", 2}});
      transaction.Commit();
    }
    QCOMPARE(Taken(*database_, "Broker"), 10);
    QCOMPARE(Taken(*database_, "Script"), 7);
    QCOMPARE(ReadCounters(**database_).at("Later"), std::int64_t{2});
  }

  void KeysThatAreBeingCountedKeepOthersWaiting() {
    Connection other(database_->Settings());
    other.Execute("Set Session innodb_lock_wait_timeout=1");
    Transaction counting(**database_);
    QCOMPARE(FirstFreeKey(counting, "Broker"), 1);
    Transaction waiting(other);
    QVERIFY_EXCEPTION_THROWN(FirstFreeKey(waiting, "Broker"), DatabaseError);
  }
};

static const quorvane::test::RegisterTest<KeysTest> kRegistered;
#include "KeysTest.moc"
