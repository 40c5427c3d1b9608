#include "support/Desk.h"
#include "support/TestMain.h"
#include "transactions/bills/EntryLookups.h"

#include <QTest>

using namespace quorvane;
using namespace quorvane::bills;
using test::Desk;

class EntryLookupsTest : public QObject {
  Q_OBJECT

  std::optional<Desk> desk_;

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
  void cleanupTestCase() { desk_.reset(); }

  void PercentagesFollowYearAndDelivery_data() {
    QTest::addColumn<int>("year");
    QTest::addColumn<bool>("delivery");
    QTest::addColumn<double>("brokerage");
    QTest::addColumn<double>("stt");
    QTest::addColumn<double>("service_tax");
    QTest::newRow("delivery") << 2011 << true << 0.3 << 0.125 << 10.3;
    QTest::newRow("no delivery") << 2011 << false << 0.03 << 0.025 << 10.3;
    QTest::newRow("only one recorded") << 2012 << true << 0.0 << 0.0 << 12.36;
    QTest::newRow("none recorded") << 2013 << true << 0.0 << 0.0 << 0.0;
  }
  void PercentagesFollowYearAndDelivery() {
    QFETCH(int, year);
    QFETCH(bool, delivery);
    const records::ChargePercents percents =
        ReadPercents(desk_->Connection(), text::FinancialYear(year),
                     delivery ? Delivery::kDeliveryBased : Delivery::kNonDeliveryBased);
    QTEST(percents.brokerage, "brokerage");
    QTEST(percents.stt, "stt");
    QTEST(percents.service_tax, "service_tax");
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
    QTest::addColumn<QString>("code");
    QTest::addColumn<int>("scrip");
    QTest::newRow("BSE code") << QStringLiteral("500325") << 1;
    QTest::newRow("BSE code before another scrip's NSE code") << QStringLiteral("500209") << 2;
    QTest::newRow("NSE code in other capitals") << QStringLiteral(" infy ") << 2;
    QTest::newRow("part of a code") << QStringLiteral("5003") << 0;
    QTest::newRow("nothing typed") << QStringLiteral(" ") << 0;
  }
  void ScripIsFoundByEitherCode() {
    QFETCH(QString, code);
    const auto found = FindScripByCode(desk_->Connection(), code);
    QTEST(found ? found->id.value : 0, "scrip");
  }
};

static const quorvane::test::RegisterTest<EntryLookupsTest> kRegistered;
#include "EntryLookupsTest.moc"
