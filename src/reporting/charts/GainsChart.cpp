#include "reporting/charts/GainsChart.h"

#include <QLocale>

namespace quorvane::charts {
namespace {

constexpr int kMonths = 12;

int MonthNumber(text::Date date) {
  const std::chrono::year_month_day day(date);
  return static_cast<int>(day.year()) * kMonths +
         static_cast<int>(static_cast<unsigned>(day.month())) - 1;
}

QString NameOf(int month_number) {
  return QStringLiteral("%1 %2").arg(
      QLocale::c().standaloneMonthName(month_number % kMonths + 1, QLocale::ShortFormat),
      QString::number(month_number / kMonths));
}

}  // namespace

QString MonthName(text::Date date) {
  return NameOf(MonthNumber(date));
}

GainsChart::GainsChart(const reporting::Period& period) : first_month_(MonthNumber(period.from)) {
  chart_.kind = ChartKind::kStacked;
  chart_.title = QStringLiteral("Gains by kind");
  chart_.category_heading = QStringLiteral("Month");
  for (int month = first_month_; month <= MonthNumber(period.to); ++month) {
    chart_.categories << NameOf(month);
  }
  const auto months = static_cast<std::size_t>(chart_.categories.size());
  for (const char* name : {"Speculation", "Short Term", "Long Term"}) {
    chart_.series.push_back({QLatin1String(name), std::vector<std::int64_t>(months)});
  }
}

void GainsChart::Add(text::Date sale, gains::GainKind kind, std::int64_t paise) {
  const int month = MonthNumber(sale) - first_month_;
  if (month >= 0 && month < chart_.categories.size()) {
    chart_.series[static_cast<std::size_t>(kind)].paise[static_cast<std::size_t>(month)] += paise;
  }
}

ChartData GainsChart::Take() {
  return std::move(chart_);
}

}  // namespace quorvane::charts
