#include "transactions/opening_stock/OpeningStock.h"

#include "core/text/Tr.h"

namespace quorvane::opening_stock {
QString KeepPurchaseDate(const QString& date, text::FinancialYear year) {
  const auto day = text::ParseDmy(date);
  return day && *day <= year.LastDay() ? date : QString();
}

MaybeRefusal CheckOpening(const OpeningLot& lot, text::FinancialYear year) {
  if (!lot.scrip) {
    return Refusal{Tr("OpeningStock", "Select Script Name."), Field::kScrip};
  }
  if (lot.quantity <= Shares()) {
    return Refusal{Tr("OpeningStock", "Enter Quantity Greater than Zero."), Field::kQuantity};
  }
  if (!lot.account) {
    return Refusal{Tr("OpeningStock", "Select Demat A/c No."), Field::kAccount};
  }
  if (KeepPurchaseDate(lot.purchase_date, year).isEmpty()) {
    return Refusal{Tr("OpeningStock", "Enter Purchase Date."), Field::kDate};
  }
  if (lot.rate < 0) {
    return Refusal{Tr("OpeningStock", "Rate Can't be Negative."), Field::kRate};
  }
  return std::nullopt;
}

}  // namespace quorvane::opening_stock
