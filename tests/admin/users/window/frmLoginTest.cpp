#include "admin/users/window/frmLogin.h"
#include "admin/users/window/frmLoginSetUp.h"
#include "controls/Grid.h"
#include "support/OnScreen.h"
#include "support/RecordingMessages.h"
#include "support/Records.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

#include <QCheckBox>
#include <QPointer>
#include <QSignalSpy>

using namespace quorvane;
using namespace quorvane::users;
using controls::ZENButton;

namespace {

const QString kExit = QStringLiteral("Do You want to Exit?");

}  // namespace

class frmLoginTest : public QObject {
  Q_OBJECT

  void OpenLogin() {
    login_ = new frmLogin(
        *desk_,
        Login(*session_.connection, app::MachineKey(folder_->filePath("machine.ini")), *attempts_));
    test::PutOnScreen(*login_);
  }

  static void Click(const QWidget* window, const char* button) {
    QTest::mouseClick(window->findChild<ZENButton*>(QLatin1String(button)), Qt::LeftButton);
  }

  static QLineEdit* Box(const QWidget* window, const char* name) {
    return window->findChild<QLineEdit*>(QLatin1String(name));
  }

  void Type(const char* name, const char* password) {
    Box(login_, "Text1_0")->setText(QLatin1String(name));
    Box(login_, "Text1_1")->setText(QLatin1String(password));
  }

 private Q_SLOTS:
  void initTestCase() { database_ = std::make_unique<test::TestDatabase>(); }
  void cleanupTestCase() {
    session_.connection.reset();
    database_.reset();
  }
  void init() {
    attempts_.emplace();
    folder_ = std::make_unique<QTemporaryDir>();
    messages_ = std::make_unique<test::RecordingMessages>();
    session_.connection = std::make_unique<database::Connection>(database_->Settings());
    desk_ = std::make_unique<controls::Desk>(controls::Desk{session_, *messages_});
    User user{0, "Ravi", "Secret"};
    QVERIFY(!test::Save(UserBook(**database_), user));
  }
  void cleanup() {
    delete login_;
    test::Empty(**database_, {"LoginId", "LoginPassword"});
  }

  void EnterLogsInAndClosesTheWindow() {
    OpenLogin();
    const QSignalSpy admitted(login_, &frmLogin::Admitted);
    Type("Ravi", "Secret");
    Box(login_, "Text1_1")->setFocus();
    QTest::keyClick(Box(login_, "Text1_1"), Qt::Key_Return);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(admitted.count(), 1);
    QTRY_VERIFY(login_.isNull());
    QCOMPARE(messages_->Texts(), QStringList());
  }

  void AFailureEmptiesThePasswordAndWaits() {
    OpenLogin();
    Type("Ravi", "wrong");
    Click(login_, "cmdOK");
    QCOMPARE(messages_->LastText(), "InVaild Password.");
    QCOMPARE(messages_->said.back().icon, controls::Icon::kCritical);
    QCOMPARE(Box(login_, "Text1_1")->text(), QString());
    QVERIFY(Box(login_, "Text1_1")->hasFocus());
    QVERIFY(!login_->findChild<ZENButton*>(QStringLiteral("cmdOK"))->isEnabled());
    login_->close();
    OpenLogin();
    QVERIFY(!login_->findChild<ZENButton*>(QStringLiteral("cmdOK"))->isEnabled());
    QTRY_VERIFY(login_->findChild<ZENButton*>(QStringLiteral("cmdOK"))->isEnabled());
  }

  void OnlyTheAdministratorSetsUsersUp() {
    OpenLogin();
    Type("Ravi", "Secret");
    Click(login_, "cmdSetUp");
    QCOMPARE(messages_->LastText(), "You have no Rights to Enter in SetUp.");
    QTRY_VERIFY(login_->findChild<ZENButton*>(QStringLiteral("cmdSetUp"))->isEnabled());
    Type("Administrator", "tavel");
    Click(login_, "cmdSetUp");
    QPointer<frmLoginSetUp> set_up = login_->findChild<frmLoginSetUp*>();
    QVERIFY(!set_up.isNull());
    messages_->WillAnswer(false);
    set_up->close();
    QVERIFY(!set_up.isNull() && set_up->isVisible());
    messages_->WillAnswer(true);
    Click(set_up, "cmdexit");
    QTRY_VERIFY(set_up.isNull());
    QCOMPARE(messages_->Texts().mid(1), QStringList({kExit, kExit}));
  }

 private:
  std::unique_ptr<test::TestDatabase> database_;
  std::unique_ptr<QTemporaryDir> folder_;
  std::unique_ptr<test::RecordingMessages> messages_;
  std::optional<Attempts> attempts_;
  app::Session session_;
  std::unique_ptr<controls::Desk> desk_;
  QPointer<frmLogin> login_;
};

static const test::RegisterTest<frmLoginTest> kRegistered;
#include "frmLoginTest.moc"
