#include "core/records/BillAmounts.h"
#include "support/Desk.h"
#include "support/Test.h"

using namespace quorvane::records;
using quorvane::test::Exact;
using quorvane::text::NumberText;
namespace test = quorvane::test;

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
    const test::Table<int, double, double, double> row;
    row("sum free of dust", 1, 0.1, 0.2, 0.3);
    row("difference free of dust", 0, 0.3, 0.1, 0.2);
    row("not rounded to paise", 1, 100.0, 0.3704, 100.3704);
  }
  void NetRateTakesBrokerageWithoutBinaryDust() {
    const auto [side, rate, brokerage, net] = test::Table<int, double, double, double>::Row();
    QCOMPARE(Exact(NetRate(static_cast<Side>(side), rate, brokerage)), Exact(net));
  }

  void AmountIsNetTimesQuantityInPaise_data() {
    const test::Table<double, double, double, double> row;
    row("whole shares", 10.0, 100.1, 0.0, 1001.0);
    row("half a paisa goes up", 0.5, 2.01, 0.0, 1.01);
    row("brokerage of a share counts for each", 1000.0, 10.0, 0.0125, 10012.5);
  }
  void AmountIsNetTimesQuantityInPaise() {
    const auto [quantity, rate, brokerage, amount] =
        test::Table<double, double, double, double>::Row();
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

  void TotalsAddUpLinesAndCharges_data() {
    const test::Table<std::vector<BillLine>, double, double, double, double, double> row;
    using Lines = std::vector<BillLine>;
    row("purchases only, shown without sign",
        Lines{Bought(1000, 1.5, 1.25), Bought(500, 0.5, 0.75)}, 10.0, 2.0, 1502.0, 2.0, 1516.0);
    row("a sale's service tax is taken off", Lines{Sold(1000, 1.5, 1.25)}, 0.0, 0.0, 998.5, 1.25,
        999.75);
    row("purchases against sales, STT too", Lines{Sold(1000, 1, 4), Bought(400, 2, 1)}, 0.0, 0.0,
        597.0, 3.0, 600.0);
    row("charges may outweigh the total downwards", Lines{Bought(100)}, -150.0, 0.0, 100.0, 0.0,
        50.0);
    row("no dust from many lines", Lines(10, Bought(0.1, 0.2, 0.3)), 0.0, 0.0, 3.0, 3.0, 6.0);
  }
  void TotalsAddUpLinesAndCharges() {
    const auto [lines, other, transaction, total, stt, grand_total] =
        test::Table<std::vector<BillLine>, double, double, double, double, double>::Row();
    const BillTotals totals = ComputeTotals(lines, other, transaction);
    QCOMPARE(totals.total, total);
    QCOMPARE(totals.stt, stt);
    QCOMPARE(totals.grand_total, grand_total);
    QCOMPARE(CaptionText(totals.caption), QStringLiteral("Total Receivable"));
  }

  // Bills of the sample portfolio, worked out on paper: an amount is quantity x (rate and brokerage
  // of a purchase, rate less brokerage of a sale).
  void NetOfANoteIsWhatIsPaid_data() {
    const test::Table<std::vector<BillLine>, double, double, QString> row;
    using Lines = std::vector<BillLine>;
    // 225 x 364.18 + 155 x 211.40 = 114707.50; 225 x 350.57 + 20 x 1079.38 = 100465.85; service tax
    // 36.27, STT 108.15, charges 28.50: 100465.85 - 114707.50 - 172.92 = -14414.57.
    row("KV/1112/0001, both sides",
        Lines{Bought(81940.50, 4.17, 20.49), Bought(32767, 16.76, 40.96),
              Sold(78878.25, 4.17, 19.72), Sold(21587.60, 11.17, 26.98)},
        21.51, 6.99, "14414.57 to pay");
    // 60 x 1284.99 = 77099.40; 77099.40 + 39.49 + 96.37 + 7.67 + 2.49 = 77245.42.
    row("KV/1112/0002, a purchase", Lines{Bought(77099.40, 39.49, 96.37)}, 7.67, 2.49,
        "77245.42 to pay");
    // 170 x 457.15 + 335 x 126.24 = 120005.90; 335 x 126.86 = 42498.10; tax 44.41, STT 118.33, no
    // other charges, transaction charges 5.29: 120005.90 - 42498.10 - 168.03 = 77339.77.
    row("TE/1112/0011, more sold than bought",
        Lines{Bought(42498.10, 2.07, 10.62), Sold(77715.50, 40.27, 97.14),
              Sold(42290.40, 2.07, 10.57)},
        0.0, 5.29, "77339.77 to receive");
    row("a discount lowers what is paid", Lines{Bought(1000)}, -12.5, 2.5, "990.00 to pay");
    row("each line counts with the paise that it shows", Lines(3, Sold(10.005)), 0.0, 0.0,
        "30.03 to receive");
    row("no lines", Lines(), 0.0, 0.0, "0.00 to receive");
  }
  void NetOfANoteIsWhatIsPaid() {
    const auto [lines, other, transaction, text] =
        test::Table<std::vector<BillLine>, double, double, QString>::Row();
    QCOMPARE(NetText(AmountsOnNote(lines, other, transaction).Net()), text);
  }

  void GrandTotalIsPayableOnlyWhenTheTotalIsNegativeAndTheSumIsNot_data() {
    const test::Table<double, double, double, QString> row;
    const auto receivable = QStringLiteral("Total Receivable");
    row("both positive", 100.0, 120.0, 120.0, receivable);
    row("both negative", -100.0, -80.0, 80.0, receivable);
    row("sum negative", 100.0, -80.0, 80.0, receivable);
    row("sum nothing", -100.0, 0.0, 0.0, receivable);
    row("charges above a negative total", -100.0, 20.0, -20.0, QStringLiteral("Total Payable"));
  }
  void GrandTotalIsPayableOnlyWhenTheTotalIsNegativeAndTheSumIsNot() {
    const auto [total, sum, value, caption] = test::Table<double, double, double, QString>::Row();
    const GrandTotal shown = ShowGrandTotal(total, sum);
    QCOMPARE(shown.value, value);
    QCOMPARE(CaptionText(shown.caption), caption);
  }

  void CaptionOfASavedBillFollowsTheSign_data() {
    const test::Table<double, QString> row;
    row("positive", 0.01, QStringLiteral("Total Receivable"));
    row("nothing", 0.0, QStringLiteral("Total Receivable"));
    row("negative", -0.01, QStringLiteral("Total Payable"));
  }
  void CaptionOfASavedBillFollowsTheSign() {
    const auto [stored, caption] = test::Table<double, QString>::Row();
    QCOMPARE(CaptionText(SavedCaption(stored)), caption);
  }
};

static const quorvane::test::RegisterTest<BillAmountsTest> kRegistered;
#include "BillAmountsTest.moc"
