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

Result<Period> ReadPeriod(const QString& from, const QString& to) {
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

namespace {

constexpr int kMonths = 12;
constexpr int kApril = 4;

text::Date FirstDay(int month, int year) {
  return *text::MakeDate(1, month, year);
}

}  // namespace

const QStringList& MonthNames() {
  // The spelling of the second month of the year is the one that the users' records have.
  static const QStringList kNames{
      QStringLiteral("April"),   QStringLiteral("May"),      QStringLiteral("June"),
      QStringLiteral("July"),    QStringLiteral("August"),   QStringLiteral("September"),
      QStringLiteral("October"), QStringLiteral("November"), QStringLiteral("December"),
      QStringLiteral("January"), QStringLiteral("Febuary"),  QStringLiteral("March")};
  return kNames;
}

int MonthNumber(const QString& name) {
  for (int i = 0; i < kMonths; ++i) {
    if (MonthNames()[i].compare(name.trimmed(), Qt::CaseInsensitive) == 0) {
      return (i + kApril - 1) % kMonths + 1;
    }
  }
  return 0;
}

Result<Period> MonthPeriod(text::FinancialYear year, int month_number) {
  if (month_number < 1 || month_number > kMonths) {
    return Refusal{
        QCoreApplication::translate(
            "ReportPeriod", "Month is not between in Financial year Period.Pls Fill Correct"),
        QString()};
  }
  const int calendar_year = year.FirstCalendarYear() + (month_number < kApril ? 1 : 0);
  const text::Date next = month_number == kMonths ? FirstDay(1, calendar_year + 1)
                                                  : FirstDay(month_number + 1, calendar_year);
  return Period{FirstDay(month_number, calendar_year), next - std::chrono::days(1)};
}

}  // namespace quorvane::reporting
