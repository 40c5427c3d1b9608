#include "core/text/Amounts.h"
#include "reports/broker_account/BrokerAccount.h"

#include <algorithm>
#include <array>

namespace quorvane::broker_account {
namespace {

using records::NoteAmounts;
using reporting::AmountColumn;
using reporting::Cell;
using reporting::DateColumn;
using reporting::NumberColumn;
using reporting::RowKind;
using reporting::TextColumn;

/// An empty cell for nothing.
Cell Amount(Paise paise) {
  return paise == Paise() ? Cell() : Cell(paise.Rupees());
}

QString BalanceText(Paise balance) {
  return text::FormatAmount(std::max(balance, -balance).Rupees()) +
         (balance < Paise() ? QStringLiteral("Cr") : QStringLiteral("Dr"));
}

reporting::Column BalanceColumn(const QString& heading) {
  reporting::Column column = TextColumn(heading);
  column.alignment = reporting::Alignment::kRight;
  return column;
}

std::vector<Cell> CellsOf(Cell date, const QString& particulars, const NoteAmounts& note,
                          Paise debit, Paise credit, Paise balance) {
  return {std::move(date),      particulars,
          Amount(debit),        Amount(credit),
          BalanceText(balance), Amount(note.purchases),
          Amount(note.sales),   Amount(note.service_tax),
          Amount(note.stt),     Amount(note.charges)};
}

void AddAccount(reporting::Table& table, const BrokerAccount& account) {
  table.rows.push_back({.kind = RowKind::kGroup, .cells = {account.name}});
  NoteAmounts notes;
  for (const AccountLine& line : account.lines) {
    notes += line.note;
    table.rows.push_back({.kind = RowKind::kData,
                          .cells = CellsOf(line.date, line.particulars, line.note, line.debit,
                                           line.credit, line.balance)});
  }
  table.rows.push_back({.kind = RowKind::kTotal,
                        .cells = CellsOf({}, QStringLiteral("Closing Balance"), notes,
                                         account.Debits(), account.Credits(), account.Closing())});
}

reporting::Table AccountTable(const BrokerAccounts& all) {
  reporting::Table table;
  // The balance before what it is made of, so that a small screen has it in sight.
  table.columns = {
      DateColumn(QStringLiteral("Date")),       TextColumn(QStringLiteral("Particulars")),
      AmountColumn(QStringLiteral("Debit")),    AmountColumn(QStringLiteral("Credit")),
      BalanceColumn(QStringLiteral("Balance")), AmountColumn(QStringLiteral("Purchases")),
      AmountColumn(QStringLiteral("Sales")),    AmountColumn(QStringLiteral("S.Tax/GST")),
      AmountColumn(QStringLiteral("S.T.T.")),   AmountColumn(QStringLiteral("Charges"))};
  for (const BrokerAccount& account : all.accounts) {
    AddAccount(table, account);
  }
  return table;
}

using ByAge = std::array<Paise, kAgeCount>;

std::vector<Cell> AgeCells(std::vector<Cell> cells, const ByAge& ages, Paise balance) {
  std::ranges::transform(ages, std::back_inserter(cells), Amount);
  cells.emplace_back(BalanceText(balance));
  return cells;
}

void AddOpenItems(reporting::Table& table, const BrokerAccount& account, text::Date on) {
  table.rows.push_back({.kind = RowKind::kGroup, .cells = {account.name}});
  ByAge totals{};
  for (const OpenItem& item : account.open) {
    ByAge ages{};
    const std::size_t age = AgeOf(item.date, on);
    ages[age] = std::max(item.amount, -item.amount);
    totals[age] += ages[age];
    table.rows.push_back({.kind = RowKind::kData,
                          .cells = AgeCells({item.date, item.particulars,
                                             static_cast<double>((on - item.date).count())},
                                            ages, item.amount)});
  }
  table.rows.push_back(
      {.kind = RowKind::kTotal,
       .cells = AgeCells({{}, QStringLiteral("Total"), {}}, totals, account.Closing())});
}

reporting::Table OpenTable(const BrokerAccounts& all, text::Date on) {
  reporting::Table table;
  table.titles = {QStringLiteral("Open on %1, by Age").arg(text::FormatDmy(on))};
  table.columns = {DateColumn(QStringLiteral("Date")), TextColumn(QStringLiteral("Particulars")),
                   NumberColumn(QStringLiteral("Days"))};
  for (std::size_t age = 0; age < kAgeCount; ++age) {
    table.columns.push_back(AmountColumn(AgeName(age)));
  }
  table.columns.push_back(BalanceColumn(QStringLiteral("Open")));
  for (const BrokerAccount& account : all.accounts) {
    if (!account.open.empty()) {
      AddOpenItems(table, account, on);
    }
  }
  return table;
}

reporting::Table DifferenceTable(const BrokerAccounts& all, text::FinancialYear year) {
  reporting::Table table;
  table.titles = {QStringLiteral("Opening Balances that Differ")};
  table.columns = {TextColumn(QStringLiteral("Broker")), BalanceColumn(QStringLiteral("Recorded")),
                   BalanceColumn(QStringLiteral("Closing of ") + year.Previous().Text()),
                   BalanceColumn(QStringLiteral("Difference")), TextColumn(QStringLiteral("Used"))};
  for (const BrokerAccount& account : all.accounts) {
    const Opening& opening = account.opening;
    if (opening.Differs()) {
      table.rows.push_back(
          {.cells = {account.name, BalanceText(*opening.recorded),
                     BalanceText(*opening.closing_before),
                     BalanceText(*opening.recorded - *opening.closing_before),
                     opening.IsEntered()
                         ? QStringLiteral("what was entered")
                         : QStringLiteral("closing; recorded is that of the broker ledger")}});
    }
  }
  return table;
}

}  // namespace

reporting::ReportDocument MakeAccountDocument(const AccountQuery& query, const QString& client,
                                              const BrokerAccounts& accounts) {
  reporting::ReportDocument document;
  document.titles = {QStringLiteral("Broker Account (From %1 To %2)")
                         .arg(text::FormatDmy(query.period.from), text::FormatDmy(query.period.to)),
                     client};
  document.tables.push_back(AccountTable(accounts));
  for (reporting::Table table :
       {OpenTable(accounts, query.period.to), DifferenceTable(accounts, query.of.year)}) {
    if (!table.rows.empty()) {
      document.tables.push_back(std::move(table));
    }
  }
  document.notes << QStringLiteral("Dr is owed to the broker, Cr is due from the broker.");
  for (const QString& bill : accounts.without_lines) {
    document.notes << QStringLiteral("Bill No. %1 has no lines: only its charges count.").arg(bill);
  }
  return document;
}

}  // namespace quorvane::broker_account
