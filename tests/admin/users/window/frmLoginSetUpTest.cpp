#include "admin/users/window/frmLoginSetUp.h"
#include "controls/TextBox.h"
#include "support/ShownWindow.h"

using namespace quorvane;
using namespace quorvane::users;

class frmLoginSetUpTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void init() { test::Empty(**database_, {"LoginId", "LoginPassword"}); }

  void UserJustSavedIsChosenChangedAndDeleted() {
    test::ShownWindow<frmLoginSetUp> shown(*database_);
    shown.Named("Text1_0")->setText(QStringLiteral("Asha"));
    shown.Named("Text1_1")->setText(QStringLiteral("one"));
    shown.Click("cmdUpdate");
    ClickFirstUser(shown);
    QCOMPARE(shown.TextIn("Text1_0"), "Asha");
    shown.Named("Text1_0")->setText(QStringLiteral("Usha"));
    shown.Click("cmdUpdate");
    QCOMPARE(Names(), QStringList("Usha"));
    ClickFirstUser(shown);
    shown.messages.WillAnswer(true);
    shown.Click("CmdDelete");
    QCOMPARE(Names(), QStringList());
    shown.messages.WillAnswer(true);
  }

  void ShowingPasswordsLeavesTheEntryAlone() {
    UserBook book(**database_);
    User user{0, QStringLiteral("Asha"), QStringLiteral("one")};
    QVERIFY(!test::Save(book, user));
    test::ShownWindow<frmLoginSetUp> shown(*database_);
    ClickFirstUser(shown);
    QVERIFY(!shown.RowsOf("VSF").front().contains("one"));
    shown.Named("Text1_1")->setText(QStringLiteral("typed"));
    shown.Named<QCheckBox>("ChkShow")->click();
    QCOMPARE(shown.TextIn("Text1_1"), "typed");
    shown.Click("cmdUpdate");
    QCOMPARE(book.FindUser(user.name)->password, std::optional(QStringLiteral("typed")));
    shown.messages.WillAnswer(true);
  }

 private:
  static void ClickFirstUser(const test::ShownWindow<frmLoginSetUp>& shown) {
    auto* grid = shown.Named<controls::Grid>("VSF");
    const QPoint place = grid->visualRect(grid->model()->index(0, 0)).center();
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, place);
  }

  QStringList Names() { return test::Rows(**database_, "Select Name From LoginId"); }
};

static const test::RegisterTest<frmLoginSetUpTest> kRegistered;
#include "frmLoginSetUpTest.moc"
