#include "transactions/bills/BillChecks.h"

#include "core/database/TextWidths.h"
#include "core/text/Amounts.h"
#include "core/text/Tr.h"

#include <array>

namespace quorvane::bills {
namespace {

/// Movements without a date that can be read would be lost to every statement.
MaybeRefusal CheckDateText(const QString& date) {
  if (date.trimmed().isEmpty()) {
    return Refusal{Tr("Bills", "Enter Date."), Field::kDate};
  }
  if (!text::ParseDmy(date)) {
    return Refusal{Tr("Bills", "Enter Proper Date."), Field::kDate};
  }
  return std::nullopt;
}

MaybeRefusal CheckExchange(ExchangeId exchange) {
  if (!exchange) {
    return Refusal{Tr("Bills", "Select Stock Exchange."), Field::kExchange};
  }
  return std::nullopt;
}

MaybeRefusal CheckTexts(const Bill& bill) {
  const std::array cells{
      database::TextCell{"BillNo", QT_TRANSLATE_NOOP("Masters", "Bill No."), bill.number,
                         Field::kNumber},
      database::TextCell{"SettlNo", QT_TRANSLATE_NOOP("Masters", "Settlement No."),
                         bill.settlement_number, Field::kSettlementNumber}};
  return database::CheckTextWidths("SPMaster", cells);
}

MaybeRefusal CheckHeader(const Bill& bill, text::FinancialYear year) {
  if (bill.number.trimmed().isEmpty()) {
    return Refusal{Tr("Bills", "Enter Bill No."), Field::kNumber};
  }
  if (MaybeRefusal refusal = CheckDateText(bill.date)) {
    return refusal;
  }
  if (MaybeRefusal refusal = CheckYear(bill.date, year)) {
    return refusal;
  }
  if (!bill.broker) {
    return Refusal{Tr("Bills", "Enter Broker Name."), Field::kBroker};
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
  Refusal refusal = Refusal{Tr("Bills", "The Date is not in the Financial Year %1."), Field::kDate};
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
    return Refusal{Tr("Bills", "Enter Sale/Purchase."), Field::kSide};
  }
  if (!scrip) {
    return Refusal{Tr("Bills", "Enter Script Name."), Field::kScrip};
  }
  if (quantity <= text::Shares()) {
    return Refusal{Tr("Bills", "Enter Quantity Greater than Zero."), Field::kQuantity};
  }
  return std::nullopt;
}

MaybeRefusal CheckLot(Side side, LotId lot, bool scrip_has_lots) {
  if (side == Side::kSale && !lot && scrip_has_lots) {
    return Refusal{Tr("Bills", "Select the Lot to be Sold from the Balance."), Field::kLot};
  }
  return std::nullopt;
}

MaybeRefusal CheckDate(const QString& date, text::Date today) {
  if (MaybeRefusal refusal = CheckDateText(date)) {
    return refusal;
  }
  if (text::ParseDmy(date).value() > today) {
    return Refusal{Tr("Bills", "You can't insert future Date"), Field::kDate};
  }
  return std::nullopt;
}

MaybeRefusal CheckSale(Side side, text::Shares quantity, std::optional<text::Shares> balance) {
  if (side != Side::kSale || !balance || quantity <= *balance) {
    return std::nullopt;
  }
  Refusal refusal = Refusal{
      Tr("Bills", "You Can't Sale Scripts More than Balance.\n\nMaximum Allowed Value is: %1"),
      Field::kQuantity};
  refusal.text = refusal.text.arg(text::FormatAmount(balance->Number()));
  return refusal;
}

}  // namespace quorvane::bills
