#pragma once

#include "core/Progress.h"
#include "core/database/Connection.h"
#include "core/records/Movements.h"
#include "portfolio/reconcile/Reconciliation.h"

#include <vector>

namespace quorvane::reconcile {

/// Finds the likely causes of differences. Reads the actions and the client's records of the years
/// around a day once.
class Causes {
 public:
  Causes(database::Connection& connection, ClientId client, text::Date day, Progress& progress);

  /// Sets the causes of rows that do not agree.
  void Find(std::vector<ReconciledRow>& rows) const;

 private:
  struct DatedAction {
    records::Action action;
    text::Date ex_day;
  };

  Cause CauseOf(const ReconciledRow& row, const std::vector<ReconciledRow>& rows) const;
  Cause ActionOf(const ReconciledRow& row) const;
  Cause MovementOf(const ReconciledRow& row) const;
  static Cause OtherAccountOf(const ReconciledRow& row, const std::vector<ReconciledRow>& rows);
  Cause Suggested(const ReconciledRow& row) const;

  text::Date day_;
  std::vector<DatedAction> actions_;
  std::vector<records::Movement> near_;  ///< bills and transfers near the day
  std::map<int, QString> bill_numbers_;
};

}  // namespace quorvane::reconcile
