#include "support/Desk.h"
#include "support/TestMain.h"
#include "transactions/opening_stock/OpeningStockBook.h"

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
    QCOMPARE(test::Exact(OpeningTotal(Shares(quantity), rate, brokerage)), test::Exact(total));
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
    lot.quantity = Shares(-1);
    expect("Enter Quantity Greater than Zero.", "Text1_0");
    lot.quantity = Shares(1);
    expect("Select Demat A/c No.", "Combo2");
    lot.account = AccountId{1};
    expect("Enter Purchase Date.", "Text1_3");
    lot.purchase_date = QStringLiteral("01/04/2012");
    expect("Enter Purchase Date.", "Text1_3");
    lot.purchase_date = QStringLiteral("31/03/2012");
    lot.rate = -0.01;
    expect("Rate Can't be Negative.", "Text1_1");
    lot.rate = 0;
    expect("accepted", "none");
  }
};

static const quorvane::test::RegisterTest<OpeningStockTest> kRegistered;
#include "OpeningStockTest.moc"
