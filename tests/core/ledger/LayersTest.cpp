#include "core/ledger/Layers.h"
#include "support/Test.h"

using namespace quorvane;
using ledger::Layers;
using ledger::Lots;
using ledger::Shares;
using records::MovementKind;

namespace {

const ledger::Place kPlace{{ClientId{1}, text::FinancialYear(2011)}, AccountId{2}};
constexpr ScripId kScrip{3};

text::Date Day(int day) {
  return *text::MakeDate(day, 5, 2011);
}

ledger::LotKey Key(double rate) {
  return {kPlace.of, kPlace.account, kScrip, rate};
}

struct Holding {
  Lots lots;
  Layers layers{lots};

  void Buy(int day, double rate, double quantity) {
    layers.Receive(Key(rate), {Day(day), Shares(quantity)});
  }
  Layers::Taken Sell(double rate, double quantity) {
    return layers.TakeFromLot(Key(rate), Shares(quantity));
  }
  double Quantity(double rate) const { return lots.Find(Key(rate))->quantity.Number(); }

  /// "5x10 2x11": rates by quantity.
  QString Oldest(int day, double quantity) {
    const auto taken = layers.TakeOldest(kPlace, kScrip, Day(day), Shares(quantity));
    if (!taken) {
      return QStringLiteral("only %1").arg(taken.available.Number());
    }
    QStringList texts;
    for (const auto& piece : taken.pieces) {
      texts << QStringLiteral("%1x%2").arg(piece.quantity.Number()).arg(piece.rate);
    }
    return texts.join(' ');
  }
};

}  // namespace

class LayersTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void EarlierPurchaseThatComesLaterGoesFirst() {
    Holding h;
    h.Buy(5, 10, 5);
    QCOMPARE(h.Oldest(9, 5), "5x10");
    h.Buy(6, 12, 5);
    h.Buy(1, 11, 5);
    QCOMPARE(h.Oldest(9, 6), "5x11 1x12");
  }

  void GoingBackRestoresLotsAndOrder() {
    Holding h;
    h.Buy(1, 10, 5);
    h.Buy(2, 11, 5);
    h.layers.Mark();
    QCOMPARE(h.Oldest(9, 6), "5x10 1x11");
    QVERIFY(h.Sell(11, 4));
    h.layers.GoBack();
    QCOMPARE(h.Quantity(10), 5.0);
    QCOMPARE(h.Quantity(11), 5.0);
    QCOMPARE(h.Oldest(9, 10), "5x10 5x11");
  }

  void SaleAheadIsServedByWhatComesInFirst() {
    Holding h;
    h.Buy(1, 10, 2);
    const auto first = h.layers.TakeAhead(Key(10), Shares(5));
    const auto second = h.layers.TakeAhead(Key(10), Shares(4));
    QCOMPARE(first.lot, h.lots.Find(Key(10))->id);
    h.layers.Mark();
    h.layers.TakeAhead(Key(10), Shares(50));
    h.layers.GoBack();
    h.Buy(2, 10, 6);
    QVERIFY(!h.layers.IsOpen(first));
    QVERIFY(h.layers.IsOpen(second));
    QCOMPARE(h.Oldest(9, 1), "only 0");
    h.Buy(3, 10, 3);
    QVERIFY(!h.layers.IsOpen(second));
    QCOMPARE(h.Oldest(9, 3), "only 2");
    QCOMPARE(h.Quantity(10), 2.0);
  }

  /// As they come from the records, in no order: a sale comes off the lot that it names, whatever
  /// its own rate and date, and what has no date belongs to no purchase.
  void RecordedMovementsLeaveTheirPurchases() {
    Holding h;
    h.lots.Load(
        {kPlace.of.client, kPlace.of.year, LotId{7}, kPlace.account, kScrip, Shares(9), 10});
    const auto add = [&](MovementKind kind, int day, int document, double quantity, bool dated) {
      records::Movement m;
      m.kind = kind;
      m.dated = dated;
      m.client = kPlace.of.client;
      m.year = kPlace.of.year;
      m.account = kPlace.account;
      m.scrip = kScrip;
      m.date = m.acquired = Day(day);
      m.document = document;
      m.lot = LotId{7};
      m.quantity = Shares(quantity);
      m.rate = kind == MovementKind::kSale ? 99 : 10;
      h.layers.Add(m);
    };
    add(MovementKind::kSale, 1, 1, 3, true);
    add(MovementKind::kPurchase, 4, 2, 6, true);
    add(MovementKind::kTransferIn, 2, 3, 4, true);
    add(MovementKind::kPurchase, 2, 4, 2, true);
    add(MovementKind::kTransferOut, 9, 5, 1, true);
    add(MovementKind::kPurchase, 1, 6, 1, false);
    h.layers.Arrange();
    QCOMPARE(h.Quantity(10), 9.0);
    h.Buy(3, 10, 5);
    QCOMPARE(h.lots.Find(Key(10))->id, LotId{7});
    QCOMPARE(h.Oldest(3, 8), "only 7");
    QVERIFY(h.Sell(10, 14));
    QVERIFY(!h.Sell(10, 1));
  }
};

static const quorvane::test::RegisterTest<LayersTest> kRegistered;
#include "LayersTest.moc"
