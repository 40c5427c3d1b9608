#pragma once

#include "reports/tax/CheckList.h"

#include <QString>

#include <optional>
#include <span>
#include <vector>

namespace quorvane::tax_year {

/// The law of a year and, where it is known, of the year before, which leaves losses.
struct Law {
  tax::Rules rules;
  std::optional<tax::Rules> before;

  /// Refused for a year whose law is not known. Throws files::TableError for broken data.
  static Result<Law> Load(const QString& data_folder, text::FinancialYear year);
};

/// A client's tax year with what stands before filing.
struct Member {
  ClientTax tax;
  std::vector<Point> points;
};

/// The tax years of clients, in the order given, from one reading of the records. Throws
/// DatabaseError and Cancellation.
std::vector<Member> ReadMembers(database::Connection& connection,
                                const lookups::Directory& directory, const Law& law,
                                std::span<const ClientId> clients, Progress& progress);

/// Whether somebody's losses of the year before are not brought forward as it leaves them.
bool LacksLosses(std::span<const Member> members);

/// Brings forward what the year before leaves of everyone's losses, in one transaction.
void CarryLosses(database::Connection& connection, std::span<const Member> members);

}  // namespace quorvane::tax_year
