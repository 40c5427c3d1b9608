#include "core/gains/History.h"
#include "core/ledger/Rebuild.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

#include <fmt/format.h>

using namespace quorvane;
using records::FaultKind;

/// Records that cannot count as they are written: every reader treats them alike and names them.
class MovementsTest : public QObject {
  Q_OBJECT

  using Statements = std::vector<std::string>;

  std::optional<test::TestDatabase> database_;
  ClientId client_;
  AccountId account_;

  static std::string Bill(int id, const char* date) {
    return fmt::format(
        "Insert Into SPMaster Values(1,'2011-12',{0},'B{0}','{1}',1,1,1,0,0,0,0,0,'')", id, date);
  }
  static std::string Line(int bill, int side, int quantity, int lot = 7, int client = 1,
                          const char* year = "2011-12") {
    return fmt::format(
        "Insert Into SPTrans Values({},'{}',{},1,{},{},1,{},100,0,100,{}00,0,0,0,0,'')", client,
        year, bill, side, lot, quantity, quantity);
  }

  void Execute(const Statements& statements) {
    for (const std::string& statement : statements) {
      database_->Get().Execute(statement);
    }
  }

  /// The kinds and keys of faults.
  static QStringList TextsOf(const records::Faults& faults) {
    QStringList texts;
    for (const records::Fault& fault : faults) {
      texts << QStringLiteral("%1:%2").arg(static_cast<int>(fault.kind)).arg(fault.key);
    }
    texts.sort();
    return texts;
  }
  static QStringList One(FaultKind kind, int key) {
    return {QStringLiteral("%1:%2").arg(static_cast<int>(kind)).arg(key)};
  }

  /// The shares of the one lot as a rebuild finds them, of the client and of everybody.
  double Rebuilt(const std::optional<ClientYear>& of) {
    Progress progress;
    const auto check = ledger::CheckStock(database_->Get(), of, progress);
    return check.changes.empty() ? 100 : check.changes.front().quantity.Number();
  }

 private Q_SLOTS:
  void init() {
    database_.emplace();
    client_ = database_->AddClient(QStringLiteral("C1"));
    account_ = database_->AddAccount(client_, QStringLiteral("1001"));
    database_->AddScrip(QStringLiteral("500325"), QStringLiteral("RELIANCE"));
    database_->Get().Execute("Insert Into Stock Values(1,'2011-12',7,?,1,100,100)", account_);
  }
  void cleanup() { database_.reset(); }

  void ABadRecordIsNamedAndTheOthersCount_data() {
    // The records, their faults, the lot after a rebuild, shares in and out in statements.
    const test::Table<Statements, QStringList, double, double, double> row;
    row("bill without a date", {Bill(2, "31/02/2012"), Line(2, 1, 5)},
        One(FaultKind::kBillWithoutDate, 2), 15, 10, 0);
    row("line of another client", {Bill(2, "01/06/2011"), Line(2, 1, 5, 7, 9)},
        One(FaultKind::kLineOfAnotherBill, 2), 10, 10, 0);
    row("line of another year", {Bill(2, "01/06/2011"), Line(2, 1, 5, 7, 1, "2012-13")},
        One(FaultKind::kLineOfAnotherBill, 2), 10, 10, 0);
    row("line without a bill", {Line(2, 1, 5)}, {}, 10, 10, 0);
    row("transfer to itself",
        {"Insert Into ScrTransfer Values(1,'2011-12',3,'01/06/2011',1,0,1,1,7,1,100,4)"},
        One(FaultKind::kTransferToItself, 3), 6, 10, 4);
    row("sale of no lot", {Bill(2, "01/06/2011"), Line(2, 0, 5, 0)},
        One(FaultKind::kSaleWithoutLot, 2), 10, 10, 5);
    row("year that is none",
        {"Insert Into StkOpBal Values(1,'2011-13',4,1,5,100,500,1,'01/01/2010',0,0,0,0)"},
        One(FaultKind::kRecordWithoutYear, 4), 10, 10, 0);
  }
  void ABadRecordIsNamedAndTheOthersCount() {
    const auto [records, faults, lot, purchases, sales] =
        test::Table<Statements, QStringList, double, double, double>::Row();
    const ClientYear of{client_, text::FinancialYear(2011)};
    Execute({Bill(1, "01/05/2011"), Line(1, 1, 10)});
    Execute(records);
    Progress progress;
    QCOMPARE(TextsOf(ledger::CheckStock(database_->Get(), std::nullopt, progress).faults), faults);
    QCOMPARE(Rebuilt(std::nullopt), lot);
    QCOMPARE(Rebuilt(of), lot);
    gains::History history(
        database_->Get(), {std::nullopt, of.year, of.year.FirstDay(), of.year.LastDay()}, progress);
    double bought = 0;
    double sold = 0;
    history.Visit([&](const gains::ScripHistory& scrip) {
      for (const gains::Purchase& purchase : scrip.purchases) {
        bought += purchase.quantity;
      }
      for (const gains::Sale& sale : scrip.sales) {
        sold += sale.quantity;
      }
    });
    QCOMPARE(bought, purchases);
    QCOMPARE(sold, sales);
  }

  void OpeningStockWithoutADateWasNotBoughtOnTheDayOfItsSale() {
    database_->Get().Execute(
        "Insert Into StkOpBal Values(1,'2011-12',4,1,10,100,1000,?,NULL,0,0,0,0)", account_);
    Execute({Bill(1, "01/04/2011"), Line(1, 0, 10)});
    const text::FinancialYear year(2011);
    Progress progress;
    gains::History history(database_->Get(), {std::nullopt, year, year.FirstDay(), year.LastDay()},
                           progress);
    std::vector<gains::Match> matches;
    history.Visit([&](const gains::ScripHistory& scrip) {
      gains::MatchSales(scrip.purchases, scrip.sales, {}, gains::CostBasis::kLot, matches);
    });
    QCOMPARE(matches.size(), std::size_t{1});
    QCOMPARE(matches.front().kind, gains::GainKind::kShortTerm);
    QCOMPARE(TextsOf(history.Faults()), One(FaultKind::kOpeningWithoutDate, 4));
  }
};

static const quorvane::test::RegisterTest<MovementsTest> kRegistered;
#include "MovementsTest.moc"
