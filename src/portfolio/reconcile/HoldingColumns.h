#pragma once

#include "core/text/Shares.h"
#include "portfolio/paper/Words.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace quorvane::reconcile {

/// What a column of numbers in a statement of holdings is.
enum class ColumnKind : std::uint8_t {
  kCurrent,  ///< the whole balance
  kUnits,    ///< "No. of Shares", "Quantity"
  kTotal,    ///< the whole balance, where the parts stand before it
  kFree,
  kPledged,
  kFace,
  kPrice,
  kValue,
  kOther
};

/// The kind that a heading of one cell names ("Curr. Bal"); nullopt for one of texts ("ISIN Name").
std::optional<ColumnKind> KindOfHeading(std::string_view heading);

/// The columns that lines of headings name, by their places from the left. Headings that stand
/// below others in the same column add nothing.
class HeadingReader {
 public:
  /// The lines that came before a new table count no more.
  void Clear() { columns_.clear(); }

  /// Adds what the line names; returns how many headings it has.
  std::size_t Add(const paper::Line& line);

  /// From left to right.
  std::vector<ColumnKind> Kinds() const;

 private:
  struct Placed {
    double left;
    double right;
    ColumnKind kind;
  };

  void Put(const Placed& heading, bool first_line);

  std::vector<Placed> columns_;
};

/// The quantity and price of a row, of the numbers at its end.
struct RowNumbers {
  text::Shares quantity;
  double price = 0;
};

/// Reads the numbers by their columns; where the columns are not known, or quantity at price is not
/// the value, by the one number that times the price gives the value. nullopt when they cannot be
/// understood.
std::optional<RowNumbers> ReadNumbers(std::span<const double> numbers,
                                      std::span<const ColumnKind> columns);

}  // namespace quorvane::reconcile
