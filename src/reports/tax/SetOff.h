#pragma once

#include "core/tax/Rules.h"
#include "core/tax/TaxLosses.h"

#include <cstddef>
#include <span>
#include <vector>

namespace quorvane::tax_year {

using text::FinancialYear;
using text::Paise;

/// The sums of the pieces of one kind, section and per cent.
struct GainGroup {
  tax::GainKind kind = tax::GainKind::kUnknown;
  tax::Section section{};
  Paise sale{};
  Paise expenses{};
  Paise cost{};
  Paise cost_taken{};
  Paise gain{};
};

/// A part of a gain that a loss takes away.
struct SetOffLine {
  std::size_t group = 0;  ///< place among the groups
  FinancialYear loss_year;
  tax::LossKind loss = tax::LossKind::kShortTerm;
  Paise amount;
};

/// A part of a gain on which no tax is due.
struct ExemptionLine {
  std::size_t group = 0;
  Paise amount;
};

/// What is left of a loss.
struct OpenLoss {
  FinancialYear loss_year;
  tax::LossKind kind = tax::LossKind::kShortTerm;
  Paise amount;

  bool operator==(const OpenLoss&) const = default;
};

/// What the losses of the year and of earlier ones leave of the gains.
struct SetOff {
  std::vector<SetOffLine> lines;  ///< in the order in which they were taken
  std::vector<ExemptionLine> exemptions;
  std::vector<Paise> taxable;     ///< of each group; 0 for a loss
  std::vector<OpenLoss> carried;  ///< to the next year, by year of the loss, then as kLossKinds
  std::vector<OpenLoss> lapsed;   ///< this was the last year for them
  std::vector<OpenLoss> ignored;  ///< brought forward although it is too late for them
};

/// Losses are set off where the law allows it, against the gains with the highest tax first: the
/// year's long-term loss against long-term gains, its short-term loss against short-term and then
/// long-term gains, then those brought forward, the oldest first. A speculation loss meets
/// speculation gains alone. What is exempt by the year's limit comes last, as the law says. Futures
/// and options, dividends and exempt gains take no part.
SetOff SetOffLosses(const tax::Rules& rules, std::span<const GainGroup> groups,
                    std::span<const tax::TaxLoss> brought_forward);

}  // namespace quorvane::tax_year
