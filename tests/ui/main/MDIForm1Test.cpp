#include "controls/Grid.h"
#include "controls/RecordWindow.h"
#include "reports/Reports.h"
#include "support/Files.h"
#include "support/Test.h"
#include "ui/Features.h"
#include "ui/main/ShownMain.h"
#include "ui/main/StartPage.h"

#include <QMenuBar>
#include <QSignalSpy>
#include <QTranslator>

using namespace quorvane;
using test::ShownMain;

namespace {

const QString kQuit = QStringLiteral("Do You Want to Close the Application?");
const QString kQuitBackUp = QStringLiteral("Do you Want to take BackUp of Database?");
const QString kClose = QStringLiteral("Do You want to Close the Applicaltion?");
const QString kLogOut = QStringLiteral("Are You Sure You Want to LogOut?");

void AddItems(const QList<QAction*>& actions, QStringList& names) {
  for (const QAction* action : actions) {
    names << action->objectName();
    if (action->menu() != nullptr) {
      AddItems(action->menu()->actions(), names);
    }
  }
}

/// Knows one word of Hindi.
class OneWord : public QTranslator {
 public:
  bool isEmpty() const override { return false; }
  QString translate(const char* /*context*/, const char* text, const char* /*sense*/,
                    int /*count*/) const override {
    return qstrcmp(text, "brokers") == 0 ? QStringLiteral("ब्रोकर") : QString();
  }
};

}  // namespace

class MDIForm1Test : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void MenuStandsInItsOrder() {
    const ShownMain shown;
    QStringList names;
    AddItems(shown.main->menuBar()->actions(), names);
    QStringList wanted;
    for (const ui::Feature& feature : ui::Features()) {
      if (feature.action != ui::MenuAction::kNoItem) {
        wanted << QLatin1String(feature.item);
      }
    }
    QCOMPARE(names, wanted);
    QCOMPARE(wanted.size(), 71);
    for (const reports::Report& report : reports::Reports()) {
      QVERIFY2(wanted.contains(QLatin1String(report.window.item)), report.command);
    }
    QCOMPARE(shown.Named<QAction>("mnuSttDetail")->text(), "S&TT Percent Detail");
  }

  void QuittingAsksTwiceAndNoMore() {
    ShownMain shown;
    shown.messages.WillAnswer(false);
    shown.Choose("mnuQuit");
    QVERIFY(shown.main->isVisible());
    shown.messages.WillAnswer(true);
    shown.messages.WillAnswer(false);
    shown.Choose("mnuQuit");
    QTRY_VERIFY(shown.main.isNull());
    QCOMPARE(shown.messages.Texts(), QStringList({kQuit, kQuit, kQuitBackUp}));
    QCOMPARE(shown.messages.said[1].preset, controls::Answer::kYes);
    QCOMPARE(shown.messages.said[2].preset, controls::Answer::kNo);
  }

  void LoggingOutTakesAllWindowsAlong() {
    ShownMain shown;
    shown.Choose("mnuExchange");
    const QSignalSpy out(shown.main, &ui::MDIForm1::LoggedOut);
    shown.messages.WillAnswer(false);
    shown.Choose("mnuLogOut");
    QCOMPARE(out.count(), 0);
    QCOMPARE(shown.OpenWindows(), QStringList("FrmExchange"));
    shown.messages.WillAnswer(true);
    shown.Choose("mnuLogOut");
    QCOMPARE(out.count(), 1);
    QTRY_VERIFY(shown.main.isNull());
    QCOMPARE(shown.messages.Texts(), QStringList({kLogOut, kLogOut}));
  }

  void ARecordInEditingHoldsUpTheLogOutAsAWhole() {
    ShownMain shown;
    shown.Choose("mnuExchange");
    shown.Choose("mnuScriptDetails");
    auto* edited = shown.Named<controls::RecordWindow>("FrmScript");
    QTest::keyClick(edited, Qt::Key_N, Qt::ControlModifier);
    edited->parentWidget()->showMinimized();
    const QSignalSpy out(shown.main, &ui::MDIForm1::LoggedOut);
    shown.messages.WillAnswer(true);
    shown.messages.WillAnswer(false);  // to the question of the window in editing
    shown.Choose("mnuLogOut");
    QCOMPARE(out.count(), 0);
    QCOMPARE(shown.OpenWindows(), QStringList({"FrmExchange", "FrmScript"}));
    QVERIFY(edited->IsEditing() && shown.main->isVisible());
    // Closing still asks, by its own question first.
    shown.messages.WillAnswer(false);
    shown.main->close();
    QCOMPARE(shown.messages.LastText(), kClose);
  }

  // The main window that goes leaves the desk to the one that has come.
  void AnOldMainWindowDoesNotDisableANewOne() {
    ShownMain shown;
    QPointer<ui::MDIForm1> old = shown.main;
    shown.Open();
    delete old;
    shown.desk.open(QStringLiteral("FrmExchange"));
    QCOMPARE(shown.OpenWindows(), QStringList("FrmExchange"));
  }

  void ClientSelectionRestsTheButtonRow() {
    ShownMain shown;
    shown.database.AddClient(QStringLiteral("C1"));
    const auto* row = shown.Named<QWidget>("ZENButton1");
    QVERIFY(row->isEnabled());
    shown.Choose("mnuBrPayment");
    QCOMPARE(shown.session.target, "FrmBrPayment");
    QVERIFY(!row->isEnabled());
    shown.Choose("mnuExchange");
    QVERIFY(row->isEnabled());
    shown.Named<controls::ChildWindow>("FrmExchange")->close();
    QTRY_VERIFY(!row->isEnabled());
    QTest::mouseClick(shown.Named<controls::ZENButton>("cmdproceed"), Qt::LeftButton);
    QTRY_COMPARE(shown.OpenWindows(), QStringList("FrmBrPayment"));
    QVERIFY(row->isEnabled());
  }

  void TheClientListOpensWhatItWasAskedForLast() {
    ShownMain shown;
    shown.database.AddClient(QStringLiteral("C1"));
    shown.Choose("mnuStkOpBal");
    shown.Choose("mnuBrReceipt");
    shown.Choose("mnuBackUp");
    QTest::mouseClick(shown.Named<controls::ZENButton>("cmdproceed"), Qt::LeftButton);
    QTRY_COMPARE(shown.OpenWindows(), QStringList({"frmBackUpRestore", "FrmBrPayment"}));
    QVERIFY(shown.Named<controls::ChildWindow>("FrmBrPayment")
                ->windowTitle()
                .startsWith(QStringLiteral("Received From Broker")));
    QCOMPARE(shown.messages.Texts(), QStringList());
  }

  void AnAccessKeyIsTheFrontWindowsBeforeItIsTheMenus() {
    ShownMain shown;
    shown.session.current =
        ClientYear{shown.database.AddClient(QStringLiteral("C1")), text::FinancialYear(2011)};
    shown.session.target = QStringLiteral("RptBrokerLedger");
    shown.desk.open(shown.session.target);
    QTRY_VERIFY(QApplication::focusWidget() != nullptr);
    // Each time, also where the toolkit takes the rivals in turn.
    for (int times = 1; times <= 3; ++times) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_R, Qt::AltModifier);
      QTRY_COMPARE(shown.messages.said.size(), static_cast<std::size_t>(times));
      QCOMPARE(shown.messages.LastText(), "Enter Broker Name.");
    }
    QVERIFY(QApplication::activePopupWidget() == nullptr);
  }

  void TheFirstClientEndsTheStartPage() {
    ShownMain shown;
    QVERIFY(shown.Named<ui::StartPage>("StartPage")->isVisible());
    QTest::mouseClick(shown.Named<controls::ZENButton>("cmd_mnuClientInfo"), Qt::LeftButton);
    QTRY_COMPARE(shown.OpenWindows(), QStringList("FrmClientMaster"));
    QVERIFY(!shown.Named<ui::StartPage>("StartPage")->isVisible());
    shown.database.AddClient(QStringLiteral("C1"));
    shown.Named<controls::ChildWindow>("FrmClientMaster")->close();
    QTRY_COMPARE(shown.OpenWindows(), QStringList());
    QVERIFY(!shown.Named<ui::StartPage>("StartPage")->isVisible());
  }

  void AFolderWithErrorsIsListedAndAWholeOneIsTakenIn() {
    ShownMain shown;
    const QString brokers = test::WriteFile(shown.folder.filePath(QStringLiteral("brokers.csv")),
                                            "name,city\nSHAH,PUNE\n,DELHI\n");
    shown.desk.ask_folder = [&](QWidget*, const QString&) { return shown.folder.path(); };
    shown.Choose("mnuImpFolder");
    QPointer<controls::ChildWindow> errors = shown.Named<controls::ChildWindow>("FrmImportErrors");
    QVERIFY(errors != nullptr);
    const controls::GridModel& model = errors->findChild<controls::Grid*>()->Model();
    QCOMPARE(model.Text(0, 0), "brokers.csv");
    QCOMPARE(model.Text(0, 1), "3");
    QCOMPARE(model.Text(0, 2), "name");
    errors->close();
    test::WriteFile(brokers, "name,city\nSHAH,PUNE\n");
    OneWord hindi;
    QCoreApplication::installTranslator(&hindi);
    shown.Choose("mnuImpFolder");
    QVERIFY2(shown.messages.LastText().contains(QStringLiteral("1 ब्रोकर")),
             qPrintable(shown.messages.LastText()));
    const QTemporaryDir out;
    shown.desk.ask_folder = [&](QWidget*, const QString&) { return out.path(); };
    shown.Choose("mnuExpFolder");
    QVERIFY(QFile::exists(out.filePath(QStringLiteral("brokers.csv"))));
  }

  void PlacesAreRememberedAndStayOnTheScreen() {
    ShownMain shown;
    shown.Choose("mnuExchange");
    const auto frame = [&] { return shown.main->findChild<QMdiArea*>()->subWindowList().front(); };
    const QRect wished(30, 20, 400, 300);
    frame()->setGeometry(wished);
    frame()->close();
    QTRY_COMPARE(shown.OpenWindows(), QStringList());
    shown.Choose("mnuExchange");
    QCOMPARE(frame()->geometry(), wished);
    frame()->setGeometry(5000, 4000, 9000, 9000);
    frame()->close();
    QTRY_COMPARE(shown.OpenWindows(), QStringList());
    shown.Choose("mnuExchange");
    QVERIFY(shown.main->findChild<QMdiArea*>()->viewport()->rect().contains(frame()->geometry()));
  }

  void HeadlineComesFromTheFeed_data() {
    const test::Table<QByteArray, int, QString> row;
    const auto titled = [](const QByteArray& title) {
      return "<rss><channel><item><title>old*</title></item><item><title>" + title +
             "</title></item></channel></rss>";
    };
    const QString old = QStringLiteral("BSE Market Rate List");
    row("headline", titled("SENSEX 17000 * 12.5"), 200, "BSE SENSEX 17000   + 12.5");
    row("server error", titled("SENSEX * 1"), 500, old);
  }
  void HeadlineComesFromTheFeed() {
    const auto [feed, status, text] = test::Table<QByteArray, int, QString>::Row();
    const ShownMain shown({.body = feed, .status = status});
    QTRY_VERIFY(!shown.exchange.asked.isEmpty());
    QTest::qWait(100);
    QCOMPARE(shown.Named<controls::ZENButton>("lblSensex")->text(), text);
    QCOMPARE(shown.messages.Texts(), QStringList());
  }
};

static const test::RegisterTest<MDIForm1Test> kRegistered;
#include "MDIForm1Test.moc"
