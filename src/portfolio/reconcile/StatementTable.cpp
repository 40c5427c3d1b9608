#include "core/text/Isin.h"
#include "core/text/Tr.h"
#include "portfolio/reconcile/StatementLines.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

namespace quorvane::reconcile {
namespace {

using files::CellAt;
using files::TextRow;

struct Columns {
  int isin = -1;
  int name = -1;
  std::vector<ColumnKind> kinds;  ///< of the columns in `numbers`
  std::vector<int> numbers;
};

/// The columns of a row of headings; nullopt for another row.
std::optional<Columns> ColumnsOf(const TextRow& row) {
  Columns columns;
  for (int i = 0; i < static_cast<int>(row.cells.size()); ++i) {
    const std::string heading = paper::Upper(CellAt(row, i));
    const bool names = heading.find("NAME") != std::string::npos ||
                       heading.find("SECURITY") != std::string::npos ||
                       heading.find("COMPANY") != std::string::npos ||
                       heading.find("DESCRIPTION") != std::string::npos;
    if (names) {
      columns.name = columns.name < 0 ? i : columns.name;
    } else if (paper::HasPhrase(heading, "ISIN")) {
      columns.isin = columns.isin < 0 ? i : columns.isin;
    } else if (const auto kind = KindOfHeading(heading)) {
      columns.kinds.push_back(*kind);
      columns.numbers.push_back(i);
    }
  }
  const bool counts = std::ranges::any_of(columns.kinds, [](ColumnKind kind) {
    return kind == ColumnKind::kCurrent || kind == ColumnKind::kUnits ||
           kind == ColumnKind::kTotal || kind == ColumnKind::kFree;
  });
  return columns.isin >= 0 && counts ? std::optional(columns) : std::nullopt;
}

std::string TextOf(const TextRow& row) {
  std::string text;
  for (const std::string& cell : row.cells) {
    text += (text.empty() ? "" : " ") + cell;
  }
  return text;
}

void TakeRow(Statement& statement, const TextRow& row, const Columns& columns,
             const std::string& account) {
  const std::string isin = paper::IsinIn(CellAt(row, columns.isin));
  if (isin.empty()) {
    return;
  }
  std::vector<double> numbers;
  bool readable = true;
  for (const int place : columns.numbers) {
    const std::string& cell = CellAt(row, place);
    const auto number = paper::NumberOf(cell);
    readable = readable && (number || cell.empty() || paper::Upper(cell) == "NIL");
    numbers.push_back(number.value_or(0));
  }
  const auto read = readable ? ReadNumbers(numbers, columns.kinds) : std::nullopt;
  if (!text::IsValidIsin(isin)) {
    statement.doubts.push_back(
        {account, fmt::format("line {}: {} is no ISIN, its check digit is wrong", row.line, isin)});
  } else if (!read) {
    statement.doubts.push_back(
        {account, fmt::format("line {}: {}: its quantity is not clear", row.line, isin)});
  } else {
    statement.holdings.push_back({.account = account,
                                  .isin = isin,
                                  .name = CellAt(row, columns.name),
                                  .symbol = {},
                                  .quantity = read->quantity,
                                  .price = read->price,
                                  .line = row.line});
  }
}

}  // namespace

Statement ReadStatementTable(const files::TextTable& table) {
  Statement statement;
  StatementFacts facts(statement);
  std::optional<Columns> columns;
  for (const TextRow& row : table.rows) {
    if (auto found = ColumnsOf(row)) {
      columns = std::move(found);
      continue;
    }
    if (columns && !paper::IsinIn(CellAt(row, columns->isin)).empty()) {
      TakeRow(statement, row, *columns, facts.Account());
    } else {
      facts.Take(TextOf(row));
    }
  }
  if (!columns) {
    files::Fail(Tr("Reconcile",
                   "The File has no Headings of a Statement of Holdings: a Column of ISINs and One "
                   "of Balances."));
  }
  facts.Finish();
  return statement;
}

}  // namespace quorvane::reconcile
