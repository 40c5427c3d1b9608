#include "support/TestMain.h"
#include "transactions/Desk.h"
#include "transactions/opening_stock/OpeningStock.h"

#include <QTest>

using namespace quorvane;
using namespace quorvane::opening_stock;
using test::FieldOf;
using test::TextOf;

class OpeningStockTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TotalIsQuantityTimesRateWithBrokerage_data() {
    QTest::addColumn<double>("quantity");
    QTest::addColumn<double>("rate");
    QTest::addColumn<double>("brokerage");
    QTest::addColumn<double>("total");
    QTest::newRow("no brokerage") << 10.0 << 100.1 << 0.0 << 1001.0;
    QTest::newRow("brokerage of a share") << 3.0 << 100.0 << 0.335 << 301.01;
    QTest::newRow("half a paisa goes up") << 0.5 << 2.01 << 0.0 << 1.01;
    QTest::newRow("dust is no half paisa") << 5.0 << 0.1 << 0.2 << 1.5;
  }
  void TotalIsQuantityTimesRateWithBrokerage() {
    QFETCH(double, quantity);
    QFETCH(double, rate);
    QFETCH(double, brokerage);
    QFETCH(double, total);
    QCOMPARE(test::Exact(OpeningTotal(quantity, rate, brokerage)), test::Exact(total));
  }

  void BoxTakesItsFormWhenLeftAndTheTotalFollows_data() {
    QTest::addColumn<int>("box");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("total");
    const auto row = [](const char* name, OpeningBox box, const char* typed, const char* shown,
                        const char* total) {
      QTest::newRow(name) << static_cast<int>(box) << QString::fromLatin1(typed)
                          << QString::fromLatin1(shown) << QString::fromLatin1(total);
    };
    // Before: 10 shares at 100.00.
    row("a quantity loses its sign", OpeningBox::kQuantity, "-2.5", "2.5", "250.00");
    row("a rate gets two decimals", OpeningBox::kRate, "99.995", "100.00", "1000.00");
    row("a total is computed", OpeningBox::kTotal, "7", "1000.00", "1000.00");
    row("a service tax gets two decimals", OpeningBox::kServiceTax, "1.005", "1.01", "1000.00");
    row("a date is text", OpeningBox::kPurchaseDate, "1.4.11", "1.4.11", "1000.00");
    row("an STT stays as typed", OpeningBox::kStt, "1.005", "1.005", "1000.00");
  }
  void BoxTakesItsFormWhenLeftAndTheTotalFollows() {
    QFETCH(int, box);
    QFETCH(QString, typed);
    OpeningBoxes boxes;
    boxes[OpeningBox::kQuantity] = QStringLiteral("10");
    boxes[OpeningBox::kRate] = QStringLiteral("100.00");
    boxes[static_cast<OpeningBox>(box)] = typed;
    LeaveBox(static_cast<OpeningBox>(box), boxes);
    QTEST(boxes[static_cast<OpeningBox>(box)], "shown");
    QTEST(boxes[OpeningBox::kTotal], "total");
  }

  void PurchaseDateAfterTheYearIsCleared_data() {
    QTest::addColumn<QString>("date");
    QTest::addColumn<bool>("kept");
    QTest::newRow("last day of the year") << QStringLiteral("31/03/2012") << true;
    QTest::newRow("day after it") << QStringLiteral("01/04/2012") << false;
    QTest::newRow("long before it") << QStringLiteral("29/02/2000") << true;
    QTest::newRow("within it") << QStringLiteral("15/12/2011") << true;
    QTest::newRow("later year, earlier month") << QStringLiteral("01/01/2013") << false;
    QTest::newRow("no such day") << QStringLiteral("29/02/2011") << false;
    QTest::newRow("none") << QString() << false;
  }
  void PurchaseDateAfterTheYearIsCleared() {
    QFETCH(QString, date);
    QFETCH(bool, kept);
    QCOMPARE(KeepPurchaseDate(date, text::FinancialYear(2011)), kept ? date : QString());
  }

  void LotIsCheckedInOrder() {
    const text::FinancialYear year(2011);
    OpeningLot lot;
    const auto expect = [&](const char* text, const char* field) {
      const MaybeRefusal refusal = CheckOpening(lot, year);
      QCOMPARE(TextOf(refusal), QString::fromLatin1(text));
      QCOMPARE(FieldOf(refusal), QString::fromLatin1(field));
    };
    expect("Select Script Name.", "Combo1");
    lot.scrip = ScripId{1};
    expect("Enter Quantity Greater than Zero.", "Text1_0");
    lot.quantity = -1;
    expect("Enter Quantity Greater than Zero.", "Text1_0");
    lot.quantity = 1;
    expect("Select Demat A/c No.", "Combo2");
    lot.account = AccountId{1};
    expect("Enter Purchase Date.", "Text1_3");
    lot.purchase_date = QStringLiteral("01/04/2012");
    expect("Enter Purchase Date.", "Text1_3");
    lot.purchase_date = QStringLiteral("31/03/2012");
    expect("accepted", "none");
  }
};

static const quorvane::test::RegisterTest<OpeningStockTest> kRegistered;
#include "OpeningStockTest.moc"
