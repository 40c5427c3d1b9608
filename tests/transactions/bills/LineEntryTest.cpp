#include "support/TestMain.h"
#include "transactions/bills/LineEntry.h"

#include <QTest>

using namespace quorvane;
using namespace quorvane::bills;

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
    QCOMPARE(TextOf(BillBox::kBrokerage), QStringLiteral("0.5005"));
    entry_.Leave(BillBox::kBrokerage);
    QCOMPARE(TextOf(BillBox::kBrokerage), QStringLiteral("0.50"));
    QCOMPARE(TextOf(BillBox::kAmount), QStringLiteral("1006.00"));
    PassThrough(BillBox::kLineStt);
    QCOMPARE(TextOf(BillBox::kLineStt), QStringLiteral("1.26"));
    QCOMPARE(entry_.Entered().stt_percent, 0.125);
  }

  void ProposalFollowsTheRateUntilItIsTypedOver() {
    PassThrough(BillBox::kBrokerage);
    TypeInto(BillBox::kRate, "200");
    PassThrough(BillBox::kBrokerage);
    QCOMPARE(TextOf(BillBox::kBrokerage), QStringLiteral("1.00"));
    TypeInto(BillBox::kBrokerage, "0");
    TypeInto(BillBox::kRate, "300");
    PassThrough(BillBox::kBrokerage);
    QCOMPARE(TextOf(BillBox::kBrokerage), QStringLiteral("0.00"));
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
    QCOMPARE(after.delivery_type, QStringLiteral("N.A."));
  }

  void ChangedLineProposesItsChargesAgainUnlessTheyWereTyped_data() {
    QTest::addColumn<double>("brokerage");
    QTest::addColumn<double>("service_tax");
    QTest::addColumn<double>("stt");
    QTest::addColumn<QStringList>("after");  // of the double quantity at the double rate
    QTest::newRow("all as proposed") << 0.5 << 0.52 << 1.26 << QStringList{"1.00", "2.06", "5.03"};
    QTest::newRow("service tax typed") << 0.5 << 0.6 << 1.26 << QStringList{"1.00", "0.60", "5.03"};
    QTest::newRow("brokerage typed") << 0.4 << 0.41 << 1.26 << QStringList{"0.40", "0.82", "5.01"};
  }
  void ChangedLineProposesItsChargesAgainUnlessTheyWereTyped() {
    QFETCH(const double, brokerage);
    QFETCH(const double, service_tax);
    QFETCH(const double, stt);
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
    QTEST(QStringList({TextOf(BillBox::kBrokerage), TextOf(BillBox::kServiceTax),
                       TextOf(BillBox::kLineStt)}),
          "after");
  }

  void DeliveryTypeAndSttPercentProposeAgain() {
    PassThrough(BillBox::kBrokerage);
    PassThrough(BillBox::kLineStt);
    entry_.SetDelivery(Delivery::kNonDeliveryBased, {.brokerage = 0.1, .stt = 0.025});
    QCOMPARE(TextOf(BillBox::kBrokerage), QStringLiteral("0.10"));
    QCOMPARE(TextOf(BillBox::kAmount), QStringLiteral("1002.00"));
    QCOMPARE(TextOf(BillBox::kLineStt), QStringLiteral("0.25"));
    entry_.SetSttInWholeRupees(true);
    entry_.SetSttPercent(0.125);
    QCOMPARE(TextOf(BillBox::kLineStt), QStringLiteral("1.00"));
  }

  void RateIsOfferedUntilOneIsTyped() {
    QVERIFY(!entry_.OfferRate(50));
    QCOMPARE(TextOf(BillBox::kRate), QStringLiteral("100.10"));
    entry_.Clear();
    QVERIFY(entry_.OfferRate(50));
    QVERIFY(entry_.OfferRate(55.5));
    QCOMPARE(TextOf(BillBox::kRate), QStringLiteral("55.50"));
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

  void NextLineIsOfTheSameKind() {
    entry_.SetFo(true);
    entry_.SetScrip(ScripId{1});
    QVERIFY(!entry_.IsEmpty());
    entry_.Clear();
    QVERIFY(entry_.IsEmpty());
    QCOMPARE(entry_.GetSide(), std::optional(Side::kPurchase));
    QCOMPARE(entry_.DeliveryType(), QStringLiteral("Delivery Based"));
    QVERIFY(entry_.Fo() && entry_.SttPercent() == 0.125);
  }
};

static const quorvane::test::RegisterTest<LineEntryTest> kRegistered;
#include "LineEntryTest.moc"
