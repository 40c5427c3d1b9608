#pragma once

#include "core/gains/RemainingLots.h"
#include "portfolio/Import.h"
#include "portfolio/trades/TradeBills.h"

#include <map>
#include <set>
#include <vector>

namespace quorvane::portfolio {

/// The bills of one import of trades, posted year by year within a transaction.
class TradePosting {
 public:
  TradePosting(database::Transaction& transaction, const TradeTarget& target, TradePlan& plan,
               Movements movements, Progress& progress)
      : transaction_(transaction),
        target_(target),
        plan_(plan),
        movements_(movements),
        progress_(progress) {}

  /// Posts the lines that are to be saved. Those whose shares are missing are marked in the plan
  /// and left out. Refused for what no choice of lines can mend.
  MaybeRefusal Run();

  /// The bills that were posted, after Run.
  const std::vector<PlannedBill>& Bills() const { return bills_; }
  const TradeOutcome& Outcome() const { return outcome_; }

 private:
  void ReadNumbers();
  void GroupByYear();
  std::vector<gains::RemainingLot> LotsInto(text::FinancialYear year);
  std::set<ScripId> MovedFrom(text::FinancialYear year) const;
  MaybeRefusal PostYear(text::FinancialYear year, bool is_last);
  std::vector<std::uint32_t> PossibleLines(text::FinancialYear year) const;
  void TellOpposite();
  MaybeRefusal RefuseSharedCodes(const lookups::Directory& directory) const;
  void Count(const ImportResult& result, const Portfolio& portfolio);
  MaybeRefusal MarkShortages(ErrorList& errors);
  void NoteLaterYears(text::FinancialYear last);

  database::Transaction& transaction_;
  const TradeTarget& target_;
  TradePlan& plan_;
  Movements movements_;
  Progress& progress_;
  BillNumbers numbers_;
  std::map<text::FinancialYear, std::vector<std::uint32_t>> by_year_;  ///< places of lines
  std::vector<PlannedBill> bills_;
  TradeOutcome outcome_;
};

}  // namespace quorvane::portfolio
