#pragma once

#include "core/tax/TaxLosses.h"

#include <QString>

#include <vector>

namespace quorvane::tax_losses {

using tax::TaxLoss;

/// The years of which a loss may be brought forward into a year, the newest first.
std::vector<text::FinancialYear> LossYears(text::FinancialYear year);

/// What the losses of each kind come to: "Long-Term Capital Loss 5.00, Speculation Loss 2.00".
/// Empty for none.
QString TotalsText(std::span<const TaxLoss> losses);

/// The losses that a client brings forward into a year.
class TaxLossBook {
 public:
  TaxLossBook(database::Connection& connection, const ClientYear& of)
      : connection_(connection), of_(of) {}

  /// By year of the loss, then long-term, short-term, speculation.
  std::vector<TaxLoss> List() const;

  /// Puts these in the place of all that were there, in one transaction. Refused when one breaks a
  /// rule (tax::CheckTaxLosses) or the client was deleted meanwhile.
  MaybeRefusal Save(std::vector<TaxLoss> losses);

 private:
  database::Connection& connection_;
  ClientYear of_;
};

}  // namespace quorvane::tax_losses
