#include "reports/broker_account/BrokerAccount.h"
#include "support/DatabaseTest.h"
#include "transactions/broker_money/BrokerOpeningBook.h"

#include <fmt/format.h>

using namespace quorvane;
using namespace quorvane::broker_account;

namespace {

text::Date Day(const QString& dmy) {
  return *text::ParseDmy(dmy);
}

QString Signed(Paise amount) {
  return text::FormatAmount(amount.Rupees());
}

}  // namespace

class BrokerAccountTest : public test::DeskTest {
  Q_OBJECT

  /// A bill with one line; its stored total is positive, as the bill window has it.
  void Bill(int id, int year, const char* date, int side, double amount, double charges = 0) {
    const QString fyear = text::FinancialYear(year).Text();
    desk_->Connection().Execute(
        "Insert Into SPMaster(Cid,Fyear,ID,BillNo,BDate,BrokId,OthCharge,Total) "
        "Values(?,?,?,?,?,?,?,?)",
        desk_->client, fyear, id, fmt::format("B{}", id), date, desk_->broker, charges,
        amount + charges);
    desk_->Connection().Execute(
        "Insert Into SPTrans(Cid,Fyear,SID,Id,SP,Amt,STax,STT) Values(?,?,?,1,?,?,0.5,0.25)",
        desk_->client, fyear, id, side, amount);
  }

  void Money(const char* table, int id, int year, const char* date, double amount, int mode,
             const char* cheque = "") {
    desk_->Connection().Execute(
        fmt::format("Insert Into {}(Cid,Fyear,Id,BrId,TMode,Amt,PDate,PMode,ChqNo) "
                    "Values(?,?,?,?,?,?,?,?,?)",
                    table),
        desk_->client, text::FinancialYear(year).Text(), id, desk_->broker, mode, amount, date,
        mode, cheque);
  }

  void Opening(int year, double amount, int side) {
    desk_->Connection().Execute(
        "Insert Into BrOpBal(CId,Fyear,Id,BrId,OpBal,Dr) Values(?,?,?,?,?,?)", desk_->client,
        text::FinancialYear(year).Text(), year, desk_->broker, amount, side);
  }

  BrokerAccounts Read(int year, const QString& from = {}, const QString& to = {}) {
    AccountQuery query{{desk_->client, text::FinancialYear(year)},
                       reporting::Period::Of(text::FinancialYear(year)),
                       {}};
    if (!from.isEmpty()) {
      query.period = {Day(from), Day(to)};
    }
    Progress progress;
    return ReadBrokerAccounts(desk_->Connection(), query, progress);
  }

  static QStringList LinesOf(const BrokerAccount& account) {
    QStringList texts;
    for (const AccountLine& line : account.lines) {
      texts << QStringLiteral("%1 %2 %3 %4 %5")
                   .arg(text::FormatDmy(line.date), line.particulars, Signed(line.debit),
                        Signed(line.credit), Signed(line.balance));
    }
    return texts;
  }

 private Q_SLOTS:
  // A purchase of 1000.00 owes 0.50 tax, 0.25 STT and 3.00 charges more: 1003.75. A sale of 400.00
  // brings 0.75 less.
  void BillsOweAndBringTheirNetAndMoneySettles() {
    Opening(2011, 100, 1);
    Money("BrPayment", 1, 2011, "10/05/2011", 500, 0);
    Money("BrPayment", 2, 2011, "11/05/2011", 3, 1, "77");
    Money("BrRec", 1, 2011, "10/05/2011", 20, 1);
    Money("BrRec", 2, 2011, "12/05/2011", 1, 0);
    Bill(2, 2011, "10/05/2011", 0, 400);
    Bill(1, 2011, "02/05/2011", 1, 1000, 3);
    const BrokerAccount account = Read(2011).accounts.at(0);
    QCOMPARE(LinesOf(account), QStringList({"01/04/2011 Opening (entered) 0.00 100.00 -100.00",
                                            "02/05/2011 Bill No. B1 1003.75 0.00 903.75",
                                            "10/05/2011 Bill No. B2 0.00 399.25 504.50",
                                            "10/05/2011 Payment (Cash) 0.00 500.00 4.50",
                                            "10/05/2011 Dr. By Broker (Cheque) 20.00 0.00 24.50",
                                            "11/05/2011 Cr. By Broker (Cheque 77) 0.00 3.00 21.50",
                                            "12/05/2011 Receiving (Cash) 1.00 0.00 22.50"}));
    QCOMPARE(account.Closing(), Paise(2250));
    QCOMPARE(account.open.size(), std::size_t{3});
    QCOMPARE(account.open[0].particulars, "Bill No. B1");
    QCOMPARE(account.open[0].amount, Paise(150));
  }

  void APartOfTheYearOpensWithWhatWasBefore() {
    Bill(1, 2011, "30/06/2011", 1, 500);
    Bill(2, 2011, "01/07/2011", 1, 30);
    Bill(3, 2011, "01/08/2011", 1, 7);
    QCOMPARE(
        LinesOf(
            Read(2011, QStringLiteral("01/07/2011"), QStringLiteral("31/07/2011")).accounts.at(0)),
        QStringList({"01/07/2011 Brought Forward 500.75 0.00 500.75",
                     "01/07/2011 Bill No. B2 30.75 0.00 531.50"}));
  }

  // The year before closes with 1000.75 owed less 900.00 paid: 100.75.
  void AYearOpensWithWhatWasEnteredOrTheClosingBefore_data() {
    const test::Table<double, QString, QString, QString> row;
    row("nothing entered", 0.0, "Opening (closing of 2011-12)", "100.75", "");
    row("entered the same", 100.75, "Opening (entered)", "100.75", "");
    row("entered another one", 120.0, "Opening (entered)", "120.00", "19.25");
    // The broker ledger adds 1000.00, its stored total, and the payment.
    row("carried from the broker ledger", 1900.0, "Opening (closing of 2011-12)", "100.75",
        "1799.25");
  }
  void AYearOpensWithWhatWasEnteredOrTheClosingBefore() {
    const auto [entered, particulars, amount, difference] =
        test::Table<double, QString, QString, QString>::Row();
    Bill(1, 2011, "02/05/2011", 1, 1000);
    Money("BrPayment", 1, 2011, "10/05/2011", 900, 0);
    if (entered > 0) {
      Opening(2012, entered, 0);
    }
    Bill(2, 2012, "31/03/2013", 1, 10);
    const BrokerAccount account = Read(2012).accounts.at(0);
    QCOMPARE(account.lines.at(0).particulars, particulars);
    QCOMPARE(Signed(account.lines.at(0).debit), amount);
    QCOMPARE(account.opening.Differs(), !difference.isEmpty());
    if (account.opening.Differs()) {
      QCOMPARE(Signed(*account.opening.recorded - *account.opening.closing_before), difference);
    }
    Paise open;
    for (const OpenItem& item : account.open) {
      open += item.amount;
    }
    QCOMPARE(open, account.Closing());
    QCOMPARE(account.open.front().particulars, "Bill No. B1");
    QCOMPARE(Read(2013).accounts.at(0).opening.Amount(), account.Closing());
  }

  void CarryForwardOfTheBrokerLedgerIsSeen() {
    Bill(1, 2011, "02/05/2011", 0, 1000);
    broker_money::BrokerOpeningBook(desk_->Connection(), {desk_->client, desk_->year.Next()})
        .CarryForward();
    const broker_account::Opening opening = Read(2012).accounts.at(0).opening;
    QVERIFY(opening.carried_from_ledger);
    QCOMPARE(opening.Amount(), Paise(-99925));
    QCOMPARE(*opening.recorded, Paise(100000));
  }

  void WhatCannotCountIsNamed() {
    Bill(7, 2011, "31/02/2012", 1, 1);
    Bill(8, 2011, "01/05/2011", 1, 2);
    desk_->Connection().Execute("Delete From SPTrans Where SID=8");
    desk_->Connection().Execute("Update SPMaster Set OthCharge=4 Where ID=8");
    const BrokerAccounts all = Read(2011);
    QCOMPARE(all.faults.size(), std::size_t{1});
    QCOMPARE(all.faults.front().key, 7);
    QCOMPARE(all.without_lines, std::vector<QString>{QStringLiteral("B8 of 01/05/2011")});
    QCOMPARE(all.accounts.at(0).Closing(), Paise(400));
  }

  // Columns of a group are the sums of its lines, and what is open is the closing balance.
  void TotalsAreTheSumsOfTheirLines() {
    Opening(2011, 0.1, 0);
    Bill(1, 2011, "02/05/2011", 1, 1000.33, 1.01);
    Bill(2, 2011, "01/03/2012", 0, 0.07);
    Money("BrPayment", 1, 2011, "10/06/2011", 700.2, 0);
    const AccountQuery query{desk_->of, reporting::Period::Of(desk_->year), {}};
    const auto document = MakeAccountDocument(query, QStringLiteral("C1"), Read(2011));
    QCOMPARE(document.tables.size(), std::size_t{2});
    for (const reporting::Table& table : document.tables) {
      std::vector<Paise> sums(table.columns.size());
      for (const reporting::Row& row : table.rows) {
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
          const bool is_amount = table.columns[i].mask == reporting::Mask::kAmount;
          const double* number = std::get_if<double>(&row.cells[i]);
          const Paise amount = number == nullptr || !is_amount ? Paise() : Paise::OfRupees(*number);
          if (row.kind == reporting::RowKind::kTotal) {
            QCOMPARE(amount, sums[i]);
          }
          sums[i] += amount;
        }
      }
      const auto is_balance = [](const reporting::Cell& cell) {
        return cell == reporting::Cell(QStringLiteral("302.67Dr"));
      };
      QVERIFY(std::ranges::any_of(table.rows.back().cells, is_balance));
    }
  }
};

static const test::RegisterTest<BrokerAccountTest> kRegistered;
#include "BrokerAccountTest.moc"
