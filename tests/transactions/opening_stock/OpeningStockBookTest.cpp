#include "core/gains/RemainingLots.h"
#include "core/ledger/Rebuild.h"
#include "support/DatabaseTest.h"
#include "transactions/bills/BillBook.h"
#include "transactions/opening_stock/OpeningEntry.h"
#include "transactions/opening_stock/OpeningStock.h"
#include "transactions/opening_stock/OpeningStockBook.h"

#include <atomic>
#include <thread>

using namespace quorvane;
using namespace quorvane::opening_stock;
using enum OpeningBox;
using gains::RemainingLot;
using test::Desk;
using test::Exact;
using test::FieldOf;
using test::kAccepted;
using test::kNegativeReliance;
using test::TextOf;

namespace {

using Edit = std::function<void(const Desk&, OpeningLot&)>;

const text::FinancialYear kYear(2011);

/// As a bill left it the year before: more decimals than the boxes show, and brokerage.
OpeningLot CarriedLot() {
  OpeningLot lot;
  lot.id = OpeningId{7};
  lot.quantity = Shares(1000);
  lot.rate = 364.125;
  lot.brokerage = 0.55;
  lot.total = 364675;
  lot.purchase_date = QStringLiteral("06/04/2010");
  lot.service_tax = 4.166;
  lot.stt = 20.4875;
  return lot;
}

}  // namespace

Q_DECLARE_METATYPE(Edit)

class OpeningStockBookTest : public test::DeskTest {
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
    QVERIFY(!test::Save(bills::BillBook(desk_->Connection(), desk_->of), bill));
  }

 private Q_SLOTS:
  void SavedLotIsWrittenAndPosted() {
    OpeningLot lot = Lot(10.5, 33.333333);
    lot.total = 350;
    lot.service_tax = 1.25;
    lot.stt = 0.75;
    lot.fo = true;
    QVERIFY(!test::Save(Book(), lot));
    QCOMPARE(lot.id.value, 1);
    QCOMPARE(desk_->Contents("StkOpBal"),
             QStringList("StkOpBal|1|2011-12|1|1|10.5|33.333333|350|1|01/03/2010|"
                         "1.25|0|0.75|1"));
    QCOMPARE(desk_->LotAt(33.333333), "10.5@33.333333");
  }

  void SharesAreRecordedAsTheLedgerKeepsThem() {
    for (const double quantity : {1.0000004, 2.0000004}) {
      OpeningLot lot = Lot(quantity, 100);
      QVERIFY(!test::Save(Book(), lot));
    }
    Progress silent;
    QVERIFY(ledger::CheckStock(desk_->Connection(), desk_->of, silent).changes.empty());
  }

  void ChangeIsRefusedWhenSoldSharesWouldBeMissing_data() {
    const test::Table<Edit, QString> row;
    // The lot brought 10 at 100, of which 6 are sold.
    row("fewer than sold",
        Edit([](const Desk&, OpeningLot& lot) { lot.quantity = Shares(5.999999); }),
        kNegativeReliance);
    row("as many as sold", Edit([](const Desk&, OpeningLot& lot) { lot.quantity = Shares(6); }),
        kAccepted);
  }
  void ChangeIsRefusedWhenSoldSharesWouldBeMissing() {
    const auto [edit, text] = test::Table<Edit, QString>::Row();
    OpeningLot lot = Lot(10, 100);
    QVERIFY(!test::Save(Book(), lot));
    Sell(6, 100);
    const QStringList before = desk_->Everything();
    edit(*desk_, lot);
    QCOMPARE(TextOf(test::Save(Book(), lot)), text);
    QCOMPARE(desk_->Everything() == before, text != kAccepted);
  }

  void DeleteTakesTheLotOutUnlessItWasSold() {
    OpeningLot lot = Lot(10, 100);
    OpeningLot other = Lot(5, 90);
    QVERIFY(!test::Save(Book(), lot));
    QVERIFY(!test::Save(Book(), other));
    Sell(6, 100);
    QCOMPARE(TextOf(Book().Delete(lot.id)), kNegativeReliance);
    QCOMPARE(Book().List().size(), std::size_t{2});
    QVERIFY(!Book().Delete(other.id));
    QCOMPARE(desk_->LotAt(90), "0@90");
    QCOMPARE(desk_->LotAt(100), "4@100");
    QCOMPARE(Book().List().size(), std::size_t{1});
  }

  void CarryForwardLeavesOtherOpeningRows() {
    OpeningLot differs = Lot(10, 100);
    QVERIFY(!test::Save(Book(), differs));
    QVERIFY(!Carry({Carried(10, 100)}));
    QCOMPARE(Book().List().size(), std::size_t{2});
    QCOMPARE(desk_->LotAt(100), "20@100");
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
    QVERIFY(!test::Save(Book(), lot));
    records::Bill sale = desk_->NewBill({desk_->Sale(6, 120, desk_->IdOfLot(100))});
    database::Connection other(desk_->database.Settings());
    {
      Meanwhile progress(
          [&] { static_cast<void>(test::Save(bills::BillBook(other, desk_->of), sale)); });
      QVERIFY(CarryForward(desk_->Connection(), next, progress));
      QVERIFY(!progress.done_at_once);
    }
    QCOMPARE(OpeningStockBook(desk_->Connection(), next).List().front().quantity.Number(), 10.0);
    QCOMPARE(desk_->LotAt(100), "4@100");
  }

  void TotalIsQuantityTimesRateWithBrokerage_data() {
    const test::Table<double, double, double, double> row;
    row("brokerage of a share", 3.0, 100.0, 0.335, 301.01);
    row("half a paisa goes up", 0.5, 2.01, 0.0, 1.01);
    row("dust is no half paisa", 5.0, 0.1, 0.2, 1.5);
  }
  void TotalIsQuantityTimesRateWithBrokerage() {
    const auto [quantity, rate, brokerage, total] =
        test::Table<double, double, double, double>::Row();
    QCOMPARE(test::Exact(OpeningTotal(Shares(quantity), rate, brokerage)), test::Exact(total));
  }
  void LotIsCheckedInOrder() {
    const text::FinancialYear year(2011);
    OpeningLot lot;
    const auto expect = [&](const char* text, Field field) {
      const MaybeRefusal refusal = CheckOpening(lot, year);
      QCOMPARE(TextOf(refusal), QString::fromLatin1(text));
      QCOMPARE(FieldOf(refusal), field);
    };
    expect("Select Script Name.", Field::kScrip);
    lot.scrip = ScripId{1};
    expect("Enter Quantity Greater than Zero.", Field::kQuantity);
    lot.quantity = Shares(-1);
    expect("Enter Quantity Greater than Zero.", Field::kQuantity);
    lot.quantity = Shares(1);
    expect("Select Demat A/c No.", Field::kAccount);
    lot.account = AccountId{1};
    expect("Enter Purchase Date.", Field::kDate);
    lot.purchase_date = QStringLiteral("01/04/2012");
    expect("Enter Purchase Date.", Field::kDate);
    lot.purchase_date = QStringLiteral("31/03/2012");
    lot.rate = -0.01;
    expect("Rate Can't be Negative.", Field::kRate);
    lot.rate = 0;
    expect("accepted", Field::kNone);
  }

  void BoxTakesItsFormWhenLeftAndTheTotalFollows_data() {
    const test::Table<OpeningBox, QString, QString, QString> row;
    // Before: 10 shares at 100.00.
    row("a quantity loses its sign", kQuantity, "-2.5", "2.5", "250.00");
    row("a quantity keeps six decimals", kQuantity, "0.0000025", "0.000003", "0.00");
    row("a rate gets two decimals", kRate, "99.995", "100.00", "1000.00");
    row("a total is computed", kTotal, "7", "1000.00", "1000.00");
    row("a service tax gets two decimals", kServiceTax, "1.005", "1.01", "1000.00");
    row("an STT stays as typed", kStt, "1.005", "1.005", "1000.00");
    row("the year's last day", kPurchaseDate, "31/03/2012", "31/03/2012", "1000.00");
    row("the day after it", kPurchaseDate, "01/04/2012", "", "1000.00");
  }
  void BoxTakesItsFormWhenLeftAndTheTotalFollows() {
    const auto [box, typed, shown, total] =
        test::Table<OpeningBox, QString, QString, QString>::Row();
    OpeningEntry entry;
    entry.Leave(kQuantity, QStringLiteral("10"), kYear);
    entry.Leave(kRate, QStringLiteral("100"), kYear);
    entry.Leave(box, typed, kYear);
    QCOMPARE(entry.Text(box), shown);
    QCOMPARE(entry.Text(kTotal), total);
  }

  void WhatIsLeftAsItWasShownKeepsItsExactNumber() {
    OpeningEntry entry(CarriedLot());
    for (std::size_t box = 0; box < kOpeningBoxCount; ++box) {
      const auto place = static_cast<OpeningBox>(box);
      entry.Leave(place, entry.Text(place), kYear);
    }
    QCOMPARE(entry.Text(kRate), "364.13");
    QCOMPARE(Exact(entry.Lot().rate), std::string("364.125"));
    QCOMPARE(Exact(entry.Lot().total), std::string("364675"));
    QCOMPARE(Exact(entry.Lot().service_tax), std::string("4.166"));
    QCOMPARE(Exact(entry.Lot().stt), std::string("20.4875"));
  }

  // 2000 x (364.125 + 0.55)
  void TotalOfACarriedLotFollowsItsExactRateAndBrokerage() {
    OpeningEntry entry(CarriedLot());
    entry.Leave(kQuantity, QStringLiteral("2000"), kYear);
    QCOMPARE(entry.Text(kTotal), "729350.00");
  }
};

static const quorvane::test::RegisterTest<OpeningStockBookTest> kRegistered;
#include "OpeningStockBookTest.moc"
