#include "core/database/BulkWriter.h"
#include "core/ledger/Rebuild.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QTest>

using namespace quorvane;
using namespace quorvane::ledger;

/// A rebuild that changes many lots goes another way to the server than one that changes a few;
/// what it leaves must not show which.
class ManyLotsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void EveryWrongLotIsSet_data();
  void EveryWrongLotIsSet();
  void RolledBackRebuildCanBeDoneAgain_data() { EveryWrongLotIsSet_data(); }
  void RolledBackRebuildCanBeDoneAgain();
  void LastQuantityCountsForTwoLotsOfOneId_data() { EveryWrongLotIsSet_data(); }
  void LastQuantityCountsForTwoLotsOfOneId();
};

namespace {

using database::BulkWriter;
using database::Connection;
using database::Transaction;

/// Lots 1 to `lots` of an opening of as many thirds of a share as their id, all with a quantity of
/// 1, and between them a lot of another client that the rebuild has no business with.
void MakeLots(Connection& connection, int lots) {
  Transaction transaction(connection);
  BulkWriter stock(transaction, "Insert Into Stock Values(?,'2011-12',?,2,3,1,?)", "iid");
  BulkWriter opening(transaction,
                     "Insert Into StkOpBal Values(1,'2011-12',?,3,?,?,0,2,'01/01/2010',0,0,0,0)",
                     "idd");
  for (int id = 1; id <= lots; ++id) {
    stock.Int(1).Int(id).Double(id).EndRow();
    opening.Int(id).Double(id / 3.0).Double(id).EndRow();
  }
  stock.Int(7).Int(lots + 1).Double(5).EndRow();
  stock.Finish();
  opening.Finish();
  transaction.Commit();
}

int WrongLots(Connection& connection, int lots) {
  auto rows = connection.Open(
      "Select Count(*) From Stock Where Qty<>If(Cid=1,Round(Id/3,6),1) And Id<=?", lots + 1);
  rows.Next();
  return rows.Int(0);
}

const ClientYear kOf{ClientId{1}, text::FinancialYear(2011)};

}  // namespace

void ManyLotsTest::EveryWrongLotIsSet_data() {
  QTest::addColumn<int>("lots");
  QTest::newRow("a few") << 9;
  QTest::newRow("many") << 4500;
}

void ManyLotsTest::EveryWrongLotIsSet() {
  QFETCH(int, lots);
  test::TestDatabase database;
  MakeLots(*database, lots);
  Progress progress;
  // Lot 3 has its one share already.
  QCOMPARE(RebuildStock(*database, kOf, progress), static_cast<std::size_t>(lots) - 1);
  QCOMPARE(WrongLots(*database, lots), 0);
  database->Execute("Update Stock Set Qty=Qty+1 Where Cid=1");
  QCOMPARE(RebuildStock(*database, kOf, progress), static_cast<std::size_t>(lots));
  QCOMPARE(WrongLots(*database, lots), 0);
}

void ManyLotsTest::RolledBackRebuildCanBeDoneAgain() {
  QFETCH(int, lots);
  test::TestDatabase database;
  MakeLots(*database, lots);
  Progress progress;
  {
    Transaction transaction(*database);
    RebuildStock(transaction, kOf, progress);
  }
  QCOMPARE(WrongLots(*database, lots), lots - 1);
  RebuildStock(*database, kOf, progress);
  QCOMPARE(WrongLots(*database, lots), 0);
}

void ManyLotsTest::LastQuantityCountsForTwoLotsOfOneId() {
  QFETCH(int, lots);
  test::TestDatabase database;
  MakeLots(*database, lots);
  database->Execute("Insert Into Stock Values(1,'2011-12',5,2,3,1,0.5)");
  database->Execute("Insert Into StkOpBal Values(1,'2011-12',0,3,8,0.5,0,2,'01/01/2010',0,0,0,0)");
  Progress progress;
  std::vector<double> quantities;
  for (const LotChange& change : CheckStock(*database, kOf, progress).changes) {
    if (change.lot.id == LotId{5}) {
      quantities.push_back(change.quantity.Number());
    }
  }
  QCOMPARE(quantities.size(), std::size_t{2});
  RebuildStock(*database, kOf, progress);
  auto rows = database->Open("Select Qty From Stock Where Id=5");
  while (rows.Next()) {
    QCOMPARE(rows.Double(0), quantities.back());
  }
}

namespace {
const quorvane::test::RegisterTest<ManyLotsTest> kRegistered;
}  // namespace

#include "ManyLotsTest.moc"
