#pragma once

#include "core/Ids.h"
#include "core/Result.h"
#include "core/text/FinancialYear.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace quorvane::broker_money {

using PaymentId = Id<struct PaymentTag>;

/// Money that a client paid to a broker, or that came from one.
enum class PaymentKind : std::uint8_t { kPayment, kReceipt };

/// As stored.
enum class PaymentMode : std::uint8_t { kCash = 0, kCheque = 1 };

/// Lists for grids, in the user's language: "#0;Cash|#1;Cheque" and "#0;Payment|#1;Cr. By Broker",
/// or that of receipts.
QString PaymentModeChoices();
QString TransactionChoices(PaymentKind kind);

/// "Payment To Broker" or "Received From Broker".
QString KindTitle(PaymentKind kind);

struct BrokerPayment {
  PaymentId id;  ///< none until it is saved
  BrokerId broker;
  std::optional<int> transaction;  ///< 0 or 1; none while it is not chosen
  double amount = 0;               ///< rupees
  QString date;                    ///< dd/mm/yyyy
  std::optional<PaymentMode> mode;
  QString cheque_number;
  QString cheque_date;  ///< dd/mm/yyyy or empty
  QString drawn_on;     ///< the bank
  QString remark;
};

/// The first rule that the payment breaks: broker, transaction mode, amount, date (a day of the
/// year: the ledger of another year would not show it), payment mode, then the lengths of the
/// texts.
MaybeRefusal CheckPayment(const BrokerPayment& payment, PaymentKind kind, text::FinancialYear year);

}  // namespace quorvane::broker_money
