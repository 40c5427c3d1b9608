#include "transactions/broker_money/PaymentBook.h"

#include "core/database/RecordKey.h"

#include <fmt/format.h>

namespace quorvane::broker_money {
namespace {

using database::Connection;
using database::Recordset;
using database::Transaction;

BrokerPayment PaymentOf(const Recordset& row) {
  BrokerPayment payment;
  payment.id = PaymentId{row.Int(std::size_t{0})};
  payment.broker = BrokerId{row.Int(1)};
  payment.transaction = row.Int(2);
  payment.amount = row.Double(3);
  payment.date = row.Text(4);
  payment.mode = row.Int(5) == 0 ? PaymentMode::kCash : PaymentMode::kCheque;
  payment.cheque_number = row.Text(6);
  payment.cheque_date = row.Text(7);
  payment.drawn_on = row.Text(8);
  payment.remark = row.Text(9);
  return payment;
}

void InsertRow(Transaction& transaction, PaymentKind kind, const ClientYear& of,
               const BrokerPayment& payment) {
  transaction.Execute(
      fmt::format("Insert Into {}(Cid,Fyear,Id,BrId,TMode,Amt,PDate,PMode,ChqNo,ChqDate,DrawOn,"
                  "Remark) Values(?,?,?,?,?,?,?,?,?,?,?,?)",
                  PaymentTable(kind)),
      of.client, of.year.Text(), payment.id, payment.broker, *payment.transaction, payment.amount,
      payment.date, static_cast<int>(*payment.mode), payment.cheque_number, payment.cheque_date,
      payment.drawn_on, payment.remark);
}

}  // namespace

std::string_view PaymentTable(PaymentKind kind) {
  return kind == PaymentKind::kPayment ? "BrPayment" : "BrRec";
}

PaymentBook::PaymentBook(Connection& connection, PaymentKind kind, const ClientYear& of)
    : connection_(connection), kind_(kind), of_(of) {}

std::vector<BrokerPayment> PaymentBook::List() const {
  std::vector<BrokerPayment> payments;
  for (const auto& row : connection_.Open(
           fmt::format("Select Id,BrId,TMode,Amt,PDate,PMode,ChqNo,ChqDate,DrawOn,Remark From {} "
                       "Where Cid=? and Fyear=? Order By Id",
                       PaymentTable(kind_)),
           of_.client, of_.year.Text())) {
    payments.push_back(PaymentOf(row));
  }
  return payments;
}

MaybeRefusal PaymentBook::Save(BrokerPayment& payment) {
  if (MaybeRefusal refusal = CheckPayment(payment, kind_, of_.year)) {
    return refusal;
  }
  BrokerPayment saved;
  database::InTransaction(connection_, [&](Transaction& transaction) -> MaybeRefusal {
    saved = payment;
    saved.id = database::ClaimKey(transaction, PaymentTable(kind_), saved.id);
    InsertRow(transaction, kind_, of_, saved);
    return std::nullopt;
  });
  payment = saved;
  return std::nullopt;
}

void PaymentBook::Delete(PaymentId id) {
  database::InTransaction(connection_, [&](Transaction& transaction) -> MaybeRefusal {
    transaction.Execute(fmt::format("Delete From {} Where Id=?", PaymentTable(kind_)), id);
    return std::nullopt;
  });
}

}  // namespace quorvane::broker_money
