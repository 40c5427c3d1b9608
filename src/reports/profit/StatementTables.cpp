#include "reports/profit/StatementTables.h"

#include "core/text/Amounts.h"
#include "core/text/Tr.h"

namespace quorvane::profit {
namespace {

using reporting::AmountColumn;
using reporting::Cell;
using reporting::DateColumn;
using reporting::Mask;
using reporting::QuantityColumn;

QString Utf8(const std::string& text) {
  return QString::fromStdString(text);
}

Cell Paise(std::int64_t paise) {
  return text::FromPaise(paise);
}

/// A gain is shown under its kind alone; the other kinds stay empty.
Cell PaiseOrNothing(std::int64_t paise) {
  return paise == 0 ? Cell() : Paise(paise);
}

Cell CostOf(const StatementRow& row) {
  return row.HasPurchase() ? Paise(row.purchase_cost) : QStringLiteral("No cost");
}

/// In the first column of gains; what left by a transfer gained none.
Cell GainOf(const StatementRow& row, std::int64_t paise) {
  return row.kind == LineKind::kTransfer ? QStringLiteral("Transfer") : PaiseOrNothing(paise);
}

}  // namespace

DetailTable::DetailTable(StatementMode mode, bool average, const lookups::Directory& directory)
    : directory_(directory) {
  const char* profit = mode == StatementMode::kProfit ? "Profit" : "Capital Gain/Profit";
  table_.groups = {{QStringLiteral("Purchase"), 4},
                   {QStringLiteral("Sale"), 4},
                   {QStringLiteral("Proportionate"), 1},
                   {QLatin1String(profit), 3}};
  for (int side = 0; side < 2; ++side) {
    table_.columns.push_back(DateColumn(QStringLiteral("Date")));
    table_.columns.push_back(QuantityColumn(QStringLiteral("Quantity")));
    table_.columns.push_back(AmountColumn(QStringLiteral("Net")));
    table_.columns.push_back(AmountColumn(QStringLiteral("Amount")));
  }
  table_.columns.push_back(
      AmountColumn(QLatin1String(average ? "Avg. Pur. Cost" : "Purchase Cost")));
  table_.columns.push_back(AmountColumn(QStringLiteral("Long Term")));
  table_.columns.push_back(AmountColumn(QStringLiteral("Short Term")));
  table_.columns.push_back(AmountColumn(QStringLiteral("Speculation")));
}

void DetailTable::Add(const StatementRow& row) {
  if (row.kind == LineKind::kTotal || row.kind == LineKind::kNetTotal) {
    AddTotal(row);
    return;
  }
  Head(row);
  Row line;
  AddPurchase(line, row);
  AddSale(line, row);
  table_.rows.push_back(std::move(line));
}

void DetailTable::HeadScrip(ScripId scrip) {
  if (scrip != scrip_) {
    scrip_ = scrip;
    account_.reset();
    table_.rows.push_back(
        {.kind = reporting::RowKind::kGroup, .cells = {Utf8(directory_.Scrip(scrip_).name)}});
  }
}

void DetailTable::Head(const StatementRow& row) {
  HeadScrip(row.scrip);
  if (row.account != account_) {
    account_ = row.account;
    table_.rows.push_back({.kind = reporting::RowKind::kGroup,
                           .cells = {row.account ? QStringLiteral("Demat A/c No - ") +
                                                       Utf8(directory_.Account(row.account).number)
                                                 : QStringLiteral("Without Demat A/c")}});
  }
}

void DetailTable::AddPurchase(Row& line, const StatementRow& row) {
  if (row.HasPurchase()) {
    line.cells = {row.purchase_date, row.quantity, row.purchase_net, Paise(row.purchase_amount)};
  }
  line.cells.resize(4);
}

void DetailTable::AddSale(Row& line, const StatementRow& row) {
  if (row.HasSale()) {
    line.cells.insert(line.cells.end(),
                      {row.sale_date, row.sale_quantity, row.sale_net, Paise(row.sale_amount),
                       CostOf(row), GainOf(row, row.long_term), PaiseOrNothing(row.short_term),
                       PaiseOrNothing(row.speculation)});
  }
  line.cells.resize(12);
}

void DetailTable::AddTotal(const StatementRow& row) {
  const bool net = row.kind == LineKind::kNetTotal;
  if (!net) {
    HeadScrip(row.scrip);
  }
  const auto quantity = [&](double value) { return net ? Cell() : Cell(value); };
  table_.rows.push_back(
      {.kind = net ? reporting::RowKind::kNetTotal : reporting::RowKind::kTotal,
       .cells = {net ? QStringLiteral("Net Total") : QStringLiteral("Total"),
                 quantity(row.quantity), Cell(), Paise(row.purchase_amount), Cell(),
                 quantity(row.sale_quantity), Cell(), Paise(row.sale_amount),
                 Paise(row.purchase_cost), Paise(row.long_term), Paise(row.short_term),
                 Paise(row.speculation)}});
  if (!net) {
    table_.rows.push_back({.kind = reporting::RowKind::kGap, .cells = {}});
  }
  scrip_ = {};
}

SummaryTable::SummaryTable(const lookups::Directory& directory) : directory_(directory) {
  table_.columns = {reporting::NumberColumn(QStringLiteral("S.No")),
                    reporting::TextColumn(QStringLiteral("Company Name")),
                    QuantityColumn(QStringLiteral("Quantity")),
                    DateColumn(QStringLiteral("Sale Date")),
                    AmountColumn(QStringLiteral("S.Amount"), Mask::kSummary),
                    DateColumn(QStringLiteral("Purc. Date")),
                    AmountColumn(QStringLiteral("Avg. Pur. Cost"), Mask::kSummary),
                    AmountColumn(QStringLiteral("Purc. Cost"), Mask::kSummary),
                    AmountColumn(QStringLiteral("Profit/Loss"), Mask::kSummary),
                    AmountColumn(QStringLiteral("Long term"), Mask::kSummary),
                    AmountColumn(QStringLiteral("Short Term"), Mask::kSummary),
                    AmountColumn(QStringLiteral("Speculation"), Mask::kSummary)};
}

void SummaryTable::Add(const StatementRow& row) {
  switch (row.kind) {
    case LineKind::kMatch:
    case LineKind::kUnmatched:
    case LineKind::kTransfer:
      AddSale(row);
      break;
    case LineKind::kTotal:
    case LineKind::kNetTotal:
      AddTotal(row);
      break;
    case LineKind::kUnsold:
      break;
  }
}

void SummaryTable::AddSale(const StatementRow& row) {
  Row line;
  line.cells = {static_cast<double>(++number_), Utf8(directory_.Scrip(row.scrip).name),
                row.sale_quantity, row.sale_date, Paise(row.sale_amount)};
  if (row.HasPurchase()) {
    line.cells.insert(
        line.cells.end(),
        {row.purchase_date, text::FromPaise(row.purchase_cost) / row.sale_quantity, CostOf(row)});
  } else {
    line.cells.insert(line.cells.end(), {Cell(), Cell(), CostOf(row)});
  }
  if (row.kind != LineKind::kUnmatched) {
    const std::int64_t gain = row.long_term + row.short_term + row.speculation;
    line.cells.insert(line.cells.end(),
                      {row.kind == LineKind::kTransfer ? GainOf(row, gain) : Paise(gain),
                       PaiseOrNothing(row.long_term), PaiseOrNothing(row.short_term),
                       PaiseOrNothing(row.speculation)});
  }
  line.cells.resize(table_.columns.size());
  table_.rows.push_back(std::move(line));
  sold_ = true;
}

void SummaryTable::AddTotal(const StatementRow& row) {
  const bool net = row.kind == LineKind::kNetTotal;
  if (!net && !sold_) {
    table_.rows.push_back(
        {.kind = reporting::RowKind::kGroup, .cells = {Utf8(directory_.Scrip(row.scrip).name)}});
  }
  sold_ = false;
  table_.rows.push_back(
      {.kind = net ? reporting::RowKind::kNetTotal : reporting::RowKind::kTotal,
       .cells = {Cell(), net ? QStringLiteral("Net Total") : QStringLiteral("Total"),
                 net ? Cell() : Cell(row.sale_quantity), Cell(), Paise(row.sale_amount), Cell(),
                 Cell(), Paise(row.purchase_cost),
                 Paise(row.long_term + row.short_term + row.speculation), Paise(row.long_term),
                 Paise(row.short_term), Paise(row.speculation)}});
}

}  // namespace quorvane::profit
