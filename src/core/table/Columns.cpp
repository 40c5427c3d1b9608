#include "core/table/Columns.h"

#include "core/text/Amounts.h"

#include <cmath>

namespace quorvane::table {
namespace {

void Append(std::string& out, const QString& text) {
  out += text.toStdString();
}

}  // namespace

bool IsNumeric(Mask mask) {
  return mask == Mask::kNumber || mask == Mask::kQuantity || HasDecimals(mask);
}

bool HasDecimals(Mask mask) {
  return mask == Mask::kAmount || mask == Mask::kSummary || mask == Mask::kPercent ||
         mask == Mask::kThousands;
}

Alignment AlignmentOf(const Column& column) {
  const bool right = IsNumeric(column.mask) && column.choices.isEmpty();
  return column.alignment.value_or(right ? Alignment::kRight : Alignment::kLeft);
}

Qt::Alignment ViewAlignment(const Column& column) {
  switch (AlignmentOf(column)) {
    case Alignment::kRight:
      return Qt::AlignRight | Qt::AlignVCenter;
    case Alignment::kCentre:
      return Qt::AlignCenter;
    case Alignment::kLeft:
      break;
  }
  return Qt::AlignLeft | Qt::AlignVCenter;
}

void AppendNumber(std::string& out, double number, Mask mask) {
  switch (mask) {
    case Mask::kAmount:
    case Mask::kQuantity:
      return text::AppendAmount(out, number);
    case Mask::kSummary:
      return Append(out, text::FormatSummary(number));
    case Mask::kPercent:
      return Append(out, text::FormatPercent(number));
    case Mask::kThousands:
      return Append(out, text::FormatThousands(number));
    case Mask::kText:
    case Mask::kDate:
    case Mask::kTick:
    case Mask::kNumber:
      break;
  }
  text::AppendNumber(out, number);
}

QString NumberText(double number, Mask mask) {
  std::string text;
  AppendNumber(text, number, mask);
  return QString::fromStdString(text);
}

double ShownNumber(double number, Mask mask) {
  if (!std::isfinite(number) || !HasDecimals(mask)) {
    return number;
  }
  return mask == Mask::kPercent ? text::FormatPercent(number).toDouble()
                                : text::RoundAmount(number);
}

}  // namespace quorvane::table
