#pragma once

#include "core/Progress.h"
#include "core/Result.h"
#include "core/actions/Application.h"
#include "core/database/Connection.h"
#include "core/text/Dates.h"

#include <optional>
#include <span>
#include <vector>

namespace quorvane::corporate_actions {

using actions::ChosenShares;
using records::Action;

/// Corporate actions in the database. An action is recorded first, shown with what it does to
/// every account, and then applied to the holdings. An applied one has to be taken back before it
/// is changed.
class ActionBook {
 public:
  explicit ActionBook(database::Connection& connection) : connection_(connection) {}

  /// By ex-day, the newest first.
  std::vector<Action> List() const;
  std::optional<Action> Load(ActionId id) const;

  /// Records a new action or changes one that is not applied. Refused when its terms are not
  /// complete, when it is recorded already or was applied meanwhile, or when a scrip is gone.
  Result<ActionId> Save(const Action& action);

  /// The same for all of them in one transaction: all or none. The refusal names the action.
  Result<std::vector<ActionId>> SaveAll(std::span<const Action> actions);

  /// Refused while the action is applied.
  MaybeRefusal Delete(ActionId id);

  /// What a complete action does to every account that holds the scrip when its ex-day begins. Of
  /// an applied action the result is what was applied. Changes nothing.
  Result<std::vector<actions::AccountEffect>> Preview(const Action& action,
                                                      const ChosenShares& chosen,
                                                      Progress& progress) const;

  /// Whether the records still give the shares that an applied action was applied to.
  bool IsCurrent(const Action& action) const;

  /// Applies recorded actions in the order of their ex-days, in one transaction: all or none. One
  /// that is applied already, or whose ex-day is after `today`, is refused. Returns the number of
  /// accounts.
  Result<std::size_t> Apply(std::span<const ActionId> ids, const ChosenShares& chosen,
                            text::Date today, Progress& progress);

  /// Records new actions and applies them, in one transaction: all or nothing. Refused as by
  /// SaveAll and Apply.
  Result<std::size_t> RecordAndApply(std::span<const Action> actions, text::Date today,
                                     Progress& progress);

  /// Undoes an action. Refused if a later one changed the same shares, or shares would be missing.
  MaybeRefusal TakeBack(ActionId id);

 private:
  database::Connection& connection_;
};

}  // namespace quorvane::corporate_actions
