#pragma once

#include "core/ledger/Lots.h"
#include "core/records/BillAmounts.h"
#include "core/records/Movements.h"
#include "core/text/Dates.h"

#include <map>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace quorvane::bills {

using records::BillLine;

/// A lot as it is shown beside a bill.
struct HeldLot {
  records::Lot lot;
  std::optional<text::Date> since;  ///< the day on which the oldest of its shares came in
};

/// What moved shares of an account in the year.
std::vector<records::Movement> ReadAccount(database::Connection& connection,
                                           const ledger::Place& place);

/// The account's lots as the ledger has them, smallest quantity first.
std::vector<HeldLot> ReadBalance(database::Connection& connection, const ledger::Place& place,
                                 std::span<const records::Movement> movements);

/// From which day lots are held. Of the shares that came into a lot, the oldest leave it first.
class LotDates {
 public:
  /// Shares came into the lot of that scrip and rate.
  void Receive(ScripId scrip, double rate, text::Date day, text::Shares quantity);

  /// Shares came in by these movements, except those of one bill.
  void Receive(std::span<const records::Movement> movements, BillId without);

  /// None for a lot that is used up or whose shares came in on no known day.
  std::optional<text::Date> Of(const records::Lot& lot) const;

  std::vector<HeldLot> Date(const std::vector<records::Lot>& lots) const;

 private:
  std::map<std::pair<ScripId, double>, std::map<text::Date, text::Shares>> received_;
};

/// The order beside a bill: the lots of `first` with shares left, oldest first, then the others as
/// they are given, then those that are used up.
void Arrange(std::vector<HeldLot>& lots, ScripId first);

/// Part of a lot that a sale takes.
struct Piece {
  HeldLot from;
  text::Shares quantity;
};

/// Takes shares of a scrip off the lots: off the lot numbered `chosen` first, if there is one, then
/// off the oldest. Empty, and nothing is taken, when there are not so many.
std::vector<Piece> TakeOldest(std::vector<HeldLot>& lots, ScripId scrip, LotId chosen,
                              text::Shares quantity);

/// A line for each piece of a sale. Brokerage stays as it is; service tax and STT are shared out.
std::vector<BillLine> SpreadOver(const BillLine& sale, std::span<const Piece> pieces);

}  // namespace quorvane::bills
