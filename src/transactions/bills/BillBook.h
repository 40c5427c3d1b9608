#pragma once

#include "core/ClientYear.h"
#include "core/Result.h"
#include "core/database/Connection.h"
#include "core/database/Transaction.h"
#include "core/records/BillAmounts.h"

#include <QString>

#include <optional>
#include <span>
#include <vector>

namespace quorvane::bills {

using records::Bill;
using records::BillLine;

/// The bills of a client and year, and what they do to the holdings ledger. Every save and delete
/// is one transaction: bill, lines and lots together. One that is refused, or that throws
/// DatabaseError, changes nothing.
class BillBook {
 public:
  BillBook(database::Connection& connection, const ClientYear& of);

  /// The bills without their lines, by date and then by key.
  std::vector<Bill> List() const;

  /// Those of the keys that are there, in no order.
  std::vector<Bill> List(std::span<const int> keys) const;

  /// A bill with its lines in the order of entry.
  std::optional<Bill> Load(BillId id) const;

  /// Whether another bill has the same broker, number and date.
  bool HasTwin(const Bill& bill) const;

  /// Writes a new bill, or a changed one in place of the old, and posts its lines to the ledger.
  /// The client's part of the scratch table is empty afterwards. Returns what was saved:
  /// with the keys of the bill, its lines and their lots. Refused when a check fails, when the
  /// client or a newly chosen account, broker, exchange or scrip was deleted meanwhile, or when a
  /// lot would be lowered below zero, because its shares were sold or transferred meanwhile.
  Result<Bill> Save(const Bill& bill);

  /// Deletes a bill and its posting. Refused when shares that it brought were sold or transferred.
  MaybeRefusal Delete(BillId id);

 private:
  database::Connection& connection_;
  ClientYear of_;
};

using records::Bill;

/// A bill in the list of bills, with the names behind its keys; empty for one that was deleted.
struct ListedBill {
  Bill bill;  ///< without its lines
  QString broker;
  QString exchange;
  QString account;

  /// True when number, date or broker has the text in it, without regard to capitals.
  bool Has(const QString& text) const;
};

/// The bills of a client and year, by date and then by key.
std::vector<ListedBill> ListBills(database::Connection& connection, const ClientYear& of);

/// Reads only the bills of the keys anew and puts them into such a list.
void ReadBills(database::Connection& connection, const ClientYear& of, std::span<const int> keys,
               std::vector<ListedBill>& into);

}  // namespace quorvane::bills
