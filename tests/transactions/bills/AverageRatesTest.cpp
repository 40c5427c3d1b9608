#include "core/gains/AverageCost.h"
#include "core/text/Amounts.h"
#include "support/Desk.h"
#include "support/Test.h"
#include "transactions/bills/AverageRates.h"
#include "transactions/bills/BillBook.h"
#include "transactions/bills/HeldLots.h"
#include "transactions/opening_stock/OpeningStockBook.h"

using namespace quorvane;
using namespace quorvane::bills;
using test::Desk;

namespace {

/// Shares and cost that came in, or shares that left when the cost is none.
struct Step {
  double quantity;
  std::optional<double> cost;
};
using Steps = std::vector<Step>;

}  // namespace

Q_DECLARE_METATYPE(Steps)

class AverageRatesTest : public QObject {
  Q_OBJECT

  static BillLine WithServiceTax(BillLine line, double service_tax) {
    line.service_tax = service_tax;
    return line;
  }

  static void Save(Desk& desk, const char* date, const BillLine& line) {
    Bill bill = desk.NewBill(QString::fromLatin1(date), {line});
    const MaybeRefusal refusal = test::Save(BillBook(desk.Connection(), desk.of), bill);
    QVERIFY2(!refusal, qPrintable(test::TextOf(refusal)));
  }

  static void AddOpening(Desk& desk, double quantity, double rate, double service_tax) {
    opening_stock::OpeningLot lot;
    lot.scrip = desk.scrip;
    lot.account = desk.account;
    lot.quantity = text::Shares(quantity);
    lot.rate = rate;
    lot.total = quantity * rate;
    lot.service_tax = service_tax;
    lot.purchase_date = QStringLiteral("01/03/2010");
    QVERIFY(!test::Save(opening_stock::OpeningStockBook(desk.Connection(), desk.of), lot));
  }

  static QString Rates(Desk& desk, AccountId account) {
    const ledger::Place place{desk.of, account};
    RebuildAverageRates(desk.Connection(), place, ReadAccount(desk.Connection(), place));
    QStringList rates;
    for (const AverageRate& rate : ReadAverageRates(desk.Connection(), place)) {
      rates += QString::number(rate.scrip.value) + QLatin1Char('=') + text::NumberText(rate.rate);
    }
    return rates.join(QLatin1Char(' '));
  }

 private Q_SLOTS:
  void WalkKeepsTheAverageOfWhatIsHeld_data() {
    // quantity@average
    const test::Table<Steps, QString> row;
    row("a purchase after a sale weighs what is left",
        Steps{{10, 1000}, {30, 6000}, {20, {}}, {20, 5500}}, "40@225");
    row("an empty holding starts again", Steps{{10, 1000}, {10, {}}, {5, 1500}}, "5@300");
    row("emptied in parts whose sum is not exact",
        Steps{{0.3, 30}, {0.1, {}}, {0.1, {}}, {0.1, {}}, {1, 7}}, "1@7");
    row("sold before it was bought", Steps{{10, {}}, {10, 1000}}, "10@100");
    row("an opening without shares", Steps{{0, 500}, {10, 1000}}, "10@100");
  }
  void WalkKeepsTheAverageOfWhatIsHeld() {
    const auto [steps, result] = test::Table<Steps, QString>::Row();
    gains::AverageCost walk;
    for (const Step& step : steps) {
      if (step.cost) {
        walk.Receive(step.quantity, text::ToPaise(*step.cost));
      } else {
        walk.Release(step.quantity);
      }
    }
    QCOMPARE(text::NumberText(walk.Held()) + QLatin1Char('@') + text::NumberText(walk.Average()),
             result);
  }

  void RatesFollowOpeningThenBillsByDateAndKey() {
    Desk desk;
    AddOpening(desk, 10, 100, 50);  // 1050 for 10
    // Entered out of order: the sale is of the 20th, after both purchases.
    const LotId lot = desk.IdOfLot(100);
    Save(desk, "20/05/2011", desk.Sale(10, 300, lot));
    Save(desk, "10/05/2011", WithServiceTax(desk.Purchase(10, 200), 50));  // 2050 for 10
    Save(desk, "10/04/2011", WithServiceTax(desk.Purchase(20, 100), 0));   // 2000 for 20
    QCOMPARE(Rates(desk, desk.account), "1=127.5");
  }

  void AccountsAndScripsAreKeptApart() {
    Desk desk;
    BillLine infosys = desk.Purchase(1, 2500);
    infosys.scrip = desk.second_scrip;
    Save(desk, "10/05/2011", desk.Purchase(10, 100));
    Save(desk, "11/05/2011", infosys);
    Bill elsewhere = desk.NewBill({desk.Purchase(10, 900)});
    elsewhere.account = desk.second_account;
    QVERIFY(!test::Save(BillBook(desk.Connection(), desk.of), elsewhere));
    QCOMPARE(Rates(desk, desk.account), "1=100 2=2500");
    QCOMPARE(Rates(desk, desk.second_account), "1=900");
    QCOMPARE(Rates(desk, desk.account), "1=100 2=2500");
    QCOMPARE(desk.Contents("ScriptAvgRate").size(), 3);
    QCOMPARE(desk.Contents("ScriptAvgRate").first(), "ScriptAvgRate|1|2011-12|1|1|0|100");
  }
};

static const quorvane::test::RegisterTest<AverageRatesTest> kRegistered;
#include "AverageRatesTest.moc"
