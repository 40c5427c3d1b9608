#pragma once

#include "portfolio/RowFields.h"

#include <cstdint>
#include <string>
#include <unordered_map>

namespace quorvane::portfolio {

/// Takes the rows of bills.csv into the portfolio: rows of one client, account, broker, number,
/// date and part are one bill.
class BillRows {
 public:
  BillRows(Portfolio& portfolio, RowFields& fields) : portfolio_(portfolio), fields_(fields) {}

  /// The current row: a line, and its bill when it is the bill's first.
  void Read();

  /// After the last row: puts the lines of each bill together, in file order.
  void Group();

 private:
  BillLineRow ReadLineOnly();
  double LotRate() const;
  std::uint32_t BillOf(const BillRow& row, double part);
  std::uint32_t JoinBill(std::uint32_t index, const BillRow& row);

  Portfolio& portfolio_;
  RowFields& fields_;
  std::unordered_map<std::string, std::uint32_t> bills_by_key_;
  std::string last_bill_key_;
  std::uint32_t last_bill_ = 0;
};

}  // namespace quorvane::portfolio
