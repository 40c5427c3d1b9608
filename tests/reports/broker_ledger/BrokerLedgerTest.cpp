#include "reports/broker_ledger/BrokerLedger.h"
#include "support/DatabaseTest.h"

using namespace quorvane;
using namespace quorvane::broker_ledger;

namespace {

text::Date Day(const QString& dmy) {
  return *text::ParseDmy(dmy);
}

}  // namespace

class BrokerLedgerTest : public test::DeskTest {
  Q_OBJECT

  void Bill(int id, BrokerId broker, const char* date, double total) {
    desk_->Connection().Execute(
        "Insert Into SPMaster(Cid,Fyear,ID,BillNo,BDate,BrokId,Total) Values(?,?,?,?,?,?,?)",
        desk_->client, desk_->year.Text(), id, fmt::format("B{}", id), date, broker, total);
  }

  void Money(const char* table, int id, const char* date, double amount, int mode) {
    desk_->Connection().Execute(
        fmt::format("Insert Into {}(Cid,Fyear,Id,BrId,TMode,Amt,PDate,PMode) "
                    "Values(?,?,?,?,?,?,?,?)",
                    table),
        desk_->client, desk_->year.Text(), id, desk_->broker, mode, amount, date, mode);
  }

  void Opening(double amount, int side) {
    desk_->Connection().Execute(
        "Insert Into BrOpBal(CId,Fyear,Id,BrId,OpBal,Dr) Values(?,?,1,?,?,?)", desk_->client,
        desk_->year.Text(), desk_->broker, amount, side);
  }

  std::vector<BrokerAccount> Read(const reporting::Period& period) {
    Progress progress;
    return ReadBrokerLedger(desk_->Connection(), {desk_->of, period, {}}, progress).accounts;
  }

  /// The lines of the first account as "date particulars debit credit balance".
  QStringList Lines(const QString& from, const QString& to) {
    QStringList texts;
    const auto accounts = Read({Day(from), Day(to)});
    for (const LedgerLine& line :
         accounts.empty() ? std::vector<LedgerLine>() : accounts[0].lines) {
      texts << QStringLiteral("%1 %2 %3 %4 %5")
                   .arg(text::FormatDmy(line.date), line.particulars)
                   .arg(line.debit)
                   .arg(line.credit)
                   .arg(BalanceText(line.balance));
    }
    return texts;
  }

 private Q_SLOTS:
  void initTestCase() {
    desk_.emplace();
    other_broker_ = desk_->database.AddBroker(QStringLiteral("ABLE"));
  }

  // 1000.00 Cr, bill 250.50 Dr: 749.50 Cr; on 31/03 bill -40 is 40 Cr: 789.50 Cr; payment 800 Dr:
  // 10.50 Dr; receipt 11 Cr: 0.50 Cr.
  void RunsByDateAndBlock() {
    Opening(1000, 1);
    Money("BrRec", 1, "31/03/2012", 11, 1);
    Money("BrPayment", 1, "31/03/2012", 800, 0);
    Bill(2, desk_->broker, "31/03/2012", -40);
    Bill(1, desk_->broker, "01/05/2011", 250.5);
    QCOMPARE(Lines(QStringLiteral("01/04/2011"), QStringLiteral("31/03/2012")),
             QStringList({"01/04/2011 Opening Balance 0 100000 1000.00Cr",
                          "01/05/2011 Amt Bill No. B1 25050 0 749.50Cr",
                          "31/03/2012 Amt Bill No. B2 0 4000 789.50Cr",
                          "31/03/2012 Payment (Cash) 80000 0 10.50Dr",
                          "31/03/2012 Cr. By Broker (Cheque) 0 1100 0.50Cr"}));
  }

  void APartOfTheYearOpensWithWhatWasBefore() {
    Opening(1000, 0);
    Bill(1, desk_->broker, "30/06/2011", 500);
    Bill(2, desk_->broker, "01/07/2011", 30);
    Bill(3, desk_->broker, "31/07/2011", 5);
    Bill(4, desk_->broker, "01/08/2011", 7);
    QCOMPARE(Lines(QStringLiteral("01/07/2011"), QStringLiteral("31/07/2011")),
             QStringList({"01/07/2011 Opening Balance 150000 0 1500.00Dr",
                          "01/07/2011 Amt Bill No. B2 3000 0 1530.00Dr",
                          "31/07/2011 Amt Bill No. B3 500 0 1535.00Dr"}));
  }

  void EmptyOpeningsAndAccountsAreLeftOut() {
    Opening(0, 1);
    Bill(1, other_broker_, "01/05/2011", 1);
    const auto accounts = Read(reporting::Period::Of(desk_->year));
    QCOMPARE(accounts.size(), std::size_t{1});
    QCOMPARE(accounts[0].name, "ABLE");
  }

  void ADateThatCannotBeReadIsNamedAndTheRestComesOut() {
    Bill(7, desk_->broker, "31/02/2012", 1);
    Bill(8, desk_->broker, "01/05/2011", 2);
    Progress progress;
    const BrokerLedger ledger = ReadBrokerLedger(
        desk_->Connection(), {desk_->of, reporting::Period::Of(desk_->year), {}}, progress);
    QCOMPARE(ledger.faults.size(), std::size_t{1});
    QCOMPARE(ledger.faults.front().key, 7);
    QCOMPARE(ledger.accounts.at(0).Closing(), std::int64_t{200});
  }

 private:
  BrokerId other_broker_;
};

static const test::RegisterTest<BrokerLedgerTest> kRegistered;
#include "BrokerLedgerTest.moc"
