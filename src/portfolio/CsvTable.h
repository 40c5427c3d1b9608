#pragma once

#include "core/text/Csv.h"
#include "core/text/FinancialYear.h"
#include "core/text/Shares.h"
#include "portfolio/FileLayouts.h"
#include "portfolio/ImportErrors.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::portfolio {

/// One file of a portfolio folder, read row by row with its columns in the layout's places, not in
/// the file's order. What does not fit goes to the error list with its place, and reads as empty or
/// 0.
class CsvTable {
 public:
  /// The content is kept: texts of its rows are valid as long as the table.
  CsvTable(const FileLayout& layout, std::string content, ErrorList& errors);
  CsvTable(const CsvTable&) = delete;

  /// Moves to the next row; false at the end, or when the rest of the file cannot be read.
  bool Next();

  std::size_t Line() const { return reader_.Line(); }
  std::string_view FileName() const { return layout_.name; }

  /// The field, checked for its length and, where required, for not being empty.
  std::string_view Text(std::size_t column);
  double Number(std::size_t column);          ///< empty is 0; below 0 is refused
  double PositiveNumber(std::size_t column);  ///< above 0
  text::Shares Shares(std::size_t column);    ///< above 0
  std::optional<double> OptionalNumber(std::size_t column);
  std::optional<text::Date> DateOf(std::size_t column);
  std::optional<text::FinancialYear> YearOf(std::size_t column);
  bool Flag(std::size_t column);                                 ///< 0, 1 or empty
  bool IsWord(std::size_t column, std::string_view word) const;  ///< without regard to capitals

  /// The place of the field in a list of words, compared without regard to capitals; -1 when empty.
  int Choice(std::size_t column, std::span<const std::string_view> words);

  void Fail(std::size_t column, std::string message);

 private:
  void ReadHeader();
  std::string_view Raw(std::size_t column) const;
  void Expected(std::size_t column, std::string_view what);

  const FileLayout& layout_;
  std::string content_;
  text::CsvReader reader_;
  ErrorList& errors_;
  std::vector<int> places_;
  std::size_t header_fields_ = 0;
  bool usable_ = true;
};

}  // namespace quorvane::portfolio
