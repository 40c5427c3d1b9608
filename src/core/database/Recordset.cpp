#include "core/database/Recordset.h"

#include "core/database/Connection.h"
#include "core/database/Statement.h"

#include <QLatin1String>

#include <cstring>
#include <stdexcept>

namespace quorvane::database {

Recordset::Recordset(Connection& connection, std::shared_ptr<Statement> statement)
    : connection_(&connection), statement_(std::move(statement)) {}

Recordset::Recordset(Recordset&& other) noexcept = default;

Recordset::~Recordset() {
  if (statement_ != nullptr) {
    SQLFreeStmt(statement_->handle, SQL_CLOSE);
    statement_->in_use = false;
  }
}

bool Recordset::Next() {
  if (++row_ < rows_in_block_) {
    return true;
  }
  return FetchBlock();
}

bool Recordset::FetchBlock() {
  const SQLRETURN result = SQLFetch(statement_->handle);
  if (result == SQL_NO_DATA) {
    rows_in_block_ = 0;
    return false;
  }
  if (!SQL_SUCCEEDED(result)) {
    connection_->Fail(SQL_HANDLE_STMT, statement_->handle, statement_->sql);
  }
  row_ = 0;
  rows_in_block_ = statement_->rows_fetched;
  if (statement_->has_long_text) {
    FetchLongTexts();
  }
  return rows_in_block_ > 0;
}

void Recordset::FetchLongTexts() {
  for (std::size_t i = 0; i < statement_->columns.size(); ++i) {
    ColumnBuffer& column = statement_->columns[i];
    if (column.kind != ColumnKind::kLongText) {
      continue;
    }
    column.long_text.clear();
    column.lengths[0] = 0;
    char piece[16384];
    SQLLEN left = 0;
    SQLRETURN result = SQL_SUCCESS_WITH_INFO;
    while (result == SQL_SUCCESS_WITH_INFO) {
      result = SQLGetData(statement_->handle, static_cast<SQLUSMALLINT>(i + 1), SQL_C_CHAR, piece,
                          sizeof(piece), &left);
      if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) {
        connection_->Fail(SQL_HANDLE_STMT, statement_->handle, statement_->sql);
      }
      if (left == SQL_NULL_DATA) {
        column.lengths[0] = ColumnBuffer::kNull;
        break;
      }
      if (result == SQL_SUCCESS_WITH_INFO) {
        column.long_text.append(piece, sizeof(piece) - 1);
      } else if (result == SQL_SUCCESS) {
        column.long_text.append(piece, static_cast<std::size_t>(left));
      }
    }
  }
}

std::size_t Recordset::ColumnCount() const {
  return statement_->columns.size();
}

std::size_t Recordset::Column(std::string_view name) const {
  const QLatin1String wanted(name.data(), static_cast<qsizetype>(name.size()));
  for (std::size_t i = 0; i < statement_->columns.size(); ++i) {
    const std::string& column = statement_->columns[i].name;
    const QLatin1String candidate(column.data(), static_cast<qsizetype>(column.size()));
    if (candidate.compare(wanted, Qt::CaseInsensitive) == 0) {
      return i;
    }
  }
  throw std::out_of_range("no column " + std::string(name) + " in: " + statement_->sql);
}

const ColumnBuffer& Recordset::At(std::size_t column) const {
  return statement_->columns[column];
}

ColumnKind Recordset::Kind(std::size_t column) const {
  return At(column).kind;
}

bool Recordset::IsNull(std::size_t column) const {
  return At(column).lengths[row_] == ColumnBuffer::kNull;
}

std::int64_t Recordset::Int64(std::size_t column) const {
  const ColumnBuffer& buffer = At(column);
  if (buffer.lengths[row_] == ColumnBuffer::kNull) {
    return 0;
  }
  if (buffer.kind == ColumnKind::kDouble) {
    return static_cast<std::int64_t>(Double(column));
  }
  if (buffer.kind != ColumnKind::kInteger) {
    return Text(column).toLongLong();
  }
  std::int64_t value = 0;
  std::memcpy(&value, buffer.data.data() + row_ * sizeof(value), sizeof(value));
  return value;
}

int Recordset::Int(std::size_t column) const {
  return static_cast<int>(Int64(column));
}

double Recordset::Double(std::size_t column) const {
  const ColumnBuffer& buffer = At(column);
  if (buffer.lengths[row_] == ColumnBuffer::kNull) {
    return 0;
  }
  if (buffer.kind != ColumnKind::kDouble) {
    return buffer.kind == ColumnKind::kInteger ? static_cast<double>(Int64(column))
                                               : Text(column).toDouble();
  }
  double value = 0;
  std::memcpy(&value, buffer.data.data() + row_ * sizeof(value), sizeof(value));
  return value;
}

std::string_view Recordset::Utf8(std::size_t column) const {
  const ColumnBuffer& buffer = At(column);
  if (buffer.lengths[row_] == ColumnBuffer::kNull) {
    return {};
  }
  if (buffer.kind == ColumnKind::kLongText) {
    return buffer.long_text;
  }
  return {buffer.data.data() + row_ * buffer.width, static_cast<std::size_t>(buffer.lengths[row_])};
}

QString Recordset::Text(std::size_t column) const {
  const ColumnBuffer& buffer = At(column);
  if (buffer.kind == ColumnKind::kInteger) {
    return IsNull(column) ? QString() : QString::number(Int64(column));
  }
  if (buffer.kind == ColumnKind::kDouble) {
    return IsNull(column) ? QString() : QString::number(Double(column), 'g', 15);
  }
  const std::string_view text = Utf8(column);
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::optional<double> Recordset::OptionalDouble(std::size_t column) const {
  return IsNull(column) ? std::nullopt : std::optional(Double(column));
}

std::optional<int> Recordset::OptionalInt(std::size_t column) const {
  return IsNull(column) ? std::nullopt : std::optional(Int(column));
}

std::optional<QString> Recordset::OptionalText(std::size_t column) const {
  return IsNull(column) ? std::nullopt : std::optional(Text(column));
}

}  // namespace quorvane::database
