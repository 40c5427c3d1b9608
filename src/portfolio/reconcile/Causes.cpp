#include "portfolio/reconcile/Causes.h"

#include "core/actions/Effect.h"
#include "core/actions/Suggestion.h"
#include "core/actions/Terms.h"
#include "core/records/Bill.h"
#include "core/records/Query.h"

#include <algorithm>
#include <set>

namespace quorvane::reconcile {
namespace {

using records::ActionKind;
using records::Movement;
using records::MovementKind;

constexpr std::chrono::days kNear{7};             // between a trade and its entry into the account
constexpr std::chrono::days kCreditedWithin{60};  // from an ex-day to the credit of its shares

/// The shares that an action makes of a holding; nullopt for one that does not follow from it.
std::optional<Shares> After(const records::Action& action, text::Date ex_day, Shares held) {
  switch (action.kind) {
    case ActionKind::kSplit:
    case ActionKind::kConsolidation:
    case ActionKind::kBonus:
    case ActionKind::kMerger: {
      if (!action.old_shares || held <= Shares()) {
        return std::nullopt;
      }
      const actions::HeldPiece piece{.rate = 1, .quantity = held, .acquired = ex_day};
      return actions::Apply(action, ex_day, std::span(&piece, 1)).after;
    }
    default:
      return std::nullopt;
  }
}

Shares Signed(const Movement& movement) {
  return records::IsReceipt(movement.kind) ? movement.quantity : -movement.quantity;
}

bool IsTrade(const Movement& movement) {
  return movement.kind == MovementKind::kPurchase || movement.kind == MovementKind::kSale;
}

bool IsTransfer(const Movement& movement) {
  return movement.kind == MovementKind::kTransferIn || movement.kind == MovementKind::kTransferOut;
}

}  // namespace

Causes::Causes(database::Connection& connection, ClientId client, text::Date day,
               Progress& progress)
    : day_(day) {
  for (const records::Action& action :
       records::Select<records::Action>(connection).OrderBy(&records::Action::id).All()) {
    if (const auto ex_day = text::ParseDmy(action.ex_day); ex_day && *ex_day <= day) {
      actions_.push_back({action, *ex_day});
    }
  }
  std::ranges::stable_sort(actions_, std::greater<>(), &DatedAction::ex_day);
  records::Faults faults;
  const std::set<text::FinancialYear> years{text::FinancialYear::Of(day - kNear),
                                            text::FinancialYear::Of(day + kNear)};
  for (const text::FinancialYear year : years) {
    records::ReadMovements(
        connection, {.client = client, .year = year, .charges = false}, faults, progress,
        [&](const Movement& movement) {
          const bool counts = (IsTrade(movement) || IsTransfer(movement)) && movement.dated;
          if (counts && movement.date > day - kNear && movement.date <= day + kNear) {
            near_.push_back(movement);
          }
        });
    records::Select<records::Bill>(connection)
        .Where(&records::Bill::client, client)
        .Where(&records::Bill::year, year)
        .Only<&records::Bill::id, &records::Bill::number>([this](const records::Bill& bill) {
          bill_numbers_.emplace(bill.id.value, bill.number);
        });
  }
  std::ranges::stable_sort(near_, {}, &Movement::date);
}

void Causes::Find(std::vector<ReconciledRow>& rows) const {
  std::vector<Cause> causes(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].agreement != Agreement::kAgrees && rows[i].scrip) {
      causes[i] = CauseOf(rows[i], rows);
    }
  }
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i].cause = std::move(causes[i]);
  }
}

Cause Causes::CauseOf(const ReconciledRow& row, const std::vector<ReconciledRow>& rows) const {
  for (const Cause& cause : {ActionOf(row), MovementOf(row), OtherAccountOf(row, rows)}) {
    if (cause.kind != CauseKind::kNone) {
      return cause;
    }
  }
  return Suggested(row);
}

/// An action that would make the one quantity into the other.
Cause Causes::ActionOf(const ReconciledRow& row) const {
  for (const auto& [action, ex_day] : actions_) {
    const bool of_scrip = action.scrip == row.scrip || (action.other && action.other == row.scrip);
    if (!of_scrip) {
      continue;
    }
    if (!action.applied && action.scrip == row.scrip &&
        After(action, ex_day, row.recorded) == row.stated) {
      return {.kind = CauseKind::kActionToApply, .action = action, .day = ex_day};
    }
    if (action.applied && ex_day + kCreditedWithin >= day_ && action.scrip == row.scrip &&
        After(action, ex_day, row.stated) == row.recorded) {
      return {.kind = CauseKind::kActionOnItsWay, .action = action, .day = ex_day};
    }
    // The other scrip of a merger comes with the action that is not applied.
    if (!action.applied && action.other == row.scrip && row.recorded == Shares()) {
      return {.kind = CauseKind::kActionToApply, .action = action, .day = ex_day};
    }
  }
  return {};
}

/// Trades up to the day that are not settled yet, the latest first, or trades after it; then
/// transfers in the same way.
Cause Causes::MovementOf(const ReconciledRow& row) const {
  const Shares missing = row.recorded - row.stated;
  for (const bool trades : {true, false}) {
    std::vector<const Movement*> own;
    for (const Movement& movement : near_) {
      if (movement.account == row.account && movement.scrip == row.scrip && !movement.fo &&
          (trades ? IsTrade(movement) : IsTransfer(movement))) {
        own.push_back(&movement);
      }
    }
    const auto found = [&](const Movement& movement) {
      Cause cause{.kind = trades ? CauseKind::kBill : CauseKind::kTransfer,
                  .document = movement.document,
                  .day = movement.date};
      const auto number = bill_numbers_.find(movement.document);
      cause.number = trades && number != bill_numbers_.end() ? number->second : QString();
      return cause;
    };
    Shares sum;
    const std::vector<const Movement*> latest(own.rbegin(), own.rend());
    for (const Movement* movement : latest) {
      if (movement->date <= day_ && (sum += Signed(*movement)) == missing) {
        return found(*movement);
      }
    }
    sum = {};
    for (const Movement* movement : own) {
      if (movement->date > day_ && (sum += Signed(*movement)) == -missing) {
        return found(*movement);
      }
    }
  }
  return {};
}

Cause Causes::OtherAccountOf(const ReconciledRow& row, const std::vector<ReconciledRow>& rows) {
  for (const ReconciledRow& other : rows) {
    if (other.scrip == row.scrip && other.account != row.account &&
        other.Difference() == -row.Difference()) {
      return {.kind = CauseKind::kOtherAccount, .number = other.account_number};
    }
  }
  return {};
}

Cause Causes::Suggested(const ReconciledRow& row) const {
  const auto suggestions = actions::SuggestActions(row.recorded, row.stated);
  if (suggestions.empty()) {
    return {};
  }
  Cause cause{.kind = CauseKind::kSuggestedAction, .action = suggestions.front().Action()};
  cause.action.scrip = row.scrip;
  if (suggestions.size() > 1) {
    cause.also = suggestions[1].Action();
  }
  return cause;
}

}  // namespace quorvane::reconcile
