#include "core/actions/Terms.h"
#include "core/text/Isin.h"
#include "portfolio/PortfolioRows.h"

#include <fmt/format.h>

#include <array>

namespace quorvane::portfolio {
namespace {

constexpr auto kKindWords = [] {
  std::array<std::string_view, actions::kKinds.size()> words;
  for (std::size_t i = 0; i < words.size(); ++i) {
    words[i] = actions::kKinds[i].file_name;
  }
  return words;
}();

}  // namespace

/// Empty is none.
text::Shares ActionRows::AnyShares(int column) {
  return text::Shares(fields_.Table().Number(static_cast<std::size_t>(column)));
}

/// The place in the list of actions that a number from 1 on means.
std::optional<std::size_t> ActionRows::ActionAt(int column) {
  const double number = fields_.Table().Number(static_cast<std::size_t>(column));
  const auto place = static_cast<std::size_t>(number);
  if (number < 1 || static_cast<double>(place) != number || place > portfolio_.actions.size()) {
    fields_.Table().Fail(static_cast<std::size_t>(column),
                         fmt::format("expected the number of a row of corporate_actions.csv, "
                                     "1 to {}",
                                     portfolio_.actions.size()));
    return std::nullopt;
  }
  return place - 1;
}

void ActionRows::ReadIsin() {
  using namespace isins;
  IsinRow row;
  row.scrip = fields_.Scrip(kScripCode);
  row.isin = {fields_.Text(kIsin), fields_.DayText(kFromDate)};
  row.line = fields_.Table().Line();
  if (!text::IsValidIsin(row.isin.isin.toStdString())) {
    fields_.Table().Fail(kIsin, "expected an ISIN with its check digit, found " +
                                    Quoted(row.isin.isin.toStdString()));
  }
  portfolio_.isins.push_back(std::move(row));
}

void ActionRows::ReadAction() {
  using namespace corporate_actions;
  ActionRow row;
  row.scrip = fields_.Scrip(kScripCode);
  const int kind = fields_.Table().Choice(kKind, kKindWords);
  const auto ex_day = fields_.Table().DateOf(kExDate);
  row.other = fields_.OptionalScrip(kOtherScripCode);
  records::Action& record = row.record;
  record.record_day = fields_.DayText(kRecordDate);
  record.new_shares = AnyShares(kNew);
  record.old_shares = AnyShares(kOld);
  record.price = fields_.Table().Number(kPrice);
  record.cost_percent = fields_.Table().Number(kCostPercent);
  record.note = fields_.Text(kNote);
  record.allotment_day = fields_.DayText(kAllotmentDate);
  record.applied = fields_.Table().OptionalNumber(kApplied).value_or(1) != 0;
  row.line = fields_.Table().Line();
  // A row that is refused keeps its place, because lots and dividends count the rows.
  if (kind >= 0 && ex_day) {
    record.kind = actions::kKinds[static_cast<std::size_t>(kind)].kind;
    record.ex_day = text::FormatDmy(*ex_day);
    row.ex_day = *ex_day;
  }
  portfolio_.actions.push_back(std::move(row));
}

void ActionRows::ReadActionLot() {
  using namespace corporate_action_lots;
  ActionLotRow row;
  const auto action = ActionAt(kAction);
  row.client = fields_.Client(kClientCode);
  row.account = fields_.Account(kAccountNo);
  row.scrip = fields_.Scrip(kScripCode);
  row.to_scrip = fields_.OptionalScrip(kToScripCode);
  row.acquired = fields_.Table().DateOf(kAcquired);
  records::ActionLot& record = row.record;
  record.rate = fields_.Table().Number(kRate);
  record.out = AnyShares(kOut);
  record.to_rate = fields_.Table().Number(kToRate);
  record.in = AnyShares(kIn);
  record.acquired = row.acquired ? text::FormatDmy(*row.acquired) : QString();
  record.brokerage = fields_.Table().Number(kBrokerage);
  record.service_tax = fields_.Table().Number(kServiceTax);
  record.stt = fields_.Table().Number(kStt);
  row.line = fields_.Table().Line();
  if (record.in && (!row.to_scrip || !row.acquired)) {
    fields_.Table().Fail(kIn, "expected scrip and day of acquisition of the shares that come in");
  }
  if (action) {
    row.action = *action;
    portfolio_.action_lots.push_back(std::move(row));
  }
}

void ActionRows::ReadDividend() {
  using namespace dividends;
  DividendRow row;
  row.client = fields_.Client(kClientCode);
  row.account = fields_.Account(kAccountNo);
  row.scrip = fields_.Scrip(kScripCode);
  const auto date = fields_.Table().DateOf(kDate);
  records::Dividend& record = row.record;
  record.quantity = fields_.Table().Shares(kQuantity);
  record.per_share = fields_.Table().PositiveNumber(kPerShare);
  record.tax_deducted = fields_.Table().Number(kTaxDeducted);
  if (fields_.Table().OptionalNumber(kAction)) {
    row.action = ActionAt(kAction);
  }
  row.line = fields_.Table().Line();
  if (record.tax_deducted > record.Gross()) {
    fields_.Table().Fail(kTaxDeducted, "expected no more than the dividend");
  }
  if (date) {
    record.date = text::FormatDmy(*date);
    portfolio_.dividends.push_back(std::move(row));
  }
}

}  // namespace quorvane::portfolio
