#include "core/database/Keys.h"
#include "core/ledger/Rebuild.h"
#include "support/DatabaseTest.h"
#include "transactions/bills/BillBook.h"

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

  void BillOfWhatWasDeletedMeanwhileIsRefused_data() {
    const test::Table<Edit, QString> row;
    row("account of another client",
        Edit([](const Desk& desk, Bill& bill) { bill.account = desk.other_account; }),
        "This Demat A/c was Deleted in the Meantime.");
    row("broker", Edit([](const Desk&, Bill& bill) { bill.broker = BrokerId{77}; }),
        "This Broker was Deleted in the Meantime.");
    row("exchange", Edit([](const Desk&, Bill& bill) { bill.exchange = ExchangeId{77}; }),
        "This Exchange was Deleted in the Meantime.");
    row("scrip of a line", Edit([](const Desk&, Bill& bill) { bill.lines[1].scrip = ScripId{77}; }),
        "This Script was Deleted in the Meantime.");
  }
  void BillOfWhatWasDeletedMeanwhileIsRefused() {
    const auto [edit, text] = test::Table<Edit, QString>::Row();
    Bill bill = desk_->NewBill({desk_->Purchase(10, 100), desk_->Purchase(5, 90)});
    edit(*desk_, bill);
    QCOMPARE(TextOf(test::Save(Book(), bill)), text);
    QCOMPARE(desk_->Everything(), QStringList());
  }

  void BillOfTheSameNumberAndDateIsATwin_data() {
    const test::Table<Edit, bool> row;
    row("same", Edit([](const Desk&, Bill&) {}), true);
    row("number", Edit([](const Desk&, Bill& bill) { bill.number = QStringLiteral("B/2"); }),
        false);
    row("date", Edit([](const Desk&, Bill& bill) { bill.date = QStringLiteral("11/06/2011"); }),
        false);
    row("broker", Edit([](const Desk&, Bill& bill) { bill.broker = {}; }), false);
  }
  void BillOfTheSameNumberAndDateIsATwin() {
    const auto [edit, twin] = test::Table<Edit, bool>::Row();
    Bill first = desk_->NewBill({});
    QVERIFY(!test::Save(Book(), first));
    QVERIFY(!Book().HasTwin(first));
    Bill second = desk_->NewBill({});
    edit(*desk_, second);
    QCOMPARE(Book().HasTwin(second), twin);
    QVERIFY(!BillBook(desk_->Connection(), desk_->other_of).HasTwin(second));
  }

  void ChangeIsRefusedWhenSoldSharesWouldBeMissing_data() {
    const test::Table<Edit, QString> row;
    // The bill brought 10 at 100, of which 6 are sold.
    row("fewer than sold",
        Edit([](const Desk& desk, Bill& bill) { bill.lines = {desk.Purchase(5.999999, 100)}; }),
        kNegativeReliance);
    row("as many as sold",
        Edit([](const Desk& desk, Bill& bill) { bill.lines = {desk.Purchase(6, 100)}; }),
        kAccepted);
    row("more than the rest sold in the same bill", Edit([](const Desk& desk, Bill& bill) {
          bill.lines.push_back(desk.Sale(4.000001, 130, bill.lines[0].lot));
        }),
        kNegativeReliance);
    row("sale of a lot that is not there", Edit([](const Desk& desk, Bill& bill) {
          bill.lines.push_back(desk.Sale(1, 130, LotId{4711}));
        }),
        kNegativeReliance);
  }
  void ChangeIsRefusedWhenSoldSharesWouldBeMissing() {
    const auto [edit, text] = test::Table<Edit, QString>::Row();
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
