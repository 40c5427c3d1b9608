#include "portfolio/ActionImport.h"

#include "core/actions/Application.h"
#include "core/actions/Terms.h"
#include "core/database/Keys.h"
#include "core/records/Dividend.h"
#include "core/records/Writing.h"
#include "core/text/Amounts.h"
#include "portfolio/RecordedDocuments.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <set>
#include <tuple>

namespace quorvane::portfolio {

using database::Transaction;
using ledger::Layer;
using ledger::LotKey;
using ledger::Place;
using records::Action;
using records::ActionKind;
using records::ActionLot;

ActionImport::ActionImport(const Portfolio& portfolio, const ResolvedNames& names,
                           ledger::Lots& lots, ledger::Layers& layers, ErrorList& errors)
    : portfolio_(portfolio),
      names_(names),
      lots_(lots),
      layers_(layers),
      errors_(errors),
      by_day_(portfolio.actions.size()) {
  for (const ActionRow& row : portfolio.actions) {
    Action& action = actions_.emplace_back(row.record);
    action.scrip = names.scrips[row.scrip];
    action.other = row.other ? names.scrips[*row.other] : ScripId{};
  }
  std::iota(by_day_.begin(), by_day_.end(), std::size_t{0});
  std::ranges::stable_sort(by_day_, {},
                           [&](std::size_t place) { return portfolio.actions[place].ex_day; });
}

void ActionImport::Check(database::Connection& connection) {
  CheckDividends(connection);
  if (actions_.empty()) {
    return;
  }
  const auto terms = [](const Action& action) {
    return std::tuple(action.scrip, action.kind, action.ex_day, action.new_shares,
                      action.old_shares, action.other, action.price, action.cost_percent);
  };
  std::set<decltype(terms(Action{}))> known;
  for (const Action& action : records::Select<Action>(connection).All()) {
    known.insert(terms(action));
  }
  for (std::size_t i = 0; i < actions_.size(); ++i) {
    const std::size_t line = portfolio_.actions[i].line;
    if (const MaybeRefusal refusal = actions::Check(actions_[i])) {
      errors_.Add(FileKind::kActions, line, "", refusal->text.toStdString());
    } else if (!known.insert(terms(actions_[i])).second) {
      errors_.Add(FileKind::kActions, line, "", "this corporate action is recorded already");
    }
  }
}

void ActionImport::CheckDividends(database::Connection& connection) {
  if (portfolio_.dividends.empty()) {
    return;
  }
  RecordedDocuments<records::Dividend> recorded;
  recorded.Read(records::Select<records::Dividend>(connection));
  for (const DividendRow& row : portfolio_.dividends) {
    if (!AccountOf(names_.clients[row.client], row.account) && names_.clients[row.client]) {
      errors_.Add(FileKind::kDividends, row.line, "account_no",
                  "expected an account of the client, found " +
                      Quoted(portfolio_.account_numbers.Names()[row.account].text));
    } else if (recorded.Has(DividendOf(row))) {
      errors_.Add(FileKind::kDividends, row.line, "", "this dividend is recorded already");
    }
  }
}

records::Dividend ActionImport::DividendOf(const DividendRow& row) const {
  records::Dividend dividend = row.record;
  dividend.client = names_.clients[row.client];
  dividend.account = AccountOf(dividend.client, row.account).value_or(AccountId{});
  dividend.scrip = names_.scrips[row.scrip];
  return dividend;
}

std::optional<text::Date> ActionImport::NextDay() const {
  return next_ < by_day_.size() ? std::optional(portfolio_.actions[by_day_[next_]].ex_day)
                                : std::nullopt;
}

void ActionImport::Apply(text::Date day) {
  for (; NextDay() == day; ++next_) {
    const std::size_t action = by_day_[next_];
    if (!actions_[action].applied) {
      continue;
    }
    if (portfolio_.has_action_lots) {
      ApplyGiven(action);
    } else {
      ApplyTerms(action);
    }
  }
}

std::optional<AccountId> ActionImport::AccountOf(ClientId client, Symbol number) const {
  const bool none_named = portfolio_.account_numbers.Names()[number].text.empty();
  return client && none_named ? std::optional(AccountId{}) : names_.Account(client, number);
}

std::optional<Place> ActionImport::PlaceOf(const ActionLotRow& row) const {
  const ClientId client = names_.clients[row.client];
  const auto account = AccountOf(client, row.account);
  if (!account) {
    return std::nullopt;
  }
  const auto year = text::FinancialYear::Of(portfolio_.actions[row.action].ex_day);
  return Place{{client, year}, *account};
}

/// Shares leave before others come in, so that a lot may take back what it gave.
void ActionImport::ApplyGiven(std::size_t action) {
  std::vector<const ActionLotRow*> rows;
  for (const ActionLotRow& row : portfolio_.action_lots) {
    if (row.action == action && Take(row)) {
      rows.push_back(&row);
    }
  }
  for (const ActionLotRow* row : rows) {
    if (row->record.in) {
      const Place place = *PlaceOf(*row);
      layers_.Receive({place.of, place.account, names_.scrips[*row->to_scrip], row->record.to_rate},
                      {.date = *row->acquired,
                       .quantity = row->record.in,
                       .kind = records::MovementKind::kActionIn,
                       .entered = portfolio_.actions[action].ex_day});
    }
  }
}

bool ActionImport::Take(const ActionLotRow& row) {
  const auto place = PlaceOf(row);
  if (!place) {
    errors_.Add(FileKind::kActionLots, row.line, "account_no",
                "expected an account of the client, found " +
                    Quoted(portfolio_.account_numbers.Names()[row.account].text));
    return false;
  }
  if (!row.record.out) {
    return true;
  }
  const auto taken = layers_.TakeFromLot(
      {place->of, place->account, names_.scrips[row.scrip], row.record.rate}, row.record.out);
  if (!taken) {
    errors_.Add(FileKind::kActionLots, row.line, "out",
                "the lot has too few shares. Maximum Allowed Value is: " +
                    text::FormatAmount(taken.available.Number()).toStdString());
  }
  return static_cast<bool>(taken);
}

std::vector<ActionImport::Holder> ActionImport::HoldersOf(const ActionRow& row) const {
  const auto year = text::FinancialYear::Of(row.ex_day);
  std::map<Place, std::vector<Layer>> held;
  for (const ledger::Lots::Entry& entry : lots_.Entries()) {
    const records::Lot& lot = entry.lot;
    if (lot.year != year || lot.scrip != names_.scrips[row.scrip] || entry.duplicate) {
      continue;
    }
    for (const Layer& layer : layers_.ByEntry(lot.id)) {
      if (!layer.fo && layer.IsThereFor(row.ex_day)) {
        held[{lot.Of(), lot.account}].push_back(layer);
      }
    }
  }
  std::vector<Holder> holders;
  for (auto& [place, layers] : held) {
    std::ranges::sort(layers, {},
                      [](const Layer& layer) { return std::pair(layer.entered, layer.arrival); });
    holders.push_back({place, std::move(layers)});
  }
  return holders;
}

void ActionImport::ApplyTerms(std::size_t action) {
  const ActionRow& row = portfolio_.actions[action];
  for (const Holder& holder : HoldersOf(row)) {
    std::vector<actions::HeldPiece> pieces;
    for (const Layer& layer : holder.layers) {
      pieces.push_back({lots_.Find(layer.lot)->rate, layer.left, layer.date});
    }
    const actions::Effect effect = actions::Apply(actions_[action], row.ex_day, pieces);
    for (const ActionLot& lot : effect.lots) {
      if (lot.out) {
        layers_.TakeFromLot({holder.place.of, holder.place.account, lot.scrip, lot.rate}, lot.out);
      }
    }
    for (const ActionLot& lot : effect.lots) {
      Move(holder.place, lot, row.ex_day);
    }
  }
}

void ActionImport::Move(const Place& place, const ActionLot& lot, text::Date ex_day) {
  if (lot.in) {
    layers_.Receive({place.of, place.account, lot.to_scrip, lot.to_rate},
                    {.date = text::ParseDmy(lot.acquired).value_or(ex_day),
                     .quantity = lot.in,
                     .kind = records::MovementKind::kActionIn,
                     .entered = ex_day});
  }
}

void ActionImport::Write(Transaction& transaction, ImportResult& result) {
  std::vector<ActionId> ids;
  if (!actions_.empty()) {
    int key = database::NextKeys(transaction, records::Table<Action>::kName,
                                 static_cast<int>(actions_.size()));
    for (Action& action : actions_) {
      action.id = ActionId{key++};
      ids.push_back(action.id);
    }
    records::Insert(transaction, std::span<const Action>(actions_));
  }
  result.Count(QT_TRANSLATE_NOOP("Portfolio", "corporate actions"), actions_.size());
  WriteGivenLots(transaction, ids);
  WriteDividends(transaction, ids);
  Progress silent;
  for (const std::size_t place : by_day_) {
    const Action& action = actions_[place];
    if (action.applied && !portfolio_.has_action_lots && !HasDividends(place)) {
      actions::WriteEffects(transaction, action,
                            actions::EffectsOf(transaction.GetConnection(), action, {}, silent));
    }
  }
}

/// Dividends that the folder says are not worked out a second time.
bool ActionImport::HasDividends(std::size_t action) const {
  return std::ranges::any_of(portfolio_.dividends,
                             [&](const DividendRow& row) { return row.action == action; });
}

void ActionImport::WriteGivenLots(Transaction& transaction, std::span<const ActionId> ids) const {
  std::map<std::size_t, int> numbers;
  records::Writer<ActionLot> writer(transaction);
  for (const ActionLotRow& row : portfolio_.action_lots) {
    ActionLot lot = row.record;
    const Place place = *PlaceOf(row);
    lot.action = ids[row.action];
    lot.number = ++numbers[row.action];
    lot.client = place.of.client;
    lot.year = place.of.year;
    lot.account = place.account;
    lot.scrip = names_.scrips[row.scrip];
    lot.to_scrip = row.to_scrip ? names_.scrips[*row.to_scrip] : ScripId{};
    writer.Write(lot);
  }
  writer.Finish();
}

void ActionImport::WriteDividends(Transaction& transaction, std::span<const ActionId> ids) {
  if (portfolio_.dividends.empty()) {
    return;
  }
  int key = database::NextKeys(transaction, records::Table<records::Dividend>::kName,
                               static_cast<int>(portfolio_.dividends.size()));
  records::Writer<records::Dividend> writer(transaction);
  for (const DividendRow& row : portfolio_.dividends) {
    records::Dividend dividend = DividendOf(row);
    dividend.id = DividendId{key++};
    dividend.action = row.action ? ids[*row.action] : ActionId{};
    writer.Write(dividend);
  }
  writer.Finish();
}

}  // namespace quorvane::portfolio
