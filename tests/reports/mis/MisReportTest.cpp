#include "core/ledger/Rebuild.h"
#include "core/rates/RateBook.h"
#include "core/text/Amounts.h"
#include "reporting/charts/ChartData.h"
#include "reports/Sample.h"
#include "reports/mis/Holdings.h"
#include "reports/mis/MisReport.h"
#include "reports/profit/ProfitStatement.h"
#include "support/DatabaseTest.h"

#include <map>
#include <numeric>

using namespace quorvane;
using namespace quorvane::mis;

namespace {

QStringList TextsOf(const reporting::Table& table, const reporting::Row& row) {
  QStringList texts;
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    texts << reporting::CellText(row.cells[i], table.columns[i].mask);
  }
  return texts;
}

/// The lines below the group heading that begins with `heading`; those of the table without one.
QStringList LinesOf(const reporting::Table& table, const QString& heading) {
  QStringList lines;
  bool inside = heading.isEmpty();
  for (const reporting::Row& row : table.rows) {
    if (row.kind == reporting::RowKind::kGroup && !heading.isEmpty()) {
      inside = reporting::GroupText(row).startsWith(heading);
    } else if (inside && row.kind != reporting::RowKind::kGap) {
      lines << TextsOf(table, row).join('|');
    }
  }
  return lines;
}

std::int64_t Paise(const reporting::Row& row, std::size_t column) {
  const auto* rupees = std::get_if<double>(&row.cells[column]);
  return rupees == nullptr ? 0 : text::ToPaise(*rupees);
}

std::int64_t Total(const reporting::Table& table, std::size_t column) {
  return table.rows.empty() ? 0 : Paise(table.rows.back(), column);
}

/// The columns of money that add up.
constexpr std::pair<ReportKind, std::size_t> kMoneyColumns[] = {
    {ReportKind::kPosition, 6}, {ReportKind::kValuation, 3}, {ReportKind::kMarket, 2},
    {ReportKind::kMarket, 4},   {ReportKind::kMarket, 5},    {ReportKind::kProfitLoss, 6},
    {ReportKind::kStock, 3}};
constexpr std::array kGroupings{Grouping::kScrip, Grouping::kAccount, Grouping::kClient};

}  // namespace

/// The management reports of the sample portfolio.
class MisReportTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    database_.emplace();
    test::TakeInSample(*database_);
  }

  // ONGC in 2011-12: RAGHAV opens with 200 of one lot at 280.15 + 1.40 brokerage = 281.55 net and
  // moves 120 of them on 12/09/2011 to his second account, where the lot's rate is what they cost:
  //   80 x 281.55 = 22524.00; 120 x 280.15 = 33618.00; both 56142.00
  // at the market rate of 266.95: 21356.00 and 32034.00, together 53390.00, which is 2752.00 less.
  // ACC: opens with 40 at 1054.45 + 5.27 = 1059.72 net and sells 20 at 1084.80 - 5.42 = 1079.38:
  //   gain 20 x 19.66 = 393.20; left 20 x 1059.72 = 21194.40.
  void LinesAreAsWorkedOutOnPaper_data() {
    const test::Table<ReportKind, Grouping, bool, QString, QString, QStringList> row;
    const char* ongc = "OIL AND NATURAL GAS CORPORATION LTD";
    row("position of a scrip", ReportKind::kPosition, Grouping::kScrip, false, "", ongc,
        {"OIL AND NATURAL GAS CORPORATION LTD|200.00|0.00|0.00|0.00|200.00|56142.00"});
    row("position of an account", ReportKind::kPosition, Grouping::kAccount, false,
        "Demat A/c No - 10014501", ongc,
        {"OIL AND NATURAL GAS CORPORATION LTD|200.00|0.00|0.00|-120.00|80.00|22524.00"});
    row("position line by line", ReportKind::kPosition, Grouping::kAccount, true, ongc, "",
        {"12/09/2011 Transfer in||||120.00|120.00|",
         "SubTotal|0.00|0.00|0.00|120.00|120.00|33618.00"});
    row("market value of a client", ReportKind::kMarket, Grouping::kClient, false,
        "RAGHAV MOHAN ATHALEKAR", ongc,
        {"OIL AND NATURAL GAS CORPORATION LTD|200.00|56142.00|266.95|53390.00|-2752.00"});
    row("profit line by line", ReportKind::kProfitLoss, Grouping::kAccount, true, "ACC LTD", "",
        {"Opening Balance|40.00||||40.00|",
         "06/04/2011 Sale [Purchase Rate : Rs. 1054.45]||||20.00|20.00|393.20",
         "SubTotal|40.00|0.00|0.00|20.00|20.00|393.20"});
    row("stock by lots", ReportKind::kStock, Grouping::kAccount, true, "ACC LTD", "",
        {"14/01/2011 Purchase|1059.72|20.00|21194.40|21194.40",
         "SubTotal||20.00|21194.40|21194.40"});
  }
  void LinesAreAsWorkedOutOnPaper() {
    const auto [kind, grouping, detail, heading, first, lines] =
        test::Table<ReportKind, Grouping, bool, QString, QString, QStringList>::Row();
    MisQuery query = Query(kind, grouping);
    query.detail = detail;
    query.clients = {ClientId{1}};
    QStringList found = LinesOf(Make(query).tables.front(), heading);
    if (!first.isEmpty()) {
      found = found.filter(first);
    }
    if (detail && kind == ReportKind::kPosition) {
      found = found.mid(found.size() - 2);  // the second account's
    }
    QCOMPARE(found, lines);
  }

  void TotalsAreTheSumOfTheirLinesInEveryGrouping() {
    for (const auto& [report_kind, column] : kMoneyColumns) {
      std::map<std::int64_t, int> totals;
      for (const Grouping grouping : kGroupings) {
        for (const bool detail : {false, true}) {
          MisQuery query = Query(report_kind, grouping, 2013);
          query.detail = detail;
          const reporting::Table table = Make(query).tables.front();
          std::int64_t lines = 0;
          std::int64_t subtotals = 0;
          for (const reporting::Row& row : table.rows) {
            const QString label = row.cells.empty() ? QString() : reporting::GroupText(row);
            const bool line = row.kind == reporting::RowKind::kData;
            lines += line ? Paise(row, column) : 0;
            subtotals += label == "SubTotal" ? Paise(row, column) : 0;
          }
          // What a position's stock is worth is known for the whole of a holding only.
          if (!detail || report_kind != ReportKind::kPosition) {
            QCOMPARE(lines, Total(table, column));
          }
          if (detail || grouping != Grouping::kScrip) {
            QCOMPARE(subtotals, Total(table, column));
          }
          ++totals[Total(table, column)];
        }
      }
      QCOMPARE(totals.size(), std::size_t{1});
      QVERIFY(totals.begin()->first != 0);
    }
  }

  void ProfitIsThatOfTheCapitalGainStatement() {
    for (const int client : {1, 2, 3, 4}) {
      for (const int year : {2011, 2012, 2013}) {
        const text::FinancialYear of(year);
        auto statement = profit::ProfitQuery::OfYear(ClientId{client}, of);
        statement.from = *text::MakeDate(10, 6, year);
        statement.to = *text::MakeDate(20, 2, year + 1);
        std::int64_t gain = 0;
        Progress progress;
        const auto take = [&](ClientId, auto rows) {
          gain = rows.back().long_term + rows.back().short_term + rows.back().speculation;
        };
        QVERIFY(profit::BuildStatement(**database_, statement, progress, take).empty());
        MisQuery query = Query(ReportKind::kProfitLoss, Grouping::kClient, year);
        query.clients = {ClientId{client}};
        query.period = {statement.from, statement.to};
        QCOMPARE(Total(Make(query).tables.front(), 6), gain);
      }
    }
  }

  void BalanceIsThatOfTheLedger() {
    for (const int year : {2011, 2012, 2013}) {
      const MisQuery query = Query(ReportKind::kPosition, Grouping::kAccount, year);
      std::map<std::pair<int, int>, double> ledger;
      for (const auto& row :
           (*database_)
               ->Open("Select AcId,ScriptId,Sum(Qty) From Stock Where Fyear=? Group By 1,2",
                      query.year.Text())) {
        ledger[{row.Int(0), row.Int(1)}] = row.Double(2);
      }
      Progress progress;
      const auto holdings = ReadHoldings(**database_, query, query.period, progress).holdings;
      QCOMPARE(holdings.size(), ledger.size());
      for (const Holding& holding : holdings) {
        const double wanted = ledger[{holding.account.value, holding.scrip.value}];
        QCOMPARE(holding.Balance(), wanted);
        QCOMPARE(holding.Held(), wanted);
      }
    }
  }

  void PartsOfAYearMeetAndTheirGainsAddUp() {
    const MisQuery query = Query(ReportKind::kPosition);
    // The second part begins on a day with a transfer.
    const text::Date middle = *text::MakeDate(11, 9, 2011);
    Progress progress;
    const auto whole = ReadHoldings(**database_, query, query.period, progress).holdings;
    const auto first =
        ReadHoldings(**database_, query, {query.period.from, middle}, progress).holdings;
    const auto second =
        ReadHoldings(**database_, query, {middle + std::chrono::days(1), query.period.to}, progress)
            .holdings;
    const auto by_place = [](const std::vector<Holding>& holdings) {
      std::map<std::pair<int, int>, Holding> places;
      for (const Holding& holding : holdings) {
        places[{holding.account.value, holding.scrip.value}] = holding;
      }
      return places;
    };
    // What came and went in the first part is nothing in the second.
    auto firsts = by_place(first);
    auto seconds = by_place(second);
    for (const auto& [place, holding] : by_place(whole)) {
      QCOMPARE(seconds[place].opening, firsts[place].Balance());
      QCOMPARE(seconds[place].Balance(), holding.Balance());
      QCOMPARE(seconds[place].Cost(), holding.Cost());
      QCOMPARE(firsts[place].gain + seconds[place].gain, holding.gain);
      QCOMPARE(AddShares(firsts[place].sale, seconds[place].sale), holding.sale);
    }
  }

  // On 15/06/2011 only ACC (of 10/06) and HDFC (of the day) have a rate: 20 ACC x 1000 = 20000.
  void MissingRateFallsBackIsMarkedOrLeftOut() {
    rates::RateBook book(**database_);
    const auto scrip = [&](const char* code) {
      auto rows = (*database_)->Open("Select Id From Script Where Code=?", code);
      rows.Next();
      return ScripId{rows.Int(0)};
    };
    const rates::ScripRate acc{scrip("500410"), 1000};
    const rates::ScripRate hdfc{scrip("500010"), 600};
    book.Save(*text::MakeDate(10, 6, 2011), std::span(&acc, 1));
    book.Save(*text::MakeDate(15, 6, 2011), std::span(&hdfc, 1));
    MisQuery query = Query(ReportKind::kValuation, Grouping::kAccount);
    query.detail = false;
    query.as_on = text::MakeDate(15, 6, 2011);
    const auto document = Make(query);
    book.DeleteDate(*text::MakeDate(10, 6, 2011));
    book.DeleteDate(*text::MakeDate(15, 6, 2011));
    const QStringList lines = LinesOf(document.tables.front(), {});
    QVERIFY(lines.contains("ACC LTD [Rate of 10/06/2011]|1000.00|20.00|20000.00|20000.00"));
    QVERIFY(lines.contains("HOUSING DEVELOPMENT FINANCE CORP LTD|600.00|120.00|72000.00|72000.00"));
    QVERIFY(lines.contains("RELIANCE INDUSTRIES LTD [No rate]||50.00||"));
    QCOMPARE(lines.last(), "Total|||92000.00|92000.00");
    QCOMPARE(document.notes.size(), 2);
    QVERIFY(document.notes.last().contains("AMBUJA"));
    QVERIFY(!document.notes.last().contains("ACC LTD"));
  }

  // A sale of 5 of a lot that never was: the balance falls to 5, the lot of 10 stays whole.
  void ShareSoldWithoutItsLotIsTold() {
    gains::Purchase purchase;
    purchase.date = purchase.entered = *text::MakeDate(1, 5, 2011);
    purchase.quantity = 10;
    purchase.lot_rate = 100;
    purchase.net = 101;
    purchase.remaining = 10;
    const gains::Sale sale{.date = *text::MakeDate(2, 5, 2011), .quantity = 5, .lot_rate = 99};
    const Holding holding = MakeHolding(std::span(&purchase, 1), std::span(&sale, 1),
                                        reporting::Period::Of(text::FinancialYear(2011)));
    QCOMPARE(holding.Balance(), 5.0);
    QCOMPARE(holding.Cost(), std::int64_t{101000});
    QCOMPARE(holding.SoldWithoutLot(), 5.0);
    QCOMPARE(holding.gain, std::int64_t{0});
  }

  void ChartsAgreeWithTheReports() {
    const auto sum = [](const std::vector<std::int64_t>& paise) {
      return std::accumulate(paise.begin(), paise.end(), std::int64_t{0});
    };
    const std::int64_t value = Total(Make(Query(ReportKind::kValuation)).tables.front(), 3);
    const std::int64_t cost = Total(Make(Query(ReportKind::kStock)).tables.front(), 3);
    const std::int64_t gain = Total(Make(Query(ReportKind::kProfitLoss)).tables.front(), 6);
    Progress progress;
    const auto parts = Composition(**database_, Query(ReportKind::kValuation), 5, progress);
    QCOMPARE(parts.categories.size(), 6);
    QCOMPARE(parts.categories.last(), "Others");
    QCOMPARE(sum(parts.series.front().paise), value);
    const auto months = ValueByMonth(**database_, Query(ReportKind::kValuation), progress);
    QCOMPARE(months.categories.size(), 12);
    // Values of one holding on several days do not add up.
    QCOMPARE(charts::TableOf(months).tables.front().rows.size(), std::size_t{12});
    QCOMPARE(months.categories.first(), "Apr 2011");
    QCOMPARE(months.series[0].paise.back(), value);
    QCOMPARE(months.series[1].paise.back(), cost);
    // No rate is known before the year's last day: until then everything counts at cost.
    QCOMPARE(months.series[0].paise.front(), months.series[1].paise.front());
    const auto gains = GainsByKind(**database_, Query(ReportKind::kProfitLoss), progress);
    QCOMPARE(std::accumulate(
                 gains.series.begin(), gains.series.end(), std::int64_t{0},
                 [&](std::int64_t all, const auto& series) { return all + sum(series.paise); }),
             gain);
  }

 private:
  reporting::ReportDocument Make(const MisQuery& query) {
    Progress progress;
    return MakeMisReport(**database_, query, progress);
  }
  MisQuery Query(ReportKind kind, Grouping grouping = Grouping::kScrip, int year = 2011) const {
    return MisQuery::OfYear(kind, grouping, text::FinancialYear(year));
  }
};

static const quorvane::test::RegisterTest<MisReportTest> kRegistered;
#include "MisReportTest.moc"
