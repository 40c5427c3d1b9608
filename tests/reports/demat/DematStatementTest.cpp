#include "core/text/Amounts.h"
#include "reports/Sample.h"
#include "reports/demat/DematStatement.h"
#include "reports/demat/Movements.h"
#include "support/Test.h"

#include <cmath>
#include <map>

using namespace quorvane;
using namespace quorvane::demat;

namespace {

QStringList Lines(database::Connection& connection, const DematQuery& query) {
  Progress progress;
  std::string csv;
  const lookups::Directory directory(connection);
  const auto faults = BuildDematStatement(connection, query, progress,
                                          [&](ClientId, std::span<const ScripMovements> scrips) {
                                            AppendDematCsv(csv, scrips, directory);
                                          });
  return records::FaultTexts(connection, faults) +
         QString::fromStdString(csv).split('\n', Qt::SkipEmptyParts);
}

}  // namespace

class DematStatementTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void MovementsAreListedByDate_data() {
    const test::Table<QString, QString, QStringList> row;
    const QString bill = "1001,500325,15/06/2011,purchase_and_sale,(P & S) - LOTUS,22,8,";
    const QString to = "1001,500325,15/06/2011,transfer_to,Transfer To - 2001,,6,";
    const QString from = "1001,500325,20/06/2011,transfer_from,Transfer From - 2001,2,,23";
    const QString infosys = "1001,500209,15/06/2011,purchase,(P) - LOTUS,4,,4";
    row("the year", "01/04/2011", "31/03/2012",
        QStringList{infosys, "1001,500325,10/02/2010,opening,Opening Balance,5,,5",
                    "1001,500325,05/01/2011,opening,Opening Balance,13,,18",
                    "1001,500325,01/06/2011,sale,(S) - AMBER,,5,13", bill + "27", to + "21", from});
    row("from the day of a bill", "01/06/2011", "14/06/2011",
        QStringList{"1001,500325,01/06/2011,opening,Opening Balance,18,,18",
                    "1001,500325,01/06/2011,sale,(S) - AMBER,,5,13"});
    row("after all of it", "01/07/2011", "31/07/2011",
        QStringList{"1001,500209,01/07/2011,opening,Opening Balance,4,,4",
                    "1001,500325,01/07/2011,opening,Opening Balance,23,,23"});
  }
  void MovementsAreListedByDate() {
    test::MovementDesk desk;
    desk.AddOpening(desk.reliance, 10, "05/01/2011");
    desk.AddOpening(desk.reliance, 5, "10/02/2010");
    desk.AddOpening(desk.reliance, 3, "05/01/2011");
    desk.AddTransfer(1, "15/06/2011", desk.client, desk.first, desk.foreign, 6);
    desk.AddTransfer(2, "20/06/2011", desk.other, desk.foreign, desk.first, 2);
    desk.AddBill(7, "15/06/2011", desk.first, desk.lotus);
    desk.AddLine(7, true, desk.reliance, 20);
    desk.AddLine(7, false, desk.reliance, 8);
    desk.AddLine(7, true, desk.infosys, 4);
    desk.AddLine(7, true, desk.reliance, 2);
    desk.AddBill(9, "01/06/2011", desk.first, desk.amber);
    desk.AddLine(9, false, desk.reliance, 5);
    const auto [from, to, lines] = test::Table<QString, QString, QStringList>::Row();
    QCOMPARE(Lines(*desk.database,
                   {desk.client, desk.year, {*text::ParseDmy(from), *text::ParseDmy(to)}, {}, {}}),
             lines);
  }

  void AccountsByThemselvesGiveTheirOwnLines() {
    test::MovementDesk desk;
    desk.AddTransfer(1, "15/06/2011", desk.client, desk.first, desk.foreign, 6);
    desk.AddBill(1, "15/06/2011", desk.second, desk.lotus);
    desk.AddLine(1, true, desk.infosys, 4);
    desk.AddBill(2, "16/06/2011", {}, desk.lotus);
    desk.AddLine(2, true, desk.infosys, 1);
    const auto period = reporting::Period::Of(desk.year);
    const QString sent = "1001,500325,15/06/2011,transfer_to,Transfer To - 2001,,6,-6";
    const QString bought = "1002,500209,15/06/2011,purchase,(P) - LOTUS,4,,4";
    const QString received = "2001,500325,15/06/2011,transfer_from,Transfer From - 1001,6,,6";
    QCOMPARE(Lines(*desk.database, {desk.client, desk.year, period, {desk.second}, {}}),
             QStringList{bought});
    QCOMPARE(Lines(*desk.database, {desk.client, desk.year, period, {}, {desk.reliance}}),
             QStringList{sent});
    QCOMPARE(Lines(*desk.database, {desk.other, desk.year, period, {}, {}}), QStringList{received});
    QCOMPARE(Lines(*desk.database, {std::nullopt, desk.year, period, {}, {}}),
             (QStringList{sent, bought, ",500209,16/06/2011,purchase,(P) - LOTUS,1,,1", received}));
  }

  void BillWithoutADateIsNamedAndTheRestComesOut() {
    test::MovementDesk desk;
    desk.AddBill(12, "31/02/2012", desk.first, desk.lotus);
    desk.AddLine(12, true, desk.reliance, 6);
    desk.AddBill(13, "15/06/2011", desk.first, desk.lotus);
    desk.AddLine(13, true, desk.infosys, 4);
    const DematQuery query{desk.client, desk.year, reporting::Period::Of(desk.year), {}, {}};
    const QStringList lines = Lines(*desk.database, query);
    QCOMPARE(lines.size(), 2);
    QVERIFY2(lines[0].contains("31/02/2012"), qPrintable(lines[0]));
    QCOMPARE(lines[1], "1001,500209,15/06/2011,purchase,(P) - LOTUS,4,,4");
  }

  void BalancesAreThoseOfTheLedger() {
    test::TestDatabase database;
    test::TakeInSample(database);
    for (const auto& [year, days] : {std::pair{2011, 0}, {2012, 100}, {2013, 250}}) {
      const text::FinancialYear of(year);
      std::map<std::pair<int, int>, double> ledger;
      for (const auto& row : database->Open(
               "Select AcId,ScriptId,Sum(Qty) From Stock Where Fyear=? Group By AcId,ScriptId",
               of.Text())) {
        if (std::abs(row.Double(2)) > 1e-9) {
          ledger[{row.Int(0), row.Int(1)}] = text::Tidy(row.Double(2));
        }
      }
      std::map<std::pair<int, int>, double> statement;
      Progress progress;
      const Date from = of.FirstDay() + std::chrono::days(days);
      const auto take = [&](ClientId, std::span<const ScripMovements> scrips) {
        for (const ScripMovements& scrip : scrips) {
          text::Shares sum;
          for (const DematLine& line : scrip.lines) {
            sum += line.in - line.out;
            QVERIFY(line.balance == sum);
          }
          if (sum) {
            statement[{scrip.account.value, scrip.scrip.value}] = sum.Number();
          }
        }
      };
      QVERIFY(BuildDematStatement(*database, {std::nullopt, of, {from, of.LastDay()}, {}, {}},
                                  progress, take)
                  .empty());
      QVERIFY(ledger.size() > 50);
      QCOMPARE(statement, ledger);
    }
  }

  void DocumentHasATableAnAccountAndTotalsAScrip() {
    test::MovementDesk desk;
    desk.AddOpening(desk.reliance, 10.5, "05/01/2011");
    desk.AddBill(1, "15/06/2011", desk.first, desk.lotus);
    desk.AddLine(1, false, desk.reliance, 4);
    desk.AddBill(2, "15/06/2011", desk.second, desk.lotus);
    desk.AddLine(2, true, desk.infosys, 4);
    const DematQuery query{desk.client, desk.year, reporting::Period::Of(desk.year), {}, {}};
    const lookups::Directory directory(*desk.database);
    Progress progress;
    reporting::ReportDocument document;
    const auto take = [&](ClientId client, std::span<const ScripMovements> scrips) {
      document = MakeDematDocument(query, client, scrips, directory);
    };
    QVERIFY(BuildDematStatement(*desk.database, query, progress, take).empty());
    QCOMPARE(document.titles.first(), "Demat A/c Statement (From 01/04/2011 To 31/03/2012)");
    QCOMPARE(document.tables.size(), std::size_t{2});
    const reporting::Table& table = document.tables.front();
    QCOMPARE(table.titles, QStringList("Demat A/c No. 1001"));
    QStringList rows;
    for (const reporting::Row& row : table.rows) {
      QStringList cells;
      for (std::size_t i = 0; i < row.cells.size(); ++i) {
        cells << reporting::CellText(row.cells[i], table.columns[i].mask);
      }
      rows << cells.join('|');
    }
    QCOMPARE(rows, (QStringList{"RELIANCE", "05/01/2011|Opening Balance|10.50||10.50",
                                "15/06/2011|(S) - LOTUS||4.00|6.50", "|Total|10.50|4.00|6.50"}));
  }
};

static const test::RegisterTest<DematStatementTest> kRegistered;
#include "DematStatementTest.moc"
