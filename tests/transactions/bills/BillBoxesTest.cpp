#include "support/TestMain.h"
#include "transactions/bills/BillBoxes.h"

#include <QTest>

using namespace quorvane::bills;

namespace {

BillBoxes Entered(const char* quantity, const char* rate, const char* brokerage) {
  BillBoxes boxes;
  boxes[BillBox::kQuantity] = QLatin1String(quantity);
  boxes[BillBox::kRate] = QLatin1String(rate);
  boxes[BillBox::kBrokerage] = QLatin1String(brokerage);
  return boxes;
}

}  // namespace

class BillBoxesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void BoxTakesItsFormWhenLeft_data() {
    QTest::addColumn<int>("box");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, BillBox box, const char* typed, const char* shown) {
      QTest::newRow(name) << static_cast<int>(box) << QString::fromLatin1(typed)
                          << QString::fromLatin1(shown);
    };
    row("a bill number is text", BillBox::kNumber, "-007", "-007");
    row("a date is text", BillBox::kDate, "1/4/11", "1/4/11");
    row("a broker is text", BillBox::kBroker, "3M", "3M");
    row("a settlement number is text", BillBox::kSettlementNumber, "-5", "-5");
    row("a quantity loses its sign", BillBox::kQuantity, "-12", "12");
    row("a quantity keeps its decimals", BillBox::kQuantity, "-0.125", "0.125");
    row("a quantity has six decimals at most", BillBox::kQuantity, "1.23456789", "1.234568");
    row("a quantity that is no number", BillBox::kQuantity, "TEN", "0");
    row("a rate gets two decimals", BillBox::kRate, "-100.005", "100.01");
    row("a brokerage gets two decimals", BillBox::kBrokerage, ".3704", "0.37");
    row("a service tax loses its sign", BillBox::kServiceTax, "-1.5", "1.50");
    row("a line's STT loses its sign", BillBox::kLineStt, "-1.5", "1.50");
    row("a total loses its sign", BillBox::kTotal, "-10", "10.00");
    row("a grand total loses its sign", BillBox::kGrandTotal, "-10", "10.00");
    row("other charges keep their sign", BillBox::kOtherCharges, "-10", "-10.00");
    row("the bill's STT keeps its sign", BillBox::kStt, "-10", "-10.00");
    row("transaction charges keep their sign", BillBox::kTransactionCharges, "-1.005", "-1.01");
    row("an empty amount", BillBox::kOtherCharges, "", "0.00");
  }
  void BoxTakesItsFormWhenLeft() {
    QFETCH(int, box);
    QFETCH(QString, typed);
    BillBoxes boxes;
    boxes[static_cast<BillBox>(box)] = typed;
    LeaveBox(static_cast<BillBox>(box), Side::kPurchase, boxes);
    QTEST(boxes[static_cast<BillBox>(box)], "shown");
  }

  void LeavingABoxOfTheLineRecomputesItsAmount_data() {
    QTest::addColumn<int>("box");
    QTest::addColumn<bool>("recomputes");
    const auto row = [](const char* name, BillBox box, bool recomputes) {
      QTest::newRow(name) << static_cast<int>(box) << recomputes;
    };
    row("quantity", BillBox::kQuantity, true);
    row("rate", BillBox::kRate, true);
    row("brokerage", BillBox::kBrokerage, true);
    row("net rate, whatever was typed", BillBox::kNet, true);
    row("amount, whatever was typed", BillBox::kAmount, true);
    row("service tax", BillBox::kServiceTax, true);
    row("STT of the line", BillBox::kLineStt, false);
    row("other charges", BillBox::kOtherCharges, false);
    row("bill number", BillBox::kNumber, false);
  }
  void LeavingABoxOfTheLineRecomputesItsAmount() {
    QFETCH(int, box);
    QFETCH(bool, recomputes);
    BillBoxes boxes = Entered("10", "100.00", "0.50");
    boxes[BillBox::kNet] = QStringLiteral("77.00");
    boxes[BillBox::kAmount] = QStringLiteral("770.00");
    LeaveBox(static_cast<BillBox>(box), Side::kPurchase, boxes);
    QCOMPARE(boxes[BillBox::kNet], recomputes ? QStringLiteral("100.50") : QStringLiteral("77.00"));
    QCOMPARE(boxes[BillBox::kAmount],
             recomputes ? QStringLiteral("1005.00") : QStringLiteral("770.00"));
  }

  void SaleTakesBrokerageOff() {
    BillBoxes boxes = Entered("10", "100.00", "0.50");
    RecomputeLine(Side::kSale, boxes);
    QCOMPARE(boxes[BillBox::kNet], QStringLiteral("99.50"));
    QCOMPARE(boxes[BillBox::kAmount], QStringLiteral("995.00"));
  }

  void NetRateOfNothingIsAnEmptyBox() {
    BillBoxes boxes = Entered("10", "0.50", "0.50");
    LeaveBox(BillBox::kBrokerage, Side::kSale, boxes);
    QCOMPARE(boxes[BillBox::kNet], QString());
    QCOMPARE(boxes[BillBox::kAmount], QStringLiteral("0.00"));
  }

  void NumberBehindABoxOutlivesItsForm() {
    BillBoxes boxes = Entered("3", "", "0.10");
    boxes.Show(BillBox::kRate, 100.0 / 3);
    LeaveBox(BillBox::kRate, Side::kPurchase, boxes);
    QCOMPARE(boxes[BillBox::kRate], QStringLiteral("33.33"));
    QVERIFY(boxes.Number(BillBox::kRate) == 100.0 / 3);
    QCOMPARE(boxes[BillBox::kNet], QStringLiteral("33.43"));
    QCOMPARE(boxes[BillBox::kAmount], QStringLiteral("100.30"));
    boxes.Type(BillBox::kRate, QStringLiteral("33.33"));
    LeaveBox(BillBox::kRate, Side::kPurchase, boxes);
    QVERIFY(boxes.Number(BillBox::kRate) == 33.33);
    QCOMPARE(boxes[BillBox::kAmount], QStringLiteral("100.29"));
  }

  void GroupingCommasAreNoDecimalMarks() {
    BillBoxes boxes = Entered("1,000", "1,234.50", "0");
    LeaveBox(BillBox::kQuantity, Side::kPurchase, boxes);
    QCOMPARE(boxes[BillBox::kQuantity], QStringLiteral("1000"));
    QCOMPARE(boxes[BillBox::kAmount], QStringLiteral("1234500.00"));
  }

  void ControlsAreNamedByTheirPlace() {
    QCOMPARE(ControlName(BillBox::kNumber), QStringLiteral("Text1_0"));
    QCOMPARE(ControlName(BillBox::kSettlementNumber), QStringLiteral("Text1_15"));
  }
};

static const quorvane::test::RegisterTest<BillBoxesTest> kRegistered;
#include "BillBoxesTest.moc"
