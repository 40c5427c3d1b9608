#include "transactions/broker_money/BrokerPayment.h"

#include "core/database/TextWidths.h"
#include "transactions/broker_money/PaymentBook.h"

#include <QCoreApplication>

namespace quorvane::broker_money {
namespace {

Refusal Refuse(const char* text, const char* field) {
  return {QCoreApplication::translate("BrokerMoney", text), QString::fromLatin1(field)};
}

MaybeRefusal CheckPaymentDate(const QString& date, text::FinancialYear year) {
  const auto day = text::ParseDmy(date);
  if (!day) {
    return Refuse(QT_TRANSLATE_NOOP("BrokerMoney", "Enter Payment Date."), "Text1_1");
  }
  if (!year.Contains(*day)) {
    return Refusal{QCoreApplication::translate("BrokerMoney",
                                               "The Payment Date is not in the Financial Year %1.")
                       .arg(year.Text()),
                   QStringLiteral("Text1_1")};
  }
  return std::nullopt;
}

}  // namespace

QString TransactionChoices(PaymentKind kind) {
  return kind == PaymentKind::kPayment ? QStringLiteral("#0;Payment|#1;Cr. By Broker")
                                       : QStringLiteral("#0;Receving|#1;Dr. By Broker");
}

QString KindTitle(PaymentKind kind) {
  return kind == PaymentKind::kPayment
             ? QCoreApplication::translate("BrokerMoney", "Payment To Broker")
             : QCoreApplication::translate("BrokerMoney", "Received From Broker");
}

MaybeRefusal CheckPayment(const BrokerPayment& payment, PaymentKind kind,
                          text::FinancialYear year) {
  if (!payment.broker) {
    return Refuse(QT_TRANSLATE_NOOP("BrokerMoney", "Enter Broker Name."), "Combo1");
  }
  if (!payment.transaction) {
    return Refuse(QT_TRANSLATE_NOOP("BrokerMoney", "Select Transaction Mode."), "Combo2");
  }
  if (!(payment.amount > 0)) {
    return Refuse(QT_TRANSLATE_NOOP("BrokerMoney", "Enter Amount Greater than Zero."), "Text1_0");
  }
  if (MaybeRefusal refusal = CheckPaymentDate(payment.date, year)) {
    return refusal;
  }
  if (!payment.mode) {
    return Refuse(QT_TRANSLATE_NOOP("BrokerMoney", "Select Payment Mode."), "Combo3");
  }
  const std::array<database::TextCell, 3> cells{
      {{"ChqNo", QT_TRANSLATE_NOOP("BrokerMoney", "Cheque No."), payment.cheque_number,
        QStringLiteral("Text1_2")},
       {"DrawOn", QT_TRANSLATE_NOOP("BrokerMoney", "Drawn On"), payment.drawn_on,
        QStringLiteral("Text1_4")},
       {"Remark", QT_TRANSLATE_NOOP("BrokerMoney", "Remark"), payment.remark,
        QStringLiteral("Text1_5")}}};
  return database::CheckTextWidths(PaymentTable(kind), cells);
}

}  // namespace quorvane::broker_money
