#include "support/Desk.h"
#include "support/TestMain.h"
#include "transactions/bills/BillChecks.h"

#include <QTest>

#include <array>
#include <functional>

using namespace quorvane;
using namespace quorvane::bills;
using test::FieldOf;
using test::TextOf;

namespace {

/// The steps in which a bill is filled in; before each of them one rule is broken.
const std::array<std::function<void(Bill&)>, 8> kSteps{
    [](Bill& bill) { bill.number = QStringLiteral("1"); },
    [](Bill& bill) { bill.date = QStringLiteral("31/02/2012"); },
    [](Bill& bill) { bill.date = QStringLiteral("29/02/2012"); },
    [](Bill& bill) { bill.broker = BrokerId{1}; },
    [](Bill& bill) {
      bill.exchange = ExchangeId{1};
      bill.lines.resize(2);
    },
    [](Bill& bill) { bill.lines[0].scrip = ScripId{1}; },
    [](Bill& bill) {
      bill.lines[0].quantity = text::Shares(1);
      bill.lines[1].scrip = ScripId{1};
      bill.lines[1].quantity = text::Shares(-1);
    },
    [](Bill& bill) { bill.lines[1].quantity = text::Shares(0.001); },
};

Bill FilledIn(int steps) {
  Bill bill;
  for (std::size_t i = 0; i < static_cast<std::size_t>(steps); ++i) {
    kSteps.at(i)(bill);
  }
  return bill;
}

void AddRow(const char* name, int steps, const char* text, const char* field) {
  QTest::newRow(name) << steps << QString::fromLatin1(text) << QString::fromLatin1(field);
}

}  // namespace

class BillChecksTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void BillIsCheckedInOrder_data() {
    QTest::addColumn<int>("steps");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("field");
    AddRow("number", 0, "Enter Bill No.", "Text1_0");
    AddRow("date", 1, "Enter Date.", "Text1_1");
    AddRow("no such day", 2, "Enter Proper Date.", "Text1_1");
    AddRow("broker", 3, "Enter Broker Name.", "Text1_2");
    AddRow("exchange", 4, "Select Stock Exchange.", "Combo1");
    AddRow("scrip of a line", 5, "Enter Script Name.", "Combo4");
    AddRow("no shares", 6, "Enter Quantity Greater than Zero.", "Text1_3");
    AddRow("negative shares in a later line", 7, "Enter Quantity Greater than Zero.", "Text1_3");
    AddRow("complete", 8, "accepted", "none");
  }
  void BillIsCheckedInOrder() {
    QFETCH(int, steps);
    const MaybeRefusal refusal = CheckBill(FilledIn(steps), text::FinancialYear(2011));
    QTEST(TextOf(refusal), "text");
    QTEST(FieldOf(refusal), "field");
  }

  void DateOutsideTheYearIsRefused_data() {
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("text");
    const QString refused = QStringLiteral("The Date is not in the Financial Year 2011-12.");
    QTest::newRow("day before") << QStringLiteral("31/03/2011") << refused;
    QTest::newRow("first day") << QStringLiteral("01/04/2011") << test::kAccepted;
    QTest::newRow("last day") << QStringLiteral("31/03/2012") << test::kAccepted;
    QTest::newRow("day after") << QStringLiteral("01/04/2012") << refused;
  }
  void DateOutsideTheYearIsRefused() {
    QFETCH(QString, date);
    Bill bill = FilledIn(static_cast<int>(kSteps.size()));
    bill.date = date;
    const MaybeRefusal refusal = CheckBill(bill, text::FinancialYear(2011));
    QTEST(TextOf(refusal), "text");
    QCOMPARE(FieldOf(refusal), refusal ? QStringLiteral("Text1_1") : QStringLiteral("none"));
  }

  void TextsThatAreTooLongAreRefused() {
    Bill bill = FilledIn(static_cast<int>(kSteps.size()));
    bill.settlement_number = QString(101, QLatin1Char('1'));
    QCOMPARE(FieldOf(CheckBill(bill, text::FinancialYear(2011))), QStringLiteral("Text1_15"));
    bill.number = bill.settlement_number;
    QCOMPARE(FieldOf(CheckBill(bill, text::FinancialYear(2011))), QStringLiteral("Text1_0"));
  }

  void DateAndExchangeComeBeforeALine_data() {
    QTest::addColumn<int>("steps");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("field");
    AddRow("date, though there is no number", 0, "Enter Date.", "Text1_1");
    AddRow("exchange, though there is no broker", 3, "Select Stock Exchange.", "Combo1");
    AddRow("both", 5, "accepted", "none");
  }
  void DateAndExchangeComeBeforeALine() {
    QFETCH(int, steps);
    const MaybeRefusal refusal = CheckBeforeLine(FilledIn(steps));
    QTEST(TextOf(refusal), "text");
    QTEST(FieldOf(refusal), "field");
  }

  void LineIsCheckedInOrder() {
    QCOMPARE(TextOf(CheckLine(std::nullopt, {}, text::Shares(0))),
             QStringLiteral("Enter Sale/Purchase."));
    QCOMPARE(TextOf(CheckLine(Side::kSale, {}, text::Shares(0))),
             QStringLiteral("Enter Script Name."));
    QCOMPARE(TextOf(CheckLine(Side::kSale, ScripId{1}, text::Shares(0))),
             QStringLiteral("Enter Quantity Greater than Zero."));
    QVERIFY(!CheckLine(Side::kSale, ScripId{1}, text::Shares(0.000001)));
  }

  void DateIsNotAfterToday_data() {
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << QString() << QStringLiteral("Enter Date.");
    QTest::newRow("blanks") << QStringLiteral("  ") << QStringLiteral("Enter Date.");
    QTest::newRow("no such day") << QStringLiteral("31/06/2011")
                                 << QStringLiteral("Enter Proper Date.");
    QTest::newRow("tomorrow") << QStringLiteral("11/06/2011")
                              << QStringLiteral("You can't insert future Date");
    QTest::newRow("today") << QStringLiteral("10/06/2011") << test::kAccepted;
    QTest::newRow("a day of a later month a year ago")
        << QStringLiteral("31/12/2010") << test::kAccepted;
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
    QCOMPARE(TextOf(refusal), QStringLiteral("You Can't Sale Scripts More than Balance.\n\n"
                                             "Maximum Allowed Value is: 5.00"));
    QCOMPARE(FieldOf(refusal), QStringLiteral("Text1_3"));
  }
};

static const quorvane::test::RegisterTest<BillChecksTest> kRegistered;
#include "BillChecksTest.moc"
