#pragma once

#include "core/ClientYear.h"
#include "core/records/Cells.h"
#include "core/records/Table.h"

#include <QString>

#include <cstdint>

namespace quorvane::records {

enum class DebitCredit : std::uint8_t { kDebit = 0, kCredit = 1 };

/// 0 is a debit, every other number a credit.
inline void ReadCell(const Recordset& row, std::size_t column, DebitCredit& into) {
  into = row.Int(column) == 0 ? DebitCredit::kDebit : DebitCredit::kCredit;
}

/// What a client owed a broker (debit) or had with the broker (credit) when a year began.
struct BrokerOpening {
  ClientId client;
  text::FinancialYear year;
  int id = 0;  ///< 0 until it is saved
  BrokerId broker;
  double amount = 0;  ///< rupees, positive
  DebitCredit side = DebitCredit::kDebit;
};

/// Money paid to a broker or received from one; the table tells which.
struct Payment {
  ClientId client;
  text::FinancialYear year;
  int id = 0;  ///< 0 until it is saved
  BrokerId broker;
  int mode = 0;          ///< 0 paid or received, 1 credited or debited by the broker
  double amount = 0;     ///< rupees
  QString date;          ///< dd/mm/yyyy
  int payment_mode = 0;  ///< 0 cash, 1 cheque
  QString cheque_number;
  QString cheque_date;
  QString drawn_on;
  QString remark;
};

template <>
struct Table<BrokerOpening> {
  static constexpr std::string_view kName = "BrOpBal";
  static constexpr auto kColumns =
      std::tuple(Column{"CId", &BrokerOpening::client}, Column{"Fyear", &BrokerOpening::year},
                 Column{"Id", &BrokerOpening::id}, Column{"BrId", &BrokerOpening::broker},
                 Column{"OpBal", &BrokerOpening::amount}, Column{"Dr", &BrokerOpening::side});
};

/// Payments to brokers; receipts from them have the same columns in kReceipts.
template <>
struct Table<Payment> {
  static constexpr std::string_view kName = "BrPayment";
  static constexpr auto kColumns =
      std::tuple(Column{"Cid", &Payment::client}, Column{"Fyear", &Payment::year},
                 Column{"Id", &Payment::id}, Column{"BrId", &Payment::broker},
                 Column{"TMode", &Payment::mode}, Column{"Amt", &Payment::amount},
                 Column{"PDate", &Payment::date}, Column{"PMode", &Payment::payment_mode},
                 Column{"ChqNo", &Payment::cheque_number}, Column{"ChqDate", &Payment::cheque_date},
                 Column{"DrawOn", &Payment::drawn_on}, Column{"Remark", &Payment::remark});
};

inline constexpr std::string_view kReceipts = "BrRec";

}  // namespace quorvane::records
