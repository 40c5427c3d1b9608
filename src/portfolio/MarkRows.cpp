#include "portfolio/PortfolioRows.h"
#include "portfolio/trades/TradeIdentity.h"

#include <cmath>

namespace quorvane::portfolio {

bool NamesScrip(std::string_view trade_key) {
  return WithScrip(trade_key, "1") != WithScrip(trade_key, "2");
}

void MarkRows::ReadOpeningMark() {
  using namespace opening_marks;
  OpeningMarkRow row;
  row.client = fields_.Client(kClientCode);
  row.account = fields_.Account(kAccountNo);
  const auto year = fields_.Table().YearOf(kFyear);
  row.scrip = fields_.Scrip(kScripCode);
  row.line = fields_.Table().Line();
  if (year) {
    row.year = *year;
    portfolio_.opening_marks.push_back(row);
  }
}

void MarkRows::ReadTradeKey() {
  using namespace trade_keys;
  constexpr double kMostParts = 1e6;
  TradeKeyRow row;
  row.client = fields_.Client(kClientCode);
  row.account = fields_.Account(kAccountNo);
  row.broker = fields_.Broker(kBroker);
  row.bill_number = fields_.Table().Text(kBillNo);
  // Blanks at its end make no other key in the database.
  const std::string_view key = fields_.Table().Text(kTradeKey);
  row.key = key.substr(0, key.find_last_not_of(' ') + 1);
  row.scrip = fields_.OptionalScrip(kScripCode);
  const auto date = fields_.Table().DateOf(kBillDate);
  const double part = fields_.Table().OptionalNumber(kBillPart).value_or(1);
  row.line = fields_.Table().Line();
  if (!(part >= 1 && part <= kMostParts) || part != std::floor(part)) {
    fields_.Table().Fail(kBillPart, "expected a whole number from 1 on");
    return;
  }
  if (!row.scrip && NamesScrip(row.key)) {
    fields_.Table().Fail(kScripCode, "expected the scrip of the trade, found nothing");
    return;
  }
  row.bill_part = static_cast<std::size_t>(part);
  if (date) {
    row.bill_date = *date;
    portfolio_.trade_keys.push_back(std::move(row));
  }
}

void MarkRows::ReadStatementCheck() {
  using namespace statement_checks;
  constexpr double kMostHoldings = 1e9;
  StatementCheckRow row;
  row.client = fields_.Client(kClientCode);
  row.account = fields_.Account(kAccountNo);
  row.line = fields_.Table().Line();
  const auto count = [&](std::size_t column, int& number) {
    const double value = fields_.Table().Number(column);
    const bool is_count = value >= 0 && value <= kMostHoldings && value == std::floor(value);
    if (is_count) {
      number = static_cast<int>(value);
    } else {
      fields_.Table().Fail(column, "expected a whole number from 0 on");
    }
    return is_count;
  };
  const auto statement_day = fields_.Table().DateOf(kStatementDay);
  const auto checked_on = fields_.Table().DateOf(kCheckedOn);
  const bool counted =
      count(kCompared, row.record.compared) && count(kDiffering, row.record.differing);
  if (statement_day && checked_on && counted) {
    row.record.statement_day = text::FormatDmy(*statement_day);
    row.record.checked_on = text::FormatDmy(*checked_on);
    portfolio_.statement_checks.push_back(std::move(row));
  }
}

}  // namespace quorvane::portfolio
