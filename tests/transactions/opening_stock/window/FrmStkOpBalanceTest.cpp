#include "controls/DateBox.h"
#include "masters/Records.h"
#include "masters/ShownWindow.h"
#include "support/Desk.h"
#include "support/TestMain.h"
#include "transactions/bills/BillBook.h"
#include "transactions/opening_stock/window/FrmStkOpBalance.h"

#include <QCheckBox>

using namespace quorvane;
using namespace quorvane::opening_stock;
using test::Desk;
using test::ForClient;
using Shown = test::ShownWindow<FrmStkOpBalance>;
using Kind = test::RecordingMessages::Kind;

namespace {

const QString kQuestion =
    QStringLiteral("Do you want to Carry Forward the Stock From Previous Year?");

}  // namespace

class FrmStkOpBalanceTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { desk_ = std::make_unique<Desk>(); }
  void cleanup() { desk_->Empty(); }
  void cleanupTestCase() { desk_.reset(); }

  void KeyboardAloneAddsALot() {
    const Shown shown(desk_->database, ForClient{desk_->of});
    shown.AddByKeyboard({"500325", "", "1001", "-10", "100.256", "010410", "12.345", "1.005"});
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(Openings(),
             QStringList(QStringLiteral("1|10|100.26|1002.6|01/04/2010|12.35|0|1.005|0")));
    QCOMPARE(desk_->LotAt(100.26), QStringLiteral("10@100.26"));
    QCOMPARE(shown->List().CurrentId(), 1);
    // The next lot is most often of the same account.
    shown.Click("cmdAdd");
    QCOMPARE(shown.TextIn("Combo2"), QStringLiteral("1001"));
  }

  void UnknownCodeStaysToBeCorrected() {
    const Shown shown(desk_->database, ForClient{desk_->of});
    shown.Click("cmdAdd");
    shown.Fill({"zzz"});
    QCOMPARE(shown.messages.Texts(),
             QStringList(QStringLiteral("There is no Scrip of the Code ZZZ.")));
    QCOMPARE(shown.Named("TxtScr")->selectedText(), QStringLiteral("ZZZ"));
    shown.Fill({"500325"});
    QCOMPARE(shown.TextIn("Combo1"), QStringLiteral("RELIANCE"));
  }

  void DateAfterTheYearIsClearedWithoutAWord() {
    const Shown shown(desk_->database, ForClient{desk_->of});
    shown.Click("cmdAdd");
    for (const auto& [typed, kept] : {std::pair{"310312", "31/03/2012"}, std::pair{"010412", ""}}) {
      shown.Named("Text1_3")->setFocus(Qt::TabFocusReason);
      shown.Fill({QLatin1String(typed)});
      QCOMPARE(shown.TextIn("Text1_3"), QLatin1String(kept));
    }
    QCOMPARE(shown.messages.Texts(), QStringList());
  }

  void NewDateOfACarriedLotChangesNothingElse() {
    AddOpening("3,?,1000,364.125,364675,?,'06/04/2010',4.166,0.55,20.4875,1");
    desk_->Connection().Execute("Insert Into Stock Values(?,'2011-12',1,?,?,1000,364.125)",
                                desk_->client, desk_->account, desk_->scrip);
    const Shown shown(desk_->database, ForClient{desk_->of});
    shown.Retype(3, "Text1_3", "050410");
    shown.Click("cmdUpdate");
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(Openings(),
             QStringList(QStringLiteral("3|1000|364.125|364675|05/04/2010|4.166|0.55|20.4875|1")));
    QCOMPARE(desk_->LotAt(364.125), QStringLiteral("1000@364.125"));
  }

  void ChangedQuantityMovesTheDifference() {
    const Shown shown(desk_->database, ForClient{desk_->of});
    shown.AddByKeyboard({"", "reliance", "1001", "10", "100", "010410"});
    shown.Retype(1, "Text1_0", "4");
    shown.Click("cmdUpdate");
    QCOMPARE(desk_->LotAt(100), QStringLiteral("4@100"));
    QCOMPARE(shown.ListRow(0).value(5), QStringLiteral("400.00"));
  }

  void LotWhoseSharesWereSoldIsNotDeleted() {
    Shown shown(desk_->database, ForClient{desk_->of});
    shown.AddByKeyboard({"", "reliance", "1001", "10", "100", "010410"});
    records::Bill bill = desk_->NewBill({desk_->Sale(6, 120, desk_->IdOfLot(100))});
    QCOMPARE(test::TextOf(bills::BillBook(desk_->Connection(), desk_->of).Save(bill)),
             test::kAccepted);
    const QStringList before = desk_->Everything();
    shown->List().SelectId(1);
    shown.messages.WillAnswer(true);
    shown.Click("CmdDelete");
    QCOMPARE(shown.messages.LastText(), test::kNegativeReliance);
    QCOMPARE(desk_->Everything(), before);
    QCOMPARE(shown->List().Model().RowCount(), 1);
  }

  void StockOfTheYearBeforeIsOfferedOnOpening_data() {
    QTest::addColumn<bool>("answer");
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("no") << false << QStringList();
    QTest::newRow("yes") << true << QStringList(QStringLiteral("4|8|50|400|01/02/2010|0|0|0|0"));
  }
  void StockOfTheYearBeforeIsOfferedOnOpening() {
    QFETCH(bool, answer);
    HoldLastYear();
    const Shown shown(desk_->database, ForClient{desk_->of, {answer}});
    QCOMPARE(shown.messages.Texts(), QStringList(kQuestion));
    QCOMPARE(shown.messages.said.back().kind, Kind::kAsk);
    QCOMPARE(shown.messages.said.back().icon, controls::Icon::kInformation);
    QTEST(Openings(), "rows");
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
             QStringLiteral("1 lots were carried forward. 1 other opening rows stay as they are; "
                            "delete those that should not count."));
  }

  void NothingToCarryIsSaid() {
    const Shown shown(desk_->database, ForClient{desk_->of});
    shown.Click("CmdImport");
    QCOMPARE(shown.messages.Texts(),
             QStringList(QStringLiteral("There is no Stock of 2010-11 to Carry Forward.")));
  }

  void ReportShowsTheListWithItsTotals() {
    AddOpening("1,?,10,100.1,1001,?,'01/02/2010',1.25,0,0.5,0");
    AddOpening("2,?,1,0.35,0.35,?,'02/02/2010',0,0,0,1");
    const Shown shown(desk_->database, ForClient{desk_->of});
    shown.Press(Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(shown.reports.size(), std::size_t{1});
    const reporting::ReportDocument& document = shown.reports.front();
    QCOMPARE(document.titles.value(0), QStringLiteral("Stock Opening Balance"));
    QStringList rows;
    const reporting::Table& table = document.tables.front();
    for (const reporting::Row& row : table.rows) {
      QStringList cells;
      for (std::size_t i = 0; i < row.cells.size(); ++i) {
        cells += reporting::CellText(row.cells[i], table.columns[i].mask);
      }
      rows += cells.join(QLatin1Char('|'));
    }
    QCOMPARE(rows,
             QStringList({
                 QStringLiteral("RELIANCE|1001|100.10|10.00|01/02/2010|1001.00|1.25|0.50|No|0.00"),
                 QStringLiteral("RELIANCE|1001|0.35|1.00|02/02/2010|0.35|0.00|0.00|Yes|0.00"),
                 QStringLiteral("Total|||||1001.35|1.25|0.50||"),
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

  std::unique_ptr<Desk> desk_;
};

static const test::RegisterTest<FrmStkOpBalanceTest> kRegistered;

#include "FrmStkOpBalanceTest.moc"
