#include "support/Desk.h"
#include "support/TestMain.h"
#include "transactions/opening_stock/OpeningEntry.h"

#include <QTest>

using namespace quorvane;
using namespace quorvane::opening_stock;
using enum OpeningBox;
using test::Exact;

namespace {

const text::FinancialYear kYear(2011);

/// As a bill left it the year before: more decimals than the boxes show, and brokerage.
OpeningLot CarriedLot() {
  OpeningLot lot;
  lot.id = OpeningId{7};
  lot.quantity = Shares(1000);
  lot.rate = 364.125;
  lot.brokerage = 0.55;
  lot.total = 364675;
  lot.purchase_date = QStringLiteral("06/04/2010");
  lot.service_tax = 4.166;
  lot.stt = 20.4875;
  return lot;
}

}  // namespace

class OpeningEntryTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void BoxTakesItsFormWhenLeftAndTheTotalFollows_data() {
    QTest::addColumn<int>("box");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("total");
    const auto row = [](const char* name, OpeningBox box, const char* typed, const char* shown,
                        const char* total) {
      QTest::newRow(name) << static_cast<int>(box) << QString::fromLatin1(typed)
                          << QString::fromLatin1(shown) << QString::fromLatin1(total);
    };
    // Before: 10 shares at 100.00.
    row("a quantity loses its sign", kQuantity, "-2.5", "2.5", "250.00");
    row("a quantity keeps six decimals", kQuantity, "0.0000025", "0.000003", "0.00");
    row("a rate gets two decimals", kRate, "99.995", "100.00", "1000.00");
    row("a total is computed", kTotal, "7", "1000.00", "1000.00");
    row("a service tax gets two decimals", kServiceTax, "1.005", "1.01", "1000.00");
    row("an STT stays as typed", kStt, "1.005", "1.005", "1000.00");
    row("the year's last day", kPurchaseDate, "31/03/2012", "31/03/2012", "1000.00");
    row("the day after it", kPurchaseDate, "01/04/2012", "", "1000.00");
  }
  void BoxTakesItsFormWhenLeftAndTheTotalFollows() {
    QFETCH(int, box);
    QFETCH(QString, typed);
    OpeningEntry entry;
    entry.Leave(kQuantity, QStringLiteral("10"), kYear);
    entry.Leave(kRate, QStringLiteral("100"), kYear);
    entry.Leave(static_cast<OpeningBox>(box), typed, kYear);
    QTEST(entry.Text(static_cast<OpeningBox>(box)), "shown");
    QTEST(entry.Text(kTotal), "total");
  }

  void WhatIsLeftAsItWasShownKeepsItsExactNumber() {
    OpeningEntry entry(CarriedLot());
    for (std::size_t box = 0; box < kOpeningBoxCount; ++box) {
      const auto place = static_cast<OpeningBox>(box);
      entry.Leave(place, entry.Text(place), kYear);
    }
    QCOMPARE(entry.Text(kRate), QStringLiteral("364.13"));
    QCOMPARE(Exact(entry.Lot().rate), std::string("364.125"));
    QCOMPARE(Exact(entry.Lot().total), std::string("364675"));
    QCOMPARE(Exact(entry.Lot().service_tax), std::string("4.166"));
    QCOMPARE(Exact(entry.Lot().stt), std::string("20.4875"));
  }

  // 2000 x (364.125 + 0.55)
  void TotalOfACarriedLotFollowsItsExactRateAndBrokerage() {
    OpeningEntry entry(CarriedLot());
    entry.Leave(kQuantity, QStringLiteral("2000"), kYear);
    QCOMPARE(entry.Text(kTotal), QStringLiteral("729350.00"));
  }
};

static const test::RegisterTest<OpeningEntryTest> kRegistered;
#include "OpeningEntryTest.moc"
