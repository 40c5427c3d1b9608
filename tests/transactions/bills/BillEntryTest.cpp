#include "support/TestMain.h"
#include "transactions/Desk.h"
#include "transactions/bills/BillEntry.h"

#include <QTest>

using namespace quorvane;
using namespace quorvane::bills;
using test::Desk;
using test::FieldOf;
using test::TextOf;

class BillEntryTest : public QObject {
  Q_OBJECT

  QString Balance() const {
    QStringList lots;
    for (const ledger::Lot& lot : entry_->Balance()) {
      lots += text::NumberText(lot.quantity) + QLatin1Char('@') + text::NumberText(lot.rate);
    }
    return lots.join(QLatin1Char(' '));
  }

  Bill Saved(std::vector<BillLine> lines) {
    Bill bill = desk_->NewBill(std::move(lines));
    if (BillBook(desk_->Connection(), desk_->of).Save(bill)) {
      throw std::runtime_error("refused");
    }
    return bill;
  }

  std::optional<Desk> desk_;
  std::optional<BillEntry> entry_;

 private Q_SLOTS:
  void initTestCase() { desk_.emplace(); }
  void cleanupTestCase() {
    entry_.reset();
    desk_.reset();
  }
  void init() {
    desk_->Empty();
    entry_.emplace(desk_->Connection(), desk_->of);
  }

  void TotalsFollowLinesAndCharges() {
    entry_->Begin(desk_->NewBill({}));
    QVERIFY(!entry_->Put(desk_->Purchase(10, 100), std::nullopt));
    QVERIFY(!entry_->Put(desk_->Purchase(1, 50), std::nullopt));
    entry_->SetCharges(5, 2.5);
    QCOMPARE(entry_->Current().grand_total, 1057.5);
    QVERIFY(!entry_->Put(desk_->Purchase(2, 50), 1));
    QVERIFY(!entry_->Remove(0));
    QCOMPARE(entry_->Current().grand_total, 107.5);
    QCOMPARE(entry_->Caption(), TotalCaption::kReceivable);
  }

  void TotalsOfARecordedBillStayUntilSomethingChanges() {
    Bill bill = desk_->NewBill({desk_->Purchase(10, 100)});
    bill.grand_total = -1000;
    QVERIFY(!BillBook(desk_->Connection(), desk_->of).Save(bill));
    entry_->Begin(bill);
    QCOMPARE(entry_->Caption(), TotalCaption::kPayable);
    entry_->SetCharges(0, 0);
    QVERIFY(!entry_->Save());
    QCOMPARE(BillBook(desk_->Connection(), desk_->of).Load(bill.id)->grand_total, -1000.0);
  }

  void SaleNamesItsLotWhenItsScripHasOne() {
    Saved({desk_->Purchase(10, 100), desk_->Purchase(4, 90)});
    entry_->Begin(desk_->NewBill({}));
    QCOMPARE(TextOf(entry_->Put(desk_->Sale(5, 120, {}), std::nullopt)),
             QStringLiteral("Select the Lot to be Sold from the Balance."));
    QVERIFY(!entry_->CheckQuantity(desk_->Sale(14, 120, {}), std::nullopt));
    QVERIFY(entry_->CheckQuantity(desk_->Sale(15, 120, {}), std::nullopt));
    BillLine other = desk_->Sale(1, 120, {});
    other.scrip = desk_->second_scrip;
    QCOMPARE(FieldOf(entry_->Put(other, std::nullopt)), QStringLiteral("Text1_3"));
    entry_->Begin([&] {
      Bill bill = desk_->NewBill({});
      bill.account = desk_->second_account;
      return bill;
    }());
    QVERIFY(!entry_->Put(desk_->Sale(5, 120, {}), std::nullopt));
  }

  void LinesMoveToAnotherAccount() {
    Saved({desk_->Purchase(10, 100)});
    const Bill saved = Saved({desk_->Purchase(4, 90)});
    entry_->Begin(saved);
    QVERIFY(!entry_->Put(desk_->Purchase(6, 90), 0));
    QVERIFY(!entry_->ChooseAccount(desk_->second_account));
    QCOMPARE(Balance(), QStringLiteral("6@90"));
    QVERIFY(!entry_->ChooseAccount(desk_->account));
    QCOMPARE(Balance(), QStringLiteral("6@90 10@100"));
    QVERIFY(!entry_->ChooseAccount(desk_->second_account));
    QVERIFY(!entry_->Save());
    QCOMPARE(desk_->LotAt(90), QStringLiteral("0@90"));
    QCOMPARE(desk_->LotAt(desk_->of, desk_->second_account, desk_->scrip, 90),
             QStringLiteral("6@90"));
  }

  void AccountStaysWhenALineSellsFromIt() {
    Saved({desk_->Purchase(10, 100)});
    entry_->Begin(desk_->NewBill({}));
    QVERIFY(!entry_->Put(desk_->Sale(5, 120, desk_->IdOfLot(100)), std::nullopt));
    QCOMPARE(FieldOf(entry_->ChooseAccount(desk_->second_account)), QStringLiteral("Combo2"));
    QCOMPARE(entry_->Current().account, desk_->account);
    QCOMPARE(Balance(), QStringLiteral("5@100"));
  }

  // The lines stand in another order than their scratch lots then.
  void SaleFollowsAPurchaseThatWasEnteredAgain() {
    BillLine other = desk_->Purchase(5, 200);
    other.scrip = desk_->second_scrip;
    entry_->Begin(desk_->NewBill({}));
    QVERIFY(!entry_->Put(desk_->Purchase(10, 100), std::nullopt));
    QVERIFY(!entry_->Put(other, std::nullopt));
    QVERIFY(!entry_->Remove(0));
    QVERIFY(!entry_->Put(desk_->Purchase(10, 100), std::nullopt));
    QVERIFY(!entry_->Put(desk_->Sale(4, 120, entry_->Current().lines[1].lot), std::nullopt));
    QVERIFY(!entry_->Save());
    QCOMPARE(desk_->LotAt(100), QStringLiteral("6@100"));
    QCOMPARE(desk_->LotAt(desk_->of, desk_->account, desk_->second_scrip, 200),
             QStringLiteral("5@200"));
  }

  // Both purchases have the scratch lot of the same number after another window began anew.
  void SaleOfANumberThatTwoPurchasesHadIsRefused() {
    entry_->Begin(desk_->NewBill({}));
    QVERIFY(!entry_->Put(desk_->Purchase(10, 100), std::nullopt));
    QVERIFY(!posting::ScratchLots(desk_->Connection(), desk_->of).Begin(std::nullopt));
    QVERIFY(!entry_->Put(desk_->Purchase(10, 200), std::nullopt));
    QCOMPARE(entry_->Current().lines[0].lot, entry_->Current().lines[1].lot);
    QVERIFY(!entry_->Put(desk_->Sale(4, 250, entry_->Current().lines[1].lot), std::nullopt));
    QVERIFY(entry_->Save());
    QCOMPARE(desk_->LotAt(100), QStringLiteral("none"));
  }

  void RefreshPostsTheLinesToTheLedgerOfNow() {
    entry_->Begin(desk_->NewBill({}));
    QVERIFY(!entry_->Put(desk_->Purchase(3, 100), std::nullopt));
    Saved({desk_->Purchase(10, 100)});
    QVERIFY(!entry_->Refresh());
    QCOMPARE(Balance(), QStringLiteral("13@100"));
    QVERIFY(!entry_->Save());
    QCOMPARE(desk_->LotAt(100), QStringLiteral("13@100"));
  }
};

static const quorvane::test::RegisterTest<BillEntryTest> kRegistered;
#include "BillEntryTest.moc"
