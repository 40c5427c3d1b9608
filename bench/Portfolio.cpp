#include "bench/Portfolio.h"

#include "core/text/Amounts.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <random>
#include <tuple>

namespace quorvane::bench {
namespace {

constexpr int kScrips = 400;
constexpr int kBrokers = 12;
constexpr std::size_t kLinesABill = 10;
constexpr std::size_t kLinesAnOpening = 20;
constexpr std::size_t kBillsATransfer = 5;

class Maker {
 public:
  explicit Maker(const PortfolioOptions& options) : options_(options), random_(options.seed) {}

  Portfolio Run() {
    MakeMasters();
    for (std::size_t i = 0; i < options_.lines / kLinesAnOpening; ++i) {
      AddOpening();
    }
    const std::size_t bills = std::max<std::size_t>(1, options_.lines / kLinesABill);
    const auto days = (made_.year.LastDay() - made_.year.FirstDay()).count() + 1;
    for (std::size_t i = 0; i < bills; ++i) {
      today_ = made_.year.FirstDay() +
               std::chrono::days(static_cast<std::int64_t>(i) * days / static_cast<int>(bills));
      const std::size_t left = options_.lines - made_.lines.size();
      AddBill(i + 1 == bills ? left : std::min(left, 5 + Below(11)));
      if (i % kBillsATransfer == 0) {
        AddTransfer();
      }
    }
    return std::move(made_);
  }

 private:
  std::size_t Below(std::size_t bound) { return random_() % bound; }
  bool Chance(std::size_t percent) { return Below(100) < percent; }
  int Key(std::size_t count) { return static_cast<int>(Below(count)) + 1; }

  void MakeMasters() {
    made_.clients = static_cast<int>(
        options_.clients > 0 ? options_.clients : std::max<std::size_t>(10, options_.lines / 1000));
    made_.scrips = kScrips;
    made_.brokers = kBrokers;
    for (int client = 1; client <= made_.clients; ++client) {
      for (std::size_t count = 1 + Below(3); count > 0; --count) {
        made_.accounts.push_back({client, fmt::format("12{:06}", made_.accounts.size() + 1)});
      }
    }
    held_.resize(made_.accounts.size() + 1);
  }

  /// Each account keeps to some thirty scrips.
  int ScripOf(int account) {
    return static_cast<int>((static_cast<std::size_t>(account) * 37 + Below(30) * 11) % kScrips) +
           1;
  }

  /// One purchase in three is made at one of a few round rates.
  double RateOf(int scrip) {
    const std::size_t base = 20 + static_cast<std::size_t>(scrip) * 7;
    return Chance(33) ? static_cast<double>(base + 5 * Below(4))
                      : static_cast<double>(base * 100 + Below(base * 20)) / 100;
  }

  double Quantity() { return static_cast<double>(5 * (1 + Below(100))); }

  int LotAt(int account, int scrip, double rate) {
    const auto [entry, fresh] =
        lot_by_key_.try_emplace({account, scrip, rate}, static_cast<int>(made_.lots.size()) + 1);
    if (fresh) {
      made_.lots.push_back({account, scrip, rate, 0});
    }
    return entry->second;
  }

  Lot& At(int lot) { return made_.lots[static_cast<std::size_t>(lot) - 1]; }

  void Receive(int lot, double quantity) {
    if (At(lot).quantity == 0) {
      held_[static_cast<std::size_t>(At(lot).account)].push_back(lot);
    }
    At(lot).quantity += quantity;
  }

  void Take(int lot, double quantity) {
    At(lot).quantity -= quantity;
    if (At(lot).quantity == 0) {
      std::vector<int>& held = held_[static_cast<std::size_t>(At(lot).account)];
      *std::find(held.begin(), held.end(), lot) = held.back();
      held.pop_back();
    }
  }

  /// Of a lot whole or in part.
  double PartOf(int lot) {
    const double held = At(lot).quantity;
    return Chance(50) ? held : static_cast<double>(1 + Below(static_cast<std::size_t>(held)));
  }

  void AddOpening() {
    Opening opening;
    opening.account = Key(made_.accounts.size());
    opening.scrip = ScripOf(opening.account);
    opening.quantity = Quantity();
    opening.rate = RateOf(opening.scrip);
    opening.brokerage = text::RoundAmount(opening.rate * 0.005);
    opening.stt = text::RoundAmount(opening.rate * opening.quantity * 0.00125);
    opening.date = made_.year.FirstDay() - std::chrono::days(1 + static_cast<int>(Below(600)));
    made_.openings.push_back(opening);
    Receive(LotAt(opening.account, opening.scrip, opening.rate), opening.quantity);
  }

  void AddBill(std::size_t count) {
    Bill bill{Key(made_.accounts.size()), Key(kBrokers), today_, made_.lines.size(), count};
    // A bill's purchases stand before its sales.
    std::size_t purchases = 0;
    for (std::size_t i = 0; i < count; ++i) {
      purchases += Chance(52) ? 1U : 0U;
    }
    const std::vector<int>& held = held_[static_cast<std::size_t>(bill.account)];
    for (std::size_t i = 0; i < count; ++i) {
      if (i < purchases || held.empty()) {
        AddPurchase(bill.account);
      } else {
        AddSale(bill.account);
      }
    }
    made_.bills.push_back(bill);
  }

  void AddPurchase(int account) {
    Line line;
    line.purchase = true;
    line.scrip = ScripOf(account);
    line.quantity = Quantity();
    line.rate = RateOf(line.scrip);
    line.lot = LotAt(account, line.scrip, line.rate);
    Receive(line.lot, line.quantity);
    Charge(line);
  }

  void AddSale(int account) {
    const std::vector<int>& held = held_[static_cast<std::size_t>(account)];
    Line line;
    // The lot that was bought last lies at the end: often it is sold the same day.
    line.intraday = Chance(8);
    line.lot = line.intraday ? held.back() : held[Below(held.size())];
    line.scrip = At(line.lot).scrip;
    line.quantity = PartOf(line.lot);
    line.rate = RateOf(line.scrip);
    Take(line.lot, line.quantity);
    Charge(line);
  }

  void Charge(Line& line) {
    line.brokerage = text::RoundAmount(line.rate * (line.intraday ? 0.0005 : 0.005));
    line.net = text::Tidy(line.purchase ? line.rate + line.brokerage : line.rate - line.brokerage);
    line.amount = text::RoundAmount(line.net * line.quantity);
    line.service_tax = text::RoundAmount(line.brokerage * line.quantity * 0.1236);
    line.stt = text::RoundAmount(line.amount * 0.00125);
    made_.lines.push_back(line);
  }

  void AddTransfer() {
    const int from = Key(made_.accounts.size());
    const int to = Key(made_.accounts.size());
    const std::vector<int>& held = held_[static_cast<std::size_t>(from)];
    if (from == to || !MayTransfer(from) || !MayTransfer(to) || held.empty()) {
      return;
    }
    const int lot = held[Below(held.size())];
    const double quantity = PartOf(lot);
    made_.transfers.push_back({from, to, lot, today_, quantity});
    Take(lot, quantity);
    Receive(LotAt(to, At(lot).scrip, At(lot).rate), quantity);
  }

  PortfolioOptions options_;
  std::mt19937_64 random_;
  Portfolio made_;
  text::Date today_;
  std::vector<std::vector<int>> held_;  ///< lots with shares, by account
  std::map<std::tuple<int, int, double>, int> lot_by_key_;
};

}  // namespace

bool MayTransfer(int account) {
  return account % 2 == 1;
}

Portfolio MakePortfolio(const PortfolioOptions& options) {
  return Maker(options).Run();
}

std::string ClientCode(int client) {
  return fmt::format("CL{:05}", client);
}
std::string ScripCode(int scrip) {
  return fmt::format("{}", 500000 + scrip);
}
std::string ScripName(int scrip) {
  return fmt::format("COMPANY {:04} LTD", scrip);
}
std::string BrokerName(int broker) {
  return fmt::format("BROKER {:02}", broker);
}
std::string BillNumber(std::size_t bill) {
  return fmt::format("B/{:07}", bill);
}

}  // namespace quorvane::bench
