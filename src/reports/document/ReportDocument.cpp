#include "reports/document/ReportDocument.h"

#include "core/text/Amounts.h"

namespace quorvane::report {
namespace {

QString NumberInMask(double number, Mask mask) {
  switch (mask) {
    case Mask::kAmount:
      return text::FormatAmount(number);
    case Mask::kSummary:
      return text::FormatSummary(number);
    case Mask::kPercent:
      return text::FormatPercent(number);
    case Mask::kText:
    case Mask::kDate:
    case Mask::kNumber:
      break;
  }
  return text::NumberText(number);
}

}  // namespace

QString CellText(const Cell& cell, Mask mask) {
  if (const auto* shown = std::get_if<QString>(&cell)) {
    return *shown;
  }
  if (const auto* number = std::get_if<double>(&cell)) {
    return NumberInMask(*number, mask);
  }
  if (const auto* date = std::get_if<text::Date>(&cell)) {
    return text::FormatDmy(*date);
  }
  return {};
}

}  // namespace quorvane::report
