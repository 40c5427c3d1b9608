#include "core/records/BillAmounts.h"
#include "support/Desk.h"
#include "support/TestMain.h"

#include <QTest>

using namespace quorvane::records;
using quorvane::test::Exact;
using quorvane::text::NumberText;

namespace {

BillLine Line(Side side, double amount, double service_tax, double stt) {
  BillLine line;
  line.side = side;
  line.amount = amount;
  line.service_tax = service_tax;
  line.stt = stt;
  return line;
}

BillLine Bought(double amount, double service_tax = 0, double stt = 0) {
  return Line(Side::kPurchase, amount, service_tax, stt);
}

BillLine Sold(double amount, double service_tax = 0, double stt = 0) {
  return Line(Side::kSale, amount, service_tax, stt);
}

}  // namespace

Q_DECLARE_METATYPE(std::vector<BillLine>)

class BillAmountsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void NetRateTakesBrokerageWithoutBinaryDust_data() {
    QTest::addColumn<int>("side");
    QTest::addColumn<double>("rate");
    QTest::addColumn<double>("brokerage");
    QTest::addColumn<double>("net");
    QTest::newRow("a purchase costs it") << 1 << 100.0 << 0.25 << 100.25;
    QTest::newRow("a sale loses it") << 0 << 100.0 << 0.25 << 99.75;
    QTest::newRow("sum free of dust") << 1 << 0.1 << 0.2 << 0.3;
    QTest::newRow("difference free of dust") << 0 << 0.3 << 0.1 << 0.2;
    QTest::newRow("not rounded to paise") << 1 << 100.0 << 0.3704 << 100.3704;
    QTest::newRow("may be nothing") << 0 << 5.0 << 5.0 << 0.0;
  }
  void NetRateTakesBrokerageWithoutBinaryDust() {
    QFETCH(int, side);
    QFETCH(double, rate);
    QFETCH(double, brokerage);
    QFETCH(double, net);
    QCOMPARE(Exact(NetRate(static_cast<Side>(side), rate, brokerage)), Exact(net));
  }

  void AmountIsNetTimesQuantityInPaise_data() {
    QTest::addColumn<double>("quantity");
    QTest::addColumn<double>("rate");
    QTest::addColumn<double>("brokerage");
    QTest::addColumn<double>("amount");
    QTest::newRow("whole shares") << 10.0 << 100.1 << 0.0 << 1001.0;
    QTest::newRow("half a paisa goes up") << 0.5 << 2.01 << 0.0 << 1.01;
    QTest::newRow("brokerage of a share counts for each") << 1000.0 << 10.0 << 0.0125 << 10012.5;
  }
  void AmountIsNetTimesQuantityInPaise() {
    QFETCH(double, quantity);
    QFETCH(double, rate);
    QFETCH(double, brokerage);
    QFETCH(double, amount);
    BillLine line;
    line.quantity = quorvane::text::Shares(quantity);
    line.rate = rate;
    line.brokerage = brokerage;
    ComputeAmount(line);
    QCOMPARE(Exact(line.amount), Exact(amount));
  }

  void ProposedChargesAreNotRounded() {
    const ChargePercents percents{0.3, 0.125, 12.36};
    QCOMPARE(NumberText(DefaultBrokerage(percents, 123.45)), QStringLiteral("0.37035"));
    QCOMPARE(NumberText(DefaultServiceTax(percents, 0.37, 7)), QStringLiteral("0.320124"));
    QCOMPARE(NumberText(DefaultStt(percents, 866.74)), QStringLiteral("1.083425"));
  }

  void SttInWholeRupeesGoesUpFrom50Paise() {
    for (const auto& [stt, rupees] :
         {std::pair{0.0, 0.0}, {0.4999, 0.0}, {0.5, 1.0}, {34.26, 34.0}, {1.1 * 1.1 + 1.29, 3.0}}) {
      QCOMPARE(InWholeRupees(stt), rupees);
    }
  }

  void ProposedChargesLoseDustBeforeTheDivision() {
    // 1.1 x 1.1 is 1.2100000000000002 in binary.
    QCOMPARE(Exact(DefaultBrokerage({1.1, 0, 0}, 1.1)), Exact(1.21 / 100));
  }

  void TotalsAddUpLinesAndCharges_data() {
    QTest::addColumn<std::vector<BillLine>>("lines");
    QTest::addColumn<double>("other");
    QTest::addColumn<double>("transaction");
    QTest::addColumn<double>("total");
    QTest::addColumn<double>("stt");
    QTest::addColumn<double>("grand_total");
    using Lines = std::vector<BillLine>;
    QTest::newRow("no line") << Lines{} << 0.0 << 0.0 << 0.0 << 0.0 << 0.0;
    QTest::newRow("purchases only, shown without sign")
        << Lines{Bought(1000, 1.5, 1.25), Bought(500, 0.5, 0.75)} << 10.0 << 2.0 << 1502.0 << 2.0
        << 1516.0;
    QTest::newRow("a sale's service tax is taken off")
        << Lines{Sold(1000, 1.5, 1.25)} << 0.0 << 0.0 << 998.5 << 1.25 << 999.75;
    QTest::newRow("purchases against sales, STT too")
        << Lines{Sold(1000, 1, 4), Bought(400, 2, 1)} << 0.0 << 0.0 << 597.0 << 3.0 << 600.0;
    QTest::newRow("amounts that cancel")
        << Lines{Sold(1000), Bought(1000)} << 5.0 << 0.0 << 0.0 << 0.0 << 5.0;
    QTest::newRow("charges may outweigh the total downwards")
        << Lines{Bought(100)} << -150.0 << 0.0 << 100.0 << 0.0 << 50.0;
    QTest::newRow("no dust from many lines")
        << Lines(10, Bought(0.1, 0.2, 0.3)) << 0.0 << 0.0 << 3.0 << 3.0 << 6.0;
  }
  void TotalsAddUpLinesAndCharges() {
    QFETCH(std::vector<BillLine>, lines);
    QFETCH(double, other);
    QFETCH(double, transaction);
    const BillTotals totals = ComputeTotals(lines, other, transaction);
    QTEST(totals.total, "total");
    QTEST(totals.stt, "stt");
    QTEST(totals.grand_total, "grand_total");
    QCOMPARE(CaptionText(totals.caption), QStringLiteral("Total Receivable"));
  }

  void GrandTotalIsPayableOnlyWhenTheTotalIsNegativeAndTheSumIsNot_data() {
    QTest::addColumn<double>("total");
    QTest::addColumn<double>("sum");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("caption");
    const auto receivable = QStringLiteral("Total Receivable");
    QTest::newRow("both positive") << 100.0 << 120.0 << 120.0 << receivable;
    QTest::newRow("both negative") << -100.0 << -80.0 << 80.0 << receivable;
    QTest::newRow("sum negative") << 100.0 << -80.0 << 80.0 << receivable;
    QTest::newRow("sum nothing") << -100.0 << 0.0 << 0.0 << receivable;
    QTest::newRow("charges above a negative total")
        << -100.0 << 20.0 << -20.0 << QStringLiteral("Total Payable");
  }
  void GrandTotalIsPayableOnlyWhenTheTotalIsNegativeAndTheSumIsNot() {
    QFETCH(double, total);
    QFETCH(double, sum);
    const GrandTotal shown = ShowGrandTotal(total, sum);
    QTEST(shown.value, "value");
    QTEST(CaptionText(shown.caption), "caption");
  }

  void CaptionOfASavedBillFollowsTheSign_data() {
    QTest::addColumn<double>("stored");
    QTest::addColumn<QString>("caption");
    QTest::newRow("positive") << 0.01 << QStringLiteral("Total Receivable");
    QTest::newRow("nothing") << 0.0 << QStringLiteral("Total Receivable");
    QTest::newRow("negative") << -0.01 << QStringLiteral("Total Payable");
  }
  void CaptionOfASavedBillFollowsTheSign() {
    QFETCH(double, stored);
    QTEST(CaptionText(SavedCaption(stored)), "caption");
  }
};

static const quorvane::test::RegisterTest<BillAmountsTest> kRegistered;
#include "BillAmountsTest.moc"
