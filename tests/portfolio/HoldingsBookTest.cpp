#include "portfolio/HoldingsBook.h"
#include "support/TestMain.h"

#include <QTest>

using namespace quorvane;
using portfolio::HoldingsBook;

class HoldingsBookTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void OldestPurchaseGoesFirstWhateverItsRate();
  void NeighbouringPurchasesOfOneRateAreOnePiece();
  void PurchasesAfterTheDateAreNotSold();
  void EarlierPurchaseThatComesLaterGoesFirst();
  void NamedLotGoesByItsOwnPurchases();
  void ShortageTakesNothingAndTellsTheBalance();
  void GoingBackRestoresLotsAndOrder();
  void SaleAheadIsServedByWhatComesInFirst();
  void LoadedLotKeepsItsKeyAndNewOnesFollow();
};

namespace {

const HoldingsBook::Place kPlace{
    {ClientId{1}, text::FinancialYear(2011)}, AccountId{2}, ScripId{3}};

text::Date Day(int day) {
  return *text::MakeDate(day, 5, 2011);
}

/// "10x5 11x2": quantities by rate.
QString Oldest(HoldingsBook& book, int day, double quantity) {
  double available = 0;
  const auto pieces = book.TakeOldest(kPlace, Day(day), quantity, available);
  if (!pieces) {
    return QStringLiteral("only %1").arg(available);
  }
  QStringList texts;
  for (const auto& piece : *pieces) {
    texts << QStringLiteral("%1x%2").arg(piece.rate).arg(piece.quantity);
  }
  return texts.join(' ');
}

}  // namespace

void HoldingsBookTest::OldestPurchaseGoesFirstWhateverItsRate() {
  HoldingsBook book(1);
  book.Receive(kPlace, Day(1), 12, 5);
  book.Receive(kPlace, Day(2), 10, 5);
  book.Receive(kPlace, Day(3), 12, 5);
  QCOMPARE(Oldest(book, 9, 7), "12x5 10x2");
  QCOMPARE(Oldest(book, 9, 8), "10x3 12x5");
}

void HoldingsBookTest::NeighbouringPurchasesOfOneRateAreOnePiece() {
  HoldingsBook book(1);
  book.Receive(kPlace, Day(1), 10, 5);
  book.Receive(kPlace, Day(2), 10, 5);
  book.Receive(kPlace, Day(2), 11, 5);
  QCOMPARE(Oldest(book, 9, 12), "10x10 11x2");
}

void HoldingsBookTest::PurchasesAfterTheDateAreNotSold() {
  HoldingsBook book(1);
  book.Receive(kPlace, Day(1), 10, 5);
  book.Receive(kPlace, Day(8), 10, 5);
  QCOMPARE(Oldest(book, 7, 6), "only 5");
  QCOMPARE(Oldest(book, 8, 6), "10x6");
}

void HoldingsBookTest::EarlierPurchaseThatComesLaterGoesFirst() {
  HoldingsBook book(1);
  book.Receive(kPlace, Day(5), 10, 5);
  QCOMPARE(Oldest(book, 9, 5), "10x5");
  book.Receive(kPlace, Day(6), 12, 5);
  book.Receive(kPlace, Day(1), 11, 5);
  QCOMPARE(Oldest(book, 9, 6), "11x5 12x1");
}

void HoldingsBookTest::NamedLotGoesByItsOwnPurchases() {
  HoldingsBook book(1);
  book.Receive(kPlace, Day(1), 10, 5);
  book.Receive(kPlace, Day(2), 11, 5);
  book.Receive(kPlace, Day(3), 10, 5);
  double available = 0;
  QVERIFY(book.TakeFromLot(kPlace, 10, 7, available));
  QCOMPARE(Oldest(book, 9, 8), "11x5 10x3");
}

void HoldingsBookTest::ShortageTakesNothingAndTellsTheBalance() {
  HoldingsBook book(1);
  book.Receive(kPlace, Day(1), 10, 5);
  double available = 0;
  QVERIFY(!book.TakeFromLot(kPlace, 10, 5.5, available));
  QCOMPARE(available, 5.0);
  QVERIFY(!book.TakeFromLot(kPlace, 11, 1, available));
  QCOMPARE(available, 0.0);
  QCOMPARE(Oldest(book, 9, 6), "only 5");
  QCOMPARE(Oldest(book, 9, 5), "10x5");
}

void HoldingsBookTest::GoingBackRestoresLotsAndOrder() {
  HoldingsBook book(1);
  book.Receive(kPlace, Day(1), 10, 5);
  book.Receive(kPlace, Day(2), 11, 5);
  book.Mark();
  double available = 0;
  QCOMPARE(Oldest(book, 9, 6), "10x5 11x1");
  QVERIFY(book.TakeFromLot(kPlace, 11, 4, available));
  book.GoBack();
  QCOMPARE(book.Lots()[0].lot.quantity, 5.0);
  QCOMPARE(book.Lots()[1].lot.quantity, 5.0);
  QCOMPARE(Oldest(book, 9, 10), "10x5 11x5");
}

void HoldingsBookTest::SaleAheadIsServedByWhatComesInFirst() {
  HoldingsBook book(1);
  book.Receive(kPlace, Day(1), 10, 2);
  const auto first = book.TakeAhead(kPlace, 10, 5);
  const auto second = book.TakeAhead(kPlace, 10, 4);
  QCOMPARE(first.lot, LotId{1});
  book.Mark();
  book.TakeAhead(kPlace, 10, 50);
  book.GoBack();
  book.Receive(kPlace, Day(2), 10, 6);
  QVERIFY(!book.IsOpen(first));
  QVERIFY(book.IsOpen(second));
  QCOMPARE(Oldest(book, 9, 1), "only 0");
  book.Receive(kPlace, Day(3), 10, 3);
  QVERIFY(!book.IsOpen(second));
  QCOMPARE(Oldest(book, 9, 3), "only 2");
  QCOMPARE(book.Lots().front().lot.quantity, 2.0);
}

void HoldingsBookTest::LoadedLotKeepsItsKeyAndNewOnesFollow() {
  HoldingsBook book(50);
  book.LoadLot(kPlace, {LotId{7}, kPlace.account, kPlace.scrip, 4, 10});
  book.LoadLayer(kPlace, Day(1), 10, 4);
  QCOMPARE(book.Receive(kPlace, Day(2), 10, 6).value, 7);
  QCOMPARE(book.Receive(kPlace, Day(2), 11, 6).value, 50);
  QCOMPARE(book.Lots()[0].lot.quantity, 10.0);
  QCOMPARE(book.Lots()[0].stored, 4.0);
}

static const quorvane::test::RegisterTest<HoldingsBookTest> kRegistered;

#include "HoldingsBookTest.moc"
