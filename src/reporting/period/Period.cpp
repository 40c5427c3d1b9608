#include "reporting/period/Period.h"

#include <QCoreApplication>

namespace quorvane::reporting {
namespace {

QString Tr(const char* text) {
  return QCoreApplication::translate("ReportPeriod", text);
}

Refusal Refused(const char* text, const char* box) {
  return {Tr(text), QLatin1String(box)};
}

}  // namespace

std::variant<Period, Refusal> ReadPeriod(const QString& from, const QString& to) {
  if (from.trimmed().isEmpty()) {
    return Refused(QT_TRANSLATE_NOOP("ReportPeriod", "Enter From Date."), kFromBox);
  }
  if (to.trimmed().isEmpty()) {
    return Refused(QT_TRANSLATE_NOOP("ReportPeriod", "Enter To Date."), kToBox);
  }
  const auto first = text::ParseDmy(from);
  const auto last = text::ParseDmy(to);
  if (!first || !last) {
    return Refused(QT_TRANSLATE_NOOP("ReportPeriod", "Enter Proper Date."),
                   first ? kToBox : kFromBox);
  }
  if (*first > *last) {
    return Refused(QT_TRANSLATE_NOOP("ReportPeriod", "From Date Can't be Greater than To Date."),
                   kFromBox);
  }
  return Period{*first, *last};
}

MaybeRefusal RefuseOutside(const Period& period, text::FinancialYear year) {
  const bool from_is_in = year.Contains(period.from);
  if (from_is_in && year.Contains(period.to)) {
    return std::nullopt;
  }
  return Refusal{
      Tr(QT_TRANSLATE_NOOP("ReportPeriod", "The date lies outside the financial year %1."))
          .arg(year.Text()),
      QLatin1String(from_is_in ? kToBox : kFromBox)};
}

QString PeriodLine(const Period& period) {
  return Tr("Period - From ") + text::FormatDmy(period.from) + Tr(" To ") +
         text::FormatDmy(period.to);
}

}  // namespace quorvane::reporting
