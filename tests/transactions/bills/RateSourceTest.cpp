#include "support/Cases.h"
#include "support/LocalExchange.h"
#include "support/TestMain.h"
#include "transactions/bills/EntryLookups.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace quorvane;
using namespace quorvane::bills;

class RateSourceTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ExchangeIsAskedByItsOwnCode_data() {
    const test::Cases<QString, int, double> cases("exchange", "day", "rate");
    cases.Add("Bombay", "BSE", 14, 101.25);
    cases.Add("National", "nse", 14, 102.5);
    cases.Add("no price of the day", "BSE", 13, 0.0);
    cases.Add("today there is a quote", "BSE", 15, 99.75);
    cases.Add("unknown exchange", "MCX", 14, 0.0);
  }

  void ExchangeIsAskedByItsOwnCode() {
    QFETCH(const QString, exchange);
    QFETCH(const int, day);
    test::LocalExchange web;
    web.Answer(QStringLiteral("/stockinfo/stockprc2_excel.aspx?scripcd=500325&FromDate=06/14/2011&"
                              "ToDate=06/14/2011&OldDMY=D&ScripName=RELIANCE"),
               {.body = "Date,Close Price\n14-Jun-2011,101.25\n"});
    web.Answer(
        QStringLiteral("/content/equities/scripvol/datafiles/14-06-2011-TO-14-06-2011RELALLN.csv"),
        {.body = "Date,Close Price\n14-Jun-2011,102.50\n"});
    web.Answer(QStringLiteral("/Markets/Company/500325%20/"),
               {.body = "<html><TITLE>RELIANCE Rs.99.75</TITLE></html>"});
    QTemporaryDir folder;
    const app::Folders folders = app::Folders::At(folder.path());
    QFile config(folders.config_file);
    QVERIFY(config.open(QIODevice::WriteOnly));
    config.write("[Internet]\n");
    for (const char* host : {"BseHost", "NseHost", "BseQuoteHost"}) {
      config.write(host + ('=' + web.Address().toEncoded()) + '\n');
    }
    config.close();
    const RateSource source = AskExchanges(folders);
    std::optional<double> got;
    source(
        {exchange,
         {ScripId{1}, QStringLiteral("500325"), QStringLiteral("RELIANCE"), QStringLiteral("REL")},
         *text::MakeDate(day, 6, 2011),
         *text::MakeDate(15, 6, 2011)},
        [&](double rate) { got = rate; });
    QVERIFY(!got);
    QTRY_VERIFY_WITH_TIMEOUT(got.has_value(), 10000);
    QTEST(*got, "rate");
  }
};

static const test::RegisterTest<RateSourceTest> kRegistered;
#include "RateSourceTest.moc"
