#include "masters/client_list/window/FrmClientList.h"
#include "support/ShownWindow.h"

using namespace quorvane;
using namespace quorvane::client_list;
using Shown = test::ShownWindow<FrmClientList>;

class FrmClientListTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    database_.emplace();
    database_->AddClient(QStringLiteral("ABC"));
    client_ = database_->AddClient(QStringLiteral("XYZ"));
  }

  void TypingAndEnterChooseAClientOfThisYear() {
    Shown shown(*database_);
    AskFor(shown, "FRMSALEPURCHASE");
    QCOMPARE(shown.TextIn("CboYr"), "2011-12");
    Shown::Type(QStringLiteral("xy"));
    QCOMPARE(shown.Named<controls::Grid>("CVS")->Model().RowCount(), 1);
    Shown::Press(Qt::Key_Return);
    QCOMPARE(shown.opened, QStringList("FRMSALEPURCHASE"));
    QCOMPARE(shown.Session().current->client, client_);
    QCOMPARE(shown.Session().current->year.Text(), "2011-12");
    QTRY_VERIFY(shown.window.isNull());
    QCOMPARE(shown.messages.Texts(), QStringList());
  }

  void UpdatingStockOpensNothing() {
    Shown shown(*database_);
    AskFor(shown, "updatestock");
    shown.Click("cmdproceed");
    QCOMPARE(shown.messages.Texts(), QStringList("Stock is Updated Successfully !!!"));
    QCOMPARE(shown.opened, QStringList());
    QTRY_VERIFY(shown.window.isNull());
  }

  void WithoutAClientTheListStays() {
    Shown shown(*database_);
    AskFor(shown, "FrmSalePurchase");
    Shown::Type(QStringLiteral("nobody"));
    shown.Click("cmdproceed");
    QCOMPARE(shown.messages.Texts(), QStringList("Select Client!"));
    QVERIFY(!shown.window.isNull() && shown.window->isVisible());
    QVERIFY(!shown.Session().current);
  }

  // The search keeps the keyboard: its arrows move the chosen client, Enter proceeds with it.
  void ArrowsInTheSearchMoveTheChosenClient() {
    Shown shown(*database_);
    AskFor(shown, "FrmBrOpBal");
    const auto* list = shown.Named<controls::Grid>("CVS");
    QCOMPARE(list->CurrentRow(), 0);
    Shown::Press(Qt::Key_Up);
    QCOMPARE(list->CurrentRow(), 0);
    Shown::Press(Qt::Key_Down);
    Shown::Press(Qt::Key_Down);
    Shown::Press(Qt::Key_Return);
    QCOMPARE(shown.Session().current->client, client_);
    // Next time it is there already, with its year.
    Shown again(*database_, test::ForClient{.of = {client_, text::FinancialYear(2008)}});
    AskFor(again, "FrmBrOpBal");
    Shown::Press(Qt::Key_Return);
    QCOMPARE(*again.Session().current, (ClientYear{client_, text::FinancialYear(2008)}));
  }

 private:
  /// As the main window does for a menu item.
  static void AskFor(Shown& shown, const char* target) {
    shown.Session().target = QLatin1String(target);
    shown->AskedAgain();
  }

  ClientId client_;
};

static const test::RegisterTest<FrmClientListTest> kRegistered;
#include "FrmClientListTest.moc"
