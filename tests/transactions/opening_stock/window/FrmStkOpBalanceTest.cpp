#include "controls/DateBox.h"
#include "support/ShownWindow.h"
#include "transactions/bills/BillBook.h"
#include "transactions/opening_stock/window/FrmStkOpBalance.h"

#include <QCheckBox>

using namespace quorvane;
using namespace quorvane::opening_stock;
using test::ForClient;
using Shown = test::ShownWindow<FrmStkOpBalance>;
using Kind = test::RecordingMessages::Kind;

namespace {

const QString kQuestion =
    QStringLiteral("Do you want to Carry Forward the Stock From Previous Year?");

}  // namespace

class FrmStkOpBalanceTest : public test::DeskTest {
  Q_OBJECT

 private Q_SLOTS:
  void KeyboardAloneAddsALot() {
    const Shown shown(desk_->database, ForClient{desk_->of});
    shown.AddByKeyboard({"500325", "", "1001", "-10", "100.256", "010410", "12.345", "1.005"});
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(Openings(), QStringList("1|10|100.26|1002.6|01/04/2010|12.35|0|1.005|0"));
    QCOMPARE(desk_->LotAt(100.26), "10@100.26");
    QCOMPARE(shown->List().CurrentId(), 1);
    // The next lot is most often of the same account.
    shown.Click("cmdAdd");
    QCOMPARE(shown.TextIn("Combo2"), "1001");
  }

  void NewDateOfACarriedLotChangesNothingElse() {
    AddOpening("3,?,1000,364.125,364675,?,'06/04/2010',4.166,0.55,20.4875,1");
    desk_->Connection().Execute("Insert Into Stock Values(?,'2011-12',1,?,?,1000,364.125)",
                                desk_->client, desk_->account, desk_->scrip);
    const Shown shown(desk_->database, ForClient{desk_->of});
    shown.Retype(3, "Text1_3", "050410");
    shown.Click("cmdUpdate");
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(Openings(), QStringList("3|1000|364.125|364675|05/04/2010|4.166|0.55|20.4875|1"));
    QCOMPARE(desk_->LotAt(364.125), "1000@364.125");
  }

  void StockOfTheYearBeforeIsOfferedOnOpening_data() {
    const test::Table<bool, QStringList> row;
    row("no", false, QStringList());
    row("yes", true, QStringList("4|8|50|400|01/02/2010|0|0|0|0"));
  }
  void StockOfTheYearBeforeIsOfferedOnOpening() {
    const auto [answer, rows] = test::Table<bool, QStringList>::Row();
    HoldLastYear();
    const Shown shown(desk_->database, ForClient{desk_->of, {answer}});
    QCOMPARE(shown.messages.Texts(), QStringList(kQuestion));
    QCOMPARE(shown.messages.said.back().kind, Kind::kAsk);
    QCOMPARE(shown.messages.said.back().icon, controls::Icon::kInformation);
    QCOMPARE(Openings(), rows);
    QCOMPARE(shown->List().Model().RowCount(), answer ? 1 : 0);
    QCOMPARE(desk_->LotAt(50), answer ? QStringLiteral("8@50") : QStringLiteral("none"));
  }

  void CarriedAgainLeavesOneRowALotAndTellsOfOthers() {
    HoldLastYear();
    Shown shown(desk_->database, ForClient{desk_->of, {true}});
    shown.messages.said.clear();
    shown.messages.WillAnswer(true);
    shown.Click("CmdImport");
    QCOMPARE(shown.messages.Texts(), QStringList(kQuestion));
    QCOMPARE(Openings().size(), 1);
    shown.AddByKeyboard({"", "infosys", "1001", "1", "1", "010410"});
    shown.messages.WillAnswer(true);
    shown.Click("CmdImport");
    QCOMPARE(shown.messages.LastText(),
             "1 lots were carried forward. 1 other opening rows stay as they are; "
             "delete those that should not count.");
  }

  void ReportShowsTheListWithItsTotals() {
    AddOpening("1,?,10,100.1,1001,?,'01/02/2010',1.25,0,0.5,0");
    AddOpening("2,?,1,0.35,0.35,?,'02/02/2010',0,0,0,1");
    const Shown shown(desk_->database, ForClient{desk_->of});
    shown.Press(Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(shown.reports.size(), std::size_t{1});
    const reporting::ReportDocument& document = shown.reports.front();
    QCOMPARE(document.titles.value(0), "Stock Opening Balance");
    QStringList rows;
    const reporting::Table& table = document.tables.front();
    for (const reporting::Row& row : table.rows) {
      QStringList cells;
      for (std::size_t i = 0; i < row.cells.size(); ++i) {
        cells += reporting::CellText(row.cells[i], table.columns[i].mask);
      }
      rows += cells.join(QLatin1Char('|'));
    }
    QCOMPARE(rows, QStringList({
                       "RELIANCE|1001|100.10|10.00|01/02/2010|1001.00|1.25|0.50|No|0.00",
                       "RELIANCE|1001|0.35|1.00|02/02/2010|0.35|0.00|0.00|Yes|0.00",
                       "Total|||||1001.35|1.25|0.50||",
                   }));
  }

 private:
  QStringList Openings() {
    return test::Rows(desk_->Connection(),
                      "Select Id,Qty,Rate,Total,PDate,STax,Brk,STT,FO From StkOpBal Where "
                      "Fyear='2011-12' Order By Id");
  }

  /// A row of the year with the first scrip and account; `values` from the id on.
  void AddOpening(const std::string& values, const char* year = "2011-12") {
    desk_->Connection().Execute(
        fmt::format("Insert Into StkOpBal(CId,Fyear,Id,ScriptId,Qty,Rate,Total,AcId,PDate,STax,Brk,"
                    "STT,FO) Values(?,'{}',{})",
                    year, values),
        desk_->client, desk_->scrip, desk_->account);
  }

  /// Eight shares of the year before.
  void HoldLastYear() {
    AddOpening("3,?,8,50,400,?,'01/02/2010',0,0,0,0", "2010-11");
    desk_->Connection().Execute("Insert Into Stock Values(?,'2010-11',1,?,?,8,50)", desk_->client,
                                desk_->account, desk_->scrip);
  }
};

static const test::RegisterTest<FrmStkOpBalanceTest> kRegistered;
#include "FrmStkOpBalanceTest.moc"
