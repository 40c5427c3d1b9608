#include "masters/client_list/ClientList.h"
#include "support/Records.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

using namespace quorvane;
using namespace quorvane::client_list;

class ClientListTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void YearsRunFromTheFirstToTheOneOfTheDate_data() {
    const test::Table<int, int, int, QString> row;
    row("first day of a year", 1, 4, 2012, "2012-13");
    row("clock before the first year", 1, 1, 1970, "2005-06");
  }
  void YearsRunFromTheFirstToTheOneOfTheDate() {
    const auto [day, month, year, last] = test::Table<int, int, int, QString>::Row();
    const text::Date today = *text::MakeDate(day, month, year);
    const std::vector<text::FinancialYear> years = YearsUpTo(today);
    QCOMPARE(years.front().Text(), "2005-06");
    QCOMPARE(years.back().Text(), last);
    QCOMPARE(DefaultYear(today).Text(), last);
    for (std::size_t i = 1; i < years.size(); ++i) {
      QVERIFY(years[i] == years[i - 1].Next());
    }
  }
};

static const test::RegisterTest<ClientListTest> kRegistered;
#include "ClientListTest.moc"
