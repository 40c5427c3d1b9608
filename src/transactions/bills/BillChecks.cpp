#include "transactions/bills/BillChecks.h"

#include "core/text/Amounts.h"
#include "transactions/bills/BillBoxes.h"

#include <QCoreApplication>

namespace quorvane::bills {
namespace {

Refusal Refuse(const char* text, const QString& field) {
  return {QCoreApplication::translate("Bills", text), field};
}

Refusal Refuse(const char* text, BillBox box) {
  return Refuse(text, ControlName(box));
}

/// Movements without a date that can be read would be lost to every statement.
MaybeRefusal CheckDateText(const QString& date) {
  if (date.trimmed().isEmpty()) {
    return Refuse(QT_TRANSLATE_NOOP("Bills", "Enter Date."), BillBox::kDate);
  }
  if (!text::ParseDmy(date)) {
    return Refuse(QT_TRANSLATE_NOOP("Bills", "Enter Proper Date."), BillBox::kDate);
  }
  return std::nullopt;
}

MaybeRefusal CheckExchange(ExchangeId exchange) {
  if (!exchange) {
    return Refuse(QT_TRANSLATE_NOOP("Bills", "Select Stock Exchange."), QStringLiteral("Combo1"));
  }
  return std::nullopt;
}

MaybeRefusal CheckHeader(const Bill& bill) {
  if (bill.number.trimmed().isEmpty()) {
    return Refuse(QT_TRANSLATE_NOOP("Bills", "Enter Bill No."), BillBox::kNumber);
  }
  if (MaybeRefusal refusal = CheckDateText(bill.date)) {
    return refusal;
  }
  if (!bill.broker) {
    return Refuse(QT_TRANSLATE_NOOP("Bills", "Enter Broker Name."), BillBox::kBroker);
  }
  return CheckExchange(bill.exchange);
}

}  // namespace

MaybeRefusal CheckBill(const Bill& bill) {
  if (MaybeRefusal refusal = CheckHeader(bill)) {
    return refusal;
  }
  for (const BillLine& line : bill.lines) {
    if (MaybeRefusal refusal = CheckLine(line.side, line.scrip, line.quantity)) {
      return refusal;
    }
  }
  return std::nullopt;
}

MaybeRefusal CheckBeforeLine(const Bill& bill) {
  if (MaybeRefusal refusal = CheckDateText(bill.date)) {
    return refusal;
  }
  return CheckExchange(bill.exchange);
}

MaybeRefusal CheckLine(std::optional<Side> side, ScripId scrip, double quantity) {
  if (!side) {
    return Refuse(QT_TRANSLATE_NOOP("Bills", "Enter Sale/Purchase."), QStringLiteral("Combo3"));
  }
  if (!scrip) {
    return Refuse(QT_TRANSLATE_NOOP("Bills", "Enter Script Name."), QStringLiteral("Combo4"));
  }
  if (!(quantity > 0)) {
    return Refuse(QT_TRANSLATE_NOOP("Bills", "Enter Quantity Greater than Zero."),
                  BillBox::kQuantity);
  }
  return std::nullopt;
}

MaybeRefusal CheckDate(const QString& date, text::Date today) {
  if (MaybeRefusal refusal = CheckDateText(date)) {
    return refusal;
  }
  if (text::ParseDmy(date).value() > today) {
    return Refuse(QT_TRANSLATE_NOOP("Bills", "You can't insert future Date"), BillBox::kDate);
  }
  return std::nullopt;
}

MaybeRefusal CheckSale(Side side, double quantity, std::optional<double> balance) {
  if (side != Side::kSale || !balance || quantity <= *balance) {
    return std::nullopt;
  }
  Refusal refusal = Refuse(
      QT_TRANSLATE_NOOP(
          "Bills", "You Can't Sale Scripts More than Balance.\n\nMaximum Allowed Value is: %1"),
      BillBox::kQuantity);
  refusal.text = refusal.text.arg(text::FormatAmount(*balance));
  return refusal;
}

}  // namespace quorvane::bills
