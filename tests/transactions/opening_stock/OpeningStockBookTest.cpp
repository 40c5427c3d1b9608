#include "core/gains/RemainingLots.h"
#include "core/ledger/Rebuild.h"
#include "support/Desk.h"
#include "support/TestMain.h"
#include "transactions/bills/BillBook.h"
#include "transactions/opening_stock/OpeningStockBook.h"

#include <QTest>

#include <atomic>
#include <functional>
#include <thread>

using namespace quorvane;
using namespace quorvane::opening_stock;
using gains::RemainingLot;
using test::Desk;
using test::kAccepted;
using test::kNegativeReliance;
using test::TextOf;

namespace {

using Edit = std::function<void(const Desk&, OpeningLot&)>;

}  // namespace

Q_DECLARE_METATYPE(Edit)

class OpeningStockBookTest : public QObject {
  Q_OBJECT

  OpeningStockBook Book() { return {desk_->Connection(), desk_->of}; }

  MaybeRefusal Carry(const std::vector<RemainingLot>& lots) {
    return database::InTransaction(desk_->Connection(), [&](database::Transaction& transaction) {
      return CarryForward(transaction, desk_->of, lots);
    });
  }

  OpeningLot Lot(double quantity, double rate) const {
    OpeningLot lot;
    lot.scrip = desk_->scrip;
    lot.account = desk_->account;
    lot.quantity = Shares(quantity);
    lot.rate = rate;
    lot.total = OpeningTotal(Shares(quantity), rate, 0);
    lot.purchase_date = QStringLiteral("01/03/2010");
    return lot;
  }

  RemainingLot Carried(double quantity, double rate) const {
    RemainingLot lot;
    lot.client = desk_->client;
    lot.account = desk_->account;
    lot.scrip = desk_->scrip;
    lot.date = text::MakeDate(1, 3, 2010).value();
    lot.quantity = quantity;
    lot.rate = rate;
    lot.brokerage = 0.5;
    lot.total = OpeningTotal(Shares(quantity), rate, 0.5);
    lot.service_tax = 1.25;
    lot.stt = 0.75;
    return lot;
  }

  void Sell(double quantity, double lot_rate) {
    records::Bill bill = desk_->NewBill({desk_->Sale(quantity, 150, desk_->IdOfLot(lot_rate))});
    QVERIFY(!bills::BillBook(desk_->Connection(), desk_->of).Save(bill));
  }

  std::optional<Desk> desk_;

 private Q_SLOTS:
  void initTestCase() { desk_.emplace(); }
  void init() { desk_->Empty(); }
  void cleanupTestCase() { desk_.reset(); }

  void SavedLotIsWrittenAndPosted() {
    OpeningLot lot = Lot(10.5, 33.333333);
    lot.total = 350;
    lot.service_tax = 1.25;
    lot.stt = 0.75;
    lot.fo = true;
    QVERIFY(!Book().Save(lot));
    QCOMPARE(lot.id.value, 1);
    QCOMPARE(desk_->Contents("StkOpBal"),
             QStringList(QStringLiteral("StkOpBal|1|2011-12|1|1|10.5|33.333333|350|1|01/03/2010|"
                                        "1.25|0|0.75|1")));
    QCOMPARE(desk_->LotAt(33.333333), QStringLiteral("10.5@33.333333"));
  }

  void LotsOfOneRateShareALotOfTheLedger() {
    OpeningLot first = Lot(10, 100);
    OpeningLot second = Lot(5, 100);
    second.purchase_date = QStringLiteral("01/05/2010");
    QVERIFY(!Book().Save(first));
    QVERIFY(!Book().Save(second));
    QCOMPARE(second.id.value, 2);
    QCOMPARE(desk_->LotAt(100), QStringLiteral("15@100"));
    QCOMPARE(Book().List().size(), std::size_t{2});
  }

  void LotOfAClientDeletedMeanwhileIsRefused() {
    const ClientId client = desk_->database.AddClient(QStringLiteral("C3"));
    OpeningLot lot = Lot(10, 100);
    lot.account = desk_->database.AddAccount(client, QStringLiteral("3001"));
    desk_->Connection().Execute("Delete From ClientInfo Where Id=?", client);
    QCOMPARE(TextOf(OpeningStockBook(desk_->Connection(), {client, desk_->year}).Save(lot)),
             QStringLiteral("This Client was Deleted in the Meantime."));
    QVERIFY(desk_->Everything().isEmpty());
  }

  void SharesAreRecordedAsTheLedgerKeepsThem() {
    for (const double quantity : {1.0000004, 2.0000004}) {
      OpeningLot lot = Lot(quantity, 100);
      QVERIFY(!Book().Save(lot));
    }
    Progress silent;
    QVERIFY(ledger::CheckStock(desk_->Connection(), desk_->of, silent).changes.empty());
  }

  void ChangeMovesTheDifference() {
    OpeningLot lot = Lot(10, 100);
    QVERIFY(!Book().Save(lot));
    lot.quantity = Shares(4);
    QVERIFY(!Book().Save(lot));
    QCOMPARE(desk_->LotAt(100), QStringLiteral("4@100"));
    lot.rate = 90;
    lot.account = desk_->second_account;
    QVERIFY(!Book().Save(lot));
    QCOMPARE(desk_->LotAt(100), QStringLiteral("0@100"));
    QCOMPARE(desk_->LotAt(desk_->of, desk_->second_account, desk_->scrip, 90),
             QStringLiteral("4@90"));
    QCOMPARE(Book().List().size(), std::size_t{1});
    QCOMPARE(Book().List().front().id, lot.id);
  }

  void ChangeIsRefusedWhenSoldSharesWouldBeMissing_data() {
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QString>("text");
    // The lot brought 10 at 100, of which 6 are sold.
    QTest::newRow("fewer than sold")
        << Edit([](const Desk&, OpeningLot& lot) { lot.quantity = Shares(5.999999); })
        << kNegativeReliance;
    QTest::newRow("as many as sold")
        << Edit([](const Desk&, OpeningLot& lot) { lot.quantity = Shares(6); }) << kAccepted;
    QTest::newRow("another rate") << Edit([](const Desk&, OpeningLot& lot) { lot.rate = 101; })
                                  << kNegativeReliance;
    QTest::newRow("another account")
        << Edit([](const Desk& desk, OpeningLot& lot) { lot.account = desk.second_account; })
        << kNegativeReliance;
    QTest::newRow("only the date") << Edit([](const Desk&, OpeningLot& lot) {
      lot.purchase_date = QStringLiteral("02/03/2010");
    }) << kAccepted;
  }
  void ChangeIsRefusedWhenSoldSharesWouldBeMissing() {
    QFETCH(Edit, edit);
    QFETCH(QString, text);
    OpeningLot lot = Lot(10, 100);
    QVERIFY(!Book().Save(lot));
    Sell(6, 100);
    const QStringList before = desk_->Everything();
    edit(*desk_, lot);
    QCOMPARE(TextOf(Book().Save(lot)), text);
    QCOMPARE(desk_->Everything() == before, text != kAccepted);
  }

  void DeleteTakesTheLotOutUnlessItWasSold() {
    OpeningLot lot = Lot(10, 100);
    OpeningLot other = Lot(5, 90);
    QVERIFY(!Book().Save(lot));
    QVERIFY(!Book().Save(other));
    Sell(6, 100);
    QCOMPARE(TextOf(Book().Delete(lot.id)), kNegativeReliance);
    QCOMPARE(Book().List().size(), std::size_t{2});
    QVERIFY(!Book().Delete(other.id));
    QCOMPARE(desk_->LotAt(90), QStringLiteral("0@90"));
    QCOMPARE(desk_->LotAt(100), QStringLiteral("4@100"));
    QCOMPARE(Book().List().size(), std::size_t{1});
  }

  void CarryForwardWritesOneRowALot() {
    QVERIFY(!Carry({Carried(10, 100), Carried(5, 90)}));
    QCOMPARE(desk_->LotAt(100), QStringLiteral("10@100"));
    QCOMPARE(desk_->Contents("StkOpBal").first(),
             QStringLiteral("StkOpBal|1|2011-12|1|1|10|100|1005|1|01/03/2010|1.25|0.5|0.75|0"));
  }

  void CarryForwardTwiceLeavesOneRowALot() {
    // Two lots that do not differ in anything are still two lots.
    const std::vector<RemainingLot> lots{Carried(10, 100), Carried(5, 33.333333), Carried(10, 100)};
    QVERIFY(!Carry(lots));
    QVERIFY(!Carry(lots));
    QCOMPARE(Book().List().size(), std::size_t{3});
    QCOMPARE(desk_->LotAt(100), QStringLiteral("20@100"));
    QCOMPARE(desk_->LotAt(33.333333), QStringLiteral("5@33.333333"));
  }

  void CarryForwardLeavesOtherOpeningRows() {
    OpeningLot differs = Lot(10, 100);
    QVERIFY(!Book().Save(differs));
    QVERIFY(!Carry({Carried(10, 100)}));
    QCOMPARE(Book().List().size(), std::size_t{2});
    QCOMPARE(desk_->LotAt(100), QStringLiteral("20@100"));
  }

  void CarryForwardAgainWorksWhenCarriedSharesWereSold() {
    QVERIFY(!Carry({Carried(10, 100)}));
    Sell(6, 100);
    QVERIFY(!Carry({Carried(10, 100)}));
    QCOMPARE(desk_->LotAt(100), QStringLiteral("4@100"));
    QCOMPARE(Book().List().size(), std::size_t{1});
  }

  void RemainingLotsOfAYearBecomeOpeningLotsOfTheNext() {
    const ClientYear next{desk_->client, desk_->year.Next()};
    QVERIFY(!HasLotsToCarryForward(desk_->Connection(), next));
    OpeningLot lot = Lot(10, 100);
    lot.brokerage = 0.5;
    QVERIFY(!Book().Save(lot));
    Sell(6, 100);
    QVERIFY(HasLotsToCarryForward(desk_->Connection(), next));
    for (int i = 0; i < 2; ++i) {
      Progress silent;
      std::size_t carried = 0;
      QVERIFY(!CarryForward(desk_->Connection(), next, silent, carried));
      QCOMPARE(carried, std::size_t{1});
    }
    const auto openings = OpeningStockBook(desk_->Connection(), next).List();
    QCOMPARE(openings.size(), std::size_t{1});
    QCOMPARE(openings.front().quantity.Number(), 4.0);
    QCOMPARE(openings.front().total, 402.0);
    QCOMPARE(openings.front().purchase_date, lot.purchase_date);
    QCOMPARE(desk_->LotAt(next, desk_->account, desk_->scrip, 100), QStringLiteral("4@100"));
    QCOMPARE(desk_->LotAt(100), QStringLiteral("4@100"));
  }

  /// A sale that was reported as saved before the lots are written must be counted; so another
  /// program that sells once they are being worked out has to wait.
  void SaleOfTheYearBeforeWaitsForTheCarryForward() {
    class Meanwhile : public Progress {
     public:
      explicit Meanwhile(std::function<void()> act) : act_(std::move(act)) {}
      ~Meanwhile() override { other_.join(); }
      void Begin(const QString&, std::int64_t) override {
        if (other_.joinable()) {
          return;
        }
        other_ = std::thread([this] {
          act_();
          done = true;
        });
        QTest::qSleep(300);  // time to commit for a program that nothing holds up
        done_at_once = done;
      }

      std::atomic<bool> done = false;
      bool done_at_once = false;

     private:
      std::function<void()> act_;
      std::thread other_;
    };
    const ClientYear next{desk_->client, desk_->year.Next()};
    OpeningLot lot = Lot(10, 100);
    QVERIFY(!Book().Save(lot));
    records::Bill sale = desk_->NewBill({desk_->Sale(6, 120, desk_->IdOfLot(100))});
    database::Connection other(desk_->database.Settings());
    {
      Meanwhile progress([&] { static_cast<void>(bills::BillBook(other, desk_->of).Save(sale)); });
      std::size_t carried = 0;
      QVERIFY(!CarryForward(desk_->Connection(), next, progress, carried));
      QVERIFY(!progress.done_at_once);
    }
    QCOMPARE(OpeningStockBook(desk_->Connection(), next).List().front().quantity.Number(), 10.0);
    QCOMPARE(desk_->LotAt(100), QStringLiteral("4@100"));
  }
};

static const quorvane::test::RegisterTest<OpeningStockBookTest> kRegistered;
#include "OpeningStockBookTest.moc"
