#include "controls/ComboBox.h"
#include "controls/Grid.h"
#include "controls/RecordWindow.h"
#include "reports/home/window/HomePane.h"
#include "support/Test.h"
#include "ui/main/ShownMain.h"

#include <QTabBar>

using namespace quorvane;
using test::ShownMain;

namespace {

/// Two clients of one family with a bill each, in two years.
struct Office : ShownMain {
  Office() {
    database::Connection& connection = *session.connection;
    client = database.AddClient(QStringLiteral("C1"));
    other = database.AddClient(QStringLiteral("C2"));
    scrip = database.AddScrip(QStringLiteral("500325"), QStringLiteral("RELIANCE"));
    connection.Execute("Update ClientInfo Set Name=Concat('CLIENT ',Code),GCode='FAM'");
    const BrokerId broker = database.AddBroker(QStringLiteral("SHAH"));
    const auto add = [&](int id, ClientId of, const char* year, const char* day) {
      const AccountId account = database.AddAccount(of, QStringLiteral("10%1").arg(id));
      connection.Execute(
          "Insert Into "
          "SPMaster(Cid,Fyear,ID,BillNo,BDate,BrokId,ExId,AcId,Tot,OthCharge,STT,Total) "
          "Values(?,?,?,?,?,?,1,?,1000,0,0,1000)",
          of, year, id, QStringLiteral("KV/%1").arg(id), day, broker, account);
      connection.Execute(
          "Insert Into "
          "SPTrans(Cid,Fyear,SID,Id,SP,StkId,ScriptId,Qty,Rate,Brk,Net,Amt,STax,FO,STT) "
          "Values(?,?,?,1,1,?,?,10,100,0,100,1000,0,0,0)",
          of, year, id, id, scrip);
      connection.Execute(
          "Insert Into Stock(Cid,Fyear,Id,AcId,ScriptId,Rate,Qty) Values(?,?,?,?,?,100,10)", of,
          year, id, account, scrip);
    };
    add(1, client, "2011-12", "10/06/2011");
    add(2, other, "2010-11", "10/06/2010");
    connection.Execute(
        "Insert Into MarketRate(Fyear,Id,MDate,ScrId,Rate) "
        "Values('2011-12',1,'14/11/2011',?,120),('2011-12',2,'15/11/2011',?,125)",
        scrip, scrip);
  }

  /// Another main window, as after a log-out: it finds the clients.
  void OpenAgain() {
    delete main;
    Open();
  }

  controls::ChildWindow* Front() const {
    const QMdiSubWindow* frame = main->findChild<QMdiArea*>()->activeSubWindow();
    return frame == nullptr ? nullptr : qobject_cast<controls::ChildWindow*>(frame->widget());
  }

  QStringList RowsOf(const char* name) const {
    const controls::GridModel& model = Named<controls::Grid>(name)->Model();
    QStringList rows;
    for (int row = 0; row < model.RowCount(); ++row) {
      const QString second = model.columnCount() > 1 ? model.Text(row, 1) : QString();
      rows << model.Text(row, 0) + QLatin1Char('|') + second;
    }
    return rows;
  }

  ClientId client;
  ClientId other;
  ScripId scrip;
};

}  // namespace

/// Finding, seeing how everything stands, and going from window to window.
class DeskTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void SearchOpensTheRecordOfItsClientAndYear() {
    Office office;
    QTest::keyClick(office.main, Qt::Key_F, Qt::ControlModifier);
    QTRY_VERIFY(office.Named<controls::ChildWindow>("FrmSearch") != nullptr);
    QTRY_VERIFY(QApplication::focusWidget() != nullptr &&
                QApplication::focusWidget()->objectName() == QLatin1String("TxtSearch"));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("kv/2"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTRY_VERIFY(office.Front() != nullptr);
    auto* bills = qobject_cast<controls::RecordWindow*>(office.Front());
    QCOMPARE(bills->objectName(), "FrmSalePurchase");
    QCOMPARE(bills->CurrentId(), 2);
    QVERIFY(bills->windowTitle().endsWith(QStringLiteral("CLIENT C2 - 2010-11")));
    QCOMPARE(office.Named<controls::ComboBox>("CboClient")->CurrentId(), office.other.value);
    QCOMPARE(office.Named<controls::ComboBox>("CboYear")->currentText(), "2010-11");
    QTRY_VERIFY(office.Named<controls::ChildWindow>("FrmSearch") == nullptr);
    QCOMPARE(office.messages.Texts(), QStringList());
  }

  void ARecordThatIsGoneIsTold() {
    Office office;
    office.desk.open_record({QStringLiteral("FrmSalePurchase"), 77,
                             ClientYear{office.client, text::FinancialYear(2011)}, "CLIENT C1"});
    QCOMPARE(office.messages.LastText(), "This record is not there any more.");
  }

  void ARecordUnderEntryIsNotLeft() {
    Office office;
    const ClientYear of{office.client, text::FinancialYear(2011)};
    office.desk.open_record({QStringLiteral("FrmSalePurchase"), 1, of, "CLIENT C1"});
    auto* bills = qobject_cast<controls::RecordWindow*>(office.Front());
    QTest::keyClick(bills, Qt::Key_N, Qt::ControlModifier);
    QVERIFY(bills->IsEditing());
    office.desk.open_record({QStringLiteral("FrmSalePurchase"), 1, of, "CLIENT C1"});
    QVERIFY(bills->IsEditing());
    QVERIFY(office.messages.LastText().startsWith(QStringLiteral("Another record is under entry")));
    office.messages.WillAnswer(true);
  }

  void HomeShowsFiguresAndOpensWhatTheyAreMadeOf() {
    Office office;
    office.OpenAgain();
    QVERIFY(office.Named<home::HomePane>("HomePane")->isVisible());
    QTRY_COMPARE_WITH_TIMEOUT(office.RowsOf("VSFigures").mid(0, 4),
                              QStringList({"Value|2,500.00", "Day's change|100.00", "Cost|2,000.00",
                                           "Value less cost|500.00"}),
                              20000);
    QCOMPARE(office.RowsOf("VSLargest"), QStringList("RELIANCE|20.00"));
    QCOMPARE(office.RowsOf("VSLast"), QStringList({"Bill|10/06/2010", "Bill|10/06/2011"}));
    QCOMPARE(office.RowsOf("VSMissing"),
             QStringList({"2 demat accounts were never compared with a statement.|",
                          "There is no backup.|"}));
    auto* figures = office.Named<controls::Grid>("VSFigures");
    figures->setFocus();
    figures->SelectRow(0);
    QTest::keyClick(figures, Qt::Key_Return);
    QTRY_COMPARE(office.OpenWindows(), QStringList("FrmHoldings"));
    QVERIFY(!office.Named<home::HomePane>("HomePane")->isVisible());
    auto* list = office.Front()->findChild<controls::Grid*>(QStringLiteral("VSF"));
    QCOMPARE(list->Model().Text(0, 5), "2500.00");
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(list->Model().RowCount(), 2);
    list->SelectRow(1);
    QTest::keyClick(list, Qt::Key_Return);
    QTRY_COMPARE(office.OpenWindows(), QStringList({"FrmHoldings", "RptScripPage"}));
    QVERIFY(office.Front()->windowTitle().contains(QStringLiteral("CLIENT C2")));
  }

  void HomeSeesWhatOthersRecorded() {
    Office office;
    office.OpenAgain();
    QTRY_COMPARE_WITH_TIMEOUT(office.RowsOf("VSFigures").value(2), "Cost|2,000.00", 20000);
    office.Choose("mnuExchange");
    database::InTransaction(*office.session.connection, [](database::Transaction& transaction) {
      transaction.Execute("Update SPTrans Set Qty=Qty*2,Amt=Amt*2 Where SID=1");
    });
    office.Named<controls::ChildWindow>("FrmExchange")->close();
    QTRY_COMPARE_WITH_TIMEOUT(office.RowsOf("VSFigures").value(2), "Cost|3,000.00", 20000);
  }

  void WindowsAreShownBehindTabsAndThatIsRemembered() {
    Office office;
    const auto mode = [&] { return office.main->findChild<QMdiArea*>()->viewMode(); };
    office.Choose("mnuExchange");
    const QRect place = office.Front()->parentWidget()->geometry();
    office.Choose("mnuTabs");
    office.Choose("mnuScriptDetails");
    QCOMPARE(mode(), QMdiArea::TabbedView);
    QCOMPARE(office.main->findChild<QMdiArea*>()->findChild<QTabBar*>()->count(), 2);
    office.Choose("mnuCloseAll");
    QTRY_COMPARE(office.OpenWindows(), QStringList());
    office.OpenAgain();
    QCOMPARE(mode(), QMdiArea::TabbedView);
    QVERIFY(office.Named<QAction>("mnuTabs")->isChecked());
    office.Choose("mnuTabs");
    QCOMPARE(mode(), QMdiArea::SubWindowView);
    office.Choose("mnuExchange");
    QCOMPARE(office.Front()->parentWidget()->geometry(), place);
  }

  void TheBarChangesClientAndYearByTheKeyboard() {
    Office office;
    office.OpenAgain();
    office.desk.open_record({QStringLiteral("FrmBrPayment"), 0,
                             ClientYear{office.client, text::FinancialYear(2011)}, "CLIENT C1"});
    QTest::keyClick(office.Front(), Qt::Key_L, Qt::ControlModifier);
    QTRY_VERIFY(office.Named<QWidget>("CboClient")->hasFocus() ||
                office.Named<QWidget>("CboClient")->isAncestorOf(QApplication::focusWidget()));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("client c2"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTRY_COMPARE(office.session.current->client.value, office.other.value);
    QCOMPARE(office.session.current_client_name, "CLIENT C2");
    // The window in front opens for the client that was chosen; the one of the other stays.
    QTRY_COMPARE(office.OpenWindows(), QStringList({"FrmBrPayment", "FrmBrPayment"}));
    QVERIFY(office.Front()->windowTitle().contains(QStringLiteral("CLIENT C2 - 2011-12")));
  }
};

static const test::RegisterTest<DeskTest> kRegistered;
#include "DeskTest.moc"
