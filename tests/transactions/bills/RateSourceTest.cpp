#include "support/Files.h"
#include "support/LocalExchange.h"
#include "support/Test.h"
#include "transactions/bills/EntryLookups.h"

using namespace quorvane;
using namespace quorvane::bills;

class RateSourceTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ExchangeIsAskedByItsOwnCode_data() {
    const test::Table<QString, int, double> row;
    row("Bombay", "BSE", 14, 101.25);
    row("National", "nse", 14, 102.5);
    row("no price of the day", "BSE", 13, 0.0);
    row("today there is a quote", "BSE", 15, 99.75);
    row("unknown exchange", "MCX", 14, 0.0);
  }
  void ExchangeIsAskedByItsOwnCode() {
    const auto [exchange, day, rate] = test::Table<QString, int, double>::Row();
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
    const QByteArray here = '=' + web.Address().toEncoded() + '\n';
    test::WriteFile(folders.config_file,
                    "[Internet]\nBseHost" + here + "NseHost" + here + "BseQuoteHost" + here);
    const RateSource source = AskExchanges(folders);
    std::optional<double> got;
    source(
        {exchange,
         {ScripId{1}, QStringLiteral("500325"), QStringLiteral("RELIANCE"), QStringLiteral("REL")},
         *text::MakeDate(day, 6, 2011),
         *text::MakeDate(15, 6, 2011)},
        [&](double answer) { got = answer; });
    QVERIFY(!got);
    QTRY_VERIFY_WITH_TIMEOUT(got.has_value(), 10000);
    QCOMPARE(*got, rate);
  }
};

static const test::RegisterTest<RateSourceTest> kRegistered;
#include "RateSourceTest.moc"
