#include "core/app/Session.h"
#include "core/database/Transaction.h"
#include "core/platform/Processes.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

#include <csignal>

using namespace quorvane;
using database::DatabaseError;

class LostConnectionTest : public QObject {
  Q_OBJECT

  void Crash() {
    const std::int64_t process = session_->server->Process();
    kill(static_cast<pid_t>(process), SIGKILL);
    while (platform::IsRunning(process)) {
      QTest::qSleep(5);
    }
  }

  int Brokers() {
    auto rows = session_->connection->Open("Select Count(*) From Broker");
    return rows.Next() ? rows.Int(0) : -1;
  }

 private Q_SLOTS:
  void initTestCase() {
    app::StartUpOptions options;
    options.application_folder = folder_.filePath(QStringLiteral("app"));
    session_ = app::StartUp(options);
    session_->connection->Execute("Insert Into Broker(Id,Name) Values(1,'ONE')");
  }
  void cleanupTestCase() { session_.reset(); }

  void AQueryAfterTheServersDeathGetsItsAnswer() {
    QCOMPARE(Brokers(), 1);
    Crash();
    QCOMPARE(Brokers(), 1);
  }

  void InATransactionTheLossStays() {
    {
      database::Transaction transaction(*session_->connection);
      transaction.Execute("Insert Into Broker(Id,Name) Values(2,'TWO')");
      Crash();
      QVERIFY_THROWS_EXCEPTION(DatabaseError, transaction.Open("Select Id From Broker"));
      QVERIFY_THROWS_EXCEPTION(DatabaseError, transaction.Open("Select Id From Broker"));
    }
    QCOMPARE(Brokers(), 1);
  }

  void ASaveIsDoneAgainOnTheServerThatWasBroughtBack() {
    bool crashed = false;
    QVERIFY(!database::InTransaction(
        *session_->connection, [&](database::Transaction& transaction) -> MaybeRefusal {
          transaction.Execute("Insert Into Broker(Id,Name) Values(3,'THREE')");
          if (!std::exchange(crashed, true)) {
            Crash();
          }
          transaction.Execute("Update Broker Set City='Y'");
          return std::nullopt;
        }));
    QCOMPARE(Brokers(), 2);
  }

 private:
  QTemporaryDir folder_{test::TestFolderTemplate()};
  std::unique_ptr<app::Session> session_;
};

static const test::RegisterTest<LostConnectionTest> kRegistered;
#include "LostConnectionTest.moc"
