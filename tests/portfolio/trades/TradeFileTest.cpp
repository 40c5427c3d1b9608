#include "core/files/TableFile.h"
#include "core/text/Amounts.h"
#include "portfolio/trades/TradeFile.h"
#include "support/Files.h"
#include "support/Test.h"

using namespace quorvane;
using namespace quorvane::portfolio;
using test::Table;

namespace {

const QString kShipped = QStringLiteral(QUORVANE_SOURCE_DIR "/data/shipped/trades");
const QString kSamples = QStringLiteral(QUORVANE_SOURCE_DIR "/tests/portfolio/trades/samples/");
const text::Date kToday = *text::MakeDate(26, 11, 2026);

QString NumberOr(const std::optional<double>& number) {
  return number ? text::NumberText(*number) : QStringLiteral("-");
}

/// "23/07/2024 NSE P 50@530 ZINCALLOY": a trade without its numbers and charges.
QString Short(const TradeFile& file, const Trade& trade) {
  return QStringLiteral("%1 %2 %3 %4@%5 %6")
      .arg(text::FormatDmy(trade.day), QString::fromStdString(file.exchanges[trade.exchange]),
           trade.side == records::Side::kPurchase ? QStringLiteral("P") : QStringLiteral("S"),
           text::NumberText(trade.quantity.Number()), text::NumberText(trade.rate),
           QString::fromStdString(file.scrips[trade.scrip].Shown()));
}

/// "order/trade brokerage tax stt fees others brokerage-with-tax sum-of-taxes".
QString Rest(const Trade& trade) {
  const TradeCharges& charges = trade.charges;
  QStringList parts{QString::fromStdString(trade.order_number + "/" + trade.trade_number)};
  for (const auto& charge : {charges.brokerage, charges.tax, charges.stt, charges.exchange_fee,
                             charges.others, charges.taxed_brokerage, charges.taxes}) {
    parts << NumberOr(charge);
  }
  return parts.join(QLatin1Char(' '));
}

struct ReadTrades {
  QString layout;
  QStringList trades;
  QStringList rests;
  QStringList errors;
  TradeFile file;
};

ReadTrades ReadBytes(const QByteArray& bytes, const std::string& account = {}) {
  const QTemporaryDir folder;
  const QString path = test::WriteFile(folder.filePath("trades.csv"), bytes);
  const files::TextTable table = files::ReadTableFile(path);
  const auto header = FindHeader(table, ReadTradeLayouts(kShipped));
  ReadTrades read;
  if (!header) {
    read.layout = QStringLiteral("none");
    return read;
  }
  ErrorList errors;
  Progress silent;
  read.layout = header->layout;
  read.file = TradesIn(table, *header, {path, "NSE", account, kToday}, errors, silent);
  for (const Trade& trade : read.file.trades) {
    read.trades << Short(read.file, trade);
    read.rests << Rest(trade);
  }
  for (const ImportError& error : errors.Take()) {
    read.errors << QString::fromStdString(error.Text());
  }
  if (EndsWithinRow(path, table, *header)) {
    read.errors << QStringLiteral("cut");
  }
  return read;
}

}  // namespace

/// What the files of brokers hold is understood as the brokers mean it.
class TradeFileTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void LayoutIsKnownByItsHeadingsAndReadAsMeant_data() {
    const Table<const char*, const char*, QStringList, QStringList> row;
    row("Zerodha", "zerodha.csv", "Zerodha trade book",
        {"23/07/2024 NSE P 50@530 ZINCALLOY", "23/07/2024 NSE P 50@530 ZINCALLOY",
         "23/07/2024 BSE S 10@1234.55 ALUMCAST"},
        {"O1/T1 - - - - - - -", "O1/T2 - - - - - - -", "O2/T3 - - - - - - -"});
    row("Zerodha, older", "zerodha-older.csv", "Zerodha trade book",
        {"01/03/2019 NSE P 5@99.95 ZINCALLOY"}, {"1100000000000001/25000001 - - - - - - -"});
    row("Zerodha, below a banner and with days as numbers", "zerodha-workbook.csv",
        "Zerodha trade book", {"01/04/2026 NSE P 3@101.5 ZINCALLOY"}, {"8/9 - - - - - - -"});
    // The rate is the value's; what the broker takes in all has the other columns in it.
    row("ICICI Direct", "icici-direct.csv", "ICICI Direct trade book",
        {"03/09/2021 NSE S 100@688.523 ZINALL", "17/12/2025 NSE P 10@700 ZINALL"},
        {"20210903N9/ - - 69 1.24 0 203.3392 -", "20251217N1/ - - 7 0.21 1 20.6 -"});
    row("ICICI Direct, portfolio", "icici-portfolio.csv", "ICICI Direct portfolio transactions",
        {"11/07/2017 BSE P 1@13647.95 ZINC ALLOYS LIMITED"}, {"/ - - - 0.4 0 120.86 -"});
    // The last row has an order's brokerage.
    row("Angel One", "angel-one.csv", "Angel One trades history",
        {"27/08/2026 NSE P 10@100 ZINC ALLOYS LTD", "28/08/2026 NSE S 4@102.5 ZINC ALLOYS LTD"},
        {"1001/501 1 0.18 1 0.04 0.15 - -", "1002/502 20 3.6 0 0.03 0.01 - -"});
    row("Upstox", "upstox.csv", "Upstox trade report",
        {"05/08/2026 BSE P 10@1234.5 ZINC ALLOYS LTD", "05/08/2026 NSE S 5@100 ALUM CASTINGS LTD"},
        {"/77001 - - - - - - -", "/77002 - - - - - - -"});
    row("Groww, without prices", "groww.csv", "Groww order history",
        {"07/05/2026 NSE P 30@101.67 ZINC ALLOYS LTD"}, {"1300000000000001/ - - - - - - -"});
    // A row of both sides; its tax is the sale's, because nothing was delivered.
    row("Dhan", "dhan.csv", "Dhan global transaction report",
        {"03/07/2026 NSE P 1000@577.0955 Zinc Alloys", "03/07/2026 NSE S 1000@571.2342 Zinc Alloys",
         "04/07/2026 BSE P 10@100 Alum Castings"},
        {});
    row("Dhan, older", "dhan-older.csv", "Dhan trade history",
        {"15/01/2024 NSE P 7@10.05 Zinc Alloys"}, {"/ - - - - - - -"});
    row("Fyers", "fyers.csv", "Fyers trade book", {"05/08/2026 NSE P 30@340.35 ZINC ALLOYS LIMI"},
        {"1300000000000011/ - - - - - - -"});
    row("Fyers, older", "fyers-older.csv", "Fyers trade book (older)",
        {"05/08/2022 NSE S 3@11.1 ZINC ALLOYS LTD"}, {"5001/ - - - - - - -"});
    row("Kotak", "kotak.csv", "Kotak transaction statement",
        {"01/02/2025 NSE P 12@50.25 ZINC ALLOYS LTD"}, {"/ 5 0.9 1 - 0.05 - -"});
    row("Sharekhan", "sharekhan.csv", "Sharekhan trade listing",
        {"14/11/2024 NSE P 20@200 ZINCALLOY"}, {"/ 10 1.8 4 0.16 0.6 - -"});
    row("5paisa", "5paisa.csv", "5paisa equity transaction report",
        {"19/08/2026 BSE S 65@324.25 Zinc Alloys"}, {"/ 20 - - - - - 25.64"});
    row("Paytm Money", "paytm-money.csv", "Paytm Money trade book",
        {"19/08/2026 NSE P 10@100 ZINC ALLOYS LTD"}, {"42/ 2.5 0.46 1 0.04 0.15 - -"});
  }
  void LayoutIsKnownByItsHeadingsAndReadAsMeant() {
    const auto [file, layout, trades, rests] =
        Table<const char*, const char*, QStringList, QStringList>::Row();
    const ReadTrades read = ReadBytes(test::ReadFile(kSamples + QLatin1String(file)));
    QCOMPARE(read.layout, QLatin1String(layout));
    QCOMPARE(read.errors, QStringList());
    QCOMPARE(read.trades, trades);
    if (!rests.isEmpty()) {
      QCOMPARE(read.rests, rests);
    }
  }

  void RowOfBothSidesSharesItsCharges() {
    const ReadTrades read = ReadBytes(test::ReadFile(kSamples + "dhan.csv"));
    const TradeCharges& bought = read.file.trades[0].charges;
    const TradeCharges& sold = read.file.trades[1].charges;
    QCOMPARE(*bought.stt, 0.0);
    QCOMPARE(*sold.stt, 143.96);
    QCOMPARE(text::RoundAmount(*bought.brokerage + *sold.brokerage), 40.0);
    QCOMPARE(*bought.brokerage, 20.1);
    QCOMPARE(QString::fromStdString(read.file.trades[0].bill_number), "9146158");
  }

  void WhatIsNoTradeIsLeftOutAndCounted() {
    QCOMPARE(ReadBytes(test::ReadFile(kSamples + "zerodha.csv")).file.derivatives, std::size_t{1});
    QCOMPARE(ReadBytes(test::ReadFile(kSamples + "dhan-older.csv")).file.other_rows,
             std::size_t{1});
    QVERIFY(ReadBytes(test::ReadFile(kSamples + "zerodha-workbook.csv"))
                .file.trades.front()
                .trade_for_trade);
  }

  void BadRowIsToldByFileLineAndColumn_data() {
    const Table<QByteArray, QStringList> row;
    const QByteArray head =
        "symbol,isin,trade_date,exchange,trade_type,quantity,price,trade_id,order_id\n";
    row("no day", head + "A,,31-02-2024,NSE,buy,1,2,T,O\n",
        {"trades.csv, line 2, column Date: expected a date, found \"31-02-2024\""});
    row("tomorrow", head + "A,,2026-11-27,NSE,buy,1,2,T,O\n",
        {"trades.csv, line 2, column Date: expected a date up to today, found \"2026-11-27\""});
    row("neither side", head + "A,,2024-01-02,NSE,hold,1,2,T,O\n",
        {"trades.csv, line 2, column Purchase or Sale: expected buy or sell, found \"hold\""});
    row("no quantity", head + "A,,2024-01-02,NSE,buy,x,2,T,O\n",
        {"trades.csv, line 2, column Quantity: expected a number of shares, found \"x\""});
    row("price of nothing", head + "A,,2024-01-02,NSE,buy,1,0,T,O\n",
        {"trades.csv, line 2, column Price: expected a price above 0, found \"0\""});
    row("no scrip", head + ",,2024-01-02,NSE,buy,1,2,T,O\n",
        {"trades.csv, line 2, column ISIN: expected what names the scrip, found \"\""});
    row("a name of a thousand letters",
        head + QByteArray(1000, 'A') + ",,2024-01-02,NSE,buy,1,2,T,O\n",
        {"trades.csv, line 2, column Symbol (NSE): expected names and numbers of at most 90 "
         "letters, found \"" +
         QString(80, 'A') + "...\""});
    row("cut within a row", head + "A,,2024-01-02,NSE,buy,1,2,T,O\nB,,2024-01-0", {"cut"});
    row("cut after the price", head + "A,,2024-01-02,NSE,buy,1,2,T,O\nB,,2024-01-02,NSE,buy,1,2",
        {"cut"});
    row("numbers that are missing in the last row",
        head + "A,,2024-01-02,NSE,buy,1,2,T,O\nB,,2024-01-02,NSE,buy,1,2,,", {});
    row("foot of the page without a line end",
        head + "A,,2024-01-02,NSE,buy,1,2,T,O\nThis report is no contract note.", {});
    row("another account",
        "Date,Stock,Action,Qty,Price,Trade Value,Order Ref.,DP Id - Client DP Id,Exchange,STT,"
        "Transaction and SEBI Turnover charges,Stamp Duty,Brokerage incl. taxes\n"
        "03-Sep-2021,Z,Buy,1,2,2,O,IN300000-10000002,NSE,0,0,0,0\n",
        {"trades.csv, line 2, column Demat Account: expected the account 10000001, found "
         "\"IN300000-10000002\""});
  }
  void BadRowIsToldByFileLineAndColumn() {
    const auto [bytes, errors] = Table<QByteArray, QStringList>::Row();
    QCOMPARE(ReadBytes(bytes, "10000001").errors, errors);
  }

  void CellIsReadAsBrokersWriteIt_data() {
    const Table<const char*, const char*> row;
    row("with the year first", "2024-07-23T12:20:42", "23/07/2024 44442");
    row("month named", "03-Sep-2021", "03/09/2021 -1");
    row("month first", "Aug 19 2026", "19/08/2026 -1");
    row("two digits of a year", "17-Dec-25", "17/12/2025 -1");
    row("afternoon", "07-05-2026 02:15 PM", "07/05/2026 51300");
    row("after midnight", "05 Aug 2026, 12:05:00 AM", "05/08/2026 300");
    row("of a workbook", "46113.5", "01/04/2026 43200");
    row("cut time", "2024-07-23T12", "none");
    row("no day of the year", "31/04/2026", "none");
    row("number", "12", "none");
  }
  void CellIsReadAsBrokersWriteIt() {
    const auto [cell, expected] = Table<const char*, const char*>::Row();
    const auto moment = MomentIn(cell, DayOrder::kDayFirst);
    QCOMPARE(moment ? text::FormatDmy(moment->day) + QStringLiteral(" %1").arg(moment->seconds)
                    : QStringLiteral("none"),
             QLatin1String(expected));
  }

  void NumberIsReadAsBrokersWriteIt_data() {
    const Table<const char*, const char*> row;
    row("Indian commas", "2,95,75,194", "29575194");
    row("sign of rupees", "₹ 1,234.50", "1234.5");
    row("blank within", "2,81 ,590.53", "281590.53");
    row("brackets", "(20419.25)", "-20419.25");
    row("no figure before the point", ".196", "0.196");
    row("none", "--", "0");
    row("empty", "", "-");
    row("text", "12 shares", "-");
  }
  void NumberIsReadAsBrokersWriteIt() {
    const auto [cell, expected] = Table<const char*, const char*>::Row();
    QCOMPARE(NumberOr(NumberIn(cell)), QLatin1String(expected));
  }

  void OrderNumberWhoseDigitsAreLostIsNone() {
    QCOMPARE(NumberWord("=\"1300000000000011\""), std::string("1300000000000011"));
    QCOMPARE(NumberWord("1.3E+15"), std::string());
    QCOMPARE(NumberWord("0"), std::string());
  }

  void UnknownHeaderIsGuessed() {
    const files::TextTable table{
        {{1, {"Some broker"}}, {2, {"Trade Date", "Scrip Name", "B or S", "Quantity", "Price"}}}};
    const auto layouts = ReadTradeLayouts(kShipped);
    QVERIFY(!FindHeader(table, layouts));
    const auto guess = GuessHeader(table, layouts);
    QCOMPARE(guess->row, std::size_t{1});
    QCOMPARE(QString::fromStdString(guess->map.Text()), "date=0;quantity=3;price=4;name=1");
    QCOMPARE(*WhatIsMissing(guess->map), "Purchase or Sale");
    QCOMPARE(ColumnMap::Parse(guess->map.Text())->Text(), guess->map.Text());
  }
};

static const test::RegisterTest<TradeFileTest> kRegistered;
#include "TradeFileTest.moc"
