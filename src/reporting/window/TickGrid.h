#pragma once

#include "controls/Grid.h"
#include "core/Ids.h"
#include "core/Result.h"
#include "core/lookups/Choices.h"

#include <vector>

namespace quorvane::reporting {

/// A grid in which accounts, clients, brokers or scrips are ticked for a report. A click on the
/// heading of the ticks ticks all or none; Space ticks the current row.
class TickGrid : public controls::Grid {
  Q_OBJECT

 public:
  /// `name` and `purpose` as for Grid; `columns` follow the ticks, the first one names a row.
  TickGrid(const QString& name, const QString& purpose, std::vector<controls::Column> columns);

  /// Replaces the rows, for a grid of one column; all of them are ticked, or none.
  void Fill(const std::vector<lookups::Item>& items, bool ticked = true);

  /// The keys of the ticked rows, in the order of the grid.
  template <class IdType>
  std::vector<IdType> Ticked() const {
    std::vector<IdType> ids;
    for (const int id : Model().TickedIds()) {
      ids.push_back(IdType{id});
    }
    return ids;
  }

  /// The ticked accounts. Empty, which means every account, when all are: then bills that were
  /// entered without an account count as well.
  std::vector<AccountId> TickedAccounts() const;

  /// The texts of what is ticked, at most a few; none when everything is.
  QStringList TickedTexts() const;

  /// A refusal with that text, of that field, while nothing is ticked.
  MaybeRefusal RefuseWithoutTick(const QString& text, Field field) const;

  /// "Select Demat A/c!" while no account of a client that has some is ticked. A client without
  /// accounts may have bills, which then have none either.
  MaybeRefusal RefuseWithoutAccount() const;
};

}  // namespace quorvane::reporting
