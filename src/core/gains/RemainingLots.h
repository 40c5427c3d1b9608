#pragma once

#include "core/gains/History.h"
#include "core/gains/Matching.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quorvane::gains {

/// What is left of one purchase at the end of a year.
struct RemainingLot {
  ClientId client;
  AccountId account;
  ScripId scrip;
  Date date;               ///< of the purchase
  double quantity = 0;     ///< shares left
  double rate = 0;         ///< the lot's rate, rupees a share
  double brokerage = 0;    ///< rupees a share
  double total = 0;        ///< rupees for the quantity left: rate and brokerage
  double service_tax = 0;  ///< rupees, the part of the quantity left, to the paisa
  double stt = 0;          ///< rupees, the part of the quantity left, to the paisa
  bool fo = false;
};

/// The purchases that the sales and transfers of the year have not used up, of one client or of
/// all: by client code, scrip name, account number and date.
std::vector<RemainingLot> RemainingLots(database::Connection& connection,
                                        std::optional<ClientId> client, text::FinancialYear year,
                                        Progress& progress);

/// The same at the end of a day, `query.to`: without what came in or left after it. By client code,
/// scrip name, account number and the day on which the shares came in.
std::vector<RemainingLot> RemainingLots(database::Connection& connection, const HistoryQuery& query,
                                        Progress& progress);

/// Finds the purchases of a lot rate in row order and remembers for each rate up to where they are
/// used up. Built in constant time a purchase, searched in constant time a sale.
class LotIndex {
 public:
  static constexpr std::uint32_t kEnd = 0xFFFFFFFF;

  /// Purchases with nothing left are passed over.
  explicit LotIndex(std::span<const Purchase> purchases);

  /// The first row of the rate that is not used up, kEnd when all are, nullptr when there never was
  /// one. Move it on with Next when its row is used up.
  std::uint32_t* Head(double lot_rate);

  /// Starts to load the memory of a rate into the cache; does not tell whether the rate is there.
  void Announce(double lot_rate) const { __builtin_prefetch(&slots_[Start(lot_rate)]); }

  /// The row that Head probably gives, found faster; sometimes kEnd or a row of another rate.
  std::uint32_t Guess(double lot_rate) const { return slots_[Start(lot_rate)].head; }

  /// The next row of the same rate.
  std::uint32_t Next(std::uint32_t row) const { return next_[row]; }

 private:
  struct Slot {
    double rate = 0;
    std::uint32_t head = kEnd;
    std::uint32_t tail = kEnd;  ///< kEnd marks a free slot
  };

  std::size_t Start(double lot_rate) const;
  Slot& Find(double lot_rate);
  void Append(Slot& slot, double lot_rate, std::uint32_t row);

  std::vector<Slot> slots_;  ///< open addressing, at most half full
  std::vector<std::uint32_t> next_;
  int shift_ = 0;
};

}  // namespace quorvane::gains
