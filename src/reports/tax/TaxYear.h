#pragma once

#include "core/ClientYear.h"
#include "reports/tax/SetOff.h"
#include "reports/tax/TaxPiece.h"

#include <span>
#include <vector>

namespace quorvane::tax_year {

/// The gains of a group by advance-tax window, before losses are set off.
struct WindowSum {
  std::size_t group = 0;  ///< place in TaxYear::groups
  int window = 0;         ///< from 1
  Paise gain;
};

/// What a client sold in a financial year, as the tax law counts it. Every sum is that of the
/// pieces, to the paisa.
struct TaxYear {
  ClientYear of{};
  std::vector<TaxPiece> pieces{};    ///< in the order given
  std::vector<GainGroup> groups{};   ///< by kind and per cent; without those of unknown cost
  std::vector<WindowSum> windows{};  ///< by group and window
  std::vector<tax::TaxLoss> brought_forward{};
  SetOff set_off{};

  /// Tax at the special per cent of a group; none for gains at normal rates.
  std::optional<Paise> TaxOf(std::size_t group) const;

  /// At all special rates. Not the whole tax: slabs, surcharge, cess and rebates are left out.
  Paise Tax() const;

  /// The sum of the groups of a kind.
  Paise GainOf(tax::GainKind kind) const;
};

/// The pure computation. `pieces` are those of the client, also of other years.
TaxYear Compute(const tax::Rules& rules, ClientId client, std::span<const positions::Piece> pieces,
                std::vector<tax::TaxLoss> brought_forward);

}  // namespace quorvane::tax_year
