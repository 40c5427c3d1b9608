#include "core/database/BulkWriter.h"

#include "core/database/Statement.h"

#include <algorithm>
#include <stdexcept>

namespace quorvane::database {

namespace {

constexpr std::size_t kRowsAtOnce = 2000;

// The driver wants the texts of a column at one width, so one long text makes every row of its
// batch long. Such a batch is sent in parts of about this size.
constexpr std::size_t kBytesAtOnce = 16UL * 1024 * 1024;

/// Takes the rows off a kept statement again, also after a failure: it may be run with single
/// values next.
class RowsOfStatement {
 public:
  RowsOfStatement(SQLHSTMT handle, std::size_t rows) : handle_(handle) {
    ForgetParameters();
    Set(rows);
  }
  ~RowsOfStatement() {
    SQLFreeStmt(handle_, SQL_CLOSE);
    ForgetParameters();
    Set(1);
  }
  RowsOfStatement(const RowsOfStatement&) = delete;

 private:
  /// The driver keeps what it made of the parameters for one number of rows and would send it, past
  /// its end, for another: a kept statement begins each run without any.
  void ForgetParameters() { SQLFreeStmt(handle_, SQL_RESET_PARAMS); }

  void Set(std::size_t rows) {
    SQLSetStmtAttr(handle_, SQL_ATTR_PARAMSET_SIZE, reinterpret_cast<void*>(SQLULEN{rows}), 0);
  }

  SQLHSTMT handle_;
};

}  // namespace

struct BulkWriter::Column {
  char type = 'i';
  std::vector<std::int64_t> wholes;
  std::vector<double> numbers;
  std::string texts;            // all rows one after the other
  std::size_t texts_sent = 0;   // bytes of it
  std::vector<SQLLEN> lengths;  // bytes of each row
  std::vector<char> laid_out;   // texts at one width, as the driver wants them

  /// Of a text; NULL has none.
  std::size_t BytesOf(std::size_t row) const {
    return lengths[row] == SQL_NULL_DATA ? 0 : static_cast<std::size_t>(lengths[row]);
  }

  std::size_t Longest(std::size_t first, std::size_t count) const {
    const auto begin = lengths.begin() + static_cast<std::ptrdiff_t>(first);
    const SQLLEN longest = *std::max_element(begin, begin + static_cast<std::ptrdiff_t>(count));
    return static_cast<std::size_t>(std::max<SQLLEN>(1, longest));
  }

  /// Lays out the next `count` texts and returns their width.
  std::size_t LayOut(std::size_t first, std::size_t count) {
    const std::size_t width = Longest(first, count);
    laid_out.assign(width * count, 0);
    for (std::size_t row = 0; row < count; ++row) {
      const std::size_t size = BytesOf(first + row);
      std::copy_n(texts.data() + texts_sent, size, laid_out.data() + row * width);
      texts_sent += size;
    }
    return width;
  }

  SQLRETURN Bind(SQLHSTMT handle, std::size_t place, std::size_t first, std::size_t count) {
    const auto bind = [&](SQLSMALLINT c_type, SQLSMALLINT sql_type, void* data, std::size_t width) {
      return SQLBindParameter(handle, static_cast<SQLUSMALLINT>(place), SQL_PARAM_INPUT, c_type,
                              sql_type, width, 0, data, static_cast<SQLLEN>(width),
                              lengths.data() + first);
    };
    switch (type) {
      case 'i':
        return bind(SQL_C_SBIGINT, SQL_BIGINT, wholes.data() + first, sizeof(std::int64_t));
      case 'd':
        return bind(SQL_C_DOUBLE, SQL_DOUBLE, numbers.data() + first, sizeof(double));
      default: {
        const std::size_t width = LayOut(first, count);
        return bind(SQL_C_CHAR, SQL_VARCHAR, laid_out.data(), width);
      }
    }
  }

  void Clear() {
    wholes.clear();
    numbers.clear();
    texts.clear();
    texts_sent = 0;
    lengths.clear();
  }
};

BulkWriter::BulkWriter(Transaction& transaction, std::string_view sql, std::string_view types)
    : connection_(transaction.GetConnection()), sql_(sql) {
  for (const char type : types) {
    columns_.emplace_back().type = type;
  }
}

BulkWriter::~BulkWriter() = default;

BulkWriter::Column& BulkWriter::NextColumn(char type) {
  if (next_ < columns_.size() && columns_[next_].type != type) {
    throw std::logic_error("value of another type than the statement's parameter: " + sql_);
  }
  return AnyNextColumn();
}

BulkWriter::Column& BulkWriter::AnyNextColumn() {
  if (next_ >= columns_.size()) {
    throw std::logic_error("more values than the statement has parameters: " + sql_);
  }
  return columns_[next_++];
}

BulkWriter& BulkWriter::Int(std::int64_t value) {
  Column& column = NextColumn('i');
  column.wholes.push_back(value);
  column.lengths.push_back(sizeof(value));
  return *this;
}

BulkWriter& BulkWriter::Double(double value) {
  Column& column = NextColumn('d');
  column.numbers.push_back(value);
  column.lengths.push_back(sizeof(value));
  return *this;
}

BulkWriter& BulkWriter::Text(std::string_view utf8) {
  Column& column = NextColumn('t');
  column.texts.append(utf8);
  column.lengths.push_back(static_cast<SQLLEN>(utf8.size()));
  return *this;
}

BulkWriter& BulkWriter::Null() {
  Column& column = AnyNextColumn();
  if (column.type == 'i') {
    column.wholes.push_back(0);
  } else if (column.type == 'd') {
    column.numbers.push_back(0);
  }
  column.lengths.push_back(SQL_NULL_DATA);
  return *this;
}

void BulkWriter::EndRow() {
  if (next_ != columns_.size()) {
    throw std::logic_error("a row lacks values: " + sql_);
  }
  next_ = 0;
  if (++rows_ == kRowsAtOnce) {
    Send();
  }
}

void BulkWriter::Finish() {
  if (rows_ > 0) {
    Send();
  }
}

void BulkWriter::Send() {
  for (std::size_t first = 0; first < rows_;) {
    const std::size_t count = RowsThatFit(first);
    SendRows(first, count);
    first += count;
  }
  for (Column& column : columns_) {
    column.Clear();
  }
  rows_ = 0;
}

std::size_t BulkWriter::RowsThatFit(std::size_t first) const {
  std::size_t most = rows_ - first;
  for (const Column& column : columns_) {
    std::size_t width = 1;
    for (std::size_t count = 0; column.type == 't' && count < most; ++count) {
      width = std::max(width, column.BytesOf(first + count));
      if (width * (count + 1) > kBytesAtOnce) {
        most = std::max<std::size_t>(count, 1);
      }
    }
  }
  return most;
}

void BulkWriter::SendRows(std::size_t first, std::size_t count) {
  const std::shared_ptr<Statement> statement = connection_.Prepare(sql_);
  const RowsOfStatement rows(statement->handle, count);
  SQLRETURN result = SQL_SUCCESS;
  for (std::size_t i = 0; SQL_SUCCEEDED(result) && i < columns_.size(); ++i) {
    result = columns_[i].Bind(statement->handle, i + 1, first, count);
  }
  if (SQL_SUCCEEDED(result)) {
    result = SQLExecute(statement->handle);
  }
  if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) {
    connection_.Fail(SQL_HANDLE_STMT, statement->handle, sql_);
  }
}

}  // namespace quorvane::database
