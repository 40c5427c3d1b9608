#include "controls/DateBox.h"
#include "support/ShownWindow.h"
#include "transactions/bills/BillBook.h"
#include "transactions/transfers/window/FrmScriptTransfer.h"

using namespace quorvane;
using namespace quorvane::transfers;
using controls::Grid;
using test::ForClient;
using Shown = test::ShownWindow<FrmScriptTransfer>;

class FrmScriptTransferTest : public test::DeskTest {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    desk_->Empty();
    Buy(10, 100);
  }

  void KeyboardAloneTransfersToAnOwnAccount() {
    const Shown shown(desk_->database, ForClient{desk_->of});
    AddByKeyboard(shown, "1002", "4");
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(Transfers(), QStringList("1|20/06/2011|0|100|4"));
    QCOMPARE(LotsAt(desk_->second_account), QStringList({"6@100", "4@100"}));
    QCOMPARE(shown->List().CurrentId(), 1);
    QCOMPARE(shown.ListRow(0), QStringList({"20/06/2011", "1001", "Own Account", "1002", "C1",
                                            "RELIANCE", "100.00", "4.00"}));
  }

  void OtherClientsAccountsShowTheirNames() {
    const Shown shown(desk_->database, ForClient{desk_->of});
    shown.Click("cmdAdd");
    shown.Fill({"200611", "1001"});
    shown.Press(Qt::Key_Right);
    QVERIFY(shown.Named<QRadioButton>("Option2")->isChecked());
    shown.Press(Qt::Key_Return);
    shown.Type("c2");
    QCOMPARE(shown.TextIn("Combo2"), "C2 - 2001");
    shown.Press(Qt::Key_Return);
    shown.Press(Qt::Key_Return);
    shown.Fill({"10"});
    shown.Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(Transfers(), QStringList("1|20/06/2011|1|100|10"));
    QCOMPARE(desk_->LotAt(100), "0@100");
    QCOMPARE(desk_->LotAt(desk_->other_of, desk_->other_account, desk_->scrip, 100), "10@100");
    // The lot is used up, and what was transferred from it is still to be seen.
    QCOMPARE(shown.TextIn("Text1_1"), "RELIANCE");
    QCOMPARE(shown.TextIn("Text1_3"), "100.00");
  }

  void MoreThanTheBalanceIsRefusedWhenTheBoxIsLeft() {
    const Shown shown(desk_->database, ForClient{desk_->of});
    shown.Click("cmdAdd");
    shown.Fill({"200611", "1001", "", "1002", "", "10.5"});
    QCOMPARE(shown.messages.Texts(), QStringList("You Can't Transfer Scripts More than Balance.\n"
                                                 "Maximum Allowed Value is: 10.00"));
    QVERIFY(shown.Named("Text1_2")->hasFocus());
    QCOMPARE(shown.Named("Text1_2")->selectedText(), "10.5");
    shown.Click("cmdCancel");
    QCOMPARE(shown.messages.said.size(), std::size_t{1});
  }

  void ChangedTransferFindsItsSharesBackInTheirLot() {
    const Shown shown(desk_->database, ForClient{desk_->of});
    AddByKeyboard(shown, "1002", "10");
    shown.Click("cmdModify");
    QCOMPARE(shown.Named<Grid>("VS")->Model().Text(0, 2), "10.00");
    QCOMPARE(shown.Named<Grid>("VS")->CurrentRow(), 0);
    shown.Named("Text1_2")->setFocus(Qt::TabFocusReason);
    shown.Fill({"3"});
    shown.Click("cmdUpdate");
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(Transfers(), QStringList("1|20/06/2011|0|100|3"));
    QCOMPARE(LotsAt(desk_->second_account), QStringList({"7@100", "3@100"}));
  }

 private:
  void Buy(double quantity, double rate) {
    records::Bill bill = desk_->NewBill({desk_->Purchase(quantity, rate)});
    QCOMPARE(test::TextOf(test::Save(bills::BillBook(desk_->Connection(), desk_->of), bill)),
             test::kAccepted);
  }

  /// The one lot of account 1001 to an own account: date, accounts, lot, quantity.
  static void AddByKeyboard(const Shown& shown, const QString& to, const QString& quantity) {
    shown.AddByKeyboard({"200611", "1001", "", to, "", quantity});
  }

  QStringList Transfers() {
    return test::Rows(desk_->Connection(),
                      "Select ID,TDate,TransTo,PRate,Qty From ScrTransfer Order By ID");
  }

  /// The first scrip's lots in the first account and in another one.
  QStringList LotsAt(AccountId account) {
    return {desk_->LotAt(100), desk_->LotAt(desk_->of, account, desk_->scrip, 100)};
  }
};

static const test::RegisterTest<FrmScriptTransferTest> kRegistered;
#include "FrmScriptTransferTest.moc"
