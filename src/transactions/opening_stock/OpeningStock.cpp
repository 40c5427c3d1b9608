#include "transactions/opening_stock/OpeningStock.h"

#include <QCoreApplication>

namespace quorvane::opening_stock {
namespace {

Refusal Refuse(const char* text, const QString& field) {
  return {QCoreApplication::translate("OpeningStock", text), field};
}

}  // namespace

QString KeepPurchaseDate(const QString& date, text::FinancialYear year) {
  const auto day = text::ParseDmy(date);
  return day && *day <= year.LastDay() ? date : QString();
}

MaybeRefusal CheckOpening(const OpeningLot& lot, text::FinancialYear year) {
  if (!lot.scrip) {
    return Refuse(QT_TRANSLATE_NOOP("OpeningStock", "Select Script Name."),
                  QStringLiteral("Combo1"));
  }
  if (lot.quantity <= Shares()) {
    return Refuse(QT_TRANSLATE_NOOP("OpeningStock", "Enter Quantity Greater than Zero."),
                  QStringLiteral("Text1_0"));
  }
  if (!lot.account) {
    return Refuse(QT_TRANSLATE_NOOP("OpeningStock", "Select Demat A/c No."),
                  QStringLiteral("Combo2"));
  }
  if (KeepPurchaseDate(lot.purchase_date, year).isEmpty()) {
    return Refuse(QT_TRANSLATE_NOOP("OpeningStock", "Enter Purchase Date."),
                  QStringLiteral("Text1_3"));
  }
  if (lot.rate < 0) {
    return Refuse(QT_TRANSLATE_NOOP("OpeningStock", "Rate Can't be Negative."),
                  QStringLiteral("Text1_1"));
  }
  return std::nullopt;
}

}  // namespace quorvane::opening_stock
