#include "core/ledger/Posting.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

using namespace quorvane;
using namespace quorvane::ledger;
using records::BillLine;
using records::Side;

namespace {

const ClientYear kOf{ClientId{1}, text::FinancialYear(2011)};
const Place kPlace{kOf, AccountId{2}};

LotKey Key(double rate) {
  return {kOf, AccountId{2}, ScripId{3}, rate};
}

records::Lot Stored(int id, double quantity, double rate) {
  return {kOf.client, kOf.year, LotId{id}, AccountId{2}, ScripId{3}, Shares(quantity), rate};
}

BillLine Line(Side side, double quantity, double rate, int lot = 0, double lot_rate = 0) {
  BillLine line;
  line.side = side;
  line.scrip = ScripId{3};
  line.quantity = Shares(quantity);
  line.rate = rate;
  line.lot = LotId{lot};
  line.lot_rate = lot_rate;
  return line;
}

}  // namespace

class LotsTest : public QObject {
  Q_OBJECT

  /// "id:quantity@rate" of every lot.
  static QStringList TextsOf(std::span<const Lots::Entry> entries) {
    QStringList texts;
    for (const Lots::Entry& entry : entries) {
      texts << QStringLiteral("%1:%2@%3")
                   .arg(entry.lot.id.value)
                   .arg(entry.lot.quantity.Number())
                   .arg(entry.lot.rate);
    }
    return texts;
  }

 private Q_SLOTS:
  void PostingFindsItsLotByEveryPartOfTheKey_data() {
    const test::Table<int, int, int, int, double, bool> row;
    row("same", 1, 2011, 2, 3, 0.1 + 0.2, true);
    row("client", 7, 2011, 2, 3, 0.1 + 0.2, false);
    row("year", 1, 2012, 2, 3, 0.1 + 0.2, false);
    row("account", 1, 2011, 7, 3, 0.1 + 0.2, false);
    row("scrip", 1, 2011, 2, 7, 0.1 + 0.2, false);
    row("neighbouring double", 1, 2011, 2, 3, 0.3, false);
  }
  void PostingFindsItsLotByEveryPartOfTheKey() {
    const auto [client, year, account, scrip, rate, same] =
        test::Table<int, int, int, int, double, bool>::Row();
    Lots lots;
    const LotId first = lots.PostLot(Posting::kAdd, Key(0.1 + 0.2), Shares(10));
    const LotKey key{
        {ClientId{client}, text::FinancialYear(year)}, AccountId{account}, ScripId{scrip}, rate};
    QCOMPARE(lots.PostLot(Posting::kSubtract, key, Shares(4)) == first, same);
    QCOMPARE(lots.Find(key)->quantity.Number(), same ? 6.0 : 4.0);
  }

  void SaleDrawsOnAPurchaseOfItsOwnBill() {
    Lots lots;
    lots.Load(Stored(5, 4, 100));
    std::vector<BillLine> lines{Line(Side::kSale, 6, 120, -1, 90), Line(Side::kSale, 3, 120, 5),
                                Line(Side::kPurchase, 6, 90), Line(Side::kSale, 9, 120)};
    PostLines(lots, kPlace, lines);
    QCOMPARE(TextsOf(lots.Entries()), QStringList({"5:1@100", "-1:0@90"}));
    QVERIFY(!lots.Shortage());
    TakeBackLines(lots, kPlace, lines);
    QCOMPARE(TextsOf(lots.Entries()), QStringList({"5:4@100", "-1:0@90"}));
  }

  void ShortageIsWhatComesOfAllTogether_data() {
    const test::Table<double, std::function<void(Lots&)>, bool> row;
    const auto sell = [](Lots& lots, double quantity, int lot) {
      std::vector<BillLine> line{Line(Side::kSale, quantity, 120, lot)};
      PostLines(lots, kPlace, line);
    };
    row(
        "all that is held", 10, [=](Lots& lots) { sell(lots, 10, 5); }, false);
    row(
        "one millionth more", 10, [=](Lots& lots) { sell(lots, 10.000001, 5); }, true);
    row(
        "nearer to zero than before", -10,
        [=](Lots& lots) { lots.PostLot(Posting::kAdd, Key(100), Shares(1)); }, false);
    row(
        "of a lot that is not there", 10, [=](Lots& lots) { sell(lots, 1, 6); }, true);
    row(
        "of a lot that is not there, given back first", 10,
        [=](Lots& lots) {
          sell(lots, 1, 6);
          TakeBackLines(lots, kPlace, std::vector{Line(Side::kSale, 1, 120, 6)});
        },
        false);
    row(
        "a purchase whose lot is gone", 10,
        [](Lots& lots) { TakeBackLines(lots, kPlace, std::vector{Line(Side::kPurchase, 1, 50)}); },
        true);
  }
  void ShortageIsWhatComesOfAllTogether() {
    const auto [stored, post, shortage] =
        test::Table<double, std::function<void(Lots&)>, bool>::Row();
    Lots lots;
    lots.Load(Stored(5, stored, 100));
    post(lots);
    QCOMPARE(lots.Shortage().has_value(), shortage);
  }

  void WritingNumbersNewLotsAndKeepsTheOthers() {
    test::TestDatabase database;
    database->Execute("Insert Into Stock Values(1,'2011-12',40,2,3,5,10)");
    database->Execute("Insert Into Stock_Temp Values(9,'2010-11',70,1,1,5,10)");
    Lots lots;
    std::vector<BillLine> lines{Line(Side::kPurchase, 6, 90), Line(Side::kPurchase, 7, 91),
                                Line(Side::kPurchase, 1, 10)};
    database::InTransaction(*database, [&](Transaction& transaction) {
      lots = {};
      LockAndLoad(transaction, lots, std::vector{kPlace});
      PostLines(lots, kPlace, lines);
      lots.Write(transaction);
      NumberLots(lots, lines);
    });
    Lots written;
    for (const records::Lot& lot : ReadLots(*database, LotScope::Of(kPlace))) {
      written.Load(lot);
    }
    QCOMPARE(TextsOf(written.Entries()), QStringList({"40:6@10", "71:6@90", "72:7@91"}));
    QCOMPARE(lines[1].lot, LotId{72});
    QCOMPARE(lines[2].lot, LotId{40});
  }
};

static const quorvane::test::RegisterTest<LotsTest> kRegistered;
#include "LotsTest.moc"
