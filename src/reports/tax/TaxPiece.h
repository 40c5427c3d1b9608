#pragma once

#include "core/positions/Layer.h"
#include "core/tax/Rules.h"

#include <optional>
#include <span>
#include <vector>

namespace quorvane::tax_year {

using text::Date;
using text::Paise;
using text::Shares;

/// Shares that were sold, as the tax law counts them.
struct TaxPiece {
  positions::Piece of{};
  tax::GainKind kind = tax::GainKind::kUnknown;
  tax::Section section{};
  Paise sale{};                 ///< before expenses
  Paise expenses{};             ///< brokerage and the tax on it; STT is never deducted
  Paise cost{};                 ///< as paid
  std::optional<Paise> fair{};  ///< value of 31-Jan-2018, where the law lets it count
  Paise cost_taken{};           ///< what is deducted: the cost, or by the value of 31-Jan-2018 more
  Paise gain{};
  bool needs_fair = false;  ///< the value of 31-Jan-2018 would count, and is not known
  int window = 0;           ///< of advance tax, from 1

  bool AcquiredBefore2018() const;
};

/// Held for more than twelve months: sold later than on the same day of the next year.
bool IsHeldLong(Date acquired, Date sold);

/// The pieces of a client that were sold within the year of the rules, in the order given. Where a
/// company's payment for its own shares is dividend, a piece of that kind follows the one with the
/// loss.
std::vector<TaxPiece> Classify(const tax::Rules& rules, std::span<const positions::Piece> pieces);

}  // namespace quorvane::tax_year
