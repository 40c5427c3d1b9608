#pragma once

#include "core/text/Dates.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quorvane::gains {

using text::Date;

/// One lot that came in: an opening lot, a purchase line, a transfer in or what a corporate action
/// gave. Rows are given in the order of `entered`; sales use them up in that order.
struct Purchase {
  Date date;               ///< from which the shares count as held
  Date entered;            ///< on which they came in; before it only for corporate actions
  double quantity = 0;     ///< shares
  double lot_rate = 0;     ///< rupees a share; compared exactly with a sale's lot rate
  double net = 0;          ///< rupees a share, brokerage included
  double amount = 0;       ///< rupees paid for the whole quantity
  double service_tax = 0;  ///< rupees for the whole quantity
  double stt = 0;          ///< rupees for the whole quantity
  double brokerage = 0;    ///< rupees a share
  bool fo = false;         ///< futures and options
  bool transfer = false;   ///< came in by a transfer or a corporate action
  bool opening = false;    ///< opening stock of the year, of any date
  double remaining = 0;    ///< shares not yet used up; MatchSales lowers it
};

/// One sale line, transfer out or what a corporate action took, in date order.
struct Sale {
  Date date;
  double quantity = 0;      ///< shares
  double lot_rate = 0;      ///< rate of the lot that the sale names
  double net = 0;           ///< rupees a share, brokerage deducted
  double amount = 0;        ///< rupees for the whole quantity
  double stt = 0;           ///< rupees for the whole quantity
  bool transfer = false;    ///< leaves by a transfer: uses lots up, gains nothing
  bool listed = true;       ///< false for a sale before the period: uses lots up, is not reported
  bool at_opening = false;  ///< leaves before what comes in on its day: by a corporate action
};

enum class GainKind : std::uint8_t { kSpeculation, kShortTerm, kLongTerm };

/// Which charges of a purchase count into its cost, in addition to the net rate. With `stt` the
/// sale's STT is deducted from the gain as well.
struct ChargeChoice {
  bool service_tax = false;
  bool stt = false;
};

/// A quantity of a sale and the purchase that it used up. Money in paise: what is shown is what is
/// added up. gain = sale_amount - cost (- stt_paid with ChargeChoice::stt), and 0 for a transfer.
/// Without a purchase (purchase == kNoPurchase) there is no cost, no gain and no kind.
struct Match {
  static constexpr std::uint32_t kNoPurchase = 0xFFFFFFFF;

  std::uint32_t sale = 0;      ///< index into the sales
  std::uint32_t purchase = 0;  ///< index into the purchases
  double quantity = 0;
  std::int64_t sale_amount = 0;
  std::int64_t cost = 0;
  std::int64_t stt_paid = 0;
  std::int64_t gain = 0;
  GainKind kind = GainKind::kShortTerm;
};

/// Speculation on one day; short term up to and including the purchase's first anniversary (29
/// February has its anniversary on 28 February); long term after it.
GainKind Classify(Date purchase, Date sale);

/// How the cost of a sold share is found: of the lot that the sale used up, or the moving average
/// of all lots held at the sale (holding periods still follow the lots). The average counts the
/// purchases of the sale's own day, starts again after the holding was empty, and leaves out lots
/// that come in only after the sale: a sale that names such a lot takes that lot's cost. Service
/// tax counts into the average cost with every choice of charges.
enum class CostBasis : std::uint8_t { kLot, kAverage };

/// Uses the purchases up by the sales, each sale within the purchases of its lot rate, first in
/// first out, and appends a Match for each quantity matched, in the order of the sales; an
/// unmatched rest comes last for its sale, with kNoPurchase. Sales with listed == false leave no
/// Match. A sale's amount and STT are spread over its matches so that the parts add up to the
/// whole, to the paisa.
///
/// `purchases` and `sales` are those of one account and one scrip. Linear in their number, apart
/// from a sort. Returns, with CostBasis::kAverage, what all the shares that remain cost at the
/// average, in paise: together with the costs of the matches it is what was paid. 0 with
/// CostBasis::kLot.
std::int64_t MatchSales(std::span<Purchase> purchases, std::span<const Sale> sales,
                        ChargeChoice charges, CostBasis basis, std::vector<Match>& matches);

}  // namespace quorvane::gains
