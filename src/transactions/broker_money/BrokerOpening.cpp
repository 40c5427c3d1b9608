#include "transactions/broker_money/BrokerOpening.h"

#include "core/text/Amounts.h"

#include <QCoreApplication>

namespace quorvane::broker_money {
namespace {

Refusal Refuse(const char* text, const char* field) {
  return {QCoreApplication::translate("BrokerMoney", text), QString::fromLatin1(field)};
}

}  // namespace

MaybeRefusal CheckBrokerOpening(const BrokerOpening& opening) {
  if (!opening.broker) {
    return Refuse(QT_TRANSLATE_NOOP("BrokerMoney", "Enter Broker Name."), "Combo1");
  }
  if (!(opening.amount > 0)) {
    return Refuse(QT_TRANSLATE_NOOP("BrokerMoney", "Enter Opening Balance Greater than Zero."),
                  "Text1_0");
  }
  if (!opening.side) {
    return Refuse(QT_TRANSLATE_NOOP("BrokerMoney", "Select Dr/Cr."), "Combo2");
  }
  return std::nullopt;
}

BrokerOpening CarriedOpening(BrokerId broker, std::int64_t balance_paise) {
  const bool debit = balance_paise < 0;
  return {.id = {},
          .broker = broker,
          .amount = text::FromPaise(debit ? -balance_paise : balance_paise),
          .side = debit ? LedgerSide::kDebit : LedgerSide::kCredit};
}

}  // namespace quorvane::broker_money
