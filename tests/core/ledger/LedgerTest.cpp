#include "core/ledger/Ledger.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QTest>

using namespace quorvane;
using namespace quorvane::ledger;

class LedgerTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void NewRateMakesALotAboveBothTables();
  void SameRateJoinsItsLot();
  void NeighbouringDoubleIsAnotherLot();
  void KeyHoldsEveryPart_data();
  void KeyHoldsEveryPart();
  void SubtractingFromAMissingLotMakesIt();
  void LotMayReachNothingAndLess();
  void QuantitiesStayFreeOfBinaryDust();
  void AdjustingAnUnknownLotChangesNothing();
};

namespace {

const ClientYear kOf{ClientId{1}, text::FinancialYear(2011)};

LotKey Key(double rate) {
  return {kOf, AccountId{2}, ScripId{3}, rate};
}

LotId Post(database::Connection& connection, const LotKey& key, double quantity,
           Posting posting = Posting::kAdd, LotTable table = LotTable::kStock) {
  database::Transaction transaction(connection);
  const LotId lot = PostLot(transaction, posting, key, quantity, table);
  transaction.Commit();
  return lot;
}

}  // namespace

void LedgerTest::NewRateMakesALotAboveBothTables() {
  test::TestDatabase database;
  database->Execute("Insert Into Stock Values(9,'2010-11',40,1,1,5,10)");
  database->Execute("Insert Into Stock_Temp Values(9,'2010-11',70,1,1,5,10)");
  QCOMPARE(Post(*database, Key(101.5), 10).value, 71);
  QCOMPARE(Post(*database, Key(99), 10, Posting::kAdd, LotTable::kStockTemp).value, 72);
}

void LedgerTest::SameRateJoinsItsLot() {
  test::TestDatabase database;
  const LotId first = Post(*database, Key(101.5), 10);
  QCOMPARE(Post(*database, Key(101.5), 5), first);
  QCOMPARE(Post(*database, Key(101.5), 3, Posting::kSubtract), first);
  const auto lots = ReadLots(*database, kOf);
  QCOMPARE(lots.size(), std::size_t{1});
  QCOMPARE(lots.front().quantity, 12.0);
}

void LedgerTest::NeighbouringDoubleIsAnotherLot() {
  test::TestDatabase database;
  const double rate = 0.1 + 0.2;
  const LotId first = Post(*database, Key(rate), 10);
  QVERIFY(Post(*database, Key(0.3), 10) != first);
  QCOMPARE(Post(*database, Key(rate), 1), first);
  QVERIFY(ReadLots(*database, kOf).front().rate == rate);
}

void LedgerTest::KeyHoldsEveryPart_data() {
  QTest::addColumn<int>("client");
  QTest::addColumn<int>("year");
  QTest::addColumn<int>("account");
  QTest::addColumn<int>("scrip");
  QTest::newRow("client") << 7 << 2011 << 2 << 3;
  QTest::newRow("year") << 1 << 2012 << 2 << 3;
  QTest::newRow("account") << 1 << 2011 << 7 << 3;
  QTest::newRow("scrip") << 1 << 2011 << 2 << 7;
}

void LedgerTest::KeyHoldsEveryPart() {
  QFETCH(int, client);
  QFETCH(int, year);
  QFETCH(int, account);
  QFETCH(int, scrip);
  test::TestDatabase database;
  const LotId first = Post(*database, Key(100), 10);
  const LotKey other{
      {ClientId{client}, text::FinancialYear(year)}, AccountId{account}, ScripId{scrip}, 100};
  QVERIFY(Post(*database, other, 10) != first);
}

void LedgerTest::SubtractingFromAMissingLotMakesIt() {
  test::TestDatabase database;
  Post(*database, Key(100), 10, Posting::kSubtract);
  QCOMPARE(ReadLots(*database, kOf).front().quantity, 10.0);
}

void LedgerTest::LotMayReachNothingAndLess() {
  test::TestDatabase database;
  const LotId lot = Post(*database, Key(100), 10);
  for (const double left : {0.0, -10.0}) {
    database::Transaction transaction(*database);
    AdjustLotQty(transaction, Posting::kSubtract, lot, 10, LotTable::kStock);
    transaction.Commit();
    QCOMPARE(ReadLots(*database, kOf).front().quantity, left);
  }
}

void LedgerTest::QuantitiesStayFreeOfBinaryDust() {
  test::TestDatabase database;
  for (int i = 0; i < 10; ++i) {
    Post(*database, Key(100), 0.1);
  }
  QVERIFY(ReadLots(*database, kOf).front().quantity == 1.0);
  for (int i = 0; i < 3; ++i) {
    Post(*database, Key(100), 0.1, Posting::kSubtract);
  }
  QVERIFY(ReadLots(*database, kOf).front().quantity == 0.7);
}

void LedgerTest::AdjustingAnUnknownLotChangesNothing() {
  test::TestDatabase database;
  Post(*database, Key(100), 10);
  database::Transaction transaction(*database);
  AdjustLotQty(transaction, Posting::kAdd, LotId{999}, 5, LotTable::kStock);
  transaction.Commit();
  QCOMPARE(ReadLots(*database, kOf).front().quantity, 10.0);
}

static const quorvane::test::RegisterTest<LedgerTest> kRegistered;

#include "LedgerTest.moc"
