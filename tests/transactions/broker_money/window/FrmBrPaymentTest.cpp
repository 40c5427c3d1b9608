#include "controls/DateBox.h"
#include "support/ShownWindow.h"
#include "transactions/broker_money/window/FrmBrPayment.h"

using namespace quorvane;
using namespace quorvane::broker_money;
using test::ForClient;
using Shown = test::ShownWindow<FrmBrPayment>;

Q_DECLARE_METATYPE(PaymentKind)

class FrmBrPaymentTest : public test::DeskTest {
  Q_OBJECT

 private Q_SLOTS:
  void KeyboardAloneRecordsInTheTableOfTheMode_data() {
    const test::Table<PaymentKind, QString, QString, QString> row;
    row("payment", PaymentKind::kPayment, "Payment To Broker", "cr", "BrPayment");
    row("receipt", PaymentKind::kReceipt, "Received From Broker", "dr", "BrRec");
  }
  void KeyboardAloneRecordsInTheTableOfTheMode() {
    const auto [kind, caption, mode, table] =
        test::Table<PaymentKind, QString, QString, QString>::Row();
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
    QCOMPARE(Rows(QStringLiteral("BrPayment")), QStringList("1|0|10|01/04/2011|0||||BY HAND"));
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
    QCOMPARE(Rows(QStringLiteral("BrPayment")), QStringList("1|0|10|01/04/2011|0||||BY HAND"));
  }

  void ChequeDateThatIsNoneIsNotDropped() {
    const Shown shown(desk_->database, ForClient{desk_->of}, PaymentKind::kPayment);
    shown.AddByKeyboard({"o'b", "p", "10", "010411", "ch", "7", "310212"});
    QCOMPARE(shown.messages.LastText(), "Enter Proper Date.");
    QVERIFY(shown.Named("Text1_3")->hasFocus());
    QVERIFY(shown->IsEditing());
    QCOMPARE(Rows(QStringLiteral("BrPayment")), QStringList());
  }

 private:
  QStringList Rows(const QString& table) {
    return test::Rows(desk_->Connection(),
                      "Select Id,TMode,Amt,PDate,PMode,ChqNo,ChqDate,DrawOn,Remark From " +
                          table.toStdString() + " Order By Id");
  }
};

static const test::RegisterTest<FrmBrPaymentTest> kRegistered;
#include "FrmBrPaymentTest.moc"
