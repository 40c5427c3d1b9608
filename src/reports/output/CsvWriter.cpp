#include "reports/output/CsvWriter.h"

#include "core/text/Csv.h"

namespace quorvane::report {
namespace {

void AppendLines(std::string& out, const QStringList& lines) {
  for (const QString& line : lines) {
    text::AppendCsvField(out, line.toStdString());
    out += '\n';
  }
}

void AppendHeadings(std::string& out, const Table& table) {
  std::size_t group = 0;
  std::size_t left = table.groups.empty() ? 0 : table.groups.front().columns;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    QString heading = table.columns[i].heading;
    while (left == 0 && group + 1 < table.groups.size()) {
      left = table.groups[++group].columns;
    }
    if (left > 0) {
      --left;
      heading = (table.groups[group].heading + QLatin1Char(' ') + heading).trimmed();
    }
    out += i > 0 ? "," : "";
    text::AppendCsvField(out, heading.toStdString());
  }
  out += '\n';
}

void AppendRow(std::string& out, const Table& table, const Row& row, std::string& field) {
  if (row.kind == RowKind::kGroup) {
    text::AppendCsvField(out, GroupText(row).toStdString());
    out += '\n';
    return;
  }
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    out += i > 0 ? "," : "";
    if (i < row.cells.size()) {
      const Mask mask = table.columns[i].mask;
      field.clear();
      AppendCell(field, row.cells[i], mask == Mask::kThousands ? Mask::kAmount : mask);
      text::AppendCsvField(out, field);
    }
  }
  out += '\n';
}

}  // namespace

std::string WriteCsv(const ReportDocument& document) {
  std::string out;
  std::string field;
  AppendLines(out, document.titles);
  for (const Table& table : document.tables) {
    AppendLines(out, table.titles);
    AppendHeadings(out, table);
    for (const Row& row : table.rows) {
      if (row.kind != RowKind::kGap) {
        AppendRow(out, table, row, field);
      }
    }
  }
  AppendLines(out, document.notes);
  return out;
}

}  // namespace quorvane::report
