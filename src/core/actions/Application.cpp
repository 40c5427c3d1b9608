#include "core/actions/Application.h"

#include "core/actions/Terms.h"
#include "core/gains/RemainingLots.h"
#include "core/ledger/Posting.h"
#include "core/records/Movements.h"
#include "core/records/Writing.h"
#include "core/text/Amounts.h"

#include <QCoreApplication>
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
  query.fo = gains::FoChoice::kNonFo;
  query.scrip = action.scrip;
  return gains::RemainingLots(connection, query, progress);
}

std::vector<ActionLot> LotsOf(const Action& action, const AccountEffect& account, int& number) {
  std::vector<ActionLot> lots = account.effect.lots;
  for (ActionLot& lot : lots) {
    lot.action = action.id;
    lot.number = ++number;
    lot.client = account.client;
    lot.year = FinancialYear::Of(ExDayOf(action));
    lot.account = account.account;
  }
  return lots;
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
  return lacking.is_sale ? QCoreApplication::translate("Actions", "%1: Bill %2")
                               .arg(client, found ? rows.Text(1) : QString())
                         : QCoreApplication::translate("Actions", "%1: Transfer").arg(client);
}

Refusal LacksShares(Transaction& transaction, const Lots& lots, const Action& action) {
  constexpr std::size_t kMost = 15;
  const std::vector<Lacking> lacking = FindLacking(transaction, lots, action);
  QStringList lines{QCoreApplication::translate(
      "Actions",
      "The Holdings can't Follow: these Sales and Transfers from the Ex-Date on would Lack "
      "Shares. Delete them, Apply again, and Enter them anew.")};
  for (const Lacking& one : std::span(lacking).first(std::min(kMost, lacking.size()))) {
    lines << QCoreApplication::translate("Actions", "%1 of %2, %3 Shares")
                 .arg(NameOf(transaction.GetConnection(), one), one.day,
                      text::NumberText(one.quantity.Number()));
  }
  if (lacking.size() > kMost) {
    lines << QCoreApplication::translate("Actions", "and %1 more").arg(lacking.size() - kMost);
  }
  return {lines.join(QLatin1Char('\n')), {}};
}

void SetApplied(Transaction& transaction, const Action& action, bool applied) {
  transaction.Execute("Update CorpAction Set Applied=? Where Id=?", applied ? 1 : 0, action.id);
}

}  // namespace

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

Result<std::size_t> Apply(Transaction& transaction, const Action& action,
                          const ChosenShares& chosen, Progress& progress) {
  const std::vector<AccountEffect> effects =
      EffectsOf(transaction.GetConnection(), action, chosen, progress);
  std::vector<ActionLot> touched;
  int number = 0;
  for (const AccountEffect& account : effects) {
    std::ranges::move(LotsOf(action, account, number), std::back_inserter(touched));
  }
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
  records::Insert(transaction, std::span<const ActionLot>(touched));
  SetApplied(transaction, action, true);
  return effects.size();
}

MaybeRefusal TakeBack(Transaction& transaction, const Action& action) {
  const std::vector<ActionLot> touched = records::Select<ActionLot>(transaction.GetConnection())
                                             .Where(&ActionLot::action, action.id)
                                             .OrderBy(&ActionLot::number)
                                             .All();
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
  SetApplied(transaction, action, false);
  return std::nullopt;
}

}  // namespace quorvane::actions
