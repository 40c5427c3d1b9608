#pragma once

#include "core/ClientYear.h"
#include "core/Progress.h"
#include "core/database/Connection.h"

#include <QString>

#include <vector>

namespace quorvane::client_list {

/// The financial years to choose from, from 2005-06 up to the one of `today`, which is chosen when
/// the list opens.
std::vector<text::FinancialYear> YearsUpTo(text::Date today);
text::FinancialYear DefaultYear(text::Date today);

/// Whether any client is entered yet.
bool HasClients(database::Connection& connection);

/// A client to choose.
struct ListedClient {
  ClientId id;
  QString code;
  QString name;
};

/// All clients, by name.
std::vector<ListedClient> ListClients(database::Connection& connection);

/// The target that opens no window.
inline constexpr char kUpdateStock[] = "UpdateStock";

/// Recomputes the holdings of the client and year in one transaction, and returns the message
/// for the user. Throws DatabaseError or Cancellation, with everything as it was.
QString UpdateStock(database::Connection& connection, const ClientYear& of, Progress& progress);

}  // namespace quorvane::client_list
