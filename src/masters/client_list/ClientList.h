#pragma once

#include "core/ClientYear.h"
#include "core/Progress.h"
#include "core/database/Connection.h"

#include <QString>

#include <optional>
#include <vector>

namespace quorvane::client_list {

/// The financial years to choose from, from 2005-06 up to the one of `today`, which is chosen when
/// the list opens.
std::vector<text::FinancialYear> YearsUpTo(text::Date today);
text::FinancialYear DefaultYear(text::Date today);

/// Whether any client is entered yet.
bool HasClients(database::Connection& connection);

/// What stands behind a target name of the menu. A window that has two duties is opened for one of
/// them by the target.
struct Target {
  const char* name = "";    ///< as the menu writes it
  const char* window = "";  ///< nullptr when the work is done at once
};

/// Finds a target without regard to capitals; nullopt for an unknown one.
std::optional<Target> FindTarget(const QString& name);

/// The target that opens no window.
inline constexpr char kUpdateStock[] = "UpdateStock";

/// Recomputes the holdings of the client and year in one transaction, and returns what is said
/// then. Throws DatabaseError or Cancellation, with everything as it was.
QString UpdateStock(database::Connection& connection, const ClientYear& of, Progress& progress);

}  // namespace quorvane::client_list
