#pragma once

#include "core/database/Transaction.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::database {

/// Runs one statement for many rows of values, some thousand rows at a time: the way to write a
/// large number of records. Values are given in the order of the "?":
///
///     BulkWriter writer(transaction, "Insert Into Stock Values(?,?,?,?,?,?,?)", "itiiidd");
///     writer.Int(client).Text("2011-12")....EndRow();
///     writer.Finish();
///
/// The rows are sent in the order in which they were given. Rows that were not finished are not
/// sent. Throws DatabaseError; some of the rows may then have been written, so the transaction must
/// not be committed.
class BulkWriter {
 public:
  /// `types` has a letter a parameter: i whole number, d double, t text.
  BulkWriter(Transaction& transaction, std::string_view sql, std::string_view types);
  ~BulkWriter();
  BulkWriter(const BulkWriter&) = delete;

  BulkWriter& Int(std::int64_t value);
  BulkWriter& Double(double value);
  BulkWriter& Text(std::string_view utf8);
  BulkWriter& Null();  ///< for a parameter of any type
  void EndRow();

  /// Sends what is left.
  void Finish();

 private:
  struct Column;

  Column& NextColumn(char type);
  Column& AnyNextColumn();
  void Send();
  std::size_t RowsThatFit(std::size_t first) const;
  void SendRows(std::size_t first, std::size_t count);

  Connection& connection_;
  std::string sql_;
  std::vector<Column> columns_;
  std::size_t next_ = 0;
  std::size_t rows_ = 0;
};

}  // namespace quorvane::database
