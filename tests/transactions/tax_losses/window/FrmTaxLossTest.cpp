#include "support/ShownWindow.h"
#include "transactions/tax_losses/window/FrmTaxLoss.h"

using namespace quorvane;
using namespace quorvane::tax_losses;
using test::ForClient;
using Shown = test::ShownWindow<FrmTaxLoss>;

class FrmTaxLossTest : public test::DeskTest {
  Q_OBJECT

  QStringList Stored() {
    return test::Rows(desk_->Connection(),
                      "Select CId,Fyear,LossYear,Kind,Amount From TaxLoss Order By 1,2,3,4");
  }

 private Q_SLOTS:
  void init() {
    desk_->Empty();
    test::Empty(desk_->Connection(), {"TaxLoss"});
    desk_->Connection().Execute("Insert Into TaxLoss Values(2,'2011-12','2010-11',1,9)");
  }

  void KeyboardAloneEntersRowsThatAreSavedTogether() {
    Shown shown(desk_->database, ForClient{desk_->of});
    shown.Click("CmdAddRow");
    // The second row starts by Enter in the last cell of the first.
    shown.Fill({"2008", "spec", "5.255", "2010", "short", "1234567.5"});
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(shown.Named<QLabel>("LblTotal")->text(),
             "Short-Term Capital Loss 1234567.50, Speculation Loss 5.26");
    QCOMPARE(Stored(), QStringList("2|2011-12|2010-11|1|9"));
    shown.Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(shown.messages.LastText(), "Enter an Amount Above Zero.");
    QCOMPARE(shown.Named<controls::Grid>("VSF")->CurrentRow(), 2);
    shown.Click("CmdDelRow");
    shown.Click("CmdUpdate");
    QCOMPARE(Stored(), QStringList({"1|2011-12|2008-09|3|5.26", "1|2011-12|2010-11|1|1234567.5",
                                    "2|2011-12|2010-11|1|9"}));
    QVERIFY(!shown.Named<controls::ZENButton>("CmdUpdate")->isEnabled());
  }

  void WhatIsRefusedChangesNothing_data() {
    const test::Table<int, int, double, const char*> row;
    row("too old", 2006, 3, 5.0,
        "Speculation Loss: a loss of 2006-07 may be set off up to 2010-11.");
    row("twice", 2010, 2, 5.0, "Long-Term Capital Loss of 2010-11 is Entered Twice.");
    row("no amount", 2010, 1, 0.0, "Enter an Amount Above Zero.");
  }
  void WhatIsRefusedChangesNothing() {
    const auto [year, kind, amount, text] = test::Table<int, int, double, const char*>::Row();
    desk_->Connection().Execute("Insert Into TaxLoss Values(1,'2011-12','2010-11',2,7)");
    const QStringList before = Stored();
    Shown shown(desk_->database, ForClient{desk_->of});
    shown.Click("CmdAddRow");
    controls::GridModel& model = shown.Named<controls::Grid>("VSF")->Model();
    model.SetValue(1, 0, year);
    model.SetValue(1, 1, kind);
    QVERIFY(model.setData(model.index(1, 2), amount));
    shown.Click("CmdUpdate");
    QCOMPARE(shown.messages.LastText(), QString(text));
    QCOMPARE(Shown::Focused(), "VSF");
    QCOMPARE(shown.Named<controls::Grid>("VSF")->CurrentRow(), 1);
    QCOMPARE(Stored(), before);
    shown.window->close();
    QCOMPARE(shown.messages.LastText(), "The losses are not saved. Close without saving them?");
  }

  void AClientWhoWasDeletedGetsNoLosses() {
    Shown shown(desk_->database, ForClient{{ClientId{77}, desk_->year}});
    shown.Click("CmdAddRow");
    controls::GridModel& model = shown.Named<controls::Grid>("VSF")->Model();
    QVERIFY(model.setData(model.index(0, 2), 5));
    shown.Click("CmdUpdate");
    QCOMPARE(shown.messages.said.back().kind, test::RecordingMessages::Kind::kRefuse);
    QCOMPARE(Stored().size(), 1);
  }
};

static const test::RegisterTest<FrmTaxLossTest> kRegistered;
#include "FrmTaxLossTest.moc"
