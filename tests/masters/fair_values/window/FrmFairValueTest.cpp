#include "masters/fair_values/window/FrmFairValue.h"
#include "support/Files.h"
#include "support/ShownWindow.h"

using namespace quorvane;
using namespace quorvane::fair_values;
using Shown = test::ShownWindow<FrmFairValue>;

namespace {

constexpr int kRate = 5;

const QByteArray kFile =
    "SC_CODE,SC_NAME,SC_GROUP,SC_TYPE,OPEN,HIGH,LOW,CLOSE,LAST,PREVCLOSE,NO_TRADES,NO_OF_SHRS,"
    "NET_TURNOV,TDCLOINDI\r\n500325,RELIANCE    ,A ,Q,950,964.9,942,961.15,961.15,949,5,4,4382,\r\n"
    "500209,INFOSYS ,A ,Q,950,1150.5,942,961.15,961.15,949,5,4,4382,\r\n"
    "500010,HDFC ,A ,Q,950,1150.5,942,961.15,961.15,949,5,4,4382,\r\n";

}  // namespace

class FrmFairValueTest : public test::DeskTest {
  Q_OBJECT

  QStringList Stored() {
    return test::Rows(desk_->Connection(), "Select ScrId,Rate From FairValue Order By ScrId");
  }

 private Q_SLOTS:
  void init() {
    desk_->Empty();
    test::Empty(desk_->Connection(), {"FairValue"});
    desk_->Connection().Execute(
        "Insert Into StkOpBal(CId,Fyear,ScriptId,PDate) Values(1,'2017-18',1,'')");
  }

  void ShowsWhatWasHeldWhatIsMissingOrAll() {
    const Shown shown(desk_->database);
    auto* show = shown.Named<controls::ComboBox>("CboShow");
    QCOMPARE(shown.RowsOf("VSF"), QStringList("500325||RELIANCE|Yes||"));
    show->setCurrentIndex(1);
    QCOMPARE(shown.RowsOf("VSF").size(), 1);
    show->setCurrentIndex(2);
    QCOMPARE(shown.RowsOf("VSF"), QStringList({"500209||INFOSYS|||", "500325||RELIANCE|Yes||"}));
    desk_->Connection().Execute("Insert Into FairValue Values(1,964.9)");
    const Shown again(desk_->database);
    again.Named<controls::ComboBox>("CboShow")->setCurrentIndex(1);
    QCOMPARE(again.RowsOf("VSF"), QStringList());
  }

  void TypedRatesKeepTheirDecimals() {
    Shown shown(desk_->database);
    auto* grid = shown.Named<controls::Grid>("VSF");
    grid->setCurrentIndex(grid->Model().index(0, kRate));
    grid->setFocus();
    shown.Fill({"27.4567"});
    QCOMPARE(shown.RowsOf("VSF"), QStringList("500325||RELIANCE|Yes||27.4567"));
    QCOMPARE(Stored(), QStringList());
    shown.Click("CmdUpdate");
    QCOMPARE(Stored(), QStringList("1|27.4567"));
    QVERIFY(!shown.Named<controls::ZENButton>("CmdUpdate")->isEnabled());
    controls::GridModel& model = grid->Model();
    QVERIFY(model.setData(model.index(0, kRate), -1));
    QCOMPARE(shown.RowsOf("VSF").front().section('|', -1), "27.4567");
    QVERIFY(model.setData(model.index(0, kRate), QString()));
    shown.Click("CmdUpdate");
    QCOMPARE(Stored(), QStringList());
  }

  void AFileIsCountedBeforeItIsSaved() {
    desk_->Connection().Execute("Insert Into FairValue Values(1,965)");
    Shown shown(desk_->database);
    shown.chosen = test::WriteFile(shown.folder.filePath("EQ310118.CSV"), kFile);
    shown.Click("CmdFile");
    QCOMPARE(shown.messages.Texts(),
             QStringList("1 values are new, 0 are higher than before, 1 stay. 1 rows of the file "
                         "belong to no scrip. Nothing is saved before Update."));
    QCOMPARE(Stored(), QStringList("1|965"));
    shown.window->close();
    QCOMPARE(shown.messages.LastText(), "The values are not saved. Close without saving them?");
    QVERIFY(shown.window->isVisible());
    shown.Click("CmdUpdate");
    QCOMPARE(Stored(), QStringList({"1|965", "2|1150.5"}));
  }

  void AFileWithoutADayIsAskedAbout() {
    Shown shown(desk_->database);
    shown.chosen = test::WriteFile(shown.folder.filePath("EQ300118.CSV"), kFile);
    shown.Click("CmdFile");
    QCOMPARE(shown.messages.LastText(),
             "The file holds the prices of 30/01/2018, not of 31/01/2018.");
    shown.chosen = test::WriteFile(shown.folder.filePath("prices.csv"), kFile);
    shown.Click("CmdFile");
    QCOMPARE(shown.messages.LastText(),
             "The file prices.csv does not tell its day. Are its prices of 31/01/2018?");
    QCOMPARE(shown.RowsOf("VSF"), QStringList("500325||RELIANCE|Yes||"));
    shown.messages.WillAnswer(true);
    shown.Click("CmdFile");
    QCOMPARE(shown.RowsOf("VSF"), QStringList("500325||RELIANCE|Yes||964.9"));
  }
};

static const test::RegisterTest<FrmFairValueTest> kRegistered;
#include "FrmFairValueTest.moc"
