#include "core/database/BulkWriter.h"
#include "core/ledger/Rebuild.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

#include <thread>

using namespace quorvane;
using namespace quorvane::ledger;

namespace {

using database::BulkWriter;
using database::Connection;

const ClientYear kOf{ClientId{1}, text::FinancialYear(2011)};
constexpr const char* kYear = "2011-12";

class Desk {
 public:
  Connection& operator*() { return *database_; }
  Connection* operator->() { return &*database_; }
  const database::ConnectionSettings& Settings() const { return database_.Settings(); }

  void Lot(int id, double quantity, int client = 1, const char* year = kYear) {
    database_->Execute("Insert Into Stock Values(?,?,?,2,3,?,100)", client, year, id, quantity);
  }
  void Opening(double quantity, const char* year = kYear) {
    database_->Execute("Insert Into StkOpBal Values(1,?,1,3,?,100,0,2,'01/01/2010',0,0,0,0)", year,
                       quantity);
  }

  std::size_t Rebuild(const std::optional<ClientYear>& of = kOf) {
    Progress progress;
    return RebuildStock(*database_, of, progress);
  }
  double Quantity(int id) {
    auto rows = database_->Open("Select Qty From Stock Where Id=?", id);
    return rows.Next() ? rows.Double(0) : -999;
  }
  int Count(const char* table) {
    auto rows = database_->Open(std::string("Select Count(*) From ") + table);
    rows.Next();
    return rows.Int(0);
  }

 private:
  test::TestDatabase database_;
};

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

}  // namespace

/// Documents and lots are written by hand, so that the rebuild is judged by what the tables say.
class RebuildTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // Account, scrip, rate, lot sold from, year and client of documents that must not count.
  void OnlyDocumentsOfTheLotsOwnPlaceCount_data() {
    const test::Table<int, int, double, int, std::string, int> row;
    row("other account", 7, 3, 100, 5, kYear, 1);
    row("other scrip", 2, 7, 100, 5, kYear, 1);
    row("other rate, sale of another lot", 2, 3, 101, 6, kYear, 1);
    row("other year", 2, 3, 100, 5, "2012-13", 1);
    row("other client", 2, 3, 100, 5, kYear, 7);
  }
  void OnlyDocumentsOfTheLotsOwnPlaceCount() {
    const auto [account, scrip, rate, lot, year, client] =
        test::Table<int, int, double, int, std::string, int>::Row();
    Desk desk;
    desk.Lot(5, 0);
    desk.Opening(10);
    desk->Execute("Insert Into StkOpBal Values(?,?,2,?,1000,?,0,?,'01/01/2010',0,0,0,0)", client,
                  year, scrip, rate, account);
    desk->Execute("Insert Into SPMaster Values(?,?,1,'1','01/05/2011',1,1,?,0,0,0,0,0,'')", client,
                  year, account);
    const char* line = "Insert Into SPTrans Values(?,?,1,?,?,?,?,?,?,0,0,0,0,0,0,0,'N.A.')";
    desk->Execute(line, client, year, 1, 1, 0, scrip, 2000, rate);
    desk->Execute(line, client, year, 2, 0, lot, scrip, 4000, 120);
    desk.Rebuild();
    QCOMPARE(desk.Quantity(5), 10.0);
  }

  void SecondRowOfALotIsDroppedOnceWhateverItsId() {
    for (const int second : {5, 6}) {
      Desk desk;
      desk.Lot(5, 10);
      desk.Lot(second, 7);
      desk.Opening(10);
      desk.Rebuild();
      QCOMPARE(desk.Count("Stock"), 1);
      QCOMPARE(desk.Quantity(5), 10.0);
    }
  }

  void OtherClientsAndYearsAreLeftAlone() {
    Desk desk;
    desk.Lot(5, 1);
    desk.Lot(6, 2, 7);
    desk.Lot(7, 3, 1, "2012-13");
    QCOMPARE(desk.Rebuild(), std::size_t{1});
    QCOMPARE(desk.Quantity(5), 0.0);
    QCOMPARE(desk.Quantity(6), 2.0);
    QCOMPARE(desk.Quantity(7), 3.0);
  }

  /// Another program saves a bill while the rebuild is between reading and writing.
  void BillSavedMeanwhileIsNotLost_data() {
    const test::Table<bool> row;
    row("one client", false);
    row("every client", true);
  }
  void BillSavedMeanwhileIsNotLost() {
    const auto [everything] = test::Table<bool>::Row();
    class Meanwhile : public Progress {
     public:
      explicit Meanwhile(const std::function<void()>& act) : act_(act) {}
      ~Meanwhile() override {
        if (other_.joinable()) {
          other_.join();
        }
      }
      void Begin(const QString& /*what*/, std::int64_t steps) override { steps_ = steps; }
      void Step(std::int64_t done) override {
        if (done == steps_) {
          other_ = std::thread(act_);
          QTest::qSleep(300);  // time to commit for a program that nothing holds up
        }
      }

     private:
      std::function<void()> act_;
      std::thread other_;
      std::int64_t steps_ = 0;
    };
    Desk desk;
    desk.Opening(10);
    desk.Lot(5, 3);
    Connection other(desk.Settings());
    {
      Meanwhile progress([&] {
        database::InTransaction(other, [](Transaction& transaction) {
          // A record locks the lots of its account before anything else.
          transaction.Open(
              "Select Id From Stock Where Cid=1 and Fyear='2011-12' and AcId=2 For Update");
          transaction.Execute("Insert Into SPMaster(Cid,Fyear,ID,AcId) Values(1,'2011-12',9,2)");
          transaction.Execute(
              "Insert Into SPTrans(Cid,Fyear,SID,Id,SP,StkId,ScriptId,Qty,Rate) "
              "Values(1,'2011-12',9,1,1,5,3,7,100)");
          transaction.Execute("Update Stock Set Qty=Qty+7 Where Id=5");
        });
      });
      RebuildStock(*desk, everything ? std::nullopt : std::optional(kOf), progress);
    }
    QCOMPARE(desk.Quantity(5), 17.0);
  }

  /// A rebuild that changes many lots goes another way to the server than one that changes a few.
  void EveryWrongLotIsSet_data() {
    const test::Table<int> row;
    row("a few", 9);
    row("many", 4500);
  }
  void EveryWrongLotIsSet() {
    const auto [lots] = test::Table<int>::Row();
    test::TestDatabase database;
    MakeLots(*database, lots);
    Progress progress;
    {
      Transaction rolled_back(*database);
      RebuildStock(rolled_back, kOf, progress);
    }
    // Lot 3 has its one share already.
    QCOMPARE(WrongLots(*database, lots), lots - 1);
    QCOMPARE(RebuildStock(*database, kOf, progress), static_cast<std::size_t>(lots) - 1);
    QCOMPARE(WrongLots(*database, lots), 0);
    database->Execute("Update Stock Set Qty=Qty+1 Where Cid=1");
    QCOMPARE(RebuildStock(*database, kOf, progress), static_cast<std::size_t>(lots));
    QCOMPARE(WrongLots(*database, lots), 0);
  }

  void CancellingChangesNothing() {
    class AtOnce : public Progress {
     public:
      bool Cancelled() const override { return true; }
    };
    Desk desk;
    desk.Lot(5, 1);
    AtOnce progress;
    QVERIFY_EXCEPTION_THROWN(RebuildStock(*desk, kOf, progress), Cancellation);
    QCOMPARE(desk.Quantity(5), 1.0);
  }

  void ScratchTableIsEmptyAfterwards() {
    Desk desk;
    desk->Execute("Insert Into Stock_Temp Values(1,'2011-12',9,2,3,5,10)");
    desk.Rebuild();
    QCOMPARE(desk.Count("Stock_Temp"), 0);
  }
};

static const quorvane::test::RegisterTest<RebuildTest> kRegistered;
#include "RebuildTest.moc"
