#include "transactions/broker_money/PaymentBook.h"

#include "core/database/Keys.h"
#include "core/records/Money.h"
#include "core/records/Writing.h"

namespace quorvane::broker_money {
namespace {

using database::Connection;
using database::Transaction;

BrokerPayment PaymentOf(const records::Payment& record) {
  return {
      PaymentId{record.id}, record.broker,
      record.mode,          record.amount,
      record.date,          record.payment_mode == 0 ? PaymentMode::kCash : PaymentMode::kCheque,
      record.cheque_number, record.cheque_date,
      record.drawn_on,      record.remark};
}

records::Payment RecordOf(const ClientYear& of, const BrokerPayment& payment) {
  return {of.client,
          of.year,
          payment.id.value,
          payment.broker,
          *payment.transaction,
          payment.amount,
          payment.date,
          static_cast<int>(*payment.mode),
          payment.cheque_number,
          payment.cheque_date,
          payment.drawn_on,
          payment.remark};
}

}  // namespace

std::string_view PaymentTable(PaymentKind kind) {
  return kind == PaymentKind::kPayment ? records::Table<records::Payment>::kName
                                       : records::kReceipts;
}

PaymentBook::PaymentBook(Connection& connection, PaymentKind kind, const ClientYear& of)
    : connection_(connection), kind_(kind), of_(of) {}

std::vector<BrokerPayment> PaymentBook::List() const {
  std::vector<BrokerPayment> payments;
  records::Select<records::Payment>(connection_, PaymentTable(kind_))
      .Where(&records::Payment::client, of_.client)
      .Where(&records::Payment::year, of_.year)
      .OrderBy(&records::Payment::id)
      .Each([&](const records::Payment& record) { payments.push_back(PaymentOf(record)); });
  return payments;
}

Result<PaymentId> PaymentBook::Save(const BrokerPayment& payment) {
  if (const MaybeRefusal refusal = CheckPayment(payment, kind_, of_.year)) {
    return *refusal;
  }
  return database::InTransaction(connection_, [&](Transaction& transaction) -> Result<PaymentId> {
    BrokerPayment saved = payment;
    saved.id = PaymentId{
        records::ClaimKey(transaction, &records::Payment::id, saved.id.value, PaymentTable(kind_))};
    records::Insert(transaction, RecordOf(of_, saved), PaymentTable(kind_));
    return saved.id;
  });
}

void PaymentBook::Delete(PaymentId id) {
  database::InTransaction(connection_, [&](Transaction& transaction) {
    records::Delete<records::Payment>(transaction, PaymentTable(kind_))
        .Where(&records::Payment::id, id.value)
        .Run();
  });
}

}  // namespace quorvane::broker_money
