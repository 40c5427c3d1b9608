#include "core/positions/EventReader.h"

#include "core/actions/Effect.h"
#include "core/records/Query.h"

#include <map>
#include <set>

namespace quorvane::positions {
namespace {

using records::ActionKind;
using records::Movement;
using records::MovementKind;

Paise CostOf(const Movement& m) {
  return Paise::OfRupees(m.amount) + Paise::OfRupees(m.service_tax);
}

/// What a scope reaches from its start over connections.
template <class Id>
std::set<Id> Reached(const std::set<Id>& start, const std::multimap<Id, Id>& connections) {
  std::set<Id> reached = start;
  std::vector<Id> open(start.begin(), start.end());
  while (!open.empty()) {
    const auto [first, last] = connections.equal_range(open.back());
    open.pop_back();
    for (auto each = first; each != last; ++each) {
      if (reached.insert(each->second).second) {
        open.push_back(each->second);
      }
    }
  }
  return reached;
}

}  // namespace

std::optional<DatedAction> Dated(const records::Action& action) {
  const auto ex_day = text::ParseDmy(action.ex_day);
  if (!ex_day) {
    return std::nullopt;
  }
  return DatedAction{action, *ex_day, actions::HeldFrom(action, *ex_day)};
}

void EventReader::ReadActions() {
  for (const records::Action& action : records::Select<records::Action>(connection_)
                                           .Where(&records::Action::applied, true)
                                           .OrderBy(&records::Action::id)
                                           .All()) {
    if (auto dated = Dated(action)) {
      terms_.emplace(action.id.value, action);
      list_.actions.push_back(std::move(*dated));
    }
  }
}

void EventReader::ReadOwners() {
  for (const auto& row : connection_.Open(
           "Select id,CId From ClientActDet Union Select id,CId From RemovedAccount")) {
    owners_.emplace(row.Int(0), ClientId{row.Int(1)});
  }
}

void EventReader::ReadOpenedYears() {
  for (const auto& row : connection_.Open("Select Distinct CId,Fyear From StkOpBal")) {
    if (const auto year = text::FinancialYear::Parse(row.Utf8(1))) {
      list_.opened.push_back({ClientId{row.Int(0)}, *year});
    }
  }
}

/// The clients and everyone whose shares may have come to them.
std::vector<std::optional<ClientId>> EventReader::ClientsOf(const PositionsQuery& query) {
  std::set<ClientId> wanted = query.clients;
  if (query.client) {
    wanted.insert(*query.client);
  }
  if (wanted.empty()) {
    return {std::nullopt};
  }
  std::multimap<ClientId, ClientId> givers;
  for (const auto& row : connection_.Open("Select Distinct ToClientID,Cid From ScrTransfer")) {
    givers.emplace(ClientId{row.Int(0)}, ClientId{row.Int(1)});
  }
  const std::set<ClientId> reached = Reached(wanted, givers);
  return {reached.begin(), reached.end()};
}

/// The scrip and those that corporate actions connect with it.
std::vector<std::optional<ScripId>> EventReader::ScripsOf(const PositionsQuery& query) const {
  if (!query.scrip) {
    return {std::nullopt};
  }
  std::multimap<ScripId, ScripId> connected;
  for (const DatedAction& action : list_.actions) {
    if (action.terms.other) {
      connected.emplace(action.terms.scrip, action.terms.other);
      connected.emplace(action.terms.other, action.terms.scrip);
    }
  }
  const std::set<ScripId> reached = Reached(std::set{*query.scrip}, connected);
  return {reached.begin(), reached.end()};
}

EventList EventReader::Read(const PositionsQuery& query) {
  list_ = {};
  ReadActions();
  ReadOwners();
  ReadOpenedYears();
  list_.fair_values = tax::ReadFairValues(connection_);
  for (const auto& client : ClientsOf(query)) {
    for (const auto& scrip : ScripsOf(query)) {
      records::ReadMovements(connection_, {.client = client, .scrip = scrip, .delivery = true},
                             faults_, progress_, [this](const Movement& m) { Take(m); });
    }
  }
  return std::move(list_);
}

void EventReader::Add(const Movement& m, EventKind kind, Paise amount) {
  Event& event = list_.events.emplace_back();
  event.day = kind == EventKind::kOpening ? m.year.FirstDay() : m.date;
  event.kind = kind;
  event.non_delivery = m.non_delivery;
  event.fo = m.fo;
  event.client = m.client;
  event.account = m.account;
  event.scrip = m.scrip;
  event.document = m.document;
  event.line = m.line;
  event.acquired = m.acquired;
  event.quantity = m.quantity;
  event.amount = amount;
  event.stt = Paise::OfRupees(m.stt);
}

void EventReader::Take(const Movement& m) {
  if (!m.dated || !(m.quantity > Shares())) {
    return;
  }
  switch (m.kind) {
    case MovementKind::kOpening:
      return Add(m, EventKind::kOpening, CostOf(m));
    case MovementKind::kPurchase:
      return Add(m, EventKind::kPurchase, CostOf(m));
    case MovementKind::kSale:
      return TakeSale(m);
    case MovementKind::kTransferOut:
      return TakeTransfer(m);
    case MovementKind::kTransferIn:
      return;  // what leaves says where it goes
    case MovementKind::kActionIn:
    case MovementKind::kActionOut:
      return TakeActionLot(m);
  }
}

void EventReader::TakeSale(const Movement& m) {
  const Paise before = Paise::OfRupees(m.rate * m.quantity.Number());
  Add(m, EventKind::kSale, before);
  list_.events.back().expenses =
      before - Paise::OfRupees(m.amount) + Paise::OfRupees(m.service_tax);
}

void EventReader::TakeTransfer(const Movement& m) {
  if (m.other == m.account.value) {
    return;
  }
  Add(m, EventKind::kTransfer, CostOf(m));
  const auto owner = owners_.find(m.other);
  list_.events.back().to = AccountId{m.other};
  list_.events.back().to_client = owner == owners_.end() ? ClientId{} : owner->second;
}

/// Of rights and buy-backs every account has its own quantity. All other actions apply by their
/// terms.
void EventReader::TakeActionLot(const Movement& m) {
  const auto terms = terms_.find(m.document);
  if (terms == terms_.end()) {
    return;
  }
  if (terms->second.kind == ActionKind::kRights && m.kind == MovementKind::kActionIn) {
    Add(m, EventKind::kRights, CostOf(m));
  } else if (terms->second.kind == ActionKind::kBuyBack && m.kind == MovementKind::kActionOut) {
    Add(m, EventKind::kBuyBack, Paise::OfRupees(terms->second.price * m.quantity.Number()));
  }
}

}  // namespace quorvane::positions
