#include "core/database/Statement.h"

#include <algorithm>

namespace quorvane::database {
namespace {

// A text column up to this many bytes is fetched in blocks; a longer one row by row.
constexpr std::size_t kLongestBlockText = 4096;
constexpr std::size_t kBlockBytes = 256UL * 1024;
constexpr std::size_t kMostBlockRows = 1024;
constexpr std::size_t kBytesPerCharacter = 4;

ColumnKind KindOf(SQLSMALLINT type, SQLULEN size) {
  switch (type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
      return ColumnKind::kInteger;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return ColumnKind::kDouble;
    default:
      return size * kBytesPerCharacter < kLongestBlockText ? ColumnKind::kText
                                                           : ColumnKind::kLongText;
  }
}

std::size_t WidthOf(ColumnKind kind, SQLULEN size) {
  switch (kind) {
    case ColumnKind::kInteger:
    case ColumnKind::kDouble:
      return 8;
    case ColumnKind::kText:
      return size * kBytesPerCharacter + 1;
    case ColumnKind::kLongText:
      break;
  }
  return 0;
}

SQLRETURN DescribeColumns(Statement& statement) {
  SQLSMALLINT count = 0;
  SQLRETURN result = SQLNumResultCols(statement.handle, &count);
  statement.columns.clear();
  for (SQLSMALLINT i = 1; SQL_SUCCEEDED(result) && i <= count; ++i) {
    SQLCHAR name[256];
    SQLSMALLINT name_length = 0;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    result = SQLDescribeCol(statement.handle, static_cast<SQLUSMALLINT>(i), name, sizeof(name),
                            &name_length, &type, &size, nullptr, nullptr);
    ColumnBuffer column;
    column.name.assign(reinterpret_cast<const char*>(name), static_cast<std::size_t>(name_length));
    column.kind = KindOf(type, size);
    column.width = WidthOf(column.kind, size);
    statement.columns.push_back(std::move(column));
  }
  return result;
}

SQLSMALLINT TargetType(ColumnKind kind) {
  switch (kind) {
    case ColumnKind::kInteger:
      return SQL_C_SBIGINT;
    case ColumnKind::kDouble:
      return SQL_C_DOUBLE;
    default:
      return SQL_C_CHAR;
  }
}

void ChooseBlockRows(Statement& statement) {
  std::size_t row_bytes = 0;
  statement.has_long_text = false;
  for (const ColumnBuffer& column : statement.columns) {
    row_bytes += column.width + sizeof(std::int64_t);
    statement.has_long_text |= column.kind == ColumnKind::kLongText;
  }
  // Reading a long text piece by piece needs the cursor to stand on a single row.
  statement.block_rows = statement.has_long_text
                             ? 1
                             : std::clamp(kBlockBytes / std::max<std::size_t>(row_bytes, 1),
                                          std::size_t{1}, kMostBlockRows);
}

}  // namespace

Statement::~Statement() {
  if (handle != SQL_NULL_HSTMT) {
    SQLFreeHandle(SQL_HANDLE_STMT, handle);
  }
}

std::shared_ptr<Statement> StatementCache::FindFree(std::string_view sql) {
  const auto found = statements_.find(std::string(sql));
  if (found == statements_.end() || found->second->in_use) {
    return nullptr;
  }
  return found->second;
}

void StatementCache::Keep(const std::shared_ptr<Statement>& statement) {
  if (statements_.size() >= kMost) {
    std::erase_if(statements_, [](const auto& entry) { return !entry.second->in_use; });
  }
  statements_.try_emplace(statement->sql, statement);
}

SQLRETURN BindColumns(Statement& statement) {
  if (statement.columns_bound) {
    return SQL_SUCCESS;
  }
  SQLRETURN result = DescribeColumns(statement);
  ChooseBlockRows(statement);
  const SQLULEN rows = statement.block_rows;
  const auto set = [&](SQLINTEGER attribute, void* value) {
    if (SQL_SUCCEEDED(result)) {
      result = SQLSetStmtAttr(statement.handle, attribute, value, 0);
    }
  };
  set(SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<void*>(rows));
  set(SQL_ATTR_ROWS_FETCHED_PTR, &statement.rows_fetched);
  static_assert(sizeof(SQLLEN) == sizeof(std::int64_t));
  for (std::size_t i = 0; SQL_SUCCEEDED(result) && i < statement.columns.size(); ++i) {
    ColumnBuffer& column = statement.columns[i];
    column.lengths.assign(rows, 0);
    if (column.kind == ColumnKind::kLongText) {
      continue;
    }
    column.data.resize(column.width * rows);
    result = SQLBindCol(statement.handle, static_cast<SQLUSMALLINT>(i + 1), TargetType(column.kind),
                        column.data.data(), static_cast<SQLLEN>(column.width),
                        reinterpret_cast<SQLLEN*>(column.lengths.data()));
  }
  statement.columns_bound = SQL_SUCCEEDED(result);
  return result;
}

SQLRETURN BindValues(Statement& statement) {
  statement.indicators.assign(statement.values.size(), 0);
  SQLRETURN result = SQL_SUCCESS;
  for (std::size_t i = 0; SQL_SUCCEEDED(result) && i < statement.values.size(); ++i) {
    const auto& value = statement.values[i].Get();
    const auto bind = [&](SQLSMALLINT c_type, SQLSMALLINT sql_type, const void* data, SQLLEN size) {
      statement.indicators[i] = size;
      return SQLBindParameter(statement.handle, static_cast<SQLUSMALLINT>(i + 1), SQL_PARAM_INPUT,
                              c_type, sql_type, static_cast<SQLULEN>(std::max<SQLLEN>(size, 1)), 0,
                              const_cast<void*>(data), std::max<SQLLEN>(size, 0),
                              &statement.indicators[i]);
    };
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
      result = bind(SQL_C_SBIGINT, SQL_BIGINT, whole, sizeof(*whole));
    } else if (const auto* number = std::get_if<double>(&value)) {
      result = bind(SQL_C_DOUBLE, SQL_DOUBLE, number, sizeof(*number));
    } else if (const auto* text = std::get_if<std::string>(&value)) {
      result = bind(SQL_C_CHAR, SQL_VARCHAR, text->data(), static_cast<SQLLEN>(text->size()));
    } else {
      result = bind(SQL_C_CHAR, SQL_VARCHAR, nullptr, SQL_NULL_DATA);
    }
  }
  return result;
}

}  // namespace quorvane::database
