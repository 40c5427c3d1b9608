#include "transactions/corporate_actions/ActionBook.h"

#include "core/actions/Terms.h"
#include "core/database/Keys.h"
#include "core/records/Writing.h"
#include "core/text/Tr.h"
#include "transactions/posting/Owner.h"

#include <algorithm>

namespace quorvane::corporate_actions {
namespace {

using database::Transaction;

Refusal Gone() {
  return Refusal{Tr("Actions", "This Corporate Action was Deleted in the Meantime."), {}};
}

std::optional<Action> ReadForUpdate(Transaction& transaction, ActionId id) {
  return records::Select<Action>(transaction.GetConnection())
      .Where(&Action::id, id)
      .ForUpdate()
      .First();
}

auto TermsOf(const Action& action) {
  return std::tuple(action.kind, action.ex_day, action.new_shares, action.old_shares, action.other,
                    action.price, action.cost_percent);
}

MaybeRefusal CheckIsNew(Transaction& transaction, const Action& action) {
  const std::vector<Action> same = records::Select<Action>(transaction.GetConnection())
                                       .Where(&Action::scrip, action.scrip)
                                       .ForUpdate()
                                       .All();
  const bool is_recorded = std::ranges::any_of(same, [&](const Action& other) {
    return other.id != action.id && TermsOf(other) == TermsOf(action);
  });
  if (is_recorded) {
    return Refusal{Tr("Actions", "This Corporate Action is Recorded Already."), {}};
  }
  return std::nullopt;
}

Result<ActionId> SaveIn(Transaction& transaction, const Action& entered) {
  if (MaybeRefusal refusal = actions::Check(entered)) {
    return *refusal;
  }
  Action action = entered;
  const std::optional<Action> old =
      action.id ? ReadForUpdate(transaction, action.id) : std::nullopt;
  if (old && old->applied) {
    return Refusal{Tr("Actions", "Take the Corporate Action back before it is Changed."), {}};
  }
  const std::array scrips{action.scrip, action.other};
  if (MaybeRefusal refusal = posting::CheckScrips(transaction, scrips, {}, Field::kScrip)) {
    return *refusal;
  }
  if (MaybeRefusal refusal = CheckIsNew(transaction, action)) {
    return *refusal;
  }
  action.applied = false;
  action.id = records::ClaimKey(transaction, &Action::id, action.id);
  records::Insert(transaction, action);
  return action.id;
}

/// The refusal with the action that it is about.
Refusal Named(Transaction& transaction, const Action& action, const Refusal& refusal) {
  auto rows = transaction.Open("Select Name From Script Where Id=?", action.scrip);
  const QString scrip = rows.Next() ? rows.Text(0) : QString();
  return {QStringLiteral("%1, %2, %3: %4")
              .arg(scrip, actions::DescribeForUser(action), action.ex_day, refusal.text),
          refusal.field};
}

Result<std::size_t> ApplyIn(Transaction& transaction, std::vector<Action> chosen_actions,
                            const ChosenShares& chosen, text::Date today, Progress& progress) {
  std::ranges::sort(chosen_actions, {}, [](const Action& action) {
    return std::tuple(text::ParseDmy(action.ex_day), action.id);
  });
  std::size_t accounts = 0;
  for (const Action& action : chosen_actions) {
    if (action.applied) {
      return Named(transaction, action,
                   Refusal{Tr("Actions", "This Corporate Action is Applied Already."), {}});
    }
    if (text::ParseDmy(action.ex_day) > today) {
      return Named(transaction, action,
                   Refusal{Tr("Actions", "The Ex-Date is still to Come."), {}});
    }
    if (MaybeRefusal refusal = actions::CheckIsLast(transaction, action)) {
      return *refusal;
    }
    const Result<std::size_t> applied = actions::Apply(transaction, action, chosen, progress);
    if (!applied) {
      return Named(transaction, action, applied.Why());
    }
    accounts += *applied;
  }
  return accounts;
}

Result<std::size_t> ApplyThose(Transaction& transaction, std::span<const ActionId> ids,
                               const ChosenShares& chosen, text::Date today, Progress& progress) {
  std::vector<Action> wanted;
  for (const ActionId id : ids) {
    const std::optional<Action> action = ReadForUpdate(transaction, id);
    if (!action) {
      return Gone();
    }
    wanted.push_back(*action);
  }
  return ApplyIn(transaction, std::move(wanted), chosen, today, progress);
}

Result<std::vector<ActionId>> SaveAllIn(Transaction& transaction, std::span<const Action> entered) {
  std::vector<ActionId> ids;
  for (const Action& action : entered) {
    const Result<ActionId> saved = SaveIn(transaction, action);
    if (!saved) {
      return entered.size() == 1 ? saved.Why() : Named(transaction, action, saved.Why());
    }
    ids.push_back(*saved);
  }
  return ids;
}

}  // namespace

std::vector<Action> ActionBook::List() const {
  std::vector<Action> all = records::Select<Action>(connection_).OrderDownBy(&Action::id).All();
  std::ranges::stable_sort(all, std::ranges::greater(),
                           [](const Action& action) { return text::ParseDmy(action.ex_day); });
  return all;
}

std::optional<Action> ActionBook::Load(ActionId id) const {
  return records::Select<Action>(connection_).Where(&Action::id, id).First();
}

Result<ActionId> ActionBook::Save(const Action& action) {
  const Result<std::vector<ActionId>> saved = SaveAll(std::span(&action, 1));
  if (!saved) {
    return saved.Why();
  }
  return saved->front();
}

Result<std::vector<ActionId>> ActionBook::SaveAll(std::span<const Action> entered) {
  return database::InTransaction(
      connection_, [&](Transaction& transaction) { return SaveAllIn(transaction, entered); });
}

Result<std::size_t> ActionBook::RecordAndApply(std::span<const Action> entered, text::Date today,
                                               Progress& progress) {
  return database::InTransaction(
      connection_,
      [&](Transaction& transaction) -> Result<std::size_t> {
        const Result<std::vector<ActionId>> ids = SaveAllIn(transaction, entered);
        return ids ? ApplyThose(transaction, *ids, {}, today, progress)
                   : Result<std::size_t>(ids.Why());
      },
      database::Turn::kAlone);
}

MaybeRefusal ActionBook::Delete(ActionId id) {
  return database::InTransaction(connection_, [&](Transaction& transaction) -> MaybeRefusal {
    const std::optional<Action> old = ReadForUpdate(transaction, id);
    if (old && old->applied) {
      return Refusal{Tr("Actions", "Take the Corporate Action back before it is Deleted."), {}};
    }
    records::Delete<Action>(transaction).Where(&Action::id, id).Run();
    return std::nullopt;
  });
}

Result<std::vector<actions::AccountEffect>> ActionBook::Preview(const Action& action,
                                                                const ChosenShares& chosen,
                                                                Progress& progress) const {
  if (MaybeRefusal refusal = actions::Check(action)) {
    return *refusal;
  }
  return actions::EffectsOf(connection_, action,
                            action.applied ? actions::AppliedShares(connection_, action) : chosen,
                            progress);
}

bool ActionBook::IsCurrent(const Action& action) const {
  Progress silent;
  return actions::IsCurrent(connection_, action, silent);
}

Result<std::size_t> ActionBook::Apply(std::span<const ActionId> ids, const ChosenShares& chosen,
                                      text::Date today, Progress& progress) {
  return database::InTransaction(
      connection_,
      [&](Transaction& transaction) {
        return ApplyThose(transaction, ids, chosen, today, progress);
      },
      database::Turn::kAlone);
}

MaybeRefusal ActionBook::TakeBack(ActionId id) {
  return database::InTransaction(
      connection_,
      [&](Transaction& transaction) -> MaybeRefusal {
        const std::optional<Action> action = ReadForUpdate(transaction, id);
        if (!action || !action->applied) {
          return action ? std::nullopt : MaybeRefusal(Gone());
        }
        if (MaybeRefusal refusal = actions::CheckIsLast(transaction, *action)) {
          return refusal;
        }
        return actions::TakeBack(transaction, *action);
      },
      database::Turn::kAlone);
}

}  // namespace quorvane::corporate_actions
