#pragma once

#include "core/ClientYear.h"
#include "core/database/Connection.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <string>
#include <vector>

namespace quorvane::records {

/// A record that cannot count as it is written. What is done with it is the same in the statements,
/// the ledger's rebuild and the check:
enum class FaultKind : std::uint8_t {
  kBillWithoutDate,      ///< in no statement; counts in the ledger
  kTransferWithoutDate,  ///< in no statement; counts in the ledger
  kOpeningWithoutDate,   ///< counts as bought on the day before the year begins
  kLineOfAnotherBill,    ///< its client or year is not its bill's: counts nowhere
  kTransferToItself,     ///< counts as shares that leave the account
  kSaleWithoutLot,       ///< takes its shares from no lot although its account has lots of them
  kPaymentWithoutDate,   ///< a payment or receipt; left out of the broker ledger
  kRecordWithoutYear,    ///< its year cannot be read: counts nowhere
};

struct Fault {
  FaultKind kind = FaultKind::kBillWithoutDate;
  ClientId client;
  int key = 0;         ///< of the bill, transfer or opening lot
  std::string number;  ///< of the bill; empty for other records
  std::string date;    ///< as it is recorded
};

using Faults = std::vector<Fault>;

/// One sentence for each fault, which names the record by number, client and date. `most` sentences
/// at the most, then how many more there are.
QStringList FaultTexts(database::Connection& connection, const Faults& faults,
                       std::size_t most = 20);

}  // namespace quorvane::records
