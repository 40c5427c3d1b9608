#include "core/text/Csv.h"
#include "reporting/output/WriteReport.h"

#include <QRegularExpression>

#include <algorithm>

namespace quorvane::reporting {
namespace {

/// A spreadsheet would compute a text that begins so, with any quotes and blanks before it.
bool BeginsFormula(const QString& text) {
  static const QString kSigns = QStringLiteral("=+-@\t\uFF1D\uFF0B\uFF0D\uFF20");
  static const QRegularExpression kNumber(
      QStringLiteral("^\\s*[+-]?[0-9][0-9,]*(\\.[0-9]*)?\\s*$"));
  const auto* start = std::ranges::find_if(text, [](QChar c) {
    return c == QChar('\t') || !(c.isSpace() || c == QChar('"') || c == QChar('\''));
  });
  if (start == text.cend() || !kSigns.contains(*start)) {
    return false;
  }
  // A dash alone is none, and a negative number is one.
  return std::any_of(start, text.cend(), [](QChar c) { return c.isLetterOrNumber(); }) &&
         !kNumber.match(text).hasMatch();
}

/// A text that people gave: as a text also for a spreadsheet.
void AppendText(std::string& out, const QString& text) {
  text::AppendCsvField(out, (BeginsFormula(text) ? QLatin1Char('\'') + text : text).toStdString());
}

void AppendLines(std::string& out, const QStringList& lines) {
  for (const QString& line : lines) {
    AppendText(out, line);
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
    AppendText(out, heading);
  }
  out += '\n';
}

void AppendRow(std::string& out, const Table& table, const Row& row, std::string& field) {
  if (row.kind == RowKind::kGroup) {
    AppendText(out, GroupText(row));
    out += '\n';
    return;
  }
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    out += i > 0 ? "," : "";
    if (i >= row.cells.size()) {
      continue;
    }
    if (const auto* words = std::get_if<QString>(&row.cells[i])) {
      AppendText(out, *words);
    } else {
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

}  // namespace quorvane::reporting
