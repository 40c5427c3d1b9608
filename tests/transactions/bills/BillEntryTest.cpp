#include "support/DatabaseTest.h"
#include "transactions/bills/BillEntry.h"

using namespace quorvane;
using namespace quorvane::bills;
using test::FieldOf;
using test::TextOf;

class BillEntryTest : public test::DeskTest {
  Q_OBJECT

  QString Balance() const {
    QStringList lots;
    for (const HeldLot& held : entry_->Balance()) {
      lots += text::NumberText(held.lot.quantity.Number()) + QLatin1Char('@') +
              text::NumberText(held.lot.rate);
    }
    return lots.join(QLatin1Char(' '));
  }

  /// A sale from the lot of that rate, as it is picked from the balance.
  BillLine SaleFrom(double lot_rate, double quantity) const {
    for (const HeldLot& held : entry_->Balance()) {
      if (held.lot.scrip == desk_->scrip && held.lot.rate == lot_rate) {
        BillLine sale = desk_->Sale(quantity, 150, held.lot.id);
        sale.lot_rate = lot_rate;
        return sale;
      }
    }
    throw std::runtime_error("no such lot");
  }

  /// The quantity, rate of the lot and service tax of each line.
  QString Lines() const {
    QStringList lines;
    for (const BillLine& line : entry_->Current().lines) {
      lines += QStringLiteral("%1@%2+%3")
                   .arg(text::NumberText(line.quantity.Number()),
                        text::NumberText(line.IsPurchase() ? line.rate : line.lot_rate),
                        text::NumberText(line.service_tax));
    }
    return lines.join(QLatin1Char(' '));
  }

  void Begin(AccountId account, std::vector<BillLine> lines) {
    Bill bill = desk_->NewBill({});
    bill.account = account;
    entry_->Begin(bill);
    for (const BillLine& line : lines) {
      QCOMPARE(TextOf(entry_->Put(line, std::nullopt)), test::kAccepted);
    }
  }

  Bill Saved(std::vector<BillLine> lines) {
    Bill bill = desk_->NewBill(std::move(lines));
    if (test::Save(BillBook(desk_->Connection(), desk_->of), bill)) {
      throw std::runtime_error("refused");
    }
    return bill;
  }

  std::optional<BillEntry> entry_;

 private Q_SLOTS:
  void cleanup() { entry_.reset(); }
  void init() {
    desk_->Empty();
    entry_.emplace(desk_->Connection(), desk_->of);
  }

  void TotalsOfARecordedBillStayUntilSomethingChanges() {
    Bill bill = desk_->NewBill({desk_->Purchase(10, 100)});
    bill.grand_total = -1000;
    QVERIFY(!test::Save(BillBook(desk_->Connection(), desk_->of), bill));
    entry_->Begin(bill);
    QCOMPARE(entry_->Caption(), records::TotalCaption::kPayable);
    entry_->SetCharges(0, 0);
    QVERIFY(!entry_->Save());
    QCOMPARE(BillBook(desk_->Connection(), desk_->of).Load(bill.id)->grand_total, -1000.0);
  }

  void SaleNamesItsLotWhenItsScripHasOne() {
    Saved({desk_->Purchase(10, 100), desk_->Purchase(4, 90)});
    entry_->Begin(desk_->NewBill({}));
    QCOMPARE(TextOf(entry_->Put(desk_->Sale(5, 120, {}), std::nullopt)),
             "Select the Lot to be Sold from the Balance.");
    QVERIFY(!entry_->CheckQuantity(desk_->Sale(14, 120, {}), std::nullopt));
    QVERIFY(entry_->CheckQuantity(desk_->Sale(15, 120, {}), std::nullopt));
    BillLine other = desk_->Sale(1, 120, {});
    other.scrip = desk_->second_scrip;
    QCOMPARE(FieldOf(entry_->Put(other, std::nullopt)), Field::kQuantity);
    entry_->Begin([&] {
      Bill bill = desk_->NewBill({});
      bill.account = desk_->second_account;
      return bill;
    }());
    QVERIFY(!entry_->Put(desk_->Sale(5, 120, {}), std::nullopt));
  }

  void SaleFollowsAPurchaseThatWasEnteredAgain() {
    BillLine other = desk_->Purchase(5, 200);
    other.scrip = desk_->second_scrip;
    Begin(desk_->account, {desk_->Purchase(10, 100), other});
    QVERIFY(!entry_->Remove(0));
    QVERIFY(!entry_->Put(desk_->Purchase(10, 100), std::nullopt));
    QVERIFY(!entry_->Put(SaleFrom(100, 4), std::nullopt));
    QVERIFY(!entry_->Save());
    QCOMPARE(desk_->LotAt(100), "6@100");
    QCOMPARE(desk_->LotAt(desk_->of, desk_->account, desk_->second_scrip, 200), "5@200");
  }

  void LinesMoveTheBalanceButNotTheLedger() {
    Saved({desk_->Purchase(10, 100), desk_->Purchase(4, 90)});
    const QStringList before = desk_->Everything();
    Begin(desk_->account, {desk_->Purchase(5, 90), desk_->Purchase(2, 80)});
    QVERIFY(!entry_->Put(SaleFrom(100, 3), std::nullopt));
    QCOMPARE(Balance(), "2@80 7@100 9@90");
    QCOMPARE(desk_->Contents("Stock_Temp").size(), 3);
    QVERIFY(!entry_->Put(SaleFrom(100, 10), 2));
    QVERIFY(!entry_->Remove(0));
    QCOMPARE(Balance(), "0@100 2@80 4@90");
    QVERIFY(!entry_->Put(desk_->Purchase(3, 100), 1));
    QCOMPARE(Balance(), "2@80 4@90 13@100");
    QCOMPARE(desk_->Everything(), before);
    entry_->Cancel();
    QCOMPARE(desk_->Contents("Stock_Temp"), QStringList());
    QCOMPARE(desk_->Everything(), before);
  }

  // Another window, program or rebuild may do anything to the scratch table.
  void NobodyElseChangesTheLotsOfAnEntry() {
    Saved({desk_->Purchase(115, 100)});
    Begin(desk_->account, {desk_->Purchase(2, 80)});
    desk_->Connection().Execute("Delete From Stock_Temp");
    QVERIFY(TextOf(entry_->Put(desk_->Sale(1000, 150, {}), std::nullopt))
                .endsWith(QStringLiteral("is: 117.00")));
    QVERIFY(!entry_->Put(SaleFrom(100, 10), std::nullopt));
    desk_->Connection().Execute("Insert Into Stock_Temp Select * From Stock");
    QVERIFY(!entry_->Put(SaleFrom(80, 1), std::nullopt));
    QCOMPARE(Balance(), "1@80 105@100");
    QCOMPARE(TextOf(entry_->Save()), test::kAccepted);
    QCOMPARE(desk_->LotAt(100), "105@100");
    QCOMPARE(desk_->LotAt(80), "1@80");
  }

  void ChangeThatWouldLeaveALotBelowZeroChangesNothing_data() {
    const test::Table<double, double, bool> row;
    // 10 came at 100 and 8 of them are sold.
    row("as many as sold", 8.0, 100.0, true);
    row("fewer than sold", 7.999999, 100.0, false);
  }
  void ChangeThatWouldLeaveALotBelowZeroChangesNothing() {
    const auto [quantity, rate, accepted] = test::Table<double, double, bool>::Row();
    entry_->Begin(Saved({desk_->Purchase(10, 100)}));
    QVERIFY(!entry_->Put(SaleFrom(100, 8), std::nullopt));
    const MaybeRefusal refusal = entry_->Put(desk_->Purchase(quantity, rate), 0);
    QCOMPARE(TextOf(refusal), accepted ? test::kAccepted : test::kNegativeReliance);
    QCOMPARE(Balance(), accepted ? QStringLiteral("0@100") : QStringLiteral("2@100"));
    QCOMPARE(TextOf(entry_->Remove(0)), test::kNegativeReliance);
  }

  void SaleOfSeveralLotsTakesTheOldestFirst_data() {
    // 0 is none
    const test::Table<double, double, QString> row;
    row("no lot, several", 0.0, 12.0, "10@100 2@80");
    row("its own lot first", 90.0, 11.0, "4@90 7@100");
    row("all", 0.0, 20.0, "10@100 6@80 4@90");
    row("more than all", 0.0, 20.5, QString());
  }
  void SaleOfSeveralLotsTakesTheOldestFirst() {
    const auto [lot, quantity, pieces] = test::Table<double, double, QString>::Row();
    for (const auto& [date, line] : {std::pair{"10/07/2011", desk_->Purchase(6, 80)},
                                     {"10/06/2011", desk_->Purchase(10, 100)},
                                     {"10/08/2011", desk_->Purchase(4, 90)}}) {
      Bill bill = desk_->NewBill(QString::fromLatin1(date), {line});
      QVERIFY(!test::Save(BillBook(desk_->Connection(), desk_->of), bill));
    }
    Begin(desk_->account, {});
    const BillLine sale = lot == 0 ? desk_->Sale(quantity, 150, {}) : SaleFrom(lot, quantity);
    QStringList found;
    for (const Piece& piece : entry_->Spread(sale, std::nullopt)) {
      found += text::NumberText(piece.quantity.Number()) + QLatin1Char('@') +
               text::NumberText(piece.from.lot.rate);
    }
    QCOMPARE(found.join(QLatin1Char(' ')), pieces);
  }

  void ChargesOfASaleAreSharedOut() {
    Saved({desk_->Purchase(1, 100), desk_->Purchase(1, 90), desk_->Purchase(1, 80)});
    Begin(desk_->account, {});
    BillLine sale = desk_->Sale(3, 150, {});
    sale.service_tax = 0.1;
    QVERIFY(!entry_->Put(SpreadOver(sale, entry_->Spread(sale, std::nullopt)), std::nullopt));
    QCOMPARE(Lines(), "1@100+0.03 1@90+0.04 1@80+0.03");
    QCOMPARE(entry_->Current().total, 449.9);
  }

  void SalesEnteredBeforeTheAccountTakeItsOldestLots() {
    Saved({desk_->Purchase(10, 100), desk_->Purchase(4, 90)});
    Begin({}, {desk_->Sale(12, 150, {})});
    QVERIFY(!entry_->ChooseAccount(desk_->account));
    QCOMPARE(entry_->SalesWithoutLot(), std::size_t{1});
    QCOMPARE(TextOf(entry_->Save()), "Line 1: Select the Lot to be Sold from the Balance.");
    QVERIFY(!entry_->TakeOldestLots());
    QCOMPARE(Lines(), "10@100+0 2@90+0");
    QVERIFY(!entry_->Save());
    QCOMPARE(desk_->LotAt(100), "0@100");
    QCOMPARE(desk_->LotAt(90), "2@90");
  }

  void SalesBeyondTheAccountThatIsChosenAreRefused() {
    Saved({desk_->Purchase(10, 100)});
    Begin({}, {desk_->Sale(6, 150, {}), desk_->Sale(6, 150, {})});
    QVERIFY(!entry_->ChooseAccount(desk_->account));
    QVERIFY(TextOf(entry_->TakeOldestLots()).startsWith(QStringLiteral("Line 2: ")));
    QCOMPARE(Lines(), "6@0+0 6@0+0");
    QVERIFY(entry_->Save());
    QVERIFY(!entry_->ChooseAccount(desk_->second_account));
    QCOMPARE(TextOf(entry_->Save()), test::kAccepted);
  }

  void RefreshPostsTheLinesToTheLedgerOfNow() {
    entry_->Begin(desk_->NewBill({}));
    QVERIFY(!entry_->Put(desk_->Purchase(3, 100), std::nullopt));
    Saved({desk_->Purchase(10, 100)});
    QVERIFY(!entry_->Refresh());
    QCOMPARE(Balance(), "13@100");
    QVERIFY(!entry_->Save());
    QCOMPARE(desk_->LotAt(100), "13@100");
  }
};

static const quorvane::test::RegisterTest<BillEntryTest> kRegistered;
#include "BillEntryTest.moc"
