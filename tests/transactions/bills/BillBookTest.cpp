#include "core/database/Keys.h"
#include "core/ledger/Rebuild.h"
#include "support/Cases.h"
#include "support/DatabaseTest.h"
#include "support/TestMain.h"
#include "transactions/bills/BillBook.h"

#include <QTest>

#include <functional>

using namespace quorvane;
using namespace quorvane::bills;
using test::Desk;
using test::kAccepted;
using test::kNegativeReliance;
using test::TextOf;

namespace {

using Edit = std::function<void(const Desk&, Bill&)>;

}  // namespace

Q_DECLARE_METATYPE(Edit)

class BillBookTest : public test::DeskTest {
  Q_OBJECT

  BillBook Book() { return {desk_->Connection(), desk_->of}; }

 private Q_SLOTS:
  void SavedBillReadsBackAsItWas() {
    Bill bill = desk_->NewBill({desk_->Purchase(10, 100.1), desk_->Purchase(0.125, 33.333333)});
    bill.number = QStringLiteral("O'N-1 \\ \"x\"");
    bill.settlement_number = QStringLiteral("2011/42");
    bill.total = 1005.17;
    bill.other_charges = -1.5;
    bill.stt = 0.25;
    bill.transaction_charges = 3.75;
    bill.grand_total = 1007.67;
    BillLine& line = bill.lines[0];
    line.brokerage = 0.37035;
    line.service_tax = 0.05;
    line.stt = 1.25;
    line.stt_percent = 0.125;
    line.fo = true;
    line.delivery_type = QStringLiteral("Delivery Based");
    QVERIFY(!test::Save(Book(), bill));

    const std::optional<Bill> read = Book().Load(bill.id);
    QVERIFY(read);
    QCOMPARE(read->number, bill.number);
    QCOMPARE(read->settlement_number, bill.settlement_number);
    QCOMPARE(test::Exact(read->lines[1].rate), std::string("33.333333"));
    QCOMPARE(read->lines[1].delivery_type, "N.A.");
    const QString header = QStringLiteral(
        "SPMaster|1|2011-12|1|O'N-1 \\ \"x\"|10/06/2011|1|1|1|1005.17|-1.5|0.25|3.75|1007.67|"
        "2011/42");
    QCOMPARE(desk_->Contents("SPMaster"), QStringList(header));
    const QString first_line = QStringLiteral(
        "SPTrans|1|2011-12|1|1|1|1|1|10|100.1|0.37035|100.1|1001|0.05|1|1.25|0.125|"
        "Delivery Based");
    QCOMPARE(desk_->Contents("SPTrans").first(), first_line);
  }

  /// Another program took the header away and left the lines.
  void LinesThatLostTheirBillAreNotTakenOver_data() {
    const test::Cases<bool> cases("by_an_older_program");
    cases.Add("deleted by this release", false);
    cases.Add("deleted before this release", true);
  }

  void LinesThatLostTheirBillAreNotTakenOver() {
    QFETCH(const bool, by_an_older_program);
    Bill old = desk_->NewBill({desk_->Purchase(10, 100), desk_->Purchase(20, 101)});
    QVERIFY(!test::Save(Book(), old));
    desk_->Connection().Execute("Delete From SPMaster");
    if (by_an_older_program) {
      desk_->Connection().Execute("Delete From RecordKey");
      database::MakeCounters(desk_->Connection());
    }
    Bill bill = desk_->NewBill({desk_->Purchase(1, 102)});
    QVERIFY(!test::Save(Book(), bill));
    QVERIFY(bill.id.value > old.id.value);
    QCOMPARE(Book().Load(bill.id)->lines.size(), std::size_t{1});
    QVERIFY(!Book().Delete(bill.id));
    QCOMPARE(desk_->Contents("SPTrans").size(), qsizetype{2});
  }

  void SaleMayDrawOnAPurchaseOfTheSameBill() {
    BillLine sale = desk_->Sale(4, 120, LotId{-2});
    sale.lot_rate = 100;
    Bill bill = desk_->NewBill({sale, desk_->Purchase(5, 90), desk_->Purchase(10, 100)});
    QVERIFY(!test::Save(Book(), bill));
    QCOMPARE(desk_->LotAt(100), "6@100");
    QCOMPARE(bill.lines[0].lot, desk_->IdOfLot(100));
    QCOMPARE(Book().Load(bill.id)->lines[0].lot, desk_->IdOfLot(100));
  }

  // The number alone would lead to another purchase of the bill.
  void SaleOfAPurchaseThatIsNotInTheBillIsRefused() {
    BillLine sale = desk_->Sale(1, 120, LotId{-1});
    sale.lot_rate = 100;
    Bill bill = desk_->NewBill({desk_->Purchase(5, 80), sale});
    QCOMPARE(TextOf(test::Save(Book(), bill)), kNegativeReliance);
    QCOMPARE(desk_->Everything(), QStringList());
  }

  void BillDeletedMeanwhileIsSavedAsANewOne() {
    Bill bill = desk_->NewBill({desk_->Purchase(10, 100)});
    QVERIFY(!test::Save(Book(), bill));
    QVERIFY(!Book().Delete(bill.id));
    Bill other = desk_->NewBill({desk_->Purchase(1, 50)});
    other.account = desk_->other_account;
    QVERIFY(!test::Save(BillBook(desk_->Connection(), desk_->other_of), other));
    const BillId deleted = bill.id;
    QVERIFY(!test::Save(Book(), bill));
    QVERIFY(bill.id != other.id);
    QVERIFY(other.id != deleted);
    QVERIFY(bill.id != deleted);
    QCOMPARE(desk_->LotAt(100), "10@100");
    QVERIFY(BillBook(desk_->Connection(), desk_->other_of).Load(other.id));
  }

  void BillOfAClientOrAccountDeletedMeanwhileIsRefused() {
    const ClientId client = desk_->database.AddClient(QStringLiteral("C3"));
    BillBook book(desk_->Connection(), {client, desk_->year});
    Bill bill = desk_->NewBill({desk_->Purchase(10, 100)});
    bill.account = desk_->database.AddAccount(client, QStringLiteral("3001"));
    QVERIFY(!test::Save(book, bill));
    desk_->Connection().Execute("Delete From ClientActDet Where CId=?", client);
    QCOMPARE(TextOf(test::Save(book, bill)), kAccepted);
    const QStringList before = desk_->Everything();

    Bill added = bill;
    added.id = {};
    QCOMPARE(TextOf(test::Save(book, added)), "This Demat A/c was Deleted in the Meantime.");
    bill.account = desk_->other_account;
    QCOMPARE(TextOf(test::Save(book, bill)), "This Demat A/c was Deleted in the Meantime.");
    desk_->Connection().Execute("Delete From ClientInfo Where Id=?", client);
    bill.account = {};
    QCOMPARE(TextOf(test::Save(book, bill)), "This Client was Deleted in the Meantime.");
    QCOMPARE(desk_->Everything(), before);
  }

  void BillOfWhatWasDeletedMeanwhileIsRefused_data() {
    const test::Cases<Edit, QString> cases("edit", "text");
    cases.Add("broker", Edit([](const Desk&, Bill& bill) { bill.broker = BrokerId{77}; }),
              "This Broker was Deleted in the Meantime.");
    cases.Add("exchange", Edit([](const Desk&, Bill& bill) { bill.exchange = ExchangeId{77}; }),
              "This Exchange was Deleted in the Meantime.");
    cases.Add("scrip of a line",
              Edit([](const Desk&, Bill& bill) { bill.lines[1].scrip = ScripId{77}; }),
              "This Script was Deleted in the Meantime.");
  }
  void BillOfWhatWasDeletedMeanwhileIsRefused() {
    QFETCH(const Edit, edit);
    Bill bill = desk_->NewBill({desk_->Purchase(10, 100), desk_->Purchase(5, 90)});
    edit(*desk_, bill);
    QTEST(TextOf(test::Save(Book(), bill)), "text");
    QCOMPARE(desk_->Everything(), QStringList());
  }

  void BillOfTheSameNumberAndDateIsATwin_data() {
    const test::Cases<Edit, bool> cases("edit", "twin");
    cases.Add("same", Edit([](const Desk&, Bill&) {}), true);
    cases.Add("number", Edit([](const Desk&, Bill& bill) { bill.number = QStringLiteral("B/2"); }),
              false);
    cases.Add("date",
              Edit([](const Desk&, Bill& bill) { bill.date = QStringLiteral("11/06/2011"); }),
              false);
    cases.Add("broker", Edit([](const Desk&, Bill& bill) { bill.broker = {}; }), false);
  }
  void BillOfTheSameNumberAndDateIsATwin() {
    QFETCH(const Edit, edit);
    Bill first = desk_->NewBill({});
    QVERIFY(!test::Save(Book(), first));
    QVERIFY(!Book().HasTwin(first));
    Bill second = desk_->NewBill({});
    edit(*desk_, second);
    QTEST(Book().HasTwin(second), "twin");
    QVERIFY(!BillBook(desk_->Connection(), desk_->other_of).HasTwin(second));
  }

  void ChangeIsRefusedWhenSoldSharesWouldBeMissing_data() {
    const test::Cases<Edit, QString> cases("edit", "text");
    // The bill brought 10 at 100, of which 6 are sold.
    cases.Add("fewer than sold", Edit([](const Desk& desk, Bill& bill) {
                bill.lines = {desk.Purchase(5.999999, 100)};
              }),
              kNegativeReliance);
    cases.Add("as many as sold",
              Edit([](const Desk& desk, Bill& bill) { bill.lines = {desk.Purchase(6, 100)}; }),
              kAccepted);
    cases.Add("more than the rest sold in the same bill", Edit([](const Desk& desk, Bill& bill) {
                bill.lines.push_back(desk.Sale(4.000001, 130, bill.lines[0].lot));
              }),
              kNegativeReliance);
    cases.Add("sale of a lot that is not there", Edit([](const Desk& desk, Bill& bill) {
                bill.lines.push_back(desk.Sale(1, 130, LotId{4711}));
              }),
              kNegativeReliance);
  }
  void ChangeIsRefusedWhenSoldSharesWouldBeMissing() {
    QFETCH(Edit, edit);
    QFETCH(QString, text);
    Bill bought = desk_->NewBill({desk_->Purchase(10, 100)});
    QVERIFY(!test::Save(Book(), bought));
    Bill sold = desk_->NewBill({desk_->Sale(6, 120, bought.lines[0].lot)});
    QVERIFY(!test::Save(Book(), sold));
    const QStringList before = desk_->Everything();
    edit(*desk_, bought);
    QCOMPARE(TextOf(test::Save(Book(), bought)), text);
    QCOMPARE(desk_->Everything() == before, text != kAccepted);
  }

  void SaleOfALotOfAnotherAccountOrScripIsRefused() {
    Bill bought = desk_->NewBill({desk_->Purchase(10, 100)});
    QVERIFY(!test::Save(Book(), bought));
    Bill elsewhere = desk_->NewBill({desk_->Sale(1, 120, bought.lines[0].lot)});
    elsewhere.account = desk_->second_account;
    QCOMPARE(TextOf(test::Save(Book(), elsewhere)), kNegativeReliance);
    Bill other_scrip = desk_->NewBill({desk_->Sale(1, 120, bought.lines[0].lot)});
    other_scrip.lines[0].scrip = desk_->second_scrip;
    QVERIFY(test::Save(Book(), other_scrip));
    QCOMPARE(desk_->LotAt(100), "10@100");
  }

  void DeleteIsRefusedWhenSharesWereSold() {
    Bill bought = desk_->NewBill({desk_->Purchase(10, 100), desk_->Purchase(1, 50)});
    QVERIFY(!test::Save(Book(), bought));
    Bill sold = desk_->NewBill({desk_->Sale(6, 120, bought.lines[0].lot)});
    QVERIFY(!test::Save(Book(), sold));
    const QStringList before = desk_->Everything();
    QCOMPARE(TextOf(Book().Delete(bought.id)), kNegativeReliance);
    QCOMPARE(desk_->Everything(), before);
    QVERIFY(!Book().Delete(sold.id));
    QVERIFY(!Book().Delete(bought.id));
  }

  void FailureOfTheServerChangesNothing() {
    Bill bill = desk_->NewBill({desk_->Purchase(10, 100)});
    QVERIFY(!test::Save(Book(), bill));
    const QStringList before = desk_->Everything();
    bill.lines = {desk_->Purchase(20, 100), desk_->Purchase(5, 50)};
    bill.lines[1].delivery_type = QString(101, QLatin1Char('x'));
    QVERIFY_EXCEPTION_THROWN(test::Save(Book(), bill), database::DatabaseError);
    QCOMPARE(desk_->Everything(), before);
  }

  void SharesAreRecordedAsTheLedgerKeepsThem() {
    Bill bill = desk_->NewBill({desk_->Purchase(1.0000004, 100), desk_->Purchase(2.0000004, 100)});
    QVERIFY(!test::Save(Book(), bill));
    QCOMPARE(Book().Load(bill.id)->lines[0].quantity, text::Shares(1));
    Progress silent;
    QVERIFY(ledger::CheckStock(desk_->Connection(), desk_->of, silent).changes.empty());
    bill.lines = {desk_->Purchase(0.0000004, 100)};
    QCOMPARE(TextOf(test::Save(Book(), bill)), "Enter Quantity Greater than Zero.");
  }

  void BillsAreListedByDateThenKey() {
    for (const char* date : {"02/01/2012", "15/04/2011", "03/12/2011", "15/04/2011"}) {
      Bill bill = desk_->NewBill(QString::fromLatin1(date), {});
      QVERIFY(!test::Save(Book(), bill));
    }
    Bill foreign = desk_->NewBill(QStringLiteral("10/06/2012"), {});
    QVERIFY(
        !test::Save(BillBook(desk_->Connection(), {desk_->client, desk_->year.Next()}), foreign));
    std::vector<int> order;
    for (const Bill& bill : Book().List()) {
      order.push_back(bill.id.value);
    }
    QCOMPARE(order, std::vector<int>({2, 4, 3, 1}));
  }
};

static const quorvane::test::RegisterTest<BillBookTest> kRegistered;
#include "BillBookTest.moc"
#include "support/Save.h"
