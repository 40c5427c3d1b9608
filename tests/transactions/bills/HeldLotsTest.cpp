#include "support/Test.h"
#include "transactions/bills/HeldLots.h"

using namespace quorvane;
using namespace quorvane::bills;

namespace {

text::Date Day(int month) {
  return text::MakeDate(10, month, 2011).value();
}

HeldLot Held(int number, int scrip, double quantity, std::optional<text::Date> since = {}) {
  HeldLot held{{}, since};
  held.lot.id = LotId{number};
  held.lot.scrip = ScripId{scrip};
  held.lot.quantity = text::Shares(quantity);
  return held;
}

}  // namespace

class HeldLotsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void LotIsHeldSinceTheOldestOfItsSharesThatAreLeft_data() {
    // 0 is none
    const test::Table<double, int> row;
    row("all", 15.0, 4);
    row("a part of the oldest sold", 5.000001, 4);
    row("the oldest sold", 5.0, 6);
    row("used up", 0.0, 0);
    row("more than the records say", 20.0, 4);
  }
  void LotIsHeldSinceTheOldestOfItsSharesThatAreLeft() {
    const auto [left, month] = test::Table<double, int>::Row();
    LotDates dates;
    dates.Receive(ScripId{1}, 100, Day(6), text::Shares(5));
    dates.Receive(ScripId{1}, 100, Day(4), text::Shares(10));
    dates.Receive(ScripId{1}, 90, Day(5), text::Shares(50));
    HeldLot held = Held(1, 1, left);
    held.lot.rate = 100;
    QCOMPARE(dates.Of(held.lot), month == 0 ? std::nullopt : std::optional(Day(month)));
  }

  void LotsOfTheScripComeFirstAndUsedUpOnesLast() {
    std::vector<HeldLot> lots{Held(1, 1, 0, Day(4)), Held(2, 2, 1, Day(4)),  Held(3, 1, 2, Day(6)),
                              Held(4, 2, 3, Day(5)), Held(-1, 1, 4, Day(6)), Held(5, 1, 5, Day(5)),
                              Held(6, 1, 6),         Held(7, 1, 7, Day(6))};
    const auto order = [&](ScripId first) {
      Arrange(lots, first);
      QString numbers;
      for (const HeldLot& held : lots) {
        numbers += QString::number(held.lot.id.value) + QLatin1Char(' ');
      }
      return numbers;
    };
    QCOMPARE(order({}), "2 3 4 -1 5 6 7 1 ");
    QCOMPARE(order(ScripId{1}), "5 3 7 -1 6 2 4 1 ");
  }
};

static const quorvane::test::RegisterTest<HeldLotsTest> kRegistered;
#include "HeldLotsTest.moc"
