#pragma once

#include "core/database/Connection.h"

#include <QString>

#include <span>
#include <string>
#include <vector>

namespace quorvane::database {

/// A statement of the set-up that the server refused. The set-up goes on with the next one. A
/// column or index that another program has just added is no refusal.
struct SkippedStatement {
  std::string statement;
  std::string reason;
  bool is_needed = false;  ///< without it a table or a column is missing
};

/// Creates the tables that are missing and puts the seed rows into a lookup table that is empty.
/// A table that exists is left as it is.
std::vector<SkippedStatement> CreateTables(Connection& connection);

/// Adds the columns that a database of an older release lacks; changes nothing in a current one.
std::vector<SkippedStatement> UpgradeTables(Connection& connection);

/// Gives every table what transactions, clusters and quick searches need and no query sees: the
/// InnoDB engine, texts in utf8mb4, the invisible key RowKey and the secondary indexes. What is
/// there already stays.
std::vector<SkippedStatement> StrengthenTables(Connection& connection);

/// Makes the tables beside the 24 (ExtensionTables) and the counters of keys.
std::vector<SkippedStatement> ExtendTables(Connection& connection);

/// The four above, in that order. Safe to run twice, and by two programs at once.
std::vector<SkippedStatement> PrepareDatabase(Connection& connection);

/// The names of all tables that hold records, in the order of creation.
std::vector<std::string> TableNames();

/// Why the program cannot work with this server, with the setting to change; empty when it can. A
/// server must not tell table names apart by case, and must let this user read, write, create and
/// change tables. Changes nothing. Throws DatabaseError.
QString WhyUnsuitable(Connection& connection);

/// Why the program cannot work with tables of which the set-up had to leave this out; empty when it
/// can: only what makes work quicker or safer is missing.
QString WhyIncomplete(std::span<const SkippedStatement> skipped);

}  // namespace quorvane::database
