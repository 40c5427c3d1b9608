#include "core/files/TableReaders.h"
#include "core/text/Amounts.h"
#include "portfolio/reconcile/StatementLines.h"
#include "support/Test.h"

using namespace quorvane;
using namespace quorvane::reconcile;

namespace {

QString Utf8(const std::string& text) {
  return QString::fromStdString(text);
}

/// "account isin quantity" a row, then the doubts, the day and the rows of folios.
QString Told(const Statement& statement) {
  QStringList told;
  for (const StatedHolding& one : statement.holdings) {
    told << QStringList{Utf8(one.account), Utf8(one.isin), text::NumberText(one.quantity.Number())}
                .join(QLatin1Char(' '));
  }
  for (const Doubt& doubt : statement.doubts) {
    told << QStringLiteral("doubt ") + Utf8(doubt.text).section(QLatin1Char(':'), 0, 0);
  }
  told << (statement.day ? text::FormatDmy(*statement.day) : QStringLiteral("no day"));
  if (statement.folio_rows > 0) {
    told << QStringLiteral("folios %1").arg(static_cast<qulonglong>(statement.folio_rows));
  }
  if (!statement.no_holdings.empty()) {
    told << Utf8(statement.no_holdings);
  }
  return told.join(QLatin1Char('|'));
}

constexpr const char* kNsdl = R"(
Your NSDL Consolidated Account Statement for the period from 01-Jun-2026 to 30-Jun-2026
Your demat accounts
NSDL Demat Account   NIDHI SECURITIES   DP ID:IN399901 Client ID:10000001   3   12,34,567.89
Holdings as on 30-Jun-2026
NIDHI SECURITIES LIMITED
DP ID: IN399901   Client ID: 10000001
Equities (E)
ISIN            Company Name                 Face Value   No. of    Market Price   Value
Stock Symbol                                 in ₹         Shares    in ₹           in ₹
INE999A01015    ZINC ALLOYS LIMITED          2.00         550       1,375.20       7,56,360.00
ZINCALLOYS.NSE
INE999B01021    3B BLACK 50                  10.00        1,200     10.05          12,060.00
NOT LISTED      CASTINGS RE2/-
INE999E01058    UNPRICED PAPERS LTD          1.00         .196      --             --
Sub Total                                                                          7,68,420.00
Mutual Funds (M)
ISIN            Description                               No. of Units   NAV       Value
INF999D01042    LOTUS GOLD BEES                           10.500         50.00     525.00
Mutual Fund Folios (F)
ISIN            ISIN Description   Folio No   No. of Units   Average Cost   Total Cost   Current NAV   Current Value
INF999D01042    LOTUS GROWTH       77889      100.000        10.00          1,000.00     12.00         1,200.00
INF999D01042    LOTUS GROWTH       77890      50.000         10.00          500.00       12.00         600.00
Transactions for the period 01-Jun-2026 to 30-Jun-2026
ISIN : INE999A01015 - ZINC ALLOYS LIMITED
05-Jun-2026   Opening Balance   500   50   550
)";

constexpr const char* kCdslInNsdl = R"(
Holdings as on 30-Jun-2026
CDSL Demat Account
DP ID: 12999900   Client ID: 00000012
                                        Current Bal.   Safekeep Bal.      Pledged Bal.     Market    Value
ISIN            Security                Free Bal.      Locked In Bal.     Earmarked Bal.   Price     in ₹
                                        Lent Bal.      Pledge Setup Bal.  Pledgee Bal.     in ₹
INE999C01037    COPPER WIRES            93.000         0.000              0.000            342.95    31,894.35
                POWER LIMITED #EQUITY   93.000         0.000              0.000
                SHARES                  0.000          0.000              0.000
INE999B01021    BLACK CASTINGS          40.000         0.000              15.000           10.05     402.00
                LIMITED                 25.000         0.000              15.000
                                        0.000          0.000              0.000
)";

constexpr const char* kCdsl = R"(
Central Depository Services (India) Limited
HOLDING STATEMENT AS ON 31-05-2026
DP Name : NIDHI SECURITIES LTD   BO ID : 1299990000000012
ISIN           Security                                   Current   Frozen  Pledge  Pledge  Free     Price      Value
                                                          Bal.      Bal.    Bal.    Setup   Bal.     ₹          ₹
INE999A01015 @ ZINC ALLOYS LIMITED#EQUITY SHARES          10.000    --      4.000   --      6.000    2,950.25   29,502.50
INE99­9B01021    BLACK CASTINGS LIMITED#NEW EQUITY
               SHARES WITH FACE VALUE RS 10               1,20 ,000.000 --  --      --      1,20,000.000 1.00 1,20,000.00
IN0020990100   2.50% GOLD BONDS 2031                      4.000     --      --      --      4.000    9,000.00   36,000.00
INE999E01058   NOTHING LEFT LTD                           0.000     --      --      --      0.000    5.00       0.00
INE999E01059   MISPRINTED LTD                             7.000     --      --      --      7.000    5.00       35.00
STATEMENT OF TRANSACTIONS FOR THE PERIOD FROM 01-05-2026 TO 31-05-2026
ISIN           Security   Particulars   Date         Op. Bal   Credit   Debit   Cl. Bal
INE999A01015   ZINC       ON-CR         04-05-2026   0.000     10.000   0.000   10.000
)";

constexpr const char* kParticipant = R"(
Statement of Holding As On Date 30/06/2026
BO ID : 1299990000000012   Name : A CLIENT
ISIN Code      Company Name            Curr. Bal   Free Bal   Pldg. Bal   Earmark Bal   Demat   Remat   Lockin   Rate     Value
INE999A01015   ZINC ALLOYS RE2/-       350.000     350.000    0.000       0.000         0.000   0.000   0.000    265.10   92785.00
INE999B01021   BLACK CAST RE1/-        20.000      5.000      15.000      0.000         0.000   0.000   0.000    0.000    0.00
INE999C01037   COPPER WIRES            12.000      12.000     0.000       0.000         0.000   0.000   0.000    99.00    495.00
)";

}  // namespace

class StatementLinesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void EachLayoutIsRead_data() {
    const test::Table<QString, QString> row;
    row("NSDL", kNsdl,
        "IN39990110000001 INE999A01015 550|IN39990110000001 INE999B01021 1200|IN39990110000001 "
        "INE999E01058 0.196|IN39990110000001 INF999D01042 10.5|30/06/2026|folios 2");
    row("CDSL account in NSDL's, three lines a row", kCdslInNsdl,
        "1299990000000012 INE999C01037 93|1299990000000012 INE999B01021 40|30/06/2026");
    row("CDSL", kCdsl,
        "1299990000000012 INE999A01015 10|1299990000000012 INE999B01021 "
        "120000|1299990000000012 IN0020990100 4|1299990000000012 INE999E01058 0|doubt line "
        "12|31/05/2026");
    row("participant; the rate may be the last movement's", kParticipant,
        "1299990000000012 INE999A01015 350|1299990000000012 INE999B01021 20|1299990000000012 "
        "INE999C01037 12|30/06/2026");
    row("free and pledged are added",
        "Holdings as on 30 June 2026\nISIN           Name    Free Qty   Pledged Qty   Rate   "
        "Value\nINE999A01015   ZINC    5.000      15.000        10.00  200.00",
        " INE999A01015 20|30/06/2026");
    row("numbers whose sum is none",
        "Holdings as on 30 June 2026\nISIN           Name    Free Qty             Pledged Qty\n"
        "INE999A01015   ZINC    9000000000000.000    9000000000000.000",
        "doubt line 3|30/06/2026");
    row("whole quantity at the end",
        "Holdings as on 30.06.2026\nISIN           Name    Free Qty   Pledged Qty   Tot "
        "Qty\nINE999A01015   ZINC    5.000      15.000        21.000",
        " INE999A01015 21|30/06/2026");
    row("rows of one security are added up",
        "Holdings as of June 30, 2026\nISIN           Name    Balance\nINE999A01015   ZINC    "
        "5\nINE999A01015   ZINC    6",
        " INE999A01015 11|30/06/2026");
    row("letters printed twice, Hindi between",
        "HHoollddiinnggss  aass  oonn 2026-06-30\nSSttaatteemmeenntt  ffoorr  cclliieennttss\nISIN "
        "          Name    Balance\nINE999A01015   ज़िंक ZINC    5",
        " INE999A01015 5|30/06/2026");
    row("no headings: the one number that times the price is the value",
        "INE999A01015   ZINC 10   7.00   12   10.00   120.00", " INE999A01015 12|no day");
    row("numbers that nothing explains",
        "INE999A01015   ZINC   7.00   12   11.00   120.00\nINE999B01021 BLACK\nTotal\nPage\nEnd",
        "doubt line 1|doubt line 2|no day");
    row("another report", "CLIENT MARGIN STATEMENT\nINE999A01015   ZINC   12",
        " INE999A01015 12|no day|MARGIN STATEMENT");
  }
  void EachLayoutIsRead() {
    const auto [text, told] = test::Table<QString, QString>::Row();
    QCOMPARE(Told(ReadStatementLines(paper::LinesOf(text.toStdString()))), told);
  }

  void NamesAndSymbolsAreKept() {
    const Statement nsdl = ReadStatementLines(paper::LinesOf(std::string_view(kNsdl)));
    QCOMPARE(nsdl.holdings[0].symbol, std::string("ZINCALLOYS"));
    QCOMPARE(nsdl.holdings[1].name, std::string("3B BLACK 50 CASTINGS RE2/-"));
    const Statement cdsl = ReadStatementLines(paper::LinesOf(std::string_view(kCdslInNsdl)));
    QCOMPARE(cdsl.holdings[0].name, std::string("COPPER WIRES POWER LIMITED #EQUITY SHARES"));
  }

  void TablesAreRead_data() {
    const test::Table<QString, QString> row;
    row("CDSL",
        "DP ID:12999900\nClient ID:00000012\nName:A CLIENT\nDP Name:NIDHI\n\n\nDate: "
        "21/10/2025\n\n\nISIN,ISIN Name,Balance ,Last Closing Price ,Value,Paid Up "
        "Value\nINE999A01015,ZINC 10,12.000,10.00,120.00,24.00\nINE999B01021,BLACK,5,0,0,5\nTotal,"
        ",,,120.00,\n",
        "1299990000000012 INE999A01015 12|1299990000000012 INE999B01021 5|21/10/2025");
    row("NSDL",
        "SOH as on 21-Oct-2025 at 15:59:24\nDP ID,IN399901,Client ID,10000001\nSr. "
        "No.,ISIN,Security Name,Total Quantity,Free Quantity\n1,INE999A01015,ZINC,30,10\n",
        "IN39990110000001 INE999A01015 30|21/10/2025");
    row("a quantity that is none", "ISIN,Name,Qty\nINE999A01015,ZINC,twelve\n",
        "doubt line 2|no day");
  }
  void TablesAreRead() {
    const auto [text, told] = test::Table<QString, QString>::Row();
    QCOMPARE(Told(ReadStatementTable(files::ReadCsvText(text.toStdString()))), told);
  }

  void TableWithoutHeadingsIsRefused() {
    const auto table = files::ReadCsvText("Date,Amount\n1,2\n");
    QVERIFY_THROWS_EXCEPTION(files::TableError, static_cast<void>(ReadStatementTable(table)));
  }
};

static const test::RegisterTest<StatementLinesTest> kRegistered;
#include "StatementLinesTest.moc"
