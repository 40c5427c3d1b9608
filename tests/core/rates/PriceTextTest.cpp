#include "core/rates/PriceText.h"
#include "core/rates/QuoteDesk.h"
#include "support/Test.h"

using namespace quorvane;
using namespace quorvane::rates;

namespace {

const text::Date kDay = *text::MakeDate(24, 9, 2026);

const QByteArray kNewHeadings =
    "\xEF\xBB\xBF\"Symbol  \",\"Series  \",\"Date  \",\"Prev Close  \",\"Close Price  "
    "\",\"Turnover "
    "\xE2\x82\xB9  \"\n";

QByteArray Feed(const QByteArray& items) {
  return "<?xml version=\"1.0\"?><rss><channel><title>* not an item *</title>" + items +
         "</channel></rss>";
}

}  // namespace

class PriceTextTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ClosingPrice_data() {
    const test::Table<QByteArray, double> row;
    row("old layout",
        QByteArray("Symbol,Series,Date,Close Price\r\nHDFC,EQ,24-Sep-2026,"
                   "725.05\r\n"),
        725.05);
    row("new layout, grouped digits, two days",
        kNewHeadings +
            "\"MRF\",\"EQ\",\"23-Sep-2026\",\"1\",\"1,40,000.00\",\"1\"\n"
            "\"MRF\",\"EQ\",\"24-Sep-2026\",\"1\",\"1,41,234.555\",\"1\"\n",
        141234.56);
    row("other days only", QByteArray("Date,Close Price\n23-September-2026,10\n25-Sep-26,11\n"),
        0.0);
    row("a date that nobody can read", QByteArray("Date,Close Price\nyesterday,10\n"), 10.0);
    row("a page in its place", QByteArray("<html><title>Close Price</title>\n<p>\"sorry</html>"),
        0.0);
    row("below zero", QByteArray("Close Price\n-3\n"), 0.0);
  }
  void ClosingPrice() {
    const auto [csv, price] = test::Table<QByteArray, double>::Row();
    QCOMPARE(ClosingPriceIn(csv, kDay), price);
  }

  void Quotes_data() {
    const test::Table<QByteArray, double, double> row;
    row("bse", QByteArray("<TITLE>RELIANCE Rs. 1,234.565 (+1%)</TITLE>"), 1234.57, 0.0);
    row("nse", QByteArray("<title>Infy INR 99.5-NSE 100</title>"), 0.0, 99.5);
    row("marker outside the title", QByteArray("<title>Prices</title>Rs. 5 INR 6-"), 0.0, 0.0);
  }
  void Quotes() {
    const auto [page, bse, nse] = test::Table<QByteArray, double, double>::Row();
    QCOMPARE(BseQuoteIn(page), bse);
    QCOMPARE(NseQuoteIn(page), nse);
  }

  void LastTitleIsTheHeadline_data() {
    const test::Table<QByteArray, QString> row;
    row("one item", Feed("<item><title>SENSEX 17,404.20 * 52.13</title></item>"),
        "BSE SENSEX 17,404.20   + 52.13");
    row("the last of two, other children passed over",
        Feed("<item><title>old * 1</title></item>"
             "<item><link>x</link><title>new * 2 * 3</title><pubDate/></item>"),
        "BSE new   + 2   + 3");
    row("marked-up section and entities", Feed("<item><title><![CDATA[A & B *]]></title></item>"),
        "BSE A & B   +");
    row("page instead of a feed",
        QByteArray("<!DOCTYPE html><html><body><p>Sorry * <br></body></html>"), "none");
    row("cut off", Feed("<item><title>A * 1</title></item>").chopped(20), "none");
    row("too large", Feed("<item><title>A * 1</title></item>" + QByteArray(2 << 20, ' ')), "none");
    row("endless title", Feed("<item><title>*" + QByteArray(9999, 'x') + "</title></item>"),
        "none");
  }
  void LastTitleIsTheHeadline() {
    const auto [feed, headline] = test::Table<QByteArray, QString>::Row();
    QCOMPARE(HeadlineOf(feed).value_or(QStringLiteral("none")), headline);
  }
};

static const test::RegisterTest<PriceTextTest> kRegistered;
#include "PriceTextTest.moc"
