#include "reports/profit/StatementDocument.h"

#include "core/text/Amounts.h"

#include <QCoreApplication>

#include <optional>

namespace quorvane::profit {
namespace {

using report::Alignment;
using report::Cell;
using report::Column;
using report::Mask;
using report::ReportDocument;
using report::Row;
using report::Table;

QString Tr(const char* text) {
  return QCoreApplication::translate("ProfitStatement", text);
}

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

Column TextColumn(const char* heading) {
  return {Tr(heading), Mask::kText, Alignment::kLeft};
}
Column DateColumn(const char* heading) {
  return {Tr(heading), Mask::kDate, Alignment::kLeft};
}
Column AmountColumn(const char* heading, Mask mask = Mask::kAmount) {
  return {Tr(heading), mask, Alignment::kRight};
}

QStringList Titles(StatementMode mode, const StatementQuery& query, ClientId client,
                   const lookups::Directory& directory) {
  const auto& entry = directory.Client(client);
  QStringList titles{mode == StatementMode::kProfit ? Tr("Scriptwise Profitability Statement")
                                                    : Tr("Capital Gain Statement"),
                     Tr("Financial Year - ") + query.year.Text()};
  if (query.from != query.year.FirstDay() || query.to != query.year.LastDay()) {
    titles << Tr("Period - From ") + text::FormatDmy(query.from) + Tr(" To ") +
                  text::FormatDmy(query.to);
  }
  titles << Utf8(entry.name) + QStringLiteral(" (") + Utf8(entry.code) + QLatin1Char(')');
  return titles;
}

/// Purchases on the left, sales and gains on the right.
class DetailTable {
 public:
  DetailTable(StatementMode mode, bool average, const lookups::Directory& directory)
      : directory_(directory) {
    const char* profit = mode == StatementMode::kProfit ? "Profit" : "Capital Gain/Profit";
    table_.groups = {
        {Tr("Purchase"), 4}, {Tr("Sale"), 4}, {Tr("Proportionate"), 1}, {Tr(profit), 3}};
    for (int side = 0; side < 2; ++side) {
      table_.columns.push_back(DateColumn("Date"));
      table_.columns.push_back({Tr("Quantity"), Mask::kNumber, Alignment::kRight});
      table_.columns.push_back(AmountColumn("Net"));
      table_.columns.push_back(AmountColumn("Amount"));
    }
    table_.columns.push_back(AmountColumn(average ? "Avg. Pur. Cost" : "Purchase Cost"));
    table_.columns.push_back(AmountColumn("Long Term"));
    table_.columns.push_back(AmountColumn("Short Term"));
    table_.columns.push_back(AmountColumn("Speculation"));
  }

  void Add(const StatementRow& row) {
    if (row.kind == RowKind::kTotal || row.kind == RowKind::kNetTotal) {
      AddTotal(row);
      return;
    }
    Head(row);
    Row line;
    AddPurchase(line, row);
    AddSale(line, row);
    table_.rows.push_back(std::move(line));
  }

  Table Take() { return std::move(table_); }

 private:
  void Head(const StatementRow& row) {
    if (row.scrip != scrip_) {
      scrip_ = row.scrip;
      account_.reset();
      table_.rows.push_back({report::RowKind::kGroup, {Utf8(directory_.Scrip(scrip_).name)}});
    }
    if (row.account != account_) {
      account_ = row.account;
      table_.rows.push_back(
          {report::RowKind::kGroup,
           {row.account ? Tr("Demat A/c No - ") + Utf8(directory_.Account(row.account).number)
                        : Tr("Without Demat A/c")}});
    }
  }

  static void AddPurchase(Row& line, const StatementRow& row) {
    if (row.kind == RowKind::kUnmatched || (row.kind == RowKind::kTransfer && row.quantity == 0)) {
      line.cells.resize(4);
      return;
    }
    line.cells = {row.purchase_date, row.quantity, row.purchase_net, Paise(row.purchase_amount)};
  }

  static void AddSale(Row& line, const StatementRow& row) {
    switch (row.kind) {
      case RowKind::kMatch:
        line.cells.insert(line.cells.end(),
                          {row.sale_date, row.sale_quantity, row.sale_net, Paise(row.sale_amount),
                           Paise(row.purchase_cost), PaiseOrNothing(row.long_term),
                           PaiseOrNothing(row.short_term), PaiseOrNothing(row.speculation)});
        break;
      case RowKind::kUnmatched:
        line.cells.insert(line.cells.end(), {row.sale_date, row.sale_quantity, row.sale_net,
                                             Paise(row.sale_amount), Tr("No cost")});
        break;
      case RowKind::kTransfer:
        line.cells.insert(line.cells.end(),
                          {row.sale_date, row.sale_quantity, Cell(), Tr("Transfer")});
        break;
      default:
        break;
    }
    line.cells.resize(12);
  }

  void AddTotal(const StatementRow& row) {
    const bool net = row.kind == RowKind::kNetTotal;
    const auto quantity = [&](double value) { return net ? Cell() : Cell(value); };
    table_.rows.push_back({net ? report::RowKind::kNetTotal : report::RowKind::kTotal,
                           {net ? Tr("Net Total") : Tr("Total"), quantity(row.quantity), Cell(),
                            Paise(row.purchase_amount), Cell(), quantity(row.sale_quantity), Cell(),
                            Paise(row.sale_amount), Paise(row.purchase_cost), Paise(row.long_term),
                            Paise(row.short_term), Paise(row.speculation)}});
    if (!net) {
      table_.rows.push_back({report::RowKind::kGap, {}});
    }
    scrip_ = {};
  }

  const lookups::Directory& directory_;
  Table table_;
  ScripId scrip_;
  std::optional<AccountId> account_;  ///< whose heading stands above; none at a scrip's start
};

/// One line a sale; what was not sold does not appear.
class SummaryTable {
 public:
  explicit SummaryTable(const lookups::Directory& directory) : directory_(directory) {
    table_.columns = {{Tr("S.No"), Mask::kNumber, Alignment::kRight},
                      TextColumn("Company Name"),
                      {Tr("Quantity"), Mask::kNumber, Alignment::kRight},
                      DateColumn("Sale Date"),
                      AmountColumn("S.Amount", Mask::kSummary),
                      DateColumn("Purc. Date"),
                      AmountColumn("Avg. Pur. Cost", Mask::kSummary),
                      AmountColumn("Purc. Cost", Mask::kSummary),
                      AmountColumn("Profit/Loss", Mask::kSummary),
                      AmountColumn("Long Term", Mask::kSummary),
                      AmountColumn("Short Term", Mask::kSummary),
                      AmountColumn("Speculation", Mask::kSummary)};
  }

  void Add(const StatementRow& row) {
    switch (row.kind) {
      case RowKind::kMatch:
      case RowKind::kUnmatched:
        AddSale(row);
        break;
      case RowKind::kTotal:
      case RowKind::kNetTotal:
        AddTotal(row);
        break;
      case RowKind::kTransfer:
      case RowKind::kUnsold:
        break;
    }
  }

  Table Take() { return std::move(table_); }

 private:
  void AddSale(const StatementRow& row) {
    const bool matched = row.kind == RowKind::kMatch;
    Row line;
    line.cells = {static_cast<double>(++number_), Utf8(directory_.Scrip(row.scrip).name),
                  row.sale_quantity, row.sale_date, Paise(row.sale_amount)};
    if (matched) {
      line.cells.insert(
          line.cells.end(),
          {row.purchase_date, text::FromPaise(row.purchase_cost) / row.sale_quantity,
           Paise(row.purchase_cost), Paise(row.long_term + row.short_term + row.speculation),
           PaiseOrNothing(row.long_term), PaiseOrNothing(row.short_term),
           PaiseOrNothing(row.speculation)});
    } else {
      line.cells.insert(line.cells.end(), {Cell(), Tr("No cost")});
      line.cells.resize(table_.columns.size());
    }
    table_.rows.push_back(std::move(line));
    sold_ = true;
  }

  void AddTotal(const StatementRow& row) {
    const bool net = row.kind == RowKind::kNetTotal;
    if (!net && !sold_) {
      return;
    }
    sold_ = false;
    table_.rows.push_back(
        {net ? report::RowKind::kNetTotal : report::RowKind::kTotal,
         {Cell(), net ? Tr("Net Total") : Tr("Total"), net ? Cell() : Cell(row.sale_quantity),
          Cell(), Paise(row.sale_amount), Cell(), Cell(), Paise(row.purchase_cost),
          Paise(row.long_term + row.short_term + row.speculation), Paise(row.long_term),
          Paise(row.short_term), Paise(row.speculation)}});
  }

  const lookups::Directory& directory_;
  Table table_;
  int number_ = 0;
  bool sold_ = false;
};

}  // namespace

ReportDocument MakeStatementDocument(StatementMode mode, Layout layout, const StatementQuery& query,
                                     ClientId client, std::span<const StatementRow> rows,
                                     const lookups::Directory& directory) {
  ReportDocument document;
  document.titles = Titles(mode, query, client, directory);
  const auto fill = [&](auto table) {
    for (const StatementRow& row : rows) {
      table.Add(row);
    }
    document.tables.push_back(table.Take());
  };
  if (layout == Layout::kDetail) {
    fill(DetailTable(mode, query.average, directory));
  } else {
    fill(SummaryTable(directory));
  }
  return document;
}

}  // namespace quorvane::profit
