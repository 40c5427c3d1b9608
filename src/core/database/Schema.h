#pragma once

#include "core/database/Connection.h"

#include <string>
#include <vector>

namespace quorvane::database {

/// A statement of the set-up that the server refused. The set-up goes on with the next one. A
/// column or index that another program has just added is no refusal.
struct SkippedStatement {
  std::string statement;
  std::string reason;
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

/// The three above, in that order. Safe to run twice, and by two programs at once.
std::vector<SkippedStatement> PrepareDatabase(Connection& connection);

/// Every table's name, in the order of creation.
std::vector<std::string> TableNames();

}  // namespace quorvane::database
