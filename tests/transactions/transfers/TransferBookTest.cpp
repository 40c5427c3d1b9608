#include "core/ledger/Rebuild.h"
#include "support/Desk.h"
#include "support/TestMain.h"
#include "transactions/bills/BillBook.h"
#include "transactions/transfers/TransferBook.h"

#include <QTest>

#include <functional>

using namespace quorvane;
using namespace quorvane::transfers;
using test::Desk;
using test::kAccepted;
using test::kNegativeReliance;
using test::TextOf;

namespace {

using Edit = std::function<void(const Desk&, Transfer&)>;

QString OverBalance(const char* balance) {
  return QStringLiteral(
             "You Can't Transfer Scripts More than Balance.\n"
             "Maximum Allowed Value is: %1")
      .arg(QLatin1String(balance));
}

}  // namespace

Q_DECLARE_METATYPE(Edit)

class TransferBookTest : public QObject {
  Q_OBJECT

  TransferBook Book() { return {desk_->Connection(), desk_->of}; }
  bills::BillBook Bills() { return {desk_->Connection(), desk_->of}; }

  Transfer NewTransfer(double quantity, AccountId to) {
    Transfer transfer;
    transfer.date = QStringLiteral("20/06/2011");
    transfer.from = desk_->account;
    transfer.to = to;
    transfer.lot = desk_->IdOfLot(100.1);
    transfer.quantity = Shares(quantity);
    return transfer;
  }

  QString Source() { return desk_->LotAt(100.1); }
  QString AtSecond() { return desk_->LotAt(desk_->of, desk_->second_account, desk_->scrip, 100.1); }
  QString AtOther() {
    return desk_->LotAt(desk_->other_of, desk_->other_account, desk_->scrip, 100.1);
  }

  void SellAtSecond(double quantity) {
    const auto lots = ledger::ReadLots(desk_->Connection(),
                                       ledger::LotScope::Of({desk_->of, desk_->second_account}));
    records::Bill bill = desk_->NewBill({desk_->Sale(quantity, 150, lots.front().id)});
    bill.account = desk_->second_account;
    QVERIFY(!Bills().Save(bill));
  }

  std::optional<Desk> desk_;

 private Q_SLOTS:
  void initTestCase() { desk_.emplace(); }
  void init() {
    desk_->Empty();
    records::Bill bill = desk_->NewBill({desk_->Purchase(10, 100.1)});
    QVERIFY(!Bills().Save(bill));
  }
  void cleanupTestCase() { desk_.reset(); }

  void TransferToAnotherAccountOfTheClientKeepsTheRate() {
    Transfer transfer = NewTransfer(4, desk_->second_account);
    QVERIFY(!Book().Save(transfer));
    QCOMPARE(Source(), QStringLiteral("6@100.1"));
    QCOMPARE(AtSecond(), QStringLiteral("4@100.1"));
    QCOMPARE(desk_->Contents("ScrTransfer"),
             QStringList(QStringLiteral("ScrTransfer|1|2011-12|1|20/06/2011|1|0|2|1|1|1|100.1|4")));
  }

  void SharesAreRecordedAsTheLedgerKeepsThem() {
    for (const double quantity : {1.0000004, 2.0000004}) {
      Transfer transfer = NewTransfer(quantity, desk_->second_account);
      QVERIFY(!Book().Save(transfer));
    }
    Progress silent;
    QVERIFY(ledger::CheckStock(desk_->Connection(), std::nullopt, silent).changes.empty());
  }

  void TransferToAnotherClientArrivesThere() {
    Transfer transfer = NewTransfer(10, desk_->other_account);
    QVERIFY(!Book().Save(transfer));
    QCOMPARE(Source(), QStringLiteral("0@100.1"));
    QCOMPARE(AtOther(), QStringLiteral("10@100.1"));
    QCOMPARE(
        desk_->Contents("ScrTransfer"),
        QStringList(QStringLiteral("ScrTransfer|1|2011-12|1|20/06/2011|1|1|3|2|1|1|100.1|10")));
    QVERIFY(TransferBook(desk_->Connection(), desk_->other_of).List().empty());
  }

  void TransferJoinsTheLotOfTheRate() {
    Transfer first = NewTransfer(4, desk_->second_account);
    Transfer second = NewTransfer(1, desk_->second_account);
    QVERIFY(!Book().Save(first));
    QVERIFY(!Book().Save(second));
    QCOMPARE(AtSecond(), QStringLiteral("5@100.1"));
    QCOMPARE(desk_->Contents("Stock").size(), 2);
  }

  void RateAndScripAreTheLots() {
    Transfer transfer = NewTransfer(4, desk_->second_account);
    transfer.rate = 1;
    transfer.scrip = desk_->second_scrip;
    QVERIFY(!Book().Save(transfer));
    QCOMPARE(AtSecond(), QStringLiteral("4@100.1"));
  }

  void RefusedTransferChangesNothing_data() {
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QString>("text");
    QTest::newRow("more than the lot has")
        << Edit([](const Desk&, Transfer& transfer) { transfer.quantity = Shares(10.000001); })
        << OverBalance("10.00");
    QTest::newRow("lot of another account") << Edit([](const Desk& desk, Transfer& transfer) {
      transfer.from = desk.second_account;
      transfer.to = desk.account;
    }) << QStringLiteral("Select Script Name that You want to Transfer.");
    QTest::newRow("account that nobody owns")
        << Edit([](const Desk&, Transfer& transfer) { transfer.to = AccountId{99}; })
        << QStringLiteral("Select Demat A/c No. To which You want to Transfer Scripts.");
  }
  void RefusedTransferChangesNothing() {
    QFETCH(Edit, edit);
    const QStringList before = desk_->Everything();
    Transfer transfer = NewTransfer(1, desk_->second_account);
    edit(*desk_, transfer);
    QTEST(TextOf(Book().Save(transfer)), "text");
    QCOMPARE(desk_->Everything(), before);
  }

  void ChangeMovesTheDifferenceUnlessSharesWereUsed_data() {
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<QString>("text");
    // 6 of 10 were moved to the second account, where 5 of them were sold.
    QTest::newRow("more, up to the whole lot")
        << Edit([](const Desk&, Transfer& transfer) { transfer.quantity = Shares(10); })
        << kAccepted;
    QTest::newRow("more than the lot had before")
        << Edit([](const Desk&, Transfer& transfer) { transfer.quantity = Shares(10.5); })
        << OverBalance("10.00");
    QTest::newRow("as many as were sold")
        << Edit([](const Desk&, Transfer& transfer) { transfer.quantity = Shares(5); })
        << kAccepted;
    QTest::newRow("fewer than were sold")
        << Edit([](const Desk&, Transfer& transfer) { transfer.quantity = Shares(4.999999); })
        << kNegativeReliance;
    QTest::newRow("to another client")
        << Edit([](const Desk& desk, Transfer& transfer) { transfer.to = desk.other_account; })
        << kNegativeReliance;
    QTest::newRow("on another day") << Edit([](const Desk&, Transfer& transfer) {
      transfer.date = QStringLiteral("21/06/2011");
    }) << kAccepted;
  }
  void ChangeMovesTheDifferenceUnlessSharesWereUsed() {
    QFETCH(Edit, edit);
    QFETCH(QString, text);
    Transfer transfer = NewTransfer(6, desk_->second_account);
    QVERIFY(!Book().Save(transfer));
    SellAtSecond(5);
    const QStringList before = desk_->Everything();
    edit(*desk_, transfer);
    QCOMPARE(TextOf(Book().Save(transfer)), text);
    QCOMPARE(desk_->Everything() == before, text != kAccepted);
    if (text == kAccepted) {
      QCOMPARE(Source(),
               text::NumberText(10 - transfer.quantity.Number()) + QStringLiteral("@100.1"));
      QCOMPARE(AtSecond(),
               text::NumberText(transfer.quantity.Number() - 5) + QStringLiteral("@100.1"));
      QCOMPARE(Book().List().size(), std::size_t{1});
    }
  }

  void DeleteRestoresBothAccountsUnlessSharesWereUsed() {
    Transfer away = NewTransfer(3, desk_->other_account);
    Transfer near = NewTransfer(4, desk_->second_account);
    QVERIFY(!Book().Save(away));
    QVERIFY(!Book().Save(near));
    QVERIFY(!Book().Delete(away.id));
    QCOMPARE(AtOther(), QStringLiteral("0@100.1"));
    QCOMPARE(Source(), QStringLiteral("6@100.1"));
    SellAtSecond(1);
    const QStringList used = desk_->Everything();
    QCOMPARE(TextOf(Book().Delete(near.id)), kNegativeReliance);
    QCOMPARE(desk_->Everything(), used);
    QVERIFY(!Book().Load(away.id));
    QVERIFY(Book().Load(near.id));
  }

  void TransfersAreListedByDateThenKey() {
    for (const char* date : {"02/01/2012", "15/04/2011", "03/12/2011", "15/04/2011"}) {
      Transfer transfer = NewTransfer(1, desk_->second_account);
      transfer.date = QString::fromLatin1(date);
      QVERIFY(!Book().Save(transfer));
    }
    std::vector<int> order;
    for (const Transfer& transfer : Book().List()) {
      order.push_back(transfer.id.value);
    }
    QCOMPARE(order, std::vector<int>({2, 4, 3, 1}));
  }

  void ChangedTransferIsTakenBackBesideTheLedger() {
    Transfer transfer = NewTransfer(6, desk_->second_account);
    QVERIFY(!Book().Save(transfer));
    SellAtSecond(5);
    const QStringList before = desk_->Everything();
    const ledger::Lots lots = Book().Begin(transfer);
    QCOMPARE(lots.Of({desk_->of, desk_->account}).front().quantity.Number(), 10.0);
    QCOMPARE(lots.Of({desk_->of, desk_->second_account}).front().quantity.Number(), -5.0);
    Book().End();
    QCOMPARE(desk_->Everything(), before);
  }
};

static const quorvane::test::RegisterTest<TransferBookTest> kRegistered;
#include "TransferBookTest.moc"
