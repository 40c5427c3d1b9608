#include "core/gains/Matching.h"

#include "core/gains/AverageCost.h"
#include "core/gains/MatchAmounts.h"
#include "core/gains/RemainingLots.h"
#include "core/text/Amounts.h"
#include "core/text/Shares.h"

#include <algorithm>
#include <utility>

namespace quorvane::gains {
namespace {

using text::Shares;

class Matcher {
 public:
  Matcher(std::span<Purchase> purchases, std::span<const Sale> sales, ChargeChoice charges,
          CostBasis basis, std::vector<Match>& matches)
      : purchases_(purchases),
        sales_(sales),
        charges_{.service_tax = charges.service_tax || basis == CostBasis::kAverage,
                 .stt = charges.stt},
        average_wanted_(basis == CostBasis::kAverage),
        matches_(matches),
        lots_(purchases) {}

  void MatchSale(std::uint32_t row);
  std::int64_t CostOfTheRest();

 private:
  /// A sale while it is being matched.
  struct OpenSale {
    const Sale& sale;
    std::uint32_t row;
    double open;  ///< shares that are still to be matched
    Spread amount;
    Spread stt;
  };

  void LookAhead(std::uint32_t row) const;
  void TakeIn(Date until);
  void UseUp(std::uint32_t lot, OpenSale& sale);
  std::int64_t CostPaise(std::uint32_t lot, double shares);
  void Record(OpenSale& open, std::uint32_t lot, double shares, std::int64_t cost);

  std::span<Purchase> purchases_;
  std::span<const Sale> sales_;
  ChargeChoice charges_;
  bool average_wanted_;
  std::vector<Match>& matches_;
  LotIndex lots_;
  AverageCost average_;
  std::uint32_t taken_in_ = 0;  ///< purchases that the average knows
};

/// Adds what came in up to and on a day to the average, less what was already sold ahead of it.
void Matcher::TakeIn(Date until) {
  while (taken_in_ < purchases_.size() && purchases_[taken_in_].entered <= until) {
    const Purchase& purchase = purchases_[taken_in_++];
    average_.Receive(purchase.remaining,
                     text::ToPaise(CostOf(purchase, purchase.remaining, charges_)));
  }
}

/// A lot that comes in only after the sale is no part of the average and keeps its own cost: as
/// much as what is left of it costs less.
std::int64_t Matcher::CostPaise(std::uint32_t lot, double shares) {
  const Purchase& purchase = purchases_[lot];
  if (!average_wanted_) {
    return text::ToPaise(CostOf(purchase, shares, charges_));
  }
  if (lot < taken_in_) {
    return average_.Release(shares);
  }
  return text::ToPaise(CostOf(purchase, Shares::Clean(purchase.remaining + shares), charges_)) -
         text::ToPaise(CostOf(purchase, purchase.remaining, charges_));
}

void Matcher::Record(OpenSale& open, std::uint32_t lot, double shares, std::int64_t cost) {
  const Sale& sale = open.sale;
  if (!sale.listed) {
    return;
  }
  Match match{.sale = open.row, .purchase = lot, .quantity = shares};
  match.cost = cost;
  match.sale_amount = open.amount.Next(open.open);
  match.stt_paid = open.stt.Next(open.open);
  if (lot != Match::kNoPurchase) {
    match.kind = Classify(purchases_[lot].date, sale.date);
    match.gain = sale.transfer ? 0 : match.sale_amount - cost - (charges_.stt ? match.stt_paid : 0);
  }
  matches_.push_back(match);
}

/// Takes what the sale needs, at most what is left.
void Matcher::UseUp(std::uint32_t lot, OpenSale& sale) {
  double& remaining = purchases_[lot].remaining;
  const double taken = Shares::Clean(std::min(sale.open, remaining));
  remaining = Shares::Clean(remaining - taken);
  sale.open = Shares::Clean(sale.open - taken);
  if (taken > 0) {
    Record(sale, lot, taken, CostPaise(lot, taken));
  }
}

/// A sale of a large account touches lots far apart in memory; asked for in time they are there.
void Matcher::LookAhead(std::uint32_t row) const {
  constexpr std::uint32_t kLots = 8;
  constexpr std::uint32_t kRates = 16;
  if (row + kRates >= sales_.size()) {
    return;
  }
  lots_.Announce(sales_[row + kRates].lot_rate);
  const std::uint32_t lot = lots_.Guess(sales_[row + kLots].lot_rate);
  if (lot != LotIndex::kEnd) {
    __builtin_prefetch(&purchases_[lot]);
    __builtin_prefetch(&purchases_[lot].remaining);
  }
}

std::int64_t Matcher::CostOfTheRest() {
  if (!average_wanted_ || purchases_.empty()) {
    return 0;
  }
  TakeIn(purchases_.back().entered);
  return average_.Cost();
}

void Matcher::MatchSale(std::uint32_t row) {
  const Sale& sale = sales_[row];
  LookAhead(row);
  if (average_wanted_) {
    TakeIn(sale.at_opening ? sale.date - std::chrono::days(1) : sale.date);
  }
  const double quantity = Shares::Clean(sale.quantity);
  OpenSale open{.sale = sale,
                .row = row,
                .open = quantity,
                .amount = Spread(sale.amount, quantity),
                .stt = Spread(sale.stt, quantity)};
  std::uint32_t* const head = lots_.Head(sale.lot_rate);
  while (open.open > 0 && head != nullptr && *head != LotIndex::kEnd) {
    UseUp(*head, open);
    if (!(purchases_[*head].remaining > 0)) {
      *head = lots_.Next(*head);
    }
  }
  if (open.open > 0) {
    const double rest = std::exchange(open.open, 0);
    Record(open, Match::kNoPurchase, rest, 0);
  }
}

}  // namespace

GainKind Classify(Date purchase, Date sale) {
  constexpr int kShortestYear = 365;
  const auto held = (sale - purchase).count();
  if (held == 0) {
    return GainKind::kSpeculation;
  }
  // The calendar is asked only where leap days matter.
  const bool within_year =
      held <= kShortestYear || (held == kShortestYear + 1 && sale <= text::AddYear(purchase));
  return within_year ? GainKind::kShortTerm : GainKind::kLongTerm;
}

std::int64_t MatchSales(std::span<Purchase> purchases, std::span<const Sale> sales,
                        ChargeChoice charges, CostBasis basis, std::vector<Match>& matches) {
  Matcher matcher(purchases, sales, charges, basis, matches);
  for (std::uint32_t row = 0; row < sales.size(); ++row) {
    matcher.MatchSale(row);
  }
  return matcher.CostOfTheRest();
}

}  // namespace quorvane::gains
