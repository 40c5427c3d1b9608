#include "reports/broker_account/OpenItems.h"
#include "support/Test.h"

using namespace quorvane;
using namespace quorvane::broker_account;

class OpenItemsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TheOldestIsSettledFirst_data() {
    const test::Table<std::vector<int>, QString> row;
    using Amounts = std::vector<int>;
    row("bills stay open", Amounts{100, 50}, "0:100 1:50");
    row("a payment settles the oldest", Amounts{100, 50, -120}, "1:30");
    row("exactly", Amounts{100, 50, -150}, "");
    row("more than is owed is on account", Amounts{100, -130}, "1:-30");
    row("money on account settles the next bill", Amounts{-130, 100, 50}, "2:20");
    row("a sale is set against purchases", Amounts{100, -40, -40, -40}, "3:-20");
    row("from one side to the other and back", Amounts{10, -30, 25, -15}, "3:-10");
    row("nothing is no item", Amounts{0, 5, 0}, "1:5");
  }
  void TheOldestIsSettledFirst() {
    const auto [amounts, expected] = test::Table<std::vector<int>, QString>::Row();
    OpenItems open;
    for (std::size_t i = 0; i < amounts.size(); ++i) {
      open.Post({{}, QString::number(i), text::Paise(amounts[i])});
    }
    QStringList texts;
    for (const OpenItem& item : open.Items()) {
      texts << QStringLiteral("%1:%2").arg(item.particulars).arg(item.amount.Count());
    }
    QCOMPARE(texts.join(QLatin1Char(' ')), expected);
  }

  void AgesEndWithTheir30thDay_data() {
    const test::Table<QString, QString> row;
    row("of the day", "31/03/2012", "0-30 Days");
    row("30 days", "01/03/2012", "0-30 Days");
    row("31 days", "29/02/2012", "31-60 Days");
    row("60 days", "31/01/2012", "31-60 Days");
    row("61 days", "30/01/2012", "61-90 Days");
    row("90 days", "01/01/2012", "61-90 Days");
    row("91 days", "31/12/2011", "Over 90 Days");
  }
  void AgesEndWithTheir30thDay() {
    const auto [day, age] = test::Table<QString, QString>::Row();
    const text::Date on = *text::ParseDmy(QStringLiteral("31/03/2012"));
    QCOMPARE(AgeName(AgeOf(*text::ParseDmy(day), on)), age);
  }
};

static const test::RegisterTest<OpenItemsTest> kRegistered;
#include "OpenItemsTest.moc"
