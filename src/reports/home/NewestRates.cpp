#include "reports/home/NewestRates.h"

#include "core/records/Query.h"
#include "core/records/Rates.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <vector>

namespace quorvane::home {
namespace {

using database::Connection;

constexpr std::size_t kDaysRead = 5;  // with rates, the newest ones
constexpr std::size_t kScripsAQuery = 250;

struct RateDay {
  Date day;
  QString year;
  QString date;  // as stored
};

class RateSearch {
 public:
  RateSearch(Connection& connection, const std::set<ScripId>& scrips, Date today)
      : connection_(connection), scrips_(scrips), today_(today) {}

  NewestRates Run() {
    const std::vector<RateDay> days = Days();
    if (!days.empty()) {
      found_.market_day = days.front().day;
    }
    for (std::size_t at = 0; at < days.size() && at < kDaysRead && !Incomplete().empty(); ++at) {
      ReadDay(days[at]);
    }
    if (days.size() > kDaysRead) {
      ReadOlder();
    }
    return std::move(found_);
  }

 private:
  /// The days with rates, the newest first. The index answers it without reading the rates.
  std::vector<RateDay> Days() {
    std::vector<RateDay> days;
    for (const auto& row :
         connection_.Open("Select Fyear,MDate From MarketRate Group By Fyear,MDate")) {
      const auto day = text::ParseDmy(row.Utf8(1));
      if (day && *day <= today_) {
        days.push_back({*day, row.Text(0), row.Text(1)});
      }
    }
    std::ranges::sort(days, std::greater(), &RateDay::day);
    return days;
  }

  void ReadDay(const RateDay& day) {
    for (const auto& row : connection_.Open(
             "Select ScrId,Rate From MarketRate Where Fyear=? and MDate=? and Rate>0 Order By Id",
             day.year, day.date)) {
      Add(ScripId{row.Int(0)}, {day.day, row.Double(1)});
    }
  }

  /// Of two rates of one day the one that was recorded first counts.
  void Add(ScripId scrip, const rates::DatedRate& rate) {
    if (!scrips_.contains(scrip)) {
      return;
    }
    const auto [found, is_first] = found_.of.try_emplace(scrip, RatePair{rate});
    RatePair& pair = found->second;
    if (is_first || rate.date == pair.newest.date) {
      return;
    }
    if (rate.date > pair.newest.date) {
      pair.before = std::exchange(pair.newest, rate);
    } else if (!pair.before || rate.date > pair.before->date) {
      pair.before = rate;
    }
  }

  std::vector<ScripId> Incomplete() const {
    std::vector<ScripId> left;
    std::ranges::copy_if(scrips_, std::back_inserter(left), [this](ScripId scrip) {
      const auto found = found_.of.find(scrip);
      return found == found_.of.end() || !found->second.before;
    });
    return left;
  }

  void ReadOlder() {
    const std::vector<ScripId> left = Incomplete();
    for (std::size_t first = 0; first < left.size(); first += kScripsAQuery) {
      const auto some =
          std::span(left).subspan(first, std::min(kScripsAQuery, left.size() - first));
      using Rate = records::MarketRate;
      records::Select<Rate>(connection_)
          .In(&Rate::scrip, some)
          .OrderBy(&Rate::id)
          .Only<&Rate::scrip, &Rate::date, &Rate::rate>([this](const Rate& rate) {
            const auto day = text::ParseDmy(rate.date);
            if (day && *day <= today_ && rate.rate > 0) {
              Add(rate.scrip, {*day, rate.rate});
            }
          });
    }
  }

  Connection& connection_;
  const std::set<ScripId>& scrips_;
  Date today_;
  NewestRates found_;
};

}  // namespace

NewestRates ReadNewestRates(Connection& connection, const std::set<ScripId>& scrips, Date today) {
  return RateSearch(connection, scrips, today).Run();
}

}  // namespace quorvane::home
