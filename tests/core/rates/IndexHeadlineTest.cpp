#include "core/rates/QuoteDesk.h"
#include "support/TestMain.h"

#include <QTest>

using quorvane::rates::HeadlineOf;

class IndexHeadlineTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void LastTitleIsTheHeadline_data();
  void LastTitleIsTheHeadline();
  void WhatIsNoFeedGivesNone_data();
  void WhatIsNoFeedGivesNone();
};

namespace {

QByteArray Feed(const QByteArray& items) {
  return "<?xml version=\"1.0\"?><rss><channel><title>* not an item *</title>" + items +
         "</channel></rss>";
}

}  // namespace

void IndexHeadlineTest::LastTitleIsTheHeadline_data() {
  QTest::addColumn<QByteArray>("feed");
  QTest::addColumn<QString>("headline");
  QTest::newRow("one item") << Feed("<item><title>SENSEX 17,404.20 * 52.13</title></item>")
                            << "BSE SENSEX 17,404.20   + 52.13";
  QTest::newRow("the last of two, other children passed over")
      << Feed(
             "<item><title>old * 1</title></item>"
             "<item><link>x</link><title>new * 2 * 3</title><pubDate/></item>")
      << "BSE new   + 2   + 3";
  QTest::newRow("an item without a title keeps the one before")
      << Feed("<item><title>a * b</title></item><item><link>x</link></item>") << "BSE a   + b";
  QTest::newRow("marked-up section and entities")
      << Feed("<item><title><![CDATA[A & B *]]></title></item>") << "BSE A & B   +";
}

void IndexHeadlineTest::LastTitleIsTheHeadline() {
  QFETCH(QByteArray, feed);
  QTEST(HeadlineOf(feed).value_or(QStringLiteral("none")), "headline");
}

void IndexHeadlineTest::WhatIsNoFeedGivesNone_data() {
  QTest::addColumn<QByteArray>("feed");
  QTest::newRow("nothing") << QByteArray();
  QTest::newRow("no star") << Feed("<item><title>SENSEX 17,404.20</title></item>");
  QTest::newRow("no item") << Feed("");
  QTest::newRow("page instead of a feed")
      << QByteArray("<!DOCTYPE html><html><body><p>Sorry * <br></body></html>");
  QTest::newRow("cut off") << Feed("<item><title>A * 1</title></item>").chopped(20);
  QTest::newRow("too large") << Feed("<item><title>A * 1</title></item>" +
                                     QByteArray(2 << 20, ' '));
  QTest::newRow("endless title") << Feed("<item><title>*" + QByteArray(9999, 'x') +
                                         "</title></item>");
}

void IndexHeadlineTest::WhatIsNoFeedGivesNone() {
  QFETCH(QByteArray, feed);
  QCOMPARE(HeadlineOf(feed).value_or(QStringLiteral("none")), "none");
}

static const quorvane::test::RegisterTest<IndexHeadlineTest> kRegistered;

#include "IndexHeadlineTest.moc"
