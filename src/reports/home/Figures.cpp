#include "reports/home/Figures.h"

#include "core/records/Query.h"
#include "reports/home/ComingDividends.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <string>
#include <unordered_map>

namespace quorvane::home {
namespace {

using database::Connection;

constexpr std::size_t kLargest = 10;
constexpr std::chrono::days kOldRate{7};

/// What a client holds of a scrip, as it is kept.
struct Row {
  ClientId client;
  ScripId scrip;
  Shares quantity;
  Paise cost;
};

std::vector<ClientId> ClientsOf(Connection& connection, const QString& family) {
  std::vector<ClientId> clients;
  for (const auto& row : connection.Open(
           "Select Id From ClientInfo Where ?='' or GCode=? Order By Id", family, family)) {
    clients.push_back(ClientId{row.Int(0)});
  }
  return clients;
}

/// By client and scrip. There may be hundreds of thousands: they come in the order of the table's
/// key, without a join or a sort.
std::vector<Row> ReadRows(Connection& connection, const QString& family) {
  const std::vector<ClientId> clients = ClientsOf(connection, family);
  std::string sql = "Select CId,ScrId,Qty,Cost From HomeHolding";
  std::vector<database::Value> values;
  if (!family.isEmpty()) {
    std::string places;
    for (const ClientId client : clients) {
      places += places.empty() ? "?" : ",?";
      values.emplace_back(client);
    }
    sql += " Where CId In (" + (places.empty() ? "NULL" : places) + ")";
  }
  std::vector<Row> rows;
  auto client = clients.begin();
  for (const auto& row : connection.OpenValues(sql + " Order By CId,ScrId", values)) {
    const ClientId of{row.Int(0)};
    client = std::find_if(client, clients.end(), [&](ClientId one) { return !(one < of); });
    if (client != clients.end() && *client == of) {
      rows.push_back(
          {of, ScripId{row.Int(1)}, Shares::OfMillionths(row.Int64(2)), Paise(row.Int64(3))});
    }
  }
  return rows;
}

NewestRates RatesOf(Connection& connection, const std::vector<Row>& rows, Date today) {
  std::vector<ScripId> scrips;
  scrips.reserve(rows.size());
  std::ranges::transform(rows, std::back_inserter(scrips), &Row::scrip);
  std::ranges::sort(scrips);
  scrips.erase(std::unique(scrips.begin(), scrips.end()), scrips.end());
  return ReadNewestRates(connection, {scrips.begin(), scrips.end()}, today);
}

Paise ValueAt(Shares quantity, const rates::DatedRate& rate) {
  return Paise::OfRupees(quantity.Number() * rate.rate);
}

Held HeldOf(const Row& row, const NewestRates& rates, Date today) {
  Held held{row.client, row.scrip, row.quantity, row.cost};
  const auto found = rates.of.find(held.scrip);
  if (found == rates.of.end()) {
    return held;
  }
  const RatePair& pair = found->second;
  held.rates = pair;
  held.value = ValueAt(held.quantity, pair.newest);
  held.is_old = pair.newest.date < today - kOldRate;
  if (pair.before && pair.newest.date == rates.market_day) {
    held.change = held.value - ValueAt(held.quantity, *pair.before);
  }
  return held;
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
  std::vector<ScripId> scrips(all.size());
  std::ranges::transform(all, scrips.begin(),
                         [](const LargeHolding& one) { return one.held.scrip; });
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
  const std::vector<Row> rows = ReadRows(connection, scope.family);
  const NewestRates rates = RatesOf(connection, rows, scope.today);
  Holdings read{rates.market_day, {}};
  read.held.reserve(rows.size());
  for (const Row& row : rows) {
    read.held.push_back(HeldOf(row, rates, scope.today));
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
  const std::vector<Row> rows = ReadRows(connection, scope.family);
  const NewestRates rates = RatesOf(connection, rows, scope.today);
  figures.market_day = rates.market_day;
  std::unordered_map<ScripId, Held> by_scrip;
  for (const Row& row : rows) {
    const Held held = HeldOf(row, rates, scope.today);
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
  figures.statements = CountStatements(connection, scope.family, scope.today);
  figures.dividends = ReadComingDividends(connection, scope, by_scrip);
  figures.last = ReadLastRecords(connection, scope.family);
  return figures;
}

}  // namespace quorvane::home
