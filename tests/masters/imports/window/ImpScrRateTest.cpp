#include "masters/imports/ImportWindow.h"
#include "masters/imports/window/ImpScrRate.h"

using namespace quorvane;
using namespace quorvane::imports;
using Window = test::ImportWindow<ImpScrRate>;

class ImpScrRateTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    test::Empty(**database_, {"Script", "MarketRate"});
    (*database_)
        ->Execute(
            "Insert Into Script(Id,Code,Name,Type,ScrCls,NCode) "
            "Values(3,'500325','RELIANCE',1,1,'R'),"
            "(4,'500010','HDFC',1,1,'H')");
    (*database_)
        ->Execute(
            "Insert Into MarketRate Values('2017-18',1,'31/01/2018',3,900),"
            "('2017-18',2,'31/01/2018',4,70.5),('2017-18',3,'30/01/2018',4,70)");
  }

  void DateIsCheckedBeforeAnythingIsRead_data() {
    const test::Table<QString, QString> row;
    row("empty", QString(), "Enter Date.");
    row("future", "01/02/2018", "You can't insert future Date");
  }
  void DateIsCheckedBeforeAnythingIsRead() {
    const auto [date, text] = test::Table<QString, QString>::Row();
    Window shown(*database_);
    shown.Named("TxtDate")->setText(date);
    for (const char* button : {"CmdImport", "CmdSite", "CmdGainLose"}) {
      shown.Click(button);
      QCOMPARE(shown.messages.LastText(), text);
    }
    QVERIFY(shown.asked_filters.isEmpty());
    QVERIFY(shown.exchange.asked.isEmpty());
  }

  void FileIsMatchedReviewedAndSaved() {
    Window shown(*database_);
    shown.TypeDate(QStringLiteral("31/01/2018"));
    shown.Choose("EQ.CSV", test::Sample("rates.csv"));
    shown.Click("CmdImport");
    QCOMPARE(shown.messages.Texts(), QStringList("Completed."));
    QCOMPARE(shown.Counts(),
             "2 of 2 scrips have a rate. Rows of the file: 1 "
             "matched, 1 without a scrip.");
    shown.Show(1);
    QCOMPARE(shown.RowsOf("VSF").size(), 1);
    QVERIFY(shown.RowsOf("VSF").first().endsWith(QLatin1String("|900.00|961.15")));
    shown.Show(3);
    QCOMPARE(shown.RowsOf("VSU"), QStringList("3|500209|INFOSYS|A|EQUITY|1150.10"));
    shown.Click("cmdUpdate");
    QCOMPARE(shown.messages.LastText(), "Update Successfully!");
    QCOMPARE(Rates(), QStringList({"31/01/2018|3|961.15", "31/01/2018|4|70.5", "30/01/2018|4|70"}));
  }

  void ArchiveAndMoversFillTheGrid() {
    Window shown(*database_);
    shown.TypeDate(QStringLiteral("31/01/2018"));
    shown.exchange.Answer(QStringLiteral("/Hisbhav/eq310118_csv.zip"),
                          {.body = test::Sample("rates.zip")});
    shown.Click("CmdSite");
    QTRY_COMPARE(shown.messages.LastText(), QStringLiteral("Completed."));
    for (const char* filter : {"gainer", "loser"}) {
      shown.exchange.Answer(
          QStringLiteral("/sensex/mktwatchR.aspx?filter=%1*all$all$").arg(QLatin1String(filter)),
          {.body = "<table id=grd1><tr><th>Code<th>LTP<tr><td>500010<td>80.25</table>"});
    }
    shown.Click("CmdGainLose");
    QTRY_COMPARE(shown.messages.said.size(), std::size_t{2});
    QVERIFY(shown.RowsOf("VSF").first().endsWith(QLatin1String("|70.50|80.25")));
    QVERIFY(shown.RowsOf("VSF").last().endsWith(QLatin1String("|900.00|961.15")));
  }

  void RatesTypedByHandAreSavedAndClearedOnesGo() {
    const Window shown(*database_);
    shown.TypeDate(QStringLiteral("31/01/2018"));
    controls::GridModel& model = shown.Named<controls::Grid>("VSF")->Model();
    QVERIFY(model.setData(model.index(0, 6), QStringLiteral("71.25")));
    QVERIFY(model.setData(model.index(1, 6), QString()));
    shown.Click("cmdUpdate");
    QCOMPARE(Rates(), QStringList({"31/01/2018|4|71.25", "30/01/2018|4|70"}));
  }

  void UnsavedRatesAreNotGivenUpUnasked() {
    Window shown(*database_);
    shown.TypeDate(QStringLiteral("31/01/2018"));
    controls::GridModel& model = shown.Named<controls::Grid>("VSF")->Model();
    QVERIFY(model.setData(model.index(0, 6), QStringLiteral("71.25")));
    shown.TypeDate(QStringLiteral("30/01/2018"));
    QCOMPARE(shown.messages.LastText(), "The rates are not saved. Give them up?");
    QCOMPARE(shown.Named("TxtDate")->text(), "31/01/2018");
    shown.window->close();
    QCOMPARE(shown.messages.LastText(), "The rates are not saved. Close without saving them?");
    QVERIFY(shown.window->isVisible());
    shown.messages.WillAnswer(true);
    shown.window->close();
    QVERIFY(shown.window.isNull() || !shown.window->isVisible());
  }

 private:
  QStringList Rates() {
    return test::Rows(**database_, "Select MDate,ScrId,Rate From MarketRate Order By Id");
  }
};

static const test::RegisterTest<ImpScrRateTest> kRegistered;
#include "ImpScrRateTest.moc"
