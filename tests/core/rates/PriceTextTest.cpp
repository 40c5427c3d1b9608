#include "core/rates/PriceText.h"
#include "support/TestMain.h"

#include <QTest>

using namespace quorvane;
using namespace quorvane::rates;

namespace {

const text::Date kDay = *text::MakeDate(24, 9, 2026);

const QByteArray kNewHeadings =
    "\xEF\xBB\xBF\"Symbol  \",\"Series  \",\"Date  \",\"Prev Close  \",\"Close Price  "
    "\",\"Turnover "
    "\xE2\x82\xB9  \"\n";

}  // namespace

class PriceTextTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ClosingPrice_data() {
    QTest::addColumn<QByteArray>("csv");
    QTest::addColumn<double>("price");
    QTest::newRow("old layout") << QByteArray(
                                       "Symbol,Series,Date,Close Price\r\nHDFC,EQ,24-Sep-2026,"
                                       "725.05\r\n")
                                << 725.05;
    QTest::newRow("new layout, grouped digits, two days")
        << kNewHeadings +
               "\"MRF\",\"EQ\",\"23-Sep-2026\",\"1\",\"1,40,000.00\",\"1\"\n"
               "\"MRF\",\"EQ\",\"24-Sep-2026\",\"1\",\"1,41,234.555\",\"1\"\n"
        << 141234.56;
    QTest::newRow("other days only")
        << QByteArray("Date,Close Price\n23-September-2026,10\n25-Sep-26,11\n") << 0.0;
    QTest::newRow("a date that nobody can read")
        << QByteArray("Date,Close Price\nyesterday,10\n") << 10.0;
    QTest::newRow("no date") << QByteArray("Close Price\n 10.5 \n") << 10.5;
    QTest::newRow("no rows") << QByteArray("Date,Close Price\n") << 0.0;
    QTest::newRow("a short row") << QByteArray("Date,Close Price\n24-Sep-2026\n") << 0.0;
    QTest::newRow("a page in its place")
        << QByteArray("<html><title>Close Price</title>\n<p>\"sorry</html>") << 0.0;
    QTest::newRow("no number") << QByteArray("Close Price\n-\n") << 0.0;
    QTest::newRow("below zero") << QByteArray("Close Price\n-3\n") << 0.0;
    QTest::newRow("nothing") << QByteArray() << 0.0;
  }

  void ClosingPrice() {
    QFETCH(QByteArray, csv);
    QTEST(ClosingPriceIn(csv, kDay), "price");
  }

  void Quotes_data() {
    QTest::addColumn<QByteArray>("page");
    QTest::addColumn<double>("bse");
    QTest::addColumn<double>("nse");
    QTest::newRow("bse") << QByteArray("<TITLE>RELIANCE Rs. 1,234.565 (+1%)</TITLE>") << 1234.57
                         << 0.0;
    QTest::newRow("nse") << QByteArray("<title>Infy INR 99.5-NSE 100</title>") << 0.0 << 99.5;
    QTest::newRow("marker outside the title")
        << QByteArray("<title>Prices</title>Rs. 5 INR 6-") << 0.0 << 0.0;
    QTest::newRow("no end") << QByteArray("<TITLE>Rs. 5 INR 6-") << 0.0 << 0.0;
  }

  void Quotes() {
    QFETCH(QByteArray, page);
    QTEST(BseQuoteIn(page), "bse");
    QTEST(NseQuoteIn(page), "nse");
  }
};

static const test::RegisterTest<PriceTextTest> kRegistered;

#include "PriceTextTest.moc"
