#include "reporting/document/ReportDocument.h"

#include "core/text/Amounts.h"

#include <algorithm>
#include <cmath>

namespace quorvane::reporting {
namespace {

void AppendText(std::string& out, const QString& text) {
  const QByteArray utf8 = text.toUtf8();
  out.append(utf8.constData(), static_cast<std::size_t>(utf8.size()));
}

void AppendInMask(std::string& out, double number, Mask mask) {
  switch (mask) {
    case Mask::kAmount:
    case Mask::kQuantity:
      return text::AppendAmount(out, number);
    case Mask::kSummary:
      return AppendText(out, text::FormatSummary(number));
    case Mask::kPercent:
      return AppendText(out, text::FormatPercent(number));
    case Mask::kThousands:
      return AppendText(out, text::FormatThousands(number));
    case Mask::kText:
    case Mask::kDate:
    case Mask::kNumber:
      break;
  }
  text::AppendNumber(out, number);
}

}  // namespace

Column TextColumn(const QString& heading) {
  return {heading, Mask::kText, Alignment::kLeft};
}
Column DateColumn(const QString& heading) {
  return {heading, Mask::kDate, Alignment::kLeft};
}
Column NumberColumn(const QString& heading) {
  return {heading, Mask::kNumber, Alignment::kRight};
}
Column QuantityColumn(const QString& heading) {
  return {heading, Mask::kQuantity, Alignment::kRight};
}
Column AmountColumn(const QString& heading, Mask mask) {
  return {heading, mask, Alignment::kRight};
}

bool HasDecimals(Mask mask) {
  return mask == Mask::kAmount || mask == Mask::kSummary || mask == Mask::kPercent ||
         mask == Mask::kThousands;
}

void AppendCell(std::string& out, const Cell& cell, Mask mask) {
  if (const auto* shown = std::get_if<QString>(&cell)) {
    AppendText(out, *shown);
  } else if (const auto* number = std::get_if<double>(&cell)) {
    AppendInMask(out, *number, mask);
  } else if (const auto* date = std::get_if<text::Date>(&cell)) {
    text::AppendDmy(out, *date);
  }
}

QString CellText(const Cell& cell, Mask mask) {
  if (const auto* shown = std::get_if<QString>(&cell)) {
    return *shown;
  }
  std::string text;
  AppendCell(text, cell, mask);
  return QString::fromStdString(text);
}

double ShownNumber(double number, Mask mask) {
  if (!std::isfinite(number) || !HasDecimals(mask)) {
    return number;
  }
  return mask == Mask::kPercent ? text::FormatPercent(number).toDouble()
                                : text::RoundAmount(number);
}

QString GroupText(const Row& row) {
  return row.cells.empty() ? QString() : CellText(row.cells.front(), Mask::kText);
}

bool SharesHeadings(const ReportDocument& document) {
  const std::vector<Table>& tables = document.tables;
  return tables.size() > 1 && std::ranges::all_of(tables, [&](const Table& table) {
           return table.columns == tables.front().columns && table.groups == tables.front().groups;
         });
}

std::int64_t RowCount(const ReportDocument& document) {
  std::int64_t rows = 0;
  for (const Table& table : document.tables) {
    rows += static_cast<std::int64_t>(table.rows.size());
  }
  return rows;
}

}  // namespace quorvane::reporting
