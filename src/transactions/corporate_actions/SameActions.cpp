#include "transactions/corporate_actions/SameActions.h"

#include "core/text/Amounts.h"

#include <algorithm>
#include <map>
#include <optional>
#include <tuple>

namespace quorvane::corporate_actions {
namespace {

using Event = std::tuple<ScripId, ActionKind, QString>;  // with the ex-day
using Places = std::vector<std::size_t>;

Event EventOf(const Action& action) {
  return {action.scrip, action.kind, action.ex_day};
}

bool IsSameRatio(const Action& one, const Action& other) {
  return one.new_shares == text::Shares::OfMillionths(text::Proportion(
                               other.new_shares.Millionths(), one.old_shares.Millionths(),
                               other.old_shares.Millionths())) &&
         other.new_shares == text::Shares::OfMillionths(text::Proportion(
                                 one.new_shares.Millionths(), other.old_shares.Millionths(),
                                 one.old_shares.Millionths()));
}

bool IsSameNumber(double one, double other) {
  return text::Tidy(one) == text::Tidy(other);
}

/// No term that `part` has is another in `whole`.
bool Says(const Action& whole, const Action& part) {
  return (!part.new_shares || IsSameRatio(whole, part)) &&
         (!part.other || whole.other == part.other) &&
         (part.price == 0 || IsSameNumber(whole.price, part.price)) &&
         (part.cost_percent == 0 || IsSameNumber(whole.cost_percent, part.cost_percent));
}

bool IsNew(const NumberedAction& row) {
  return row.listed.state == ActionState::kNew;
}

std::map<Event, Places> NewByEvent(const std::vector<NumberedAction>& rows) {
  std::map<Event, Places> places;
  for (std::size_t at = 0; at < rows.size(); ++at) {
    if (IsNew(rows[at])) {
      places[EventOf(rows[at].listed.action)].push_back(at);
    }
  }
  return places;
}

void MarkPartsOfOthers(std::vector<NumberedAction>& rows, Places places) {
  std::ranges::stable_sort(places, {}, [&](std::size_t at) { return rows[at].listed.open.size(); });
  Places kept;
  for (const std::size_t at : places) {
    NumberedAction& row = rows[at];
    const bool is_doubled = std::ranges::any_of(kept, [&](std::size_t other) {
      return rows[other].row != row.row && Says(rows[other].listed.action, row.listed.action);
    });
    if (is_doubled) {
      row.listed.state = ActionState::kDoubled;
    } else {
      kept.push_back(at);
    }
  }
}

/// The sum of an exchange's new dividends; nullopt when one is open or there is none.
std::optional<double> SumOf(const std::vector<NumberedAction>& rows, const Places& places) {
  double sum = 0;
  for (const std::size_t at : places) {
    sum += rows[at].listed.action.price;
    if (!rows[at].listed.open.empty()) {
      return std::nullopt;
    }
  }
  return places.empty() ? std::nullopt : std::optional(text::Tidy(sum));
}

/// The new rows of each source, those of the source that comes first in the files first.
std::vector<Places> BySource(const std::vector<NumberedAction>& rows, const Places& places) {
  std::vector<Places> groups;
  for (const std::size_t at : places) {
    if (!IsNew(rows[at])) {
      continue;
    }
    const auto group = std::ranges::find_if(groups, [&](const Places& one) {
      return rows[one.front()].listed.source == rows[at].listed.source;
    });
    if (group == groups.end()) {
      groups.push_back({at});
    } else {
      group->push_back(at);
    }
  }
  return groups;
}

void Mark(std::vector<NumberedAction>& rows, const Places& places, ActionState state) {
  for (const std::size_t at : places) {
    rows[at].listed.state = state;
  }
}

void MarkSameSums(std::vector<NumberedAction>& rows, const Places& places) {
  std::vector<double> sums;
  for (const Places& group : BySource(rows, places)) {
    const auto sum = SumOf(rows, group);
    if (sum && std::ranges::find(sums, *sum) != sums.end()) {
      Mark(rows, group, ActionState::kDoubled);
    } else if (sum) {
      sums.push_back(*sum);
    }
  }
}

void MarkRecordedSums(std::vector<NumberedAction>& rows, const Places& places,
                      std::span<const Action* const> recorded) {
  double paid = 0;
  for (const Action* one : recorded) {
    paid += one->price;
  }
  for (const Places& group : BySource(rows, places)) {
    if (SumOf(rows, group) == text::Tidy(paid)) {
      Mark(rows, group, ActionState::kRecorded);
    }
  }
}

}  // namespace

void MarkDoubled(std::vector<NumberedAction>& rows) {
  for (const auto& [event, places] : NewByEvent(rows)) {
    MarkPartsOfOthers(rows, places);
    if (std::get<ActionKind>(event) == ActionKind::kDividend) {
      MarkSameSums(rows, places);
    }
  }
}

void MarkRecorded(std::vector<NumberedAction>& rows, std::span<const Action> recorded) {
  std::map<Event, std::vector<const Action*>> by_event;
  for (const Action& one : recorded) {
    by_event[EventOf(one)].push_back(&one);
  }
  for (const auto& [event, places] : NewByEvent(rows)) {
    const auto found = by_event.find(event);
    if (found == by_event.end()) {
      continue;
    }
    if (std::get<ActionKind>(event) == ActionKind::kDividend) {
      MarkRecordedSums(rows, places, found->second);
    }
    for (const std::size_t at : places) {
      const Action& action = rows[at].listed.action;
      const bool is_recorded =
          std::ranges::any_of(found->second, [&](const Action* one) { return Says(*one, action); });
      if (is_recorded) {
        rows[at].listed.state = ActionState::kRecorded;
      }
    }
  }
}

}  // namespace quorvane::corporate_actions
