#include "core/text/Amounts.h"
#include "core/text/Csv.h"
#include "reports/demat/DematStatement.h"

#include <array>

namespace quorvane::demat {
namespace {

using reporting::Cell;
using reporting::RowKind;
using reporting::Table;

QString Utf8(const std::string& text) {
  return QString::fromStdString(text);
}

/// A side on which nothing moved stays empty.
Cell QuantityOrNothing(Shares quantity) {
  return quantity ? Cell(quantity.Number()) : Cell();
}

Table NewTable(const lookups::AccountEntry& account) {
  Table table;
  table.titles = {account.id ? QStringLiteral("Demat A/c No. ") + Utf8(account.number)
                             : QStringLiteral("Without Demat A/c")};
  table.columns = {reporting::DateColumn(QStringLiteral("Date")),
                   reporting::TextColumn(QStringLiteral("Particulars")),
                   reporting::QuantityColumn(QStringLiteral("In")),
                   reporting::QuantityColumn(QStringLiteral("Out")),
                   reporting::QuantityColumn(QStringLiteral("Balance"))};
  return table;
}

void AddScrip(Table& table, const ScripMovements& scrip, const QString& name) {
  if (!table.rows.empty()) {
    table.rows.push_back({.kind = RowKind::kGap, .cells = {}});
  }
  table.rows.push_back({.kind = RowKind::kGroup, .cells = {name}});
  Shares in;
  Shares out;
  for (const DematLine& line : scrip.lines) {
    table.rows.push_back({.kind = RowKind::kData,
                          .cells = {line.date, line.particulars, QuantityOrNothing(line.in),
                                    QuantityOrNothing(line.out), line.balance.Number()}});
    in += line.in;
    out += line.out;
  }
  table.rows.push_back({.kind = RowKind::kTotal,
                        .cells = {Cell(), QStringLiteral("Total"), in.Number(), out.Number(),
                                  scrip.lines.back().balance.Number()}});
}

std::string_view NameOf(Movement movement) {
  static constexpr std::array<std::string_view, 7> kNames{
      "opening",       "purchase",        "sale", "purchase_and_sale", "transfer_to",
      "transfer_from", "corporate_action"};
  return kNames[static_cast<std::size_t>(movement)];
}

void AppendQuantity(std::string& out, Shares quantity) {
  if (quantity) {
    text::AppendNumber(out, quantity.Number());
  }
  out += ',';
}

}  // namespace

reporting::ReportDocument MakeDematDocument(const DematQuery& query, ClientId client,
                                            std::span<const ScripMovements> scrips,
                                            const lookups::Directory& directory) {
  const lookups::ClientEntry& entry = directory.Client(client);
  reporting::ReportDocument document;
  document.titles = {QStringLiteral("Demat A/c Statement") + QStringLiteral(" (") +
                         QStringLiteral("From ") + text::FormatDmy(query.period.from) +
                         QStringLiteral(" To ") + text::FormatDmy(query.period.to) +
                         QLatin1Char(')'),
                     Utf8(entry.name) + QStringLiteral(" (") + Utf8(entry.code) + QLatin1Char(')')};
  std::optional<AccountId> account;
  for (const ScripMovements& scrip : scrips) {
    if (account != scrip.account) {
      account = scrip.account;
      document.tables.push_back(NewTable(directory.Account(scrip.account)));
    }
    AddScrip(document.tables.back(), scrip, Utf8(directory.Scrip(scrip.scrip).name));
  }
  return document;
}

void AppendDematCsvHeader(std::string& out) {
  out += "account_no,scrip_code,date,movement,particulars,in,out,balance\n";
}

void AppendDematCsv(std::string& out, std::span<const ScripMovements> scrips,
                    const lookups::Directory& directory) {
  for (const ScripMovements& scrip : scrips) {
    std::string place;
    text::AppendCsvField(place, directory.Account(scrip.account).number);
    place += ',';
    text::AppendCsvField(place, directory.Scrip(scrip.scrip).code);
    for (const DematLine& line : scrip.lines) {
      out += place + ',';
      text::AppendDmy(out, line.date);
      out.append(",").append(NameOf(line.movement)).append(",");
      text::AppendCsvField(out, line.particulars.toStdString());
      out += ',';
      AppendQuantity(out, line.in);
      AppendQuantity(out, line.out);
      text::AppendNumber(out, line.balance.Number());
      out += '\n';
    }
  }
}

}  // namespace quorvane::demat
