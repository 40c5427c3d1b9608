#include "reports/profit/ProfitDocument.h"

#include "reports/profit/StatementTables.h"

namespace quorvane::profit {
namespace {

using reporting::ReportDocument;

QString Utf8(const std::string& text) {
  return QString::fromStdString(text);
}

QStringList Titles(StatementMode mode, const ProfitQuery& query, ClientId client,
                   const lookups::Directory& directory) {
  const auto& entry = directory.Client(client);
  QStringList titles{mode == StatementMode::kProfit
                         ? QStringLiteral("Scriptwise Profitability Statement")
                         : QStringLiteral("Capital Gain Statement"),
                     QStringLiteral("Financial Year - ") + query.year.Text()};
  if (query.from != query.year.FirstDay() || query.to != query.year.LastDay()) {
    titles << QStringLiteral("Period - From ") + text::FormatDmy(query.from) +
                  QStringLiteral(" To ") + text::FormatDmy(query.to);
  }
  if (const QStringList choices = ChoicesOf(query); !choices.isEmpty()) {
    titles << choices.join(QStringLiteral(", "));
  }
  titles << Utf8(entry.name) + QStringLiteral(" (") + Utf8(entry.code) + QLatin1Char(')');
  return titles;
}

}  // namespace

QStringList ChoicesOf(const ProfitQuery& query) {
  QStringList choices;
  const auto add = [&](bool chosen, const QString& text) {
    if (chosen) {
      choices << text;
    }
  };
  add(query.fo == gains::FoChoice::kFo, QStringLiteral("F & O"));
  add(query.fo == gains::FoChoice::kNonFo, QStringLiteral("Non F & O"));
  add(query.gains == GainFilter::kSpeculation, QStringLiteral("Speculation"));
  add(query.gains == GainFilter::kNonSpeculation, QStringLiteral("Non-Speculation"));
  add(query.average, QStringLiteral("Average Rate"));
  add(query.charges.service_tax || query.average, QStringLiteral("S.Tax"));
  add(query.charges.stt, QStringLiteral("S.T.T."));
  add(!query.unsold, QStringLiteral("Without unsold quantity"));
  return choices;
}

ReportDocument MakeProfitDocument(StatementMode mode, Layout layout, const ProfitQuery& query,
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
