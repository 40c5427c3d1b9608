#include "portfolio/trades/TradePlan.h"

#include "core/records/BillAmounts.h"
#include "core/text/Amounts.h"
#include "core/text/Tr.h"
#include "portfolio/trades/TradeDays.h"
#include "portfolio/trades/TradeIdentity.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>
#include <unordered_map>

namespace quorvane::portfolio {
namespace {

using records::Side;
using text::Shares;

/// For each scrip the first place that means the same one.
std::vector<std::uint32_t> SameScrips(const std::vector<TradedScrip>& scrips) {
  std::vector<std::uint32_t> same(scrips.size());
  std::map<std::string, std::uint32_t> first;
  for (std::uint32_t place = 0; place < scrips.size(); ++place) {
    const TradedScrip& scrip = scrips[place];
    const std::string name = scrip.match == ScripMatch::kKnown ? std::to_string(scrip.scrip.value)
                             : scrip.match == ScripMatch::kNew
                                 ? "new " + NewCode(scrip.naming).toStdString()
                                 : "place " + std::to_string(place);
    same[place] = first.try_emplace(name, place).first->second;
  }
  return same;
}

using DayTotal = std::tuple<text::Date, ScripId, Side>;

std::map<DayTotal, Shares> TotalsOf(std::span<const EnteredTotal> entered) {
  std::map<DayTotal, Shares> totals;
  for (const EnteredTotal& total : entered) {
    totals[{total.day, total.scrip, total.side}] += total.quantity;
  }
  return totals;
}

/// The charges that the file tells of the line's trades, in one sum.
TradeCharges ToldOf(const TradeLine& line, const TradeFile& file) {
  TradeCharges sum;
  const auto add = [](std::optional<double>& to, const std::optional<double>& charge) {
    if (charge) {
      to = text::Tidy(to.value_or(0) + *charge);
    }
  };
  for (const std::uint32_t place : line.trades) {
    const TradeCharges& charges = file.trades[place].charges;
    add(sum.brokerage, charges.brokerage);
    add(sum.tax, charges.tax);
    add(sum.stt, charges.stt);
    add(sum.exchange_fee, charges.exchange_fee);
    add(sum.others, charges.others);
    add(sum.taxed_brokerage, charges.taxed_brokerage);
    add(sum.taxes, charges.taxes);
  }
  return sum;
}

Shares QuantityOf(const TradeLine& line, const TradeFile& file) {
  Shares quantity;
  for (const std::uint32_t place : line.trades) {
    quantity += file.trades[place].quantity;
  }
  return quantity;
}

/// The part of an amount, in paise, so that both parts add up to it: the delivered part gets the
/// rest.
double PartOf(double whole, double share, bool rest) {
  const double first = text::RoundAmount(whole * (rest ? 1 - share : share));
  return rest ? text::Tidy(whole - first) : first;
}

/// The charges of a line that is a part of its trades. `share` is its part of the shares, and
/// `stt_share` its part of the securities transaction tax.
TradeCharges PartOf(const TradeCharges& whole, double share, double stt_share, bool rest) {
  const auto part = [&](const std::optional<double>& charge, double of) {
    return charge ? std::optional(PartOf(*charge, of, rest)) : std::nullopt;
  };
  return {part(whole.brokerage, share), part(whole.tax, share),
          part(whole.stt, stt_share),   part(whole.exchange_fee, share),
          part(whole.others, share),    part(whole.taxed_brokerage, share),
          part(whole.taxes, share)};
}

}  // namespace

QString TextOf(LineState state) {
  switch (state) {
    case LineState::kNew:
      return Tr("Trades", "New");
    case LineState::kDoubled:
      return Tr("Trades", "Taken In Already");
    case LineState::kEntered:
      return Tr("Trades", "Probably Entered by Hand");
    case LineState::kLikely:
      return Tr("Trades", "Script to be Confirmed");
    case LineState::kUnknown:
      return Tr("Trades", "Unknown Script");
    case LineState::kImpossible:
      return Tr("Trades", "Shares are Missing");
  }
  return {};
}

TradePlan::TradePlan(TradeFile file, std::vector<TradedScrip> scrips, RecordedTrades recorded,
                     ChargeRates rates)
    : file_(std::move(file)),
      scrips_(std::move(scrips)),
      recorded_(std::move(recorded)),
      rates_(std::move(rates)) {}

void TradePlan::Build(Fills fills, Progress& progress) {
  progress.Begin(Tr("Trades", "Looking through the Trades"), 0);
  const std::vector<std::string> keys = Keys(KnownScrips());
  std::unordered_set<std::string_view> seen;
  doubled_.assign(file_.trades.size(), false);
  for (std::size_t i = 0; i < keys.size(); ++i) {
    doubled_[i] = recorded_.taken.contains(keys[i]) || !seen.insert(keys[i]).second;
  }
  progress.Step(0);
  progress.ThrowIfCancelled();
  Join(fills);
  SetStates();
  SetCharges();
  RoundStt();
  Recall();
  progress.Step(0);
}

void TradePlan::Join(Fills fills) {
  const std::vector<std::uint32_t> same = SameScrips(scrips_);
  std::vector<TradeLine> lines = JoinedLines(file_, same, doubled_, fills);
  // What was entered by hand is matched as it is recorded.
  MarkEntered(lines);
  lines_ = WithoutDelivery(std::move(lines), file_);
}

/// Lines of which bills of the day have as many shares as all lines of their scrip and side.
void TradePlan::MarkEntered(std::vector<TradeLine>& lines) const {
  std::map<DayTotal, Shares> totals;
  const auto day_of = [this](const TradeLine& line) {
    return DayTotal{line.day, scrips_[line.scrip].scrip, line.side};
  };
  const auto is_known = [this](const TradeLine& line) {
    return line.state != LineState::kDoubled && scrips_[line.scrip].match == ScripMatch::kKnown;
  };
  for (const TradeLine& line : lines) {
    if (is_known(line)) {
      totals[day_of(line)] += line.quantity;
    }
  }
  const std::map<DayTotal, Shares> entered = TotalsOf(recorded_.entered);
  for (TradeLine& line : lines) {
    const auto found = is_known(line) ? entered.find(day_of(line)) : entered.end();
    if (found != entered.end() && found->second == totals[day_of(line)]) {
      line.state = LineState::kEntered;
    }
  }
}

bool TradePlan::IsOutdated(const RecordedTrades& now) const {
  const std::vector<std::string> keys = Keys(KnownScrips());
  std::map<DayTotal, Shares> before = TotalsOf(recorded_.entered);
  std::map<DayTotal, Shares> after = TotalsOf(now.entered);
  return std::ranges::any_of(lines_, [&](const TradeLine& line) {
    if (!line.IsToBeSaved()) {
      return false;
    }
    const DayTotal day{line.day, scrips_[line.scrip].scrip, line.side};
    return before[day] != after[day] || std::ranges::any_of(line.trades, [&](std::uint32_t trade) {
             return now.taken.contains(keys[trade]);
           });
  });
}

void TradePlan::SetStates() {
  for (TradeLine& line : lines_) {
    const TradedScrip& scrip = scrips_[line.scrip];
    if (line.state == LineState::kDoubled) {
      continue;
    }
    if (!scrip.IsSettled()) {
      line.state = scrip.match == ScripMatch::kLikely ? LineState::kLikely : LineState::kUnknown;
    }
    line.ticked = line.state != LineState::kEntered;
  }
}

void TradePlan::SetCharges() {
  for (TradeLine& line : lines_) {
    const double share = line.quantity.Number() / QuantityOf(line, file_).Number();
    TradeCharges told = ToldOf(line, file_);
    if (share < 1) {
      const double here = rates_->Stt(line.day, line.side, line.non_delivery) * share;
      const double there = rates_->Stt(line.day, line.side, !line.non_delivery) * (1 - share);
      const double stt_share = here + there > 0 ? here / (here + there) : share;
      told = PartOf(told, share, stt_share, !line.non_delivery);
    }
    const ChargedLine charged{line.day, line.side, line.non_delivery, line.exchange,
                              line.rate * line.quantity.Number()};
    const bool has_charges = file_.trades[line.trades.front()].has_charges;
    line.charges = ChargesOf(charged, told, has_charges, *rates_);
    line.charges.tax = told.tax ? line.charges.tax : text::RoundAmount(line.charges.tax);
  }
}

/// Proposed tax is in whole rupees a bill, and in paise a line.
void TradePlan::RoundStt() {
  const auto is_proposed = [](const TradeLine& line) {
    return line.state != LineState::kDoubled && line.charges.stt_percent > 0;
  };
  for (std::size_t first = 0; first < lines_.size();) {
    std::size_t end = first;
    double sum = 0;
    const auto bill = [&](std::size_t i) {
      return std::tie(lines_[i].day, lines_[i].exchange, lines_[i].bill_number);
    };
    for (; end < lines_.size() && bill(end) == bill(first); ++end) {
      sum += is_proposed(lines_[end]) ? lines_[end].charges.stt : 0;
    }
    const double whole = records::InWholeRupees(sum);
    double so_far = 0;
    double given = 0;
    for (std::size_t i = first; i < end; ++i) {
      if (is_proposed(lines_[i])) {
        so_far += lines_[i].charges.stt;
        const double up_to = text::RoundAmount(whole * so_far / sum);
        lines_[i].charges.stt = text::RoundAmount(up_to - given);
        given = up_to;
      }
    }
    first = end;
  }
}

/// The user's ticks and changes, on the lines that were built anew.
void TradePlan::Recall() {
  for (TradeLine& line : lines_) {
    const LineName name{line.trades.front(), line.non_delivery};
    if (const auto tick = ticks_.find(name); tick != ticks_.end()) {
      line.ticked = tick->second && line.state != LineState::kDoubled;
    }
    if (const auto found = changes_.find(name); found != changes_.end()) {
      const LineChange& change = found->second;
      line.quantity = change.quantity;
      line.rate = change.rate;
      line.charges.brokerage = change.brokerage;
      line.charges.tax = change.tax;
      line.charges.stt = change.stt;
    }
  }
}

std::size_t TradePlan::Count(LineState state) const {
  return static_cast<std::size_t>(std::ranges::count(lines_, state, &TradeLine::state));
}

void TradePlan::Settle(std::uint32_t place, ScripId scrip) {
  scrips_[place].scrip = scrip;
  scrips_[place].match = ScripMatch::kKnown;
  scrips_[place].confirmed = true;
}

void TradePlan::SettleAsNew(std::uint32_t place) {
  scrips_[place].scrip = {};
  scrips_[place].match = ScripMatch::kNew;
  scrips_[place].confirmed = true;
}

void TradePlan::Tick(std::size_t line, bool on) {
  TradeLine& ticked = lines_[line];
  ticked.ticked = on && ticked.state != LineState::kDoubled;
  ticks_[{ticked.trades.front(), ticked.non_delivery}] = ticked.ticked;
}

void TradePlan::Change(std::size_t line, const LineChange& change) {
  changes_[{lines_[line].trades.front(), lines_[line].non_delivery}] = change;
  Recall();
}

void TradePlan::ForgetImpossible() {
  for (TradeLine& line : lines_) {
    if (line.state == LineState::kImpossible) {
      line.state = LineState::kNew;
      line.missing = {};
    }
  }
}

void TradePlan::MarkImpossible(std::size_t line, Shares missing) {
  lines_[line].state = LineState::kImpossible;
  lines_[line].missing = missing;
}

std::vector<ScripId> TradePlan::KnownScrips() const {
  std::vector<ScripId> known;
  known.reserve(scrips_.size());
  for (const TradedScrip& scrip : scrips_) {
    known.push_back(scrip.match == ScripMatch::kKnown ? scrip.scrip : ScripId{});
  }
  return known;
}

std::vector<std::string> TradePlan::Keys(std::span<const ScripId> scrips) const {
  std::vector<std::string> keys;
  keys.reserve(file_.trades.size());
  std::unordered_map<std::string, int> counts;
  for (const Trade& trade : file_.trades) {
    const std::string& exchange = file_.exchanges[trade.exchange];
    if (!trade.trade_number.empty()) {
      keys.push_back(IdentityOfNumbered(trade, exchange));
      continue;
    }
    const ScripId scrip = scrips[trade.scrip];
    const std::string name =
        scrip ? std::to_string(scrip.value) : "?" + std::to_string(trade.scrip);
    const std::string likeness = LikenessOf(trade, exchange, name);
    const int count = ++counts[std::to_string(trade.file) + likeness];
    keys.push_back(IdentityAmongAlike(likeness, count));
  }
  return keys;
}

}  // namespace quorvane::portfolio
