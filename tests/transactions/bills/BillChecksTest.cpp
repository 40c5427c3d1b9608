#include "support/Cases.h"
#include "support/Desk.h"
#include "support/TestMain.h"
#include "transactions/bills/BillChecks.h"

#include <QTest>

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
    const test::Cases<QString, QString> cases("date", "text");
    const QString refused = QStringLiteral("The Date is not in the Financial Year 2011-12.");
    cases.Add("day before", "31/03/2011", refused);
    cases.Add("first day", "01/04/2011", test::kAccepted);
    cases.Add("last day", "31/03/2012", test::kAccepted);
    cases.Add("day after", "01/04/2012", refused);
  }
  void DateOutsideTheYearIsRefused() {
    QFETCH(QString, date);
    bill_.date = date;
    const MaybeRefusal refusal = CheckBill(bill_, text::FinancialYear(2011));
    QTEST(TextOf(refusal), "text");
    QCOMPARE(FieldOf(refusal), refusal ? Field::kDate : Field::kNone);
  }

  void LineIsCheckedInOrder() {
    QCOMPARE(TextOf(CheckLine(std::nullopt, {}, text::Shares(0))), "Enter Sale/Purchase.");
    QCOMPARE(TextOf(CheckLine(Side::kSale, {}, text::Shares(0))), "Enter Script Name.");
    QCOMPARE(TextOf(CheckLine(Side::kSale, ScripId{1}, text::Shares(0))),
             "Enter Quantity Greater than Zero.");
    QVERIFY(!CheckLine(Side::kSale, ScripId{1}, text::Shares(0.000001)));
  }

  void DateIsNotAfterToday_data() {
    const test::Cases<QString, QString> cases("date", "text");
    cases.Add("no such day", "31/06/2011", "Enter Proper Date.");
    cases.Add("tomorrow", "11/06/2011", "You can't insert future Date");
    cases.Add("today", "10/06/2011", test::kAccepted);
    cases.Add("a day of a later month a year ago", "31/12/2010", test::kAccepted);
  }
  void DateIsNotAfterToday() {
    QFETCH(QString, date);
    QTEST(TextOf(CheckDate(date, text::MakeDate(10, 6, 2011).value())), "text");
  }

  void SaleStaysWithinTheBalance() {
    QVERIFY(!CheckSale(Side::kPurchase, text::Shares(100), text::Shares(5)));
    QVERIFY(!CheckSale(Side::kSale, text::Shares(100), std::nullopt));
    QVERIFY(!CheckSale(Side::kSale, text::Shares(5), text::Shares(5)));
    const MaybeRefusal refusal = CheckSale(Side::kSale, text::Shares(5.001), text::Shares(5));
    QCOMPARE(TextOf(refusal),
             "You Can't Sale Scripts More than Balance.\n\n"
             "Maximum Allowed Value is: 5.00");
    QCOMPARE(FieldOf(refusal), Field::kQuantity);
  }
};

static const quorvane::test::RegisterTest<BillChecksTest> kRegistered;
#include "BillChecksTest.moc"
