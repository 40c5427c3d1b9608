#pragma once

#include "core/database/Recordset.h"
#include "core/database/Value.h"

#include <sql.h>
#include <sqlext.h>

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quorvane::database {

/// A prepared statement with the buffers of its columns; both outlive a single execution, so that
/// running the same text again costs neither a prepare nor an allocation.
struct Statement {
  explicit Statement(std::string text) : sql(std::move(text)) {}
  ~Statement();
  Statement(const Statement&) = delete;

  std::string sql;
  SQLHSTMT handle = SQL_NULL_HSTMT;
  bool in_use = false;
  bool columns_bound = false;
  std::vector<ColumnBuffer> columns;
  SQLULEN block_rows = 1;
  SQLULEN rows_fetched = 0;
  bool has_long_text = false;
  std::vector<Value> values;  ///< what the parameters point at while the statement runs
  std::vector<SQLLEN> indicators;
};

/// Statements by their text, about kMost of them: when there are more, the unused ones go.
class StatementCache {
 public:
  static constexpr std::size_t kMost = 200;

  std::shared_ptr<Statement> FindFree(std::string_view sql);
  void Keep(const std::shared_ptr<Statement>& statement);
  void Clear() { statements_.clear(); }

 private:
  std::unordered_map<std::string, std::shared_ptr<Statement>> statements_;
};

/// Describes and binds the result columns of a statement that has just been executed.
/// Returns SQL_SUCCESS or the failing call's code.
SQLRETURN BindColumns(Statement& statement);

/// Binds `statement.values` to the parameters.
SQLRETURN BindValues(Statement& statement);

}  // namespace quorvane::database
