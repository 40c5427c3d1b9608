#include "portfolio/reconcile/StatementLines.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace quorvane::reconcile {

using paper::HasPhrase;

void StatementFacts::TakeDay(const std::string& text, const std::string& upper) {
  for (const char* phrase : {"AS ON", "AS OF", "AS AT"}) {
    if (!statement_.day) {
      statement_.day = paper::DayAfter(text, phrase);
    }
  }
  const auto days = paper::DaysIn(text);
  if (!period_end_ && days.size() >= 2 &&
      (HasPhrase(upper, "PERIOD") || HasPhrase(upper, "FROM"))) {
    period_end_ = days[1].day;
  }
  if (!any_day_ && days.size() == 1 && (HasPhrase(upper, "DATE") || text.size() < 40)) {
    any_day_ = days.front().day;
  }
}

void StatementFacts::Take(const std::string& text) {
  constexpr std::size_t kTitleLines = 20;
  static constexpr std::array<std::string_view, 6> kOthers{
      "MARGIN STATEMENT", "RETENTION STATEMENT", "STATEMENT OF RETENTION", "PAY-OUT",
      "PAYOUT",           "MARGIN REPORT"};
  const std::string upper = paper::Upper(text);
  if (std::string account = numbers_.Take(text); !account.empty()) {
    if (std::ranges::find(statement_.accounts, account) == statement_.accounts.end()) {
      statement_.accounts.push_back(account);
    }
    account_ = std::move(account);
  }
  TakeDay(text, upper);
  speaks_of_holdings_ = speaks_of_holdings_ || HasPhrase(upper, "HOLDING") ||
                        HasPhrase(upper, "HOLDINGS") || HasPhrase(upper, "SOH");
  if (++lines_ <= kTitleLines && other_title_.empty()) {
    const auto* other = std::ranges::find_if(
        kOthers, [&](std::string_view title) { return HasPhrase(upper, title); });
    other_title_ = other == kOthers.end() ? std::string_view() : *other;
  }
}

void StatementFacts::Finish() {
  if (!statement_.day) {
    statement_.day = period_end_ ? period_end_ : any_day_;
  }
  if (!speaks_of_holdings_) {
    statement_.no_holdings = other_title_;
  }
  AddUp(statement_.holdings);
}

void AddUp(std::vector<StatedHolding>& holdings) {
  std::map<std::pair<std::string, std::string>, std::size_t> places;
  std::vector<StatedHolding> sums;
  for (StatedHolding& holding : holdings) {
    const auto [place, fresh] = places.try_emplace({holding.account, holding.isin}, sums.size());
    if (fresh) {
      sums.push_back(std::move(holding));
    } else {
      sums[place->second].quantity += holding.quantity;
    }
  }
  holdings = std::move(sums);
}

}  // namespace quorvane::reconcile
