#include "portfolio/Import.h"
#include "portfolio/reconcile/window/FrmReconcile.h"
#include "support/Desk.h"
#include "support/Files.h"
#include "support/ShownWindow.h"

#include <QCheckBox>

using namespace quorvane;
using namespace quorvane::reconcile;

/// What the window does with what the model finds.
class FrmReconcileTest : public test::DeskTest {
  Q_OBJECT

  using Shown = test::ShownWindow<FrmReconcile>;

  test::ForClient Client() const { return {desk_->of}; }

  /// A statement without an account number, of the day given.
  static QString Statement(const Shown& shown, const QByteArray& rows) {
    return test::WriteFile(shown.folder.filePath(QStringLiteral("statement.csv")),
                           "Holdings as on 31/10/2011\nISIN,Name,Balance\n" + rows);
  }

  void Record(const std::string& bills) {
    Progress progress;
    const auto result = portfolio::ImportFiles(
        desk_->Connection(),
        {{portfolio::FileKind::kBills,
          "client_code,account_no,bill_no,bill_date,broker,exchange,side,scrip_code,quantity,"
          "rate\n" +
              bills}},
        false, {}, progress);
    QVERIFY(result && result->errors.empty());
  }

 private Q_SLOTS:
  void init() {
    desk_->Empty();
    test::Empty(desk_->Connection(), {"ScripIsin", "OpeningMark", "StatementCheck"});
    desk_->Connection().Execute("Insert Into ScripIsin(ScrId,Isin,FromDay) Values(?,?,'')",
                                desk_->scrip, "INE999A01015");
  }

  void StatementWithoutAccountAsksForOneAndShowsDifferences() {
    Record("C1,1001,1,02/05/2011,O'BRIEN & SONS,BSE,P,500325,100,50\n");
    Shown shown(desk_->database, Client());
    shown.chosen = Statement(shown, "INE999A01015,ZINC,200\nINE999B01021,ALUM,5\n");
    shown.Click("CmdFile");
    QCOMPARE(shown.messages.LastText(),
             QString("The Statement names no Account. Select the Demat A/c No."));
    QCOMPARE(Shown::Focused(), QString("Combo2"));
    shown.Named<controls::ComboBox>("Combo2")->ById(desk_->account.value);
    shown.Click("CmdAgain");
    QCOMPARE(shown.RowsOf("VSF"),
             QStringList({"1001|ALUM|0.00|5.00|5.00|ISIN of no Script||INE999B01021",
                          "1001|RELIANCE|100.00|200.00|100.00|Differs|Suggests: Bonus 1:1 or Split "
                          "2:1|INE999A01015"}));
  }

  void SuggestionIsHandedToTheCorporateActions() {
    Record("C1,1001,1,02/05/2011,O'BRIEN & SONS,BSE,P,500325,100,50\n");
    Shown shown(desk_->database, Client());
    shown.chosen = Statement(shown, "INE999A01015,ZINC,200\n");
    shown.Named<controls::ComboBox>("Combo2")->ById(desk_->account.value);
    shown.Click("CmdFile");
    shown.Named<controls::Grid>("VSF")->SelectRow(0);
    shown.Click("CmdOpen");
    QCOMPARE(shown.opened, QStringList("FrmCorpAction"));
  }

  /// The comparison is kept, and the one after the ISIN is known takes its place.
  void UnknownIsinIsAssignedAndCompared() {
    Record("C1,1001,1,02/05/2011,O'BRIEN & SONS,BSE,P,500209,5,50\n");
    Shown shown(desk_->database);
    QVERIFY(!shown->GoTo(999));
    QVERIFY(shown->GoTo(desk_->account.value));
    shown.chosen = Statement(shown, "INE999B01021,ALUM,5\n");
    shown.Click("CmdFile");
    const auto kept = [&] {
      return test::Rows(desk_->Connection(),
                        "Select AcId,StatementDay,Compared,Differing From StatementCheck");
    };
    const QString checked = QStringLiteral("%1|31/10/2011|%2").arg(desk_->account.value);
    QCOMPARE(kept(), QStringList(checked.arg("2|2")));
    shown.Named<controls::Grid>("VSF")->SelectRow(0);
    shown.Named<controls::ComboBox>("Combo3")->ById(desk_->second_scrip.value);
    shown.Click("CmdAssign");
    QCOMPARE(shown.RowsOf("VSF"), QStringList("1001|INFOSYS|5.00|5.00||Agrees||INE999B01021"));
    QCOMPARE(kept(), QStringList(checked.arg("1|0")));
    shown.Named<QCheckBox>("ChkDiffer")->click();
    QCOMPARE(shown.RowsOf("VSF"), QStringList());
  }

  void NewClientsStatementBecomesOpeningStockToBeCompleted() {
    Shown shown(desk_->database, Client());
    shown.chosen = Statement(shown, "INE999A01015,ZINC,200\n");
    shown.Named<controls::ComboBox>("Combo2")->ById(desk_->account.value);
    shown.Click("CmdFile");
    shown.messages.WillAnswer(true);
    shown.Click("CmdOpening");
    QCOMPARE(shown.RowsOf("VSM"), QStringList("2011-12|1001|RELIANCE|200.00"));
    shown.Click("CmdFill");
    QCOMPARE(shown.opened, QStringList("FrmStkOpBalance"));
  }
};

static const test::RegisterTest<FrmReconcileTest> kRegistered;
#include "FrmReconcileTest.moc"
