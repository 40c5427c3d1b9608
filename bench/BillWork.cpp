#include "bench/Measure.h"
#include "bench/PortfolioDatabase.h"
#include "bench/Works.h"
#include "core/ledger/Lots.h"
#include "transactions/bills/BillBook.h"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>

namespace quorvane::bench {
namespace {

constexpr std::size_t kLots = 10000;
constexpr int kBills = 50;
constexpr std::size_t kLinesABill = 50;

struct BillFigures {
  std::size_t lots = 0;  ///< in the database
  double median = 0;     ///< seconds
  double worst = 0;      ///< seconds
};

/// The office of the wanted number of clients that has at least kLots lots.
Portfolio OfficeOfLots(std::size_t clients) {
  PortfolioOptions options;
  options.clients = clients;
  do {
    options.lines += 2000;
    if (Portfolio portfolio = MakePortfolio(options); portfolio.lots.size() >= kLots) {
      return portfolio;
    }
  } while (true);
}

/// Buys at new rates and sells one share of each of the account's largest lots.
records::Bill MakeBill(const Portfolio& portfolio, AccountId account,
                       const std::vector<records::Lot>& lots, int number) {
  records::Bill bill;
  bill.number = QStringLiteral("NEW/%1").arg(number);
  bill.date = text::FormatDmy(portfolio.year.LastDay());
  bill.broker = BrokerId{1};
  bill.exchange = ExchangeId{1};
  bill.account = account;
  for (std::size_t i = 0; i < kLinesABill; ++i) {
    records::BillLine& line = bill.lines.emplace_back();
    const records::Lot& lot = lots[i % lots.size()];
    line.side = i % 2 == 0 ? records::Side::kPurchase : records::Side::kSale;
    line.scrip = lot.scrip;
    line.quantity = text::Shares(line.IsPurchase() ? 100 : 1);
    line.lot = line.IsPurchase() ? LotId{} : lot.id;
    line.rate = lot.rate + number;
    line.brokerage = 0.25;
    records::ComputeAmount(line);
  }
  const records::BillTotals totals = records::ComputeTotals(bill.lines, 0, 0);
  bill.total = totals.total;
  bill.grand_total = totals.grand_total;
  return bill;
}

std::vector<records::Lot> LargestLots(database::Connection& connection, const ClientYear& of,
                                      AccountId account) {
  std::vector<records::Lot> lots =
      ledger::ReadLots(connection, ledger::LotScope::Of({of, account}));
  std::sort(lots.begin(), lots.end(),
            [](const records::Lot& a, const records::Lot& b) { return a.quantity > b.quantity; });
  return lots;
}

BillFigures SaveBills(const Office& office, const QString& name, const Portfolio& portfolio) {
  database::Connection connection(NewDatabase(office, name));
  FillDatabase(connection, portfolio);
  const AccountId account{1};
  const ClientYear of{ClientId{portfolio.AccountOf(account.value).client}, portfolio.year};
  const std::vector<records::Lot> lots = LargestLots(connection, of, account);
  bills::BillBook book(connection, of);
  std::vector<double> times;
  for (int number = 1; number <= kBills; ++number) {
    records::Bill bill = MakeBill(portfolio, account, lots, number);
    MaybeRefusal refusal;
    times.push_back(Seconds([&] { refusal = book.Save(bill).Refused(); }));
    if (refusal) {
      throw std::runtime_error("the bill was refused: " + refusal->text.toStdString());
    }
  }
  return {portfolio.lots.size(), Median(times), *std::max_element(times.begin(), times.end())};
}

void AddBills(Table& table, std::string_view work, const BillFigures& figures) {
  table.Add(fmt::format("bill of {} lines saved, {}", kLinesABill, work),
            fmt::format("{:.1f} ms, worst of {} {:.1f} ms ({} lots)", figures.median * 1000, kBills,
                        figures.worst * 1000, figures.lots),
            "under 20 ms", figures.median < 0.020);
}

}  // namespace

void MeasureBill(Table& table, const Office& office) {
  AddBills(table, "ten clients",
           SaveBills(office, QStringLiteral("bills_of_ten"), OfficeOfLots(10)));
  AddBills(table, "one client", SaveBills(office, QStringLiteral("bills_of_one"), OfficeOfLots(1)));
}

}  // namespace quorvane::bench
