#pragma once

#include "core/files/TextTable.h"
#include "portfolio/paper/Facts.h"
#include "portfolio/paper/Words.h"
#include "portfolio/reconcile/HoldingColumns.h"
#include "portfolio/reconcile/Statement.h"

#include <span>

namespace quorvane::reconcile {

/// Reads the printed lines of a statement: the consolidated statements of both depositories and the
/// statements of holdings of their participants. A row is a line with an ISIN and numbers at its
/// end; its numbers may also follow on the next lines, as its name may. Movements and folios of
/// mutual funds are passed over. Rows of one account and ISIN are added up.
Statement ReadStatementLines(std::span<const paper::Line> lines);

/// Reads a statement that is a table: a row of headings with the ISIN and a balance, and rows of
/// holdings. What stands above it tells accounts and day. Throws files::TableError when there are
/// no such headings.
Statement ReadStatementTable(const files::TextTable& table);

/// What lines of either form tell beside the holdings.
class StatementFacts {
 public:
  explicit StatementFacts(Statement& statement) : statement_(statement) {}

  void Take(const std::string& text);

  /// The account to which the rows after this line belong.
  const std::string& Account() const { return account_; }

  /// To be called after the last line.
  void Finish();

 private:
  void TakeDay(const std::string& text, const std::string& upper);

  Statement& statement_;
  paper::AccountNumbers numbers_;
  std::string account_;
  std::optional<text::Date> period_end_;
  std::optional<text::Date> any_day_;
  std::string other_title_;
  bool speaks_of_holdings_ = false;
  std::size_t lines_ = 0;
};

/// Adds the rows of one account and ISIN up, in the order in which they come first.
void AddUp(std::vector<StatedHolding>& holdings);

}  // namespace quorvane::reconcile
