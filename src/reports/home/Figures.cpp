#include "reports/home/Figures.h"

#include "core/records/Query.h"
#include "reports/home/ComingDividends.h"

#include <algorithm>
#include <chrono>
#include <set>
#include <unordered_map>

namespace quorvane::home {
namespace {

using database::Connection;

constexpr std::size_t kLargest = 10;
constexpr std::chrono::days kOldRate{7};

Paise ValueAt(Shares quantity, const rates::DatedRate& rate) {
  return Paise::OfRupees(quantity.Number() * rate.rate);
}

void GiveRates(Held& held, const NewestRates& rates, Date today) {
  const auto found = rates.of.find(held.scrip);
  if (found == rates.of.end()) {
    return;
  }
  const RatePair& pair = found->second;
  held.rates = pair;
  held.value = ValueAt(held.quantity, pair.newest);
  held.is_old = pair.newest.date < today - kOldRate;
  if (pair.before && pair.newest.date == rates.market_day) {
    held.change = held.value - ValueAt(held.quantity, *pair.before);
  }
}

void Count(Connection& connection, const Scope& scope, Figures& figures) {
  auto rows = connection.Open(
      "Select Count(*),Count(h.CId) From ClientInfo c Left Join HomeClient h On h.CId=c.Id Where "
      "?='' or c.GCode=?",
      scope.family, scope.family);
  if (rows.Next()) {
    figures.clients = rows.Int(0);
    figures.computed = rows.Int(1);
  }
}

std::vector<LargeHolding> Largest(Connection& connection,
                                  const std::unordered_map<ScripId, Held>& by_scrip) {
  std::vector<LargeHolding> all;
  for (const auto& [scrip, held] : by_scrip) {
    if (held.rates) {
      all.push_back({held, {}});
    }
  }
  const std::size_t count = std::min(kLargest, all.size());
  std::ranges::partial_sort(
      all, all.begin() + static_cast<std::ptrdiff_t>(count), std::greater(),
      [](const LargeHolding& one) { return std::pair(one.held.value, one.held.scrip.value); });
  all.resize(count);
  std::vector<ScripId> scrips;
  for (const LargeHolding& one : all) {
    scrips.push_back(one.held.scrip);
  }
  const auto names = ScripNames(connection, scrips);
  for (LargeHolding& one : all) {
    const auto name = names.find(one.held.scrip);
    one.name = name == names.end() ? QString() : name->second;
  }
  return all;
}

}  // namespace

QStringList Families(Connection& connection) {
  QStringList families;
  for (const auto& row : connection.Open(
           "Select Distinct Trim(GCode) From ClientInfo Where Trim(GCode)<>'' Order By 1")) {
    families << row.Text(0);
  }
  return families;
}

Holdings ReadHoldings(Connection& connection, const Scope& scope) {
  Holdings read;
  std::set<ScripId> scrips;
  for (const auto& row :
       connection.Open("Select h.CId,h.ScrId,h.Qty,h.Cost From HomeHolding h Join ClientInfo c On "
                       "c.Id=h.CId Where ?='' or c.GCode=? Order By h.CId,h.ScrId",
                       scope.family, scope.family)) {
    const ScripId scrip{row.Int(1)};
    read.held.push_back({.client = ClientId{row.Int(0)},
                         .scrip = scrip,
                         .quantity = Shares::OfMillionths(row.Int64(2)),
                         .cost = Paise(row.Int64(3))});
    scrips.insert(scrip);
  }
  const NewestRates rates = ReadNewestRates(connection, scrips, scope.today);
  read.market_day = rates.market_day;
  for (Held& held : read.held) {
    GiveRates(held, rates, scope.today);
  }
  return read;
}

std::vector<ClientGains> ReadGains(Connection& connection, const Scope& scope) {
  std::vector<ClientGains> gains;
  for (const auto& row : connection.Open(
           "Select g.CId,g.LongTerm,g.ShortTerm,g.Speculation From HomeGain g Join HomeClient h On "
           "h.CId=g.CId and h.Stamp=g.Stamp Join ClientInfo c On c.Id=g.CId Where g.Fyear=? and "
           "(?='' or c.GCode=?) and (g.LongTerm<>0 or g.ShortTerm<>0 or g.Speculation<>0) Order By "
           "c.Name,g.CId",
           scope.year.Text(), scope.family, scope.family)) {
    gains.push_back(
        {ClientId{row.Int(0)}, {Paise(row.Int64(1)), Paise(row.Int64(2)), Paise(row.Int64(3))}});
  }
  return gains;
}

Figures ReadFigures(Connection& connection, const Scope& scope) {
  Figures figures;
  Count(connection, scope, figures);
  const Holdings holdings = ReadHoldings(connection, scope);
  figures.market_day = holdings.market_day;
  std::unordered_map<ScripId, Held> by_scrip;
  for (const Held& held : holdings.held) {
    figures.value += held.value;
    figures.change += held.change;
    figures.cost += held.cost;
    figures.unrealised += held.rates ? held.value - held.cost : Paise();
    Held& sum = by_scrip.try_emplace(held.scrip, Held{{}, held.scrip, {}, {}}).first->second;
    sum.quantity += held.quantity;
    sum.cost += held.cost;
    sum.value += held.value;
    sum.change += held.change;
    sum.rates = held.rates;
    sum.is_old = held.is_old;
  }
  figures.without_rate = static_cast<int>(
      std::ranges::count_if(by_scrip, [](const auto& one) { return one.second.is_old; }));
  for (const ClientGains& one : ReadGains(connection, scope)) {
    figures.gains.long_term += one.gains.long_term;
    figures.gains.short_term += one.gains.short_term;
    figures.gains.speculation += one.gains.speculation;
  }
  figures.largest = Largest(connection, by_scrip);
  figures.dividends = ReadComingDividends(connection, scope, by_scrip);
  figures.last = ReadLastRecords(connection, scope.family);
  return figures;
}

}  // namespace quorvane::home
