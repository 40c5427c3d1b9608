#include "reports/demat/TransactionDocument.h"

#include "core/text/Amounts.h"

#include <cstdlib>

namespace quorvane::demat {
namespace {

using reporting::Cell;
using reporting::Row;
using reporting::RowKind;
using reporting::Table;

QString Utf8(const std::string& text) {
  return QString::fromStdString(text);
}

Cell Paise(std::int64_t paise) {
  return text::FromPaise(paise);
}

Table NewTable() {
  Table table;
  table.columns = {reporting::NumberColumn(QStringLiteral("S.No")),
                   reporting::DateColumn(QStringLiteral("Date")),
                   reporting::TextColumn(QStringLiteral("Company Name")),
                   reporting::TextColumn(QStringLiteral("Transaction")),
                   reporting::QuantityColumn(QStringLiteral("Quantity")),
                   reporting::AmountColumn(QStringLiteral("Rate")),
                   reporting::AmountColumn(QStringLiteral("Trade Value")),
                   reporting::AmountColumn(QStringLiteral("Brokerage")),
                   reporting::AmountColumn(QStringLiteral("S.Tax")),
                   reporting::AmountColumn(QStringLiteral("S.T.T.")),
                   reporting::AmountColumn(QStringLiteral("Total"))};
  return table;
}

Row LineRow(int number, const TransactionLine& line, const lookups::Directory& directory) {
  return {.kind = RowKind::kData,
          .cells = {static_cast<double>(number), line.date, Utf8(directory.Scrip(line.scrip).name),
                    line.purchase ? QStringLiteral("Buy") : QStringLiteral("Sell"),
                    line.quantity.Number(), line.rate, Paise(line.money.trade_value),
                    Paise(line.money.brokerage), Paise(line.money.service_tax),
                    Paise(line.money.stt), Paise(line.money.total)}};
}

Row AmountRow(RowKind kind, const QString& label, double amount) {
  Row row{.kind = kind, .cells = std::vector<Cell>(11)};
  row.cells[2] = label;
  row.cells[10] = amount;
  return row;
}

void AddTotals(Table& table, const QString& label, const TransactionSums& sums,
               const TransactionClosing& closing) {
  table.rows.push_back({.kind = RowKind::kTotal,
                        .cells = {Cell(), Cell(), label, Cell(), Cell(), Cell(),
                                  Paise(sums.trade_value), Paise(sums.brokerage),
                                  Paise(sums.service_tax), Paise(sums.stt), Paise(sums.total)}});
  for (const ClosingLine& line : ClosingLines(closing)) {
    table.rows.push_back(AmountRow(RowKind::kData, line.label, line.amount));
  }
  table.rows.push_back(AmountRow(RowKind::kNetTotal, ClosingCaption(closing),
                                 text::FromPaise(std::abs(closing.Amount()))));
}

Table BrokerTable(const BrokerTransactions& broker, const lookups::Directory& directory) {
  Table table = NewTable();
  table.titles = {broker.name};
  int number = 0;
  for (const TransactionLine& line : broker.lines) {
    table.rows.push_back(LineRow(++number, line, directory));
  }
  AddTotals(table, QStringLiteral("Total"), broker.sums, broker.closing);
  return table;
}

/// A table with nothing but totals.
void AddTotalsOf(reporting::ReportDocument& document, const QString& title,
                 const TransactionSums& sums, const TransactionClosing& closing) {
  Table table = NewTable();
  table.titles = {title};
  AddTotals(table, QStringLiteral("TOTAL"), sums, closing);
  document.tables.push_back(std::move(table));
}

void AddGrandTotal(reporting::ReportDocument& document, const QString& title,
                   std::span<const TransactionSection> sections) {
  if (sections.size() < 2) {
    return;
  }
  TransactionSums sums;
  TransactionClosing closing;
  for (const TransactionSection& section : sections) {
    sums.Add(section.sums);
    closing.Add(section.closing);
  }
  AddTotalsOf(document, title, sums, closing);
}

void AddSection(reporting::ReportDocument& document, const TransactionSection& section,
                const lookups::Directory& directory) {
  const std::size_t first = document.tables.size();
  for (const BrokerTransactions& broker : section.brokers) {
    document.tables.push_back(BrokerTable(broker, directory));
  }
  if (section.brokers.size() > 1) {
    AddTotalsOf(document, QStringLiteral("All Brokers"), section.sums, section.closing);
  }
  if (section.account && first < document.tables.size()) {
    document.tables[first].titles.prepend(AccountLine(*section.account, directory));
  }
}

}  // namespace

QString TransactionTitle(TransactionLayout layout) {
  return layout == TransactionLayout::kSummarized ? QStringLiteral("TRANSACTION REPORT")
                                                  : QStringLiteral("EQUITY TRANSACTION REPORT");
}

QString AccountLine(AccountId account, const lookups::Directory& directory) {
  return account ? QStringLiteral("Demat A/c No. ") + Utf8(directory.Account(account).number)
                 : QStringLiteral("Without Demat A/c");
}

QString AccountsLine(const TransactionQuery& query, const lookups::Directory& directory) {
  if (query.accounts.empty()) {
    return QStringLiteral("All Demat A/c");
  }
  QStringList numbers;
  for (const AccountId account : query.accounts) {
    numbers << Utf8(directory.Account(account).number);
  }
  return QStringLiteral("Demat A/c No. ") + numbers.join(QStringLiteral(", "));
}

std::vector<ClosingLine> ClosingLines(const TransactionClosing& closing) {
  return {
      {QStringLiteral("Total :"), text::FromPaise(closing.net)},
      {QStringLiteral("Add/Less: Other Charges :"), text::FromPaise(closing.other_charges)},
      {QStringLiteral("Add/Less: S.T.T. :"), text::FromPaise(closing.stt)},
      {QStringLiteral("Add/Less: Trans. Charges :"), text::FromPaise(closing.transaction_charges)}};
}

reporting::ReportDocument MakeTransactionDocument(const TransactionQuery& query, ClientId client,
                                                  std::span<const TransactionSection> sections,
                                                  const lookups::Directory& directory) {
  const lookups::ClientEntry& entry = directory.Client(client);
  reporting::ReportDocument document;
  document.titles = {TransactionTitle(query.layout),
                     Utf8(entry.name) + QStringLiteral(" (") + Utf8(entry.code) + QLatin1Char(')'),
                     reporting::PeriodLine(query.period)};
  if (!query.account_wise) {
    document.titles << AccountsLine(query, directory);
  }
  for (const TransactionSection& section : sections) {
    AddSection(document, section, directory);
  }
  AddGrandTotal(document, AccountsLine(query, directory), sections);
  return document;
}

}  // namespace quorvane::demat
