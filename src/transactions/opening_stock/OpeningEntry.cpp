#include "transactions/opening_stock/OpeningEntry.h"

#include "core/text/Amounts.h"

#include <cmath>

namespace quorvane::opening_stock {

using enum OpeningBox;

OpeningEntry::OpeningEntry(const OpeningLot& lot) : lot_(lot) {
  if (!lot.id) {
    return;
  }
  At(kQuantity) = text::NumberText(lot.quantity.Number());
  At(kRate) = text::FormatAmount(lot.rate);
  At(kTotal) = text::FormatAmount(lot.total);
  At(kPurchaseDate) = lot.purchase_date;
  At(kServiceTax) = text::FormatAmount(lot.service_tax);
  At(kStt) = text::NumberText(lot.stt);
}

void OpeningEntry::Leave(OpeningBox box, const QString& typed, text::FinancialYear year) {
  if (box == kTotal || typed == Text(box)) {
    return;
  }
  Take(box, typed, year);
  if (box == kQuantity || box == kRate) {
    lot_.total = OpeningTotal(lot_.quantity, lot_.rate, lot_.brokerage);
    At(kTotal) = text::FormatAmount(lot_.total);
  }
}

void OpeningEntry::Take(OpeningBox box, const QString& typed, text::FinancialYear year) {
  const double number = text::Val(typed);
  switch (box) {
    case kQuantity:
      lot_.quantity = Shares(std::abs(number));
      At(box) = text::NumberText(lot_.quantity.Number());
      break;
    case kRate:
      lot_.rate = text::RoundAmount(number);
      At(box) = text::FormatAmount(number);
      break;
    case kServiceTax:
      lot_.service_tax = text::RoundAmount(number);
      At(box) = text::FormatAmount(number);
      break;
    case kStt:
      lot_.stt = number;
      At(box) = typed;
      break;
    case kPurchaseDate:
      lot_.purchase_date = KeepPurchaseDate(typed, year);
      At(box) = lot_.purchase_date;
      break;
    case kTotal:
      break;
  }
}

}  // namespace quorvane::opening_stock
