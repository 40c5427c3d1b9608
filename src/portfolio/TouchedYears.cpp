#include "portfolio/TouchedYears.h"

namespace quorvane::portfolio {

std::set<text::FinancialYear> TouchedYears(const Portfolio& portfolio) {
  std::set<text::FinancialYear> years;
  for (const OpeningRow& row : portfolio.openings) {
    years.insert(row.record.year);
  }
  const auto add_dates = [&](const auto& rows) {
    text::Date last{};
    for (const auto& row : rows) {
      if (row.date != last || years.empty()) {
        years.insert(text::FinancialYear::Of(row.date));
        last = row.date;
      }
    }
  };
  add_dates(portfolio.bills);
  add_dates(portfolio.transfers);
  return years;
}

}  // namespace quorvane::portfolio
