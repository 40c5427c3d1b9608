#include "core/text/Amounts.h"
#include "reports/broker_ledger/BrokerLedger.h"

#include <cstdlib>

namespace quorvane::broker_ledger {
namespace {

using reporting::Cell;
using reporting::RowKind;

/// An empty cell for the side on which nothing stands.
Cell Amount(std::int64_t paise) {
  return paise == 0 ? Cell{} : Cell{text::FromPaise(paise)};
}

reporting::Table NewTable() {
  reporting::Table table;
  table.columns = {reporting::DateColumn(QStringLiteral("Date")),
                   reporting::TextColumn(QStringLiteral("Particulars")),
                   reporting::AmountColumn(QStringLiteral("Amount (Dr.)")),
                   reporting::AmountColumn(QStringLiteral("Amount (Cr.)")),
                   reporting::TextColumn(QStringLiteral("Balance"))};
  table.columns.back().alignment = reporting::Alignment::kRight;
  return table;
}

void AddAccount(reporting::Table& table, const BrokerAccount& account) {
  table.rows.push_back({.kind = RowKind::kGroup, .cells = {account.name}});
  for (const LedgerLine& line : account.lines) {
    table.rows.push_back({.kind = RowKind::kData,
                          .cells = {line.date, line.particulars, Amount(line.debit),
                                    Amount(line.credit), BalanceText(line.balance)}});
  }
  table.rows.push_back(
      {.kind = RowKind::kTotal,
       .cells = {Cell{}, QStringLiteral("Closing Balance"), text::FromPaise(account.Debits()),
                 text::FromPaise(account.Credits()), BalanceText(account.Closing())}});
}

}  // namespace

QString BalanceText(std::int64_t balance) {
  return text::FormatAmount(text::FromPaise(std::abs(balance))) +
         (balance >= 0 ? QStringLiteral("Dr") : QStringLiteral("Cr"));
}

reporting::ReportDocument MakeLedgerDocument(const LedgerQuery& query, const QString& client,
                                             std::span<const BrokerAccount> accounts) {
  reporting::ReportDocument document;
  document.titles = {QStringLiteral("Broker Ledger (From %1 To %2)")
                         .arg(text::FormatDmy(query.period.from), text::FormatDmy(query.period.to)),
                     client};
  reporting::Table table = NewTable();
  for (const BrokerAccount& account : accounts) {
    AddAccount(table, account);
  }
  document.tables.push_back(std::move(table));
  return document;
}

}  // namespace quorvane::broker_ledger
