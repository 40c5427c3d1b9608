#include "transactions/broker_money/BrokerPayment.h"

#include "core/database/TextWidths.h"
#include "core/text/Tr.h"
#include "transactions/broker_money/PaymentBook.h"

namespace quorvane::broker_money {
namespace {

MaybeRefusal CheckPaymentDate(const QString& date, text::FinancialYear year) {
  const auto day = text::ParseDmy(date);
  if (!day) {
    return Refusal{Tr("BrokerMoney", "Enter Payment Date."), Field::kDate};
  }
  if (!year.Contains(*day)) {
    return Refusal{
        Tr("BrokerMoney", "The Payment Date is not in the Financial Year %1.").arg(year.Text()),
        Field::kDate};
  }
  return std::nullopt;
}

QString Choices(const QString& first, const QString& second) {
  return QStringLiteral("#0;%1|#1;%2").arg(first, second);
}

}  // namespace

QString PaymentModeChoices() {
  return Choices(Tr("BrokerMoney", "Cash"), Tr("BrokerMoney", "Cheque"));
}

QString TransactionChoices(PaymentKind kind) {
  return kind == PaymentKind::kPayment
             ? Choices(Tr("BrokerMoney", "Payment"), Tr("BrokerMoney", "Cr. By Broker"))
             : Choices(Tr("BrokerMoney", "Receving"), Tr("BrokerMoney", "Dr. By Broker"));
}

QString KindTitle(PaymentKind kind) {
  return kind == PaymentKind::kPayment ? Tr("BrokerMoney", "Payment To Broker")
                                       : Tr("BrokerMoney", "Received From Broker");
}

MaybeRefusal CheckPayment(const BrokerPayment& payment, PaymentKind kind,
                          text::FinancialYear year) {
  if (!payment.broker) {
    return Refusal{Tr("BrokerMoney", "Enter Broker Name."), Field::kBroker};
  }
  if (!payment.transaction) {
    return Refusal{Tr("BrokerMoney", "Select Transaction Mode."), Field::kTransactionMode};
  }
  if (!(payment.amount > 0)) {
    return Refusal{Tr("BrokerMoney", "Enter Amount Greater than Zero."), Field::kAmount};
  }
  if (MaybeRefusal refusal = CheckPaymentDate(payment.date, year)) {
    return refusal;
  }
  if (!payment.mode) {
    return Refusal{Tr("BrokerMoney", "Select Payment Mode."), Field::kPaymentMode};
  }
  const std::array<database::TextCell, 3> cells{
      {{"ChqNo", QT_TRANSLATE_NOOP("BrokerMoney", "Cheque No."), payment.cheque_number,
        Field::kChequeNumber},
       {"DrawOn", QT_TRANSLATE_NOOP("BrokerMoney", "Drawn On"), payment.drawn_on, Field::kDrawnOn},
       {"Remark", QT_TRANSLATE_NOOP("BrokerMoney", "Remark"), payment.remark, Field::kRemark}}};
  return database::CheckTextWidths(PaymentTable(kind), cells);
}

}  // namespace quorvane::broker_money
