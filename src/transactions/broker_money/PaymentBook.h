#pragma once

#include "core/ClientYear.h"
#include "core/database/Transaction.h"
#include "transactions/broker_money/BrokerPayment.h"

#include <string_view>
#include <vector>

namespace quorvane::broker_money {

/// The table that keeps payments of that kind.
std::string_view PaymentTable(PaymentKind kind);

/// A client's payments to brokers, or receipts from them, in a year. Every save and delete is one
/// transaction; one that is refused, or that throws DatabaseError, changes nothing.
class PaymentBook {
 public:
  PaymentBook(database::Connection& connection, PaymentKind kind, const ClientYear& of);

  /// In the order in which they were recorded.
  std::vector<BrokerPayment> List() const;

  /// Writes a new payment, or a changed one in place of the old. Returns its id.
  Result<PaymentId> Save(const BrokerPayment& payment);

  void Delete(PaymentId id);

 private:
  database::Connection& connection_;
  PaymentKind kind_;
  ClientYear of_;
};

}  // namespace quorvane::broker_money
