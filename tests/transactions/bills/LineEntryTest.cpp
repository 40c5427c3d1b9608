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
    line.quantity = 0.125;
    line.rate = 33.333333;
    line.brokerage = 0.004;
    line.net = 33.329333;
    line.amount = 4.17;
    line.stt_percent = 0.0175;
    entry_.Show(line);
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
    entry_.SetLot(LotId{5}, ScripId{1});
    QCOMPARE(entry_.Entered().lot, LotId{5});
    entry_.SetScrip(ScripId{2});
    QVERIFY(!entry_.Lot());
    entry_.SetLot(LotId{6}, ScripId{2});
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
