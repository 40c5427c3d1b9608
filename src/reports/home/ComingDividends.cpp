#include "reports/home/ComingDividends.h"

#include "core/records/Dividend.h"
#include "core/records/Masters.h"
#include "core/records/Query.h"

#include <algorithm>
#include <chrono>
#include <tuple>

namespace quorvane::home {
namespace {

using database::Connection;
using records::Action;
using records::ActionKind;

constexpr std::chrono::days kLookedBack{365};

struct Dated {
  Date day;
  ScripId scrip;
  ComingDividend dividend;
};

/// An announcement that was applied is recorded where it was received.
void AddAnnounced(Connection& connection, const Scope& scope,
                  const std::unordered_map<ScripId, Held>& held, std::vector<Dated>& found) {
  for (const Action& action : records::Select<Action>(connection)
                                  .Where(&Action::kind, ActionKind::kDividend)
                                  .Where(&Action::applied, false)
                                  .All()) {
    const auto day = text::ParseDmy(action.ex_day);
    const auto holding = held.find(action.scrip);
    if (!day || holding == held.end() || *day < scope.today - kLookedBack) {
      continue;
    }
    ComingDividend dividend{.day = action.ex_day, .per_share = action.price};
    dividend.action = action.id.value;
    if (*day > scope.today) {
      dividend.amount = Paise::OfRupees(holding->second.quantity.Number() * action.price);
    }
    found.push_back({*day, action.scrip, std::move(dividend)});
  }
}

void AddRecorded(Connection& connection, const Scope& scope, std::vector<Dated>& found) {
  for (const auto& row : connection.Open(
           "Select d.Id,d.CId,d.ScrId,d.DDate,d.Qty,d.PerShare,d.Tax,c.Name From Dividend d Join "
           "ClientInfo c On c.Id=d.CId Where (?='' or c.GCode=?) and right(d.DDate,4)>=?",
           scope.family, scope.family, text::FormatDmy(scope.today).right(4))) {
    const auto day = text::ParseDmy(row.Utf8(3));
    if (!day || *day <= scope.today) {
      continue;
    }
    records::Dividend record;
    record.quantity = Shares(row.Double(4));
    record.per_share = row.Double(5);
    ComingDividend dividend{.day = row.Text(3), .per_share = record.per_share};
    dividend.amount = Paise::OfRupees(record.Gross()) - Paise::OfRupees(row.Double(6));
    dividend.dividend = row.Int(0);
    dividend.of = ClientYear{ClientId{row.Int(1)}, text::FinancialYear::Of(*day)};
    dividend.client_name = row.Text(7);
    found.push_back({*day, ScripId{row.Int(2)}, std::move(dividend)});
  }
}

}  // namespace

std::unordered_map<ScripId, QString> ScripNames(Connection& connection,
                                                std::span<const ScripId> scrips) {
  std::unordered_map<ScripId, QString> names;
  records::Select<records::Scrip>(connection)
      .In(&records::Scrip::id, scrips)
      .Only<&records::Scrip::id, &records::Scrip::name>(
          [&](const records::Scrip& scrip) { names.emplace(scrip.id, scrip.name); });
  return names;
}

std::vector<ComingDividend> ReadComingDividends(Connection& connection, const Scope& scope,
                                                const std::unordered_map<ScripId, Held>& held) {
  std::vector<Dated> found;
  AddAnnounced(connection, scope, held, found);
  AddRecorded(connection, scope, found);
  std::ranges::sort(found, {}, [](const Dated& one) {
    return std::tuple(one.day, one.scrip, one.dividend.action, one.dividend.dividend);
  });
  std::vector<ScripId> scrips(found.size());
  std::ranges::transform(found, scrips.begin(), &Dated::scrip);
  const auto names = ScripNames(connection, scrips);
  std::vector<ComingDividend> dividends;
  for (Dated& one : found) {
    const auto name = names.find(one.scrip);
    one.dividend.scrip_name = name == names.end() ? QString() : name->second;
    dividends.push_back(std::move(one.dividend));
  }
  return dividends;
}

}  // namespace quorvane::home
