#include "support/Desk.h"
#include "support/TestMain.h"
#include "transactions/transfers/Transfer.h"

#include <QTest>

using namespace quorvane;
using namespace quorvane::transfers;
using test::FieldOf;
using test::TextOf;

class TransferTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TransferIsCheckedInOrder() {
    Transfer transfer;
    const auto expect = [&](const char* text, const char* field) {
      const MaybeRefusal refusal = CheckTransfer(transfer, text::FinancialYear(2011));
      QCOMPARE(TextOf(refusal), QString::fromLatin1(text));
      QCOMPARE(FieldOf(refusal), QString::fromLatin1(field));
    };
    expect("Enter Date.", "Text1_0");
    transfer.date = QStringLiteral("31/02/2012");
    expect("Enter Proper Date.", "Text1_0");
    transfer.date = QStringLiteral("31/03/2011");
    expect("The Date is not in the Financial Year 2011-12.", "Text1_0");
    transfer.date = QStringLiteral("01/04/2012");
    expect("The Date is not in the Financial Year 2011-12.", "Text1_0");
    transfer.date = QStringLiteral("29/02/2012");
    expect("Select Demat A/c No. From which You want to Transfer Scripts.", "Combo1");
    transfer.from = AccountId{1};
    expect("Select Demat A/c No. To which You want to Transfer Scripts.", "Combo2");
    transfer.to = AccountId{1};
    expect("Select Demat A/c No. To which You want to Transfer Scripts.", "Combo2");
    transfer.to = AccountId{2};
    expect("Select Script Name that You want to Transfer.", "Text1_1");
    transfer.lot = LotId{1};
    expect("Enter Quantity Greater than Zero.", "Text1_2");
    transfer.quantity = Shares(-1);
    expect("Enter Quantity Greater than Zero.", "Text1_2");
    transfer.quantity = Shares(0.0000004);
    expect("Enter Quantity Greater than Zero.", "Text1_2");
    transfer.quantity = Shares(0.000001);
    expect("accepted", "none");
  }

  void QuantityStaysWithinTheBalance() {
    QVERIFY(!CheckBalance(Shares(10), Shares(10)));
    const MaybeRefusal refusal = CheckBalance(Shares(10.001), Shares(10));
    QCOMPARE(TextOf(refusal), QStringLiteral("You Can't Transfer Scripts More than Balance.\n"
                                             "Maximum Allowed Value is: 10.00"));
    QCOMPARE(FieldOf(refusal), QStringLiteral("Text1_2"));
  }
};

static const quorvane::test::RegisterTest<TransferTest> kRegistered;
#include "TransferTest.moc"
