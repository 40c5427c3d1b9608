#include "reports/profit/StatementDocument.h"

#include "core/text/Amounts.h"

#include <QCoreApplication>

#include <optional>

namespace quorvane::profit {
namespace {

using reporting::AmountColumn;
using reporting::Cell;
using reporting::DateColumn;
using reporting::Mask;
using reporting::QuantityColumn;
using reporting::ReportDocument;
using reporting::Row;
using reporting::Table;

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
  if (const QStringList choices = ChoicesOf(query); !choices.isEmpty()) {
    titles << choices.join(QStringLiteral(", "));
  }
  titles << Utf8(entry.name) + QStringLiteral(" (") + Utf8(entry.code) + QLatin1Char(')');
  return titles;
}

Cell CostOf(const StatementRow& row) {
  return row.HasPurchase() ? Paise(row.purchase_cost) : Tr("No cost");
}

/// In the first column of gains; what left by a transfer gained none.
Cell GainOf(const StatementRow& row, std::int64_t paise) {
  return row.kind == RowKind::kTransfer ? Tr("Transfer") : PaiseOrNothing(paise);
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
      table_.columns.push_back(DateColumn(Tr("Date")));
      table_.columns.push_back(QuantityColumn(Tr("Quantity")));
      table_.columns.push_back(AmountColumn(Tr("Net")));
      table_.columns.push_back(AmountColumn(Tr("Amount")));
    }
    table_.columns.push_back(AmountColumn(Tr(average ? "Avg. Pur. Cost" : "Purchase Cost")));
    table_.columns.push_back(AmountColumn(Tr("Long Term")));
    table_.columns.push_back(AmountColumn(Tr("Short Term")));
    table_.columns.push_back(AmountColumn(Tr("Speculation")));
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
  void HeadScrip(ScripId scrip) {
    if (scrip != scrip_) {
      scrip_ = scrip;
      account_.reset();
      table_.rows.push_back({reporting::RowKind::kGroup, {Utf8(directory_.Scrip(scrip_).name)}});
    }
  }

  void Head(const StatementRow& row) {
    HeadScrip(row.scrip);
    if (row.account != account_) {
      account_ = row.account;
      table_.rows.push_back(
          {reporting::RowKind::kGroup,
           {row.account ? Tr("Demat A/c No - ") + Utf8(directory_.Account(row.account).number)
                        : Tr("Without Demat A/c")}});
    }
  }

  static void AddPurchase(Row& line, const StatementRow& row) {
    if (row.HasPurchase()) {
      line.cells = {row.purchase_date, row.quantity, row.purchase_net, Paise(row.purchase_amount)};
    }
    line.cells.resize(4);
  }

  static void AddSale(Row& line, const StatementRow& row) {
    if (row.HasSale()) {
      line.cells.insert(line.cells.end(),
                        {row.sale_date, row.sale_quantity, row.sale_net, Paise(row.sale_amount),
                         CostOf(row), GainOf(row, row.long_term), PaiseOrNothing(row.short_term),
                         PaiseOrNothing(row.speculation)});
    }
    line.cells.resize(12);
  }

  void AddTotal(const StatementRow& row) {
    const bool net = row.kind == RowKind::kNetTotal;
    if (!net) {
      HeadScrip(row.scrip);
    }
    const auto quantity = [&](double value) { return net ? Cell() : Cell(value); };
    table_.rows.push_back({net ? reporting::RowKind::kNetTotal : reporting::RowKind::kTotal,
                           {net ? Tr("Net Total") : Tr("Total"), quantity(row.quantity), Cell(),
                            Paise(row.purchase_amount), Cell(), quantity(row.sale_quantity), Cell(),
                            Paise(row.sale_amount), Paise(row.purchase_cost), Paise(row.long_term),
                            Paise(row.short_term), Paise(row.speculation)}});
    if (!net) {
      table_.rows.push_back({reporting::RowKind::kGap, {}});
    }
    scrip_ = {};
  }

  const lookups::Directory& directory_;
  Table table_;
  ScripId scrip_;
  std::optional<AccountId> account_;  ///< whose heading stands above; none at a scrip's start
};

/// One line a sale or transfer; what is left does not appear.
class SummaryTable {
 public:
  explicit SummaryTable(const lookups::Directory& directory) : directory_(directory) {
    table_.columns = {reporting::NumberColumn(Tr("S.No")),
                      reporting::TextColumn(Tr("Company Name")),
                      QuantityColumn(Tr("Quantity")),
                      DateColumn(Tr("Sale Date")),
                      AmountColumn(Tr("S.Amount"), Mask::kSummary),
                      DateColumn(Tr("Purc. Date")),
                      AmountColumn(Tr("Avg. Pur. Cost"), Mask::kSummary),
                      AmountColumn(Tr("Purc. Cost"), Mask::kSummary),
                      AmountColumn(Tr("Profit/Loss"), Mask::kSummary),
                      AmountColumn(Tr("Long term"), Mask::kSummary),
                      AmountColumn(Tr("Short Term"), Mask::kSummary),
                      AmountColumn(Tr("Speculation"), Mask::kSummary)};
  }

  void Add(const StatementRow& row) {
    switch (row.kind) {
      case RowKind::kMatch:
      case RowKind::kUnmatched:
      case RowKind::kTransfer:
        AddSale(row);
        break;
      case RowKind::kTotal:
      case RowKind::kNetTotal:
        AddTotal(row);
        break;
      case RowKind::kUnsold:
        break;
    }
  }

  Table Take() { return std::move(table_); }

 private:
  void AddSale(const StatementRow& row) {
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
    if (row.kind != RowKind::kUnmatched) {
      const std::int64_t gain = row.long_term + row.short_term + row.speculation;
      line.cells.insert(line.cells.end(),
                        {row.kind == RowKind::kTransfer ? GainOf(row, gain) : Paise(gain),
                         PaiseOrNothing(row.long_term), PaiseOrNothing(row.short_term),
                         PaiseOrNothing(row.speculation)});
    }
    line.cells.resize(table_.columns.size());
    table_.rows.push_back(std::move(line));
    sold_ = true;
  }

  void AddTotal(const StatementRow& row) {
    const bool net = row.kind == RowKind::kNetTotal;
    if (!net && !sold_) {
      table_.rows.push_back({reporting::RowKind::kGroup, {Utf8(directory_.Scrip(row.scrip).name)}});
    }
    sold_ = false;
    table_.rows.push_back(
        {net ? reporting::RowKind::kNetTotal : reporting::RowKind::kTotal,
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

QStringList ChoicesOf(const StatementQuery& query) {
  QStringList choices;
  const auto add = [&](bool chosen, const QString& text) {
    if (chosen) {
      choices << text;
    }
  };
  add(query.fo == gains::FoChoice::kFo, Tr("F & O"));
  add(query.fo == gains::FoChoice::kNonFo, Tr("Non F & O"));
  add(query.gains == GainFilter::kSpeculation, Tr("Speculation"));
  add(query.gains == GainFilter::kNonSpeculation, Tr("Non-Speculation"));
  add(query.average, Tr("Average Rate"));
  add(query.charges.service_tax || query.average, Tr("S.Tax"));
  add(query.charges.stt, Tr("S.T.T."));
  add(!query.unsold, Tr("Without unsold quantity"));
  return choices;
}

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
