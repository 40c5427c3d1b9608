#include "support/TestMain.h"
#include "transactions/Desk.h"
#include "transactions/bills/BillBook.h"
#include "transactions/bills/StagedHoldings.h"

#include <QTest>

using namespace quorvane;
using namespace quorvane::bills;
using test::Desk;
using test::kNegativeReliance;
using test::TextOf;

class StagedHoldingsTest : public QObject {
  Q_OBJECT

  BillBook Book() { return {desk_->Connection(), desk_->of}; }

  QString Balance() const {
    QStringList lots;
    for (const ledger::Lot& lot : staged_->Balance()) {
      lots += text::NumberText(lot.quantity) + QLatin1Char('@') + text::NumberText(lot.rate);
    }
    return lots.join(QLatin1Char(' '));
  }

  std::optional<Desk> desk_;
  std::optional<StagedHoldings> staged_;
  Bill bill_;

 private Q_SLOTS:
  void initTestCase() { desk_.emplace(); }
  void cleanupTestCase() {
    staged_.reset();
    desk_.reset();
  }
  void init() {
    desk_->Empty();
    bill_ = desk_->NewBill({desk_->Purchase(10, 100), desk_->Purchase(4, 90)});
    QVERIFY(!Book().Save(bill_));
    staged_.emplace(desk_->Connection(), desk_->of);
    staged_->Begin(desk_->account);
  }
  void BalanceIsTheAccountsSmallestQuantityFirst() {
    Bill elsewhere = desk_->NewBill({desk_->Purchase(1, 1)});
    elsewhere.account = desk_->second_account;
    QVERIFY(!Book().Save(elsewhere));
    staged_->Begin(desk_->account);
    QCOMPARE(Balance(), QStringLiteral("4@90 10@100"));
  }

  void LinesMoveTheBalanceButNotTheLedger() {
    const QStringList before = desk_->Everything();
    BillLine sale = desk_->Sale(3, 120, desk_->IdOfLot(100));
    BillLine joins = desk_->Purchase(5, 90);
    BillLine fresh = desk_->Purchase(2, 80);
    QVERIFY(!staged_->AddLine(sale));
    QVERIFY(!staged_->AddLine(joins));
    QVERIFY(!staged_->AddLine(fresh));
    QCOMPARE(Balance(), QStringLiteral("2@80 7@100 9@90"));
    QCOMPARE(joins.lot, desk_->IdOfLot(90));
    QVERIFY(fresh.lot.value > desk_->IdOfLot(100).value);

    BillLine more = desk_->Sale(10, 120, desk_->IdOfLot(100));
    QVERIFY(!staged_->ChangeLine(sale, more));
    QVERIFY(!staged_->RemoveLine(joins));
    QCOMPARE(Balance(), QStringLiteral("0@100 2@80 4@90"));
    QCOMPARE(desk_->Everything(), before);
  }

  void ChangeMayTurnASaleIntoAPurchase() {
    BillLine sale = desk_->Sale(3, 120, desk_->IdOfLot(100));
    QVERIFY(!staged_->AddLine(sale));
    BillLine purchase = desk_->Purchase(3, 100);
    QVERIFY(!staged_->ChangeLine(sale, purchase));
    QCOMPARE(Balance(), QStringLiteral("4@90 13@100"));
  }

  void ChangeThatWouldLeaveALotBelowZeroChangesNothing_data() {
    QTest::addColumn<double>("quantity");
    QTest::addColumn<double>("rate");
    QTest::addColumn<bool>("accepted");
    // 10 came at 100 and 8 of them are sold on the scratch table.
    QTest::newRow("as many as sold") << 8.0 << 100.0 << true;
    QTest::newRow("fewer than sold") << 7.999999 << 100.0 << false;
    QTest::newRow("another rate") << 10.0 << 101.0 << false;
  }
  void ChangeThatWouldLeaveALotBelowZeroChangesNothing() {
    QFETCH(double, quantity);
    QFETCH(double, rate);
    QFETCH(bool, accepted);
    BillLine sale = desk_->Sale(8, 120, desk_->IdOfLot(100));
    QVERIFY(!staged_->AddLine(sale));
    const QStringList before = desk_->Contents("Stock_Temp");
    BillLine line = desk_->Purchase(quantity, rate);
    const MaybeRefusal refusal = staged_->ChangeLine(bill_.lines[0], line);
    QCOMPARE(TextOf(refusal), accepted ? test::kAccepted : kNegativeReliance);
    QCOMPARE(desk_->Contents("Stock_Temp") == before, !accepted);
  }

  void RemovalOfAPurchaseThatWasSoldIsRefused() {
    BillLine sale = desk_->Sale(8, 120, desk_->IdOfLot(100));
    QVERIFY(!staged_->AddLine(sale));
    QCOMPARE(TextOf(staged_->RemoveLine(bill_.lines[0])), kNegativeReliance);
    QCOMPARE(Balance(), QStringLiteral("2@100 4@90"));
  }

  void SaleBeyondTheBalanceNamesIt() {
    BillLine sale = desk_->Sale(10.5, 120, desk_->IdOfLot(100));
    QVERIFY(TextOf(staged_->AddLine(sale)).endsWith(QStringLiteral("is: 10.00")));
    BillLine nowhere = desk_->Sale(1, 120, LotId{});
    QVERIFY(TextOf(staged_->AddLine(nowhere)).endsWith(QStringLiteral("is: 0.00")));
    QCOMPARE(Balance(), QStringLiteral("4@90 10@100"));
  }

  void SaleIsNotCheckedWhileTheAccountHasNoLots() {
    staged_->Begin(desk_->second_account);
    BillLine sale = desk_->Sale(5, 120, LotId{});
    QVERIFY(!staged_->AddLine(sale));
    QVERIFY(staged_->Balance().empty());
  }

  void AvailableSharesCountTheLineThatIsReplaced() {
    BillLine sale = desk_->Sale(8, 120, desk_->IdOfLot(100));
    QVERIFY(!staged_->AddLine(sale));
    QCOMPARE(staged_->Available(desk_->IdOfLot(100)).value(), 2.0);
    QCOMPARE(staged_->Available(desk_->IdOfLot(100), &sale).value(), 10.0);
    QCOMPARE(staged_->Available(desk_->IdOfLot(90), &sale).value(), 4.0);
    QCOMPARE(staged_->Available(desk_->IdOfLot(90), &bill_.lines[1]).value(), 0.0);
  }

  void CancelForgetsTheLines() {
    const QStringList before = desk_->Everything();
    BillLine fresh = desk_->Purchase(2, 80);
    QVERIFY(!staged_->AddLine(fresh));
    staged_->Cancel();
    QCOMPARE(desk_->Contents("Stock_Temp"), QStringList());
    QCOMPARE(desk_->Everything(), before);
  }

  void SavedBillBringsTheLedgerToTheBalance() {
    Bill bill = desk_->NewBill({desk_->Purchase(2, 80)});
    QVERIFY(!staged_->AddLine(bill.lines[0]));
    bill.lines.push_back(desk_->Sale(1, 130, bill.lines[0].lot));
    QVERIFY(!staged_->AddLine(bill.lines[1]));
    QStringList staged = desk_->Contents("Stock_Temp");
    QVERIFY(!Book().Save(bill));
    QCOMPARE(desk_->Contents("Stock"),
             staged.replaceInStrings(QStringLiteral("Stock_Temp"), QStringLiteral("Stock")));
    QCOMPARE(desk_->Contents("Stock_Temp"), QStringList());
  }

  void AnotherProgramOnTheScratchTableDoesNotSpoilTheSave() {
    Bill bill = desk_->NewBill({desk_->Purchase(2, 80)});
    QVERIFY(!staged_->AddLine(bill.lines[0]));
    bill.lines.push_back(desk_->Sale(1, 130, bill.lines[0].lot));
    QVERIFY(!staged_->AddLine(bill.lines[1]));
    StagedHoldings(desk_->Connection(), desk_->of).Begin(desk_->second_account);
    Bill meanwhile = desk_->NewBill({desk_->Purchase(50, 70)});
    meanwhile.account = desk_->other_account;
    QVERIFY(!BillBook(desk_->Connection(), desk_->other_of).Save(meanwhile));

    QVERIFY(!Book().Save(bill));
    QCOMPARE(desk_->LotAt(80), QStringLiteral("1@80"));
    QCOMPARE(desk_->LotAt(100), QStringLiteral("10@100"));
  }
};

static const quorvane::test::RegisterTest<StagedHoldingsTest> kRegistered;
#include "StagedHoldingsTest.moc"
