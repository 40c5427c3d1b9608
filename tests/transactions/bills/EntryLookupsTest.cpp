#include "support/DatabaseTest.h"
#include "transactions/bills/EntryLookups.h"

using namespace quorvane;
using namespace quorvane::bills;

class EntryLookupsTest : public test::DeskTest {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    desk_.emplace();
    database::Connection& connection = desk_->Connection();
    connection.Execute(
        "Insert Into TransTaxPer Values(1,'2011-12','Brokerage Delivery Based',0.3,''),"
        "(2,'2011-12','Brokerage Non Delivery Based',0.03,''),"
        "(3,'2011-12','STT Delivery Based',0.125,''),"
        "(4,'2011-12','STT Non Delivery Based',0.025,''),(5,'2011-12','Service Tax',10.3,''),"
        "(6,'2012-13','Service Tax',12.36,'')");
    connection.Execute(
        "Insert Into MarketRate Values('2011-12',1,'10/06/2011',1,950.5),"
        "('2012-13',2,'10/06/2011',1,1),('2011-12',3,'11/06/2011',1,2),"
        "('2011-12',4,'10/06/2011',2,3)");
    connection.Execute("Update Script Set NCode='500209' Where Id=1");
    connection.Execute("Update Script Set NCode='Infy' Where Id=2");
  }
  void PercentagesFollowYearAndDelivery_data() {
    const test::Table<int, bool, double, double, double> row;
    row("delivery", 2011, true, 0.3, 0.125, 10.3);
    row("no delivery", 2011, false, 0.03, 0.025, 10.3);
    row("only one recorded", 2012, true, 0.0, 0.0, 12.36);
  }
  void PercentagesFollowYearAndDelivery() {
    const auto [year, delivery, brokerage, stt, service_tax] =
        test::Table<int, bool, double, double, double>::Row();
    const records::ChargePercents percents =
        ReadPercents(desk_->Connection(), text::FinancialYear(year),
                     delivery ? Delivery::kDeliveryBased : Delivery::kNonDeliveryBased);
    QCOMPARE(percents.brokerage, brokerage);
    QCOMPARE(percents.stt, stt);
    QCOMPARE(percents.service_tax, service_tax);
  }

  void MarketRateIsOfTheYearDayAndScrip() {
    const auto rate = [&](int scrip, const char* date) {
      return MarketRateOf(desk_->Connection(), desk_->year, ScripId{scrip},
                          QString::fromLatin1(date));
    };
    QCOMPARE(rate(1, "10/06/2011").value(), 950.5);
    QVERIFY(!rate(1, "12/06/2011"));
    QVERIFY(!rate(3, "10/06/2011"));
  }

  void ScripIsFoundByEitherCode_data() {
    const test::Table<QString, int> row;
    row("BSE code", "500325", 1);
    row("BSE code before another scrip's NSE code", "500209", 2);
    row("NSE code in other capitals", " infy ", 2);
  }
  void ScripIsFoundByEitherCode() {
    const auto [code, scrip] = test::Table<QString, int>::Row();
    const auto found = FindScripByCode(desk_->Connection(), code);
    QCOMPARE(found ? found->id.value : 0, scrip);
  }
};

static const quorvane::test::RegisterTest<EntryLookupsTest> kRegistered;
#include "EntryLookupsTest.moc"
