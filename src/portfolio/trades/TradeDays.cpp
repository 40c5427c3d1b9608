#include "portfolio/trades/TradeDays.h"

#include "core/text/Amounts.h"
#include "portfolio/SameDay.h"

#include <fmt/format.h>

#include <algorithm>
#include <tuple>
#include <unordered_map>

namespace quorvane::portfolio {
namespace {

using text::Shares;

/// Trades of one text are one line.
std::string LineKey(const Trade& trade, std::uint32_t scrip, bool doubled, TradePlan::Fills fills,
                    std::size_t place) {
  std::string key = fmt::format("{}|{}|{}|{}|{}{}{}|", trade.day.time_since_epoch().count(),
                                trade.exchange, trade.bill_number, scrip,
                                static_cast<int>(trade.side), doubled, trade.trade_for_trade);
  if (fills == TradePlan::Fills::kKept) {
    return key + std::to_string(place);
  }
  if (trade.order_number.empty()) {
    text::AppendExact(key, trade.rate);
  } else {
    key += trade.order_number;
  }
  return key;
}

TradeLine LineOf(const TradeFile& file, const Trade& trade, std::uint32_t scrip, bool doubled) {
  TradeLine line;
  line.day = trade.day;
  line.exchange = file.exchanges[trade.exchange];
  line.bill_number = trade.bill_number;
  line.settlement = trade.settlement;
  line.scrip = scrip;
  line.side = trade.side;
  line.rate = trade.rate;
  line.state = doubled ? LineState::kDoubled : LineState::kNew;
  return line;
}

/// The average rate of the line's trades; exactly their rate when they have the same.
void SetRate(TradeLine& line, const TradeFile& file) {
  double value = 0;
  bool same = true;
  for (const std::uint32_t place : line.trades) {
    const Trade& trade = file.trades[place];
    value += trade.Value();
    same = same && trade.rate == line.rate;
  }
  if (!same) {
    line.rate = text::Tidy(value / line.quantity.Number());
  }
}

/// Lines that are matched with each other: of a day, a scrip and a state. What was entered by hand
/// stands for itself, for the case that the user takes it in all the same.
using Group = std::tuple<text::Date, std::uint32_t, LineState>;

Group GroupOf(const TradeLine& line) {
  return {line.day, line.scrip, line.state};
}

bool CanBeMatched(const TradeLine& line, const TradeFile& file) {
  return line.state != LineState::kDoubled && !file.trades[line.trades.front()].trade_for_trade;
}

/// How much of each side of a group is without delivery.
std::map<Group, DayShares> MatchedTotals(const std::vector<TradeLine>& lines,
                                         const TradeFile& file) {
  std::map<Group, DayShares> totals;
  for (const TradeLine& line : lines) {
    if (CanBeMatched(line, file)) {
      totals[GroupOf(line)].Of(line.side) += line.quantity;
    }
  }
  for (auto& [group, total] : totals) {
    total.bought = total.sold = std::min(total.bought, total.sold);
  }
  return totals;
}

}  // namespace

std::vector<TradeLine> JoinedLines(const TradeFile& file, std::span<const std::uint32_t> scrips,
                                   const std::vector<bool>& doubled, TradePlan::Fills fills) {
  std::vector<TradeLine> lines;
  std::unordered_map<std::string, std::size_t> places;
  for (std::size_t i = 0; i < file.trades.size(); ++i) {
    const Trade& trade = file.trades[i];
    const std::uint32_t scrip = scrips[trade.scrip];
    const auto [entry, fresh] =
        places.try_emplace(LineKey(trade, scrip, doubled[i], fills, i), lines.size());
    if (fresh) {
      lines.push_back(LineOf(file, trade, scrip, doubled[i]));
    }
    TradeLine& line = lines[entry->second];
    line.quantity += trade.quantity;
    line.trades.push_back(static_cast<std::uint32_t>(i));
  }
  for (TradeLine& line : lines) {
    SetRate(line, file);
  }
  std::ranges::stable_sort(lines, {}, [](const TradeLine& line) {
    return std::tie(line.day, line.exchange, line.bill_number);
  });
  return lines;
}

std::vector<TradeLine> WithoutDelivery(std::vector<TradeLine> lines, const TradeFile& file) {
  std::map<Group, DayShares> left = MatchedTotals(lines, file);
  std::vector<TradeLine> divided;
  divided.reserve(lines.size());
  for (TradeLine& line : lines) {
    if (!CanBeMatched(line, file)) {
      divided.push_back(std::move(line));
      continue;
    }
    Shares& open = left[GroupOf(line)].Of(line.side);
    const Shares matched = std::min(open, line.quantity);
    open -= matched;
    if (matched) {
      TradeLine part = line;
      part.quantity = matched;
      part.non_delivery = true;
      divided.push_back(std::move(part));
    }
    if (matched < line.quantity) {
      line.quantity -= matched;
      divided.push_back(std::move(line));
    }
  }
  return divided;
}

}  // namespace quorvane::portfolio
