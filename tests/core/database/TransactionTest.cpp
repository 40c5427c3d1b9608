#include "core/database/CommitMark.h"
#include "core/database/Connection.h"
#include "core/database/Schema.h"
#include "core/database/Transaction.h"
#include "core/database/Turns.h"
#include "support/CuttingLine.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

#include <fmt/format.h>

#include <algorithm>
#include <atomic>
#include <barrier>
#include <numeric>
#include <random>
#include <stdexcept>
#include <thread>

using namespace quorvane::database;
using quorvane::Field;
using quorvane::MaybeRefusal;
using quorvane::Refusal;
using quorvane::test::CuttingLine;
using quorvane::test::TestDatabase;
namespace test = quorvane::test;

namespace {

constexpr std::size_t kFirst = 0;

int NumberOf(Connection& connection, std::string_view sql) {
  auto rows = connection.Open(sql);
  return rows.Next() ? rows.Int(kFirst) : -1;
}

int Count(Connection& connection) {
  return NumberOf(connection, "Select Count(*) From T");
}

/// What another program sees.
int CountElsewhere(const TestDatabase& database) {
  Connection other(database.Settings());
  return Count(other);
}

void KillConnectionOf(const TestDatabase& database, Connection& connection) {
  const int number = NumberOf(connection, "Select Connection_Id()");
  Connection(database.Settings()).Execute(fmt::format("Kill {}", number));
}

}  // namespace

/// A unit of work happens wholly or not at all.
class TransactionTest : public QObject {
  Q_OBJECT

  std::optional<TestDatabase> database_;

 private Q_SLOTS:
  void init() {
    database_.emplace(TestDatabase::Tables::kNone);
    (*database_)->Execute("Create Table T(Id int Primary Key, Amount double) Engine=InnoDB");
  }

  void cleanup() { database_.reset(); }

 private:
  void Prepare() {
    for (const auto& skipped : quorvane::database::PrepareDatabase(**database_)) {
      QFAIL(skipped.reason.c_str());
    }
  }

 private Q_SLOTS:

  void CommittedWorkIsSeenByOthersAndNoEarlier() {
    Transaction transaction(**database_);
    transaction.Execute("Insert Into T Values(?,?)", 1, 1.5);
    QCOMPARE(CountElsewhere(*database_), 0);
    transaction.Commit();
    QCOMPARE(CountElsewhere(*database_), 1);
  }

  void AnExceptionRollsBack() {
    const auto work = [&] {
      Transaction transaction(**database_);
      transaction.Execute("Insert Into T Values(?,?)", 1, 1.5);
      throw std::runtime_error("disk full");
    };
    QVERIFY_EXCEPTION_THROWN(work(), std::runtime_error);
    QCOMPARE(CountElsewhere(*database_), 0);
  }

  void ASecondTransactionIsRefusedAndHarmsNotTheFirst() {
    Transaction transaction(**database_);
    transaction.Execute("Insert Into T Values(?,?)", 1, 1.5);
    QVERIFY_EXCEPTION_THROWN(Transaction second(**database_), std::logic_error);
    QVERIFY((*database_)->InTransaction());
    transaction.Commit();
    QCOMPARE(CountElsewhere(*database_), 1);
  }

  void OutsideATransactionEachStatementCommits() {
    for (const bool commit : {true, false}) {
      {
        Transaction transaction(**database_);
        if (commit) {
          transaction.Commit();
        }
      }
      QVERIFY(!(*database_)->InTransaction());
      (*database_)->Execute("Insert Into T Values(?,?)", commit ? 1 : 2, 0);
    }
    QCOMPARE(CountElsewhere(*database_), 2);
  }

  void RefusalRollsBackAndIsHandedOn() {
    const MaybeRefusal refusal =
        InTransaction(**database_, [](Transaction& transaction) -> MaybeRefusal {
          transaction.Execute("Insert Into T Values(?,?)", 1, 1.5);
          return Refusal{QStringLiteral("Enter Proper Date."), Field::kDate};
        });
    QVERIFY(refusal.has_value());
    QCOMPARE(refusal->field, Field::kDate);
    QCOMPARE(CountElsewhere(*database_), 0);
  }

  void WorkIsGivenUpAfterTheLastAttempt() {
    int runs = 0;
    const auto work = [&] {
      InTransaction(**database_, [&](Transaction& transaction) {
        ++runs;
        transaction.Execute("Insert Into T Values(?,?)", runs, 0);
        throw DatabaseError("40001", 1213, "Deadlock found", "");
      });
    };
    QVERIFY_EXCEPTION_THROWN(work(), DatabaseError);
    QCOMPARE(runs, kAttempts);
    QCOMPARE(CountElsewhere(*database_), 0);
  }

  void ErrorsOfTheWorkItselfAreNotTriedAgain() {
    int runs = 0;
    const auto work = [&] {
      InTransaction(**database_, [&](Transaction& transaction) {
        ++runs;
        transaction.Execute("Insert Into Nowhere Values(1)");
      });
    };
    QVERIFY_EXCEPTION_THROWN(work(), DatabaseError);
    QCOMPARE(runs, 1);
  }

  void WorkIsDoneAgainWhenTheConnectionWasKilled_data() {
    const test::Table<int> row;
    row("before the transaction", 0);
    row("before the first statement", 1);
    row("between two statements", 2);
  }
  void WorkIsDoneAgainWhenTheConnectionWasKilled() {
    const auto [when] = test::Table<int>::Row();
    Connection& connection = **database_;
    int runs = 0;
    const auto kill_at = [&](int place) {
      if (place == when && runs <= 1) {
        KillConnectionOf(*database_, connection);
      }
    };
    kill_at(0);
    QVERIFY(!InTransaction(connection, [&](Transaction& transaction) -> MaybeRefusal {
      ++runs;
      kill_at(1);
      transaction.Execute("Insert Into T Values(?,?)", 1, 1.5);
      kill_at(2);
      transaction.Execute("Insert Into T Values(?,?)", 2, 1.5);
      return std::nullopt;
    }));
    QCOMPARE(runs, when == 0 ? 1 : 2);
    QCOMPARE(CountElsewhere(*database_), 2);
    QVERIFY(connection.IsAlive() && !connection.InTransaction());
  }

  /// Writers that cross each other's locks in every order, more of them than tries.
  void NoDeadlockReachesTheUser() {
    constexpr int kWriters = 20;
    constexpr int kSaves = 5;
    constexpr int kRows = 6;
    Prepare();
    (*database_)->Execute(fmt::format("Insert Into T Select seq,0 From seq_1_to_{}", kRows));
    std::barrier start(kWriters);
    std::atomic<int> failures = 0;
    const auto write = [&](int number) {
      Connection connection(database_->Settings());
      std::vector<int> rows(kRows);
      std::iota(rows.begin(), rows.end(), 1);
      std::mt19937 chance(static_cast<unsigned>(number));
      start.arrive_and_wait();
      for (int save = 0; save < kSaves; ++save) {
        std::shuffle(rows.begin(), rows.end(), chance);
        try {
          InTransaction(connection, [&](Transaction& transaction) {
            for (const int row : rows) {
              transaction.Execute("Update T Set Amount=Amount+1 Where Id=?", row);
            }
          });
        } catch (const std::exception& error) {
          qWarning("%s", error.what());
          ++failures;
        }
      }
    };
    std::vector<std::thread> writers;
    for (int number = 0; number < kWriters; ++number) {
      writers.emplace_back(write, number);
    }
    for (std::thread& writer : writers) {
      writer.join();
    }
    QCOMPARE(failures.load(), 0);
    QCOMPARE(NumberOf(**database_, "Select Min(Amount) From T"), kWriters * kSaves);
    QCOMPARE(NumberOf(**database_, "Select Max(Amount) From T"), kWriters * kSaves);
  }

  void WorkAloneKeepsOthersWaitingFromItsFirstRead() {
    Prepare();
    Connection other(database_->Settings());
    other.Execute("Set Session innodb_lock_wait_timeout=1");
    InTransaction(
        **database_,
        [&](Transaction& transaction) {
          bool waited = false;
          try {
            Turns turns(other);
            turns.Await(Turn::kShared);
            Transaction second(other);
            turns.Take(second, Turn::kShared);
          } catch (const DatabaseError& error) {
            waited = error.IsTransient();
          }
          transaction.Execute("Insert Into T Values(1,?)", waited);
        },
        Turn::kAlone);
    QCOMPARE(NumberOf(**database_, "Select Amount From T"), 1);
  }

  /// A computation that keeps figures is no reason for others to compute them, too.
  void FiguresAreNoNewsOfRecords() {
    Prepare();
    Connection records(database_->Settings());
    Connection figures(database_->Settings());
    CommitMark::WritesFiguresOnly(figures);
    const auto commit = [](Connection& connection, int id) {
      InTransaction(connection, [&](Transaction& transaction) {
        transaction.Execute("Insert Into T Values(?,1)", id);
      });
    };
    commit(records, 1);
    const CommitMark::Others before = CommitMark::StateOfOthers(**database_);
    commit(figures, 2);
    const CommitMark::Others then = CommitMark::StateOfOthers(**database_);
    QVERIFY(then.all != before.all);
    QCOMPARE(then.records, before.records);
    commit(records, 3);
    QVERIFY(CommitMark::StateOfOthers(**database_).records != then.records);
  }

  /// The network goes away at the commit: before it reaches the server, or with its answer.
  void ACommitWithoutAnAnswerIsDoneExactlyOnce_data() {
    const test::Table<bool> row;
    row("lost on its way", false);
    row("answer lost", true);
  }
  void ACommitWithoutAnAnswerIsDoneExactlyOnce() {
    const auto [reaches_the_server] = test::Table<bool>::Row();
    Prepare();
    CuttingLine line(database_->Settings().socket, reaches_the_server);
    ConnectionSettings settings = database_->Settings();
    settings.socket = line.Socket();
    Connection connection(settings);
    int runs = 0;
    const auto save = [&] {
      return InTransaction(connection, [&](Transaction& transaction) -> MaybeRefusal {
        transaction.Execute("Insert Into T Values(?,?)", ++runs, 1.5);
        return std::nullopt;
      });
    };
    QVERIFY(!save());
    line.CutAtNextCommit();
    QVERIFY(!save());
    QVERIFY(line.HasCut());
    QCOMPARE(runs, reaches_the_server ? 2 : 3);
    QCOMPARE(CountElsewhere(*database_), 2);
  }

  /// Without the table of marks nobody knows whether a commit without an answer happened; doing the
  /// work again could record a bill twice.
  void WorkIsNotDoneAgainWhenTheConnectionIsLostAtTheCommit() {
    Connection& connection = **database_;
    int runs = 0;
    const auto work = [&] {
      InTransaction(connection, [&](Transaction& transaction) {
        ++runs;
        transaction.Execute("Insert Into T Values(?,?)", runs, 1.5);
        KillConnectionOf(*database_, connection);
      });
    };
    QVERIFY_EXCEPTION_THROWN(work(), DatabaseError);
    QCOMPARE(runs, 1);
    QVERIFY(!connection.InTransaction());
    QVERIFY(!InTransaction(connection, [](Transaction& transaction) -> MaybeRefusal {
      transaction.Execute("Insert Into T Values(?,?)", 7, 1.5);
      return std::nullopt;
    }));
    QCOMPARE(NumberOf(connection, "Select Id From T"), 7);
  }

  void ARecordsetOpenAtTheRollbackDoesNoHarm() {
    (*database_)->Execute("Insert Into T Select seq,seq From seq_1_to_3000");
    {
      Transaction transaction(**database_);
      auto rows = transaction.Open("Select Id From T Order By Id");
      QVERIFY(rows.Next());
      transaction.Execute("Delete From T");
    }
    QCOMPARE(Count(**database_), 3000);
  }

  void AnotherProgramsOpenTransactionDoesNotHoldUpASave() {
    Connection other(database_->Settings());
    Transaction reading(other);
    QCOMPARE(Count(other), 0);
    QVERIFY(!InTransaction(**database_, [](Transaction& transaction) -> MaybeRefusal {
      transaction.Execute("Insert Into T Values(?,?)", 1, 1.5);
      return std::nullopt;
    }));
    QCOMPARE(Count(other), 0);
  }
};

static const quorvane::test::RegisterTest<TransactionTest> kRegistered;
#include "TransactionTest.moc"
