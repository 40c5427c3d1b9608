#include "admin/users/window/frmLogin.h"
#include "masters/Records.h"
#include "support/TestMain.h"
#include "ui/main/ShownMain.h"

#include <QSignalSpy>

#include <stdexcept>

using namespace quorvane;
using test::ShownMain;

namespace {

QWidget* Focused() {
  QWidget* focused = QApplication::focusWidget();
  if (focused == nullptr) {
    throw std::runtime_error("nothing has the focus");
  }
  return focused;
}

void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QTest::keyClick(Focused(), key, modifiers);
}

/// Each text into the box that has the focus, Enter after it.
void Fill(const QStringList& texts) {
  for (const QString& text : texts) {
    for (const QChar letter : text) {
      QTest::keyClick(Focused(), letter.toLatin1());
    }
    Press(Qt::Key_Return);
  }
}

/// A new record by keyboard alone; the window closes afterwards.
void AddRecord(controls::ChildWindow& window, const QStringList& texts) {
  window.window()->activateWindow();
  QVERIFY(QTest::qWaitForWindowActive(window.window()));
  QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
  Fill(texts);
  Press(Qt::Key_S, Qt::ControlModifier);
  window.close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace

class SessionTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  // A first day at work: masters, out, and in again.
  void MastersThenOutAndInAgain() {
    ShownMain shown;
    const auto open = [&](const char* item, const char* name) -> controls::ChildWindow& {
      shown.Choose(item);
      return *shown.main->findChild<controls::ChildWindow*>(QLatin1String(name));
    };
    AddRecord(open("mnuDepPart", "FrmDepPart"), {QStringLiteral("axis dp")});
    AddRecord(open("mnuBrokerDetail", "FrmBroker"), {QStringLiteral("o'brien & sons")});
    AddRecord(open("mnuScriptDetails", "FrmScript"),
              {QStringLiteral("500325"), QStringLiteral("reliance"), QStringLiteral("REL"),
               QStringLiteral("EQUITY"), QStringLiteral("A")});
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(Count(shown, "DepPart Where Name='AXIS DP'"), 1);
    QCOMPARE(Count(shown, "Broker Where Name='O''BRIEN & SONS'"), 1);
    QCOMPARE(Count(shown, "Script Where Code='500325' and NCode='REL' and Type=1 and ScrCls=1"), 1);
    LogOutAndIn(shown);
  }

 private:
  static int Count(ShownMain& shown, const std::string& from) {
    auto rows = shown.session.connection->Open("Select Count(*) From " + from);
    return rows.Next() ? rows.Int(0) : -1;
  }

  static void LogOutAndIn(ShownMain& shown) {
    users::Attempts attempts;
    const app::MachineKey key(shown.folder.filePath(QStringLiteral("machine.ini")));
    QPointer<users::frmLogin> login;
    connect(shown.main, &ui::MDIForm1::LoggedOut, shown.main, [&] {
      login =
          new users::frmLogin(shown.desk, users::Login(*shown.session.connection, key, attempts));
      connect(login, &users::frmLogin::Admitted, login, [&] { shown.Open(); });
      login->show();
      login->activateWindow();
    });
    shown.messages.WillAnswer(true);
    shown.Choose("mnuLogOut");
    QTRY_VERIFY(shown.main.isNull());
    QVERIFY(QTest::qWaitForWindowActive(login));
    Fill({QStringLiteral("Administrator"), QStringLiteral("wrong")});
    QTest::mouseClick(login->findChild<controls::ZENButton*>(QStringLiteral("cmdOK")),
                      Qt::LeftButton);
    QCOMPARE(shown.messages.LastText(), QStringLiteral("InVaild Password."));
    QTRY_VERIFY(login->findChild<controls::ZENButton*>(QStringLiteral("cmdOK"))->isEnabled());
    Fill({QStringLiteral("tavel")});
    QTest::mouseClick(login->findChild<controls::ZENButton*>(QStringLiteral("cmdOK")),
                      Qt::LeftButton);
    QTRY_VERIFY(login.isNull());
    QVERIFY(!shown.main.isNull() && shown.main->isVisible());
  }
};

static const test::RegisterTest<SessionTest> kRegistered;

#include "SessionTest.moc"
