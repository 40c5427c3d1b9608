#include "bench/Measure.h"
#include "bench/Works.h"
#include "portfolio/trades/TradeBook.h"

#include <QFile>

#include <fmt/format.h>

#include <stdexcept>

namespace quorvane::bench {
namespace {

using portfolio::TradeBook;
using portfolio::TradeTarget;

constexpr std::size_t kTrades = 100'000;
constexpr std::size_t kScrips = 200;

/// A trade book of one year: three fills an order, two purchases before a sale.
QString WriteBook(const QString& path) {
  std::string text =
      "symbol,isin,trade_date,exchange,segment,series,trade_type,auction,quantity,price,trade_id,"
      "order_id,order_execution_time\n";
  for (std::size_t i = 0; i < kTrades; ++i) {
    const std::size_t order = i / 3;
    const text::Date day = text::FinancialYear(2024).FirstDay() +
                           std::chrono::days(static_cast<int>(i * 360 / kTrades));
    const std::string date = text::FormatDmy(day).toStdString();
    const std::string iso = date.substr(6) + "-" + date.substr(3, 2) + "-" + date.substr(0, 2);
    text += fmt::format("S{},,{},NSE,EQ,EQ,{},false,{},{}.{:02},T{},O{},{}T10:00:00\n",
                        order % kScrips, iso, order / kScrips % 3 == 2 ? "sell" : "buy", 10 + i % 5,
                        100 + order % 50, i % 100, i, order, iso);
  }
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) ||
      file.write(text.data(), static_cast<qint64>(text.size())) < 0) {
    throw std::runtime_error("cannot write " + path.toStdString());
  }
  return path;
}

void AddMasters(database::Connection& connection) {
  connection.Execute("Insert Into ClientInfo(Id,Code,Name) Values(1,'C','CLIENT')");
  connection.Execute("Insert Into ClientActDet(CId,id,ACNo) Values(1,1,'1001')");
  connection.Execute("Insert Into Broker(Id,Name) Values(1,'BROKER')");
  for (std::size_t i = 0; i < kScrips; ++i) {
    const int id = static_cast<int>(i) + 1;
    connection.Execute("Insert Into Script(Id,Code,Name,NCode) Values(?,?,?,?)", id, 500000 + id,
                       fmt::format("SCRIP {}", i), fmt::format("S{}", i));
  }
}

}  // namespace

void MeasureTrades(Table& table, const Office& office) {
  const QString path = WriteBook(office.Path("trades.csv"));
  database::Connection connection(NewDatabase(office, QStringLiteral("trades")));
  AddMasters(connection);
  const TradeBook book(connection, QStringLiteral(QUORVANE_BENCH_DATA));
  const portfolio::TradeOptions options{portfolio::TradePlan::Fills::kJoined, "NSE",
                                        text::FinancialYear(2024).LastDay()};
  const TradeTarget target = *book.TargetOf(AccountId{1}, BrokerId{1});
  Progress silent;
  portfolio::TradeFile file;
  const double reading = Seconds([&] {
    const portfolio::OpenedTrades opened = book.Open(path);
    auto read = book.Read({&opened, 1}, target, options, silent);
    if (!read) {
      throw std::runtime_error(read.Why().text.toStdString());
    }
    file = std::move(*read);
  });
  portfolio::TradePlan plan;
  const double looking = Seconds([&] {
    plan = book.Plan(std::move(file), target, options, silent);
    static_cast<void>(CheckTrades(connection, target, plan, silent));
  });
  const double saving = Seconds([&] {
    const auto saved = SaveTrades(connection, target, plan, {}, silent);
    if (!saved) {
      throw std::runtime_error(saved.Why().text.toStdString());
    }
  });
  connection.Execute("Drop Database trades");
  table.Add(fmt::format("trade book of {} trades, {} bill lines", kTrades, plan.Lines().size()),
            fmt::format("read {:.2f} s, looked through {:.2f} s, saved {:.2f} s", reading, looking,
                        saving),
            "looked through and saved in under 5 s", looking + saving < 5);
}

}  // namespace quorvane::bench
