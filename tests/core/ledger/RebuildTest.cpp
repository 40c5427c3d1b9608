#include "core/ledger/Rebuild.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QTest>

#include <functional>
#include <thread>

using namespace quorvane;
using namespace quorvane::ledger;

/// Documents and lots are written by hand, so that the rebuild is judged by what the tables say.
class RebuildTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void SumsDocumentsOfTheLot();
  void OnlyDocumentsOfTheLotsOwnPlaceCount_data();
  void OnlyDocumentsOfTheLotsOwnPlaceCount();
  void TransferFromAnotherClientCounts();
  void SoldOutLotStays();
  void MissingLotIsNotMade();
  void SecondRowOfALotIsDropped();
  void SecondRowOfOneIdIsDroppedOnce();
  void OtherClientsAndYearsAreLeftAlone();
  void EverythingIsRebuiltWithoutAScope();
  void RightLedgerIsNotTouched();
  void BillSavedMeanwhileIsNotLost_data();
  void BillSavedMeanwhileIsNotLost();
  void CancellingChangesNothing();
  void ScratchTableIsEmptyAfterwards();
};

namespace {

const ClientYear kOf{ClientId{1}, text::FinancialYear(2011)};
constexpr const char* kYear = "2011-12";

class Desk {
 public:
  database::Connection& operator*() { return *database_; }
  database::Connection* operator->() { return &*database_; }
  const database::ConnectionSettings& Settings() const { return database_.Settings(); }

  void Lot(int id, double quantity, double rate = 100, int client = 1, int account = 2,
           const char* year = kYear) {
    database_->Execute("Insert Into Stock Values(?,?,?,?,3,?,?)", client, year, id, account,
                       quantity, rate);
  }
  void Opening(double quantity, double rate = 100, int account = 2, int scrip = 3,
               const char* year = kYear, int client = 1) {
    database_->Execute("Insert Into StkOpBal Values(?,?,1,?,?,?,0,?,'01/01/2010',0,0,0,0)", client,
                       year, scrip, quantity, rate, account);
  }
  void Line(int side, double quantity, double rate, int lot, int account = 2, int scrip = 3,
            const char* year = kYear, int client = 1) {
    ++bill_;
    database_->Execute("Insert Into SPMaster Values(?,?,?,'1','01/05/2011',1,1,?,0,0,0,0,0,'')",
                       client, year, bill_, account);
    database_->Execute("Insert Into SPTrans Values(?,?,?,1,?,?,?,?,?,0,0,0,0,0,0,0,'N.A.')", client,
                       year, bill_, side, lot, scrip, quantity, rate);
  }
  void Transfer(int from, int to, double quantity, double rate = 100, const char* year = kYear) {
    database_->Execute("Insert Into ScrTransfer Values(8,?,1,'01/06/2011',?,1,?,9,0,3,?,?)", year,
                       from, to, rate, quantity);
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
  int bill_ = 0;
};

}  // namespace

void RebuildTest::SumsDocumentsOfTheLot() {
  Desk desk;
  desk.Lot(5, 0);
  desk.Opening(10);
  desk.Opening(4);
  desk.Line(1, 20, 100, 0);
  desk.Line(0, 7, 130, 5);
  desk.Transfer(2, 6, 3);
  desk.Transfer(6, 2, 1);
  QCOMPARE(desk.Rebuild(), std::size_t{1});
  QCOMPARE(desk.Quantity(5), 10.0 + 4 + 20 - 7 - 3 + 1);
}

void RebuildTest::OnlyDocumentsOfTheLotsOwnPlaceCount_data() {
  QTest::addColumn<int>("account");
  QTest::addColumn<int>("scrip");
  QTest::addColumn<double>("rate");
  QTest::addColumn<int>("sold_lot");
  QTest::addColumn<QString>("year");
  QTest::addColumn<int>("client");
  QTest::newRow("other account") << 7 << 3 << 100.0 << 5 << kYear << 1;
  QTest::newRow("other scrip") << 2 << 7 << 100.0 << 5 << kYear << 1;
  QTest::newRow("other rate, sale of another lot") << 2 << 3 << 101.0 << 6 << kYear << 1;
  QTest::newRow("other year") << 2 << 3 << 100.0 << 5 << "2012-13" << 1;
  QTest::newRow("other client") << 2 << 3 << 100.0 << 5 << kYear << 7;
}

void RebuildTest::OnlyDocumentsOfTheLotsOwnPlaceCount() {
  QFETCH(int, account);
  QFETCH(int, scrip);
  QFETCH(double, rate);
  QFETCH(int, sold_lot);
  QFETCH(QString, year);
  QFETCH(int, client);
  const QByteArray fyear = year.toUtf8();
  Desk desk;
  desk.Lot(5, 0);
  desk.Opening(10);
  desk.Opening(1000, rate, account, scrip, fyear.constData(), client);
  desk.Line(1, 2000, rate, 0, account, scrip, fyear.constData(), client);
  desk.Line(0, 4000, 120, sold_lot, account, scrip, fyear.constData(), client);
  desk.Rebuild();
  QCOMPARE(desk.Quantity(5), 10.0);
}

void RebuildTest::TransferFromAnotherClientCounts() {
  Desk desk;
  desk.Lot(5, 0);
  desk.Transfer(77, 2, 30);
  desk.Transfer(77, 2, 30, 101);
  desk.Transfer(77, 2, 30, 100, "2012-13");
  desk.Rebuild();
  QCOMPARE(desk.Quantity(5), 30.0);
}

void RebuildTest::SoldOutLotStays() {
  Desk desk;
  desk.Lot(5, 8);
  desk.Line(1, 10, 100, 5);
  desk.Line(0, 10, 120, 5);
  desk.Rebuild();
  QCOMPARE(desk.Quantity(5), 0.0);
}

void RebuildTest::MissingLotIsNotMade() {
  Desk desk;
  desk.Line(1, 10, 100, 5);
  QCOMPARE(desk.Rebuild(), std::size_t{0});
  QCOMPARE(desk.Count("Stock"), 0);
}

void RebuildTest::SecondRowOfALotIsDropped() {
  Desk desk;
  desk.Lot(5, 3);
  desk.Lot(6, 7);
  desk.Opening(10);
  desk.Rebuild();
  QCOMPARE(desk.Count("Stock"), 1);
  QCOMPARE(desk.Quantity(5), 10.0);
}

void RebuildTest::SecondRowOfOneIdIsDroppedOnce() {
  Desk desk;
  desk.Lot(5, 10);
  desk.Lot(5, 7);
  desk.Opening(10);
  desk.Rebuild();
  QCOMPARE(desk.Count("Stock"), 1);
  QCOMPARE(desk.Quantity(5), 10.0);
}

void RebuildTest::OtherClientsAndYearsAreLeftAlone() {
  Desk desk;
  desk.Lot(5, 1);
  desk.Lot(6, 2, 100, 7);
  desk.Lot(7, 3, 100, 1, 2, "2012-13");
  QCOMPARE(desk.Rebuild(), std::size_t{1});
  QCOMPARE(desk.Quantity(5), 0.0);
  QCOMPARE(desk.Quantity(6), 2.0);
  QCOMPARE(desk.Quantity(7), 3.0);
}

void RebuildTest::EverythingIsRebuiltWithoutAScope() {
  Desk desk;
  desk.Lot(5, 1);
  desk.Lot(6, 2, 100, 7);
  desk.Lot(7, 3, 100, 1, 2, "2012-13");
  desk.Opening(40, 100, 2, 3, "2012-13");
  QCOMPARE(desk.Rebuild(std::nullopt), std::size_t{3});
  QCOMPARE(desk.Quantity(6), 0.0);
  QCOMPARE(desk.Quantity(7), 40.0);
}

void RebuildTest::RightLedgerIsNotTouched() {
  Desk desk;
  desk.Lot(5, 0.3);
  desk.Opening(0.1);
  desk.Opening(0.2);
  QCOMPARE(desk.Rebuild(), std::size_t{0});
  QVERIFY(desk.Quantity(5) == 0.3);
}

/// Another program saves a bill while the rebuild is between reading and writing.
void RebuildTest::BillSavedMeanwhileIsNotLost_data() {
  QTest::addColumn<bool>("everything");
  QTest::newRow("one client") << false;
  QTest::newRow("every client") << true;
}

void RebuildTest::BillSavedMeanwhileIsNotLost() {
  QFETCH(const bool, everything);
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
  database::Connection other(desk.Settings());
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

void RebuildTest::CancellingChangesNothing() {
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

void RebuildTest::ScratchTableIsEmptyAfterwards() {
  Desk desk;
  desk->Execute("Insert Into Stock_Temp Values(1,'2011-12',9,2,3,5,10)");
  desk.Rebuild();
  QCOMPARE(desk.Count("Stock_Temp"), 0);
}

static const quorvane::test::RegisterTest<RebuildTest> kRegistered;

#include "RebuildTest.moc"
