#pragma once

#include "core/gains/RemainingLots.h"
#include "core/lookups/Directory.h"
#include "portfolio/Portfolio.h"
#include "portfolio/trades/TradeImport.h"

#include <cstdint>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace quorvane::portfolio {

/// Numbers of bills on their days, in small letters.
using BillNumbers = std::set<std::pair<text::Date, std::string>>;

/// A bill of the import and the lines of the plan that it has.
struct PlannedBill {
  text::Date day;
  std::string number;
  std::string exchange;
  std::vector<std::uint32_t> lines;  ///< places in TradePlan::Lines
};

/// Bills of the lines at these places, which are in the order of day, exchange and bill number. A
/// bill without a number, or with one that is taken, gets one of its day and exchange; it is then
/// taken, too.
std::vector<PlannedBill> BillsOf(const TradePlan& plan, std::span<const std::uint32_t> lines,
                                 BillNumbers& taken);

/// A portfolio of bills and carried lots, as a folder would have it. The line of an error is the
/// place of the plan's line, counted from 1.
class BillPortfolio {
 public:
  BillPortfolio(const TradeTarget& target, const TradePlan& plan,
                const lookups::Directory& directory);

  void AddCarried(std::span<const gains::RemainingLot> lots, text::FinancialYear year);
  void Add(const PlannedBill& bill);

  const Portfolio& Get() const { return portfolio_; }
  bool IsEmpty() const { return portfolio_.bills.empty() && portfolio_.openings.empty(); }

 private:
  Symbol ScripOf(const TradedScrip& scrip, std::uint32_t place);
  void AddLine(const TradeLine& line, std::uint32_t place);

  const TradePlan& plan_;
  const lookups::Directory& directory_;
  Portfolio portfolio_;
  Symbol client_;
  Symbol account_;
  Symbol broker_;
  std::set<std::string> new_codes_;
};

}  // namespace quorvane::portfolio
