#pragma once

#include "transactions/opening_stock/OpeningStock.h"

#include <array>
#include <cstdint>

namespace quorvane::opening_stock {

/// The entry boxes by their place in the control array Text1.
enum class OpeningBox : std::uint8_t {
  kQuantity = 0,
  kRate = 1,
  kTotal = 2,
  kPurchaseDate = 3,
  kServiceTax = 4,
  kStt = 5,
};

inline constexpr std::size_t kOpeningBoxCount = 6;

/// The numbers of an opening lot while they are entered. Boxes show two decimals where a lot may
/// have more: what is left as it was shown keeps its exact number, so that changing the date of a
/// lot moves neither its rate, by which sales find it, nor its total. A carried forward lot keeps
/// its brokerage.
class OpeningEntry {
 public:
  /// A lot without an id is a new one, with empty boxes.
  explicit OpeningEntry(const OpeningLot& lot = {});

  const QString& Text(OpeningBox box) const { return texts_[static_cast<std::size_t>(box)]; }

  /// What leaving a box does: a quantity loses its sign and keeps six
  /// decimals at most, rate and service tax get two decimals, a
  /// date after the year's last day is cleared, and the total follows quantity and rate. A date is
  /// given in its completed form (dd/mm/yyyy).
  void Leave(OpeningBox box, const QString& typed, text::FinancialYear year);

  /// The lot as entered so far.
  const OpeningLot& Lot() const { return lot_; }

 private:
  QString& At(OpeningBox box) { return texts_[static_cast<std::size_t>(box)]; }
  void Take(OpeningBox box, const QString& typed, text::FinancialYear year);

  OpeningLot lot_;
  std::array<QString, kOpeningBoxCount> texts_;
};

}  // namespace quorvane::opening_stock
