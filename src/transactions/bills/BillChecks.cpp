#include "transactions/bills/BillChecks.h"

#include "core/database/TextWidths.h"
#include "core/text/Amounts.h"
#include "transactions/bills/BillBoxes.h"

#include <QCoreApplication>

#include <array>

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

MaybeRefusal CheckTexts(const Bill& bill) {
  const std::array cells{
      database::TextCell{"BillNo", QT_TRANSLATE_NOOP("Masters", "Bill No."), bill.number,
                         ControlName(BillBox::kNumber)},
      database::TextCell{"SettlNo", QT_TRANSLATE_NOOP("Masters", "Settlement No."),
                         bill.settlement_number, ControlName(BillBox::kSettlementNumber)}};
  return database::CheckTextWidths("SPMaster", cells);
}

MaybeRefusal CheckHeader(const Bill& bill, text::FinancialYear year) {
  if (bill.number.trimmed().isEmpty()) {
    return Refuse(QT_TRANSLATE_NOOP("Bills", "Enter Bill No."), BillBox::kNumber);
  }
  if (MaybeRefusal refusal = CheckDateText(bill.date)) {
    return refusal;
  }
  if (MaybeRefusal refusal = CheckYear(bill.date, year)) {
    return refusal;
  }
  if (!bill.broker) {
    return Refuse(QT_TRANSLATE_NOOP("Bills", "Enter Broker Name."), BillBox::kBroker);
  }
  if (MaybeRefusal refusal = CheckExchange(bill.exchange)) {
    return refusal;
  }
  return CheckTexts(bill);
}

}  // namespace

MaybeRefusal CheckYear(const QString& date, text::FinancialYear year) {
  const std::optional<text::Date> day = text::ParseDmy(date);
  if (!day || year.Contains(*day)) {
    return std::nullopt;
  }
  Refusal refusal = Refuse(QT_TRANSLATE_NOOP("Bills", "The Date is not in the Financial Year %1."),
                           BillBox::kDate);
  refusal.text = refusal.text.arg(year.Text());
  return refusal;
}

MaybeRefusal CheckBill(const Bill& bill, text::FinancialYear year) {
  if (MaybeRefusal refusal = CheckHeader(bill, year)) {
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

MaybeRefusal CheckLine(std::optional<Side> side, ScripId scrip, text::Shares quantity) {
  if (!side) {
    return Refuse(QT_TRANSLATE_NOOP("Bills", "Enter Sale/Purchase."), QStringLiteral("Combo3"));
  }
  if (!scrip) {
    return Refuse(QT_TRANSLATE_NOOP("Bills", "Enter Script Name."), QStringLiteral("Combo4"));
  }
  if (quantity <= text::Shares()) {
    return Refuse(QT_TRANSLATE_NOOP("Bills", "Enter Quantity Greater than Zero."),
                  BillBox::kQuantity);
  }
  return std::nullopt;
}

MaybeRefusal CheckLot(Side side, LotId lot, bool scrip_has_lots) {
  if (side == Side::kSale && !lot && scrip_has_lots) {
    return Refuse(QT_TRANSLATE_NOOP("Bills", "Select the Lot to be Sold from the Balance."),
                  QStringLiteral("VS3"));
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

MaybeRefusal CheckSale(Side side, text::Shares quantity, std::optional<text::Shares> balance) {
  if (side != Side::kSale || !balance || quantity <= *balance) {
    return std::nullopt;
  }
  Refusal refusal = Refuse(
      QT_TRANSLATE_NOOP(
          "Bills", "You Can't Sale Scripts More than Balance.\n\nMaximum Allowed Value is: %1"),
      BillBox::kQuantity);
  refusal.text = refusal.text.arg(text::FormatAmount(balance->Number()));
  return refusal;
}

}  // namespace quorvane::bills
