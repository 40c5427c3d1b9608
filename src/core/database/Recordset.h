#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::database {

class Connection;
struct Statement;

enum class ColumnKind : std::uint8_t { kInteger, kDouble, kText, kLongText };

/// One column of a block of rows.
struct ColumnBuffer {
  std::string name;
  ColumnKind kind = ColumnKind::kInteger;
  std::size_t width = 0;  ///< bytes a row
  std::vector<char> data;
  std::vector<std::int64_t> lengths;  ///< bytes of each row's text, or kNull
  std::string long_text;              ///< the one row's text of a kLongText column

  static constexpr std::int64_t kNull = -1;
};

/// The rows of a query, read once from first to last:
///
///     for (const auto& row : connection.Open("Select Id,Name From Broker Order By Name")) {
///       Use(row.Int(0), row.Text("Name"));
///     }
///
/// Columns are named by their place, counted from 0, or by name without regard to case; an unknown
/// name throws std::out_of_range. NULL reads as 0 or as an empty text; the Optional accessors and
/// IsNull tell it apart. Rows are fetched in blocks. The statement is free for another use once the
/// recordset is destroyed; a second Open of the same text meanwhile uses a statement of its own.
class Recordset {
 public:
  Recordset(Connection& connection, std::shared_ptr<Statement> statement);
  ~Recordset();
  Recordset(Recordset&& other) noexcept;
  Recordset(const Recordset&) = delete;

  /// Moves to the next row (at first: to the first); false after the last. Throws DatabaseError.
  bool Next();

  std::size_t ColumnCount() const;
  std::size_t Column(std::string_view name) const;

  ColumnKind Kind(std::size_t column) const;
  bool IsNull(std::size_t column) const;
  int Int(std::size_t column) const;
  std::int64_t Int64(std::size_t column) const;
  double Double(std::size_t column) const;
  std::string_view Utf8(std::size_t column) const;  ///< valid until the next row
  QString Text(std::size_t column) const;
  std::optional<double> OptionalDouble(std::size_t column) const;
  std::optional<int> OptionalInt(std::size_t column) const;
  std::optional<QString> OptionalText(std::size_t column) const;

  // Without these a literal 0 would be ambiguous: it converts to a number and to a name.
  bool IsNull(int column) const { return IsNull(static_cast<std::size_t>(column)); }
  int Int(int column) const { return Int(static_cast<std::size_t>(column)); }
  double Double(int column) const { return Double(static_cast<std::size_t>(column)); }
  QString Text(int column) const { return Text(static_cast<std::size_t>(column)); }

  bool IsNull(std::string_view column) const { return IsNull(Column(column)); }
  int Int(std::string_view column) const { return Int(Column(column)); }
  double Double(std::string_view column) const { return Double(Column(column)); }
  QString Text(std::string_view column) const { return Text(Column(column)); }

  class Iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Recordset;
    using difference_type = std::ptrdiff_t;

    Iterator() = default;
    explicit Iterator(Recordset* rows) : rows_(rows) { ++*this; }
    const Recordset& operator*() const { return *rows_; }
    Iterator& operator++() {
      if (!rows_->Next()) {
        rows_ = nullptr;
      }
      return *this;
    }
    void operator++(int) { ++*this; }
    bool operator==(const Iterator& other) const { return rows_ == other.rows_; }

   private:
    Recordset* rows_ = nullptr;
  };

  Iterator begin() { return Iterator(this); }
  Iterator end() { return {}; }

 private:
  const ColumnBuffer& At(std::size_t column) const;
  bool FetchBlock();
  void FetchLongTexts();

  Connection* connection_;
  std::shared_ptr<Statement> statement_;
  std::size_t row_ = 0;
  std::size_t rows_in_block_ = 0;
};

}  // namespace quorvane::database
