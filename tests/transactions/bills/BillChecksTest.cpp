#include "support/Desk.h"
#include "support/Test.h"
#include "transactions/bills/BillChecks.h"

using namespace quorvane;
using namespace quorvane::bills;
using test::FieldOf;
using test::TextOf;

class BillChecksTest : public QObject {
  Q_OBJECT

  Bill bill_;

 private Q_SLOTS:
  void BillIsCheckedInOrder() {
    const auto expect = [&](const char* text, Field field) {
      const MaybeRefusal refusal = CheckBill(bill_, text::FinancialYear(2011));
      QCOMPARE(TextOf(refusal), text);
      QCOMPARE(FieldOf(refusal), field);
    };
    const auto expect_before_line = [&](const char* text, Field field) {
      const MaybeRefusal refusal = CheckBeforeLine(bill_);
      QCOMPARE(TextOf(refusal), text);
      QCOMPARE(FieldOf(refusal), field);
    };
    expect("Enter Bill No.", Field::kNumber);
    expect_before_line("Enter Date.", Field::kDate);
    bill_.number = "1";
    expect("Enter Date.", Field::kDate);
    bill_.date = "31/02/2012";
    expect("Enter Proper Date.", Field::kDate);
    bill_.date = "29/02/2012";
    expect("Enter Broker Name.", Field::kBroker);
    expect_before_line("Select Stock Exchange.", Field::kExchange);
    bill_.broker = BrokerId{1};
    expect("Select Stock Exchange.", Field::kExchange);
    bill_.exchange = ExchangeId{1};
    expect_before_line("accepted", Field::kNone);
    bill_.lines.resize(2);
    expect("Enter Script Name.", Field::kScrip);
    bill_.lines[0].scrip = ScripId{1};
    expect("Enter Quantity Greater than Zero.", Field::kQuantity);
    bill_.lines[0].quantity = text::Shares(1);
    bill_.lines[1].scrip = ScripId{1};
    bill_.lines[1].quantity = text::Shares(-1);
    expect("Enter Quantity Greater than Zero.", Field::kQuantity);
    bill_.lines[1].quantity = text::Shares(0.001);
    expect("accepted", Field::kNone);
    bill_.settlement_number = QString(101, '1');
    QCOMPARE(FieldOf(CheckBill(bill_, text::FinancialYear(2011))), Field::kSettlementNumber);
    bill_.settlement_number.clear();
  }

  void DateOutsideTheYearIsRefused_data() {
    const test::Table<QString, QString> row;
    const QString refused = QStringLiteral("The Date is not in the Financial Year 2011-12.");
    row("day before", "31/03/2011", refused);
    row("first day", "01/04/2011", test::kAccepted);
    row("last day", "31/03/2012", test::kAccepted);
    row("day after", "01/04/2012", refused);
  }
  void DateOutsideTheYearIsRefused() {
    const auto [date, text] = test::Table<QString, QString>::Row();
    bill_.date = date;
    const MaybeRefusal refusal = CheckBill(bill_, text::FinancialYear(2011));
    QCOMPARE(TextOf(refusal), text);
    QCOMPARE(FieldOf(refusal), refusal ? Field::kDate : Field::kNone);
  }

  void DateIsNotAfterToday_data() {
    const test::Table<QString, QString> row;
    row("no such day", "31/06/2011", "Enter Proper Date.");
    row("tomorrow", "11/06/2011", "You can't insert future Date");
    row("today", "10/06/2011", test::kAccepted);
    row("a day of a later month a year ago", "31/12/2010", test::kAccepted);
  }
  void DateIsNotAfterToday() {
    const auto [date, text] = test::Table<QString, QString>::Row();
    QCOMPARE(TextOf(CheckDate(date, text::MakeDate(10, 6, 2011).value())), text);
  }
};

static const quorvane::test::RegisterTest<BillChecksTest> kRegistered;
#include "BillChecksTest.moc"
