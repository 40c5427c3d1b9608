#include "reporting/charts/ChartData.h"

#include "core/text/Amounts.h"

#include <QLocale>

#include <algorithm>
#include <numeric>

namespace quorvane::charts {
namespace {

using reporting::Cell;

std::int64_t SumOf(const std::vector<std::int64_t>& paise) {
  return std::accumulate(paise.begin(), paise.end(), std::int64_t{0});
}

Cell ShareOf(std::int64_t part, std::int64_t whole) {
  constexpr double kPerCent = 100;
  return whole == 0 ? Cell()
                    : Cell(kPerCent * static_cast<double>(part) / static_cast<double>(whole));
}

/// The amounts of one category, or of all together.
reporting::Row RowOf(const ChartData& chart, std::ptrdiff_t category) {
  const bool total = category < 0;
  reporting::Row row;
  row.kind = total ? reporting::RowKind::kNetTotal : reporting::RowKind::kData;
  row.cells.emplace_back(total ? QStringLiteral("Total") : chart.categories[category]);
  std::int64_t across = 0;
  for (const ChartData::Series& series : chart.series) {
    const std::int64_t paise =
        total ? SumOf(series.paise) : series.paise[static_cast<std::size_t>(category)];
    across += paise;
    row.cells.emplace_back(text::FromPaise(paise));
  }
  if (chart.kind == ChartKind::kParts) {
    row.cells.push_back(ShareOf(across, SumOf(chart.series.front().paise)));
  } else if (chart.kind == ChartKind::kStacked) {
    row.cells.emplace_back(text::FromPaise(across));
  }
  return row;
}

reporting::Table TableOfAmounts(const ChartData& chart) {
  reporting::Table table;
  table.columns.push_back(reporting::TextColumn(chart.category_heading));
  for (const ChartData::Series& series : chart.series) {
    table.columns.push_back(reporting::AmountColumn(series.name));
  }
  if (chart.kind == ChartKind::kParts) {
    table.columns.push_back(reporting::AmountColumn(QStringLiteral("Per Cent")));
  } else if (chart.kind == ChartKind::kStacked) {
    table.columns.push_back(reporting::AmountColumn(QStringLiteral("Total")));
  }
  if (chart.IsEmpty()) {
    return table;
  }
  for (std::ptrdiff_t category = 0; category < chart.categories.size(); ++category) {
    table.rows.push_back(RowOf(chart, category));
  }
  if (chart.kind != ChartKind::kLines) {
    table.rows.push_back(RowOf(chart, -1));
  }
  return table;
}

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

bool ChartData::IsEmpty() const {
  return std::ranges::all_of(series, [](const Series& one) {
    return std::ranges::all_of(one.paise, [](std::int64_t paise) { return paise == 0; });
  });
}

reporting::ReportDocument TableOf(const ChartData& chart) {
  reporting::ReportDocument document;
  document.titles << chart.title;
  if (!chart.subtitle.isEmpty()) {
    document.titles << chart.subtitle;
  }
  document.tables.push_back(TableOfAmounts(chart));
  document.notes = chart.notes;
  return document;
}

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
