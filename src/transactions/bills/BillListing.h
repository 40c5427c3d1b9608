#pragma once

#include "core/ClientYear.h"
#include "core/database/Connection.h"
#include "core/records/BillAmounts.h"

#include <QString>

#include <vector>

namespace quorvane::bills {

using records::Bill;

/// A bill in the list of bills, with the names behind its keys; empty for one that was deleted.
struct ListedBill {
  Bill bill;  ///< without its lines
  QString broker;
  QString exchange;
  QString account;

  /// True when number, date or broker has the text in it, whatever the capitals.
  bool Has(const QString& text) const;
};

/// The bills of a client and year, by date and then by key.
std::vector<ListedBill> ListBills(database::Connection& connection, const ClientYear& of);

}  // namespace quorvane::bills
