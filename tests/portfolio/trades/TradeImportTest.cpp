#include "core/lookups/Directory.h"
#include "portfolio/trades/TradeBook.h"
#include "support/DatabaseTest.h"
#include "support/Files.h"
#include "support/StopAfter.h"

#include <QTemporaryDir>

using namespace quorvane;
using namespace quorvane::portfolio;
using test::Table;

namespace {

const QString kData = QStringLiteral(QUORVANE_SOURCE_DIR "/data/shipped");
const QByteArray kHead =
    "symbol,isin,trade_date,exchange,segment,series,trade_type,auction,quantity,price,trade_id,"
    "order_id,order_execution_time\n";

/// "2024-07-23 09:15 buy 50 530 T1 O1": a row of the trade book; a last word is the series.
QByteArray RowOf(const QByteArray& text) {
  const QByteArrayList words = text.split(' ');
  const QByteArray series = words.size() > 7 ? words[7] : QByteArray("EQ");
  return "RELIANCE,INE002A01018," + words[0] + ",NSE,EQ," + series + "," + words[2] + ",false," +
         words[3] + "," + words[4] + "," + words[5] + "," + words[6] + "," + words[0] + "T" +
         words[1] + ":00\n";
}

QByteArray Book(const QByteArrayList& rows) {
  QByteArray bytes = kHead;
  for (const QByteArray& row : rows) {
    bytes += RowOf(row);
  }
  return bytes;
}

QString LineText(const TradeLine& line) {
  return QStringLiteral("%1 %2 %3@%4 %5 %6")
      .arg(text::FormatDmy(line.day).left(5),
           line.side == records::Side::kPurchase ? QStringLiteral("P") : QStringLiteral("S"),
           text::NumberText(line.quantity.Number()), text::NumberText(line.rate),
           line.non_delivery ? QStringLiteral("intraday") : QStringLiteral("delivery"),
           TextOf(line.state));
}

QStringList Texts(const TradePlan& plan) {
  QStringList texts;
  for (const TradeLine& line : plan.Lines()) {
    texts << LineText(line);
  }
  return texts;
}

}  // namespace

/// Trades become bills, each once.
class TradeImportTest : public test::DeskTest {
  Q_OBJECT

  TradeTarget Target() {
    return *TradeBook(desk_->Connection(), kData).TargetOf(desk_->account, desk_->broker);
  }

  TradePlan Plan(const QByteArray& bytes, TradePlan::Fills fills = TradePlan::Fills::kJoined) {
    const QTemporaryDir folder;
    const TradeBook book(desk_->Connection(), kData);
    const OpenedTrades opened = book.Open(test::WriteFile(folder.filePath("book.csv"), bytes));
    const TradeOptions options{fills, "NSE", *text::MakeDate(26, 11, 2026)};
    Progress silent;
    auto file = book.Read({&opened, 1}, Target(), options, silent);
    if (!file) {
      throw std::runtime_error(file.Why().text.toStdString());
    }
    return book.Plan(std::move(*file), Target(), options, silent);
  }

  Result<TradeOutcome> Save(TradePlan& plan) {
    Progress silent;
    return SaveTrades(desk_->Connection(), Target(), plan, {}, silent);
  }

  QString SaveText(const QByteArray& bytes) {
    TradePlan plan = Plan(bytes);
    const auto saved = Save(plan);
    return saved ? QStringLiteral("%1 trades").arg(saved->trades) : saved.Why().text;
  }

  QStringList BillLines() {
    return test::Rows(desk_->Connection(),
                      "Select M.BDate,M.BillNo,L.SP,L.Qty,L.Rate,L.DelvType From SPMaster M Join "
                      "SPTrans L On L.SID=M.ID Order By M.ID,L.Id");
  }

 private Q_SLOTS:
  void init() {
    desk_->Empty();
    test::Empty(desk_->Connection(), {"TransTaxPer"});
    for (const char* table : {"TradeKey", "ImportProfile", "ScripIsin"}) {
      desk_->Connection().Execute(std::string("Delete From ") + table);
    }
    desk_->Connection().Execute("Update Script Set NCode=Name");
  }

  void LinesFollowFromTheTrades_data() {
    const Table<QByteArrayList, TradePlan::Fills, QStringList> row;
    using enum TradePlan::Fills;
    row("fills of an order at one price",
        {"2024-07-23 09:15 buy 50 530 T1 O1", "2024-07-23 09:16 buy 50 530 T2 O1"}, kJoined,
        {"23/07 P 100@530 delivery New"});
    row("fills of an order at the average",
        {"2024-07-23 09:15 buy 10 100 T1 O1", "2024-07-23 09:16 buy 30 101 T2 O1"}, kJoined,
        {"23/07 P 40@100.75 delivery New"});
    row("fills that are kept",
        {"2024-07-23 09:15 buy 50 530 T1 O1", "2024-07-23 09:16 buy 50 530 T2 O1"}, kKept,
        {"23/07 P 50@530 delivery New", "23/07 P 50@530 delivery New"});
    row("the same trade twice",
        {"2024-07-23 09:15 buy 50 530 T1 O1", "2024-07-23 09:15 buy 50 530 T1 O1"}, kKept,
        {"23/07 P 50@530 delivery New", "23/07 P 50@530 delivery Taken In Already"});
    row("bought and sold on one day",
        {"2024-07-23 09:15 buy 10 100 T1 O1", "2024-07-23 10:15 buy 10 101 T2 O2",
         "2024-07-23 11:15 sell 15 102 T3 O3", "2024-07-24 11:15 sell 2 103 T4 O4"},
        kJoined,
        {"23/07 P 10@100 intraday New", "23/07 P 5@101 intraday New", "23/07 P 5@101 delivery New",
         "23/07 S 15@102 intraday New", "24/07 S 2@103 delivery New"});
    row("sold first", {"2024-07-23 09:15 sell 10 100 T1 O1", "2024-07-23 10:15 buy 4 101 T2 O2"},
        kJoined,
        {"23/07 S 4@100 intraday New", "23/07 S 6@100 delivery New", "23/07 P 4@101 intraday New"});
    row("delivered trade by trade",
        {"2024-07-23 09:15 buy 10 100 T1 O1 BE", "2024-07-23 10:15 sell 10 101 T2 O2 BE"}, kJoined,
        {"23/07 P 10@100 delivery New", "23/07 S 10@101 delivery New"});
  }
  void LinesFollowFromTheTrades() {
    const auto [rows, fills, lines] = Table<QByteArrayList, TradePlan::Fills, QStringList>::Row();
    QCOMPARE(Texts(Plan(Book(rows), fills)), lines);
  }

  // 100,000 rupees: 100 of tax on delivery, 25 on the sale of the day, in whole rupees a bill.
  void ChargesAreProposedWhereTheFileTellsNone() {
    const TradePlan plan =
        Plan(Book({"2024-07-23 09:15 buy 200 500 T1 O1", "2024-07-23 10:15 sell 100 501.5 T2 O2"}));
    QCOMPARE(plan.Lines().size(), std::size_t{3});
    double stt = 0;
    for (const TradeLine& line : plan.Lines()) {
      stt += line.charges.stt;
    }
    QCOMPARE(text::RoundAmount(stt), 63.0);  // 0 + 50 + 12.54
    QCOMPARE(plan.Lines()[0].charges.stt, 0.0);
    QCOMPARE(plan.Lines()[1].charges.brokerage, 0.0);
    QCOMPARE(plan.Lines()[1].charges.others, 7.5);
    QCOMPARE(text::Tidy(plan.Lines()[1].charges.exchange_fee), 1.72);
    QCOMPARE(plan.Lines()[1].charges.tax, 0.31);
  }

  void TheYearsPercentagesComeBeforeTheLaw() {
    desk_->Connection().Execute(
        "Insert Into TransTaxPer Values(1,'2024-25','Brokerage Delivery Based',0.5,''),"
        "(2,'2024-25','STT Delivery Based',0.2,'')");
    const TradePlan plan = Plan(Book({"2024-07-23 09:15 buy 100 500 T1 O1"}));
    QCOMPARE(plan.Lines()[0].charges.brokerage, 250.0);
    QCOMPARE(plan.Lines()[0].charges.stt, 100.0);
  }

  // 0.25 per cent of 68,852.30 is 172.13; with 1.24 it is taxed by 18 per cent.
  void AllInBrokerageIsTakenApart() {
    const TradePlan plan = Plan(test::ReadFile(
        QStringLiteral(QUORVANE_SOURCE_DIR "/tests/portfolio/trades/samples/icici-portfolio.csv")));
    QCOMPARE(text::RoundAmount(plan.Lines()[0].charges.brokerage), 102.36);
    QCOMPARE(text::RoundAmount(plan.Lines()[0].charges.tax), 18.5);
    QCOMPARE(plan.Lines()[0].charges.exchange_fee, 0.4);
  }

  void EachTradeIsTakenInOnce() {
    const QByteArrayList rows{"2024-07-23 09:15 buy 50 530 T1 O1",
                              "2024-07-23 09:15 buy 50 530 T2 O1",
                              "2024-08-01 10:00 sell 30 540 T3 O2"};
    QCOMPARE(SaveText(Book(rows)), "3 trades");
    const QStringList lines{"23/07/2024|NSE-20240723|1|100|530|Delivery Based",
                            "01/08/2024|NSE-20240801|0|30|540|Delivery Based"};
    QCOMPARE(BillLines(), lines);
    QCOMPARE(
        desk_->LotAt({desk_->client, text::FinancialYear(2024)}, desk_->account, desk_->scrip, 530),
        "70@530");
    QCOMPARE(SaveText(Book(rows)), "There is nothing new to save.");
    const QByteArrayList grown = rows + QByteArrayList{"2024-08-01 10:00 sell 30 540 T4 O3"};
    QCOMPARE(SaveText(Book(grown)), "1 trades");
    QCOMPARE(BillLines().mid(2), QStringList("01/08/2024|NSE-20240801-2|0|30|540|Delivery Based"));
    QCOMPARE(test::Rows(desk_->Connection(), "Select Isin From ScripIsin"),
             QStringList("INE002A01018"));
    // A bill that is gone lets its trades come in again.
    desk_->Connection().Execute(
        "Delete M,L From SPMaster M Join SPTrans L On L.SID=M.ID Where "
        "M.BillNo='NSE-20240801-2'");
    QCOMPARE(Texts(Plan(Book(grown))).last(), "01/08 S 30@540 delivery New");
  }

  void TradesWithoutNumbersAreCounted() {
    QByteArray bytes =
        "Date,Company,Amount,Exchange,Scrip Code,Trade Num,Side,Quantity,Price\n"
        "05-08-2026,RELIANCE,100,BSE,500325,0,Buy,1,100\n"
        "05-08-2026,RELIANCE,100,BSE,500325,0,Buy,1,100\n";
    QCOMPARE(SaveText(bytes), "2 trades");
    QCOMPARE(SaveText(bytes), "There is nothing new to save.");
    bytes += "05-08-2026,RELIANCE,100,BSE,500325,0,Buy,1,100\n";
    QCOMPARE(SaveText(bytes), "1 trades");
  }

  void BillThatWasEnteredByHandIsNotDoubled() {
    const QByteArray book =
        Book({"2024-07-23 09:15 buy 60 530 T1 O1", "2024-07-23 09:16 buy 40 531 T2 O2",
              "2024-07-24 09:16 buy 40 531 T3 O3"});
    desk_->Connection().Execute(
        "Insert Into SPMaster(Cid,Fyear,ID,BillNo,BDate,BrokId,ExId,AcId) "
        "Values(?,'2024-25',77,'H','23/07/2024',?,1,?)",
        desk_->client, desk_->broker, desk_->account);
    desk_->Connection().Execute(
        "Insert Into SPTrans(Cid,Fyear,SID,Id,SP,ScriptId,Qty,Rate) "
        "Values(?,'2024-25',77,1,1,?,100,530.4)",
        desk_->client, desk_->scrip);
    TradePlan plan = Plan(book);
    QCOMPARE(Texts(plan), QStringList({"23/07 P 60@530 delivery Probably Entered by Hand",
                                       "23/07 P 40@531 delivery Probably Entered by Hand",
                                       "24/07 P 40@531 delivery New"}));
    QCOMPARE(Save(plan)->trades, std::size_t{1});
  }

  void SaleOfMissingSharesIsNamedAndNothingWritten() {
    TradePlan plan =
        Plan(Book({"2024-07-23 09:15 buy 50 530 T1 O1", "2024-08-01 10:00 sell 80 540 T2 O2",
                   "2024-08-02 10:00 sell 50 541 T3 O3"}));
    Progress silent;
    QVERIFY(CheckTrades(desk_->Connection(), Target(), plan, silent));
    QCOMPARE(Texts(plan), QStringList({"23/07 P 50@530 delivery New",
                                       "01/08 S 80@540 delivery Shares are Missing",
                                       "02/08 S 50@541 delivery New"}));
    QCOMPARE(plan.Lines()[1].missing, text::Shares(30));
    const auto saved = Save(plan);
    QVERIFY(!saved);
    QVERIFY2(
        saved.Why().text.contains("RELIANCE, 01/08/2024: 30.00 shares that were sold are missing"),
        qPrintable(saved.Why().text));
    QCOMPARE(desk_->Everything(), QStringList());
    plan.Tick(1, false);
    QCOMPARE(Save(plan)->trades, std::size_t{2});
  }

  void PairWithoutDeliveryIsTickedTogether() {
    TradePlan plan =
        Plan(Book({"2024-07-23 09:15 buy 10 100 T1 O1", "2024-07-23 10:15 sell 10 101 T2 O2"}));
    plan.Tick(0, false);
    const auto saved = Save(plan);
    QVERIFY(!saved);
    QVERIFY2(saved.Why().text.endsWith("ticked together:\nRELIANCE, 23/07/2024"),
             qPrintable(saved.Why().text));
    QCOMPARE(desk_->Everything(), QStringList());
    plan.Tick(0, true);
    QCOMPARE(Save(plan)->trades, std::size_t{2});
  }

  void SharesLeftAreCarriedBetweenTheYears() {
    TradePlan plan =
        Plan(Book({"2022-07-22 09:15 buy 50 530 T1 O1", "2024-08-01 10:00 sell 20 540 T2 O2"}));
    const auto saved = Save(plan);
    QVERIFY2(saved, saved ? "" : qPrintable(saved.Why().text));
    QCOMPARE(saved->carried, std::size_t{2});
    for (const auto& [year, lot] :
         {std::pair{2022, "50@530"}, {2023, "50@530"}, {2024, "30@530"}}) {
      QCOMPARE(desk_->LotAt({desk_->client, text::FinancialYear(year)}, desk_->account,
                            desk_->scrip, 530),
               QLatin1String(lot));
    }
    QCOMPARE(test::Rows(desk_->Connection(), "Select Fyear,PDate,Qty From StkOpBal Order By Id"),
             QStringList({"2023-24|22/07/2022|50", "2024-25|22/07/2022|50"}));
    // A later file finds the opening stock there.
    QCOMPARE(SaveText(Book({"2024-09-01 10:00 sell 30 540 T9 O9"})), "1 trades");
    QCOMPARE(test::Rows(desk_->Connection(), "Select Count(*) From StkOpBal"), QStringList("2"));
  }

  void UnknownScripIsSettledFirst() {
    const QByteArray bytes = kHead +
                             "ZINCALLOY,INE000A01012,2024-07-23,NSE,EQ,EQ,buy,false,5,10,T1,O1,\n"
                             "INFOSY,,2024-07-23,NSE,EQ,EQ,buy,false,5,10,T2,O2,\n";
    TradePlan plan = Plan(bytes);
    QCOMPARE(Texts(plan), QStringList({"23/07 P 5@10 delivery Unknown Script",
                                       "23/07 P 5@10 delivery Script to be Confirmed"}));
    QVERIFY(!Save(plan));
    Progress silent;
    plan.SettleAsNew(0);
    plan.Settle(1, plan.Scrips()[1].scrip);
    plan.Build(TradePlan::Fills::kJoined, silent);
    const auto saved = Save(plan);
    QVERIFY2(saved, saved ? "" : qPrintable(saved.Why().text));
    QCOMPARE(saved->scrips, std::size_t{1});
    QCOMPARE(test::Rows(desk_->Connection(),
                        "Select Code,NCode,Name From Script Where Code='ZINCALLOY'"),
             QStringList("ZINCALLOY|ZINCALLOY|ZINCALLOY"));
    QCOMPARE(Plan(bytes).Count(LineState::kDoubled), std::size_t{2});
    desk_->Connection().Execute("Delete From Script Where Code='ZINCALLOY'");
  }

  void FileOfAnotherAccountIsRefused() {
    desk_->Connection().Execute("Update ClientActDet Set ACNo='1234567890' Where id=?",
                                desk_->other_account);
    const QByteArray bytes = "Client,XX 1234567890\n" + Book({"2024-07-23 09:15 buy 5 530 T1 O1"});
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, Plan(bytes));
    QCOMPARE(desk_->Everything(), QStringList());
  }

  void UsersChangesAreSaved() {
    TradePlan plan = Plan(Book({"2024-07-23 09:15 buy 50 530 T1 O1"}));
    plan.Change(0, {text::Shares(50), 531, 100, 18, 27});
    QVERIFY(Save(plan));
    QCOMPARE(test::Rows(desk_->Connection(), "Select Rate,Brk,STax,STT,Amt From SPTrans"),
             QStringList("531|2|18|27|26650"));
  }

  void CancelledImportWritesNothing() {
    TradePlan plan = Plan(Book({"2024-07-23 09:15 buy 50 530 T1 O1"}));
    test::StopAfter stop(1);
    QVERIFY_THROWS_EXCEPTION(Cancellation,
                             SaveTrades(desk_->Connection(), Target(), plan, {}, stop));
    QCOMPARE(desk_->Everything(), QStringList());
  }

  void MappedHeaderIsRemembered() {
    const QTemporaryDir folder;
    const QString path = test::WriteFile(folder.filePath("own.csv"),
                                         "When,What,How,Many,At\n2024-07-23,RELIANCE,buy,5,10\n");
    const TradeBook book(desk_->Connection(), kData);
    OpenedTrades opened = book.Open(path);
    QVERIFY(!opened.header);
    QVERIFY(book.UnknownHeader(opened).contains("Zerodha trade book: symbol, trade date"));
    opened.header =
        FoundHeader{0, *ColumnMap::Parse("date=0;side=2;quantity=3;price=4;symbol=1"), {}, {}};
    opened.mapped = true;
    Progress silent;
    const TradeOptions options{TradePlan::Fills::kJoined, "NSE", *text::MakeDate(26, 11, 2026)};
    auto file = book.Read({&opened, 1}, Target(), options, silent);
    TradePlan plan = book.Plan(std::move(*file), Target(), options, silent);
    QVERIFY(SaveTrades(desk_->Connection(), Target(), plan, TradeBook::MappedHeaders({&opened, 1}),
                       silent));
    QCOMPARE(book.Open(path).header->map.Text(), opened.header->map.Text());
  }
};

static const test::RegisterTest<TradeImportTest> kRegistered;
#include "TradeImportTest.moc"
