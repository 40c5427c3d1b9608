#pragma once

#include "core/database/Schema.h"

#include <string>
#include <vector>

namespace quorvane::database {

/// Runs the statements of a set-up of the tables and keeps what the server refused, so that one
/// refusal does not keep the rest from being done. A lost connection ends the set-up: each function
/// throws DatabaseError then.
class SetUp {
 public:
  /// What its statements make; only what makes work quicker or safer is an aid.
  enum class Makes { kTablesAndColumns, kAids };

  SetUp(Connection& connection, Makes makes) : connection_(connection), makes_(makes) {}

  /// False when the statement was refused.
  bool Run(const std::string& statement);

  /// For a statement whose refusal is expected and answered by another one: it is not kept.
  bool Try(const std::string& statement);

  /// Keeps a refusal, unless the column or index is there already.
  void Skip(const std::string& statement, const DatabaseError& error);

  /// Makes the changes known to the connection; returns what was refused, in order.
  std::vector<SkippedStatement> Finish();

  Connection& GetConnection() { return connection_; }

 private:
  Connection& connection_;
  Makes makes_;
  bool changed_ = false;
  std::vector<SkippedStatement> skipped_;
};

}  // namespace quorvane::database
