#pragma once

#include "reports/profit/ProfitDocument.h"

#include <optional>

namespace quorvane::profit {

using reporting::Row;
using reporting::Table;

/// Purchases on the left, sales and gains on the right.
class DetailTable {
 public:
  DetailTable(StatementMode mode, bool average, const lookups::Directory& directory);
  void Add(const StatementRow& row);
  Table Take() { return std::move(table_); }

 private:
  void HeadScrip(ScripId scrip);
  void Head(const StatementRow& row);
  static void AddPurchase(Row& line, const StatementRow& row);
  static void AddSale(Row& line, const StatementRow& row);
  void AddTotal(const StatementRow& row);

  const lookups::Directory& directory_;
  Table table_;
  ScripId scrip_;
  std::optional<AccountId> account_;  ///< whose heading is above; none at a scrip's start
};

/// One line a sale or transfer; what is left does not appear.
class SummaryTable {
 public:
  explicit SummaryTable(const lookups::Directory& directory);
  void Add(const StatementRow& row);
  Table Take() { return std::move(table_); }

 private:
  void AddSale(const StatementRow& row);
  void AddTotal(const StatementRow& row);

  const lookups::Directory& directory_;
  Table table_;
  int number_ = 0;
  bool sold_ = false;
};

}  // namespace quorvane::profit
