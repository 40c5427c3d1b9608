#include "masters/Records.h"
#include "masters/client_list/ClientList.h"
#include "support/Cases.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QTest>

using namespace quorvane;
using namespace quorvane::client_list;

class ClientListTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void YearsRunFromTheFirstToTheOneOfTheDate_data() {
    const test::Cases<int, int, int, QString> cases("day", "month", "year", "last");
    cases.Add("first day of a year", 1, 4, 2012, "2012-13");
    cases.Add("clock before the first year", 1, 1, 1970, "2005-06");
  }

  void YearsRunFromTheFirstToTheOneOfTheDate() {
    QFETCH(const int, day);
    QFETCH(const int, month);
    QFETCH(const int, year);
    QFETCH(const QString, last);
    const text::Date today = *text::MakeDate(day, month, year);
    const std::vector<text::FinancialYear> years = YearsUpTo(today);
    QCOMPARE(years.front().Text(), "2005-06");
    QCOMPARE(years.back().Text(), last);
    QCOMPARE(DefaultYear(today).Text(), last);
    for (std::size_t i = 1; i < years.size(); ++i) {
      QVERIFY(years[i] == years[i - 1].Next());
    }
  }

  void UpdateRebuildsOnlyTheChosenClientAndYear() {
    test::TestDatabase database;
    int lot = 0;
    for (const auto& [client, year] : {std::pair{1, "2011-12"}, {1, "2010-11"}, {2, "2011-12"}}) {
      database->Execute(
          "Insert Into StkOpBal(CId,Fyear,Id,ScriptId,Qty,Rate,AcId) Values(?,?,?,1,10,100,?)",
          client, year, ++lot, client);
      database->Execute("Insert Into Stock Values(?,?,?,?,1,99,100)", client, year, lot, client);
    }
    Progress progress;
    QCOMPARE(UpdateStock(*database, {ClientId{1}, text::FinancialYear(2011)}, progress),
             "Stock is Updated Successfully !!!");
    QCOMPARE(test::Rows(*database, "Select Cid,Fyear,Qty From Stock Order By Cid,Fyear"),
             QStringList({"1|2010-11|99", "1|2011-12|10", "2|2011-12|99"}));
  }
};

static const test::RegisterTest<ClientListTest> kRegistered;

#include "ClientListTest.moc"
