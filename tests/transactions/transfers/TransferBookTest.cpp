#include "core/ledger/Rebuild.h"
#include "support/DatabaseTest.h"
#include "transactions/bills/BillBook.h"
#include "transactions/transfers/Transfer.h"
#include "transactions/transfers/TransferBook.h"

using namespace quorvane;
using namespace quorvane::transfers;
using test::Desk;
using test::FieldOf;
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

class TransferBookTest : public test::DeskTest {
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
    QVERIFY(!test::Save(Bills(), bill));
  }

 private Q_SLOTS:
  void init() {
    desk_->Empty();
    records::Bill bill = desk_->NewBill({desk_->Purchase(10, 100.1)});
    QVERIFY(!test::Save(Bills(), bill));
  }

  void TransferToAnotherAccountOfTheClientKeepsTheRate() {
    Transfer transfer = NewTransfer(4, desk_->second_account);
    QVERIFY(!test::Save(Book(), transfer));
    QCOMPARE(Source(), "6@100.1");
    QCOMPARE(AtSecond(), "4@100.1");
    QCOMPARE(desk_->Contents("ScrTransfer"),
             QStringList("ScrTransfer|1|2011-12|1|20/06/2011|1|0|2|1|1|1|100.1|4"));
  }

  void SharesAreRecordedAsTheLedgerKeepsThem() {
    for (const double quantity : {1.0000004, 2.0000004}) {
      Transfer transfer = NewTransfer(quantity, desk_->second_account);
      QVERIFY(!test::Save(Book(), transfer));
    }
    Progress silent;
    QVERIFY(ledger::CheckStock(desk_->Connection(), std::nullopt, silent).changes.empty());
  }

  void TransferToAnotherClientArrivesThere() {
    Transfer transfer = NewTransfer(10, desk_->other_account);
    QVERIFY(!test::Save(Book(), transfer));
    QCOMPARE(Source(), "0@100.1");
    QCOMPARE(AtOther(), "10@100.1");
    QCOMPARE(desk_->Contents("ScrTransfer"),
             QStringList("ScrTransfer|1|2011-12|1|20/06/2011|1|1|3|2|1|1|100.1|10"));
    QVERIFY(TransferBook(desk_->Connection(), desk_->other_of).List().empty());
  }

  void RateAndScripAreTheLots() {
    Transfer transfer = NewTransfer(4, desk_->second_account);
    transfer.rate = 1;
    transfer.scrip = desk_->second_scrip;
    QVERIFY(!test::Save(Book(), transfer));
    QCOMPARE(AtSecond(), "4@100.1");
  }

  void RefusedTransferChangesNothing_data() {
    const test::Table<Edit, QString> row;
    row("more than the lot has",
        Edit([](const Desk&, Transfer& transfer) { transfer.quantity = Shares(10.000001); }),
        OverBalance("10.00"));
    row("lot of another account", Edit([](const Desk& desk, Transfer& transfer) {
          transfer.from = desk.second_account;
          transfer.to = desk.account;
        }),
        "Select Script Name that You want to Transfer.");
    row("account that nobody owns",
        Edit([](const Desk&, Transfer& transfer) { transfer.to = AccountId{99}; }),
        "Select Demat A/c No. To which You want to Transfer Scripts.");
  }
  void RefusedTransferChangesNothing() {
    const auto [edit, text] = test::Table<Edit, QString>::Row();
    const QStringList before = desk_->Everything();
    Transfer transfer = NewTransfer(1, desk_->second_account);
    edit(*desk_, transfer);
    QCOMPARE(TextOf(test::Save(Book(), transfer)), text);
    QCOMPARE(desk_->Everything(), before);
  }

  void ChangeMovesTheDifferenceUnlessSharesWereUsed_data() {
    const test::Table<Edit, QString> row;
    row("more than the lot had before",
        Edit([](const Desk&, Transfer& transfer) { transfer.quantity = Shares(10.5); }),
        OverBalance("10.00"));
    row("as many as were sold",
        Edit([](const Desk&, Transfer& transfer) { transfer.quantity = Shares(5); }), kAccepted);
    row("fewer than were sold",
        Edit([](const Desk&, Transfer& transfer) { transfer.quantity = Shares(4.999999); }),
        kNegativeReliance);
  }
  void ChangeMovesTheDifferenceUnlessSharesWereUsed() {
    const auto [edit, text] = test::Table<Edit, QString>::Row();
    Transfer transfer = NewTransfer(6, desk_->second_account);
    QVERIFY(!test::Save(Book(), transfer));
    SellAtSecond(5);
    const QStringList before = desk_->Everything();
    edit(*desk_, transfer);
    QCOMPARE(TextOf(test::Save(Book(), transfer)), text);
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
    QVERIFY(!test::Save(Book(), away));
    QVERIFY(!test::Save(Book(), near));
    QVERIFY(!Book().Delete(away.id));
    QCOMPARE(AtOther(), "0@100.1");
    QCOMPARE(Source(), "6@100.1");
    SellAtSecond(1);
    const QStringList used = desk_->Everything();
    QCOMPARE(TextOf(Book().Delete(near.id)), kNegativeReliance);
    QCOMPARE(desk_->Everything(), used);
    QCOMPARE(Book().List().size(), std::size_t{1});
    QCOMPARE(Book().List().front().id, near.id);
  }

  void TransferIsCheckedInOrder() {
    Transfer transfer;
    const auto expect = [&](const char* text, Field field) {
      const MaybeRefusal refusal = CheckTransfer(transfer, text::FinancialYear(2011));
      QCOMPARE(TextOf(refusal), QString::fromLatin1(text));
      QCOMPARE(FieldOf(refusal), field);
    };
    expect("Enter Date.", Field::kDate);
    transfer.date = QStringLiteral("31/02/2012");
    expect("Enter Proper Date.", Field::kDate);
    transfer.date = QStringLiteral("31/03/2011");
    expect("The Date is not in the Financial Year 2011-12.", Field::kDate);
    transfer.date = QStringLiteral("01/04/2012");
    expect("The Date is not in the Financial Year 2011-12.", Field::kDate);
    transfer.date = QStringLiteral("29/02/2012");
    expect("Select Demat A/c No. From which You want to Transfer Scripts.", Field::kAccount);
    transfer.from = AccountId{1};
    expect("Select Demat A/c No. To which You want to Transfer Scripts.", Field::kToAccount);
    transfer.to = AccountId{1};
    expect("Select Demat A/c No. To which You want to Transfer Scripts.", Field::kToAccount);
    transfer.to = AccountId{2};
    expect("Select Script Name that You want to Transfer.", Field::kLot);
    transfer.lot = LotId{1};
    expect("Enter Quantity Greater than Zero.", Field::kQuantity);
    transfer.quantity = Shares(-1);
    expect("Enter Quantity Greater than Zero.", Field::kQuantity);
    transfer.quantity = Shares(0.0000004);
    expect("Enter Quantity Greater than Zero.", Field::kQuantity);
    transfer.quantity = Shares(0.000001);
    expect("accepted", Field::kNone);
  }
};

static const quorvane::test::RegisterTest<TransferBookTest> kRegistered;
#include "TransferBookTest.moc"
