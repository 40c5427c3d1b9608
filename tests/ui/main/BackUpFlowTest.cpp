#include "admin/backup/BackupList.h"
#include "controls/Grid.h"
#include "controls/ZENButton.h"
#include "support/Test.h"
#include "ui/main/ShownMain.h"

using namespace quorvane;

namespace {

/// The main window over an application folder and a database of its own.
struct Office : test::ShownMain {
  QWidget* Window(const char* name) const { return Named<QWidget>(name); }

  static void Click(QWidget* window, const char* button) {
    QTest::mouseClick(window->findChild<controls::ZENButton*>(QLatin1String(button)),
                      Qt::LeftButton);
  }

  qsizetype Windows() const {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return OpenWindows().size();
  }
};

}  // namespace

class BackUpFlowTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void QuittingWithABackUpAsksOnce() {
    Office office;
    office.messages.WillAnswer(true);
    office.messages.WillAnswer(true);
    office.Choose("mnuQuit");
    QCOMPARE(office.session.target, "BackUp");
    QWidget* window = office.Window("frmBackUpRestore");
    QVERIFY(window != nullptr && office.main->isVisible());
    Office::Click(window, "cmdBackUp");
    const auto entries = backup::ListBackups(office.folder.filePath(QStringLiteral("BackUp")));
    QCOMPARE(entries.size(), 1U);
    QVERIFY(office.messages.LastText().contains(entries[0].name));
    QCOMPARE(window->findChild<controls::Grid*>(QStringLiteral("VSF"))->Model().Text(0, 3),
             "Verified");
    const std::size_t said = office.messages.said.size();
    QVERIFY(office.main->close());
    QCOMPARE(office.messages.said.size(), said);
  }

  void RestoringClosesWindowsThatWouldShowOldRecords() {
    Office office;
    const ClientId client = office.database.AddClient(QStringLiteral("C1"));
    office.Choose("mnuBackUp");
    Office::Click(office.Window("frmBackUpRestore"), "cmdBackUp");
    office.database.AddClient(QStringLiteral("C2"));
    office.session.current = ClientYear{client, text::FinancialYear(2011)};
    office.desk.open(QStringLiteral("FrmClientList"));
    office.Choose("mnuRestore");
    QCOMPARE(office.Windows(), 3);
    QWidget* window = office.Window("frmrestoration");
    const auto* holds = window->findChild<controls::Grid*>(QStringLiteral("VSFHolds"));
    QCOMPARE(holds->Model().Text(0, 0), "Clients");
    QCOMPARE(holds->Model().Number(0, 1), 1.0);
    Office::Click(window, "cmdRestore");  // No is the default
    QCOMPARE(office.Windows(), 3);
    office.messages.WillAnswer(true);
    Office::Click(window, "cmdRestore");
    QVERIFY2(office.messages.LastText().contains(QStringLiteral("is restored")),
             qPrintable(office.messages.LastText()));
    QCOMPARE(office.Windows(), 1);
    QVERIFY(!office.session.current);
    auto rows = office.database->Open("Select Count(*) From ClientInfo");
    QVERIFY(rows.Next());
    QCOMPARE(rows.Int(0), 1);
  }

  void AWindowThatMustNotCloseKeepsTheRestoreFromBeginning() {
    Office office;
    office.Choose("mnuBackUp");
    Office::Click(office.Window("frmBackUpRestore"), "cmdBackUp");
    office.database.AddClient(QStringLiteral("C2"));
    office.Choose("mnuClientInfo");
    Office::Click(office.Window("FrmClientMaster"), "cmdAdd");
    QTest::keyClicks(office.Window("FrmClientMaster")->findChild<QWidget*>("Text1_0"), "C3");
    office.Choose("mnuRestore");
    office.messages.WillAnswer(true);
    office.messages.WillAnswer(false);  // to the question of the window being edited
    Office::Click(office.Window("frmrestoration"), "cmdRestore");
    auto rows = office.database->Open("Select Count(*) From ClientInfo");
    QVERIFY(rows.Next());
    QCOMPARE(rows.Int(0), 1);
    QVERIFY2(office.messages.LastText().contains(QStringLiteral("Close the other windows first")),
             qPrintable(office.messages.Texts().join(QLatin1Char('|'))));
  }

  void RefreshDataFindsAndMendsAWrongHolding() {
    Office office;
    const ClientId client = office.database.AddClient(QStringLiteral("C1"));
    office.database->Execute("Insert Into Stock Values(?,'2011-12',1,1,1,10,5)", client);
    office.Choose("mnuRefreshData");
    QWidget* window = office.Window("RepairTable");
    const auto& model = window->findChild<controls::Grid*>(QStringLiteral("VSF"))->Model();
    const auto findings = [&](const QString& state) {
      int found = 0;
      for (int row = 0; row < model.RowCount(); ++row) {
        found += model.Text(row, 2) == state ? 1 : 0;
      }
      return found;
    };
    Office::Click(window, "cmdCheck");
    QCOMPARE(findings(QStringLiteral("Wrong")), 2);  // the table and the lot
    QCOMPARE(findings(QStringLiteral("Note")), 2);   // its account and its scrip
    office.messages.WillAnswer(true);
    Office::Click(window, "cmdUpdateStock");
    QVERIFY(office.messages.LastText().endsWith(QStringLiteral("Lots changed: 1")));
    QCOMPARE(findings(QStringLiteral("Wrong")), 0);
  }
};

static const test::RegisterTest<BackUpFlowTest> kRegistered;
#include "BackUpFlowTest.moc"
