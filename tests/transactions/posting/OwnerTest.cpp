#include "core/database/Transaction.h"
#include "support/Records.h"
#include "support/Test.h"
#include "support/TestDatabase.h"
#include "transactions/posting/Owner.h"

using namespace quorvane;
using namespace quorvane::posting;

namespace {

using Check = std::function<MaybeRefusal(database::Transaction&, int id, int recorded)>;

constexpr Field kField = Field::kBroker;

}  // namespace

Q_DECLARE_METATYPE(Check)

/// Every table holds the record 1 and not the record 2.
class OwnerTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    database_ = std::make_unique<test::TestDatabase>();
    other_ = std::make_unique<database::Connection>(database_->Settings());
    (*database_)->Execute("Insert Into ClientInfo(Id) Values(1)");
    (*database_)->Execute("Insert Into ClientActDet(CId,id) Values(1,1)");
    (*database_)->Execute("Insert Into Broker(Id) Values(1)");
    (*database_)->Execute("Insert Into Script(Id) Values(1),(3)");
    other_->Execute("Set innodb_lock_wait_timeout=1");
  }
  void cleanupTestCase() {
    other_.reset();
    database_.reset();
  }

  void MissingRecordIsRefusedAndAStoredOneIsHeld_data() {
    // The last cell: whether a record may keep it although it was deleted.
    const test::Table<QString, bool, Check> row;
    row("Client", "ClientInfo", false, [](database::Transaction& transaction, int id, int) {
      return CheckClient(transaction, ClientId{id}, kField);
    });
    row("Demat A/c", "ClientActDet", true,
        [](database::Transaction& transaction, int id, int recorded) {
          return CheckAccount(transaction, ClientId{1}, AccountId{id}, AccountId{recorded}, kField);
        });
    row("Broker", "Broker", true, [](database::Transaction& transaction, int id, int recorded) {
      return CheckBroker(transaction, BrokerId{id}, BrokerId{recorded}, kField);
    });
    row("Script", "Script", true, [](database::Transaction& transaction, int id, int recorded) {
      const std::array scrips{ScripId{3}, ScripId{id}, ScripId{id}, ScripId{}};
      const std::array before{ScripId{recorded}};
      return CheckScrips(transaction, scrips, before, kField);
    });
  }
  void MissingRecordIsRefusedAndAStoredOneIsHeld() {
    const auto [table, may_stay, check] = test::Table<QString, bool, Check>::Row();
    {
      database::Transaction transaction(**database_);
      const MaybeRefusal refusal = check(transaction, 2, 0);
      QCOMPARE(test::TextOf(refusal),
               QStringLiteral("This %1 was Deleted in the Meantime.").arg(QTest::currentDataTag()));
      QCOMPARE(test::FieldOf(refusal), kField);
      QCOMPARE(!check(transaction, 2, 2), may_stay);
      QVERIFY(!check(transaction, 1, 0));
      QVERIFY_EXCEPTION_THROWN(Delete(table), database::DatabaseError);
    }
    const database::Transaction undone(*other_);
    Delete(table);
  }

 private:
  void Delete(const QString& table) {
    other_->Execute(fmt::format("Delete From {} Where id=1", table.toStdString()));
  }

  std::unique_ptr<test::TestDatabase> database_;
  std::unique_ptr<database::Connection> other_;
};

static const test::RegisterTest<OwnerTest> kRegistered;
#include "OwnerTest.moc"
