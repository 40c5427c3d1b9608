#include "core/files/TableReaders.h"
#include "core/rates/PriceFile.h"
#include "core/rates/RateImport.h"
#include "core/text/Amounts.h"
#include "support/Files.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

using namespace quorvane;
using namespace quorvane::rates;

namespace {

const QByteArray kUdiff =
    "TradDt,BizDt,Sgmt,Src,FinInstrmTp,FinInstrmId,ISIN,TckrSymb,SctySrs,XpryDt,"
    "FininstrmActlXpryDt,StrkPric,OptnTp,FinInstrmNm,OpnPric,HghPric,LwPric,ClsPric,LastPric,"
    "PrvsClsgPric,UndrlygPric,SttlmPric,OpnIntrst,ChngInOpnIntrst,TtlTradgVol,TtlTrfVal,"
    "TtlNbOfTxsExctd,SsnId,NewBrdLotQty,Rmks,Rsvd1,Rsvd2,Rsvd3,Rsvd4\n";
const QByteArray kLegacy =
    "SC_CODE,SC_NAME,SC_GROUP,SC_TYPE,OPEN,HIGH,LOW,CLOSE,LAST,PREVCLOSE,NO_TRADES,NO_OF_SHRS,"
    "NET_TURNOV,TDCLOINDI\r\n";
const QByteArray kRecord = ",RELIANCE    ,A ,Q,950,964,942,961.15,961.15,949,5985,457062,4382.00,";
const QByteArray kNse =
    "SYMBOL,SERIES,OPEN,HIGH,LOW,CLOSE,LAST,PREVCLOSE,TOTTRDQTY,TOTTRDVAL,TIMESTAMP,TOTALTRADES,"
    "ISIN,\n";

QByteArray UdiffRow(const QByteArray& source, const QByteArray& id, const QByteArray& symbol,
                    const QByteArray& series, const QByteArray& close,
                    const QByteArray& segment = "CM") {
  return "2026-08-28,2026-08-28," + segment + "," + source + ",STK," + id + ",INE466L01038," +
         symbol + "," + series + ",,,,," + symbol + " LIMITED,1204.00,1208.00,1193.90," + close +
         ",,1204.00,,1200.00,,,422710,508479692.60,29706,F1,1,,,,,\n";
}

QByteArray NseRow(const QByteArray& symbol, const QByteArray& series, const QByteArray& close) {
  return symbol + "," + series + ",1,1,1," + close + ",1,1,10,10,05-JUL-2024,1,INE002A01018,\n";
}

MaybeRefusal Read(const QByteArray& csv, PriceFile& file) {
  Result<PriceFile> result =
      ReadPriceTable(files::ReadCsvText({csv.constData(), static_cast<std::size_t>(csv.size())}));
  file = result ? *result : PriceFile();
  return result.Refused();
}

QStringList RowsOf(const PriceFile& file) {
  QStringList rows;
  for (const PriceRow& row : file.rows) {
    rows << QString::fromStdString(row.code + '|' + row.symbol + '|' + row.name + '|' +
                                   row.scrip_class + '|' + row.type + '|') +
                text::NumberText(row.rate);
  }
  return rows;
}

QStringList TextsOf(const std::vector<ScripRate>& rates) {
  QStringList texts;
  for (const ScripRate& rate : rates) {
    texts << QStringLiteral("%1=%2").arg(rate.scrip.value).arg(rate.rate);
  }
  return texts;
}

}  // namespace

class PriceFileTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void LayoutIsToldByItsHeadings_data() {
    const test::Table<QByteArray, QStringList, QString> table;
    const auto row = [&](const char* name, const QByteArray& csv, const QStringList& rows,
                         const char* date = "") { table(name, csv, rows, date); };
    row("own list", "SC_BCode,SC_NCode,SC_Name,SC_Class,SC_Type\n1,ONE,First,A,Q\n2,,Two,B,d\n",
        {"1|ONE|First|A|EQUITY|0", "2||Two|B|d|0"});
    row("own rates", "SC_Type,SC_Rate,SC_Code,SC_Name,SC_Group,SC_Class\nP,\"1,10.255\",1,One,A,\n",
        {"1||One|A|PREFERENCE SHARE|110.26"});
    row("rates of reports",
        "SYMBOL,SC_Code,SC_Name,SC_Group,SC_Class,SERIES,SC_Type,CLOSE\nONE,1,One,A,T,EQ,B,12\n",
        {"1|ONE|One|T|WARRANTS|12"});
    row("old Bombay file", kLegacy + "500325" + kRecord + "\r\n",
        {"500325||RELIANCE|A|EQUITY|961.15"});
    row("two records on one line, last value empty",
        kLegacy + "500325" + kRecord + "500209" + kRecord + "XD\r\n",
        {"500325||RELIANCE|A|EQUITY|961.15", "500209||RELIANCE|A|EQUITY|961.15"});
    row("two records on one line, after a mark",
        kLegacy + "500325" + kRecord + "XD500209" + kRecord + "\r\n",
        {"500325||RELIANCE|A|EQUITY|961.15", "500209||RELIANCE|A|EQUITY|961.15"});
    row("with ISIN",
        QByteArray(kLegacy).trimmed() + ",ISIN_CODE,TRADING_DATE,FILLER2,FILLER3\r\n500325" +
            kRecord + ",INE002A01018,31-Jan-18,,\r\n",
        {"500325||RELIANCE|A|EQUITY|961.15"}, "31/01/2018");
    row("Bombay file of 2022",
        "ISIN,SCRIP ID,SCRIP_CODE,SC_NAME,SC_GROUP,OPEN PRICE,CLOSING PRICE,LAST\n"
        "INE1,REL,500325,RELIANCE,A,1,2.5,2\n",
        {"500325||RELIANCE|A||2.5"});
    row("Bombay file of 2023",
        "ISIN,TckrSymb,FinInstrmId,FinInstrmNm,SctySrs,ClsPric,LastPric,TradDt\n"
        "INE1,REL,500325,RELIANCE,A,2500.5,,02-01-2023\n",
        {"500325||RELIANCE|A||2500.5"}, "02/01/2023");
    row("common file, Bombay", kUdiff + UdiffRow("BSE", "511260", "ICONIK", "X", "43.09"),
        {"511260||ICONIK LIMITED|X||43.09"}, "28/08/2026");
    row("common file, National: the share before its other series",
        kUdiff + UdiffRow("NSE", "1", "360ONE", "T0", "7") +
            UdiffRow("NSE", "2", "360ONE", "BE", "8") + UdiffRow("NSE", "3", "360ONE", "EQ", "9") +
            UdiffRow("NSE", "4", "360ONE", "BZ", "6") +
            UdiffRow("NSE", "5", "360ONE", "N1", "999") +
            UdiffRow("NSE", "6", "BONDONLY", "N1", "999") +
            UdiffRow("NSE", "7", "FUTURE", "EQ", "5", "FO") +
            UdiffRow("NSE", "8", "BZONLY", "BZ", ""),
        {"|360ONE|360ONE LIMITED|EQ||9", "|BZONLY|BZONLY LIMITED|BZ||0"}, "28/08/2026");
    row("National file", kNse + NseRow("RELIANCE", "EQ", "3177.25"), {"|RELIANCE||EQ||3177.25"},
        "05/07/2024");
    row("National file with deliveries",
        "SYMBOL, SERIES, DATE1, PREV_CLOSE, CLOSE_PRICE, DELIV_QTY\n"
        "RELIANCE, EQ, 05-Jul-2024, 1, 3177.25, -\nNONE, EQ, 05-Jul-2024, 1, -, -\n",
        {"|RELIANCE||EQ||3177.25", "|NONE||EQ||0"}, "05/07/2024");
    row("National list",
        "SYMBOL,NAME OF COMPANY, SERIES, DATE OF LISTING, PAID UP VALUE, MARKET LOT, ISIN NUMBER, "
        "FACE VALUE\nM&M,Mahindra &amp; Mahindra Limited,EQ,03-JAN-1996,5,1,INE101A01026,5\n",
        {"|M&M|Mahindra & Mahindra Limited|EQ||0"});
    row("Bombay list",
        "Security Code,Issuer Name,Security Id,Security Name,Status,Group,Face Value,ISIN No,"
        "Industry,Instrument\n500002,ABB,ABB,ABB India,Active,A,2.00,NA,Heavy,Equity,\n",
        {"500002||ABB India|A|Equity|0"});
  }
  void LayoutIsToldByItsHeadings() {
    const auto [csv, rows, date] = test::Table<QByteArray, QStringList, QString>::Row();
    PriceFile file;
    const MaybeRefusal refusal = Read(csv, file);
    QCOMPARE(refusal ? refusal->text : QString(), QString());
    QCOMPARE(RowsOf(file), rows);
    QCOMPARE(file.date ? text::FormatDmy(*file.date) : QString(), date);
  }

  void HighestPriceIsRead_data() {
    const test::Table<QByteArray, double> row;
    row("old Bombay file", kLegacy + "500325" + kRecord + "\r\n", 964);
    row("two records on one line", kLegacy + "500325" + kRecord + "500209" + kRecord + "XD\r\n",
        964);
    row("Bombay file of 2022",
        "SCRIP_CODE,SC_NAME,SC_GROUP,HIGH PRICE,CLOSING PRICE\n500325,RELIANCE,A,2.75,2.5\n", 2.75);
    row("common file", kUdiff + UdiffRow("BSE", "511260", "ICONIK", "X", "43.09"), 1208);
    row("National file", kNse + NseRow("RELIANCE", "EQ", "0.5"), 1);
    row("National file with deliveries",
        "SYMBOL, SERIES, DATE1, HIGH_PRICE, CLOSE_PRICE\nM&M, EQ, 31-Jan-2018, 766, 1\n", 766);
    row("not traded",
        "SYMBOL, SERIES, DATE1, HIGH_PRICE, CLOSE_PRICE\nM&M, EQ, 31-Jan-2018, -, 1\n", 0);
    row("the share, not its other series",
        kNse + "M&M,N1,1,900,1,1,1,1,10,10,05-JUL-2024,1,INE002A01018,\n" +
            NseRow("M&M", "EQ", "1") + "M&M,BE,1,950,1,1,1,1,10,10,05-JUL-2024,1,INE002A01018,\n",
        1);
    row("a row that stands twice",
        kNse + NseRow("M&M", "EQ", "1") + "M&M,EQ,1,2,1,1,1,1,10,10,05-JUL-2024,1,INE002A01018,\n",
        2);
  }
  void HighestPriceIsRead() {
    const auto [csv, high] = test::Table<QByteArray, double>::Row();
    PriceFile file;
    QVERIFY(!Read(csv, file));
    QVERIFY(file.has_highs);
    QCOMPARE(file.rows[0].high, high);
  }

  void SeriesTellsTheTypeAndTheIsinIsRead() {
    PriceFile file;
    QVERIFY(!Read(kNse + NseRow("RELIANCE", "EQ", "1") + NseRow("SGB", "GB", "2"), file));
    QCOMPARE(file.rows[0].series_type, std::string("EQUITY"));
    QCOMPARE(file.rows[0].isin, std::string("INE002A01018"));
    QCOMPARE(file.rows[1].series_type, std::string("BOND"));
    QVERIFY(!Read("Security Code,Security Name,Group,ISIN No,Instrument\n1,A,F,NA,-\n", file));
    QCOMPARE(file.rows[0].series_type, std::string("DEBENTURE"));
    QCOMPARE(file.rows[0].type + file.rows[0].isin, std::string());
  }

  void BadRowIsReportedByItsLine_data() {
    const test::Table<QByteArray, QString> row;
    row("rate below 0", kNse + NseRow("A", "EQ", "-1"), "Line 2: -1 is no rate.");
    row("no code", kNse + NseRow("", "EQ", "1"), "Line 2: there is no code.");
    row("day that is none", kNse + QByteArray(NseRow("A", "EQ", "1")).replace("05-JUL", "31-FEB"),
        "Line 2: 31-FEB-2024 is no date.");
    row("another day", kNse + NseRow("A", "EQ", "1") + NseRow("B", "EQ", "1").replace("05", "04"),
        "Line 3: the date is another than above.");
    row("one scrip, two rates", kNse + NseRow("A", "EQ", "1") + NseRow("A", "EQ", "2"),
        "Line 3: A stands in line 2 already, with another rate.");
    row("more values than headings", kLegacy + "500325" + kRecord + ",x,y,z\n",
        "Line 2: there are more values than headings.");
    row("both exchanges",
        kUdiff + UdiffRow("NSE", "1", "A", "EQ", "1") + UdiffRow("BSE", "2", "B", "X", "1"),
        "Line 3: the file holds two exchanges.");
    row("only another market", kUdiff + UdiffRow("NSE", "1", "A", "EQ", "1", "FO"),
        "The file holds no scrip.");
    row("unknown headings", "Code,Price\n1,2\n",
        "Expected are the columns SC_BCode, SC_NCode, SC_Name, SC_Class, SC_Type; or SC_Code, "
        "SC_Name, SC_Group, SC_Class, SC_Type, SC_Rate; or those of an exchange's daily price file "
        "or scrip list.");
  }
  void BadRowIsReportedByItsLine() {
    const auto [csv, line] = test::Table<QByteArray, QString>::Row();
    PriceFile file;
    const MaybeRefusal refusal = Read(csv, file);
    QCOMPARE(refusal ? refusal->text : QString(), QStringLiteral("Invalid File.\n") + line);
  }

  void PricesMustBeOfTheDay() {
    PriceFile file;
    QVERIFY(!Read(kNse + NseRow("A", "EQ", "1"), file));
    QVERIFY(!CheckPrices(file, *text::MakeDate(5, 7, 2024)));
    QCOMPARE(CheckPrices(file, *text::MakeDate(8, 7, 2024))->text,
             QStringLiteral("The file holds the prices of 05/07/2024, not of 08/07/2024."));
    QVERIFY(!Read("SC_BCode,SC_NCode,SC_Name,SC_Class,SC_Type\n1,ONE,First,A,Q\n", file));
    QCOMPARE(CheckPrices(file, *text::MakeDate(8, 7, 2024))->text,
             QStringLiteral("Invalid File.\nThe file holds no rates."));
  }

  void NameTellsTheDayThatTheFileDoesNotHold_data() {
    const test::Table<QString, QByteArray, QString> row;
    const QByteArray undated = kLegacy + "500325" + kRecord + "\r\n";
    row("with ISIN", "eq_isincode_050699 (1).csv", undated, "05/06/1999");
    row("no such day", "EQ310218.csv", undated, "");
    row("more digits", "EQ3101181.csv", undated, "");
    row("the file's own day counts", "EQ310118.csv",
        kUdiff + UdiffRow("BSE", "511260", "ICONIK", "X", "43.09"), "28/08/2026");
    row("a file of one's own", "EQ310118.csv",
        QByteArray("SC_Type,SC_Rate,SC_Code,SC_Name,SC_Group,SC_Class\nP,1,1,One,A,\n"), "");
  }
  void NameTellsTheDayThatTheFileDoesNotHold() {
    const auto [name, csv, date] = test::Table<QString, QByteArray, QString>::Row();
    const QTemporaryDir folder;
    const PriceFile file = *ReadPriceFile(test::WriteFile(folder.filePath(name), csv));
    QCOMPARE(file.date ? text::FormatDmy(*file.date) : QString(), date);
  }

  void CodeIsPreferredToSymbolAndSymbolToIsin() {
    const std::vector<ListedScrip> scrips{{.id = ScripId{1}, .code = "500"},
                                          {.id = ScripId{2}, .code = "9", .symbol = "ONE"},
                                          {.id = ScripId{3}, .code = "8", .isins = {"INE1"}}};
    const PriceFile file{.has_rates = true,
                         .rows = {{.code = "500", .symbol = "ONE", .isin = "INE1", .rate = 5},
                                  {.code = "7", .symbol = "ONE", .isin = "INE1", .rate = 6},
                                  {.code = "7", .symbol = "TWO", .isin = "INE1", .rate = 7}}};
    QCOMPARE(TextsOf(MatchRates(file, scrips).rates), QStringList({"1=5", "2=6", "3=7"}));
  }

  void RowsBelongToTheScripOfTheirCode_data() {
    const test::Table<int, QStringList, int> row;
    // Scrip 1 has the code 500 and the symbol ONE, scrip 2 the code ONE, scrip 3 the symbol one.
    row("Bombay", int(Exchange::kBse), QStringList({"1=5", "2=6"}), 1);
    row("National", int(Exchange::kNse), QStringList({"1=6", "3=6"}), 2);
    row("own", int(Exchange::kOwn), QStringList({"1=5", "2=6"}), 1);
  }
  void RowsBelongToTheScripOfTheirCode() {
    const auto [exchange, rates, unmatched] = test::Table<int, QStringList, int>::Row();
    PriceFile file{.exchange = Exchange{exchange}, .has_rates = true};
    for (const auto& [code, rate] : {std::pair{"500", 5.0}, {"one ", 6.0}, {"OTHER", 7.0}}) {
      PriceRow row{.rate = rate};
      (file.exchange == Exchange::kNse ? row.symbol : row.code) = code;
      file.rows.push_back(row);
    }
    const std::vector<ListedScrip> scrips{{.id = ScripId{1}, .code = "500", .symbol = "ONE"},
                                          {.id = ScripId{2}, .code = "ONE"},
                                          {.id = ScripId{3}, .code = "9", .symbol = "one"}};
    const MatchedRates matched = MatchRates(file, scrips);
    QStringList found = TextsOf(matched.rates);
    found.sort();
    QCOMPARE(found, rates);
    QCOMPARE(static_cast<int>(matched.unmatched.size()), unmatched);
    QCOMPARE(matched.matched + matched.unmatched.size(), std::size_t{3});
  }
};

static const test::RegisterTest<PriceFileTest> kRegistered;
#include "PriceFileTest.moc"
