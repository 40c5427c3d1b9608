#include "core/text/Tr.h"
#include "reporting/output/XlsxTemplate.h"
#include "reports/profit/ProfitDocument.h"

namespace quorvane::profit {
namespace {

using reporting::Cell;
using reporting::ReportDocument;
using reporting::Row;
using reporting::Table;
using reporting::TemplateLine;
using reporting::XlsxTemplate;

constexpr std::size_t kCostColumn = 8;  // of the detail: headed by how the cost was found

/// Names of the cells of a layout's sheet begin alike.
QString Prefix(Layout layout) {
  return layout == Layout::kSummary ? QStringLiteral("S_") : QString();
}

QString PatternOf(reporting::RowKind kind) {
  switch (kind) {
    case reporting::RowKind::kGroup:
      return QStringLiteral("Grp");
    case reporting::RowKind::kTotal:
      return QStringLiteral("Tot");
    case reporting::RowKind::kNetTotal:
      return QStringLiteral("Net");
    case reporting::RowKind::kGap:
      return QStringLiteral("Gap");
    case reporting::RowKind::kData:
      break;
  }
  return QStringLiteral("Fld");
}

/// Numbers as exactly what every other output shows.
TemplateLine LineOf(const Row& row, const Table& table, const QString& prefix) {
  TemplateLine line{prefix + PatternOf(row.kind), row.cells};
  for (std::size_t i = 0; i < std::min(line.cells.size(), table.columns.size()); ++i) {
    if (auto* number = std::get_if<double>(&line.cells[i])) {
      *number = table::ShownNumber(*number, table.columns[i].mask);
    }
  }
  return line;
}

/// The titles are the report, the year, the period when it is not the year, the choices when there
/// are any, and the client.
void SetTitles(XlsxTemplate& book, const ReportDocument& document, const QString& prefix) {
  const QStringList& titles = document.titles;
  book.Set(prefix + "Title1", titles.value(0));
  book.Set(prefix + "Title2", titles.value(1));
  book.Set(prefix + "Period", titles.mid(2, titles.size() - 3).join(QStringLiteral(", ")));
  book.Set(prefix + "CompId", titles.value(titles.size() - 1));
}

void SetHeadings(XlsxTemplate& book, const Table& table) {
  book.Set("Head1", table.groups.back().heading);
  book.Set("Head2", table.columns[kCostColumn].heading);
}

}  // namespace

void WriteStatementWorkbook(const ReportDocument& document, Layout layout,
                            const QString& template_path, const QString& path, Progress& progress) {
  const Table& table = document.tables.front();
  const QString prefix = Prefix(layout);
  const QString other = Prefix(layout == Layout::kDetail ? Layout::kSummary : Layout::kDetail);
  XlsxTemplate book(template_path);
  book.RemoveSheetOf(other + "Title1");
  SetTitles(book, document, prefix);
  if (layout == Layout::kDetail) {
    SetHeadings(book, table);
  }
  std::vector<TemplateLine> lines;
  lines.reserve(table.rows.size());
  for (const Row& row : table.rows) {
    lines.push_back(LineOf(row, table, prefix));
  }
  QStringList patterns;
  for (const char* pattern : {"Fld", "Grp", "Tot", "Net", "Gap"}) {
    patterns.append(prefix + QLatin1String(pattern));
  }
  progress.Begin(Tr("ProfitStatement", "Filling the template"), reporting::RowCount(document));
  book.Repeat(patterns, lines, progress);
  book.Save(path);
}

}  // namespace quorvane::profit
