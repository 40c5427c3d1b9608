#include "bench/Measure.h"
#include "bench/PortfolioDatabase.h"
#include "bench/Works.h"
#include "core/database/BulkWriter.h"
#include "core/database/Transaction.h"
#include "reports/home/Figures.h"
#include "reports/home/KeptFigures.h"
#include "reports/search/Search.h"

#include <fmt/format.h>

namespace quorvane::bench {
namespace {

constexpr double kMostSearchMs = 50;
constexpr double kMostHomeMs = 300;
constexpr int kRateDays = 40;
constexpr int kRuns = 7;

/// Rates of the last days of the year, of every scrip.
void FillRates(database::Connection& connection, const Portfolio& portfolio) {
  database::InTransaction(connection, [&](database::Transaction& transaction) {
    database::BulkWriter writer(
        transaction, "Insert Into MarketRate(Fyear,Id,MDate,ScrId,Rate) Values(?,?,?,?,?)",
        "titid");
    int id = 0;
    for (int back = 0; back < kRateDays; ++back) {
      const text::Date day = portfolio.year.LastDay() - std::chrono::days(back);
      for (int scrip = 1; scrip <= portfolio.scrips; ++scrip) {
        writer.Text(portfolio.year.Utf8())
            .Int(++id)
            .Text(text::FormatDmy(day).toStdString())
            .Int(scrip)
            .Double(100 + scrip % 97 + back * 0.25)
            .EndRow();
      }
    }
    writer.Finish();
  });
}

template <class Work>
double MedianMs(const Work& work) {
  std::vector<double> times;
  for (int run = 0; run < kRuns; ++run) {
    times.push_back(Seconds(work) * 1000);
  }
  return Median(times);
}

void AddMs(Table& table, const std::string& work, double milliseconds, double most) {
  table.Add(work, fmt::format("{:.1f} ms", milliseconds), fmt::format("under {} ms", most),
            milliseconds < most);
}

void MeasureSearch(Table& table, database::Connection& connection, const Portfolio& portfolio) {
  const QString bill = QString::fromStdString(BillNumber(portfolio.bills.size() / 2));
  for (const QString& text :
       {QStringLiteral("A"), QStringLiteral("1"), bill.left(3), bill,
        QString::fromStdString(ScripName(portfolio.scrips / 2)), QStringLiteral("client 00")}) {
    const double milliseconds = MedianMs([&] { search::Search(connection, text); });
    AddMs(table,
          fmt::format("search for \"{}\", N = {}", text.toStdString(), portfolio.lines.size()),
          milliseconds, kMostSearchMs);
  }
}

void MeasureHome(Table& table, database::Connection& connection, const Portfolio& portfolio) {
  const home::Scope scope{{}, portfolio.year, portfolio.year.LastDay()};
  Progress progress;
  const auto refresh = [&] {
    return Seconds([&] { home::RefreshFigures(connection, scope.year, scope.today, progress); });
  };
  const std::size_t lines = portfolio.lines.size();
  table.Add(fmt::format("home, all clients computed in the background, N = {}", lines),
            fmt::format("{:.1f} s", refresh()));
  table.Add(fmt::format("home, all clients compared with their records, N = {}", lines),
            fmt::format("{:.1f} s", refresh()));
  home::Known known;
  home::RefreshFigures(
      connection, scope.year, scope.today, progress, [] {}, &known);
  known.changed = {ClientId{1}};
  table.Add(fmt::format("home, the client of one changed bill compared, N = {}", lines),
            fmt::format("{:.1f} ms", MedianMs([&] {
                          home::RefreshFigures(
                              connection, scope.year, scope.today, progress, [] {}, &known);
                        })));
  AddMs(table, fmt::format("home, figures of {} clients shown, N = {}", portfolio.clients, lines),
        MedianMs([&] { home::ReadFigures(connection, scope); }), kMostHomeMs);
  table.Add(fmt::format("home, {} holdings read, N = {}",
                        home::ReadHoldings(connection, scope).held.size(), lines),
            fmt::format("{:.1f} ms", MedianMs([&] { home::ReadHoldings(connection, scope); })));
}

}  // namespace

void MeasureDesk(Table& table, const Office& office, const Portfolio& portfolio) {
  database::Connection connection(
      NewDatabase(office, QStringLiteral("desk%1").arg(portfolio.lines.size())));
  FillDatabase(connection, portfolio);
  FillRates(connection, portfolio);
  MeasureSearch(table, connection, portfolio);
  MeasureHome(table, connection, portfolio);
}

}  // namespace quorvane::bench
