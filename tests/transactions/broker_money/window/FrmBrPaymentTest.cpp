#include "controls/DateBox.h"
#include "masters/Records.h"
#include "masters/ShownWindow.h"
#include "support/Desk.h"
#include "support/TestMain.h"
#include "transactions/broker_money/window/FrmBrPayment.h"

using namespace quorvane;
using namespace quorvane::broker_money;
using test::Desk;
using test::ForClient;
using Shown = test::ShownWindow<FrmBrPayment>;

Q_DECLARE_METATYPE(PaymentKind)

class FrmBrPaymentTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { desk_ = std::make_unique<Desk>(); }
  void cleanup() { test::Empty(desk_->Connection(), {"BrPayment", "BrRec"}); }
  void cleanupTestCase() { desk_.reset(); }

  void KeyboardAloneRecordsInTheTableOfTheMode_data() {
    QTest::addColumn<PaymentKind>("kind");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("mode");
    QTest::addColumn<QString>("table");
    QTest::newRow("payment") << PaymentKind::kPayment << "Payment To Broker"
                             << "cr"
                             << "BrPayment";
    QTest::newRow("receipt") << PaymentKind::kReceipt << "Received From Broker"
                             << "dr"
                             << "BrRec";
  }
  void KeyboardAloneRecordsInTheTableOfTheMode() {
    QFETCH(PaymentKind, kind);
    QFETCH(QString, caption);
    QFETCH(QString, mode);
    QFETCH(QString, table);
    const Shown shown(desk_->database, ForClient{desk_->of}, kind);
    QVERIFY(shown->windowTitle().startsWith(caption));
    shown.AddByKeyboard(
        {"o'b", mode, "1500.5", "310312", "ch", "000123", "300312", "canara bank", "in full"});
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(Rows(table), QStringList(QStringLiteral(
                              "1|1|1500.5|31/03/2012|1|000123|30/03/2012|CANARA BANK|IN FULL")));
    QCOMPARE(
        Rows(kind == PaymentKind::kPayment ? QStringLiteral("BrRec") : QStringLiteral("BrPayment")),
        QStringList());
  }

  void CashHasNoCheque() {
    const Shown shown(desk_->database, ForClient{desk_->of}, PaymentKind::kPayment);
    shown.AddByKeyboard({"o'b", "p", "10", "010411", "cash", "by hand"});
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(Rows(QStringLiteral("BrPayment")),
             QStringList(QStringLiteral("1|0|10|01/04/2011|0||||BY HAND")));
    // Changed to cash, a payment loses its cheque.
    shown.Click("cmdModify");
    shown.Named<QWidget>("Combo3")->setFocus(Qt::TabFocusReason);
    shown.Fill({"ch"});
    QVERIFY(shown.Named("Text1_2")->hasFocus());
    shown.Fill({"77"});
    shown.Named<QWidget>("Combo3")->setFocus(Qt::TabFocusReason);
    shown.Fill({"cash"});
    QVERIFY(!shown.Named("Text1_2")->isEnabled());
    shown.Click("cmdUpdate");
    QCOMPARE(Rows(QStringLiteral("BrPayment")),
             QStringList(QStringLiteral("1|0|10|01/04/2011|0||||BY HAND")));
  }

  void DateOutsideTheYearIsRefusedAndAskedForAgain() {
    const Shown shown(desk_->database, ForClient{desk_->of}, PaymentKind::kPayment);
    shown.AddByKeyboard({"o'b", "p", "10", "010412", "cash"});
    QCOMPARE(shown.messages.Texts(),
             QStringList(QStringLiteral("The Payment Date is not in the Financial Year 2011-12.")));
    QVERIFY(shown.Named("Text1_1")->hasFocus());
    QCOMPARE(Rows(QStringLiteral("BrPayment")), QStringList());
  }

  void ChequeDateThatIsNoneIsNotDropped() {
    const Shown shown(desk_->database, ForClient{desk_->of}, PaymentKind::kPayment);
    shown.AddByKeyboard({"o'b", "p", "10", "010411", "ch", "7", "310212"});
    QCOMPARE(shown.messages.LastText(), QStringLiteral("Enter Proper Date."));
    QVERIFY(shown.Named("Text1_3")->hasFocus());
    QVERIFY(shown->IsEditing());
    QCOMPARE(Rows(QStringLiteral("BrPayment")), QStringList());
  }

  void DeleteTakesTheChosenOne() {
    Shown shown(desk_->database, ForClient{desk_->of}, PaymentKind::kReceipt);
    shown.AddByKeyboard({"o'b", "r", "10", "010411", "cash"});
    shown.AddByKeyboard({"o'b", "r", "20", "020411", "cash"});
    shown->List().SelectId(1);
    shown.messages.WillAnswer(true);
    shown.Click("CmdDelete");
    QCOMPARE(shown.messages.LastText(),
             QStringLiteral("Are You Sure, You want to Delete this Record?"));
    QCOMPARE(Rows(QStringLiteral("BrRec")), QStringList(QStringLiteral("2|0|20|02/04/2011|0||||")));
  }

 private:
  QStringList Rows(const QString& table) {
    return test::Rows(desk_->Connection(),
                      "Select Id,TMode,Amt,PDate,PMode,ChqNo,ChqDate,DrawOn,Remark From " +
                          table.toStdString() + " Order By Id");
  }

  std::unique_ptr<Desk> desk_;
};

static const test::RegisterTest<FrmBrPaymentTest> kRegistered;

#include "FrmBrPaymentTest.moc"
