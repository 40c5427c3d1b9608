#include "support/Test.h"
#include "transactions/bills/BillBoxes.h"
#include "transactions/bills/LineEntry.h"

using namespace quorvane;
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

class LineEntryTest : public QObject {
  Q_OBJECT

  void TypeInto(BillBox box, const char* text) {
    entry_.Enter(box);
    entry_.Type(box, QLatin1String(text));
    entry_.Leave(box);
  }
  void PassThrough(BillBox box) {
    entry_.Enter(box);
    entry_.Leave(box);
  }
  static records::Lot Lot(int number, int scrip) {
    records::Lot lot;
    lot.id = LotId{number};
    lot.scrip = ScripId{scrip};
    return lot;
  }
  const QString& TextOf(BillBox box) const { return entry_.Boxes()[box]; }

  LineEntry entry_;

 private Q_SLOTS:
  void init() {
    entry_ = {};
    entry_.SetSide(Side::kPurchase);
    entry_.SetDelivery(Delivery::kDeliveryBased, {.brokerage = 0.5, .stt = 0.125});
    TypeInto(BillBox::kQuantity, "10");
    TypeInto(BillBox::kRate, "100.10");
  }

  void ChargesAreProposedAndRoundedWhenLeft() {
    entry_.Enter(BillBox::kBrokerage);
    QCOMPARE(TextOf(BillBox::kBrokerage), "0.5005");
    entry_.Leave(BillBox::kBrokerage);
    QCOMPARE(TextOf(BillBox::kBrokerage), "0.50");
    QCOMPARE(TextOf(BillBox::kAmount), "1006.00");
    PassThrough(BillBox::kLineStt);
    QCOMPARE(TextOf(BillBox::kLineStt), "1.26");
    QCOMPARE(entry_.Entered().stt_percent, 0.125);
  }

  void RecordedLineIsNotChangedByPassingThroughItsBoxes() {
    BillLine line;
    line.side = Side::kSale;
    line.lot = LotId{7};
    line.scrip = ScripId{3};
    line.quantity = text::Shares(0.125);
    line.rate = 33.333333;
    line.brokerage = 0.004;
    line.net = 33.329333;
    line.amount = 4.17;
    line.stt_percent = 0.0175;
    entry_.Show(line, {});
    for (const BillBox box : {BillBox::kQuantity, BillBox::kRate, BillBox::kBrokerage,
                              BillBox::kServiceTax, BillBox::kLineStt}) {
      PassThrough(box);
    }
    const BillLine after = entry_.Entered();
    QVERIFY(after.rate == line.rate && after.brokerage == line.brokerage && after.net == line.net);
    QVERIFY(after.amount == line.amount && after.stt == 0 && after.stt_percent == 0.0175);
    QCOMPARE(after.lot, line.lot);
    QCOMPARE(after.delivery_type, "N.A.");
  }

  void ChangedLineProposesItsChargesAgainUnlessTheyWereTyped_data() {
    // of the double quantity at the double rate
    const test::Table<double, double, double, QStringList> row;
    row("all as proposed", 0.5, 0.52, 1.26, QStringList{"1.00", "2.06", "5.03"});
    row("service tax typed", 0.5, 0.6, 1.26, QStringList{"1.00", "0.60", "5.03"});
    row("brokerage typed", 0.4, 0.41, 1.26, QStringList{"0.40", "0.82", "5.01"});
  }
  void ChangedLineProposesItsChargesAgainUnlessTheyWereTyped() {
    const auto [brokerage, service_tax, stt, after] =
        test::Table<double, double, double, QStringList>::Row();
    BillLine line;
    line.quantity = text::Shares(10);
    line.rate = 100;
    line.brokerage = brokerage;
    line.service_tax = service_tax;
    line.stt = stt;
    line.stt_percent = 0.125;
    records::ComputeAmount(line);
    entry_.Show(line, {.brokerage = 0.5, .stt = 0.125, .service_tax = 10.3});
    TypeInto(BillBox::kQuantity, "20");
    TypeInto(BillBox::kRate, "200");
    QCOMPARE(QStringList({TextOf(BillBox::kBrokerage), TextOf(BillBox::kServiceTax),
                          TextOf(BillBox::kLineStt)}),
             after);
  }

  void DeliveryTypeAndSttPercentProposeAgain() {
    PassThrough(BillBox::kBrokerage);
    PassThrough(BillBox::kLineStt);
    entry_.SetDelivery(Delivery::kNonDeliveryBased, {.brokerage = 0.1, .stt = 0.025});
    QCOMPARE(TextOf(BillBox::kBrokerage), "0.10");
    QCOMPARE(TextOf(BillBox::kAmount), "1002.00");
    QCOMPARE(TextOf(BillBox::kLineStt), "0.25");
    entry_.SetSttInWholeRupees(true);
    entry_.SetSttPercent(0.125);
    QCOMPARE(TextOf(BillBox::kLineStt), "1.00");
  }

  void RateIsOfferedUntilOneIsTyped() {
    QVERIFY(!entry_.OfferRate(50));
    QCOMPARE(TextOf(BillBox::kRate), "100.10");
    entry_.Clear();
    QVERIFY(entry_.OfferRate(50));
    QVERIFY(entry_.OfferRate(55.5));
    QCOMPARE(TextOf(BillBox::kRate), "55.50");
    entry_.SetScrip(ScripId{9});
    QCOMPARE(TextOf(BillBox::kRate), QString());
  }

  void LotBelongsToASaleOfItsScrip() {
    entry_.SetSide(Side::kSale);
    entry_.SetLot(Lot(5, 1));
    QCOMPARE(entry_.Entered().lot, LotId{5});
    entry_.SetScrip(ScripId{2});
    QVERIFY(!entry_.Lot());
    entry_.SetLot(Lot(6, 2));
    entry_.SetSide(Side::kPurchase);
    QVERIFY(!entry_.Entered().lot);
  }

  void BoxTakesItsFormWhenLeft_data() {
    const test::Table<BillBox, QString, QString> row;
    row("a broker is text", BillBox::kBroker, "3M", "3M");
    row("a quantity keeps its decimals", BillBox::kQuantity, "-0.125", "0.125");
    row("a quantity has six decimals at most", BillBox::kQuantity, "1.23456789", "1.234568");
    row("a quantity that is no number", BillBox::kQuantity, "TEN", "0");
    row("a rate gets two decimals", BillBox::kRate, "-100.005", "100.01");
    row("a line's STT loses its sign", BillBox::kLineStt, "-1.5", "1.50");
    row("other charges keep their sign", BillBox::kOtherCharges, "-10", "-10.00");
    row("transaction charges keep their sign", BillBox::kTransactionCharges, "-1.005", "-1.01");
  }
  void BoxTakesItsFormWhenLeft() {
    const auto [box, typed, shown] = test::Table<BillBox, QString, QString>::Row();
    BillBoxes boxes;
    boxes[box] = typed;
    LeaveBox(box, Side::kPurchase, boxes);
    QCOMPARE(boxes[box], shown);
  }
  void NetRateOfNothingIsAnEmptyBox() {
    BillBoxes boxes = Entered("10", "0.50", "0.50");
    LeaveBox(BillBox::kBrokerage, Side::kSale, boxes);
    QCOMPARE(boxes[BillBox::kNet], QString());
    QCOMPARE(boxes[BillBox::kAmount], "0.00");
  }

  void NumberBehindABoxOutlivesItsForm() {
    BillBoxes boxes = Entered("3", "", "0.10");
    boxes.Show(BillBox::kRate, 100.0 / 3);
    LeaveBox(BillBox::kRate, Side::kPurchase, boxes);
    QCOMPARE(boxes[BillBox::kRate], "33.33");
    QVERIFY(boxes.Number(BillBox::kRate) == 100.0 / 3);
    QCOMPARE(boxes[BillBox::kNet], "33.43");
    QCOMPARE(boxes[BillBox::kAmount], "100.30");
    boxes.Type(BillBox::kRate, QStringLiteral("33.33"));
    LeaveBox(BillBox::kRate, Side::kPurchase, boxes);
    QVERIFY(boxes.Number(BillBox::kRate) == 33.33);
    QCOMPARE(boxes[BillBox::kAmount], "100.29");
  }
};

static const quorvane::test::RegisterTest<LineEntryTest> kRegistered;
#include "LineEntryTest.moc"
