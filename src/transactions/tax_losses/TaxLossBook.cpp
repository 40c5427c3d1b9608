#include "transactions/tax_losses/TaxLossBook.h"

#include "core/text/Tr.h"
#include "transactions/posting/Owner.h"

#include <algorithm>

namespace quorvane::tax_losses {

using database::Transaction;
using text::FinancialYear;

std::vector<FinancialYear> LossYears(FinancialYear year) {
  const int most = std::ranges::max(tax::kLossKinds, {}, &tax::LossKindName::years).years;
  std::vector<FinancialYear> years;
  for (int age = 1; age <= most; ++age) {
    years.emplace_back(year.FirstCalendarYear() - age);
  }
  return years;
}

QString TotalsText(std::span<const TaxLoss> losses) {
  QStringList totals;
  for (const tax::LossKindName& name : tax::kLossKinds) {
    text::Paise total;
    for (const TaxLoss& loss : losses) {
      total += loss.kind == name.kind ? loss.amount : text::Paise();
    }
    if (total != text::Paise()) {
      totals << Tr("Tax", name.title) + QLatin1Char(' ') + text::FormatAmount(total.Rupees());
    }
  }
  return totals.join(QStringLiteral(", "));
}

std::vector<TaxLoss> TaxLossBook::List() const {
  return tax::ReadTaxLosses(connection_, of_.client, of_.year);
}

MaybeRefusal TaxLossBook::Save(std::vector<TaxLoss> losses) {
  for (TaxLoss& loss : losses) {
    loss.client = of_.client;
    loss.year = of_.year;
  }
  if (MaybeRefusal refusal = tax::CheckTaxLosses(losses)) {
    return refusal;
  }
  return database::InTransaction(connection_, [&](Transaction& transaction) -> MaybeRefusal {
    if (MaybeRefusal refusal = posting::CheckClient(transaction, of_.client, Field::kNone)) {
      return refusal;
    }
    tax::ReplaceTaxLosses(transaction, of_.client, of_.year, losses);
    return std::nullopt;
  });
}

}  // namespace quorvane::tax_losses
