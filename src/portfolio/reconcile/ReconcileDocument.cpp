#include "portfolio/reconcile/ReconcileDocument.h"

#include "core/text/Amounts.h"
#include "core/text/Csv.h"

#include <array>

namespace quorvane::reconcile {
namespace {

using reporting::Cell;
using reporting::RowKind;

bool IsShown(const ReconciledRow& row, bool differences_only) {
  return !differences_only || row.agreement != Agreement::kAgrees;
}

reporting::Table NewTable() {
  reporting::Table table;
  table.columns = {reporting::TextColumn(QStringLiteral("Script Name")),
                   reporting::TextColumn(QStringLiteral("ISIN")),
                   reporting::QuantityColumn(QStringLiteral("In the Books")),
                   reporting::QuantityColumn(QStringLiteral("In the Statement")),
                   reporting::QuantityColumn(QStringLiteral("Difference")),
                   reporting::TextColumn(QStringLiteral("Result")),
                   reporting::TextColumn(QStringLiteral("Likely Cause"))};
  return table;
}

Cell Difference(const ReconciledRow& row) {
  return row.Difference() ? Cell(row.Difference().Number()) : Cell();
}

QString Verdict(const Reconciliation& result) {
  const std::size_t differences = result.Differences();
  return differences == 0
             ? QStringLiteral("All %1 holdings agree.").arg(qulonglong{result.rows.size()})
             : QStringLiteral("%1 of %2 holdings do not agree.")
                   .arg(qulonglong{differences})
                   .arg(qulonglong{result.rows.size()});
}

}  // namespace

reporting::ReportDocument MakeReconcileDocument(const Reconciliation& result,
                                                const lookups::Directory& directory,
                                                bool differences_only) {
  reporting::ReportDocument document;
  const lookups::ClientEntry& client = directory.Client(result.client);
  document.titles = {QStringLiteral("Holdings Compared with the Depository's Statement"),
                     QStringLiteral("As On %1").arg(text::FormatDmy(result.day)),
                     QString::fromStdString(client.name) + QStringLiteral(" (") +
                         QString::fromStdString(client.code) + QLatin1Char(')')};
  reporting::Table table = NewTable();
  QString account;
  for (const ReconciledRow& row : result.rows) {
    if (!IsShown(row, differences_only)) {
      continue;
    }
    if (row.account_number != account || table.rows.empty()) {
      account = row.account_number;
      table.rows.push_back(
          {.kind = RowKind::kGroup, .cells = {QStringLiteral("Demat A/c No. ") + account}});
    }
    table.rows.push_back({.kind = RowKind::kData,
                          .cells = {row.name, row.isin, row.recorded.Number(), row.stated.Number(),
                                    Difference(row), TextOf(row.agreement, Language::kEnglish),
                                    TextOf(row.cause, Language::kEnglish)}});
  }
  document.tables.push_back(std::move(table));
  document.notes = QStringList{Verdict(result)} + result.notes;
  return document;
}

std::string ReconcileCsv(const Reconciliation& result, const lookups::Directory& directory,
                         bool differences_only) {
  static constexpr std::array<std::string_view, 5> kWords{"agrees", "differs", "missing-here",
                                                          "missing-there", "unknown-isin"};
  std::string out = "account_no,isin,scrip_code,name,recorded,stated,difference,result,cause\n";
  for (const ReconciledRow& row : result.rows) {
    if (!IsShown(row, differences_only)) {
      continue;
    }
    text::AppendCsvField(out, row.account_number.toStdString());
    out += ',' + row.isin.toStdString() + ',';
    text::AppendCsvField(out, row.scrip ? directory.Scrip(row.scrip).code : std::string());
    out += ',';
    text::AppendCsvField(out, row.name.toStdString());
    for (const Shares shares : {row.recorded, row.stated, row.Difference()}) {
      out += ',';
      text::AppendExact(out, shares.Number());
    }
    out += ',';
    out += kWords.at(static_cast<std::size_t>(row.agreement));
    out += ',';
    text::AppendCsvField(out, TextOf(row.cause, Language::kEnglish).toStdString());
    out += '\n';
  }
  return out;
}

}  // namespace quorvane::reconcile
