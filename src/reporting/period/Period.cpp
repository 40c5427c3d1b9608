#include "reporting/period/Period.h"

#include "core/text/Tr.h"

namespace quorvane::reporting {

Result<Period> ReadPeriod(const QString& from, const QString& to) {
  if (from.trimmed().isEmpty()) {
    return Refusal{Tr("ReportPeriod", "Enter From Date."), Field::kFromDate};
  }
  if (to.trimmed().isEmpty()) {
    return Refusal{Tr("ReportPeriod", "Enter To Date."), Field::kToDate};
  }
  const auto first = text::ParseDmy(from);
  const auto last = text::ParseDmy(to);
  if (!first || !last) {
    return Refusal{Tr("ReportPeriod", "Enter Proper Date."),
                   first ? Field::kToDate : Field::kFromDate};
  }
  if (*first > *last) {
    return Refusal{Tr("ReportPeriod", "From Date Can't be Greater than To Date."),
                   Field::kFromDate};
  }
  return Period{*first, *last};
}

MaybeRefusal RefuseOutside(const Period& period, text::FinancialYear year) {
  const bool from_is_in = year.Contains(period.from);
  if (from_is_in && year.Contains(period.to)) {
    return std::nullopt;
  }
  return Refusal{
      Tr("ReportPeriod", "The date lies outside the financial year %1.").arg(year.Text()),
      from_is_in ? Field::kToDate : Field::kFromDate};
}

QString PeriodLine(const Period& period) {
  return QStringLiteral("Period - From ") + text::FormatDmy(period.from) + QStringLiteral(" To ") +
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
        Tr("ReportPeriod", "Month is not between in Financial year Period.Pls Fill Correct"),
        Field::kNone};
  }
  const int calendar_year = year.FirstCalendarYear() + (month_number < kApril ? 1 : 0);
  const text::Date next = month_number == kMonths ? FirstDay(1, calendar_year + 1)
                                                  : FirstDay(month_number + 1, calendar_year);
  return Period{FirstDay(month_number, calendar_year), next - std::chrono::days(1)};
}

}  // namespace quorvane::reporting
