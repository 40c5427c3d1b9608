#include "portfolio/trades/window/ImpTrades.h"
#include "support/Files.h"
#include "support/ShownWindow.h"

#include <QCheckBox>
#include <QLabel>

using namespace quorvane;
using namespace quorvane::portfolio;

namespace {

const QByteArray kBook =
    "symbol,isin,trade_date,exchange,trade_type,quantity,price,trade_id,order_id\n"
    "RELIANCE,,2011-06-01,NSE,buy,50,530,T1,O1\n"
    "RELIANCE,,2011-06-01,NSE,buy,50,530,T2,O1\n"
    "INFOSY,,2011-06-02,NSE,buy,5,10,T3,O2\n"
    "RELIANCE,,2011-06-03,NSE,sell,120,540,T4,O3\n";

}  // namespace

/// What only the window of trade books can get wrong.
class ImpTradesTest : public test::DeskTest {
  Q_OBJECT

  using Shown = test::ShownWindow<ImpTrades>;

  /// The window with a file, as the user has chosen it; account and broker are proposed.
  void Choose(Shown& shown, const QByteArray& bytes) {
    shown.chosen = test::WriteFile(shown.folder.filePath("book.csv"), bytes);
    shown.Click("CmdFile");
  }

  QStringList States(const Shown& shown) {
    QStringList states;
    for (const QString& row : shown.RowsOf("VSF")) {
      states << row.section('|', 1, 1);
    }
    return states;
  }

  QStringList Saved() {
    return test::Rows(desk_->Connection(),
                      "Select M.BDate,L.SP,L.Qty From SPMaster M Join SPTrans L On L.SID=M.ID "
                      "Order By M.ID,L.Id");
  }

 private Q_SLOTS:
  void init() {
    desk_->Empty();
    for (const char* table : {"TradeKey", "ImportProfile", "ScripIsin"}) {
      desk_->Connection().Execute(std::string("Delete From ") + table);
    }
    desk_->Connection().Execute("Update Script Set NCode=Name");
  }

  void KnownFileIsShownConfirmedMendedAndSaved() {
    Shown shown(desk_->database, test::ForClient{desk_->of});
    QCOMPARE(Shown::Focused(), "CmdFile");
    QVERIFY(!shown.Named<controls::ZENButton>("CmdSave")->isEnabled());
    Choose(shown, kBook);
    QCOMPARE(shown.TextIn("CboAccount"), "1001 - C1");
    QVERIFY(!shown.Named<QWidget>("VSC")->isVisible());
    QCOMPARE(States(shown), QStringList({"New", "Script to be Confirmed", "Shares are Missing"}));
    shown.Click("CmdSave");
    QVERIFY2(shown.messages.LastText().contains("20.00 shares that were sold are missing"),
             qPrintable(shown.messages.LastText()));
    QCOMPARE(Shown::Focused(), "VSF");
    QCOMPARE(Saved(), QStringList());
    shown.Click("CmdConfirm");
    shown.Named<controls::Grid>("VSF")->Model().SetTicked(2, false);
    shown.Click("CmdSave");
    QCOMPARE(shown.messages.LastText(), "3 Trades are Saved in 2 Bills.");
    QCOMPARE(Saved(), QStringList({"01/06/2011|1|100", "02/06/2011|1|5"}));
    QCOMPARE(States(shown),
             QStringList({"Taken In Already", "Taken In Already", "Shares are Missing"}));
  }

  void CellIsCorrectedInPlace() {
    Shown shown(desk_->database, test::ForClient{desk_->of});
    Choose(shown, kBook.left(kBook.indexOf("INFOSY")));
    auto* grid = shown.Named<controls::Grid>("VSF");
    grid->setFocus();
    grid->setCurrentIndex(grid->Model().index(0, 8));
    Shown::Type("100\n");
    shown.Click("CmdSave");
    QCOMPARE(test::Rows(desk_->Connection(), "Select Qty,Brk,Amt From SPTrans"),
             QStringList("100|1|53100"));
  }

  void ColumnsAreAskedForOnceForAHeader() {
    Shown shown(desk_->database, test::ForClient{desk_->of});
    const QByteArray bytes = "Trade Date,Symbol,How,Quantity,Price\n2011-06-01,RELIANCE,buy,5,10\n";
    Choose(shown, bytes);
    QVERIFY(shown.Named<QWidget>("VSC")->isVisible());
    QVERIFY(!shown.Named<QWidget>("VSF")->isVisible());
    QVERIFY(!shown.Named<controls::ZENButton>("CmdUse")->isEnabled());
    QCOMPARE(shown.Named<QLabel>("LblMissing")->text(), "Still missing: Purchase or Sale");
    auto& columns = shown.Named<controls::Grid>("VSC")->Model();
    columns.setData(columns.index(2, 3), static_cast<int>(Meaning::kSide) + 1);
    QCOMPARE(shown.RowsOf("VSP"), QStringList("01/06/2011|NSE|RELIANCE|Purchase|5.00|10.00"));
    shown.Click("CmdUse");
    QCOMPARE(States(shown), QStringList("New"));
    shown.Click("CmdSave");
    QCOMPARE(Saved(), QStringList("01/06/2011|1|5"));
    Choose(shown, bytes);
    QVERIFY(!shown.Named<QWidget>("VSC")->isVisible());
  }

  void WhatIsUnknownIsAssignedOrNew() {
    Shown shown(desk_->database, test::ForClient{desk_->of});
    Choose(shown, kBook.left(kBook.indexOf('\n') + 1) +
                      "ZINC,,2011-06-01,NSE,buy,50,530,T1,O1\n"
                      "METAL,,2011-06-01,NSE,buy,5,530,T2,O2\n");
    QCOMPARE(States(shown), QStringList({"Unknown Script", "Unknown Script"}));
    auto* grid = shown.Named<controls::Grid>("VSF");
    grid->SelectRow(1);
    shown.Named<controls::ComboBox>("CboScrip")->ById(desk_->second_scrip.value);
    shown.Click("CmdAssign");
    QCOMPARE(States(shown), QStringList({"Unknown Script", "New"}));
    grid->SelectRow(0);
    shown.Click("CmdNew");
    QCOMPARE(States(shown), QStringList({"New", "New"}));
    shown.Click("CmdSave");
    QCOMPARE(test::Rows(desk_->Connection(),
                        "Select S.Name,L.Qty From SPTrans L Join Script S On S.Id=L.ScriptId "
                        "Order By L.Id"),
             QStringList({"ZINC|50", "INFOSYS|5"}));
    desk_->Connection().Execute("Delete From Script Where Code='ZINC'");
  }

  void UnreadableFileLeavesTheWindowAsItWas() {
    Shown shown(desk_->database, test::ForClient{desk_->of});
    Choose(shown, kBook);
    const QStringList before = States(shown);
    Choose(shown, "PK\x03\x04 nothing");
    QCOMPARE(shown.messages.said.back().kind, test::RecordingMessages::Kind::kRefuse);
    QCOMPARE(States(shown), before);
  }
};

static const test::RegisterTest<ImpTradesTest> kRegistered;
#include "ImpTradesTest.moc"
