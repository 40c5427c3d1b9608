#pragma once

#include "core/ClientYear.h"
#include "core/database/Connection.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace quorvane::home {

/// A record that was entered lately.
struct LastRecord {
  enum class Kind : std::uint8_t { kBill, kPayment, kReceipt, kTransfer };

  Kind kind = Kind::kBill;
  int record = 0;  ///< its key
  ClientYear of;
  QString client_name;
  QString date;
  QString about;      ///< a bill's number, a broker, a scrip
  double amount = 0;  ///< rupees; of a transfer shares
};

/// The newest records of each kind, of a family or, with an empty code, of all clients: bills, then
/// payments, receipts and transfers. Throws DatabaseError.
std::vector<LastRecord> ReadLastRecords(database::Connection& connection, const QString& family);

}  // namespace quorvane::home
