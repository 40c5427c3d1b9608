#pragma once

#include "core/Progress.h"
#include "core/database/Connection.h"
#include "core/gains/Matching.h"
#include "core/records/Faults.h"
#include "reports/mis/MisQuery.h"

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace quorvane::mis {

/// Something that came in or left in the period. A sale has a movement for each purchase that it
/// used up.
struct Movement {
  enum class Kind : std::uint8_t { kPurchase, kTransferIn, kSale, kTransferOut };

  Kind kind = Kind::kPurchase;
  Date date;
  double quantity = 0;                  ///< shares, positive
  std::optional<double> purchase_rate;  ///< rupees a share of the lot; none when sold without one
  std::optional<Date> purchase_date;    ///< of the lot that a sale or transfer out used up
  std::int64_t gain = 0;                ///< paise, of a sale
  gains::GainKind gain_kind = gains::GainKind::kShortTerm;
};

/// What is left of a purchase.
struct HeldLot {
  Date date;  ///< of the purchase
  double quantity = 0;
  double net = 0;         ///< rupees a share, brokerage included
  std::int64_t cost = 0;  ///< paise: net rate times quantity
};

/// One scrip in one account over a period of a year.
///
/// Opening: the opening stock of the year and everything that came in or left before the period.
/// Purchase, sale and transfer: those of the period, a transfer counting what came in less what
/// went out. Balance = opening + purchase - sale + transfer, in shares.
///
/// Lots, their cost and the gains follow the capital-gain statement without charges: a sale uses up
/// the purchases of the lot rate that it names, first in first out. So the lots hold what that
/// statement lists as unsold at the end of the period, and the gains are its gains.
struct Holding {
  ClientId client;
  AccountId account;
  ScripId scrip;
  double opening = 0;
  double purchase = 0;
  double sale = 0;
  double transfer = 0;
  std::int64_t gain = 0;            ///< paise
  std::vector<Movement> movements;  ///< of the period; on one day, what came in stands first
  std::vector<HeldLot> lots;        ///< at the end of the period, by date

  double Balance() const;
  double Held() const;        ///< shares in the lots
  std::int64_t Cost() const;  ///< paise

  /// Shares sold of lots that do not exist: they lower the balance and no lot.
  double SoldWithoutLot() const;
};

/// Adds quantities of shares, exact to a millionth.
double AddShares(double a, double b);

struct HoldingsRead {
  std::vector<Holding> holdings;
  records::Faults faults;  ///< records that could not count as they are written
};

/// The holdings of the query's clients, accounts and scrips over `period`, those without any
/// movement or stock left out: by client code, scrip name and account number. One query a table,
/// for any number of clients. Throws as gains::History does.
HoldingsRead ReadHoldings(database::Connection& connection, const MisQuery& query,
                          const reporting::Period& period, Progress& progress);

/// Makes the holding of one place from what came in and what left, both in date order. Changes
/// `purchases`: matching uses them up.
Holding MakeHolding(std::span<gains::Purchase> purchases, std::span<const gains::Sale> sales,
                    const reporting::Period& period);

}  // namespace quorvane::mis
