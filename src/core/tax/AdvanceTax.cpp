#include "core/tax/AdvanceTax.h"

#include "core/files/TableFile.h"
#include "core/text/Tr.h"

#include <QFile>

namespace quorvane::tax {
namespace {

enum Cell { kFirstYear, kLastDay, kSource, kCells };

[[noreturn]] void FailAt(std::size_t line) {
  throw files::TableError(Tr("Tax", "Line %1 of advance-tax-windows.csv is no window.")
                              .arg(static_cast<qulonglong>(line))
                              .toStdString());
}

/// "15/06" as a day of the year.
text::Date DayIn(text::FinancialYear year, const files::TextRow& row) {
  const std::string& cell = row.cells[kLastDay];
  const auto of = [&](int calendar_year) {
    return text::ParseDmy(cell + "/" + std::to_string(calendar_year));
  };
  const auto day = of(year.FirstCalendarYear());
  const auto next = of(year.FirstCalendarYear() + 1);
  if (!day || !next) {
    FailAt(row.line);
  }
  return year.Contains(*day) ? *day : *next;
}

}  // namespace

std::vector<AdvanceTaxWindow> AdvanceTaxWindows(const QString& data_folder,
                                                text::FinancialYear year) {
  const QString path = data_folder + QStringLiteral("/tax/advance-tax-windows.csv");
  if (!QFile::exists(path)) {
    return {};
  }
  const files::TextTable table = files::ReadTableFile(path);
  std::vector<AdvanceTaxWindow> windows;
  std::optional<text::FinancialYear> newest;
  for (std::size_t i = 1; i < table.rows.size(); ++i) {
    const files::TextRow& row = table.rows[i];
    if (row.cells.size() != kCells) {
      FailAt(row.line);
    }
    const auto first_year = text::FinancialYear::Parse(row.cells[kFirstYear]);
    if (!first_year) {
      FailAt(row.line);
    }
    if (*first_year > year || (newest && *first_year < *newest)) {
      continue;
    }
    if (newest != first_year) {
      windows.clear();
      newest = first_year;
    }
    const text::Date last_day = DayIn(year, row);
    windows.push_back(
        {windows.empty() ? year.FirstDay() : windows.back().last_day + std::chrono::days(1),
         last_day});
  }
  return windows;
}

}  // namespace quorvane::tax
