#include "core/actions/Application.h"

#include "core/actions/Terms.h"
#include "core/database/Keys.h"
#include "core/gains/RemainingLots.h"
#include "core/ledger/Posting.h"
#include "core/lookups/Directory.h"
#include "core/records/Dividend.h"
#include "core/records/Movements.h"
#include "core/records/Writing.h"
#include "core/text/Amounts.h"
#include "core/text/Tr.h"

#include <QStringList>

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <unordered_map>

namespace quorvane::actions {
namespace {

using database::Connection;
using database::Transaction;
using ledger::Lots;
using ledger::Place;
using records::ActionLot;
using text::FinancialYear;

text::Date ExDayOf(const Action& action) {
  return text::ParseDmy(action.ex_day).value_or(text::Date{});
}

HeldPiece PieceOf(const gains::RemainingLot& lot) {
  return {lot.rate, text::Shares(lot.quantity), lot.date, lot.brokerage, lot.service_tax, lot.stt};
}

std::vector<gains::RemainingLot> HeldBefore(Connection& connection, const Action& action,
                                            Progress& progress) {
  const text::Date ex_day = ExDayOf(action);
  gains::HistoryQuery query;
  query.year = FinancialYear::Of(ex_day);
  query.from = query.year.FirstDay();
  query.to = ex_day - std::chrono::days(1);
  query.scrip = action.scrip;
  if (action.kind != ActionKind::kDividend) {
    query.before_action = action.id;
  }
  std::vector<gains::RemainingLot> held = gains::RemainingLots(connection, query, progress);
  std::erase_if(held, [](const gains::RemainingLot& lot) { return lot.fo; });
  return held;
}

std::vector<ActionLot> RecordedLots(Connection& connection, const Action& action) {
  return records::Select<ActionLot>(connection)
      .Where(&ActionLot::action, action.id)
      .OrderBy(&ActionLot::number)
      .All();
}

void LockPlaces(Transaction& transaction, Lots& lots, std::span<const ActionLot> touched) {
  std::vector<Place> places;
  for (const ActionLot& lot : touched) {
    places.push_back({lot.Of(), lot.account});
  }
  ledger::LockAndLoad(transaction, lots, places);
}

/// A sale or transfer that draws on a lot which has too few shares.
struct Lacking {
  bool is_sale = false;
  int document = 0;
  QString day;
  text::Shares quantity;
};

std::vector<Lacking> FindLacking(Transaction& transaction, const Lots& lots, const Action& action) {
  std::set<LotId> short_lots;
  for (const Lots::Entry& entry : lots.Entries()) {
    if (entry.lot.quantity < text::Shares() && entry.lot.quantity < entry.stored) {
      short_lots.insert(entry.lot.id);
    }
  }
  std::vector<Lacking> lacking;
  records::Faults faults;
  Progress silent;
  records::ReadMovements(
      transaction.GetConnection(), {.year = FinancialYear::Of(ExDayOf(action)), .charges = false},
      faults, silent, [&](const records::Movement& m) {
        const bool leaves =
            m.kind == records::MovementKind::kSale || m.kind == records::MovementKind::kTransferOut;
        if (leaves && short_lots.contains(m.lot) && m.dated && m.date >= ExDayOf(action)) {
          lacking.push_back({m.kind == records::MovementKind::kSale, m.document,
                             text::FormatDmy(m.date), m.quantity});
        }
      });
  return lacking;
}

/// Bill numbers with the codes of the clients.
QString NameOf(Connection& connection, const Lacking& lacking) {
  auto rows = lacking.is_sale ? connection.Open(
                                    "Select C.Code,M.BillNo From SPMaster M Left Join ClientInfo C "
                                    "On C.Id=M.Cid Where M.ID=?",
                                    lacking.document)
                              : connection.Open(
                                    "Select C.Code,'' From ScrTransfer T Left Join ClientInfo C On "
                                    "C.Id=T.Cid Where T.ID=?",
                                    lacking.document);
  const bool found = rows.Next();
  const QString client = found ? rows.Text(0) : QString();
  return lacking.is_sale
             ? Tr("Actions", "%1: Bill %2").arg(client, found ? rows.Text(1) : QString())
             : Tr("Actions", "%1: Transfer").arg(client);
}

Refusal LacksShares(Transaction& transaction, const Lots& lots, const Action& action) {
  constexpr std::size_t kMost = 15;
  const std::vector<Lacking> lacking = FindLacking(transaction, lots, action);
  QStringList lines{
      Tr("Actions",
         "The Holdings can't Follow: these Sales and Transfers from the Ex-Date on would Lack "
         "Shares. Delete them, Apply again, and Enter them anew.")};
  for (const Lacking& one : std::span(lacking).first(std::min(kMost, lacking.size()))) {
    lines << Tr("Actions", "%1 of %2, %3 Shares")
                 .arg(NameOf(transaction.GetConnection(), one), one.day,
                      text::NumberText(one.quantity.Number()));
  }
  if (lacking.size() > kMost) {
    lines << Tr("Actions", "and %1 more").arg(lacking.size() - kMost);
  }
  return {lines.join(QLatin1Char('\n')), {}};
}

void SetApplied(Transaction& transaction, const Action& action, bool applied) {
  Action changed = action;
  changed.applied = applied;
  records::Replace(transaction, changed);
  transaction.Changes().Is(applied ? changes::Kind::kApplied : changes::Kind::kTakenBack);
}

/// Every holder of the ex-day's beginning gets the dividend. Tax is entered when it is known.
void PayDividend(Transaction& transaction, const Action& action,
                 std::span<const AccountEffect> holders) {
  if (holders.empty()) {
    return;
  }
  int key = database::NextKeys(transaction, records::Table<records::Dividend>::kName,
                               static_cast<int>(holders.size()));
  records::Writer<records::Dividend> writer(transaction);
  for (const AccountEffect& holder : holders) {
    records::Dividend dividend;
    dividend.id = DividendId{key++};
    dividend.action = action.id;
    dividend.client = holder.client;
    dividend.account = holder.account;
    dividend.scrip = action.scrip;
    dividend.date = action.ex_day;
    dividend.quantity = holder.effect.before;
    dividend.per_share = action.price;
    writer.Write(dividend);
  }
  writer.Finish();
}

}  // namespace

std::vector<ActionLot> LotsOf(const Action& action, std::span<const AccountEffect> effects) {
  std::vector<ActionLot> lots;
  int number = 0;
  for (const AccountEffect& account : effects) {
    for (ActionLot lot : account.effect.lots) {
      lot.action = action.id;
      lot.number = ++number;
      lot.client = account.client;
      lot.year = FinancialYear::Of(ExDayOf(action));
      lot.account = account.account;
      lots.push_back(lot);
    }
  }
  return lots;
}

void WriteEffects(Transaction& transaction, const Action& action,
                  std::span<const AccountEffect> effects) {
  const std::vector<ActionLot> lots = LotsOf(action, effects);
  records::Insert(transaction, std::span<const ActionLot>(lots));
  if (action.kind == ActionKind::kDividend) {
    PayDividend(transaction, action, effects);
  }
}

std::vector<AccountEffect> EffectsOf(Connection& connection, const Action& action,
                                     const ChosenShares& chosen, Progress& progress) {
  const std::vector<gains::RemainingLot> held = HeldBefore(connection, action, progress);
  std::vector<AccountEffect> effects;
  for (auto first = held.begin(); first != held.end();) {
    const auto next = std::find_if(first, held.end(), [&](const gains::RemainingLot& lot) {
      return lot.client != first->client || lot.account != first->account;
    });
    std::vector<HeldPiece> pieces;
    std::transform(first, next, std::back_inserter(pieces), PieceOf);
    const auto wanted = chosen.find({first->client, first->account});
    effects.push_back(
        {first->client, first->account,
         Apply(action, ExDayOf(action), pieces,
               wanted == chosen.end() ? std::nullopt : std::optional(wanted->second))});
    first = next;
  }
  return effects;
}

ChosenShares AppliedShares(Connection& connection, const Action& action) {
  ChosenShares chosen;
  if (action.kind == ActionKind::kRights || action.kind == ActionKind::kBuyBack) {
    for (const ActionLot& lot : RecordedLots(connection, action)) {
      chosen[{lot.client, lot.account}] += lot.in + lot.out;
    }
  }
  return chosen;
}

bool IsCurrent(Connection& connection, const Action& action, Progress& progress) {
  const std::vector<ActionLot> recorded = RecordedLots(connection, action);
  const std::vector<ActionLot> now =
      LotsOf(action, EffectsOf(connection, action, AppliedShares(connection, action), progress));
  const auto terms = [](const ActionLot& lot) {
    return std::tuple(lot.client, lot.account, lot.scrip, lot.rate, lot.out, lot.to_scrip,
                      lot.to_rate, lot.in, lot.acquired);
  };
  return std::ranges::equal(recorded, now, {}, terms, terms);
}

QStringList OutdatedActions(Connection& connection, Progress& progress) {
  std::vector<Action> applied =
      records::Select<Action>(connection).Where(&Action::applied, true).All();
  std::ranges::stable_sort(applied, {}, ExDayOf);
  std::erase_if(applied, [&](const Action& action) {
    progress.ThrowIfCancelled();
    return IsCurrent(connection, action, progress);
  });
  QStringList texts;
  if (applied.empty()) {
    return texts;
  }
  const lookups::Directory directory(connection);
  for (const Action& action : applied) {
    texts << Tr("Actions",
                "%1 of %2, Ex-Date %3: the books were changed since it was applied. Take it back "
                "and apply it again.")
                 .arg(DescribeForUser(action),
                      QString::fromStdString(directory.Scrip(action.scrip).name), action.ex_day);
  }
  return texts;
}

MaybeRefusal CheckIsLast(Transaction& transaction, const Action& action,
                         std::span<const Action> together) {
  const auto day = text::ParseDmy(action.ex_day);
  const auto touches = [&](const Action& other) {
    const bool same = other.scrip == action.scrip || other.scrip == action.other ||
                      (other.other && (other.other == action.scrip || other.other == action.other));
    return other.applied && other.id != action.id && same &&
           std::ranges::find(together, other.id, &Action::id) == together.end();
  };
  for (const Action& other : records::Select<Action>(transaction.GetConnection()).All()) {
    const auto other_day = text::ParseDmy(other.ex_day);
    if (touches(other) && (other_day > day || (other_day == day && other.id > action.id))) {
      return Refusal{Tr("Actions", "Take back the Later Action %1 of %2 First.")
                         .arg(actions::DescribeForUser(other), other.ex_day),
                     {}};
    }
  }
  return std::nullopt;
}

Result<std::size_t> Apply(Transaction& transaction, const Action& action,
                          const ChosenShares& chosen, Progress& progress) {
  const std::vector<AccountEffect> effects =
      EffectsOf(transaction.GetConnection(), action, chosen, progress);
  const std::vector<ActionLot> touched = LotsOf(action, effects);
  Lots lots;
  LockPlaces(transaction, lots, touched);
  for (const ActionLot& lot : touched) {
    ledger::Post(lots, lot);
    progress.ThrowIfCancelled();
  }
  if (lots.Shortage()) {
    return LacksShares(transaction, lots, action);
  }
  lots.Write(transaction);
  WriteEffects(transaction, action, effects);
  SetApplied(transaction, action, true);
  return effects.size();
}

MaybeRefusal TakeBack(Transaction& transaction, const Action& action) {
  const std::vector<ActionLot> touched = RecordedLots(transaction.GetConnection(), action);
  Lots lots;
  LockPlaces(transaction, lots, touched);
  for (const ActionLot& lot : touched) {
    ledger::TakeBack(lots, lot);
  }
  if (lots.Shortage()) {
    return LacksShares(transaction, lots, action);
  }
  lots.Write(transaction);
  records::Delete<ActionLot>(transaction).Where(&ActionLot::action, action.id).Run();
  records::Delete<records::Dividend>(transaction)
      .Where(&records::Dividend::action, action.id)
      .Run();
  SetApplied(transaction, action, false);
  return std::nullopt;
}

}  // namespace quorvane::actions
